#include <kovran/h265/sei/h265_nal_sei_multiview_scene_info.h>

#include <gtest/gtest.h>

#include "support/sei_payload.h"
#include "support/sei_record_parsing.h"

namespace kovran {
namespace {

TEST(H265NalSeiMultiviewSceneInfo, HasNegativeDisparities) {
    const auto info =
        test::record_of<h265_nal_sei_multiview_scene_info>("00111 00000101001",
                                                           "min_disparity -3\n"
                                                           "max_disparity_range 40\n");
    EXPECT_EQ(info.min_disparity, -3);
    EXPECT_EQ(info.max_disparity_range, 40U);
    EXPECT_EQ(test::parsed_alone<h265_nal_sei_multiview_scene_info>("010 1").record.min_disparity,
              1);
}

TEST(H265NalSeiMultiviewSceneInfo, HasDisparitiesOf11Bits) {
    EXPECT_EQ(test::out_of_range<h265_nal_sei_multiview_scene_info>(
                  "00000000000 100000000001 00000000000 100000000000"),
              "");
    EXPECT_EQ(test::out_of_range<h265_nal_sei_multiview_scene_info>("0000000000 11111111110 1"),
              "");
    EXPECT_EQ(test::out_of_range<h265_nal_sei_multiview_scene_info>("00000000000 100000000011 1"),
              "min_disparity");
    EXPECT_EQ(test::out_of_range<h265_nal_sei_multiview_scene_info>(
                  "00000000000 100000000000 00000000000 100000000001"),
              "min_disparity, max_disparity_range");
}

}  // namespace
}  // namespace kovran
