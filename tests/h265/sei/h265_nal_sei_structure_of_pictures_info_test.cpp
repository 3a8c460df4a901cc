#include <kovran/h265/sei/h265_nal_sei_structure_of_pictures_info.h>

#include <string>

#include <gtest/gtest.h>

#include "support/sei_payload.h"
#include "support/sei_record_parsing.h"

namespace kovran {
namespace {

TEST(H265NalSeiStructureOfPicturesInfo, BeginsWithAnIdrPicture) {
    const auto info = test::record_of<h265_nal_sei_structure_of_pictures_info>(  //
        "010 010  010011 000  000001 001 011 00111",
        "sop_seq_parameter_set_id 1\n"
        "num_entries_in_sop_minus1 1\n"
        "sop_vcl_nut[0] 19\n"
        "sop_temporal_id[0] 0\n"
        "sop_vcl_nut[1] 1\n"
        "sop_temporal_id[1] 1\n"
        "sop_short_term_rps_idx[1] 2\n"
        "sop_poc_delta[1] -3\n");
    EXPECT_EQ(info.sop_seq_parameter_set_id, 1U);
    ASSERT_EQ(info.pictures.size(), 2U);
    EXPECT_EQ(info.pictures[0].sop_vcl_nut, IDR_W_RADL);
    EXPECT_EQ(info.pictures[1].sop_temporal_id, 1);
    EXPECT_EQ(info.pictures[1].sop_short_term_rps_idx, 2U);
    EXPECT_EQ(info.pictures[1].sop_poc_delta, -3);
}

TEST(H265NalSeiStructureOfPicturesInfo, BeginsWithACraPicture) {
    const auto info = test::record_of<h265_nal_sei_structure_of_pictures_info>(  //
        "1 010  010101 000 1  010100 111 000010000",
        "sop_seq_parameter_set_id 0\n"
        "num_entries_in_sop_minus1 1\n"
        "sop_vcl_nut[0] 21\n"
        "sop_temporal_id[0] 0\n"
        "sop_short_term_rps_idx[0] 0\n"
        "sop_vcl_nut[1] 20\n"
        "sop_temporal_id[1] 7\n"
        "sop_poc_delta[1] 8\n");
    ASSERT_EQ(info.pictures.size(), 2U);
    EXPECT_EQ(info.pictures[1].sop_vcl_nut, IDR_N_LP);
    EXPECT_EQ(info.pictures[1].sop_poc_delta, 8);
}

TEST(H265NalSeiStructureOfPicturesInfo, HasAtMost1024Pictures) {
    std::string pictures = "010011 000";
    for (unsigned int i = 1; i < 1025; ++i) {
        pictures += "010011 000 1";
    }
    const std::string ue_1023 = "0000000000 1 0000000000";
    EXPECT_TRUE(test::read_payload(128, test::bytes_of('1' + ue_1023 + pictures)).read);
    const std::string ue_1024 = "0000000000 1 0000000001";
    EXPECT_EQ(test::refusal_of(128, '1' + ue_1024 + pictures),
              "num_entries_in_sop_minus1 at bit 57 is 1024; allowed: 0 to 1023");
}

TEST(H265NalSeiStructureOfPicturesInfo, HasNoMorePicturesThanTheDataHolds) {
    EXPECT_EQ(test::refusal_of(128, "1 010 010011 000"),
              "num_entries_in_sop_minus1 at bit 17 is 1; allowed: 0");
}

TEST(H265NalSeiStructureOfPicturesInfo, IsParsedAlone) {
    const auto info =
        test::parsed_alone<h265_nal_sei_structure_of_pictures_info>("1 1 010011 000").record;
    EXPECT_EQ(info.pictures.size(), 1U);
}

TEST(H265NalSeiStructureOfPicturesInfo, NamesAnSps) {
    EXPECT_EQ(
        test::out_of_range<h265_nal_sei_structure_of_pictures_info>("0000 10000 1 010011 000"), "");
    EXPECT_EQ(
        test::out_of_range<h265_nal_sei_structure_of_pictures_info>("0000 10001 1 010011 000"),
        "sop_seq_parameter_set_id");
}

}  // namespace
}  // namespace kovran
