#include <kovran/h265/h265_slice_segment_header.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <new>
#include <string_view>
#include <vector>

#include "support/bit_writer.h"
#include "support/rbsp.h"
#include "support/same_fields.h"
#include "support/slice_record_fields.h"

namespace kovran {
namespace {

using values = std::vector<unsigned int>;
using flags = std::vector<bool>;

constexpr unsigned int slice_b = 0;
constexpr unsigned int slice_p = 1;
constexpr unsigned int slice_i = 2;

// The stores of a host with one parameter set each, none of them `valid`: PPS 2 of SPS 5 of VPS 7.
// The picture has one coding tree block of 64x64.
struct host {
    host() {
        vps_store[7];
        h265_nal_sps& sps = sps_store[5];
        sps.sps_video_parameter_set_id = 7;
        sps.chroma_format_idc = 1;
        sps.pic_width_in_luma_samples = 64;
        sps.pic_height_in_luma_samples = 64;
        sps.log2_diff_max_min_luma_coding_block_size = 3;
        pps_store[2].pps_seq_parameter_set_id = 5;
    }

    h265_nal_pps& pps() { return pps_store.at(2); }
    h265_nal_sps& sps() { return sps_store.at(5); }

    // Exactly these bits are to be consumed, and ones follow.
    bool parse(h265_slice_segment_header& slice, const test::bit_writer& bits,
               h265_nal_unit_type type = TRAIL_R) {
        test::bit_writer followed = bits;
        followed.u<32>(0xFFFFFFFF);
        test::rbsp input{followed.bytes()};
        const bool result = slice.parse(input.reader, pps_store, sps_store, vps_store, type);
        EXPECT_EQ(input.reader.bit_position(), bits.size());
        EXPECT_EQ(slice.valid, result);
        EXPECT_EQ(vps_store.size() + sps_store.size() + pps_store.size(), 3U);
        return result;
    }

    h265_slice_segment_header parsed(const test::bit_writer& bits,
                                     h265_nal_unit_type type = TRAIL_R) {
        h265_slice_segment_header slice;
        EXPECT_TRUE(parse(slice, bits, type));
        return slice;
    }

    h2645_common_base_store<h265_nal_vps> vps_store;
    h2645_common_base_store<h265_nal_sps> sps_store;
    h2645_common_base_store<h265_nal_pps> pps_store;
};

// first_slice_segment_in_pic_flag, slice_pic_parameter_set_id of a picture that is not an IRAP.
test::bit_writer first_segment() {
    return test::bit_writer().u<1>(1).ue(2);
}

// The same with no_output_of_prior_pics_flag, for IRAP pictures.
test::bit_writer first_irap_segment() {
    return test::bit_writer().u<1>(1).u<1>(0).ue(2);
}

// A first segment up to and with slice_type, slice_pic_order_cnt_lsb (4 bits) and
// short_term_ref_pic_set_sps_flag 1.
test::bit_writer first_segment_up_to_sps_set(unsigned int slice_type) {
    return first_segment().ue(slice_type).u<4>(9).u<1>(1);
}

h265_st_ref_pic_set set_using(const flags& used_s0, const flags& used_s1) {
    h265_st_ref_pic_set set;
    set.num_negative_pics = static_cast<unsigned int>(used_s0.size());
    set.used_by_curr_pic_s0_flag = used_s0;
    set.num_positive_pics = static_cast<unsigned int>(used_s1.size());
    set.used_by_curr_pic_s1_flag = used_s1;
    return set;
}

// ---- Start, parameter sets

TEST(H265SliceSegmentHeader, ReadsTheSmallestIntraHeader) {
    host stream;
    stream.sps().num_short_term_ref_pic_sets = 3;
    stream.pps().num_ref_idx_l0_default_active_minus1 = 4;
    stream.pps().num_ref_idx_l1_default_active_minus1 = 6;
    const auto slice = stream.parsed(first_irap_segment().ue(slice_i), IDR_W_RADL);
    h265_slice_segment_header expected;
    expected.first_slice_segment_in_pic_flag = true;
    expected.slice_pic_parameter_set_id = 2;
    expected.slice_type = 2;
    expected.pic_output_flag = true;
    expected.num_ref_idx_l0_active_minus1 = 4;
    expected.num_ref_idx_l1_active_minus1 = 6;
    expected.CurrRpsIdx = 3;
    expected.valid = true;
    EXPECT_TRUE(test::same_fields(slice, expected));
}

TEST(H265SliceSegmentHeader, ReadsNoOutputOfPriorPicsFlagOfIrapTypesOnly) {
    for (unsigned int type = 0; type < 32; ++type) {
        const bool irap = type >= 16 && type <= 23;
        const bool idr = type == 19 || type == 20;
        test::bit_writer bits;
        bits.u<1>(1);
        if (irap) {
            bits.u<1>(1);
        }
        bits.ue(2).ue(slice_i);
        if (!idr) {
            bits.u<4>(0).u<1>(1);
        }
        host stream;
        h265_slice_segment_header slice;
        slice.no_output_of_prior_pics_flag = true;
        EXPECT_TRUE(stream.parse(slice, bits, static_cast<h265_nal_unit_type>(type))) << type;
        EXPECT_EQ(slice.no_output_of_prior_pics_flag, irap) << type;
    }
}

TEST(H265SliceSegmentHeader, StoresNoOutputOfPriorPicsFlagAsItIs) {
    host stream;
    h265_slice_segment_header slice;
    slice.no_output_of_prior_pics_flag = true;
    EXPECT_TRUE(stream.parse(slice, first_irap_segment().ue(slice_i), IDR_N_LP));
    EXPECT_FALSE(slice.no_output_of_prior_pics_flag);
}

// A record of an earlier parse, of which every field differs from its first value.
h265_slice_segment_header used_record() {
    h265_slice_segment_header slice;
    slice.first_slice_segment_in_pic_flag = true;
    slice.no_output_of_prior_pics_flag = true;
    slice.slice_pic_parameter_set_id = 201;
    slice.dependent_slice_segment_flag = true;
    slice.slice_segment_address = 202;
    slice.slice_type = 203;
    slice.pic_output_flag = true;
    slice.colour_plane_id = 2;
    slice.slice_pic_order_cnt_lsb = 204;
    slice.short_term_ref_pic_set_sps_flag = true;
    slice.st_ref_pic_set = set_using({true, false}, {true});
    slice.short_term_ref_pic_set_idx = 205;
    slice.num_long_term_sps = 1;
    slice.num_long_term_pics = 1;
    slice.lt_idx_sps = {206, 207};
    slice.poc_lsb_lt = {208, 209};
    slice.used_by_curr_pic_lt_flag = {true, true};
    slice.delta_poc_msb_present_flag = {true, true};
    slice.delta_poc_msb_cycle_lt = {210, 211};
    slice.slice_temporal_mvp_enabled_flag = true;
    slice.slice_sao_luma_flag = true;
    slice.slice_sao_chroma_flag = true;
    slice.num_ref_idx_active_override_flag = true;
    slice.num_ref_idx_l0_active_minus1 = 212;
    slice.num_ref_idx_l1_active_minus1 = 213;
    slice.ref_pic_lists_modification.list_entry_l0 = {214};
    slice.NumPicTotalCurr = 215;
    slice.CurrRpsIdx = 216;
    slice.valid = true;
    return slice;
}

void expect_missing_parameter_set(host& stream, std::size_t records) {
    test::rbsp input{0b1'011'1111, 0xFF};
    h265_slice_segment_header slice = used_record();
    EXPECT_NO_THROW(EXPECT_FALSE(
        slice.parse(input.reader, stream.pps_store, stream.sps_store, stream.vps_store, TRAIL_R)));
    EXPECT_EQ(stream.vps_store.size() + stream.sps_store.size() + stream.pps_store.size(), records);
    EXPECT_EQ(input.reader.bit_position(), 4U);
    h265_slice_segment_header expected = used_record();
    expected.no_output_of_prior_pics_flag = false;
    expected.slice_pic_parameter_set_id = 2;
    expected.valid = false;
    EXPECT_TRUE(test::same_fields(slice, expected));
}

TEST(H265SliceSegmentHeader, FailsWithoutThePpsAndInsertsNone) {
    host stream;
    stream.pps_store[3] = stream.pps();
    stream.pps_store.erase(2);
    expect_missing_parameter_set(stream, 3);
    stream.pps_store.clear();
    expect_missing_parameter_set(stream, 2);
}

TEST(H265SliceSegmentHeader, FailsWithoutTheSpsAndInsertsNone) {
    host stream;
    stream.pps().pps_seq_parameter_set_id = 4;
    expect_missing_parameter_set(stream, 3);
    stream.sps_store.clear();
    expect_missing_parameter_set(stream, 2);
}

TEST(H265SliceSegmentHeader, FailsWithoutTheVpsAndInsertsNone) {
    host stream;
    stream.sps().sps_video_parameter_set_id = 6;
    expect_missing_parameter_set(stream, 3);
    stream.vps_store.clear();
    expect_missing_parameter_set(stream, 2);
}

TEST(H265SliceSegmentHeader, GoesByIdentifiersAndNotByTheActiveOnes) {
    host stream;
    stream.pps_store.active_id = 0;
    stream.sps_store.active_id = 0;
    stream.vps_store.active_id = 0;
    EXPECT_TRUE(stream.parsed(first_irap_segment().ue(slice_i), IDR_W_RADL).valid);
    EXPECT_EQ(stream.pps_store.active_id, 0U);
    EXPECT_EQ(stream.sps_store.active_id, 0U);
    EXPECT_EQ(stream.vps_store.active_id, 0U);
}

// ---- Dependent segments, slice_segment_address

TEST(H265SliceSegmentHeader, EndsADependentSegmentAfterItsAddress) {
    host stream;
    stream.pps().dependent_slice_segments_enabled_flag = true;
    stream.pps().num_ref_idx_l0_default_active_minus1 = 1;
    stream.pps().num_ref_idx_l1_default_active_minus1 = 2;
    stream.sps().num_short_term_ref_pic_sets = 8;
    h265_slice_segment_header slice = used_record();
    EXPECT_TRUE(stream.parse(slice, test::bit_writer().u<1>(0).ue(2).u<1>(1).u<1>(1)));
    h265_slice_segment_header expected = used_record();
    expected.first_slice_segment_in_pic_flag = false;
    expected.no_output_of_prior_pics_flag = false;
    expected.slice_pic_parameter_set_id = 2;
    expected.slice_segment_address = 1;
    expected.num_ref_idx_l0_active_minus1 = 1;
    expected.num_ref_idx_l1_active_minus1 = 2;
    expected.NumPicTotalCurr = 0;
    expected.CurrRpsIdx = 8;
    EXPECT_TRUE(test::same_fields(slice, expected));
}

TEST(H265SliceSegmentHeader, ReadsADependentSegmentFlagOnlyWhereThePpsAllowsIt) {
    host stream;
    h265_slice_segment_header slice;
    slice.dependent_slice_segment_flag = true;
    const test::bit_writer bits = test::bit_writer().u<1>(0).u<1>(0).ue(2);
    // slice_segment_address, slice_type
    EXPECT_TRUE(stream.parse(slice, test::bit_writer(bits).u<1>(1).ue(slice_i), IDR_W_RADL));
    EXPECT_FALSE(slice.dependent_slice_segment_flag);
    EXPECT_EQ(slice.slice_segment_address, 1U);
    EXPECT_EQ(slice.slice_type, 2U);

    stream.pps().dependent_slice_segments_enabled_flag = true;
    slice.dependent_slice_segment_flag = true;
    EXPECT_TRUE(
        stream.parse(slice, test::bit_writer(bits).u<1>(0).u<1>(1).ue(slice_i), IDR_W_RADL));
    EXPECT_FALSE(slice.dependent_slice_segment_flag);
}

TEST(H265SliceSegmentHeader, LeavesFlagAndAddressOfAFirstSegmentAlone) {
    host stream;
    stream.pps().dependent_slice_segments_enabled_flag = true;
    h265_slice_segment_header slice;
    slice.slice_segment_address = 77;
    EXPECT_TRUE(stream.parse(slice, first_irap_segment().ue(slice_i), IDR_W_RADL));
    EXPECT_FALSE(slice.dependent_slice_segment_flag);
    EXPECT_EQ(slice.slice_segment_address, 77U);
}

TEST(H265SliceSegmentHeader, EndsAFirstSegmentByAnEarlierDependentFlag) {
    for (const bool enabled : {false, true}) {
        host stream;
        stream.pps().dependent_slice_segments_enabled_flag = enabled;
        h265_slice_segment_header slice = used_record();
        EXPECT_TRUE(stream.parse(slice, first_segment()));
        EXPECT_TRUE(slice.dependent_slice_segment_flag);
        EXPECT_EQ(slice.slice_type, 203U);
        EXPECT_EQ(slice.slice_segment_address, 202U);
        EXPECT_EQ(slice.slice_pic_order_cnt_lsb, 204U);
    }
}

TEST(H265SliceSegmentHeader, TakesTheBitLengthOfThePictureSizeForTheAddress) {
    struct size_width {
        unsigned int ctbs_in_a_row;
        unsigned int rows;
        unsigned int width;
    };
    constexpr size_width sizes[] = {
        {1, 1, 1},    {2, 1, 2},        {3, 1, 2},        {2, 2, 3},        {5, 1, 3},
        {7, 1, 3},    {8, 1, 4},        {5, 3, 4},        {16, 1, 5},       {30, 17, 9},
        {32, 16, 10}, {4095, 4095, 24}, {4096, 4096, 25}, {8192, 8191, 26}, {65535, 65535, 32},
    };
    for (const auto& size : sizes) {
        host stream;
        stream.sps().pic_width_in_luma_samples = 64 * size.ctbs_in_a_row;
        stream.sps().pic_height_in_luma_samples = 64 * size.rows;
        const unsigned int address = 0x9A5C63E1 >> (32 - size.width);
        const auto slice = stream.parsed(
            test::bit_writer().u<1>(0).u<1>(0).ue(2).u(size.width, address).ue(slice_i),
            IDR_W_RADL);
        EXPECT_EQ(slice.slice_segment_address, address) << size.ctbs_in_a_row;
        EXPECT_EQ(slice.slice_type, 2U) << size.ctbs_in_a_row;
    }
}

// A segment that is not the first of an IDR picture, with an address of `width` ones.
test::bit_writer later_segment(unsigned int width) {
    return test::bit_writer().u<1>(0).u<1>(0).ue(2).u(width, (1ULL << width) - 1).ue(slice_i);
}

TEST(H265SliceSegmentHeader, CountsCodingTreeBlocksThatThePictureHasInPart) {
    host stream;
    stream.sps().pic_width_in_luma_samples = 64 * 3 + 1;
    EXPECT_EQ(stream.parsed(later_segment(3), IDR_W_RADL).slice_segment_address, 7U);
    stream.sps().pic_width_in_luma_samples = 1;
    stream.sps().pic_height_in_luma_samples = 64 * 4 - 1;
    EXPECT_EQ(stream.parsed(later_segment(3), IDR_W_RADL).slice_segment_address, 7U);
    stream.sps().pic_height_in_luma_samples = 1;
    EXPECT_EQ(stream.parsed(later_segment(1), IDR_W_RADL).slice_segment_address, 1U);
}

TEST(H265SliceSegmentHeader, AddsUpTheCodingTreeBlockSize) {
    host stream;
    stream.sps().pic_width_in_luma_samples = 256;
    stream.sps().pic_height_in_luma_samples = 16;
    stream.sps().log2_min_luma_coding_block_size_minus3 = 0;
    stream.sps().log2_diff_max_min_luma_coding_block_size = 0;
    // 32 x 2 blocks of 8x8, then 16 of 16x16, then 4 of 64x64.
    EXPECT_EQ(stream.parsed(later_segment(7), IDR_W_RADL).slice_segment_address, 127U);
    stream.sps().log2_min_luma_coding_block_size_minus3 = 1;
    EXPECT_EQ(stream.parsed(later_segment(5), IDR_W_RADL).slice_segment_address, 31U);
    stream.sps().log2_diff_max_min_luma_coding_block_size = 2;
    EXPECT_EQ(stream.parsed(later_segment(3), IDR_W_RADL).slice_segment_address, 7U);
}

TEST(H265SliceSegmentHeader, DoesNotOverflowForAPictureOfAnySize) {
    host stream;
    stream.sps().log2_diff_max_min_luma_coding_block_size = 0;
    // 2^29 blocks of 8x8 in a row.
    stream.sps().pic_width_in_luma_samples = 0xFFFFFFFE;
    stream.sps().pic_height_in_luma_samples = 8;
    EXPECT_EQ(stream.parsed(later_segment(30), IDR_W_RADL).slice_segment_address, 0x3FFFFFFFU);
}

TEST(H265SliceSegmentHeader, TakesThePictureSizeIn32Bits) {
    host stream;
    stream.sps().log2_diff_max_min_luma_coding_block_size = 0;
    // 65536 x 65537 is 65536, past 2^32.
    stream.sps().pic_width_in_luma_samples = 8 * 65536;
    stream.sps().pic_height_in_luma_samples = 8 * 65537;
    EXPECT_EQ(stream.parsed(later_segment(17), IDR_W_RADL).slice_segment_address, 0x1FFFFU);
}

TEST(H265SliceSegmentHeader, TakesCodingTreeBlocksOfUpTo31Bits) {
    host stream;
    stream.sps().log2_min_luma_coding_block_size_minus3 = 28;
    stream.sps().log2_diff_max_min_luma_coding_block_size = 0;
    EXPECT_EQ(stream.parsed(later_segment(1), IDR_W_RADL).slice_segment_address, 1U);
    stream.sps().log2_min_luma_coding_block_size_minus3 = 0;
    stream.sps().log2_diff_max_min_luma_coding_block_size = 28;
    stream.sps().pic_width_in_luma_samples = 0x80000001;
    EXPECT_EQ(stream.parsed(later_segment(2), IDR_W_RADL).slice_segment_address, 3U);
}

void expect_no_picture_size(host& stream) {
    h265_slice_segment_header slice = used_record();
    stream.pps().dependent_slice_segments_enabled_flag = true;
    EXPECT_FALSE(stream.parse(slice, test::bit_writer().u<1>(0).u<1>(0).ue(2).u<1>(0), IDR_W_RADL));
    EXPECT_FALSE(slice.dependent_slice_segment_flag);
    EXPECT_EQ(slice.slice_segment_address, 202U);
    EXPECT_EQ(slice.NumPicTotalCurr, 0U);
    EXPECT_EQ(slice.slice_type, 203U);
}

TEST(H265SliceSegmentHeader, RejectsAPictureWithoutCodingTreeBlocks) {
    host no_width;
    no_width.sps().pic_width_in_luma_samples = 0;
    expect_no_picture_size(no_width);
    host no_height;
    no_height.sps().pic_height_in_luma_samples = 0;
    expect_no_picture_size(no_height);
    host wrapped;  // 65536 x 65536 coding tree blocks
    wrapped.sps().log2_diff_max_min_luma_coding_block_size = 0;
    wrapped.sps().pic_width_in_luma_samples = 8 * 65536;
    wrapped.sps().pic_height_in_luma_samples = 8 * 65536;
    expect_no_picture_size(wrapped);
}

TEST(H265SliceSegmentHeader, RejectsCodingTreeBlocksOf32BitsAndMore) {
    for (const unsigned int log2_of_half : {29U, 30U, 100U, 0x7FFFFFFFU}) {
        host stream;
        stream.sps().log2_min_luma_coding_block_size_minus3 = log2_of_half;
        stream.sps().log2_diff_max_min_luma_coding_block_size = 0;
        expect_no_picture_size(stream);
        stream.sps().log2_min_luma_coding_block_size_minus3 = 0;
        stream.sps().log2_diff_max_min_luma_coding_block_size = log2_of_half;
        expect_no_picture_size(stream);
    }
}

TEST(H265SliceSegmentHeader, NeedsNoPictureSizeInAFirstSegment) {
    host stream;
    stream.sps().pic_width_in_luma_samples = 0;
    EXPECT_TRUE(stream.parsed(first_irap_segment().ue(slice_i), IDR_W_RADL).valid);
}

// ---- slice_type and its neighbours

TEST(H265SliceSegmentHeader, PassesOverExtraBits) {
    for (unsigned int count = 0; count <= 7; ++count) {
        host stream;
        stream.pps().num_extra_slice_header_bits = static_cast<unsigned char>(count);
        test::bit_writer bits = first_irap_segment();
        for (unsigned int i = 0; i < count; ++i) {
            bits.u<1>(i % 2 == 0 ? 1 : 0);
        }
        EXPECT_EQ(stream.parsed(bits.ue(slice_i), IDR_W_RADL).slice_type, 2U) << count;
    }
}

TEST(H265SliceSegmentHeader, DoesNotTestSliceType) {
    for (const unsigned int slice_type : {2U, 3U, 1000000U, 0xFFFFFFFEU}) {
        host stream;
        EXPECT_EQ(stream.parsed(first_irap_segment().ue(slice_type), IDR_W_RADL).slice_type,
                  slice_type);
    }
}

TEST(H265SliceSegmentHeader, ReadsPicOutputFlagOrSetsIt) {
    host stream;
    h265_slice_segment_header slice;
    EXPECT_TRUE(stream.parse(slice, first_irap_segment().ue(slice_i), IDR_W_RADL));
    EXPECT_TRUE(slice.pic_output_flag);
    stream.pps().output_flag_present_flag = true;
    EXPECT_TRUE(stream.parse(slice, first_irap_segment().ue(slice_i).u<1>(0), IDR_W_RADL));
    EXPECT_FALSE(slice.pic_output_flag);
    EXPECT_TRUE(stream.parse(slice, first_irap_segment().ue(slice_i).u<1>(1), IDR_W_RADL));
    EXPECT_TRUE(slice.pic_output_flag);
}

TEST(H265SliceSegmentHeader, ReadsColourPlaneIdOfSeparatePlanesAndKeepsItElse) {
    host stream;
    stream.sps().chroma_format_idc = 3;
    stream.sps().separate_colour_plane_flag = true;
    h265_slice_segment_header slice;
    EXPECT_TRUE(stream.parse(slice, first_irap_segment().ue(slice_i).u<2>(2), IDR_W_RADL));
    EXPECT_EQ(slice.colour_plane_id, 2);
    stream.sps().separate_colour_plane_flag = false;
    EXPECT_TRUE(stream.parse(slice, first_irap_segment().ue(slice_i), IDR_W_RADL));
    EXPECT_EQ(slice.colour_plane_id, 2);
}

TEST(H265SliceSegmentHeader, ReadsOutputFlagBeforeColourPlane) {
    host stream;
    stream.pps().output_flag_present_flag = true;
    stream.sps().separate_colour_plane_flag = true;
    const auto slice = stream.parsed(first_irap_segment().ue(slice_i).u<1>(0).u<2>(3), IDR_W_RADL);
    EXPECT_FALSE(slice.pic_output_flag);
    EXPECT_EQ(slice.colour_plane_id, 3);
}

// ---- Picture order count, short-term sets

TEST(H265SliceSegmentHeader, TakesPicOrderCntLsbAsWideAsTheSpsSays) {
    for (const unsigned int width : {4U, 5U, 8U, 16U, 24U, 25U, 26U, 32U}) {
        host stream;
        stream.sps().log2_max_pic_order_cnt_lsb_minus4 = width - 4;
        const unsigned int lsb = 0x9A5C63E1 >> (32 - width);
        const auto slice = stream.parsed(first_segment().ue(slice_i).u(width, lsb).u<1>(1));
        EXPECT_EQ(slice.slice_pic_order_cnt_lsb, lsb);
        EXPECT_TRUE(slice.short_term_ref_pic_set_sps_flag);
    }
}

TEST(H265SliceSegmentHeader, SkipsReferencePicturesOfIdrPicturesOnly) {
    for (unsigned int type = 16; type < 24; ++type) {
        host stream;
        h265_slice_segment_header slice = used_record();
        slice.dependent_slice_segment_flag = false;
        const bool idr = type == IDR_W_RADL || type == IDR_N_LP;
        test::bit_writer bits = first_irap_segment().ue(slice_i);
        if (!idr) {
            bits.u<4>(5).u<1>(1);
        }
        stream.sps().num_short_term_ref_pic_sets = 1;
        EXPECT_TRUE(stream.parse(slice, bits, static_cast<h265_nal_unit_type>(type)));
        EXPECT_EQ(slice.slice_pic_order_cnt_lsb, idr ? 204U : 5U) << type;
        EXPECT_EQ(slice.CurrRpsIdx, idr ? 1U : 205U) << type;
    }
}

TEST(H265SliceSegmentHeader, SkipsLongTermPicturesOfIdrPictures) {
    host stream;
    stream.sps().long_term_ref_pics_present_flag = true;
    stream.sps().num_long_term_ref_pics_sps = 0;
    stream.sps().sps_temporal_mvp_enabled_flag = true;
    h265_slice_segment_header slice = used_record();
    slice.dependent_slice_segment_flag = false;
    EXPECT_TRUE(stream.parse(slice, first_irap_segment().ue(slice_i), IDR_N_LP));
    EXPECT_EQ(slice.lt_idx_sps, (values{206, 207}));
    EXPECT_TRUE(slice.slice_temporal_mvp_enabled_flag);
}

TEST(H265SliceSegmentHeader, TakesTheBitLengthOfTheNumberOfSetsForTheirIndex) {
    struct count_width {
        unsigned int num_short_term_ref_pic_sets;
        unsigned int width;
    };
    constexpr count_width rows[] = {{2, 2},  {3, 2},  {4, 3},  {7, 3},   {8, 4},
                                    {15, 4}, {16, 5}, {64, 7}, {128, 8}, {0xFFFFFFFF, 32}};
    for (const auto& row : rows) {
        host stream;
        stream.sps().num_short_term_ref_pic_sets = row.num_short_term_ref_pic_sets;
        const unsigned int idx = 0x9A5C63E1 >> (32 - row.width);
        const auto slice = stream.parsed(first_segment_up_to_sps_set(slice_i).u(row.width, idx));
        EXPECT_EQ(slice.short_term_ref_pic_set_idx, idx);
        EXPECT_EQ(slice.CurrRpsIdx, idx);
        EXPECT_EQ(slice.slice_pic_order_cnt_lsb, 9U);
    }
}

TEST(H265SliceSegmentHeader, KeepsTheIndexOfUpToOneSetAndGoesByIt) {
    for (const unsigned int sets : {0U, 1U}) {
        host stream;
        stream.sps().num_short_term_ref_pic_sets = sets;
        EXPECT_EQ(stream.parsed(first_segment_up_to_sps_set(slice_i)).CurrRpsIdx, 0U);

        h265_slice_segment_header slice;
        slice.short_term_ref_pic_set_idx = 11;
        EXPECT_TRUE(stream.parse(slice, first_segment_up_to_sps_set(slice_i)));
        EXPECT_EQ(slice.short_term_ref_pic_set_idx, 11U);
        EXPECT_EQ(slice.CurrRpsIdx, 11U);
    }
}

TEST(H265SliceSegmentHeader, ReadsASetOfItsOwn) {
    host stream;
    stream.sps().num_short_term_ref_pic_sets = 1;
    stream.sps().st_ref_pic_set.resize(1);
    test::bit_writer bits = first_segment().ue(slice_i).u<4>(9).u<1>(0);
    bits.u<1>(0).ue(2).ue(1);                        // inter_ref_pic_set_prediction_flag, counts
    bits.ue(3).u<1>(1).ue(4).u<1>(0).ue(5).u<1>(1);  // delta_poc_sX_minus1, flag
    const auto slice = stream.parsed(bits);
    EXPECT_FALSE(slice.short_term_ref_pic_set_sps_flag);
    h265_st_ref_pic_set expected = set_using({true, false}, {true});
    expected.stRpsIdx = 1;
    expected.RefRpsIdx = 1;
    expected.NumDeltaPocs = 3;
    expected.delta_poc_s0_minus1 = {3, 4};
    expected.delta_poc_s1_minus1 = {5};
    expected.valid = true;
    EXPECT_TRUE(test::same_fields(slice.st_ref_pic_set, expected));
    EXPECT_EQ(slice.CurrRpsIdx, 1U);
    EXPECT_EQ(slice.short_term_ref_pic_set_idx, 0U);
}

TEST(H265SliceSegmentHeader, ReadsASetOfItsOwnWithoutAnyInTheSps) {
    host stream;
    const auto slice = stream.parsed(first_segment().ue(slice_i).u<4>(9).u<1>(0).ue(0).ue(0));
    EXPECT_TRUE(slice.st_ref_pic_set.valid);
    EXPECT_EQ(slice.st_ref_pic_set.stRpsIdx, 0U);
    EXPECT_EQ(slice.CurrRpsIdx, 0U);
}

// The SPS has an explicit set of three pictures and one of none.
TEST(H265SliceSegmentHeader, PredictsItsSetFromTheOneItNames) {
    host stream;
    stream.sps().num_short_term_ref_pic_sets = 2;
    stream.sps().st_ref_pic_set = {set_using({true, false}, {true}), h265_st_ref_pic_set()};
    stream.sps().st_ref_pic_set[0].NumDeltaPocs = 3;
    test::bit_writer bits = first_segment().ue(slice_i).u<4>(9).u<1>(0);
    bits.u<1>(1).ue(1).u<1>(0).ue(2);              // flag, delta_idx_minus1, sign, delta
    bits.u<1>(1).u<1>(0).u<1>(1).u<2>(0).u<1>(1);  // four pairs
    const auto slice = stream.parsed(bits);
    EXPECT_EQ(slice.st_ref_pic_set.RefRpsIdx, 0U);
    EXPECT_EQ(slice.st_ref_pic_set.used_by_curr_pic_flag, (flags{true, false, false, true}));
    EXPECT_EQ(slice.st_ref_pic_set.use_delta_flag, (flags{true, true, false, true}));
    EXPECT_EQ(slice.CurrRpsIdx, 2U);

    bits = first_segment().ue(slice_i).u<4>(9).u<1>(0);
    bits.u<1>(1).ue(0).u<1>(0).ue(2).u<1>(1);
    EXPECT_EQ(stream.parsed(bits).st_ref_pic_set.RefRpsIdx, 1U);
}

TEST(H265SliceSegmentHeader, FailsWhenItsSetCannotBeRead) {
    host stream;
    stream.sps().num_short_term_ref_pic_sets = 1;
    stream.sps().st_ref_pic_set.resize(1);
    h265_slice_segment_header slice = used_record();
    slice.dependent_slice_segment_flag = false;
    test::bit_writer bits = first_segment().ue(slice_p).u<4>(9).u<1>(0);
    bits.u<1>(0).ue(129).ue(0);
    EXPECT_FALSE(stream.parse(slice, bits));
    EXPECT_FALSE(slice.st_ref_pic_set.valid);
    EXPECT_EQ(slice.st_ref_pic_set.num_negative_pics, 129U);
    EXPECT_EQ(slice.CurrRpsIdx, 1U);
    EXPECT_EQ(slice.NumPicTotalCurr, 0U);
    EXPECT_EQ(slice.slice_type, slice_p);

    // delta_idx_minus1 1 is one too many.
    bits = first_segment().ue(slice_p).u<4>(9).u<1>(0);
    bits.u<1>(1).ue(1).u<1>(0).ue(0);
    EXPECT_FALSE(stream.parse(slice, bits));
}

// ---- Long-term pictures

// A host whose SPS has this many long-term pictures.
host host_with_long_term(unsigned int num_long_term_ref_pics_sps) {
    host stream;
    stream.sps().long_term_ref_pics_present_flag = true;
    stream.sps().num_long_term_ref_pics_sps = num_long_term_ref_pics_sps;
    return stream;
}

TEST(H265SliceSegmentHeader, LeavesLongTermPicturesAloneWithoutTheFlag) {
    host stream;
    stream.sps().num_long_term_ref_pics_sps = 3;
    stream.sps().sps_temporal_mvp_enabled_flag = true;
    h265_slice_segment_header slice = used_record();
    slice.dependent_slice_segment_flag = false;
    EXPECT_TRUE(stream.parse(slice, first_segment_up_to_sps_set(slice_i)));
    EXPECT_EQ(slice.num_long_term_sps, 1U);
    EXPECT_EQ(slice.num_long_term_pics, 1U);
    EXPECT_EQ(slice.lt_idx_sps, (values{206, 207}));
    EXPECT_EQ(slice.delta_poc_msb_cycle_lt, (values{210, 211}));
    EXPECT_TRUE(slice.slice_temporal_mvp_enabled_flag);
}

TEST(H265SliceSegmentHeader, ReadsEveryLongTermElement) {
    host stream = host_with_long_term(5);
    test::bit_writer bits = first_segment_up_to_sps_set(slice_i);
    bits.ue(2).ue(2);                     // num_long_term_sps, num_long_term_pics
    bits.u<3>(4).u<1>(0);                 // lt_idx_sps[0], delta_poc_msb_present_flag[0]
    bits.u<3>(7).u<1>(1).ue(6);           // and delta_poc_msb_cycle_lt[1]
    bits.u<4>(13).u<1>(1).u<1>(1).ue(8);  // poc_lsb_lt[2], used_by_curr_pic_lt_flag[2], ...
    bits.u<4>(14).u<1>(0).u<1>(0);
    const auto slice = stream.parsed(bits);
    EXPECT_EQ(slice.num_long_term_sps, 2U);
    EXPECT_EQ(slice.num_long_term_pics, 2U);
    EXPECT_EQ(slice.lt_idx_sps, (values{4, 7, 0, 0}));
    EXPECT_EQ(slice.poc_lsb_lt, (values{0, 0, 13, 14}));
    EXPECT_EQ(slice.used_by_curr_pic_lt_flag, (flags{false, false, true, false}));
    EXPECT_EQ(slice.delta_poc_msb_present_flag, (flags{false, true, true, false}));
    EXPECT_EQ(slice.delta_poc_msb_cycle_lt, (values{0, 6, 8, 0}));
}

TEST(H265SliceSegmentHeader, TakesTheBitLengthOfTheLongTermPicturesForTheirIndex) {
    struct count_width {
        unsigned int num_long_term_ref_pics_sps;
        unsigned int width;
    };
    constexpr count_width rows[] = {{2, 2},  {3, 2},  {4, 3},  {7, 3},  {8, 4},
                                    {15, 4}, {16, 5}, {32, 6}, {33, 6}, {128, 8}};
    for (const auto& row : rows) {
        host stream = host_with_long_term(row.num_long_term_ref_pics_sps);
        const unsigned int idx = 0x9A5C63E1 >> (32 - row.width);
        test::bit_writer bits = first_segment_up_to_sps_set(slice_i);
        bits.ue(1).ue(0).u(row.width, idx).u<1>(0);
        EXPECT_EQ(stream.parsed(bits).lt_idx_sps, values{idx}) << row.num_long_term_ref_pics_sps;
    }
}

TEST(H265SliceSegmentHeader, ReadsNoIndexOfASingleLongTermPicture) {
    host stream = host_with_long_term(1);
    test::bit_writer bits = first_segment_up_to_sps_set(slice_i);
    bits.ue(1).ue(0).u<1>(1).ue(3);
    const auto slice = stream.parsed(bits);
    EXPECT_EQ(slice.lt_idx_sps, values{0});
    EXPECT_EQ(slice.delta_poc_msb_cycle_lt, values{3});
}

TEST(H265SliceSegmentHeader, TakesPocLsbLtAsWideAsPicOrderCntLsb) {
    host stream = host_with_long_term(1);
    stream.sps().log2_max_pic_order_cnt_lsb_minus4 = 12;
    test::bit_writer bits = first_segment().ue(slice_i).u<16>(0x1234).u<1>(1);
    bits.ue(0).ue(1).u<16>(0xFEDC).u<1>(0).u<1>(0);
    const auto slice = stream.parsed(bits);
    EXPECT_EQ(slice.slice_pic_order_cnt_lsb, 0x1234U);
    EXPECT_EQ(slice.poc_lsb_lt, values{0xFEDC});
}

TEST(H265SliceSegmentHeader, FailsAfterNumLongTermPicsWhenTheSpsHasNone) {
    for (const unsigned int num_long_term_pics : {0U, 1U, 3U}) {
        host stream = host_with_long_term(0);
        h265_slice_segment_header slice;
        EXPECT_FALSE(
            stream.parse(slice, first_segment_up_to_sps_set(slice_i).ue(num_long_term_pics)));
        EXPECT_EQ(slice.num_long_term_pics, num_long_term_pics);
        EXPECT_EQ(slice.poc_lsb_lt, values(num_long_term_pics));
        EXPECT_EQ(slice.lt_idx_sps, values(num_long_term_pics));
        EXPECT_EQ(slice.used_by_curr_pic_lt_flag, flags(num_long_term_pics));
        EXPECT_EQ(slice.delta_poc_msb_present_flag, flags(num_long_term_pics));
        EXPECT_EQ(slice.delta_poc_msb_cycle_lt, values(num_long_term_pics));
    }
}

TEST(H265SliceSegmentHeader, CountsAnEarlierNumLongTermSpsThatIsNotRead) {
    host stream = host_with_long_term(0);
    h265_slice_segment_header slice = used_record();
    slice.dependent_slice_segment_flag = false;
    EXPECT_FALSE(stream.parse(slice, first_segment_up_to_sps_set(slice_i).ue(2)));
    EXPECT_EQ(slice.num_long_term_sps, 1U);
    EXPECT_EQ(slice.num_long_term_pics, 2U);
    EXPECT_EQ(slice.lt_idx_sps, (values{0, 207, 0}));
    EXPECT_EQ(slice.poc_lsb_lt, (values{0, 209, 0}));
    EXPECT_EQ(slice.used_by_curr_pic_lt_flag, (flags{false, true, false}));
    EXPECT_EQ(slice.delta_poc_msb_present_flag, (flags{false, true, false}));
    EXPECT_EQ(slice.delta_poc_msb_cycle_lt, (values{0, 211, 0}));
}

TEST(H265SliceSegmentHeader, ClearsOnlyEntry0OfTheLongTermArrays) {
    host stream = host_with_long_term(1);
    h265_slice_segment_header slice = used_record();
    slice.dependent_slice_segment_flag = false;
    test::bit_writer bits = first_segment_up_to_sps_set(slice_i);
    bits.ue(2).ue(1);              // num_long_term_sps, num_long_term_pics
    bits.u<1>(0).u<1>(0);          // delta_poc_msb_present_flag[0], [1]
    bits.u<4>(3).u<1>(0).u<1>(0);  // poc_lsb_lt[2], used_by_curr_pic_lt_flag[2], flag[2]
    EXPECT_TRUE(stream.parse(slice, bits));
    EXPECT_EQ(slice.lt_idx_sps, (values{0, 207, 0}));
    EXPECT_EQ(slice.poc_lsb_lt, (values{0, 209, 3}));
    EXPECT_EQ(slice.used_by_curr_pic_lt_flag, (flags{false, true, false}));
    EXPECT_EQ(slice.delta_poc_msb_present_flag, (flags{false, false, false}));
    EXPECT_EQ(slice.delta_poc_msb_cycle_lt, (values{0, 211, 0}));
}

TEST(H265SliceSegmentHeader, DropsSurplusLongTermEntries) {
    host stream = host_with_long_term(1);
    h265_slice_segment_header slice = used_record();
    slice.dependent_slice_segment_flag = false;
    EXPECT_TRUE(stream.parse(slice, first_segment_up_to_sps_set(slice_i).ue(1).ue(0).u<1>(0)));
    EXPECT_EQ(slice.lt_idx_sps, values{0});
    EXPECT_EQ(slice.poc_lsb_lt, values{0});
    EXPECT_EQ(slice.used_by_curr_pic_lt_flag, flags{false});
    EXPECT_EQ(slice.delta_poc_msb_present_flag, flags{false});
    EXPECT_EQ(slice.delta_poc_msb_cycle_lt, values{0});
}

TEST(H265SliceSegmentHeader, EmptiesTheLongTermArraysWhenThereAreNoPictures) {
    host stream = host_with_long_term(1);
    h265_slice_segment_header slice = used_record();
    slice.dependent_slice_segment_flag = false;
    EXPECT_TRUE(stream.parse(slice, first_segment_up_to_sps_set(slice_i).ue(0).ue(0)));
    EXPECT_TRUE(slice.lt_idx_sps.empty());
    EXPECT_TRUE(slice.poc_lsb_lt.empty());
    EXPECT_TRUE(slice.used_by_curr_pic_lt_flag.empty());
    EXPECT_TRUE(slice.delta_poc_msb_present_flag.empty());
    EXPECT_TRUE(slice.delta_poc_msb_cycle_lt.empty());
}

TEST(H265SliceSegmentHeader, AddsTheLongTermCountsIn32Bits) {
    host stream = host_with_long_term(3);
    test::bit_writer bits = first_segment_up_to_sps_set(slice_i);
    bits.ue(0xFFFFFFFE).ue(4);  // two pictures
    bits.u<2>(1).u<1>(0).u<2>(2).u<1>(1).ue(5);
    const auto slice = stream.parsed(bits);
    EXPECT_EQ(slice.num_long_term_sps, 0xFFFFFFFEU);
    EXPECT_EQ(slice.lt_idx_sps, (values{1, 2}));
    EXPECT_EQ(slice.delta_poc_msb_cycle_lt, (values{0, 5}));
}

TEST(H265SliceSegmentHeader, ReadsTemporalMvpFlagAfterLongTermPicturesOnly) {
    host stream = host_with_long_term(1);
    stream.sps().sps_temporal_mvp_enabled_flag = true;
    stream.sps().sample_adaptive_offset_enabled_flag = true;
    test::bit_writer bits = first_segment_up_to_sps_set(slice_i).ue(0).ue(0);
    auto slice = stream.parsed(test::bit_writer(bits).u<1>(1).u<1>(0).u<1>(1));
    EXPECT_TRUE(slice.slice_temporal_mvp_enabled_flag);
    EXPECT_FALSE(slice.slice_sao_luma_flag);
    EXPECT_TRUE(slice.slice_sao_chroma_flag);
    EXPECT_TRUE(stream.parse(slice, test::bit_writer(bits).u<1>(0).u<1>(1).u<1>(0)));
    EXPECT_FALSE(slice.slice_temporal_mvp_enabled_flag);

    stream.sps().sps_temporal_mvp_enabled_flag = false;
    slice.slice_temporal_mvp_enabled_flag = true;
    EXPECT_TRUE(stream.parse(slice, test::bit_writer(bits).u<1>(0).u<1>(1)));
    EXPECT_TRUE(slice.slice_temporal_mvp_enabled_flag);
    EXPECT_FALSE(slice.slice_sao_luma_flag);

    stream.sps().sps_temporal_mvp_enabled_flag = true;
    stream.sps().long_term_ref_pics_present_flag = false;
    slice = stream.parsed(first_segment_up_to_sps_set(slice_i).u<1>(1).u<1>(0));
    EXPECT_FALSE(slice.slice_temporal_mvp_enabled_flag);
    EXPECT_TRUE(slice.slice_sao_luma_flag);
    EXPECT_FALSE(slice.slice_sao_chroma_flag);
}

// ---- Sample adaptive offset, the end of an I slice

TEST(H265SliceSegmentHeader, ReadsSaoFlagsWhereTheSpsHasThem) {
    struct sps_flags {
        bool sample_adaptive_offset_enabled_flag;
        bool separate_colour_plane_flag;
        unsigned int chroma_format_idc;
        unsigned int read;
    };
    constexpr sps_flags rows[] = {
        {false, false, 1, 0}, {true, false, 0, 1}, {true, false, 1, 2}, {true, false, 2, 2},
        {true, false, 3, 2},  {true, true, 3, 1},  {true, true, 0, 1},  {false, true, 3, 0},
    };
    for (const auto& row : rows) {
        for (const unsigned int value : {0U, 1U}) {
            host stream;
            stream.sps().sample_adaptive_offset_enabled_flag =
                row.sample_adaptive_offset_enabled_flag;
            stream.sps().separate_colour_plane_flag = row.separate_colour_plane_flag;
            stream.sps().chroma_format_idc = row.chroma_format_idc;
            test::bit_writer bits = first_irap_segment().ue(slice_i);
            if (row.separate_colour_plane_flag) {
                bits.u<2>(0);
            }
            for (unsigned int i = 0; i < row.read; ++i) {
                bits.u<1>(value);
            }
            h265_slice_segment_header slice;
            slice.slice_sao_luma_flag = value == 0;
            slice.slice_sao_chroma_flag = value == 0;
            EXPECT_TRUE(stream.parse(slice, bits, IDR_W_RADL));
            EXPECT_EQ(slice.slice_sao_luma_flag, (row.read > 0) == (value == 1));
            EXPECT_EQ(slice.slice_sao_chroma_flag, (row.read > 1) == (value == 1));
        }
    }
}

TEST(H265SliceSegmentHeader, EndsAnISliceBeforeItsReferenceIndices) {
    for (const unsigned int slice_type : {2U, 3U, 0xFFFFFFFEU}) {
        host stream;
        stream.sps().sample_adaptive_offset_enabled_flag = true;
        stream.sps().num_short_term_ref_pic_sets = 1;
        stream.sps().st_ref_pic_set = {set_using({true, true}, {})};
        stream.pps().lists_modification_present_flag = true;
        stream.pps().num_ref_idx_l0_default_active_minus1 = 3;
        stream.pps().num_ref_idx_l1_default_active_minus1 = 4;
        h265_slice_segment_header slice = used_record();
        slice.dependent_slice_segment_flag = false;
        slice.short_term_ref_pic_set_idx = 0;
        EXPECT_TRUE(stream.parse(slice, first_segment_up_to_sps_set(slice_type).u<1>(1).u<1>(1)));
        EXPECT_EQ(slice.num_ref_idx_l0_active_minus1, 3U);
        EXPECT_EQ(slice.num_ref_idx_l1_active_minus1, 4U);
        EXPECT_EQ(slice.NumPicTotalCurr, 0U);
        EXPECT_EQ(slice.CurrRpsIdx, 0U);
        EXPECT_TRUE(slice.num_ref_idx_active_override_flag);
    }
}

// ---- Reference indices, NumPicTotalCurr

TEST(H265SliceSegmentHeader, OverridesTheReferenceIndicesOfThePps) {
    host stream;
    stream.pps().num_ref_idx_l0_default_active_minus1 = 3;
    stream.pps().num_ref_idx_l1_default_active_minus1 = 4;
    h265_slice_segment_header slice;
    EXPECT_TRUE(stream.parse(slice, first_segment_up_to_sps_set(slice_p).u<1>(1).ue(7)));
    EXPECT_TRUE(slice.num_ref_idx_active_override_flag);
    EXPECT_EQ(slice.num_ref_idx_l0_active_minus1, 7U);
    EXPECT_EQ(slice.num_ref_idx_l1_active_minus1, 4U);
    EXPECT_TRUE(stream.parse(slice, first_segment_up_to_sps_set(slice_b).u<1>(1).ue(8).ue(9)));
    EXPECT_EQ(slice.num_ref_idx_l0_active_minus1, 8U);
    EXPECT_EQ(slice.num_ref_idx_l1_active_minus1, 9U);
    EXPECT_TRUE(stream.parse(slice, first_segment_up_to_sps_set(slice_b).u<1>(0)));
    EXPECT_FALSE(slice.num_ref_idx_active_override_flag);
    EXPECT_EQ(slice.num_ref_idx_l0_active_minus1, 3U);
    EXPECT_EQ(slice.num_ref_idx_l1_active_minus1, 4U);
}

unsigned int pictures_with_sps_set(host& stream, const h265_st_ref_pic_set& set) {
    stream.sps().num_short_term_ref_pic_sets = 1;
    stream.sps().st_ref_pic_set = {set};
    return stream.parsed(first_segment_up_to_sps_set(slice_b).u<1>(0)).NumPicTotalCurr;
}

TEST(H265SliceSegmentHeader, CountsTheUsedPicturesOfTheSpsSet) {
    host stream;
    EXPECT_EQ(pictures_with_sps_set(stream, set_using({}, {})), 0U);
    EXPECT_EQ(pictures_with_sps_set(stream, set_using({true}, {})), 1U);
    EXPECT_EQ(pictures_with_sps_set(stream, set_using({}, {true, true})), 2U);
    EXPECT_EQ(pictures_with_sps_set(stream, set_using({true, false, true}, {false, true})), 3U);
    EXPECT_EQ(pictures_with_sps_set(stream, set_using(flags(128, true), flags(128, true))), 256U);
}

TEST(H265SliceSegmentHeader, TakesMissingFlagsOfASetForClear) {
    host stream;
    h265_st_ref_pic_set set = set_using({true, true}, {true});
    set.num_negative_pics = 0xFFFFFFFF;
    set.num_positive_pics = 0xFFFFFFFF;
    EXPECT_EQ(pictures_with_sps_set(stream, set), 3U);
    set.num_negative_pics = 1;
    set.num_positive_pics = 0;
    EXPECT_EQ(pictures_with_sps_set(stream, set), 1U);
}

TEST(H265SliceSegmentHeader, CountsNothingOfAPredictedSet) {
    host stream;
    h265_st_ref_pic_set set = set_using({true, true}, {true});
    set.inter_ref_pic_set_prediction_flag = true;
    set.num_negative_pics = 0;
    set.num_positive_pics = 0;
    set.used_by_curr_pic_flag = {true, true};
    set.use_delta_flag = {true, true};
    EXPECT_EQ(pictures_with_sps_set(stream, set), 0U);
}

TEST(H265SliceSegmentHeader, CountsTheSetThatTheIndexNames) {
    host stream;
    stream.sps().num_short_term_ref_pic_sets = 3;
    stream.sps().st_ref_pic_set = {set_using({true}, {}), set_using({true, true}, {}),
                                   set_using({true, true, true}, {})};
    h265_slice_segment_header slice;
    slice.st_ref_pic_set = set_using({true, true}, {true, true});
    for (const unsigned int idx : {0U, 1U, 2U}) {
        EXPECT_TRUE(stream.parse(slice, first_segment_up_to_sps_set(slice_p).u<2>(idx).u<1>(0)));
        EXPECT_EQ(slice.NumPicTotalCurr, idx + 1);
    }
    // Beyond the last one stands the set of the slice, here of an earlier one.
    EXPECT_TRUE(stream.parse(slice, first_segment_up_to_sps_set(slice_p).u<2>(3).u<1>(0)));
    EXPECT_EQ(slice.CurrRpsIdx, 3U);
    EXPECT_EQ(slice.NumPicTotalCurr, 4U);
}

TEST(H265SliceSegmentHeader, CountsNothingOfASetThatTheSpsHasNotGot) {
    host stream;
    stream.sps().num_short_term_ref_pic_sets = 3;
    stream.sps().st_ref_pic_set = {set_using({true}, {})};
    h265_slice_segment_header slice;
    slice.st_ref_pic_set = set_using({true, true}, {true, true});
    EXPECT_TRUE(stream.parse(slice, first_segment_up_to_sps_set(slice_p).u<2>(1).u<1>(0)));
    EXPECT_EQ(slice.NumPicTotalCurr, 0U);
    EXPECT_TRUE(stream.parse(slice, first_segment_up_to_sps_set(slice_p).u<2>(2).u<1>(0)));
    EXPECT_EQ(slice.NumPicTotalCurr, 0U);
    EXPECT_TRUE(stream.parse(slice, first_segment_up_to_sps_set(slice_p).u<2>(0).u<1>(0)));
    EXPECT_EQ(slice.NumPicTotalCurr, 1U);
}

TEST(H265SliceSegmentHeader, CountsTheUsedPicturesOfItsOwnSet) {
    host stream;
    test::bit_writer bits = first_segment().ue(slice_p).u<4>(9).u<1>(0);
    bits.ue(2).ue(1).ue(0).u<1>(1).ue(0).u<1>(0).ue(0).u<1>(1);
    bits.u<1>(0);  // num_ref_idx_active_override_flag
    EXPECT_EQ(stream.parsed(bits).NumPicTotalCurr, 2U);
}

TEST(H265SliceSegmentHeader, CountsAnEarlierSetOfItsOwnInAnIdrPicture) {
    host stream;
    h265_slice_segment_header slice;
    slice.st_ref_pic_set = set_using({true, true}, {true});
    EXPECT_TRUE(stream.parse(slice, first_irap_segment().ue(slice_p).u<1>(0), IDR_N_LP));
    EXPECT_EQ(slice.CurrRpsIdx, 0U);
    EXPECT_EQ(slice.NumPicTotalCurr, 3U);
}

TEST(H265SliceSegmentHeader, CountsLongTermPicturesByTheFlagsOfTheSps) {
    host stream = host_with_long_term(4);
    stream.sps().used_by_curr_pic_lt_sps_flag = {true, false, true, true};
    test::bit_writer bits = first_segment_up_to_sps_set(slice_p);
    bits.ue(1).ue(2);              // num_long_term_sps, num_long_term_pics
    bits.u<3>(1).u<1>(0);          // lt_idx_sps[0], of a picture that is not used
    bits.u<4>(0).u<1>(1).u<1>(0);  // used_by_curr_pic_lt_flag[1]
    bits.u<4>(0).u<1>(0).u<1>(0);  // used_by_curr_pic_lt_flag[2]
    bits.u<1>(0);
    EXPECT_EQ(stream.parsed(bits).NumPicTotalCurr, 2U);
}

TEST(H265SliceSegmentHeader, TakesMissingLongTermFlagsOfTheSpsForClear) {
    host stream = host_with_long_term(1);
    stream.sps().used_by_curr_pic_lt_sps_flag = {true};
    test::bit_writer bits = first_segment_up_to_sps_set(slice_p);
    bits.ue(0).ue(3);
    for (unsigned int i = 0; i < 3; ++i) {
        bits.u<4>(0).u<1>(1).u<1>(0);
    }
    EXPECT_EQ(stream.parsed(bits.u<1>(0)).NumPicTotalCurr, 1U);
}

TEST(H265SliceSegmentHeader, CountsEarlierLongTermPicturesThatAreNotRead) {
    host stream;
    stream.sps().used_by_curr_pic_lt_sps_flag = {true, true, true};
    h265_slice_segment_header slice;
    slice.num_long_term_sps = 1;
    slice.num_long_term_pics = 1;
    EXPECT_TRUE(stream.parse(slice, first_segment_up_to_sps_set(slice_p).u<1>(0)));
    EXPECT_EQ(slice.NumPicTotalCurr, 2U);
    slice.num_long_term_sps = 0xFFFFFFFE;
    slice.num_long_term_pics = 5;
    EXPECT_TRUE(stream.parse(slice, first_segment_up_to_sps_set(slice_p).u<1>(0)));
    EXPECT_EQ(slice.NumPicTotalCurr, 3U);
    slice.num_long_term_pics = 0;
    EXPECT_TRUE(stream.parse(slice, first_segment_up_to_sps_set(slice_p).u<1>(0)));
    EXPECT_EQ(slice.NumPicTotalCurr, 3U);
}

TEST(H265SliceSegmentHeader, AddsShortTermAndLongTermPictures) {
    host stream = host_with_long_term(1);
    stream.sps().used_by_curr_pic_lt_sps_flag = {true};
    stream.sps().num_short_term_ref_pic_sets = 1;
    stream.sps().st_ref_pic_set = {set_using({true}, {true})};
    test::bit_writer bits = first_segment_up_to_sps_set(slice_b);
    bits.ue(1).ue(0).u<1>(0);
    EXPECT_EQ(stream.parsed(bits.u<1>(0)).NumPicTotalCurr, 3U);
}

// ---- List modification

TEST(H265SliceSegmentHeader, ReadsAListModificationOfMoreThanOnePicture) {
    for (std::size_t pictures = 0; pictures <= 3; ++pictures) {
        for (const bool present : {false, true}) {
            host stream;
            stream.pps().lists_modification_present_flag = present;
            stream.sps().num_short_term_ref_pic_sets = 1;
            stream.sps().st_ref_pic_set = {set_using(flags(pictures, true), {})};
            test::bit_writer bits = first_segment_up_to_sps_set(slice_p).u<1>(1).ue(1);
            const bool read = present && pictures > 1;
            if (read) {
                bits.u<1>(1).u<2>(1).u<2>(3);
            }
            h265_slice_segment_header slice;
            slice.ref_pic_lists_modification.list_entry_l0 = {8};
            EXPECT_TRUE(stream.parse(slice, bits));
            EXPECT_EQ(slice.ref_pic_lists_modification.valid, read);
            EXPECT_EQ(slice.ref_pic_lists_modification.list_entry_l0,
                      read ? (values{1, 3}) : values{8});
        }
    }
}

TEST(H265SliceSegmentHeader, ReadsBothListsOfABSlice) {
    host stream;
    stream.pps().lists_modification_present_flag = true;
    stream.pps().num_ref_idx_l1_default_active_minus1 = 2;
    stream.sps().num_short_term_ref_pic_sets = 1;
    stream.sps().st_ref_pic_set = {set_using({true, true}, {true, true})};
    test::bit_writer bits = first_segment_up_to_sps_set(slice_b).u<1>(0);
    bits.u<1>(1).u<3>(3);
    bits.u<1>(1).u<3>(2).u<3>(1).u<3>(0);
    const auto slice = stream.parsed(bits);
    EXPECT_EQ(slice.NumPicTotalCurr, 4U);
    EXPECT_EQ(slice.ref_pic_lists_modification.list_entry_l0, values{3});
    EXPECT_EQ(slice.ref_pic_lists_modification.list_entry_l1, (values{2, 1, 0}));
}

TEST(H265SliceSegmentHeader, ReadsAFullHeader) {
    host stream = host_with_long_term(3);
    stream.pps().dependent_slice_segments_enabled_flag = true;
    stream.pps().num_extra_slice_header_bits = 2;
    stream.pps().output_flag_present_flag = true;
    stream.pps().lists_modification_present_flag = true;
    stream.sps().pic_width_in_luma_samples = 640;
    stream.sps().pic_height_in_luma_samples = 360;  // 10 x 6 coding tree blocks
    stream.sps().separate_colour_plane_flag = true;
    stream.sps().log2_max_pic_order_cnt_lsb_minus4 = 4;
    stream.sps().num_short_term_ref_pic_sets = 1;
    stream.sps().st_ref_pic_set.resize(1);
    stream.sps().used_by_curr_pic_lt_sps_flag = {true, true, false};
    stream.sps().sps_temporal_mvp_enabled_flag = true;
    stream.sps().sample_adaptive_offset_enabled_flag = true;

    test::bit_writer bits;
    bits.u<1>(0).u<1>(1).ue(2);                            // a CRA picture
    bits.u<1>(0).u<6>(59);                                 // dependent flag, slice_segment_address
    bits.u<2>(0b10).ue(slice_b).u<1>(0).u<2>(1);           // extra, type, output, colour plane
    bits.u<8>(200).u<1>(0);                                // slice_pic_order_cnt_lsb
    bits.u<1>(0).ue(1).ue(1).ue(2).u<1>(1).ue(3).u<1>(0);  // st_ref_pic_set
    bits.ue(1).ue(1).u<2>(2).u<1>(0).u<8>(77).u<1>(1).u<1>(1).ue(9);
    bits.u<1>(1).u<1>(1);                          // temporal MVP, SAO of luma
    bits.u<1>(1).ue(1).ue(0);                      // num_ref_idx_lX_active_minus1
    bits.u<1>(1).u<2>(2).u<2>(1).u<1>(1).u<2>(3);  // lists
    const auto slice = stream.parsed(bits, CRA_NUT);

    h265_slice_segment_header expected;
    expected.no_output_of_prior_pics_flag = true;
    expected.slice_pic_parameter_set_id = 2;
    expected.slice_segment_address = 59;
    expected.slice_type = slice_b;
    expected.colour_plane_id = 1;
    expected.slice_pic_order_cnt_lsb = 200;
    expected.st_ref_pic_set = set_using({true}, {false});
    expected.st_ref_pic_set.stRpsIdx = 1;
    expected.st_ref_pic_set.RefRpsIdx = 1;
    expected.st_ref_pic_set.NumDeltaPocs = 2;
    expected.st_ref_pic_set.delta_poc_s0_minus1 = {2};
    expected.st_ref_pic_set.delta_poc_s1_minus1 = {3};
    expected.st_ref_pic_set.valid = true;
    expected.num_long_term_sps = 1;
    expected.num_long_term_pics = 1;
    expected.lt_idx_sps = {2, 0};
    expected.poc_lsb_lt = {0, 77};
    expected.used_by_curr_pic_lt_flag = {false, true};
    expected.delta_poc_msb_present_flag = {false, true};
    expected.delta_poc_msb_cycle_lt = {0, 9};
    expected.slice_temporal_mvp_enabled_flag = true;
    expected.slice_sao_luma_flag = true;
    expected.num_ref_idx_active_override_flag = true;
    expected.num_ref_idx_l0_active_minus1 = 1;
    expected.ref_pic_lists_modification.ref_pic_list_modification_flag_l0 = true;
    expected.ref_pic_lists_modification.list_entry_l0 = {2, 1};
    expected.ref_pic_lists_modification.ref_pic_list_modification_flag_l1 = true;
    expected.ref_pic_lists_modification.list_entry_l1 = {3};
    expected.ref_pic_lists_modification.valid = true;
    expected.NumPicTotalCurr = 3;
    expected.CurrRpsIdx = 1;
    expected.valid = true;
    EXPECT_TRUE(test::same_fields(slice, expected));
}

// ---- Texts

TEST(H265SliceSegmentHeader, NamesSliceTypes) {
    h265_slice_segment_header slice;
    constexpr std::string_view names[] = {"B", "P", "I", "?", "?"};
    for (unsigned int slice_type = 0; slice_type < 5; ++slice_type) {
        slice.slice_type = slice_type;
        EXPECT_EQ(slice.slice_type_to_str(), names[slice_type]);
    }
    slice.slice_type = 0xFFFFFFFF;
    EXPECT_EQ(slice.slice_type_to_str(), std::string_view("?"));
}

}  // namespace
}  // namespace kovran
