#include <kovran/h265/sei/h265_nal_sei_scalable_nesting.h>

#include <string>
#include <variant>
#include <vector>

#include <gtest/gtest.h>

#include "support/sei_payload.h"

namespace kovran {
namespace {

// A recovery point for two operation points.
TEST(H265NalSeiScalableNesting, AppliesToOperationPoints) {
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
TEST(H265NalSeiScalableNesting, HasOneMessageBehindTheOther) {
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

TEST(H265NalSeiScalableNesting, LeavesOutTheDefaultOperationPoint) {
    const auto nesting = test::record_of<h265_nal_sei_scalable_nesting>(
        "1 1 1 010 011 00100 00  x93 x01 x12",
        "bitstream_subset_flag 1\n"
        "nesting_op_flag 1\n"
        "default_op_flag 1\n"
        "nesting_num_ops_minus1 1\n"
        "nesting_max_temporal_id_plus1[1] 3\n"
        "nesting_op_idx[1] 3\n"
        "nesting_zero_bit 0\n"
        "nesting_zero_bit 0\n"
        "sei_message[0].last_payload_type_byte 147\n"
        "sei_message[0].last_payload_size_byte 1\n"
        "sei_message[0].alternative_transfer_characteristics.preferred_transfer_characteristics "
        "18\n",
        {}, test::payload_end::takes_all);
    EXPECT_TRUE(nesting.bitstream_subset_flag);
    EXPECT_TRUE(nesting.default_op_flag);
    EXPECT_EQ(nesting.nesting_max_temporal_id_plus1, (std::vector<unsigned char>{0, 3}));
    EXPECT_EQ(nesting.nesting_op_idx, (std::vector<unsigned int>{0, 3}));
}

TEST(H265NalSeiScalableNesting, MayHaveTheDefaultOperationPointAlone) {
    const auto nesting =
        test::record_of<h265_nal_sei_scalable_nesting>("0 1 1 1 0000",
                                                       "bitstream_subset_flag 0\n"
                                                       "nesting_op_flag 1\n"
                                                       "default_op_flag 1\n"
                                                       "nesting_num_ops_minus1 0\n"
                                                       "nesting_zero_bit 0\n"
                                                       "nesting_zero_bit 0\n"
                                                       "nesting_zero_bit 0\n"
                                                       "nesting_zero_bit 0\n",
                                                       {}, test::payload_end::takes_all);
    EXPECT_EQ(nesting.nesting_op_idx.size(), 1U);
    EXPECT_TRUE(nesting.sei_message.empty());
}

TEST(H265NalSeiScalableNesting, AppliesToLayers) {
    const auto nesting = test::record_of<h265_nal_sei_scalable_nesting>(
        "0 0 0 101 010 000001 111111 000  x93 x01 x12",
        "bitstream_subset_flag 0\n"
        "nesting_op_flag 0\n"
        "all_layers_flag 0\n"
        "nesting_no_op_max_temporal_id_plus1 5\n"
        "nesting_num_layers_minus1 1\n"
        "nesting_layer_id[0] 1\n"
        "nesting_layer_id[1] 63\n"
        "nesting_zero_bit 0\n"
        "nesting_zero_bit 0\n"
        "nesting_zero_bit 0\n"
        "sei_message[0].last_payload_type_byte 147\n"
        "sei_message[0].last_payload_size_byte 1\n"
        "sei_message[0].alternative_transfer_characteristics.preferred_transfer_characteristics "
        "18\n",
        {}, test::payload_end::takes_all);
    EXPECT_FALSE(nesting.all_layers_flag);
    EXPECT_EQ(nesting.nesting_no_op_max_temporal_id_plus1, 5);
    EXPECT_EQ(nesting.nesting_layer_id, (std::vector<unsigned char>{1, 63}));
    EXPECT_TRUE(nesting.nesting_op_idx.empty());
}

TEST(H265NalSeiScalableNesting, HasAtMost1024OperationPoints) {
    std::string points;
    for (unsigned int i = 0; i < 1025; ++i) {
        points += "111 1";
    }
    const std::string ue_1023 = "0000000000 1 0000000000";
    EXPECT_TRUE(test::read_payload(133, test::bytes_of("0 1 0" + ue_1023 + points)).read);
    const std::string ue_1024 = "0000000000 1 0000000001";
    EXPECT_EQ(test::refusal_of(133, "0 1 0" + ue_1024 + points),
              "nesting_num_ops_minus1 at bit 35 is 1024; allowed: 0 to 1023");
}

// 8 bits are left, and an operation point has 4 at the least.
TEST(H265NalSeiScalableNesting, HasNoMoreOperationPointsThanTheDataHolds) {
    EXPECT_EQ(test::refusal_of(133, "0 1 0 00100 1111 1111"),
              "nesting_num_ops_minus1 at bit 19 is 3; allowed: 0 to 1");
    EXPECT_EQ(test::refusal_of(133, "0 1 1 00100 1111 1111"),
              "nesting_num_ops_minus1 at bit 19 is 3; allowed: 0 to 2");
    EXPECT_TRUE(test::read_payload(133, test::bytes_of("0 1 1 011 1111 1111 00")).read);
}

// Identifiers of 65 layers.
TEST(H265NalSeiScalableNesting, HasAtMost64Layers) {
    const std::string layers(390, '0');
    EXPECT_TRUE(test::read_payload(133, test::bytes_of("0 0 0 111 000000 1 000000" + layers)).read);
    EXPECT_EQ(test::refusal_of(133, "0 0 0 111 000000 1 000001" + layers),
              "nesting_num_layers_minus1 at bit 22 is 64; allowed: 0 to 63");
}

TEST(H265NalSeiScalableNesting, HasWholeTypesAndSizes) {
    EXPECT_EQ(test::refusal_of(133, "0 0 1 00000 xff xff"),
              "the data ends before the end of sei_message[0].last_payload_type_byte at bit 40");
    EXPECT_EQ(test::refusal_of(133, "0 0 1 00000 x06 xff"),
              "the data ends before the end of sei_message[0].last_payload_size_byte at bit 40");
}

// The light levels have one byte of four; the nest is read, the message in it is kept as bytes.
TEST(H265NalSeiScalableNesting, TellsAMessageWhoseDataEnds) {
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
TEST(H265NalSeiScalableNesting, KeepsAnUnknownMessageThatIsTooLong) {
    const test::sei_reading reading =
        test::read_payload(133, test::bytes_of("0 0 1 00000  x64 x05 xaa"));
    EXPECT_TRUE(reading.read);
    const auto& nesting = std::get<h265_nal_sei_scalable_nesting>(reading.message.payload);
    EXPECT_FALSE(nesting.sei_message.at(0).valid);
}

}  // namespace
}  // namespace kovran
