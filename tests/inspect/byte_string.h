#ifndef KOVRAN_TESTS_INSPECT_BYTE_STRING_H
#define KOVRAN_TESTS_INSPECT_BYTE_STRING_H

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace kovran::test {

// The bytes of hexadecimal digits, which may stand in groups: "000001 4001 0c".
[[nodiscard]] std::string bytes(std::string_view digits);

// NAL units with a big-endian length of `prefix_size` bytes before each.
[[nodiscard]] std::string length_prefixed(const std::vector<std::string>& units,
                                          std::size_t prefix_size);

}  // namespace kovran::test

#endif  // KOVRAN_TESTS_INSPECT_BYTE_STRING_H
