#include "h2645_common/zero_pair_search.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <random>
#include <string>
#include <vector>

#include "support/fenced_memory.h"

namespace kovran::zero_pair {
namespace {

using bytes = std::vector<unsigned char>;
using search = const unsigned char* (*)(const unsigned char*, const unsigned char*);

struct implementation {
    std::string name;
    search start_code;
    search reserved;
};

std::vector<implementation> implementations() {
    std::vector<implementation> all = {
        {"portable", find_portable<start_code>, find_portable<reserved>},
        {"chosen", find<start_code>, find<reserved>},
    };
#if defined(__x86_64__)
    all.push_back({"sse2", find_sse2<start_code>, find_sse2<reserved>});
    if (has_avx2()) {
        all.push_back({"avx2", find_avx2<start_code>, find_avx2<reserved>});
    }
#elif defined(__aarch64__)
    all.push_back({"neon", find_neon<start_code>, find_neon<reserved>});
#endif
    return all;
}

std::ptrdiff_t first_position(const bytes& data, unsigned char third_from, unsigned char third_to) {
    for (std::size_t i = 0; i + 3 <= data.size(); ++i) {
        if (data[i] == 0 && data[i + 1] == 0 && data[i + 2] >= third_from &&
            data[i + 2] <= third_to) {
            return static_cast<std::ptrdiff_t>(i);
        }
    }
    return -1;
}

std::ptrdiff_t position(search find_in, const unsigned char* data, std::size_t size) {
    const unsigned char* const match = find_in(data, data + size);
    return match == nullptr ? -1 : match - data;
}

void expect_agreement(const implementation& each, unsigned char* place, const bytes& data) {
    std::copy(data.begin(), data.end(), place);
    ASSERT_EQ(position(each.start_code, place, data.size()), first_position(data, 1, 1))
        << each.name << ", " << data.size() << " bytes";
    ASSERT_EQ(position(each.reserved, place, data.size()), first_position(data, 0, 3))
        << each.name << ", " << data.size() << " bytes";
}

// At the given distance from an aligned address, and where no byte behind the data may be touched,
// and none before them.
void expect_all_agree(const bytes& data, std::size_t alignment) {
    static const test::fenced_memory memory;
    for (const implementation& each : implementations()) {
        expect_agreement(each, memory.begin() + alignment, data);
        expect_agreement(each, memory.last(data.size()), data);
        expect_agreement(each, memory.begin(), data);
    }
}

TEST(ZeroPairSearch, FindsAPatternAtEveryPlaceOfEveryLength) {
    for (std::size_t size = 0; size <= 200; ++size) {
        expect_all_agree(bytes(size, 0xFF), 0);
        for (std::size_t at = 0; at + 3 <= size; ++at) {
            for (unsigned char third = 0; third <= 4; ++third) {
                bytes data(size, 0xFF);
                data[at] = 0;
                data[at + 1] = 0;
                data[at + 2] = third;
                expect_all_agree(data, at % 32);
            }
        }
    }
}

TEST(ZeroPairSearch, SeesNoPatternInPartsOfOne) {
    for (std::size_t size = 1; size <= 200; ++size) {
        bytes data(size, 0xFF);
        data[size - 1] = 0;
        expect_all_agree(data, 0);
        if (size >= 2) {
            data[size - 2] = 0;
            expect_all_agree(data, 1);
        }
        bytes alternating(size);
        for (std::size_t i = 0; i < size; ++i) {
            alternating[i] = i % 2 == 0 ? 0 : 1;
        }
        expect_all_agree(alternating, 2);
    }
}

TEST(ZeroPairSearch, AgreesWithAPlainLoopOnBytesThickWithPatterns) {
    std::mt19937 random(2);
    for (int round = 0; round < 20000; ++round) {
        bytes data(random() % 300);
        const unsigned int zeros = 1 + random() % 8;  // one byte in so many is small
        for (unsigned char& byte : data) {
            byte = static_cast<unsigned char>(random() % zeros == 0 ? random() % 5 : 0x80);
        }
        expect_all_agree(data, random() % 64);
    }
}

}  // namespace
}  // namespace kovran::zero_pair
