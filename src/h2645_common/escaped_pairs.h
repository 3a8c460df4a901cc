#ifndef KOVRAN_SRC_H2645_COMMON_ESCAPED_PAIRS_H
#define KOVRAN_SRC_H2645_COMMON_ESCAPED_PAIRS_H

#include <array>
#include <cstddef>
#include <cstring>

// Pairs of zeros with their emulation prevention bytes, 00 00 03, one upon the other: what long
// runs of zeros become in a NAL unit. They are handled eight at a time.
namespace kovran::escaped_pairs {

constexpr std::array<unsigned char, 24> eight = {0, 0, 3, 0, 0, 3, 0, 0, 3, 0, 0, 3,
                                                 0, 0, 3, 0, 0, 3, 0, 0, 3, 0, 0, 3};

constexpr std::array<unsigned char, 16> zeros = {};

// Writes the zeros of the pairs that the `size` bytes at `data` begin with, at least one, and
// returns how many pairs that were: one, or a multiple of eight. `out` may be `data`, or overlap
// with it from below.
inline std::size_t decode(unsigned char* out, const unsigned char* data, std::size_t size) {
    std::size_t pairs = 0;
    while (size >= eight.size() && std::memcmp(data, eight.data(), eight.size()) == 0) {
        std::memcpy(out, zeros.data(), zeros.size());
        out += zeros.size();
        data += eight.size();
        size -= eight.size();
        pairs += 8;
    }
    if (pairs == 0) {
        std::memcpy(out, zeros.data(), 2);
        pairs = 1;
    }
    return pairs;
}

// The other way round: of the pairs that the `size` bytes at `data` begin with, each before a
// reserved third byte, writes one or a multiple of eight, and returns how many that were. There is
// `room` for one at least.
inline std::size_t encode(unsigned char* out, std::size_t room, const unsigned char* data,
                          std::size_t size) {
    std::size_t pairs = 0;
    while (room >= eight.size() && size > zeros.size() && data[zeros.size()] <= 3 &&
           std::memcmp(data, zeros.data(), zeros.size()) == 0) {
        std::memcpy(out, eight.data(), eight.size());
        out += eight.size();
        room -= eight.size();
        data += zeros.size();
        size -= zeros.size();
        pairs += 8;
    }
    if (pairs == 0) {
        std::memcpy(out, eight.data(), 3);
        pairs = 1;
    }
    return pairs;
}

}  // namespace kovran::escaped_pairs

#endif  // KOVRAN_SRC_H2645_COMMON_ESCAPED_PAIRS_H
