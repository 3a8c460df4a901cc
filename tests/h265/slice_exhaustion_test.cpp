#include <kovran/h265/h265_nal_sei_active_parameter_sets.h>
#include <kovran/h265/h265_nal_sei_buffering_period.h>
#include <kovran/h265/h265_nal_sei_pic_timing.h>
#include <kovran/h265/h265_slice_segment_header.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <new>
#include <vector>

#include "support/allocation_failure.h"
#include "support/bit_writer.h"
#include "support/parameter_sets.h"
#include "support/rbsp.h"
#include "support/reuse_exhaustion.h"
#include "support/same_fields.h"
#include "support/slice_record_fields.h"

namespace kovran {
namespace {

using bytes = std::vector<unsigned char>;
using values = std::vector<unsigned int>;

constexpr unsigned int slice_b = 0;

// ---- What is parsed: each with every element that its syntax has

// PPS 2 of SPS 5 of VPS 7. The picture has 10 x 6 coding tree blocks of 64x64.
struct host {
    host() {
        vps_store[7];
        h265_nal_sps& sps = sps_store[5];
        sps.sps_video_parameter_set_id = 7;
        sps.chroma_format_idc = 1;
        sps.pic_width_in_luma_samples = 640;
        sps.pic_height_in_luma_samples = 360;
        sps.log2_diff_max_min_luma_coding_block_size = 3;
        sps.num_short_term_ref_pic_sets = 2;
        sps.st_ref_pic_set.resize(2);
        sps.st_ref_pic_set[1].num_negative_pics = 1;
        sps.st_ref_pic_set[1].used_by_curr_pic_s0_flag = {true};
        sps.long_term_ref_pics_present_flag = true;
        sps.num_long_term_ref_pics_sps = 3;
        sps.used_by_curr_pic_lt_sps_flag = {true, true, false};
        sps.sps_temporal_mvp_enabled_flag = true;
        sps.sample_adaptive_offset_enabled_flag = true;
        pps_store[2].pps_seq_parameter_set_id = 5;
        pps_store[2].lists_modification_present_flag = true;
    }

    bool parse(h265_slice_segment_header& slice, h2645_common_bitreader& reader) {
        return slice.parse(reader, pps_store, sps_store, vps_store, CRA_NUT);
    }

    h2645_common_base_store<h265_nal_vps> vps_store;
    h2645_common_base_store<h265_nal_sps> sps_store;
    h2645_common_base_store<h265_nal_pps> pps_store;
};

// A B slice of that host, with three long-term pictures and both lists.
struct slice_syntax {
    test::bit_writer start = test::bit_writer().u<1>(0).u<1>(1).ue(2).u<6>(59).ue(slice_b).u<4>(11);
    test::bit_writer short_term_set = test::bit_writer().u<1>(1).u<2>(1);
    test::bit_writer long_term_pictures = test::bit_writer()
                                              .ue(1)
                                              .ue(2)
                                              .u<2>(2)
                                              .u<1>(0)
                                              .u<4>(13)
                                              .u<1>(1)
                                              .u<1>(1)
                                              .ue(9)
                                              .u<4>(14)
                                              .u<1>(0)
                                              .u<1>(0)
                                              .u<1>(1);  // slice_temporal_mvp_enabled_flag
    test::bit_writer reference_indices =
        test::bit_writer().u<1>(1).u<1>(0).u<1>(1).ue(1).ue(2);  // after both SAO flags
    test::bit_writer lists =
        test::bit_writer().u<1>(1).u<2>(2).u<2>(1).u<1>(1).u<2>(3).u<2>(0).u<2>(1);

    test::bit_writer bits() const {
        test::bit_writer all;
        for (const test::bit_writer* part :
             {&start, &short_term_set, &long_term_pictures, &reference_indices, &lists}) {
            test::append(all, *part);
        }
        return all;
    }
};

// The same slice by the standard's rules, where one bit chooses between two sets, and between the
// two pictures that this slice refers to, and where the header goes on.
test::bit_writer slice_read_by_the_standard() {
    slice_syntax syntax;
    syntax.short_term_set = test::bit_writer().u<1>(1).u<1>(1);
    syntax.lists = test::bit_writer().u<1>(1).u<1>(1).u<1>(0).u<1>(1).u<1>(1).u<1>(0).u<1>(1);
    test::bit_writer bits = syntax.bits();
    bits.u<1>(0).u<1>(1).ue(0);                                 // the collocated picture
    bits.ue(3).se(-1);                                          // weights, of luma and then chroma
    bits.u<2>(2).u<2>(1).se(5).se(-3).se(1).se(2).se(3).se(4);  // in list 0
    bits.u<3>(1).u<3>(0).se(6).se(-2);                          // in list 1
    bits.ue(0).se(0);  // five_minus_max_num_merge_cand, slice_qp_delta
    bits.ue(2).ue(6).u<7>(1).u<7>(2);
    return bits.ue(3).u<24>(0xABCDEF).trailing_bits();
}

bool parse_slice_by_the_standard(h265_slice_segment_header& slice, h2645_common_bitreader& reader) {
    static host stream = [] {
        host going_on;
        going_on.sps_store.at(5).lt_ref_pic_poc_lsb_sps = {1, 2, 3};
        h265_nal_pps& pps = going_on.pps_store.at(2);
        pps.weighted_pred_flag = true;
        pps.weighted_bipred_flag = true;
        pps.entropy_coding_sync_enabled_flag = true;
        pps.slice_segment_header_extension_present_flag = true;
        return going_on;
    }();
    return slice.parse_standard(reader, stream.pps_store, stream.sps_store, stream.vps_store,
                                CRA_NUT);
}

// short_term_ref_pic_set_sps_flag 0, and a set with one picture before and one after.
test::bit_writer own_set() {
    return test::bit_writer().u<1>(0).u<1>(0).ue(1).ue(1).ue(2).u<1>(1).ue(3).u<1>(0);
}

// VPS 3 with three layers.
h2645_common_base_store<h265_nal_vps> vps_store_with_layers() {
    h2645_common_base_store<h265_nal_vps> store;
    store[3].vps_base_layer_internal_flag = true;
    store[3].vps_max_layers_minus1 = 2;
    return store;
}

test::bit_writer active_parameter_sets() {
    return test::bit_writer().u<4>(3).u<1>(1).u<1>(1).ue(1).ue(4).ue(5).ue(6).ue(7);
}

// SPS 0 with NAL and VCL HRD parameters of two CPB specifications, and all lengths 8 bits.
h2645_common_base_store<h265_nal_sps> sps_store_with_hrd() {
    h2645_common_base_store<h265_nal_sps> store;
    store.active_id = 0;
    store[0].vui_parameters.frame_field_info_present_flag = true;
    h265_hrd_parameters& hrd = store[0].vui_parameters.hrd_parameters;
    hrd.nal_hrd_parameters_present_flag = true;
    hrd.vcl_hrd_parameters_present_flag = true;
    hrd.sub_pic_hrd_params_present_flag = true;
    hrd.initial_cpb_removal_delay_length_minus1 = 7;
    hrd.au_cpb_removal_delay_length_minus1 = 7;
    hrd.dpb_output_delay_length_minus1 = 7;
    hrd.dpb_output_delay_du_length_minus1 = 7;
    hrd.du_cpb_removal_delay_increment_length_minus1 = 7;
    hrd.cpb_cnt_minus1 = {1};
    return store;
}

test::bit_writer pic_timing() {
    test::bit_writer bits;
    bits.u<4>(3).u<2>(1).u<1>(1).u<8>(11).u<8>(12).u<8>(13);
    return bits.ue(2).u<1>(0).ue(4).u<8>(14).ue(5).u<8>(15).ue(6);
}

test::bit_writer buffering_period() {
    test::bit_writer bits;
    bits.ue(0).u<1>(1).u<8>(21);
    for (unsigned int i = 0; i < 16; ++i) {
        bits.u<8>(22 + i);
    }
    return bits.u<1>(1).trailing_bits();  // after use_alt_cpb_params_flag
}

bool parse_slice(h265_slice_segment_header& slice, h2645_common_bitreader& reader) {
    static host stream;
    return stream.parse(slice, reader);
}

bool parse_active_parameter_sets(h265_nal_sei_active_parameter_sets& sets,
                                 h2645_common_bitreader& reader) {
    static h2645_common_base_store<h265_nal_vps> store = vps_store_with_layers();
    return sets.parse(reader, store);
}

bool parse_pic_timing(h265_nal_sei_pic_timing& timing, h2645_common_bitreader& reader) {
    static const h2645_common_base_store<h265_nal_sps> store = sps_store_with_hrd();
    return timing.parse(reader, store);
}

bool parse_buffering_period(h265_nal_sei_buffering_period& period, h2645_common_bitreader& reader) {
    static const h2645_common_base_store<h265_nal_sps> store = sps_store_with_hrd();
    return period.parse(reader, store);
}

// ---- Truncation

// The first `size` bits; zeros fill the last byte.
bytes first_bits(const bytes& whole, std::size_t size) {
    bytes first(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>((size + 7) / 8));
    if (size % 8 != 0) {
        first.back() = static_cast<unsigned char>(first.back() & 0xFF00U >> size % 8);
    }
    return first;
}

// Every beginning parses as if zeros stood behind it, and successfully once it has the bit with
// the number `success`.
template <class Record, class Parse>
void expect_zeros_behind_every_end(const test::bit_writer& bits, std::size_t success, Parse parse) {
    for (std::size_t size = 0; size <= bits.size(); ++size) {
        const bytes cut = first_bits(bits.bytes(), size);
        bytes with_zeros = cut;
        with_zeros.resize(cut.size() + 4096);
        test::rbsp input{cut};
        test::rbsp input_with_zeros{with_zeros};
        Record record;
        Record record_with_zeros;
        const bool result = parse(record, input.reader);
        EXPECT_EQ(result, size > success) << size << " bits of " << bits.size();
        EXPECT_EQ(record.valid, result) << size << " bits of " << bits.size();
        EXPECT_EQ(parse(record_with_zeros, input_with_zeros.reader), result);
        EXPECT_TRUE(test::same_fields(record, record_with_zeros))
            << size << " bits of " << bits.size();
    }
}

// Where in ue(1), 010, and ue(2), 011, the first 1 bit stands.
constexpr std::size_t first_one = 1;

TEST(SliceTruncation, IsNoticedByTheSetOfItsOwnThatZerosStandFor) {
    // short_term_ref_pic_set_sps_flag; what comes before it is needed to get there.
    expect_zeros_behind_every_end<h265_slice_segment_header>(
        slice_syntax().bits(), slice_syntax().start.size(), parse_slice);
}

TEST(SliceTruncation, IsNoticedByTheSetOfASliceUpToItsCounts) {
    slice_syntax syntax;
    syntax.short_term_set = own_set();
    // num_positive_pics follows two flags and num_negative_pics of three bits.
    const std::size_t num_positive_pics = syntax.start.size() + 2 + 3;
    expect_zeros_behind_every_end<h265_slice_segment_header>(
        syntax.bits(), num_positive_pics + first_one, parse_slice);
}

TEST(SliceTruncation, IsNoticedByTheNumberOfActiveSpss) {
    // num_sps_ids_minus1 follows six bits, without all of which the VPS is another one.
    expect_zeros_behind_every_end<h265_nal_sei_active_parameter_sets>(
        active_parameter_sets(), 6 + first_one, parse_active_parameter_sets);
}

TEST(SliceTruncation, IsNoticedByTheNumberOfDecodingUnits) {
    // num_decoding_units_minus1 follows 31 bits.
    expect_zeros_behind_every_end<h265_nal_sei_pic_timing>(pic_timing(), 31 + first_one,
                                                           parse_pic_timing);
}

TEST(SliceTruncation, IsNoticedByTheSpsOfABufferingPeriod) {
    const test::bit_writer bits = buffering_period();
    for (std::size_t size = 0; size <= bits.size(); ++size) {
        test::rbsp input{first_bits(bits.bytes(), size)};
        h265_nal_sei_buffering_period period;
        const bool result = parse_buffering_period(period, input.reader);
        EXPECT_EQ(result, size > 0) << size << " bits of " << bits.size();
        EXPECT_EQ(period.valid, result) << size << " bits of " << bits.size();
    }
}

// ---- Memory exhaustion

enum class ending { success, failure, exception };

template <class Record, class Parse>
ending ending_of(Record& record, h2645_common_bitreader& reader, Parse parse) {
    try {
        return parse(record, reader) ? ending::success : ending::failure;
    } catch (const std::bad_alloc&) {
        return ending::exception;
    }
}

// Fails the first allocation of a parse, in another parse the second, and so on until there are no
// more.
template <class Record, class Parse, class ValidAfter>
void expect_ending_at_every_allocation(const test::bit_writer& bits, ending expected, Parse parse,
                                       ValidAfter valid_after) {
    Record undisturbed;
    test::rbsp undisturbed_input{bits.bytes()};
    ASSERT_TRUE(parse(undisturbed, undisturbed_input.reader));

    for (const bool valid_before : {false, true}) {
        std::size_t failures = 0;
        for (bool exhausted = true; exhausted; failures += exhausted ? 1 : 0) {
            const test::allocation_count memory;
            {
                Record record;
                record.valid = valid_before;
                test::rbsp first{bits.bytes()};
                ending result = ending::success;
                {
                    const test::allocation_failure failure(failures + 1);
                    result = ending_of(record, first.reader, parse);
                    exhausted = failure.happened();
                }
                EXPECT_EQ(result, exhausted ? expected : ending::success)
                    << "allocation " << failures + 1;
                if (exhausted) {
                    EXPECT_EQ(record.valid, valid_after(valid_before))
                        << "allocation " << failures + 1;
                    test::rbsp second{bits.bytes()};
                    EXPECT_TRUE(parse(record, second.reader));
                }
                EXPECT_TRUE(test::same_fields(record, undisturbed))
                    << "allocation " << failures + 1;
            }
            EXPECT_TRUE(memory.all_freed()) << "allocation " << failures + 1;
        }
        EXPECT_GT(failures, 0U);
    }
}

bool becomes_false(bool /*valid_before*/) {
    return false;
}

bool stays(bool valid_before) {
    return valid_before;
}

TEST(SliceExhaustion, ReachesTheCallerFromTheLongTermArraysAndTheLists) {
    expect_ending_at_every_allocation<h265_slice_segment_header>(
        slice_syntax().bits(), ending::exception, parse_slice, becomes_false);
}

TEST(SliceExhaustion, FailsInTheSetOfASlice) {
    // An I slice without long-term pictures.
    test::bit_writer bits;
    bits.u<1>(0).u<1>(1).ue(2).u<6>(59).ue(2).u<4>(11);
    bits.u<1>(0).u<1>(0).ue(1).ue(1).ue(2).u<1>(1).ue(3).u<1>(0);
    bits.ue(0).ue(0).u<1>(1).u<1>(1).u<1>(0);
    expect_ending_at_every_allocation<h265_slice_segment_header>(bits, ending::failure, parse_slice,
                                                                 becomes_false);
}

TEST(SliceExhaustion, ReachesTheCallerFromAListModification) {
    static const h265_slice_segment_header header = [] {
        h265_slice_segment_header prepared;
        prepared.NumPicTotalCurr = 3;
        prepared.num_ref_idx_l0_active_minus1 = 1;
        prepared.num_ref_idx_l1_active_minus1 = 2;
        return prepared;
    }();
    expect_ending_at_every_allocation<h265_ref_pic_lists_modification>(
        slice_syntax().lists, ending::exception,
        [](auto& lists, auto& reader) { return lists.parse(reader, header); }, becomes_false);
    expect_ending_at_every_allocation<h265_ref_pic_lists_modification>(
        slice_syntax().lists, ending::exception,
        [](auto& lists, auto& reader) { return lists.parse_standard(reader, header); },
        becomes_false);
}

TEST(SliceExhaustion, ClearsValidOfActiveParameterSets) {
    expect_ending_at_every_allocation<h265_nal_sei_active_parameter_sets>(
        active_parameter_sets(), ending::failure, parse_active_parameter_sets, becomes_false);
}

TEST(SliceExhaustion, LeavesValidOfPicTiming) {
    expect_ending_at_every_allocation<h265_nal_sei_pic_timing>(pic_timing(), ending::failure,
                                                               parse_pic_timing, stays);
}

TEST(SliceExhaustion, LeavesValidOfABufferingPeriod) {
    expect_ending_at_every_allocation<h265_nal_sei_buffering_period>(
        buffering_period(), ending::failure, parse_buffering_period, stays);
}

TEST(SliceExhaustion, ReachesTheCallerOfASliceReadByTheStandard) {
    expect_ending_at_every_allocation<h265_slice_segment_header>(
        slice_read_by_the_standard(), ending::exception, parse_slice_by_the_standard,
        becomes_false);
}

TEST(SliceExhaustion, FailsInTheSetOfASliceReadByTheStandard) {
    test::bit_writer bits;
    bits.u<1>(0).u<1>(1).ue(2).u<6>(59).ue(2).u<4>(11);
    bits.u<1>(0).u<1>(0).ue(1).ue(1).ue(2).u<1>(1).ue(3).u<1>(0);
    bits.ue(0).ue(0).u<1>(1).u<1>(1).u<1>(0);
    bits.se(0).ue(0).ue(0).trailing_bits();
    expect_ending_at_every_allocation<h265_slice_segment_header>(
        bits, ending::failure, parse_slice_by_the_standard, becomes_false);
}

TEST(SliceExhaustion, LeavesAFreshRecordOfASliceReadByTheStandard) {
    const test::bit_writer bits = slice_read_by_the_standard();
    h265_slice_segment_header undisturbed;  // the first parse makes the host as well
    test::rbsp undisturbed_input{bits.bytes()};
    ASSERT_TRUE(parse_slice_by_the_standard(undisturbed, undisturbed_input.reader));
    std::size_t failures = 0;
    for (bool exhausted = true; exhausted; failures += exhausted ? 1 : 0) {
        h265_slice_segment_header slice;
        slice.slice_qp_delta = 5;
        slice.entry_point_offset_minus1 = {7};
        test::rbsp input{bits.bytes()};
        {
            const test::allocation_failure failure(failures + 1);
            ending_of(slice, input.reader, parse_slice_by_the_standard);
            exhausted = failure.happened();
        }
        if (exhausted) {
            EXPECT_TRUE(test::same_fields(slice, h265_slice_segment_header()));
        }
    }
    // The long-term arrays, two lists, entry points and extension.
    EXPECT_EQ(failures, 5U + 2U + 1U + 1U);
}

TEST(SliceExhaustion, LeavesNoValidSliceThatTakesOver) {
    h265_slice_segment_header independent;
    test::rbsp input{slice_read_by_the_standard().bytes()};
    ASSERT_TRUE(parse_slice_by_the_standard(independent, input.reader));
    std::size_t failures = 0;
    for (bool exhausted = true; exhausted; failures += exhausted ? 1 : 0) {
        h265_slice_segment_header segment;
        segment.valid = true;
        bool thrown = false;
        {
            const test::allocation_failure failure(failures + 1);
            try {
                segment.take_over(independent);
            } catch (const std::bad_alloc&) {
                thrown = true;
            }
            exhausted = failure.happened();
        }
        EXPECT_EQ(thrown, exhausted);
        EXPECT_EQ(segment.valid, !exhausted);
    }
    // Long-term pictures and both lists; entry points and extension are those of the segment
    // itself.
    EXPECT_EQ(failures, 5U + 2U);
}

TEST(SliceExhaustion, ClearsValidOfAMessageReadByTheStandard) {
    expect_ending_at_every_allocation<h265_nal_sei_active_parameter_sets>(
        active_parameter_sets(), ending::failure,
        [](auto& sets, auto& reader) {
            static h2645_common_base_store<h265_nal_vps> store = vps_store_with_layers();
            return sets.parse_standard(reader, store);
        },
        becomes_false);
    expect_ending_at_every_allocation<h265_nal_sei_buffering_period>(
        buffering_period(), ending::failure,
        [](auto& period, auto& reader) {
            static const h2645_common_base_store<h265_nal_sps> store = sps_store_with_hrd();
            return period.parse_standard(reader, store);
        },
        becomes_false);
    expect_ending_at_every_allocation<h265_nal_sei_pic_timing>(
        pic_timing(), ending::failure,
        [](auto& timing, auto& reader) {
            static const h2645_common_base_store<h265_nal_sps> store = [] {
                auto with_decoding_units = sps_store_with_hrd();
                h265_nal_sps& sps = with_decoding_units[0];
                sps.pic_width_in_luma_samples = 640;
                sps.pic_height_in_luma_samples = 360;
                sps.vui_parameters.hrd_parameters.sub_pic_cpb_params_in_pic_timing_sei_flag = true;
                return with_decoding_units;
            }();
            return timing.parse_standard(reader, store);
        },
        becomes_false);
}

// ---- The limit of entries

constexpr unsigned int most_entries = 1048576;

// Parses a slice with this many long-term pictures, of which nothing else is in the data.
ending ending_with_long_term_pictures(h265_slice_segment_header& slice,
                                      unsigned int num_long_term_pics) {
    test::bit_writer bits;
    bits.u<1>(0).u<1>(1).ue(2).u<6>(59).ue(2).u<4>(11).u<1>(1).u<2>(1);
    bits.ue(0).ue(num_long_term_pics);
    test::rbsp input{bits.bytes()};
    return ending_of(slice, input.reader, parse_slice);
}

TEST(SliceEntryLimit, TakesAsManyLongTermPicturesAsTheLimit) {
    h265_slice_segment_header slice;
    EXPECT_EQ(ending_with_long_term_pictures(slice, most_entries), ending::success);
    EXPECT_EQ(slice.lt_idx_sps.size(), most_entries);
    EXPECT_EQ(slice.poc_lsb_lt.size(), most_entries);
    EXPECT_EQ(slice.used_by_curr_pic_lt_flag.size(), most_entries);
    EXPECT_EQ(slice.delta_poc_msb_present_flag.size(), most_entries);
    EXPECT_EQ(slice.delta_poc_msb_cycle_lt.size(), most_entries);
}

TEST(SliceEntryLimit, ThrowsBeforeItResizesForMoreLongTermPictures) {
    for (const unsigned int num_long_term_pics : {most_entries + 1, 0x7FFFFFFFU, 0xFFFFFFFEU}) {
        h265_slice_segment_header slice;
        slice.lt_idx_sps = {1, 2};
        slice.poc_lsb_lt = {3, 4};
        slice.used_by_curr_pic_lt_flag = {true, true};
        slice.delta_poc_msb_present_flag = {true, true};
        slice.delta_poc_msb_cycle_lt = {5, 6};
        slice.valid = true;
        EXPECT_EQ(ending_with_long_term_pictures(slice, num_long_term_pics), ending::exception);
        EXPECT_FALSE(slice.valid);
        EXPECT_EQ(slice.num_long_term_pics, num_long_term_pics);
        EXPECT_EQ(slice.lt_idx_sps, (values{1, 2}));
        EXPECT_EQ(slice.poc_lsb_lt, (values{3, 4}));
        EXPECT_EQ(slice.used_by_curr_pic_lt_flag, std::vector<bool>(2, true));
        EXPECT_EQ(slice.delta_poc_msb_present_flag, std::vector<bool>(2, true));
        EXPECT_EQ(slice.delta_poc_msb_cycle_lt, (values{5, 6}));
    }
}

TEST(SliceEntryLimit, IsThatOfTheSumOfBothCounts) {
    test::bit_writer bits;
    bits.u<1>(0).u<1>(1).ue(2).u<6>(59).ue(2).u<4>(11).u<1>(1).u<2>(1);
    bits.ue(most_entries / 2).ue(most_entries / 2 + 1);
    test::rbsp input{bits.bytes()};
    h265_slice_segment_header slice;
    EXPECT_EQ(ending_of(slice, input.reader, parse_slice), ending::exception);
    EXPECT_TRUE(slice.lt_idx_sps.empty());
}

// The answer is known before anything is sized, however long the arrays would be.
TEST(SliceEntryLimit, FailsOfEveryNumberWithoutCandidatesInTheSps) {
    host stream;
    stream.sps_store.at(5).num_long_term_ref_pics_sps = 0;
    const auto parse = [&](h265_slice_segment_header& record, h2645_common_bitreader& reader) {
        return stream.parse(record, reader);
    };
    for (const unsigned int num_long_term_pics :
         {0U, 1U, most_entries, most_entries + 1, 0x7FFFFFFFU, 0xFFFFFFFEU}) {
        test::bit_writer bits;
        bits.u<1>(0).u<1>(1).ue(2).u<6>(59).ue(2).u<4>(11).u<1>(1).u<2>(1);
        bits.ue(num_long_term_pics);
        test::rbsp input{bits.bytes()};
        h265_slice_segment_header slice;
        const test::allocation_count memory;
        const ending result = ending_of(slice, input.reader, parse);
        const std::size_t allocations = memory.allocations();
        EXPECT_EQ(result, ending::failure) << num_long_term_pics;
        EXPECT_FALSE(slice.valid);
        EXPECT_EQ(slice.num_long_term_pics, num_long_term_pics);
        EXPECT_EQ(input.reader.bit_position(), bits.size());
        if (num_long_term_pics > most_entries) {
            EXPECT_EQ(allocations, 0U);
        } else {
            EXPECT_EQ(slice.lt_idx_sps.size(), num_long_term_pics);
        }
    }
}

// num_long_term_sps is not read then, and keeps what it was.
TEST(SliceEntryLimit, FailsOfASumThatEarlierSlicesMakeTooLarge) {
    host stream;
    stream.sps_store.at(5).num_long_term_ref_pics_sps = 0;
    const auto parse = [&](h265_slice_segment_header& record, h2645_common_bitreader& reader) {
        return stream.parse(record, reader);
    };
    test::bit_writer bits;
    bits.u<1>(0).u<1>(1).ue(2).u<6>(59).ue(2).u<4>(11).u<1>(1).u<2>(1).ue(most_entries);
    test::rbsp input{bits.bytes()};
    h265_slice_segment_header slice;
    slice.num_long_term_sps = 1;
    slice.lt_idx_sps = {7, 8};
    EXPECT_EQ(ending_of(slice, input.reader, parse), ending::failure);
    EXPECT_FALSE(slice.valid);
    EXPECT_EQ(slice.lt_idx_sps, (values{7, 8}));
}

TEST(SliceEntryLimit, ReachesTheCallerOfASliceFromItsLists) {
    slice_syntax syntax;
    syntax.reference_indices = test::bit_writer().u<1>(1).u<1>(0).u<1>(1).ue(most_entries).ue(0);
    test::rbsp first_list{syntax.bits().bytes()};
    h265_slice_segment_header slice;
    EXPECT_EQ(ending_of(slice, first_list.reader, parse_slice), ending::exception);
    EXPECT_FALSE(slice.valid);
    EXPECT_FALSE(slice.ref_pic_lists_modification.valid);
    EXPECT_TRUE(slice.ref_pic_lists_modification.list_entry_l0.empty());

    syntax.reference_indices = test::bit_writer().u<1>(1).u<1>(0).u<1>(1).ue(0).ue(0xFFFFFFFE);
    syntax.lists = test::bit_writer().u<1>(0).u<1>(1);
    test::rbsp second_list{syntax.bits().bytes()};
    EXPECT_EQ(ending_of(slice, second_list.reader, parse_slice), ending::exception);
    EXPECT_TRUE(slice.ref_pic_lists_modification.list_entry_l1.empty());
}

TEST(SliceEntryLimit, AllocatesNothingBeforeItThrows) {
    test::bit_writer bits;
    bits.u<1>(0).u<1>(1).ue(2).u<6>(59).ue(2).u<4>(11).u<1>(1).u<2>(1);
    bits.ue(0).ue(most_entries + 1);
    test::rbsp input{bits.bytes()};
    host stream;
    const auto parse = [&](h265_slice_segment_header& record, h2645_common_bitreader& reader) {
        return stream.parse(record, reader);
    };
    h265_slice_segment_header slice;
    const test::allocation_count memory;
    const ending result = ending_of(slice, input.reader, parse);
    EXPECT_EQ(memory.allocations(), 0U);
    EXPECT_EQ(result, ending::exception);
}

// ---- Records used again

// A second parse into a record that has the storage, and then a third.
template <class Record, class Parse>
void expect_no_allocation_when_parsed_again(const test::bit_writer& bits, Parse parse) {
    Record record;
    test::rbsp first{bits.bytes()};
    ASSERT_TRUE(parse(record, first.reader));
    const Record after_first = record;
    for (int again = 0; again < 2; ++again) {
        test::rbsp next{bits.bytes()};
        const test::allocation_count memory;
        const bool result = parse(record, next.reader);
        EXPECT_EQ(memory.allocations(), 0U);
        EXPECT_TRUE(result);
        EXPECT_TRUE(test::same_fields(record, after_first));
    }
}

TEST(SliceReuse, AllocatesNothingForALikeSlice) {
    expect_no_allocation_when_parsed_again<h265_slice_segment_header>(slice_syntax().bits(),
                                                                      parse_slice);
    slice_syntax syntax;
    syntax.short_term_set = own_set();
    expect_no_allocation_when_parsed_again<h265_slice_segment_header>(syntax.bits(), parse_slice);
}

TEST(SliceReuse, AllocatesNothingForALikeSliceReadByTheStandard) {
    expect_no_allocation_when_parsed_again<h265_slice_segment_header>(slice_read_by_the_standard(),
                                                                      parse_slice_by_the_standard);
}

TEST(SliceReuse, AllocatesNothingForALikeMessage) {
    expect_no_allocation_when_parsed_again<h265_nal_sei_active_parameter_sets>(
        active_parameter_sets(), parse_active_parameter_sets);
    expect_no_allocation_when_parsed_again<h265_nal_sei_pic_timing>(pic_timing(), parse_pic_timing);
    expect_no_allocation_when_parsed_again<h265_nal_sei_buffering_period>(buffering_period(),
                                                                          parse_buffering_period);
}

using test::exhaustion;
using test::expect_sound_reuse;

template <class Record>
bool clears_valid(const Record& /*failed*/, bool /*valid_before*/) {
    return false;
}

template <class Record>
bool leaves_valid(const Record& /*failed*/, bool valid_before) {
    return valid_before;
}

template <class Record, class Parse>
test::content<Record> content_of(const test::bit_writer& bits, Parse parse) {
    return {bits, parse};
}

TEST(SliceReuse, SurvivesExhaustionInASlice) {
    // A long-term picture of the SPS, and a list of one of the two pictures there are.
    slice_syntax small;
    small.long_term_pictures = test::bit_writer().ue(1).ue(0).u<2>(2).u<1>(0).u<1>(1);
    small.reference_indices = test::bit_writer().u<1>(1).u<1>(0).u<1>(1).ue(0).ue(0);
    small.lists = test::bit_writer().u<1>(1).u<2>(1).u<1>(1).u<2>(1);
    // More of everything than a word of std::vector<bool> holds.
    constexpr unsigned int pictures = 70;
    slice_syntax large;
    large.long_term_pictures = test::bit_writer().ue(1).ue(pictures).u<2>(0).u<1>(0);
    for (unsigned int i = 0; i < pictures; ++i) {
        large.long_term_pictures.u<4>(i % 16).u<1>(1).u<1>(0);
    }
    large.long_term_pictures.u<1>(1);  // slice_temporal_mvp_enabled_flag
    expect_sound_reuse(content_of<h265_slice_segment_header>(small.bits(), parse_slice),
                       content_of<h265_slice_segment_header>(large.bits(), parse_slice),
                       exhaustion::throws, clears_valid<h265_slice_segment_header>);
}

// P slices with so many weights and so many bytes of an extension; the smaller one has one entry
// point, the larger one five.
test::bit_writer weighted_slice(unsigned int entries) {
    test::bit_writer bits = test::bit_writer().u<1>(0).u<1>(1).ue(2).u<6>(59).ue(1).u<4>(11);
    bits.u<1>(1).u<1>(0).ue(0).ue(0).u<1>(0);          // set 0, no long-term pictures
    bits.u<2>(0).u<1>(1).ue(entries - 1).ue(0).se(0);  // denominators
    for (unsigned int i = 0; i < entries; ++i) {
        bits.u<1>(1);
    }
    for (unsigned int i = 0; i < entries; ++i) {
        bits.u<1>(0);
    }
    for (unsigned int i = 0; i < entries; ++i) {
        bits.se(1).se(2);
    }
    bits.ue(0).se(0);
    const unsigned int entry_points = entries == 1 ? 1 : 5;
    bits.ue(entry_points).ue(2);
    for (unsigned int i = 0; i < entry_points; ++i) {
        bits.u<3>(i);
    }
    bits.ue(entries);
    for (unsigned int i = 0; i < entries; ++i) {
        bits.u<8>(i);
    }
    return bits.trailing_bits();
}

TEST(SliceReuse, SurvivesExhaustionInASliceReadByTheStandard) {
    expect_sound_reuse(
        content_of<h265_slice_segment_header>(weighted_slice(1), parse_slice_by_the_standard),
        content_of<h265_slice_segment_header>(weighted_slice(15), parse_slice_by_the_standard),
        exhaustion::throws, clears_valid<h265_slice_segment_header>);
}

TEST(SliceReuse, SurvivesExhaustionInTheSetOfASlice) {
    // I slices without long-term pictures, and sets of one picture and of 70.
    const auto with_set = [](unsigned int pictures) {
        test::bit_writer bits;
        bits.u<1>(0).u<1>(1).ue(2).u<6>(59).ue(2).u<4>(11).u<1>(0).u<1>(0).ue(pictures).ue(0);
        for (unsigned int i = 0; i < pictures; ++i) {
            bits.ue(0).u<1>(1);
        }
        bits.ue(0).ue(0).u<1>(1).u<1>(1).u<1>(0);
        return content_of<h265_slice_segment_header>(bits, parse_slice);
    };
    expect_sound_reuse(with_set(1), with_set(70), exhaustion::returns_false,
                       clears_valid<h265_slice_segment_header>);
}

TEST(SliceReuse, SurvivesExhaustionInAListModification) {
    const auto of_entries = [](unsigned int entries) {
        h265_slice_segment_header header;
        header.NumPicTotalCurr = 3;
        header.num_ref_idx_l0_active_minus1 = entries - 1;
        header.num_ref_idx_l1_active_minus1 = entries - 1;
        test::bit_writer bits;
        for (int list = 0; list < 2; ++list) {
            bits.u<1>(1);
            for (unsigned int i = 0; i < entries; ++i) {
                bits.u<2>(i % 3);
            }
        }
        return content_of<h265_ref_pic_lists_modification>(
            bits, [header](auto& lists, auto& reader) { return lists.parse(reader, header); });
    };
    expect_sound_reuse(of_entries(1), of_entries(5), exhaustion::throws,
                       clears_valid<h265_ref_pic_lists_modification>);
}

TEST(SliceReuse, SurvivesExhaustionInActiveParameterSets) {
    const auto of = [](unsigned char max_layers_minus1, unsigned int sps_ids) {
        auto store = vps_store_with_layers();
        store[3].vps_max_layers_minus1 = max_layers_minus1;
        test::bit_writer bits = test::bit_writer().u<4>(3).u<1>(1).u<1>(1).ue(sps_ids - 1);
        for (unsigned int i = 0; i < sps_ids + max_layers_minus1; ++i) {
            bits.ue(i);
        }
        return content_of<h265_nal_sei_active_parameter_sets>(
            bits, [store](auto& sets, auto& reader) mutable { return sets.parse(reader, store); });
    };
    expect_sound_reuse(of(0, 1), of(2, 5), exhaustion::returns_false,
                       clears_valid<h265_nal_sei_active_parameter_sets>);
}

TEST(SliceReuse, SurvivesExhaustionInPictureTiming) {
    const auto of_units = [](unsigned int units) {
        test::bit_writer bits;
        bits.u<4>(3).u<2>(1).u<1>(1).u<8>(11).u<8>(12).u<8>(13).ue(units - 1).u<1>(0);
        for (unsigned int i = 0; i + 1 < units; ++i) {
            bits.ue(4).u<8>(14);
        }
        return content_of<h265_nal_sei_pic_timing>(bits.ue(6), parse_pic_timing);
    };
    expect_sound_reuse(of_units(1), of_units(5), exhaustion::returns_false,
                       leaves_valid<h265_nal_sei_pic_timing>);
}

TEST(SliceReuse, SurvivesExhaustionInABufferingPeriod) {
    const auto of_cpbs = [](unsigned int cpb_cnt_minus1) {
        auto store = sps_store_with_hrd();
        store[0].vui_parameters.hrd_parameters.cpb_cnt_minus1 = {cpb_cnt_minus1};
        test::bit_writer bits;
        bits.ue(0).u<1>(1).u<8>(21);
        for (unsigned int i = 0; i < 8 * (cpb_cnt_minus1 + 1); ++i) {
            bits.u<8>(22 + i);
        }
        bits.u<1>(1).trailing_bits();
        return content_of<h265_nal_sei_buffering_period>(
            bits, [store](auto& period, auto& reader) { return period.parse(reader, store); });
    };
    expect_sound_reuse(of_cpbs(0), of_cpbs(3), exhaustion::returns_false,
                       leaves_valid<h265_nal_sei_buffering_period>);
}

}  // namespace
}  // namespace kovran
