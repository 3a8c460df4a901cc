#include <kovran/h265/sei/h265_float_value.h>

#include <cmath>

namespace kovran {

std::optional<double> h265_float_value::value() const {
    const int all_ones = (1 << exponent_length) - 1;
    if (exponent == all_ones || mantissa_length > 32) {
        return std::nullopt;
    }
    const double fraction = std::ldexp(mantissa, -mantissa_length);
    const double magnitude =
        exponent == 0 ? std::ldexp(fraction, -30) : std::ldexp(1 + fraction, exponent - 31);
    return sign ? -magnitude : magnitude;
}

}  // namespace kovran
