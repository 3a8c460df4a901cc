#include "elements/sei_name.h"

#include <kovran/h265/sei/h265_nal_sei_message.h>

namespace kovran::inspect {

bool has_standard_name(const h265_nal_sei_reader& message) {
    return *h265_nal_sei_payload_name(message.payload_type) != '\0';
}

std::string sei_name(const h265_nal_sei_reader& message) {
    return sei_name(message.payload_type);
}

std::string sei_name(unsigned int payload_type) {
    const char* const name = h265_nal_sei_payload_name(payload_type);
    return *name != '\0' ? name : "payload_type_" + std::to_string(payload_type);
}

}  // namespace kovran::inspect
