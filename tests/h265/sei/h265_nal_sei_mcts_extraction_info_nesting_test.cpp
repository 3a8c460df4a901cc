#include <kovran/h265/sei/h265_nal_sei_mcts_extraction_info_nesting.h>

#include <vector>

#include <gtest/gtest.h>

#include "support/sei_payload.h"

namespace kovran {
namespace {

TEST(H265NalSeiMctsExtractionInfoNesting, AppliesToTileSets) {
    const auto nesting = test::record_of<h265_nal_sei_mcts_extraction_info_nesting>(
        "0 010 1 011 010 0 0 0 0 0 x90 x04 x03xe8 x01x90 x93 x01 x12",
        "all_mcts_flag 0\n"
        "num_associated_mcts_minus1 1\n"
        "idx_of_associated_mcts[0] 0\n"
        "idx_of_associated_mcts[1] 2\n"
        "num_sei_messages_in_mcts_extraction_nesting_minus1 1\n"
        "mcts_nesting_zero_bit 0\n"
        "mcts_nesting_zero_bit 0\n"
        "mcts_nesting_zero_bit 0\n"
        "mcts_nesting_zero_bit 0\n"
        "mcts_nesting_zero_bit 0\n"
        "sei_message[0].last_payload_type_byte 144\n"
        "sei_message[0].last_payload_size_byte 4\n"
        "sei_message[0].content_light_level_info.max_content_light_level 1000\n"
        "sei_message[0].content_light_level_info.max_pic_average_light_level 400\n"
        "sei_message[1].last_payload_type_byte 147\n"
        "sei_message[1].last_payload_size_byte 1\n"
        "sei_message[1].alternative_transfer_characteristics.preferred_transfer_characteristics "
        "18\n",
        {}, test::payload_end::takes_all);
    EXPECT_FALSE(nesting.all_mcts_flag);
    EXPECT_EQ(nesting.idx_of_associated_mcts, (std::vector<unsigned int>{0, 2}));
    EXPECT_EQ(nesting.sei_message.size(), 2U);
}

TEST(H265NalSeiMctsExtractionInfoNesting, AppliesToAllTileSets) {
    const auto nesting = test::record_of<h265_nal_sei_mcts_extraction_info_nesting>(
        "1 1 0 0 0 0 0 0 x93 x01 x12",
        "all_mcts_flag 1\n"
        "num_sei_messages_in_mcts_extraction_nesting_minus1 0\n"
        "mcts_nesting_zero_bit 0\n"
        "mcts_nesting_zero_bit 0\n"
        "mcts_nesting_zero_bit 0\n"
        "mcts_nesting_zero_bit 0\n"
        "mcts_nesting_zero_bit 0\n"
        "mcts_nesting_zero_bit 0\n"
        "sei_message[0].last_payload_type_byte 147\n"
        "sei_message[0].last_payload_size_byte 1\n"
        "sei_message[0].alternative_transfer_characteristics.preferred_transfer_characteristics "
        "18\n",
        {}, test::payload_end::takes_all);
    EXPECT_TRUE(nesting.all_mcts_flag);
    EXPECT_EQ(nesting.sei_message.size(), 1U);
}

// 8 bits are left.
TEST(H265NalSeiMctsExtractionInfoNesting, HasNoMoreTileSetsThanTheDataHolds) {
    EXPECT_EQ(test::refusal_of(h265_nal_sei_mcts_extraction_info_nesting::payload_type,
                               "0 0001001 1111 1111"),
              "num_associated_mcts_minus1 at bit 17 is 8; allowed: 0 to 7");
}

// 4 bits and 3 bytes are left.
TEST(H265NalSeiMctsExtractionInfoNesting, HasNoMoreMessagesThanTheDataHolds) {
    EXPECT_EQ(test::refusal_of(h265_nal_sei_mcts_extraction_info_nesting::payload_type,
                               "1 010 0 0 0 0 x93 x01 x12"),
              "num_sei_messages_in_mcts_extraction_nesting_minus1 at bit 17 is 1; allowed: 0");
}

TEST(H265NalSeiMctsExtractionInfoNesting, HasWholeMessages) {
    EXPECT_EQ(test::refusal_of(h265_nal_sei_mcts_extraction_info_nesting::payload_type,
                               "1 010 0 0 0 0 x90 x04 x03xe8 x01x90"),
              "the data ends before the end of sei_message[1].last_payload_type_byte at bit 72");
}

}  // namespace
}  // namespace kovran
