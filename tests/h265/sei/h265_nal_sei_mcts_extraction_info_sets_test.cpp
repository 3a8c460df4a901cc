#include <kovran/h265/sei/h265_nal_sei_mcts_extraction_info_sets.h>

#include <variant>
#include <vector>

#include <gtest/gtest.h>

#include "support/sei_payload.h"
#include "support/sei_record_parsing.h"

namespace kovran {
namespace {

// 3 x 2 coding tree blocks of 64 samples: addresses have 3 bits.
test::sei_stores mcts_extraction_stores() {
    test::sei_stores stores;
    h265_nal_sps& sps = stores.sps[5];
    sps.pic_width_in_luma_samples = 129;
    sps.pic_height_in_luma_samples = 128;
    sps.log2_diff_max_min_luma_coding_block_size = 3;
    stores.sps.active_id = 5;
    return stores;
}

TEST(H265NalSeiMctsExtractionInfoSets, MayHaveNoBytes) {
    const auto extraction = test::record_of<h265_nal_sei_mcts_extraction_info_sets>(
        "1 1 1 1 0 1 1 1 1 1 001 1 0 0",
        "num_info_sets_minus1 0\n"
        "num_mcts_sets_minus1[0] 0\n"
        "num_mcts_in_set_minus1[0][0] 0\n"
        "idx_of_mcts_in_set[0][0][0] 0\n"
        "slice_reordering_enabled_flag[0] 0\n"
        "num_vps_in_info_set_minus1[0] 0\n"
        "vps_rbsp_data_length[0][0] 0\n"
        "num_sps_in_info_set_minus1[0] 0\n"
        "sps_rbsp_data_length[0][0] 0\n"
        "num_pps_in_info_set_minus1[0] 0\n"
        "pps_nuh_temporal_id_plus1[0][0] 1\n"
        "pps_rbsp_data_length[0][0] 0\n"
        "mcts_alignment_bit_equal_to_zero 0\n"
        "mcts_alignment_bit_equal_to_zero 0\n");
    ASSERT_EQ(extraction.info_sets.size(), 1U);
    EXPECT_TRUE(extraction.info_sets[0].vps_rbsp_data_byte[0].empty());
    EXPECT_EQ(extraction.info_sets[0].pps_nuh_temporal_id_plus1, std::vector<unsigned char>{1});
}

TEST(H265NalSeiMctsExtractionInfoSets, HasTwoInfoSets) {
    const auto extraction = test::record_of<h265_nal_sei_mcts_extraction_info_sets>(
        "010 010 011 00101 1 011 1 00111 0 010 011 010 1 00100 010 111 1 010 010 0 0 "
        "0 x0cx01 xff x01x60x00 xc1 010 011 00101 1 011 1 00111 1 00110 101 100 011 "
        "010 001 000 010 011 010 1 00100 010 111 1 010 010 0 0 0 0 0 0 0 x0cx01 xff "
        "x01x60x00 xc1",
        "num_info_sets_minus1 1\n"
        "num_mcts_sets_minus1[0] 1\n"
        "num_mcts_in_set_minus1[0][0] 2\n"
        "idx_of_mcts_in_set[0][0][0] 4\n"
        "idx_of_mcts_in_set[0][0][1] 0\n"
        "idx_of_mcts_in_set[0][0][2] 2\n"
        "num_mcts_in_set_minus1[0][1] 0\n"
        "idx_of_mcts_in_set[0][1][0] 6\n"
        "slice_reordering_enabled_flag[0] 0\n"
        "num_vps_in_info_set_minus1[0] 1\n"
        "vps_rbsp_data_length[0][0] 2\n"
        "vps_rbsp_data_length[0][1] 1\n"
        "num_sps_in_info_set_minus1[0] 0\n"
        "sps_rbsp_data_length[0][0] 3\n"
        "num_pps_in_info_set_minus1[0] 1\n"
        "pps_nuh_temporal_id_plus1[0][0] 7\n"
        "pps_rbsp_data_length[0][0] 0\n"
        "pps_nuh_temporal_id_plus1[0][1] 2\n"
        "pps_rbsp_data_length[0][1] 1\n"
        "mcts_alignment_bit_equal_to_zero 0\n"
        "mcts_alignment_bit_equal_to_zero 0\n"
        "mcts_alignment_bit_equal_to_zero 0\n"
        "vps_rbsp_data_byte[0][0][0..1] 0c01\n"
        "vps_rbsp_data_byte[0][1][0..0] ff\n"
        "sps_rbsp_data_byte[0][0][0..2] 016000\n"
        "pps_rbsp_data_byte[0][1][0..0] c1\n"
        "num_mcts_sets_minus1[1] 1\n"
        "num_mcts_in_set_minus1[1][0] 2\n"
        "idx_of_mcts_in_set[1][0][0] 4\n"
        "idx_of_mcts_in_set[1][0][1] 0\n"
        "idx_of_mcts_in_set[1][0][2] 2\n"
        "num_mcts_in_set_minus1[1][1] 0\n"
        "idx_of_mcts_in_set[1][1][0] 6\n"
        "slice_reordering_enabled_flag[1] 1\n"
        "num_slice_segments_minus1[1] 5\n"
        "output_slice_segment_address[1][0] 5\n"
        "output_slice_segment_address[1][1] 4\n"
        "output_slice_segment_address[1][2] 3\n"
        "output_slice_segment_address[1][3] 2\n"
        "output_slice_segment_address[1][4] 1\n"
        "output_slice_segment_address[1][5] 0\n"
        "num_vps_in_info_set_minus1[1] 1\n"
        "vps_rbsp_data_length[1][0] 2\n"
        "vps_rbsp_data_length[1][1] 1\n"
        "num_sps_in_info_set_minus1[1] 0\n"
        "sps_rbsp_data_length[1][0] 3\n"
        "num_pps_in_info_set_minus1[1] 1\n"
        "pps_nuh_temporal_id_plus1[1][0] 7\n"
        "pps_rbsp_data_length[1][0] 0\n"
        "pps_nuh_temporal_id_plus1[1][1] 2\n"
        "pps_rbsp_data_length[1][1] 1\n"
        "mcts_alignment_bit_equal_to_zero 0\n"
        "mcts_alignment_bit_equal_to_zero 0\n"
        "mcts_alignment_bit_equal_to_zero 0\n"
        "mcts_alignment_bit_equal_to_zero 0\n"
        "mcts_alignment_bit_equal_to_zero 0\n"
        "mcts_alignment_bit_equal_to_zero 0\n"
        "mcts_alignment_bit_equal_to_zero 0\n"
        "vps_rbsp_data_byte[1][0][0..1] 0c01\n"
        "vps_rbsp_data_byte[1][1][0..0] ff\n"
        "sps_rbsp_data_byte[1][0][0..2] 016000\n"
        "pps_rbsp_data_byte[1][1][0..0] c1\n",
        mcts_extraction_stores());
    ASSERT_EQ(extraction.info_sets.size(), 2U);
    const auto& first = extraction.info_sets[0];
    EXPECT_EQ(first.idx_of_mcts_in_set, (std::vector<std::vector<unsigned int>>{{4, 0, 2}, {6}}));
    EXPECT_FALSE(first.slice_reordering_enabled_flag);
    EXPECT_TRUE(first.output_slice_segment_address.empty());
    const auto& second = extraction.info_sets[1];
    EXPECT_EQ(second.output_slice_segment_address, (std::vector<unsigned int>{5, 4, 3, 2, 1, 0}));
    EXPECT_EQ(second.vps_rbsp_data_byte,
              (std::vector<std::vector<unsigned char>>{{0x0C, 0x01}, {0xFF}}));
    EXPECT_EQ(second.sps_rbsp_data_byte,
              (std::vector<std::vector<unsigned char>>{{0x01, 0x60, 0x00}}));
    EXPECT_EQ(second.pps_rbsp_data_byte, (std::vector<std::vector<unsigned char>>{{}, {0xC1}}));
    EXPECT_EQ(second.pps_nuh_temporal_id_plus1, (std::vector<unsigned char>{7, 2}));
}

// Four coding tree blocks have addresses of two bits: 3 and 0.
TEST(H265NalSeiMctsExtractionInfoSets, HasAddressesOfAPowerOfTwoBlocks) {
    test::sei_stores stores = mcts_extraction_stores();
    stores.sps.at(5).pic_width_in_luma_samples = 128;
    const test::sei_reading reading =
        test::read_payload(h265_nal_sei_mcts_extraction_info_sets::payload_type,
                           test::bytes_of("1 1 1 1 1 010 11 00 1 1 1 1 1 001 1 000"), stores);
    ASSERT_TRUE(reading.read);
    const auto& extraction =
        std::get<h265_nal_sei_mcts_extraction_info_sets>(reading.message.payload);
    EXPECT_EQ(extraction.info_sets.at(0).output_slice_segment_address,
              (std::vector<unsigned int>{3, 0}));
}

TEST(H265NalSeiMctsExtractionInfoSets, NeedsAnSpsForSliceAddresses) {
    EXPECT_EQ(test::refusal_of(h265_nal_sei_mcts_extraction_info_sets::payload_type,
                               "1 1 1 1 1 xffxffxffxff"),
              "no SPS is active");
}

TEST(H265NalSeiMctsExtractionInfoSets, NeedsAPictureForSliceAddresses) {
    test::sei_stores stores = mcts_extraction_stores();
    stores.sps.at(5).pic_width_in_luma_samples = 0;
    EXPECT_EQ(test::refusal_of(158, "1 1 1 1 1 xffxff", stores),
              "slice_reordering_enabled_flag[0] at bit 20 is 1; reading cannot go on from there");
}

TEST(H265NalSeiMctsExtractionInfoSets, HasNoMoreSliceSegmentsThanBlocks) {
    EXPECT_EQ(
        test::refusal_of(h265_nal_sei_mcts_extraction_info_sets::payload_type,
                         "1 1 1 1 1 00111 x00x00x00x00x00x00x00x00", mcts_extraction_stores()),
        "num_slice_segments_minus1[0] at bit 21 is 6; allowed: 0 to 5");
}

// 14 bits are left, and 6 addresses have 18.
TEST(H265NalSeiMctsExtractionInfoSets, HasNoMoreSliceSegmentsThanTheDataHolds) {
    EXPECT_EQ(test::refusal_of(h265_nal_sei_mcts_extraction_info_sets::payload_type,
                               "1 1 1 1 1 00110 00000 00000 0000", mcts_extraction_stores()),
              "num_slice_segments_minus1[0] at bit 21 is 5; allowed: 0 to 3");
}

// 13 bits are left, and a set has as many at the least.
TEST(H265NalSeiMctsExtractionInfoSets, HasNoMoreInfoSetsThanTheDataHolds) {
    EXPECT_EQ(test::refusal_of(h265_nal_sei_mcts_extraction_info_sets::payload_type,
                               "010 1 1111 1111 1111"),
              "num_info_sets_minus1 at bit 16 is 1; allowed: 0");
}

// 10 bits are left, and a set has 2 at the least.
TEST(H265NalSeiMctsExtractionInfoSets, HasNoMoreMctsSetsThanTheDataHolds) {
    EXPECT_EQ(test::refusal_of(h265_nal_sei_mcts_extraction_info_sets::payload_type,
                               "1 00111 11 1111 1111"),
              "num_mcts_sets_minus1[0] at bit 17 is 6; allowed: 0 to 4");
}

// 7 bits are left.
TEST(H265NalSeiMctsExtractionInfoSets, HasNoMoreMctsThanTheDataHolds) {
    EXPECT_EQ(test::refusal_of(h265_nal_sei_mcts_extraction_info_sets::payload_type,
                               "1 1 0001101 111 1111"),
              "num_mcts_in_set_minus1[0][0] at bit 18 is 12; allowed: 0 to 6");
}

// 2 bits are left.
TEST(H265NalSeiMctsExtractionInfoSets, HasNoMoreVpssThanTheDataHolds) {
    EXPECT_EQ(test::refusal_of(h265_nal_sei_mcts_extraction_info_sets::payload_type,
                               "1 1 1 1 0 000010101 11"),
              "num_vps_in_info_set_minus1[0] at bit 21 is 20; allowed: 0 to 1");
}

// 8 bits are left.
TEST(H265NalSeiMctsExtractionInfoSets, HasNoMoreSpssThanTheDataHolds) {
    EXPECT_EQ(test::refusal_of(h265_nal_sei_mcts_extraction_info_sets::payload_type,
                               "1 1 1 1 0 1 1 000010101 1111 1111"),
              "num_sps_in_info_set_minus1[0] at bit 23 is 20; allowed: 0 to 7");
}

// 4 bits are left, and a PPS has as many at the least.
TEST(H265NalSeiMctsExtractionInfoSets, HasNoMorePpssThanTheDataHolds) {
    EXPECT_EQ(test::refusal_of(h265_nal_sei_mcts_extraction_info_sets::payload_type,
                               "1 1 1 1 0 1 1 1 1 011 1111"),
              "num_pps_in_info_set_minus1[0] at bit 25 is 2; allowed: 0");
}

TEST(H265NalSeiMctsExtractionInfoSets, HasNoMoreBytesThanTheDataHolds) {
    EXPECT_EQ(test::refusal_of(h265_nal_sei_mcts_extraction_info_sets::payload_type,
                               "1 1 1 1 0 1 00100 1 1 1 001 1 0 0 0 0 0 0 xffxff"),
              "vps_rbsp_data_length[0][0] at bit 40 is 3; allowed: 0 to 2");
}

TEST(H265NalSeiMctsExtractionInfoSets, IsParsedAlone) {
    const auto parsed = test::parsed_alone<h265_nal_sei_mcts_extraction_info_sets>(
        "1 1 1 1 0 1 1 1 1 1 001 1 0 0", h265_nal_sps());
    EXPECT_EQ(parsed.element_count, 14U);
    EXPECT_EQ(parsed.record.info_sets.size(), 1U);
    EXPECT_EQ(parsed.untraced.info_sets.size(), 1U);
}

}  // namespace
}  // namespace kovran
