// Ranges of a slice header's elements that hang on the extensions of its parameter sets, or on
// values that no parameter set should have.
#include <kovran/h265/h265_slice_segment_header.h>
#include <kovran/h265/h265_trace.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <vector>

#include "support/bit_writer.h"
#include "support/rbsp.h"
#include "support/slice_stores.h"

namespace kovran {
namespace {

using names = std::vector<std::string>;

// Of an IDR picture's I slice whose elements from slice_qp_delta on are coded as these numbers.
names out_of_range(test::slice_stores& stream, const std::vector<int>& coded) {
    test::bit_writer bits = test::bit_writer().u<1>(1).u<1>(0).ue(0).ue(2);
    for (const int number : coded) {
        bits.se(number);
    }
    test::rbsp input{bits.trailing_bits().bytes()};
    h265_slice_segment_header slice;
    h265_trace trace;
    EXPECT_TRUE(slice.parse_standard(input.reader, stream.pps_store, stream.sps_store,
                                     stream.vps_store, IDR_N_LP, trace));
    names found;
    for (const h265_traced_element& element : trace.elements) {
        if (element.out_of_range) {
            found.push_back(path_of(trace, element));
        }
    }
    return found;
}

// SliceQpY is -QpBdOffsetY to 51: 26, what the PPS adds, and what the slice adds.
TEST(SliceRanges, OfTheQuantizerHangOnTheBitDepth) {
    struct {
        unsigned int bit_depth_luma_minus8;
        int init_qp_minus26, lowest, highest;
    } const cases[] = {{0, 0, -26, 25}, {0, -26, 0, 51}, {0, 25, -51, 0}, {2, 0, -38, 25},
                       {8, -74, 0, 99}, {8, 25, -99, 0}, {8, 0, -74, 25}, {4, 10, -60, 15}};
    const names told{"slice_qp_delta"};
    for (const auto& each : cases) {
        SCOPED_TRACE(each.lowest);
        test::slice_stores stream;
        stream.sps().bit_depth_luma_minus8 = each.bit_depth_luma_minus8;
        stream.pps().init_qp_minus26 = each.init_qp_minus26;
        EXPECT_EQ(out_of_range(stream, {each.lowest}), names());
        EXPECT_EQ(out_of_range(stream, {each.highest}), names());
        EXPECT_EQ(out_of_range(stream, {each.lowest - 1}), told);
        EXPECT_EQ(out_of_range(stream, {each.highest + 1}), told);
    }
}

// The PPS codes 4, -5 and 2, with 5, 5 and 3 added to them.
TEST(SliceRanges, OfActOffsetsHangOnThoseOfThePps) {
    test::slice_stores stream;
    h265_pps_scc_extension& pps = stream.pps().pps_scc_extension;
    pps.pps_slice_act_qp_offsets_present_flag = true;
    pps.pps_act_y_qp_offset_plus5 = 9;
    pps.pps_act_cb_qp_offset_plus5 = 0;
    pps.pps_act_cr_qp_offset_plus3 = 5;
    EXPECT_EQ(out_of_range(stream, {0, -12, -7, -12}), names());
    EXPECT_EQ(out_of_range(stream, {0, 8, 12, 10}), names());
    EXPECT_EQ(out_of_range(stream, {0, -13, 0, 0}), names{"slice_act_y_qp_offset"});
    EXPECT_EQ(out_of_range(stream, {0, 9, 0, 0}), names{"slice_act_y_qp_offset"});
    EXPECT_EQ(out_of_range(stream, {0, 0, -8, 0}), names{"slice_act_cb_qp_offset"});
    EXPECT_EQ(out_of_range(stream, {0, 0, 13, 0}), names{"slice_act_cb_qp_offset"});
    EXPECT_EQ(out_of_range(stream, {0, 0, 0, -13}), names{"slice_act_cr_qp_offset"});
    EXPECT_EQ(out_of_range(stream, {0, 0, 0, 11}), names{"slice_act_cr_qp_offset"});

    // -12 and 12 are what the PPS may say at the most; a record that no PPS was read into has -5,
    // -5 and -3.
    pps.pps_act_y_qp_offset_plus5 = -7;
    pps.pps_act_cb_qp_offset_plus5 = 17;
    pps.pps_act_cr_qp_offset_plus3 = 0;
    EXPECT_EQ(out_of_range(stream, {0, 0, 0, -9}), names());
    EXPECT_EQ(out_of_range(stream, {0, 12, -12, 12}), names());
    EXPECT_EQ(out_of_range(stream, {0, -1, 1, -10}),
              (names{"slice_act_y_qp_offset", "slice_act_cb_qp_offset", "slice_act_cr_qp_offset"}));
}

// No value is in a range that is empty; none is too large to tell.
TEST(SliceRanges, MayBeEmpty) {
    test::slice_stores stream;
    stream.pps().pps_slice_chroma_qp_offsets_present_flag = true;
    stream.pps().pps_cb_qp_offset = 0x7FFFFFFF;
    stream.pps().pps_cr_qp_offset = -0x7FFFFFFF;
    EXPECT_EQ(out_of_range(stream, {0, 0, 0}), (names{"slice_cb_qp_offset", "slice_cr_qp_offset"}));
    EXPECT_EQ(out_of_range(stream, {0, -0x7FFFFFFF, 0x7FFFFFFF}),
              (names{"slice_cb_qp_offset", "slice_cr_qp_offset"}));

    stream.pps().pps_slice_chroma_qp_offsets_present_flag = false;
    stream.sps().bit_depth_luma_minus8 = 0xFFFFFFFF;
    EXPECT_EQ(out_of_range(stream, {-0x7FFFFFFF}), names());
    stream.pps().init_qp_minus26 = 0x7FFFFFFF;
    EXPECT_EQ(out_of_range(stream, {0}), names{"slice_qp_delta"});
}

}  // namespace
}  // namespace kovran
