#include <kovran/h265/sei/h265_a53_captions.h>

#include <string>

#include <gtest/gtest.h>

#include "support/t35_user_data.h"

namespace kovran {
namespace {

TEST(H265A53Captions, HaveTwoBytesEach) {
    const auto captions = test::t35_record_of<h265_a53_captions>(
        "x00x31 x47x41x39x34 x03  1 1 0 00010 xff  11111 1 00 x94x2c  11111 0 11 x80x01");
    EXPECT_TRUE(captions.process_em_data_flag);
    EXPECT_TRUE(captions.process_cc_data_flag);
    EXPECT_FALSE(captions.additional_data_flag);
    EXPECT_EQ(captions.cc_count, 2);
    EXPECT_EQ(captions.em_data, 0xFF);
    ASSERT_EQ(captions.cc_data.size(), 2U);
    EXPECT_TRUE(captions.cc_data[0].cc_valid);
    EXPECT_EQ(captions.cc_data[0].cc_type, 0);
    EXPECT_EQ(captions.cc_data[0].cc_data_1, 0x94);
    EXPECT_EQ(captions.cc_data[0].cc_data_2, 0x2C);
    EXPECT_FALSE(captions.cc_data[1].cc_valid);
    EXPECT_EQ(captions.cc_data[1].cc_type, 3);
    EXPECT_EQ(captions.cc_data[1].cc_data_1, 0x80);
    EXPECT_EQ(captions.cc_data[1].cc_data_2, 0x01);
}

TEST(H265A53Captions, MayBeNone) {
    const auto captions =
        test::t35_record_of<h265_a53_captions>("x00x31 x47x41x39x34 x03  0 0 1 00000 x00");
    EXPECT_FALSE(captions.process_em_data_flag);
    EXPECT_FALSE(captions.process_cc_data_flag);
    EXPECT_TRUE(captions.additional_data_flag);
    EXPECT_EQ(captions.em_data, 0);
    EXPECT_TRUE(captions.cc_data.empty());
}

TEST(H265A53Captions, MayHaveDataBehindThem) {
    h265_a53_captions captions;
    EXPECT_TRUE(captions.parse(test::t35_user_data(
        0xB5, "x00x31 x47x41x39x34 x03  0 1 0 00001 xff  11111 1 01 x00x01 xff x55")));
    ASSERT_EQ(captions.cc_data.size(), 1U);
    EXPECT_EQ(captions.cc_data[0].cc_type, 1);
}

TEST(H265A53Captions, AreUpTo31) {
    std::string bits = "x00x31 x47x41x39x34 x03  0 1 0 11111 xff";
    for (int i = 0; i < 31; ++i) {
        bits += "xfc x20x20";
    }
    const auto captions = test::t35_record_of<h265_a53_captions>(bits);
    EXPECT_EQ(captions.cc_count, 31);
    EXPECT_EQ(captions.cc_data.size(), 31U);
    EXPECT_EQ(captions.cc_data.back().cc_data_2, 0x20);
}

TEST(H265A53Captions, AreNotReadFromOtherUserData) {
    h265_a53_captions captions;
    EXPECT_FALSE(
        captions.parse(test::t35_user_data(0xB5, "x00x31 x47x41x39x34 x06  0 1 0 00000 xff xff")));
    EXPECT_FALSE(captions.process_cc_data_flag);
    EXPECT_FALSE(captions.valid);
}

}  // namespace
}  // namespace kovran
