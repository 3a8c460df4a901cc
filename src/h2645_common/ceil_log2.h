#ifndef KOVRAN_SRC_H2645_COMMON_CEIL_LOG2_H
#define KOVRAN_SRC_H2645_COMMON_CEIL_LOG2_H

namespace kovran {

// Ceil( Log2( count ) ), of a count that is not 0: the bits of an index.
[[nodiscard]] constexpr unsigned char ceil_log2(unsigned int count) {
    unsigned char width = 0;
    for (unsigned int highest = count - 1; highest != 0; highest >>= 1) {
        ++width;
    }
    return width;
}

}  // namespace kovran

#endif  // KOVRAN_SRC_H2645_COMMON_CEIL_LOG2_H
