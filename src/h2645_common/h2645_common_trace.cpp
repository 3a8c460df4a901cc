#include <kovran/h2645_common/h2645_common_trace.h>

namespace kovran {
namespace {

// Structures stand behind the ones that they are in.
std::string path_to(const h2645_common_trace& trace, std::size_t structure) {
    std::string path;
    while (structure < trace.structures.size()) {
        const h2645_common_traced_structure& innermost = trace.structures[structure];
        path.insert(0, to_string(innermost.name) + '.');
        structure = innermost.parent < structure ? innermost.parent : trace.no_structure;
    }
    return path;
}

}  // namespace

std::string path_of(const h2645_common_trace& trace, const h2645_common_traced_element& element) {
    return path_to(trace, element.structure) + to_string(element.name);
}

std::string path_of(const h2645_common_trace& trace,
                    const h2645_common_traced_structure& structure) {
    return path_to(trace, structure.parent) + to_string(structure.name);
}

}  // namespace kovran
