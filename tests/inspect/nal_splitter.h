#ifndef KOVRAN_TESTS_INSPECT_NAL_SPLITTER_H
#define KOVRAN_TESTS_INSPECT_NAL_SPLITTER_H

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace kovran::test {

// The NAL units of a faultless stream, byte by byte and without the library.
[[nodiscard]] std::vector<std::string> split_annex_b(std::string_view stream);
[[nodiscard]] std::vector<std::string> split_length_prefixed(std::string_view stream,
                                                             std::size_t prefix_size);

}  // namespace kovran::test

#endif  // KOVRAN_TESTS_INSPECT_NAL_SPLITTER_H
