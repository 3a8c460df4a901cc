// Where a traced parse() of a slice names a rule by which the standard counts on: of pictures that
// refer to themselves.
#include <kovran/h265/h265_slice_segment_header.h>
#include <kovran/h265/h265_trace.h>

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "support/bit_writer.h"
#include "support/rbsp.h"
#include "support/slice_stores.h"

namespace kovran {
namespace {

// The elements that name a rule, with it.
using notes = std::vector<std::pair<std::string, std::string>>;

// Of a P slice without pictures of its own, up to num_ref_idx_active_override_flag, or of an I
// slice.
notes notes_of(test::slice_stores& stream, unsigned int slice_type) {
    test::bit_writer bits = test::bit_writer().u<1>(1).ue(0).ue(slice_type).u<4>(9);
    bits.u<1>(0).ue(0).ue(0);
    test::rbsp input{bits.u<1>(0).u<32>(0xFFFFFFFF).bytes()};
    h265_slice_segment_header slice;
    h265_trace trace;
    EXPECT_TRUE(slice.parse(input.reader, stream.pps_store, stream.sps_store, stream.vps_store,
                            TRAIL_R, trace));
    EXPECT_EQ(slice.NumPicTotalCurr, 0U);
    notes found;
    for (const h265_traced_element& element : trace.elements) {
        if (element.rule != nullptr) {
            found.emplace_back(to_string(name_of(trace, element)), element.rule);
        }
    }
    return found;
}

// The PPS is one that parse_standard() has read: parse() does not read its extension.
TEST(NotedSliceRules, NameThatTheCurrentPictureIsNotCounted) {
    test::slice_stores stream;
    EXPECT_EQ(notes_of(stream, 1), notes());
    stream.pps().pps_scc_extension.pps_curr_pic_ref_enabled_flag = true;
    EXPECT_EQ(notes_of(stream, 1),
              (notes{{"num_ref_idx_active_override_flag", "counts_current_picture"}}));
    EXPECT_EQ(notes_of(stream, 2), notes());
}

}  // namespace
}  // namespace kovran
