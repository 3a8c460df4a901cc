#include <kovran/h2645_common/h2645_common_trace.h>

namespace kovran {
namespace {

std::string path_to(const h2645_common_trace& trace, unsigned int structure) {
    if (structure >= trace.structures.size()) {
        return {};
    }
    return path_of(trace, trace.structures[structure]) + '.';
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
