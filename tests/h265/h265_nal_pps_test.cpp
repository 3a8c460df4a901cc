#include <kovran/h265/h265_nal_pps.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <vector>

#include "support/allocation_failure.h"
#include "support/bit_writer.h"
#include "support/parameter_sets.h"
#include "support/rbsp.h"
#include "support/same_fields.h"

namespace kovran {
namespace {

using values = std::vector<unsigned int>;
using sps_store = h2645_common_base_store<h265_nal_sps>;

bool parse(h265_nal_pps& pps, const test::pps_syntax& syntax, unsigned int sps_id = 0) {
    sps_store store = test::sps_store_with(sps_id);
    const test::bit_writer bits = syntax.rbsp();
    test::rbsp input{bits.bytes()};
    const bool result = pps.parse(input.reader, store);
    if (result) {
        EXPECT_EQ(input.reader.bit_position(), bits.size());
    }
    EXPECT_EQ(pps.valid, result);
    EXPECT_EQ(store.size(), 1U);
    return result;
}

h265_nal_pps parsed(const test::pps_syntax& syntax) {
    h265_nal_pps pps;
    EXPECT_TRUE(parse(pps, syntax));
    return pps;
}

// tiles_enabled_flag and entropy_coding_sync_enabled_flag, the two counts, uniform_spacing_flag.
test::bit_writer tiles(unsigned int num_tile_columns_minus1, unsigned int num_tile_rows_minus1,
                       bool uniform_spacing_flag) {
    test::bit_writer bits;
    bits.u<1>(1).u<1>(0).ue(num_tile_columns_minus1).ue(num_tile_rows_minus1);
    return bits.u<1>(uniform_spacing_flag);
}

TEST(H265NalPps, ReadsEveryElementInItsPlace) {
    const test::sample<h265_nal_pps, test::pps_syntax> sample = test::full_pps();
    h265_nal_pps pps;
    EXPECT_TRUE(parse(pps, sample.syntax, 15));
    EXPECT_TRUE(test::same_fields(pps, sample.record));
}

TEST(H265NalPps, ReadsTheSmallest) {
    h265_nal_pps expected;
    expected.valid = true;
    EXPECT_TRUE(test::same_fields(parsed(test::pps_syntax()), expected));
}

TEST(H265NalPps, RejectsAnSpsThatIsNotInTheStore) {
    test::pps_syntax syntax;
    syntax.identifiers = test::bit_writer().ue(4).ue(3);
    const std::vector<unsigned char> bytes = syntax.rbsp().bytes();
    sps_store empty;
    sps_store others;
    others[2].valid = true;
    others[4].valid = true;
    for (sps_store* store : {&empty, &others}) {
        const std::size_t size_before = store->size();
        test::rbsp input{bytes};
        h265_nal_pps pps;
        pps.num_extra_slice_header_bits = 6;
        pps.valid = true;
        EXPECT_FALSE(pps.parse(input.reader, *store));
        EXPECT_EQ(input.reader.bit_position(), syntax.identifiers.size());
        EXPECT_FALSE(pps.valid);
        EXPECT_EQ(pps.pps_pic_parameter_set_id, 4U);
        EXPECT_EQ(pps.pps_seq_parameter_set_id, 3U);
        EXPECT_EQ(pps.num_extra_slice_header_bits, 6);
        EXPECT_EQ(store->size(), size_before);
    }
}

TEST(H265NalPps, RejectsAnSpsThatIsNotValid) {
    sps_store store = test::sps_store_with(0);
    store[0].valid = false;
    test::rbsp input{test::pps_syntax().rbsp().bytes()};
    h265_nal_pps pps;
    pps.valid = true;
    EXPECT_FALSE(pps.parse(input.reader, store));
    EXPECT_EQ(input.reader.bit_position(), 2U);
    EXPECT_FALSE(pps.valid);
    EXPECT_EQ(store.size(), 1U);
}

TEST(H265NalPps, TakesNothingFromItsSpsButValidAndLeavesItAlone) {
    sps_store store;
    store[15] = test::full_sps().record;
    store.active_id = 2;
    test::rbsp input{test::full_pps().syntax.rbsp().bytes()};
    h265_nal_pps pps;
    EXPECT_TRUE(pps.parse(input.reader, store));
    EXPECT_TRUE(test::same_fields(pps, test::full_pps().record));
    EXPECT_TRUE(test::same_fields(store[15], test::full_sps().record));
    EXPECT_EQ(store.active_id, 2U);
}

TEST(H265NalPps, AcceptsAnyIdentifier) {
    for (const unsigned int id : {15U, 16U, 63U, 64U, 0xFFFFFFFEU}) {
        test::pps_syntax syntax;
        syntax.identifiers = test::bit_writer().ue(id).ue(id);
        h265_nal_pps pps;
        EXPECT_TRUE(parse(pps, syntax, id));
        EXPECT_EQ(pps.pps_pic_parameter_set_id, id);
        EXPECT_EQ(pps.pps_seq_parameter_set_id, id);
    }
}

TEST(H265NalPps, ReadsTheSliceHeaderElementsInTheirOrder) {
    test::pps_syntax syntax;
    syntax.slice_header = test::bit_writer().u<1>(0).u<1>(1).u<3>(7).u<1>(0).u<1>(1);
    const h265_nal_pps pps = parsed(syntax);
    EXPECT_FALSE(pps.dependent_slice_segments_enabled_flag);
    EXPECT_TRUE(pps.output_flag_present_flag);
    EXPECT_EQ(pps.num_extra_slice_header_bits, 7);
    EXPECT_FALSE(pps.sign_data_hiding_enabled_flag);
    EXPECT_TRUE(pps.cabac_init_present_flag);
}

TEST(H265NalPps, AcceptsIndicesAndOffsetsOfAnyValue) {
    test::pps_syntax syntax;
    syntax.reference_indices = test::bit_writer().ue(0xFFFFFFFE).ue(15);
    syntax.init_qp_minus26 = test::bit_writer().se(-0x7FFFFFFF);
    syntax.chroma_qp_offsets = test::bit_writer().se(0x7FFFFFFF).se(-13).u<1>(0);
    syntax.lists_and_merge_level = test::bit_writer().u<1>(0).ue(0xFFFFFFFE).u<1>(0);
    const h265_nal_pps pps = parsed(syntax);
    EXPECT_EQ(pps.num_ref_idx_l0_default_active_minus1, 0xFFFFFFFEU);
    EXPECT_EQ(pps.num_ref_idx_l1_default_active_minus1, 15U);
    EXPECT_EQ(pps.init_qp_minus26, -0x7FFFFFFF);
    EXPECT_EQ(pps.pps_cb_qp_offset, 0x7FFFFFFF);
    EXPECT_EQ(pps.pps_cr_qp_offset, -13);
    EXPECT_EQ(pps.log2_parallel_merge_level_minus2, 0xFFFFFFFEU);
}

TEST(H265NalPps, ReadsFlagsInTheirOrder) {
    test::pps_syntax syntax;
    syntax.intra_and_transform_skip = test::bit_writer().u<1>(1).u<1>(0);
    syntax.weighting_and_bypass = test::bit_writer().u<1>(1).u<1>(0).u<1>(1);
    syntax.tiles = test::bit_writer().u<1>(0).u<1>(1);
    const h265_nal_pps pps = parsed(syntax);
    EXPECT_TRUE(pps.constrained_intra_pred_flag);
    EXPECT_FALSE(pps.transform_skip_enabled_flag);
    EXPECT_TRUE(pps.weighted_pred_flag);
    EXPECT_FALSE(pps.weighted_bipred_flag);
    EXPECT_TRUE(pps.transquant_bypass_enabled_flag);
    EXPECT_FALSE(pps.tiles_enabled_flag);
    EXPECT_TRUE(pps.entropy_coding_sync_enabled_flag);
}

TEST(H265NalPps, ReadsOrResetsTheDepthOfQpDeltas) {
    h265_nal_pps pps;
    test::pps_syntax with;
    with.cu_qp_delta = test::bit_writer().u<1>(1).ue(0xFFFFFFFE);
    EXPECT_TRUE(parse(pps, with));
    EXPECT_TRUE(pps.cu_qp_delta_enabled_flag);
    EXPECT_EQ(pps.diff_cu_qp_delta_depth, 0xFFFFFFFEU);

    EXPECT_TRUE(parse(pps, test::pps_syntax()));
    EXPECT_FALSE(pps.cu_qp_delta_enabled_flag);
    EXPECT_EQ(pps.diff_cu_qp_delta_depth, 0U);
}

TEST(H265NalPps, ReadsExplicitTileSizes) {
    test::pps_syntax syntax;
    syntax.tiles = tiles(1, 2, false);
    syntax.tiles.ue(9).ue(0xFFFFFFFE).ue(7).u<1>(1);
    const h265_nal_pps pps = parsed(syntax);
    EXPECT_TRUE(pps.tiles_enabled_flag);
    EXPECT_EQ(pps.num_tile_columns_minus1, 1U);
    EXPECT_EQ(pps.num_tile_rows_minus1, 2U);
    EXPECT_FALSE(pps.uniform_spacing_flag);
    EXPECT_EQ(pps.column_width_minus1, values({9}));
    EXPECT_EQ(pps.row_height_minus1, values({0xFFFFFFFE, 7}));
    EXPECT_TRUE(pps.loop_filter_across_tiles_enabled_flag);
}

TEST(H265NalPps, ReadsNoTileSizesOfASingleColumnAndRow) {
    test::pps_syntax syntax;
    syntax.tiles = tiles(0, 0, false).u<1>(1);
    h265_nal_pps pps;
    pps.column_width_minus1 = {1};
    pps.row_height_minus1 = {2, 3};
    EXPECT_TRUE(parse(pps, syntax));
    EXPECT_TRUE(pps.column_width_minus1.empty());
    EXPECT_TRUE(pps.row_height_minus1.empty());
    EXPECT_TRUE(pps.loop_filter_across_tiles_enabled_flag);
}

TEST(H265NalPps, ReadsUpTo128TileSizesEachWay) {
    test::pps_syntax syntax;
    syntax.tiles = tiles(128, 128, false);
    for (unsigned int i = 0; i < 256; ++i) {
        syntax.tiles.ue(i);
    }
    syntax.tiles.u<1>(0);
    const h265_nal_pps pps = parsed(syntax);
    ASSERT_EQ(pps.column_width_minus1.size(), 128U);
    ASSERT_EQ(pps.row_height_minus1.size(), 128U);
    EXPECT_EQ(pps.column_width_minus1.back(), 127U);
    EXPECT_EQ(pps.row_height_minus1.front(), 128U);
    EXPECT_EQ(pps.row_height_minus1.back(), 255U);
}

TEST(H265NalPps, RejectsMoreThan128TileColumnsBeforeReadingSizes) {
    for (const unsigned int num_tile_columns_minus1 : {129U, 0xFFFFFFFEU}) {
        test::pps_syntax syntax;
        syntax.tiles = tiles(num_tile_columns_minus1, 1, false).u<32>(0xFFFFFFFF);
        h265_nal_pps pps;
        pps.column_width_minus1 = {5};
        pps.row_height_minus1 = {6, 7};
        EXPECT_FALSE(parse(pps, syntax));
        EXPECT_EQ(pps.num_tile_columns_minus1, num_tile_columns_minus1);
        EXPECT_EQ(pps.num_tile_rows_minus1, 1U);
        EXPECT_EQ(pps.column_width_minus1, values({5}));
        EXPECT_EQ(pps.row_height_minus1, values({6, 7}));
    }
}

// What follows is whole, as if the sizes were no part of it.
TEST(H265NalPps, RejectsTooManyTilesWhateverFollows) {
    test::pps_syntax syntax;
    for (const auto& counts : {tiles(129, 0, false), tiles(0, 129, false)}) {
        syntax.tiles = counts;
        syntax.tiles.u<1>(1);  // loop_filter_across_tiles_enabled_flag
        h265_nal_pps pps;
        EXPECT_FALSE(parse(pps, syntax));
        EXPECT_FALSE(pps.valid);
    }
}

TEST(H265NalPps, RejectsMoreThan128TileRowsBeforeReadingSizes) {
    for (const unsigned int num_tile_rows_minus1 : {129U, 0xFFFFFFFEU}) {
        test::pps_syntax syntax;
        syntax.tiles = tiles(2, num_tile_rows_minus1, false).u<32>(0);
        h265_nal_pps pps;
        pps.column_width_minus1 = {5};
        pps.row_height_minus1 = {6, 7};
        EXPECT_FALSE(parse(pps, syntax));
        EXPECT_EQ(pps.num_tile_rows_minus1, num_tile_rows_minus1);
        EXPECT_EQ(pps.column_width_minus1, values({5, 0}));
        EXPECT_EQ(pps.row_height_minus1, values({6, 7}));
    }
}

TEST(H265NalPps, BoundsNoUniformTilesAndAllocatesNothing) {
    for (const unsigned int count : {0U, 129U, 1000U, 0xFFFFFFFEU}) {
        test::pps_syntax syntax;
        syntax.tiles = tiles(count, count, true).u<1>(1);
        sps_store store = test::sps_store_with(0);
        test::rbsp input{syntax.rbsp().bytes()};
        h265_nal_pps pps;
        const test::allocation_count count_of_parse;
        const bool result = pps.parse(input.reader, store);
        EXPECT_EQ(count_of_parse.allocations(), 0U);
        EXPECT_TRUE(result);
        EXPECT_EQ(pps.num_tile_columns_minus1, count);
        EXPECT_EQ(pps.num_tile_rows_minus1, count);
        EXPECT_TRUE(pps.uniform_spacing_flag);
        EXPECT_TRUE(pps.column_width_minus1.empty());
        EXPECT_TRUE(pps.row_height_minus1.empty());
        EXPECT_TRUE(pps.loop_filter_across_tiles_enabled_flag);
    }
}

TEST(H265NalPps, LeavesTheTileSizesUnderUniformSpacing) {
    h265_nal_pps pps = test::full_pps().record;
    test::pps_syntax syntax;
    syntax.tiles = tiles(4, 5, true).u<1>(0);
    EXPECT_TRUE(parse(pps, syntax));
    EXPECT_EQ(pps.num_tile_columns_minus1, 4U);
    EXPECT_EQ(pps.num_tile_rows_minus1, 5U);
    EXPECT_EQ(pps.column_width_minus1, values({31, 32}));
    EXPECT_EQ(pps.row_height_minus1, values({33, 34, 35}));
    EXPECT_FALSE(pps.loop_filter_across_tiles_enabled_flag);
}

TEST(H265NalPps, ReadsDeblockingOffsetsUnlessDisabled) {
    test::pps_syntax with;
    with.deblocking = test::bit_writer().u<1>(1).u<1>(0).u<1>(0).se(0x7FFFFFFF).se(-0x7FFFFFFF);
    const h265_nal_pps offsets = parsed(with);
    EXPECT_TRUE(offsets.deblocking_filter_control_present_flag);
    EXPECT_FALSE(offsets.deblocking_filter_override_enabled_flag);
    EXPECT_FALSE(offsets.pps_deblocking_filter_disabled_flag);
    EXPECT_EQ(offsets.pps_beta_offset_div2, 0x7FFFFFFF);
    EXPECT_EQ(offsets.pps_tc_offset_div2, -0x7FFFFFFF);

    h265_nal_pps disabled = offsets;
    test::pps_syntax without;
    without.deblocking = test::bit_writer().u<1>(1).u<1>(1).u<1>(1);
    EXPECT_TRUE(parse(disabled, without));
    EXPECT_TRUE(disabled.deblocking_filter_override_enabled_flag);
    EXPECT_TRUE(disabled.pps_deblocking_filter_disabled_flag);
    EXPECT_EQ(disabled.pps_beta_offset_div2, 0x7FFFFFFF);
    EXPECT_EQ(disabled.pps_tc_offset_div2, -0x7FFFFFFF);
}

TEST(H265NalPps, ReadsLoopFilterAcrossSlicesWithOrWithoutTiles) {
    test::pps_syntax syntax;
    syntax.loop_filter_across_slices = test::bit_writer().u<1>(1);
    EXPECT_TRUE(parsed(syntax).pps_loop_filter_across_slices_enabled_flag);
    syntax.tiles = tiles(1, 1, true).u<1>(0);
    EXPECT_TRUE(parsed(syntax).pps_loop_filter_across_slices_enabled_flag);
    EXPECT_FALSE(parsed(syntax).loop_filter_across_tiles_enabled_flag);
}

TEST(H265NalPps, ReadsScalingLists) {
    const test::sample<h265_scaling_list_data> lists = test::full_scaling_list_data();
    test::pps_syntax syntax;
    test::append(syntax.scaling_list = test::bit_writer().u<1>(1), lists.syntax);
    const h265_nal_pps pps = parsed(syntax);
    EXPECT_TRUE(pps.pps_scaling_list_data_present_flag);
    EXPECT_TRUE(test::same_fields(pps.scaling_list_data, lists.record));
}

TEST(H265NalPps, ReadsListsAndHeaderExtensionFlags) {
    test::pps_syntax lists;
    lists.lists_and_merge_level = test::bit_writer().u<1>(1).ue(0).u<1>(0);
    EXPECT_TRUE(parsed(lists).lists_modification_present_flag);
    EXPECT_FALSE(parsed(lists).slice_segment_header_extension_present_flag);

    test::pps_syntax header;
    header.lists_and_merge_level = test::bit_writer().u<1>(0).ue(3).u<1>(1);
    EXPECT_FALSE(parsed(header).lists_modification_present_flag);
    EXPECT_EQ(parsed(header).log2_parallel_merge_level_minus2, 3U);
    EXPECT_TRUE(parsed(header).slice_segment_header_extension_present_flag);
}

TEST(H265NalPps, PassesOverItsExtension) {
    for (unsigned int length = 0; length <= 40; ++length) {
        test::pps_syntax syntax;
        syntax.extension = test::bit_writer().u<1>(1).u(length, 0x96C3A55A11 >> (40 - length));
        EXPECT_TRUE(parsed(syntax).pps_extension_present_flag);
    }
}

TEST(H265NalPps, PassesOverARangeExtension) {
    test::pps_syntax syntax;
    syntax.extension = test::bit_writer().u<1>(1);
    syntax.extension.u<1>(1).u<1>(0).u<1>(0).u<1>(0).u<4>(0);  // pps_range_extension_flag, others
    syntax.extension.u<1>(1).u<1>(1).ue(0).ue(1);              // up to chroma_qp_offset_list_len
    syntax.extension.se(-3).se(4).se(5).se(-6);                // cb_qp_offset_list, cr_...
    syntax.extension.ue(0).ue(1);                              // SAO offset scales
    h265_nal_pps expected;
    expected.pps_extension_present_flag = true;
    expected.valid = true;
    EXPECT_TRUE(test::same_fields(parsed(syntax), expected));
}

TEST(H265NalPps, KeepsWhatIsAbsentNow) {
    const test::sample<h265_nal_pps, test::pps_syntax> sample = test::full_pps();
    h265_nal_pps pps = sample.record;
    test::pps_syntax syntax = sample.syntax;
    syntax.cu_qp_delta = test::bit_writer().u<1>(0);
    syntax.tiles = test::bit_writer().u<1>(0).u<1>(0);
    syntax.deblocking = test::bit_writer().u<1>(0);
    syntax.scaling_list = test::bit_writer().u<1>(0);
    syntax.extension = test::bit_writer().u<1>(0);
    EXPECT_TRUE(parse(pps, syntax, 15));

    h265_nal_pps expected = sample.record;
    expected.cu_qp_delta_enabled_flag = false;
    expected.diff_cu_qp_delta_depth = 0;
    expected.tiles_enabled_flag = false;
    expected.deblocking_filter_control_present_flag = false;
    expected.pps_scaling_list_data_present_flag = false;
    expected.pps_extension_present_flag = false;
    EXPECT_TRUE(test::same_fields(pps, expected));
}

TEST(H265NalPps, RejectsAMissingStopBit) {
    sps_store store = test::sps_store_with(0);
    test::rbsp input{test::pps_syntax().payload().bytes()};
    h265_nal_pps pps;
    pps.valid = true;
    EXPECT_FALSE(pps.parse(input.reader, store));
    EXPECT_FALSE(pps.valid);
}

TEST(H265NalPps, RejectsAlignmentBitsThatAreNotZero) {
    test::bit_writer bits = test::pps_syntax().payload().u<1>(1);
    ASSERT_NE(bits.size() % 8, 0U);
    while (bits.size() % 8 != 7) {
        bits.u<1>(0);
    }
    sps_store store = test::sps_store_with(0);
    test::rbsp input{bits.u<1>(1).bytes()};
    h265_nal_pps pps;
    EXPECT_FALSE(pps.parse(input.reader, store));
    EXPECT_FALSE(pps.valid);
}

TEST(H265NalPps, IsUsableAfterAFailure) {
    h265_nal_pps pps;
    test::pps_syntax bad;
    bad.tiles = tiles(129, 0, false);
    EXPECT_FALSE(parse(pps, bad));
    EXPECT_TRUE(parse(pps, test::pps_syntax()));
    EXPECT_FALSE(pps.tiles_enabled_flag);
    EXPECT_EQ(pps.num_tile_columns_minus1, 129U);
}

TEST(H265NalPps, RejectsAnEmptyInput) {
    sps_store store;
    store[0xFFFF].valid = true;
    store[0].valid = true;
    test::rbsp input{};
    h265_nal_pps pps;
    EXPECT_FALSE(pps.parse(input.reader, store));
    EXPECT_FALSE(pps.valid);
}

}  // namespace
}  // namespace kovran
