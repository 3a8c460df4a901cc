#include <kovran/h265/sei/h265_nal_sei_content_colour_volume.h>

#include <array>
#include <string>

#include <gtest/gtest.h>

#include "support/sei_payload.h"
#include "support/sei_record_parsing.h"

namespace kovran {
namespace {

constexpr char content_colour_volume_bits[] =
    "0 1 1 1 1 1 00 x00x00x33xc2 x00x00x86xc4 xffxffxe2xb4 x80x00x00x00 "
    "x00x00x84xd0 xffxffxffxff x00x00x00x32 xf0x00x00x00 x00x01x11x70";

TEST(H265NalSeiContentColourVolume, HasEverything) {
    const auto volume = test::record_of<h265_nal_sei_content_colour_volume>(
        content_colour_volume_bits,
        "ccv_cancel_flag 0\n"
        "ccv_persistence_flag 1\n"
        "ccv_primaries_present_flag 1\n"
        "ccv_min_luminance_value_present_flag 1\n"
        "ccv_max_luminance_value_present_flag 1\n"
        "ccv_avg_luminance_value_present_flag 1\n"
        "ccv_reserved_zero_2bits 0\n"
        "ccv_primaries_x[0] 13250\n"
        "ccv_primaries_y[0] 34500\n"
        "ccv_primaries_x[1] -7500\n"
        "ccv_primaries_y[1] -2147483648\n"
        "ccv_primaries_x[2] 34000\n"
        "ccv_primaries_y[2] -1\n"
        "ccv_min_luminance_value 50\n"
        "ccv_max_luminance_value 4026531840\n"
        "ccv_avg_luminance_value 70000\n");
    EXPECT_TRUE(volume.ccv_persistence_flag);
    EXPECT_EQ(volume.ccv_primaries_x, (std::array<int, 3>{13250, -7500, 34000}));
    EXPECT_EQ(volume.ccv_primaries_y, (std::array<int, 3>{34500, -2147483647 - 1, -1}));
    EXPECT_EQ(volume.ccv_min_luminance_value, 50U);
    EXPECT_EQ(volume.ccv_max_luminance_value, 0xF0000000U);
    EXPECT_EQ(volume.ccv_avg_luminance_value, 70000U);
}

TEST(H265NalSeiContentColourVolume, HasPrimariesAlone) {
    test::record_of<h265_nal_sei_content_colour_volume>(
        "0 0 1 0 0 0 00 x00x00x33xc2 x00x00x86xc4 xffxffxe2xb4 x80x00x00x00 "
        "x00x00x84xd0 xffxffxffxff",
        "ccv_cancel_flag 0\n"
        "ccv_persistence_flag 0\n"
        "ccv_primaries_present_flag 1\n"
        "ccv_min_luminance_value_present_flag 0\n"
        "ccv_max_luminance_value_present_flag 0\n"
        "ccv_avg_luminance_value_present_flag 0\n"
        "ccv_reserved_zero_2bits 0\n"
        "ccv_primaries_x[0] 13250\n"
        "ccv_primaries_y[0] 34500\n"
        "ccv_primaries_x[1] -7500\n"
        "ccv_primaries_y[1] -2147483648\n"
        "ccv_primaries_x[2] 34000\n"
        "ccv_primaries_y[2] -1\n");
}

TEST(H265NalSeiContentColourVolume, HasTheLeastLuminanceAlone) {
    test::record_of<h265_nal_sei_content_colour_volume>("0 0 0 1 0 0 00 x00x00x00x32",
                                                        "ccv_cancel_flag 0\n"
                                                        "ccv_persistence_flag 0\n"
                                                        "ccv_primaries_present_flag 0\n"
                                                        "ccv_min_luminance_value_present_flag 1\n"
                                                        "ccv_max_luminance_value_present_flag 0\n"
                                                        "ccv_avg_luminance_value_present_flag 0\n"
                                                        "ccv_reserved_zero_2bits 0\n"
                                                        "ccv_min_luminance_value 50\n");
}

TEST(H265NalSeiContentColourVolume, HasTheGreatestLuminanceAlone) {
    test::record_of<h265_nal_sei_content_colour_volume>("0 0 0 0 1 0 00 xf0x00x00x00",
                                                        "ccv_cancel_flag 0\n"
                                                        "ccv_persistence_flag 0\n"
                                                        "ccv_primaries_present_flag 0\n"
                                                        "ccv_min_luminance_value_present_flag 0\n"
                                                        "ccv_max_luminance_value_present_flag 1\n"
                                                        "ccv_avg_luminance_value_present_flag 0\n"
                                                        "ccv_reserved_zero_2bits 0\n"
                                                        "ccv_max_luminance_value 4026531840\n");
}

TEST(H265NalSeiContentColourVolume, HasTheAverageLuminanceAlone) {
    test::record_of<h265_nal_sei_content_colour_volume>("0 0 0 0 0 1 00 x00x01x11x70",
                                                        "ccv_cancel_flag 0\n"
                                                        "ccv_persistence_flag 0\n"
                                                        "ccv_primaries_present_flag 0\n"
                                                        "ccv_min_luminance_value_present_flag 0\n"
                                                        "ccv_max_luminance_value_present_flag 0\n"
                                                        "ccv_avg_luminance_value_present_flag 1\n"
                                                        "ccv_reserved_zero_2bits 0\n"
                                                        "ccv_avg_luminance_value 70000\n");
}

TEST(H265NalSeiContentColourVolume, HasReservedBits) {
    test::record_of<h265_nal_sei_content_colour_volume>("0 0 0 0 0 0 10",
                                                        "ccv_cancel_flag 0\n"
                                                        "ccv_persistence_flag 0\n"
                                                        "ccv_primaries_present_flag 0\n"
                                                        "ccv_min_luminance_value_present_flag 0\n"
                                                        "ccv_max_luminance_value_present_flag 0\n"
                                                        "ccv_avg_luminance_value_present_flag 0\n"
                                                        "ccv_reserved_zero_2bits 2\n");
}

TEST(H265NalSeiContentColourVolume, EndsAnEarlierOne) {
    const auto volume =
        test::record_of<h265_nal_sei_content_colour_volume>("1", "ccv_cancel_flag 1\n");
    EXPECT_TRUE(volume.ccv_cancel_flag);
}

TEST(H265NalSeiContentColourVolume, IsParsedAlone) {
    const auto parsed =
        test::parsed_alone<h265_nal_sei_content_colour_volume>(content_colour_volume_bits);
    EXPECT_EQ(parsed.element_count, 16U);
    EXPECT_EQ(parsed.record.ccv_avg_luminance_value, 70000U);
    EXPECT_EQ(parsed.untraced.ccv_avg_luminance_value, 70000U);
}

TEST(H265NalSeiContentColourVolume, HasPrimariesUpTo100) {
    EXPECT_EQ(test::out_of_range<h265_nal_sei_content_colour_volume>(
                  "0 0 1 0 0 0 00 x00x4cx4bx40 xffxb3xb4xc0 xffxb3xb4xc0 x00x4cx4bx40" +
                  std::string(64, '0')),
              "");
    EXPECT_EQ(test::out_of_range<h265_nal_sei_content_colour_volume>(
                  "0 0 1 0 0 0 00 x00x4cx4bx41 x00x4cx4bx41 xffxb3xb4xbf xffxb3xb4xbf" +
                  std::string(64, '0')),
              "ccv_primaries_x[0], ccv_primaries_y[0], ccv_primaries_x[1], ccv_primaries_y[1]");
}

}  // namespace
}  // namespace kovran
