#include <kovran/h265/sei/h265_nal_sei_inter_layer_constrained_tile_sets.h>

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "support/sei_payload.h"
#include "support/sei_record_parsing.h"

namespace kovran {
namespace {

TEST(H265NalSeiInterLayerConstrainedTileSets, LeavesASetOut) {
    const auto tiles = test::record_of<h265_nal_sei_inter_layer_constrained_tile_sets>(
        "0 0 011 1 0001000 010 1 00100 00110 0001010 10 1 1 1 0001101 000011111 01 0",
        "il_all_tiles_exact_sample_value_match_flag 0\n"
        "il_one_tile_per_tile_set_flag 0\n"
        "il_num_sets_in_message_minus1 2\n"
        "skipped_tile_set_present_flag 1\n"
        "ilcts_id[0] 7\n"
        "il_num_tile_rects_in_set_minus1[0] 1\n"
        "il_top_left_tile_idx[0][0] 0\n"
        "il_bottom_right_tile_idx[0][0] 3\n"
        "il_top_left_tile_idx[0][1] 5\n"
        "il_bottom_right_tile_idx[0][1] 9\n"
        "ilc_idc[0] 2\n"
        "il_exact_sample_value_match_flag[0] 1\n"
        "ilcts_id[1] 0\n"
        "il_num_tile_rects_in_set_minus1[1] 0\n"
        "il_top_left_tile_idx[1][0] 12\n"
        "il_bottom_right_tile_idx[1][0] 30\n"
        "ilc_idc[1] 1\n"
        "il_exact_sample_value_match_flag[1] 0\n");
    EXPECT_FALSE(tiles.il_all_tiles_exact_sample_value_match_flag);
    EXPECT_EQ(tiles.il_num_sets_in_message_minus1, 2U);
    EXPECT_TRUE(tiles.skipped_tile_set_present_flag);
    ASSERT_EQ(tiles.tile_sets.size(), 2U);
    EXPECT_EQ(tiles.tile_sets[0].ilcts_id, 7U);
    EXPECT_EQ(tiles.tile_sets[0].il_top_left_tile_idx, (std::vector<unsigned int>{0, 5}));
    EXPECT_EQ(tiles.tile_sets[0].il_bottom_right_tile_idx, (std::vector<unsigned int>{3, 9}));
    EXPECT_EQ(tiles.tile_sets[0].ilc_idc, 2);
    EXPECT_TRUE(tiles.tile_sets[0].il_exact_sample_value_match_flag);
    EXPECT_EQ(tiles.tile_sets[1].il_bottom_right_tile_idx, std::vector<unsigned int>{30});
    EXPECT_FALSE(tiles.tile_sets[1].il_exact_sample_value_match_flag);
}

TEST(H265NalSeiInterLayerConstrainedTileSets, MatchesAllSamples) {
    const auto tiles = test::record_of<h265_nal_sei_inter_layer_constrained_tile_sets>(
        "1 0 010 0 010 1 1 1 11 011 1 010 010 00",
        "il_all_tiles_exact_sample_value_match_flag 1\n"
        "il_one_tile_per_tile_set_flag 0\n"
        "il_num_sets_in_message_minus1 1\n"
        "skipped_tile_set_present_flag 0\n"
        "ilcts_id[0] 1\n"
        "il_num_tile_rects_in_set_minus1[0] 0\n"
        "il_top_left_tile_idx[0][0] 0\n"
        "il_bottom_right_tile_idx[0][0] 0\n"
        "ilc_idc[0] 3\n"
        "ilcts_id[1] 2\n"
        "il_num_tile_rects_in_set_minus1[1] 0\n"
        "il_top_left_tile_idx[1][0] 1\n"
        "il_bottom_right_tile_idx[1][0] 1\n"
        "ilc_idc[1] 0\n");
    EXPECT_TRUE(tiles.il_all_tiles_exact_sample_value_match_flag);
    EXPECT_EQ(tiles.tile_sets.size(), 2U);
}

TEST(H265NalSeiInterLayerConstrainedTileSets, HasOneSet) {
    const auto tiles = test::record_of<h265_nal_sei_inter_layer_constrained_tile_sets>(
        "0 0 1 00100 1 010 011 01 1",
        "il_all_tiles_exact_sample_value_match_flag 0\n"
        "il_one_tile_per_tile_set_flag 0\n"
        "il_num_sets_in_message_minus1 0\n"
        "ilcts_id[0] 3\n"
        "il_num_tile_rects_in_set_minus1[0] 0\n"
        "il_top_left_tile_idx[0][0] 1\n"
        "il_bottom_right_tile_idx[0][0] 2\n"
        "ilc_idc[0] 1\n"
        "il_exact_sample_value_match_flag[0] 1\n");
    EXPECT_EQ(tiles.tile_sets.size(), 1U);
}

TEST(H265NalSeiInterLayerConstrainedTileSets, HasATilePerSet) {
    const auto tiles = test::record_of<h265_nal_sei_inter_layer_constrained_tile_sets>(
        "0 1 10",
        "il_all_tiles_exact_sample_value_match_flag 0\n"
        "il_one_tile_per_tile_set_flag 1\n"
        "all_tiles_ilc_idc 2\n");
    EXPECT_TRUE(tiles.il_one_tile_per_tile_set_flag);
    EXPECT_EQ(tiles.all_tiles_ilc_idc, 2);
    EXPECT_TRUE(tiles.tile_sets.empty());
}

// 10 bits are left, and a set has 6 at the least.
TEST(H265NalSeiInterLayerConstrainedTileSets, HasNoMoreSetsThanTheDataHolds) {
    EXPECT_EQ(test::refusal_of(h265_nal_sei_inter_layer_constrained_tile_sets::payload_type,
                               "0 0 010 0 11 1111 1111"),
              "il_num_sets_in_message_minus1 at bit 18 is 1; allowed: 0");
}

// 7 bits are left, and a rectangle has 2 at the least.
TEST(H265NalSeiInterLayerConstrainedTileSets, HasNoMoreRectanglesThanTheDataHolds) {
    EXPECT_EQ(test::refusal_of(h265_nal_sei_inter_layer_constrained_tile_sets::payload_type,
                               "0 0 1 1 00101 11 1111 1"),
              "il_num_tile_rects_in_set_minus1[0] at bit 20 is 4; allowed: 0 to 2");
}

TEST(H265NalSeiInterLayerConstrainedTileSets, IsParsedAlone) {
    const auto parsed = test::parsed_alone<h265_nal_sei_inter_layer_constrained_tile_sets>(
        "0 0 011 1 0001000 010 1 00100 00110 0001010 10 1 1 1 0001101 000011111 01 0");
    EXPECT_EQ(parsed.element_count, 18U);
    EXPECT_EQ(parsed.record.tile_sets.size(), 2U);
    EXPECT_EQ(parsed.untraced.tile_sets.size(), 2U);
}

TEST(H265NalSeiInterLayerConstrainedTileSets, HasAtMost256Sets) {
    std::string sets;
    for (unsigned int i = 0; i < 257; ++i) {
        sets += "1 1 1 1 00 0";
    }
    EXPECT_TRUE(test::read_payload(161, test::bytes_of("0 0 00000000 100000000 0" + sets)).read);
    EXPECT_EQ(test::refusal_of(161, "0 0 00000000 100000001 0" + sets),
              "il_num_sets_in_message_minus1 at bit 18 is 256; allowed: 0 to 255");
}

}  // namespace
}  // namespace kovran
