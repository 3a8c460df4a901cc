// What stands behind pps_extension_present_flag.
#include <kovran/h265/h265_fault.h>
#include <kovran/h265/h265_nal_pps.h>
#include <kovran/h265/h265_trace.h>

#include <gtest/gtest.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "support/bit_writer.h"
#include "support/extension_reading.h"
#include "support/extensions.h"
#include "support/parameter_sets.h"
#include "support/rbsp.h"
#include "support/same_fields.h"

namespace kovran {
namespace {

using values = std::vector<unsigned int>;
using flags = std::vector<bool>;
using names = std::vector<std::string>;

constexpr auto read = test::read_set<h265_nal_pps>;
constexpr auto read_extension = test::read_extension<h265_nal_pps>;
constexpr auto expect_read = test::expect_read<h265_nal_pps>;
constexpr auto expect_kept = test::expect_kept<h265_nal_pps>;

// The elements behind the flags of the extensions.
names traced(const test::bit_writer& extension) {
    const auto result = read_extension(extension);
    EXPECT_EQ(result.fault.kind, h265_fault_kind::none) << to_string(result.fault);
    return test::elements_from(result, test::first_bit_of_extension<h265_nal_pps>() + 8);
}

// ---- Range extensions

test::bit_writer range_flag() {
    return test::bit_writer().u<8>(0b10000000);
}

TEST(PpsRangeExtension, IsRead) {
    h265_nal_pps pps;
    pps.pps_range_extension_flag = true;
    pps.pps_range_extension = test::pps_range_extension().record;
    expect_read(test::joined(range_flag(), test::pps_range_extension().syntax), pps);
}

TEST(PpsRangeExtension, HasNoListsUnlessTheyAreEnabled) {
    h265_nal_pps pps;
    pps.pps_range_extension_flag = true;
    pps.pps_range_extension.log2_sao_offset_scale_chroma = 6;
    expect_read(range_flag().ue(0).u<1>(0).u<1>(0).ue(0).ue(6), pps);
}

TEST(PpsRangeExtension, HasABlockSizeOnlyWithTransformSkip) {
    test::pps_syntax syntax = test::pps_with_extension(range_flag().u<1>(1).u<1>(0).ue(1).ue(2));
    syntax.intra_and_transform_skip = test::bit_writer().u<1>(0).u<1>(0);
    const auto result = read(syntax);
    EXPECT_EQ(result.fault.kind, h265_fault_kind::none);
    EXPECT_TRUE(result.record.pps_range_extension.cross_component_prediction_enabled_flag);
    EXPECT_EQ(result.record.pps_range_extension.log2_sao_offset_scale_luma, 1U);
    EXPECT_EQ(result.record.pps_range_extension.log2_sao_offset_scale_chroma, 2U);
}

TEST(PpsRangeExtension, HasUpToSixOffsets) {
    const auto with = [](unsigned int count) {
        test::bit_writer bits = range_flag().ue(0).u<1>(0).u<1>(1).ue(0).ue(count - 1);
        for (unsigned int i = 0; i < count; ++i) {
            bits.se(1).se(-1);
        }
        return bits.ue(0).ue(0);
    };
    const auto most = read_extension(with(6));
    EXPECT_EQ(most.fault.kind, h265_fault_kind::none);
    EXPECT_EQ(most.record.pps_range_extension.cb_qp_offset_list, std::vector<int>(6, 1));
    EXPECT_EQ(most.record.pps_range_extension.cr_qp_offset_list, std::vector<int>(6, -1));
    expect_kept(with(7));
    expect_kept(range_flag().ue(0).u<1>(0).u<1>(1).ue(0).ue(0xFFFFFFFE));
}

// ---- Several layers

test::bit_writer multilayer_flag() {
    return test::bit_writer().u<8>(0b01000000);
}

// As far as num_ref_loc_offsets, in an extension without scaling lists.
test::bit_writer offsets(unsigned int count) {
    return multilayer_flag().u<1>(0).u<1>(0).ue(count);
}

h265_nal_pps with_multilayer(const h265_pps_multilayer_extension& extension) {
    h265_nal_pps pps;
    pps.pps_multilayer_extension_flag = true;
    pps.pps_multilayer_extension = extension;
    return pps;
}

TEST(PpsMultilayerExtension, IsRead) {
    expect_read(test::joined(multilayer_flag(), test::pps_multilayer_extension().syntax),
                with_multilayer(test::pps_multilayer_extension().record));
}

TEST(PpsMultilayerExtension, MayHaveNothing) {
    expect_read(offsets(0).u<1>(0), with_multilayer({}));
    h265_pps_multilayer_extension extension;
    extension.poc_reset_info_present_flag = true;
    expect_read(multilayer_flag().u<1>(1).u<1>(0).ue(0).u<1>(0), with_multilayer(extension));
}

TEST(PpsMultilayerExtension, HasAnInferredPhaseWithoutOne) {
    h265_pps_multilayer_extension extension;
    extension.num_ref_loc_offsets = 1;
    extension.ref_loc_offset_layer_id = {0};
    extension.scaled_ref_layer_offset_present_flag = {false};
    extension.ref_region_offset_present_flag = {false};
    extension.resample_phase_set_present_flag = {false};
    for (auto* const array :
         {&extension.scaled_ref_layer_left_offset, &extension.scaled_ref_layer_top_offset,
          &extension.scaled_ref_layer_right_offset, &extension.scaled_ref_layer_bottom_offset,
          &extension.ref_region_left_offset, &extension.ref_region_top_offset,
          &extension.ref_region_right_offset, &extension.ref_region_bottom_offset}) {
        *array = {0};
    }
    extension.phase_hor_luma = {0};
    extension.phase_ver_luma = {0};
    extension.phase_hor_chroma_plus8 = {8};
    extension.phase_ver_chroma_plus8 = {0};
    expect_read(offsets(1).u<6>(0).u<3>(0).u<1>(0), with_multilayer(extension));
}

TEST(PpsMultilayerExtension, HasOffsetsOfUpTo62Layers) {
    const auto with = [](unsigned int count) {
        test::bit_writer bits = offsets(count);
        for (unsigned int i = 0; i < count; ++i) {
            bits.u<6>(i).u<3>(0);
        }
        return bits.u<1>(0);
    };
    const auto most = read_extension(with(62));
    EXPECT_EQ(most.fault.kind, h265_fault_kind::none);
    EXPECT_EQ(most.record.pps_multilayer_extension.ref_loc_offset_layer_id.size(), 62U);
    EXPECT_EQ(most.record.pps_multilayer_extension.ref_loc_offset_layer_id.back(), 61);
    expect_kept(with(63));
    expect_kept(offsets(0xFFFFFFFE).u<32>(0));
}

TEST(PpsMultilayerExtension, NamesOffsetsByTheirLayer) {
    const std::string in = "pps_multilayer_extension.";
    const auto bits = offsets(1).u<6>(40).u<1>(1).se(1).se(2).se(3).se(4).u<1>(1).se(5).se(6);
    EXPECT_EQ(traced(test::bit_writer(bits).se(7).se(8).u<1>(1).ue(9).ue(10).ue(11).ue(12).u<1>(0)),
              (names{in + "poc_reset_info_present_flag 0",
                     in + "pps_infer_scaling_list_flag 0",
                     in + "num_ref_loc_offsets 1",
                     in + "ref_loc_offset_layer_id[0] 40",
                     in + "scaled_ref_layer_offset_present_flag[0] 1",
                     in + "scaled_ref_layer_left_offset[40] 1",
                     in + "scaled_ref_layer_top_offset[40] 2",
                     in + "scaled_ref_layer_right_offset[40] 3",
                     in + "scaled_ref_layer_bottom_offset[40] 4",
                     in + "ref_region_offset_present_flag[0] 1",
                     in + "ref_region_left_offset[40] 5",
                     in + "ref_region_top_offset[40] 6",
                     in + "ref_region_right_offset[40] 7",
                     in + "ref_region_bottom_offset[40] 8",
                     in + "resample_phase_set_present_flag[0] 1",
                     in + "phase_hor_luma[40] 9",
                     in + "phase_ver_luma[40] 10",
                     in + "phase_hor_chroma_plus8[40] 11",
                     in + "phase_ver_chroma_plus8[40] 12",
                     in + "colour_mapping_enabled_flag 0"}));
}

// ---- Colour mapping

// As far as cm_y_part_num_log2, for one layer.
test::bit_writer colour_mapping(unsigned int cm_octant_depth, unsigned int cm_y_part_num_log2) {
    return offsets(0).u<1>(1).ue(0).u<6>(0).u<2>(cm_octant_depth).u<2>(cm_y_part_num_log2);
}

// The rest of a table without octants, of the bit depths less 8, up to the first vertex.
test::bit_writer one_octant(unsigned int input, unsigned int output, unsigned int cm_res_quant_bits,
                            unsigned int cm_delta_flc_bits_minus1) {
    test::bit_writer bits = colour_mapping(0, 0).ue(input).ue(0).ue(output).ue(0);
    return bits.u<2>(cm_res_quant_bits).u<2>(cm_delta_flc_bits_minus1);
}

const h265_colour_mapping_table& table_of(const test::reading<h265_nal_pps>& result) {
    EXPECT_EQ(result.fault.kind, h265_fault_kind::none) << to_string(result.fault);
    return result.record.pps_multilayer_extension.colour_mapping_table;
}

TEST(ColourMappingTable, HasOneOctantWithoutDepth) {
    const auto result = read_extension(one_octant(0, 0, 0, 0).u<4>(0));
    const auto& table = table_of(result);
    EXPECT_EQ(table.parts.size(), 1U);
    EXPECT_FALSE(table.split_octant_flag);
    EXPECT_EQ(table.cm_ref_layer_id, std::vector<unsigned char>{0});
}

// Parts of an octant that could have been split are two apart.
TEST(ColourMappingTable, HasOneOctantThatIsNotSplit) {
    const auto result = read_extension(
        colour_mapping(1, 2).ue(0).ue(0).ue(0).ue(0).u<4>(0).se(5).se(-6).u<1>(0).u<16>(0));
    const auto& table = table_of(result);
    EXPECT_EQ(table.cm_adapt_threshold_u_delta, 5);
    EXPECT_EQ(table.cm_adapt_threshold_v_delta, -6);
    ASSERT_EQ(table.parts.size(), 4U);
    for (unsigned int i = 0; i < 4; ++i) {
        EXPECT_EQ(table.parts[i].idxShiftY, 2 * i);
        EXPECT_EQ(table.parts[i].idxCb, 0);
        EXPECT_EQ(table.parts[i].idxCr, 0);
    }
}

TEST(ColourMappingTable, HasUpTo64Parts) {
    test::bit_writer bits = colour_mapping(1, 3).ue(0).ue(0).ue(0).ue(0).u<4>(0).se(0).se(0);
    bits.u<1>(1);
    for (unsigned int part = 0; part < 64; ++part) {
        bits.u<4>(0);
    }
    const auto result = read_extension(bits);
    const auto& table = table_of(result);
    ASSERT_EQ(table.parts.size(), 64U);
    EXPECT_EQ(table.parts[63].idxShiftY, 15);
    EXPECT_EQ(table.parts[63].idxCb, 1);
    EXPECT_EQ(table.parts[63].idxCr, 1);
    EXPECT_EQ(table.parts[32].idxShiftY, 8);  // the first with k of 1
    EXPECT_EQ(table.parts[32].idxCb, 0);
    EXPECT_EQ(table.parts[16].idxCb, 1);
    EXPECT_EQ(table.parts[8].idxCr, 1);
    EXPECT_EQ(table.parts[7].idxShiftY, 7);
}

// Max( 0, 10 + BitDepthCmInputY - BitDepthCmOutputY - cm_res_quant_bits -
//      ( cm_delta_flc_bits_minus1 + 1 ) )
TEST(ColourMappingTable, HasRemaindersOfTheWidthThatBitDepthsLeave) {
    const auto remainder = [](const test::bit_writer& head, unsigned int width,
                              unsigned int value) {
        SCOPED_TRACE(width);
        test::bit_writer bits = test::bit_writer(head).u<1>(1).ue(1);
        if (width != 0) {
            bits.u(width, value);
        }
        bits.u<1>(1);
        for (unsigned int c = 1; c < 3; ++c) {
            bits.ue(0);
            if (width != 0) {
                bits.u(width, 0);
            }
        }
        bits.u<3>(0);
        const auto result = read_extension(bits);
        const auto& part = table_of(result).parts.at(0);
        EXPECT_EQ(part.res_coeff_q[0][0], 1U);
        EXPECT_EQ(part.res_coeff_r[0][0], value);
        EXPECT_TRUE(part.res_coeff_s[0][0]);
        EXPECT_EQ(part.coded_res_flag, (std::array<bool, 4>{true, false, false, false}));
    };
    remainder(one_octant(0, 0, 0, 0), 9, 511);
    remainder(one_octant(8, 0, 0, 0), 17, 131071);
    remainder(one_octant(0, 2, 2, 3), 2, 3);
    remainder(one_octant(0, 8, 1, 0), 0, 0);
    remainder(one_octant(0, 8, 3, 3), 0, 0);
}

TEST(ColourMappingTable, HasBounds) {
    EXPECT_EQ(read_extension(one_octant(8, 8, 0, 0).u<4>(0)).fault.kind, h265_fault_kind::none);
    expect_kept(one_octant(9, 8, 0, 0).u<4>(0));
    expect_kept(one_octant(8, 9, 0, 0).u<4>(0));
    for (const unsigned int cm_octant_depth : {2U, 3U}) {
        test::bit_writer bits = colour_mapping(cm_octant_depth, 0).ue(0).ue(0).ue(0).ue(0).u<4>(0);
        expect_kept(bits.u<64>(0).u<64>(0));
    }
    const auto with_layers = [](unsigned int count) {
        test::bit_writer bits = offsets(0).u<1>(1).ue(count - 1);
        for (unsigned int i = 0; i < count; ++i) {
            bits.u<6>(i);
        }
        return bits.u<4>(0).ue(0).ue(0).ue(0).ue(0).u<4>(0).u<4>(0);
    };
    EXPECT_EQ(table_of(read_extension(with_layers(62))).cm_ref_layer_id.size(), 62U);
    expect_kept(with_layers(63));
}

TEST(ColourMappingTable, NamesCoefficientsByTheirPlace) {
    const std::string in = "pps_multilayer_extension.colour_mapping_table.";
    test::bit_writer bits = colour_mapping(1, 0).ue(0).ue(0).ue(0).ue(0).u<2>(3).u<2>(3);
    bits.se(0).se(0).u<1>(1);
    for (unsigned int vertex = 0; vertex < 31; ++vertex) {
        bits.u<1>(0);
    }
    bits.u<1>(1).ue(0).u<3>(5).u<1>(1).ue(2).u<3>(0).u<1>(0).ue(0).u<3>(0);
    const names all = traced(bits);
    const names last(all.end() - 9, all.end());
    EXPECT_EQ(last, (names{in + "coded_res_flag[1][1][1][3] 1", in + "res_coeff_q[1][1][1][3][0] 0",
                           in + "res_coeff_r[1][1][1][3][0] 5", in + "res_coeff_s[1][1][1][3][0] 1",
                           in + "res_coeff_q[1][1][1][3][1] 2", in + "res_coeff_r[1][1][1][3][1] 0",
                           in + "res_coeff_s[1][1][1][3][1] 0", in + "res_coeff_q[1][1][1][3][2] 0",
                           in + "res_coeff_r[1][1][1][3][2] 0"}));
}

// ---- 3D

test::bit_writer flag_of_3d() {
    return test::bit_writer().u<8>(0b00100000);
}

// As far as the first dlt_flag.
test::bit_writer depth_layers(unsigned int pps_depth_layers_minus1, unsigned int bit_depth_minus8) {
    return flag_of_3d().u<1>(1).u<6>(pps_depth_layers_minus1).u<4>(bit_depth_minus8);
}

h265_nal_pps with_3d(const h265_pps_3d_extension& extension) {
    h265_nal_pps pps;
    pps.pps_3d_extension_flag = true;
    pps.pps_3d_extension = extension;
    return pps;
}

h265_delta_dlt delta_of_one_layer(const test::bit_writer& delta, unsigned int bit_depth_minus8) {
    test::bit_writer bits = depth_layers(0, bit_depth_minus8).u<3>(0b100);
    const auto result = read_extension(test::append(bits, delta));
    EXPECT_EQ(result.fault.kind, h265_fault_kind::none) << to_string(result.fault);
    EXPECT_EQ(result.record.pps_3d_extension.delta_dlt.size(), 1U);
    return result.record.pps_3d_extension.delta_dlt.at(0);
}

TEST(Pps3dExtension, IsRead) {
    expect_read(test::joined(flag_of_3d(), test::pps_3d_extension().syntax),
                with_3d(test::pps_3d_extension().record));
}

TEST(Pps3dExtension, MayHaveNoTables) {
    expect_read(flag_of_3d().u<1>(0), with_3d({}));
}

TEST(Pps3dExtension, HasUpTo64Layers) {
    test::bit_writer bits = depth_layers(63, 8);
    for (unsigned int i = 0; i < 64; ++i) {
        bits.u<1>(0);
    }
    const auto result = read_extension(bits);
    EXPECT_EQ(result.fault.kind, h265_fault_kind::none);
    EXPECT_EQ(result.record.pps_3d_extension.dlt_flag, flags(64, false));
    EXPECT_EQ(result.record.pps_3d_extension.delta_dlt.size(), 64U);
}

// A flag for each depth value of 8 bits, and of 16, the most that samples have.
TEST(Pps3dExtension, HasAFlagForEachDepthValue) {
    for (const unsigned int bit_depth_minus8 : {0U, 8U}) {
        test::bit_writer bits = depth_layers(0, bit_depth_minus8).u<3>(0b101);
        const std::size_t count = std::size_t{256} << bit_depth_minus8;
        for (std::size_t i = 0; i < count / 64; ++i) {
            bits.u<64>(i);
        }
        const auto result = read_extension(bits);
        EXPECT_EQ(result.fault.kind, h265_fault_kind::none);
        const flags& all = result.record.pps_3d_extension.dlt_value_flag.at(0);
        ASSERT_EQ(all.size(), count);
        EXPECT_TRUE(all[127]);
        EXPECT_FALSE(all[126]);
        EXPECT_TRUE(all[count - 1]);
        EXPECT_EQ(result.record.pps_3d_extension.delta_dlt.at(0).num_val_delta_dlt, 0U);
    }
}

TEST(Pps3dExtension, HasABound) {
    expect_kept(depth_layers(0, 9).u<1>(0));
}

TEST(Pps3dExtension, NeedsTheDataOfItsFlags) {
    test::bit_writer bits = depth_layers(0, 8).u<3>(0b101);
    for (unsigned int i = 0; i < 1000; ++i) {
        bits.u<64>(i);
    }
    expect_kept(bits);
}

TEST(DeltaDlt, HasNoValues) {
    EXPECT_TRUE(test::same_fields(delta_of_one_layer(test::bit_writer().u<8>(0), 0), [] {
        h265_delta_dlt delta;
        delta.min_diff_minus1 = -1;
        return delta;
    }()));
}

TEST(DeltaDlt, HasOneValue) {
    const auto delta = delta_of_one_layer(test::bit_writer().u<9>(1).u<9>(511), 1);
    EXPECT_EQ(delta.num_val_delta_dlt, 1U);
    EXPECT_EQ(delta.delta_dlt_val0, 511U);
    EXPECT_EQ(delta.max_diff, 0U);
    EXPECT_EQ(delta.min_diff_minus1, -1);
    EXPECT_TRUE(delta.delta_val_diff_minus_min.empty());
}

// All differences are the largest one: min_diff_minus1 is max_diff - 1 when it is absent.
TEST(DeltaDlt, HasTwoValuesWithoutASmallestDifference) {
    const auto delta = delta_of_one_layer(test::bit_writer().u<8>(2).u<8>(7).u<8>(3), 0);
    EXPECT_EQ(delta.max_diff, 7U);
    EXPECT_EQ(delta.min_diff_minus1, 6);
    EXPECT_EQ(delta.delta_dlt_val0, 3U);
    EXPECT_TRUE(delta.delta_val_diff_minus_min.empty());
}

TEST(DeltaDlt, HasThreeValuesOfNoDifference) {
    const auto delta = delta_of_one_layer(test::bit_writer().u<8>(3).u<8>(0).u<8>(9), 0);
    EXPECT_EQ(delta.min_diff_minus1, -1);
    EXPECT_EQ(delta.delta_dlt_val0, 9U);
    EXPECT_TRUE(delta.delta_val_diff_minus_min.empty());
}

// min_diff_minus1 has Ceil( Log2( max_diff + 1 ) ) bits.
TEST(DeltaDlt, HasASmallestDifferenceAsWideAsTheLargest) {
    // 1 bit for 1; minDiff is 1 as well, so that nothing follows.
    auto delta = delta_of_one_layer(test::bit_writer().u<8>(3).u<8>(1).u<1>(0).u<8>(9), 0);
    EXPECT_EQ(delta.min_diff_minus1, 0);
    EXPECT_TRUE(delta.delta_val_diff_minus_min.empty());
    // 2 bits for 3, 1 bit for 3 - 2.
    delta =
        delta_of_one_layer(test::bit_writer().u<8>(3).u<8>(3).u<2>(1).u<8>(9).u<1>(1).u<1>(0), 0);
    EXPECT_EQ(delta.min_diff_minus1, 1);
    EXPECT_EQ(delta.delta_val_diff_minus_min, (values{0, 1, 0}));
    // 3 bits for 4, 2 bits for 4 - 1.
    delta =
        delta_of_one_layer(test::bit_writer().u<8>(3).u<8>(4).u<3>(0).u<8>(9).u<2>(3).u<2>(2), 0);
    EXPECT_EQ(delta.delta_val_diff_minus_min, (values{0, 3, 2}));
    // Above the largest difference: out of range, and nothing follows.
    delta = delta_of_one_layer(test::bit_writer().u<8>(3).u<8>(4).u<3>(7).u<8>(9), 0);
    EXPECT_EQ(delta.min_diff_minus1, 7);
    EXPECT_TRUE(delta.delta_val_diff_minus_min.empty());
}

TEST(DeltaDlt, NeedsTheDataOfItsValues) {
    test::bit_writer bits = depth_layers(0, 15).u<3>(0b100);
    bits.u<23>(0x7FFFFF).u<23>(0x7FFFFF).u<23>(0).u<23>(1);
    for (unsigned int i = 0; i < 100; ++i) {
        bits.u<64>(i);
    }
    expect_kept(bits);
}

TEST(DeltaDlt, IsNamedByItsLayer) {
    const std::string in = "pps_3d_extension.";
    test::bit_writer bits = depth_layers(1, 0).u<1>(0).u<3>(0b100);
    bits.u<8>(3).u<8>(3).u<2>(1).u<8>(9).u<1>(1).u<1>(0);
    EXPECT_EQ(traced(bits),
              (names{in + "dlts_present_flag 1", in + "pps_depth_layers_minus1 1",
                     in + "pps_bit_depth_for_depth_layers_minus8 0", in + "dlt_flag[0] 0",
                     in + "dlt_flag[1] 1", in + "dlt_pred_flag[1] 0",
                     in + "dlt_val_flags_present_flag[1] 0",
                     in + "delta_dlt[1].num_val_delta_dlt 3", in + "delta_dlt[1].max_diff 3",
                     in + "delta_dlt[1].min_diff_minus1 1", in + "delta_dlt[1].delta_dlt_val0 9",
                     in + "delta_dlt[1].delta_val_diff_minus_min[1] 1",
                     in + "delta_dlt[1].delta_val_diff_minus_min[2] 0"}));
}

// ---- Screen content

test::bit_writer scc_flag() {
    return test::bit_writer().u<8>(0b00010000);
}

h265_nal_pps with_scc(const h265_pps_scc_extension& extension) {
    h265_nal_pps pps;
    pps.pps_scc_extension_flag = true;
    pps.pps_scc_extension = extension;
    return pps;
}

TEST(PpsSccExtension, IsRead) {
    expect_read(test::joined(scc_flag(), test::pps_scc_extension().syntax),
                with_scc(test::pps_scc_extension().record));
}

TEST(PpsSccExtension, MayHaveNothing) {
    expect_read(scc_flag().u<3>(0), with_scc({}));
    h265_pps_scc_extension extension;
    extension.pps_curr_pic_ref_enabled_flag = true;
    expect_read(scc_flag().u<3>(0b100), with_scc(extension));
}

// An empty list takes the place of that of the SPS.
TEST(PpsSccExtension, MayHaveAnEmptyPalette) {
    h265_pps_scc_extension extension;
    extension.pps_palette_predictor_initializers_present_flag = true;
    expect_read(scc_flag().u<3>(0b001).ue(0), with_scc(extension));
}

TEST(PpsSccExtension, HasOneComponentWhenMonochrome) {
    h265_pps_scc_extension extension;
    extension.pps_palette_predictor_initializers_present_flag = true;
    extension.pps_num_palette_predictor_initializers = 2;
    extension.monochrome_palette_flag = true;
    extension.luma_bit_depth_entry_minus8 = 8;
    extension.pps_palette_predictor_initializer[0] = {65535, 1};
    expect_read(scc_flag().u<3>(0b001).ue(2).u<1>(1).ue(8).u<16>(65535).u<16>(1),
                with_scc(extension));
}

TEST(PpsSccExtension, HasBounds) {
    const auto with = [](unsigned int count) {
        test::bit_writer bits = scc_flag().u<3>(0b001).ue(count).u<1>(1).ue(0);
        for (unsigned int i = 0; i < count; ++i) {
            bits.u<8>(i);
        }
        return bits;
    };
    const auto most = read_extension(with(128));
    EXPECT_EQ(most.fault.kind, h265_fault_kind::none);
    EXPECT_EQ(most.record.pps_scc_extension.pps_palette_predictor_initializer[0].size(), 128U);
    expect_kept(with(129));
    expect_kept(scc_flag().u<3>(0b001).ue(0xFFFFFFFE).u<64>(0));
    expect_kept(scc_flag().u<3>(0b001).ue(1).u<1>(1).ue(9).u<17>(0));
    expect_kept(scc_flag().u<3>(0b001).ue(1).u<1>(0).ue(0).ue(9).u<8>(0).u<34>(0));
}

// ---- Extension data, and what is no extension that the standard has

// The record has every flag; a trace lists 4096 of them alone, and the others as one element.
TEST(PpsExtensionData, AreListedOneByOneAtFirst) {
    for (const unsigned int more : {0U, 1U, 500U}) {
        SCOPED_TRACE(more);
        test::bit_writer bits = test::bit_writer().u<8>(1);
        for (unsigned int i = 0; i < 4096 + more; ++i) {
            bits.u<1>(i % 2 == 0 ? 1U : 0U);
        }
        test::rbsp input{test::pps_with_extension(bits).rbsp().bytes()};
        h2645_common_base_store<h265_nal_sps> no_sps;
        h265_nal_pps pps;
        h265_trace trace;
        EXPECT_TRUE(pps.parse_standard(input.reader, no_sps, trace));
        EXPECT_EQ(pps.pps_extension_data_flag.size(), 4096U + more);
        EXPECT_EQ(pps.pps_extension_data_flag.back(), more == 1);
        std::size_t elements = 0;
        std::size_t width_of_last = 0;
        std::int64_t value_of_last = -1;
        for (const h265_traced_element& element : trace.elements) {
            if (element.name == std::string_view("pps_extension_data_flag")) {
                ++elements;
                width_of_last = element.width;
                value_of_last = element.value;
            }
        }
        EXPECT_EQ(elements, more == 0 ? 4096U : 4097U);
        EXPECT_EQ(width_of_last, more == 0 ? 1U : more);
        EXPECT_EQ(value_of_last, more == 1 ? 1 : 0);
    }
}

TEST(UnknownPpsExtension, MayBreakHalfWay) {
    test::bit_writer bits = test::bit_writer().u<8>(0b11110000);
    test::append(bits, test::pps_range_extension().syntax);
    test::append(bits, test::pps_multilayer_extension().syntax);
    test::append(bits, test::pps_3d_extension().syntax);
    expect_kept(bits.u<3>(0b001).ue(200).u<16>(0xFFFF));
}

TEST(UnknownPpsExtension, MayBeWhatReservedBitsOnceStoodFor) {
    expect_kept(test::bit_writer().u<8>(0b00010000).u<2>(0b01));
}

// ---- Records used again

TEST(PpsExtensions, ShowNothingStale) {
    const std::vector<test::pps_syntax> all = {
        test::pps_syntax{},
        test::pps_with_extension(test::bit_writer().u<8>(0)),
        test::pps_with_extension(test::bit_writer().u<3>(0b101)),
        test::pps_with_extension(scc_flag().u<3>(0)),
        test::pps_with_extension(scc_flag().u<3>(0).u<2>(0b10)),
        test::pps_with_extension(flag_of_3d().u<1>(0)),
        test::pps_with_extension(depth_layers(0, 0).u<1>(0)),
        test::pps_with_extension(test::append(depth_layers(5, 0).u<1>(0),
                                              test::bit_writer().u<3>(0b110).u<8>(0).u<4>(0))),
        test::pps_with_extension(offsets(0).u<1>(0)),
        test::pps_with_extension(one_octant(0, 0, 0, 0).u<4>(0)),
        test::pps_with_extension(range_flag().ue(0).u<1>(0).u<1>(0).ue(0).ue(6))};
    test::expect_nothing_stale(read_extension(test::full_pps_extensions().syntax).record, all);
}

}  // namespace
}  // namespace kovran
