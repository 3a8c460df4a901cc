#ifndef KOVRAN_SRC_H2645_COMMON_WRAPPING_H
#define KOVRAN_SRC_H2645_COMMON_WRAPPING_H

namespace kovran {

// Arithmetic modulo 2^32, where what comes from a stream may be whatever its code can hold. All
// other arithmetic of the library stays in range, and the integer sanitizer watches over it.

[[nodiscard]] inline unsigned int wrapping_sum(unsigned int a, unsigned int b) {
    unsigned int sum = 0;
    static_cast<void>(__builtin_add_overflow(a, b, &sum));
    return sum;
}

[[nodiscard]] inline unsigned int wrapping_difference(unsigned int a, unsigned int b) {
    unsigned int difference = 0;
    static_cast<void>(__builtin_sub_overflow(a, b, &difference));
    return difference;
}

[[nodiscard]] inline unsigned int wrapping_product(unsigned int a, unsigned int b) {
    unsigned int product = 0;
    static_cast<void>(__builtin_mul_overflow(a, b, &product));
    return product;
}

}  // namespace kovran

#endif  // KOVRAN_SRC_H2645_COMMON_WRAPPING_H
