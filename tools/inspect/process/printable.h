#ifndef KOVRAN_TOOLS_INSPECT_PROCESS_PRINTABLE_H
#define KOVRAN_TOOLS_INSPECT_PROCESS_PRINTABLE_H

#include <string>
#include <string_view>

namespace kovran::inspect {

// The text with each control character as "\x1b", so that the name of a file can neither command a
// terminal nor look like a message of its own.
[[nodiscard]] std::string printable(std::string_view text);

}  // namespace kovran::inspect

#endif  // KOVRAN_TOOLS_INSPECT_PROCESS_PRINTABLE_H
