#ifndef KOVRAN_SRC_H2645_COMMON_ZERO_PAIR_COPY_H
#define KOVRAN_SRC_H2645_COMMON_ZERO_PAIR_COPY_H

#include "h2645_common/zero_pair_search.h"

#include <cstddef>
#include <cstdint>
#include <cstring>

// The copying that emulation prevention leaves to do: up to the first pair of zeros whose third
// byte is reserved.
//
// Every copy below writes the bytes of [data, data + size) before that pair to `out`, or all of
// them where there is none, nothing else, and returns how many they are. `out` may be `data`, or
// overlap with it from below. The copies differ in the machine that they are for.
namespace kovran::zero_pair {

// Up to a match that is known, or all where there is none. Out of line, as is what else is seldom
// needed: a call in the middle of a copy would cost every copy the registers that it has to save.
[[gnu::noinline]] inline std::size_t copy_until(unsigned char* out, const unsigned char* data,
                                                std::size_t size, const unsigned char* match) {
    const std::size_t clean = match != nullptr ? static_cast<std::size_t>(match - data) : size;
    if (clean != 0) {
        std::memmove(out, data, clean);
    }
    return clean;
}

inline std::size_t copy_portable(unsigned char* out, const unsigned char* data, std::size_t size) {
    return copy_until(out, data, size, find_portable<reserved>(data, data + size));
}

// Whether three bytes in a row are 3 at most, as all are that emulation prevention asks about.
template <class Word>
[[nodiscard]] bool has_three_small(Word bytes) {
    constexpr Word every_byte = static_cast<Word>(~Word{0}) / 0xFF;
    constexpr Word low_bits = every_byte * 0x7F;
    const Word above_3 = bytes & (every_byte * 0xFC);
    const Word small = ~(((above_3 & low_bits) + low_bits) | above_3 | low_bits);
    return (small & small >> 8U & small >> 16U) != 0;
}

// All of [data, data + size), a word at least and less than two: by its two ends, which overlap;
// the word in the middle has the three bytes that neither end has together. False when there may be
// a pair among them; nothing is written then.
template <class Word>
[[nodiscard]] bool copy_words(unsigned char* out, const unsigned char* data, std::size_t size) {
    const auto word_at = [data](std::size_t at) {
        Word word;
        std::memcpy(&word, data + at, sizeof word);
        return word;
    };
    const std::size_t last = size - sizeof(Word);
    const Word head = word_at(0);
    const Word tail = word_at(last);
    if (has_three_small(head) || has_three_small(word_at(last / 2)) || has_three_small(tail)) {
        return false;
    }
    std::memcpy(out, &head, sizeof head);
    std::memcpy(out + last, &tail, sizeof tail);
    return true;
}

// As few bytes as most delimiters and messages have.
constexpr std::size_t few = 2 * sizeof(std::uint64_t);

[[gnu::noinline]] inline std::size_t copy_few(unsigned char* out, const unsigned char* data,
                                              std::size_t size) {
    const bool copied =
        size >= sizeof(std::uint64_t)
            ? copy_words<std::uint64_t>(out, data, size)
            : size >= sizeof(std::uint32_t) && copy_words<std::uint32_t>(out, data, size);
    return copied ? size : copy_portable(out, data, size);
}

// Looks through vectors before it writes them, in groups of four while there are as many. What is
// left then is read, looked through and written by its two ends, which may overlap, or by
// Isa::copy_rest.
template <class Isa>
[[gnu::always_inline]] inline std::size_t copy_in_vectors(unsigned char* out,
                                                          const unsigned char* data,
                                                          std::size_t size) {
    constexpr std::size_t width = Isa::search::width;
    std::size_t at = 0;
    for (; size - at >= 4 * width + 2; at += 4 * width) {
        if (Isa::has_pair(data + at, 2 * width)) {
            const int match = Isa::search::template group_match<reserved>(data + at);
            if (match >= 0) {
                return at + copy_until(out + at, data + at, 0, data + at + match);
            }
        }
        Isa::copy_four(out + at, data + at, 2 * width);
    }
    const std::size_t left = size - at;
    if (left >= 2 * width + 2 && left <= 4 * width &&
        !Isa::has_pair(data + at, left - 2 * width - 2)) {
        Isa::copy_four(out + at, data + at, left - 2 * width);
        return size;
    }
    return at + Isa::copy_rest(out + at, data + at, left);
}

#if defined(__x86_64__)

struct sse2_copy {
    using search = sse2;
    static constexpr std::size_t width = sse2::width;

    static void store(unsigned char* p, __m128i bytes) {
        _mm_storeu_si128(reinterpret_cast<__m128i*>(p), bytes);
    }

    // In the two vectors from `data` on, or the two from `data + second` on.
    static bool has_pair(const unsigned char* data, std::size_t second) {
        return sse2::zero_bytes(sse2::smallest(sse2::pair(data), sse2::pair(data + width),
                                               sse2::pair(data + second),
                                               sse2::pair(data + second + width))) != 0;
    }

    // The two vectors from `data` on and the two from `data + second` on.
    static void copy_four(unsigned char* out, const unsigned char* data, std::size_t second) {
        const __m128i a = sse2::load(data);
        const __m128i b = sse2::load(data + width);
        const __m128i c = sse2::load(data + second);
        const __m128i d = sse2::load(data + second + width);
        store(out, a);
        store(out + width, b);
        store(out + second, c);
        store(out + second + width, d);
    }

    static std::size_t copy_rest(unsigned char* out, const unsigned char* data, std::size_t size) {
        return size < few ? copy_few(out, data, size)
                          : copy_until(out, data, size, find_sse2<reserved>(data, data + size));
    }
};

struct avx2_copy {
    using search = avx2;
    static constexpr std::size_t width = avx2::width;

    KOVRAN_AVX2 static void store(unsigned char* p, __m256i bytes) {
        _mm256_storeu_si256(reinterpret_cast<__m256i*>(p), bytes);
    }

    KOVRAN_AVX2 static bool has_pair(const unsigned char* data, std::size_t second) {
        return avx2::zero_bytes(avx2::smallest(avx2::pair(data), avx2::pair(data + width),
                                               avx2::pair(data + second),
                                               avx2::pair(data + second + width))) != 0;
    }

    KOVRAN_AVX2 static void copy_four(unsigned char* out, const unsigned char* data,
                                      std::size_t second) {
        const __m256i a = avx2::load(data);
        const __m256i b = avx2::load(data + width);
        const __m256i c = avx2::load(data + second);
        const __m256i d = avx2::load(data + second + width);
        store(out, a);
        store(out + width, b);
        store(out + second, c);
        store(out + second + width, d);
    }

    [[gnu::noinline]] KOVRAN_AVX2 static std::size_t copy_searched(unsigned char* out,
                                                                   const unsigned char* data,
                                                                   std::size_t size) {
        return copy_until(out, data, size, find_avx2<reserved>(data, data + size));
    }

    KOVRAN_AVX2 static std::size_t copy_rest(unsigned char* out, const unsigned char* data,
                                             std::size_t size) {
        if (size < width + 2 || size > 2 * width) {
            return copy_searched(out, data, size);
        }
        const std::size_t last = size - (width + 2);
        const __m256i head = avx2::load(data);
        const __m256i tail = avx2::load(data + last + 2);
        if (avx2::zero_bytes(_mm256_min_epu8(avx2::pair(data), avx2::pair(data + last))) == 0) {
            store(out, head);
            store(out + last + 2, tail);
            return size;
        }
        const int match = avx2::vector_match<reserved>(data);
        if (match >= 0) {
            return copy_until(out, data, size, data + match);
        }
        const int last_match = avx2::vector_match<reserved>(data + last);
        return copy_until(out, data, size, last_match >= 0 ? data + last + last_match : nullptr);
    }
};

inline std::size_t copy_sse2(unsigned char* out, const unsigned char* data, std::size_t size) {
    return copy_in_vectors<sse2_copy>(out, data, size);
}

KOVRAN_AVX2 inline std::size_t copy_avx2(unsigned char* out, const unsigned char* data,
                                         std::size_t size) {
    return copy_in_vectors<avx2_copy>(out, data, size);
}

#elif defined(__aarch64__)

inline std::size_t copy_neon(unsigned char* out, const unsigned char* data, std::size_t size) {
    constexpr std::size_t group = 4 * neon::width;
    std::size_t at = 0;
    for (; size - at >= group + 2 && neon::group_match<reserved>(data + at) < 0; at += group) {
        std::memmove(out + at, data + at, group);
    }
    return at +
           copy_until(out + at, data + at, size - at, find_neon<reserved>(data + at, data + size));
}

#endif

// The copy for the machine at hand.
inline std::size_t copy(unsigned char* out, const unsigned char* data, std::size_t size) {
    if (size >= 3 && data[0] == 0 && data[1] == 0 && data[2] <= 3) {
        return 0;  // pairs often follow one upon the other
    }
#if defined(__x86_64__)
    return size >= avx2::width + 2 && uses_avx2() ? copy_avx2(out, data, size)
                                                  : copy_sse2(out, data, size);
#elif defined(__aarch64__)
    return copy_neon(out, data, size);
#else
    return copy_portable(out, data, size);
#endif
}

}  // namespace kovran::zero_pair

#endif  // KOVRAN_SRC_H2645_COMMON_ZERO_PAIR_COPY_H
