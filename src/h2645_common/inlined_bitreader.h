#ifndef KOVRAN_SRC_H2645_COMMON_INLINED_BITREADER_H
#define KOVRAN_SRC_H2645_COMMON_INLINED_BITREADER_H

#include <kovran/h2645_common/h2645_common_bitreader.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>

namespace kovran {

// The value of se(v) with a code number, clause 9.2.2.
inline int signed_value(unsigned int code_number) {
    const unsigned int half = code_number >> 1;
    return (code_number & 1U) != 0 ? static_cast<int>(half + 1) : -static_cast<int>(half);
}

// The value of i(n) with the bits `code`, clause 7.2; `n` is 1 to 32, or 0 for no bits.
inline int twos_complement(unsigned int code, unsigned char n) {
    const std::int64_t modulus = std::int64_t{1} << n;
    return static_cast<int>(2 * std::int64_t{code} < modulus ? code : code - modulus);
}

// The bits of a bit reader's data for a walk through a description: the same values from the same
// positions, past the end as well. All that changes from one element to the next is the position,
// so the next element need not wait for what the last one left in a reservoir.
class inlined_bitreader {
public:
    explicit inlined_bitreader(const h2645_common_bitreader& source)
        : inlined_bitreader(source.start, size_of(source), source.bit_position()) {}

    // At the same position, of data that ends so many bytes behind the byte of the position, or
    // where this data ends.
    [[nodiscard]] inlined_bitreader first_bytes(std::size_t count) const {
        const auto byte = static_cast<std::size_t>(position_ / 8);
        const std::size_t left = byte < size_ ? size_ - byte : 0;
        return {start_, count < left ? byte + count : size_, position_};
    }

    // A bit reader of the same data at the same position.
    [[nodiscard]] h2645_common_bitreader bitreader() const {
        h2645_common_bitreader reader(start_, start_ + size_);
        reader.advance(static_cast<std::size_t>(position_ / 8));
        if (position_ % 8 != 0) {
            reader.skip(position_ % 8);
        }
        return reader;
    }

    // u(n) and f(n), clause 7.2. Of more than 32 bits the value is the last 32.
    template <class Result>
    [[nodiscard, gnu::always_inline]] Result get(unsigned char n) {
        if (n > 32) {
            position_ += n - 32U;
            n = 32;
        }
        if (n == 0) {
            return Result{0};
        }
        const std::uint64_t value = window() >> (word_bits - n);
        position_ += n;
        return static_cast<Result>(value);
    }

    // ue(v) and se(v), clause 9.2. No value has a code of more than 31 leading zeros: such a code
    // reads as that of h2645_common_bitreader or, when it is `endless`, reaches past the end.
    template <bool endless = false>
    [[nodiscard, gnu::always_inline]] unsigned int ue() {
        constexpr unsigned int most_zeros = (window_bits - 1) / 2;
        const std::uint64_t bits = window();
        if (bits >> (word_bits - 1 - most_zeros) == 0) {
            const long_code code = read_long_code<endless>(*this);
            position_ = code.end;
            return code.value;
        }
        const auto zeros = static_cast<unsigned int>(__builtin_clzll(bits));
        position_ += 2 * zeros + 1;
        return static_cast<unsigned int>(bits >> (word_bits - 1 - 2 * zeros)) - 1;
    }
    template <bool endless = false>
    [[nodiscard, gnu::always_inline]] int se() {
        return signed_value(ue<endless>());
    }

    void skip(unsigned int n) { position_ += n; }
    void skip_bytes(std::size_t n) { position_ += 8 * std::uint64_t{n}; }
    void align() { position_ += bits_to_byte_boundary(); }
    [[nodiscard]] unsigned char bits_to_byte_boundary() const {
        return static_cast<unsigned char>((8 - position_ % 8) % 8);
    }

    // rbsp_trailing_bits(), clause 7.3.2.11: false when they are malformed; consumed even then.
    [[nodiscard]] bool rbsp_trailing_bits() {
        const bool stop_bit = get<unsigned int>(1) != 0;
        return get<unsigned int>(bits_to_byte_boundary()) == 0 && stop_bit;
    }

    // The value of the next bits; 0 of more than 63, which no element's value holds.
    [[nodiscard]] std::int64_t value_of(std::size_t bits) const {
        inlined_bitreader ahead = *this;
        std::int64_t value = 0;
        for (std::size_t i = 0; bits <= 63 && i < bits; ++i) {
            value = value << 1U | ahead.get<unsigned int>(1);
        }
        return value;
    }

    // The bytes from the position on, which begins one.
    [[nodiscard]] const unsigned char* bytes() const {
        return start_ + static_cast<std::size_t>(position_ / 8);
    }

    [[nodiscard]] std::size_t bit_position() const { return static_cast<std::size_t>(position_); }

    // The bits of the data that are not consumed yet; negative past the end.
    [[nodiscard]] std::int64_t bits_left() const {
        return 8 * static_cast<std::int64_t>(size_) - static_cast<std::int64_t>(position_);
    }

    // The bits before the last 1 bit of the data, which begins the trailing bits of an RBSP;
    // negative behind it, and where there is none.
    [[nodiscard]] std::int64_t bits_to_stop_bit() const {
        std::size_t last = size_;
        while (last != 0 && start_[last - 1] == 0) {
            --last;
        }
        if (last == 0) {
            return -1;
        }
        const int behind = __builtin_ctz(start_[last - 1]) + 1;
        return 8 * static_cast<std::int64_t>(last) - behind - static_cast<std::int64_t>(position_);
    }

private:
    static constexpr std::size_t word_bytes = 8;
    static constexpr unsigned int word_bits = 64;
    static constexpr unsigned int window_bits = word_bits - 7;

    inlined_bitreader(const unsigned char* start, std::size_t size, std::uint64_t position)
        : start_(start),
          size_(size),
          position_(position),
          last_word_bit_(size_ < word_bytes ? 0 : 8 * std::uint64_t{size_ - word_bytes}) {
        constexpr std::size_t half_bytes = word_bytes / 2;
        if (size_ >= word_bytes) {
            last_word_ = word_at(size_ - word_bytes);
        } else if (size_ >= half_bytes) {  // in two halves, which may overlap
            last_word_ = half_word_at(0) << 32U | half_word_at(size_ - half_bytes)
                                                      << (8 * (word_bytes - size_));
        } else {
            for (std::size_t i = 0; i < size_; ++i) {
                last_word_ |= std::uint64_t{start_[i]} << (8 * (word_bytes - 1 - i));
            }
        }
    }

    // None in a range whose end is before its start.
    [[nodiscard]] static std::size_t size_of(const h2645_common_bitreader& source) {
        const std::uintptr_t start = source.address(source.start);
        const std::uintptr_t end = source.address(source.end);
        return start < end ? end - start : 0;
    }

    // The bits from the position on, left aligned; the 57 first of them are the stream's.
    [[nodiscard, gnu::always_inline]] std::uint64_t window() const {
        if (position_ < last_word_bit_) {
            return word_at(static_cast<std::size_t>(position_ / 8)) << (position_ % 8);
        }
        const std::uint64_t behind = position_ - last_word_bit_;
        return behind < word_bits ? last_word_ << behind : 0;
    }

    // Written out so that compilers make one load of it.
    [[nodiscard, gnu::always_inline]] std::uint64_t half_word_at(std::size_t at) const {
        const unsigned char* const byte = start_ + at;
        return std::uint64_t{byte[0]} << 24U | std::uint64_t{byte[1]} << 16U |
               std::uint64_t{byte[2]} << 8U | std::uint64_t{byte[3]};
    }
    [[nodiscard, gnu::always_inline]] std::uint64_t word_at(std::size_t at) const {
        const unsigned char* const byte = start_ + at;
        return std::uint64_t{byte[0]} << 56U | std::uint64_t{byte[1]} << 48U |
               std::uint64_t{byte[2]} << 40U | std::uint64_t{byte[3]} << 32U |
               std::uint64_t{byte[4]} << 24U | std::uint64_t{byte[5]} << 16U |
               std::uint64_t{byte[6]} << 8U | std::uint64_t{byte[7]};
    }

    static constexpr unsigned int longest_prefix = 31;  // of 2^32 - 2

    struct long_code {
        unsigned int value;
        std::uint64_t end;
    };
    // Takes a copy: a reader whose address nobody takes can stay in registers.
    template <bool endless>
    [[gnu::noinline]] static long_code read_long_code(inlined_bitreader at) {
        h2645_common_bitreader reader = at.bitreader();
        const unsigned int value = reader.ue();
        std::uint64_t end = reader.bit_position();
        if (endless && at.window() >> (word_bits - longest_prefix - 1) == 0) {
            end = std::max(end, 8 * std::uint64_t{at.size_} + 1);
        }
        return {value, end};
    }

    const unsigned char* start_;
    std::size_t size_;
    std::uint64_t position_;
    std::uint64_t last_word_bit_;  // where the last whole word begins, or 0
    std::uint64_t last_word_ = 0;  // that word, or all bytes and zeros behind them
};

}  // namespace kovran

#endif  // KOVRAN_SRC_H2645_COMMON_INLINED_BITREADER_H
