#include <kovran/h265/h265_hrd_parameters.h>
#include <kovran/h265/h265_nal_sub_layer_hrd_parameters.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <vector>

#include "support/bit_writer.h"
#include "support/rbsp.h"
#include "support/same_fields.h"

namespace kovran {
namespace {

h265_hrd_parameters hrd_with_sub_pictures(bool sub_pic_hrd_params_present_flag) {
    h265_hrd_parameters hrd;
    hrd.sub_pic_hrd_params_present_flag = sub_pic_hrd_params_present_flag;
    return hrd;
}

TEST(H265NalSubLayerHrdParameters, ReadsTwoValuesAndAFlagForEachCpb) {
    test::bit_writer bits;
    bits.ue(0xFFFFFFFE).ue(7).u<1>(1);  // bit_rate_value_minus1, cpb_size_value_minus1, cbr_flag
    bits.ue(5).ue(0xFFFFFFFD).u<1>(0);
    test::rbsp input{bits.bytes()};
    h265_nal_sub_layer_hrd_parameters sub_layer;
    EXPECT_TRUE(sub_layer.parse(/*subLayerId=*/6, /*cpb_count=*/2, hrd_with_sub_pictures(false),
                                input.reader));
    EXPECT_EQ(input.reader.bit_position(), bits.size());

    h265_nal_sub_layer_hrd_parameters expected;
    expected.subLayerId = 6;
    expected.cpb_count = 2;
    expected.bit_rate_value_minus1 = {0xFFFFFFFE, 5};
    expected.cpb_size_value_minus1 = {7, 0xFFFFFFFD};
    expected.cpb_size_du_value_minus1 = {0, 0};
    expected.bit_rate_du_value_minus1 = {0, 0};
    expected.cbr_flag = {true, false};
    expected.valid = true;
    EXPECT_TRUE(test::same_fields(sub_layer, expected));
}

TEST(H265NalSubLayerHrdParameters, ReadsFourValuesWithSubPictureParameters) {
    test::bit_writer bits;
    bits.ue(1).ue(2).ue(3).ue(4).u<1>(0);
    bits.ue(5).ue(6).ue(7).ue(8).u<1>(1);
    test::rbsp input{bits.bytes()};
    h265_nal_sub_layer_hrd_parameters sub_layer;
    EXPECT_TRUE(sub_layer.parse(0, 2, hrd_with_sub_pictures(true), input.reader));
    EXPECT_EQ(input.reader.bit_position(), bits.size());

    h265_nal_sub_layer_hrd_parameters expected;
    expected.cpb_count = 2;
    expected.bit_rate_value_minus1 = {1, 5};
    expected.cpb_size_value_minus1 = {2, 6};
    expected.cpb_size_du_value_minus1 = {3, 7};
    expected.bit_rate_du_value_minus1 = {4, 8};
    expected.cbr_flag = {false, true};
    expected.valid = true;
    EXPECT_TRUE(test::same_fields(sub_layer, expected));
}

TEST(H265NalSubLayerHrdParameters, ReadsNothingForNoCpb) {
    test::rbsp input{0xFF, 0xFF};
    h265_nal_sub_layer_hrd_parameters sub_layer;
    sub_layer.bit_rate_value_minus1 = {1, 2};
    sub_layer.cpb_size_value_minus1 = {3};
    sub_layer.cpb_size_du_value_minus1 = {4, 5, 6};
    sub_layer.bit_rate_du_value_minus1 = {7};
    sub_layer.cbr_flag = {true};
    EXPECT_TRUE(sub_layer.parse(1, 0, hrd_with_sub_pictures(true), input.reader));
    EXPECT_EQ(input.reader.bit_position(), 0U);

    h265_nal_sub_layer_hrd_parameters expected;
    expected.subLayerId = 1;
    expected.valid = true;
    EXPECT_TRUE(test::same_fields(sub_layer, expected));
}

TEST(H265NalSubLayerHrdParameters, ReadsUpTo128Cpbs) {
    test::bit_writer bits;
    for (unsigned int i = 0; i < 128; ++i) {
        bits.ue(i).ue(1000 + i).u<1>(1);
    }
    test::rbsp input{bits.bytes()};
    h265_nal_sub_layer_hrd_parameters sub_layer;
    EXPECT_TRUE(sub_layer.parse(0, 128, hrd_with_sub_pictures(false), input.reader));
    EXPECT_EQ(input.reader.bit_position(), bits.size());
    ASSERT_EQ(sub_layer.bit_rate_value_minus1.size(), 128U);
    EXPECT_EQ(sub_layer.bit_rate_value_minus1.back(), 127U);
    EXPECT_EQ(sub_layer.cpb_size_value_minus1.back(), 1127U);
    EXPECT_EQ(sub_layer.cpb_size_du_value_minus1, std::vector<unsigned int>(128, 0));
    EXPECT_EQ(sub_layer.bit_rate_du_value_minus1, std::vector<unsigned int>(128, 0));
    EXPECT_EQ(sub_layer.cbr_flag, std::vector<bool>(128, true));
}

TEST(H265NalSubLayerHrdParameters, RejectsMoreThan128CpbsBeforeReading) {
    for (const unsigned int cpb_count : {129U, 0x80000000U, 0xFFFFFFFFU}) {
        test::rbsp input{0xFF, 0xFF};
        h265_nal_sub_layer_hrd_parameters sub_layer;
        sub_layer.bit_rate_value_minus1 = {4};
        sub_layer.valid = true;
        EXPECT_FALSE(sub_layer.parse(3, cpb_count, hrd_with_sub_pictures(true), input.reader));
        EXPECT_EQ(input.reader.bit_position(), 0U);

        h265_nal_sub_layer_hrd_parameters expected;
        expected.subLayerId = 3;
        expected.cpb_count = cpb_count;
        expected.bit_rate_value_minus1 = {4};
        EXPECT_TRUE(test::same_fields(sub_layer, expected));
    }
}

TEST(H265NalSubLayerHrdParameters, KeepsSubPictureValuesThatAreAbsentNow) {
    test::bit_writer with;
    with.ue(1).ue(2).ue(3).ue(4).u<1>(1);
    test::rbsp with_input{with.bytes()};
    h265_nal_sub_layer_hrd_parameters sub_layer;
    EXPECT_TRUE(sub_layer.parse(0, 1, hrd_with_sub_pictures(true), with_input.reader));

    test::bit_writer without;
    without.ue(5).ue(6).u<1>(0).ue(7).ue(8).u<1>(0);
    test::rbsp without_input{without.bytes()};
    EXPECT_TRUE(sub_layer.parse(0, 2, hrd_with_sub_pictures(false), without_input.reader));
    EXPECT_EQ(sub_layer.bit_rate_value_minus1, std::vector<unsigned int>({5, 7}));
    EXPECT_EQ(sub_layer.cpb_size_value_minus1, std::vector<unsigned int>({6, 8}));
    EXPECT_EQ(sub_layer.cpb_size_du_value_minus1, std::vector<unsigned int>({3, 0}));
    EXPECT_EQ(sub_layer.bit_rate_du_value_minus1, std::vector<unsigned int>({4, 0}));
    EXPECT_EQ(sub_layer.cbr_flag, std::vector<bool>({false, false}));
}

TEST(H265NalSubLayerHrdParameters, ReadsOfItsParentOnlyWhetherThereAreSubPictureParameters) {
    h265_hrd_parameters hrd;
    hrd.nal_hrd_parameters_present_flag = true;
    hrd.maxNumSubLayersMinus1 = 0xFFFFFFFF;
    hrd.cpb_cnt_minus1 = {31};
    test::bit_writer bits;
    bits.ue(9).ue(8).u<1>(1);
    test::rbsp input{bits.bytes()};
    h265_nal_sub_layer_hrd_parameters sub_layer;
    EXPECT_TRUE(sub_layer.parse(40, 1, hrd, input.reader));
    EXPECT_EQ(input.reader.bit_position(), bits.size());
    EXPECT_EQ(sub_layer.subLayerId, 40U);
    EXPECT_EQ(sub_layer.bit_rate_value_minus1, std::vector<unsigned int>({9}));
}

TEST(H265NalSubLayerHrdParameters, DoesNotNoticeTheEndOfTheInput) {
    test::rbsp input{};
    h265_nal_sub_layer_hrd_parameters sub_layer;
    EXPECT_TRUE(sub_layer.parse(0, 4, hrd_with_sub_pictures(true), input.reader));
    EXPECT_TRUE(sub_layer.valid);
    EXPECT_EQ(sub_layer.cbr_flag, std::vector<bool>(4, false));
}

}  // namespace
}  // namespace kovran
