#include <kovran/h265/sei/h265_nal_sei_coded_region_completion.h>

#include <gtest/gtest.h>

#include "support/sei_payload.h"
#include "support/sei_record_parsing.h"

namespace kovran {
namespace {

TEST(H265NalSeiCodedRegionCompletion, NamesTheNextSegment) {
    const auto completion =
        test::record_of<h265_nal_sei_coded_region_completion>("00111 1",
                                                              "next_segment_address 6\n"
                                                              "independent_slice_segment_flag 1\n");
    EXPECT_EQ(completion.next_segment_address, 6U);
    EXPECT_TRUE(completion.independent_slice_segment_flag);
}

TEST(H265NalSeiCodedRegionCompletion, EndsThePicture) {
    const auto completion =
        test::record_of<h265_nal_sei_coded_region_completion>("1", "next_segment_address 0\n");
    EXPECT_EQ(completion.next_segment_address, 0U);
    EXPECT_FALSE(completion.independent_slice_segment_flag);
}

TEST(H265NalSeiCodedRegionCompletion, IsParsedAlone) {
    const auto parsed = test::parsed_alone<h265_nal_sei_coded_region_completion>("00111 1");
    EXPECT_EQ(parsed.element_count, 2U);
    EXPECT_EQ(parsed.record.next_segment_address, 6U);
    EXPECT_EQ(parsed.untraced.next_segment_address, 6U);
}

}  // namespace
}  // namespace kovran
