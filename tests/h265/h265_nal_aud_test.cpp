#include <kovran/h265/h265_nal_aud.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <initializer_list>
#include <type_traits>

#include "support/bit_writer.h"
#include "support/rbsp.h"

namespace kovran {
namespace {
// Digit groups, left to right: pic_type, rbsp_stop_one_bit, rbsp_alignment_zero_bits.

TEST(H265NalAud, HasItsFieldsInTheirOrderAndTypes) {
    static_assert(std::is_aggregate_v<h265_nal_aud>);
    static_assert(std::is_same_v<decltype(h265_nal_aud::pic_type), unsigned char>);
    static_assert(std::is_same_v<decltype(h265_nal_aud::valid), bool>);
    static_assert(offsetof(h265_nal_aud, pic_type) == 0);
    static_assert(offsetof(h265_nal_aud, valid) == 1);
    static_assert(sizeof(h265_nal_aud) == 2);
}

TEST(H265NalAud, IsZeroAndInvalidAtFirst) {
    const h265_nal_aud aud;
    EXPECT_EQ(aud.pic_type, 0);
    EXPECT_FALSE(aud.valid);
}

TEST(H265NalAud, ReadsPicType) {
    test::rbsp input{0b010'1'0000};
    h265_nal_aud aud;
    EXPECT_TRUE(aud.parse(input.reader));
    EXPECT_EQ(aud.pic_type, 2);
    EXPECT_TRUE(aud.valid);
}

TEST(H265NalAud, ReadsEveryPicType) {
    for (unsigned int pic_type = 0; pic_type < 8; ++pic_type) {
        test::bit_writer bits;
        bits.u<3>(pic_type).trailing_bits();
        test::rbsp input{bits.bytes()};
        h265_nal_aud aud;
        EXPECT_TRUE(aud.parse(input.reader));
        EXPECT_EQ(aud.pic_type, pic_type);
    }
}

TEST(H265NalAud, RejectsMissingStopBitButStoresPicType) {
    test::rbsp input{0b010'0'0000};
    h265_nal_aud aud;
    EXPECT_FALSE(aud.parse(input.reader));
    EXPECT_EQ(aud.pic_type, 2);
    EXPECT_FALSE(aud.valid);
}

TEST(H265NalAud, RejectsAlignmentBitsThatAreNotZero) {
    for (const unsigned char byte : std::initializer_list<unsigned char>{
             0b011'1'1000, 0b011'1'0100, 0b011'1'0010, 0b011'1'0001, 0b011'0'1000}) {
        test::rbsp input{byte};
        h265_nal_aud aud;
        EXPECT_FALSE(aud.parse(input.reader)) << int{byte};
        EXPECT_EQ(aud.pic_type, 3);
        EXPECT_FALSE(aud.valid);
    }
}

TEST(H265NalAud, RejectsAnEmptyInput) {
    test::rbsp input{};
    h265_nal_aud aud{5, true};
    EXPECT_FALSE(aud.parse(input.reader));
    EXPECT_EQ(aud.pic_type, 0);
    EXPECT_FALSE(aud.valid);
}

TEST(H265NalAud, ConsumesOneByteWhetherItIsWellFormedOrNot) {
    for (const unsigned char byte :
         std::initializer_list<unsigned char>{0b010'1'0000, 0b010'0'0000, 0b010'1'0001}) {
        test::rbsp input{byte, 0xFF};
        h265_nal_aud aud;
        static_cast<void>(aud.parse(input.reader));
        EXPECT_EQ(input.reader.bit_position(), 8U) << int{byte};
    }
}

TEST(H265NalAud, LooksAtNothingBehindItsTrailingBits) {
    test::rbsp input{0b001'1'0000, 0xFF, 0x00};
    h265_nal_aud aud;
    EXPECT_TRUE(aud.parse(input.reader));
    EXPECT_EQ(aud.pic_type, 1);
}

TEST(H265NalAud, StartsAtTheNextByteBoundary) {
    for (unsigned char bits_before = 1; bits_before <= 8; ++bits_before) {
        test::rbsp input{0xFF, 0b110'1'0000};
        static_cast<void>(input.reader.get<unsigned int>(bits_before));
        h265_nal_aud aud;
        EXPECT_TRUE(aud.parse(input.reader)) << int{bits_before};
        EXPECT_EQ(aud.pic_type, 6);
        EXPECT_EQ(input.reader.bit_position(), 16U);
    }
}

TEST(H265NalAud, ParsesAgainIntoTheSameRecord) {
    h265_nal_aud aud;

    test::rbsp good{0b111'1'0000};
    EXPECT_TRUE(aud.parse(good.reader));

    test::rbsp bad{0b001'0'0000};
    EXPECT_FALSE(aud.parse(bad.reader));
    EXPECT_EQ(aud.pic_type, 1);
    EXPECT_FALSE(aud.valid);

    test::rbsp good_again{0b000'1'0000};
    EXPECT_TRUE(aud.parse(good_again.reader));
    EXPECT_EQ(aud.pic_type, 0);
    EXPECT_TRUE(aud.valid);
}

}  // namespace
}  // namespace kovran
