#include <kovran/h265/sei/h265_nal_sei_multiview_view_position.h>

#include <vector>

#include <gtest/gtest.h>

#include "support/sei_payload.h"
#include "support/sei_record_parsing.h"

namespace kovran {
namespace {

TEST(H265NalSeiMultiviewViewPosition, HasAPositionForEachView) {
    const auto positions =
        test::record_of<h265_nal_sei_multiview_view_position>("011 1 011 010",
                                                              "num_views_minus1 2\n"
                                                              "view_position[0] 0\n"
                                                              "view_position[1] 2\n"
                                                              "view_position[2] 1\n");
    EXPECT_EQ(positions.num_views_minus1, 2U);
    EXPECT_EQ(positions.view_position, (std::vector<unsigned int>{0, 2, 1}));
    EXPECT_EQ(
        test::parsed_alone<h265_nal_sei_multiview_view_position>("1 00100").record.view_position,
        (std::vector<unsigned int>{3}));
}

TEST(H265NalSeiMultiviewViewPosition, HasViewsThatTheDataHolds) {
    EXPECT_EQ(test::refusal_of(180, "00111 111"),
              "num_views_minus1 at bit 16 is 6; allowed: 0 to 2");
    EXPECT_EQ(test::refusal_of(180,
                               "0000000000000000000000000000000"
                               "11111111111111111111111111111111"),
              "num_views_minus1 at bit 16 is 4294967294; allowed: 0");
}

}  // namespace
}  // namespace kovran
