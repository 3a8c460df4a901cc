#include <kovran/h265/sei/h265_nal_sei_sub_bitstream_property.h>

#include <gtest/gtest.h>

#include "support/sei_payload.h"
#include "support/sei_record_parsing.h"

namespace kovran {
namespace {

TEST(H265NalSeiSubBitstreamProperty, HasTwoStreams) {
    const auto property = test::record_of<h265_nal_sei_sub_bitstream_property>(
        "1010 010 01 011 110 x80x01 xc0x00 11 1 000 x00x07 x00x08",
        "sb_property_active_vps_id 10\n"
        "num_additional_sub_streams_minus1 1\n"
        "sub_bitstream_mode[0] 1\n"
        "ols_idx_to_vps[0] 2\n"
        "highest_sublayer_id[0] 6\n"
        "avg_sb_property_bit_rate[0] 32769\n"
        "max_sb_property_bit_rate[0] 49152\n"
        "sub_bitstream_mode[1] 3\n"
        "ols_idx_to_vps[1] 0\n"
        "highest_sublayer_id[1] 0\n"
        "avg_sb_property_bit_rate[1] 7\n"
        "max_sb_property_bit_rate[1] 8\n");
    EXPECT_EQ(property.sb_property_active_vps_id, 10);
    ASSERT_EQ(property.sub_streams.size(), 2U);
    EXPECT_EQ(property.sub_streams[0].sub_bitstream_mode, 1);
    EXPECT_EQ(property.sub_streams[0].ols_idx_to_vps, 2U);
    EXPECT_EQ(property.sub_streams[0].highest_sublayer_id, 6);
    EXPECT_EQ(property.sub_streams[0].avg_sb_property_bit_rate, 0x8001);
    EXPECT_EQ(property.sub_streams[0].max_sb_property_bit_rate, 0xC000);
    EXPECT_EQ(property.sub_streams[1].sub_bitstream_mode, 3);
}

TEST(H265NalSeiSubBitstreamProperty, HasTheSmallestStream) {
    const auto property =
        test::record_of<h265_nal_sei_sub_bitstream_property>("1010 1 00 1 000 x00x00 x00x00",
                                                             "sb_property_active_vps_id 10\n"
                                                             "num_additional_sub_streams_minus1 0\n"
                                                             "sub_bitstream_mode[0] 0\n"
                                                             "ols_idx_to_vps[0] 0\n"
                                                             "highest_sublayer_id[0] 0\n"
                                                             "avg_sb_property_bit_rate[0] 0\n"
                                                             "max_sb_property_bit_rate[0] 0\n");
    EXPECT_EQ(property.sub_streams.size(), 1U);
}

// 73 bits are left, and a stream has 38 at the least.
TEST(H265NalSeiSubBitstreamProperty, HasNoMoreStreamsThanTheDataHolds) {
    EXPECT_EQ(test::refusal_of(h265_nal_sei_sub_bitstream_property::payload_type,
                               "0000 010 xffxffxffxffxffxffxffxffxff 1"),
              "num_additional_sub_streams_minus1 at bit 20 is 1; allowed: 0");
}

TEST(H265NalSeiSubBitstreamProperty, IsParsedAlone) {
    const auto parsed = test::parsed_alone<h265_nal_sei_sub_bitstream_property>(
        "1010 010 01 011 110 x80x01 xc0x00 11 1 000 x00x07 x00x08");
    EXPECT_EQ(parsed.element_count, 12U);
    EXPECT_EQ(parsed.record.sub_streams.size(), 2U);
    EXPECT_EQ(parsed.untraced.sub_streams.size(), 2U);
}

}  // namespace
}  // namespace kovran
