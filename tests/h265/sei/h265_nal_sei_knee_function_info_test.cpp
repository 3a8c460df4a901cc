#include <kovran/h265/sei/h265_nal_sei_knee_function_info.h>

#include <string>
#include <variant>
#include <vector>

#include <gtest/gtest.h>

#include "support/sei_payload.h"
#include "support/sei_record_parsing.h"

namespace kovran {
namespace {

constexpr char knee_function_info_bits[] =
    "00110 0 1 x00x00x03xe8 x00x00x00x64 x00x00x0fxa0 x80x00x00x01 010 1001011000 "
    "0011111010 1111101000 1111111111";

TEST(H265NalSeiKneeFunctionInfo, HasPoints) {
    const auto knee =
        test::record_of<h265_nal_sei_knee_function_info>(knee_function_info_bits,
                                                         "knee_function_id 5\n"
                                                         "knee_function_cancel_flag 0\n"
                                                         "knee_function_persistence_flag 1\n"
                                                         "input_d_range 1000\n"
                                                         "input_disp_luminance 100\n"
                                                         "output_d_range 4000\n"
                                                         "output_disp_luminance 2147483649\n"
                                                         "num_knee_points_minus1 1\n"
                                                         "input_knee_point[0] 600\n"
                                                         "output_knee_point[0] 250\n"
                                                         "input_knee_point[1] 1000\n"
                                                         "output_knee_point[1] 1023\n");
    EXPECT_EQ(knee.knee_function_id, 5U);
    EXPECT_FALSE(knee.knee_function_cancel_flag);
    EXPECT_TRUE(knee.knee_function_persistence_flag);
    EXPECT_EQ(knee.input_d_range, 1000U);
    EXPECT_EQ(knee.input_disp_luminance, 100U);
    EXPECT_EQ(knee.output_d_range, 4000U);
    EXPECT_EQ(knee.output_disp_luminance, 0x80000001U);
    EXPECT_EQ(knee.input_knee_point, (std::vector<unsigned short>{600, 1000}));
    EXPECT_EQ(knee.output_knee_point, (std::vector<unsigned short>{250, 1023}));
}

TEST(H265NalSeiKneeFunctionInfo, EndsAnEarlierOne) {
    const auto knee =
        test::record_of<h265_nal_sei_knee_function_info>("1 1",
                                                         "knee_function_id 0\n"
                                                         "knee_function_cancel_flag 1\n");
    EXPECT_TRUE(knee.knee_function_cancel_flag);
    EXPECT_TRUE(knee.input_knee_point.empty());
}

TEST(H265NalSeiKneeFunctionInfo, HasUpTo999Points) {
    std::string bits =
        "00110 0 1 x00x00x03xe8 x00x00x00x64 x00x00x0fxa0 x80x00x00x01 "
        "0000000001111100111";
    for (int i = 0; i < 999; ++i) {
        bits += "0000000001 0000000010";
    }
    const test::sei_reading reading = test::read_payload(141, test::bytes_of(bits));
    EXPECT_TRUE(reading.read);
    const auto* const knee = std::get_if<h265_nal_sei_knee_function_info>(&reading.message.payload);
    ASSERT_NE(knee, nullptr);
    EXPECT_EQ(knee->output_knee_point, std::vector<unsigned short>(999, 2));
}

TEST(H265NalSeiKneeFunctionInfo, HasNoMoreThan999Points) {
    EXPECT_EQ(test::refusal_of(h265_nal_sei_knee_function_info::payload_type,
                               "00110 0 1 x00x00x03xe8 x00x00x00x64 x00x00x0fxa0 x80x00x00x01 "
                               "0000000001111101000"),
              "num_knee_points_minus1 at bit 151 is 999; allowed: 0 to 998");
}

TEST(H265NalSeiKneeFunctionInfo, HasNoMorePointsThanTheDataHolds) {
    EXPECT_EQ(test::refusal_of(
                  h265_nal_sei_knee_function_info::payload_type,
                  "00110 0 1 x00x00x03xe8 x00x00x00x64 x00x00x0fxa0 x80x00x00x01 011 1001011000 "
                  "0011111010 1111101000 1111111111"),
              "num_knee_points_minus1 at bit 151 is 2; allowed: 0 to 1");
}

TEST(H265NalSeiKneeFunctionInfo, IsParsedAlone) {
    const auto parsed =
        test::parsed_alone<h265_nal_sei_knee_function_info>(knee_function_info_bits);
    EXPECT_EQ(parsed.element_count, 12U);
    EXPECT_EQ(parsed.record.input_knee_point.size(), 2U);
    EXPECT_EQ(parsed.untraced.input_knee_point.size(), 2U);
}

TEST(H265NalSeiKneeFunctionInfo, HasPointsWithinTheDynamicRanges) {
    const std::string begin = "1 0 0" + std::string(128, '0');
    EXPECT_EQ(test::out_of_range<h265_nal_sei_knee_function_info>(
                  begin + "010 0000000001 0000000000 1111100111 1111101000"),
              "");
    EXPECT_EQ(test::out_of_range<h265_nal_sei_knee_function_info>(
                  begin + "010 0000000000 0000000000 1111101000 1111101001"),
              "input_knee_point[0], input_knee_point[1], output_knee_point[1]");
}

}  // namespace
}  // namespace kovran
