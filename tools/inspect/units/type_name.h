#ifndef KOVRAN_TOOLS_INSPECT_UNITS_TYPE_NAME_H
#define KOVRAN_TOOLS_INSPECT_UNITS_TYPE_NAME_H

#include <kovran/h265/h265_nal.h>

#include <string>

namespace kovran::inspect {

inline constexpr unsigned int type_count = 64;

// As table 7-1 calls the type, "VPS_NUT" or "UNSPEC48"; of the types of 0 to 63.
[[nodiscard]] std::string type_name(h265_nal_unit_type type);

}  // namespace kovran::inspect

#endif  // KOVRAN_TOOLS_INSPECT_UNITS_TYPE_NAME_H
