// What short data can ask for by the standard's rules: the largest counts, with data behind them
// that holds many entries, few or none. SECURITY.md states the bounds.
#include <kovran/h265/h265_nal_aud.h>
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
#include <vector>

#include "support/allocation_failure.h"
#include "support/bit_writer.h"
#include "support/extensions.h"
#include "support/parameter_sets.h"
#include "support/rbsp.h"

namespace kovran {
namespace {

using test::bit_writer;

constexpr std::size_t memory_for_any_data = std::size_t{64} << 10;
constexpr std::size_t memory_for_a_byte = 4096;
constexpr std::size_t bits_for_any_data = 65536;
constexpr std::size_t bits_for_a_byte = 512;

// A parse into a fresh record, of data whose last byte is the last of its memory.
template <class Record, class Parse>
void expect_bounded(const std::vector<unsigned char>& data, Parse& parse) {
    SCOPED_TRACE(testing::Message() << data.size() << " bytes");
    const test::exact_bytes bytes(data);
    h2645_common_bitreader reader(bytes.begin(), bytes.end());
    const test::allocation_count before;
    Record record;
    static_cast<void>(parse(record, reader));
    EXPECT_LE(before.bytes(), memory_for_any_data + memory_for_a_byte * data.size());
    EXPECT_LE(reader.bit_position(), bits_for_any_data + (8 + bits_for_a_byte) * data.size());
}

// Behind the count bytes of which entries are made: elements of one bit, of three, of zeros, and of
// few bits among many.
template <class Record, class Parse>
void expect_bounded_counts(const bit_writer& up_to_the_count, Parse parse) {
    for (const unsigned int filling : {0xFFU, 0x5BU, 0x00U, 0x80U, 0x01U}) {
        SCOPED_TRACE(testing::Message() << "filled with " << filling);
        for (const std::size_t size : {0U, 1U, 4U, 16U, 64U, 256U, 4096U, 20000U}) {
            bit_writer bits = up_to_the_count;
            while (filling == 0xFF && bits.size() % 8 != 0) {
                bits.u<1>(1);
            }
            std::vector<unsigned char> data = bits.bytes();
            data.insert(data.end(), size, static_cast<unsigned char>(filling));
            expect_bounded<Record>(data, parse);
        }
    }
}

// ---- Parameter sets

bit_writer vps_up_to_timing_info(unsigned int sub_layers) {
    test::vps_syntax vps;
    vps.header = bit_writer().u<4>(0).u<1>(1).u<1>(1).u<6>(0);
    vps.header.u<3>(sub_layers - 1).u<1>(1).u<16>(0xFFFF);
    if (sub_layers > 1) {
        vps.profile_tier_level.u<16>(0);
    }
    vps.sub_layer_ordering_info = bit_writer().u<1>(0).ue(0).ue(0).ue(0);
    vps.timing_info = bit_writer();
    vps.extension = bit_writer();
    return vps.payload();
}

bool parse_vps(h265_nal_vps& vps, h2645_common_bitreader& reader) {
    return vps.parse_standard(reader);
}

TEST(BoundsByStandard, OfHrdStructuresOfAVps) {
    for (const unsigned int sub_layers : {1U, 7U}) {
        for (unsigned int count = 1; count <= 1024; count *= 2) {
            bit_writer bits = vps_up_to_timing_info(sub_layers);
            bits.u<1>(1).u<32>(1).u<32>(1).u<1>(0).ue(count);
            expect_bounded_counts<h265_nal_vps>(bits, parse_vps);
        }
    }
}

TEST(BoundsByStandard, OfLayerSetsOfAVps) {
    test::vps_syntax vps;
    vps.layer_sets = bit_writer().u<6>(62).ue(1023);
    vps.timing_info = bit_writer();
    vps.extension = bit_writer();
    expect_bounded_counts<h265_nal_vps>(vps.payload(), parse_vps);
}

struct sps_parse {
    h2645_common_base_store<h265_nal_vps> vps_store;

    bool operator()(h265_nal_sps& sps, h2645_common_bitreader& reader) {
        return sps.parse_standard(reader, vps_store);
    }
};

test::sps_syntax sps_up_to_scaling_list() {
    test::sps_syntax sps;
    for (bit_writer* const behind :
         {&sps.amp_and_sao, &sps.pcm, &sps.short_term_ref_pic_sets, &sps.long_term_ref_pics,
          &sps.motion_and_smoothing, &sps.vui, &sps.extension}) {
        *behind = bit_writer();
    }
    return sps;
}

TEST(BoundsByStandard, OfScalingListsOfAnSps) {
    test::sps_syntax sps = sps_up_to_scaling_list();
    sps.scaling_list = bit_writer().u<1>(1).u<1>(1);
    expect_bounded_counts<h265_nal_sps>(sps.payload(), sps_parse());
}

TEST(BoundsByStandard, OfShortTermSetsOfAnSps) {
    for (const unsigned int pictures : {0U, 1U, 16U}) {
        test::sps_syntax sps = sps_up_to_scaling_list();
        sps.sub_layer_ordering_info = bit_writer().u<1>(1).ue(15).ue(0).ue(0);
        sps.amp_and_sao = bit_writer().u<2>(0);
        sps.pcm = bit_writer().u<1>(0);
        sps.short_term_ref_pic_sets = bit_writer().ue(64).ue(pictures);
        expect_bounded_counts<h265_nal_sps>(sps.payload(), sps_parse());
    }
}

TEST(BoundsByStandard, OfLongTermPicturesOfAnSps) {
    test::sps_syntax sps;
    sps.long_term_ref_pics = bit_writer().u<1>(1).ue(32);
    sps.motion_and_smoothing = bit_writer();
    sps.vui = bit_writer();
    sps.extension = bit_writer();
    expect_bounded_counts<h265_nal_sps>(sps.payload(), sps_parse());
}

TEST(BoundsByStandard, OfHrdParametersOfAnSps) {
    test::sps_syntax sps;
    sps.vui = bit_writer().u<1>(1).u<8>(0).u<1>(0).u<1>(1).u<32>(1).u<32>(1).u<1>(0).u<1>(1);
    sps.extension = bit_writer();
    expect_bounded_counts<h265_nal_sps>(sps.payload(), sps_parse());
}

TEST(BoundsByStandard, OfExtensionsOfAnSps) {
    const auto scc = bit_writer().u<8>(0b00010000).u<1>(0).u<1>(1).ue(64).ue(64).u<1>(1).ue(127);
    const auto data = bit_writer().u<8>(0b00001111);
    for (const bit_writer& extension : {scc, data, test::full_sps_extensions().syntax}) {
        test::sps_syntax sps = test::sps_with_extension(extension);
        sps.bit_depths = bit_writer().ue(8).ue(8);
        expect_bounded_counts<h265_nal_sps>(sps.payload(), sps_parse());
    }
}

TEST(BoundsByStandard, OfExtensionsOfAPps) {
    const auto offsets = bit_writer().u<8>(0b01000000).u<2>(0).ue(62);
    const auto layers = bit_writer().u<8>(0b01000000).u<2>(0).ue(0).u<1>(1).ue(61);
    auto octants = bit_writer().u<8>(0b01000000).u<2>(0).ue(0).u<1>(1).ue(0).u<6>(0);
    octants.u<4>(0b0111).ue(8).ue(8).ue(0).ue(0).u<4>(0).se(0).se(0).u<1>(1);
    const auto depth_layers = bit_writer().u<8>(0b00100000).u<1>(1).u<6>(63);
    const auto flags = bit_writer(depth_layers).u<4>(15).u<3>(0b101);
    auto deltas = bit_writer(depth_layers).u<4>(15).u<3>(0b100);
    deltas.u<23>(0x7FFFFF).u<23>(1).u<1>(0);
    const auto palette = bit_writer().u<8>(0b00010000).u<3>(0b001).ue(128).u<1>(0).ue(8).ue(8);
    const auto data = bit_writer().u<8>(0b00001111);
    h2645_common_base_store<h265_nal_sps> sps_store;
    for (const bit_writer& extension :
         {offsets, layers, octants, bit_writer(depth_layers).u<4>(0), flags, deltas, palette, data,
          test::full_pps_extensions().syntax}) {
        expect_bounded_counts<h265_nal_pps>(
            test::pps_with_extension(extension).payload(),
            [&](h265_nal_pps& record, h2645_common_bitreader& reader) {
                return record.parse_standard(reader, sps_store);
            });
    }
}

TEST(BoundsByStandard, OfTilesOfAPps) {
    auto sps_store = test::sps_store_with(0);
    const auto parse = [&](h265_nal_pps& pps, h2645_common_bitreader& reader) {
        return pps.parse_standard(reader, sps_store);
    };
    for (unsigned int count = 1; count <= 1055; count = 2 * count + 1) {
        for (const unsigned int rows : {1U, 1055U}) {
            test::pps_syntax pps;
            pps.tiles = bit_writer().u<1>(1).u<1>(0).ue(count).ue(rows).u<1>(0);
            pps.loop_filter_across_slices = bit_writer();
            pps.deblocking = bit_writer();
            pps.scaling_list = bit_writer();
            pps.lists_and_merge_level = bit_writer();
            pps.extension = bit_writer();
            expect_bounded_counts<h265_nal_pps>(pps.payload(), parse);
        }
    }
}

TEST(BoundsByStandard, OfScalingListsOfAPps) {
    auto sps_store = test::sps_store_with(0);
    test::pps_syntax pps;
    pps.scaling_list = bit_writer().u<1>(1);
    pps.lists_and_merge_level = bit_writer();
    pps.extension = bit_writer();
    expect_bounded_counts<h265_nal_pps>(pps.payload(),
                                        [&](h265_nal_pps& record, h2645_common_bitreader& reader) {
                                            return record.parse_standard(reader, sps_store);
                                        });
}

TEST(BoundsByStandard, OfAnAud) {
    expect_bounded_counts<h265_nal_aud>(bit_writer(),
                                        [](h265_nal_aud& aud, h2645_common_bitreader& reader) {
                                            return aud.parse_standard(reader);
                                        });
}

// ---- Slice segment headers

// PPS 0 of SPS 0 of VPS 0, with short-term sets, long-term pictures and list modifications.
struct slice_parse {
    slice_parse() {
        vps_store[0];
        h265_nal_sps& sps = sps_store[0];
        sps.pic_width_in_luma_samples = 64;
        sps.pic_height_in_luma_samples = 64;
        sps.log2_diff_max_min_luma_coding_block_size = 1;
        sps.sps_max_dec_pic_buffering_minus1 = {15};
        sps.sps_max_num_reorder_pics = {0};
        sps.sps_max_latency_increase_plus1 = {0};
        sps.num_short_term_ref_pic_sets = 1;
        sps.st_ref_pic_set.resize(1);
        sps.st_ref_pic_set[0].num_negative_pics = 2;
        sps.st_ref_pic_set[0].delta_poc_s0_minus1 = {0, 0};
        sps.st_ref_pic_set[0].used_by_curr_pic_s0_flag = {true, true};
        sps.long_term_ref_pics_present_flag = true;
        pps_store[0].lists_modification_present_flag = true;
    }

    bool operator()(h265_slice_segment_header& slice, h2645_common_bitreader& reader) {
        return slice.parse_standard(reader, pps_store, sps_store, vps_store, TRAIL_R);
    }

    h2645_common_base_store<h265_nal_vps> vps_store;
    h2645_common_base_store<h265_nal_sps> sps_store;
    h2645_common_base_store<h265_nal_pps> pps_store;
};

// first_slice_segment_in_pic_flag, slice_pic_parameter_set_id, slice_type, slice_pic_order_cnt_lsb.
bit_writer p_slice() {
    return bit_writer().u<1>(1).ue(0).ue(1).u<4>(0);
}

TEST(BoundsByStandard, OfPicturesOfASlice) {
    for (const unsigned int pictures : {1U, 13U, 16U, 1048576U}) {
        expect_bounded_counts<h265_slice_segment_header>(p_slice().u<1>(1).ue(pictures),
                                                         slice_parse());
        expect_bounded_counts<h265_slice_segment_header>(p_slice().u<1>(0).u<1>(0).ue(pictures),
                                                         slice_parse());
    }
}

TEST(BoundsByStandard, OfReferenceIndicesOfASlice) {
    for (const unsigned int indices : {2U, 15U, 16U, 1048576U}) {
        expect_bounded_counts<h265_slice_segment_header>(
            p_slice().u<1>(1).ue(0).u<1>(1).ue(indices - 1), slice_parse());
    }
}

// ---- SEI messages

// The largest CPB count and picture, and elements of 32 bits.
struct sei_host {
    sei_host() {
        sps_store.active_id = 0;
        h265_nal_sps& sps = sps_store[0];
        sps.pic_width_in_luma_samples = 8192;
        sps.pic_height_in_luma_samples = 4352;
        sps.log2_diff_max_min_luma_coding_block_size = 1;
        h265_hrd_parameters& hrd = sps.vui_parameters.hrd_parameters;
        hrd.nal_hrd_parameters_present_flag = true;
        hrd.vcl_hrd_parameters_present_flag = true;
        hrd.sub_pic_hrd_params_present_flag = true;
        hrd.sub_pic_cpb_params_in_pic_timing_sei_flag = true;
        hrd.initial_cpb_removal_delay_length_minus1 = 31;
        hrd.du_cpb_removal_delay_increment_length_minus1 = 31;
        hrd.cpb_cnt_minus1 = {31};
        vps_store[0].vps_max_layers_minus1 = 62;
    }

    h2645_common_base_store<h265_nal_sps> sps_store;
    h2645_common_base_store<h265_nal_vps> vps_store;
};

TEST(BoundsByStandard, OfABufferingPeriod) {
    sei_host host;
    expect_bounded_counts<h265_nal_sei_buffering_period>(
        bit_writer().ue(0),
        [&](auto& record, auto& reader) { return record.parse_standard(reader, host.sps_store); });
}

TEST(BoundsByStandard, OfPictureTiming) {
    sei_host host;
    for (unsigned int units = 1; units < 139264; units = 2 * units + 1) {
        for (const bool common_delay : {false, true}) {
            bit_writer bits = bit_writer().u<2>(0).ue(units).u<1>(common_delay ? 1 : 0);
            expect_bounded_counts<h265_nal_sei_pic_timing>(
                common_delay ? bits.u<32>(0) : bits, [&](auto& record, auto& reader) {
                    return record.parse_standard(reader, host.sps_store);
                });
        }
    }
}

TEST(BoundsByStandard, OfActiveParameterSets) {
    sei_host host;
    for (const unsigned int sets : {1U, 16U, 1048576U}) {
        expect_bounded_counts<h265_nal_sei_active_parameter_sets>(
            bit_writer().u<4>(0).u<2>(0).ue(sets - 1), [&](auto& record, auto& reader) {
                return record.parse_standard(reader, host.vps_store);
            });
    }
}

}  // namespace
}  // namespace kovran
