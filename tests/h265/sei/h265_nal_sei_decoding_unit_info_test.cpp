#include <kovran/h265/sei/h265_nal_sei_decoding_unit_info.h>

#include <string>

#include <gtest/gtest.h>

#include "support/rbsp.h"
#include "support/sei_payload.h"
#include "support/sei_record_parsing.h"

namespace kovran {
namespace {

// The increment has 5 bits, the output delay 4.
h265_hrd_parameters decoding_unit_info_hrd(bool increment_in_pic_timing) {
    h265_hrd_parameters hrd;
    hrd.sub_pic_hrd_params_present_flag = true;
    hrd.du_cpb_removal_delay_increment_length_minus1 = 4;
    hrd.sub_pic_cpb_params_in_pic_timing_sei_flag = increment_in_pic_timing;
    hrd.dpb_output_delay_du_length_minus1 = 3;
    return hrd;
}

test::sei_stores decoding_unit_info_stores(const h265_hrd_parameters& hrd) {
    test::sei_stores stores;
    stores.sps.active_id = 1;
    h265_nal_sps& sps = stores.sps[1];
    sps.vui_parameters_present_flag = true;
    sps.vui_parameters.vui_hrd_parameters_present_flag = true;
    sps.vui_parameters.hrd_parameters = hrd;
    return stores;
}

TEST(H265NalSeiDecodingUnitInfo, HasTheIncrementThatPicTimingDoesNotHave) {
    const auto info = test::record_of<h265_nal_sei_decoding_unit_info>(  //
        "011 00101 1 1010",                                              //
        "decoding_unit_idx 2\n"
        "du_spt_cpb_removal_delay_increment 5\n"
        "dpb_output_du_delay_present_flag 1\n"
        "pic_spt_dpb_output_du_delay 10\n",
        decoding_unit_info_stores(decoding_unit_info_hrd(/*increment_in_pic_timing=*/false)));
    EXPECT_EQ(info.decoding_unit_idx, 2U);
    EXPECT_EQ(info.du_spt_cpb_removal_delay_increment, 5U);
    EXPECT_TRUE(info.dpb_output_du_delay_present_flag);
    EXPECT_EQ(info.pic_spt_dpb_output_du_delay, 10U);
}

TEST(H265NalSeiDecodingUnitInfo, HasNoIncrementThatPicTimingHas) {
    const auto info = test::record_of<h265_nal_sei_decoding_unit_info>(  //
        "010 0",                                                         //
        "decoding_unit_idx 1\n"
        "dpb_output_du_delay_present_flag 0\n",
        decoding_unit_info_stores(decoding_unit_info_hrd(/*increment_in_pic_timing=*/true)));
    EXPECT_EQ(info.decoding_unit_idx, 1U);
    EXPECT_FALSE(info.dpb_output_du_delay_present_flag);
}

TEST(H265NalSeiDecodingUnitInfo, HasElementsOf32Bits) {
    h265_hrd_parameters hrd = decoding_unit_info_hrd(/*increment_in_pic_timing=*/false);
    hrd.du_cpb_removal_delay_increment_length_minus1 = 31;
    hrd.dpb_output_delay_du_length_minus1 = 31;
    const auto info = test::record_of<h265_nal_sei_decoding_unit_info>(  //
        "1 xffxffxffxfe 1 x80x00x00x00",                                 //
        "decoding_unit_idx 0\n"
        "du_spt_cpb_removal_delay_increment 4294967294\n"
        "dpb_output_du_delay_present_flag 1\n"
        "pic_spt_dpb_output_du_delay 2147483648\n",
        decoding_unit_info_stores(hrd));
    EXPECT_EQ(info.du_spt_cpb_removal_delay_increment, 4294967294U);
}

TEST(H265NalSeiDecodingUnitInfo, GoesByTheOperationPointOfItsNest) {
    test::sei_stores stores =
        decoding_unit_info_stores(decoding_unit_info_hrd(/*increment_in_pic_timing=*/false));
    stores.sps[1].sps_video_parameter_set_id = 2;
    stores.vps[2].hrd_layer_set_idx = {3};
    stores.vps[2].hrd_parameters = {decoding_unit_info_hrd(/*increment_in_pic_timing=*/true)};
    const test::sei_reading reading = test::read_payload(
        133, test::bytes_of("0 1 0 1 111 00100 0000  x82 x01 00101 0 1 0"), stores);
    EXPECT_TRUE(reading.read);
    EXPECT_EQ(reading.elements,
              "bitstream_subset_flag 0\n"
              "nesting_op_flag 1\n"
              "default_op_flag 0\n"
              "nesting_num_ops_minus1 0\n"
              "nesting_max_temporal_id_plus1[0] 7\n"
              "nesting_op_idx[0] 3\n"
              "nesting_zero_bit 0\n"
              "nesting_zero_bit 0\n"
              "nesting_zero_bit 0\n"
              "nesting_zero_bit 0\n"
              "sei_message[0].last_payload_type_byte 130\n"
              "sei_message[0].last_payload_size_byte 1\n"
              "sei_message[0].decoding_unit_info.decoding_unit_idx 4\n"
              "sei_message[0].decoding_unit_info.dpb_output_du_delay_present_flag 0\n"
              "sei_message[0].decoding_unit_info.payload_bit_equal_to_one 1\n"
              "sei_message[0].decoding_unit_info.payload_bit_equal_to_zero 0\n");
}

TEST(H265NalSeiDecodingUnitInfo, NeedsSubPictureHrdParameters) {
    const std::string refused =
        "last_payload_size_byte at bit 8 is 1; reading cannot go on from there";
    EXPECT_EQ(test::refusal_of(130, "1 00000 0", decoding_unit_info_stores({})), refused);
    test::sei_stores stores;
    stores.sps.active_id = 1;
    stores.sps[1] = {};
    EXPECT_EQ(test::refusal_of(130, "1 00000 0", stores), refused);
}

TEST(H265NalSeiDecodingUnitInfo, NeedsAnSps) {
    EXPECT_EQ(test::refusal_of(130, "1 00000 0"), "no SPS is active");
}

TEST(H265NalSeiDecodingUnitInfo, IsParsedAlone) {
    const auto info =
        test::parsed_alone<h265_nal_sei_decoding_unit_info>(
            "1 11111 1 0001", decoding_unit_info_hrd(/*increment_in_pic_timing=*/false))
            .record;
    EXPECT_EQ(info.du_spt_cpb_removal_delay_increment, 31U);
    EXPECT_EQ(info.pic_spt_dpb_output_du_delay, 1U);
}

TEST(H265NalSeiDecodingUnitInfo, NeedsSubPictureHrdParametersAlone) {
    test::rbsp input{0b1'00000'0'0};
    h265_nal_sei_decoding_unit_info info;
    EXPECT_FALSE(info.parse_standard(input.reader, h265_hrd_parameters{}));
    EXPECT_FALSE(info.valid);
}

// The first HRD parameters of the VPS; the second ones do not have the increment.
test::sei_stores decoding_unit_info_vps_stores() {
    test::sei_stores stores = decoding_unit_info_stores({});
    h265_nal_sps& sps = stores.sps[1];
    sps.vui_parameters.vui_hrd_parameters_present_flag = false;
    sps.sps_video_parameter_set_id = 2;
    stores.vps[2].hrd_layer_set_idx = {0, 3};
    stores.vps[2].hrd_parameters = {decoding_unit_info_hrd(/*increment_in_pic_timing=*/false),
                                    decoding_unit_info_hrd(/*increment_in_pic_timing=*/true)};
    return stores;
}

TEST(H265NalSeiDecodingUnitInfo, GoesByTheVpsWithoutHrdParametersInTheVui) {
    test::sei_stores stores = decoding_unit_info_vps_stores();
    for (const bool vui : {true, false}) {
        stores.sps[1].vui_parameters_present_flag = vui;
        const auto info = test::record_of<h265_nal_sei_decoding_unit_info>(  //
            "011 00101 0",                                                   //
            "decoding_unit_idx 2\n"
            "du_spt_cpb_removal_delay_increment 5\n"
            "dpb_output_du_delay_present_flag 0\n",
            stores);
        EXPECT_EQ(info.du_spt_cpb_removal_delay_increment, 5U);
    }
    stores.vps[2].hrd_parameters.clear();
    EXPECT_EQ(test::refusal_of(130, "011 00101 0", stores),
              "last_payload_size_byte at bit 8 is 2; reading cannot go on from there");
}

// nesting_op_idx 2, for which the VPS has none.
TEST(H265NalSeiDecodingUnitInfo, OfAnUnknownOperationPointIsReadAsOutsideOfANest) {
    const test::sei_reading reading =
        test::read_payload(133, test::bytes_of("0 1 0 1 111 011 000000  x82 x02 00101 11111 0 1"),
                           decoding_unit_info_vps_stores());
    EXPECT_TRUE(reading.read);
    EXPECT_EQ(reading.fault.kind, h265_fault_kind::none);
    EXPECT_NE(reading.elements.find(
                  "sei_message[0].decoding_unit_info.du_spt_cpb_removal_delay_increment 31\n"),
              std::string::npos);
}

}  // namespace
}  // namespace kovran
