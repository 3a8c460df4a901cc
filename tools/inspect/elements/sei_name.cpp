#include "elements/sei_name.h"

#include <kovran/h265/sei/h265_nal_sei_message.h>

namespace kovran::inspect {
bool has_standard_name(const h265_nal_sei_reader& message) {
    return *h265_nal_sei_payload_name(message.payload_type) != '\0';
}

std::string sei_name(const h265_nal_sei_reader& message) {
    return has_standard_name(message) ? h265_nal_sei_payload_name(message.payload_type)
                                      : "payload_type_" + std::to_string(message.payload_type);
}

}  // namespace kovran::inspect
