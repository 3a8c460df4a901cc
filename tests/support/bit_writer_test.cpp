#include "support/bit_writer.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <stdexcept>
#include <vector>

namespace kovran::test {
namespace {

using bytes = std::vector<unsigned char>;

TEST(BitWriter, IsEmptyAtFirst) {
    EXPECT_EQ(bit_writer().bytes(), bytes());
    EXPECT_EQ(bit_writer().size(), 0U);
}

TEST(BitWriter, WritesTheMostSignificantBitFirst) {
    bit_writer bits;
    bits.u<1>(1).u<3>(0b010).u<4>(0b0101);
    EXPECT_EQ(bits.bytes(), bytes({0b1'010'0101}));
}

TEST(BitWriter, FillsTheLastByteWithZeros) {
    bit_writer bits;
    bits.u<8>(0xFF).u<3>(0b111);
    EXPECT_EQ(bits.bytes(), bytes({0xFF, 0b111'00000}));
    EXPECT_EQ(bits.size(), 11U);
}

TEST(BitWriter, WritesWideValuesAcrossBytes) {
    bit_writer bits;
    bits.u<4>(0xA).u<32>(0x12345678).u<64>(0xFEDCBA9876543210).u<4>(0xB);
    EXPECT_EQ(bits.bytes(), bytes({0xA1, 0x23, 0x45, 0x67, 0x8F, 0xED, 0xCB, 0xA9, 0x87, 0x65, 0x43,
                                   0x21, 0x0B}));
}

TEST(BitWriter, WritesWidthsKnownOnlyWhenRunning) {
    bit_writer bits;
    bits.u(0, 0).u(5, 0b10011).u(11, 1);
    EXPECT_EQ(bits.bytes(), bytes({0b10011'000, 0b00000001}));
}

TEST(BitWriter, RefusesValuesWiderThanTheirField) {
    EXPECT_THROW(bit_writer().u(3, 8), std::invalid_argument);
    EXPECT_THROW(bit_writer().u(0, 1), std::invalid_argument);
    EXPECT_THROW(bit_writer().u(65, 0), std::invalid_argument);
}

TEST(BitWriter, WritesUnsignedExpGolomb) {
    // The codes of table 9-2: 1, 010, 011, 00100, 00101, 00110, 00111, 0001000.
    bit_writer bits;
    bits.ue(0).ue(1).ue(2).ue(3).ue(4).ue(5).ue(6).ue(7);
    EXPECT_EQ(bits.bytes(),
              bytes({0b1'010'011'0, 0b0100'0010, 0b1'00110'00, 0b111'00010, 0b00'000000}));
    EXPECT_EQ(bits.size(), 34U);
}

TEST(BitWriter, WritesTheLargestUnsignedExpGolomb) {
    bit_writer bits;
    bits.ue(0xFFFFFFFE);  // 31 zeros, then 32 ones
    EXPECT_EQ(bits.bytes(), bytes({0, 0, 0, 0x01, 0xFF, 0xFF, 0xFF, 0b1111111'0}));
    EXPECT_EQ(bits.size(), 63U);
}

TEST(BitWriter, WritesSignedExpGolomb) {
    // 0, 1, -1, 2, -2 have the codes 1, 010, 011, 00100, 00101.
    bit_writer bits;
    bits.se(0).se(1).se(-1).se(2).se(-2);
    EXPECT_EQ(bits.bytes(), bytes({0b1'010'011'0, 0b0100'0010, 0b1'0000000}));
    EXPECT_EQ(bits.size(), 17U);
}

TEST(BitWriter, WritesSignedExpGolombAtItsLimits) {
    bit_writer largest;
    largest.se(std::numeric_limits<std::int32_t>::max());  // code number 0xFFFFFFFD
    EXPECT_EQ(largest.bytes(), bytes({0, 0, 0, 0x01, 0xFF, 0xFF, 0xFF, 0b1111110'0}));

    bit_writer smallest;
    smallest.se(-std::numeric_limits<std::int32_t>::max());  // code number 0xFFFFFFFE
    EXPECT_EQ(smallest.bytes(), bytes({0, 0, 0, 0x01, 0xFF, 0xFF, 0xFF, 0b1111111'0}));
}

TEST(BitWriter, WritesTrailingBitsUpToTheByteBoundary) {
    bit_writer within;
    within.u<3>(0b010).trailing_bits();
    EXPECT_EQ(within.bytes(), bytes({0b010'1'0000}));

    bit_writer aligned;
    aligned.u<8>(0xAB).trailing_bits();
    EXPECT_EQ(aligned.bytes(), bytes({0xAB, 0b1'0000000}));

    bit_writer one_left;
    one_left.u<7>(0).trailing_bits();
    EXPECT_EQ(one_left.bytes(), bytes({0b0000000'1}));
}

}  // namespace
}  // namespace kovran::test
