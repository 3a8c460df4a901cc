#ifndef KOVRAN_TOOLS_INSPECT_UNITS_TYPE_LOOKUP_H
#define KOVRAN_TOOLS_INSPECT_UNITS_TYPE_LOOKUP_H

#include <kovran/h265/h265_nal.h>

#include <string_view>

namespace kovran::inspect {

// The type that is meant by a number or by a name, upper or lower case: by all of it, by its begin
// ("SPS"), or by one of its words ("SUFFIX"). Where that is no type, or could be several, a failure
// says which are near.
[[nodiscard]] h265_nal_unit_type type_of(std::string_view text);

}  // namespace kovran::inspect

#endif  // KOVRAN_TOOLS_INSPECT_UNITS_TYPE_LOOKUP_H
