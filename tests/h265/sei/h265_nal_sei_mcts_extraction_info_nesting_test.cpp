#include <kovran/h265/sei/h265_nal_sei_mcts_extraction_info_nesting.h>

#include <kovran/h265/sei/h265_nal_sei_alternative_transfer_characteristics.h>
#include <kovran/h265/sei/h265_nal_sei_content_light_level_info.h>

#include <cstddef>
#include <variant>
#include <vector>

#include <gtest/gtest.h>

#include "support/sei_payload.h"
#include "support/sei_record_parsing.h"

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
    ASSERT_EQ(nesting.sei_message.size(), 2U);
    EXPECT_TRUE(std::holds_alternative<h265_nal_sei_content_light_level_info>(
        nesting.sei_message[0].payload));
    EXPECT_TRUE(std::holds_alternative<h265_nal_sei_alternative_transfer_characteristics>(
        nesting.sei_message[1].payload));
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

TEST(H265NalSeiMctsExtractionInfoNesting, HasMessagesBehindItsHead) {
    const std::vector<unsigned char> whole =
        test::bytes_of("0 010 1 011 010 0 0 0 0 0 x90 x04 x03xe8 x01x90 x93 x01 x12");
    for (std::size_t size = 0; size < 2; ++size) {
        const std::vector<unsigned char> first(whole.data(), whole.data() + size);
        EXPECT_FALSE(
            test::read_payload(h265_nal_sei_mcts_extraction_info_nesting::payload_type, first).read)
            << size;
    }
}

// The last message has a byte less than it says.
TEST(H265NalSeiMctsExtractionInfoNesting, KeepsTheBytesOfAMessageThatIsCutOff) {
    std::vector<unsigned char> payload =
        test::bytes_of("0 010 1 011 010 0 0 0 0 0 x90 x04 x03xe8 x01x90 x93 x01 x12");
    payload.pop_back();
    const test::sei_reading reading =
        test::read_payload(h265_nal_sei_mcts_extraction_info_nesting::payload_type, payload);
    EXPECT_TRUE(reading.read);
    EXPECT_EQ(to_string(reading.fault), "sei_message[1].payloadSize at bit 96 is 1; allowed: 0");
    const auto* const nesting =
        std::get_if<h265_nal_sei_mcts_extraction_info_nesting>(&reading.message.payload);
    ASSERT_NE(nesting, nullptr);
    EXPECT_TRUE(nesting->valid);
    ASSERT_EQ(nesting->sei_message.size(), 2U);
    EXPECT_TRUE(nesting->sei_message[0].valid);
    EXPECT_FALSE(nesting->sei_message[1].valid);
}

TEST(H265NalSeiMctsExtractionInfoNesting, KeepsExtensionData) {
    std::vector<unsigned char> payload =
        test::bytes_of("0 010 1 011 010 0 0 0 0 0 x90 x04 x03xe8 x01x90 x93 x01 x12");
    payload.push_back(0b1011'0000);
    const test::sei_reading reading =
        test::read_payload(h265_nal_sei_mcts_extraction_info_nesting::payload_type, payload);
    EXPECT_TRUE(reading.read);
    EXPECT_EQ(reading.message.reserved_payload_extension_data,
              (std::vector<bool>{true, false, true}));
}

TEST(H265NalSeiMctsExtractionInfoNesting, IsReadByItself) {
    const test::sei_stores stores;
    const auto parsed = test::parsed_alone<h265_nal_sei_mcts_extraction_info_nesting>(
        "0 010 1 011 010 0 0 0 0 0 x90 x04 x03xe8 x01x90 x93 x01 x12", stores.vps, stores.sps);
    EXPECT_EQ(parsed.element_count, 17U);
    EXPECT_EQ(parsed.record.sei_message.size(), 2U);
    EXPECT_EQ(parsed.untraced.sei_message.size(), 2U);
}

}  // namespace
}  // namespace kovran
