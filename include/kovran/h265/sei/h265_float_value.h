#ifndef KOVRAN_H265_SEI_H265_FLOAT_VALUE_H
#define KOVRAN_H265_SEI_H265_FLOAT_VALUE_H

#include <kovran/export.h>

#include <cstdint>
#include <optional>

namespace kovran {

// A value that SEI messages about views and depth have as sign, exponent and mantissa, clause
// G.14.3.
struct h265_float_value {
    bool sign = false;                  // u(1), true when negative; not in every message
    unsigned char exponent = 0;         // u(6) or u(7)
    unsigned char exponent_length = 0;  // in bits
    unsigned char mantissa_length = 0;  // in bits
    std::uint64_t mantissa = 0;         // u(v)

    // Nothing when all bits of the exponent are 1, which leaves the value unspecified, or when the
    // value is not in the stream.
    [[nodiscard]] KOVRAN_API std::optional<double> value() const;
};

}  // namespace kovran

#endif  // KOVRAN_H265_SEI_H265_FLOAT_VALUE_H
