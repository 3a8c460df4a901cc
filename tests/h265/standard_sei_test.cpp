// The standard's reading of SEI messages, beside the library's own.
#include <kovran/h265/h265_nal_sei_active_parameter_sets.h>
#include <kovran/h265/h265_nal_sei_buffering_period.h>
#include <kovran/h265/h265_nal_sei_pic_timing.h>

#include <gtest/gtest.h>

#include <vector>

#include "support/bit_writer.h"
#include "support/rbsp.h"
#include "support/same_fields.h"
#include "support/slice_record_fields.h"

namespace kovran {
namespace {

using values = std::vector<unsigned int>;

// Lengths of 5 (au), 6 (output), 7 (decoding units) and 8 bits (increments), a picture of 4 coding
// tree blocks.
h265_nal_sps sps_with_delays() {
    h265_nal_sps sps;
    sps.pic_width_in_luma_samples = 256;
    sps.pic_height_in_luma_samples = 64;
    sps.log2_diff_max_min_luma_coding_block_size = 3;
    h265_hrd_parameters& hrd = sps.vui_parameters.hrd_parameters;
    hrd.nal_hrd_parameters_present_flag = true;
    hrd.initial_cpb_removal_delay_length_minus1 = 8;
    hrd.au_cpb_removal_delay_length_minus1 = 4;
    hrd.dpb_output_delay_length_minus1 = 5;
    hrd.dpb_output_delay_du_length_minus1 = 6;
    hrd.du_cpb_removal_delay_increment_length_minus1 = 7;
    hrd.cpb_cnt_minus1 = {0};
    return sps;
}

TEST(StandardPicTiming, HasDecodingUnitsOnlyWhenBothFlagsSaySo) {
    for (const bool sub_pic : {false, true}) {
        for (const bool in_pic_timing : {false, true}) {
            h265_nal_sps sps = sps_with_delays();
            h265_hrd_parameters& hrd = sps.vui_parameters.hrd_parameters;
            hrd.sub_pic_hrd_params_present_flag = sub_pic;
            hrd.sub_pic_cpb_params_in_pic_timing_sei_flag = in_pic_timing;
            test::bit_writer bits;
            bits.u<5>(3).u<6>(4);
            if (sub_pic) {
                bits.u<7>(5);
            }
            if (sub_pic && in_pic_timing) {
                bits.ue(1).u<1>(0).ue(2).u<8>(9).ue(3);
            }
            test::rbsp input{test::bit_writer(bits).u<32>(0xFFFFFFFF).bytes()};
            h265_nal_sei_pic_timing timing;
            EXPECT_TRUE(timing.parse_standard(input.reader, sps));
            EXPECT_EQ(input.reader.bit_position(), bits.size());
            EXPECT_EQ(timing.du_info_present, sub_pic && in_pic_timing);
            EXPECT_EQ(timing.num_nalus_in_du_minus1,
                      sub_pic && in_pic_timing ? (values{2, 3}) : values{});

            test::rbsp own_input{test::bit_writer(bits).u<32>(0xFFFFFFFF).bytes()};
            h265_nal_sei_pic_timing own;
            EXPECT_TRUE(own.parse(own_input.reader, sps));
            EXPECT_EQ(own.du_info_present, sub_pic || in_pic_timing);
        }
    }
}

TEST(StandardPicTiming, HasNoMoreDecodingUnitsThanCodingTreeBlocks) {
    h265_nal_sps sps = sps_with_delays();
    h265_hrd_parameters& hrd = sps.vui_parameters.hrd_parameters;
    hrd.sub_pic_hrd_params_present_flag = true;
    hrd.sub_pic_cpb_params_in_pic_timing_sei_flag = true;
    const auto takes = [&sps](unsigned int count) {
        test::bit_writer bits;
        bits.u<5>(3).u<6>(4).u<7>(5).ue(count - 1).u<1>(1).u<8>(9);
        for (unsigned int i = 0; i < count; ++i) {
            bits.ue(0);
        }
        test::rbsp input{bits.bytes()};
        h265_nal_sei_pic_timing timing;
        timing.valid = true;
        const bool result = timing.parse_standard(input.reader, sps);
        EXPECT_EQ(timing.valid, result);
        return result;
    };
    EXPECT_TRUE(takes(4));
    EXPECT_FALSE(takes(5));
    sps.pic_width_in_luma_samples = 64 * 200;
    EXPECT_TRUE(takes(129));
    EXPECT_TRUE(takes(200));
    EXPECT_FALSE(takes(201));
    // Never more than the largest picture has: 35651584 / 256.
    sps.pic_width_in_luma_samples = 0xFFFFFFF0;
    EXPECT_TRUE(takes(139264));
    EXPECT_FALSE(takes(139265));
    sps.log2_diff_max_min_luma_coding_block_size = 40;
    EXPECT_FALSE(takes(1));
}

TEST(StandardPicTiming, InfersTheSourceScanType) {
    for (const bool progressive : {false, true}) {
        for (const bool interlaced : {false, true}) {
            h265_nal_sps sps;
            sps.profile_tier_level.general.progressive_source_flag = progressive;
            sps.profile_tier_level.general.interlaced_source_flag = interlaced;
            test::rbsp input{0xFF};
            h265_nal_sei_pic_timing timing;
            EXPECT_TRUE(timing.parse_standard(input.reader, sps));
            EXPECT_EQ(input.reader.bit_position(), 0U);
            const unsigned int known = progressive ? 1 : 0;
            EXPECT_EQ(timing.source_scan_type, progressive != interlaced ? known : 2U);
        }
    }
}

TEST(StandardPicTiming, ShowsNothingStale) {
    h265_nal_sei_pic_timing timing;
    timing.pic_struct = 3;
    timing.au_cpb_removal_delay_minus1 = 4;
    timing.num_nalus_in_du_minus1 = {1, 2};
    timing.du_info_present = true;
    timing.cpb_dpb_delays_present = true;
    timing.valid = true;
    h265_nal_sei_pic_timing missing = timing;
    test::rbsp input{0xFF};
    EXPECT_TRUE(timing.parse_standard(input.reader, h265_nal_sps()));
    h265_nal_sei_pic_timing expected;
    expected.source_scan_type = 2;
    expected.valid = true;
    EXPECT_TRUE(test::same_fields(timing, expected));

    h2645_common_base_store<h265_nal_sps> store;
    EXPECT_FALSE(missing.parse_standard(input.reader, store));
    EXPECT_TRUE(test::same_fields(missing, h265_nal_sei_pic_timing()));
    store[4];
    store.active_id = 4;
    EXPECT_TRUE(missing.parse_standard(input.reader, store));
    EXPECT_TRUE(missing.valid);
}

// ---- Buffering period

TEST(StandardBufferingPeriod, HasTheCpbsOfTheHighestSubLayer) {
    h2645_common_base_store<h265_nal_sps> store;
    store[0] = sps_with_delays();
    store.at(0).vui_parameters.hrd_parameters.cpb_cnt_minus1 = {0, 3, 1};
    test::bit_writer bits;
    bits.ue(0).u<1>(0).u<1>(1).u<5>(6).u<9>(1).u<9>(2).u<9>(3).u<9>(4);
    test::rbsp input{bits.bytes()};
    h265_nal_sei_buffering_period period;
    EXPECT_TRUE(period.parse_standard(input.reader, store));
    EXPECT_EQ(period.CpbCnt, 2U);
    EXPECT_EQ(period.nal_initial_cpb_removal_delay, (values{1, 3}));
    EXPECT_EQ(period.nal_initial_cpb_removal_offset, (values{2, 4}));
    test::rbsp own_input{bits.bytes()};
    h265_nal_sei_buffering_period own;
    EXPECT_TRUE(own.parse(own_input.reader, store));
    EXPECT_EQ(own.CpbCnt, 1U);
}

TEST(StandardBufferingPeriod, HasNoIrapParametersWithSubPictureParameters) {
    h2645_common_base_store<h265_nal_sps> store;
    store[0] = sps_with_delays();
    store.at(0).vui_parameters.hrd_parameters.sub_pic_hrd_params_present_flag = true;
    test::bit_writer bits;
    bits.ue(0).u<1>(1).u<5>(6).u<9>(1).u<9>(2).u<9>(3).u<9>(4).trailing_bits();
    test::rbsp input{bits.bytes()};
    h265_nal_sei_buffering_period period;
    period.irap_cpb_params_present_flag = true;
    period.cpb_delay_offset = 9;
    period.vcl_initial_cpb_removal_delay = {5};
    period.VclHrdBpPresentFlag = true;
    EXPECT_TRUE(period.parse_standard(input.reader, store));
    h265_nal_sei_buffering_period expected;
    expected.concatenation_flag = true;
    expected.au_cpb_removal_delay_delta_minus1 = 6;
    expected.nal_initial_cpb_removal_delay = {1};
    expected.nal_initial_cpb_removal_offset = {2};
    expected.nal_initial_alt_cpb_removal_delay = {3};
    expected.nal_initial_alt_cpb_removal_offset = {4};
    expected.CpbCnt = 1;
    expected.NalHrdBpPresentFlag = true;
    expected.valid = true;
    EXPECT_TRUE(test::same_fields(period, expected));
}

TEST(StandardBufferingPeriod, FailsWithoutAnSpsOrItsCpbs) {
    h2645_common_base_store<h265_nal_sps> store;
    const test::bit_writer bits = test::bit_writer().ue(0).u<32>(0xFFFFFFFF).u<32>(0);
    const auto takes = [&store](const test::bit_writer& payload) {
        test::rbsp input{payload.bytes()};
        h265_nal_sei_buffering_period period;
        period.valid = true;
        const bool result = period.parse_standard(input.reader, store);
        EXPECT_EQ(period.valid, result);
        return result;
    };
    EXPECT_FALSE(takes(bits));
    store[0] = sps_with_delays();
    EXPECT_TRUE(takes(bits));
    // Each has a delay and an offset of nine bits, or four of them with IRAP parameters.
    test::bit_writer long_enough = bits;
    for (unsigned int i = 0; i < 33 * 4 * 9; ++i) {
        long_enough.u<1>(0);
    }
    store.at(0).vui_parameters.hrd_parameters.cpb_cnt_minus1 = {31};
    EXPECT_TRUE(takes(long_enough));
    store.at(0).vui_parameters.hrd_parameters.cpb_cnt_minus1 = {32};
    EXPECT_FALSE(takes(long_enough));
    store.at(0).vui_parameters.hrd_parameters.cpb_cnt_minus1.clear();
    EXPECT_FALSE(takes(bits));
    store[15] = sps_with_delays();
    EXPECT_TRUE(takes(test::bit_writer().ue(15).u<32>(0xFFFFFFFF).u<32>(0)));
    store[16] = sps_with_delays();
    EXPECT_FALSE(takes(test::bit_writer().ue(16).u<32>(0xFFFFFFFF).u<32>(0)));
}

// ---- Active parameter sets

TEST(StandardActiveParameterSets, ComparesWithTheLimitsOfTheStandard) {
    h2645_common_base_store<h265_nal_vps> store;
    store[0].vps_base_layer_internal_flag = true;
    const auto takes = [&store](unsigned int count, unsigned int id) {
        test::bit_writer bits;
        bits.u<4>(0).u<1>(0).u<1>(1).ue(count - 1);
        for (unsigned int i = 0; i < count; ++i) {
            bits.ue(id);
        }
        test::rbsp input{bits.bytes()};
        test::rbsp own_input{bits.bytes()};
        h265_nal_sei_active_parameter_sets active;
        EXPECT_TRUE(active.parse(own_input.reader, store));
        const bool result = active.parse_standard(input.reader, store);
        EXPECT_EQ(active.valid, result);
        return result;
    };
    EXPECT_TRUE(takes(16, 15));
    EXPECT_FALSE(takes(17, 15));
    EXPECT_FALSE(takes(1, 16));
}

// MaxLayersMinus1 is Min( 62, vps_max_layers_minus1 ).
TEST(StandardActiveParameterSets, CountsLayersUpTo62) {
    h2645_common_base_store<h265_nal_vps> store;
    store[0].vps_base_layer_internal_flag = true;
    store.at(0).vps_max_layers_minus1 = 63;
    test::bit_writer bits;
    bits.u<4>(0).u<1>(0).u<1>(1).ue(0).ue(3);
    for (unsigned int i = 1; i <= 62; ++i) {
        bits.ue(0);
    }
    test::rbsp input{test::bit_writer(bits).u<8>(0xFF).bytes()};
    h265_nal_sei_active_parameter_sets active;
    EXPECT_TRUE(active.parse_standard(input.reader, store));
    EXPECT_EQ(input.reader.bit_position(), bits.size());
    EXPECT_EQ(active.layer_sps_idx.size(), 63U);
    test::rbsp own_input{test::bit_writer(bits).u<8>(0xFF).bytes()};
    EXPECT_TRUE(active.parse(own_input.reader, store));
    EXPECT_EQ(own_input.reader.bit_position(), bits.size() + 1);
}

}  // namespace
}  // namespace kovran
