#include <kovran/h265/h265_nal_sps.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <vector>

#include "support/bit_writer.h"
#include "support/parameter_sets.h"
#include "support/rbsp.h"
#include "support/same_fields.h"

namespace kovran {
namespace {

using values = std::vector<unsigned int>;
using flags = std::vector<bool>;
using vps_store = h2645_common_base_store<h265_nal_vps>;

bool parse(h265_nal_sps& sps, const test::sps_syntax& syntax, unsigned int vps_id = 0) {
    vps_store store = test::vps_store_with(vps_id);
    const test::bit_writer bits = syntax.rbsp();
    test::rbsp input{bits.bytes()};
    const bool result = sps.parse(input.reader, store);
    if (result) {
        EXPECT_EQ(input.reader.bit_position(), bits.size());
    }
    EXPECT_EQ(sps.valid, result);
    EXPECT_EQ(store.size(), 1U);
    return result;
}

h265_nal_sps parsed(const test::sps_syntax& syntax) {
    h265_nal_sps sps;
    EXPECT_TRUE(parse(sps, syntax));
    return sps;
}

// The header of an SPS with so many sub-layers, and a profile_tier_level() that fits.
test::sps_syntax with_sub_layers(unsigned int sps_max_sub_layers_minus1) {
    test::sps_syntax syntax;
    syntax.header = test::bit_writer().u<4>(0).u<3>(sps_max_sub_layers_minus1).u<1>(1);
    if (sps_max_sub_layers_minus1 > 0) {
        syntax.profile_tier_level.u<16>(0);  // no part of any sub-layer
    }
    return syntax;
}

// Sets that are coded outright and have no pictures.
test::bit_writer empty_sets(unsigned int count) {
    test::bit_writer bits;
    bits.ue(count);
    for (unsigned int i = 0; i < count; ++i) {
        if (i > 0) {
            bits.u<1>(0);
        }
        bits.ue(0).ue(0);
    }
    return bits;
}

TEST(H265NalSps, ReadsEveryElementInItsPlace) {
    const test::sample<h265_nal_sps, test::sps_syntax> sample = test::full_sps();
    h265_nal_sps sps;
    EXPECT_TRUE(parse(sps, sample.syntax, 13));
    EXPECT_TRUE(test::same_fields(sps, sample.record));
}

TEST(H265NalSps, ReadsTheSmallest) {
    const h265_nal_sps sps = parsed(test::sps_syntax());

    h265_nal_sps expected;
    expected.sps_temporal_id_nesting_flag = true;
    h265_profile_tier_level::layer_t& general = expected.profile_tier_level.general;
    general.profile_idc = 1;
    general.profile_compatibility_flag.assign(32, false);
    general.profile_compatibility_flag[1] = true;
    general.progressive_source_flag = true;
    general.frame_only_constraint_flag = true;
    general.level_idc = 93;
    general.profile_present_flag = true;
    general.level_present_flag = true;
    general.valid = true;
    expected.profile_tier_level.valid = true;
    expected.chroma_format_idc = 1;
    expected.pic_width_in_luma_samples = 64;
    expected.pic_height_in_luma_samples = 64;
    expected.log2_max_pic_order_cnt_lsb_minus4 = 4;
    expected.sps_sub_layer_ordering_info_present_flag = true;
    expected.sps_max_dec_pic_buffering_minus1 = {0};
    expected.sps_max_num_reorder_pics = {0};
    expected.sps_max_latency_increase_plus1 = {0};
    expected.log2_diff_max_min_luma_coding_block_size = 3;
    expected.log2_diff_max_min_luma_transform_block_size = 3;
    expected.valid = true;
    EXPECT_TRUE(test::same_fields(sps, expected));
}

TEST(H265NalSps, RejectsAVpsThatIsNotInTheStore) {
    const std::vector<unsigned char> bytes = test::sps_syntax().rbsp().bytes();
    vps_store empty;
    vps_store others;
    others[1].valid = true;
    others[15].valid = true;
    for (vps_store* store : {&empty, &others}) {
        const std::size_t size_before = store->size();
        test::rbsp input{bytes};
        h265_nal_sps sps;
        sps.sps_max_sub_layers_minus1 = 6;
        sps.valid = true;
        EXPECT_FALSE(sps.parse(input.reader, *store));
        EXPECT_EQ(input.reader.bit_position(), 4U);
        EXPECT_FALSE(sps.valid);
        EXPECT_EQ(sps.sps_max_sub_layers_minus1, 6);
        EXPECT_EQ(store->size(), size_before);
    }
}

TEST(H265NalSps, RejectsAVpsThatIsNotValid) {
    vps_store store = test::vps_store_with(0);
    store[0].valid = false;
    test::rbsp input{test::sps_syntax().rbsp().bytes()};
    h265_nal_sps sps;
    sps.valid = true;
    EXPECT_FALSE(sps.parse(input.reader, store));
    EXPECT_EQ(input.reader.bit_position(), 4U);
    EXPECT_FALSE(sps.valid);
    EXPECT_EQ(store.size(), 1U);
}

TEST(H265NalSps, TakesNothingFromItsVpsButValidAndLeavesItAlone) {
    vps_store store = test::vps_store_with(0);
    store[0].vps_max_sub_layers_minus1 = 5;
    store.active_id = 3;
    const h265_nal_vps vps_before = store[0];
    test::rbsp input{test::sps_syntax().rbsp().bytes()};
    h265_nal_sps sps;
    EXPECT_TRUE(sps.parse(input.reader, store));
    EXPECT_EQ(sps.sps_max_sub_layers_minus1, 0);
    EXPECT_TRUE(test::same_fields(store[0], vps_before));
    EXPECT_EQ(store.active_id, 3U);
}

TEST(H265NalSps, LooksItsVpsUpByItsIdentifier) {
    for (unsigned int id = 0; id < 16; ++id) {
        test::sps_syntax syntax;
        syntax.header = test::bit_writer().u<4>(id).u<3>(0).u<1>(0);
        h265_nal_sps sps;
        EXPECT_TRUE(parse(sps, syntax, id));
        EXPECT_EQ(sps.sps_video_parameter_set_id, id);
        EXPECT_FALSE(sps.sps_temporal_id_nesting_flag);
        EXPECT_FALSE(parse(sps, syntax, id ^ 1));
    }
}

TEST(H265NalSps, ReadsEightSubLayers) {
    test::sps_syntax syntax = with_sub_layers(7);
    syntax.sub_layer_ordering_info = test::bit_writer().u<1>(1);
    for (unsigned int i = 0; i < 8; ++i) {
        syntax.sub_layer_ordering_info.ue(i).ue(10 + i).ue(20 + i);
    }
    const h265_nal_sps sps = parsed(syntax);
    EXPECT_EQ(sps.profile_tier_level.sub_layers.size(), 7U);
    EXPECT_EQ(sps.sps_max_dec_pic_buffering_minus1, values({0, 1, 2, 3, 4, 5, 6, 7}));
    EXPECT_EQ(sps.sps_max_num_reorder_pics, values({10, 11, 12, 13, 14, 15, 16, 17}));
    EXPECT_EQ(sps.sps_max_latency_increase_plus1, values({20, 21, 22, 23, 24, 25, 26, 27}));
}

TEST(H265NalSps, FillsOnlyTheLastSubLayerWithoutOrderingInfoOfEach) {
    test::sps_syntax syntax = with_sub_layers(2);
    syntax.sub_layer_ordering_info = test::bit_writer().u<1>(0).ue(4).ue(5).ue(6);
    const h265_nal_sps sps = parsed(syntax);
    EXPECT_EQ(sps.sps_max_dec_pic_buffering_minus1, values({0, 0, 4}));
    EXPECT_EQ(sps.sps_max_num_reorder_pics, values({0, 0, 5}));
    EXPECT_EQ(sps.sps_max_latency_increase_plus1, values({0, 0, 6}));
}

TEST(H265NalSps, KeepsTheOrderingInfoOfSubLayersThatAreNotRead) {
    h265_nal_sps sps;
    sps.sps_max_dec_pic_buffering_minus1 = {1, 2, 3, 4};
    sps.sps_max_num_reorder_pics = {5};
    test::sps_syntax syntax = with_sub_layers(2);
    syntax.sub_layer_ordering_info = test::bit_writer().u<1>(0).ue(7).ue(8).ue(9);
    EXPECT_TRUE(parse(sps, syntax));
    EXPECT_EQ(sps.sps_max_dec_pic_buffering_minus1, values({1, 2, 7}));
    EXPECT_EQ(sps.sps_max_num_reorder_pics, values({5, 0, 8}));
    EXPECT_EQ(sps.sps_max_latency_increase_plus1, values({0, 0, 9}));
}

TEST(H265NalSps, AcceptsAnyIdentifier) {
    for (const unsigned int id : {15U, 16U, 0xFFFFFFFEU}) {
        test::sps_syntax syntax;
        syntax.sps_seq_parameter_set_id = test::bit_writer().ue(id);
        EXPECT_EQ(parsed(syntax).sps_seq_parameter_set_id, id);
    }
}

TEST(H265NalSps, ReadsSeparateColourPlaneFlagOf444Only) {
    for (const unsigned int chroma_format_idc : {0U, 1U, 2U, 4U, 0xFFFFFFFEU}) {
        test::sps_syntax syntax;
        syntax.chroma_format = test::bit_writer().ue(chroma_format_idc);
        const h265_nal_sps sps = parsed(syntax);
        EXPECT_EQ(sps.chroma_format_idc, chroma_format_idc);
        EXPECT_FALSE(sps.separate_colour_plane_flag);
        EXPECT_EQ(sps.pic_width_in_luma_samples, 64U);
    }
    for (const bool separate_colour_plane_flag : {false, true}) {
        test::sps_syntax syntax;
        syntax.chroma_format = test::bit_writer().ue(3).u<1>(separate_colour_plane_flag);
        const h265_nal_sps sps = parsed(syntax);
        EXPECT_EQ(sps.chroma_format_idc, 3U);
        EXPECT_EQ(sps.separate_colour_plane_flag, separate_colour_plane_flag);
    }
}

TEST(H265NalSps, AcceptsSizesAndDepthsOfAnyValue) {
    test::sps_syntax syntax;
    syntax.picture_size = test::bit_writer().ue(0).ue(0xFFFFFFFE);
    syntax.bit_depths = test::bit_writer().ue(0xFFFFFFFD).ue(9);
    syntax.block_sizes = test::bit_writer()
                             .ue(0xFFFFFFFE)
                             .ue(0xFFFFFFFD)
                             .ue(0xFFFFFFFC)
                             .ue(0xFFFFFFFB)
                             .ue(0xFFFFFFFA)
                             .ue(0xFFFFFFF9);
    const h265_nal_sps sps = parsed(syntax);
    EXPECT_EQ(sps.pic_width_in_luma_samples, 0U);
    EXPECT_EQ(sps.pic_height_in_luma_samples, 0xFFFFFFFEU);
    EXPECT_EQ(sps.bit_depth_luma_minus8, 0xFFFFFFFDU);
    EXPECT_EQ(sps.bit_depth_chroma_minus8, 9U);
    EXPECT_EQ(sps.log2_min_luma_coding_block_size_minus3, 0xFFFFFFFEU);
    EXPECT_EQ(sps.log2_diff_max_min_luma_coding_block_size, 0xFFFFFFFDU);
    EXPECT_EQ(sps.log2_min_luma_transform_block_size_minus2, 0xFFFFFFFCU);
    EXPECT_EQ(sps.log2_diff_max_min_luma_transform_block_size, 0xFFFFFFFBU);
    EXPECT_EQ(sps.max_transform_hierarchy_depth_inter, 0xFFFFFFFAU);
    EXPECT_EQ(sps.max_transform_hierarchy_depth_intra, 0xFFFFFFF9U);
}

TEST(H265NalSps, ReadsAConformanceWindow) {
    test::sps_syntax syntax;
    syntax.conformance_window = test::bit_writer().u<1>(1).ue(4).ue(3).ue(2).ue(1);
    const h265_nal_sps sps = parsed(syntax);
    EXPECT_TRUE(sps.conformance_window_flag);
    EXPECT_EQ(sps.conf_win_left_offset, 4U);
    EXPECT_EQ(sps.conf_win_right_offset, 3U);
    EXPECT_EQ(sps.conf_win_top_offset, 2U);
    EXPECT_EQ(sps.conf_win_bottom_offset, 1U);
}

TEST(H265NalSps, ReadsScalingListsWhenEnabledAndPresent) {
    test::sps_syntax enabled;
    enabled.scaling_list = test::bit_writer().u<1>(1).u<1>(0);
    const h265_nal_sps without_data = parsed(enabled);
    EXPECT_TRUE(without_data.scaling_list_enabled_flag);
    EXPECT_FALSE(without_data.sps_scaling_list_data_present_flag);
    EXPECT_TRUE(test::same_fields(without_data.scaling_list_data, h265_scaling_list_data()));

    const test::sample<h265_scaling_list_data> lists = test::full_scaling_list_data();
    test::sps_syntax present;
    present.scaling_list = test::bit_writer().u<1>(1).u<1>(1);
    test::append(present.scaling_list, lists.syntax);
    const h265_nal_sps with_data = parsed(present);
    EXPECT_TRUE(with_data.sps_scaling_list_data_present_flag);
    EXPECT_TRUE(test::same_fields(with_data.scaling_list_data, lists.record));
}

TEST(H265NalSps, ReadsAmpAndSaoInTheirOrder) {
    test::sps_syntax amp;
    amp.amp_and_sao = test::bit_writer().u<1>(1).u<1>(0);
    EXPECT_TRUE(parsed(amp).amp_enabled_flag);
    EXPECT_FALSE(parsed(amp).sample_adaptive_offset_enabled_flag);

    test::sps_syntax sao;
    sao.amp_and_sao = test::bit_writer().u<1>(0).u<1>(1);
    EXPECT_FALSE(parsed(sao).amp_enabled_flag);
    EXPECT_TRUE(parsed(sao).sample_adaptive_offset_enabled_flag);
}

TEST(H265NalSps, ReadsPcm) {
    test::sps_syntax syntax;
    syntax.pcm = test::bit_writer().u<1>(1).u<4>(15).u<4>(1).ue(0xFFFFFFFE).ue(2).u<1>(1);
    const h265_nal_sps sps = parsed(syntax);
    EXPECT_TRUE(sps.pcm_enabled_flag);
    EXPECT_EQ(sps.pcm_sample_bit_depth_luma_minus1, 15);
    EXPECT_EQ(sps.pcm_sample_bit_depth_chroma_minus1, 1);
    EXPECT_EQ(sps.log2_min_pcm_luma_coding_block_size_minus3, 0xFFFFFFFEU);
    EXPECT_EQ(sps.log2_diff_max_min_pcm_luma_coding_block_size, 2U);
    EXPECT_TRUE(sps.pcm_loop_filter_disabled_flag);
}

TEST(H265NalSps, ReadsUpTo128ShortTermSets) {
    for (const unsigned int count : {0U, 1U, 64U, 65U, 128U}) {
        test::sps_syntax syntax;
        syntax.short_term_ref_pic_sets = empty_sets(count);
        const h265_nal_sps sps = parsed(syntax);
        EXPECT_EQ(sps.num_short_term_ref_pic_sets, count);
        ASSERT_EQ(sps.st_ref_pic_set.size(), count);
        for (unsigned int idx = 0; idx < count; ++idx) {
            EXPECT_EQ(sps.st_ref_pic_set[idx].stRpsIdx, idx);
            EXPECT_TRUE(sps.st_ref_pic_set[idx].valid);
        }
    }
}

TEST(H265NalSps, RejectsMoreThan128ShortTermSets) {
    for (const unsigned int count : {129U, 0xFFFFFFFEU}) {
        test::sps_syntax syntax;
        syntax.short_term_ref_pic_sets = test::bit_writer().ue(count);
        h265_nal_sps sps;
        sps.st_ref_pic_set.resize(2);
        EXPECT_FALSE(parse(sps, syntax));
        EXPECT_EQ(sps.num_short_term_ref_pic_sets, count);
        EXPECT_EQ(sps.st_ref_pic_set.size(), 2U);
    }
}

TEST(H265NalSps, RejectsAShortTermSetThatIsRejected) {
    test::sps_syntax syntax;
    syntax.short_term_ref_pic_sets = test::bit_writer().ue(2).ue(0).ue(0).u<1>(0).ue(129).ue(0);
    h265_nal_sps sps;
    EXPECT_FALSE(parse(sps, syntax));
    ASSERT_EQ(sps.st_ref_pic_set.size(), 2U);
    EXPECT_TRUE(sps.st_ref_pic_set[0].valid);
    EXPECT_FALSE(sps.st_ref_pic_set[1].valid);
    EXPECT_EQ(sps.st_ref_pic_set[1].num_negative_pics, 129U);
}

TEST(H265NalSps, PredictsASetOfAReparsedSpsFromItsNewSets) {
    h265_nal_sps sps;
    test::sps_syntax first;
    first.short_term_ref_pic_sets = empty_sets(2);
    EXPECT_TRUE(parse(sps, first));

    test::sps_syntax second;
    second.short_term_ref_pic_sets = test::bit_writer().ue(2);
    second.short_term_ref_pic_sets.ue(1).ue(1).ue(0).u<1>(1).ue(0).u<1>(1);
    second.short_term_ref_pic_sets.u<1>(1).u<1>(0).ue(0).u<1>(1).u<1>(1).u<1>(1);
    EXPECT_TRUE(parse(sps, second));
    EXPECT_EQ(sps.st_ref_pic_set.at(0).NumDeltaPocs, 2U);
    EXPECT_EQ(sps.st_ref_pic_set.at(1).used_by_curr_pic_flag, flags({true, true, true}));
}

TEST(H265NalSps, ReadsLongTermPictures) {
    test::sps_syntax syntax;
    syntax.log2_max_pic_order_cnt_lsb_minus4 = test::bit_writer().ue(0);
    syntax.long_term_ref_pics =
        test::bit_writer().u<1>(1).ue(3).u<4>(15).u<1>(0).u<4>(0).u<1>(1).u<4>(9).u<1>(1);
    const h265_nal_sps sps = parsed(syntax);
    EXPECT_TRUE(sps.long_term_ref_pics_present_flag);
    EXPECT_EQ(sps.num_long_term_ref_pics_sps, 3U);
    EXPECT_EQ(sps.lt_ref_pic_poc_lsb_sps, values({15, 0, 9}));
    EXPECT_EQ(sps.used_by_curr_pic_lt_sps_flag, flags({false, true, true}));
}

TEST(H265NalSps, ReadsLongTermPicturesOfEveryWidth) {
    const struct {
        unsigned int log2_max_pic_order_cnt_lsb_minus4;
        unsigned int width;
    } cases[] = {{0, 4},   {4, 8},   {12, 16},    {20, 24},        {21, 25},       {22, 26},
                 {27, 31}, {28, 32}, {29, 33},    {60, 64},        {251, 255},     {253, 1},
                 {256, 4}, {255, 3}, {0x10FF, 3}, {0x7FFFFFFD, 1}, {0xFFFFFFFE, 2}};
    for (const auto& each : cases) {
        // The lowest bit and, where there are so many, the highest of the last 32.
        const std::uint64_t last_bits =
            each.width == 1 ? 1 : (std::uint64_t{1} << (each.width < 32 ? each.width - 1 : 31)) | 1;
        test::sps_syntax syntax;
        syntax.log2_max_pic_order_cnt_lsb_minus4 =
            test::bit_writer().ue(each.log2_max_pic_order_cnt_lsb_minus4);
        syntax.long_term_ref_pics = test::bit_writer().u<1>(1).ue(2);
        for (const unsigned int used : {0U, 1U}) {
            for (unsigned int bit = 32; bit < each.width; ++bit) {
                syntax.long_term_ref_pics.u<1>(1);
            }
            syntax.long_term_ref_pics.u(each.width < 32 ? each.width : 32, last_bits).u<1>(used);
        }
        const h265_nal_sps sps = parsed(syntax);
        const auto value = static_cast<unsigned int>(last_bits);
        EXPECT_EQ(sps.lt_ref_pic_poc_lsb_sps, values({value, value})) << each.width;
        EXPECT_EQ(sps.used_by_curr_pic_lt_sps_flag, flags({false, true}));
    }
}

TEST(H265NalSps, ReadsNoBitsForAWidthThatWrapsToZero) {
    for (const unsigned int log2_max_pic_order_cnt_lsb_minus4 : {252U, 508U, 0xFFFFFFFCU}) {
        test::sps_syntax syntax;
        syntax.log2_max_pic_order_cnt_lsb_minus4 =
            test::bit_writer().ue(log2_max_pic_order_cnt_lsb_minus4);
        syntax.long_term_ref_pics = test::bit_writer().u<1>(1).ue(3).u<3>(0b101);
        const h265_nal_sps sps = parsed(syntax);
        EXPECT_EQ(sps.log2_max_pic_order_cnt_lsb_minus4, log2_max_pic_order_cnt_lsb_minus4);
        EXPECT_EQ(sps.lt_ref_pic_poc_lsb_sps, values({0, 0, 0}));
        EXPECT_EQ(sps.used_by_curr_pic_lt_sps_flag, flags({true, false, true}));
    }
}

TEST(H265NalSps, ReadsUpTo128LongTermPictures) {
    for (const unsigned int count : {0U, 32U, 33U, 128U}) {
        test::sps_syntax syntax;
        syntax.long_term_ref_pics = test::bit_writer().u<1>(1).ue(count);
        for (unsigned int i = 0; i < count; ++i) {
            syntax.long_term_ref_pics.u<8>(i).u<1>(1);
        }
        const h265_nal_sps sps = parsed(syntax);
        EXPECT_EQ(sps.num_long_term_ref_pics_sps, count);
        ASSERT_EQ(sps.lt_ref_pic_poc_lsb_sps.size(), count);
        EXPECT_EQ(sps.used_by_curr_pic_lt_sps_flag, flags(count, true));
        if (count > 0) {
            EXPECT_EQ(sps.lt_ref_pic_poc_lsb_sps.back(), count - 1);
        }
    }
}

TEST(H265NalSps, RejectsMoreThan128LongTermPictures) {
    for (const unsigned int count : {129U, 0xFFFFFFFEU}) {
        test::sps_syntax syntax;
        syntax.long_term_ref_pics = test::bit_writer().u<1>(1).ue(count);
        h265_nal_sps sps;
        sps.lt_ref_pic_poc_lsb_sps = {1, 2};
        EXPECT_FALSE(parse(sps, syntax));
        EXPECT_EQ(sps.num_long_term_ref_pics_sps, count);
        EXPECT_EQ(sps.lt_ref_pic_poc_lsb_sps, values({1, 2}));
    }
}

TEST(H265NalSps, ReadsMotionAndSmoothingFlagsInTheirOrder) {
    test::sps_syntax motion;
    motion.motion_and_smoothing = test::bit_writer().u<1>(1).u<1>(0);
    EXPECT_TRUE(parsed(motion).sps_temporal_mvp_enabled_flag);
    EXPECT_FALSE(parsed(motion).strong_intra_smoothing_enabled_flag);

    test::sps_syntax smoothing;
    smoothing.motion_and_smoothing = test::bit_writer().u<1>(0).u<1>(1);
    EXPECT_FALSE(parsed(smoothing).sps_temporal_mvp_enabled_flag);
    EXPECT_TRUE(parsed(smoothing).strong_intra_smoothing_enabled_flag);
}

TEST(H265NalSps, ReadsAVuiForItsOwnSubLayers) {
    const test::sample<h265_vui_parameters> vui = test::full_vui_parameters();
    test::sps_syntax syntax = with_sub_layers(test::sample_max_sub_layers_minus1);
    syntax.sub_layer_ordering_info = test::bit_writer().u<1>(0).ue(0).ue(0).ue(0);
    test::append(syntax.vui = test::bit_writer().u<1>(1), vui.syntax);
    const h265_nal_sps sps = parsed(syntax);
    EXPECT_TRUE(sps.vui_parameters_present_flag);
    EXPECT_TRUE(test::same_fields(sps.vui_parameters, vui.record));
}

TEST(H265NalSps, RejectsAVuiThatIsRejected) {
    test::sps_syntax syntax;
    syntax.vui = test::bit_writer().u<1>(1).u<8>(0);
    syntax.vui.u<1>(1).u<32>(1).u<32>(50).u<1>(0).u<1>(1);
    // One VCL structure of 129 CPBs.
    syntax.vui.u<1>(0).u<1>(1).u<1>(0).u<4>(0).u<4>(0).u<5>(0).u<5>(0).u<5>(0);
    syntax.vui.u<1>(1).ue(0).ue(128);
    h265_nal_sps sps;
    sps.sps_extension_flag = true;
    EXPECT_FALSE(parse(sps, syntax));
    EXPECT_TRUE(sps.vui_parameters_present_flag);
    EXPECT_EQ(sps.vui_parameters.vui_time_scale, 50U);
    EXPECT_FALSE(sps.vui_parameters.valid);
    EXPECT_TRUE(sps.sps_extension_flag);
}

TEST(H265NalSps, PassesOverItsExtension) {
    for (unsigned int length = 0; length <= 40; ++length) {
        test::sps_syntax syntax;
        syntax.extension = test::bit_writer().u<1>(1).u(length, 0x96C3A55A11 >> (40 - length));
        EXPECT_TRUE(parsed(syntax).sps_extension_flag);
    }
}

TEST(H265NalSps, RejectsAMissingStopBit) {
    vps_store store = test::vps_store_with(0);
    test::rbsp input{test::sps_syntax().payload().bytes()};
    h265_nal_sps sps;
    sps.valid = true;
    EXPECT_FALSE(sps.parse(input.reader, store));
    EXPECT_FALSE(sps.valid);
    EXPECT_EQ(sps.pic_width_in_luma_samples, 64U);
}

TEST(H265NalSps, RejectsAlignmentBitsThatAreNotZero) {
    test::bit_writer bits = test::sps_syntax().payload().u<1>(1);
    ASSERT_NE(bits.size() % 8, 0U);
    while (bits.size() % 8 != 7) {
        bits.u<1>(0);
    }
    vps_store store = test::vps_store_with(0);
    test::rbsp input{bits.u<1>(1).bytes()};
    h265_nal_sps sps;
    EXPECT_FALSE(sps.parse(input.reader, store));
    EXPECT_FALSE(sps.valid);
}

TEST(H265NalSps, KeepsWhatIsAbsentNow) {
    const test::sample<h265_nal_sps, test::sps_syntax> sample = test::full_sps();
    h265_nal_sps sps = sample.record;
    test::sps_syntax syntax = sample.syntax;
    syntax.chroma_format = test::bit_writer().ue(1);
    syntax.conformance_window = test::bit_writer().u<1>(0);
    syntax.scaling_list = test::bit_writer().u<1>(0);
    syntax.pcm = test::bit_writer().u<1>(0);
    syntax.long_term_ref_pics = test::bit_writer().u<1>(0);
    syntax.vui = test::bit_writer().u<1>(0);
    syntax.extension = test::bit_writer().u<1>(0);
    EXPECT_TRUE(parse(sps, syntax, 13));

    h265_nal_sps expected = sample.record;
    expected.chroma_format_idc = 1;
    expected.conformance_window_flag = false;
    expected.scaling_list_enabled_flag = false;
    expected.pcm_enabled_flag = false;
    expected.long_term_ref_pics_present_flag = false;
    expected.vui_parameters_present_flag = false;
    expected.sps_extension_flag = false;
    EXPECT_TRUE(test::same_fields(sps, expected));
}

TEST(H265NalSps, DropsShortTermSetsThatAreGone) {
    h265_nal_sps sps = test::full_sps().record;
    test::sps_syntax syntax;
    syntax.short_term_ref_pic_sets = empty_sets(1);
    EXPECT_TRUE(parse(sps, syntax));
    ASSERT_EQ(sps.st_ref_pic_set.size(), 1U);
    h265_st_ref_pic_set empty_set;
    empty_set.valid = true;
    EXPECT_TRUE(test::same_fields(sps.st_ref_pic_set[0], empty_set));
}

TEST(H265NalSps, IsUsableAfterAFailure) {
    h265_nal_sps sps;
    test::sps_syntax bad;
    bad.long_term_ref_pics = test::bit_writer().u<1>(1).ue(129);
    EXPECT_FALSE(parse(sps, bad));
    EXPECT_TRUE(parse(sps, test::sps_syntax()));
    EXPECT_FALSE(sps.long_term_ref_pics_present_flag);
    EXPECT_EQ(sps.num_long_term_ref_pics_sps, 129U);
    EXPECT_FALSE(parse(sps, bad));
}

TEST(H265NalSps, RejectsAnEmptyInput) {
    vps_store store = test::vps_store_with(0);
    test::rbsp input{};
    h265_nal_sps sps;
    EXPECT_FALSE(sps.parse(input.reader, store));
    EXPECT_FALSE(sps.valid);
}

}  // namespace
}  // namespace kovran
