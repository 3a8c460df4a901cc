#ifndef KOVRAN_TOOLS_INSPECT_ELEMENTS_SEI_MEANING_H
#define KOVRAN_TOOLS_INSPECT_ELEMENTS_SEI_MEANING_H

#include <kovran/h265/sei/h265_nal_sei_message.h>

#include <string>
#include <vector>

namespace kovran::inspect {

// What an SEI message says, in a line or several; none where its elements say it by themselves.
[[nodiscard]] std::vector<std::string> meaning_of(const h265_nal_sei_message& message);

}  // namespace kovran::inspect

#endif  // KOVRAN_TOOLS_INSPECT_ELEMENTS_SEI_MEANING_H
