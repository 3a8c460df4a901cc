#include <kovran/h265/h265_slice_segment_header.h>

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <type_traits>

#include "support/allocation_failure.h"
#include "support/bit_writer.h"
#include "support/rbsp.h"
#include "support/same_fields.h"
#include "support/slice_record_fields.h"
#include "support/slice_stores.h"

namespace kovran {
namespace {

// A picture of two coding tree blocks, and slices with nearly everything.
struct host : test::slice_stores {
    host() {
        sps().pic_height_in_luma_samples = 128;
        sps().num_short_term_ref_pic_sets = 1;
        sps().st_ref_pic_set.resize(1);
        sps().long_term_ref_pics_present_flag = true;
        sps().sps_temporal_mvp_enabled_flag = true;
        sps().sample_adaptive_offset_enabled_flag = true;
        sps().sps_scc_extension.motion_vector_resolution_control_idc = 2;
        h265_nal_pps& pps = this->pps();
        pps.dependent_slice_segments_enabled_flag = true;
        pps.lists_modification_present_flag = true;
        pps.cabac_init_present_flag = true;
        pps.weighted_bipred_flag = true;
        pps.pps_slice_chroma_qp_offsets_present_flag = true;
        pps.pps_scc_extension.pps_slice_act_qp_offsets_present_flag = true;
        pps.pps_range_extension.chroma_qp_offset_list_enabled_flag = true;
        pps.deblocking_filter_override_enabled_flag = true;
        pps.pps_loop_filter_across_slices_enabled_flag = true;
        pps.entropy_coding_sync_enabled_flag = true;
        pps.slice_segment_header_extension_present_flag = true;
    }

    h265_slice_segment_header parsed(test::bit_writer bits) {
        bits.trailing_bits();  // byte_alignment() is the same
        test::rbsp input{bits.bytes()};
        h265_slice_segment_header slice;
        EXPECT_TRUE(slice.parse_standard(input.reader, pps_store, sps_store, vps_store, TRAIL_R));
        EXPECT_EQ(slice.slice_data_begin, bits.size() / 8);
        return slice;
    }
};

// A B slice with a set of its own, a long-term picture and two entries in each list.
h265_slice_segment_header independent_segment(host& stream) {
    test::bit_writer bits = test::bit_writer().u<1>(1).ue(0).ue(0).u<4>(9).u<1>(0);
    bits.u<1>(0).ue(1).ue(1).ue(0).u<1>(1).ue(0).u<1>(1);  // two used pictures
    bits.ue(1).u<4>(3).u<1>(1).u<1>(1).ue(6).u<1>(1);
    bits.u<1>(1).u<1>(1);                                      // SAO
    bits.u<1>(1).ue(1).ue(1);                                  // reference indices
    bits.u<1>(1).u<2>(2).u<2>(0).u<1>(1).u<2>(1).u<2>(2);      // of three pictures
    bits.u<1>(1).u<1>(1).u<1>(0).ue(1);                        // mvd, CABAC, collocated picture
    bits.ue(1).se(1).u<2>(3).u<2>(0).se(1).se(2).se(3).se(4);  // weights of list 0
    bits.u<2>(0).u<2>(1).se(1).se(2).se(3).se(4);              // and of list 1
    bits.ue(3).u<1>(1);
    bits.se(1).se(2).se(3).se(1).se(2).se(3).u<1>(1);
    bits.u<1>(1).u<1>(0).se(1).se(2).u<1>(1);
    bits.ue(1).ue(31).u<32>(0xFEDCBA98);
    return stream.parsed(bits.ue(2).u<16>(0x1234));
}

h265_slice_segment_header dependent_segment(host& stream) {
    const test::bit_writer start = test::bit_writer().u<1>(0).ue(0).u<1>(1).u<1>(1);
    return stream.parsed(test::bit_writer(start).ue(1).ue(7).u<8>(5).ue(3).u<24>(0x010203));
}

// What every slice segment header has.
bool is_of_segment(const std::string& field) {
    static const std::set<std::string> names = {"first_slice_segment_in_pic_flag",
                                                "no_output_of_prior_pics_flag",
                                                "slice_pic_parameter_set_id",
                                                "dependent_slice_segment_flag",
                                                "slice_segment_address",
                                                "valid",
                                                "num_entry_point_offsets",
                                                "offset_len_minus1",
                                                "entry_point_offset_minus1",
                                                "slice_segment_header_extension_length",
                                                "slice_segment_header_extension_data_byte",
                                                "slice_data_begin"};
    return names.count(field) != 0;
}

// Each field is that of one of the two, which differ in it.
void expect_taken_over(const h265_slice_segment_header& taken,
                       const h265_slice_segment_header& segment,
                       const h265_slice_segment_header& independent) {
    std::apply(
        [&](const auto&... field) {
            const auto expect_field = [&](const auto& each) {
                const auto& expected = is_of_segment(each.name) ? segment : independent;
                EXPECT_EQ(test::difference(taken.*(each.member), expected.*(each.member)), "")
                    << each.name;
            };
            (expect_field(field), ...);
        },
        test::fields_of<h265_slice_segment_header>::list);
}

TEST(SliceTakeOver, GivesTheFieldsOfTheIndependentSegment) {
    host stream;
    const auto independent = independent_segment(stream);
    const auto segment = dependent_segment(stream);
    auto taken = segment;
    taken.take_over(independent);
    expect_taken_over(taken, segment, independent);
    EXPECT_EQ(taken.slice_qp_delta, 1);
    EXPECT_EQ(taken.pred_weight_table.delta_luma_weight_l0,
              (h265_pred_weight_table::entries<int>{1, 3}));
    EXPECT_EQ(taken.entry_point_offset_minus1, std::vector<unsigned int>{5});
    EXPECT_EQ(taken.slice_segment_address, 1U);
    EXPECT_TRUE(taken.dependent_slice_segment_flag);
}

// That the test above would see a field that is forgotten.
TEST(SliceTakeOver, IsTestedWithSegmentsThatDiffer) {
    host stream;
    const auto independent = independent_segment(stream);
    const auto segment = dependent_segment(stream);
    const std::set<std::string> alike = {"no_output_of_prior_pics_flag",
                                         "slice_pic_parameter_set_id",
                                         "slice_type",
                                         "colour_plane_id",
                                         "valid",
                                         "short_term_ref_pic_set_sps_flag",
                                         "short_term_ref_pic_set_idx",
                                         "num_long_term_sps",
                                         "collocated_from_l0_flag",
                                         "num_entry_point_offsets",
                                         "CurrRpsIdx",
                                         "slice_deblocking_filter_disabled_flag"};
    std::apply(
        [&](const auto&... field) {
            const auto expect_difference = [&](const auto& each) {
                EXPECT_EQ(
                    test::difference(segment.*(each.member), independent.*(each.member)) == "",
                    alike.count(each.name) != 0)
                    << each.name;
            };
            (expect_difference(field), ...);
        },
        test::fields_of<h265_slice_segment_header>::list);
}

// The fields that are alike there, one by one.
TEST(SliceTakeOver, GivesFieldsThatAreSeldomCoded) {
    h265_slice_segment_header independent;
    independent.slice_type = 2;
    independent.colour_plane_id = 1;
    independent.short_term_ref_pic_set_sps_flag = true;
    independent.short_term_ref_pic_set_idx = 3;
    independent.num_long_term_sps = 4;
    independent.lt_idx_sps = {5};
    independent.CurrRpsIdx = 6;
    independent.collocated_from_l0_flag = true;
    independent.slice_deblocking_filter_disabled_flag = true;
    independent.no_output_of_prior_pics_flag = true;
    independent.slice_pic_parameter_set_id = 7;
    independent.num_entry_point_offsets = 8;
    independent.valid = true;
    h265_slice_segment_header taken;
    taken.take_over(independent);
    expect_taken_over(taken, h265_slice_segment_header(), independent);
    EXPECT_FALSE(taken.valid);
}

TEST(SliceTakeOver, MayBeRepeated) {
    host stream;
    const auto independent = independent_segment(stream);
    auto taken = dependent_segment(stream);
    taken.take_over(independent);
    const auto once = taken;
    taken.take_over(independent);
    EXPECT_TRUE(test::same_fields(taken, once));
    // A later segment may take over from an earlier one that has.
    auto next = dependent_segment(stream);
    next.take_over(once);
    EXPECT_TRUE(test::same_fields(next, once));
}

TEST(SliceTakeOver, ChangesNothingOfARecordItself) {
    host stream;
    auto slice = independent_segment(stream);
    const auto before = slice;
    slice.take_over(slice);
    EXPECT_TRUE(test::same_fields(slice, before));
}

// As a host does: one record for the independent segments, one for the dependent ones.
TEST(SliceTakeOver, AllocatesNothingForLikeSegments) {
    host stream;
    const auto independent = independent_segment(stream);
    test::bit_writer bits = test::bit_writer().u<1>(0).ue(0).u<1>(1).u<1>(1);
    bits.ue(1).ue(7).u<8>(5).ue(3).u<24>(0x010203).trailing_bits();
    h265_slice_segment_header segment;
    for (int i = 0; i < 3; ++i) {
        test::rbsp input{bits.bytes()};
        const test::allocation_count memory;
        EXPECT_TRUE(segment.parse_standard(input.reader, stream.pps_store, stream.sps_store,
                                           stream.vps_store, TRAIL_R));
        segment.take_over(independent);
        const std::size_t allocations = memory.allocations();
        EXPECT_EQ(allocations == 0, i > 0) << allocations;
    }
    EXPECT_TRUE(segment.valid);
}

// An I slice leaves nothing of the B slice before it.
TEST(SliceTakeOver, LeavesNothingOfAnEarlierSlice) {
    host stream;
    auto segment = dependent_segment(stream);
    const auto fresh = segment;
    segment.take_over(independent_segment(stream));
    h265_slice_segment_header intra;
    intra.slice_type = 2;
    segment.take_over(intra);
    expect_taken_over(segment, fresh, intra);
}

}  // namespace
}  // namespace kovran
