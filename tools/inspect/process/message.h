#ifndef KOVRAN_TOOLS_INSPECT_PROCESS_MESSAGE_H
#define KOVRAN_TOOLS_INSPECT_PROCESS_MESSAGE_H

#include <string_view>

namespace kovran::inspect {

// Writes to standard error. Where that does not work there is nobody to be told of it.
void write_message(std::string_view text) noexcept;

}  // namespace kovran::inspect

#endif  // KOVRAN_TOOLS_INSPECT_PROCESS_MESSAGE_H
