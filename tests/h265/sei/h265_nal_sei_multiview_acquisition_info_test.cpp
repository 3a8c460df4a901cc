#include <kovran/h265/sei/h265_nal_sei_multiview_acquisition_info.h>

#include <string>
#include <variant>

#include <gtest/gtest.h>

#include "support/rbsp.h"
#include "support/sei_payload.h"
#include "support/sei_record_parsing.h"

namespace kovran {
namespace {

TEST(H265NalSeiMultiviewAcquisitionInfo, HasIntrinsicAndExtrinsicParameters) {
    const auto info = test::record_of<h265_nal_sei_multiview_acquisition_info>(
        "1 1  0 1 010 00000100000"
        "0 101010 10000000000  1 011111  0 011110  0 011111 1  0 000000 0"
        "1 011"
        "0 011111    1 100000 1  0 000000  0 011111 11"
        "0 000000    0 000000    0 000000  1 000000"
        "0 000000    0 000000    0 011111  0 011110 0",
        "intrinsic_param_flag 1\n"
        "extrinsic_param_flag 1\n"
        "intrinsic_params_equal_flag 0\n"
        "prec_focal_length 0\n"
        "prec_principal_point 1\n"
        "prec_skew_factor 31\n"
        "sign_focal_length_x[0] 0\n"
        "exponent_focal_length_x[0] 42\n"
        "mantissa_focal_length_x[0] 1024\n"
        "sign_focal_length_y[0] 1\n"
        "exponent_focal_length_y[0] 31\n"
        "sign_principal_point_x[0] 0\n"
        "exponent_principal_point_x[0] 30\n"
        "sign_principal_point_y[0] 0\n"
        "exponent_principal_point_y[0] 31\n"
        "mantissa_principal_point_y[0] 1\n"
        "sign_skew_factor[0] 0\n"
        "exponent_skew_factor[0] 0\n"
        "mantissa_skew_factor[0] 0\n"
        "prec_rotation_param 0\n"
        "prec_translation_param 2\n"
        "sign_r[0][0][0] 0\n"
        "exponent_r[0][0][0] 31\n"
        "sign_r[0][0][1] 1\n"
        "exponent_r[0][0][1] 32\n"
        "mantissa_r[0][0][1] 1\n"
        "sign_r[0][0][2] 0\n"
        "exponent_r[0][0][2] 0\n"
        "sign_t[0][0] 0\n"
        "exponent_t[0][0] 31\n"
        "mantissa_t[0][0] 3\n"
        "sign_r[0][1][0] 0\n"
        "exponent_r[0][1][0] 0\n"
        "sign_r[0][1][1] 0\n"
        "exponent_r[0][1][1] 0\n"
        "sign_r[0][1][2] 0\n"
        "exponent_r[0][1][2] 0\n"
        "sign_t[0][1] 1\n"
        "exponent_t[0][1] 0\n"
        "sign_r[0][2][0] 0\n"
        "exponent_r[0][2][0] 0\n"
        "sign_r[0][2][1] 0\n"
        "exponent_r[0][2][1] 0\n"
        "sign_r[0][2][2] 0\n"
        "exponent_r[0][2][2] 31\n"
        "sign_t[0][2] 0\n"
        "exponent_t[0][2] 30\n"
        "mantissa_t[0][2] 0\n");
    EXPECT_FALSE(info.intrinsic_params_equal_flag);
    EXPECT_EQ(info.prec_focal_length, 0U);
    EXPECT_EQ(info.prec_principal_point, 1U);
    EXPECT_EQ(info.prec_skew_factor, 31U);
    ASSERT_EQ(info.intrinsic_params.size(), 1U);
    EXPECT_EQ(info.intrinsic_params[0].focal_length_x.value(), 3072.0);
    EXPECT_EQ(info.intrinsic_params[0].focal_length_y.value(), -1.0);
    EXPECT_EQ(info.intrinsic_params[0].principal_point_x.value(), 0.5);
    EXPECT_EQ(info.intrinsic_params[0].principal_point_y.value(), 1.5);
    EXPECT_EQ(info.intrinsic_params[0].skew_factor.value(), 0.0);
    EXPECT_EQ(info.prec_rotation_param, 0U);
    EXPECT_EQ(info.prec_translation_param, 2U);
    ASSERT_EQ(info.extrinsic_params.size(), 1U);
    EXPECT_EQ(info.extrinsic_params[0].r[0][0].value(), 1.0);
    EXPECT_EQ(info.extrinsic_params[0].r[0][1].value(), -3.0);
    EXPECT_EQ(info.extrinsic_params[0].r[2][2].value(), 1.0);
    EXPECT_EQ(info.extrinsic_params[0].t[0].value(), 1.75);
    EXPECT_EQ(info.extrinsic_params[0].t[2].value(), 0.5);
}

TEST(H265NalSeiMultiviewAcquisitionInfo, MayHaveNoParameters) {
    const auto info =
        test::record_of<h265_nal_sei_multiview_acquisition_info>("0 0",
                                                                 "intrinsic_param_flag 0\n"
                                                                 "extrinsic_param_flag 0\n");
    EXPECT_TRUE(info.intrinsic_params.empty());
    EXPECT_TRUE(info.extrinsic_params.empty());
}

// Five values of 7 bits each: all intrinsic parameters of a view.
constexpr const char* acquisition_info_view = "0000000 0000000 0000000 0000000 0000000";

TEST(H265NalSeiMultiviewAcquisitionInfo, HasIntrinsicParametersOfEachView) {
    const std::string view = acquisition_info_view;
    const auto each = test::parsed_alone<h265_nal_sei_multiview_acquisition_info>(
        "1 0  0 1 1 1" + view + view, 2U);
    EXPECT_EQ(each.record.intrinsic_params.size(), 2U);
    const auto equal =
        test::parsed_alone<h265_nal_sei_multiview_acquisition_info>("1 0  1 1 1 1" + view, 2U);
    EXPECT_TRUE(equal.record.intrinsic_params_equal_flag);
    EXPECT_EQ(equal.record.intrinsic_params.size(), 1U);
}

// Two views: 2 * 84 bits without mantissas.
TEST(H265NalSeiMultiviewAcquisitionInfo, TakesTheViewsFromTheNestingMessage) {
    std::string payload = "0 1  1 1";
    payload += std::string(168, '0') + "1000";
    const test::sei_reading reading = test::read_payload(
        133, test::bytes_of("0 0 0 111 010 000000 000001 000  xb3 x16" + payload));
    ASSERT_TRUE(reading.read) << to_string(reading.fault);
    const auto* const nesting =
        std::get_if<h265_nal_sei_scalable_nesting>(&reading.message.payload);
    ASSERT_NE(nesting, nullptr);
    ASSERT_EQ(nesting->sei_message.size(), 1U);
    const auto* const info =
        std::get_if<h265_nal_sei_multiview_acquisition_info>(&nesting->sei_message.front().payload);
    ASSERT_NE(info, nullptr);
    EXPECT_EQ(info->extrinsic_params.size(), 2U);
    EXPECT_TRUE(nesting->sei_message.front().reserved_payload_extension_data.empty());
}

TEST(H265NalSeiMultiviewAcquisitionInfo, HasPrecisionsUpTo31) {
    const std::string view = acquisition_info_view;
    EXPECT_EQ(test::refusal_of(179, "1 0  1 00000100001 1 1" + view),
              "prec_focal_length at bit 19 is 32; allowed: 0 to 31");
    EXPECT_EQ(test::refusal_of(179, "1 0  1 1 00000100001 1" + view),
              "prec_principal_point at bit 20 is 32; allowed: 0 to 31");
    EXPECT_EQ(test::refusal_of(179, "1 0  1 1 1 00000100001" + view),
              "prec_skew_factor at bit 21 is 32; allowed: 0 to 31");
    const std::string extrinsic(84, '0');
    EXPECT_EQ(test::refusal_of(179, "0 1  00000100001 1" + extrinsic),
              "prec_rotation_param at bit 18 is 32; allowed: 0 to 31");
    EXPECT_EQ(test::refusal_of(179, "0 1  1 00000100001" + extrinsic),
              "prec_translation_param at bit 19 is 32; allowed: 0 to 31");
    const std::string longer(84 + 12, '0');
    const auto most = test::parsed_alone<h265_nal_sei_multiview_acquisition_info>(
        "0 1  00000100000 00000100000" + longer, 1U);
    EXPECT_TRUE(most.out_of_range.empty());
    EXPECT_EQ(most.record.extrinsic_params.front().t[2].mantissa_length, 1);
}

TEST(H265NalSeiMultiviewAcquisitionInfo, HasViewsThatTheDataHolds) {
    constexpr unsigned int views = 4000000000;
    const std::string view = acquisition_info_view;
    for (const std::string& bits : {"1 0  0 1 1 1" + view, "0 1  1 1" + std::string(84, '0')}) {
        test::rbsp input(test::bytes_of(bits));
        h265_nal_sei_multiview_acquisition_info info;
        h265_fault fault;
        EXPECT_FALSE(info.parse_standard(input.reader, views, &fault));
        EXPECT_EQ(fault.kind, h265_fault_kind::value);
        EXPECT_STREQ(fault.element.name, "numViews");
        EXPECT_EQ(fault.value, views);
        EXPECT_EQ(fault.highest, 1);
        EXPECT_TRUE(info.intrinsic_params.empty());
        EXPECT_TRUE(info.extrinsic_params.empty());
    }
}

}  // namespace
}  // namespace kovran
