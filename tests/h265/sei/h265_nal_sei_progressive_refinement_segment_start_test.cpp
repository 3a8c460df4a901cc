#include <kovran/h265/sei/h265_nal_sei_progressive_refinement_segment_start.h>

#include <gtest/gtest.h>

#include "support/sei_payload.h"
#include "support/sei_record_parsing.h"

namespace kovran {
namespace {

TEST(H265NalSeiProgressiveRefinementSegmentStart, HasALength) {
    const auto refinement = test::record_of<h265_nal_sei_progressive_refinement_segment_start>(  //
        "010 00101",                                                                             //
        "progressive_refinement_id 1\n"
        "pic_order_cnt_delta 4\n");
    EXPECT_EQ(refinement.progressive_refinement_id, 1U);
    EXPECT_EQ(refinement.pic_order_cnt_delta, 4U);
}

TEST(H265NalSeiProgressiveRefinementSegmentStart, IsParsedAlone) {
    EXPECT_EQ(test::parsed_alone<h265_nal_sei_progressive_refinement_segment_start>("011 1")
                  .record.progressive_refinement_id,
              2U);
}

}  // namespace
}  // namespace kovran
