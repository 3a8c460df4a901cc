#include "elements/sei_name.h"

namespace kovran::inspect {
namespace {

// Empty for a payload type that the standard does not name.
std::string standard_name(const h265_nal_sei_reader& message) {
    // Those of clause D.2.1 that the library's table lacks, or has elsewhere.
    constexpr unsigned int filler_payload = 3;
    constexpr unsigned int shutter_interval_info = 205;
    const bool is_suffix = message.nal_unit_type == SUFFIX_SEI_NUT;
    if (is_suffix && message.payload_type == filler_payload) {
        return "filler_payload";
    }
    if (is_suffix && message.payload_type == h265_nal_sei_payload_type_suffix_filler_payload) {
        return {};
    }
    if (!is_suffix && message.payload_type == shutter_interval_info) {
        return "shutter_interval_info";
    }
    return h265_nal_sei_payload_type_to_str(
        static_cast<h265_nal_sei_payload_type>(message.payload_type), message.nal_unit_type);
}

}  // namespace

bool has_standard_name(const h265_nal_sei_reader& message) {
    return !standard_name(message).empty();
}

std::string sei_name(const h265_nal_sei_reader& message) {
    const std::string name = standard_name(message);
    return name.empty() ? "payload_type_" + std::to_string(message.payload_type) : name;
}

}  // namespace kovran::inspect
