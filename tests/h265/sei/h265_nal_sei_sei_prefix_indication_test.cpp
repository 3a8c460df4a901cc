#include <kovran/h265/sei/h265_nal_sei_sei_prefix_indication.h>

#include <vector>

#include <gtest/gtest.h>

#include "support/sei_payload.h"
#include "support/sei_record_parsing.h"

namespace kovran {
namespace {

TEST(H265NalSeiSeiPrefixIndication, HasTheFirstBitsOfPayloads) {
    const auto indication = test::record_of<h265_nal_sei_sei_prefix_indication>(
        "x00x89 x01  x00x02 101 11111  x00x07 01100001",
        "prefix_sei_payload_type 137\n"
        "num_sei_prefix_indications_minus1 1\n"
        "num_bits_in_prefix_indication_minus1[0] 2\n"
        "sei_prefix_data_bit[0][0] 1\n"
        "sei_prefix_data_bit[0][1] 0\n"
        "sei_prefix_data_bit[0][2] 1\n"
        "byte_alignment_bit_equal_to_one 1\n"
        "byte_alignment_bit_equal_to_one 1\n"
        "byte_alignment_bit_equal_to_one 1\n"
        "byte_alignment_bit_equal_to_one 1\n"
        "byte_alignment_bit_equal_to_one 1\n"
        "num_bits_in_prefix_indication_minus1[1] 7\n"
        "sei_prefix_data_bit[1][0] 0\n"
        "sei_prefix_data_bit[1][1] 1\n"
        "sei_prefix_data_bit[1][2] 1\n"
        "sei_prefix_data_bit[1][3] 0\n"
        "sei_prefix_data_bit[1][4] 0\n"
        "sei_prefix_data_bit[1][5] 0\n"
        "sei_prefix_data_bit[1][6] 0\n"
        "sei_prefix_data_bit[1][7] 1\n");
    EXPECT_EQ(indication.prefix_sei_payload_type, 137);
    EXPECT_EQ(indication.num_sei_prefix_indications_minus1, 1);
    ASSERT_EQ(indication.sei_prefixes.size(), 2U);
    EXPECT_EQ(indication.sei_prefixes[0].num_bits_in_prefix_indication_minus1, 2);
    EXPECT_EQ(indication.sei_prefixes[0].sei_prefix_data_bit,
              (std::vector<bool>{true, false, true}));
    EXPECT_EQ(indication.sei_prefixes[1].sei_prefix_data_bit.size(), 8U);
}

TEST(H265NalSeiSeiPrefixIndication, IsAlignedWithOnes) {
    const auto aligned =
        test::parsed_alone<h265_nal_sei_sei_prefix_indication>("x00x05 x00 x00x05 000000 01");
    EXPECT_EQ(aligned.out_of_range, "byte_alignment_bit_equal_to_one");
}

TEST(H265NalSeiSeiPrefixIndication, HasPrefixesThatTheDataHolds) {
    EXPECT_EQ(test::refusal_of(201, "x00x05 x02  x00x00 xff  x00x00 xff x00x00"),
              "num_sei_prefix_indications_minus1 at bit 32 is 2; allowed: 0 to 1");
    EXPECT_EQ(test::refusal_of(201, "x00x05 x00  x00x08 xff"),
              "num_bits_in_prefix_indication_minus1[0] at bit 40 is 8; allowed: 0 to 7");
}

}  // namespace
}  // namespace kovran
