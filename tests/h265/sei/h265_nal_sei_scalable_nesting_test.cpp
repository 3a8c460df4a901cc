#include <kovran/h265/sei/h265_nal_sei_scalable_nesting.h>

#include <variant>

#include <gtest/gtest.h>

#include "support/sei_payload.h"

namespace kovran {
namespace {

// A recovery point for two operation points.
TEST(ScalableNesting, AppliesToOperationPoints) {
    const auto nesting = test::record_of<h265_nal_sei_scalable_nesting>(
        "0 1 0 010 111 010 001 011 000000  x06 x01 1 1 0 1 0000",
        "bitstream_subset_flag 0\n"
        "nesting_op_flag 1\n"
        "default_op_flag 0\n"
        "nesting_num_ops_minus1 1\n"
        "nesting_max_temporal_id_plus1[0] 7\n"
        "nesting_op_idx[0] 1\n"
        "nesting_max_temporal_id_plus1[1] 1\n"
        "nesting_op_idx[1] 2\n"
        "nesting_zero_bit 0\n"
        "nesting_zero_bit 0\n"
        "nesting_zero_bit 0\n"
        "nesting_zero_bit 0\n"
        "nesting_zero_bit 0\n"
        "nesting_zero_bit 0\n"
        "sei_message[0].last_payload_type_byte 6\n"
        "sei_message[0].last_payload_size_byte 1\n"
        "sei_message[0].recovery_point.recovery_poc_cnt 0\n"
        "sei_message[0].recovery_point.exact_match_flag 1\n"
        "sei_message[0].recovery_point.broken_link_flag 0\n"
        "sei_message[0].recovery_point.payload_bit_equal_to_one 1\n"
        "sei_message[0].recovery_point.payload_bit_equal_to_zero 0\n"
        "sei_message[0].recovery_point.payload_bit_equal_to_zero 0\n"
        "sei_message[0].recovery_point.payload_bit_equal_to_zero 0\n"
        "sei_message[0].recovery_point.payload_bit_equal_to_zero 0\n",
        {}, test::payload_end::takes_all);
    ASSERT_EQ(nesting.sei_message.size(), 1U);
    EXPECT_TRUE(
        std::holds_alternative<h265_nal_sei_recovery_point>(nesting.sei_message.front().payload));
}

// The bits that close a message stand before the next one.
TEST(ScalableNesting, HasOneMessageBehindTheOther) {
    const auto nesting = test::record_of<h265_nal_sei_scalable_nesting>(
        "0 0 1 00000  x06 x01 1 1 0 1 0000  x06 x01 1 1 0 1 0000",
        "bitstream_subset_flag 0\n"
        "nesting_op_flag 0\n"
        "all_layers_flag 1\n"
        "nesting_zero_bit 0\n"
        "nesting_zero_bit 0\n"
        "nesting_zero_bit 0\n"
        "nesting_zero_bit 0\n"
        "nesting_zero_bit 0\n"
        "sei_message[0].last_payload_type_byte 6\n"
        "sei_message[0].last_payload_size_byte 1\n"
        "sei_message[0].recovery_point.recovery_poc_cnt 0\n"
        "sei_message[0].recovery_point.exact_match_flag 1\n"
        "sei_message[0].recovery_point.broken_link_flag 0\n"
        "sei_message[0].recovery_point.payload_bit_equal_to_one 1\n"
        "sei_message[0].recovery_point.payload_bit_equal_to_zero 0\n"
        "sei_message[0].recovery_point.payload_bit_equal_to_zero 0\n"
        "sei_message[0].recovery_point.payload_bit_equal_to_zero 0\n"
        "sei_message[0].recovery_point.payload_bit_equal_to_zero 0\n"
        "sei_message[1].last_payload_type_byte 6\n"
        "sei_message[1].last_payload_size_byte 1\n"
        "sei_message[1].recovery_point.recovery_poc_cnt 0\n"
        "sei_message[1].recovery_point.exact_match_flag 1\n"
        "sei_message[1].recovery_point.broken_link_flag 0\n"
        "sei_message[1].recovery_point.payload_bit_equal_to_one 1\n"
        "sei_message[1].recovery_point.payload_bit_equal_to_zero 0\n"
        "sei_message[1].recovery_point.payload_bit_equal_to_zero 0\n"
        "sei_message[1].recovery_point.payload_bit_equal_to_zero 0\n"
        "sei_message[1].recovery_point.payload_bit_equal_to_zero 0\n",
        {}, test::payload_end::takes_all);
    EXPECT_EQ(nesting.sei_message.size(), 2U);
}

// The light levels have one byte of four; the nest is read, the message in it is kept as bytes.
TEST(ScalableNesting, TellsAMessageWhoseDataEnds) {
    const test::sei_reading reading =
        test::read_payload(133, test::bytes_of("0 0 1 00000  x90 x01 x03  x06 x01 1 1 0 1 0000"));
    EXPECT_TRUE(reading.read);
    EXPECT_EQ(to_string(reading.fault),
              "the data ends before the end of "
              "sei_message[0].content_light_level_info.max_content_light_level at bit 40");
    const auto& nesting = std::get<h265_nal_sei_scalable_nesting>(reading.message.payload);
    ASSERT_EQ(nesting.sei_message.size(), 2U);
    EXPECT_FALSE(nesting.sei_message[0].valid);
    EXPECT_TRUE(nesting.sei_message[1].valid);
}

// It has a byte of five.
TEST(ScalableNesting, KeepsAnUnknownMessageThatIsTooLong) {
    const test::sei_reading reading =
        test::read_payload(133, test::bytes_of("0 0 1 00000  x64 x05 xaa"));
    EXPECT_TRUE(reading.read);
    const auto& nesting = std::get<h265_nal_sei_scalable_nesting>(reading.message.payload);
    EXPECT_FALSE(nesting.sei_message.at(0).valid);
}

}  // namespace
}  // namespace kovran
