#include <kovran/h265/sei/h265_nal_sei_alternative_depth_info.h>

#include <cstdint>
#include <optional>
#include <string>

#include <gtest/gtest.h>

#include "support/rbsp.h"
#include "support/sei_payload.h"
#include "support/sei_record_parsing.h"

namespace kovran {
namespace {

TEST(H265NalSeiAlternativeDepthInfo, MayEndAfterItsFirstFlag) {
    const auto info = test::record_of<h265_nal_sei_alternative_depth_info>(
        "1", "alternative_depth_info_cancel_flag 1\n");
    EXPECT_TRUE(info.alternative_depth_info_cancel_flag);
}

TEST(H265NalSeiAlternativeDepthInfo, HasAWarpMapOfASize) {
    const auto info = test::record_of<h265_nal_sei_alternative_depth_info>(
        "0 01 00111 x98 011 x44 1 1 x01 00100 xff 1 00101 1",
        "alternative_depth_info_cancel_flag 0\n"
        "depth_type 1\n"
        "min_offset_x_int -3\n"
        "min_offset_x_frac 152\n"
        "max_offset_x_int -1\n"
        "max_offset_x_frac 68\n"
        "offset_y_present_flag 1\n"
        "min_offset_y_int 0\n"
        "min_offset_y_frac 1\n"
        "max_offset_y_int 2\n"
        "max_offset_y_frac 255\n"
        "warp_map_size_present_flag 1\n"
        "warp_map_width_minus2 4\n"
        "warp_map_height_minus2 0\n");
    EXPECT_EQ(info.depth_type, 1);
    EXPECT_EQ(info.min_offset_x_int, -3);
    EXPECT_EQ(info.min_offset_x_frac, 152);
    EXPECT_EQ(info.max_offset_x_int, -1);
    EXPECT_EQ(info.max_offset_x_frac, 68);
    EXPECT_EQ(info.min_offset_y_int, 0);
    EXPECT_EQ(info.min_offset_y_frac, 1);
    EXPECT_EQ(info.max_offset_y_int, 2);
    EXPECT_EQ(info.max_offset_y_frac, 255);
    EXPECT_EQ(info.warp_map_width_minus2, 4U);
    EXPECT_EQ(info.warp_map_height_minus2, 0U);
}

TEST(H265NalSeiAlternativeDepthInfo, HasAWarpMapInOneDirection) {
    const auto info = test::record_of<h265_nal_sei_alternative_depth_info>(
        "0 01 1 x00 010 x80 0 0",
        "alternative_depth_info_cancel_flag 0\n"
        "depth_type 1\n"
        "min_offset_x_int 0\n"
        "min_offset_x_frac 0\n"
        "max_offset_x_int 1\n"
        "max_offset_x_frac 128\n"
        "offset_y_present_flag 0\n"
        "warp_map_size_present_flag 0\n");
    EXPECT_EQ(info.max_offset_x_int, 1);
    EXPECT_FALSE(info.offset_y_present_flag);
    EXPECT_FALSE(info.warp_map_size_present_flag);
}

TEST(H265NalSeiAlternativeDepthInfo, HasGlobalViewAndDepthWithAllValues) {
    const auto info = test::record_of<h265_nal_sei_alternative_depth_info>(
        "0 00 1 1 1 1 1 1"
        "0 0101010 00001 10  0 0110000 00000 1"
        "1 0011111 00000 0  0 1111111 00000 1"
        "1 010 1 00000100000"
        "0 100000 1  1 011111  0 011111 1  0 011110"
        "0 011111  0 000000  0 000000"
        "0 000000  0 011111  0 000000"
        "0 000000  0 000000  1 100001 11"
        "0 000000 1"
        "0 011111  0 011111  0 011110  0 011110"
        "0 000000  0 000000  0 000000"
        "0 000000  0 000000  0 000000"
        "0 000000  0 000000  0 000000"
        "1 000001 0",
        "alternative_depth_info_cancel_flag 0\n"
        "depth_type 0\n"
        "num_constituent_views_gvd_minus1 0\n"
        "depth_present_gvd_flag 1\n"
        "z_gvd_flag 1\n"
        "intrinsic_param_gvd_flag 1\n"
        "rotation_gvd_flag 1\n"
        "translation_gvd_flag 1\n"
        "sign_gvd_z_near_flag[0] 0\n"
        "exp_gvd_z_near[0] 42\n"
        "man_len_gvd_z_near_minus1[0] 1\n"
        "man_gvd_z_near[0] 2\n"
        "sign_gvd_z_far_flag[0] 0\n"
        "exp_gvd_z_far[0] 48\n"
        "man_len_gvd_z_far_minus1[0] 0\n"
        "man_gvd_z_far[0] 1\n"
        "sign_gvd_z_near_flag[1] 1\n"
        "exp_gvd_z_near[1] 31\n"
        "man_len_gvd_z_near_minus1[1] 0\n"
        "man_gvd_z_near[1] 0\n"
        "sign_gvd_z_far_flag[1] 0\n"
        "exp_gvd_z_far[1] 127\n"
        "man_len_gvd_z_far_minus1[1] 0\n"
        "man_gvd_z_far[1] 1\n"
        "prec_gvd_focal_length 0\n"
        "prec_gvd_principal_point 1\n"
        "prec_gvd_rotation_param 0\n"
        "prec_gvd_translation_param 31\n"
        "sign_gvd_focal_length_x[0] 0\n"
        "exp_gvd_focal_length_x[0] 32\n"
        "man_gvd_focal_length_x[0] 1\n"
        "sign_gvd_focal_length_y[0] 1\n"
        "exp_gvd_focal_length_y[0] 31\n"
        "sign_gvd_principal_point_x[0] 0\n"
        "exp_gvd_principal_point_x[0] 31\n"
        "man_gvd_principal_point_x[0] 1\n"
        "sign_gvd_principal_point_y[0] 0\n"
        "exp_gvd_principal_point_y[0] 30\n"
        "sign_gvd_r[0][0][0] 0\n"
        "exp_gvd_r[0][0][0] 31\n"
        "sign_gvd_r[0][0][1] 0\n"
        "exp_gvd_r[0][0][1] 0\n"
        "sign_gvd_r[0][0][2] 0\n"
        "exp_gvd_r[0][0][2] 0\n"
        "sign_gvd_r[0][1][0] 0\n"
        "exp_gvd_r[0][1][0] 0\n"
        "sign_gvd_r[0][1][1] 0\n"
        "exp_gvd_r[0][1][1] 31\n"
        "sign_gvd_r[0][1][2] 0\n"
        "exp_gvd_r[0][1][2] 0\n"
        "sign_gvd_r[0][2][0] 0\n"
        "exp_gvd_r[0][2][0] 0\n"
        "sign_gvd_r[0][2][1] 0\n"
        "exp_gvd_r[0][2][1] 0\n"
        "sign_gvd_r[0][2][2] 1\n"
        "exp_gvd_r[0][2][2] 33\n"
        "man_gvd_r[0][2][2] 3\n"
        "sign_gvd_t_x[0] 0\n"
        "exp_gvd_t_x[0] 0\n"
        "man_gvd_t_x[0] 1\n"
        "sign_gvd_focal_length_x[1] 0\n"
        "exp_gvd_focal_length_x[1] 31\n"
        "sign_gvd_focal_length_y[1] 0\n"
        "exp_gvd_focal_length_y[1] 31\n"
        "sign_gvd_principal_point_x[1] 0\n"
        "exp_gvd_principal_point_x[1] 30\n"
        "sign_gvd_principal_point_y[1] 0\n"
        "exp_gvd_principal_point_y[1] 30\n"
        "sign_gvd_r[1][0][0] 0\n"
        "exp_gvd_r[1][0][0] 0\n"
        "sign_gvd_r[1][0][1] 0\n"
        "exp_gvd_r[1][0][1] 0\n"
        "sign_gvd_r[1][0][2] 0\n"
        "exp_gvd_r[1][0][2] 0\n"
        "sign_gvd_r[1][1][0] 0\n"
        "exp_gvd_r[1][1][0] 0\n"
        "sign_gvd_r[1][1][1] 0\n"
        "exp_gvd_r[1][1][1] 0\n"
        "sign_gvd_r[1][1][2] 0\n"
        "exp_gvd_r[1][1][2] 0\n"
        "sign_gvd_r[1][2][0] 0\n"
        "exp_gvd_r[1][2][0] 0\n"
        "sign_gvd_r[1][2][1] 0\n"
        "exp_gvd_r[1][2][1] 0\n"
        "sign_gvd_r[1][2][2] 0\n"
        "exp_gvd_r[1][2][2] 0\n"
        "sign_gvd_t_x[1] 1\n"
        "exp_gvd_t_x[1] 1\n"
        "man_gvd_t_x[1] 0\n");
    ASSERT_EQ(info.gvd_z.size(), 2U);
    EXPECT_EQ(info.gvd_z[0].z_near.value(), 3072.0);
    EXPECT_EQ(info.gvd_z[0].z_far.value(), 196608.0);
    EXPECT_EQ(info.gvd_z[1].z_near.value(), -1.0);
    EXPECT_EQ(info.gvd_z[1].z_far.value(), std::nullopt);
    EXPECT_EQ(info.prec_gvd_principal_point, 1U);
    EXPECT_EQ(info.prec_gvd_translation_param, 31U);
    ASSERT_EQ(info.gvd_intrinsic_params.size(), 2U);
    EXPECT_EQ(info.gvd_intrinsic_params[0].focal_length_x.value(), 3.0);
    EXPECT_EQ(info.gvd_intrinsic_params[0].focal_length_y.value(), -1.0);
    EXPECT_EQ(info.gvd_intrinsic_params[0].principal_point_x.value(), 1.5);
    EXPECT_EQ(info.gvd_intrinsic_params[1].principal_point_y.value(), 0.5);
    ASSERT_EQ(info.gvd_r.size(), 2U);
    EXPECT_EQ(info.gvd_r[0][1][1].value(), 1.0);
    EXPECT_EQ(info.gvd_r[0][2][2].value(), -7.0);
    ASSERT_EQ(info.gvd_t_x.size(), 2U);
    EXPECT_EQ(info.gvd_t_x[0].value(), 0x1p-31);
    EXPECT_EQ(info.gvd_t_x[1].value(), -0x1p-30);
}

TEST(H265NalSeiAlternativeDepthInfo, HasGlobalViewAndDepthWithoutValues) {
    const auto info = test::record_of<h265_nal_sei_alternative_depth_info>(
        "0 00 0000000000000000000000000000000"
        "11111111111111111111111111111111 0 0 0 0 0",
        "alternative_depth_info_cancel_flag 0\n"
        "depth_type 0\n"
        "num_constituent_views_gvd_minus1 4294967294\n"
        "depth_present_gvd_flag 0\n"
        "z_gvd_flag 0\n"
        "intrinsic_param_gvd_flag 0\n"
        "rotation_gvd_flag 0\n"
        "translation_gvd_flag 0\n");
    EXPECT_TRUE(info.gvd_z.empty() && info.gvd_intrinsic_params.empty());
    EXPECT_TRUE(info.gvd_r.empty() && info.gvd_t_x.empty());
}

TEST(H265NalSeiAlternativeDepthInfo, HasEachOfTheValuesAlone) {
    const auto info = [](const std::string& flags, const std::string& rest) {
        return test::parsed_alone<h265_nal_sei_alternative_depth_info>("0 00 1 0" + flags + rest)
            .record;
    };
    const auto zeros = [](unsigned int count) { return std::string(count, '0'); };
    EXPECT_EQ(info("1 0 0 0", zeros(2 * 2 * 14)).gvd_z.size(), 2U);
    EXPECT_EQ(info("0 1 0 0", "1 1" + zeros(2 * 4 * 7)).gvd_intrinsic_params.size(), 2U);
    EXPECT_EQ(info("0 0 1 0", "1" + zeros(2 * 9 * 7)).gvd_r.size(), 2U);
    EXPECT_EQ(info("0 0 0 1", "1" + zeros(2 * 7)).gvd_t_x.size(), 2U);
}

TEST(H265NalSeiAlternativeDepthInfo, HasPrecisionsUpTo31) {
    const std::string zeros(200, '0');
    EXPECT_EQ(test::refusal_of(181, "0 00 1 0 0 1 0 0 00000100001 1" + zeros),
              "prec_gvd_focal_length at bit 25 is 32; allowed: 0 to 31");
    EXPECT_EQ(test::refusal_of(181, "0 00 1 0 0 1 0 0 1 00000100001" + zeros),
              "prec_gvd_principal_point at bit 26 is 32; allowed: 0 to 31");
    EXPECT_EQ(test::refusal_of(181, "0 00 1 0 0 0 1 0 00000100001" + zeros),
              "prec_gvd_rotation_param at bit 25 is 32; allowed: 0 to 31");
    EXPECT_EQ(test::refusal_of(181, "0 00 1 0 0 0 0 1 00000100001" + zeros),
              "prec_gvd_translation_param at bit 25 is 32; allowed: 0 to 31");
    const auto most = test::parsed_alone<h265_nal_sei_alternative_depth_info>(
        "0 00 1 0 0 1 0 0 00000100000 00000100000" + zeros);
    EXPECT_TRUE(most.out_of_range.empty());
    EXPECT_EQ(most.record.gvd_intrinsic_params[1].principal_point_y.mantissa_length, 1);
}

// A view has 28, 28, 63 and 7 bits or more: two views of 3 or 7 are there.
TEST(H265NalSeiAlternativeDepthInfo, HasViewsThatTheDataHolds) {
    const auto expect_refused = [](const std::string& bits, std::int64_t value,
                                   std::int64_t highest) {
        test::rbsp input(test::bytes_of(bits));
        h265_nal_sei_alternative_depth_info info;
        h265_fault fault;
        EXPECT_FALSE(info.parse_standard(input.reader, &fault));
        EXPECT_EQ(fault.kind, h265_fault_kind::value);
        EXPECT_STREQ(fault.element.name, "num_constituent_views_gvd_minus1");
        EXPECT_EQ(fault.value, value);
        EXPECT_EQ(fault.highest, highest);
        EXPECT_TRUE(info.gvd_z.empty() && info.gvd_intrinsic_params.empty());
        EXPECT_TRUE(info.gvd_r.empty() && info.gvd_t_x.empty());
    };
    const auto zeros = [](unsigned int count) { return std::string(count, '0'); };
    expect_refused("0 00 010 0 1 0 0 0" + zeros(77), 1, 0);
    expect_refused("0 00 010 0 0 1 0 0" + zeros(77), 1, 0);
    expect_refused("0 00 010 0 0 0 1 0" + zeros(181), 1, 0);
    expect_refused("0 00 00110 0 0 0 0 1" + zeros(19), 5, 0);
    expect_refused("0 00 00110 0 0 0 1 1" + zeros(155), 5, 0);
    for (const char* const flags : {"1 0 0 0", "0 1 0 0", "0 0 1 0", "0 0 0 1"}) {
        expect_refused(std::string("0 00 0000000000000000000000000000000"
                                   "11111111111111111111111111111111 0 ") +
                           flags,
                       4294967294, -2);
    }
}

TEST(H265NalSeiAlternativeDepthInfo, EndsAfterAReservedType) {
    const auto info = test::record_of<h265_nal_sei_alternative_depth_info>(
        "0 10",
        "alternative_depth_info_cancel_flag 0\n"
        "depth_type 2\n");
    EXPECT_STREQ(info.depth_type_to_str(), "?");
}

TEST(H265NalSeiAlternativeDepthInfo, TellsItsTypeInWords) {
    h265_nal_sei_alternative_depth_info info;
    EXPECT_STREQ(info.depth_type_to_str(), "global view and depth");
    info.depth_type = 1;
    EXPECT_STREQ(info.depth_type_to_str(), "warp map");
}

}  // namespace
}  // namespace kovran
