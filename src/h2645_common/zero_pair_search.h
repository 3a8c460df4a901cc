#ifndef KOVRAN_SRC_H2645_COMMON_ZERO_PAIR_SEARCH_H
#define KOVRAN_SRC_H2645_COMMON_ZERO_PAIR_SEARCH_H

#include <cstddef>
#include <cstdint>

#if defined(__x86_64__)
#include <immintrin.h>
#elif defined(__aarch64__)
#include <arm_neon.h>
#endif

// Where two zero bytes stand side by side: the one question of all framing, asked of every byte of
// a stream. Start codes, the ends of units and emulation prevention all begin with such a pair, and
// differ in the byte after it.
//
// Every search below gives the first position p of [first, last - 2) with p[0] = p[1] = 0 and p[2]
// as `Third` has it, or null where there is none. They differ in the machine that they are for.
namespace kovran::zero_pair {

// The byte after the pair.
struct start_code {  // 00 00 01
    static constexpr unsigned char value = 0x01;
    static constexpr unsigned char mask = 0xFF;
};
struct reserved {  // 00 00 00 to 00 00 03: what clause 7.4.2 keeps out of a NAL unit
    static constexpr unsigned char value = 0x00;
    static constexpr unsigned char mask = 0xFC;
};

// The bits of a 16-bit little-endian word that are zero in 00 00 as well as in 00 and a matching
// third byte.
template <class Third>
constexpr unsigned short word_bits = 0x00FF | (Third::mask & ~Third::value) << 8;

template <class Third>
const unsigned char* find_portable(const unsigned char* first, const unsigned char* last) {
    while (last - first >= 3) {
        if (first[1] != 0) {
            first += 2;
        } else if (first[0] != 0 || (first[2] & Third::mask) != Third::value) {
            first += 1;
        } else {
            return first;
        }
    }
    return nullptr;
}

// The searches over vectors of `Isa::width` bytes, for ranges of at least width + 2. The last
// vector overlaps the one before it, so that no byte is read outside the range.
template <class Third, class Isa>
[[gnu::always_inline]] inline const unsigned char* find_in_vectors(const unsigned char* first,
                                                                   const unsigned char* last) {
    const unsigned char* const last_vector = last - (Isa::width + 2);
    for (;; first += Isa::width) {
        if (first > last_vector) {
            first = last_vector;
        }
        const int match = Isa::template vector_match<Third>(first);
        if (match >= 0) {
            return first + match;
        }
        if (first == last_vector) {
            return nullptr;
        }
    }
}

// Four vectors at a time while there are as many. Isa::may_hold is a cheap test for a match among
// four, which one in some hundred groups of noise passes without; Isa::group_match finds it
// exactly.
template <class Third, class Isa>
[[gnu::always_inline]] inline const unsigned char* find_in_groups(const unsigned char* first,
                                                                  const unsigned char* last) {
    constexpr std::ptrdiff_t group = 4 * Isa::width;
    constexpr int groups_at_once = 4;  // what looks like a match seldom comes alone
    while (last - first >= group + 2) {
        if (!Isa::template may_hold<Third>(first)) {
            first += group;
            continue;
        }
        for (int i = 0; i < groups_at_once && last - first >= group + 2; ++i) {
            const int match = Isa::template group_match<Third>(first);
            if (match >= 0) {
                return first + match;
            }
            first += group;
        }
    }
    // What is left may be shorter than a vector; what is before it holds no match.
    return find_in_vectors<Third, Isa>(first, last);
}

#if defined(__x86_64__)

struct sse2 {
    static constexpr std::ptrdiff_t width = 16;

    static __m128i load(const unsigned char* p) {
        return _mm_loadu_si128(reinterpret_cast<const __m128i*>(p));
    }

    static unsigned int zero_bytes(__m128i bytes) {
        return static_cast<unsigned int>(
            _mm_movemask_epi8(_mm_cmpeq_epi8(bytes, _mm_setzero_si128())));
    }

    // Zero where a pair begins.
    static __m128i pair(const unsigned char* p) { return _mm_or_si128(load(p), load(p + 1)); }

    // Zero where a match begins.
    template <class Third>
    static __m128i differences(const unsigned char* p) {
        const __m128i mask = _mm_set1_epi8(static_cast<char>(Third::mask));
        const __m128i value = _mm_set1_epi8(static_cast<char>(Third::value));
        return _mm_or_si128(pair(p), _mm_xor_si128(_mm_and_si128(load(p + 2), mask), value));
    }

    static __m128i smallest(__m128i a, __m128i b, __m128i c, __m128i d) {
        return _mm_min_epu8(_mm_min_epu8(a, b), _mm_min_epu8(c, d));
    }

    // Every match covers one of the 16-bit words at odd distances from p whole: its two zero bytes,
    // or the second one and the third byte.
    template <class Third>
    static bool may_hold(const unsigned char* p) {
        const __m128i bits = _mm_set1_epi16(static_cast<short>(word_bits<Third>));
        const auto zero_words = [&](std::ptrdiff_t at) {
            return _mm_cmpeq_epi16(_mm_and_si128(load(p + 1 + at), bits), _mm_setzero_si128());
        };
        const __m128i low = _mm_or_si128(zero_words(0), zero_words(width));
        const __m128i high = _mm_or_si128(zero_words(2 * width), zero_words(3 * width));
        return _mm_movemask_epi8(_mm_or_si128(low, high)) != 0;
    }

    template <class Third>
    static int group_match(const unsigned char* p) {
        const __m128i a = differences<Third>(p);
        const __m128i b = differences<Third>(p + width);
        const __m128i c = differences<Third>(p + 2 * width);
        const __m128i d = differences<Third>(p + 3 * width);
        if (zero_bytes(smallest(a, b, c, d)) == 0) {
            return -1;
        }
        const std::uint64_t low = zero_bytes(a) | zero_bytes(b) << width;
        const std::uint64_t high = zero_bytes(c) | zero_bytes(d) << width;
        return __builtin_ctzll(low | high << 2 * width);
    }

    template <class Third>
    static int vector_match(const unsigned char* p) {
        const unsigned int matches = zero_bytes(differences<Third>(p));
        return matches != 0 ? __builtin_ctz(matches) : -1;
    }
};

#define KOVRAN_AVX2 __attribute__((target("avx2,bmi")))

struct avx2 {
    static constexpr std::ptrdiff_t width = 32;

    KOVRAN_AVX2 static __m256i load(const unsigned char* p) {
        return _mm256_loadu_si256(reinterpret_cast<const __m256i*>(p));
    }

    KOVRAN_AVX2 static unsigned int zero_bytes(__m256i bytes) {
        return static_cast<unsigned int>(
            _mm256_movemask_epi8(_mm256_cmpeq_epi8(bytes, _mm256_setzero_si256())));
    }

    KOVRAN_AVX2 static __m256i pair(const unsigned char* p) {
        return _mm256_or_si256(load(p), load(p + 1));
    }

    template <class Third>
    KOVRAN_AVX2 static __m256i differences(const unsigned char* p) {
        const __m256i mask = _mm256_set1_epi8(static_cast<char>(Third::mask));
        const __m256i value = _mm256_set1_epi8(static_cast<char>(Third::value));
        return _mm256_or_si256(pair(p),
                               _mm256_xor_si256(_mm256_and_si256(load(p + 2), mask), value));
    }

    KOVRAN_AVX2 static __m256i smallest(__m256i a, __m256i b, __m256i c, __m256i d) {
        return _mm256_min_epu8(_mm256_min_epu8(a, b), _mm256_min_epu8(c, d));
    }

    template <class Third>
    KOVRAN_AVX2 static bool may_hold(const unsigned char* p) {
        const __m256i bits = _mm256_set1_epi16(static_cast<short>(word_bits<Third>));
        const __m256i a = _mm256_and_si256(load(p + 1), bits);
        const __m256i b = _mm256_and_si256(load(p + 1 + width), bits);
        const __m256i c = _mm256_and_si256(load(p + 1 + 2 * width), bits);
        const __m256i d = _mm256_and_si256(load(p + 1 + 3 * width), bits);
        const __m256i words = _mm256_min_epu16(_mm256_min_epu16(a, b), _mm256_min_epu16(c, d));
        return _mm256_movemask_epi8(_mm256_cmpeq_epi16(words, _mm256_setzero_si256())) != 0;
    }

    template <class Third>
    KOVRAN_AVX2 static int group_match(const unsigned char* p) {
        const __m256i a = differences<Third>(p);
        const __m256i b = differences<Third>(p + width);
        const __m256i c = differences<Third>(p + 2 * width);
        const __m256i d = differences<Third>(p + 3 * width);
        if (zero_bytes(smallest(a, b, c, d)) == 0) {
            return -1;
        }
        const std::uint64_t low = zero_bytes(a) | std::uint64_t{zero_bytes(b)} << width;
        if (low != 0) {
            return __builtin_ctzll(low);
        }
        const std::uint64_t high = zero_bytes(c) | std::uint64_t{zero_bytes(d)} << width;
        return static_cast<int>(2 * width) + __builtin_ctzll(high);
    }

    template <class Third>
    KOVRAN_AVX2 static int vector_match(const unsigned char* p) {
        const unsigned int matches = zero_bytes(differences<Third>(p));
        return matches != 0 ? __builtin_ctz(matches) : -1;
    }
};

template <class Third>
const unsigned char* find_sse2(const unsigned char* first, const unsigned char* last) {
    if (last - first >= sse2::width + 2) {
        return find_in_groups<Third, sse2>(first, last);
    }
    return find_portable<Third>(first, last);
}

template <class Third>
KOVRAN_AVX2 const unsigned char* find_avx2(const unsigned char* first, const unsigned char* last) {
    if (last - first >= avx2::width + 2) {
        return find_in_groups<Third, avx2>(first, last);
    }
    return find_sse2<Third>(first, last);
}

inline bool has_avx2() {
    return static_cast<bool>(__builtin_cpu_supports("avx2")) &&
           static_cast<bool>(__builtin_cpu_supports("bmi"));
}

// KOVRAN_WITHOUT_AVX2 is for programs that must run the same instructions on every machine.
inline bool uses_avx2() {
#if defined(KOVRAN_WITHOUT_AVX2)
    return false;
#else
    return has_avx2();
#endif
}

#elif defined(__aarch64__)

struct neon {
    static constexpr std::ptrdiff_t width = 16;

    static uint8x16_t pair(const unsigned char* p) {
        return vorrq_u8(vld1q_u8(p), vld1q_u8(p + 1));
    }

    template <class Third>
    static bool may_hold(const unsigned char* p) {
        const uint8x16_t low = vminq_u8(pair(p), pair(p + width));
        const uint8x16_t high = vminq_u8(pair(p + 2 * width), pair(p + 3 * width));
        return vminvq_u8(vminq_u8(low, high)) == 0;
    }

    template <class Third>
    static int group_match(const unsigned char* p) {
        for (int at = 0; at < 4 * width; at += width) {
            const int match = vector_match<Third>(p + at);
            if (match >= 0) {
                return at + match;
            }
        }
        return -1;
    }

    template <class Third>
    static int vector_match(const unsigned char* p) {
        const uint8x16_t mask = vdupq_n_u8(Third::mask);
        const uint8x16_t value = vdupq_n_u8(Third::value);
        const uint8x16_t third = veorq_u8(vandq_u8(vld1q_u8(p + 2), mask), value);
        const uint8x16_t matches = vceqzq_u8(vorrq_u8(pair(p), third));

        // Narrowed to four bits a byte, which makes the vector a word.
        const uint8x8_t nibbles = vshrn_n_u16(vreinterpretq_u16_u8(matches), 4);
        const std::uint64_t word = vget_lane_u64(vreinterpret_u64_u8(nibbles), 0);
        return word != 0 ? __builtin_ctzll(word) / 4 : -1;
    }
};

template <class Third>
const unsigned char* find_neon(const unsigned char* first, const unsigned char* last) {
    if (last - first >= neon::width + 2) {
        return find_in_groups<Third, neon>(first, last);
    }
    return find_portable<Third>(first, last);
}

#endif

// The search for the machine at hand.
template <class Third>
const unsigned char* find(const unsigned char* first, const unsigned char* last) {
#if defined(__x86_64__)
    return uses_avx2() ? find_avx2<Third>(first, last) : find_sse2<Third>(first, last);
#elif defined(__aarch64__)
    return find_neon<Third>(first, last);
#else
    return find_portable<Third>(first, last);
#endif
}

}  // namespace kovran::zero_pair

#endif  // KOVRAN_SRC_H2645_COMMON_ZERO_PAIR_SEARCH_H
