#include <kovran/h265/sei/h265_nal_sei_fisheye_video_info.h>

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "support/sei_payload.h"
#include "support/sei_record_parsing.h"

namespace kovran {
namespace {

constexpr char fisheye_video_info_bits[] =
    "0 1 101 001 x01 x00x00x03xe8 x00x00x03xe9 x00x00x03xea x00x00x03xeb "
    "x00x00x03xec x00x00x03xed x00x00x03xee x00x00x03xef xffxffxfcx10 "
    "xffxffxfcx0f xffxffxfcx0e x00x00x03xf3 x00x00x03xf4 x00x00x03xf5 "
    "x00x00x03xf6 x00x00 x7fxffxffxec x7fxffxffxed x7fxffxffxee x7fxffxffxef "
    "x7fxffxffxf0 x7fxffxffxf1 x7fxffxffxf2 x7fxffxffxf3 x80x00x00x0c "
    "x80x00x00x0b x80x00x00x0a x7fxffxffxf7 x7fxffxffxf8 x7fxffxffxf9 "
    "x7fxffxffxfa x00x03 xffxffxffxff x7fxffxffxff x80x00x00x00";

TEST(H265NalSeiFisheyeVideoInfo, HasTwoLenses) {
    const auto video = test::record_of<h265_nal_sei_fisheye_video_info>(
        fisheye_video_info_bits,
        "fisheye_cancel_flag 0\n"
        "fisheye_persistence_flag 1\n"
        "fisheye_view_dimension_idc 5\n"
        "fisheye_reserved_zero_3bits 1\n"
        "fisheye_num_active_areas_minus1 1\n"
        "fisheye_circular_region_centre_x[0] 1000\n"
        "fisheye_circular_region_centre_y[0] 1001\n"
        "fisheye_rect_region_top[0] 1002\n"
        "fisheye_rect_region_left[0] 1003\n"
        "fisheye_rect_region_width[0] 1004\n"
        "fisheye_rect_region_height[0] 1005\n"
        "fisheye_circular_region_radius[0] 1006\n"
        "fisheye_scene_radius[0] 1007\n"
        "fisheye_camera_centre_azimuth[0] -1008\n"
        "fisheye_camera_centre_elevation[0] -1009\n"
        "fisheye_camera_centre_tilt[0] -1010\n"
        "fisheye_camera_centre_offset_x[0] 1011\n"
        "fisheye_camera_centre_offset_y[0] 1012\n"
        "fisheye_camera_centre_offset_z[0] 1013\n"
        "fisheye_field_of_view[0] 1014\n"
        "fisheye_num_polynomial_coeffs[0] 0\n"
        "fisheye_circular_region_centre_x[1] 2147483628\n"
        "fisheye_circular_region_centre_y[1] 2147483629\n"
        "fisheye_rect_region_top[1] 2147483630\n"
        "fisheye_rect_region_left[1] 2147483631\n"
        "fisheye_rect_region_width[1] 2147483632\n"
        "fisheye_rect_region_height[1] 2147483633\n"
        "fisheye_circular_region_radius[1] 2147483634\n"
        "fisheye_scene_radius[1] 2147483635\n"
        "fisheye_camera_centre_azimuth[1] -2147483636\n"
        "fisheye_camera_centre_elevation[1] -2147483637\n"
        "fisheye_camera_centre_tilt[1] -2147483638\n"
        "fisheye_camera_centre_offset_x[1] 2147483639\n"
        "fisheye_camera_centre_offset_y[1] 2147483640\n"
        "fisheye_camera_centre_offset_z[1] 2147483641\n"
        "fisheye_field_of_view[1] 2147483642\n"
        "fisheye_num_polynomial_coeffs[1] 3\n"
        "fisheye_polynomial_coeff[1][0] -1\n"
        "fisheye_polynomial_coeff[1][1] 2147483647\n"
        "fisheye_polynomial_coeff[1][2] -2147483648\n");
    EXPECT_TRUE(video.fisheye_persistence_flag);
    EXPECT_EQ(video.fisheye_view_dimension_idc, 5);
    ASSERT_EQ(video.active_areas.size(), 2U);
    const auto& first = video.active_areas[0];
    EXPECT_EQ(first.fisheye_circular_region_centre_x, 1000U);
    EXPECT_EQ(first.fisheye_circular_region_centre_y, 1001U);
    EXPECT_EQ(first.fisheye_rect_region_top, 1002U);
    EXPECT_EQ(first.fisheye_rect_region_left, 1003U);
    EXPECT_EQ(first.fisheye_rect_region_width, 1004U);
    EXPECT_EQ(first.fisheye_rect_region_height, 1005U);
    EXPECT_EQ(first.fisheye_circular_region_radius, 1006U);
    EXPECT_EQ(first.fisheye_scene_radius, 1007U);
    EXPECT_EQ(first.fisheye_camera_centre_azimuth, -1008);
    EXPECT_EQ(first.fisheye_camera_centre_elevation, -1009);
    EXPECT_EQ(first.fisheye_camera_centre_tilt, -1010);
    EXPECT_EQ(first.fisheye_camera_centre_offset_x, 1011U);
    EXPECT_EQ(first.fisheye_camera_centre_offset_y, 1012U);
    EXPECT_EQ(first.fisheye_camera_centre_offset_z, 1013U);
    EXPECT_EQ(first.fisheye_field_of_view, 1014U);
    EXPECT_TRUE(first.fisheye_polynomial_coeff.empty());
    EXPECT_EQ(video.active_areas[1].fisheye_polynomial_coeff,
              (std::vector<int>{-1, 2147483647, -2147483647 - 1}));
}

TEST(H265NalSeiFisheyeVideoInfo, HasALensWithoutPolynomial) {
    const auto video = test::record_of<h265_nal_sei_fisheye_video_info>(
        "0 1 101 001 x00 x00x00x00x01 x00x00x00x02 x00x00x00x03 x00x00x00x04 "
        "x00x00x00x05 x00x00x00x06 x00x00x00x07 x00x00x00x08 xffxffxffxf7 "
        "xffxffxffxf6 xffxffxffxf5 x00x00x00x0c x00x00x00x0d x00x00x00x0e "
        "x00x00x00x0f x00x00",
        "fisheye_cancel_flag 0\n"
        "fisheye_persistence_flag 1\n"
        "fisheye_view_dimension_idc 5\n"
        "fisheye_reserved_zero_3bits 1\n"
        "fisheye_num_active_areas_minus1 0\n"
        "fisheye_circular_region_centre_x[0] 1\n"
        "fisheye_circular_region_centre_y[0] 2\n"
        "fisheye_rect_region_top[0] 3\n"
        "fisheye_rect_region_left[0] 4\n"
        "fisheye_rect_region_width[0] 5\n"
        "fisheye_rect_region_height[0] 6\n"
        "fisheye_circular_region_radius[0] 7\n"
        "fisheye_scene_radius[0] 8\n"
        "fisheye_camera_centre_azimuth[0] -9\n"
        "fisheye_camera_centre_elevation[0] -10\n"
        "fisheye_camera_centre_tilt[0] -11\n"
        "fisheye_camera_centre_offset_x[0] 12\n"
        "fisheye_camera_centre_offset_y[0] 13\n"
        "fisheye_camera_centre_offset_z[0] 14\n"
        "fisheye_field_of_view[0] 15\n"
        "fisheye_num_polynomial_coeffs[0] 0\n");
    EXPECT_EQ(video.active_areas.size(), 1U);
}

TEST(H265NalSeiFisheyeVideoInfo, EndsAnEarlierOne) {
    const auto video =
        test::record_of<h265_nal_sei_fisheye_video_info>("1", "fisheye_cancel_flag 1\n");
    EXPECT_TRUE(video.fisheye_cancel_flag);
}

// A lens has 62 bytes at the least; the second one has 61.
TEST(H265NalSeiFisheyeVideoInfo, HasNoMoreLensesThanTheDataHolds) {
    EXPECT_EQ(test::refusal_of(
                  h265_nal_sei_fisheye_video_info::payload_type,
                  "0 1 101 001 x01 x00x00x00x01 x00x00x00x02 x00x00x00x03 x00x00x00x04 "
                  "x00x00x00x05 x00x00x00x06 x00x00x00x07 x00x00x00x08 xffxffxffxf7 "
                  "xffxffxffxf6 xffxffxffxf5 x00x00x00x0c x00x00x00x0d x00x00x00x0e "
                  "x00x00x00x0f x00x00 "
                  "x00x00x00x00x00x00x00x00x00x00x00x00x00x00x00x00x00x00x00x00x00x00x00x00x00 "
                  "x00x00x00x00x00x00x00x00x00x00x00x00x00x00x00x00x00x00x00x00x00x00x00x00x00 "
                  "x00x00x00x00x00x00x00x00x00x00x00"),
              "fisheye_num_active_areas_minus1 at bit 24 is 1; allowed: 0");
}

TEST(H265NalSeiFisheyeVideoInfo, HasNoMoreCoefficientsThanTheDataHolds) {
    EXPECT_EQ(
        test::refusal_of(h265_nal_sei_fisheye_video_info::payload_type,
                         "0 1 101 001 x00 x00x00x00x01 x00x00x00x02 x00x00x00x03 x00x00x00x04 "
                         "x00x00x00x05 x00x00x00x06 x00x00x00x07 x00x00x00x08 xffxffxffxf7 "
                         "xffxffxffxf6 xffxffxffxf5 x00x00x00x0c x00x00x00x0d x00x00x00x0e "
                         "x00x00x00x0f x00x02 x00x00x00x05 x00x00x06"),
        "fisheye_num_polynomial_coeffs[0] at bit 512 is 2; allowed: 0 to 1");
}

TEST(H265NalSeiFisheyeVideoInfo, IsParsedAlone) {
    const auto parsed =
        test::parsed_alone<h265_nal_sei_fisheye_video_info>(fisheye_video_info_bits);
    EXPECT_EQ(parsed.element_count, 40U);
    EXPECT_EQ(parsed.record.active_areas.size(), 2U);
    EXPECT_EQ(parsed.untraced.active_areas.size(), 2U);
}

TEST(H265NalSeiFisheyeVideoInfo, HasCamerasThatTurnOnceAround) {
    const std::string begin = "0 0 000 000 x00" + std::string(256, '0');
    const std::string offset(96, '0');
    const std::string end = "x00x00";
    EXPECT_EQ(test::out_of_range<h265_nal_sei_fisheye_video_info>(
                  begin + "xffx4cx00x00 xffxa6x00x00 xffx4cx00x00" + offset + "x00x00x00x00" + end),
              "");
    EXPECT_EQ(test::out_of_range<h265_nal_sei_fisheye_video_info>(
                  begin + "x00xb3xffxff x00x5ax00x00 x00xb3xffxff" + offset + "x01x68x00x00" + end),
              "");
    EXPECT_EQ(test::out_of_range<h265_nal_sei_fisheye_video_info>(
                  begin + "xffx4bxffxff xffxa5xffxff xffx4bxffxff" + offset + "x00x00x00x00" + end),
              "fisheye_camera_centre_azimuth[0], fisheye_camera_centre_elevation[0], "
              "fisheye_camera_centre_tilt[0]");
    EXPECT_EQ(test::out_of_range<h265_nal_sei_fisheye_video_info>(
                  begin + "x00xb4x00x00 x00x5ax00x01 x00xb4x00x00" + offset + "x01x68x00x01" + end),
              "fisheye_camera_centre_azimuth[0], fisheye_camera_centre_elevation[0], "
              "fisheye_camera_centre_tilt[0], fisheye_field_of_view[0]");
}

}  // namespace
}  // namespace kovran
