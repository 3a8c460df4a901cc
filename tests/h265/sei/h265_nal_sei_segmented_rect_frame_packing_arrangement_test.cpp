#include <kovran/h265/sei/h265_nal_sei_segmented_rect_frame_packing_arrangement.h>

#include <gtest/gtest.h>

#include "support/sei_payload.h"
#include "support/sei_record_parsing.h"

namespace kovran {
namespace {

TEST(H265NalSeiSegmentedRectFramePackingArrangement, SaysWhichViewIsWhich) {
    const auto packing = test::record_of<h265_nal_sei_segmented_rect_frame_packing_arrangement>(  //
        "0 10 1",                                                                                 //
        "segmented_rect_frame_packing_arrangement_cancel_flag 0\n"
        "segmented_rect_content_interpretation_type 2\n"
        "segmented_rect_frame_packing_arrangement_persistence_flag 1\n");
    EXPECT_EQ(packing.segmented_rect_content_interpretation_type, 2);
    EXPECT_TRUE(packing.segmented_rect_frame_packing_arrangement_persistence_flag);
}

TEST(H265NalSeiSegmentedRectFramePackingArrangement, EndsWhereItCancels) {
    const auto packing = test::record_of<h265_nal_sei_segmented_rect_frame_packing_arrangement>(
        "1", "segmented_rect_frame_packing_arrangement_cancel_flag 1\n");
    EXPECT_TRUE(packing.segmented_rect_frame_packing_arrangement_cancel_flag);
}

TEST(H265NalSeiSegmentedRectFramePackingArrangement, IsParsedAlone) {
    EXPECT_EQ(test::parsed_alone<h265_nal_sei_segmented_rect_frame_packing_arrangement>("0 01 0")
                  .record.segmented_rect_content_interpretation_type,
              1);
}

}  // namespace
}  // namespace kovran
