#include <kovran/h265/h265_hrd_parameters.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <vector>

#include "support/bit_writer.h"
#include "support/parameter_sets.h"
#include "support/rbsp.h"
#include "support/same_fields.h"

namespace kovran {
namespace {

using values = std::vector<unsigned int>;
using flags = std::vector<bool>;

// One sub-layer: fixed_pic_rate_general_flag, elemental_duration_in_tc_minus1, cpb_cnt_minus1.
test::bit_writer fixed_rate_sub_layer(unsigned int elemental_duration,
                                      unsigned int cpb_cnt_minus1) {
    return test::bit_writer().u<1>(1).ue(elemental_duration).ue(cpb_cnt_minus1);
}

// Common information with the two present flags as given, without sub-picture parameters.
test::bit_writer common_information(bool nal, bool vcl) {
    test::bit_writer bits;
    bits.u<1>(static_cast<std::uint64_t>(nal)).u<1>(static_cast<std::uint64_t>(vcl));
    bits.u<1>(0);                     // sub_pic_hrd_params_present_flag
    bits.u<4>(1).u<4>(2);             // bit_rate_scale, cpb_size_scale
    bits.u<5>(10).u<5>(11).u<5>(12);  // the three delay lengths
    return bits;
}

TEST(H265HrdParameters, ReadsEveryElementInItsPlace) {
    const test::sample<h265_hrd_parameters> sample = test::full_hrd_parameters();
    test::rbsp input{sample.syntax.bytes()};
    h265_hrd_parameters hrd;
    EXPECT_TRUE(
        hrd.parse(/*commonInfPresentFlag=*/true, /*maxNumSubLayersMinus1=*/2, input.reader));
    EXPECT_EQ(input.reader.bit_position(), sample.syntax.size());
    EXPECT_TRUE(test::same_fields(hrd, sample.record));
}

TEST(H265HrdParameters, ReadsSubLayersAloneWithoutCommonInformation) {
    const test::sample<h265_hrd_parameters> sample = test::hrd_parameters_of_sub_layers();
    test::rbsp input{sample.syntax.bytes()};
    h265_hrd_parameters hrd;
    EXPECT_TRUE(hrd.parse(/*commonInfPresentFlag=*/false, 2, input.reader));
    EXPECT_EQ(input.reader.bit_position(), sample.syntax.size());
    EXPECT_TRUE(test::same_fields(hrd, sample.record));
}

TEST(H265HrdParameters, ReadsNoFurtherCommonInformationWithoutNalAndVclParameters) {
    test::bit_writer bits;
    bits.u<1>(0).u<1>(0);  // nal_hrd_parameters_present_flag, vcl_hrd_parameters_present_flag
    test::append(bits, fixed_rate_sub_layer(40, 31));
    test::rbsp input{bits.bytes()};
    h265_hrd_parameters hrd;
    EXPECT_TRUE(hrd.parse(true, 0, input.reader));
    EXPECT_EQ(input.reader.bit_position(), bits.size());

    h265_hrd_parameters expected;
    expected.commonInfPresentFlag = true;
    expected.initial_cpb_removal_delay_length_minus1 = 23;
    expected.au_cpb_removal_delay_length_minus1 = 23;
    expected.fixed_pic_rate_general_flag = {true};
    expected.fixed_pic_rate_within_cvs_flag = {true};
    expected.elemental_duration_in_tc_minus1 = {40};
    expected.low_delay_hrd_flag = {false};
    expected.cpb_cnt_minus1 = {31};
    expected.nal_sub_layer_hrd.resize(1);
    expected.vcl_sub_layer_hrd.resize(1);
    expected.valid = true;
    EXPECT_TRUE(test::same_fields(hrd, expected));
}

TEST(H265HrdParameters, ReadsNalAndVclStructuresEachByItsFlag) {
    for (const bool nal : {false, true}) {
        const bool vcl = !nal;
        test::bit_writer bits = common_information(nal, vcl);
        test::append(bits, fixed_rate_sub_layer(0, 1));
        bits.ue(50).ue(51).u<1>(1).ue(52).ue(53).u<1>(0);
        test::rbsp input{bits.bytes()};
        h265_hrd_parameters hrd;
        EXPECT_TRUE(hrd.parse(true, 0, input.reader));
        EXPECT_EQ(input.reader.bit_position(), bits.size());

        EXPECT_EQ(hrd.nal_hrd_parameters_present_flag, nal);
        EXPECT_EQ(hrd.vcl_hrd_parameters_present_flag, vcl);
        EXPECT_FALSE(hrd.sub_pic_hrd_params_present_flag);
        EXPECT_EQ(hrd.bit_rate_scale, 1);
        EXPECT_EQ(hrd.cpb_size_scale, 2);
        EXPECT_EQ(hrd.cpb_size_du_scale, 0);
        EXPECT_EQ(hrd.initial_cpb_removal_delay_length_minus1, 10);
        EXPECT_EQ(hrd.au_cpb_removal_delay_length_minus1, 11);
        EXPECT_EQ(hrd.dpb_output_delay_length_minus1, 12);

        h265_nal_sub_layer_hrd_parameters read;
        read.cpb_count = 2;
        read.bit_rate_value_minus1 = {50, 52};
        read.cpb_size_value_minus1 = {51, 53};
        read.cpb_size_du_value_minus1 = {0, 0};
        read.bit_rate_du_value_minus1 = {0, 0};
        read.cbr_flag = {true, false};
        read.valid = true;
        ASSERT_EQ(hrd.nal_sub_layer_hrd.size(), 1U);
        ASSERT_EQ(hrd.vcl_sub_layer_hrd.size(), 1U);
        EXPECT_TRUE(test::same_fields(hrd.nal_sub_layer_hrd[0],
                                      nal ? read : h265_nal_sub_layer_hrd_parameters()));
        EXPECT_TRUE(test::same_fields(hrd.vcl_sub_layer_hrd[0],
                                      vcl ? read : h265_nal_sub_layer_hrd_parameters()));
    }
}

TEST(H265HrdParameters, ReadsTheNalStructureOfASubLayerBeforeTheVclOne) {
    test::bit_writer bits = common_information(/*nal=*/true, /*vcl=*/true);
    test::append(bits, fixed_rate_sub_layer(0, 0));
    bits.ue(1).ue(2).u<1>(0);
    bits.ue(3).ue(4).u<1>(1);
    test::rbsp input{bits.bytes()};
    h265_hrd_parameters hrd;
    EXPECT_TRUE(hrd.parse(true, 0, input.reader));
    EXPECT_EQ(hrd.nal_sub_layer_hrd.at(0).bit_rate_value_minus1, values({1}));
    EXPECT_EQ(hrd.vcl_sub_layer_hrd.at(0).bit_rate_value_minus1, values({3}));
}

TEST(H265HrdParameters, TakesAFixedGeneralRateForOneWithinTheSequence) {
    const test::bit_writer bits = fixed_rate_sub_layer(5, 6);
    test::rbsp input{bits.bytes()};
    h265_hrd_parameters hrd;
    EXPECT_TRUE(hrd.parse(false, 0, input.reader));
    EXPECT_EQ(input.reader.bit_position(), bits.size());
    EXPECT_EQ(hrd.fixed_pic_rate_within_cvs_flag, flags({true}));
    EXPECT_EQ(hrd.elemental_duration_in_tc_minus1, values({5}));
    EXPECT_EQ(hrd.low_delay_hrd_flag, flags({false}));
    EXPECT_EQ(hrd.cpb_cnt_minus1, values({6}));
}

TEST(H265HrdParameters, ReadsNoLowDelayFlagAtAFixedRateWithinTheSequence) {
    test::bit_writer bits;
    bits.u<1>(0).u<1>(1).ue(5).ue(6);
    test::rbsp input{bits.bytes()};
    h265_hrd_parameters hrd;
    EXPECT_TRUE(hrd.parse(false, 0, input.reader));
    EXPECT_EQ(input.reader.bit_position(), bits.size());
    EXPECT_EQ(hrd.fixed_pic_rate_general_flag, flags({false}));
    EXPECT_EQ(hrd.fixed_pic_rate_within_cvs_flag, flags({true}));
    EXPECT_EQ(hrd.elemental_duration_in_tc_minus1, values({5}));
    EXPECT_EQ(hrd.low_delay_hrd_flag, flags({false}));
    EXPECT_EQ(hrd.cpb_cnt_minus1, values({6}));
}

TEST(H265HrdParameters, ReadsACpbCountWithoutLowDelay) {
    test::bit_writer bits;
    bits.u<1>(0).u<1>(0).u<1>(0).ue(6);
    test::rbsp input{bits.bytes()};
    h265_hrd_parameters hrd;
    EXPECT_TRUE(hrd.parse(false, 0, input.reader));
    EXPECT_EQ(input.reader.bit_position(), bits.size());
    EXPECT_EQ(hrd.elemental_duration_in_tc_minus1, values({0}));
    EXPECT_EQ(hrd.low_delay_hrd_flag, flags({false}));
    EXPECT_EQ(hrd.cpb_cnt_minus1, values({6}));
}

TEST(H265HrdParameters, ReadsOneCpbAtLowDelay) {
    test::bit_writer bits = common_information(/*nal=*/true, /*vcl=*/false);
    bits.u<1>(0).u<1>(0).u<1>(1);
    bits.ue(70).ue(71).u<1>(1);
    test::rbsp input{bits.bytes()};
    h265_hrd_parameters hrd;
    EXPECT_TRUE(hrd.parse(true, 0, input.reader));
    EXPECT_EQ(input.reader.bit_position(), bits.size());
    EXPECT_EQ(hrd.low_delay_hrd_flag, flags({true}));
    EXPECT_EQ(hrd.cpb_cnt_minus1, values({0}));
    EXPECT_EQ(hrd.nal_sub_layer_hrd.at(0).cpb_count, 1U);
    EXPECT_EQ(hrd.nal_sub_layer_hrd.at(0).bit_rate_value_minus1, values({70}));
}

TEST(H265HrdParameters, ReadsUpTo128Cpbs) {
    test::bit_writer bits = common_information(/*nal=*/true, /*vcl=*/false);
    test::append(bits, fixed_rate_sub_layer(0, 127));
    for (unsigned int i = 0; i < 128; ++i) {
        bits.ue(i).ue(i).u<1>(0);
    }
    test::rbsp input{bits.bytes()};
    h265_hrd_parameters hrd;
    EXPECT_TRUE(hrd.parse(true, 0, input.reader));
    EXPECT_EQ(input.reader.bit_position(), bits.size());
    EXPECT_EQ(hrd.nal_sub_layer_hrd.at(0).bit_rate_value_minus1.size(), 128U);
    EXPECT_EQ(hrd.nal_sub_layer_hrd.at(0).bit_rate_value_minus1.back(), 127U);
}

TEST(H265HrdParameters, RejectsMoreThan128CpbsAndKeepsEarlierSubLayers) {
    for (const unsigned int cpb_cnt_minus1 : {128U, 0xFFFFFFFEU}) {
        test::bit_writer bits = common_information(/*nal=*/false, /*vcl=*/true);
        test::append(bits, fixed_rate_sub_layer(1, 0));
        bits.ue(33).ue(34).u<1>(1);
        test::append(bits, fixed_rate_sub_layer(2, cpb_cnt_minus1));
        const std::size_t read = bits.size();
        bits.u<64>(0xFFFFFFFFFFFFFFFF);
        test::rbsp input{bits.bytes()};
        h265_hrd_parameters hrd;
        hrd.valid = true;
        EXPECT_FALSE(hrd.parse(true, 2, input.reader));
        EXPECT_FALSE(hrd.valid);
        EXPECT_EQ(input.reader.bit_position(), read);
        EXPECT_EQ(hrd.elemental_duration_in_tc_minus1, values({1, 2, 0}));
        EXPECT_EQ(hrd.cpb_cnt_minus1, values({0, cpb_cnt_minus1, 0}));
        EXPECT_TRUE(hrd.vcl_sub_layer_hrd.at(0).valid);
        EXPECT_EQ(hrd.vcl_sub_layer_hrd.at(0).bit_rate_value_minus1, values({33}));
        EXPECT_FALSE(hrd.vcl_sub_layer_hrd.at(1).valid);
        EXPECT_EQ(hrd.vcl_sub_layer_hrd.at(1).cpb_count, cpb_cnt_minus1 + 1);
        EXPECT_TRUE(hrd.vcl_sub_layer_hrd.at(1).bit_rate_value_minus1.empty());
    }
}

TEST(H265HrdParameters, AcceptsAnyCpbCountThatSizesNothing) {
    for (const unsigned int cpb_cnt_minus1 : {128U, 0xFFFFFFFEU}) {
        const test::bit_writer bits = fixed_rate_sub_layer(0, cpb_cnt_minus1);
        test::rbsp input{bits.bytes()};
        h265_hrd_parameters hrd;
        EXPECT_TRUE(hrd.parse(false, 0, input.reader));
        EXPECT_EQ(hrd.cpb_cnt_minus1, values({cpb_cnt_minus1}));
        EXPECT_TRUE(hrd.valid);
    }
}

TEST(H265HrdParameters, TakesACpbCountThatWrapsForNone) {
    test::bit_writer bits = common_information(/*nal=*/true, /*vcl=*/true);
    bits.u<1>(0).u<1>(0).u<1>(1);  // low delay, so that the held count stays
    const std::size_t read = bits.size();
    bits.u<16>(0xFFFF);
    test::rbsp input{bits.bytes()};
    h265_hrd_parameters hrd;
    hrd.cpb_cnt_minus1 = {0xFFFFFFFF};
    EXPECT_TRUE(hrd.parse(true, 0, input.reader));
    EXPECT_EQ(input.reader.bit_position(), read);
    EXPECT_TRUE(hrd.nal_sub_layer_hrd.at(0).valid);
    EXPECT_EQ(hrd.nal_sub_layer_hrd.at(0).cpb_count, 0U);
    EXPECT_TRUE(hrd.vcl_sub_layer_hrd.at(0).valid);
    EXPECT_TRUE(hrd.vcl_sub_layer_hrd.at(0).cbr_flag.empty());
}

TEST(H265HrdParameters, ReadsUpTo128SubLayers) {
    test::bit_writer bits;
    for (unsigned int i = 0; i < 128; ++i) {
        test::append(bits, fixed_rate_sub_layer(i, 500 + i));
    }
    test::rbsp input{bits.bytes()};
    h265_hrd_parameters hrd;
    EXPECT_TRUE(hrd.parse(false, 127, input.reader));
    EXPECT_EQ(input.reader.bit_position(), bits.size());
    EXPECT_EQ(hrd.fixed_pic_rate_general_flag, flags(128, true));
    EXPECT_EQ(hrd.fixed_pic_rate_within_cvs_flag, flags(128, true));
    EXPECT_EQ(hrd.elemental_duration_in_tc_minus1.size(), 128U);
    EXPECT_EQ(hrd.elemental_duration_in_tc_minus1.back(), 127U);
    EXPECT_EQ(hrd.low_delay_hrd_flag, flags(128, false));
    EXPECT_EQ(hrd.cpb_cnt_minus1.size(), 128U);
    EXPECT_EQ(hrd.cpb_cnt_minus1.back(), 627U);
    EXPECT_EQ(hrd.nal_sub_layer_hrd.size(), 128U);
    EXPECT_EQ(hrd.vcl_sub_layer_hrd.size(), 128U);
}

TEST(H265HrdParameters, RejectsMoreThan128SubLayersBehindTheCommonInformation) {
    for (const unsigned int maxNumSubLayersMinus1 : {128U, 0x7FFFFFFFU, 0xFFFFFFFEU, 0xFFFFFFFFU}) {
        const test::bit_writer bits = common_information(/*nal=*/true, /*vcl=*/false);
        test::rbsp input{bits.bytes()};
        h265_hrd_parameters hrd;
        hrd.cpb_cnt_minus1 = {1, 2};
        hrd.valid = true;
        EXPECT_FALSE(hrd.parse(true, maxNumSubLayersMinus1, input.reader));
        EXPECT_EQ(input.reader.bit_position(), bits.size());

        h265_hrd_parameters expected;
        expected.commonInfPresentFlag = true;
        expected.maxNumSubLayersMinus1 = maxNumSubLayersMinus1;
        expected.nal_hrd_parameters_present_flag = true;
        expected.bit_rate_scale = 1;
        expected.cpb_size_scale = 2;
        expected.initial_cpb_removal_delay_length_minus1 = 10;
        expected.au_cpb_removal_delay_length_minus1 = 11;
        expected.dpb_output_delay_length_minus1 = 12;
        expected.cpb_cnt_minus1 = {1, 2};
        EXPECT_TRUE(test::same_fields(hrd, expected)) << maxNumSubLayersMinus1;
    }
}

TEST(H265HrdParameters, SetsTwoDelayLengthsTo23AndKeepsTheThird) {
    h265_hrd_parameters hrd = test::full_hrd_parameters().record;
    test::bit_writer bits;
    bits.u<1>(0).u<1>(0);
    test::append(bits, fixed_rate_sub_layer(0, 0));
    test::rbsp input{bits.bytes()};
    EXPECT_TRUE(hrd.parse(true, 0, input.reader));
    EXPECT_EQ(hrd.initial_cpb_removal_delay_length_minus1, 23);
    EXPECT_EQ(hrd.au_cpb_removal_delay_length_minus1, 23);
    EXPECT_EQ(hrd.dpb_output_delay_length_minus1, 31);
}

TEST(H265HrdParameters, KeepsCommonInformationThatIsAbsentNow) {
    h265_hrd_parameters hrd = test::full_hrd_parameters().record;
    test::bit_writer bits;
    bits.u<1>(0).u<1>(0);
    test::append(bits, fixed_rate_sub_layer(7, 8));
    test::rbsp input{bits.bytes()};
    EXPECT_TRUE(hrd.parse(true, 0, input.reader));
    EXPECT_EQ(input.reader.bit_position(), bits.size());

    h265_hrd_parameters expected = test::full_hrd_parameters().record;
    expected.maxNumSubLayersMinus1 = 0;
    expected.nal_hrd_parameters_present_flag = false;
    expected.vcl_hrd_parameters_present_flag = false;
    expected.initial_cpb_removal_delay_length_minus1 = 23;
    expected.au_cpb_removal_delay_length_minus1 = 23;
    expected.fixed_pic_rate_general_flag = {true};
    expected.fixed_pic_rate_within_cvs_flag = {true};
    expected.elemental_duration_in_tc_minus1 = {7};
    expected.low_delay_hrd_flag = {false};
    expected.cpb_cnt_minus1 = {8};
    expected.nal_sub_layer_hrd.resize(1);
    expected.vcl_sub_layer_hrd.resize(1);
    EXPECT_TRUE(test::same_fields(hrd, expected));
}

TEST(H265HrdParameters, KeepsSubPictureParametersThatAreAbsentNow) {
    h265_hrd_parameters hrd = test::full_hrd_parameters().record;
    test::bit_writer bits = common_information(/*nal=*/true, /*vcl=*/false);
    test::append(bits, fixed_rate_sub_layer(0, 0));
    bits.ue(0).ue(0).u<1>(0);
    test::rbsp input{bits.bytes()};
    EXPECT_TRUE(hrd.parse(true, 0, input.reader));
    EXPECT_EQ(input.reader.bit_position(), bits.size());
    EXPECT_FALSE(hrd.sub_pic_hrd_params_present_flag);
    EXPECT_EQ(hrd.tick_divisor_minus2, 201);
    EXPECT_EQ(hrd.du_cpb_removal_delay_increment_length_minus1, 21);
    EXPECT_TRUE(hrd.sub_pic_cpb_params_in_pic_timing_sei_flag);
    EXPECT_EQ(hrd.dpb_output_delay_du_length_minus1, 22);
    EXPECT_EQ(hrd.cpb_size_du_scale, 11);
    EXPECT_EQ(hrd.bit_rate_scale, 1);
}

TEST(H265HrdParameters, GoesByThePresentFlagsItHoldsWithoutCommonInformation) {
    h265_hrd_parameters hrd;
    hrd.nal_hrd_parameters_present_flag = true;
    hrd.sub_pic_hrd_params_present_flag = true;
    test::bit_writer bits = fixed_rate_sub_layer(0, 0);
    bits.ue(1).ue(2).ue(3).ue(4).u<1>(1);
    test::rbsp input{bits.bytes()};
    EXPECT_TRUE(hrd.parse(false, 0, input.reader));
    EXPECT_EQ(input.reader.bit_position(), bits.size());
    EXPECT_FALSE(hrd.commonInfPresentFlag);
    EXPECT_TRUE(hrd.nal_hrd_parameters_present_flag);
    EXPECT_EQ(hrd.nal_sub_layer_hrd.at(0).cpb_size_du_value_minus1, values({3}));
    EXPECT_TRUE(hrd.vcl_sub_layer_hrd.at(0).bit_rate_value_minus1.empty());
}

TEST(H265HrdParameters, GoesByTheLowDelayFlagItHoldsAtAFixedRate) {
    h265_hrd_parameters hrd;
    hrd.low_delay_hrd_flag = {true};
    hrd.cpb_cnt_minus1 = {1};
    test::bit_writer bits = common_information(/*nal=*/true, /*vcl=*/false);
    bits.u<1>(1).ue(9);  // fixed_pic_rate_general_flag, elemental_duration_in_tc_minus1
    bits.ue(1).ue(2).u<1>(0).ue(3).ue(4).u<1>(1);
    test::rbsp input{bits.bytes()};
    EXPECT_TRUE(hrd.parse(true, 0, input.reader));
    EXPECT_EQ(input.reader.bit_position(), bits.size());
    EXPECT_EQ(hrd.low_delay_hrd_flag, flags({true}));
    EXPECT_EQ(hrd.cpb_cnt_minus1, values({1}));
    EXPECT_EQ(hrd.nal_sub_layer_hrd.at(0).bit_rate_value_minus1, values({1, 3}));
}

TEST(H265HrdParameters, KeepsAnElementalDurationThatIsAbsentNow) {
    h265_hrd_parameters hrd;
    hrd.elemental_duration_in_tc_minus1 = {77};
    test::bit_writer bits;
    bits.u<1>(0).u<1>(0).u<1>(0).ue(1);
    test::rbsp input{bits.bytes()};
    EXPECT_TRUE(hrd.parse(false, 0, input.reader));
    EXPECT_EQ(hrd.elemental_duration_in_tc_minus1, values({77}));
}

TEST(H265HrdParameters, BringsEveryArrayToTheNumberOfSubLayers) {
    h265_hrd_parameters hrd = test::full_hrd_parameters().record;
    test::bit_writer one;
    one.u<1>(0).u<1>(0);
    test::append(one, fixed_rate_sub_layer(5, 6));
    test::rbsp one_input{one.bytes()};
    EXPECT_TRUE(hrd.parse(true, 0, one_input.reader));
    EXPECT_EQ(hrd.nal_sub_layer_hrd.size(), 1U);
    EXPECT_EQ(hrd.nal_sub_layer_hrd[0].cpb_count, 2U);

    test::bit_writer two;
    two.u<1>(0).u<1>(0);
    two.u<1>(0).u<1>(0).u<1>(1);  // at low delay a new sub-layer has a count of 0
    two.u<1>(0).u<1>(0).u<1>(1);
    test::rbsp two_input{two.bytes()};
    EXPECT_TRUE(hrd.parse(true, 1, two_input.reader));
    EXPECT_EQ(hrd.fixed_pic_rate_general_flag, flags({false, false}));
    EXPECT_EQ(hrd.fixed_pic_rate_within_cvs_flag, flags({false, false}));
    EXPECT_EQ(hrd.elemental_duration_in_tc_minus1, values({5, 0}));
    EXPECT_EQ(hrd.low_delay_hrd_flag, flags({true, true}));
    EXPECT_EQ(hrd.cpb_cnt_minus1, values({6, 0}));
    EXPECT_EQ(hrd.nal_sub_layer_hrd.size(), 2U);
    EXPECT_EQ(hrd.nal_sub_layer_hrd[0].cpb_count, 2U);
    EXPECT_TRUE(test::same_fields(hrd.nal_sub_layer_hrd[1], h265_nal_sub_layer_hrd_parameters()));
    EXPECT_EQ(hrd.vcl_sub_layer_hrd.size(), 2U);
}

TEST(H265HrdParameters, IsInvalidUntilItIsReadToItsEnd) {
    h265_hrd_parameters hrd;
    const test::bit_writer good = fixed_rate_sub_layer(0, 0);
    test::rbsp good_input{good.bytes()};
    EXPECT_TRUE(hrd.parse(false, 0, good_input.reader));
    EXPECT_TRUE(hrd.valid);

    test::rbsp bad_input{good.bytes()};
    EXPECT_FALSE(hrd.parse(false, 128, bad_input.reader));
    EXPECT_FALSE(hrd.valid);

    test::rbsp again{good.bytes()};
    EXPECT_TRUE(hrd.parse(false, 0, again.reader));
    EXPECT_TRUE(hrd.valid);
}

}  // namespace
}  // namespace kovran
