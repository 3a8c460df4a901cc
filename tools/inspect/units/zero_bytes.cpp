#include "units/zero_bytes.h"

#include <cstring>
#include <iterator>

namespace kovran::inspect {
namespace {

constexpr unsigned char zeros[4096] = {};
constexpr std::size_t steps[] = {std::size(zeros), 64, 1};

bool are_zeros(const unsigned char* first, std::size_t size) {
    return std::memcmp(first, zeros, size) == 0;
}

}  // namespace

std::size_t leading_zeros(const unsigned char* first, const unsigned char* last) {
    const auto size = static_cast<std::size_t>(last - first);
    std::size_t count = 0;
    for (const std::size_t step : steps) {
        while (size - count >= step && are_zeros(first + count, step)) {
            count += step;
        }
    }
    return count;
}

std::size_t trailing_zeros(const unsigned char* first, const unsigned char* last) {
    const auto size = static_cast<std::size_t>(last - first);
    std::size_t count = 0;
    for (const std::size_t step : steps) {
        while (size - count >= step && are_zeros(last - count - step, step)) {
            count += step;
        }
    }
    return count;
}

}  // namespace kovran::inspect
