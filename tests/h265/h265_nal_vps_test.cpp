#include <kovran/h265/h265_nal_vps.h>

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

bool parse(h265_nal_vps& vps, const test::vps_syntax& syntax) {
    const test::bit_writer bits = syntax.rbsp();
    test::rbsp input{bits.bytes()};
    const bool result = vps.parse(input.reader);
    if (result) {
        EXPECT_EQ(input.reader.bit_position(), bits.size());
    }
    return result;
}

h265_nal_vps parsed(const test::vps_syntax& syntax) {
    h265_nal_vps vps;
    EXPECT_TRUE(parse(vps, syntax));
    EXPECT_TRUE(vps.valid);
    return vps;
}

// The header of a VPS with so many sub-layers, and a profile_tier_level() that fits.
test::vps_syntax with_sub_layers(unsigned int vps_max_sub_layers_minus1) {
    test::vps_syntax syntax;
    syntax.header = test::bit_writer().u<4>(0).u<1>(1).u<1>(1).u<6>(0);
    syntax.header.u<3>(vps_max_sub_layers_minus1).u<1>(1).u<16>(0xFFFF);
    if (vps_max_sub_layers_minus1 > 0) {
        syntax.profile_tier_level.u<16>(0);  // no part of any sub-layer
    }
    return syntax;
}

// Timing information up to vps_num_hrd_parameters.
test::bit_writer timing_with_hrd(unsigned int vps_num_hrd_parameters) {
    return test::bit_writer().u<1>(1).u<32>(1).u<32>(50).u<1>(0).ue(vps_num_hrd_parameters);
}

// hrd_parameters() without common information for one sub-layer.
test::bit_writer plain_hrd(unsigned int elemental_duration) {
    return test::bit_writer().u<1>(1).ue(elemental_duration).ue(0);
}

// The same with common information but without NAL and VCL parameters.
test::bit_writer plain_hrd_with_common_information(unsigned int elemental_duration) {
    test::bit_writer bits;
    bits.u<1>(0).u<1>(0);
    return test::append(bits, plain_hrd(elemental_duration));
}

// hrd_parameters() with NAL parameters, of which there are too many.
test::bit_writer broken_hrd() {
    test::bit_writer bits;
    bits.u<1>(1).u<1>(0).u<1>(0).u<4>(0).u<4>(0).u<5>(0).u<5>(0).u<5>(0);
    return bits.u<1>(1).ue(0).ue(128);
}

TEST(H265NalVps, ReadsEveryElementInItsPlace) {
    const test::sample<h265_nal_vps, test::vps_syntax> sample = test::full_vps();
    EXPECT_TRUE(test::same_fields(parsed(sample.syntax), sample.record));
}

TEST(H265NalVps, ReadsTheSmallest) {
    const h265_nal_vps vps = parsed(test::vps_syntax());

    h265_nal_vps expected;
    expected.vps_base_layer_internal_flag = true;
    expected.vps_base_layer_available_flag = true;
    expected.vps_temporal_id_nesting_flag = true;
    expected.vps_reserved_0xffff_16bits = 0xFFFF;
    h265_profile_tier_level::layer_t& general = expected.profile_tier_level.general;
    general.profile_idc = 1;
    general.profile_compatibility_flag.assign(32, false);
    general.profile_compatibility_flag[1] = true;
    general.progressive_source_flag = true;
    general.frame_only_constraint_flag = true;
    general.level_idc = 93;
    general.profile_present_flag = true;
    general.level_present_flag = true;
    general.valid = true;
    expected.profile_tier_level.valid = true;
    expected.vps_sub_layer_ordering_info_present_flag = true;
    expected.vps_max_dec_pic_buffering_minus1 = {0};
    expected.vps_max_num_reorder_pics = {0};
    expected.vps_max_latency_increase_plus1 = {0};
    expected.layer_id_included_flag = {{}};
    expected.valid = true;
    EXPECT_TRUE(test::same_fields(vps, expected));
}

TEST(H265NalVps, ReadsItsHeaderAtTheLimits) {
    test::vps_syntax ones;
    ones.header = test::bit_writer().u<4>(15).u<1>(0).u<1>(1).u<6>(63).u<3>(7).u<1>(0).u<16>(0);
    ones.profile_tier_level.u<16>(0);
    ones.sub_layer_ordering_info = test::bit_writer().u<1>(0).ue(0).ue(0).ue(0);
    const h265_nal_vps vps = parsed(ones);
    EXPECT_EQ(vps.vps_video_parameter_set_id, 15);
    EXPECT_FALSE(vps.vps_base_layer_internal_flag);
    EXPECT_TRUE(vps.vps_base_layer_available_flag);
    EXPECT_EQ(vps.vps_max_layers_minus1, 63);
    EXPECT_EQ(vps.vps_max_sub_layers_minus1, 7);
    EXPECT_FALSE(vps.vps_temporal_id_nesting_flag);
    EXPECT_EQ(vps.vps_reserved_0xffff_16bits, 0);
    EXPECT_EQ(vps.profile_tier_level.sub_layers.size(), 7U);
    EXPECT_EQ(vps.vps_max_num_reorder_pics.size(), 8U);
}

TEST(H265NalVps, FillsOnlyTheLastSubLayerWithoutOrderingInfoOfEach) {
    test::vps_syntax syntax = with_sub_layers(2);
    syntax.sub_layer_ordering_info = test::bit_writer().u<1>(0).ue(4).ue(5).ue(0xFFFFFFFE);
    const h265_nal_vps vps = parsed(syntax);
    EXPECT_FALSE(vps.vps_sub_layer_ordering_info_present_flag);
    EXPECT_EQ(vps.vps_max_dec_pic_buffering_minus1, values({0, 0, 4}));
    EXPECT_EQ(vps.vps_max_num_reorder_pics, values({0, 0, 5}));
    EXPECT_EQ(vps.vps_max_latency_increase_plus1, values({0, 0, 0xFFFFFFFE}));
}

TEST(H265NalVps, KeepsTheOrderingInfoOfSubLayersThatAreNotRead) {
    h265_nal_vps vps;
    vps.vps_max_dec_pic_buffering_minus1 = {1, 2, 3, 4};
    vps.vps_max_num_reorder_pics = {5};
    test::vps_syntax syntax = with_sub_layers(2);
    syntax.sub_layer_ordering_info = test::bit_writer().u<1>(0).ue(7).ue(8).ue(9);
    EXPECT_TRUE(parse(vps, syntax));
    EXPECT_EQ(vps.vps_max_dec_pic_buffering_minus1, values({1, 2, 7}));
    EXPECT_EQ(vps.vps_max_num_reorder_pics, values({5, 0, 8}));
    EXPECT_EQ(vps.vps_max_latency_increase_plus1, values({0, 0, 9}));
}

TEST(H265NalVps, ReadsNoFlagsOfTheFirstLayerSet) {
    test::vps_syntax syntax;
    syntax.layer_sets = test::bit_writer().u<6>(63).ue(0);
    const h265_nal_vps vps = parsed(syntax);
    EXPECT_EQ(vps.vps_max_layer_id, 63);
    EXPECT_EQ(vps.layer_id_included_flag, std::vector<flags>({{}}));
}

TEST(H265NalVps, ReadsAFlagForEachLayerOfTheOtherSets) {
    test::vps_syntax syntax;
    syntax.layer_sets = test::bit_writer().u<6>(63).ue(2).u<64>(1).u<64>(0x8000000000000000);
    const h265_nal_vps vps = parsed(syntax);
    flags first(64);
    first.back() = true;
    flags second(64);
    second.front() = true;
    EXPECT_EQ(vps.layer_id_included_flag, std::vector<flags>({{}, first, second}));
}

TEST(H265NalVps, KeepsTheRowOfTheFirstLayerSet) {
    h265_nal_vps vps;
    vps.layer_id_included_flag = {{true, false, true}, {true, true, true}, {true}};
    test::vps_syntax syntax;
    syntax.layer_sets = test::bit_writer().u<6>(0).ue(1).u<1>(0);
    EXPECT_TRUE(parse(vps, syntax));
    EXPECT_EQ(vps.layer_id_included_flag, std::vector<flags>({{true, false, true}, {false}}));
}

TEST(H265NalVps, ReadsUpTo128LayerSets) {
    test::vps_syntax syntax;
    syntax.layer_sets = test::bit_writer().u<6>(0).ue(127).u<64>(0).u<63>(1);
    const h265_nal_vps vps = parsed(syntax);
    ASSERT_EQ(vps.layer_id_included_flag.size(), 128U);
    EXPECT_TRUE(vps.layer_id_included_flag[0].empty());
    EXPECT_EQ(vps.layer_id_included_flag[126], flags({false}));
    EXPECT_EQ(vps.layer_id_included_flag[127], flags({true}));
}

TEST(H265NalVps, RejectsMoreThan128LayerSetsWithValidAsItWas) {
    for (const unsigned int vps_num_layer_sets_minus1 : {128U, 1023U, 0xFFFFFFFEU}) {
        for (const bool valid_before : {false, true}) {
            test::vps_syntax syntax;
            syntax.layer_sets = test::bit_writer().u<6>(9).ue(vps_num_layer_sets_minus1);
            h265_nal_vps vps;
            vps.valid = valid_before;
            EXPECT_FALSE(parse(vps, syntax));
            EXPECT_EQ(vps.valid, valid_before);
            EXPECT_EQ(vps.vps_max_layer_id, 9);
            EXPECT_EQ(vps.vps_num_layer_sets_minus1, vps_num_layer_sets_minus1);
            EXPECT_TRUE(vps.layer_id_included_flag.empty());
        }
    }
}

TEST(H265NalVps, ReadsTimingWithoutPocAndHrd) {
    test::vps_syntax syntax;
    syntax.timing_info =
        test::bit_writer().u<1>(1).u<32>(0xFFFFFFFF).u<32>(0x01020304).u<1>(0).ue(0);
    const h265_nal_vps vps = parsed(syntax);
    EXPECT_TRUE(vps.vps_timing_info_present_flag);
    EXPECT_EQ(vps.vps_num_units_in_tick, 0xFFFFFFFFU);
    EXPECT_EQ(vps.vps_time_scale, 0x01020304U);
    EXPECT_FALSE(vps.vps_poc_proportional_to_timing_flag);
    EXPECT_EQ(vps.vps_num_ticks_poc_diff_one_minus1, 0U);
    EXPECT_EQ(vps.vps_num_hrd_parameters, 0U);
}

TEST(H265NalVps, ReadsTicksOfAPocDifferenceWhenProportional) {
    test::vps_syntax syntax;
    syntax.timing_info = test::bit_writer().u<1>(1).u<32>(1).u<32>(50).u<1>(1).ue(0xFFFFFFFE).ue(0);
    const h265_nal_vps vps = parsed(syntax);
    EXPECT_TRUE(vps.vps_poc_proportional_to_timing_flag);
    EXPECT_EQ(vps.vps_num_ticks_poc_diff_one_minus1, 0xFFFFFFFEU);
}

TEST(H265NalVps, KeepsTimingThatIsAbsentNow) {
    const test::sample<h265_nal_vps, test::vps_syntax> sample = test::full_vps();
    h265_nal_vps vps = sample.record;
    test::vps_syntax syntax = sample.syntax;
    syntax.timing_info = test::bit_writer().u<1>(0);
    EXPECT_TRUE(parse(vps, syntax));

    h265_nal_vps expected = sample.record;
    expected.vps_timing_info_present_flag = false;
    EXPECT_TRUE(test::same_fields(vps, expected));
}

TEST(H265NalVps, KeepsTheHrdArraysWhenThereAreNone) {
    const test::sample<h265_nal_vps, test::vps_syntax> sample = test::full_vps();
    h265_nal_vps vps = sample.record;
    test::vps_syntax syntax = sample.syntax;
    syntax.timing_info = timing_with_hrd(0);
    EXPECT_TRUE(parse(vps, syntax));

    h265_nal_vps expected = sample.record;
    expected.vps_num_units_in_tick = 1;
    expected.vps_time_scale = 50;
    expected.vps_poc_proportional_to_timing_flag = false;
    expected.vps_num_hrd_parameters = 0;
    EXPECT_TRUE(test::same_fields(vps, expected));
}

TEST(H265NalVps, ReadsTheFirstHrdWithoutCommonInformation) {
    test::vps_syntax syntax;
    syntax.timing_info = timing_with_hrd(1);
    test::append(syntax.timing_info.ue(3), plain_hrd(7));
    const h265_nal_vps vps = parsed(syntax);
    EXPECT_EQ(vps.hrd_layer_set_idx, values({3}));
    EXPECT_EQ(vps.cprms_present_flag, flags({false}));
    ASSERT_EQ(vps.hrd_parameters.size(), 1U);
    EXPECT_FALSE(vps.hrd_parameters[0].commonInfPresentFlag);
    EXPECT_EQ(vps.hrd_parameters[0].elemental_duration_in_tc_minus1, values({7}));
    EXPECT_TRUE(vps.hrd_parameters[0].valid);
}

TEST(H265NalVps, ReadsTheFirstHrdWithCommonInformationWhenTheHostSaysSo) {
    test::vps_syntax syntax;
    syntax.timing_info = timing_with_hrd(1);
    test::append(syntax.timing_info.ue(3), test::full_hrd_parameters().syntax);
    const unsigned int sub_layers = test::sample_max_sub_layers_minus1;
    syntax.header = with_sub_layers(sub_layers).header;
    syntax.profile_tier_level = with_sub_layers(sub_layers).profile_tier_level;
    syntax.sub_layer_ordering_info = test::bit_writer().u<1>(0).ue(0).ue(0).ue(0);
    h265_nal_vps vps;
    vps.cprms_present_flag = {true};
    EXPECT_TRUE(parse(vps, syntax));
    EXPECT_EQ(vps.cprms_present_flag, flags({true}));
    ASSERT_EQ(vps.hrd_parameters.size(), 1U);
    EXPECT_TRUE(test::same_fields(vps.hrd_parameters[0], test::full_hrd_parameters().record));
}

TEST(H265NalVps, ReadsWhetherAFurtherHrdHasCommonInformation) {
    test::vps_syntax syntax;
    syntax.timing_info = timing_with_hrd(3);
    test::append(syntax.timing_info.ue(0), plain_hrd(10));
    test::append(syntax.timing_info.ue(1).u<1>(1), plain_hrd_with_common_information(11));
    test::append(syntax.timing_info.ue(2).u<1>(0), plain_hrd(12));
    const h265_nal_vps vps = parsed(syntax);
    EXPECT_EQ(vps.vps_num_hrd_parameters, 3U);
    EXPECT_EQ(vps.hrd_layer_set_idx, values({0, 1, 2}));
    EXPECT_EQ(vps.cprms_present_flag, flags({false, true, false}));
    ASSERT_EQ(vps.hrd_parameters.size(), 3U);
    for (unsigned int i = 0; i < 3; ++i) {
        EXPECT_EQ(vps.hrd_parameters[i].commonInfPresentFlag, i == 1);
        EXPECT_EQ(vps.hrd_parameters[i].elemental_duration_in_tc_minus1, values({10 + i}));
    }
}

TEST(H265NalVps, ReadsUpTo128HrdStructures) {
    test::vps_syntax syntax;
    syntax.timing_info = timing_with_hrd(128);
    for (unsigned int i = 0; i < 128; ++i) {
        syntax.timing_info.ue(i);
        if (i > 0) {
            syntax.timing_info.u<1>(0);
        }
        test::append(syntax.timing_info, plain_hrd(1000 + i));
    }
    const h265_nal_vps vps = parsed(syntax);
    ASSERT_EQ(vps.hrd_layer_set_idx.size(), 128U);
    EXPECT_EQ(vps.hrd_layer_set_idx.back(), 127U);
    EXPECT_EQ(vps.cprms_present_flag, flags(128, false));
    ASSERT_EQ(vps.hrd_parameters.size(), 128U);
    EXPECT_EQ(vps.hrd_parameters.back().elemental_duration_in_tc_minus1, values({1127}));
}

TEST(H265NalVps, RejectsMoreThan128HrdStructuresWithValidAsItWas) {
    for (const unsigned int vps_num_hrd_parameters : {129U, 0xFFFFFFFEU}) {
        for (const bool valid_before : {false, true}) {
            test::vps_syntax syntax;
            syntax.timing_info = timing_with_hrd(vps_num_hrd_parameters);
            h265_nal_vps vps;
            vps.valid = valid_before;
            EXPECT_FALSE(parse(vps, syntax));
            EXPECT_EQ(vps.valid, valid_before);
            EXPECT_EQ(vps.vps_num_hrd_parameters, vps_num_hrd_parameters);
            EXPECT_EQ(vps.vps_time_scale, 50U);
            EXPECT_TRUE(vps.hrd_layer_set_idx.empty());
            EXPECT_TRUE(vps.cprms_present_flag.empty());
            EXPECT_TRUE(vps.hrd_parameters.empty());
        }
    }
}

TEST(H265NalVps, RejectsAnHrdStructureThatIsRejectedWithValidAsItWas) {
    for (const bool valid_before : {false, true}) {
        test::vps_syntax syntax;
        syntax.timing_info = timing_with_hrd(2);
        test::append(syntax.timing_info.ue(0), plain_hrd(0));
        test::append(syntax.timing_info.ue(1).u<1>(1), broken_hrd());
        h265_nal_vps vps;
        vps.valid = valid_before;
        EXPECT_FALSE(parse(vps, syntax));
        EXPECT_EQ(vps.valid, valid_before);
        EXPECT_EQ(vps.hrd_layer_set_idx, values({0, 1}));
        EXPECT_EQ(vps.cprms_present_flag, flags({false, true}));
        EXPECT_TRUE(vps.hrd_parameters.at(0).valid);
        EXPECT_FALSE(vps.hrd_parameters.at(1).valid);
    }
}

TEST(H265NalVps, PassesOverItsExtension) {
    for (unsigned int length = 0; length <= 40; ++length) {
        test::vps_syntax syntax;
        syntax.extension = test::bit_writer().u<1>(1).u(length, 0x96C3A55A11 >> (40 - length));
        const h265_nal_vps vps = parsed(syntax);
        EXPECT_TRUE(vps.vps_extension_flag);
    }
}

TEST(H265NalVps, RejectsAMissingStopBit) {
    const std::vector<unsigned char> bytes = test::vps_syntax().payload().bytes();
    for (const bool valid_before : {false, true}) {
        test::rbsp input{bytes};
        h265_nal_vps vps;
        vps.valid = valid_before;
        EXPECT_FALSE(vps.parse(input.reader));
        EXPECT_FALSE(vps.valid);
        EXPECT_EQ(vps.vps_reserved_0xffff_16bits, 0xFFFF);
    }
}

TEST(H265NalVps, RejectsAlignmentBitsThatAreNotZero) {
    test::bit_writer bits = test::vps_syntax().payload().u<1>(1);
    ASSERT_NE(bits.size() % 8, 0U);
    while (bits.size() % 8 != 7) {
        bits.u<1>(0);
    }
    test::rbsp input{bits.u<1>(1).bytes()};
    h265_nal_vps vps;
    vps.valid = true;
    EXPECT_FALSE(vps.parse(input.reader));
    EXPECT_FALSE(vps.valid);
}

TEST(H265NalVps, ShowsTheEarlierOutcomeAfterAFailureThatLeavesValid) {
    h265_nal_vps vps = parsed(test::vps_syntax());
    test::vps_syntax too_many;
    too_many.header = test::bit_writer().u<4>(5).u<1>(1).u<1>(1).u<6>(0).u<3>(0).u<1>(1).u<16>(0);
    too_many.layer_sets = test::bit_writer().u<6>(0).ue(128);
    EXPECT_FALSE(parse(vps, too_many));
    EXPECT_TRUE(vps.valid);
    EXPECT_EQ(vps.vps_video_parameter_set_id, 5);

    EXPECT_TRUE(parse(vps, test::vps_syntax()));
    EXPECT_TRUE(vps.valid);
}

TEST(H265NalVps, RejectsAnEmptyInput) {
    test::rbsp input{};
    h265_nal_vps vps;
    EXPECT_FALSE(vps.parse(input.reader));
    EXPECT_FALSE(vps.valid);
}

}  // namespace
}  // namespace kovran
