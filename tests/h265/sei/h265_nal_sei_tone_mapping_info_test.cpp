#include <kovran/h265/sei/h265_nal_sei_tone_mapping_info.h>

#include <vector>

#include <gtest/gtest.h>

#include "support/sei_payload.h"
#include "support/sei_record_parsing.h"

namespace kovran {
namespace {

TEST(H265NalSeiToneMappingInfo, EndsWhereItCancels) {
    const auto info = test::record_of<h265_nal_sei_tone_mapping_info>(  //
        "010 1",                                                        //
        "tone_map_id 1\n"
        "tone_map_cancel_flag 1\n");
    EXPECT_EQ(info.tone_map_id, 1U);
    EXPECT_TRUE(info.tone_map_cancel_flag);
}

TEST(H265NalSeiToneMappingInfo, MapsLinearly) {
    const auto info = test::record_of<h265_nal_sei_tone_mapping_info>(  //
        "1 0 1 x0a x08 1 x00x00x00x10 xffxffxfexdc",
        "tone_map_id 0\n"
        "tone_map_cancel_flag 0\n"
        "tone_map_persistence_flag 1\n"
        "coded_data_bit_depth 10\n"
        "target_bit_depth 8\n"
        "tone_map_model_id 0\n"
        "min_value 16\n"
        "max_value 4294967004\n");
    EXPECT_TRUE(info.tone_map_persistence_flag);
    EXPECT_EQ(info.coded_data_bit_depth, 10);
    EXPECT_EQ(info.target_bit_depth, 8);
    EXPECT_EQ(info.min_value, 16U);
    EXPECT_EQ(info.max_value, 4294967004U);
}

TEST(H265NalSeiToneMappingInfo, MapsBySigmoid) {
    const auto info = test::record_of<h265_nal_sei_tone_mapping_info>(  //
        "1 0 0 x0a x08 010 x00x00x02x00 x00x00x03x00",
        "tone_map_id 0\n"
        "tone_map_cancel_flag 0\n"
        "tone_map_persistence_flag 0\n"
        "coded_data_bit_depth 10\n"
        "target_bit_depth 8\n"
        "tone_map_model_id 1\n"
        "sigmoid_midpoint 512\n"
        "sigmoid_width 768\n");
    EXPECT_EQ(info.sigmoid_midpoint, 512U);
    EXPECT_EQ(info.sigmoid_width, 768U);
}

TEST(H265NalSeiToneMappingInfo, MapsByTable) {
    const auto info = test::record_of<h265_nal_sei_tone_mapping_info>(  //
        "1 0 0 x09 x01 011 x00x40 x01xff",
        "tone_map_id 0\n"
        "tone_map_cancel_flag 0\n"
        "tone_map_persistence_flag 0\n"
        "coded_data_bit_depth 9\n"
        "target_bit_depth 1\n"
        "tone_map_model_id 2\n"
        "start_of_coded_interval[0] 64\n"
        "start_of_coded_interval[1] 511\n");
    EXPECT_EQ(info.start_of_coded_interval, (std::vector<unsigned int>{64, 511}));
}

TEST(H265NalSeiToneMappingInfo, HasWholeBytesInTables) {
    const auto info = test::record_of<h265_nal_sei_tone_mapping_info>(  //
        "1 0 0 x08 x00 011 xfe",
        "tone_map_id 0\n"
        "tone_map_cancel_flag 0\n"
        "tone_map_persistence_flag 0\n"
        "coded_data_bit_depth 8\n"
        "target_bit_depth 0\n"
        "tone_map_model_id 2\n"
        "start_of_coded_interval[0] 254\n");
    EXPECT_EQ(info.start_of_coded_interval, (std::vector<unsigned int>{254}));
}

TEST(H265NalSeiToneMappingInfo, MapsByPivots) {
    const auto info = test::record_of<h265_nal_sei_tone_mapping_info>(  //
        "1 0 0 x0a x08 00100 x00x02 x00x40x0a x03x84xf0",
        "tone_map_id 0\n"
        "tone_map_cancel_flag 0\n"
        "tone_map_persistence_flag 0\n"
        "coded_data_bit_depth 10\n"
        "target_bit_depth 8\n"
        "tone_map_model_id 3\n"
        "num_pivots 2\n"
        "coded_pivot_value[0] 64\n"
        "target_pivot_value[0] 10\n"
        "coded_pivot_value[1] 900\n"
        "target_pivot_value[1] 240\n");
    EXPECT_EQ(info.num_pivots, 2);
    EXPECT_EQ(info.coded_pivot_value, (std::vector<unsigned int>{64, 900}));
    EXPECT_EQ(info.target_pivot_value, (std::vector<unsigned int>{10, 240}));
}

TEST(H265NalSeiToneMappingInfo, HasPivotsOfUpTo32Bits) {
    const auto info = test::record_of<h265_nal_sei_tone_mapping_info>(  //
        "1 0 0 x20 x19 00100 x00x01 xffxffxffxfe x80x00x00x01",
        "tone_map_id 0\n"
        "tone_map_cancel_flag 0\n"
        "tone_map_persistence_flag 0\n"
        "coded_data_bit_depth 32\n"
        "target_bit_depth 25\n"
        "tone_map_model_id 3\n"
        "num_pivots 1\n"
        "coded_pivot_value[0] 4294967294\n"
        "target_pivot_value[0] 2147483649\n");
    EXPECT_EQ(info.coded_pivot_value, (std::vector<unsigned int>{4294967294U}));
    EXPECT_EQ(test::refusal_of(23, "1 0 0 x21 x08 00100 x00x01 xffxffxffxffxff xff"),
              "coded_data_bit_depth at bit 19 is 33; allowed: 0 to 32");
    EXPECT_EQ(test::refusal_of(23, "1 0 0 x08 x21 00100 x00x01 xffxffxffxffxff xff"),
              "target_bit_depth at bit 27 is 33; allowed: 0 to 32");
    EXPECT_EQ(test::refusal_of(23, "1 0 0 x21 x00 011 xffxffxffxffxff"),
              "coded_data_bit_depth at bit 19 is 33; allowed: 0 to 32");
}

TEST(H265NalSeiToneMappingInfo, MapsByCamera) {
    const auto info = test::record_of<h265_nal_sei_tone_mapping_info>(
        "1 0 0 x0a x08 00101  xff x00x00x01x90 xff x00x00x00x64 1 x00x03 x00x07"
        "x00x00x01x5e x00x00x03x20 x00x10 x00xeb x01x2c",
        "tone_map_id 0\n"
        "tone_map_cancel_flag 0\n"
        "tone_map_persistence_flag 0\n"
        "coded_data_bit_depth 10\n"
        "target_bit_depth 8\n"
        "tone_map_model_id 4\n"
        "camera_iso_speed_idc 255\n"
        "camera_iso_speed_value 400\n"
        "exposure_index_idc 255\n"
        "exposure_index_value 100\n"
        "exposure_compensation_value_sign_flag 1\n"
        "exposure_compensation_value_numerator 3\n"
        "exposure_compensation_value_denom_idc 7\n"
        "ref_screen_luminance_white 350\n"
        "extended_range_white_level 800\n"
        "nominal_black_level_code_value 16\n"
        "nominal_white_level_code_value 235\n"
        "extended_white_level_code_value 300\n");
    EXPECT_EQ(info.camera_iso_speed_value, 400U);
    EXPECT_EQ(info.exposure_index_value, 100U);
    EXPECT_TRUE(info.exposure_compensation_value_sign_flag);
    EXPECT_EQ(info.exposure_compensation_value_numerator, 3);
    EXPECT_EQ(info.exposure_compensation_value_denom_idc, 7);
    EXPECT_EQ(info.ref_screen_luminance_white, 350U);
    EXPECT_EQ(info.extended_range_white_level, 800U);
    EXPECT_EQ(info.nominal_black_level_code_value, 16);
    EXPECT_EQ(info.nominal_white_level_code_value, 235);
    EXPECT_EQ(info.extended_white_level_code_value, 300);
}

TEST(H265NalSeiToneMappingInfo, HasCameraValuesForIndex255Alone) {
    const auto info = test::record_of<h265_nal_sei_tone_mapping_info>(
        "1 0 0 x0a x08 00101  xfe x10 0 x00x01 x00x02"
        "x00x00x00x03 x00x00x00x04 x00x05 x00x06 x00x07",
        "tone_map_id 0\n"
        "tone_map_cancel_flag 0\n"
        "tone_map_persistence_flag 0\n"
        "coded_data_bit_depth 10\n"
        "target_bit_depth 8\n"
        "tone_map_model_id 4\n"
        "camera_iso_speed_idc 254\n"
        "exposure_index_idc 16\n"
        "exposure_compensation_value_sign_flag 0\n"
        "exposure_compensation_value_numerator 1\n"
        "exposure_compensation_value_denom_idc 2\n"
        "ref_screen_luminance_white 3\n"
        "extended_range_white_level 4\n"
        "nominal_black_level_code_value 5\n"
        "nominal_white_level_code_value 6\n"
        "extended_white_level_code_value 7\n");
    EXPECT_EQ(info.camera_iso_speed_idc, 254);
    EXPECT_EQ(info.exposure_index_idc, 16);
}

TEST(H265NalSeiToneMappingInfo, EndsBeforeAModelThatNobodyKnows) {
    const auto info = test::record_of<h265_nal_sei_tone_mapping_info>(  //
        "1 0 0 x0a x08 00110",
        "tone_map_id 0\n"
        "tone_map_cancel_flag 0\n"
        "tone_map_persistence_flag 0\n"
        "coded_data_bit_depth 10\n"
        "target_bit_depth 8\n"
        "tone_map_model_id 5\n");
    EXPECT_EQ(info.tone_map_model_id, 5U);
}

// 26 bits are left for entries of 8 bits.
TEST(H265NalSeiToneMappingInfo, HasNoMoreIntervalsThanTheDataHolds) {
    EXPECT_EQ(test::refusal_of(23, "1 0 0 x08 x02 011 x01x02x03"),
              "target_bit_depth at bit 27 is 2; allowed: 0 to 1");
    EXPECT_EQ(test::refusal_of(23, "1 0 0 x08 xff 011 x01x02x03"),
              "target_bit_depth at bit 27 is 255; allowed: 0 to 1");
    EXPECT_EQ(test::refusal_of(23, "1 0 0 x00 xff 011 x01x02x03"),
              "target_bit_depth at bit 27 is 255; allowed: 0 to 1");
}

TEST(H265NalSeiToneMappingInfo, HasNoMorePivotsThanTheDataHolds) {
    EXPECT_EQ(test::refusal_of(23, "1 0 0 x08 x08 00100 xffxff x01x02"),
              "num_pivots at bit 40 is 65535; allowed: 0 to 1");
    EXPECT_EQ(test::refusal_of(23, "1 0 0 x00 x00 00100 xffxff x01x02"),
              "num_pivots at bit 40 is 65535; allowed: 0 to 16");
}

TEST(H265NalSeiToneMappingInfo, IsParsedAlone) {
    const auto info = test::parsed_alone<h265_nal_sei_tone_mapping_info>(
                          "1 0 0 x0a x08 1 x00x00x00x10 x00x00x03x84")
                          .record;
    EXPECT_EQ(info.max_value, 900U);
}

TEST(H265NalSeiToneMappingInfo, NamesModels) {
    EXPECT_STREQ(h265_nal_sei_tone_map_model_id_to_str(0), "linear");
    EXPECT_STREQ(h265_nal_sei_tone_map_model_id_to_str(1), "sigmoid");
    EXPECT_STREQ(h265_nal_sei_tone_map_model_id_to_str(2), "table");
    EXPECT_STREQ(h265_nal_sei_tone_map_model_id_to_str(3), "piecewise linear");
    EXPECT_STREQ(h265_nal_sei_tone_map_model_id_to_str(4), "camera and display luminance");
    EXPECT_STREQ(h265_nal_sei_tone_map_model_id_to_str(5), "");
}

}  // namespace
}  // namespace kovran
