#ifndef KOVRAN_SRC_H2645_COMMON_INLINED_BITREADER_H
#define KOVRAN_SRC_H2645_COMMON_INLINED_BITREADER_H

#include <kovran/h2645_common/h2645_common_bitreader.h>

#include <cstddef>

namespace kovran {

// The value of se(v) with a code number, clause 9.2.2.
inline int signed_value(unsigned int code_number) {
    const unsigned int half = code_number >> 1;
    return (code_number & 1U) != 0 ? static_cast<int>(half + 1) : -static_cast<int>(half);
}

// The bit reader with Exp-Golomb codes read in place where they are short, as nearly all are. With
// a call for each of them the next read would wait for the state that the call has just stored.
struct inlined_bitreader : h2645_common_bitreader {
    explicit inlined_bitreader(const h2645_common_bitreader& source)
        : h2645_common_bitreader(source) {}

    [[nodiscard, gnu::always_inline]] unsigned int ue() {
        constexpr unsigned int most_zeros = (widest_get - 1) / 2;  // of a code that take() can give
        refill();
        if (reservoir >> (word_bits - 1 - most_zeros) == 0) {
            return h2645_common_bitreader::ue();
        }
        const auto zeros = static_cast<unsigned int>(__builtin_clz(reservoir));
        return take(static_cast<unsigned char>(2 * zeros + 1)) - 1;
    }

    [[nodiscard, gnu::always_inline]] int se() { return signed_value(ue()); }

    // The bits of the data that are not consumed yet; negative past the end. Positions there are
    // addresses only, and must not be subtracted as pointers.
    [[nodiscard]] std::ptrdiff_t bits_left() const {
        return 8 * (static_cast<std::ptrdiff_t>(address(end)) -
                    static_cast<std::ptrdiff_t>(address(current))) +
               (word_bits - vacant);
    }

    // The bits before the last 1 bit of the data, which begins the trailing bits of an RBSP;
    // negative behind it, and where there is none.
    [[nodiscard]] std::ptrdiff_t bits_to_stop_bit() const {
        const unsigned char* last = end;
        std::ptrdiff_t behind = 0;
        while (last != start && last[-1] == 0) {
            --last;
            behind += 8;
        }
        if (last == start) {
            return -1;
        }
        behind += __builtin_ctz(last[-1]) + 1;
        return bits_left() - behind;
    }
};

}  // namespace kovran

#endif  // KOVRAN_SRC_H2645_COMMON_INLINED_BITREADER_H
