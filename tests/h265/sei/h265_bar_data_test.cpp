#include <kovran/h265/sei/h265_bar_data.h>

#include <gtest/gtest.h>

#include "support/t35_user_data.h"

namespace kovran {
namespace {

TEST(H265BarData, IsOfBarsAboveAndBelow) {
    const auto bars = test::t35_record_of<h265_bar_data>(
        "x00x31 x47x41x39x34 x06  1 1 0 0 1111  11 00000000111100  11 00001111111100");
    EXPECT_TRUE(bars.top_bar_flag);
    EXPECT_TRUE(bars.bottom_bar_flag);
    EXPECT_FALSE(bars.left_bar_flag);
    EXPECT_FALSE(bars.right_bar_flag);
    EXPECT_EQ(bars.line_number_end_of_top_bar, 60);
    EXPECT_EQ(bars.line_number_start_of_bottom_bar, 1020);
    EXPECT_EQ(bars.pixel_number_end_of_left_bar, 0);
    EXPECT_EQ(bars.pixel_number_start_of_right_bar, 0);
}

TEST(H265BarData, IsOfBarsBesideThePicture) {
    const auto bars = test::t35_record_of<h265_bar_data>(
        "x00x31 x47x41x39x34 x06  0 0 1 1 1111  11 00000011110000  11 11111111111111");
    EXPECT_FALSE(bars.top_bar_flag);
    EXPECT_FALSE(bars.bottom_bar_flag);
    EXPECT_TRUE(bars.left_bar_flag);
    EXPECT_TRUE(bars.right_bar_flag);
    EXPECT_EQ(bars.line_number_end_of_top_bar, 0);
    EXPECT_EQ(bars.line_number_start_of_bottom_bar, 0);
    EXPECT_EQ(bars.pixel_number_end_of_left_bar, 240);
    EXPECT_EQ(bars.pixel_number_start_of_right_bar, 16383);
}

TEST(H265BarData, MayBeOfNoBar) {
    const auto bars = test::t35_record_of<h265_bar_data>("x00x31 x47x41x39x34 x06  0 0 0 0 1111");
    EXPECT_FALSE(bars.top_bar_flag || bars.bottom_bar_flag);
    EXPECT_FALSE(bars.left_bar_flag || bars.right_bar_flag);
}

}  // namespace
}  // namespace kovran
