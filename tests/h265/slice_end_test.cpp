// What a slice segment header has between its lists and its entry points, which parse_standard()
// reads.
#include <kovran/h265/h265_slice_segment_header.h>

#include <gtest/gtest.h>

#include <array>
#include <cstddef>
#include <vector>

#include "support/bit_writer.h"
#include "support/rbsp.h"
#include "support/same_fields.h"
#include "support/slice_record_fields.h"
#include "support/slice_stores.h"

namespace kovran {
namespace {

constexpr unsigned int slice_b = 0;
constexpr unsigned int slice_p = 1;
constexpr unsigned int slice_i = 2;

struct host : test::slice_stores {
    host() {
        sps().num_short_term_ref_pic_sets = 1;
        sps().st_ref_pic_set.resize(1);
    }

    // Exactly these bits and the alignment are to be the header; a byte of slice data follows.
    void parse(h265_slice_segment_header& slice, test::bit_writer bits,
               h265_nal_unit_type type = TRAIL_R) {
        bits.trailing_bits();  // byte_alignment() is the same
        const std::size_t end = bits.size();
        test::rbsp input{bits.u<8>(0xFF).bytes()};
        h265_fault fault;
        EXPECT_TRUE(
            slice.parse_standard(input.reader, pps_store, sps_store, vps_store, type, &fault));
        EXPECT_EQ(to_string(fault), "no fault");
        EXPECT_EQ(input.reader.bit_position(), end);
        EXPECT_EQ(slice.slice_data_begin, end / 8);
    }

    h265_slice_segment_header parsed(const test::bit_writer& bits,
                                     h265_nal_unit_type type = TRAIL_R) {
        h265_slice_segment_header slice;
        parse(slice, bits, type);
        return slice;
    }
};

// Up to the set of the SPS: what follows is slice_temporal_mvp_enabled_flag, if the SPS has that.
test::bit_writer start_of(unsigned int slice_type) {
    return test::bit_writer().u<1>(1).ue(0).ue(slice_type).u<4>(9).u<1>(1);
}

// The same with one reference index in each list.
test::bit_writer with_one_reference(unsigned int slice_type) {
    return start_of(slice_type).u<1>(0);
}

// ---- Inter prediction

TEST(SliceEnd, IsShortInAnISlice) {
    host stream;
    h265_slice_segment_header expected;
    expected.first_slice_segment_in_pic_flag = true;
    expected.slice_type = slice_i;
    expected.pic_output_flag = true;
    expected.slice_pic_order_cnt_lsb = 9;
    expected.short_term_ref_pic_set_sps_flag = true;
    expected.valid = true;
    expected.collocated_from_l0_flag = true;
    expected.slice_qp_delta = 7;
    expected.slice_data_begin = 3;  // 10 bits, 7 for the difference, one of the alignment
    EXPECT_TRUE(test::same_fields(stream.parsed(start_of(slice_i).se(7)), expected));
}

TEST(SliceEnd, HasWhatIsOfPredictionInABSlice) {
    host stream;
    stream.pps().cabac_init_present_flag = true;
    const auto slice = stream.parsed(with_one_reference(slice_b).u<1>(1).u<1>(1).ue(2).se(0));
    EXPECT_TRUE(slice.mvd_l1_zero_flag);
    EXPECT_TRUE(slice.cabac_init_flag);
    EXPECT_TRUE(slice.collocated_from_l0_flag);
    EXPECT_EQ(slice.five_minus_max_num_merge_cand, 2U);
    EXPECT_EQ(slice.MaxNumMergeCand(), 3U);

    const auto cleared = stream.parsed(with_one_reference(slice_b).u<1>(0).u<1>(0).ue(4).se(0));
    EXPECT_FALSE(cleared.mvd_l1_zero_flag);
    EXPECT_FALSE(cleared.cabac_init_flag);
    EXPECT_EQ(cleared.MaxNumMergeCand(), 1U);

    stream.pps().cabac_init_present_flag = false;
    const auto absent = stream.parsed(with_one_reference(slice_b).u<1>(1).ue(0).se(0));
    EXPECT_TRUE(absent.mvd_l1_zero_flag);
    EXPECT_FALSE(absent.cabac_init_flag);
    EXPECT_EQ(absent.MaxNumMergeCand(), 5U);
}

TEST(SliceEnd, HasNoMvdFlagInAPSlice) {
    host stream;
    stream.pps().cabac_init_present_flag = true;
    const auto slice = stream.parsed(with_one_reference(slice_p).u<1>(1).ue(1).se(0));
    EXPECT_FALSE(slice.mvd_l1_zero_flag);
    EXPECT_TRUE(slice.cabac_init_flag);
    EXPECT_EQ(slice.five_minus_max_num_merge_cand, 1U);
}

TEST(SliceEnd, HasACollocatedPictureOfListZeroInAPSlice) {
    host stream;
    stream.sps().sps_temporal_mvp_enabled_flag = true;
    test::bit_writer bits = start_of(slice_p).u<1>(1).u<1>(1).ue(2);
    const auto slice = stream.parsed(bits.ue(2).ue(0).se(0));
    EXPECT_TRUE(slice.collocated_from_l0_flag);
    EXPECT_EQ(slice.collocated_ref_idx, 2U);

    const auto single = stream.parsed(start_of(slice_p).u<1>(1).u<1>(0).ue(3).se(0));
    EXPECT_EQ(single.collocated_ref_idx, 0U);
    EXPECT_EQ(single.five_minus_max_num_merge_cand, 3U);

    const auto disabled = stream.parsed(start_of(slice_p).u<1>(0).u<1>(1).ue(2).ue(3).se(0));
    EXPECT_EQ(disabled.collocated_ref_idx, 0U);
    EXPECT_EQ(disabled.five_minus_max_num_merge_cand, 3U);
}

// Two entries in list 0, and in list 1 one or three.
TEST(SliceEnd, HasACollocatedPictureOfEitherListInABSlice) {
    host stream;
    stream.sps().sps_temporal_mvp_enabled_flag = true;
    const auto bits = [](unsigned int num_ref_idx_l1_active_minus1) {
        test::bit_writer writer = start_of(slice_b).u<1>(1).u<1>(1).ue(1);
        return writer.ue(num_ref_idx_l1_active_minus1).u<1>(0);  // and mvd_l1_zero_flag
    };
    const auto of_list_0 = stream.parsed(bits(0).u<1>(1).ue(1).ue(3).se(0));
    EXPECT_TRUE(of_list_0.collocated_from_l0_flag);
    EXPECT_EQ(of_list_0.collocated_ref_idx, 1U);
    EXPECT_EQ(of_list_0.five_minus_max_num_merge_cand, 3U);

    const auto of_list_1 = stream.parsed(bits(2).u<1>(0).ue(2).ue(3).se(0));
    EXPECT_FALSE(of_list_1.collocated_from_l0_flag);
    EXPECT_EQ(of_list_1.collocated_ref_idx, 2U);
    EXPECT_EQ(of_list_1.five_minus_max_num_merge_cand, 3U);

    const auto single = stream.parsed(bits(0).u<1>(0).ue(3).se(0));
    EXPECT_FALSE(single.collocated_from_l0_flag);
    EXPECT_EQ(single.collocated_ref_idx, 0U);
    EXPECT_EQ(single.five_minus_max_num_merge_cand, 3U);
}

TEST(SliceEnd, CountsTheDefaultEntriesForTheCollocatedPicture) {
    host stream;
    stream.sps().sps_temporal_mvp_enabled_flag = true;
    stream.pps().num_ref_idx_l1_default_active_minus1 = 4;
    const auto slice =
        stream.parsed(start_of(slice_b).u<1>(1).u<1>(0).u<1>(0).u<1>(0).ue(4).ue(0).se(0));
    EXPECT_EQ(slice.collocated_ref_idx, 4U);
}

TEST(SliceEnd, HasWholeMotionVectorsAsTheSpsSays) {
    host stream;
    unsigned char& resolution = stream.sps().sps_scc_extension.motion_vector_resolution_control_idc;
    for (const unsigned int type : {slice_b, slice_p}) {
        test::bit_writer up_to_flag = with_one_reference(type);
        if (type == slice_b) {
            up_to_flag.u<1>(0);
        }
        up_to_flag.ue(0);
        resolution = 0;
        EXPECT_FALSE(stream.parsed(test::bit_writer(up_to_flag).se(1)).use_integer_mv_flag);
        resolution = 1;
        EXPECT_TRUE(stream.parsed(test::bit_writer(up_to_flag).se(1)).use_integer_mv_flag);
        resolution = 2;
        for (const unsigned int flag : {0U, 1U}) {
            const auto slice = stream.parsed(test::bit_writer(up_to_flag).u<1>(flag).se(-9));
            EXPECT_EQ(slice.use_integer_mv_flag, flag != 0);
            EXPECT_EQ(slice.slice_qp_delta, -9);
        }
    }
    for (const unsigned char any : std::array<unsigned char, 3>{0, 1, 2}) {
        resolution = any;
        EXPECT_FALSE(stream.parsed(start_of(slice_i).se(1)).use_integer_mv_flag);
    }
}

TEST(SliceEnd, HasAtMostFiveMergeCandidates) {
    h265_slice_segment_header slice;
    EXPECT_EQ(slice.MaxNumMergeCand(), 5U);
    slice.five_minus_max_num_merge_cand = 5;
    EXPECT_EQ(slice.MaxNumMergeCand(), 0U);
    slice.five_minus_max_num_merge_cand = 0xFFFFFFFF;
    EXPECT_EQ(slice.MaxNumMergeCand(), 0U);
}

// ---- Quantization

TEST(SliceEnd, AddsItsQuantizerToThatOfThePps) {
    host stream;
    stream.pps().init_qp_minus26 = -4;
    EXPECT_EQ(stream.parsed(start_of(slice_i).se(-3)).SliceQpY(stream.pps()), 19);
    stream.pps().init_qp_minus26 = 25;
    EXPECT_EQ(stream.parsed(start_of(slice_i).se(0)).SliceQpY(stream.pps()), 51);

    h265_slice_segment_header slice;
    slice.slice_qp_delta = 0x7FFFFFFF;
    stream.pps().init_qp_minus26 = 0x7FFFFFFF;
    EXPECT_EQ(slice.SliceQpY(stream.pps()), 26 + 2 * 0x7FFFFFFFLL);
}

TEST(SliceEnd, HasChromaOffsetsWhenThePpsSaysSo) {
    host stream;
    stream.pps().pps_slice_chroma_qp_offsets_present_flag = true;
    const auto slice = stream.parsed(start_of(slice_i).se(1).se(-5).se(6));
    EXPECT_EQ(slice.slice_qp_delta, 1);
    EXPECT_EQ(slice.slice_cb_qp_offset, -5);
    EXPECT_EQ(slice.slice_cr_qp_offset, 6);
}

TEST(SliceEnd, HasActOffsetsWhenThePpsSaysSo) {
    host stream;
    stream.pps().pps_scc_extension.pps_slice_act_qp_offsets_present_flag = true;
    const auto slice = stream.parsed(start_of(slice_i).se(1).se(-2).se(3).se(-4));
    EXPECT_EQ(slice.slice_cb_qp_offset, 0);
    EXPECT_EQ(slice.slice_act_y_qp_offset, -2);
    EXPECT_EQ(slice.slice_act_cb_qp_offset, 3);
    EXPECT_EQ(slice.slice_act_cr_qp_offset, -4);
}

TEST(SliceEnd, HasAFlagOfChromaOffsetsInCodingUnits) {
    host stream;
    stream.pps().pps_range_extension.chroma_qp_offset_list_enabled_flag = true;
    EXPECT_TRUE(stream.parsed(start_of(slice_i).se(1).u<1>(1)).cu_chroma_qp_offset_enabled_flag);
    EXPECT_FALSE(stream.parsed(start_of(slice_i).se(1).u<1>(0)).cu_chroma_qp_offset_enabled_flag);
}

// slice_qp_delta, cb, cr, the three of the colour transform, and the flag.
TEST(SliceEnd, HasItsOffsetsInTheOrderOfTheirSyntax) {
    host stream;
    stream.pps().pps_slice_chroma_qp_offsets_present_flag = true;
    stream.pps().pps_scc_extension.pps_slice_act_qp_offsets_present_flag = true;
    stream.pps().pps_range_extension.chroma_qp_offset_list_enabled_flag = true;
    const auto slice = stream.parsed(start_of(slice_i).se(1).se(2).se(3).se(4).se(5).se(6).u<1>(1));
    EXPECT_EQ(slice.slice_qp_delta, 1);
    EXPECT_EQ(slice.slice_cb_qp_offset, 2);
    EXPECT_EQ(slice.slice_cr_qp_offset, 3);
    EXPECT_EQ(slice.slice_act_y_qp_offset, 4);
    EXPECT_EQ(slice.slice_act_cb_qp_offset, 5);
    EXPECT_EQ(slice.slice_act_cr_qp_offset, 6);
    EXPECT_TRUE(slice.cu_chroma_qp_offset_enabled_flag);
}

// ---- Loop filters

TEST(SliceEnd, TakesTheDeblockingOfThePps) {
    host stream;
    h265_nal_pps& pps = stream.pps();
    pps.pps_deblocking_filter_disabled_flag = true;
    pps.pps_beta_offset_div2 = 3;
    pps.pps_tc_offset_div2 = -4;
    const auto slice = stream.parsed(start_of(slice_i).se(1));
    EXPECT_FALSE(slice.deblocking_filter_override_flag);
    EXPECT_TRUE(slice.slice_deblocking_filter_disabled_flag);
    EXPECT_EQ(slice.slice_beta_offset_div2, 3);
    EXPECT_EQ(slice.slice_tc_offset_div2, -4);

    pps.deblocking_filter_override_enabled_flag = true;
    const auto not_overridden = stream.parsed(start_of(slice_i).se(1).u<1>(0));
    EXPECT_FALSE(not_overridden.deblocking_filter_override_flag);
    EXPECT_TRUE(not_overridden.slice_deblocking_filter_disabled_flag);
    EXPECT_EQ(not_overridden.slice_beta_offset_div2, 3);

    pps.pps_deblocking_filter_disabled_flag = false;
    EXPECT_FALSE(
        stream.parsed(start_of(slice_i).se(1).u<1>(0)).slice_deblocking_filter_disabled_flag);
}

TEST(SliceEnd, HasDeblockingOfItsOwn) {
    host stream;
    h265_nal_pps& pps = stream.pps();
    pps.deblocking_filter_override_enabled_flag = true;
    pps.pps_deblocking_filter_disabled_flag = true;
    pps.pps_beta_offset_div2 = 3;
    pps.pps_tc_offset_div2 = -4;
    const auto enabled = stream.parsed(start_of(slice_i).se(1).u<1>(1).u<1>(0).se(-6).se(5));
    EXPECT_TRUE(enabled.deblocking_filter_override_flag);
    EXPECT_FALSE(enabled.slice_deblocking_filter_disabled_flag);
    EXPECT_EQ(enabled.slice_beta_offset_div2, -6);
    EXPECT_EQ(enabled.slice_tc_offset_div2, 5);

    pps.pps_deblocking_filter_disabled_flag = false;
    const auto disabled = stream.parsed(start_of(slice_i).se(1).u<1>(1).u<1>(1));
    EXPECT_TRUE(disabled.slice_deblocking_filter_disabled_flag);
    EXPECT_EQ(disabled.slice_beta_offset_div2, 3);
    EXPECT_EQ(disabled.slice_tc_offset_div2, -4);
}

// The flag is coded when the PPS's is set and a filter is on: deblocking, as inferred or coded, or
// sample adaptive offset of luma or of chroma.
TEST(SliceEnd, FiltersAcrossSlicesAsThePpsSaysUnlessAFilterIsOn) {
    host stream;
    h265_nal_pps& pps = stream.pps();
    EXPECT_FALSE(
        stream.parsed(start_of(slice_i).se(1)).slice_loop_filter_across_slices_enabled_flag);

    pps.pps_loop_filter_across_slices_enabled_flag = true;
    for (const unsigned int flag : {0U, 1U}) {
        const auto slice = stream.parsed(start_of(slice_i).se(1).u<1>(flag));
        EXPECT_EQ(slice.slice_loop_filter_across_slices_enabled_flag, flag != 0);
    }

    pps.pps_deblocking_filter_disabled_flag = true;
    EXPECT_TRUE(
        stream.parsed(start_of(slice_i).se(1)).slice_loop_filter_across_slices_enabled_flag);

    pps.deblocking_filter_override_enabled_flag = true;
    const auto overridden =
        stream.parsed(start_of(slice_i).se(1).u<1>(1).u<1>(0).se(0).se(0).u<1>(0));
    EXPECT_FALSE(overridden.slice_loop_filter_across_slices_enabled_flag);
    pps.pps_deblocking_filter_disabled_flag = false;
    const auto off = stream.parsed(start_of(slice_i).se(1).u<1>(1).u<1>(1));
    EXPECT_TRUE(off.slice_loop_filter_across_slices_enabled_flag);
}

TEST(SliceEnd, FiltersAcrossSlicesAsItSaysWithSampleAdaptiveOffset) {
    host stream;
    stream.pps().pps_loop_filter_across_slices_enabled_flag = true;
    stream.pps().pps_deblocking_filter_disabled_flag = true;
    stream.sps().sample_adaptive_offset_enabled_flag = true;
    for (const unsigned int sao : {0b10U, 0b01U, 0b11U}) {
        const auto slice = stream.parsed(start_of(slice_i).u<2>(sao).se(1).u<1>(0));
        EXPECT_FALSE(slice.slice_loop_filter_across_slices_enabled_flag) << sao;
    }
    const auto without = stream.parsed(start_of(slice_i).u<2>(0).se(1));
    EXPECT_TRUE(without.slice_loop_filter_across_slices_enabled_flag);
    stream.sps().chroma_format_idc = 0;
    EXPECT_TRUE(stream.parsed(start_of(slice_i).u<1>(0).se(1))
                    .slice_loop_filter_across_slices_enabled_flag);
    EXPECT_FALSE(stream.parsed(start_of(slice_i).u<1>(1).se(1).u<1>(0))
                     .slice_loop_filter_across_slices_enabled_flag);
}

// ---- Pictures that refer to themselves

// An IDR picture has no sets, and one reference picture: itself.
TEST(SliceEnd, CountsTheCurrentPictureInAnIdrPicture) {
    host stream;
    stream.pps().pps_scc_extension.pps_curr_pic_ref_enabled_flag = true;
    stream.pps().lists_modification_present_flag = true;
    stream.sps().sps_temporal_mvp_enabled_flag = true;
    const auto slice = stream.parsed(
        test::bit_writer().u<1>(1).u<1>(0).ue(0).ue(slice_p).u<1>(0).ue(1).se(2), IDR_N_LP);
    EXPECT_EQ(slice.NumPicTotalCurr, 1U);
    EXPECT_FALSE(slice.ref_pic_lists_modification.valid);
    EXPECT_EQ(slice.five_minus_max_num_merge_cand, 1U);
    EXPECT_EQ(slice.slice_qp_delta, 2);
}

// One of the set and the current one: two pictures, whose lists are modified with one bit each.
TEST(SliceEnd, CountsTheCurrentPictureForItsLists) {
    host stream;
    stream.pps().lists_modification_present_flag = true;
    stream.sps().st_ref_pic_set[0].num_negative_pics = 1;
    stream.sps().st_ref_pic_set[0].used_by_curr_pic_s0_flag = {true};
    EXPECT_EQ(stream.parsed(with_one_reference(slice_p).ue(1).se(2)).NumPicTotalCurr, 1U);

    stream.pps().pps_scc_extension.pps_curr_pic_ref_enabled_flag = true;
    const auto slice = stream.parsed(with_one_reference(slice_p).u<1>(1).u<1>(1).ue(1).se(2));
    EXPECT_EQ(slice.NumPicTotalCurr, 2U);
    EXPECT_EQ(slice.ref_pic_lists_modification.list_entry_l0, std::vector<unsigned int>{1});
    EXPECT_EQ(slice.slice_qp_delta, 2);
    EXPECT_EQ(stream.parsed(start_of(slice_i).se(2)).NumPicTotalCurr, 0U);
}

// ---- Records used again

TEST(SliceEnd, LeavesNothingOfAnEarlierSlice) {
    host stream;
    h265_nal_pps& pps = stream.pps();
    pps.cabac_init_present_flag = true;
    pps.weighted_bipred_flag = true;
    pps.pps_slice_chroma_qp_offsets_present_flag = true;
    pps.pps_scc_extension.pps_slice_act_qp_offsets_present_flag = true;
    pps.pps_range_extension.chroma_qp_offset_list_enabled_flag = true;
    pps.deblocking_filter_override_enabled_flag = true;
    pps.pps_loop_filter_across_slices_enabled_flag = true;
    pps.entropy_coding_sync_enabled_flag = true;
    pps.slice_segment_header_extension_present_flag = true;
    stream.sps().sps_temporal_mvp_enabled_flag = true;
    stream.sps().sps_scc_extension.motion_vector_resolution_control_idc = 2;
    stream.sps().pic_height_in_luma_samples = 128;
    test::bit_writer full = start_of(slice_b).u<1>(1).u<1>(1).ue(1).ue(1).u<1>(1).u<1>(1);
    full.u<1>(0).ue(1);                                        // the collocated picture
    full.ue(1).se(1).u<2>(3).u<2>(0).se(1).se(2).se(3).se(4);  // weights of list 0
    full.u<2>(0).u<2>(1).se(1).se(2).se(3).se(4);              // and of list 1
    full.ue(3).u<1>(1);
    full.se(1).se(2).se(3).se(1).se(2).se(3).u<1>(1);
    full.u<1>(1).u<1>(0).se(1).se(2).u<1>(1);
    full.ue(1).ue(31).u<32>(0xFEDCBA98);
    full.ue(2).u<16>(0x1234);
    h265_slice_segment_header used;
    stream.parse(used, full);
    EXPECT_EQ(used.entry_point_offset_minus1, std::vector<unsigned int>{0xFEDCBA98});
    EXPECT_TRUE(used.pred_weight_table.chroma_weight_l1_flag[1]);

    pps = h265_nal_pps();
    pps.dependent_slice_segments_enabled_flag = true;
    stream.sps().sps_temporal_mvp_enabled_flag = false;
    stream.sps().sps_scc_extension.motion_vector_resolution_control_idc = 0;
    const test::bit_writer intra = start_of(slice_i).se(1);
    const test::bit_writer dependent = test::bit_writer().u<1>(0).ue(0).u<1>(1).u<1>(1);
    for (const test::bit_writer& next : {intra, dependent}) {
        h265_slice_segment_header again = used;
        stream.parse(again, next);
        EXPECT_TRUE(test::same_fields(again, stream.parsed(next)));
    }
    // A P slice has no weights of list 1.
    pps.weighted_pred_flag = true;
    const test::bit_writer p = start_of(slice_p).u<1>(0).ue(0).se(0).u<1>(0).u<1>(0).ue(0).se(0);
    h265_slice_segment_header again = used;
    stream.parse(again, p);
    EXPECT_TRUE(test::same_fields(again, stream.parsed(p)));
    EXPECT_EQ(again.pred_weight_table.luma_weight_l1_flag, h265_pred_weight_table::entries<bool>{});
}

// ---- The library's own rules

// They stop before these elements, and leave the fields as they were, with a trace or without.
TEST(SliceEnd, IsLeftAloneByTheOtherReading) {
    host stream;
    stream.pps().cabac_init_present_flag = true;
    stream.pps().weighted_pred_flag = true;
    stream.pps().entropy_coding_sync_enabled_flag = true;
    stream.pps().slice_segment_header_extension_present_flag = true;
    stream.pps().pps_beta_offset_div2 = 5;
    h265_slice_segment_header slice;
    slice.mvd_l1_zero_flag = true;
    slice.collocated_ref_idx = 1;
    slice.pred_weight_table.luma_log2_weight_denom = 2;
    slice.pred_weight_table.luma_weight_l0_flag = {true, false, true};
    slice.five_minus_max_num_merge_cand = 3;
    slice.slice_qp_delta = 4;
    slice.slice_beta_offset_div2 = 6;
    slice.num_entry_point_offsets = 7;
    slice.entry_point_offset_minus1 = {8, 9};
    slice.slice_segment_header_extension_length = 10;
    slice.slice_segment_header_extension_data_byte = {11};
    slice.slice_data_begin = 12;
    const h265_slice_segment_header before = slice;
    for (const unsigned int type : {slice_b, slice_p, slice_i}) {
        for (const bool traced : {false, true}) {
            test::bit_writer bits = with_one_reference(type);
            test::rbsp input{bits.u<32>(0xFFFFFFFF).bytes()};
            h265_trace trace;
            h265_fault fault;
            EXPECT_TRUE(traced ? slice.parse(input.reader, stream.pps_store, stream.sps_store,
                                             stream.vps_store, TRAIL_R, trace, &fault)
                               : slice.parse(input.reader, stream.pps_store, stream.sps_store,
                                             stream.vps_store, TRAIL_R));
            h265_slice_segment_header expected = before;
            expected.first_slice_segment_in_pic_flag = true;
            expected.slice_type = type;
            expected.pic_output_flag = true;
            expected.slice_pic_order_cnt_lsb = 9;
            expected.short_term_ref_pic_set_sps_flag = true;
            expected.valid = true;
            EXPECT_TRUE(test::same_fields(slice, expected));
            slice = before;
        }
    }
}

}  // namespace
}  // namespace kovran
