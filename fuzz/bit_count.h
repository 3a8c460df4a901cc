#ifndef KOVRAN_FUZZ_BIT_COUNT_H
#define KOVRAN_FUZZ_BIT_COUNT_H

#include <cstddef>
#include <vector>

namespace kovran::fuzz {

// How many bits elements of these values were coded in, clause 9.2.
class bit_count {
public:
    void u(std::size_t width) { bits_ += width; }

    void ue(unsigned int value) {
        std::size_t leading_zeros = 0;
        while (value + std::size_t{1} >= std::size_t{2} << leading_zeros) {
            ++leading_zeros;
        }
        bits_ += 2 * leading_zeros + 1;
        // What is no code reads as this value as well, in 32 bits instead of 33.
        uncertain_ += value == 0xFFFF ? 1 : 0;
    }
    void ue(const std::vector<unsigned int>& values) {
        for (const unsigned int value : values) {
            ue(value);
        }
    }

    [[nodiscard]] bool is(std::size_t count) const {
        return count <= bits_ && count + uncertain_ >= bits_;
    }

private:
    std::size_t bits_ = 0;
    std::size_t uncertain_ = 0;
};

}  // namespace kovran::fuzz

#endif  // KOVRAN_FUZZ_BIT_COUNT_H
