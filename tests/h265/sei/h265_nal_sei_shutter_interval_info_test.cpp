#include <kovran/h265/sei/h265_nal_sei_shutter_interval_info.h>

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "support/sei_payload.h"
#include "support/sei_record_parsing.h"

namespace kovran {
namespace {

TEST(H265NalSeiShutterIntervalInfo, HasOneIntervalForAll) {
    const auto info = test::record_of<h265_nal_sei_shutter_interval_info>(
        "x01x9bxfcxc0 1 00000000000011100001010111001000",
        "sii_time_scale 27000000\n"
        "fixed_shutter_interval_within_clvs_flag 1\n"
        "sii_num_units_in_shutter_interval 923080\n");
    EXPECT_EQ(info.sii_time_scale, 27000000U);
    EXPECT_TRUE(info.fixed_shutter_interval_within_clvs_flag);
    EXPECT_EQ(info.sii_num_units_in_shutter_interval, 923080U);
    EXPECT_TRUE(info.sub_layer_num_units_in_shutter_interval.empty());
}

TEST(H265NalSeiShutterIntervalInfo, HasAnIntervalForEachSubLayer) {
    const auto info = test::record_of<h265_nal_sei_shutter_interval_info>(
        "x00x00x00x18 0 001 00000000000000000000000000000010 11111111111111111111111111111111",
        "sii_time_scale 24\n"
        "fixed_shutter_interval_within_clvs_flag 0\n"
        "sii_max_sub_layers_minus1 1\n"
        "sub_layer_num_units_in_shutter_interval[0] 2\n"
        "sub_layer_num_units_in_shutter_interval[1] 4294967295\n");
    EXPECT_EQ(info.sii_max_sub_layers_minus1, 1);
    EXPECT_EQ(info.sub_layer_num_units_in_shutter_interval,
              (std::vector<unsigned int>{2, 4294967295}));
}

TEST(H265NalSeiShutterIntervalInfo, HasUpTo8SubLayers) {
    const auto info = test::parsed_alone<h265_nal_sei_shutter_interval_info>("x00x00x00x18 0 111" +
                                                                             std::string(256, '0'));
    EXPECT_EQ(info.record.sub_layer_num_units_in_shutter_interval.size(), 8U);
}

TEST(H265NalSeiShutterIntervalInfo, HasSubLayersThatTheDataHolds) {
    EXPECT_EQ(test::refusal_of(205, "x00x00x00x18 0 111" + std::string(224, '0')),
              "sii_max_sub_layers_minus1 at bit 49 is 7; allowed: 0 to 6");
}

TEST(H265NalSeiShutterIntervalInfo, HasUnits) {
    EXPECT_EQ(test::out_of_range<h265_nal_sei_shutter_interval_info>("x00x00x00x01 1 x00x00x00x00"),
              "");
    EXPECT_EQ(test::out_of_range<h265_nal_sei_shutter_interval_info>("x00x00x00x00 1 x00x00x00x00"),
              "sii_time_scale");
}

}  // namespace
}  // namespace kovran
