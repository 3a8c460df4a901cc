#include <kovran/h265/sei/h265_nal_sei_progressive_refinement_segment_end.h>

#include <gtest/gtest.h>

#include "support/sei_payload.h"
#include "support/sei_record_parsing.h"

namespace kovran {
namespace {

TEST(H265NalSeiProgressiveRefinementSegmentEnd, HasTheIdentifierOfTheStart) {
    const auto refinement = test::record_of<h265_nal_sei_progressive_refinement_segment_end>(
        "0001000", "progressive_refinement_id 7\n");
    EXPECT_EQ(refinement.progressive_refinement_id, 7U);
}

TEST(H265NalSeiProgressiveRefinementSegmentEnd, IsParsedAlone) {
    EXPECT_EQ(test::parsed_alone<h265_nal_sei_progressive_refinement_segment_end>("1")
                  .record.progressive_refinement_id,
              0U);
}

}  // namespace
}  // namespace kovran
