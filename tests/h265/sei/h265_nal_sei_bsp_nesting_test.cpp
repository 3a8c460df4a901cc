#include <kovran/h265/sei/h265_nal_sei_bsp_nesting.h>

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

TEST(H265NalSeiBspNesting, AppliesToAPartition) {
    const auto nesting = test::record_of<h265_nal_sei_bsp_nesting>(
        "00101 010 011 010 0 0 x90 x04 x03xe8 x01x90 x93 x01 x12",
        "sei_ols_idx 4\n"
        "sei_partitioning_scheme_idx 1\n"
        "bsp_idx 2\n"
        "num_seis_in_bsp_minus1 1\n"
        "bsp_nesting_zero_bit 0\n"
        "bsp_nesting_zero_bit 0\n"
        "sei_message[0].last_payload_type_byte 144\n"
        "sei_message[0].last_payload_size_byte 4\n"
        "sei_message[0].content_light_level_info.max_content_light_level 1000\n"
        "sei_message[0].content_light_level_info.max_pic_average_light_level 400\n"
        "sei_message[1].last_payload_type_byte 147\n"
        "sei_message[1].last_payload_size_byte 1\n"
        "sei_message[1].alternative_transfer_characteristics.preferred_transfer_characteristics "
        "18\n",
        {}, test::payload_end::takes_all);
    EXPECT_EQ(nesting.sei_ols_idx, 4U);
    EXPECT_EQ(nesting.sei_partitioning_scheme_idx, 1U);
    EXPECT_EQ(nesting.bsp_idx, 2U);
    ASSERT_EQ(nesting.sei_message.size(), 2U);
    EXPECT_TRUE(std::holds_alternative<h265_nal_sei_content_light_level_info>(
        nesting.sei_message[0].payload));
    EXPECT_TRUE(std::holds_alternative<h265_nal_sei_alternative_transfer_characteristics>(
        nesting.sei_message[1].payload));
}

TEST(H265NalSeiBspNesting, EndsItsHeadOnAByteBoundary) {
    const auto nesting = test::record_of<h265_nal_sei_bsp_nesting>(
        "010 1 1 010 x90 x04 x03xe8 x01x90 x93 x01 x12",
        "sei_ols_idx 1\n"
        "sei_partitioning_scheme_idx 0\n"
        "bsp_idx 0\n"
        "num_seis_in_bsp_minus1 1\n"
        "sei_message[0].last_payload_type_byte 144\n"
        "sei_message[0].last_payload_size_byte 4\n"
        "sei_message[0].content_light_level_info.max_content_light_level 1000\n"
        "sei_message[0].content_light_level_info.max_pic_average_light_level 400\n"
        "sei_message[1].last_payload_type_byte 147\n"
        "sei_message[1].last_payload_size_byte 1\n"
        "sei_message[1].alternative_transfer_characteristics.preferred_transfer_characteristics "
        "18\n",
        {}, test::payload_end::takes_all);
    EXPECT_EQ(nesting.sei_message.size(), 2U);
}

// 3 bytes are left.
TEST(H265NalSeiBspNesting, HasNoMoreMessagesThanTheDataHolds) {
    EXPECT_EQ(test::refusal_of(h265_nal_sei_bsp_nesting::payload_type, "010 1 1 010 x93 x01 x12"),
              "num_seis_in_bsp_minus1 at bit 21 is 1; allowed: 0");
}

TEST(H265NalSeiBspNesting, HasWholeMessages) {
    EXPECT_EQ(test::refusal_of(h265_nal_sei_bsp_nesting::payload_type,
                               "010 1 1 010 x90 x04 x03xe8 x01x90"),
              "the data ends before the end of sei_message[1].last_payload_type_byte at bit 72");
}

TEST(H265NalSeiBspNesting, HasMessagesBehindItsHead) {
    const std::vector<unsigned char> whole =
        test::bytes_of("00101 010 011 010 0 0 x90 x04 x03xe8 x01x90 x93 x01 x12");
    for (std::size_t size = 0; size < 2; ++size) {
        const std::vector<unsigned char> first(whole.data(), whole.data() + size);
        EXPECT_FALSE(test::read_payload(h265_nal_sei_bsp_nesting::payload_type, first).read)
            << size;
    }
}

// The last message has a byte less than it says.
TEST(H265NalSeiBspNesting, KeepsTheBytesOfAMessageThatIsCutOff) {
    std::vector<unsigned char> payload =
        test::bytes_of("00101 010 011 010 0 0 x90 x04 x03xe8 x01x90 x93 x01 x12");
    payload.pop_back();
    const test::sei_reading reading =
        test::read_payload(h265_nal_sei_bsp_nesting::payload_type, payload);
    EXPECT_TRUE(reading.read);
    EXPECT_EQ(to_string(reading.fault), "sei_message[1].payloadSize at bit 96 is 1; allowed: 0");
    const auto* const nesting = std::get_if<h265_nal_sei_bsp_nesting>(&reading.message.payload);
    ASSERT_NE(nesting, nullptr);
    EXPECT_TRUE(nesting->valid);
    ASSERT_EQ(nesting->sei_message.size(), 2U);
    EXPECT_TRUE(nesting->sei_message[0].valid);
    EXPECT_FALSE(nesting->sei_message[1].valid);
}

TEST(H265NalSeiBspNesting, KeepsExtensionData) {
    std::vector<unsigned char> payload =
        test::bytes_of("00101 010 011 010 0 0 x90 x04 x03xe8 x01x90 x93 x01 x12");
    payload.push_back(0b1011'0000);
    const test::sei_reading reading =
        test::read_payload(h265_nal_sei_bsp_nesting::payload_type, payload);
    EXPECT_TRUE(reading.read);
    EXPECT_EQ(reading.message.reserved_payload_extension_data,
              (std::vector<bool>{true, false, true}));
}

TEST(H265NalSeiBspNesting, IsReadByItself) {
    const test::sei_stores stores;
    const auto parsed = test::parsed_alone<h265_nal_sei_bsp_nesting>(
        "00101 010 011 010 0 0 x90 x04 x03xe8 x01x90 x93 x01 x12", stores.vps, stores.sps);
    EXPECT_EQ(parsed.element_count, 13U);
    EXPECT_EQ(parsed.record.sei_message.size(), 2U);
    EXPECT_EQ(parsed.untraced.sei_message.size(), 2U);
}

}  // namespace
}  // namespace kovran
