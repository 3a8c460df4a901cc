#include <kovran/h265/sei/h265_nal_sei_colour_remapping_info.h>

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "support/sei_payload.h"
#include "support/sei_record_parsing.h"

namespace kovran {
namespace {

constexpr char colour_remapping_info_bits[] =
    "011 0 1 1 1 x09 x10 x00 x08 x0a x01 x10 x00x00 xeb x03xff x00 x00 1 1010 "
    "00000000000100000000000 1 00111 010 00100 00101 1 0001110 "
    "00000000000100000000001 x00 x02 x00x00 x00x01 x02x00 x02x58 x03xff x03xe8 "
    "x00";

TEST(H265NalSeiColourRemappingInfo, HasTablesAndAMatrix) {
    const auto remap = test::record_of<h265_nal_sei_colour_remapping_info>(
        colour_remapping_info_bits,
        "colour_remap_id 2\n"
        "colour_remap_cancel_flag 0\n"
        "colour_remap_persistence_flag 1\n"
        "colour_remap_video_signal_info_present_flag 1\n"
        "colour_remap_full_range_flag 1\n"
        "colour_remap_primaries 9\n"
        "colour_remap_transfer_function 16\n"
        "colour_remap_matrix_coefficients 0\n"
        "colour_remap_input_bit_depth 8\n"
        "colour_remap_output_bit_depth 10\n"
        "pre_lut_num_val_minus1[0] 1\n"
        "pre_lut_coded_value[0][0] 16\n"
        "pre_lut_target_value[0][0] 0\n"
        "pre_lut_coded_value[0][1] 235\n"
        "pre_lut_target_value[0][1] 1023\n"
        "pre_lut_num_val_minus1[1] 0\n"
        "pre_lut_num_val_minus1[2] 0\n"
        "colour_remap_matrix_present_flag 1\n"
        "log2_matrix_denom 10\n"
        "colour_remap_coeffs[0][0] 1024\n"
        "colour_remap_coeffs[0][1] 0\n"
        "colour_remap_coeffs[0][2] -3\n"
        "colour_remap_coeffs[1][0] 1\n"
        "colour_remap_coeffs[1][1] 2\n"
        "colour_remap_coeffs[1][2] -2\n"
        "colour_remap_coeffs[2][0] 0\n"
        "colour_remap_coeffs[2][1] 7\n"
        "colour_remap_coeffs[2][2] -1024\n"
        "post_lut_num_val_minus1[0] 0\n"
        "post_lut_num_val_minus1[1] 2\n"
        "post_lut_coded_value[1][0] 0\n"
        "post_lut_target_value[1][0] 1\n"
        "post_lut_coded_value[1][1] 512\n"
        "post_lut_target_value[1][1] 600\n"
        "post_lut_coded_value[1][2] 1023\n"
        "post_lut_target_value[1][2] 1000\n"
        "post_lut_num_val_minus1[2] 0\n");
    EXPECT_EQ(remap.colour_remap_id, 2U);
    EXPECT_TRUE(remap.colour_remap_persistence_flag);
    EXPECT_TRUE(remap.colour_remap_full_range_flag);
    EXPECT_EQ(remap.colour_remap_primaries, 9);
    EXPECT_EQ(remap.colour_remap_transfer_function, 16);
    EXPECT_EQ(remap.colour_remap_matrix_coefficients, 0);
    EXPECT_EQ(remap.pre_lut_coded_value[0], (std::vector<unsigned int>{16, 235}));
    EXPECT_EQ(remap.pre_lut_target_value[0], (std::vector<unsigned int>{0, 1023}));
    EXPECT_TRUE(remap.pre_lut_coded_value[1].empty());
    EXPECT_EQ(remap.log2_matrix_denom, 10);
    EXPECT_EQ(remap.colour_remap_coeffs[0][2], -3);
    EXPECT_EQ(remap.colour_remap_coeffs[2][0], 0);
    EXPECT_EQ(remap.colour_remap_coeffs[2][2], -1024);
    EXPECT_EQ(remap.post_lut_coded_value[1], (std::vector<unsigned int>{0, 512, 1023}));
    EXPECT_EQ(remap.post_lut_target_value[1], (std::vector<unsigned int>{1, 600, 1000}));
}

// With values of 32 bits, and of none.
TEST(H265NalSeiColourRemappingInfo, HasNeitherSignalInfoNorMatrix) {
    const auto remap = test::record_of<h265_nal_sei_colour_remapping_info>(
        "011 0 1 0 x20 x00 x00 x01 xffxffxffxff  x00x00x00x01  x00 0 x00 x00 x00",
        "colour_remap_id 2\n"
        "colour_remap_cancel_flag 0\n"
        "colour_remap_persistence_flag 1\n"
        "colour_remap_video_signal_info_present_flag 0\n"
        "colour_remap_input_bit_depth 32\n"
        "colour_remap_output_bit_depth 0\n"
        "pre_lut_num_val_minus1[0] 0\n"
        "pre_lut_num_val_minus1[1] 1\n"
        "pre_lut_coded_value[1][0] 4294967295\n"
        "pre_lut_target_value[1][0] 0\n"
        "pre_lut_coded_value[1][1] 1\n"
        "pre_lut_target_value[1][1] 0\n"
        "pre_lut_num_val_minus1[2] 0\n"
        "colour_remap_matrix_present_flag 0\n"
        "post_lut_num_val_minus1[0] 0\n"
        "post_lut_num_val_minus1[1] 0\n"
        "post_lut_num_val_minus1[2] 0\n");
    EXPECT_FALSE(remap.colour_remap_matrix_present_flag);
    EXPECT_EQ(remap.pre_lut_coded_value[1], (std::vector<unsigned int>{0xFFFFFFFF, 1}));
}

TEST(H265NalSeiColourRemappingInfo, EndsAnEarlierOne) {
    const auto remap =
        test::record_of<h265_nal_sei_colour_remapping_info>("1 1",
                                                            "colour_remap_id 0\n"
                                                            "colour_remap_cancel_flag 1\n");
    EXPECT_TRUE(remap.colour_remap_cancel_flag);
}

TEST(H265NalSeiColourRemappingInfo, HasNoDeeperInput) {
    EXPECT_EQ(test::refusal_of(h265_nal_sei_colour_remapping_info::payload_type, "011 0 1 0 x21"),
              "colour_remap_input_bit_depth at bit 22 is 33; allowed: 0 to 32");
}

TEST(H265NalSeiColourRemappingInfo, HasNoDeeperOutput) {
    EXPECT_EQ(
        test::refusal_of(h265_nal_sei_colour_remapping_info::payload_type, "011 0 1 0 x08 x21"),
        "colour_remap_output_bit_depth at bit 30 is 33; allowed: 0 to 32");
}

TEST(H265NalSeiColourRemappingInfo, HasUpTo33Values) {
    const auto remap = test::record_of<h265_nal_sei_colour_remapping_info>(
        "011 0 1 0 x08 x08 x20 x00 x00 x01 x02 x02 x04 x03 x06 x04 x08 x05 x0a x06 "
        "x0c x07 x0e x08 x10 x09 x12 x0a x14 x0b x16 x0c x18 x0d x1a x0e x1c x0f x1e "
        "x10 x20 x11 x22 x12 x24 x13 x26 x14 x28 x15 x2a x16 x2c x17 x2e x18 x30 x19 "
        "x32 x1a x34 x1b x36 x1c x38 x1d x3a x1e x3c x1f x3e x20 x40 x00 x00 0 x00 "
        "x00 x20 x00 xff x01 xfe x02 xfd x03 xfc x04 xfb x05 xfa x06 xf9 x07 xf8 x08 "
        "xf7 x09 xf6 x0a xf5 x0b xf4 x0c xf3 x0d xf2 x0e xf1 x0f xf0 x10 xef x11 xee "
        "x12 xed x13 xec x14 xeb x15 xea x16 xe9 x17 xe8 x18 xe7 x19 xe6 x1a xe5 x1b "
        "xe4 x1c xe3 x1d xe2 x1e xe1 x1f xe0 x20 xdf",
        "colour_remap_id 2\n"
        "colour_remap_cancel_flag 0\n"
        "colour_remap_persistence_flag 1\n"
        "colour_remap_video_signal_info_present_flag 0\n"
        "colour_remap_input_bit_depth 8\n"
        "colour_remap_output_bit_depth 8\n"
        "pre_lut_num_val_minus1[0] 32\n"
        "pre_lut_coded_value[0][0] 0\n"
        "pre_lut_target_value[0][0] 0\n"
        "pre_lut_coded_value[0][1] 1\n"
        "pre_lut_target_value[0][1] 2\n"
        "pre_lut_coded_value[0][2] 2\n"
        "pre_lut_target_value[0][2] 4\n"
        "pre_lut_coded_value[0][3] 3\n"
        "pre_lut_target_value[0][3] 6\n"
        "pre_lut_coded_value[0][4] 4\n"
        "pre_lut_target_value[0][4] 8\n"
        "pre_lut_coded_value[0][5] 5\n"
        "pre_lut_target_value[0][5] 10\n"
        "pre_lut_coded_value[0][6] 6\n"
        "pre_lut_target_value[0][6] 12\n"
        "pre_lut_coded_value[0][7] 7\n"
        "pre_lut_target_value[0][7] 14\n"
        "pre_lut_coded_value[0][8] 8\n"
        "pre_lut_target_value[0][8] 16\n"
        "pre_lut_coded_value[0][9] 9\n"
        "pre_lut_target_value[0][9] 18\n"
        "pre_lut_coded_value[0][10] 10\n"
        "pre_lut_target_value[0][10] 20\n"
        "pre_lut_coded_value[0][11] 11\n"
        "pre_lut_target_value[0][11] 22\n"
        "pre_lut_coded_value[0][12] 12\n"
        "pre_lut_target_value[0][12] 24\n"
        "pre_lut_coded_value[0][13] 13\n"
        "pre_lut_target_value[0][13] 26\n"
        "pre_lut_coded_value[0][14] 14\n"
        "pre_lut_target_value[0][14] 28\n"
        "pre_lut_coded_value[0][15] 15\n"
        "pre_lut_target_value[0][15] 30\n"
        "pre_lut_coded_value[0][16] 16\n"
        "pre_lut_target_value[0][16] 32\n"
        "pre_lut_coded_value[0][17] 17\n"
        "pre_lut_target_value[0][17] 34\n"
        "pre_lut_coded_value[0][18] 18\n"
        "pre_lut_target_value[0][18] 36\n"
        "pre_lut_coded_value[0][19] 19\n"
        "pre_lut_target_value[0][19] 38\n"
        "pre_lut_coded_value[0][20] 20\n"
        "pre_lut_target_value[0][20] 40\n"
        "pre_lut_coded_value[0][21] 21\n"
        "pre_lut_target_value[0][21] 42\n"
        "pre_lut_coded_value[0][22] 22\n"
        "pre_lut_target_value[0][22] 44\n"
        "pre_lut_coded_value[0][23] 23\n"
        "pre_lut_target_value[0][23] 46\n"
        "pre_lut_coded_value[0][24] 24\n"
        "pre_lut_target_value[0][24] 48\n"
        "pre_lut_coded_value[0][25] 25\n"
        "pre_lut_target_value[0][25] 50\n"
        "pre_lut_coded_value[0][26] 26\n"
        "pre_lut_target_value[0][26] 52\n"
        "pre_lut_coded_value[0][27] 27\n"
        "pre_lut_target_value[0][27] 54\n"
        "pre_lut_coded_value[0][28] 28\n"
        "pre_lut_target_value[0][28] 56\n"
        "pre_lut_coded_value[0][29] 29\n"
        "pre_lut_target_value[0][29] 58\n"
        "pre_lut_coded_value[0][30] 30\n"
        "pre_lut_target_value[0][30] 60\n"
        "pre_lut_coded_value[0][31] 31\n"
        "pre_lut_target_value[0][31] 62\n"
        "pre_lut_coded_value[0][32] 32\n"
        "pre_lut_target_value[0][32] 64\n"
        "pre_lut_num_val_minus1[1] 0\n"
        "pre_lut_num_val_minus1[2] 0\n"
        "colour_remap_matrix_present_flag 0\n"
        "post_lut_num_val_minus1[0] 0\n"
        "post_lut_num_val_minus1[1] 0\n"
        "post_lut_num_val_minus1[2] 32\n"
        "post_lut_coded_value[2][0] 0\n"
        "post_lut_target_value[2][0] 255\n"
        "post_lut_coded_value[2][1] 1\n"
        "post_lut_target_value[2][1] 254\n"
        "post_lut_coded_value[2][2] 2\n"
        "post_lut_target_value[2][2] 253\n"
        "post_lut_coded_value[2][3] 3\n"
        "post_lut_target_value[2][3] 252\n"
        "post_lut_coded_value[2][4] 4\n"
        "post_lut_target_value[2][4] 251\n"
        "post_lut_coded_value[2][5] 5\n"
        "post_lut_target_value[2][5] 250\n"
        "post_lut_coded_value[2][6] 6\n"
        "post_lut_target_value[2][6] 249\n"
        "post_lut_coded_value[2][7] 7\n"
        "post_lut_target_value[2][7] 248\n"
        "post_lut_coded_value[2][8] 8\n"
        "post_lut_target_value[2][8] 247\n"
        "post_lut_coded_value[2][9] 9\n"
        "post_lut_target_value[2][9] 246\n"
        "post_lut_coded_value[2][10] 10\n"
        "post_lut_target_value[2][10] 245\n"
        "post_lut_coded_value[2][11] 11\n"
        "post_lut_target_value[2][11] 244\n"
        "post_lut_coded_value[2][12] 12\n"
        "post_lut_target_value[2][12] 243\n"
        "post_lut_coded_value[2][13] 13\n"
        "post_lut_target_value[2][13] 242\n"
        "post_lut_coded_value[2][14] 14\n"
        "post_lut_target_value[2][14] 241\n"
        "post_lut_coded_value[2][15] 15\n"
        "post_lut_target_value[2][15] 240\n"
        "post_lut_coded_value[2][16] 16\n"
        "post_lut_target_value[2][16] 239\n"
        "post_lut_coded_value[2][17] 17\n"
        "post_lut_target_value[2][17] 238\n"
        "post_lut_coded_value[2][18] 18\n"
        "post_lut_target_value[2][18] 237\n"
        "post_lut_coded_value[2][19] 19\n"
        "post_lut_target_value[2][19] 236\n"
        "post_lut_coded_value[2][20] 20\n"
        "post_lut_target_value[2][20] 235\n"
        "post_lut_coded_value[2][21] 21\n"
        "post_lut_target_value[2][21] 234\n"
        "post_lut_coded_value[2][22] 22\n"
        "post_lut_target_value[2][22] 233\n"
        "post_lut_coded_value[2][23] 23\n"
        "post_lut_target_value[2][23] 232\n"
        "post_lut_coded_value[2][24] 24\n"
        "post_lut_target_value[2][24] 231\n"
        "post_lut_coded_value[2][25] 25\n"
        "post_lut_target_value[2][25] 230\n"
        "post_lut_coded_value[2][26] 26\n"
        "post_lut_target_value[2][26] 229\n"
        "post_lut_coded_value[2][27] 27\n"
        "post_lut_target_value[2][27] 228\n"
        "post_lut_coded_value[2][28] 28\n"
        "post_lut_target_value[2][28] 227\n"
        "post_lut_coded_value[2][29] 29\n"
        "post_lut_target_value[2][29] 226\n"
        "post_lut_coded_value[2][30] 30\n"
        "post_lut_target_value[2][30] 225\n"
        "post_lut_coded_value[2][31] 31\n"
        "post_lut_target_value[2][31] 224\n"
        "post_lut_coded_value[2][32] 32\n"
        "post_lut_target_value[2][32] 223\n");
    EXPECT_EQ(remap.pre_lut_target_value[0].back(), 64U);
    EXPECT_EQ(remap.post_lut_target_value[2].back(), 223U);
}

TEST(H265NalSeiColourRemappingInfo, HasNoMoreThan33Values) {
    EXPECT_EQ(
        test::refusal_of(h265_nal_sei_colour_remapping_info::payload_type, "011 0 1 0 x08 x08 x21"),
        "pre_lut_num_val_minus1[0] at bit 38 is 33; allowed: 0 to 32");
}

TEST(H265NalSeiColourRemappingInfo, HasNoMoreThan33ValuesBehindTheMatrix) {
    EXPECT_EQ(test::refusal_of(h265_nal_sei_colour_remapping_info::payload_type,
                               "011 0 1 0 x08 x08 x00 x00 x00 0 x00 x21"),
              "post_lut_num_val_minus1[1] at bit 71 is 33; allowed: 0 to 32");
}

TEST(H265NalSeiColourRemappingInfo, IsParsedAlone) {
    const auto parsed =
        test::parsed_alone<h265_nal_sei_colour_remapping_info>(colour_remapping_info_bits);
    EXPECT_EQ(parsed.element_count, 37U);
    EXPECT_EQ(parsed.record.post_lut_coded_value[1].size(), 3U);
    EXPECT_EQ(parsed.untraced.post_lut_coded_value[1].size(), 3U);
}

TEST(H265NalSeiColourRemappingInfo, HasCoefficientsOf16Bits) {
    const std::string begin = "1 0 0 0 x08 x08 x00x00x00 1 0000";
    const std::string end = "1111111 x00x00x00";
    EXPECT_EQ(
        test::out_of_range<h265_nal_sei_colour_remapping_info>(
            begin + "0000000000000000 10000000000000001 000000000000000 1111111111111110" + end),
        "");
    EXPECT_EQ(
        test::out_of_range<h265_nal_sei_colour_remapping_info>(
            begin + "0000000000000000 10000000000000011 0000000000000000 10000000000000000" + end),
        "colour_remap_coeffs[0][0], colour_remap_coeffs[0][1]");
}

TEST(H265NalSeiColourRemappingInfo, HasOutputOfUpTo32Bits) {
    const auto remap = test::parsed_alone<h265_nal_sei_colour_remapping_info>(
                           "1 0 0 0 x08 x20 x01 x05 xffxffxffxff x06 x80x00x00x00 x00 x00 0 "
                           "x00 x01 xffxffxffxfe x00x00x00x01 x80x00x00x00 xffxffxffxff x00")
                           .record;
    EXPECT_EQ(remap.pre_lut_coded_value[0], (std::vector<unsigned int>{5, 6}));
    EXPECT_EQ(remap.pre_lut_target_value[0], (std::vector<unsigned int>{0xFFFFFFFF, 0x80000000}));
    EXPECT_EQ(remap.post_lut_coded_value[1], (std::vector<unsigned int>{0xFFFFFFFE, 0x80000000}));
    EXPECT_EQ(remap.post_lut_target_value[1], (std::vector<unsigned int>{1, 0xFFFFFFFF}));
}

}  // namespace
}  // namespace kovran
