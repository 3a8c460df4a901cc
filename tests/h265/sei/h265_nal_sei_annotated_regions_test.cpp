#include <kovran/h265/sei/h265_nal_sei_annotated_regions.h>

#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "support/sei_payload.h"
#include "support/sei_record_parsing.h"

namespace kovran {
namespace {

std::vector<unsigned char> annotated_regions_text(std::string_view text) {
    return {text.begin(), text.end()};
}

TEST(H265NalSeiAnnotatedRegions, MayEndAfterItsFirstFlag) {
    const auto regions = test::record_of<h265_nal_sei_annotated_regions>("1", "ar_cancel_flag 1\n");
    EXPECT_TRUE(regions.ar_cancel_flag);
}

// Two labels, the second one cancelled; four objects: cancelled, with all that there is, with a box
// cancelled, and without a box.
TEST(H265NalSeiAnnotatedRegions, HasAllThatThereIs) {
    const auto regions = test::record_of<h265_nal_sei_annotated_regions>(
        "0 1 0 1 1 1 1 1001 1 0000 x65x6ex00"
        "011 00100 0 0000000 x63x61x72x00"
        "010 1 00101"
        "1 1"
        "00110 0 1 00100 1 0 0000000100000000 0000000000000010 0000010000000000 0000000000001000 "
        "1 1000000001"
        "011 0 0 1 1"
        "010 0 1 1 0",
        "ar_cancel_flag 0\n"
        "ar_not_optimized_for_viewing_flag 1\n"
        "ar_true_motion_flag 0\n"
        "ar_occluded_object_flag 1\n"
        "ar_partial_object_flag_present_flag 1\n"
        "ar_object_label_present_flag 1\n"
        "ar_object_confidence_info_present_flag 1\n"
        "ar_object_confidence_length_minus1 9\n"
        "ar_object_label_language_present_flag 1\n"
        "ar_bit_equal_to_zero 0\n"
        "ar_bit_equal_to_zero 0\n"
        "ar_bit_equal_to_zero 0\n"
        "ar_bit_equal_to_zero 0\n"
        "ar_object_label_language 656e00\n"
        "ar_num_label_updates 2\n"
        "ar_label_idx[0] 3\n"
        "ar_label_cancel_flag 0\n"
        "ar_bit_equal_to_zero 0\n"
        "ar_bit_equal_to_zero 0\n"
        "ar_bit_equal_to_zero 0\n"
        "ar_bit_equal_to_zero 0\n"
        "ar_bit_equal_to_zero 0\n"
        "ar_bit_equal_to_zero 0\n"
        "ar_bit_equal_to_zero 0\n"
        "ar_label[3] 63617200\n"
        "ar_label_idx[1] 1\n"
        "ar_label_cancel_flag 1\n"
        "ar_num_object_updates 4\n"
        "ar_object_idx[0] 0\n"
        "ar_object_cancel_flag 1\n"
        "ar_object_idx[1] 5\n"
        "ar_object_cancel_flag 0\n"
        "ar_object_label_update_flag 1\n"
        "ar_object_label_idx[5] 3\n"
        "ar_bounding_box_update_flag 1\n"
        "ar_bounding_box_cancel_flag 0\n"
        "ar_bounding_box_top[5] 256\n"
        "ar_bounding_box_left[5] 2\n"
        "ar_bounding_box_width[5] 1024\n"
        "ar_bounding_box_height[5] 8\n"
        "ar_partial_object_flag[5] 1\n"
        "ar_object_confidence[5] 513\n"
        "ar_object_idx[2] 2\n"
        "ar_object_cancel_flag 0\n"
        "ar_object_label_update_flag 0\n"
        "ar_bounding_box_update_flag 1\n"
        "ar_bounding_box_cancel_flag 1\n"
        "ar_object_idx[3] 1\n"
        "ar_object_cancel_flag 0\n"
        "ar_object_label_update_flag 1\n"
        "ar_object_label_idx[1] 0\n"
        "ar_bounding_box_update_flag 0\n");
    EXPECT_TRUE(regions.ar_not_optimized_for_viewing_flag);
    EXPECT_FALSE(regions.ar_true_motion_flag);
    EXPECT_TRUE(regions.ar_occluded_object_flag);
    EXPECT_EQ(regions.ar_object_confidence_length_minus1, 9);
    EXPECT_EQ(regions.ar_object_label_language, annotated_regions_text("en"));
    ASSERT_EQ(regions.label_updates.size(), 2U);
    EXPECT_EQ(regions.label_updates[0].ar_label_idx, 3U);
    EXPECT_EQ(regions.label_updates[0].ar_label, annotated_regions_text("car"));
    EXPECT_TRUE(regions.label_updates[1].ar_label_cancel_flag);
    EXPECT_TRUE(regions.label_updates[1].ar_label.empty());
    ASSERT_EQ(regions.object_updates.size(), 4U);
    EXPECT_TRUE(regions.object_updates[0].ar_object_cancel_flag);
    const auto& object = regions.object_updates[1];
    EXPECT_EQ(object.ar_object_idx, 5U);
    EXPECT_EQ(object.ar_object_label_idx, 3U);
    EXPECT_EQ(object.ar_bounding_box_top, 256);
    EXPECT_EQ(object.ar_bounding_box_left, 2);
    EXPECT_EQ(object.ar_bounding_box_width, 1024);
    EXPECT_EQ(object.ar_bounding_box_height, 8);
    EXPECT_TRUE(object.ar_partial_object_flag);
    EXPECT_EQ(object.ar_object_confidence, 513);
    EXPECT_TRUE(regions.object_updates[2].ar_bounding_box_cancel_flag);
    EXPECT_TRUE(regions.object_updates[3].ar_object_label_update_flag);
}

TEST(H265NalSeiAnnotatedRegions, HasABoxAlone) {
    const auto regions = test::record_of<h265_nal_sei_annotated_regions>(
        "0 0 1 0 0 0 0 010 1 0 1 0"
        "0000000000000001 0000000000000010 0000000000000011 0000000000000100",
        "ar_cancel_flag 0\n"
        "ar_not_optimized_for_viewing_flag 0\n"
        "ar_true_motion_flag 1\n"
        "ar_occluded_object_flag 0\n"
        "ar_partial_object_flag_present_flag 0\n"
        "ar_object_label_present_flag 0\n"
        "ar_object_confidence_info_present_flag 0\n"
        "ar_num_object_updates 1\n"
        "ar_object_idx[0] 0\n"
        "ar_object_cancel_flag 0\n"
        "ar_bounding_box_update_flag 1\n"
        "ar_bounding_box_cancel_flag 0\n"
        "ar_bounding_box_top[0] 1\n"
        "ar_bounding_box_left[0] 2\n"
        "ar_bounding_box_width[0] 3\n"
        "ar_bounding_box_height[0] 4\n");
    EXPECT_TRUE(regions.ar_true_motion_flag);
    EXPECT_TRUE(regions.label_updates.empty());
    ASSERT_EQ(regions.object_updates.size(), 1U);
    EXPECT_EQ(regions.object_updates[0].ar_bounding_box_height, 4);
}

TEST(H265NalSeiAnnotatedRegions, HasLabelsWithoutALanguage) {
    const auto regions =
        test::parsed_alone<h265_nal_sei_annotated_regions>("0 0 0 0 0 1 0 0 010 1 0 000 x41x00 1");
    EXPECT_FALSE(regions.record.ar_object_label_language_present_flag);
    ASSERT_EQ(regions.record.label_updates.size(), 1U);
    EXPECT_EQ(regions.record.label_updates[0].ar_label, annotated_regions_text("A"));
    EXPECT_TRUE(regions.record.object_updates.empty());
}

TEST(H265NalSeiAnnotatedRegions, HasTextsWithAZeroByteBehindThem) {
    EXPECT_EQ(test::refusal_of(202, "0 0 0 0 0 1 0 1 x65x6e"),
              "the data ends before the end of ar_object_label_language at bit 24");
    EXPECT_EQ(test::refusal_of(202, "0 0 0 0 0 1 0 0 010 1 0 000 x41x42"),
              "the data ends before the end of ar_label[0] at bit 32");
}

// ue(v): 255 is 0000 0000 1 0000 0000.
TEST(H265NalSeiAnnotatedRegions, HasUpTo255Updates) {
    std::string cancelled;
    for (int i = 0; i < 256; ++i) {
        cancelled += "1 1 ";
    }
    const std::string labels = "0 0 0 0 0 1 0 0 ";
    const auto most_labels = test::parsed_alone<h265_nal_sei_annotated_regions>(
        labels + "00000000100000000" + cancelled + "1");
    EXPECT_EQ(most_labels.record.label_updates.size(), 255U);
    EXPECT_EQ(test::refusal_of(202, labels + "00000000100000001" + cancelled + "1"),
              "ar_num_label_updates at bit 24 is 256; allowed: 0 to 255");
    const std::string objects = "0 0 0 0 0 0 0 ";
    const auto most_objects = test::parsed_alone<h265_nal_sei_annotated_regions>(
        objects + "00000000100000000" + cancelled);
    EXPECT_EQ(most_objects.record.object_updates.size(), 255U);
    EXPECT_EQ(test::refusal_of(202, objects + "00000000100000001" + cancelled),
              "ar_num_object_updates at bit 23 is 256; allowed: 0 to 255");
}

TEST(H265NalSeiAnnotatedRegions, HasUpdatesThatTheDataHolds) {
    EXPECT_EQ(test::refusal_of(202, "0 0 0 0 0 1 0 0 00111 111"),
              "ar_num_label_updates at bit 24 is 6; allowed: 0 to 1");
    EXPECT_EQ(test::refusal_of(202, "0 0 0 0 0 0 0 00111 1111"),
              "ar_num_object_updates at bit 23 is 6; allowed: 0 to 2");
}

TEST(H265NalSeiAnnotatedRegions, HasIndicesUpTo255) {
    const auto most = test::parsed_alone<h265_nal_sei_annotated_regions>(
        "0 0 0 0 0 1 0 0 010 00000000100000000 1 010 00000000100000000 0 1 00000000100000000 0");
    EXPECT_TRUE(most.out_of_range.empty());
    const auto more = test::parsed_alone<h265_nal_sei_annotated_regions>(
        "0 0 0 0 0 1 0 0 010 00000000100000001 1 010 00000000100000001 0 1 00000000100000001 0");
    EXPECT_EQ(more.out_of_range, "ar_label_idx[0], ar_object_idx[0], ar_object_label_idx[256]");
}

}  // namespace
}  // namespace kovran
