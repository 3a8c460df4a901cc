#include <kovran/h265/sei/h265_nal_sei_three_dimensional_reference_displays_info.h>

#include <optional>
#include <string>

#include <gtest/gtest.h>

#include "support/sei_payload.h"
#include "support/sei_record_parsing.h"

namespace kovran {
namespace {

TEST(H265NalSeiThreeDimensionalReferenceDisplaysInfo, HasDisplaysWithDistances) {
    const auto info = test::record_of<h265_nal_sei_three_dimensional_reference_displays_info>(
        "011 1 010 010"
        "00100 010 100100 1000100 100101 1011110 1 0111100010"
        "1 011 011101 011111 1 0"
        "1",
        "prec_ref_display_width 2\n"
        "ref_viewing_distance_flag 1\n"
        "prec_ref_viewing_dist 1\n"
        "num_ref_displays_minus1 1\n"
        "left_view_id[0] 3\n"
        "right_view_id[0] 1\n"
        "exponent_ref_display_width[0] 36\n"
        "mantissa_ref_display_width[0] 68\n"
        "exponent_ref_viewing_distance[0] 37\n"
        "mantissa_ref_viewing_distance[0] 94\n"
        "additional_shift_present_flag[0] 1\n"
        "num_sample_shift_plus512[0] 482\n"
        "left_view_id[1] 0\n"
        "right_view_id[1] 2\n"
        "exponent_ref_display_width[1] 29\n"
        "exponent_ref_viewing_distance[1] 31\n"
        "mantissa_ref_viewing_distance[1] 1\n"
        "additional_shift_present_flag[1] 0\n"
        "three_dimensional_reference_displays_extension_flag 1\n");
    EXPECT_EQ(info.prec_ref_display_width, 2U);
    EXPECT_TRUE(info.ref_viewing_distance_flag);
    EXPECT_EQ(info.prec_ref_viewing_dist, 1U);
    EXPECT_EQ(info.num_ref_displays_minus1, 1U);
    ASSERT_EQ(info.reference_displays.size(), 2U);
    EXPECT_EQ(info.reference_displays[0].left_view_id, 3U);
    EXPECT_EQ(info.reference_displays[0].right_view_id, 1U);
    EXPECT_EQ(info.reference_displays[0].ref_display_width.value(), 49.0);
    EXPECT_EQ(info.reference_displays[0].ref_viewing_distance.value(), 111.0);
    EXPECT_TRUE(info.reference_displays[0].additional_shift_present_flag);
    EXPECT_EQ(info.reference_displays[0].num_sample_shift_plus512, 482);
    EXPECT_EQ(info.reference_displays[1].ref_display_width.value(), 0.25);
    EXPECT_EQ(info.reference_displays[1].ref_viewing_distance.value(), 1.5);
    EXPECT_FALSE(info.reference_displays[1].additional_shift_present_flag);
    EXPECT_TRUE(info.three_dimensional_reference_displays_extension_flag);
}

// Precision 31: a mantissa has a bit with exponent 0, and as many as the exponent has steps above.
TEST(H265NalSeiThreeDimensionalReferenceDisplaysInfo, HasMantissasOfUpTo62Bits) {
    const auto info = test::record_of<h265_nal_sei_three_dimensional_reference_displays_info>(
        "00000100000 0 010"
        "1 1 000000 1 0"
        "1 1 111110 100000000000000000000000000000 00000000000000000000000000000011 0"
        "0",
        "prec_ref_display_width 31\n"
        "ref_viewing_distance_flag 0\n"
        "num_ref_displays_minus1 1\n"
        "left_view_id[0] 0\n"
        "right_view_id[0] 0\n"
        "exponent_ref_display_width[0] 0\n"
        "mantissa_ref_display_width[0] 1\n"
        "additional_shift_present_flag[0] 0\n"
        "left_view_id[1] 0\n"
        "right_view_id[1] 0\n"
        "exponent_ref_display_width[1] 62\n"
        "mantissa_ref_display_width[1] 2305843009213693955\n"
        "additional_shift_present_flag[1] 0\n"
        "three_dimensional_reference_displays_extension_flag 0\n");
    ASSERT_EQ(info.reference_displays.size(), 2U);
    EXPECT_EQ(info.reference_displays[0].ref_display_width.value(), 0x1p-31);
    EXPECT_EQ(info.reference_displays[0].ref_viewing_distance.value(), std::nullopt);
    EXPECT_EQ(info.reference_displays[1].ref_display_width.mantissa_length, 62);
    EXPECT_EQ(info.reference_displays[1].ref_display_width.value(), 0x1.8p31);
}

TEST(H265NalSeiThreeDimensionalReferenceDisplaysInfo, HasPrecisionsUpTo31) {
    EXPECT_EQ(test::refusal_of(176, "00000100001 0 1 1 1 000000 0 0"),
              "prec_ref_display_width at bit 16 is 32; allowed: 0 to 31");
    EXPECT_EQ(test::refusal_of(176, "1 1 00000100001 1 1 1 000000 000000 0 0"),
              "prec_ref_viewing_dist at bit 18 is 32; allowed: 0 to 31");
    const auto alone = test::parsed_alone<h265_nal_sei_three_dimensional_reference_displays_info>(
        "1 1 00000100000 1 1 1 000000 000000 0 0 0");
    EXPECT_EQ(alone.record.prec_ref_viewing_dist, 31U);
    EXPECT_TRUE(alone.out_of_range.empty());
}

TEST(H265NalSeiThreeDimensionalReferenceDisplaysInfo, HasUpTo32Displays) {
    const auto displays = [](int count) {
        std::string bits;
        for (int i = 0; i < count; ++i) {
            bits += "1 1 011111 0";
        }
        return bits;
    };
    const auto most = test::parsed_alone<h265_nal_sei_three_dimensional_reference_displays_info>(
        "1 0 00000100000" + displays(32) + "1");
    EXPECT_EQ(most.record.reference_displays.size(), 32U);
    EXPECT_EQ(most.record.reference_displays.back().ref_display_width.value(), 1.0);
    EXPECT_EQ(test::refusal_of(176, "1 0 00000100001" + displays(33) + "1"),
              "num_ref_displays_minus1 at bit 18 is 32; allowed: 0 to 31");
}

// Without a distance a display has 9 bits, with it 15.
TEST(H265NalSeiThreeDimensionalReferenceDisplaysInfo, HasDisplaysThatTheDataHolds) {
    EXPECT_EQ(test::refusal_of(176, "1 0 00100 1 1 000000 0"),
              "num_ref_displays_minus1 at bit 18 is 3; allowed: 0");
    EXPECT_EQ(test::refusal_of(176, "1 1 1 00100 1 1 000000 000000 0 0"),
              "num_ref_displays_minus1 at bit 19 is 3; allowed: 0");
}

}  // namespace
}  // namespace kovran
