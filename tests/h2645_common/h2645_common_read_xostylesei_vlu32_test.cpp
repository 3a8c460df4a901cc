#include <kovran/h2645_common/h2645_common_read_xostylesei_vlu32.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <vector>

#include "support/rbsp.h"

namespace kovran {
namespace {

using bytes = std::vector<unsigned char>;

constexpr unsigned int cut_off = 0xFFFFFFFF;

// The value, after checking that `consumed` bytes are.
unsigned int read(const bytes& data, std::size_t consumed) {
    const test::exact_bytes buffer(data);
    unsigned char* p = buffer.begin();
    const unsigned int value = h2645_common_read_xostylesei_vlu32(p, buffer.end());
    EXPECT_EQ(static_cast<std::size_t>(p - buffer.begin()), consumed);
    return value;
}

bytes run_of_full_bytes(std::size_t count, unsigned char last) {
    bytes data(count, 0xFF);
    data.push_back(last);
    return data;
}

TEST(H2645CommonReadXostyleseiVlu32, GivesAByteBelow255AsItIs) {
    for (unsigned int value = 0; value < 0xFF; ++value) {
        EXPECT_EQ(read({static_cast<unsigned char>(value)}, 1), value);
    }
}

TEST(H2645CommonReadXostyleseiVlu32, Adds255ForEachFullByte) {
    EXPECT_EQ(read({0xFF, 0x00}, 2), 255U);
    EXPECT_EQ(read({0xFF, 0x05}, 2), 260U);
    EXPECT_EQ(read({0xFF, 0xFE}, 2), 509U);
    EXPECT_EQ(read({0xFF, 0xFF, 0x05}, 3), 515U);
    EXPECT_EQ(read(run_of_full_bytes(1000, 0x07), 1001), 255007U);
}

TEST(H2645CommonReadXostyleseiVlu32, StopsBehindTheByteThatEndsTheRun) {
    EXPECT_EQ(read({0x01, 0xFF, 0x02}, 1), 1U);
    EXPECT_EQ(read({0xFF, 0x00, 0x80}, 2), 255U);
}

TEST(H2645CommonReadXostyleseiVlu32, GivesAllOnesWhenTheDataEndWithinTheRun) {
    EXPECT_EQ(read({}, 0), cut_off);
    EXPECT_EQ(read({0xFF}, 1), cut_off);
    EXPECT_EQ(read(bytes(1000, 0xFF), 1000), cut_off);
}

TEST(H2645CommonReadXostyleseiVlu32, TakesNullForNoData) {
    unsigned char* p = nullptr;
    EXPECT_EQ(h2645_common_read_xostylesei_vlu32(p, nullptr), cut_off);
    EXPECT_EQ(p, nullptr);
}

// 255 * 16843009 is 0xFFFFFFFF.
TEST(H2645CommonReadXostyleseiVlu32, NeverGivesAllOnesForARunThatEnds) {
    constexpr std::size_t all_ones = 16843009;
    EXPECT_EQ(read(run_of_full_bytes(all_ones - 1, 0xFD), all_ones), 0xFFFFFFFDU);
    EXPECT_EQ(read(run_of_full_bytes(all_ones - 1, 0xFE), all_ones), 0xFFFFFFFEU);
    EXPECT_EQ(read(run_of_full_bytes(all_ones, 0x00), all_ones + 1), 0xFFFFFFFEU);
    EXPECT_EQ(read(run_of_full_bytes(all_ones, 0x01), all_ones + 1), 0xFFFFFFFEU);
    EXPECT_EQ(read(run_of_full_bytes(all_ones + 1, 0x02), all_ones + 2), 0xFFFFFFFEU);
}

}  // namespace
}  // namespace kovran
