#ifndef KOVRAN_SRC_H265_SEI_H265_FLOAT_VALUE_SYNTAX_H
#define KOVRAN_SRC_H265_SEI_H265_FLOAT_VALUE_SYNTAX_H

#include <kovran/h265/sei/h265_float_value.h>

#include "h2645_common/element.h"

#include <algorithm>

namespace kovran {

// The range of every element that gives the precision of mantissas, clause G.14.3.
constexpr unsigned int highest_float_precision = 31;

// The elements of a value behind its sign, with a mantissa as long as clause G.14.3 has it for a
// precision. A mantissa of no bits is no element.
template <class Walker>
void float_of_precision(Walker& walk, h265_float_value& value, unsigned int precision,
                        const char* exponent, const char* mantissa, element_indices at) {
    walk.assign(value.exponent_length, 6);
    walk.u(6, named(exponent, value.exponent, at));
    const int steps = static_cast<int>(std::max<unsigned int>(value.exponent, 1) + precision) - 31;
    walk.assign(value.mantissa_length, std::max(0, steps));
    if (value.mantissa_length != 0) {
        walk.u_v(value.mantissa_length, named(mantissa, value.mantissa, at));
    }
}

// The same with the length of the mantissa in the stream.
template <class Walker>
void float_of_coded_length(Walker& walk, h265_float_value& value, const char* exponent,
                           const char* length_minus1, const char* mantissa, element_indices at) {
    walk.assign(value.exponent_length, 7);
    walk.u(7, named(exponent, value.exponent, at));
    unsigned char coded_length = 0;
    walk.u(5, named(length_minus1, coded_length, at));
    walk.assign(value.mantissa_length, coded_length + 1);
    walk.u_v(value.mantissa_length, named(mantissa, value.mantissa, at));
}

}  // namespace kovran

#endif  // KOVRAN_SRC_H265_SEI_H265_FLOAT_VALUE_SYNTAX_H
