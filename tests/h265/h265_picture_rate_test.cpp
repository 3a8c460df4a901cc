#include <kovran/h265/h265_picture_rate.h>

#include <gtest/gtest.h>

namespace kovran {
namespace {

h265_nal_sps sps_with_timing(unsigned int time_scale, unsigned int num_units_in_tick) {
    h265_nal_sps sps;
    sps.vui_parameters_present_flag = true;
    sps.vui_parameters.vui_timing_info_present_flag = true;
    sps.vui_parameters.vui_time_scale = time_scale;
    sps.vui_parameters.vui_num_units_in_tick = num_units_in_tick;
    return sps;
}

h265_nal_vps vps_with_timing(unsigned int time_scale, unsigned int num_units_in_tick) {
    h265_nal_vps vps;
    vps.vps_timing_info_present_flag = true;
    vps.vps_time_scale = time_scale;
    vps.vps_num_units_in_tick = num_units_in_tick;
    return vps;
}

void expect_rate(const h265_picture_rate& rate, unsigned int time_scale,
                 unsigned int num_units_in_tick) {
    EXPECT_TRUE(rate.is_known());
    EXPECT_EQ(rate.time_scale, time_scale);
    EXPECT_EQ(rate.num_units_in_tick, num_units_in_tick);
}

TEST(H265PictureRate, IsThatOfTheVui) {
    const h265_nal_vps vps = vps_with_timing(25, 1);
    expect_rate(h265_picture_rate_of(sps_with_timing(60000, 1001), nullptr), 60000, 1001);
    expect_rate(h265_picture_rate_of(sps_with_timing(60000, 1001), &vps), 60000, 1001);
    expect_rate(h265_picture_rate_of(sps_with_timing(0xFFFFFFFF, 1), &vps), 0xFFFFFFFF, 1);
}

TEST(H265PictureRate, IsThatOfTheVpsWithoutTimingInTheVui) {
    const h265_nal_vps vps = vps_with_timing(25, 1);
    expect_rate(h265_picture_rate_of({}, &vps), 25, 1);
    h265_nal_sps sps = sps_with_timing(30, 1);
    sps.vui_parameters.vui_timing_info_present_flag = false;
    expect_rate(h265_picture_rate_of(sps, &vps), 25, 1);
    sps = sps_with_timing(30, 1);
    sps.vui_parameters_present_flag = false;
    expect_rate(h265_picture_rate_of(sps, &vps), 25, 1);
}

TEST(H265PictureRate, AZeroCountsAsNoTiming) {
    const h265_nal_vps vps = vps_with_timing(25, 1);
    expect_rate(h265_picture_rate_of(sps_with_timing(30, 0), &vps), 25, 1);
    expect_rate(h265_picture_rate_of(sps_with_timing(0, 1), &vps), 25, 1);
    const h265_nal_vps no_ticks = vps_with_timing(25, 0);
    EXPECT_FALSE(h265_picture_rate_of(sps_with_timing(30, 0), &no_ticks).is_known());
    const h265_nal_vps no_scale = vps_with_timing(0, 1);
    EXPECT_FALSE(h265_picture_rate_of({}, &no_scale).is_known());
}

TEST(H265PictureRate, IsUnknownWithoutTiming) {
    const h265_nal_vps vps;
    EXPECT_FALSE(h265_picture_rate_of({}, nullptr).is_known());
    EXPECT_FALSE(h265_picture_rate_of({}, &vps).is_known());
}

}  // namespace
}  // namespace kovran
