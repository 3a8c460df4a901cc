// Where the library's own rules decide otherwise than the standard's, a traced parse() names the
// rule at the element that is read by it; behind the last element, at that.
#include <kovran/h265/h265_nal_pps.h>
#include <kovran/h265/h265_nal_sps.h>
#include <kovran/h265/h265_nal_vps.h>
#include <kovran/h265/h265_slice_segment_header.h>
#include <kovran/h265/h265_trace.h>

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "support/bit_writer.h"
#include "support/parameter_sets.h"
#include "support/rbsp.h"
#include "support/slice_stores.h"

namespace kovran {
namespace {

// The elements that name a rule, with it.
using notes = std::vector<std::pair<std::string, std::string>>;

notes notes_of(const h265_trace& trace) {
    notes found;
    for (const h265_traced_element& element : trace.elements) {
        if (element.rule != nullptr) {
            found.emplace_back(to_string(name_of(trace, element)), element.rule);
        }
    }
    return found;
}

struct host : test::slice_stores {
    notes notes_of_slice(const test::bit_writer& bits) {
        test::bit_writer padded = bits;
        test::rbsp input{padded.u<32>(0xFFFFFFFF).bytes()};
        h265_trace trace;
        static_cast<void>(
            slice.parse(input.reader, pps_store, sps_store, vps_store, TRAIL_R, trace));
        return notes_of(trace);
    }

    h265_slice_segment_header slice;
};

constexpr unsigned int slice_p = 1;
constexpr unsigned int slice_i = 2;

// Of the first segment: up to slice_pic_order_cnt_lsb.
test::bit_writer slice_of(unsigned int slice_type) {
    return test::bit_writer().u<1>(1).ue(0).ue(slice_type).u<4>(9);
}

TEST(NotedRules, AreNoneWhereTheReadingsAgree) {
    host stream;
    EXPECT_EQ(stream.notes_of_slice(slice_of(slice_i).u<1>(0).ue(0).ue(0)), notes());
}

TEST(NotedRules, NameTheWidthOfAnIndex) {
    host stream;
    stream.sps().num_short_term_ref_pic_sets = 4;
    stream.sps().st_ref_pic_set.resize(4);
    EXPECT_EQ(stream.notes_of_slice(slice_of(slice_i).u<1>(1).u<3>(3)),
              (notes{{"short_term_ref_pic_set_idx", "index_width"}}));
    stream.sps().num_short_term_ref_pic_sets = 3;
    EXPECT_EQ(stream.notes_of_slice(slice_of(slice_i).u<1>(1).u<2>(2)), notes());
}

TEST(NotedRules, NameASetThatTheSpsDoesNotHave) {
    host stream;
    stream.sps().num_short_term_ref_pic_sets = 3;
    stream.sps().st_ref_pic_set.resize(3);
    EXPECT_EQ(stream.notes_of_slice(slice_of(slice_i).u<1>(1).u<2>(3)),
              (notes{{"short_term_ref_pic_set_idx", "has_set"}}));
}

TEST(NotedRules, NameAnUnknownSliceType) {
    host stream;
    EXPECT_EQ(stream.notes_of_slice(slice_of(3).u<1>(0).ue(0).ue(0)),
              (notes{{"slice_pic_order_cnt_lsb", "is_slice_type"}}));
}

TEST(NotedRules, NameWhatMotionVectorPredictionLeavesOut) {
    host stream;
    stream.sps().sps_temporal_mvp_enabled_flag = true;
    EXPECT_EQ(stream.notes_of_slice(slice_of(slice_p).u<1>(0).ue(0).ue(0).u<1>(0)),
              (notes{{"num_ref_idx_active_override_flag", "has_temporal_mvp_flag"}}));
}

// A dependent segment first; the flag that it leaves ends the header of the next picture.
TEST(NotedRules, NameAFlagThatIsLeftOver) {
    host stream;
    stream.sps().pic_width_in_luma_samples = 192;
    stream.pps().dependent_slice_segments_enabled_flag = true;
    EXPECT_EQ(stream.notes_of_slice(test::bit_writer().u<1>(0).ue(0).u<1>(1).u<2>(1)), notes());
    EXPECT_TRUE(stream.slice.dependent_slice_segment_flag);
    EXPECT_EQ(stream.notes_of_slice(slice_of(slice_i).u<1>(0).ue(0).ue(0)),
              (notes{{"slice_pic_parameter_set_id", "is_dependent"}}));
}

TEST(NotedRules, NameAParameterSetThatIsMissing) {
    test::rbsp input{test::sps_syntax().rbsp().bytes()};
    h2645_common_base_store<h265_nal_vps> store;
    h265_nal_sps sps;
    h265_trace trace;
    EXPECT_FALSE(sps.parse(input.reader, store, trace));
    EXPECT_EQ(notes_of(trace), (notes{{"sps_video_parameter_set_id", "has_named_set"}}));
}

// The first structure has no common information by the library's own rules, the second has its own,
// with NAL or VCL parameters, and the third has none: by the standard's rules that of the second.
TEST(NotedRules, NameCommonInformationThatIsNotTakenOver) {
    for (const bool nal : {true, false}) {
        SCOPED_TRACE(nal ? "NAL" : "VCL");
        const test::bit_writer sub_layer = test::bit_writer().u<1>(1).ue(0).ue(0);
        test::vps_syntax syntax;
        syntax.layer_sets = test::bit_writer().u<6>(0).ue(2).u<1>(1).u<1>(1);
        test::bit_writer& bits = syntax.timing_info;
        bits = test::bit_writer().u<1>(1).u<32>(1).u<32>(50).u<1>(0).ue(3);
        test::append(bits.ue(0), sub_layer);
        bits.ue(1).u<1>(1).u<1>(nal ? 1 : 0).u<1>(nal ? 0 : 1).u<1>(0).u<8>(0).u<15>(0);
        test::append(bits, sub_layer).ue(4).ue(5).u<1>(0);
        test::append(bits.ue(2).u<1>(0), sub_layer);
        test::rbsp input{syntax.rbsp().bytes()};
        h265_nal_vps vps;
        h265_trace trace;
        EXPECT_TRUE(vps.parse(input.reader, trace));
        EXPECT_EQ(notes_of(trace),
                  (notes{{"hrd_layer_set_idx[0]", "infer_first_cprms_present_flag"},
                         {"fixed_pic_rate_general_flag[0]", "infer_common_information"}}));
    }
}

TEST(NotedRules, NameMoreCandidatesThanTheSpsHas) {
    host stream;
    stream.sps().long_term_ref_pics_present_flag = true;
    stream.sps().num_long_term_ref_pics_sps = 1;
    stream.sps().lt_ref_pic_poc_lsb_sps = {3};
    stream.sps().used_by_curr_pic_lt_sps_flag = {true};
    // An empty set of the slice's own; two candidates, 17 more pictures.
    const test::bit_writer up_to_counts = slice_of(slice_i).u<1>(0).ue(0).ue(0);
    test::bit_writer candidates = up_to_counts;
    EXPECT_EQ(stream.notes_of_slice(candidates.ue(2).ue(0).u<2>(0)),
              (notes{{"delta_poc_msb_present_flag[0]", "max_long_term_sps"}}));
    test::bit_writer pictures = up_to_counts;
    pictures.ue(0).ue(17);
    for (unsigned int i = 0; i < 17; ++i) {
        pictures.u<4>(i % 16).u<1>(0).u<1>(0);
    }
    EXPECT_EQ(stream.notes_of_slice(pictures), (notes{{"poc_lsb_lt[0]", "max_long_term_pics"}}));
}

TEST(NotedRules, NameABoundThatTheStandardHas) {
    test::sps_syntax syntax;
    syntax.sps_seq_parameter_set_id = test::bit_writer().ue(16);
    test::rbsp input{syntax.rbsp().bytes()};
    auto store = test::vps_store_with(0);
    h265_nal_sps sps;
    h265_trace trace;
    EXPECT_TRUE(sps.parse(input.reader, store, trace));
    EXPECT_EQ(notes_of(trace), (notes{{"chroma_format_idc", "max_sps_id"}}));
}

// At the extension data that are skipped, or behind the last element where there are none.
TEST(NotedRules, NameExtensionsThatAreSkipped) {
    test::sps_syntax sps_syntax;
    sps_syntax.extension = test::bit_writer().u<1>(1).u<8>(0b10000000).u<9>(1);
    test::rbsp sps_input{sps_syntax.rbsp().bytes()};
    auto vps_store = test::vps_store_with(0);
    h265_nal_sps sps;
    h265_trace trace;
    EXPECT_TRUE(sps.parse(sps_input.reader, vps_store, trace));
    EXPECT_EQ(notes_of(trace), (notes{{"sps_extension_data_flag", "knows_extensions"}}));

    test::pps_syntax pps_syntax;
    pps_syntax.extension = test::bit_writer().u<1>(1);
    test::rbsp pps_input{pps_syntax.rbsp().bytes()};
    auto sps_store = test::sps_store_with(0);
    h265_nal_pps pps;
    EXPECT_TRUE(pps.parse(pps_input.reader, sps_store, trace));
    EXPECT_EQ(notes_of(trace), (notes{{"rbsp_stop_one_bit", "knows_extensions"}}));

    pps_syntax.extension = test::bit_writer().u<1>(0);
    test::rbsp plain_input{pps_syntax.rbsp().bytes()};
    EXPECT_TRUE(pps.parse(plain_input.reader, sps_store, trace));
    EXPECT_EQ(notes_of(trace), notes());
}

}  // namespace
}  // namespace kovran
