#include "elements/trace_sink.h"

namespace kovran::inspect {

std::string to_string(const indexed_name& name) {
    std::string text = name.name;
    for (const std::size_t index : name.indices) {
        text += '[' + std::to_string(index) + ']';
    }
    return text;
}

}  // namespace kovran::inspect
