#include <kovran/h265/sei/h265_nal_sei_regional_nesting.h>

#include <vector>

#include <gtest/gtest.h>

#include "support/sei_payload.h"

namespace kovran {
namespace {

TEST(H265NalSeiRegionalNesting, AppliesToRegions) {
    const auto nesting = test::record_of<h265_nal_sei_regional_nesting>(
        "x80x05 x02 x03 x90x00 x90x01 x90x02 x90x03 x04 x00x07 x00x08 x00x09 x00x0a "
        "x01 x02 x01 x00 x90 x04 x03xe8 x01x90 x01 x01 x93 x01 x12",
        "regional_nesting_id 32773\n"
        "regional_nesting_num_rect_regions 2\n"
        "regional_nesting_rect_region_id[0] 3\n"
        "regional_nesting_rect_left_offset[0] 36864\n"
        "regional_nesting_rect_right_offset[0] 36865\n"
        "regional_nesting_rect_top_offset[0] 36866\n"
        "regional_nesting_rect_bottom_offset[0] 36867\n"
        "regional_nesting_rect_region_id[1] 4\n"
        "regional_nesting_rect_left_offset[1] 7\n"
        "regional_nesting_rect_right_offset[1] 8\n"
        "regional_nesting_rect_top_offset[1] 9\n"
        "regional_nesting_rect_bottom_offset[1] 10\n"
        "num_sei_messages_in_regional_nesting_minus1 1\n"
        "num_regions_for_sei_message[0] 2\n"
        "regional_nesting_sei_region_idx[0][0] 1\n"
        "regional_nesting_sei_region_idx[0][1] 0\n"
        "sei_message[0].last_payload_type_byte 144\n"
        "sei_message[0].last_payload_size_byte 4\n"
        "sei_message[0].content_light_level_info.max_content_light_level 1000\n"
        "sei_message[0].content_light_level_info.max_pic_average_light_level 400\n"
        "num_regions_for_sei_message[1] 1\n"
        "regional_nesting_sei_region_idx[1][0] 1\n"
        "sei_message[1].last_payload_type_byte 147\n"
        "sei_message[1].last_payload_size_byte 1\n"
        "sei_message[1].alternative_transfer_characteristics.preferred_transfer_characteristics "
        "18\n",
        {}, test::payload_end::takes_all);
    EXPECT_EQ(nesting.regional_nesting_id, 0x8005);
    ASSERT_EQ(nesting.rect_regions.size(), 2U);
    EXPECT_EQ(nesting.rect_regions[0].regional_nesting_rect_left_offset, 0x9000);
    EXPECT_EQ(nesting.rect_regions[0].regional_nesting_rect_right_offset, 0x9001);
    EXPECT_EQ(nesting.rect_regions[0].regional_nesting_rect_top_offset, 0x9002);
    EXPECT_EQ(nesting.rect_regions[0].regional_nesting_rect_bottom_offset, 0x9003);
    EXPECT_EQ(nesting.rect_regions[1].regional_nesting_rect_region_id, 4);
    EXPECT_EQ(nesting.regional_nesting_sei_region_idx,
              (std::vector<std::vector<unsigned char>>{{1, 0}, {1}}));
    EXPECT_EQ(nesting.sei_message.size(), 2U);
}

TEST(H265NalSeiRegionalNesting, MayHaveNoRegions) {
    const auto nesting = test::record_of<h265_nal_sei_regional_nesting>(
        "x00x00 x00 x00 x00 x93 x01 x12",
        "regional_nesting_id 0\n"
        "regional_nesting_num_rect_regions 0\n"
        "num_sei_messages_in_regional_nesting_minus1 0\n"
        "num_regions_for_sei_message[0] 0\n"
        "sei_message[0].last_payload_type_byte 147\n"
        "sei_message[0].last_payload_size_byte 1\n"
        "sei_message[0].alternative_transfer_characteristics.preferred_transfer_characteristics "
        "18\n",
        {}, test::payload_end::takes_all);
    EXPECT_TRUE(nesting.rect_regions.empty());
}

TEST(H265NalSeiRegionalNesting, HasNoMoreRegionsThanTheDataHolds) {
    EXPECT_EQ(
        test::refusal_of(h265_nal_sei_regional_nesting::payload_type,
                         "x00x00 x02 x03 x00x01 x00x02 x00x03 x00x04 x00x00x00x00x00x00x00x00"),
        "regional_nesting_num_rect_regions at bit 32 is 2; allowed: 0 to 1");
}

// A message has 3 bytes at the least; there are 4.
TEST(H265NalSeiRegionalNesting, HasNoMoreMessagesThanTheDataHolds) {
    EXPECT_EQ(test::refusal_of(h265_nal_sei_regional_nesting::payload_type,
                               "x00x00 x00 x01 x00 x93 x01 x12"),
              "num_sei_messages_in_regional_nesting_minus1 at bit 40 is 1; allowed: 0");
}

TEST(H265NalSeiRegionalNesting, AppliesToNoMoreRegionsThanTheDataHolds) {
    EXPECT_EQ(
        test::refusal_of(h265_nal_sei_regional_nesting::payload_type, "x00x00 x00 x00 x03 x00 x00"),
        "num_regions_for_sei_message[0] at bit 48 is 3; allowed: 0 to 2");
}

TEST(H265NalSeiRegionalNesting, HasWholeMessages) {
    EXPECT_EQ(test::refusal_of(h265_nal_sei_regional_nesting::payload_type,
                               "x00x00 x00 x01 x00 x90 x04 x03xe8 x01x90 x01 x00"),
              "the data ends before the end of sei_message[1].last_payload_type_byte at bit 120");
}

}  // namespace
}  // namespace kovran
