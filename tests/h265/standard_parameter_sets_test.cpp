// The standard's reading of parameter sets and what stands in them, beside the library's own.
#include <kovran/h265/h265_hrd_parameters.h>
#include <kovran/h265/h265_nal_pps.h>
#include <kovran/h265/h265_nal_sps.h>
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

bool parse_standard(h265_nal_vps& vps, const test::vps_syntax& syntax) {
    test::rbsp input{syntax.rbsp().bytes()};
    return vps.parse_standard(input.reader);
}

bool parse_standard(h265_nal_sps& sps, const test::sps_syntax& syntax) {
    auto vps_store = test::vps_store_with(0);
    test::rbsp input{syntax.rbsp().bytes()};
    return sps.parse_standard(input.reader, vps_store);
}

bool parse_standard(h265_nal_pps& pps, const test::pps_syntax& syntax,
                    h2645_common_base_store<h265_nal_sps> sps_store = test::sps_store_with(0)) {
    test::rbsp input{syntax.rbsp().bytes()};
    return pps.parse_standard(input.reader, sps_store);
}

bool parse_own(h265_nal_vps& vps, const test::vps_syntax& syntax) {
    test::rbsp input{syntax.rbsp().bytes()};
    return vps.parse(input.reader);
}

bool parse_own(h265_nal_sps& sps, const test::sps_syntax& syntax) {
    auto vps_store = test::vps_store_with(0);
    test::rbsp input{syntax.rbsp().bytes()};
    return sps.parse(input.reader, vps_store);
}

bool parse_own(h265_nal_pps& pps, const test::pps_syntax& syntax) {
    auto sps_store = test::sps_store_with(0);
    test::rbsp input{syntax.rbsp().bytes()};
    return pps.parse(input.reader, sps_store);
}

template <class Record, class Syntax>
Record parsed(const Syntax& syntax) {
    Record record;
    EXPECT_TRUE(parse_standard(record, syntax));
    EXPECT_TRUE(record.valid);
    return record;
}

// Whether the standard's reading takes it, and that of the library.
struct readings {
    bool standard;
    bool own;
};

bool operator==(readings a, readings b) {
    return a.standard == b.standard && a.own == b.own;
}

template <class Record, class Syntax>
readings taken(const Syntax& syntax) {
    Record by_standard;
    Record by_own;
    const readings result = {parse_standard(by_standard, syntax), parse_own(by_own, syntax)};
    EXPECT_EQ(by_standard.valid, result.standard);
    return result;
}

constexpr readings both = {true, true};
constexpr readings own_only = {false, true};
constexpr readings standard_only = {true, false};
constexpr readings neither = {false, false};

// ---- VPS

test::vps_syntax vps_with_sub_layers(unsigned int vps_max_sub_layers_minus1) {
    test::vps_syntax syntax;
    syntax.header = test::bit_writer().u<4>(0).u<1>(1).u<1>(1).u<6>(0);
    syntax.header.u<3>(vps_max_sub_layers_minus1).u<1>(1).u<16>(0xFFFF);
    if (vps_max_sub_layers_minus1 > 0) {
        syntax.profile_tier_level.u<16>(0);
    }
    return syntax;
}

TEST(StandardVps, HasTheOrderingInformationOfTheHighestSubLayerInAll) {
    test::vps_syntax syntax = vps_with_sub_layers(2);
    syntax.sub_layer_ordering_info = test::bit_writer().u<1>(0).ue(4).ue(2).ue(7);
    const auto vps = parsed<h265_nal_vps>(syntax);
    EXPECT_EQ(vps.vps_max_dec_pic_buffering_minus1, (values{4, 4, 4}));
    EXPECT_EQ(vps.vps_max_num_reorder_pics, (values{2, 2, 2}));
    EXPECT_EQ(vps.vps_max_latency_increase_plus1, (values{7, 7, 7}));
    h265_nal_vps own;
    EXPECT_TRUE(parse_own(own, syntax));
    EXPECT_EQ(own.vps_max_dec_pic_buffering_minus1, (values{0, 0, 4}));
}

TEST(StandardVps, HasUpTo7SubLayers) {
    test::vps_syntax seven = vps_with_sub_layers(6);
    seven.sub_layer_ordering_info = test::bit_writer().u<1>(0).ue(0).ue(0).ue(0);
    EXPECT_EQ(taken<h265_nal_vps>(seven), both);
    test::vps_syntax eight = vps_with_sub_layers(7);
    eight.sub_layer_ordering_info = test::bit_writer().u<1>(0).ue(0).ue(0).ue(0);
    EXPECT_EQ(taken<h265_nal_vps>(eight), own_only);
}

// Sub-layer 1 has a level of its own, sub-layer 0 a profile: profile 2 with flag 2, progressive,
// one picture only; high tier.
TEST(StandardVps, HasAbsentProfilesAndLevelsFromTheLayerAbove) {
    test::vps_syntax syntax = vps_with_sub_layers(2);
    syntax.profile_tier_level = test::minimal_profile_tier_level();
    syntax.profile_tier_level.u<1>(1).u<1>(0).u<1>(0).u<1>(1).u<12>(0);
    syntax.profile_tier_level.u<2>(0).u<1>(1).u<5>(2).u<32>(0x20000000);
    syntax.profile_tier_level.u<4>(0b1000).u<7>(0).u<1>(1).u<35>(0).u<1>(1);
    syntax.profile_tier_level.u<8>(60);
    syntax.sub_layer_ordering_info = test::bit_writer().u<1>(0).ue(0).ue(0).ue(0);
    const auto vps = parsed<h265_nal_vps>(syntax);
    const h265_profile_tier_level& ptl = vps.profile_tier_level;
    ASSERT_EQ(ptl.sub_layers.size(), 2U);

    const auto& general = ptl.general;
    EXPECT_EQ(general.profile_idc, 1U);
    EXPECT_EQ(general.level_idc, 93U);
    const auto& first = ptl.sub_layers[0];
    EXPECT_TRUE(first.profile_present_flag);
    EXPECT_FALSE(first.level_present_flag);
    EXPECT_EQ(first.profile_idc, 2U);
    EXPECT_TRUE(first.one_picture_only_constraint_flag);
    EXPECT_EQ(first.level_idc, 60U);
    const auto& second = ptl.sub_layers[1];
    EXPECT_FALSE(second.profile_present_flag);
    EXPECT_TRUE(second.level_present_flag);
    EXPECT_EQ(second.profile_idc, 1U);
    EXPECT_EQ(second.profile_compatibility_flag, general.profile_compatibility_flag);
    EXPECT_EQ(second.progressive_source_flag, general.progressive_source_flag);
    EXPECT_EQ(second.tier_flag, general.tier_flag);
    EXPECT_EQ(second.level_idc, 60U);

    h265_nal_vps own;
    EXPECT_TRUE(parse_own(own, syntax));
    EXPECT_EQ(own.profile_tier_level.sub_layers[0].level_idc, 0U);
    EXPECT_EQ(own.profile_tier_level.sub_layers[1].profile_idc, 0U);
    EXPECT_TRUE(own.profile_tier_level.sub_layers[1].profile_compatibility_flag.empty());
}

// All bits of the general profile are 1, those of its region for profiles 5, 9, 10 and 11 included.
TEST(StandardVps, HasAllOfAnAbsentProfileFromTheLayerAbove) {
    test::vps_syntax syntax = vps_with_sub_layers(1);
    syntax.profile_tier_level =
        test::bit_writer().u<64>(~std::uint64_t{0}).u<24>(0xFFFFFF).u<8>(93);
    syntax.profile_tier_level.u<2>(0).u<14>(0);
    syntax.sub_layer_ordering_info = test::bit_writer().u<1>(0).ue(0).ue(0).ue(0);
    const auto vps = parsed<h265_nal_vps>(syntax);
    const auto& general = vps.profile_tier_level.general;
    EXPECT_TRUE(general.tier_flag);
    EXPECT_TRUE(general.max_14bit_constraint_flag);
    EXPECT_TRUE(general.inbld_flag);
    ASSERT_EQ(vps.profile_tier_level.sub_layers.size(), 1U);
    auto expected = general;
    expected.profile_present_flag = false;
    expected.level_present_flag = false;
    EXPECT_TRUE(test::same_fields(vps.profile_tier_level.sub_layers[0], expected));
}

test::bit_writer timing_with_hrd(unsigned int vps_num_hrd_parameters) {
    return test::bit_writer().u<1>(1).u<32>(1).u<32>(50).u<1>(0).ue(vps_num_hrd_parameters);
}

// Common information with NAL parameters: scales 3 and 4, lengths 10, 11 and 12.
test::bit_writer common_information() {
    test::bit_writer bits;
    bits.u<1>(1).u<1>(0).u<1>(0).u<4>(3).u<4>(4).u<5>(10).u<5>(11).u<5>(12);
    return bits;
}

// One sub-layer with one CPB.
test::bit_writer sub_layer(unsigned int bit_rate_value_minus1) {
    test::bit_writer bits;
    bits.u<1>(0).u<1>(0).u<1>(0).ue(0).ue(bit_rate_value_minus1).ue(20).u<1>(1);
    return bits;
}

TEST(StandardVps, ReadsTheFirstHrdStructureWithCommonInformation) {
    test::vps_syntax syntax;
    syntax.timing_info = timing_with_hrd(1).ue(0);
    test::append(syntax.timing_info, common_information());
    test::append(syntax.timing_info, sub_layer(9));
    const auto vps = parsed<h265_nal_vps>(syntax);
    EXPECT_EQ(vps.cprms_present_flag, flags{true});
    ASSERT_EQ(vps.hrd_parameters.size(), 1U);
    const h265_hrd_parameters& hrd = vps.hrd_parameters[0];
    EXPECT_TRUE(hrd.commonInfPresentFlag);
    EXPECT_EQ(hrd.bit_rate_scale, 3U);
    EXPECT_EQ(hrd.dpb_output_delay_length_minus1, 12U);
    ASSERT_TRUE(hrd.nal_sub_layer_hrd.at(0).valid);
    EXPECT_EQ(hrd.nal_sub_layer_hrd[0].bit_rate_value_minus1, values{9});

    h265_nal_vps own;
    static_cast<void>(parse_own(own, syntax));
    ASSERT_EQ(own.hrd_parameters.size(), 1U);
    EXPECT_FALSE(own.hrd_parameters[0].commonInfPresentFlag);
}

// The second structure is coded without common information, the third with its own, the fourth
// without again.
TEST(StandardVps, HasTheCommonInformationOfTheStructureBefore) {
    test::vps_syntax syntax;
    syntax.layer_sets = test::bit_writer().u<6>(0).ue(3).u<1>(1).u<1>(1).u<1>(1);
    syntax.timing_info = timing_with_hrd(4).ue(0);
    test::append(syntax.timing_info, common_information());
    test::append(syntax.timing_info, sub_layer(9));
    syntax.timing_info.ue(1).u<1>(0);
    test::append(syntax.timing_info, sub_layer(8));
    // Neither NAL nor VCL parameters.
    syntax.timing_info.ue(2).u<1>(1).u<1>(0).u<1>(0).u<1>(1).ue(5).ue(0);
    syntax.timing_info.ue(3).u<1>(0).u<1>(1).ue(6).ue(0);
    const auto vps = parsed<h265_nal_vps>(syntax);
    ASSERT_EQ(vps.hrd_parameters.size(), 4U);
    const h265_hrd_parameters& second = vps.hrd_parameters[1];
    EXPECT_FALSE(second.commonInfPresentFlag);
    EXPECT_TRUE(second.nal_hrd_parameters_present_flag);
    EXPECT_EQ(second.bit_rate_scale, 3U);
    EXPECT_EQ(second.cpb_size_scale, 4U);
    EXPECT_EQ(second.initial_cpb_removal_delay_length_minus1, 10U);
    EXPECT_EQ(second.au_cpb_removal_delay_length_minus1, 11U);
    EXPECT_EQ(second.dpb_output_delay_length_minus1, 12U);
    EXPECT_EQ(second.nal_sub_layer_hrd.at(0).bit_rate_value_minus1, values{8});
    for (const std::size_t i : {2U, 3U}) {
        const h265_hrd_parameters& hrd = vps.hrd_parameters[i];
        EXPECT_FALSE(hrd.nal_hrd_parameters_present_flag);
        EXPECT_EQ(hrd.initial_cpb_removal_delay_length_minus1, 23U);
        EXPECT_EQ(hrd.au_cpb_removal_delay_length_minus1, 23U);
        EXPECT_EQ(hrd.dpb_output_delay_length_minus1, 23U);
    }
    EXPECT_EQ(vps.hrd_parameters[3].elemental_duration_in_tc_minus1, values{6});
}

// NAL and VCL parameters with those of sub-pictures, each element with a value of its own; one
// sub-layer of one CPB, coded alike in both structures.
TEST(StandardVps, HasAllOfTheCommonInformationOfTheStructureBefore) {
    test::bit_writer common;
    common.u<1>(1).u<1>(1).u<1>(1).u<8>(200).u<5>(21).u<1>(1).u<5>(22);
    common.u<4>(9).u<4>(10).u<4>(11).u<5>(29).u<5>(30).u<5>(31);
    test::bit_writer sub_layer_of_all;
    sub_layer_of_all.u<1>(1).ue(7).ue(0);
    for (unsigned int i = 0; i < 2; ++i) {
        sub_layer_of_all.ue(1).ue(2).ue(3).ue(4).u<1>(1);
    }
    test::vps_syntax syntax;
    syntax.layer_sets = test::bit_writer().u<6>(0).ue(1).u<1>(1);
    syntax.timing_info = timing_with_hrd(2).ue(0);
    test::append(test::append(syntax.timing_info, common), sub_layer_of_all).ue(1).u<1>(0);
    test::append(syntax.timing_info, sub_layer_of_all);
    const auto vps = parsed<h265_nal_vps>(syntax);
    ASSERT_EQ(vps.hrd_parameters.size(), 2U);
    h265_hrd_parameters expected = vps.hrd_parameters[0];
    EXPECT_EQ(expected.cpb_size_du_scale, 11U);
    EXPECT_EQ(expected.vcl_sub_layer_hrd.at(0).bit_rate_du_value_minus1, values{4});
    expected.commonInfPresentFlag = false;
    EXPECT_TRUE(test::same_fields(vps.hrd_parameters[1], expected));
}

TEST(StandardVps, HasUpTo1024LayerSetsAndHrdStructures) {
    const auto with_layer_sets = [](unsigned int count) {
        test::vps_syntax syntax;
        syntax.layer_sets = test::bit_writer().u<6>(0).ue(count - 1);
        for (unsigned int i = 1; i < count; ++i) {
            syntax.layer_sets.u<1>(1);
        }
        return syntax;
    };
    EXPECT_EQ(taken<h265_nal_vps>(with_layer_sets(128)), both);
    EXPECT_EQ(taken<h265_nal_vps>(with_layer_sets(129)), standard_only);
    EXPECT_EQ(taken<h265_nal_vps>(with_layer_sets(1024)), standard_only);
    EXPECT_EQ(taken<h265_nal_vps>(with_layer_sets(1025)), neither);

    const auto with_hrd = [](unsigned int count) {
        test::vps_syntax syntax;
        syntax.timing_info = timing_with_hrd(count);
        for (unsigned int i = 0; i < count; ++i) {
            syntax.timing_info.ue(0);
            if (i > 0) {
                syntax.timing_info.u<1>(0);
            } else {
                syntax.timing_info.u<1>(0).u<1>(0);
            }
            syntax.timing_info.u<1>(1).ue(0).ue(0);
        }
        return syntax;
    };
    h265_nal_vps vps;
    EXPECT_TRUE(parse_standard(vps, with_hrd(1024)));
    EXPECT_EQ(vps.hrd_parameters.size(), 1024U);
    EXPECT_FALSE(parse_standard(vps, with_hrd(1025)));
    EXPECT_TRUE(vps.hrd_parameters.empty());
}

// The next bit is vps_temporal_id_nesting_flag.
TEST(StandardVps, IsRefusedRightAfter8SubLayers) {
    test::rbsp input{0b0000'1'1'00, 0b0000'111'1, 0xFF, 0xFF};
    h265_nal_vps vps;
    EXPECT_FALSE(vps.parse_standard(input.reader));
    EXPECT_EQ(input.reader.bit_position(), 15U);
}

TEST(StandardVps, ShowsNothingStale) {
    h265_nal_vps vps;
    static_cast<void>(parse_standard(vps, test::full_vps().syntax));
    EXPECT_TRUE(parse_standard(vps, {}));
    EXPECT_TRUE(test::same_fields(vps, parsed<h265_nal_vps>(test::vps_syntax{})));
}

// ---- HRD parameters

TEST(StandardHrdParameters, HasLowDelayOnlyWhereItIsCoded) {
    // fixed_pic_rate_general_flag, elemental_duration_in_tc_minus1 0, cpb_cnt_minus1 0.
    const std::vector<unsigned char> bits = {0b1'1'1'00000};
    h265_hrd_parameters hrd;
    hrd.low_delay_hrd_flag = {true};
    hrd.nal_hrd_parameters_present_flag = true;
    h265_hrd_parameters own = hrd;
    test::rbsp input{bits};
    EXPECT_TRUE(hrd.parse_standard(false, 0, input.reader));
    EXPECT_EQ(input.reader.bit_position(), 3U);
    EXPECT_EQ(hrd.low_delay_hrd_flag, flags{false});
    EXPECT_FALSE(hrd.nal_hrd_parameters_present_flag);
    EXPECT_EQ(hrd.initial_cpb_removal_delay_length_minus1, 23U);
    EXPECT_EQ(hrd.dpb_output_delay_length_minus1, 23U);

    own.nal_hrd_parameters_present_flag = false;
    test::rbsp own_input{bits};
    EXPECT_TRUE(own.parse(false, 0, own_input.reader));
    EXPECT_EQ(own_input.reader.bit_position(), 2U);
}

TEST(StandardHrdParameters, HasUpTo7SubLayersAnd32Cpbs) {
    const auto with_cpbs = [](unsigned int count) {
        test::bit_writer bits = common_information();
        bits.u<1>(0).u<1>(0).u<1>(0).ue(count - 1);
        for (unsigned int i = 0; i < count; ++i) {
            bits.ue(i).ue(i).u<1>(0);
        }
        return bits;
    };
    for (const unsigned int count : {1U, 32U, 33U, 128U}) {
        test::rbsp input{with_cpbs(count).bytes()};
        h265_hrd_parameters hrd;
        EXPECT_EQ(hrd.parse_standard(true, 0, input.reader), count <= 32) << count;
        EXPECT_EQ(hrd.valid, count <= 32);
        test::rbsp own_input{with_cpbs(count).bytes()};
        EXPECT_TRUE(hrd.parse(true, 0, own_input.reader)) << count;
    }
    for (const unsigned int maxNumSubLayersMinus1 : {6U, 7U}) {
        test::bit_writer bits;
        for (unsigned int i = 0; i <= maxNumSubLayersMinus1; ++i) {
            bits.u<1>(1).ue(0).ue(0);
        }
        test::rbsp input{bits.bytes()};
        h265_hrd_parameters hrd;
        EXPECT_EQ(hrd.parse_standard(false, maxNumSubLayersMinus1, input.reader),
                  maxNumSubLayersMinus1 == 6);
    }
    test::rbsp input{std::vector<unsigned char>(64, 0xFF)};
    h265_nal_sub_layer_hrd_parameters sub_layer_hrd;
    EXPECT_TRUE(sub_layer_hrd.parse_standard(0, 32, {}, input.reader));
    EXPECT_FALSE(sub_layer_hrd.parse_standard(0, 33, {}, input.reader));
}

// ---- SPS

test::sps_syntax sps_with_sub_layers(unsigned int sps_max_sub_layers_minus1) {
    test::sps_syntax syntax;
    syntax.header = test::bit_writer().u<4>(0).u<3>(sps_max_sub_layers_minus1).u<1>(1);
    if (sps_max_sub_layers_minus1 > 0) {
        syntax.profile_tier_level.u<16>(0);
        syntax.sub_layer_ordering_info = test::bit_writer().u<1>(0).ue(5).ue(3).ue(8);
    }
    return syntax;
}

TEST(StandardSps, HasTheOrderingInformationOfTheHighestSubLayerInAll) {
    const auto sps = parsed<h265_nal_sps>(sps_with_sub_layers(1));
    EXPECT_EQ(sps.sps_max_dec_pic_buffering_minus1, (values{5, 5}));
    EXPECT_EQ(sps.sps_max_num_reorder_pics, (values{3, 3}));
    EXPECT_EQ(sps.sps_max_latency_increase_plus1, (values{8, 8}));
    EXPECT_EQ(sps.profile_tier_level.sub_layers.at(0).level_idc, 93U);
    h265_nal_sps own;
    EXPECT_TRUE(parse_own(own, sps_with_sub_layers(1)));
    EXPECT_EQ(own.sps_max_dec_pic_buffering_minus1, (values{0, 5}));
}

// Of layers above the base layer, 7 there announces another syntax.
TEST(StandardSps, HasUpTo7SubLayers) {
    EXPECT_EQ(taken<h265_nal_sps>(sps_with_sub_layers(6)), both);
    EXPECT_EQ(taken<h265_nal_sps>(sps_with_sub_layers(7)), own_only);
}

TEST(StandardSps, ComparesWithTheLimitsOfTheStandard) {
    const auto with_id = [](unsigned int id) {
        test::sps_syntax syntax;
        syntax.sps_seq_parameter_set_id = test::bit_writer().ue(id);
        return syntax;
    };
    EXPECT_EQ(taken<h265_nal_sps>(with_id(15)), both);
    EXPECT_EQ(taken<h265_nal_sps>(with_id(16)), own_only);

    const auto with_poc_bits = [](unsigned int bits) {
        test::sps_syntax syntax;
        syntax.log2_max_pic_order_cnt_lsb_minus4 = test::bit_writer().ue(bits - 4);
        return syntax;
    };
    EXPECT_EQ(taken<h265_nal_sps>(with_poc_bits(16)), both);
    EXPECT_EQ(taken<h265_nal_sps>(with_poc_bits(17)), own_only);

    const auto with_sets = [](unsigned int count) {
        test::sps_syntax syntax;
        syntax.short_term_ref_pic_sets = test::bit_writer().ue(count).ue(0).ue(0);
        for (unsigned int i = 1; i < count; ++i) {
            syntax.short_term_ref_pic_sets.u<1>(0).ue(0).ue(0);
        }
        return syntax;
    };
    EXPECT_EQ(taken<h265_nal_sps>(with_sets(64)), both);
    EXPECT_EQ(taken<h265_nal_sps>(with_sets(65)), own_only);

    const auto with_long_term = [](unsigned int count) {
        test::sps_syntax syntax;
        syntax.long_term_ref_pics = test::bit_writer().u<1>(1).ue(count);
        for (unsigned int i = 0; i < count; ++i) {
            syntax.long_term_ref_pics.u<8>(i).u<1>(1);
        }
        return syntax;
    };
    EXPECT_EQ(taken<h265_nal_sps>(with_long_term(32)), both);
    EXPECT_EQ(taken<h265_nal_sps>(with_long_term(33)), own_only);
}

// Set 0 has pictures -1 and 1; set 1 is set 0 for the next picture: -1, -2; set 2 that of set 1.
TEST(StandardSps, ReadsSetsThatArePredictedInAChain) {
    test::sps_syntax syntax;
    syntax.short_term_ref_pic_sets = test::bit_writer().ue(3);
    syntax.short_term_ref_pic_sets.ue(1).ue(1).ue(0).u<1>(1).ue(0).u<1>(1);
    for (int i = 0; i < 2; ++i) {
        syntax.short_term_ref_pic_sets.u<1>(1).u<1>(1).ue(0).u<3>(0b111);
    }
    const auto sps = parsed<h265_nal_sps>(syntax);
    ASSERT_EQ(sps.st_ref_pic_set.size(), 3U);
    EXPECT_EQ(sps.st_ref_pic_set[1].delta_poc_s0_minus1, (values{0, 0}));
    EXPECT_EQ(sps.st_ref_pic_set[1].num_positive_pics, 0U);
    EXPECT_EQ(sps.st_ref_pic_set[2].delta_poc_s0_minus1, (values{0, 0, 0}));
    EXPECT_EQ(sps.st_ref_pic_set[2].NumDeltaPocs, 3U);
    h265_nal_sps own;
    EXPECT_FALSE(parse_own(own, syntax));
}

TEST(StandardSps, HasTheInferredValuesOfAnAbsentVui) {
    test::sps_syntax syntax;
    const h265_vui_parameters vui = parsed<h265_nal_sps>(syntax).vui_parameters;
    EXPECT_FALSE(vui.valid);
    EXPECT_EQ(vui.video_format, 5U);
    EXPECT_EQ(vui.colour_primaries, 2U);
    EXPECT_EQ(vui.transfer_characteristics, 2U);
    EXPECT_EQ(vui.matrix_coeffs, 2U);
    EXPECT_TRUE(vui.motion_vectors_over_pic_boundaries_flag);
    EXPECT_EQ(vui.max_bytes_per_pic_denom, 2U);
    EXPECT_EQ(vui.max_bits_per_min_cu_denom, 1U);
    EXPECT_EQ(vui.log2_max_mv_length_horizontal, 15U);
    EXPECT_EQ(vui.log2_max_mv_length_vertical, 15U);
    h265_nal_sps own;
    EXPECT_TRUE(parse_own(own, syntax));
    EXPECT_TRUE(test::same_fields(own.vui_parameters, h265_vui_parameters()));
}

// Clause E.3.1: pictures of which some are frames and some fields need it.
TEST(StandardSps, InfersFrameFieldInformationWithoutAVui) {
    for (const unsigned int progressive : {0U, 1U}) {
        for (const unsigned int interlaced : {0U, 1U}) {
            test::sps_syntax syntax;
            syntax.profile_tier_level = test::bit_writer().u<2>(0).u<1>(0).u<5>(1);
            syntax.profile_tier_level.u<32>(0x40000000).u(1, progressive).u(1, interlaced);
            syntax.profile_tier_level.u<2>(0).u<43>(0).u<1>(0).u<8>(93);
            EXPECT_EQ(parsed<h265_nal_sps>(syntax).vui_parameters.frame_field_info_present_flag,
                      progressive == 1 && interlaced == 1);
        }
    }
}

TEST(StandardSps, HasTheInferredValuesOfAVuiThatSaysLittle) {
    test::sps_syntax syntax;
    // The flags of groups, all 0; neutral_chroma_indication_flag, field_seq_flag and
    // frame_field_info_present_flag; the rest again 0.
    syntax.vui = test::bit_writer().u<1>(1).u<4>(0).u<3>(0b011).u<3>(0);
    const h265_vui_parameters vui = parsed<h265_nal_sps>(syntax).vui_parameters;
    EXPECT_TRUE(vui.valid);
    EXPECT_TRUE(vui.field_seq_flag);
    EXPECT_TRUE(vui.frame_field_info_present_flag);
    EXPECT_EQ(vui.video_format, 5U);
    EXPECT_EQ(vui.matrix_coeffs, 2U);
    EXPECT_EQ(vui.log2_max_mv_length_vertical, 15U);
}

TEST(StandardSps, ShowsNothingStale) {
    test::sps_syntax syntax = test::full_sps().syntax;
    h265_nal_sps sps;
    static_cast<void>(parse_standard(sps, syntax));
    EXPECT_TRUE(parse_standard(sps, {}));
    EXPECT_TRUE(test::same_fields(sps, parsed<h265_nal_sps>(test::sps_syntax{})));
}

// Clause 7.4.2.4.2: parameter sets are bound when they are activated.
TEST(StandardSps, NeedsNoVps) {
    auto vps_store = test::vps_store_with(3);
    test::rbsp input{test::sps_syntax{}.rbsp().bytes()};
    h265_nal_sps sps;
    EXPECT_TRUE(sps.parse_standard(input.reader, vps_store));
    EXPECT_TRUE(sps.valid);
    EXPECT_EQ(vps_store.size(), 1U);
}

// The profile would begin at bit 8.
TEST(StandardSps, IsRefusedRightAfter8SubLayers) {
    h2645_common_base_store<h265_nal_vps> vps_store;
    test::rbsp input{0b0000'111'1, 0xFF, 0xFF};
    h265_nal_sps sps;
    EXPECT_FALSE(sps.parse_standard(input.reader, vps_store));
    EXPECT_EQ(input.reader.bit_position(), 7U);
    EXPECT_FALSE(sps.profile_tier_level.general.level_present_flag);
}

// ---- Scaling lists

// All matrices predicted with delta 0: the default lists.
TEST(StandardScalingListData, HasTheDefaultLists) {
    test::bit_writer bits;
    for (int i = 0; i < 20; ++i) {
        bits.u<1>(0).ue(0);
    }
    test::rbsp input{bits.bytes()};
    h265_scaling_list_data lists;
    EXPECT_TRUE(lists.parse_standard(input.reader));
    EXPECT_EQ(input.reader.bit_position(), bits.size());
    EXPECT_EQ(lists.ScalingList[0][5], std::vector<int>(16, 16));
    const std::vector<int> table_7_6_intra = {
        16, 16, 16, 16, 16, 16, 16, 16, 16, 16, 17, 16, 17, 16, 17, 18,  //
        17, 18, 18, 17, 18, 21, 19, 20, 21, 20, 19, 21, 24, 22, 22, 24,  //
        24, 22, 22, 24, 25, 25, 27, 30, 27, 25, 25, 29, 31, 35, 35, 31,  //
        29, 36, 41, 44, 41, 36, 47, 54, 54, 47, 65, 70, 65, 88, 88, 115};
    const std::vector<int> table_7_6_inter = {
        16, 16, 16, 16, 16, 16, 16, 16, 16, 16, 17, 17, 17, 17, 17, 18,  //
        18, 18, 18, 18, 18, 20, 20, 20, 20, 20, 20, 20, 24, 24, 24, 24,  //
        24, 24, 24, 24, 25, 25, 25, 25, 25, 25, 25, 28, 28, 28, 28, 28,  //
        28, 33, 33, 33, 33, 33, 41, 41, 41, 41, 54, 54, 54, 71, 71, 91};
    for (const std::size_t sizeId : {1U, 2U, 3U}) {
        EXPECT_EQ(lists.ScalingList[sizeId][0], table_7_6_intra);
        EXPECT_EQ(lists.ScalingList[sizeId][3], table_7_6_inter);
    }
    EXPECT_EQ(lists.scaling_list_dc_coef_minus8[0][5], 8);
    EXPECT_EQ(lists.scaling_list_dc_coef_minus8[1][3], 8);
    EXPECT_TRUE(lists.ScalingList[3][1].empty());

    test::rbsp own_input{bits.bytes()};
    h265_scaling_list_data own;
    EXPECT_TRUE(own.parse(own_input.reader));
    EXPECT_TRUE(own.ScalingList[0][0].empty());
}

// One coded matrix in 16x16 (matrix 1, DC 30) and 32x32 (matrix 0, DC 40): all coefficients equal
// to the DC value. What follows is predicted from it.
TEST(StandardScalingListData, CopiesReferences) {
    test::bit_writer bits;
    for (int i = 0; i < 12; ++i) {
        bits.u<1>(0).ue(0);
    }
    const auto coded = [&bits](int dc) {
        bits.u<1>(1).se(dc - 8);
        for (int i = 0; i < 64; ++i) {
            bits.se(0);
        }
    };
    bits.u<1>(0).ue(0);  // 16x16, matrix 0
    coded(30);           // 1
    bits.u<1>(0).ue(1);  // 2 from 1
    bits.u<1>(0).ue(1);  // 3 from 2
    bits.u<1>(0).ue(4);  // 4 from 0
    bits.u<1>(0).ue(0);  // 5
    coded(40);           // 32x32, matrix 0
    bits.u<1>(0).ue(1);  // 3 from 0
    test::rbsp input{bits.bytes()};
    h265_scaling_list_data lists;
    EXPECT_TRUE(lists.parse_standard(input.reader));
    EXPECT_EQ(input.reader.bit_position(), bits.size());
    EXPECT_EQ(lists.ScalingList[2][2], std::vector<int>(64, 30));
    EXPECT_EQ(lists.ScalingList[2][3], std::vector<int>(64, 30));
    EXPECT_EQ(lists.scaling_list_dc_coef_minus8[0][3], 22);
    EXPECT_EQ(lists.ScalingList[2][4], lists.ScalingList[2][0]);
    EXPECT_EQ(lists.scaling_list_dc_coef_minus8[0][4], 8);
    EXPECT_EQ(lists.ScalingList[3][3], std::vector<int>(64, 40));
    EXPECT_EQ(lists.scaling_list_dc_coef_minus8[1][3], 32);
}

TEST(StandardScalingListData, FailsWhenTheReferenceIsBeforeTheFirstMatrix) {
    // In coded order: six matrices of each of three sizes, then two of 32x32.
    const auto takes = [](int matrix, unsigned int delta) {
        test::bit_writer bits;
        for (int i = 0; i < 20; ++i) {
            bits.u<1>(0).ue(i == matrix ? delta : 0);
        }
        test::rbsp input{bits.bytes()};
        test::rbsp own_input{bits.bytes()};
        h265_scaling_list_data lists;
        EXPECT_TRUE(lists.parse(own_input.reader));
        const bool result = lists.parse_standard(input.reader);
        EXPECT_EQ(lists.valid, result);
        return result;
    };
    EXPECT_FALSE(takes(0, 1));
    EXPECT_TRUE(takes(1, 1));
    EXPECT_FALSE(takes(1, 2));
    EXPECT_FALSE(takes(6, 1));
    EXPECT_TRUE(takes(11, 5));
    EXPECT_FALSE(takes(11, 0xFFFFFFFE));
    EXPECT_FALSE(takes(18, 1));
    EXPECT_TRUE(takes(19, 1));
    EXPECT_FALSE(takes(19, 2));
}

// ---- PPS

TEST(StandardPps, IsSpacedUniformlyWithoutTiles) {
    const auto pps = parsed<h265_nal_pps>(test::pps_syntax{});
    EXPECT_TRUE(pps.uniform_spacing_flag);
    EXPECT_TRUE(pps.loop_filter_across_tiles_enabled_flag);
    h265_nal_pps own;
    EXPECT_TRUE(parse_own(own, {}));
    EXPECT_FALSE(own.uniform_spacing_flag);
    EXPECT_FALSE(own.loop_filter_across_tiles_enabled_flag);
}

TEST(StandardPps, ComparesWithTheLimitsOfTheStandard) {
    const auto with_id = [](unsigned int id) {
        test::pps_syntax syntax;
        syntax.identifiers = test::bit_writer().ue(id).ue(0);
        return syntax;
    };
    EXPECT_EQ(taken<h265_nal_pps>(with_id(63)), both);
    EXPECT_EQ(taken<h265_nal_pps>(with_id(64)), own_only);

    const auto with_indices = [](unsigned int l0, unsigned int l1) {
        test::pps_syntax syntax;
        syntax.reference_indices = test::bit_writer().ue(l0 - 1).ue(l1 - 1);
        return syntax;
    };
    EXPECT_EQ(taken<h265_nal_pps>(with_indices(15, 15)), both);
    EXPECT_EQ(taken<h265_nal_pps>(with_indices(16, 1)), own_only);
    EXPECT_EQ(taken<h265_nal_pps>(with_indices(1, 16)), own_only);

    test::pps_syntax of_sps_16;
    of_sps_16.identifiers = test::bit_writer().ue(0).ue(16);
    h265_nal_pps pps;
    EXPECT_FALSE(parse_standard(pps, of_sps_16, test::sps_store_with(16)));
}

TEST(StandardPps, NeedsNoSps) {
    h265_nal_pps pps;
    EXPECT_TRUE(parse_standard(pps, {}, {}));
    EXPECT_TRUE(pps.valid);
    EXPECT_TRUE(parse_standard(pps, {}, test::sps_store_with(15)));
}

// No more than the longest picture has coding tree blocks side by side: Sqrt( 8 * 35651584 )
// samples in blocks of 16. The picture of the SPS, of one block, has no say.
TEST(StandardPps, HasNoMoreTilesThanAnyPictureHasCodingTreeBlocks) {
    auto sps_store = test::sps_store_with(0);
    h265_nal_sps& sps = sps_store.at(0);
    sps.pic_width_in_luma_samples = 64;
    sps.pic_height_in_luma_samples = 64;
    sps.log2_diff_max_min_luma_coding_block_size = 3;
    const auto takes = [&sps_store](unsigned int columns, unsigned int rows) {
        test::pps_syntax syntax;
        syntax.tiles = test::bit_writer().u<1>(1).u<1>(0).ue(columns - 1).ue(rows - 1).u<1>(0);
        for (unsigned int i = 2; i < columns + rows; ++i) {
            syntax.tiles.ue(0);
        }
        syntax.tiles.u<1>(1);
        h265_nal_pps pps;
        return parse_standard(pps, syntax, sps_store);
    };
    EXPECT_TRUE(takes(5, 2));
    EXPECT_TRUE(takes(1056, 1));
    EXPECT_TRUE(takes(1, 1056));
    EXPECT_FALSE(takes(1057, 1));
    EXPECT_FALSE(takes(1, 1057));
}

TEST(StandardPps, ShowsNothingStale) {
    h265_nal_pps pps;
    static_cast<void>(parse_standard(pps, test::full_pps().syntax));
    EXPECT_TRUE(parse_standard(pps, {}));
    EXPECT_TRUE(test::same_fields(pps, parsed<h265_nal_pps>(test::pps_syntax{})));
}

}  // namespace
}  // namespace kovran
