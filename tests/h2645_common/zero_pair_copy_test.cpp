#include "h2645_common/zero_pair_copy.h"

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
using copier = std::size_t (*)(unsigned char*, const unsigned char*, std::size_t);

struct implementation {
    std::string name;
    copier copy;
};

std::vector<implementation> implementations() {
    std::vector<implementation> all = {{"portable", copy_portable}, {"chosen", copy}};
#if defined(__x86_64__)
    all.push_back({"sse2", copy_sse2});
    if (has_avx2()) {
        all.push_back({"avx2", copy_avx2});
    }
#elif defined(__aarch64__)
    all.push_back({"neon", copy_neon});
#endif
    return all;
}

std::size_t size_before_pair(const bytes& data) {
    for (std::size_t i = 0; i + 3 <= data.size(); ++i) {
        if (data[i] == 0 && data[i + 1] == 0 && data[i + 2] <= 3) {
            return i;
        }
    }
    return data.size();
}

// What lies behind the copy must stay.
void expect_copy(const implementation& each, unsigned char* out, unsigned char* in,
                 const bytes& data) {
    const std::size_t clean = size_before_pair(data);
    std::copy(data.begin(), data.end(), in);
    std::fill_n(out, data.size(), static_cast<unsigned char>(0xAA));
    bytes expected(data.begin(), data.begin() + static_cast<std::ptrdiff_t>(clean));
    expected.resize(data.size(), 0xAA);

    ASSERT_EQ(each.copy(out, in, data.size()), clean)
        << each.name << ", " << data.size() << " bytes";
    ASSERT_EQ(bytes(out, out + data.size()), expected)
        << each.name << ", " << data.size() << " bytes";
}

// No byte outside the ranges may be touched.
void expect_all_copy(const bytes& data) {
    static const test::fenced_memory source;
    static const test::fenced_memory target;
    for (const implementation& each : implementations()) {
        expect_copy(each, target.last(data.size()), source.last(data.size()), data);
        expect_copy(each, target.begin(), source.begin(), data);
    }
}

// To a place `distance` bytes before the data, in the same buffer.
void expect_all_move_down(const bytes& data, std::size_t distance) {
    const std::size_t clean = size_before_pair(data);
    for (const implementation& each : implementations()) {
        bytes buffer(distance, 0xAA);
        buffer.insert(buffer.end(), data.begin(), data.end());
        bytes expected = buffer;
        std::copy_n(data.begin(), clean, expected.begin());

        ASSERT_EQ(each.copy(buffer.data(), buffer.data() + distance, data.size()), clean)
            << each.name << ", " << data.size() << " bytes, down by " << distance;
        ASSERT_EQ(buffer, expected)
            << each.name << ", " << data.size() << " bytes, down by " << distance;
    }
}

bytes counting_up(std::size_t size) {
    bytes data(size);
    for (std::size_t i = 0; i < size; ++i) {
        data[i] = static_cast<unsigned char>(i % 200 + 4);
    }
    return data;
}

TEST(ZeroPairCopy, EndsBeforeAPairAtEveryPlaceOfEveryLength) {
    for (std::size_t size = 0; size <= 280; ++size) {
        expect_all_copy(counting_up(size));
        for (std::size_t at = 0; at + 3 <= size; ++at) {
            for (const unsigned char third : bytes{0, 3, 4}) {
                bytes data = counting_up(size);
                data[at] = 0;
                data[at + 1] = 0;
                data[at + 2] = third;
                expect_all_copy(data);
            }
        }
    }
}

TEST(ZeroPairCopy, TakesPartsOfAPairAlong) {
    for (std::size_t size = 2; size <= 280; ++size) {
        bytes data = counting_up(size);
        data[size - 1] = 0;
        expect_all_copy(data);
        data[size - 2] = 0;
        expect_all_copy(data);
    }
}

TEST(ZeroPairCopy, AgreesWithAPlainLoopOnBytesThickWithPairs) {
    std::mt19937 random(3);
    for (int round = 0; round < 20000; ++round) {
        bytes data(random() % 600);
        const auto zeros = 1 + random() % 40;  // one byte in so many is small
        for (unsigned char& byte : data) {
            byte = static_cast<unsigned char>(random() % zeros == 0 ? random() % 5 : random());
        }
        expect_all_copy(data);
        expect_all_move_down(data, random() % 70);
    }
}

TEST(ZeroPairCopy, MovesDownByAnyDistance) {
    for (std::size_t size = 0; size <= 300; ++size) {
        for (std::size_t distance = 0; distance <= 140; ++distance) {
            expect_all_move_down(counting_up(size), distance);
        }
    }
}

}  // namespace
}  // namespace kovran::zero_pair
