#include <kovran/h265/sei/h265_float_value.h>

#include <cmath>

namespace kovran {

std::optional<double> h265_float_value::value() const {
    const int all_ones = (1 << exponent_length) - 1;
    if (exponent == all_ones) {
        return std::nullopt;
    }
    const double fraction = std::ldexp(static_cast<double>(mantissa), -mantissa_length);
    const double magnitude =
        exponent == 0 ? std::ldexp(fraction, -30) : std::ldexp(1 + fraction, exponent - 31);
    return sign ? -magnitude : magnitude;
}

}  // namespace kovran
