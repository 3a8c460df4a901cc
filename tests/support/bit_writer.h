#ifndef KOVRAN_TESTS_SUPPORT_BIT_WRITER_H
#define KOVRAN_TESTS_SUPPORT_BIT_WRITER_H

#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <vector>

namespace kovran::test {

// Writes syntax elements one after the other, named as their descriptors in clause 7.2:
//
//     test::bit_writer bits;
//     bits.u<4>(2).ue(7).se(-1).trailing_bits();
//     test::rbsp input{bits.bytes()};
//
// It is slow and simple on purpose, a bit at a time, so that it can be trusted.
class bit_writer {
public:
    template <unsigned int N>
    bit_writer& u(std::uint64_t value) {
        static_assert(N >= 1 && N <= 64);
        return u(N, value);
    }

    bit_writer& u(unsigned int n, std::uint64_t value) {
        if (n > 64 || (n < 64 && value >> n != 0)) {
            throw std::invalid_argument("the value needs more bits");
        }
        while (n > 0) {
            --n;
            bit((value >> n & 1) != 0);
        }
        return *this;
    }

    // ue(v), clause 9.2: as many zeros as there are bits after the first 1 of value + 1, then that.
    bit_writer& ue(std::uint32_t value) {
        const std::uint64_t code = std::uint64_t{value} + 1;
        unsigned int suffix_bits = 0;
        while (code >> suffix_bits != 1) {
            ++suffix_bits;
        }
        return u(suffix_bits, 0).u(suffix_bits + 1, code);
    }

    // se(v), table 9-3: 0, 1, -1, 2, -2, ... have the code numbers 0, 1, 2, 3, 4, ...
    bit_writer& se(std::int32_t value) {
        const std::int64_t wide = value;
        return ue(static_cast<std::uint32_t>(wide > 0 ? 2 * wide - 1 : -2 * wide));
    }

    // rbsp_trailing_bits(), clause 7.3.2.11.
    bit_writer& trailing_bits() {
        bit(/*value=*/true);
        while (size_ % 8 != 0) {
            bit(/*value=*/false);
        }
        return *this;
    }

    // How many bits have been written.
    std::size_t size() const { return size_; }

    // All bits so far; zeros fill the last byte.
    const std::vector<unsigned char>& bytes() const { return bytes_; }

private:
    void bit(bool value) {
        if (size_ % 8 == 0) {
            bytes_.push_back(0);
        }
        if (value) {
            bytes_.back() = static_cast<unsigned char>(bytes_.back() | 0x80U >> size_ % 8);
        }
        ++size_;
    }

    std::vector<unsigned char> bytes_;
    std::size_t size_ = 0;
};

}  // namespace kovran::test

#endif  // KOVRAN_TESTS_SUPPORT_BIT_WRITER_H
