#ifndef KOVRAN_TOOLS_INSPECT_ELEMENTS_MEANING_H
#define KOVRAN_TOOLS_INSPECT_ELEMENTS_MEANING_H

#include "elements/trace_sink.h"

#include <string>
#include <string_view>

namespace kovran::inspect {

// What an element's value stands for, by the tables of the standard; empty where there is no table.
[[nodiscard]] std::string meaning_of(const shown_element& element);

// Bits that say nothing about the stream's content: trailing bits, and the lengths and types of SEI
// messages, which are known by other names.
[[nodiscard]] bool is_framing(const shown_element& element);

// Flags of an extension of a parameter set, one or all.
[[nodiscard]] bool is_named_as_extension_data(std::string_view name);

// The bits of an extension, which are told of as one element without a value.
[[nodiscard]] bool is_extension_data(const shown_element& element);

// One bit of an extension that was read bit by bit; all of them have the same name.
[[nodiscard]] bool is_extension_flag(const shown_element& element);

}  // namespace kovran::inspect

#endif  // KOVRAN_TOOLS_INSPECT_ELEMENTS_MEANING_H
