#ifndef KOVRAN_H265_SEI_H265_NAL_SEI_RESERVED_MESSAGE_H
#define KOVRAN_H265_SEI_H265_NAL_SEI_RESERVED_MESSAGE_H

#include <vector>

namespace kovran {

// reserved_sei_message(), clause D.2.1: a payload of a type that the standard does not know, and
// any other that cannot be taken apart.
struct h265_nal_sei_reserved_message {
    std::vector<unsigned char> reserved_sei_message_payload_byte;  // b(8), payloadSize entries
};

}  // namespace kovran

#endif  // KOVRAN_H265_SEI_H265_NAL_SEI_RESERVED_MESSAGE_H
