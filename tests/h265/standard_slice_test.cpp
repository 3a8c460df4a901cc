// The standard's reading of slice segment headers and list modifications, beside the library's own.
#include <kovran/h265/h265_ref_pic_lists_modification.h>
#include <kovran/h265/h265_slice_segment_header.h>

#include <gtest/gtest.h>

#include <vector>

#include "support/bit_writer.h"
#include "support/rbsp.h"
#include "support/same_fields.h"
#include "support/slice_record_fields.h"
#include "support/slice_stores.h"

namespace kovran {
namespace {

using values = std::vector<unsigned int>;
using flags = std::vector<bool>;

constexpr unsigned int slice_b = 0;
constexpr unsigned int slice_p = 1;
constexpr unsigned int slice_i = 2;

struct host : test::slice_stores {
    // Empty sets, so many.
    void have_sets(unsigned int count) {
        sps().num_short_term_ref_pic_sets = count;
        sps().st_ref_pic_set.assign(count, {});
    }

    // Exactly these bits are to be consumed before the rest of the header, which is added.
    h265_slice_segment_header parsed(const test::bit_writer& bits,
                                     h265_nal_unit_type type = TRAIL_R) {
        h265_slice_segment_header slice;
        expect_whole(slice, bits, type);
        return slice;
    }

    void expect_whole(h265_slice_segment_header& slice, const test::bit_writer& bits,
                      h265_nal_unit_type type) {
        h265_slice_segment_header with_ones;
        EXPECT_TRUE(parse(with_ones, bits, type).read);
        const bool is_dependent = with_ones.dependent_slice_segment_flag;
        const bool is_inter = !is_dependent && with_ones.slice_type != slice_i;
        test::bit_writer whole = bits;
        if (is_inter && with_ones.slice_type == slice_b) {
            whole.u<1>(1);  // mvd_l1_zero_flag
        }
        if (is_inter) {
            whole.ue(3);  // five_minus_max_num_merge_cand
        }
        if (!is_dependent) {
            whole.se(-11);  // slice_qp_delta
        }
        whole.trailing_bits();  // byte_alignment() is the same
        const outcome result = parse(slice, whole, type);
        EXPECT_TRUE(result.read);
        EXPECT_EQ(result.bits, whole.size());
        EXPECT_EQ(slice.slice_data_begin, whole.size() / 8);
        EXPECT_EQ(slice.five_minus_max_num_merge_cand, is_inter ? 3U : 0U);
        EXPECT_EQ(slice.slice_qp_delta, is_dependent ? 0 : -11);
    }

    bool takes(const test::bit_writer& bits, h265_nal_unit_type type = TRAIL_R) {
        h265_slice_segment_header slice;
        slice.valid = true;
        const bool read = parse(slice, bits, type).read;
        EXPECT_EQ(slice.valid, read);
        return read;
    }

    // How many bits the library's own rules read; 0 when they fail.
    std::size_t bits_by_own_rules(const test::bit_writer& bits, h265_nal_unit_type type = TRAIL_R) {
        test::rbsp input{followed(bits)};
        h265_slice_segment_header slice;
        return slice.parse(input.reader, pps_store, sps_store, vps_store, type)
                   ? input.reader.bit_position()
                   : 0;
    }

    struct outcome {
        bool read;
        std::size_t bits;
    };

    outcome parse(h265_slice_segment_header& slice, const test::bit_writer& bits,
                  h265_nal_unit_type type) {
        test::rbsp input{followed(bits)};
        const bool read = slice.parse_standard(input.reader, pps_store, sps_store, vps_store, type);
        EXPECT_EQ(vps_store.size() + sps_store.size() + pps_store.size(), 3U);
        return {read, input.reader.bit_position()};
    }

    static std::vector<unsigned char> followed(test::bit_writer bits) {
        return bits.u<32>(0xFFFFFFFF).u<32>(0xFFFFFFFF).bytes();
    }
};

// Up to slice_type, of a picture that is not an IRAP.
test::bit_writer first_segment(unsigned int slice_type) {
    return test::bit_writer().u<1>(1).ue(0).ue(slice_type);
}

// The same with slice_pic_order_cnt_lsb 9 and a set of the SPS.
test::bit_writer with_set_of_sps(unsigned int slice_type) {
    return first_segment(slice_type).u<4>(9).u<1>(1);
}

// Ceil( Log2( count ) ) for 1 to 17.
constexpr unsigned int widths[] = {0, 1, 2, 2, 3, 3, 3, 3, 4, 4, 4, 4, 4, 4, 4, 4, 5};

// ---- Widths

TEST(StandardSlice, HasAnIndexOfTheSetAsWideAsTheStandardSays) {
    for (unsigned int count = 1; count <= 17; ++count) {
        host stream;
        stream.have_sets(count);
        test::bit_writer bits = with_set_of_sps(slice_i);
        const unsigned int width = widths[count - 1];
        if (width > 0) {
            bits.u(width, count - 1);
        }
        const auto slice = stream.parsed(bits);
        EXPECT_EQ(slice.short_term_ref_pic_set_idx, count - 1);
        EXPECT_EQ(slice.CurrRpsIdx, count - 1);
        const bool power_of_two = (count & (count - 1)) == 0 && count > 1;
        EXPECT_EQ(stream.bits_by_own_rules(bits), bits.size() + (power_of_two ? 1 : 0)) << count;
    }
}

TEST(StandardSlice, FailsWithASetThatTheSpsDoesNotHave) {
    host stream;
    stream.have_sets(5);
    EXPECT_TRUE(stream.takes(with_set_of_sps(slice_i).u<3>(4)));
    EXPECT_FALSE(stream.takes(with_set_of_sps(slice_i).u<3>(5)));
    EXPECT_NE(stream.bits_by_own_rules(with_set_of_sps(slice_i).u<3>(5)), 0U);
    stream.have_sets(0);
    EXPECT_FALSE(stream.takes(with_set_of_sps(slice_i)));
}

TEST(StandardSlice, HasAnAddressAsWideAsTheStandardSays) {
    for (unsigned int ctbs = 1; ctbs <= 17; ++ctbs) {
        host stream;
        stream.sps().pic_width_in_luma_samples = 64 * ctbs;
        test::bit_writer bits;
        bits.u<1>(0).ue(0);
        const unsigned int width = widths[ctbs - 1];
        if (width > 0) {
            bits.u(width, ctbs - 1);
        }
        bits.ue(slice_i);
        const auto slice = stream.parsed(bits.u<4>(3).u<1>(0).ue(0).ue(0));
        EXPECT_EQ(slice.slice_segment_address, ctbs - 1);
        EXPECT_EQ(slice.slice_pic_order_cnt_lsb, 3U);
    }
}

// 1023 to 1025 blocks have addresses of 10, 10 and 11 bits; 65536 blocks of 256 rows have 16.
TEST(StandardSlice, HasAWideAddressInALargePicture) {
    struct {
        unsigned int columns, rows, width;
    } const pictures[] = {{1023, 1, 10}, {1024, 1, 10}, {1025, 1, 11}, {256, 256, 16}};
    for (const auto& [columns, rows, width] : pictures) {
        host stream;
        stream.sps().pic_width_in_luma_samples = 64 * columns;
        stream.sps().pic_height_in_luma_samples = 64 * rows;
        test::bit_writer bits;
        bits.u<1>(0).ue(0).u(width, columns * rows - 1).ue(slice_i);
        const auto slice = stream.parsed(bits.u<4>(3).u<1>(0).ue(0).ue(0));
        EXPECT_EQ(slice.slice_segment_address, columns * rows - 1);
        EXPECT_EQ(slice.slice_pic_order_cnt_lsb, 3U);
    }
}

TEST(StandardSlice, FailsWithoutAPictureSizeThatAnAddressCanCount) {
    // first_slice_segment_in_pic_flag and slice_pic_parameter_set_id are the first two bits.
    const test::bit_writer bits = test::bit_writer().u<1>(0).ue(0).u<32>(0).u<32>(0);
    host stream;
    const auto bits_read = [&] {
        h265_slice_segment_header slice;
        return stream.parse(slice, bits, TRAIL_R).bits;
    };
    stream.sps().log2_diff_max_min_luma_coding_block_size = 0;
    stream.sps().pic_width_in_luma_samples = 0xFFFFFFF8;  // 2^29 - 1 blocks of 8
    stream.sps().pic_height_in_luma_samples = 64;
    EXPECT_GE(bits_read(), 2U + 32U);  // 2^32 - 8 of them
    stream.sps().pic_height_in_luma_samples = 65;
    EXPECT_EQ(bits_read(), 2U);

    // 2 + 3 - 2 in 32 bits.
    stream.sps().pic_width_in_luma_samples = 64;
    stream.sps().log2_min_luma_coding_block_size_minus3 = 2;
    stream.sps().log2_diff_max_min_luma_coding_block_size = 0xFFFFFFFE;
    EXPECT_EQ(bits_read(), 2U);
}

// What a segment has before its address are the values that the header begins with.
TEST(StandardSlice, HasDefaultsInADependentSegment) {
    host stream;
    stream.have_sets(3);
    stream.pps().dependent_slice_segments_enabled_flag = true;
    stream.pps().num_ref_idx_l0_default_active_minus1 = 4;
    stream.sps().pic_width_in_luma_samples = 128;
    const auto slice = stream.parsed(test::bit_writer().u<1>(0).ue(0).u<1>(1).u<1>(1));
    EXPECT_EQ(slice.CurrRpsIdx, 3U);
    EXPECT_EQ(slice.num_ref_idx_l0_active_minus1, 4U);
    EXPECT_FALSE(slice.pic_output_flag);
}

// ---- Temporal motion vector prediction

TEST(StandardSlice, HasTheTemporalMvpFlagWheneverTheSpsEnablesIt) {
    host stream;
    stream.have_sets(1);
    stream.sps().sps_temporal_mvp_enabled_flag = true;
    const auto bits = with_set_of_sps(slice_i).u<1>(1);
    EXPECT_TRUE(stream.parsed(bits).slice_temporal_mvp_enabled_flag);
    EXPECT_EQ(stream.bits_by_own_rules(bits), bits.size() - 1);

    const test::bit_writer idr = test::bit_writer().u<1>(1).u<1>(0).ue(0).ue(slice_i);
    EXPECT_FALSE(stream.parsed(idr, IDR_W_RADL).slice_temporal_mvp_enabled_flag);

    stream.sps().sps_temporal_mvp_enabled_flag = false;
    EXPECT_FALSE(stream.parsed(with_set_of_sps(slice_i)).slice_temporal_mvp_enabled_flag);
}

// ---- Long-term pictures

TEST(StandardSlice, HasLongTermPicturesWithoutCandidatesInTheSps) {
    host stream;
    stream.have_sets(1);
    stream.sps().long_term_ref_pics_present_flag = true;
    const auto bits =
        with_set_of_sps(slice_p).ue(2).u<4>(11).u<1>(1).u<1>(0).u<4>(12).u<1>(0).u<1>(1).ue(3).u<1>(
            0);
    const auto slice = stream.parsed(bits);
    EXPECT_EQ(slice.num_long_term_sps, 0U);
    EXPECT_EQ(slice.num_long_term_pics, 2U);
    EXPECT_EQ(slice.poc_lsb_lt, (values{11, 12}));
    EXPECT_EQ(slice.used_by_curr_pic_lt_flag, (flags{true, false}));
    EXPECT_EQ(slice.delta_poc_msb_present_flag, (flags{false, true}));
    EXPECT_EQ(slice.delta_poc_msb_cycle_lt, (values{0, 3}));
    EXPECT_EQ(slice.NumPicTotalCurr, 1U);
    EXPECT_EQ(stream.bits_by_own_rules(bits), 0U);
}

// Four candidates: 4, 5, 6, 7, of which 5 and 7 are used.
void have_candidates(host& stream) {
    stream.have_sets(1);
    stream.sps().long_term_ref_pics_present_flag = true;
    stream.sps().num_long_term_ref_pics_sps = 4;
    stream.sps().lt_ref_pic_poc_lsb_sps = {4, 5, 6, 7};
    stream.sps().used_by_curr_pic_lt_sps_flag = {false, true, false, true};
}

// Candidates 3 and 2 with two bits each, then a picture of its own, used.
TEST(StandardSlice, TakesCandidatesByTheirIndex) {
    host stream;
    have_candidates(stream);
    const auto bits = with_set_of_sps(slice_p)
                          .ue(2)
                          .ue(1)
                          .u<2>(3)
                          .u<1>(0)
                          .u<2>(2)
                          .u<1>(0)
                          .u<4>(13)
                          .u<1>(1)
                          .u<1>(0)
                          .u<1>(0);
    const auto slice = stream.parsed(bits);
    EXPECT_EQ(slice.lt_idx_sps, (values{3, 2, 0}));
    EXPECT_EQ(slice.poc_lsb_lt, (values{7, 6, 13}));
    EXPECT_EQ(slice.used_by_curr_pic_lt_flag, (flags{true, false, true}));
    EXPECT_EQ(slice.NumPicTotalCurr, 2U);
}

// The library's own rules count the flags of the first entries of the SPS: entry 0 only, none.
TEST(StandardSlice, CountsCandidatesByTheirIndex) {
    host stream;
    have_candidates(stream);
    stream.sps().num_long_term_ref_pics_sps = 3;
    const auto bits = with_set_of_sps(slice_p).ue(1).ue(0).u<2>(1).u<1>(0).u<1>(0);
    EXPECT_EQ(stream.parsed(bits).NumPicTotalCurr, 1U);
    test::rbsp input{host::followed(bits)};
    h265_slice_segment_header own;
    EXPECT_TRUE(
        own.parse(input.reader, stream.pps_store, stream.sps_store, stream.vps_store, TRAIL_R));
    EXPECT_EQ(input.reader.bit_position(), bits.size());
    EXPECT_EQ(own.NumPicTotalCurr, 0U);
}

TEST(StandardSlice, ReadsNoIndexOfTheOnlyCandidate) {
    host stream;
    have_candidates(stream);
    stream.sps().num_long_term_ref_pics_sps = 1;
    const auto slice = stream.parsed(with_set_of_sps(slice_p).ue(1).ue(0).u<1>(0).u<1>(0));
    EXPECT_EQ(slice.poc_lsb_lt, values{4});
    EXPECT_EQ(slice.used_by_curr_pic_lt_flag, flags{false});
}

TEST(StandardSlice, FailsWithMoreLongTermPicturesThanThereCanBe) {
    host stream;
    have_candidates(stream);
    const auto takes = [&stream](unsigned int num_long_term_sps, unsigned int num_long_term_pics) {
        test::bit_writer bits = with_set_of_sps(slice_p);
        bits.ue(num_long_term_sps).ue(num_long_term_pics);
        return stream.takes(bits.u<32>(0).u<32>(0).u<32>(0));  // six bits for each at the most
    };
    EXPECT_TRUE(takes(4, 12));
    EXPECT_TRUE(takes(0, 16));
    EXPECT_FALSE(takes(5, 0));
    EXPECT_FALSE(takes(4, 13));
    EXPECT_FALSE(takes(0, 17));
    EXPECT_FALSE(takes(1, 0xFFFFFFFE));
    EXPECT_FALSE(takes(0xFFFFFFFE, 3));
}

TEST(StandardSlice, FailsWithACandidateThatTheSpsDoesNotHave) {
    host stream;
    have_candidates(stream);
    stream.sps().num_long_term_ref_pics_sps = 3;
    stream.sps().lt_ref_pic_poc_lsb_sps.resize(3);
    stream.sps().used_by_curr_pic_lt_sps_flag.resize(3);
    EXPECT_TRUE(stream.takes(with_set_of_sps(slice_p).ue(1).ue(0).u<2>(2).u<1>(0).u<1>(0)));
    EXPECT_FALSE(stream.takes(with_set_of_sps(slice_p).ue(1).ue(0).u<2>(3).u<1>(0).u<1>(0)));
    stream.sps().used_by_curr_pic_lt_sps_flag.resize(2);
    EXPECT_FALSE(stream.takes(with_set_of_sps(slice_p).ue(1).ue(0).u<2>(2).u<1>(0).u<1>(0)));
    stream.sps().used_by_curr_pic_lt_sps_flag.resize(3);
    stream.sps().lt_ref_pic_poc_lsb_sps.resize(2);
    EXPECT_FALSE(stream.takes(with_set_of_sps(slice_p).ue(1).ue(0).u<2>(2).u<1>(0).u<1>(0)));
}

// ---- Dependent slice segments

TEST(StandardSlice, IsDependentOnlyWhereTheFlagIsRead) {
    host stream;
    stream.have_sets(1);
    stream.pps().dependent_slice_segments_enabled_flag = true;
    stream.sps().pic_width_in_luma_samples = 192;
    h265_slice_segment_header slice;
    const test::bit_writer dependent = test::bit_writer().u<1>(0).ue(0).u<1>(1).u<2>(2);
    stream.expect_whole(slice, dependent, TRAIL_R);
    EXPECT_TRUE(slice.valid);
    EXPECT_TRUE(slice.dependent_slice_segment_flag);
    EXPECT_EQ(slice.slice_segment_address, 2U);

    h265_slice_segment_header own = slice;
    const auto first = with_set_of_sps(slice_i);
    stream.expect_whole(slice, first, TRAIL_R);
    EXPECT_FALSE(slice.dependent_slice_segment_flag);
    EXPECT_EQ(slice.slice_type, slice_i);
    EXPECT_EQ(slice.slice_segment_address, 0U);

    test::rbsp input{host::followed(first)};
    EXPECT_TRUE(
        own.parse(input.reader, stream.pps_store, stream.sps_store, stream.vps_store, TRAIL_R));
    EXPECT_TRUE(own.dependent_slice_segment_flag);
    EXPECT_EQ(input.reader.bit_position(), 2U);
}

// ---- Lists

// So many pictures of set 0 that are used, on both sides.
void have_used_pictures(host& stream, unsigned int count) {
    stream.have_sets(1);
    h265_st_ref_pic_set& set = stream.sps().st_ref_pic_set[0];
    set.num_negative_pics = count / 2;
    set.used_by_curr_pic_s0_flag.assign(count / 2, true);
    set.num_positive_pics = count - count / 2;
    set.used_by_curr_pic_s1_flag.assign(count - count / 2, true);
    stream.pps().lists_modification_present_flag = true;
}

TEST(StandardSlice, HasListEntriesAsWideAsTheStandardSays) {
    for (unsigned int pics = 2; pics <= 16; ++pics) {
        host stream;
        have_used_pictures(stream, pics);
        stream.pps().num_ref_idx_l0_default_active_minus1 = 1;
        const unsigned int width = widths[pics - 1];
        test::bit_writer bits = with_set_of_sps(slice_b).u<1>(0);
        bits.u<1>(1).u(width, pics - 1).u(width, 0).u<1>(1).u(width, 1);
        const auto slice = stream.parsed(bits);
        EXPECT_EQ(slice.NumPicTotalCurr, pics);
        EXPECT_TRUE(slice.ref_pic_lists_modification.valid);
        EXPECT_EQ(slice.ref_pic_lists_modification.list_entry_l0, (values{pics - 1, 0}));
        EXPECT_EQ(slice.ref_pic_lists_modification.list_entry_l1, values{1});
        const bool power_of_two = (pics & (pics - 1)) == 0;
        EXPECT_EQ(stream.bits_by_own_rules(bits) == bits.size(), !power_of_two) << pics;
    }
}

TEST(StandardSlice, HasNoListModificationOfOnePicture) {
    host stream;
    have_used_pictures(stream, 1);
    const auto slice = stream.parsed(with_set_of_sps(slice_p).u<1>(0));
    EXPECT_EQ(slice.NumPicTotalCurr, 1U);
    EXPECT_FALSE(slice.ref_pic_lists_modification.valid);
}

// A set of the slice's own, predicted from set 0 with pictures -1 and 1, both used: -1, -2.
TEST(StandardSlice, CountsThePicturesOfAPredictedSet) {
    host stream;
    stream.have_sets(1);
    h265_st_ref_pic_set& set = stream.sps().st_ref_pic_set[0];
    set.num_negative_pics = 1;
    set.num_positive_pics = 1;
    set.NumDeltaPocs = 2;
    set.delta_poc_s0_minus1 = {0};
    set.delta_poc_s1_minus1 = {0};
    set.used_by_curr_pic_s0_flag = {true};
    set.used_by_curr_pic_s1_flag = {true};
    test::bit_writer bits = first_segment(slice_p).u<4>(9).u<1>(0);
    bits.u<1>(1).ue(0).u<1>(1).ue(0).u<3>(0b111).u<1>(0);
    const auto slice = stream.parsed(bits);
    EXPECT_EQ(slice.NumPicTotalCurr, 2U);
    EXPECT_EQ(slice.st_ref_pic_set.delta_poc_s0_minus1, (values{0, 0}));
    EXPECT_EQ(slice.CurrRpsIdx, 1U);
}

TEST(StandardSlice, HasUpTo15ReferenceIndices) {
    host stream;
    stream.have_sets(1);
    EXPECT_TRUE(stream.takes(with_set_of_sps(slice_b).u<1>(1).ue(14).ue(14)));
    EXPECT_FALSE(stream.takes(with_set_of_sps(slice_b).u<1>(1).ue(15).ue(0)));
    EXPECT_FALSE(stream.takes(with_set_of_sps(slice_b).u<1>(1).ue(0).ue(15)));
    EXPECT_NE(stream.bits_by_own_rules(with_set_of_sps(slice_b).u<1>(1).ue(15).ue(0)), 0U);
}

TEST(StandardSlice, FailsWithAReservedSliceType) {
    host stream;
    stream.have_sets(1);
    EXPECT_TRUE(stream.takes(with_set_of_sps(2)));
    EXPECT_FALSE(stream.takes(with_set_of_sps(3)));
    EXPECT_NE(stream.bits_by_own_rules(with_set_of_sps(3)), 0U);
}

TEST(StandardSlice, FailsWithAPpsIdentifierAbove63) {
    host stream;
    stream.have_sets(1);
    stream.pps_store[63] = stream.pps();
    stream.pps_store.erase(0);
    EXPECT_TRUE(stream.takes(test::bit_writer().u<1>(1).ue(63).ue(slice_i).u<4>(0).u<1>(1)));
    stream.pps_store[64] = stream.pps_store.at(63);
    stream.pps_store.erase(63);
    EXPECT_FALSE(stream.takes(test::bit_writer().u<1>(1).ue(64).ue(slice_i).u<4>(0).u<1>(1)));
}

TEST(StandardSlice, FailsWithoutItsParameterSets) {
    host stream;
    h265_slice_segment_header slice;
    slice.valid = true;
    EXPECT_FALSE(stream.parse(slice, test::bit_writer().u<1>(1).ue(1).ue(slice_i), TRAIL_R).read);
    EXPECT_FALSE(slice.valid);
}

TEST(StandardSlice, ShowsNothingStale) {
    host stream;
    have_candidates(stream);
    stream.pps().lists_modification_present_flag = true;
    stream.sps().sample_adaptive_offset_enabled_flag = true;
    stream.pps().num_ref_idx_l0_default_active_minus1 = 2;
    test::bit_writer full = first_segment(slice_p).u<4>(9).u<1>(0);
    full.u<1>(0).ue(1).ue(1).ue(0).u<1>(1).ue(0).u<1>(1);  // a set with two used pictures
    full.ue(1).ue(1).u<2>(1).u<1>(1).ue(5).u<4>(3).u<1>(1).u<1>(1).ue(6);
    full.u<1>(1).u<1>(1);  // SAO
    full.u<1>(1).ue(0);    // one reference index
    full.u<1>(1).u<2>(3);  // NumPicTotalCurr is 4
    h265_slice_segment_header slice;
    stream.expect_whole(slice, full, TRAIL_R);
    EXPECT_EQ(slice.NumPicTotalCurr, 4U);

    const test::bit_writer idr =
        test::bit_writer().u<1>(1).u<1>(1).ue(0).ue(slice_i).u<1>(0).u<1>(0);
    stream.expect_whole(slice, idr, IDR_N_LP);
    h265_slice_segment_header expected;
    expected.first_slice_segment_in_pic_flag = true;
    expected.no_output_of_prior_pics_flag = true;
    expected.slice_type = slice_i;
    expected.pic_output_flag = true;
    expected.num_ref_idx_l0_active_minus1 = 2;
    expected.CurrRpsIdx = 1;
    expected.valid = true;
    expected.collocated_from_l0_flag = true;
    expected.slice_qp_delta = -11;
    expected.slice_data_begin = 3;  // 8 bits, 9 for the difference, and those of the alignment
    EXPECT_TRUE(test::same_fields(slice, expected));
}

// ---- The modification by itself

TEST(StandardRefPicListsModification, HasEntriesAsWideAsTheStandardSays) {
    h265_slice_segment_header header;
    header.slice_type = slice_p;
    header.NumPicTotalCurr = 4;
    header.num_ref_idx_l0_active_minus1 = 1;
    test::rbsp input{0b1'10'11'111, 0xFF};
    h265_ref_pic_lists_modification lists;
    lists.list_entry_l1 = {7};
    lists.ref_pic_list_modification_flag_l1 = true;
    EXPECT_TRUE(lists.parse_standard(input.reader, header));
    EXPECT_EQ(input.reader.bit_position(), 5U);
    EXPECT_EQ(lists.list_entry_l0, (values{2, 3}));
    EXPECT_TRUE(lists.list_entry_l1.empty());
    EXPECT_FALSE(lists.ref_pic_list_modification_flag_l1);

    test::rbsp own_input{0b1'10'11'111, 0xFF};
    EXPECT_TRUE(lists.parse(own_input.reader, header));
    EXPECT_EQ(own_input.reader.bit_position(), 7U);

    // Of a single picture there is nothing to say.
    header.NumPicTotalCurr = 1;
    test::rbsp single{0b1'1111111};
    EXPECT_TRUE(lists.parse_standard(single.reader, header));
    EXPECT_EQ(single.reader.bit_position(), 1U);
    EXPECT_EQ(lists.list_entry_l0, (values{0, 0}));
}

TEST(StandardRefPicListsModification, FailsWithoutPicturesOrWithTooManyIndices) {
    h265_slice_segment_header header;
    header.slice_type = slice_b;
    test::rbsp input{0xFF, 0xFF};
    h265_ref_pic_lists_modification lists;
    lists.valid = true;
    EXPECT_FALSE(lists.parse_standard(input.reader, header));
    EXPECT_FALSE(lists.valid);
    header.NumPicTotalCurr = 2;
    header.num_ref_idx_l1_active_minus1 = 16;
    EXPECT_FALSE(lists.parse_standard(input.reader, header));
    EXPECT_EQ(input.reader.bit_position(), 0U);
    EXPECT_TRUE(lists.list_entry_l0.empty());
}

}  // namespace
}  // namespace kovran
