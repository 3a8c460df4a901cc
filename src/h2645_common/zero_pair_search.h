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

// The search over vectors of `Isa::width` bytes. Isa::has_pair looks at four vectors, at two loads
// each, and tells whether a pair of zeros may be there; only then is the third byte looked at. The
// last vector overlaps the one before it, so that no byte is read outside the range.
template <class Third, class Isa>
[[gnu::always_inline]] inline const unsigned char* find_in_vectors(const unsigned char* first,
                                                                   const unsigned char* last) {
    const unsigned char* const last_vector = last - (Isa::width + 2);
    for (;;) {
        while (last - first >= 4 * Isa::width + 1 && !Isa::has_pair(first)) {
            first += 4 * Isa::width;
        }
        for (int vectors = 0; vectors < 4; ++vectors) {
            if (first > last_vector) {
                first = last_vector;
            }
            const int match = Isa::template first_match<Third>(first);
            if (match >= 0) {
                return first + match;
            }
            if (first == last_vector) {
                return nullptr;
            }
            first += Isa::width;
        }
    }
}

#if defined(__x86_64__)

struct sse2 {
    static constexpr std::ptrdiff_t width = 16;

    static __m128i load(const unsigned char* p) {
        return _mm_loadu_si128(reinterpret_cast<const __m128i*>(p));
    }

    static __m128i pair(const unsigned char* p) { return _mm_or_si128(load(p), load(p + 1)); }

    static int zero_bytes(__m128i bytes) {
        return _mm_movemask_epi8(_mm_cmpeq_epi8(bytes, _mm_setzero_si128()));
    }

    static bool has_pair(const unsigned char* p) {
        const __m128i low = _mm_min_epu8(pair(p), pair(p + width));
        const __m128i high = _mm_min_epu8(pair(p + 2 * width), pair(p + 3 * width));
        return zero_bytes(_mm_min_epu8(low, high)) != 0;
    }

    template <class Third>
    static int first_match(const unsigned char* p) {
        const int pairs = zero_bytes(pair(p));
        if (pairs == 0) {
            return -1;
        }
        const __m128i mask = _mm_set1_epi8(static_cast<char>(Third::mask));
        const __m128i value = _mm_set1_epi8(static_cast<char>(Third::value));
        const __m128i third = _mm_xor_si128(_mm_and_si128(load(p + 2), mask), value);
        const int matches = pairs & zero_bytes(third);
        return matches != 0 ? __builtin_ctz(static_cast<unsigned int>(matches)) : -1;
    }
};

#define KOVRAN_AVX2 __attribute__((target("avx2")))

struct avx2 {
    static constexpr std::ptrdiff_t width = 32;

    KOVRAN_AVX2 static __m256i load(const unsigned char* p) {
        return _mm256_loadu_si256(reinterpret_cast<const __m256i*>(p));
    }

    KOVRAN_AVX2 static __m256i pair(const unsigned char* p) {
        return _mm256_or_si256(load(p), load(p + 1));
    }

    KOVRAN_AVX2 static int zero_bytes(__m256i bytes) {
        return _mm256_movemask_epi8(_mm256_cmpeq_epi8(bytes, _mm256_setzero_si256()));
    }

    KOVRAN_AVX2 static bool has_pair(const unsigned char* p) {
        const __m256i low = _mm256_min_epu8(pair(p), pair(p + width));
        const __m256i high = _mm256_min_epu8(pair(p + 2 * width), pair(p + 3 * width));
        return zero_bytes(_mm256_min_epu8(low, high)) != 0;
    }

    template <class Third>
    KOVRAN_AVX2 static int first_match(const unsigned char* p) {
        const int pairs = zero_bytes(pair(p));
        if (pairs == 0) {
            return -1;
        }
        const __m256i mask = _mm256_set1_epi8(static_cast<char>(Third::mask));
        const __m256i value = _mm256_set1_epi8(static_cast<char>(Third::value));
        const __m256i third = _mm256_xor_si256(_mm256_and_si256(load(p + 2), mask), value);
        const int matches = pairs & zero_bytes(third);
        return matches != 0 ? __builtin_ctz(static_cast<unsigned int>(matches)) : -1;
    }
};

template <class Third>
const unsigned char* find_sse2(const unsigned char* first, const unsigned char* last) {
    if (last - first < sse2::width + 2) {
        return find_portable<Third>(first, last);
    }
    return find_in_vectors<Third, sse2>(first, last);
}

template <class Third>
KOVRAN_AVX2 const unsigned char* find_avx2(const unsigned char* first, const unsigned char* last) {
    if (last - first < avx2::width + 2) {
        return find_sse2<Third>(first, last);
    }
    return find_in_vectors<Third, avx2>(first, last);
}

#undef KOVRAN_AVX2

#elif defined(__aarch64__)

struct neon {
    static constexpr std::ptrdiff_t width = 16;

    static uint8x16_t pair(const unsigned char* p) {
        return vorrq_u8(vld1q_u8(p), vld1q_u8(p + 1));
    }

    static bool has_pair(const unsigned char* p) {
        const uint8x16_t low = vminq_u8(pair(p), pair(p + width));
        const uint8x16_t high = vminq_u8(pair(p + 2 * width), pair(p + 3 * width));
        return vminvq_u8(vminq_u8(low, high)) == 0;
    }

    template <class Third>
    static int first_match(const unsigned char* p) {
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
    if (last - first < neon::width + 2) {
        return find_portable<Third>(first, last);
    }
    return find_in_vectors<Third, neon>(first, last);
}

#endif

// The search for the machine at hand.
template <class Third>
const unsigned char* find(const unsigned char* first, const unsigned char* last) {
#if defined(__x86_64__)
    return __builtin_cpu_supports("avx2") != 0 ? find_avx2<Third>(first, last)
                                               : find_sse2<Third>(first, last);
#elif defined(__aarch64__)
    return find_neon<Third>(first, last);
#else
    return find_portable<Third>(first, last);
#endif
}

// A block that can be copied as it stands, and why it ends where it does.
enum class before { more, pair, end };
struct block {
    std::size_t size;
    before next;  // more to look at, a pair with a reserved third byte, or the end of the data
};

// The first block of the `size` bytes at `data`. Blocks are short enough that what the search has
// read is still in the nearest cache for the copy.
inline block next_block(const unsigned char* data, std::size_t size) {
    constexpr std::size_t longest = 4096;
    if (size >= 3 && data[0] == 0 && data[1] == 0 && data[2] <= 3) {
        return {0, before::pair};  // they often follow one upon the other
    }
    const std::size_t looked_at = size <= longest + 2 ? size : longest + 2;
    const unsigned char* const match = find<reserved>(data, data + looked_at);
    if (match != nullptr) {
        return {static_cast<std::size_t>(match - data), before::pair};
    }
    if (looked_at == size) {
        return {size, before::end};
    }
    return {longest, before::more};  // a pair may begin in the two bytes after it
}

}  // namespace kovran::zero_pair

#endif  // KOVRAN_SRC_H2645_COMMON_ZERO_PAIR_SEARCH_H
