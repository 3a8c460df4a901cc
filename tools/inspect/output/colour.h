#ifndef KOVRAN_TOOLS_INSPECT_OUTPUT_COLOUR_H
#define KOVRAN_TOOLS_INSPECT_OUTPUT_COLOUR_H

#include <kovran/h265/h265_nal.h>

#include "input/file_descriptor.h"

#include <string_view>

namespace kovran::inspect {

enum class colour_choice { on_terminals, always, never };

[[nodiscard]] bool wants_colour(colour_choice choice, const file_descriptor& file);

// What switches a terminal to the colour of this kind of unit; empty for its usual one.
[[nodiscard]] std::string_view colour_of(h265_nal_unit_type type);

inline constexpr std::string_view bold = "\x1b[1m";
inline constexpr std::string_view usual_colour = "\x1b[0m";

}  // namespace kovran::inspect

#endif  // KOVRAN_TOOLS_INSPECT_OUTPUT_COLOUR_H
