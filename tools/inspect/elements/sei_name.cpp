#include "elements/sei_name.h"

namespace kovran::inspect {
namespace {

// Those of clause D.2.1 that the library's table lacks, or has elsewhere; empty for all others.
std::string name_beside_the_table(unsigned int payload_type, h265_nal_unit_type unit) {
    constexpr unsigned int filler_payload = 3;
    constexpr unsigned int shutter_interval_info = 205;
    if (unit == SUFFIX_SEI_NUT && payload_type == filler_payload) {
        return "filler_payload";
    }
    if (unit == PREFIX_SEI_NUT && payload_type == shutter_interval_info) {
        return "shutter_interval_info";
    }
    return {};
}

// What the library calls filler payload in a suffix unit is a type that is reserved there.
bool is_misnamed(unsigned int payload_type, h265_nal_unit_type unit) {
    return unit == SUFFIX_SEI_NUT &&
           payload_type == h265_nal_sei_payload_type_suffix_filler_payload;
}

}  // namespace

std::string sei_name(const h265_nal_sei_reader& message) {
    std::string name = name_beside_the_table(message.payload_type, message.nal_unit_type);
    if (name.empty() && !is_misnamed(message.payload_type, message.nal_unit_type)) {
        name = h265_nal_sei_payload_type_to_str(
            static_cast<h265_nal_sei_payload_type>(message.payload_type), message.nal_unit_type);
    }
    return name.empty() ? "payload_type_" + std::to_string(message.payload_type) : name;
}

}  // namespace kovran::inspect
