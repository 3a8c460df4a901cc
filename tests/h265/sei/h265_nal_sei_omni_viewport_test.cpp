#include <kovran/h265/sei/h265_nal_sei_omni_viewport.h>

#include <string>

#include <gtest/gtest.h>

#include "support/sei_payload.h"
#include "support/sei_record_parsing.h"

namespace kovran {
namespace {

constexpr char omni_viewport_bits[] =
    "1010111100 0 1 0001 xffx4cx00x00 x00x5ax00x00 xffxffxffxff x01x68x00x00 "
    "x00xb4x00x00 x00x00x00x01 x80x00x00x00 x00x00x00x03 x80x00x00x00 "
    "x00x00x00x05";

TEST(H265NalSeiOmniViewport, HasTwoViewports) {
    const auto omni = test::record_of<h265_nal_sei_omni_viewport>(
        omni_viewport_bits,
        "omni_viewport_id 700\n"
        "omni_viewport_cancel_flag 0\n"
        "omni_viewport_persistence_flag 1\n"
        "omni_viewport_cnt_minus1 1\n"
        "omni_viewport_azimuth_centre[0] -11796480\n"
        "omni_viewport_elevation_centre[0] 5898240\n"
        "omni_viewport_tilt_centre[0] -1\n"
        "omni_viewport_hor_range[0] 23592960\n"
        "omni_viewport_ver_range[0] 11796480\n"
        "omni_viewport_azimuth_centre[1] 1\n"
        "omni_viewport_elevation_centre[1] -2147483648\n"
        "omni_viewport_tilt_centre[1] 3\n"
        "omni_viewport_hor_range[1] 2147483648\n"
        "omni_viewport_ver_range[1] 5\n");
    EXPECT_EQ(omni.omni_viewport_id, 700);
    EXPECT_TRUE(omni.omni_viewport_persistence_flag);
    ASSERT_EQ(omni.viewports.size(), 2U);
    EXPECT_EQ(omni.viewports[0].omni_viewport_azimuth_centre, -11796480);
    EXPECT_EQ(omni.viewports[0].omni_viewport_elevation_centre, 5898240);
    EXPECT_EQ(omni.viewports[0].omni_viewport_tilt_centre, -1);
    EXPECT_EQ(omni.viewports[0].omni_viewport_hor_range, 23592960U);
    EXPECT_EQ(omni.viewports[0].omni_viewport_ver_range, 11796480U);
    EXPECT_EQ(omni.viewports[1].omni_viewport_hor_range, 0x80000000U);
}

TEST(H265NalSeiOmniViewport, EndsAnEarlierOne) {
    const auto omni = test::record_of<h265_nal_sei_omni_viewport>("0000000001 1",
                                                                  "omni_viewport_id 1\n"
                                                                  "omni_viewport_cancel_flag 1\n");
    EXPECT_TRUE(omni.omni_viewport_cancel_flag);
}

TEST(H265NalSeiOmniViewport, HasUpTo16Viewports) {
    const auto omni = test::record_of<h265_nal_sei_omni_viewport>(
        "1010111100 0 1 1111 x00x00x00x00 x00x00x00x00 x00x00x00x00 x00x00x00x00 "
        "x00x00x00x0f x00x00x00x01 xffxffxffxff x00x00x00x01 x00x00x00x01 "
        "x00x00x00x0e x00x00x00x02 xffxffxffxfe x00x00x00x02 x00x00x00x02 "
        "x00x00x00x0d x00x00x00x03 xffxffxffxfd x00x00x00x03 x00x00x00x03 "
        "x00x00x00x0c x00x00x00x04 xffxffxffxfc x00x00x00x04 x00x00x00x04 "
        "x00x00x00x0b x00x00x00x05 xffxffxffxfb x00x00x00x05 x00x00x00x05 "
        "x00x00x00x0a x00x00x00x06 xffxffxffxfa x00x00x00x06 x00x00x00x06 "
        "x00x00x00x09 x00x00x00x07 xffxffxffxf9 x00x00x00x07 x00x00x00x07 "
        "x00x00x00x08 x00x00x00x08 xffxffxffxf8 x00x00x00x08 x00x00x00x08 "
        "x00x00x00x07 x00x00x00x09 xffxffxffxf7 x00x00x00x09 x00x00x00x09 "
        "x00x00x00x06 x00x00x00x0a xffxffxffxf6 x00x00x00x0a x00x00x00x0a "
        "x00x00x00x05 x00x00x00x0b xffxffxffxf5 x00x00x00x0b x00x00x00x0b "
        "x00x00x00x04 x00x00x00x0c xffxffxffxf4 x00x00x00x0c x00x00x00x0c "
        "x00x00x00x03 x00x00x00x0d xffxffxffxf3 x00x00x00x0d x00x00x00x0d "
        "x00x00x00x02 x00x00x00x0e xffxffxffxf2 x00x00x00x0e x00x00x00x0e "
        "x00x00x00x01 x00x00x00x0f xffxffxffxf1 x00x00x00x0f x00x00x00x0f "
        "x00x00x00x00",
        "omni_viewport_id 700\n"
        "omni_viewport_cancel_flag 0\n"
        "omni_viewport_persistence_flag 1\n"
        "omni_viewport_cnt_minus1 15\n"
        "omni_viewport_azimuth_centre[0] 0\n"
        "omni_viewport_elevation_centre[0] 0\n"
        "omni_viewport_tilt_centre[0] 0\n"
        "omni_viewport_hor_range[0] 0\n"
        "omni_viewport_ver_range[0] 15\n"
        "omni_viewport_azimuth_centre[1] 1\n"
        "omni_viewport_elevation_centre[1] -1\n"
        "omni_viewport_tilt_centre[1] 1\n"
        "omni_viewport_hor_range[1] 1\n"
        "omni_viewport_ver_range[1] 14\n"
        "omni_viewport_azimuth_centre[2] 2\n"
        "omni_viewport_elevation_centre[2] -2\n"
        "omni_viewport_tilt_centre[2] 2\n"
        "omni_viewport_hor_range[2] 2\n"
        "omni_viewport_ver_range[2] 13\n"
        "omni_viewport_azimuth_centre[3] 3\n"
        "omni_viewport_elevation_centre[3] -3\n"
        "omni_viewport_tilt_centre[3] 3\n"
        "omni_viewport_hor_range[3] 3\n"
        "omni_viewport_ver_range[3] 12\n"
        "omni_viewport_azimuth_centre[4] 4\n"
        "omni_viewport_elevation_centre[4] -4\n"
        "omni_viewport_tilt_centre[4] 4\n"
        "omni_viewport_hor_range[4] 4\n"
        "omni_viewport_ver_range[4] 11\n"
        "omni_viewport_azimuth_centre[5] 5\n"
        "omni_viewport_elevation_centre[5] -5\n"
        "omni_viewport_tilt_centre[5] 5\n"
        "omni_viewport_hor_range[5] 5\n"
        "omni_viewport_ver_range[5] 10\n"
        "omni_viewport_azimuth_centre[6] 6\n"
        "omni_viewport_elevation_centre[6] -6\n"
        "omni_viewport_tilt_centre[6] 6\n"
        "omni_viewport_hor_range[6] 6\n"
        "omni_viewport_ver_range[6] 9\n"
        "omni_viewport_azimuth_centre[7] 7\n"
        "omni_viewport_elevation_centre[7] -7\n"
        "omni_viewport_tilt_centre[7] 7\n"
        "omni_viewport_hor_range[7] 7\n"
        "omni_viewport_ver_range[7] 8\n"
        "omni_viewport_azimuth_centre[8] 8\n"
        "omni_viewport_elevation_centre[8] -8\n"
        "omni_viewport_tilt_centre[8] 8\n"
        "omni_viewport_hor_range[8] 8\n"
        "omni_viewport_ver_range[8] 7\n"
        "omni_viewport_azimuth_centre[9] 9\n"
        "omni_viewport_elevation_centre[9] -9\n"
        "omni_viewport_tilt_centre[9] 9\n"
        "omni_viewport_hor_range[9] 9\n"
        "omni_viewport_ver_range[9] 6\n"
        "omni_viewport_azimuth_centre[10] 10\n"
        "omni_viewport_elevation_centre[10] -10\n"
        "omni_viewport_tilt_centre[10] 10\n"
        "omni_viewport_hor_range[10] 10\n"
        "omni_viewport_ver_range[10] 5\n"
        "omni_viewport_azimuth_centre[11] 11\n"
        "omni_viewport_elevation_centre[11] -11\n"
        "omni_viewport_tilt_centre[11] 11\n"
        "omni_viewport_hor_range[11] 11\n"
        "omni_viewport_ver_range[11] 4\n"
        "omni_viewport_azimuth_centre[12] 12\n"
        "omni_viewport_elevation_centre[12] -12\n"
        "omni_viewport_tilt_centre[12] 12\n"
        "omni_viewport_hor_range[12] 12\n"
        "omni_viewport_ver_range[12] 3\n"
        "omni_viewport_azimuth_centre[13] 13\n"
        "omni_viewport_elevation_centre[13] -13\n"
        "omni_viewport_tilt_centre[13] 13\n"
        "omni_viewport_hor_range[13] 13\n"
        "omni_viewport_ver_range[13] 2\n"
        "omni_viewport_azimuth_centre[14] 14\n"
        "omni_viewport_elevation_centre[14] -14\n"
        "omni_viewport_tilt_centre[14] 14\n"
        "omni_viewport_hor_range[14] 14\n"
        "omni_viewport_ver_range[14] 1\n"
        "omni_viewport_azimuth_centre[15] 15\n"
        "omni_viewport_elevation_centre[15] -15\n"
        "omni_viewport_tilt_centre[15] 15\n"
        "omni_viewport_hor_range[15] 15\n"
        "omni_viewport_ver_range[15] 0\n");
    EXPECT_EQ(omni.viewports.back().omni_viewport_elevation_centre, -15);
}

// A viewport has 20 bytes; the second one has 19.
TEST(H265NalSeiOmniViewport, HasNoMoreViewportsThanTheDataHolds) {
    EXPECT_EQ(
        test::refusal_of(h265_nal_sei_omni_viewport::payload_type,
                         "1010111100 0 1 0001 x00x00x00x01 x00x00x00x01 x00x00x00x01 x00x00x00x01 "
                         "x00x00x00x01 x00x00x00x00x00x00x00x00x00x00x00x00x00x00x00x00x00x00x00"),
        "omni_viewport_cnt_minus1 at bit 28 is 1; allowed: 0");
}

TEST(H265NalSeiOmniViewport, IsParsedAlone) {
    const auto parsed = test::parsed_alone<h265_nal_sei_omni_viewport>(omni_viewport_bits);
    EXPECT_EQ(parsed.element_count, 14U);
    EXPECT_EQ(parsed.record.viewports.size(), 2U);
    EXPECT_EQ(parsed.untraced.viewports.size(), 2U);
}

TEST(H265NalSeiOmniViewport, IsAPartOfTheSphere) {
    const std::string begin = "0000000000 0 0 0000";
    EXPECT_EQ(test::out_of_range<h265_nal_sei_omni_viewport>(
                  begin + "xffx4cx00x00 xffxa6x00x00 xffx4cx00x00 x00x00x00x01 x00x00x00x01"),
              "");
    EXPECT_EQ(test::out_of_range<h265_nal_sei_omni_viewport>(
                  begin + "x00xb3xffxff x00x5ax00x00 x00xb3xffxff x01x68x00x00 x00xb4x00x00"),
              "");
    constexpr char all[] =
        "omni_viewport_azimuth_centre[0], omni_viewport_elevation_centre[0], "
        "omni_viewport_tilt_centre[0], omni_viewport_hor_range[0], omni_viewport_ver_range[0]";
    EXPECT_EQ(test::out_of_range<h265_nal_sei_omni_viewport>(
                  begin + "xffx4bxffxff xffxa5xffxff xffx4bxffxff x00x00x00x00 x00x00x00x00"),
              all);
    EXPECT_EQ(test::out_of_range<h265_nal_sei_omni_viewport>(
                  begin + "x00xb4x00x00 x00x5ax00x01 x00xb4x00x00 x01x68x00x01 x00xb4x00x01"),
              all);
}

}  // namespace
}  // namespace kovran
