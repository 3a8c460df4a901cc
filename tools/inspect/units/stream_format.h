#ifndef KOVRAN_TOOLS_INSPECT_UNITS_STREAM_FORMAT_H
#define KOVRAN_TOOLS_INSPECT_UNITS_STREAM_FORMAT_H

#include <kovran/h2645_common/h2645_common_nalfmt.h>

#include <string>
#include <string_view>
#include <vector>

namespace kovran::inspect {

// What the formats are called on the command line.
[[nodiscard]] std::vector<std::string> format_names();
// Of one of those names.
[[nodiscard]] h2645_common_nalfmt format_of(std::string_view name);
[[nodiscard]] std::string_view format_name(h2645_common_nalfmt format);

}  // namespace kovran::inspect

#endif  // KOVRAN_TOOLS_INSPECT_UNITS_STREAM_FORMAT_H
