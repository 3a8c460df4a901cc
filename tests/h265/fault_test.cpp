// What a parse tells of its failure: each reason once, with where it stands.
#include <kovran/h265/h265_fault.h>
#include <kovran/h265/h265_nal_aud.h>
#include <kovran/h265/h265_nal_sei_active_parameter_sets.h>
#include <kovran/h265/h265_nal_sei_buffering_period.h>
#include <kovran/h265/h265_nal_sei_pic_timing.h>
#include <kovran/h265/h265_slice_segment_header.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "support/bit_writer.h"
#include "support/parameter_sets.h"
#include "support/rbsp.h"

namespace kovran {
namespace {

using kind = h265_fault_kind;

// The element of a fault behind the structures that it stands in.
std::string place_of(const h265_fault& fault) {
    std::string place;
    for (unsigned int i = 0; i < fault.structure_count; ++i) {
        place += to_string(fault.structures[i]) + ".";
    }
    return place + to_string(fault.element);
}

void expect_fault(const h265_fault& fault, kind expected, const std::string& place,
                  std::size_t first_bit, std::int64_t value) {
    EXPECT_EQ(fault.kind, expected);
    EXPECT_EQ(place_of(fault), place);
    EXPECT_EQ(fault.first_bit, first_bit);
    EXPECT_EQ(fault.value, value);
}

void expect_value(const h265_fault& fault, const std::string& place, std::size_t first_bit,
                  std::int64_t value, std::int64_t lowest, std::int64_t highest) {
    SCOPED_TRACE(to_string(fault));
    expect_fault(fault, kind::value, place, first_bit, value);
    EXPECT_EQ(fault.lowest, lowest);
    EXPECT_EQ(fault.highest, highest);
}

void expect_contradiction(const h265_fault& fault, const std::string& place, std::size_t first_bit,
                          std::int64_t value) {
    SCOPED_TRACE(to_string(fault));
    expect_fault(fault, kind::contradiction, place, first_bit, value);
}

void expect_missing(const h265_fault& fault, const std::string& parameter_set, unsigned int id,
                    const std::string& place, std::size_t first_bit, std::int64_t value) {
    SCOPED_TRACE(to_string(fault));
    expect_fault(fault, kind::parameter_set_missing, place, first_bit, value);
    EXPECT_EQ(fault.parameter_set, parameter_set);
    EXPECT_EQ(fault.parameter_set_id, id);
}

// Of a parse that fails. A record without a fault pointer fails alike.
template <class Record, class... Arguments>
h265_fault fault_of(const test::bit_writer& bits, Arguments&&... arguments) {
    test::rbsp input{bits.bytes()};
    test::rbsp other_input{bits.bytes()};
    Record record;
    Record other;
    h265_fault fault;
    EXPECT_FALSE(record.parse_standard(input.reader, arguments..., &fault));
    EXPECT_FALSE(other.parse_standard(other_input.reader, arguments...));
    EXPECT_EQ(input.reader.bit_position(), other_input.reader.bit_position());
    return fault;
}

// Ones up to so many bits.
test::bit_writer filled(test::bit_writer bits, std::size_t size) {
    while (bits.size() < size) {
        bits.u<1>(1);
    }
    return bits;
}

// ---- VPS

// In the smallest VPS vps_num_layer_sets_minus1 stands at bit 138 and the timing information at
// bit 139.

h265_fault fault_of(const test::vps_syntax& vps) {
    return fault_of<h265_nal_vps>(vps.payload());
}

// With so many layer sets of layer 0, then so many HRD structures: vps_num_hrd_parameters stands
// 66 bits behind the layer sets.
test::vps_syntax vps_with(unsigned int layer_sets, unsigned int vps_num_hrd_parameters) {
    test::vps_syntax vps;
    vps.layer_sets = test::bit_writer().u<6>(0).ue(layer_sets - 1);
    for (unsigned int i = 1; i < layer_sets; ++i) {
        vps.layer_sets.u<1>(1);
    }
    vps.timing_info = test::bit_writer().u<1>(1).u<32>(1).u<32>(50).u<1>(0);
    vps.timing_info.ue(vps_num_hrd_parameters);
    vps.extension = test::bit_writer();
    return vps;
}

TEST(Fault, OfTooManySubLayersOfAVps) {
    test::vps_syntax vps;
    vps.header = test::bit_writer().u<4>(0).u<1>(1).u<1>(1).u<6>(0).u<3>(7).u<1>(1).u<16>(0xFFFF);
    expect_value(fault_of(vps), "vps_max_sub_layers_minus1", 12, 7, 0, 6);
}

TEST(Fault, OfTooManyLayerSets) {
    test::vps_syntax vps;
    vps.layer_sets = test::bit_writer().u<6>(0).ue(1024);
    expect_value(fault_of(vps), "vps_num_layer_sets_minus1", 138, 1024, 0, 1023);
}

// Ten layers; behind the count, of 5 bits, stand 25 bits.
TEST(Fault, OfMoreLayerSetsThanTheDataHold) {
    test::vps_syntax vps;
    vps.layer_sets = test::bit_writer().u<6>(9).ue(5);
    vps.timing_info = test::bit_writer().u<25>(0);
    vps.extension = test::bit_writer();
    expect_value(fault_of(vps), "vps_num_layer_sets_minus1", 138, 5, 0, 2);
}

TEST(Fault, OfTooManyHrdStructures) {
    expect_value(fault_of(vps_with(1, 1025)), "vps_num_hrd_parameters", 205, 1025, 0, 1);
    // 21 bits of the count and 1023 flags come before.
    expect_value(fault_of(vps_with(1024, 1025)), "vps_num_hrd_parameters", 1248, 1025, 0, 1024);
}

// The count of layer sets has 5 bits, that of structures as well; 14 bits are left.
TEST(Fault, OfMoreHrdStructuresThanTheDataHold) {
    const test::bit_writer bits = filled(vps_with(5, 5).payload(), 232);
    expect_value(fault_of<h265_nal_vps>(bits), "vps_num_hrd_parameters", 213, 5, 0, 3);
}

// One structure with one sub-layer, whose cpb_cnt_minus1 stands at bit 237.
test::bit_writer vps_with_cpbs(bool vcl, unsigned int cpb_cnt_minus1) {
    test::vps_syntax vps = vps_with(1, 1);
    vps.timing_info.ue(0).u<1>(1).u<1>(vcl ? 1 : 0).u<1>(0);
    vps.timing_info.u<4>(0).u<4>(0).u<5>(23).u<5>(23).u<5>(23);
    vps.timing_info.u<1>(1).ue(0).ue(cpb_cnt_minus1);
    return vps.payload();
}

TEST(Fault, OfTooManyCpbs) {
    expect_value(fault_of<h265_nal_vps>(filled(vps_with_cpbs(false, 32), 400)),
                 "hrd_parameters[0].cpb_cnt_minus1[0]", 237, 32, 0, 31);
}

// The count has 5 bits; 6 are left, for two CPBs.
TEST(Fault, OfMoreCpbsThanTheDataHold) {
    expect_value(fault_of<h265_nal_vps>(filled(vps_with_cpbs(false, 3), 248)),
                 "hrd_parameters[0].cpb_cnt_minus1[0]", 237, 3, 0, 1);
}

// The CPBs of the NAL parameters take 12 bits; 2 are left for those of the VCL parameters.
// Behind the count 14 bits are left, and the CPBs of both kinds have 3 bits each at the least: 2 of
// each kind.
TEST(Fault, OfMoreCpbsThanTheDataHoldOfTheVclParameters) {
    expect_value(fault_of<h265_nal_vps>(filled(vps_with_cpbs(true, 3), 256)),
                 "hrd_parameters[0].cpb_cnt_minus1[0]", 237, 3, 0, 1);
}

// ---- SPS

// In the smallest SPS the short-term sets stand at bit 164.

h265_fault fault_of(const test::sps_syntax& sps) {
    h2645_common_base_store<h265_nal_vps> vps_store;
    return fault_of<h265_nal_sps>(sps.payload(), vps_store);
}

TEST(Fault, OfTooManySubLayersOfAnSps) {
    test::sps_syntax sps;
    sps.header = test::bit_writer().u<4>(0).u<3>(7).u<1>(1);
    expect_value(fault_of(sps), "sps_max_sub_layers_minus1", 4, 7, 0, 6);
}

TEST(Fault, OfAnSpsIdentifier) {
    test::sps_syntax sps;
    sps.sps_seq_parameter_set_id = test::bit_writer().ue(16);
    expect_value(fault_of(sps), "sps_seq_parameter_set_id", 104, 16, 0, 15);
}

TEST(Fault, OfPictureOrderCountsOfMoreThan16Bits) {
    test::sps_syntax sps;
    sps.log2_max_pic_order_cnt_lsb_minus4 = test::bit_writer().ue(13);
    expect_value(fault_of(sps), "log2_max_pic_order_cnt_lsb_minus4", 137, 13, 0, 12);
}

TEST(Fault, OfAScalingListWithoutReference) {
    test::sps_syntax sps;
    sps.scaling_list = test::bit_writer().u<1>(1).u<1>(1).u<1>(0).ue(1);
    const char* const first = "scaling_list_data.scaling_list_pred_matrix_id_delta[0][0]";
    expect_value(fault_of(sps), first, 163, 1, 0, 0);

    sps.scaling_list = test::bit_writer().u<1>(1).u<1>(1);
    for (int matrix = 0; matrix < 19; ++matrix) {
        sps.scaling_list.u<1>(0).ue(0);
    }
    sps.scaling_list.u<1>(0).ue(2);
    const char* const last = "scaling_list_data.scaling_list_pred_matrix_id_delta[3][3]";
    expect_value(fault_of(sps), last, 162 + 19 * 2 + 1, 2, 0, 1);
}

TEST(Fault, OfTooManyShortTermSets) {
    test::sps_syntax sps;
    sps.short_term_ref_pic_sets = test::bit_writer().ue(65);
    expect_value(fault_of(sps), "num_short_term_ref_pic_sets", 164, 65, 0, 64);
}

// The count has 7 bits, 13 are left.
TEST(Fault, OfMoreShortTermSetsThanTheDataHold) {
    test::sps_syntax sps;
    sps.short_term_ref_pic_sets = test::bit_writer().ue(10).u<13>(0);
    sps.long_term_ref_pics = test::bit_writer();
    sps.motion_and_smoothing = test::bit_writer();
    sps.vui = test::bit_writer();
    sps.extension = test::bit_writer();
    expect_value(fault_of(sps), "num_short_term_ref_pic_sets", 164, 10, 0, 6);
}

TEST(Fault, OfTooManyPicturesBefore) {
    test::sps_syntax sps;
    sps.short_term_ref_pic_sets = test::bit_writer().ue(1).ue(17).ue(0);
    // The decoded picture buffer of this SPS has one picture, the current one.
    expect_value(fault_of(sps), "st_ref_pic_set[0].num_negative_pics", 167, 17, 0, 0);
}

// A decoded picture buffer of 16 pictures; its count takes 8 bits more.
TEST(Fault, OfTooManyPicturesInBothDirections) {
    test::sps_syntax sps;
    sps.sub_layer_ordering_info = test::bit_writer().u<1>(1).ue(15).ue(0).ue(0);
    sps.short_term_ref_pic_sets = test::bit_writer().ue(1).ue(15).ue(2);
    expect_value(fault_of(sps), "st_ref_pic_set[0].num_positive_pics", 184, 2, 0, 0);
}

// Set 0 has a picture at a distance of 2^15; one more is too far.
TEST(Fault, OfAPredictedPictureThatIsTooFarAway) {
    test::sps_syntax sps;
    sps.short_term_ref_pic_sets = test::bit_writer().ue(2).ue(1).ue(0).ue(32767).u<1>(1);
    sps.short_term_ref_pic_sets.u<1>(1).u<1>(1).ue(0).u<2>(0b11);
    expect_contradiction(fault_of(sps), "st_ref_pic_set[1].used_by_curr_pic_flag[1]", 207, 1);
}

// 16 pictures, and the one that they belong to.
TEST(Fault, OfTooManyPredictedPictures) {
    test::sps_syntax sps;
    sps.sub_layer_ordering_info = test::bit_writer().u<1>(1).ue(15).ue(0).ue(0);
    sps.short_term_ref_pic_sets = test::bit_writer().ue(2).ue(16).ue(0);
    for (int picture = 0; picture < 16; ++picture) {
        sps.short_term_ref_pic_sets.ue(0).u<1>(1);
    }
    sps.short_term_ref_pic_sets.u<1>(1).u<1>(1).ue(0).u<17>(0x1FFFF);
    // 8 bits more of the buffer's size; 3 of the number of sets, 10 of both counts.
    expect_contradiction(fault_of(sps), "st_ref_pic_set[1].used_by_curr_pic_flag[16]",
                         172 + 3 + 10 + 16 * 2 + 3 + 16, 1);
}

TEST(Fault, OfTooManyLongTermPicturesOfAnSps) {
    test::sps_syntax sps;
    sps.long_term_ref_pics = test::bit_writer().u<1>(1).ue(33);
    expect_value(fault_of(sps), "num_long_term_ref_pics_sps", 166, 33, 0, 32);
}

// The count has 5 bits, 13 are left.
TEST(Fault, OfMoreLongTermPicturesThanTheDataHold) {
    test::sps_syntax sps;
    sps.long_term_ref_pics = test::bit_writer().u<1>(1).ue(4).u<13>(0);
    sps.motion_and_smoothing = test::bit_writer();
    sps.vui = test::bit_writer();
    sps.extension = test::bit_writer();
    expect_value(fault_of(sps), "num_long_term_ref_pics_sps", 166, 4, 0, 2);
}

// A VUI with nothing but timing information begins at bit 169; its HRD parameters at
// 169 + 12 + 66, and cpb_cnt_minus1 another 28 bits behind.
TEST(Fault, OfTooManyCpbsOfAVui) {
    test::sps_syntax sps;
    sps.vui = test::bit_writer().u<1>(1).u<8>(0);  // up to default_display_window_flag
    sps.vui.u<1>(1).u<32>(1).u<32>(50).u<1>(0).u<1>(1);
    sps.vui.u<1>(1).u<1>(0).u<1>(0).u<4>(0).u<4>(0).u<5>(23).u<5>(23).u<5>(23);
    const std::size_t cpb_cnt_minus1 = 168 + sps.vui.size() + 2;
    sps.vui.u<1>(1).ue(0).ue(32);
    sps.extension = test::bit_writer().u<32>(0).u<32>(0).u<32>(0).u<32>(0);
    expect_value(fault_of(sps), "vui_parameters.hrd_parameters.cpb_cnt_minus1[0]", cpb_cnt_minus1,
                 32, 0, 31);
}

// ---- PPS

// In the smallest PPS the reference indices stand at bit 9, the tiles at bit 21.

h265_fault fault_of(const test::pps_syntax& pps) {
    h2645_common_base_store<h265_nal_sps> sps_store;
    return fault_of<h265_nal_pps>(pps.payload(), sps_store);
}

TEST(Fault, OfIdentifiersOfAPps) {
    test::pps_syntax pps;
    pps.identifiers = test::bit_writer().ue(64).ue(0);
    expect_value(fault_of(pps), "pps_pic_parameter_set_id", 0, 64, 0, 63);
    pps.identifiers = test::bit_writer().ue(0).ue(16);
    expect_value(fault_of(pps), "pps_seq_parameter_set_id", 1, 16, 0, 15);
}

TEST(Fault, OfTooManyReferenceIndicesOfAPps) {
    test::pps_syntax pps;
    pps.reference_indices = test::bit_writer().ue(15).ue(0);
    expect_value(fault_of(pps), "num_ref_idx_l0_default_active_minus1", 9, 15, 0, 14);
    pps.reference_indices = test::bit_writer().ue(0).ue(15);
    expect_value(fault_of(pps), "num_ref_idx_l1_default_active_minus1", 10, 15, 0, 14);
}

TEST(Fault, OfTooManyTiles) {
    test::pps_syntax pps;
    pps.tiles = test::bit_writer().u<1>(1).u<1>(0).ue(1056).ue(0).u<1>(0);
    expect_value(fault_of(pps), "num_tile_columns_minus1", 23, 1056, 0, 1055);
    // With an SPS of 5 x 2 coding tree blocks.
    auto sps_store = test::sps_store_with(0);
    sps_store.at(0).pic_width_in_luma_samples = 264;
    sps_store.at(0).pic_height_in_luma_samples = 128;
    sps_store.at(0).log2_diff_max_min_luma_coding_block_size = 3;
    expect_value(fault_of<h265_nal_pps>(pps.payload(), sps_store), "num_tile_columns_minus1", 23,
                 1056, 0, 4);

    pps.tiles = test::bit_writer().u<1>(1).u<1>(0).ue(0).ue(1056).u<1>(0);
    expect_value(fault_of(pps), "num_tile_rows_minus1", 24, 1056, 0, 1055);
    expect_value(fault_of<h265_nal_pps>(pps.payload(), sps_store), "num_tile_rows_minus1", 24, 1056,
                 0, 1);
}

// The count has 9 bits; behind uniform_spacing_flag 14 are left.
TEST(Fault, OfMoreTilesThanTheDataHold) {
    h2645_common_base_store<h265_nal_sps> sps_store;
    test::pps_syntax pps;
    pps.loop_filter_across_slices = test::bit_writer();
    pps.deblocking = test::bit_writer();
    pps.scaling_list = test::bit_writer();
    pps.lists_and_merge_level = test::bit_writer();
    pps.extension = test::bit_writer();
    pps.tiles = test::bit_writer().u<1>(1).u<1>(0).ue(20).ue(0).u<1>(0);
    expect_value(fault_of<h265_nal_pps>(filled(pps.payload(), 48), sps_store),
                 "num_tile_columns_minus1", 23, 20, 0, 14);
    pps.tiles = test::bit_writer().u<1>(1).u<1>(0).ue(0).ue(20).u<1>(0);
    expect_value(fault_of<h265_nal_pps>(filled(pps.payload(), 48), sps_store),
                 "num_tile_rows_minus1", 24, 20, 0, 14);
}

TEST(Fault, OfAScalingListOfAPps) {
    test::pps_syntax pps;
    pps.scaling_list = test::bit_writer().u<1>(1).u<1>(0).ue(0).u<1>(0).ue(2);
    // At bits 25 the flag, 26 and 27 the first matrix.
    expect_value(fault_of(pps), "scaling_list_data.scaling_list_pred_matrix_id_delta[0][1]", 29, 2,
                 0, 1);
}

// ---- Slice segment headers

// PPS 0 of SPS 0 of VPS 0, with so many empty sets; counts of 4 bits. The picture has one coding
// tree block.
struct slice_host {
    explicit slice_host(unsigned int sets) {
        vps_store[0];
        h265_nal_sps& sps = sps_store[0];
        sps.pic_width_in_luma_samples = 64;
        sps.pic_height_in_luma_samples = 64;
        sps.log2_diff_max_min_luma_coding_block_size = 3;
        sps.num_short_term_ref_pic_sets = sets;
        sps.st_ref_pic_set.resize(sets);
        pps_store[0];
    }

    h265_fault fault(const test::bit_writer& bits, h265_nal_unit_type type = TRAIL_R) {
        return fault_of<h265_slice_segment_header>(filled(bits, 128), pps_store, sps_store,
                                                   vps_store, type);
    }

    void have_candidates(unsigned int count) {
        h265_nal_sps& sps = sps_store.at(0);
        sps.long_term_ref_pics_present_flag = true;
        sps.num_long_term_ref_pics_sps = count;
        sps.lt_ref_pic_poc_lsb_sps.resize(count);
        sps.used_by_curr_pic_lt_sps_flag.resize(count);
    }

    h2645_common_base_store<h265_nal_vps> vps_store;
    h2645_common_base_store<h265_nal_sps> sps_store;
    h2645_common_base_store<h265_nal_pps> pps_store;
};

constexpr unsigned int slice_p = 1;

// Up to slice_pic_order_cnt_lsb and short_term_ref_pic_set_sps_flag, of a P slice: 10 bits.
test::bit_writer p_slice(bool short_term_ref_pic_set_sps_flag = true) {
    test::bit_writer bits;
    bits.u<1>(1).ue(0).ue(slice_p).u<4>(9).u<1>(short_term_ref_pic_set_sps_flag ? 1 : 0);
    return bits;
}

TEST(Fault, OfParameterSetsThatASliceLacks) {
    slice_host host(1);
    const auto bits = test::bit_writer().u<1>(1).ue(64);
    expect_value(host.fault(bits), "slice_pic_parameter_set_id", 1, 64, 0, 63);
    expect_missing(host.fault(test::bit_writer().u<1>(1).ue(5)), "PPS", 5,
                   "slice_pic_parameter_set_id", 1, 5);
    expect_missing(host.fault(test::bit_writer().u<1>(1).u<1>(0).ue(5), CRA_NUT), "PPS", 5,
                   "slice_pic_parameter_set_id", 2, 5);
    host.sps_store.at(0).sps_video_parameter_set_id = 9;
    expect_missing(host.fault(p_slice()), "VPS", 9, "slice_pic_parameter_set_id", 1, 0);
    host.pps_store.at(0).pps_seq_parameter_set_id = 3;
    expect_missing(host.fault(p_slice()), "SPS", 3, "slice_pic_parameter_set_id", 1, 0);
}

TEST(Fault, OfAPictureWithoutCodingTreeBlocks) {
    slice_host host(1);
    host.sps_store.at(0).pic_width_in_luma_samples = 0;
    const auto bits = test::bit_writer().u<1>(0).ue(0).u<1>(1);
    expect_contradiction(host.fault(bits), "slice_pic_parameter_set_id", 1, 0);
    host.pps_store.at(0).dependent_slice_segments_enabled_flag = true;
    expect_contradiction(host.fault(bits), "dependent_slice_segment_flag", 2, 1);
}

TEST(Fault, OfASliceType) {
    slice_host host(1);
    expect_value(host.fault(test::bit_writer().u<1>(1).ue(0).ue(3)), "slice_type", 2, 3, 0, 2);
}

TEST(Fault, OfASetThatTheSpsDoesNotHave) {
    slice_host host(5);
    expect_value(host.fault(p_slice().u<3>(5)), "short_term_ref_pic_set_idx", 10, 5, 0, 4);
    slice_host without_sets(0);
    expect_value(without_sets.fault(p_slice()), "short_term_ref_pic_set_sps_flag", 9, 1, 0, 0);
}

TEST(Fault, OfAReferenceBeforeTheFirstSet) {
    slice_host host(2);
    const auto bits = p_slice(/*short_term_ref_pic_set_sps_flag=*/false).u<1>(1).ue(2);
    expect_value(host.fault(bits), "st_ref_pic_set.delta_idx_minus1", 11, 2, 0, 1);
}

TEST(Fault, OfTooManyLongTermPictures) {
    slice_host host(1);
    host.have_candidates(4);
    expect_value(host.fault(p_slice().ue(5).ue(0)), "num_long_term_sps", 10, 5, 0, 4);
    // 13 are refused; the largest buffer holds 15 pictures beside the current one, and 4 are taken.
    expect_value(host.fault(p_slice().ue(4).ue(13)), "num_long_term_pics", 15, 13, 0, 11);
    host.have_candidates(32);
    expect_value(host.fault(p_slice().ue(17).ue(0)), "num_long_term_sps", 10, 17, 0, 16);
}

TEST(Fault, OfALongTermCandidate) {
    slice_host host(1);
    host.have_candidates(3);
    expect_value(host.fault(p_slice().ue(1).ue(0).u<2>(3)), "lt_idx_sps[0]", 14, 3, 0, 2);
    host.sps_store.at(0).lt_ref_pic_poc_lsb_sps.resize(2);
    expect_contradiction(host.fault(p_slice().ue(1).ue(0).u<2>(2)), "lt_idx_sps[0]", 14, 2);
}

TEST(Fault, OfTooManyReferenceIndices) {
    slice_host host(1);
    expect_value(host.fault(p_slice().u<1>(1).ue(15)), "num_ref_idx_l0_active_minus1", 11, 15, 0,
                 14);
    // B slice: slice_type has 1 bit.
    const auto b_slice = test::bit_writer().u<1>(1).ue(0).ue(0).u<4>(9).u<1>(1);
    expect_value(host.fault(test::bit_writer(b_slice).u<1>(1).ue(0).ue(15)),
                 "num_ref_idx_l1_active_minus1", 10, 15, 0, 14);
    // As a host may have it.
    host.pps_store.at(0).num_ref_idx_l0_default_active_minus1 = 15;
    const h265_fault fault = host.fault(p_slice().u<1>(0));
    EXPECT_EQ(fault.kind, kind::value);
    EXPECT_EQ(place_of(fault), "num_ref_idx_l0_active_minus1");
    EXPECT_EQ(fault.value, 15);
    EXPECT_EQ(fault.highest, 14);
}

// ---- SEI messages, access unit delimiter

TEST(Fault, OfActiveParameterSets) {
    h2645_common_base_store<h265_nal_vps> store;
    using record = h265_nal_sei_active_parameter_sets;
    expect_missing(fault_of<record>(test::bit_writer().u<4>(3), store), "VPS", 3,
                   "active_video_parameter_set_id", 0, 3);
    store[3];
    expect_value(fault_of<record>(test::bit_writer().u<4>(3).u<2>(0).ue(16), store),
                 "num_sps_ids_minus1", 6, 16, 0, 15);
    expect_value(fault_of<record>(test::bit_writer().u<4>(3).u<2>(0).ue(0).ue(16), store),
                 "active_seq_parameter_set_id[0]", 7, 16, 0, 15);
}

// Delays of 24 bits, as they are inferred.
TEST(Fault, OfABufferingPeriod) {
    h2645_common_base_store<h265_nal_sps> store;
    using record = h265_nal_sei_buffering_period;
    expect_value(fault_of<record>(test::bit_writer().ue(16), store), "bp_seq_parameter_set_id", 0,
                 16, 0, 15);
    expect_missing(fault_of<record>(test::bit_writer().ue(2), store), "SPS", 2,
                   "bp_seq_parameter_set_id", 0, 2);
    h265_hrd_parameters& hrd = store[2].vui_parameters.hrd_parameters;
    hrd.au_cpb_removal_delay_length_minus1 = 23;
    const auto bits = test::bit_writer().ue(2).u<1>(0).u<1>(0).u<24>(7).u<32>(0);
    expect_contradiction(fault_of<record>(bits, store), "au_cpb_removal_delay_delta_minus1", 5, 7);
    hrd.cpb_cnt_minus1 = {32};
    const h265_fault fault = fault_of<record>(bits, store);
    EXPECT_EQ(fault.kind, kind::value);
    EXPECT_EQ(place_of(fault), "CpbCnt");
    EXPECT_EQ(fault.value, 33);
    EXPECT_EQ(fault.highest, 32);
}

// A picture of 4 coding tree blocks; 5, 6 and 7 bits of delays, increments of 8.
h265_nal_sps sps_with_decoding_units() {
    h265_nal_sps sps;
    sps.pic_width_in_luma_samples = 256;
    sps.pic_height_in_luma_samples = 64;
    sps.log2_diff_max_min_luma_coding_block_size = 3;
    h265_hrd_parameters& hrd = sps.vui_parameters.hrd_parameters;
    hrd.nal_hrd_parameters_present_flag = true;
    hrd.sub_pic_hrd_params_present_flag = true;
    hrd.sub_pic_cpb_params_in_pic_timing_sei_flag = true;
    hrd.au_cpb_removal_delay_length_minus1 = 4;
    hrd.dpb_output_delay_length_minus1 = 5;
    hrd.dpb_output_delay_du_length_minus1 = 6;
    hrd.du_cpb_removal_delay_increment_length_minus1 = 7;
    return sps;
}

TEST(Fault, OfPictureTiming) {
    using record = h265_nal_sei_pic_timing;
    h265_nal_sps sps = sps_with_decoding_units();
    const auto with_units = [](unsigned int num_decoding_units_minus1) {
        return test::bit_writer().u<18>(0).ue(num_decoding_units_minus1).u<1>(1).u<8>(0);
    };
    expect_value(fault_of<record>(filled(with_units(4), 80), sps), "num_decoding_units_minus1", 18,
                 4, 0, 3);
    sps.pic_width_in_luma_samples = 64 * 200;
    // The count has 7 bits; 6 are left.
    expect_value(fault_of<record>(filled(with_units(9), 40), sps), "num_decoding_units_minus1", 18,
                 9, 0, 5);
    // 200000 blocks; no picture has more than 139264.
    sps.pic_width_in_luma_samples = 64 * 200000;
    expect_value(fault_of<record>(filled(with_units(139264), 200000), sps),
                 "num_decoding_units_minus1", 18, 139264, 0, 139263);

    h2645_common_base_store<h265_nal_sps> store;
    store.active_id = 7;
    expect_missing(fault_of<record>(with_units(0), store), "SPS", 7, "", 0, 0);
}

TEST(Fault, OfAnAccessUnitDelimiter) {
    expect_fault(fault_of<h265_nal_aud>(test::bit_writer()), kind::data_ended, "pic_type", 0, 0);
    const h265_fault stop = fault_of<h265_nal_aud>(test::bit_writer().u<8>(0b001'0'0000));
    expect_fault(stop, kind::trailing_bits, "rbsp_stop_one_bit", 3, 0);
    EXPECT_EQ(stop.lowest, 1);
    EXPECT_EQ(stop.highest, 1);
    const h265_fault padding = fault_of<h265_nal_aud>(test::bit_writer().u<8>(0b001'1'0100));
    expect_fault(padding, kind::trailing_bits, "rbsp_alignment_zero_bit", 5, 1);
    EXPECT_EQ(padding.lowest, 0);
    EXPECT_EQ(padding.highest, 0);
}

// ---- Structures by themselves

TEST(Fault, OfArgumentsThatNoStructureHas) {
    const auto bits = test::bit_writer().u<32>(0).u<32>(0).u<32>(0);
    test::rbsp ptl_input{bits.bytes()};
    h265_profile_tier_level ptl;
    h265_fault fault;
    EXPECT_FALSE(ptl.parse_standard(true, 7, ptl_input.reader, &fault));
    expect_value(fault, "maxNumSubLayersMinus1", 96, 7, 0, 6);

    test::rbsp hrd_input{bits.bytes()};
    h265_hrd_parameters hrd;
    EXPECT_FALSE(hrd.parse_standard(true, 7, hrd_input.reader, &fault));
    expect_value(fault, "maxNumSubLayersMinus1", 2, 7, 0, 6);

    // 33 CPBs are cpb_cnt_minus1 32.
    test::rbsp sub_layer_input{bits.bytes()};
    h265_nal_sub_layer_hrd_parameters sub_layer;
    EXPECT_FALSE(sub_layer.parse_standard(2, 33, hrd, sub_layer_input.reader, &fault));
    expect_value(fault, "cpb_cnt_minus1[2]", 0, 32, 0, 31);

    test::rbsp lists_input{bits.bytes()};
    h265_ref_pic_lists_modification lists;
    h265_slice_segment_header header;
    EXPECT_FALSE(lists.parse_standard(lists_input.reader, header, &fault));
    expect_contradiction(fault, "", 0, 0);
    header.NumPicTotalCurr = 2;
    header.num_ref_idx_l1_active_minus1 = 15;
    EXPECT_FALSE(lists.parse_standard(lists_input.reader, header, &fault));
    expect_value(fault, "num_ref_idx_l1_active_minus1", 0, 15, 0, 14);
}

// The reference is not there, or does not have what its counts say.
TEST(Fault, OfASetThatIsPredictedFromNothing) {
    h265_nal_sps sps;
    sps.num_short_term_ref_pic_sets = 3;
    std::vector<h265_st_ref_pic_set> sets;
    const auto bits = test::bit_writer().u<1>(1).u<1>(0).ue(4).u<8>(0xFF);
    const auto fault_of_set = [&] {
        test::rbsp input{bits.bytes()};
        h265_st_ref_pic_set set;
        h265_fault fault;
        EXPECT_FALSE(set.parse_standard(input.reader, sps, 1, sets, &fault));
        return fault;
    };
    expect_contradiction(fault_of_set(), "abs_delta_rps_minus1", 2, 4);
    sets.resize(1);
    sets[0].num_negative_pics = 1;
    sets[0].NumDeltaPocs = 1;
    expect_contradiction(fault_of_set(), "abs_delta_rps_minus1", 2, 4);
}

// ---- Trailing bits

// Everything before them was read, and the parameter set stands.
TEST(Fault, OfTrailingBitsIsToldOfAParameterSetThatWasRead) {
    test::rbsp vps_input{test::vps_syntax{}.payload().u<8>(0).bytes()};
    h265_nal_vps vps;
    h265_fault fault;
    EXPECT_TRUE(vps.parse_standard(vps_input.reader, &fault));
    EXPECT_TRUE(vps.valid);
    expect_fault(fault, kind::trailing_bits, "rbsp_stop_one_bit", 141, 0);

    test::rbsp sps_input{test::sps_syntax{}.payload().u<6>(0b101000).bytes()};
    h265_nal_sps sps;
    h2645_common_base_store<h265_nal_vps> vps_store;
    EXPECT_TRUE(sps.parse_standard(sps_input.reader, vps_store, &fault));
    EXPECT_TRUE(sps.valid);
    expect_fault(fault, kind::trailing_bits, "rbsp_alignment_zero_bit", 172, 1);
    EXPECT_EQ(fault.lowest, 0);
    EXPECT_EQ(fault.highest, 0);

    // None at all: 30 bits, the last two of the byte among them.
    test::rbsp pps_input{test::pps_syntax{}.payload().bytes()};
    h265_nal_pps pps;
    h2645_common_base_store<h265_nal_sps> sps_store;
    EXPECT_TRUE(pps.parse_standard(pps_input.reader, sps_store, &fault));
    EXPECT_TRUE(pps.valid);
    expect_fault(fault, kind::trailing_bits, "rbsp_stop_one_bit",
                 test::pps_syntax{}.payload().size(), 0);
}

TEST(Fault, IsNoneAfterASoundParse) {
    h265_fault fault;
    fault.kind = kind::value;
    fault.structure_count = 3;
    test::rbsp input{test::vps_syntax{}.rbsp().bytes()};
    h265_nal_vps vps;
    EXPECT_TRUE(vps.parse_standard(input.reader, &fault));
    EXPECT_EQ(fault.kind, kind::none);
    EXPECT_EQ(fault.structure_count, 0U);
}

// ---- Texts

TEST(Fault, HasALineOfTextOfEachKind) {
    EXPECT_EQ(to_string(h265_fault()), "no fault");
    EXPECT_EQ(to_string(fault_of<h265_nal_aud>(test::bit_writer())),
              "the data ends before the end of pic_type at bit 0");
    EXPECT_EQ(to_string(fault_of<h265_nal_aud>(test::bit_writer().u<8>(0))),
              "malformed trailing bits: rbsp_stop_one_bit at bit 3 is 0");
    test::sps_syntax sps;
    sps.scaling_list = test::bit_writer().u<1>(1).u<1>(1).u<1>(0).ue(0).u<1>(0).ue(2);
    EXPECT_EQ(to_string(fault_of(sps)),
              "scaling_list_data.scaling_list_pred_matrix_id_delta[0][1] at bit 165 is 2; allowed: "
              "0 to 1");
    test::sps_syntax old_sps;
    old_sps.extension = test::bit_writer().u<1>(1).u<3>(0b101);
    h2645_common_base_store<h265_nal_vps> no_vps;
    h265_fault unknown;
    test::rbsp old_input{old_sps.rbsp().bytes()};
    EXPECT_TRUE(h265_nal_sps().parse_standard(old_input.reader, no_vps, &unknown));
    EXPECT_EQ(to_string(unknown),
              "kept as data: no extension that is known follows sps_extension_present_flag at bit "
              "169");
    slice_host host(1);
    EXPECT_EQ(to_string(host.fault(test::bit_writer().u<1>(1).ue(5))),
              "PPS 5 is missing, needed by slice_pic_parameter_set_id at bit 1");
    host.sps_store.at(0).pic_width_in_luma_samples = 0;
    EXPECT_EQ(to_string(host.fault(test::bit_writer().u<1>(0).ue(0))),
              "slice_pic_parameter_set_id at bit 1 is 0; reading cannot go on from there");
    h265_nal_sei_pic_timing timing;
    h2645_common_base_store<h265_nal_sps> empty_sps_store;
    h265_fault missing;
    test::rbsp none{};
    EXPECT_FALSE(timing.parse_standard(none.reader, empty_sps_store, &missing));
    EXPECT_EQ(to_string(missing), "no SPS is active");
    empty_sps_store.active_id = 3;
    EXPECT_FALSE(timing.parse_standard(none.reader, empty_sps_store, &missing));
    EXPECT_EQ(to_string(missing), "SPS 3 is missing");
    h265_fault no_memory;
    no_memory.kind = kind::no_memory;
    no_memory.structures[0] = {"", "hrd_parameters", {3}, 1};
    no_memory.structure_count = 1;
    no_memory.element = {"sub_layer_", "level_idc", {1}, 1};
    no_memory.first_bit = 77;
    EXPECT_EQ(to_string(no_memory),
              "not enough memory after hrd_parameters[3].sub_layer_level_idc[1] at bit 77");
}

}  // namespace
}  // namespace kovran
