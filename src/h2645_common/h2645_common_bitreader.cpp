#include <kovran/h2645_common/h2645_common_bitreader.h>

#include "h2645_common/inlined_bitreader.h"

#include <cstddef>
#include <cstdint>
#include <cstring>

namespace kovran {
namespace {

// What ue() gives for a code with 32 leading zeros or more: fails every bound on a count, does not
// wrap when 1 is added, and keeps what it sizes small where a count has no bound.
constexpr unsigned int overlong_code = 0xFFFF;

unsigned int leading_zeros(unsigned int word) {
    return static_cast<unsigned int>(__builtin_clz(word));
}

// `current` may have gone past `end`, where pointers must not be subtracted.
std::ptrdiff_t distance(const unsigned char* from, const unsigned char* to) {
    return static_cast<std::ptrdiff_t>(h2645_common_bitreader::address(to)) -
           static_cast<std::ptrdiff_t>(h2645_common_bitreader::address(from));
}

// Also of a range that lies behind its end, where the reader has fed past the data.
bool all_zero(const unsigned char* first, const unsigned char* last) {
    const std::ptrdiff_t size = distance(first, last);
    std::ptrdiff_t at = 0;
    for (; at + 8 <= size; at += 8) {
        std::uint64_t word = 0;
        std::memcpy(&word, first + at, sizeof word);
        if (word != 0) {
            return false;
        }
    }
    for (; at < size; ++at) {
        if (first[at] != 0) {
            return false;
        }
    }
    return true;
}

}  // namespace

unsigned int h2645_common_bitreader::ue() {
    refill();
    unsigned int zeros = 0;
    if (reservoir == 0) {  // 25 to 32 zeros, all that the reservoir holds
        zeros = word_bits - vacant;
        vacant = word_bits;
        refill();
        const unsigned int longest = word_bits - zeros;
        if (longest == 0 || reservoir >> (word_bits - longest) == 0) {
            skip(longest);
            return overlong_code;
        }
    }
    const unsigned int more_zeros = leading_zeros(reservoir);
    zeros += more_zeros;
    consume(more_zeros);
    return get_wide(static_cast<unsigned char>(zeros + 1)) - 1;
}

int h2645_common_bitreader::se() {
    return signed_value(ue());
}

bool h2645_common_more_rbsp_data(h2645_common_bitreader& reader) {
    if (distance(reader.current, reader.end) * 8 +
            (h2645_common_bitreader::word_bits - reader.vacant) <=
        0) {
        return false;
    }
    h2645_common_bitreader ahead = reader;
    if (ahead.get<unsigned int>(1) == 0) {
        return true;
    }
    return ahead.reservoir != 0 || !all_zero(ahead.current, ahead.end);
}

bool h2645_common_skip_rbsp_trailing_bits(h2645_common_bitreader& reader) {
    const bool stop_bit = reader.get<unsigned int>(1) != 0;
    const unsigned int alignment_bits = reader.get<unsigned int>(reader.bits_to_byte_boundary());
    return stop_bit && alignment_bits == 0;
}

}  // namespace kovran
