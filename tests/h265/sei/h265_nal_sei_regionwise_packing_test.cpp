#include <kovran/h265/sei/h265_nal_sei_regionwise_packing.h>

#include <array>
#include <string>

#include <gtest/gtest.h>

#include "support/sei_payload.h"
#include "support/sei_record_parsing.h"

namespace kovran {
namespace {

constexpr char regionwise_packing_bits[] =
    "0 1 1 10001 x02 x80x00x00x00 x00x00x04x00 x80x00 x03x00 0000 111 0 "
    "x90x00x00x00 x90x00x00x01 x90x00x00x02 x90x00x00x03 x90x00 x90x01 x90x02 "
    "x90x03 0001 110 1 x00x28x00x00 x00x28x00x01 x00x28x00x02 x00x28x00x03 x00x28 "
    "x00x29 x00x2a x00x2b xc8 xc9 xca xcb 1 110 101 100 011 101";

TEST(H265NalSeiRegionwisePacking, HasRegionsWithAndWithoutGuardBands) {
    const auto packing = test::record_of<h265_nal_sei_regionwise_packing>(
        regionwise_packing_bits,
        "rwp_cancel_flag 0\n"
        "rwp_persistence_flag 1\n"
        "constituent_picture_matching_flag 1\n"
        "rwp_reserved_zero_5bits 17\n"
        "num_packed_regions 2\n"
        "proj_picture_width 2147483648\n"
        "proj_picture_height 1024\n"
        "packed_picture_width 32768\n"
        "packed_picture_height 768\n"
        "rwp_reserved_zero_4bits[0] 0\n"
        "rwp_transform_type[0] 7\n"
        "rwp_guard_band_flag[0] 0\n"
        "proj_region_width[0] 2415919104\n"
        "proj_region_height[0] 2415919105\n"
        "proj_region_top[0] 2415919106\n"
        "proj_region_left[0] 2415919107\n"
        "packed_region_width[0] 36864\n"
        "packed_region_height[0] 36865\n"
        "packed_region_top[0] 36866\n"
        "packed_region_left[0] 36867\n"
        "rwp_reserved_zero_4bits[1] 1\n"
        "rwp_transform_type[1] 6\n"
        "rwp_guard_band_flag[1] 1\n"
        "proj_region_width[1] 2621440\n"
        "proj_region_height[1] 2621441\n"
        "proj_region_top[1] 2621442\n"
        "proj_region_left[1] 2621443\n"
        "packed_region_width[1] 40\n"
        "packed_region_height[1] 41\n"
        "packed_region_top[1] 42\n"
        "packed_region_left[1] 43\n"
        "rwp_left_guard_band_width[1] 200\n"
        "rwp_right_guard_band_width[1] 201\n"
        "rwp_top_guard_band_height[1] 202\n"
        "rwp_bottom_guard_band_height[1] 203\n"
        "rwp_guard_band_not_used_for_pred_flag[1] 1\n"
        "rwp_guard_band_type[1][0] 6\n"
        "rwp_guard_band_type[1][1] 5\n"
        "rwp_guard_band_type[1][2] 4\n"
        "rwp_guard_band_type[1][3] 3\n"
        "rwp_guard_band_reserved_zero_3bits[1] 5\n");
    EXPECT_TRUE(packing.rwp_persistence_flag);
    EXPECT_TRUE(packing.constituent_picture_matching_flag);
    EXPECT_EQ(packing.proj_picture_width, 0x80000000U);
    EXPECT_EQ(packing.proj_picture_height, 1024U);
    EXPECT_EQ(packing.packed_picture_width, 0x8000);
    EXPECT_EQ(packing.packed_picture_height, 768);
    ASSERT_EQ(packing.packed_regions.size(), 2U);
    const auto& first = packing.packed_regions[0];
    EXPECT_EQ(first.rwp_transform_type, 7);
    EXPECT_FALSE(first.rwp_guard_band_flag);
    EXPECT_EQ(first.proj_region_width, 0x90000000U);
    EXPECT_EQ(first.proj_region_height, 0x90000001U);
    EXPECT_EQ(first.proj_region_top, 0x90000002U);
    EXPECT_EQ(first.proj_region_left, 0x90000003U);
    EXPECT_EQ(first.packed_region_width, 0x9000);
    EXPECT_EQ(first.packed_region_height, 0x9001);
    EXPECT_EQ(first.packed_region_top, 0x9002);
    EXPECT_EQ(first.packed_region_left, 0x9003);
    const auto& second = packing.packed_regions[1];
    EXPECT_TRUE(second.rwp_guard_band_flag);
    EXPECT_EQ(second.rwp_left_guard_band_width, 200);
    EXPECT_EQ(second.rwp_right_guard_band_width, 201);
    EXPECT_EQ(second.rwp_top_guard_band_height, 202);
    EXPECT_EQ(second.rwp_bottom_guard_band_height, 203);
    EXPECT_TRUE(second.rwp_guard_band_not_used_for_pred_flag);
    EXPECT_EQ(second.rwp_guard_band_type, (std::array<unsigned char, 4>{6, 5, 4, 3}));
}

TEST(H265NalSeiRegionwisePacking, HasNoRegions) {
    const auto packing = test::record_of<h265_nal_sei_regionwise_packing>(
        "0 1 1 00000 x00 x80x00x00x00 x00x00x04x00 x80x00 x03x00",
        "rwp_cancel_flag 0\n"
        "rwp_persistence_flag 1\n"
        "constituent_picture_matching_flag 1\n"
        "rwp_reserved_zero_5bits 0\n"
        "num_packed_regions 0\n"
        "proj_picture_width 2147483648\n"
        "proj_picture_height 1024\n"
        "packed_picture_width 32768\n"
        "packed_picture_height 768\n");
    EXPECT_TRUE(packing.packed_regions.empty());
}

TEST(H265NalSeiRegionwisePacking, EndsAnEarlierOne) {
    const auto packing =
        test::record_of<h265_nal_sei_regionwise_packing>("1", "rwp_cancel_flag 1\n");
    EXPECT_TRUE(packing.rwp_cancel_flag);
}

// A region has 25 bytes at the least; the second one has 24. The regions begin at bit 128.
TEST(H265NalSeiRegionwisePacking, HasNoMoreRegionsThanTheDataHolds) {
    EXPECT_EQ(test::refusal_of(
                  h265_nal_sei_regionwise_packing::payload_type,
                  "0 1 1 00000 x02 x80x00x00x00 x00x00x04x00 x80x00 x03x00 0000 111 0 "
                  "x00x01x00x00 x00x01x00x01 x00x01x00x02 x00x01x00x03 x00x01 x00x02 x00x03 "
                  "x00x04 "
                  "x00x00x00x00x00x00x00x00x00x00x00x00x00x00x00x00x00x00x00x00x00x00x00x00"),
              "num_packed_regions at bit 24 is 2; allowed: 0 to 1");
}

TEST(H265NalSeiRegionwisePacking, IsParsedAlone) {
    const auto parsed =
        test::parsed_alone<h265_nal_sei_regionwise_packing>(regionwise_packing_bits);
    EXPECT_EQ(parsed.element_count, 41U);
    EXPECT_EQ(parsed.record.packed_regions.size(), 2U);
    EXPECT_EQ(parsed.untraced.packed_regions.size(), 2U);
}

TEST(H265NalSeiRegionwisePacking, HasRegionsAndPicturesWithSamples) {
    EXPECT_EQ(
        test::out_of_range<h265_nal_sei_regionwise_packing>(
            "0 0 0 00000 x01 x00x00x00x01 x00x00x00x01 x00x01 x00x01" + std::string(200, '0')),
        "");
    EXPECT_EQ(test::out_of_range<h265_nal_sei_regionwise_packing>(
                  "0 0 0 00000 x00 x00x00x00x00 x00x00x00x00 x00x00 x00x00"),
              "num_packed_regions, proj_picture_width, proj_picture_height, packed_picture_width, "
              "packed_picture_height");
}

}  // namespace
}  // namespace kovran
