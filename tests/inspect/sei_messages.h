#ifndef KOVRAN_TESTS_INSPECT_SEI_MESSAGES_H
#define KOVRAN_TESTS_INSPECT_SEI_MESSAGES_H

#include <kovran/h265/h265_nal.h>

#include <string>

#include "support/bit_writer.h"

namespace kovran::test {

// The bytes of a payload; bits that close it stand behind one that ends within a byte.
std::string payload_of(bit_writer bits);

// payloadType, payloadSize and the payload.
std::string sei_message(unsigned int type, const std::string& payload);

// A NAL unit of such messages, with its start code of four bytes.
std::string sei_unit(const std::string& messages, h265_nal_unit_type type = PREFIX_SEI_NUT);

}  // namespace kovran::test

#endif  // KOVRAN_TESTS_INSPECT_SEI_MESSAGES_H
