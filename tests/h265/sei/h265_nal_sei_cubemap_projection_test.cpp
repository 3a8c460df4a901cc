#include <kovran/h265/sei/h265_nal_sei_cubemap_projection.h>

#include <kovran/h265/h265_trace.h>

#include <gtest/gtest.h>

#include "support/rbsp.h"
#include "support/sei_payload.h"

namespace kovran {
namespace {

TEST(H265NalSeiCubemapProjection, LastsUntilTheNext) {
    const auto projection =
        test::record_of<h265_nal_sei_cubemap_projection>("0 1",
                                                         "cmp_cancel_flag 0\n"
                                                         "cmp_persistence_flag 1\n");
    EXPECT_TRUE(projection.cmp_persistence_flag);
}

TEST(H265NalSeiCubemapProjection, EndsAnEarlierOne) {
    const auto projection =
        test::record_of<h265_nal_sei_cubemap_projection>("1", "cmp_cancel_flag 1\n");
    EXPECT_TRUE(projection.cmp_cancel_flag);
    EXPECT_FALSE(projection.cmp_persistence_flag);
}

TEST(H265NalSeiCubemapProjection, IsReadByItself) {
    const auto payload = test::bytes_of("0 1");
    h265_nal_sei_cubemap_projection record;
    h265_fault fault;
    test::rbsp input(payload);
    EXPECT_TRUE(record.parse_standard(input.reader));
    EXPECT_TRUE(record.valid);
    EXPECT_TRUE(record.cmp_persistence_flag);
    test::rbsp traced(payload);
    h265_trace trace;
    EXPECT_TRUE(record.parse_standard(traced.reader, trace, &fault));
    EXPECT_EQ(trace.elements.size(), 2U);
    EXPECT_EQ(fault.kind, h265_fault_kind::none);
    EXPECT_TRUE(record.cmp_persistence_flag);
    test::rbsp none;
    EXPECT_FALSE(record.parse_standard(none.reader, &fault));
    EXPECT_FALSE(record.valid);
    EXPECT_NE(fault.kind, h265_fault_kind::none);
}

}  // namespace
}  // namespace kovran
