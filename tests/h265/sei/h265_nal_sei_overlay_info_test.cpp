#include <kovran/h265/sei/h265_nal_sei_overlay_info.h>

#include <vector>

#include <gtest/gtest.h>

#include "support/sei_payload.h"
#include "support/sei_record_parsing.h"

namespace kovran {
namespace {

constexpr char overlay_info_bits[] =
    "0 010 011 00100 011 010 00101 1 100001 1 100010 1 111111 010 1000000001 "
    "1010111100 0000000001 1111111111 1 0 000010 0 0 0 0 0 0 0 0 0 "
    "x64x65x2dx44x45x00 x41x00 x00 x42x32x00 x00 1";

TEST(H265NalSeiOverlayInfo, HasNamesAndLabels) {
    const auto info =
        test::record_of<h265_nal_sei_overlay_info>(overlay_info_bits,
                                                   "overlay_info_cancel_flag 0\n"
                                                   "overlay_content_aux_id_minus128 1\n"
                                                   "overlay_label_aux_id_minus128 2\n"
                                                   "overlay_alpha_aux_id_minus128 3\n"
                                                   "overlay_element_label_value_length_minus8 2\n"
                                                   "num_overlays_minus1 1\n"
                                                   "overlay_idx[0] 4\n"
                                                   "language_overlay_present_flag[0] 1\n"
                                                   "overlay_content_layer_id[0] 33\n"
                                                   "overlay_label_present_flag[0] 1\n"
                                                   "overlay_label_layer_id[0] 34\n"
                                                   "overlay_alpha_present_flag[0] 1\n"
                                                   "overlay_alpha_layer_id[0] 63\n"
                                                   "num_overlay_elements_minus1[0] 1\n"
                                                   "overlay_element_label_min[0][0] 513\n"
                                                   "overlay_element_label_max[0][0] 700\n"
                                                   "overlay_element_label_min[0][1] 1\n"
                                                   "overlay_element_label_max[0][1] 1023\n"
                                                   "overlay_idx[1] 0\n"
                                                   "language_overlay_present_flag[1] 0\n"
                                                   "overlay_content_layer_id[1] 2\n"
                                                   "overlay_label_present_flag[1] 0\n"
                                                   "overlay_alpha_present_flag[1] 0\n"
                                                   "overlay_zero_bit 0\n"
                                                   "overlay_zero_bit 0\n"
                                                   "overlay_zero_bit 0\n"
                                                   "overlay_zero_bit 0\n"
                                                   "overlay_zero_bit 0\n"
                                                   "overlay_zero_bit 0\n"
                                                   "overlay_zero_bit 0\n"
                                                   "overlay_language[0] 64652d444500\n"
                                                   "overlay_name[0] 4100\n"
                                                   "overlay_element_name[0][0] 00\n"
                                                   "overlay_element_name[0][1] 423200\n"
                                                   "overlay_name[1] 00\n"
                                                   "overlay_info_persistence_flag 1\n");
    EXPECT_EQ(info.overlay_content_aux_id_minus128, 1U);
    EXPECT_EQ(info.overlay_label_aux_id_minus128, 2U);
    EXPECT_EQ(info.overlay_alpha_aux_id_minus128, 3U);
    EXPECT_TRUE(info.overlay_info_persistence_flag);
    ASSERT_EQ(info.overlays.size(), 2U);
    const auto& first = info.overlays[0];
    EXPECT_EQ(first.overlay_idx, 4U);
    EXPECT_EQ(first.overlay_content_layer_id, 33);
    EXPECT_EQ(first.overlay_label_layer_id, 34);
    EXPECT_EQ(first.overlay_alpha_layer_id, 63);
    EXPECT_EQ(first.overlay_element_label_min, (std::vector<unsigned int>{513, 1}));
    EXPECT_EQ(first.overlay_element_label_max, (std::vector<unsigned int>{700, 1023}));
    EXPECT_EQ(first.overlay_language, (std::vector<unsigned char>{'d', 'e', '-', 'D', 'E'}));
    EXPECT_EQ(first.overlay_name, std::vector<unsigned char>{'A'});
    EXPECT_EQ(first.overlay_element_name,
              (std::vector<std::vector<unsigned char>>{{}, {'B', '2'}}));
    EXPECT_TRUE(info.overlays[1].overlay_element_name.empty());
    EXPECT_TRUE(info.overlays[1].overlay_name.empty());
}

// Labels of 32 bits.
TEST(H265NalSeiOverlayInfo, HasLabelsWithoutAlpha) {
    const auto info = test::record_of<h265_nal_sei_overlay_info>(
        "0 1 1 1 000011001 1 1 0 000000 1 000001 0 1 x80x00x00x00 xffxffxffxff 0 "
        "x43x00 x44x00 0",
        "overlay_info_cancel_flag 0\n"
        "overlay_content_aux_id_minus128 0\n"
        "overlay_label_aux_id_minus128 0\n"
        "overlay_alpha_aux_id_minus128 0\n"
        "overlay_element_label_value_length_minus8 24\n"
        "num_overlays_minus1 0\n"
        "overlay_idx[0] 0\n"
        "language_overlay_present_flag[0] 0\n"
        "overlay_content_layer_id[0] 0\n"
        "overlay_label_present_flag[0] 1\n"
        "overlay_label_layer_id[0] 1\n"
        "overlay_alpha_present_flag[0] 0\n"
        "num_overlay_elements_minus1[0] 0\n"
        "overlay_element_label_min[0][0] 2147483648\n"
        "overlay_element_label_max[0][0] 4294967295\n"
        "overlay_zero_bit 0\n"
        "overlay_name[0] 4300\n"
        "overlay_element_name[0][0] 4400\n"
        "overlay_info_persistence_flag 0\n");
    EXPECT_EQ(info.overlays[0].overlay_element_label_max, std::vector<unsigned int>{0xFFFFFFFF});
    EXPECT_FALSE(info.overlay_info_persistence_flag);
}

TEST(H265NalSeiOverlayInfo, HasAlphaWithoutLabels) {
    const auto info = test::record_of<h265_nal_sei_overlay_info>(
        "0 1 1 1 1 1 1 1 000000 0 1 000001 0 0 x78x00 x43x00 0",
        "overlay_info_cancel_flag 0\n"
        "overlay_content_aux_id_minus128 0\n"
        "overlay_label_aux_id_minus128 0\n"
        "overlay_alpha_aux_id_minus128 0\n"
        "overlay_element_label_value_length_minus8 0\n"
        "num_overlays_minus1 0\n"
        "overlay_idx[0] 0\n"
        "language_overlay_present_flag[0] 1\n"
        "overlay_content_layer_id[0] 0\n"
        "overlay_label_present_flag[0] 0\n"
        "overlay_alpha_present_flag[0] 1\n"
        "overlay_alpha_layer_id[0] 1\n"
        "overlay_zero_bit 0\n"
        "overlay_zero_bit 0\n"
        "overlay_language[0] 7800\n"
        "overlay_name[0] 4300\n"
        "overlay_info_persistence_flag 0\n");
    EXPECT_EQ(info.overlays[0].overlay_alpha_layer_id, 1);
}

TEST(H265NalSeiOverlayInfo, EndsAnEarlierOne) {
    const auto info =
        test::record_of<h265_nal_sei_overlay_info>("1", "overlay_info_cancel_flag 1\n");
    EXPECT_TRUE(info.overlay_info_cancel_flag);
    EXPECT_TRUE(info.overlays.empty());
}

TEST(H265NalSeiOverlayInfo, HasNoWiderLabels) {
    EXPECT_EQ(test::refusal_of(h265_nal_sei_overlay_info::payload_type, "0 1 1 1 000011010 1"),
              "overlay_element_label_value_length_minus8 at bit 20 is 25; allowed: 0 to 24");
}

TEST(H265NalSeiOverlayInfo, HasNoMoreThan16Overlays) {
    EXPECT_EQ(test::refusal_of(h265_nal_sei_overlay_info::payload_type, "0 1 1 1 1 000010001"),
              "num_overlays_minus1 at bit 21 is 16; allowed: 0 to 15");
}

TEST(H265NalSeiOverlayInfo, HasUpTo16Overlays) {
    const auto info = test::record_of<h265_nal_sei_overlay_info>(
        "0 1 1 1 1 000010000 1 0 000000 0 0 010 0 000001 0 0 011 0 000010 0 0 00100 0 "
        "000011 0 0 00101 0 000100 0 0 00110 0 000101 0 0 00111 0 000110 0 0 0001000 "
        "0 000111 0 0 0001001 0 001000 0 0 0001010 0 001001 0 0 0001011 0 001010 0 0 "
        "0001100 0 001011 0 0 0001101 0 001100 0 0 0001110 0 001101 0 0 0001111 0 "
        "001110 0 0 000010000 0 001111 0 0 0 0 0 0 0 0 x00 x00 x00 x00 x00 x00 x00 "
        "x00 x00 x00 x00 x00 x00 x00 x00 x00 1",
        "overlay_info_cancel_flag 0\n"
        "overlay_content_aux_id_minus128 0\n"
        "overlay_label_aux_id_minus128 0\n"
        "overlay_alpha_aux_id_minus128 0\n"
        "overlay_element_label_value_length_minus8 0\n"
        "num_overlays_minus1 15\n"
        "overlay_idx[0] 0\n"
        "language_overlay_present_flag[0] 0\n"
        "overlay_content_layer_id[0] 0\n"
        "overlay_label_present_flag[0] 0\n"
        "overlay_alpha_present_flag[0] 0\n"
        "overlay_idx[1] 1\n"
        "language_overlay_present_flag[1] 0\n"
        "overlay_content_layer_id[1] 1\n"
        "overlay_label_present_flag[1] 0\n"
        "overlay_alpha_present_flag[1] 0\n"
        "overlay_idx[2] 2\n"
        "language_overlay_present_flag[2] 0\n"
        "overlay_content_layer_id[2] 2\n"
        "overlay_label_present_flag[2] 0\n"
        "overlay_alpha_present_flag[2] 0\n"
        "overlay_idx[3] 3\n"
        "language_overlay_present_flag[3] 0\n"
        "overlay_content_layer_id[3] 3\n"
        "overlay_label_present_flag[3] 0\n"
        "overlay_alpha_present_flag[3] 0\n"
        "overlay_idx[4] 4\n"
        "language_overlay_present_flag[4] 0\n"
        "overlay_content_layer_id[4] 4\n"
        "overlay_label_present_flag[4] 0\n"
        "overlay_alpha_present_flag[4] 0\n"
        "overlay_idx[5] 5\n"
        "language_overlay_present_flag[5] 0\n"
        "overlay_content_layer_id[5] 5\n"
        "overlay_label_present_flag[5] 0\n"
        "overlay_alpha_present_flag[5] 0\n"
        "overlay_idx[6] 6\n"
        "language_overlay_present_flag[6] 0\n"
        "overlay_content_layer_id[6] 6\n"
        "overlay_label_present_flag[6] 0\n"
        "overlay_alpha_present_flag[6] 0\n"
        "overlay_idx[7] 7\n"
        "language_overlay_present_flag[7] 0\n"
        "overlay_content_layer_id[7] 7\n"
        "overlay_label_present_flag[7] 0\n"
        "overlay_alpha_present_flag[7] 0\n"
        "overlay_idx[8] 8\n"
        "language_overlay_present_flag[8] 0\n"
        "overlay_content_layer_id[8] 8\n"
        "overlay_label_present_flag[8] 0\n"
        "overlay_alpha_present_flag[8] 0\n"
        "overlay_idx[9] 9\n"
        "language_overlay_present_flag[9] 0\n"
        "overlay_content_layer_id[9] 9\n"
        "overlay_label_present_flag[9] 0\n"
        "overlay_alpha_present_flag[9] 0\n"
        "overlay_idx[10] 10\n"
        "language_overlay_present_flag[10] 0\n"
        "overlay_content_layer_id[10] 10\n"
        "overlay_label_present_flag[10] 0\n"
        "overlay_alpha_present_flag[10] 0\n"
        "overlay_idx[11] 11\n"
        "language_overlay_present_flag[11] 0\n"
        "overlay_content_layer_id[11] 11\n"
        "overlay_label_present_flag[11] 0\n"
        "overlay_alpha_present_flag[11] 0\n"
        "overlay_idx[12] 12\n"
        "language_overlay_present_flag[12] 0\n"
        "overlay_content_layer_id[12] 12\n"
        "overlay_label_present_flag[12] 0\n"
        "overlay_alpha_present_flag[12] 0\n"
        "overlay_idx[13] 13\n"
        "language_overlay_present_flag[13] 0\n"
        "overlay_content_layer_id[13] 13\n"
        "overlay_label_present_flag[13] 0\n"
        "overlay_alpha_present_flag[13] 0\n"
        "overlay_idx[14] 14\n"
        "language_overlay_present_flag[14] 0\n"
        "overlay_content_layer_id[14] 14\n"
        "overlay_label_present_flag[14] 0\n"
        "overlay_alpha_present_flag[14] 0\n"
        "overlay_idx[15] 15\n"
        "language_overlay_present_flag[15] 0\n"
        "overlay_content_layer_id[15] 15\n"
        "overlay_label_present_flag[15] 0\n"
        "overlay_alpha_present_flag[15] 0\n"
        "overlay_zero_bit 0\n"
        "overlay_zero_bit 0\n"
        "overlay_zero_bit 0\n"
        "overlay_zero_bit 0\n"
        "overlay_zero_bit 0\n"
        "overlay_zero_bit 0\n"
        "overlay_name[0] 00\n"
        "overlay_name[1] 00\n"
        "overlay_name[2] 00\n"
        "overlay_name[3] 00\n"
        "overlay_name[4] 00\n"
        "overlay_name[5] 00\n"
        "overlay_name[6] 00\n"
        "overlay_name[7] 00\n"
        "overlay_name[8] 00\n"
        "overlay_name[9] 00\n"
        "overlay_name[10] 00\n"
        "overlay_name[11] 00\n"
        "overlay_name[12] 00\n"
        "overlay_name[13] 00\n"
        "overlay_name[14] 00\n"
        "overlay_name[15] 00\n"
        "overlay_info_persistence_flag 1\n");
    EXPECT_EQ(info.overlays.size(), 16U);
    EXPECT_EQ(info.overlays.back().overlay_content_layer_id, 15);
}

// 31 bits are left, and an element has 24 at the least.
TEST(H265NalSeiOverlayInfo, HasNoMoreElementsThanTheDataHolds) {
    EXPECT_EQ(test::refusal_of(h265_nal_sei_overlay_info::payload_type,
                               "0 1 1 1 1 1 1 0 000000 1 000000 0 010 xffxffxff 1111111"),
              "num_overlay_elements_minus1[0] at bit 38 is 1; allowed: 0");
}

TEST(H265NalSeiOverlayInfo, HasNamesThatEnd) {
    EXPECT_EQ(
        test::refusal_of(h265_nal_sei_overlay_info::payload_type, "0 1 1 1 1 1 1 0 000000 0 0 x41"),
        "the data ends before the end of overlay_name[0] at bit 32");
}

TEST(H265NalSeiOverlayInfo, IsParsedAlone) {
    const auto parsed = test::parsed_alone<h265_nal_sei_overlay_info>(overlay_info_bits);
    EXPECT_EQ(parsed.element_count, 36U);
    EXPECT_EQ(parsed.record.overlays.size(), 2U);
    EXPECT_EQ(parsed.untraced.overlays.size(), 2U);
}

}  // namespace
}  // namespace kovran
