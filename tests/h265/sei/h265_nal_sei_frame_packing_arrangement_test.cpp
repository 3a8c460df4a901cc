#include <kovran/h265/sei/h265_nal_sei_frame_packing_arrangement.h>

#include <gtest/gtest.h>

#include "support/sei_payload.h"
#include "support/sei_record_parsing.h"

namespace kovran {
namespace {

TEST(H265NalSeiFramePackingArrangement, HasGridPositions) {
    const auto packing = test::record_of<h265_nal_sei_frame_packing_arrangement>(
        "00110 0 0000011 0 000001 1 0 0 1 0 1  0001 0010 0011 1111  x07 1 0",
        "frame_packing_arrangement_id 5\n"
        "frame_packing_arrangement_cancel_flag 0\n"
        "frame_packing_arrangement_type 3\n"
        "quincunx_sampling_flag 0\n"
        "content_interpretation_type 1\n"
        "spatial_flipping_flag 1\n"
        "frame0_flipped_flag 0\n"
        "field_views_flag 0\n"
        "current_frame_is_frame0_flag 1\n"
        "frame0_self_contained_flag 0\n"
        "frame1_self_contained_flag 1\n"
        "frame0_grid_position_x 1\n"
        "frame0_grid_position_y 2\n"
        "frame1_grid_position_x 3\n"
        "frame1_grid_position_y 15\n"
        "frame_packing_arrangement_reserved_byte 7\n"
        "frame_packing_arrangement_persistence_flag 1\n"
        "upsampled_aspect_ratio_flag 0\n");
    EXPECT_EQ(packing.frame_packing_arrangement_id, 5U);
    EXPECT_EQ(packing.frame_packing_arrangement_type, 3);
    EXPECT_EQ(packing.content_interpretation_type, 1);
    EXPECT_TRUE(packing.spatial_flipping_flag);
    EXPECT_FALSE(packing.frame0_flipped_flag);
    EXPECT_TRUE(packing.current_frame_is_frame0_flag);
    EXPECT_TRUE(packing.frame1_self_contained_flag);
    EXPECT_EQ(packing.frame0_grid_position_y, 2);
    EXPECT_EQ(packing.frame1_grid_position_x, 3);
    EXPECT_TRUE(packing.frame_packing_arrangement_persistence_flag);
    EXPECT_FALSE(packing.upsampled_aspect_ratio_flag);
}

TEST(H265NalSeiFramePackingArrangement, HasNoGridPositionsWithQuincunxSampling) {
    const auto packing = test::record_of<h265_nal_sei_frame_packing_arrangement>(
        "1 0 0000100 1 000010 0 1 1 0 1 0  x00 0 1",
        "frame_packing_arrangement_id 0\n"
        "frame_packing_arrangement_cancel_flag 0\n"
        "frame_packing_arrangement_type 4\n"
        "quincunx_sampling_flag 1\n"
        "content_interpretation_type 2\n"
        "spatial_flipping_flag 0\n"
        "frame0_flipped_flag 1\n"
        "field_views_flag 1\n"
        "current_frame_is_frame0_flag 0\n"
        "frame0_self_contained_flag 1\n"
        "frame1_self_contained_flag 0\n"
        "frame_packing_arrangement_reserved_byte 0\n"
        "frame_packing_arrangement_persistence_flag 0\n"
        "upsampled_aspect_ratio_flag 1\n");
    EXPECT_TRUE(packing.quincunx_sampling_flag);
    EXPECT_TRUE(packing.frame0_flipped_flag);
    EXPECT_TRUE(packing.field_views_flag);
    EXPECT_TRUE(packing.frame0_self_contained_flag);
    EXPECT_TRUE(packing.upsampled_aspect_ratio_flag);
}

TEST(H265NalSeiFramePackingArrangement, HasNoGridPositionsWithTemporalInterleaving) {
    const auto packing = test::record_of<h265_nal_sei_frame_packing_arrangement>(
        "1 0 0000101 0 000000 0 0 0 0 0 0  x00 0 0",
        "frame_packing_arrangement_id 0\n"
        "frame_packing_arrangement_cancel_flag 0\n"
        "frame_packing_arrangement_type 5\n"
        "quincunx_sampling_flag 0\n"
        "content_interpretation_type 0\n"
        "spatial_flipping_flag 0\n"
        "frame0_flipped_flag 0\n"
        "field_views_flag 0\n"
        "current_frame_is_frame0_flag 0\n"
        "frame0_self_contained_flag 0\n"
        "frame1_self_contained_flag 0\n"
        "frame_packing_arrangement_reserved_byte 0\n"
        "frame_packing_arrangement_persistence_flag 0\n"
        "upsampled_aspect_ratio_flag 0\n");
    EXPECT_EQ(packing.frame_packing_arrangement_type, 5);
}

TEST(H265NalSeiFramePackingArrangement, HasTheAspectRatioFlagWhereItCancels) {
    const auto packing = test::record_of<h265_nal_sei_frame_packing_arrangement>(  //
        "1 1 1",                                                                   //
        "frame_packing_arrangement_id 0\n"
        "frame_packing_arrangement_cancel_flag 1\n"
        "upsampled_aspect_ratio_flag 1\n");
    EXPECT_TRUE(packing.frame_packing_arrangement_cancel_flag);
    EXPECT_TRUE(packing.upsampled_aspect_ratio_flag);
}

TEST(H265NalSeiFramePackingArrangement, IsParsedAlone) {
    EXPECT_EQ(test::parsed_alone<h265_nal_sei_frame_packing_arrangement>("00101 1 0")
                  .record.frame_packing_arrangement_id,
              4U);
}

TEST(H265NalSeiFramePackingArrangement, NamesTypes) {
    EXPECT_STREQ(h265_nal_sei_frame_packing_arrangement_type_to_str(0), "");
    EXPECT_STREQ(h265_nal_sei_frame_packing_arrangement_type_to_str(2), "");
    EXPECT_STREQ(h265_nal_sei_frame_packing_arrangement_type_to_str(3), "side by side");
    EXPECT_STREQ(h265_nal_sei_frame_packing_arrangement_type_to_str(4), "top and bottom");
    EXPECT_STREQ(h265_nal_sei_frame_packing_arrangement_type_to_str(5), "temporal interleaving");
    EXPECT_STREQ(h265_nal_sei_frame_packing_arrangement_type_to_str(6), "");
}

TEST(H265NalSeiFramePackingArrangement, NamesContentInterpretations) {
    EXPECT_STREQ(h265_nal_sei_content_interpretation_type_to_str(0), "unspecified");
    EXPECT_STREQ(h265_nal_sei_content_interpretation_type_to_str(1), "frame 0 is the left view");
    EXPECT_STREQ(h265_nal_sei_content_interpretation_type_to_str(2), "frame 0 is the right view");
    EXPECT_STREQ(h265_nal_sei_content_interpretation_type_to_str(3), "");
}

}  // namespace
}  // namespace kovran
