#include "elements/sei_name.h"

#include <kovran/h265/sei/h265_nal_sei_message.h>

namespace kovran::inspect {

bool has_standard_name(unsigned int payload_type) {
    return *h265_nal_sei_payload_name(payload_type) != '\0';
}

std::string sei_name(unsigned int payload_type) {
    return has_standard_name(payload_type) ? h265_nal_sei_payload_name(payload_type)
                                           : "payload_type_" + std::to_string(payload_type);
}

}  // namespace kovran::inspect
