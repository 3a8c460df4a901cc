#ifndef KOVRAN_TOOLS_INSPECT_OUTPUT_ELEMENT_VALUE_H
#define KOVRAN_TOOLS_INSPECT_OUTPUT_ELEMENT_VALUE_H

#include "elements/trace_sink.h"
#include "output/output.h"

#include <string>
#include <string_view>

namespace kovran::inspect {

// A number as such, bytes as "0a80", a text as such, bits as the number that they are: "0x1ff".
void write_value(const shown_element& element, output& lines);

// Bits as above, without "0x".
[[nodiscard]] std::string digits_of_bits(const shown_element& element);

[[nodiscard]] std::string_view text_of(const shown_element& element);

}  // namespace kovran::inspect

#endif  // KOVRAN_TOOLS_INSPECT_OUTPUT_ELEMENT_VALUE_H
