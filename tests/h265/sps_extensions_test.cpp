// What stands behind sps_extension_present_flag.
#include <kovran/h265/h265_fault.h>
#include <kovran/h265/h265_nal_sps.h>
#include <kovran/h265/h265_trace.h>

#include <gtest/gtest.h>

#include <array>
#include <cstddef>
#include <string>
#include <vector>

#include "support/bit_writer.h"
#include "support/extension_reading.h"
#include "support/extensions.h"
#include "support/parameter_sets.h"

namespace kovran {
namespace {

using values = std::vector<unsigned int>;

constexpr auto read = test::read_set<h265_nal_sps>;
constexpr auto read_extension = test::read_extension<h265_nal_sps>;
constexpr auto expect_read = test::expect_read<h265_nal_sps>;
constexpr auto expect_kept = test::expect_kept<h265_nal_sps>;

TEST(SpsExtensions, AreReadOneByOne) {
    h265_nal_sps range;
    range.sps_range_extension_flag = true;
    range.sps_range_extension = test::sps_range_extension().record;
    expect_read(
        test::append(test::bit_writer().u<8>(0b10000000), test::sps_range_extension().syntax),
        range);

    h265_nal_sps multilayer;
    multilayer.sps_multilayer_extension_flag = true;
    expect_read(test::bit_writer().u<8>(0b01000000).u<1>(0), multilayer);
    multilayer.sps_multilayer_extension.inter_view_mv_vert_constraint_flag = true;
    expect_read(test::bit_writer().u<8>(0b01000000).u<1>(1), multilayer);

    h265_nal_sps of_3d;
    of_3d.sps_3d_extension_flag = true;
    of_3d.sps_3d_extension = test::sps_3d_extension().record;
    expect_read(test::append(test::bit_writer().u<8>(0b00100000), test::sps_3d_extension().syntax),
                of_3d);

    h265_nal_sps scc;
    scc.sps_scc_extension_flag = true;
    scc.sps_scc_extension = test::sps_scc_extension().record;
    expect_read(test::append(test::bit_writer().u<8>(0b00010000), test::sps_scc_extension().syntax),
                scc);
}

TEST(SpsExtensions, HaveEachFlagInItsField) {
    bool h265_sps_range_extension::*const in_order[] = {
        &h265_sps_range_extension::transform_skip_rotation_enabled_flag,
        &h265_sps_range_extension::transform_skip_context_enabled_flag,
        &h265_sps_range_extension::implicit_rdpcm_enabled_flag,
        &h265_sps_range_extension::explicit_rdpcm_enabled_flag,
        &h265_sps_range_extension::extended_precision_processing_flag,
        &h265_sps_range_extension::intra_smoothing_disabled_flag,
        &h265_sps_range_extension::high_precision_offsets_enabled_flag,
        &h265_sps_range_extension::persistent_rice_adaptation_enabled_flag,
        &h265_sps_range_extension::cabac_bypass_alignment_enabled_flag};
    for (unsigned int i = 0; i < 9; ++i) {
        SCOPED_TRACE(i);
        h265_nal_sps one;
        one.sps_range_extension_flag = true;
        one.sps_range_extension.*in_order[i] = true;
        expect_read(test::bit_writer().u<8>(0b10000000).u<9>(256U >> i), one);
    }
}

TEST(SpsExtensions, HaveEachFlagOf3dInItsField) {
    using extension = h265_sps_3d_extension;
    const struct {
        std::array<bool, 2> extension::*field;
        std::size_t d;
    } in_order[] = {{&extension::iv_di_mc_enabled_flag, 0},
                    {&extension::iv_mv_scal_enabled_flag, 0},
                    // log2_ivmc_sub_pb_size_minus3[ 0 ]
                    {&extension::iv_res_pred_enabled_flag, 0},
                    {&extension::depth_ref_enabled_flag, 0},
                    {&extension::vsp_mc_enabled_flag, 0},
                    {&extension::dbbp_enabled_flag, 0},
                    {&extension::iv_di_mc_enabled_flag, 1},
                    {&extension::iv_mv_scal_enabled_flag, 1},
                    {&extension::tex_mc_enabled_flag, 1},
                    // log2_texmc_sub_pb_size_minus3[ 1 ]
                    {&extension::intra_contour_enabled_flag, 1},
                    {&extension::intra_dc_only_wedge_enabled_flag, 1},
                    {&extension::cqt_cu_part_pred_enabled_flag, 1},
                    {&extension::inter_dc_only_enabled_flag, 1},
                    {&extension::skip_intra_enabled_flag, 1}};
    constexpr unsigned int count = 14;
    for (unsigned int i = 0; i < count; ++i) {
        SCOPED_TRACE(i);
        h265_nal_sps one;
        one.sps_3d_extension_flag = true;
        (one.sps_3d_extension.*in_order[i].field).at(in_order[i].d) = true;
        test::bit_writer bits = test::bit_writer().u<8>(0b00100000);
        for (unsigned int place = 0; place < count; ++place) {
            if (place == 2 || place == 9) {
                bits.ue(0);
            }
            bits.u<1>(place == i ? 1 : 0);
        }
        expect_read(bits, one);
    }
}

// ---- Screen content

test::bit_writer scc_flag() {
    return test::bit_writer().u<8>(0b00010000);
}

h265_nal_sps with_scc(const h265_sps_scc_extension& extension) {
    h265_nal_sps sps;
    sps.sps_scc_extension_flag = true;
    sps.sps_scc_extension = extension;
    return sps;
}

TEST(SpsSccExtension, HasNoPaletteUnlessItIsEnabled) {
    h265_sps_scc_extension extension;
    extension.motion_vector_resolution_control_idc = 1;
    expect_read(scc_flag().u<1>(0).u<1>(0).u<2>(1).u<1>(0), with_scc(extension));

    extension.palette_mode_enabled_flag = true;
    extension.palette_max_size = 64;
    extension.delta_palette_max_predictor_size = 64;
    expect_read(scc_flag().u<1>(0).u<1>(1).ue(64).ue(64).u<1>(0).u<2>(1).u<1>(0),
                with_scc(extension));
}

test::reading<h265_nal_sps> read_palette(unsigned int chroma_format_idc,
                                         const test::bit_writer& bit_depths,
                                         const test::bit_writer& samples) {
    test::bit_writer extension = scc_flag().u<1>(0).u<1>(1).ue(1).ue(0).u<1>(1).ue(0);
    test::append(extension, samples).u<2>(0).u<1>(1);
    test::sps_syntax syntax = test::sps_with_extension(extension);
    syntax.chroma_format = test::bit_writer().ue(chroma_format_idc);
    if (chroma_format_idc == 3) {
        syntax.chroma_format.u<1>(1);  // separate_colour_plane_flag
    }
    syntax.bit_depths = bit_depths;
    auto result = read(syntax);
    EXPECT_EQ(result.fault.kind, h265_fault_kind::none);
    EXPECT_TRUE(result.record.sps_scc_extension.intra_boundary_filtering_disabled_flag);
    return result;
}

TEST(SpsSccExtension, HasSamplesOfTheBitDepthsOfTheSps) {
    const auto bit_depths = test::bit_writer().ue(8).ue(1);
    const auto samples = test::bit_writer().u<16>(65535).u<9>(511).u<9>(7);
    const auto initializer = read_palette(1, bit_depths, samples)
                                 .record.sps_scc_extension.sps_palette_predictor_initializer;
    EXPECT_EQ(initializer[0], values{65535});
    EXPECT_EQ(initializer[1], values{511});
    EXPECT_EQ(initializer[2], values{7});
}

TEST(SpsSccExtension, HasOneComponentOnlyWithoutChroma) {
    const auto bit_depths = test::bit_writer().ue(0).ue(0);
    const auto monochrome = read_palette(0, bit_depths, test::bit_writer().u<8>(1))
                                .record.sps_scc_extension.sps_palette_predictor_initializer;
    EXPECT_EQ(monochrome[0], values{1});
    EXPECT_TRUE(monochrome[1].empty());
    EXPECT_TRUE(monochrome[2].empty());

    const auto samples = test::bit_writer().u<8>(1).u<8>(2).u<8>(3);
    const auto planes = read_palette(3, bit_depths, samples)
                            .record.sps_scc_extension.sps_palette_predictor_initializer;
    EXPECT_EQ(planes[2], values{3});
}

TEST(SpsSccExtension, HasUpTo128PredictorSamples) {
    const auto with = [](unsigned int count) {
        test::bit_writer bits = scc_flag().u<1>(0).u<1>(1).ue(64).ue(64).u<1>(1).ue(count - 1);
        for (unsigned int i = 0; i < 3 * count; ++i) {
            bits.u<8>(i % 251);
        }
        return bits.u<2>(0).u<1>(0);
    };
    const auto most = read_extension(with(128));
    EXPECT_EQ(most.fault.kind, h265_fault_kind::none);
    EXPECT_EQ(most.record.sps_scc_extension.sps_palette_predictor_initializer[2].size(), 128U);
    EXPECT_EQ(most.record.sps_scc_extension.sps_palette_predictor_initializer[2].back(),
              383U % 251);
    expect_kept(with(129));
    expect_kept(scc_flag().u<1>(0).u<1>(1).ue(64).ue(64).u<1>(1).ue(0xFFFFFFFE));
}

TEST(SpsSccExtension, IsNotReadWithMoreThan16Bits) {
    test::sps_syntax syntax = test::sps_with_extension(
        scc_flag().u<1>(0).u<1>(1).ue(1).ue(0).u<1>(1).ue(0).u<32>(9).u<2>(0).u<1>(0));
    syntax.bit_depths = test::bit_writer().ue(9).ue(0);
    EXPECT_EQ(read(syntax).fault.kind, h265_fault_kind::unknown_extension);
    syntax.bit_depths = test::bit_writer().ue(0).ue(9);
    EXPECT_EQ(read(syntax).fault.kind, h265_fault_kind::unknown_extension);
}

// ---- Extension data

// Each is one element of the trace.
TEST(SpsExtensionData, AreTraced) {
    const auto result = read_extension(test::bit_writer().u<8>(1).u<2>(0b01));
    EXPECT_EQ(test::elements_from(result, test::first_bit_of_extension<h265_nal_sps>()),
              (std::vector<std::string>{
                  "sps_range_extension_flag 0", "sps_multilayer_extension_flag 0",
                  "sps_3d_extension_flag 0", "sps_scc_extension_flag 0", "sps_extension_4bits 1",
                  "sps_extension_data_flag 0", "sps_extension_data_flag 1"}));
}

// ---- What is no extension that the standard has

TEST(UnknownSpsExtension, MayBreakHalfWay) {
    test::bit_writer bits = test::bit_writer().u<8>(0b11110000);
    test::append(bits, test::sps_range_extension().syntax).u<1>(1);
    test::append(bits, test::sps_3d_extension().syntax);
    expect_kept(bits.u<1>(0).u<1>(1).ue(64).ue(64).u<1>(1).ue(200).u<16>(0xFFFF));
}

// When there were five of them.
TEST(UnknownSpsExtension, MayBeWhatReservedBitsOnceStoodFor) {
    expect_kept(test::bit_writer().u<8>(0b10010000).u<9>(0b100000001).u<3>(0b011));
}

TEST(UnknownSpsExtension, LeavesTheTraceAsIfItHadNotBeenTried) {
    const auto result = read_extension(test::bit_writer().u<8>(0b10010000).u<9>(0).u<1>(1));
    EXPECT_EQ(result.fault.kind, h265_fault_kind::unknown_extension);
    for (const auto& structure : result.trace.structures) {
        EXPECT_EQ(path_of(result.trace, structure).find("extension"), std::string::npos);
    }
    std::size_t bit = 0;
    std::size_t data = 0;
    for (const auto& element : result.trace.elements) {
        EXPECT_LE(bit, element.first_bit);  // reserved bits are left out
        bit = element.first_bit + element.width;
        data += std::string(element.name) == "sps_extension_data_flag" ? 1U : 0U;
    }
    EXPECT_EQ(data, 18U);
}

// ---- Records used again

TEST(SpsExtensions, ShowNothingStale) {
    const auto left = test::bit_writer().u<8>(0b01000000).u<1>(1).u<2>(0b10);
    const std::vector<test::sps_syntax> all = {
        test::sps_syntax{}, test::sps_with_extension(test::bit_writer().u<3>(0b101)),
        test::sps_with_extension(scc_flag().u<5>(0)), test::sps_with_extension(left)};
    test::expect_nothing_stale(read_extension(test::full_sps_extensions().syntax).record, all);
    test::expect_nothing_stale(read_extension(left).record, all);
}

}  // namespace
}  // namespace kovran
