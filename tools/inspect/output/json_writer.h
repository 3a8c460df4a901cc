#ifndef KOVRAN_TOOLS_INSPECT_OUTPUT_JSON_WRITER_H
#define KOVRAN_TOOLS_INSPECT_OUTPUT_JSON_WRITER_H

#include "output/output.h"

#include <nlohmann/json.hpp>

namespace kovran::inspect {

// A value for write_json(): a string of the hexadecimal digits of these bytes, which stay where
// they are until it is written.
[[nodiscard]] nlohmann::ordered_json json_of_bytes(const unsigned char* begin,
                                                   const unsigned char* end);

// Writes a value without holding its text. What is not UTF-8 in a string becomes replacement
// characters.
void write_json(const nlohmann::ordered_json& value, output& lines);

// The same of the keys of an object, for more of them to be added.
void write_open_object(const nlohmann::ordered_json& object, output& lines);

}  // namespace kovran::inspect

#endif  // KOVRAN_TOOLS_INSPECT_OUTPUT_JSON_WRITER_H
