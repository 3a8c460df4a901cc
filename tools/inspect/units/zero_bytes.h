#ifndef KOVRAN_TOOLS_INSPECT_UNITS_ZERO_BYTES_H
#define KOVRAN_TOOLS_INSPECT_UNITS_ZERO_BYTES_H

#include <cstddef>

namespace kovran::inspect {

// How many zero bytes stand at the begin or end of [first, last). Gigabytes of them are counted as
// fast as they are read.
[[nodiscard]] std::size_t leading_zeros(const unsigned char* first, const unsigned char* last);
[[nodiscard]] std::size_t trailing_zeros(const unsigned char* first, const unsigned char* last);

}  // namespace kovran::inspect

#endif  // KOVRAN_TOOLS_INSPECT_UNITS_ZERO_BYTES_H
