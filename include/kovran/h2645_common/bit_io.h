#ifndef KOVRAN_H2645_COMMON_BIT_IO_H
#define KOVRAN_H2645_COMMON_BIT_IO_H

#include <cstddef>
#include <cstdint>

namespace kovran::bit_io {

// A memory range that is read one value at a time and never runs out: every position at or beyond
// `end` gives `Padding`, and `current` keeps counting past `end`. Positions beyond the range are
// addresses only and are never dereferenced, so all arithmetic on them is done on integers.
template <class Value, class Pointer>
struct data_source_memory_alt1 {
    Pointer start = nullptr;    // first value of the range
    Pointer current = nullptr;  // the next value to read
    Pointer end = nullptr;      // one past the last value

    template <Value Padding>
    Value next() {
        const Value value = address(current) < address(end) ? *current : Padding;
        advance(1);
        return value;
    }

    void advance(std::size_t count) {
        const std::uintptr_t place = address(current) + count * sizeof(Value);
        // Pointer arithmetic is defined up to one past the range only, and this goes further.
        current = reinterpret_cast<Pointer>(place);  // NOLINT(performance-no-int-to-ptr)
    }

    static std::uintptr_t address(Pointer position) {
        return reinterpret_cast<std::uintptr_t>(position);
    }
};

// The next bits of the stream, left aligned in one word: the next bit to read is the highest one.
// `Padding` is the value that a source gives past its end.
template <class Word, unsigned char Padding>
struct reservoir {
    static constexpr unsigned char word_bits = 8 * sizeof(Word);
    static constexpr unsigned char padding = Padding;

    Word reservoir = 0;                // positions that hold no stream data are zero
    unsigned char vacant = word_bits;  // how many of them there are, at the low end
};

// Reads bits, most significant first, from a source of bytes. Reading past the end is not an error:
// the bits there are those of the padding, and bit_position() keeps counting.
//
// The number of bits consumed is 8 * (current - start) - (32 - vacant); the reader is on a byte
// boundary exactly when `vacant` is a multiple of 8.
template <class Reservoir, class Source>
struct reader : Reservoir, Source {
    using Reservoir::reservoir;
    using Reservoir::vacant;
    using Reservoir::word_bits;

    // A refill leaves at most 7 positions vacant, so this many bits can be taken at once.
    static constexpr unsigned char widest_get = word_bits - 7;

    // The next n bits as an unsigned value: u(n) and f(n), clause 7.2. n = 0 reads nothing and
    // gives 0; for n above 25 see get_wide. Always inlined, so that the tests vanish for a constant
    // n.
    template <class Result>
    [[gnu::always_inline]] Result get(unsigned char n) {
        if (n > widest_get) {
            return static_cast<Result>(get_wide(n));
        }
        return n == 0 ? Result{0} : static_cast<Result>(take(n));
    }

    // Any width, in pieces of 25 bits. n = 0 gives 0; for n above 32 all n bits are consumed, and
    // the value is the last 32.
    unsigned int get_wide(unsigned char n) {
        unsigned int value = 0;
        while (n >= widest_get) {
            value = value << widest_get | take(widest_get);
            n = static_cast<unsigned char>(n - widest_get);
        }
        return n == 0 ? value : value << n | take(n);
    }

    // Skips n bits, at the same cost for any n.
    void skip(unsigned int n) {
        refill();
        const unsigned int held = word_bits - vacant;
        if (n < held) {
            consume(n);
            return;
        }
        n -= held;
        Source::advance(n / 8);
        reservoir = 0;
        vacant = word_bits;
        if (n % 8 != 0) {
            refill();
            consume(n % 8);
        }
    }

    // Skips the bits before the next byte boundary; none when the reader is on one.
    void align() {
        refill();
        consume(bits_to_byte_boundary());
    }

    [[nodiscard]] unsigned char bits_to_byte_boundary() const {
        return static_cast<unsigned char>((word_bits - vacant) & 7);
    }

    // The number of bits consumed so far, within the data and past its end.
    [[nodiscard]] std::size_t bit_position() const {
        return 8 * (Source::address(Source::current) - Source::address(Source::start)) -
               (word_bits - vacant);
    }

protected:
    // The next n bits; n is 1 to 25.
    [[gnu::always_inline]] unsigned int take(unsigned char n) {
        refill();
        const unsigned int value = reservoir >> (word_bits - n);
        consume(n);
        return value;
    }

    // Adds whole bytes while there is room for one; afterwards the reservoir holds 25 to 32 bits of
    // the stream.
    [[gnu::always_inline]] void refill() {
        while (vacant >= 8) {
            vacant = static_cast<unsigned char>(vacant - 8);
            reservoir |= decltype(reservoir){Source::template next<Reservoir::padding>()} << vacant;
        }
    }

    // Drops n of the bits that refill() added; n is less than the width of the word.
    [[gnu::always_inline]] void consume(unsigned int n) {
        reservoir <<= n;
        vacant = static_cast<unsigned char>(vacant + n);
    }
};

}  // namespace kovran::bit_io

#endif  // KOVRAN_H2645_COMMON_BIT_IO_H
