#include "elements/nested_framing.h"

#include <algorithm>
#include <string_view>

namespace kovran::inspect {

bool is_nested_message(const h2645_common_element_name& structure) {
    return structure.name == std::string_view("sei_message");
}

bool nested_framing::add(const shown_element& byte) {
    constexpr unsigned int largest = 0xFFFFFFFE;  // as in h265_nal_sei_message
    const std::string_view name = byte.name.name;
    sum_ += std::min(static_cast<unsigned int>(byte.value), largest - sum_);
    if (name == "last_payload_type_byte") {
        payload_type_ = sum_;
        sum_ = 0;
    }
    return name == "last_payload_size_byte";
}

}  // namespace kovran::inspect
