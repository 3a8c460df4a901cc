#include "elements/sei_name.h"

namespace kovran::inspect {

std::string sei_name(const h265_nal_sei_reader& message) {
    const std::string name = h265_nal_sei_payload_type_to_str(
        static_cast<h265_nal_sei_payload_type>(message.payload_type), message.nal_unit_type);
    return name.empty() ? "payload_type_" + std::to_string(message.payload_type) : name;
}

}  // namespace kovran::inspect
