#ifndef KOVRAN_TOOLS_INSPECT_OUTPUT_JSON_WRITER_H
#define KOVRAN_TOOLS_INSPECT_OUTPUT_JSON_WRITER_H

#include "output/output.h"

#include <nlohmann/json.hpp>

namespace kovran::inspect {

// Writes a value without holding its text. Binary values become strings of hexadecimal digits;
// what is not UTF-8 in a string becomes replacement characters.
void write_json(const nlohmann::ordered_json& value, output& lines);

// The same of the keys of an object, for more of them to be added.
void write_open_object(const nlohmann::ordered_json& object, output& lines);

}  // namespace kovran::inspect

#endif  // KOVRAN_TOOLS_INSPECT_OUTPUT_JSON_WRITER_H
