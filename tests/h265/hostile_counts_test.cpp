#include <kovran/h265/h265_nal_pps.h>
#include <kovran/h265/h265_nal_sei_active_parameter_sets.h>
#include <kovran/h265/h265_nal_sei_buffering_period.h>
#include <kovran/h265/h265_nal_sei_pic_timing.h>
#include <kovran/h265/h265_nal_sps.h>
#include <kovran/h265/h265_nal_vps.h>
#include <kovran/h265/h265_slice_segment_header.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <new>
#include <vector>

#include "support/allocation_failure.h"
#include "support/bit_writer.h"
#include "support/extensions.h"
#include "support/parameter_sets.h"
#include "support/rbsp.h"

namespace kovran {
namespace {
// What the shortest data can ask for by the largest counts that are accepted, exactly. The sizes
// are those of arrays of 4-byte values and of bits, beside the records that hold them. Behind the
// data all bits are zeros.

using test::allocation_count;
using test::bit_writer;

// A parse into a fresh record.
struct cost {
    std::size_t data = 0;                 // bytes
    std::size_t memory = 0;               // bytes
    std::size_t bits_behind_the_end = 0;  // read as zeros
};

template <class Record, class Parse>
cost cost_of(const bit_writer& data, Parse parse) {
    const test::exact_bytes bytes(data.bytes());
    h2645_common_bitreader reader(bytes.begin(), bytes.end());
    const allocation_count before;
    Record record;
    try {
        static_cast<void>(parse(record, reader));
    } catch (const std::bad_alloc&) {
        ADD_FAILURE() << "more than is accepted";
    }
    const std::size_t bits = 8 * bytes.size();
    const std::size_t position = reader.bit_position();
    return {bytes.size(), before.bytes(), position > bits ? position - bits : 0};
}

void expect_cost(const cost& measured, std::size_t data, std::size_t memory,
                 std::size_t bits_behind_the_end) {
    EXPECT_EQ(measured.data, data);
    EXPECT_EQ(measured.memory, memory);
    EXPECT_EQ(measured.bits_behind_the_end, bits_behind_the_end);
}

constexpr std::size_t value = sizeof(unsigned int);
constexpr std::size_t flags = sizeof(std::uint64_t);  // up to 64 of them
constexpr std::size_t code = 32;                      // the bits of a ue(v) that are zeros

// The bits of rbsp_trailing_bits() that begin at this one.
constexpr std::size_t trailing_bits(std::size_t position) {
    return 8 - position % 8;
}

// ---- Slice segment headers

// PPS 0 of SPS 0 of VPS 0; the SPS has a long-term picture, and a short-term set of two pictures.
struct host {
    host() {
        vps_store[0];
        h265_nal_sps& sps = sps_store[0];
        sps.num_short_term_ref_pic_sets = 1;
        sps.st_ref_pic_set.resize(1);
        sps.st_ref_pic_set[0].num_negative_pics = 2;
        sps.st_ref_pic_set[0].used_by_curr_pic_s0_flag = {true, true};
        pps_store[0].lists_modification_present_flag = true;
    }

    cost cost_of_slice(const bit_writer& header) {
        return cost_of<h265_slice_segment_header>(
            header, [this](h265_slice_segment_header& slice, h2645_common_bitreader& reader) {
                return slice.parse(reader, pps_store, sps_store, vps_store, TRAIL_R);
            });
    }

    h2645_common_base_store<h265_nal_vps> vps_store;
    h2645_common_base_store<h265_nal_sps> sps_store;
    h2645_common_base_store<h265_nal_pps> pps_store;
};

constexpr unsigned int largest_array = 1048576;

// first_slice_segment_in_pic_flag, slice_pic_parameter_set_id, slice_type, slice_pic_order_cnt_lsb,
// short_term_ref_pic_set_sps_flag.
bit_writer p_slice() {
    return bit_writer().u<1>(1).ue(0).ue(1).u<4>(0).u<1>(1);
}

TEST(HostileCounts, OfLongTermPicturesTakeThirteenMegabytes) {
    host state;
    state.sps_store[0].long_term_ref_pics_present_flag = true;
    state.sps_store[0].num_long_term_ref_pics_sps = 1;
    const cost measured = state.cost_of_slice(p_slice().ue(0).ue(largest_array).u<1>(0));
    // Behind 10, 1 and 41 bits each entry: poc_lsb_lt in 4 bits and two flags. Then
    // num_ref_idx_active_override_flag and ref_pic_list_modification_flag_l0.
    expect_cost(measured, 7, 3 * largest_array * value + 2 * largest_array / 8,
                52 + std::size_t{6} * largest_array + 2 - 56);
}

TEST(HostileCounts, OfListEntriesTakeFourMegabytes) {
    host state;
    const cost measured =
        state.cost_of_slice(p_slice().u<1>(1).ue(largest_array - 1).u<1>(1).u<1>(0));
    // Behind 10, 1, 41 and 1 bits each entry: 2 bits for the number of two pictures.
    expect_cost(measured, 7, largest_array * value, 53 + std::size_t{2} * largest_array - 56);
}

// ---- Parameter sets

// With so many HRD structures, none of which is in the data.
bit_writer vps_with_hrd_structures(unsigned int count, unsigned int sub_layers) {
    test::vps_syntax vps;
    vps.header = bit_writer().u<4>(0).u<1>(1).u<1>(1).u<6>(0);
    vps.header.u<3>(sub_layers - 1).u<1>(1).u<16>(0xFFFF);
    vps.profile_tier_level = test::minimal_profile_tier_level();
    vps.profile_tier_level.u<16>(0);  // a flag pair for each sub-layer, or two reserved bits
    vps.sub_layer_ordering_info = bit_writer().u<1>(0).ue(0).ue(0).ue(0);
    vps.timing_info = bit_writer().u<1>(1).u<32>(1).u<32>(1).u<1>(0).ue(count);
    vps.extension = bit_writer();
    return vps.payload();
}

std::size_t memory_of_hrd_structures(std::size_t count, std::size_t sub_layers) {
    const std::size_t structure = sizeof(h265_hrd_parameters) +
                                  2 * sub_layers * sizeof(h265_nal_sub_layer_hrd_parameters) +
                                  2 * sub_layers * value + 3 * flags;
    return count * (structure + value) + count / 8;
}

// Everything else in those VPSs: the general profile and the sub-layers, the ordering information,
// and the row of a layer set.
std::size_t other_memory_of_vps(std::size_t sub_layers) {
    return flags + (sub_layers - 1) * sizeof(h265_profile_tier_level::layer_t) +
           3 * sub_layers * value + sizeof(std::vector<bool>);
}

TEST(HostileCounts, OfHrdStructuresOfAVpsTakeAThirdOfAMegabyte) {
    const cost measured =
        cost_of<h265_nal_vps>(vps_with_hrd_structures(128, 8),
                              [](auto& record, auto& reader) { return record.parse(reader); });
    // Behind 221 and 15 bits each structure: its layer set and, but for the first,
    // cprms_present_flag; of each sub-layer three flags and cpb_cnt_minus1. Then
    // vps_extension_flag.
    constexpr std::size_t end = 236 + 128 * (code + 8 * (3 + code)) + 127 + 1;
    expect_cost(measured, 30, memory_of_hrd_structures(128, 8) + other_memory_of_vps(8),
                end + trailing_bits(end) - 240);
}

// By the standard's rules there are up to 1024, of seven sub-layers; but of each stand four bits in
// the data at the least. What is refused leaves the record with the rest of the VPS, read once
// more, and nothing is read behind the end.
TEST(HostileCounts, OfHrdStructuresOfAVpsTakeNothingByTheStandard) {
    const cost measured = cost_of<h265_nal_vps>(
        vps_with_hrd_structures(1024, 7),
        [](auto& record, auto& reader) { return record.parse_standard(reader); });
    // Each sub-layer takes over the flags of the general profile.
    expect_cost(measured, 31, 2 * (other_memory_of_vps(7) + 6 * flags), 0);
}

TEST(HostileCounts, OfShortTermSetsOfAnSpsTakeThirtyKilobytes) {
    test::sps_syntax sps;
    sps.short_term_ref_pic_sets = bit_writer().ue(128).ue(128).ue(0);
    sps.long_term_ref_pics = bit_writer();
    sps.motion_and_smoothing = bit_writer();
    sps.vui = bit_writer();
    sps.extension = bit_writer();
    auto vps_store = test::vps_store_with(0);
    const cost measured = cost_of<h265_nal_sps>(
        sps.payload(), [&](h265_nal_sps& record, h2645_common_bitreader& reader) {
            return record.parse(reader, vps_store);
        });
    // The general profile, the ordering information, the sets, and the pictures of the first.
    // Behind 195 bits each picture: its distance and a flag. The second set fails, behind its
    // prediction flag and its two counts.
    expect_cost(measured, 25,
                flags + 3 * value + 128 * (sizeof(h265_st_ref_pic_set) + value) + 128 / 8,
                195 + 128 * (code + 1) + 1 + 2 * code - 200);
}

TEST(HostileCounts, OfTilesOfAPpsTakeAKilobyte) {
    test::pps_syntax pps;
    pps.tiles = bit_writer().u<1>(1).u<1>(0).ue(128).ue(128).u<1>(0);
    pps.loop_filter_across_slices = bit_writer();
    pps.deblocking = bit_writer();
    pps.scaling_list = bit_writer();
    pps.lists_and_merge_level = bit_writer();
    pps.extension = bit_writer();
    auto sps_store = test::sps_store_with(0);
    const cost measured = cost_of<h265_nal_pps>(
        pps.payload(), [&](h265_nal_pps& record, h2645_common_bitreader& reader) {
            return record.parse(reader, sps_store);
        });
    // Behind 54 bits the sizes; then seven flags, and log2_parallel_merge_level_minus2 among them.
    constexpr std::size_t end = 54 + 2 * 128 * code + 7 + code;
    expect_cost(measured, 7, 2 * 128 * value, end + trailing_bits(end) - 56);
}

// By the standard's rules, where an extension is refused with all that it announces: what is left
// is the general profile, the ordering information and the extension data, all of them small.
TEST(HostileCounts, OfAPaletteOfAnSpsTakeNothingPastTheirBoundByTheStandard) {
    auto vps_store = test::vps_store_with(0);
    const bit_writer palette = bit_writer().u<8>(0b00010000).u<1>(0).u<1>(1).ue(64).ue(64);
    for (const unsigned int count : {128U, 129U, 0xFFFFFFFFU}) {
        const std::size_t samples = count == 128 ? 3 * 128 * value : 0;  // the most there can be
        const cost measured = cost_of<h265_nal_sps>(
            test::sps_with_extension(bit_writer(palette).u<1>(1).ue(count - 1)).rbsp(),
            [&](h265_nal_sps& record, h2645_common_bitreader& reader) {
                return record.parse_standard(reader, vps_store);
            });
        EXPECT_LE(measured.memory, samples + 256) << count;
        EXPECT_EQ(measured.bits_behind_the_end, 0U) << count;
    }
}

TEST(HostileCounts, OfExtensionsOfAPpsTakeNothingByTheStandard) {
    h2645_common_base_store<h265_nal_sps> sps_store;
    const bit_writer multilayer = bit_writer().u<8>(0b01000000).u<2>(0);
    const bit_writer depth = bit_writer().u<8>(0b00100000).u<1>(1);
    const auto refused = {
        bit_writer().u<8>(0b10000000).ue(0).u<1>(0).u<1>(1).ue(0).ue(0xFFFFFFFE),
        bit_writer(multilayer).ue(62),
        bit_writer(multilayer).ue(0xFFFFFFFE),
        bit_writer(multilayer).ue(0).u<1>(1).ue(61),
        bit_writer(multilayer).ue(0).u<1>(1).ue(0xFFFFFFFE),
        bit_writer(depth).u<6>(63).u<4>(15),
        bit_writer(depth).u<6>(0).u<4>(15).u<3>(0b101),
        bit_writer(depth).u<6>(0).u<4>(15).u<3>(0b100).u<23>(0x7FFFFF).u<23>(1).u<1>(0).u<23>(0),
        bit_writer().u<8>(0b00010000).u<3>(0b001).ue(0xFFFFFFFE)};
    std::size_t i = 0;
    for (const bit_writer& extension : refused) {
        SCOPED_TRACE(i++);
        const cost measured =
            cost_of<h265_nal_pps>(test::pps_with_extension(extension).rbsp(),
                                  [&](h265_nal_pps& record, h2645_common_bitreader& reader) {
                                      return record.parse_standard(reader, sps_store);
                                  });
        EXPECT_LE(measured.memory, 256U);
        EXPECT_EQ(measured.bits_behind_the_end, 0U);
    }
}

// ---- SEI messages

h2645_common_base_store<h265_nal_sps> sps_store_with_hrd() {
    h2645_common_base_store<h265_nal_sps> store;
    store.active_id = 0;
    h265_hrd_parameters& hrd = store[0].vui_parameters.hrd_parameters;
    hrd.nal_hrd_parameters_present_flag = true;
    hrd.vcl_hrd_parameters_present_flag = true;
    hrd.sub_pic_hrd_params_present_flag = true;
    hrd.initial_cpb_removal_delay_length_minus1 = 31;
    hrd.du_cpb_removal_delay_increment_length_minus1 = 31;
    hrd.cpb_cnt_minus1 = {127};
    return store;
}

TEST(HostileCounts, OfABufferingPeriodTakeFourKilobytes) {
    const auto store = sps_store_with_hrd();
    const cost measured = cost_of<h265_nal_sei_buffering_period>(
        bit_writer().ue(0),
        [&](auto& record, auto& reader) { return record.parse(reader, store); });
    // Behind 3 bits delays and offsets of 32 bits.
    expect_cost(measured, 1, 8 * 128 * value, 3 + 8 * 128 * std::size_t{32} - 8);
}

TEST(HostileCounts, OfPictureTimingTakeAKilobyte) {
    const auto store = sps_store_with_hrd();
    const cost measured = cost_of<h265_nal_sei_pic_timing>(
        bit_writer().u<3>(0).ue(127).u<1>(0),
        [&](auto& record, auto& reader) { return record.parse(reader, store); });
    // Behind 19 bits each unit: num_nalus_in_du_minus1 and, but for the last, a delay of 32 bits.
    expect_cost(measured, 3, 2 * 128 * value, 19 + 128 * code + 127 * std::size_t{32} - 24);
}

// By the standard's rules there are as many decoding units as coding tree blocks; but of each
// stands a bit in the data.
TEST(HostileCounts, OfPictureTimingOfALargePictureTakeNothingByTheStandard) {
    constexpr unsigned int largest_picture = 139264;  // 512 x 272 blocks of 16x16
    auto store = sps_store_with_hrd();
    h265_nal_sps& sps = store[0];
    sps.pic_width_in_luma_samples = 8192;
    sps.pic_height_in_luma_samples = 4352;
    sps.log2_diff_max_min_luma_coding_block_size = 1;
    sps.vui_parameters.hrd_parameters.sub_pic_cpb_params_in_pic_timing_sei_flag = true;
    const cost measured = cost_of<h265_nal_sei_pic_timing>(
        bit_writer().u<3>(0).ue(largest_picture - 1).u<1>(0),
        [&](auto& record, auto& reader) { return record.parse_standard(reader, store); });
    expect_cost(measured, 5, 0, 0);
}

TEST(HostileCounts, OfActiveParameterSetsTakeAKilobyte) {
    h2645_common_base_store<h265_nal_vps> store;
    store[0].vps_max_layers_minus1 = 63;
    const cost measured = cost_of<h265_nal_sei_active_parameter_sets>(
        bit_writer().u<4>(0).u<2>(0).ue(127),
        [&](auto& record, auto& reader) { return record.parse(reader, store); });
    // Behind 21 bits the identifiers and the indices.
    expect_cost(measured, 3, (128 + 64) * value, 21 + (128 + 64) * code - 24);
}

}  // namespace
}  // namespace kovran
