#include <kovran/h265/sei/h265_nal_sei_green_metadata.h>

#include <gtest/gtest.h>

#include "support/sei_payload.h"
#include "support/sei_record_parsing.h"

namespace kovran {
namespace {

TEST(H265NalSeiGreenMetadata, TellsOfComplexityInSeconds) {
    const auto green = test::record_of<h265_nal_sei_green_metadata>(  //
        "x00 x02 x01x02  x80 x01x02x03  xff x04x05x06  x09",
        "green_metadata_type 0\n"
        "period_type 2\n"
        "num_seconds 258\n"
        "portion_non_zero_blocks_area 128\n"
        "portion_8x8_blocks_in_non_zero_area 1\n"
        "portion_16x16_blocks_in_non_zero_area 2\n"
        "portion_32x32_blocks_in_non_zero_area 3\n"
        "portion_intra_predicted_blocks_area 255\n"
        "portion_planar_blocks_in_intra_area 4\n"
        "portion_dc_blocks_in_intra_area 5\n"
        "portion_angular_hv_blocks_in_intra_area 6\n"
        "portion_deblocking_instances 9\n");
    EXPECT_EQ(green.period_type, 2);
    EXPECT_EQ(green.num_seconds, 258);
    EXPECT_EQ(green.portion_non_zero_blocks_area, 128);
    EXPECT_EQ(green.portion_8x8_blocks_in_non_zero_area, 1);
    EXPECT_EQ(green.portion_16x16_blocks_in_non_zero_area, 2);
    EXPECT_EQ(green.portion_32x32_blocks_in_non_zero_area, 3);
    EXPECT_EQ(green.portion_planar_blocks_in_intra_area, 4);
    EXPECT_EQ(green.portion_dc_blocks_in_intra_area, 5);
    EXPECT_EQ(green.portion_angular_hv_blocks_in_intra_area, 6);
    EXPECT_EQ(green.portion_deblocking_instances, 9);
}

TEST(H265NalSeiGreenMetadata, TellsOfComplexityInPictures) {
    const auto green = test::record_of<h265_nal_sei_green_metadata>(  //
        "x00 x03 x00x1e  x00  xfe x01x02x03x04x05  x00",
        "green_metadata_type 0\n"
        "period_type 3\n"
        "num_pictures 30\n"
        "portion_non_zero_blocks_area 0\n"
        "portion_intra_predicted_blocks_area 254\n"
        "portion_blocks_a_c_d_n_filterings 1\n"
        "portion_blocks_h_b_filterings 2\n"
        "portion_blocks_f_i_k_q_filterings 3\n"
        "portion_blocks_j_filterings 4\n"
        "portion_blocks_e_g_p_r_filterings 5\n"
        "portion_deblocking_instances 0\n");
    EXPECT_EQ(green.num_pictures, 30);
    EXPECT_EQ(green.portion_intra_predicted_blocks_area, 254);
    EXPECT_EQ(green.portion_blocks_a_c_d_n_filterings, 1);
    EXPECT_EQ(green.portion_blocks_h_b_filterings, 2);
    EXPECT_EQ(green.portion_blocks_f_i_k_q_filterings, 3);
    EXPECT_EQ(green.portion_blocks_j_filterings, 4);
    EXPECT_EQ(green.portion_blocks_e_g_p_r_filterings, 5);
}

TEST(H265NalSeiGreenMetadata, TellsOfComplexityForOtherPeriods) {
    const auto green = test::record_of<h265_nal_sei_green_metadata>(  //
        "x00 x01  x00  xff x01x02x03  x04",
        "green_metadata_type 0\n"
        "period_type 1\n"
        "portion_non_zero_blocks_area 0\n"
        "portion_intra_predicted_blocks_area 255\n"
        "portion_planar_blocks_in_intra_area 1\n"
        "portion_dc_blocks_in_intra_area 2\n"
        "portion_angular_hv_blocks_in_intra_area 3\n"
        "portion_deblocking_instances 4\n");
    EXPECT_EQ(green.period_type, 1);
}

TEST(H265NalSeiGreenMetadata, TellsOfQuality) {
    const auto green = test::record_of<h265_nal_sei_green_metadata>(  //
        "x01 x00 x0cx80",                                             //
        "green_metadata_type 1\n"
        "xsd_metric_type 0\n"
        "xsd_metric_value 3200\n");
    EXPECT_EQ(green.green_metadata_type, 1);
    EXPECT_EQ(green.xsd_metric_value, 3200);
}

TEST(H265NalSeiGreenMetadata, EndsBehindATypeThatNobodyKnows) {
    const auto green =
        test::record_of<h265_nal_sei_green_metadata>("x02", "green_metadata_type 2\n");
    EXPECT_EQ(green.green_metadata_type, 2);
}

TEST(H265NalSeiGreenMetadata, IsParsedAlone) {
    EXPECT_EQ(
        test::parsed_alone<h265_nal_sei_green_metadata>("x01 x05 x00x07").record.xsd_metric_type,
        5);
}

TEST(H265NalSeiGreenMetadata, NamesTypes) {
    EXPECT_STREQ(h265_nal_sei_green_metadata_type_to_str(0), "complexity metrics");
    EXPECT_STREQ(h265_nal_sei_green_metadata_type_to_str(1), "quality recovery metrics");
    EXPECT_STREQ(h265_nal_sei_green_metadata_type_to_str(2), "");
}

}  // namespace
}  // namespace kovran
