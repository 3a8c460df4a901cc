#ifndef KOVRAN_TOOLS_INSPECT_OUTPUT_HEXADECIMAL_H
#define KOVRAN_TOOLS_INSPECT_OUTPUT_HEXADECIMAL_H

#include <string>

namespace kovran::inspect {

// The bytes of [first, last) as digits: "0a80".
[[nodiscard]] std::string hexadecimal(const unsigned char* first, const unsigned char* last);

}  // namespace kovran::inspect

#endif  // KOVRAN_TOOLS_INSPECT_OUTPUT_HEXADECIMAL_H
