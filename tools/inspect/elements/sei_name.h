#ifndef KOVRAN_TOOLS_INSPECT_ELEMENTS_SEI_NAME_H
#define KOVRAN_TOOLS_INSPECT_ELEMENTS_SEI_NAME_H

#include <string>

namespace kovran::inspect {

[[nodiscard]] bool has_standard_name(unsigned int payload_type);

// As the standard calls the payload, or "payload_type_200" where it has no name for it.
[[nodiscard]] std::string sei_name(unsigned int payload_type);

}  // namespace kovran::inspect

#endif  // KOVRAN_TOOLS_INSPECT_ELEMENTS_SEI_NAME_H
