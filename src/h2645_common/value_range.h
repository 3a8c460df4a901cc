#ifndef KOVRAN_SRC_H2645_COMMON_VALUE_RANGE_H
#define KOVRAN_SRC_H2645_COMMON_VALUE_RANGE_H

#include <cstdint>
#include <limits>

namespace kovran {

// What the standard lets an element be. Reading does not look at it; a trace does.
struct value_range {
    std::int64_t lowest = std::numeric_limits<std::int64_t>::min();
    std::int64_t highest = std::numeric_limits<std::int64_t>::max();

    [[nodiscard]] constexpr bool has(std::int64_t value) const {
        return value >= lowest && value <= highest;
    }
};

[[nodiscard]] constexpr value_range between(std::int64_t lowest, std::int64_t highest) {
    return {lowest, highest};
}
[[nodiscard]] constexpr value_range up_to(std::int64_t highest) {
    return {0, highest};
}
// The widest elements have 32 bits.
[[nodiscard]] constexpr value_range from(std::int64_t lowest) {
    return {lowest, std::numeric_limits<std::uint32_t>::max()};
}

}  // namespace kovran

#endif  // KOVRAN_SRC_H2645_COMMON_VALUE_RANGE_H
