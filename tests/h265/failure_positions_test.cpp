#include <kovran/h265/h265_nal_pps.h>
#include <kovran/h265/h265_nal_sps.h>
#include <kovran/h265/h265_nal_vps.h>
#include <kovran/h265/h265_vui_parameters.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <vector>

#include "support/allocation_failure.h"
#include "support/bit_writer.h"
#include "support/parameter_sets.h"
#include "support/rbsp.h"

namespace kovran {
namespace {
// How many bits a parse has consumed when it fails, in every way that it can fail. The numbers are
// sums of the widths in the syntax tables; comments give the widths, in coded order.

using test::bit_writer;

// ue(0) has 1 bit, ue(1) and ue(2) have 3, ue(3) to ue(6) have 5, ue(64) has 13, and ue(128) and
// ue(129) have 15.

// An HRD structure with NAL HRD parameters, and 129 CPBs for them. Its bits up to cpb_cnt_minus1:
// 1 1, 1, 4 4, 5 5 5, 1, 1, 15.
constexpr std::size_t bits_of_bad_hrd = 43;
bit_writer bad_hrd() {
    return bit_writer().u<1>(1).u<1>(0).u<1>(0).u<8>(0).u<15>(0).u<1>(1).ue(0).ue(128);
}

// 4 + 4 flags; timing information: 1, 32, 32, 1; vui_hrd_parameters_present_flag.
constexpr std::size_t bits_of_vui_before_hrd = 75;
bit_writer vui_before_hrd() {
    return bit_writer().u<4>(0).u<4>(0).u<1>(1).u<32>(1).u<32>(50).u<1>(0).u<1>(1);
}

// scaling_list_data() of predicted matrices alone.
bit_writer predicted_scaling_lists() {
    constexpr unsigned int matrices = 3 * 6 + 2;
    bit_writer bits;
    for (unsigned int i = 0; i < matrices; ++i) {
        bits.u<1>(0).ue(0);
    }
    return bits;
}

// No stop bit: 0 in place of rbsp_trailing_bits().
bit_writer without_stop_bit(const bit_writer& payload) {
    bit_writer bits = payload;
    do {
        bits.u<1>(0);
    } while (bits.size() % 8 != 0);
    return bits;
}

// A 1 bit behind the stop bit.
bit_writer with_bad_alignment(const bit_writer& payload) {
    bit_writer bits = payload;
    bits.u<1>(1);
    while (bits.size() % 8 != 7) {
        bits.u<1>(0);
    }
    return bits.u<1>(1);
}

template <class Record, class Parse>
void expect_failure_at(std::size_t position, const bit_writer& bits, Parse parse) {
    test::rbsp input{bits.bytes()};
    Record record;
    EXPECT_FALSE(parse(record, input.reader));
    EXPECT_EQ(input.reader.bit_position(), position);
}

// Fails the first allocation, in another parse the second, and so on: `positions` has where each of
// them is asked for.
template <class Record, class Parse>
void expect_exhaustion_at(const std::vector<std::size_t>& positions, const bit_writer& bits,
                          Parse parse) {
    test::rbsp undisturbed_input{bits.bytes()};
    Record undisturbed;
    ASSERT_TRUE(parse(undisturbed, undisturbed_input.reader));

    for (std::size_t n = 1; n <= positions.size() + 1; ++n) {
        test::rbsp input{bits.bytes()};
        Record record;
        bool result = false;
        bool exhausted = false;
        {
            const test::allocation_failure failure(n);
            result = parse(record, input.reader);
            exhausted = failure.happened();
        }
        ASSERT_EQ(exhausted, n <= positions.size()) << "allocation " << n;
        EXPECT_EQ(result, !exhausted) << "allocation " << n;
        if (exhausted) {
            EXPECT_EQ(input.reader.bit_position(), positions[n - 1]) << "allocation " << n;
        }
    }
}

using positions = std::vector<std::size_t>;

positions operator+(positions first, const positions& second) {
    first.insert(first.end(), second.begin(), second.end());
    return first;
}

// ---- VPS

bool parse_vps(h265_nal_vps& vps, h2645_common_bitreader& reader) {
    return vps.parse(reader);
}

// Header 32, profile_tier_level() 96, ordering 1 1 1 1: 132 bits before vps_max_layer_id.
test::vps_syntax small_vps() {
    return {};
}

TEST(FailurePositions, OfAVpsWithTooManyLayerSets) {
    test::vps_syntax vps = small_vps();
    vps.layer_sets = bit_writer().u<6>(0).ue(128);
    expect_failure_at<h265_nal_vps>(132 + 6 + 15, vps.rbsp(), parse_vps);
}

// Behind 6 and 1 bits for the layer sets, timing information: 1, 32, 32, 1.
constexpr std::size_t vps_num_hrd_parameters = 132 + 7 + 66;

bit_writer timing_before_hrd() {
    return bit_writer().u<1>(1).u<32>(1).u<32>(50).u<1>(0);
}

TEST(FailurePositions, OfAVpsWithTooManyHrdStructures) {
    test::vps_syntax vps = small_vps();
    vps.timing_info = timing_before_hrd().ue(129);
    expect_failure_at<h265_nal_vps>(vps_num_hrd_parameters + 15, vps.rbsp(), parse_vps);
}

TEST(FailurePositions, OfAVpsWithAnHrdStructureThatFails) {
    test::vps_syntax vps = small_vps();
    // Structure 0 has no common information: hrd_layer_set_idx, fixed_pic_rate_general_flag,
    // elemental_duration_in_tc_minus1 and cpb_cnt_minus1. Then hrd_layer_set_idx and
    // cprms_present_flag of structure 1.
    vps.timing_info = timing_before_hrd().ue(2).ue(0).u<1>(1).ue(0).ue(0).ue(0).u<1>(1);
    test::append(vps.timing_info, bad_hrd());
    expect_failure_at<h265_nal_vps>(vps_num_hrd_parameters + 3 + 4 + 2 + bits_of_bad_hrd,
                                    vps.rbsp(), parse_vps);
}

TEST(FailurePositions, OfAVpsWithBadTrailingBits) {
    // vps_timing_info_present_flag and vps_extension_flag are bits 139 and 140.
    EXPECT_EQ(small_vps().payload().size(), 141U);
    expect_failure_at<h265_nal_vps>(144, without_stop_bit(small_vps().payload()), parse_vps);
    expect_failure_at<h265_nal_vps>(144, with_bad_alignment(small_vps().payload()), parse_vps);
}

TEST(FailurePositions, OfAVpsWithAnExtensionWithoutAStopBit) {
    test::vps_syntax vps = small_vps();
    vps.extension = bit_writer().u<1>(1).u<11>(0);
    // All 19 bytes are extension data, and a byte behind them is taken for the trailing bits.
    expect_failure_at<h265_nal_vps>(152 + 8, vps.payload(), parse_vps);
}

TEST(FailurePositions, OfAVpsWithoutMemory) {
    test::vps_syntax vps = small_vps();
    vps.timing_info = timing_before_hrd().ue(1).ue(0).u<1>(1).ue(0).ue(0);
    constexpr std::size_t structures = vps_num_hrd_parameters + 3;
    expect_exhaustion_at<h265_nal_vps>(
        positions{32 + 8} +                // profile_compatibility_flag
            positions(3, 128 + 1) +        // the ordering information
            positions{139} +               // layer_id_included_flag
            positions(3, structures) +     // hrd_layer_set_idx and its like
            positions(7, structures + 1),  // hrd_parameters()
        vps.rbsp(), parse_vps);
}

TEST(FailurePositions, OfAVpsWithoutMemoryForTheLayersOfASet) {
    test::vps_syntax vps = small_vps();
    vps.layer_sets = bit_writer().u<6>(1).ue(2).u<2>(1).u<2>(2);
    expect_exhaustion_at<h265_nal_vps>(positions{40, 129, 129, 129, 141, 141, 143}, vps.rbsp(),
                                       parse_vps);
}

TEST(FailurePositions, OfAVpsWithoutMemoryForItsSubLayers) {
    test::vps_syntax vps = small_vps();
    vps.header = bit_writer().u<4>(0).u<1>(1).u<1>(1).u<6>(0).u<3>(1).u<1>(1).u<16>(0xFFFF);
    // One pair of flags and seven of reserved bits, then a profile of 88 bits.
    vps.profile_tier_level.u<1>(1).u<1>(0).u<14>(0);
    vps.profile_tier_level.u<8>(1).u<32>(0x40000000).u<48>(0);
    vps.sub_layer_ordering_info = bit_writer().u<1>(0).ue(0).ue(0).ue(0);
    constexpr std::size_t behind = 128 + 16 + 88;
    expect_exhaustion_at<h265_nal_vps>(
        positions{40, 128, 128 + 16 + 8} + positions(3, behind + 1) + positions{behind + 11},
        vps.rbsp(), parse_vps);
}

// ---- SPS

// Made before any allocation fails.
h2645_common_base_store<h265_nal_vps> store_of_parse_sps = test::vps_store_with(0);

bool parse_sps(h265_nal_sps& sps, h2645_common_bitreader& reader) {
    h2645_common_base_store<h265_nal_vps>& store = store_of_parse_sps;
    return sps.parse(reader, store);
}

// Header 8, profile_tier_level() 96, identifier 1, chroma format 3, picture size 13 13, conformance
// window 1, bit depths 1 1, log2_max_pic_order_cnt_lsb_minus4 5, ordering 1 1 1 1, block sizes
// 1 5 1 5 1 1, scaling list 1, AMP and SAO 1 1, PCM 1: what stands before
// num_short_term_ref_pic_sets.
constexpr std::size_t num_short_term_ref_pic_sets = 164;

TEST(FailurePositions, OfAnSpsWithoutItsVps) {
    const auto parse = [](h265_nal_sps& sps, h2645_common_bitreader& reader) {
        h2645_common_base_store<h265_nal_vps> empty;
        return sps.parse(reader, empty);
    };
    expect_failure_at<h265_nal_sps>(4, test::sps_syntax().rbsp(), parse);
}

TEST(FailurePositions, OfAnSpsWhoseVpsFailed) {
    const auto parse = [](h265_nal_sps& sps, h2645_common_bitreader& reader) {
        h2645_common_base_store<h265_nal_vps> store;
        store[0].valid = false;
        return sps.parse(reader, store);
    };
    expect_failure_at<h265_nal_sps>(4, test::sps_syntax().rbsp(), parse);
}

TEST(FailurePositions, OfAnSpsWithTooManyShortTermSets) {
    test::sps_syntax sps;
    sps.short_term_ref_pic_sets = bit_writer().ue(129);
    expect_failure_at<h265_nal_sps>(num_short_term_ref_pic_sets + 15, sps.rbsp(), parse_sps);
}

TEST(FailurePositions, OfAnSpsWithAShortTermSetThatFails) {
    const struct {
        bit_writer sets;
        std::size_t position;  // from num_short_term_ref_pic_sets on
    } cases[] = {
        // 129 pictures before: both counts are read.
        {bit_writer().ue(1).ue(129).ue(0), 3 + 15 + 1},
        // 129 pictures after, behind the one before.
        {bit_writer().ue(1).ue(1).ue(129).ue(0).u<1>(1), 3 + 3 + 15 + 2},
        // Set 1 from set 0 of 128 pictures, two bits each: its flag, sign and distance.
        {[] {
             bit_writer bits;
             bits.ue(2).ue(64).ue(64);
             for (int i = 0; i < 128; ++i) {
                 bits.ue(0).u<1>(1);
             }
             return bits.u<1>(1).u<1>(0).ue(0);
         }(),
         3 + 13 + 13 + 256 + 3},
    };
    for (const auto& [sets, position] : cases) {
        test::sps_syntax sps;
        sps.short_term_ref_pic_sets = sets;
        expect_failure_at<h265_nal_sps>(num_short_term_ref_pic_sets + position, sps.rbsp(),
                                        parse_sps);
    }
}

TEST(FailurePositions, OfAnSpsWithTooManyLongTermPictures) {
    test::sps_syntax sps;
    sps.long_term_ref_pics = bit_writer().u<1>(1).ue(129);
    expect_failure_at<h265_nal_sps>(num_short_term_ref_pic_sets + 1 + 1 + 15, sps.rbsp(),
                                    parse_sps);
}

// The number of sets, long_term_ref_pics_present_flag, two flags and
// vui_parameters_present_flag.
constexpr std::size_t vui_of_sps = num_short_term_ref_pic_sets + 5;

TEST(FailurePositions, OfAnSpsWithAVuiThatFails) {
    test::sps_syntax sps;
    sps.vui = bit_writer().u<1>(1);
    test::append(sps.vui, vui_before_hrd());
    test::append(sps.vui, bad_hrd());
    expect_failure_at<h265_nal_sps>(vui_of_sps + bits_of_vui_before_hrd + bits_of_bad_hrd,
                                    sps.rbsp(), parse_sps);
}

TEST(FailurePositions, OfAnSpsWithBadTrailingBits) {
    const bit_writer payload = test::sps_syntax().payload();
    EXPECT_EQ(payload.size(), vui_of_sps + 1);  // 170, with sps_extension_flag
    expect_failure_at<h265_nal_sps>(176, without_stop_bit(payload), parse_sps);
    expect_failure_at<h265_nal_sps>(176, with_bad_alignment(payload), parse_sps);
}

TEST(FailurePositions, OfAnSpsWithAnExtensionWithoutAStopBit) {
    test::sps_syntax sps;
    sps.extension = bit_writer().u<1>(1).u<14>(0);
    expect_failure_at<h265_nal_sps>(184 + 8, sps.payload(), parse_sps);
}

TEST(FailurePositions, OfAnSpsWithoutMemory) {
    test::sps_syntax sps;
    // Set 0 has one picture; set 1, predicted from it, two flags of 1 bit each.
    sps.short_term_ref_pic_sets = bit_writer().ue(2).ue(1).ue(0).ue(0).u<1>(1);
    sps.short_term_ref_pic_sets.u<1>(1).u<1>(0).ue(0).u<1>(1).u<1>(1);
    sps.long_term_ref_pics = bit_writer().u<1>(1).ue(1).u<8>(5).u<1>(1);
    expect_exhaustion_at<h265_nal_sps>(
        positions{8 + 8} +                                      // profile_compatibility_flag
            positions(3, 142 + 1) +                             // the ordering information
            positions{164 + 3} +                                // st_ref_pic_set
            positions(2, 164 + 3 + 3 + 1) +                     // the picture of set 0
            positions(2, 164 + 3 + 3 + 1 + 2 + 3) +             // the flags of set 1
            positions(2, 164 + 3 + 3 + 1 + 2 + 3 + 2 + 1 + 3),  // the long-term picture
        sps.rbsp(), parse_sps);
}

// Where the arrays of scaling_list_data() are asked for: four, those of each size, and 12 bits of
// predicted matrices after each size.
positions scaling_list_allocations(std::size_t begin) {
    return positions(4, begin) + positions(3, begin) + positions(3, begin + 12) +
           positions(4, begin + 24) + positions(4, begin + 36);
}

TEST(FailurePositions, OfAnSpsWithoutMemoryForItsScalingLists) {
    test::sps_syntax sps;
    sps.scaling_list = bit_writer().u<1>(1).u<1>(1);
    test::append(sps.scaling_list, predicted_scaling_lists());
    expect_exhaustion_at<h265_nal_sps>(
        positions{16, 143, 143, 143} + scaling_list_allocations(160 + 2), sps.rbsp(), parse_sps);
}

// ---- VUI

bool parse_vui(h265_vui_parameters& vui, h2645_common_bitreader& reader) {
    static h265_nal_sps sps;
    return vui.parse(reader, sps);
}

TEST(FailurePositions, OfAVuiWithHrdParametersThatFail) {
    bit_writer vui = vui_before_hrd();
    test::append(vui, bad_hrd());
    expect_failure_at<h265_vui_parameters>(bits_of_vui_before_hrd + bits_of_bad_hrd, vui,
                                           parse_vui);
}

TEST(FailurePositions, OfAVuiWithoutMemoryForItsHrdParameters) {
    bit_writer vui = vui_before_hrd();
    vui.u<1>(1).u<1>(1).u<1>(0).u<8>(0).u<15>(0).u<1>(1).ue(0).ue(0);
    vui.ue(0).ue(0).u<1>(0).ue(0).ue(0).u<1>(0).u<1>(0);
    expect_exhaustion_at<h265_vui_parameters>(
        positions(7, 75 + 26) +             // those of each sub-layer
            positions(5, 75 + 26 + 3) +     // those of each CPB, for NAL HRD parameters
            positions(5, 75 + 26 + 3 + 3),  // and for VCL HRD parameters
        vui, parse_vui);
}

// ---- PPS

// Made before any allocation fails.
h2645_common_base_store<h265_nal_sps> store_of_parse_pps = test::sps_store_with(0);

bool parse_pps(h265_nal_pps& pps, h2645_common_bitreader& reader) {
    h2645_common_base_store<h265_nal_sps>& store = store_of_parse_pps;
    return pps.parse(reader, store);
}

// Identifiers 1 1, slice header 1 1 3 1 1, reference indices 1 1, init_qp_minus26 1, two flags,
// cu_qp_delta_enabled_flag 1, chroma offsets 1 1 1, three flags, tiles and entropy synchronisation
// 1 1: what stands before num_tile_columns_minus1.
constexpr std::size_t num_tile_columns_minus1 = 23;

TEST(FailurePositions, OfAPpsWithoutItsSps) {
    const auto parse = [](h265_nal_pps& pps, h2645_common_bitreader& reader) {
        h2645_common_base_store<h265_nal_sps> empty;
        return pps.parse(reader, empty);
    };
    expect_failure_at<h265_nal_pps>(2, test::pps_syntax().rbsp(), parse);

    test::pps_syntax other;
    other.identifiers = bit_writer().ue(64).ue(16);
    expect_failure_at<h265_nal_pps>(13 + 9, other.rbsp(), parse_pps);
}

TEST(FailurePositions, OfAPpsWhoseSpsFailed) {
    const auto parse = [](h265_nal_pps& pps, h2645_common_bitreader& reader) {
        h2645_common_base_store<h265_nal_sps> store;
        store[0].valid = false;
        return pps.parse(reader, store);
    };
    expect_failure_at<h265_nal_pps>(2, test::pps_syntax().rbsp(), parse);
}

TEST(FailurePositions, OfAPpsWithTooManyTiles) {
    test::pps_syntax columns;
    columns.tiles = bit_writer().u<1>(1).u<1>(0).ue(129).ue(0).u<1>(0);
    expect_failure_at<h265_nal_pps>(num_tile_columns_minus1 + 15 + 1 + 1, columns.rbsp(),
                                    parse_pps);

    test::pps_syntax rows;  // before the width of the first column
    rows.tiles = bit_writer().u<1>(1).u<1>(0).ue(1).ue(129).u<1>(0).ue(0);
    expect_failure_at<h265_nal_pps>(num_tile_columns_minus1 + 3 + 15 + 1, rows.rbsp(), parse_pps);
}

TEST(FailurePositions, OfAPpsWithBadTrailingBits) {
    // Loop filter 1, deblocking 1, scaling list 1, lists and merge level 1 1 1, extension 1.
    const bit_writer payload = test::pps_syntax().payload();
    EXPECT_EQ(payload.size(), num_tile_columns_minus1 + 7);  // 30
    expect_failure_at<h265_nal_pps>(32, without_stop_bit(payload), parse_pps);
    expect_failure_at<h265_nal_pps>(32, with_bad_alignment(payload), parse_pps);
}

TEST(FailurePositions, OfAPpsWithAnExtensionWithoutAStopBit) {
    test::pps_syntax pps;
    pps.extension = bit_writer().u<1>(1).u<10>(0);
    expect_failure_at<h265_nal_pps>(40 + 8, pps.payload(), parse_pps);
}

TEST(FailurePositions, OfAPpsWithoutMemory) {
    test::pps_syntax pps;
    pps.tiles = bit_writer().u<1>(1).u<1>(0).ue(1).ue(1).u<1>(0).ue(0).ue(0).u<1>(1);
    pps.scaling_list = bit_writer().u<1>(1);
    test::append(pps.scaling_list, predicted_scaling_lists());
    // Two sizes of a tile, a flag; loop filter 1, deblocking 1, scaling list 1.
    constexpr std::size_t sizes = num_tile_columns_minus1 + 3 + 3 + 1;
    expect_exhaustion_at<h265_nal_pps>(
        positions(2, sizes) + scaling_list_allocations(sizes + 3 + 3), pps.rbsp(), parse_pps);
}

}  // namespace
}  // namespace kovran
