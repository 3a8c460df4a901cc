#include <kovran/h265/sei/h265_nal_sei_depth_representation_info.h>

#include <optional>
#include <vector>

#include <gtest/gtest.h>

#include "support/sei_payload.h"
#include "support/sei_record_parsing.h"

namespace kovran {
namespace {

TEST(H265NalSeiDepthRepresentationInfo, HasAllThatThereIs) {
    const auto info = test::record_of<h265_nal_sei_depth_representation_info>(
        "1 1 1 1 00100 011"
        "0 0101010 00011 1010"
        "1 0110000 00000 1"
        "0 0000000 00001 11"
        "0 1111111 00000 0"
        "010 00110 1",
        "z_near_flag 1\n"
        "z_far_flag 1\n"
        "d_min_flag 1\n"
        "d_max_flag 1\n"
        "depth_representation_type 3\n"
        "disparity_ref_view_id 2\n"
        "da_sign_flag 0\n"
        "da_exponent 42\n"
        "da_mantissa_len_minus1 3\n"
        "da_mantissa 10\n"
        "da_sign_flag 1\n"
        "da_exponent 48\n"
        "da_mantissa_len_minus1 0\n"
        "da_mantissa 1\n"
        "da_sign_flag 0\n"
        "da_exponent 0\n"
        "da_mantissa_len_minus1 1\n"
        "da_mantissa 3\n"
        "da_sign_flag 0\n"
        "da_exponent 127\n"
        "da_mantissa_len_minus1 0\n"
        "da_mantissa 0\n"
        "depth_nonlinear_representation_num_minus1 1\n"
        "depth_nonlinear_representation_model[1] 5\n"
        "depth_nonlinear_representation_model[2] 0\n");
    EXPECT_TRUE(info.z_near_flag && info.z_far_flag && info.d_min_flag && info.d_max_flag);
    EXPECT_EQ(info.depth_representation_type, 3U);
    EXPECT_EQ(info.disparity_ref_view_id, 2U);
    EXPECT_EQ(info.z_near.value(), 3328.0);
    EXPECT_EQ(info.z_far.value(), -196608.0);
    EXPECT_EQ(info.d_min.value(), 3 * 0x1p-32);
    EXPECT_EQ(info.d_max.value(), std::nullopt);
    EXPECT_EQ(info.depth_nonlinear_representation_num_minus1, 1U);
    EXPECT_EQ(info.depth_nonlinear_representation_model, (std::vector<unsigned int>{0, 5, 0}));
}

// A mantissa of 32 bits.
TEST(H265NalSeiDepthRepresentationInfo, HasTheNearestDepthAlone) {
    const auto info = test::record_of<h265_nal_sei_depth_representation_info>(
        "1 0 0 0 1  0 0011111 11111 xc0x00x00x00",
        "z_near_flag 1\n"
        "z_far_flag 0\n"
        "d_min_flag 0\n"
        "d_max_flag 0\n"
        "depth_representation_type 0\n"
        "da_sign_flag 0\n"
        "da_exponent 31\n"
        "da_mantissa_len_minus1 31\n"
        "da_mantissa 3221225472\n");
    EXPECT_EQ(info.z_near.value(), 1.75);
    EXPECT_EQ(info.z_far.value(), std::nullopt);
    EXPECT_TRUE(info.depth_nonlinear_representation_model.empty());
}

TEST(H265NalSeiDepthRepresentationInfo, HasAFarthestDepthAndALeastDisparity) {
    const auto info = test::record_of<h265_nal_sei_depth_representation_info>(
        "0 1 1 0 010 1  0 0100000 00000 0  1 0100000 00000 1",
        "z_near_flag 0\n"
        "z_far_flag 1\n"
        "d_min_flag 1\n"
        "d_max_flag 0\n"
        "depth_representation_type 1\n"
        "disparity_ref_view_id 0\n"
        "da_sign_flag 0\n"
        "da_exponent 32\n"
        "da_mantissa_len_minus1 0\n"
        "da_mantissa 0\n"
        "da_sign_flag 1\n"
        "da_exponent 32\n"
        "da_mantissa_len_minus1 0\n"
        "da_mantissa 1\n");
    EXPECT_EQ(info.z_far.value(), 2.0);
    EXPECT_EQ(info.d_min.value(), -3.0);
    EXPECT_EQ(info.d_max.value(), std::nullopt);
}

TEST(H265NalSeiDepthRepresentationInfo, HasTheGreatestDisparityAlone) {
    const auto info = test::record_of<h265_nal_sei_depth_representation_info>(
        "0 0 0 1 011 010  0 0011110 00000 0",
        "z_near_flag 0\n"
        "z_far_flag 0\n"
        "d_min_flag 0\n"
        "d_max_flag 1\n"
        "depth_representation_type 2\n"
        "disparity_ref_view_id 1\n"
        "da_sign_flag 0\n"
        "da_exponent 30\n"
        "da_mantissa_len_minus1 0\n"
        "da_mantissa 0\n");
    EXPECT_EQ(info.d_max.value(), 0.5);
    EXPECT_EQ(info.z_near.value(), std::nullopt);
}

TEST(H265NalSeiDepthRepresentationInfo, HasTypesUpTo3) {
    const auto nonlinear =
        test::parsed_alone<h265_nal_sei_depth_representation_info>("0 0 0 0 00100 1 1");
    EXPECT_TRUE(nonlinear.out_of_range.empty());
    EXPECT_EQ(nonlinear.record.depth_nonlinear_representation_model.size(), 2U);
    const auto reserved =
        test::parsed_alone<h265_nal_sei_depth_representation_info>("0 0 0 0 00101");
    EXPECT_EQ(reserved.out_of_range, "depth_representation_type");
}

TEST(H265NalSeiDepthRepresentationInfo, HasAModelThatTheDataHolds) {
    EXPECT_EQ(test::refusal_of(177, "0 0 0 0 00100 00111 11"),
              "depth_nonlinear_representation_num_minus1 at bit 25 is 6; allowed: 0 to 1");
    EXPECT_EQ(test::refusal_of(177,
                               "0 0 0 0 00100 0000000000000000000000000000000"
                               "11111111111111111111111111111111"),
              "depth_nonlinear_representation_num_minus1 at bit 25 is 4294967294; allowed: no "
              "value");
}

TEST(H265NalSeiDepthRepresentationInfo, TellsItsTypeInWords) {
    h265_nal_sei_depth_representation_info info;
    EXPECT_STREQ(info.depth_representation_type_to_str(), "inverse of Z, uniform steps");
    info.depth_representation_type = 3;
    EXPECT_STREQ(info.depth_representation_type_to_str(), "disparity, nonlinear steps");
    info.depth_representation_type = 4;
    EXPECT_STREQ(info.depth_representation_type_to_str(), "?");
}

}  // namespace
}  // namespace kovran
