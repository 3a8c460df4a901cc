#ifndef KOVRAN_TESTS_SUPPORT_RBSP_OF_UNIT_H
#define KOVRAN_TESTS_SUPPORT_RBSP_OF_UNIT_H

#include <cstddef>
#include <vector>

#include "support/stream_reading.h"

namespace kovran::test {

// The bytes behind the header of a unit, without emulation prevention bytes.
inline std::vector<unsigned char> rbsp_of_unit(const stream_reading& stream,
                                               const unit_reading& unit) {
    constexpr std::size_t header_bytes = 2;
    std::vector<unsigned char> rbsp;
    std::size_t zeros = 0;
    for (std::size_t i = unit.offset + header_bytes; i < unit.offset + unit.size; ++i) {
        const unsigned char byte = stream.bytes[i];
        if (zeros >= 2 && byte == 3) {
            zeros = 0;
            continue;
        }
        zeros = byte == 0 ? zeros + 1 : 0;
        rbsp.push_back(byte);
    }
    return rbsp;
}

}  // namespace kovran::test

#endif  // KOVRAN_TESTS_SUPPORT_RBSP_OF_UNIT_H
