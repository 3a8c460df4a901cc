#include <kovran/h265/sei/h265_nal_sei_chroma_resampling_filter_hint.h>

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "support/sei_payload.h"
#include "support/sei_record_parsing.h"

namespace kovran {
namespace {

TEST(H265NalSeiChromaResamplingFilterHint, HasFiltersForBothDirections) {
    const auto hint = test::record_of<h265_nal_sei_chroma_resampling_filter_hint>(
        "x01 x01 1 010  010 010 011 00100  011 1 1 1 010",
        "ver_chroma_filter_idc 1\n"
        "hor_chroma_filter_idc 1\n"
        "ver_filtering_field_processing_flag 1\n"
        "target_format_idc 1\n"
        "num_vertical_filters 1\n"
        "ver_tap_length_minus1[0] 1\n"
        "ver_filter_coeff[0][0] -1\n"
        "ver_filter_coeff[0][1] 2\n"
        "num_horizontal_filters 2\n"
        "hor_tap_length_minus1[0] 0\n"
        "hor_filter_coeff[0][0] 0\n"
        "hor_tap_length_minus1[1] 0\n"
        "hor_filter_coeff[1][0] 1\n");
    EXPECT_TRUE(hint.ver_filtering_field_processing_flag);
    EXPECT_EQ(hint.target_format_idc, 1U);
    ASSERT_EQ(hint.vertical_filters.size(), 1U);
    EXPECT_EQ(hint.vertical_filters[0].ver_filter_coeff, (std::vector<int>{-1, 2}));
    ASSERT_EQ(hint.horizontal_filters.size(), 2U);
    EXPECT_EQ(hint.horizontal_filters[1].hor_filter_coeff, (std::vector<int>{1}));
}

TEST(H265NalSeiChromaResamplingFilterHint, MayHaveVerticalFiltersAlone) {
    const auto hint = test::record_of<h265_nal_sei_chroma_resampling_filter_hint>(  //
        "x01 x00 0 1  010 1 00101",                                                 //
        "ver_chroma_filter_idc 1\n"
        "hor_chroma_filter_idc 0\n"
        "ver_filtering_field_processing_flag 0\n"
        "target_format_idc 0\n"
        "num_vertical_filters 1\n"
        "ver_tap_length_minus1[0] 0\n"
        "ver_filter_coeff[0][0] -2\n");
    EXPECT_EQ(hint.vertical_filters.size(), 1U);
    EXPECT_TRUE(hint.horizontal_filters.empty());
}

TEST(H265NalSeiChromaResamplingFilterHint, MayHaveHorizontalFiltersAlone) {
    const auto hint = test::record_of<h265_nal_sei_chroma_resampling_filter_hint>(  //
        "x02 x01 0 00100  010 011 00110 1 010",                                     //
        "ver_chroma_filter_idc 2\n"
        "hor_chroma_filter_idc 1\n"
        "ver_filtering_field_processing_flag 0\n"
        "target_format_idc 3\n"
        "num_horizontal_filters 1\n"
        "hor_tap_length_minus1[0] 2\n"
        "hor_filter_coeff[0][0] 3\n"
        "hor_filter_coeff[0][1] 0\n"
        "hor_filter_coeff[0][2] 1\n");
    EXPECT_EQ(hint.target_format_idc, 3U);
    EXPECT_TRUE(hint.vertical_filters.empty());
    ASSERT_EQ(hint.horizontal_filters.size(), 1U);
    EXPECT_EQ(hint.horizontal_filters[0].hor_filter_coeff, (std::vector<int>{3, 0, 1}));
}

TEST(H265NalSeiChromaResamplingFilterHint, MayCountNoFilters) {
    const auto hint = test::record_of<h265_nal_sei_chroma_resampling_filter_hint>(  //
        "x02 x01 0 00100  1",                                                       //
        "ver_chroma_filter_idc 2\n"
        "hor_chroma_filter_idc 1\n"
        "ver_filtering_field_processing_flag 0\n"
        "target_format_idc 3\n"
        "num_horizontal_filters 0\n");
    EXPECT_TRUE(hint.horizontal_filters.empty());
}

TEST(H265NalSeiChromaResamplingFilterHint, MayHaveNoFilters) {
    const auto hint = test::record_of<h265_nal_sei_chroma_resampling_filter_hint>(  //
        "x00 x02 0",                                                                //
        "ver_chroma_filter_idc 0\n"
        "hor_chroma_filter_idc 2\n"
        "ver_filtering_field_processing_flag 0\n");
    EXPECT_EQ(hint.hor_chroma_filter_idc, 2);
}

// ue(v) of 4294967294.
constexpr char chroma_resampling_highest_ue[] = "0000000 00000000 00000000 00000000 xffxffxffxff";

TEST(H265NalSeiChromaResamplingFilterHint, HasNoMoreFiltersThanTheDataHolds) {
    EXPECT_EQ(test::refusal_of(140, std::string("x01 x00 0 1") + chroma_resampling_highest_ue),
              "num_vertical_filters at bit 34 is 4294967294; allowed: 0 to 3");
    EXPECT_EQ(test::refusal_of(140, std::string("x00 x01 0 1") + chroma_resampling_highest_ue),
              "num_horizontal_filters at bit 34 is 4294967294; allowed: 0 to 3");
}

TEST(H265NalSeiChromaResamplingFilterHint, HasNoMoreTapsThanTheDataHolds) {
    EXPECT_EQ(test::refusal_of(140, std::string("x01 x00 0 1 010") + chroma_resampling_highest_ue),
              "ver_tap_length_minus1[0] at bit 37 is 4294967294; allowed: 0 to 3");
    EXPECT_EQ(test::refusal_of(140, std::string("x00 x01 0 1 010") + chroma_resampling_highest_ue),
              "hor_tap_length_minus1[0] at bit 37 is 4294967294; allowed: 0 to 3");
}

TEST(H265NalSeiChromaResamplingFilterHint, IsParsedAlone) {
    const auto hint =
        test::parsed_alone<h265_nal_sei_chroma_resampling_filter_hint>("x00 x01 0 1  010 1 011")
            .record;
    ASSERT_EQ(hint.horizontal_filters.size(), 1U);
    EXPECT_EQ(hint.horizontal_filters[0].hor_filter_coeff, (std::vector<int>{-1}));
}

}  // namespace
}  // namespace kovran
