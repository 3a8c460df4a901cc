#include <kovran/h265/sei/h265_nal_sei_scalable_nesting.h>

#include <string>
#include <variant>
#include <vector>

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

// A recovery point has a code of se(v), which a byte of zeros does not end.
TEST(ScalableNesting, TellsWhyAMessageInItCannotBeRead) {
    const test::sei_reading reading =
        test::read_payload(133, test::bytes_of("0 0 1 00000  x06 x01 x00"));
    EXPECT_TRUE(reading.read);
    EXPECT_EQ(to_string(reading.fault),
              "the data ends before the end of "
              "sei_message[0].recovery_point.recovery_poc_cnt at bit 40");
    const auto& nesting = std::get<h265_nal_sei_scalable_nesting>(reading.message.payload);
    ASSERT_EQ(nesting.sei_message.size(), 1U);
    EXPECT_FALSE(nesting.sei_message[0].valid);
    EXPECT_EQ(std::get<h265_nal_sei_reserved_message>(nesting.sei_message[0].payload)
                  .reserved_sei_message_payload_byte,
              std::vector<unsigned char>{0});
}

// no_display() in so many nestings.
std::vector<unsigned char> nested_no_display(unsigned int nestings) {
    std::vector<unsigned char> message = {135, 0};
    for (unsigned int i = 0; i < nestings; ++i) {
        const auto size = static_cast<unsigned char>(message.size() + 1);
        message.insert(message.begin(), {133, size, 0x20});
    }
    return {message.begin() + 2, message.end()};  // the outermost payload
}

TEST(ScalableNesting, IsReadToADepthOfFour) {
    EXPECT_EQ(to_string(test::read_payload(133, nested_no_display(4)).fault), "no fault");
    const test::sei_reading five = test::read_payload(133, nested_no_display(5));
    EXPECT_TRUE(five.read);
    EXPECT_NE(to_string(five.fault).find("nesting_depth"), std::string::npos);
    EXPECT_NE(to_string(five.fault).find("is 5; allowed: 0 to 4"), std::string::npos);
}

}  // namespace
}  // namespace kovran
