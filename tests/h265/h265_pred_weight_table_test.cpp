#include <kovran/h265/h265_pred_weight_table.h>

#include <kovran/h265/h265_picture_format.h>
#include <kovran/h265/h265_slice_segment_header.h>
#include <kovran/h265/h265_trace.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <string>
#include <type_traits>
#include <vector>

#include "support/bit_writer.h"
#include "support/rbsp.h"
#include "support/slice_stores.h"

namespace kovran {
namespace {

using numbers = h265_pred_weight_table::entries<int>;
using flags = h265_pred_weight_table::entries<bool>;
using pairs = h265_pred_weight_table::entries<std::array<int, 2>>;
using names = std::vector<std::string>;

pairs cb_and_cr(std::initializer_list<std::array<int, 2>> first_entries) {
    pairs all{};
    std::copy(first_entries.begin(), first_entries.end(), all.begin());
    return all;
}

constexpr unsigned int slice_b = 0;
constexpr unsigned int slice_p = 1;

// A host whose P and B slices have weights.
struct host : test::slice_stores {
    host() {
        sps().num_short_term_ref_pic_sets = 1;
        sps().st_ref_pic_set.resize(1);
        pps().weighted_pred_flag = true;
        pps().weighted_bipred_flag = true;
    }

    // So many pictures before the current one; the current one itself follows them.
    void refer_to_current_picture(unsigned int others) {
        pps().pps_scc_extension.pps_curr_pic_ref_enabled_flag = true;
        h265_st_ref_pic_set& set = sps().st_ref_pic_set[0];
        set.num_negative_pics = others;
        set.used_by_curr_pic_s0_flag.assign(others, true);
    }

    // What follows the table is added; it tells that the table ends where it should.
    h265_pred_weight_table parsed(test::bit_writer bits, h265_nal_unit_type type = TRAIL_R) {
        bits.ue(3).se(-11).trailing_bits();  // byte_alignment() is the same
        test::rbsp input{bits.bytes()};
        h265_slice_segment_header slice;
        EXPECT_TRUE(
            slice.parse_standard(input.reader, pps_store, sps_store, vps_store, type, trace));
        EXPECT_EQ(slice.five_minus_max_num_merge_cand, 3U);
        EXPECT_EQ(slice.slice_qp_delta, -11);
        EXPECT_EQ(input.reader.bit_position(), bits.size());
        return slice.pred_weight_table;
    }

    names out_of_range() const {
        names found;
        for (const h265_traced_element& element : trace.elements) {
            if (element.out_of_range) {
                found.push_back(path_of(trace, element));
            }
        }
        return found;
    }

    h265_trace trace;
};

// Up to the table, with so many entries in each list.
test::bit_writer p_slice(unsigned int entries) {
    test::bit_writer bits = test::bit_writer().u<1>(1).ue(0).ue(slice_p).u<4>(9).u<1>(1);
    return bits.u<1>(1).ue(entries - 1);
}

test::bit_writer b_slice(unsigned int entries_of_list_0, unsigned int entries_of_list_1) {
    test::bit_writer bits = test::bit_writer().u<1>(1).ue(0).ue(slice_b).u<4>(9).u<1>(1);
    return bits.u<1>(1).ue(entries_of_list_0 - 1).ue(entries_of_list_1 - 1).u<1>(0);
}

// ---- Reading

TEST(H265PredWeightTable, IsAnAggregate) {
    static_assert(std::is_aggregate_v<h265_pred_weight_table>);
}

// All luma flags, then all chroma flags, then the values by entry: luma, Cb, Cr.
TEST(H265PredWeightTable, ReadsTheWeightsOfAPSlice) {
    host stream;
    test::bit_writer bits = p_slice(3).ue(6).se(-2).u<3>(0b101).u<3>(0b011);
    bits.se(-128).se(127);                // luma of entry 0
    bits.se(1).se(2).se(-3).se(4);        // Cb and Cr of entry 1
    bits.se(-5).se(6);                    // luma of entry 2
    bits.se(127).se(-512).se(7).se(511);  // Cb and Cr of entry 2
    const auto table = stream.parsed(bits);
    EXPECT_EQ(table.luma_log2_weight_denom, 6U);
    EXPECT_EQ(table.delta_chroma_log2_weight_denom, -2);
    EXPECT_EQ(table.luma_weight_l0_flag, (flags{true, false, true}));
    EXPECT_EQ(table.chroma_weight_l0_flag, (flags{false, true, true}));
    EXPECT_EQ(table.delta_luma_weight_l0, (numbers{-128, 0, -5}));
    EXPECT_EQ(table.luma_offset_l0, (numbers{127, 0, 6}));
    EXPECT_EQ(table.delta_chroma_weight_l0, cb_and_cr({{0, 0}, {1, -3}, {127, 7}}));
    EXPECT_EQ(table.delta_chroma_offset_l0, cb_and_cr({{0, 0}, {2, 4}, {-512, 511}}));
    EXPECT_EQ(table.luma_weight_l1_flag, flags{});
    EXPECT_EQ(table.chroma_weight_l1_flag, flags{});
    EXPECT_EQ(table.delta_luma_weight_l1, numbers{});
    EXPECT_EQ(table.luma_offset_l1, numbers{});
    EXPECT_EQ(table.delta_chroma_weight_l1, pairs{});
    EXPECT_EQ(table.delta_chroma_offset_l1, pairs{});
    EXPECT_TRUE(table.present);
    EXPECT_EQ(stream.out_of_range(), names());
}

TEST(H265PredWeightTable, ReadsBothListsOfABSlice) {
    host stream;
    test::bit_writer bits = b_slice(1, 2).ue(0).se(0);
    bits.u<1>(1).u<1>(1).se(1).se(2).se(3).se(4).se(5).se(6);  // list 0
    bits.u<2>(0b01).u<2>(0b10);
    bits.se(-1).se(-2).se(-3).se(-4);  // chroma of entry 0
    bits.se(-5).se(-6);                // luma of entry 1
    const auto table = stream.parsed(bits);
    EXPECT_EQ(table.luma_weight_l0_flag, flags{true});
    EXPECT_EQ(table.delta_luma_weight_l0, numbers{1});
    EXPECT_EQ(table.luma_offset_l0, numbers{2});
    EXPECT_EQ(table.delta_chroma_weight_l0, cb_and_cr({{3, 5}}));
    EXPECT_EQ(table.delta_chroma_offset_l0, cb_and_cr({{4, 6}}));
    EXPECT_EQ(table.luma_weight_l1_flag, (flags{false, true}));
    EXPECT_EQ(table.chroma_weight_l1_flag, (flags{true, false}));
    EXPECT_EQ(table.delta_luma_weight_l1, (numbers{0, -5}));
    EXPECT_EQ(table.luma_offset_l1, (numbers{0, -6}));
    EXPECT_EQ(table.delta_chroma_weight_l1, cb_and_cr({{-1, -3}, {0, 0}}));
    EXPECT_EQ(table.delta_chroma_offset_l1, cb_and_cr({{-2, -4}, {0, 0}}));
}

TEST(H265PredWeightTable, IsReadWhereThePpsSaysSoOfTheSliceType) {
    host stream;
    stream.pps().weighted_bipred_flag = false;
    EXPECT_FALSE(stream.parsed(b_slice(1, 1)).present);
    EXPECT_TRUE(stream.parsed(p_slice(1).ue(0).se(0).u<2>(0)).present);
    stream.pps().weighted_bipred_flag = true;
    stream.pps().weighted_pred_flag = false;
    EXPECT_FALSE(stream.parsed(p_slice(1)).present);
    EXPECT_TRUE(stream.parsed(b_slice(1, 1).ue(0).se(0).u<2>(0).u<2>(0)).present);
}

TEST(H265PredWeightTable, HasNoChromaInMonochromePictures) {
    host stream;
    stream.sps().chroma_format_idc = 0;
    const auto table = stream.parsed(p_slice(2).ue(5).u<2>(0b01).se(3).se(4));
    EXPECT_EQ(table.luma_log2_weight_denom, 5U);
    EXPECT_EQ(table.delta_chroma_log2_weight_denom, 0);
    EXPECT_EQ(table.luma_weight_l0_flag, (flags{false, true}));
    EXPECT_EQ(table.chroma_weight_l0_flag, (flags{false, false}));
    EXPECT_EQ(table.delta_luma_weight_l0, (numbers{0, 3}));
    EXPECT_EQ(table.delta_chroma_weight_l0, cb_and_cr({{0, 0}, {0, 0}}));
}

// colour_plane_id stands before slice_pic_order_cnt_lsb.
TEST(H265PredWeightTable, HasNoChromaInSeparateColourPlanes) {
    host stream;
    stream.sps().chroma_format_idc = 3;
    stream.sps().separate_colour_plane_flag = true;
    test::bit_writer bits = test::bit_writer().u<1>(1).ue(0).ue(slice_p).u<2>(1).u<4>(9).u<1>(1);
    const auto table = stream.parsed(bits.u<1>(0).ue(5).u<1>(1).se(3).se(4));
    EXPECT_EQ(table.luma_weight_l0_flag, flags{true});
    EXPECT_EQ(table.chroma_weight_l0_flag, flags{false});
    EXPECT_EQ(table.luma_offset_l0, numbers{4});
}

// ---- The current picture in a list, which has no flags

// Flags of one bit each, all of them 0 in chroma. Which of so many entries have a luma flag is told
// by those that are set.
flags luma_flags_of(host& stream, const test::bit_writer& up_to_table, unsigned int coded_entries) {
    test::bit_writer bits = up_to_table;
    bits.ue(0).se(0);
    for (unsigned int i = 0; i < coded_entries; ++i) {
        bits.u<1>(1);
    }
    for (unsigned int i = 0; i < coded_entries; ++i) {
        bits.u<1>(0);
    }
    for (unsigned int i = 0; i < coded_entries; ++i) {
        bits.se(1).se(2);
    }
    return stream.parsed(bits).luma_weight_l0_flag;
}

TEST(H265PredWeightTable, HasNoFlagsOfTheOnlyPictureOfAnIdrSlice) {
    host stream;
    stream.refer_to_current_picture(3);  // of a set that an IDR picture does not have
    for (unsigned int entries = 1; entries <= 3; ++entries) {
        test::bit_writer bits = test::bit_writer().u<1>(1).u<1>(0).ue(0).ue(slice_p);
        bits.u<1>(1).ue(entries - 1).ue(2).se(1);
        const auto table = stream.parsed(bits, IDR_W_RADL);
        EXPECT_EQ(table.luma_weight_l0_flag, flags{});
        EXPECT_EQ(table.chroma_weight_l0_flag, flags{});
    }
}

// The pictures are A, B and the current one, C.
TEST(H265PredWeightTable, HasNoFlagsWhereAListComesToTheCurrentPicture) {
    host stream;
    stream.refer_to_current_picture(2);
    EXPECT_EQ(luma_flags_of(stream, p_slice(3), 2), (flags{true, true, false}));  // A B C
    // A B C A B C A
    EXPECT_EQ(luma_flags_of(stream, p_slice(7), 5),
              (flags{true, true, false, true, true, false, true}));
}

TEST(H265PredWeightTable, HasTheCurrentPictureLastInAShortListZero) {
    host stream;
    stream.refer_to_current_picture(2);
    EXPECT_EQ(luma_flags_of(stream, p_slice(2), 1), (flags{true, false}));  // A C
    EXPECT_EQ(luma_flags_of(stream, p_slice(1), 0), flags{false});          // C
}

// List 1 is cut off: A B, but list 0 is A C.
TEST(H265PredWeightTable, HasNoCurrentPictureInAShortListOne) {
    host stream;
    stream.refer_to_current_picture(2);
    test::bit_writer bits = b_slice(2, 2).ue(0).se(0);
    bits.u<1>(1).u<1>(0).se(1).se(2);
    bits.u<2>(0b11).u<2>(0).se(3).se(4).se(5).se(6);
    const auto table = stream.parsed(bits);
    EXPECT_EQ(table.luma_weight_l0_flag, (flags{true, false}));
    EXPECT_EQ(table.luma_weight_l1_flag, (flags{true, true}));
    EXPECT_EQ(table.delta_luma_weight_l1, (numbers{3, 5}));
}

TEST(H265PredWeightTable, HasNoFlagsWhereListOneComesToTheCurrentPicture) {
    host stream;
    stream.refer_to_current_picture(1);
    test::bit_writer bits = b_slice(1, 4).ue(0).se(0);  // C; A C A C
    const auto table = stream.parsed(bits.u<2>(0b01).u<2>(0).se(7).se(8));
    EXPECT_EQ(table.luma_weight_l0_flag, flags{false});
    EXPECT_EQ(table.luma_weight_l1_flag, (flags{false, false, true, false}));
    EXPECT_EQ(table.luma_offset_l1, (numbers{0, 0, 8, 0}));
}

// A modified list says which entries are the current picture, number 2, and has no rule of its own
// for the last.
TEST(H265PredWeightTable, GoesByTheEntriesOfAModifiedList) {
    host stream;
    stream.refer_to_current_picture(2);
    stream.pps().lists_modification_present_flag = true;
    test::bit_writer modified = p_slice(4).u<1>(1);
    modified.u<2>(2).u<2>(0).u<2>(2).u<2>(1);  // C A C B
    EXPECT_EQ(luma_flags_of(stream, modified, 2), (flags{false, true, false, true}));
    test::bit_writer shorter = p_slice(2).u<1>(1).u<2>(1).u<2>(0);  // B A
    EXPECT_EQ(luma_flags_of(stream, shorter, 2), (flags{true, true}));
    test::bit_writer unmodified = p_slice(2).u<1>(0);  // A C
    EXPECT_EQ(luma_flags_of(stream, unmodified, 1), (flags{true, false}));
}

TEST(H265PredWeightTable, GoesByTheEntriesOfAModifiedListOne) {
    host stream;
    stream.refer_to_current_picture(1);
    stream.pps().lists_modification_present_flag = true;
    test::bit_writer bits = test::bit_writer().u<1>(1).ue(0).ue(slice_b).u<4>(9).u<1>(1);
    bits.u<1>(1).ue(0).ue(1).u<1>(0).u<1>(1).u<1>(1).u<1>(0);  // list 0 is C, list 1 is C A
    bits.u<1>(0).ue(0).se(0);                                  // mvd_l1_zero_flag, denominators
    const auto table = stream.parsed(bits.u<1>(1).u<1>(0).se(7).se(8));
    EXPECT_EQ(table.luma_weight_l0_flag, flags{false});
    EXPECT_EQ(table.luma_weight_l1_flag, (flags{false, true}));
}

// Long-term pictures stand before the current one as well.
TEST(H265PredWeightTable, CountsLongTermPicturesBeforeTheCurrentOne) {
    host stream;
    stream.refer_to_current_picture(1);
    stream.sps().long_term_ref_pics_present_flag = true;
    test::bit_writer bits = test::bit_writer().u<1>(1).ue(0).ue(slice_p).u<4>(9).u<1>(1);
    bits.ue(1).u<4>(3).u<1>(1).u<1>(0);
    EXPECT_EQ(luma_flags_of(stream, bits.u<1>(1).ue(2), 2), (flags{true, true, false}));
}

// Three pictures have the numbers 0 to 2. Reading goes on with the list repeated: 3 is A.
TEST(H265PredWeightTable, TakesAnEntryBeyondThePictures) {
    host stream;
    stream.refer_to_current_picture(2);
    stream.pps().lists_modification_present_flag = true;
    const test::bit_writer bits = p_slice(1).u<1>(1).u<2>(3);  // A again
    EXPECT_EQ(luma_flags_of(stream, bits, 1), flags{true});
    EXPECT_EQ(stream.out_of_range(), names{"ref_pic_lists_modification.list_entry_l0[0]"});
}

// ---- Ranges

// The offsets of a P slice with one entry.
struct offsets {
    int luma;
    int chroma;
};

names offsets_out_of_range(host& stream, const offsets& coded) {
    test::bit_writer bits = p_slice(1).ue(0).se(0).u<1>(1).u<1>(1).se(0).se(coded.luma);
    const auto table = stream.parsed(bits.se(0).se(coded.chroma).se(0).se(0));
    EXPECT_EQ(table.luma_offset_l0[0], coded.luma);
    EXPECT_EQ(table.delta_chroma_offset_l0[0][0], coded.chroma);
    return stream.out_of_range();
}

// 8 bits are the precision, unless it is high: that of the samples then.
TEST(H265PredWeightTable, HasOffsetsOfThePrecisionOfTheSps) {
    struct {
        bool high_precision;
        unsigned int bit_depth_luma_minus8, bit_depth_chroma_minus8;
        int luma, chroma;
    } const cases[] = {{false, 0, 0, 128, 512},     {false, 4, 2, 128, 512},
                       {true, 0, 0, 128, 512},      {true, 4, 2, 2048, 2048},
                       {true, 2, 4, 512, 8192},     {true, 8, 8, 32768, 131072},
                       {true, 9, 99, 32768, 131072}};
    const names of_luma{"pred_weight_table.luma_offset_l0[0]"};
    const names of_chroma{"pred_weight_table.delta_chroma_offset_l0[0][0]"};
    for (const auto& each : cases) {
        SCOPED_TRACE(each.luma);
        host stream;
        h265_nal_sps& sps = stream.sps();
        sps.sps_range_extension.high_precision_offsets_enabled_flag = each.high_precision;
        sps.bit_depth_luma_minus8 = each.bit_depth_luma_minus8;
        sps.bit_depth_chroma_minus8 = each.bit_depth_chroma_minus8;
        EXPECT_EQ(offsets_out_of_range(stream, {each.luma - 1, each.chroma - 1}), names());
        EXPECT_EQ(offsets_out_of_range(stream, {-each.luma, -each.chroma}), names());
        EXPECT_EQ(offsets_out_of_range(stream, {each.luma, 0}), of_luma);
        EXPECT_EQ(offsets_out_of_range(stream, {-each.luma - 1, 0}), of_luma);
        EXPECT_EQ(offsets_out_of_range(stream, {0, each.chroma}), of_chroma);
        EXPECT_EQ(offsets_out_of_range(stream, {0, -each.chroma - 1}), of_chroma);
        EXPECT_EQ(h265_wp_offset_half_range_luma(sps), each.luma);
        EXPECT_EQ(h265_wp_offset_half_range_chroma(sps), each.chroma / 4);
    }
}

// A slice may have 24 weights: one for each luma flag, two for each chroma flag.
void add_list(test::bit_writer& bits, unsigned int entries, unsigned int luma,
              unsigned int chroma) {
    for (const unsigned int set : {luma, chroma}) {
        for (unsigned int i = 0; i < entries; ++i) {
            bits.u<1>(i < set ? 1 : 0);
        }
    }
    for (unsigned int i = 0; i < 2 * luma + 4 * chroma; ++i) {
        bits.se(0);
    }
}

names flags_out_of_range(unsigned int luma, unsigned int chroma) {
    host stream;
    test::bit_writer bits = p_slice(15).ue(0).se(0);
    add_list(bits, 15, luma, chroma);
    stream.parsed(bits);
    return stream.out_of_range();
}

TEST(H265PredWeightTable, Has24WeightsAtTheMost) {
    EXPECT_EQ(flags_out_of_range(14, 5), names());
    EXPECT_EQ(flags_out_of_range(0, 12), names());
    EXPECT_EQ(flags_out_of_range(15, 5), names{"pred_weight_table.chroma_weight_l0_flag[4]"});
    EXPECT_EQ(flags_out_of_range(0, 13), names{"pred_weight_table.chroma_weight_l0_flag[12]"});
    EXPECT_EQ(flags_out_of_range(15, 6), (names{"pred_weight_table.chroma_weight_l0_flag[4]",
                                                "pred_weight_table.chroma_weight_l0_flag[5]"}));
}

TEST(H265PredWeightTable, Has24WeightsInBothListsTogether) {
    for (const unsigned int luma_of_list_1 : {2U, 3U}) {
        host stream;
        test::bit_writer bits = b_slice(8, 4).ue(0).se(0);
        add_list(bits, 8, 8, 7);
        add_list(bits, 4, luma_of_list_1, 0);
        stream.parsed(bits);
        EXPECT_EQ(stream.out_of_range(), luma_of_list_1 == 2
                                             ? names()
                                             : names{"pred_weight_table.luma_weight_l1_flag[2]"});
    }
}

// ---- Derived variables

// Denominators of 2^5 for luma and 2^3 for chroma.
TEST(H265PredWeightTable, AddsWeightsToTheirDenominators) {
    h265_pred_weight_table table;
    table.luma_log2_weight_denom = 5;
    table.delta_chroma_log2_weight_denom = -2;
    table.delta_luma_weight_l0 = {0, -128};
    table.delta_luma_weight_l1 = {127};
    table.delta_chroma_weight_l0 = cb_and_cr({{1, -2}});
    table.delta_chroma_weight_l1 = cb_and_cr({{0, 0}, {-128, 127}});
    EXPECT_EQ(table.LumaWeightL0(0), 32);
    EXPECT_EQ(table.LumaWeightL0(1), -96);
    EXPECT_EQ(table.LumaWeightL1(0), 159);
    EXPECT_EQ(table.ChromaWeightL0(0, 0), 9);
    EXPECT_EQ(table.ChromaWeightL0(0, 1), 6);
    EXPECT_EQ(table.ChromaWeightL1(0, 0), 8);
    EXPECT_EQ(table.ChromaWeightL1(1, 0), -120);
    EXPECT_EQ(table.ChromaWeightL1(1, 1), 135);
}

// 128 + 10 - ((128 * 9) >> 3) is -6. 128 - 20 - ((128 * 6) >> 3) is 12. In 10 bits of high
// precision, 512 + 10 - ((512 * 9) >> 3) is -54.
TEST(H265PredWeightTable, DerivesChromaOffsets) {
    h265_pred_weight_table table;
    table.luma_log2_weight_denom = 3;
    table.delta_chroma_weight_l0 = cb_and_cr({{1, -2}});
    table.delta_chroma_offset_l0 = cb_and_cr({{10, -20}});
    EXPECT_EQ(table.ChromaOffsetL0(0, 0, 128), -6);
    EXPECT_EQ(table.ChromaOffsetL0(0, 1, 128), 12);
    EXPECT_EQ(table.ChromaOffsetL0(0, 0, 512), -54);
}

// Weights of 0, 129, -1 and 128, which is 2^7.
TEST(H265PredWeightTable, MovesChromaOffsetsByTheirWeights) {
    h265_pred_weight_table table;
    table.luma_log2_weight_denom = 7;
    table.delta_chroma_weight_l1 = cb_and_cr({{-128, 1}, {-129, 0}});  // 0, 129; -1, 128
    table.delta_chroma_offset_l1 = cb_and_cr({{-5, 5}, {-200, 0}});
    EXPECT_EQ(table.ChromaOffsetL1(0, 0, 128), 123);
    EXPECT_EQ(table.ChromaOffsetL1(0, 1, 128), 4);
    EXPECT_EQ(table.ChromaOffsetL1(1, 0, 128), -71);  // 128 - 200 + 1
    EXPECT_EQ(table.ChromaOffsetL1(1, 1, 128), 0);
}

TEST(H265PredWeightTable, KeepsChromaOffsetsInTheirRange) {
    h265_pred_weight_table table;
    table.delta_chroma_weight_l0 = cb_and_cr({{0, 0}});
    table.delta_chroma_offset_l0 = cb_and_cr({{127, 128}});
    EXPECT_EQ(table.ChromaOffsetL0(0, 0, 128), 127);
    EXPECT_EQ(table.ChromaOffsetL0(0, 1, 128), 127);
    table.delta_chroma_offset_l0 = cb_and_cr({{-128, -129}});
    EXPECT_EQ(table.ChromaOffsetL0(0, 0, 128), -128);
    EXPECT_EQ(table.ChromaOffsetL0(0, 1, 128), -128);
    table.delta_chroma_offset_l0 = cb_and_cr({{511, -512}});
    EXPECT_EQ(table.ChromaOffsetL0(0, 0, 128), 127);
    EXPECT_EQ(table.ChromaOffsetL0(0, 1, 128), -128);
}

TEST(H265PredWeightTable, CutsAbsurdDenominatorsOff) {
    h265_pred_weight_table table;
    table.luma_log2_weight_denom = 0xFFFFFFFF;
    table.delta_luma_weight_l0 = {1};
    table.delta_chroma_weight_l0 = cb_and_cr({{2, 0x7FFFFFFF}});
    table.delta_chroma_offset_l0 = cb_and_cr({{0, 0x7FFFFFFF}});
    EXPECT_EQ(table.LumaWeightL0(0), 129);
    EXPECT_EQ(table.ChromaWeightL0(0, 0), 130);
    EXPECT_EQ(table.ChromaWeightL0(0, 1), 128 + std::int64_t{0x7FFFFFFF});
    EXPECT_EQ(table.ChromaOffsetL0(0, 0, 0x7FFFFFFF), -33554431);  // 2^31 - 1 - 2181038078
    table.delta_chroma_log2_weight_denom = -0x7FFFFFFF - 1;
    table.luma_log2_weight_denom = 3;
    EXPECT_EQ(table.ChromaWeightL0(0, 0), 3);
}

}  // namespace
}  // namespace kovran
