#include <kovran/h265/sei/h265_nal_sei_bsp_nesting.h>

#include <gtest/gtest.h>

#include "support/sei_payload.h"

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
    EXPECT_EQ(nesting.sei_message.size(), 2U);
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

}  // namespace
}  // namespace kovran
