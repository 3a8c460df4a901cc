#ifndef KOVRAN_TOOLS_INSPECT_OUTPUT_HEXADECIMAL_H
#define KOVRAN_TOOLS_INSPECT_OUTPUT_HEXADECIMAL_H

#include "output/output.h"

namespace kovran::inspect {

// The bytes of [first, last) as digits: "0a80".
void write_hexadecimal(const unsigned char* first, const unsigned char* last, output& lines);

}  // namespace kovran::inspect

#endif  // KOVRAN_TOOLS_INSPECT_OUTPUT_HEXADECIMAL_H
