#include <kovran/h265/sei/h265_nal_sei_temporal_motion_constrained_tile_sets.h>

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "support/sei_payload.h"
#include "support/sei_record_parsing.h"

namespace kovran {
namespace {

TEST(H265NalSeiTemporalMotionConstrainedTileSets, HasSetsOfRectangles) {
    const auto sets = test::record_of<h265_nal_sei_temporal_motion_constrained_tile_sets>(
        "0 0 1 010"
        "1 1 010 1 00100 00101 0001000 1 1 0 01011010"
        "010 0 1 1 1 0 0",
        "mc_all_tiles_exact_sample_value_match_flag 0\n"
        "each_tile_one_tile_set_flag 0\n"
        "limited_tile_set_display_flag 1\n"
        "num_sets_in_message_minus1 1\n"
        "mcts_id[0] 0\n"
        "display_tile_set_flag[0] 1\n"
        "num_tile_rects_in_set_minus1[0] 1\n"
        "top_left_tile_idx[0][0] 0\n"
        "bottom_right_tile_idx[0][0] 3\n"
        "top_left_tile_idx[0][1] 4\n"
        "bottom_right_tile_idx[0][1] 7\n"
        "mc_exact_sample_value_match_flag[0] 1\n"
        "mcts_tier_level_idc_present_flag[0] 1\n"
        "mcts_tier_flag[0] 0\n"
        "mcts_level_idc[0] 90\n"
        "mcts_id[1] 1\n"
        "display_tile_set_flag[1] 0\n"
        "num_tile_rects_in_set_minus1[1] 0\n"
        "top_left_tile_idx[1][0] 0\n"
        "bottom_right_tile_idx[1][0] 0\n"
        "mc_exact_sample_value_match_flag[1] 0\n"
        "mcts_tier_level_idc_present_flag[1] 0\n");
    EXPECT_TRUE(sets.limited_tile_set_display_flag);
    ASSERT_EQ(sets.tile_sets.size(), 2U);
    EXPECT_TRUE(sets.tile_sets[0].display_tile_set_flag);
    EXPECT_EQ(sets.tile_sets[0].top_left_tile_idx, (std::vector<unsigned int>{0, 4}));
    EXPECT_EQ(sets.tile_sets[0].bottom_right_tile_idx, (std::vector<unsigned int>{3, 7}));
    EXPECT_TRUE(sets.tile_sets[0].mc_exact_sample_value_match_flag);
    EXPECT_EQ(sets.tile_sets[0].mcts_level_idc, 90);
    EXPECT_EQ(sets.tile_sets[1].mcts_id, 1U);
    EXPECT_FALSE(sets.tile_sets[1].mcts_tier_level_idc_present_flag);
}

TEST(H265NalSeiTemporalMotionConstrainedTileSets, HasNoFlagsThatHoldForAllTiles) {
    const auto sets = test::record_of<h265_nal_sei_temporal_motion_constrained_tile_sets>(  //
        "1 0 0 1  1 1 1 1 0",                                                               //
        "mc_all_tiles_exact_sample_value_match_flag 1\n"
        "each_tile_one_tile_set_flag 0\n"
        "limited_tile_set_display_flag 0\n"
        "num_sets_in_message_minus1 0\n"
        "mcts_id[0] 0\n"
        "num_tile_rects_in_set_minus1[0] 0\n"
        "top_left_tile_idx[0][0] 0\n"
        "bottom_right_tile_idx[0][0] 0\n"
        "mcts_tier_level_idc_present_flag[0] 0\n");
    EXPECT_TRUE(sets.mc_all_tiles_exact_sample_value_match_flag);
    EXPECT_EQ(sets.tile_sets.size(), 1U);
}

TEST(H265NalSeiTemporalMotionConstrainedTileSets, MayBeASetPerTile) {
    const auto sets = test::record_of<h265_nal_sei_temporal_motion_constrained_tile_sets>(  //
        "0 1 1 1 01011101",                                                                 //
        "mc_all_tiles_exact_sample_value_match_flag 0\n"
        "each_tile_one_tile_set_flag 1\n"
        "max_mcs_tier_level_idc_present_flag 1\n"
        "mcts_max_tier_flag 1\n"
        "mcts_max_level_idc 93\n");
    EXPECT_TRUE(sets.each_tile_one_tile_set_flag);
    EXPECT_TRUE(sets.mcts_max_tier_flag);
    EXPECT_EQ(sets.mcts_max_level_idc, 93);
    EXPECT_TRUE(sets.tile_sets.empty());
}

TEST(H265NalSeiTemporalMotionConstrainedTileSets, MayHaveNoLevelForSetsOfATile) {
    const auto sets = test::record_of<h265_nal_sei_temporal_motion_constrained_tile_sets>(  //
        "1 1 0",                                                                            //
        "mc_all_tiles_exact_sample_value_match_flag 1\n"
        "each_tile_one_tile_set_flag 1\n"
        "max_mcs_tier_level_idc_present_flag 0\n");
    EXPECT_FALSE(sets.max_mcs_tier_level_idc_present_flag);
}

// ue(v) of 4294967294.
constexpr char motion_constrained_highest_ue[] = "0000000 00000000 00000000 00000000 xffxffxffxff";

TEST(H265NalSeiTemporalMotionConstrainedTileSets, HasNoMoreSetsThanTheDataHolds) {
    EXPECT_EQ(test::refusal_of(139, "0 0 0 011 11110 11110"),
              "num_sets_in_message_minus1 at bit 19 is 2; allowed: 0 to 1");
}

TEST(H265NalSeiTemporalMotionConstrainedTileSets, HasNoMoreRectanglesThanTheDataHolds) {
    EXPECT_EQ(test::refusal_of(139, std::string("0 0 0 1 1") + motion_constrained_highest_ue),
              "num_tile_rects_in_set_minus1[0] at bit 21 is 4294967294; allowed: 0 to 1");
}

TEST(H265NalSeiTemporalMotionConstrainedTileSets, IsParsedAlone) {
    const auto sets = test::parsed_alone<h265_nal_sei_temporal_motion_constrained_tile_sets>(
                          "1 0 0 1  010 1 1 011 0")
                          .record;
    ASSERT_EQ(sets.tile_sets.size(), 1U);
    EXPECT_EQ(sets.tile_sets[0].bottom_right_tile_idx, (std::vector<unsigned int>{2}));
}

TEST(H265NalSeiTemporalMotionConstrainedTileSets, HasAtMost256Sets) {
    std::string sets;
    for (unsigned int i = 0; i < 257; ++i) {
        sets += "1 1 1 1 0 0";
    }
    EXPECT_TRUE(test::read_payload(139, test::bytes_of("0 0 0 00000000 100000000" + sets)).read);
    EXPECT_EQ(test::refusal_of(139, "0 0 0 00000000 100000001" + sets),
              "num_sets_in_message_minus1 at bit 19 is 256; allowed: 0 to 255");
}

}  // namespace
}  // namespace kovran
