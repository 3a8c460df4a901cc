#include "elements/sei_name.h"

namespace kovran::inspect {
namespace {

const char* standard_name(const h265_nal_sei_reader& message) {
    return h265_nal_sei_payload_type_to_str(
        static_cast<h265_nal_sei_payload_type>(message.payload_type), message.nal_unit_type);
}

}  // namespace

bool has_standard_name(const h265_nal_sei_reader& message) {
    return *standard_name(message) != '\0';
}

std::string sei_name(const h265_nal_sei_reader& message) {
    return has_standard_name(message) ? standard_name(message)
                                      : "payload_type_" + std::to_string(message.payload_type);
}

}  // namespace kovran::inspect
