#include <kovran/h265/sei/h265_nal_sei_coded_region_completion.h>

#include <kovran/h265/h265_trace.h>

#include <gtest/gtest.h>

#include "support/rbsp.h"
#include "support/sei_payload.h"

namespace kovran {
namespace {

TEST(H265NalSeiCodedRegionCompletion, NamesTheNextSegment) {
    const auto completion =
        test::record_of<h265_nal_sei_coded_region_completion>("00111 1",
                                                              "next_segment_address 6\n"
                                                              "independent_slice_segment_flag 1\n");
    EXPECT_EQ(completion.next_segment_address, 6U);
    EXPECT_TRUE(completion.independent_slice_segment_flag);
}

TEST(H265NalSeiCodedRegionCompletion, EndsThePicture) {
    const auto completion =
        test::record_of<h265_nal_sei_coded_region_completion>("1", "next_segment_address 0\n");
    EXPECT_EQ(completion.next_segment_address, 0U);
    EXPECT_FALSE(completion.independent_slice_segment_flag);
}

TEST(H265NalSeiCodedRegionCompletion, IsReadByItself) {
    const auto payload = test::bytes_of("00111 1");
    h265_nal_sei_coded_region_completion record;
    h265_fault fault;
    test::rbsp input(payload);
    EXPECT_TRUE(record.parse_standard(input.reader));
    EXPECT_TRUE(record.valid);
    EXPECT_EQ(record.next_segment_address, 6U);
    test::rbsp traced(payload);
    h265_trace trace;
    EXPECT_TRUE(record.parse_standard(traced.reader, trace, &fault));
    EXPECT_EQ(trace.elements.size(), 2U);
    EXPECT_EQ(fault.kind, h265_fault_kind::none);
    EXPECT_EQ(record.next_segment_address, 6U);
    test::rbsp none;
    EXPECT_FALSE(record.parse_standard(none.reader, &fault));
    EXPECT_FALSE(record.valid);
    EXPECT_NE(fault.kind, h265_fault_kind::none);
}

}  // namespace
}  // namespace kovran
