#include <kovran/h2645_common/h2645_common_trace.h>

#include <algorithm>

namespace kovran {
namespace {

// Structures stand behind the ones that they are in.
std::size_t parent_of(const h2645_common_trace& trace, std::size_t structure) {
    const unsigned int parent = trace.structures[structure].parent;
    return parent < structure ? parent : trace.no_structure;
}

std::string path_to(const h2645_common_trace& trace, std::size_t structure) {
    std::string path;
    for (; structure < trace.structures.size(); structure = parent_of(trace, structure)) {
        const h2645_common_traced_structure& innermost = trace.structures[structure];
        if (!innermost.is_prefix()) {
            path.insert(0, to_string(innermost.name) + '.');
        }
    }
    return path;
}

}  // namespace

h2645_common_element_name name_of(const h2645_common_trace& trace,
                                  const h2645_common_traced_element& element) {
    h2645_common_element_name name;
    if (element.structure < trace.structures.size() &&
        trace.structures[element.structure].is_prefix()) {
        name = trace.structures[element.structure].name;
    }
    name.name = element.name;
    name.run = element.run;
    for (std::size_t i = 0; i < element.index_count; ++i) {
        const std::size_t index = element.first_index + i;
        if (name.index_count < name.most_indices && index < trace.indices.size()) {
            name.indices[name.index_count++] = trace.indices[index];
        }
    }
    return name;
}

std::string path_of(const h2645_common_trace& trace, const h2645_common_traced_element& element) {
    return path_to(trace, element.structure) + to_string(name_of(trace, element));
}

std::string path_of(const h2645_common_trace& trace,
                    const h2645_common_traced_structure& structure) {
    return path_to(trace, structure.parent) + to_string(structure.name);
}

}  // namespace kovran
