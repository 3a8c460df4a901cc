#include <kovran/h265/sei/h265_nal_sei_alpha_channel_info.h>

#include <gtest/gtest.h>

#include "support/sei_payload.h"
#include "support/sei_record_parsing.h"

namespace kovran {
namespace {

TEST(H265NalSeiAlphaChannelInfo, ClipsValuesOf16Bits) {
    const auto alpha =
        test::record_of<h265_nal_sei_alpha_channel_info>("0 101 111 x80x00 xffxff 1 1 1",
                                                         "alpha_channel_cancel_flag 0\n"
                                                         "alpha_channel_use_idc 5\n"
                                                         "alpha_channel_bit_depth_minus8 7\n"
                                                         "alpha_transparent_value 32768\n"
                                                         "alpha_opaque_value 65535\n"
                                                         "alpha_channel_incr_flag 1\n"
                                                         "alpha_channel_clip_flag 1\n"
                                                         "alpha_channel_clip_type_flag 1\n");
    EXPECT_EQ(alpha.alpha_channel_use_idc, 5);
    EXPECT_EQ(alpha.alpha_channel_bit_depth_minus8, 7);
    EXPECT_EQ(alpha.alpha_transparent_value, 0x8000);
    EXPECT_EQ(alpha.alpha_opaque_value, 0xFFFF);
    EXPECT_TRUE(alpha.alpha_channel_incr_flag);
    EXPECT_TRUE(alpha.alpha_channel_clip_flag);
    EXPECT_TRUE(alpha.alpha_channel_clip_type_flag);
}

TEST(H265NalSeiAlphaChannelInfo, HasValuesOf9Bits) {
    const auto alpha =
        test::record_of<h265_nal_sei_alpha_channel_info>("0 001 000 000000000 100000000 0 0",
                                                         "alpha_channel_cancel_flag 0\n"
                                                         "alpha_channel_use_idc 1\n"
                                                         "alpha_channel_bit_depth_minus8 0\n"
                                                         "alpha_transparent_value 0\n"
                                                         "alpha_opaque_value 256\n"
                                                         "alpha_channel_incr_flag 0\n"
                                                         "alpha_channel_clip_flag 0\n");
    EXPECT_EQ(alpha.alpha_transparent_value, 0);
    EXPECT_EQ(alpha.alpha_opaque_value, 256);
    EXPECT_FALSE(alpha.alpha_channel_clip_flag);
}

TEST(H265NalSeiAlphaChannelInfo, EndsAnEarlierOne) {
    const auto alpha =
        test::record_of<h265_nal_sei_alpha_channel_info>("1", "alpha_channel_cancel_flag 1\n");
    EXPECT_TRUE(alpha.alpha_channel_cancel_flag);
}

TEST(H265NalSeiAlphaChannelInfo, IsParsedAlone) {
    const auto parsed =
        test::parsed_alone<h265_nal_sei_alpha_channel_info>("0 101 111 x80x00 xffxff 1 1 1");
    EXPECT_EQ(parsed.element_count, 8U);
    EXPECT_EQ(parsed.record.alpha_opaque_value, 0xFFFF);
    EXPECT_EQ(parsed.untraced.alpha_opaque_value, 0xFFFF);
}

}  // namespace
}  // namespace kovran
