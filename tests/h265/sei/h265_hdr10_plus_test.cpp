#include <kovran/h265/sei/h265_hdr10_plus.h>

#include <array>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "support/t35_user_data.h"

namespace kovran {
namespace {

TEST(H265Hdr10Plus, HasAWindow) {
    const auto metadata = test::t35_record_of<h265_hdr10_plus>(
        "x00x3c x00x01 x04 x01"
        "01"
        "000000000000000000110010000 0"
        "11000011010100000 00000000000000111 00000000000000001 00000000000000101"
        "0010 0000001 00000000000001010 1100011 10000000000000000"
        "1111101000"
        "0"
        "1 100000000000 000000000001 0011 0000000001 1000000000 1111111111"
        "1 001000");
    EXPECT_EQ(metadata.application_version, 1);
    EXPECT_EQ(metadata.num_windows, 1);
    EXPECT_EQ(metadata.targeted_system_display_maximum_luminance, 400U);
    EXPECT_FALSE(metadata.targeted_system_display_actual_peak_luminance_flag);
    EXPECT_TRUE(metadata.targeted_system_display_actual_peak_luminance.empty());
    EXPECT_FALSE(metadata.mastering_display_actual_peak_luminance_flag);
    EXPECT_TRUE(metadata.mastering_display_actual_peak_luminance.empty());
    ASSERT_EQ(metadata.windows.size(), 1U);
    const h265_hdr10_plus::window_t& window = metadata.windows.front();
    EXPECT_EQ(window.maxscl, (std::array<unsigned int, 3>{100000, 7, 1}));
    EXPECT_EQ(window.average_maxrgb, 5U);
    EXPECT_EQ(window.num_distribution_maxrgb_percentiles, 2);
    EXPECT_EQ(window.distribution_maxrgb_percentages, (std::vector<unsigned char>{1, 99}));
    EXPECT_EQ(window.distribution_maxrgb_percentiles, (std::vector<unsigned int>{10, 65536}));
    EXPECT_EQ(window.fraction_bright_pixels, 1000);
    EXPECT_TRUE(window.tone_mapping_flag);
    EXPECT_EQ(window.knee_point_x, 2048);
    EXPECT_EQ(window.knee_point_y, 1);
    EXPECT_EQ(window.num_bezier_curve_anchors, 3);
    EXPECT_EQ(window.bezier_curve_anchors, (std::vector<unsigned short>{1, 512, 1023}));
    EXPECT_TRUE(window.color_saturation_mapping_flag);
    EXPECT_EQ(window.color_saturation_weight, 8);
}

// Light without percentiles, and no mapping.
constexpr const char* hdr10_plus_light =
    "00000000000000001 00000000000000010 00000000000000011 00000000000000100 0000 0000000101";

TEST(H265Hdr10Plus, HasWindowsAndTables) {
    const std::string light = hdr10_plus_light;
    const auto metadata = test::t35_record_of<h265_hdr10_plus>(
        "x00x3c x00x01 x04 x00"
        "10"
        "0000000000000001 0000000000000010 0000000000000011 0000000000000100"
        "0000000000000101 0000000000000110 10110100"
        "0000000000000111 0000000000001000 0000000000001001 1"
        "111111111111111111111111111"
        "1 00010 00011 0001 0010 0011 0100 0101 0110" +
        light + light +
        "1 00011 00010 1111 1110 1101 1100 1011 1010"
        "0 1 111111"
        "1 111111111111 000000000000 0000 0");
    EXPECT_EQ(metadata.application_version, 0);
    EXPECT_EQ(metadata.num_windows, 2);
    ASSERT_EQ(metadata.windows.size(), 2U);
    EXPECT_EQ(metadata.windows[0].window_lower_right_corner_x, 0);
    const h265_hdr10_plus::window_t& window = metadata.windows[1];
    EXPECT_EQ(window.window_upper_left_corner_x, 1);
    EXPECT_EQ(window.window_upper_left_corner_y, 2);
    EXPECT_EQ(window.window_lower_right_corner_x, 3);
    EXPECT_EQ(window.window_lower_right_corner_y, 4);
    EXPECT_EQ(window.center_of_ellipse_x, 5);
    EXPECT_EQ(window.center_of_ellipse_y, 6);
    EXPECT_EQ(window.rotation_angle, 180);
    EXPECT_EQ(window.semimajor_axis_internal_ellipse, 7);
    EXPECT_EQ(window.semimajor_axis_external_ellipse, 8);
    EXPECT_EQ(window.semiminor_axis_external_ellipse, 9);
    EXPECT_TRUE(window.overlap_process_option);
    EXPECT_EQ(metadata.targeted_system_display_maximum_luminance, 134217727U);
    EXPECT_TRUE(metadata.targeted_system_display_actual_peak_luminance_flag);
    EXPECT_EQ(metadata.num_rows_targeted_system_display_actual_peak_luminance, 2);
    EXPECT_EQ(metadata.num_cols_targeted_system_display_actual_peak_luminance, 3);
    EXPECT_EQ(metadata.targeted_system_display_actual_peak_luminance,
              (std::vector<unsigned char>{1, 2, 3, 4, 5, 6}));
    for (const h265_hdr10_plus::window_t& each : metadata.windows) {
        EXPECT_EQ(each.maxscl, (std::array<unsigned int, 3>{1, 2, 3}));
        EXPECT_EQ(each.average_maxrgb, 4U);
        EXPECT_TRUE(each.distribution_maxrgb_percentiles.empty());
        EXPECT_EQ(each.fraction_bright_pixels, 5);
    }
    EXPECT_TRUE(metadata.mastering_display_actual_peak_luminance_flag);
    EXPECT_EQ(metadata.num_rows_mastering_display_actual_peak_luminance, 3);
    EXPECT_EQ(metadata.num_cols_mastering_display_actual_peak_luminance, 2);
    EXPECT_EQ(metadata.mastering_display_actual_peak_luminance,
              (std::vector<unsigned char>{15, 14, 13, 12, 11, 10}));
    EXPECT_FALSE(metadata.windows[0].tone_mapping_flag);
    EXPECT_EQ(metadata.windows[0].color_saturation_weight, 63);
    EXPECT_EQ(window.knee_point_x, 4095);
    EXPECT_EQ(window.knee_point_y, 0);
    EXPECT_TRUE(window.bezier_curve_anchors.empty());
    EXPECT_FALSE(window.color_saturation_mapping_flag);
}

bool hdr10_plus_is_read(const std::string& bits) {
    h265_hdr10_plus metadata;
    const bool read = metadata.parse(test::t35_user_data(0xB5, "x00x3c x00x01 x04" + bits));
    EXPECT_EQ(metadata.valid, read);
    return read;
}

TEST(H265Hdr10Plus, HasVersionsUpTo1) {
    const std::string rest = "01" + std::string(28, '0') + hdr10_plus_light + "0 0 0";
    EXPECT_TRUE(hdr10_plus_is_read("x00" + rest));
    EXPECT_TRUE(hdr10_plus_is_read("x01" + rest));
    EXPECT_FALSE(hdr10_plus_is_read("x02" + rest));
}

TEST(H265Hdr10Plus, HasOneToThreeWindows) {
    const std::string rest(1000, '0');
    EXPECT_FALSE(hdr10_plus_is_read("x01 00" + rest));
    EXPECT_TRUE(hdr10_plus_is_read("x01 01" + rest));
    EXPECT_TRUE(hdr10_plus_is_read("x01 11" + rest));
}

TEST(H265Hdr10Plus, HasTablesOf2To25RowsAndColumns) {
    const std::string rest(4000, '0');
    const std::string targeted = "x01 01 000000000000000000000000000 1";
    const std::string mastering =
        "x01 01 000000000000000000000000000 0" + std::string(hdr10_plus_light) + "1";
    for (const std::string& begin : {targeted, mastering}) {
        const auto is_read = [&](const char* rows_and_columns) {
            std::string bits = begin;
            bits += rows_and_columns;
            bits += rest;
            return hdr10_plus_is_read(bits);
        };
        EXPECT_TRUE(is_read("00010 00010"));
        EXPECT_TRUE(is_read("11001 11001"));
        EXPECT_FALSE(is_read("00001 00010"));
        EXPECT_FALSE(is_read("00010 00001"));
        EXPECT_FALSE(is_read("11010 00010"));
        EXPECT_FALSE(is_read("00010 11010"));
    }
}

TEST(H265Hdr10Plus, HasUpTo15PercentilesAndAnchors) {
    std::string bits = "x00x3c x00x01 x04 x01 01" + std::string(28 + 68, '0') + "1111";
    for (int i = 0; i < 15; ++i) {
        bits += "1100100 11111111111111111";
    }
    bits += "0000000000 0 1 000000000000 000000000000 1111";
    for (int i = 0; i < 15; ++i) {
        bits += "0000000010";
    }
    const auto metadata = test::t35_record_of<h265_hdr10_plus>(bits + "0");
    const h265_hdr10_plus::window_t& window = metadata.windows.front();
    EXPECT_EQ(window.distribution_maxrgb_percentages, std::vector<unsigned char>(15, 100));
    EXPECT_EQ(window.distribution_maxrgb_percentiles, std::vector<unsigned int>(15, 131071));
    EXPECT_EQ(window.bezier_curve_anchors, std::vector<unsigned short>(15, 2));
}

}  // namespace
}  // namespace kovran
