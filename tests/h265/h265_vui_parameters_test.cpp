#include <kovran/h265/h265_nal_sps.h>
#include <kovran/h265/h265_vui_parameters.h>

#include <gtest/gtest.h>

#include <cstddef>

#include "support/bit_writer.h"
#include "support/parameter_sets.h"
#include "support/rbsp.h"
#include "support/same_fields.h"

namespace kovran {
namespace {

// vui_parameters(), by groups of elements in coded order, with nothing present.
struct vui_syntax {
    test::bit_writer aspect_ratio = test::bit_writer().u<1>(0);
    test::bit_writer overscan = test::bit_writer().u<1>(0);
    test::bit_writer video_signal_type = test::bit_writer().u<1>(0);
    test::bit_writer chroma_location = test::bit_writer().u<1>(0);
    test::bit_writer fields = test::bit_writer().u<1>(0).u<1>(0).u<1>(0);
    test::bit_writer default_display_window = test::bit_writer().u<1>(0);
    test::bit_writer timing_and_hrd = test::bit_writer().u<1>(0);
    test::bit_writer restrictions = test::bit_writer().u<1>(0);

    test::bit_writer bits() const {
        test::bit_writer all;
        for (const test::bit_writer* group :
             {&aspect_ratio, &overscan, &video_signal_type, &chroma_location, &fields,
              &default_display_window, &timing_and_hrd, &restrictions}) {
            test::append(all, *group);
        }
        return all;
    }
};

bool parse(h265_vui_parameters& vui, const test::bit_writer& bits,
           unsigned char sps_max_sub_layers_minus1 = 0) {
    h265_nal_sps sps;
    sps.sps_max_sub_layers_minus1 = sps_max_sub_layers_minus1;
    h265_nal_sps sps_before = sps;
    test::rbsp input{bits.bytes()};
    const bool result = vui.parse(input.reader, sps);
    if (result) {
        EXPECT_EQ(input.reader.bit_position(), bits.size());
    }
    EXPECT_TRUE(test::same_fields(sps, sps_before));
    return result;
}

h265_vui_parameters parsed(const vui_syntax& syntax) {
    h265_vui_parameters vui;
    EXPECT_TRUE(parse(vui, syntax.bits()));
    EXPECT_TRUE(vui.valid);
    return vui;
}

// Timing information of which the HRD flag is next.
test::bit_writer timing() {
    return test::bit_writer().u<1>(1).u<32>(1).u<32>(60).u<1>(0);
}

TEST(H265VuiParameters, ReadsEveryElementInItsPlace) {
    const test::sample<h265_vui_parameters> sample = test::full_vui_parameters();
    h265_vui_parameters vui;
    EXPECT_TRUE(parse(vui, sample.syntax, test::sample_max_sub_layers_minus1));
    EXPECT_TRUE(test::same_fields(vui, sample.record));
}

TEST(H265VuiParameters, ReadsTenBitsWhenNothingIsPresent) {
    test::rbsp input{0b0'0'0'0'000'0, 0b0'0'111111};
    h265_nal_sps sps;
    h265_vui_parameters vui;
    EXPECT_TRUE(vui.parse(input.reader, sps));
    EXPECT_EQ(input.reader.bit_position(), 10U);
    h265_vui_parameters expected;
    expected.valid = true;
    EXPECT_TRUE(test::same_fields(vui, expected));
}

constexpr struct {
    unsigned int width;
    unsigned int height;
} table_e_1[] = {{0, 0},   {1, 1},    {12, 11}, {10, 11}, {16, 11}, {40, 33},
                 {24, 11}, {20, 11},  {32, 11}, {80, 33}, {18, 11}, {15, 11},
                 {64, 33}, {160, 99}, {4, 3},   {3, 2},   {2, 1}};

TEST(H265VuiParameters, TakesTheAspectRatioFromItsTable) {
    for (unsigned int aspect_ratio_idc = 0; aspect_ratio_idc < 255; ++aspect_ratio_idc) {
        vui_syntax syntax;
        syntax.aspect_ratio = test::bit_writer().u<1>(1).u<8>(aspect_ratio_idc);
        h265_vui_parameters vui;
        vui.sar_width = 0xAAAA;
        vui.sar_height = 0xBBBB;
        EXPECT_TRUE(parse(vui, syntax.bits()));

        h265_vui_parameters expected;
        expected.aspect_ratio_info_present_flag = true;
        expected.aspect_ratio_idc = static_cast<unsigned char>(aspect_ratio_idc);
        if (aspect_ratio_idc <= 16) {
            expected.sar_width = static_cast<unsigned short>(table_e_1[aspect_ratio_idc].width);
            expected.sar_height = static_cast<unsigned short>(table_e_1[aspect_ratio_idc].height);
        }
        expected.valid = true;
        EXPECT_TRUE(test::same_fields(vui, expected)) << aspect_ratio_idc;
    }
}

TEST(H265VuiParameters, HasTheSameAspectRatiosByTheStandard) {
    for (unsigned int aspect_ratio_idc = 0; aspect_ratio_idc < 255; ++aspect_ratio_idc) {
        vui_syntax syntax;
        syntax.aspect_ratio = test::bit_writer().u<1>(1).u<8>(aspect_ratio_idc);
        test::rbsp input{syntax.bits().bytes()};
        h265_nal_sps sps;
        h265_vui_parameters vui;
        ASSERT_TRUE(vui.parse_standard(input.reader, sps));
        const auto ratio = table_e_1[aspect_ratio_idc <= 16 ? aspect_ratio_idc : 0];
        EXPECT_EQ(vui.sar_width, ratio.width) << aspect_ratio_idc;
        EXPECT_EQ(vui.sar_height, ratio.height) << aspect_ratio_idc;
        EXPECT_FALSE(vui.extended_sar_flag) << aspect_ratio_idc;
    }
}

TEST(H265VuiParameters, ReadsAnExtendedAspectRatio) {
    vui_syntax syntax;
    syntax.aspect_ratio = test::bit_writer().u<1>(1).u<8>(255).u<16>(4).u<16>(3);
    const h265_vui_parameters vui = parsed(syntax);
    EXPECT_EQ(vui.aspect_ratio_idc, 255);
    EXPECT_TRUE(vui.extended_sar_flag);
    EXPECT_EQ(vui.sar_width, 4);
    EXPECT_EQ(vui.sar_height, 3);

    syntax.aspect_ratio = test::bit_writer().u<1>(1).u<8>(255).u<16>(0xFFFF).u<16>(0);
    EXPECT_EQ(parsed(syntax).sar_width, 0xFFFF);
    EXPECT_EQ(parsed(syntax).sar_height, 0);
}

TEST(H265VuiParameters, NeverTakesTheExtendedFlagBack) {
    vui_syntax extended;
    extended.aspect_ratio = test::bit_writer().u<1>(1).u<8>(255).u<16>(4).u<16>(3);
    h265_vui_parameters vui = parsed(extended);

    vui_syntax square;
    square.aspect_ratio = test::bit_writer().u<1>(1).u<8>(1);
    EXPECT_TRUE(parse(vui, square.bits()));
    EXPECT_EQ(vui.aspect_ratio_idc, 1);
    EXPECT_TRUE(vui.extended_sar_flag);
    EXPECT_EQ(vui.sar_width, 1);
    EXPECT_EQ(vui.sar_height, 1);
}

TEST(H265VuiParameters, ReadsOverscan) {
    for (const bool overscan_appropriate_flag : {false, true}) {
        vui_syntax syntax;
        syntax.overscan = test::bit_writer().u<1>(1).u<1>(overscan_appropriate_flag);
        const h265_vui_parameters vui = parsed(syntax);
        EXPECT_TRUE(vui.overscan_info_present_flag);
        EXPECT_EQ(vui.overscan_appropriate_flag, overscan_appropriate_flag);
    }
}

TEST(H265VuiParameters, ReadsVideoSignalTypeWithoutColours) {
    vui_syntax syntax;
    syntax.video_signal_type = test::bit_writer().u<1>(1).u<3>(5).u<1>(1).u<1>(0);
    const h265_vui_parameters vui = parsed(syntax);
    EXPECT_TRUE(vui.video_signal_type_present_flag);
    EXPECT_EQ(vui.video_format, 5);
    EXPECT_STREQ(vui.video_format_to_str(), "Unspecified");
    EXPECT_TRUE(vui.video_full_range_flag);
    EXPECT_FALSE(vui.colour_description_present_flag);
    EXPECT_EQ(vui.colour_primaries, 0);
}

TEST(H265VuiParameters, ReadsColours) {
    vui_syntax syntax;
    syntax.video_signal_type =
        test::bit_writer().u<1>(1).u<3>(7).u<1>(0).u<1>(1).u<8>(255).u<8>(0).u<8>(9);
    const h265_vui_parameters vui = parsed(syntax);
    EXPECT_EQ(vui.video_format, 7);
    EXPECT_STREQ(vui.video_format_to_str(), "?");
    EXPECT_FALSE(vui.video_full_range_flag);
    EXPECT_TRUE(vui.colour_description_present_flag);
    EXPECT_EQ(vui.colour_primaries, 255);
    EXPECT_EQ(vui.transfer_characteristics, 0);
    EXPECT_EQ(vui.matrix_coeffs, 9);
}

TEST(H265VuiParameters, ReadsChromaLocationsOfAnySize) {
    vui_syntax syntax;
    syntax.chroma_location = test::bit_writer().u<1>(1).ue(0xFFFFFFFE).ue(2);
    const h265_vui_parameters vui = parsed(syntax);
    EXPECT_TRUE(vui.chroma_loc_info_present_flag);
    EXPECT_EQ(vui.chroma_sample_loc_type_top_field, 0xFFFFFFFEU);
    EXPECT_EQ(vui.chroma_sample_loc_type_bottom_field, 2U);
}

TEST(H265VuiParameters, ReadsThreeFlagsInTheirOrder) {
    for (unsigned int one = 0; one < 3; ++one) {
        vui_syntax syntax;
        syntax.fields = test::bit_writer().u<3>(4U >> one);
        const h265_vui_parameters vui = parsed(syntax);
        EXPECT_EQ(vui.neutral_chroma_indication_flag, one == 0);
        EXPECT_EQ(vui.field_seq_flag, one == 1);
        EXPECT_EQ(vui.frame_field_info_present_flag, one == 2);
    }
}

TEST(H265VuiParameters, ReadsADefaultDisplayWindow) {
    vui_syntax syntax;
    syntax.default_display_window = test::bit_writer().u<1>(1).ue(1).ue(2).ue(3).ue(0xFFFFFFFE);
    const h265_vui_parameters vui = parsed(syntax);
    EXPECT_TRUE(vui.default_display_window_flag);
    EXPECT_EQ(vui.def_disp_win_left_offset, 1U);
    EXPECT_EQ(vui.def_disp_win_right_offset, 2U);
    EXPECT_EQ(vui.def_disp_win_top_offset, 3U);
    EXPECT_EQ(vui.def_disp_win_bottom_offset, 0xFFFFFFFEU);
}

TEST(H265VuiParameters, ReadsTimingWithoutPocAndHrd) {
    vui_syntax syntax;
    syntax.timing_and_hrd =
        test::bit_writer().u<1>(1).u<32>(0xFFFFFFFF).u<32>(0x80000000).u<1>(0).u<1>(0);
    const h265_vui_parameters vui = parsed(syntax);
    EXPECT_TRUE(vui.vui_timing_info_present_flag);
    EXPECT_EQ(vui.vui_num_units_in_tick, 0xFFFFFFFFU);
    EXPECT_EQ(vui.vui_time_scale, 0x80000000U);
    EXPECT_FALSE(vui.vui_poc_proportional_to_timing_flag);
    EXPECT_EQ(vui.vui_num_ticks_poc_diff_one_minus1, 0U);
    EXPECT_FALSE(vui.vui_hrd_parameters_present_flag);
}

TEST(H265VuiParameters, ReadsTicksOfAPocDifferenceWhenProportional) {
    vui_syntax syntax;
    syntax.timing_and_hrd =
        test::bit_writer().u<1>(1).u<32>(1).u<32>(2).u<1>(1).ue(0xFFFFFFFE).u<1>(0);
    const h265_vui_parameters vui = parsed(syntax);
    EXPECT_TRUE(vui.vui_poc_proportional_to_timing_flag);
    EXPECT_EQ(vui.vui_num_ticks_poc_diff_one_minus1, 0xFFFFFFFEU);
}

TEST(H265VuiParameters, ReadsHrdWithCommonInformationForTheSubLayersOfTheSps) {
    vui_syntax syntax;
    test::append(syntax.timing_and_hrd = timing().u<1>(1), test::full_hrd_parameters().syntax);
    h265_vui_parameters vui;
    EXPECT_TRUE(parse(vui, syntax.bits(), test::sample_max_sub_layers_minus1));
    EXPECT_TRUE(vui.vui_hrd_parameters_present_flag);
    EXPECT_TRUE(test::same_fields(vui.hrd_parameters, test::full_hrd_parameters().record));
}

TEST(H265VuiParameters, RejectsHrdThatIsRejected) {
    vui_syntax syntax;
    syntax.aspect_ratio = test::bit_writer().u<1>(1).u<8>(14);
    // One NAL structure of 129 CPBs.
    syntax.timing_and_hrd = timing().u<1>(1);
    syntax.timing_and_hrd.u<1>(1).u<1>(0).u<1>(0).u<4>(0).u<4>(0).u<5>(0).u<5>(0).u<5>(0);
    syntax.timing_and_hrd.u<1>(1).ue(0).ue(128);
    h265_vui_parameters vui;
    vui.min_spatial_segmentation_idc = 6;
    vui.valid = true;
    EXPECT_FALSE(parse(vui, syntax.bits()));
    EXPECT_FALSE(vui.valid);
    EXPECT_EQ(vui.sar_width, 4);
    EXPECT_EQ(vui.vui_time_scale, 60U);
    EXPECT_TRUE(vui.vui_hrd_parameters_present_flag);
    EXPECT_FALSE(vui.hrd_parameters.valid);
    EXPECT_EQ(vui.min_spatial_segmentation_idc, 6U);
}

TEST(H265VuiParameters, RejectsHrdOfMoreThan128SubLayers) {
    vui_syntax syntax;
    syntax.timing_and_hrd = timing().u<1>(1).u<1>(0).u<1>(0);
    h265_vui_parameters vui;
    EXPECT_FALSE(parse(vui, syntax.bits(), 128));
    EXPECT_EQ(vui.hrd_parameters.maxNumSubLayersMinus1, 128U);
    EXPECT_FALSE(vui.valid);
}

TEST(H265VuiParameters, ReadsRestrictions) {
    for (unsigned int one = 0; one < 3; ++one) {
        vui_syntax syntax;
        syntax.restrictions = test::bit_writer().u<1>(1).u<3>(4U >> one);
        syntax.restrictions.ue(0xFFFFFFFE).ue(1).ue(2).ue(3).ue(4);
        const h265_vui_parameters vui = parsed(syntax);
        EXPECT_TRUE(vui.bitstream_restriction_flag);
        EXPECT_EQ(vui.tiles_fixed_structure_flag, one == 0);
        EXPECT_EQ(vui.motion_vectors_over_pic_boundaries_flag, one == 1);
        EXPECT_EQ(vui.restricted_ref_pic_lists_flag, one == 2);
        EXPECT_EQ(vui.min_spatial_segmentation_idc, 0xFFFFFFFEU);
        EXPECT_EQ(vui.max_bytes_per_pic_denom, 1U);
        EXPECT_EQ(vui.max_bits_per_min_cu_denom, 2U);
        EXPECT_EQ(vui.log2_max_mv_length_horizontal, 3U);
        EXPECT_EQ(vui.log2_max_mv_length_vertical, 4U);
    }
}

TEST(H265VuiParameters, KeepsWhatIsAbsentNow) {
    const test::sample<h265_vui_parameters> sample = test::full_vui_parameters();
    h265_vui_parameters vui = sample.record;
    EXPECT_TRUE(parse(vui, vui_syntax().bits()));

    h265_vui_parameters expected = sample.record;
    expected.aspect_ratio_info_present_flag = false;
    expected.overscan_info_present_flag = false;
    expected.video_signal_type_present_flag = false;
    expected.chroma_loc_info_present_flag = false;
    expected.neutral_chroma_indication_flag = false;
    expected.field_seq_flag = false;
    expected.frame_field_info_present_flag = false;
    expected.default_display_window_flag = false;
    expected.vui_timing_info_present_flag = false;
    expected.bitstream_restriction_flag = false;
    EXPECT_TRUE(test::same_fields(vui, expected));
}

TEST(H265VuiParameters, KeepsColoursPocTicksAndHrdThatAreAbsentNow) {
    const test::sample<h265_vui_parameters> sample = test::full_vui_parameters();
    h265_vui_parameters vui = sample.record;
    vui_syntax syntax;
    syntax.video_signal_type = test::bit_writer().u<1>(1).u<3>(0).u<1>(0).u<1>(0);
    syntax.timing_and_hrd = timing().u<1>(0);
    EXPECT_TRUE(parse(vui, syntax.bits()));
    EXPECT_FALSE(vui.colour_description_present_flag);
    EXPECT_EQ(vui.colour_primaries, 9);
    EXPECT_EQ(vui.transfer_characteristics, 16);
    EXPECT_EQ(vui.matrix_coeffs, 14);
    EXPECT_FALSE(vui.vui_poc_proportional_to_timing_flag);
    EXPECT_EQ(vui.vui_num_ticks_poc_diff_one_minus1, 99U);
    EXPECT_FALSE(vui.vui_hrd_parameters_present_flag);
    EXPECT_TRUE(test::same_fields(vui.hrd_parameters, sample.record.hrd_parameters));
}

TEST(H265VuiParameters, DoesNotNoticeTheEndOfTheInput) {
    test::rbsp input{};
    h265_nal_sps sps;
    h265_vui_parameters vui;
    EXPECT_TRUE(vui.parse(input.reader, sps));
    EXPECT_TRUE(vui.valid);
}

}  // namespace
}  // namespace kovran
