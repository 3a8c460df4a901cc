#include <kovran/h265/sei/h265_nal_sei_pan_scan_rect.h>

#include <gtest/gtest.h>

#include "support/sei_payload.h"
#include "support/sei_record_parsing.h"

namespace kovran {
namespace {

TEST(H265NalSeiPanScanRect, HasRectangles) {
    const auto pan_scan = test::record_of<h265_nal_sei_pan_scan_rect>(
        "011 0 010  011 00100 1 00111  0001010 0001011 010 00101  1",
        "pan_scan_rect_id 2\n"
        "pan_scan_rect_cancel_flag 0\n"
        "pan_scan_cnt_minus1 1\n"
        "pan_scan_rect_left_offset[0] -1\n"
        "pan_scan_rect_right_offset[0] 2\n"
        "pan_scan_rect_top_offset[0] 0\n"
        "pan_scan_rect_bottom_offset[0] -3\n"
        "pan_scan_rect_left_offset[1] 5\n"
        "pan_scan_rect_right_offset[1] -5\n"
        "pan_scan_rect_top_offset[1] 1\n"
        "pan_scan_rect_bottom_offset[1] -2\n"
        "pan_scan_rect_persistence_flag 1\n");
    EXPECT_EQ(pan_scan.pan_scan_rect_id, 2U);
    EXPECT_FALSE(pan_scan.pan_scan_rect_cancel_flag);
    ASSERT_EQ(pan_scan.rects.size(), 2U);
    EXPECT_EQ(pan_scan.rects[0].pan_scan_rect_bottom_offset, -3);
    EXPECT_EQ(pan_scan.rects[1].pan_scan_rect_left_offset, 5);
    EXPECT_EQ(pan_scan.rects[1].pan_scan_rect_right_offset, -5);
    EXPECT_EQ(pan_scan.rects[1].pan_scan_rect_top_offset, 1);
    EXPECT_TRUE(pan_scan.pan_scan_rect_persistence_flag);
}

TEST(H265NalSeiPanScanRect, EndsWhereItCancels) {
    const auto pan_scan = test::record_of<h265_nal_sei_pan_scan_rect>(  //
        "1 1",                                                          //
        "pan_scan_rect_id 0\n"
        "pan_scan_rect_cancel_flag 1\n");
    EXPECT_TRUE(pan_scan.pan_scan_rect_cancel_flag);
    EXPECT_TRUE(pan_scan.rects.empty());
}

TEST(H265NalSeiPanScanRect, HasAtMostThreeRectangles) {
    EXPECT_TRUE(test::read_payload(2, test::bytes_of("1 0 011 1111 1111 1111 0")).read);
    EXPECT_EQ(test::refusal_of(2, "1 0 00100 1111 1111 1111 1111 0"),
              "pan_scan_cnt_minus1 at bit 18 is 3; allowed: 0 to 2");
}

TEST(H265NalSeiPanScanRect, IsParsedAlone) {
    const auto pan_scan =
        test::parsed_alone<h265_nal_sei_pan_scan_rect>("1 0 1 010 011 1 1 1").record;
    ASSERT_EQ(pan_scan.rects.size(), 1U);
    EXPECT_EQ(pan_scan.rects[0].pan_scan_rect_left_offset, 1);
    EXPECT_EQ(pan_scan.rects[0].pan_scan_rect_right_offset, -1);
}

}  // namespace
}  // namespace kovran
