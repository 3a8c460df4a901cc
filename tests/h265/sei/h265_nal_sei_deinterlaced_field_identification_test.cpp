#include <kovran/h265/sei/h265_nal_sei_deinterlaced_field_identification.h>

#include <kovran/h265/h265_trace.h>

#include <gtest/gtest.h>

#include "support/rbsp.h"
#include "support/sei_payload.h"

namespace kovran {
namespace {

TEST(H265NalSeiDeinterlacedFieldIdentification, IsABottomField) {
    const auto field = test::record_of<h265_nal_sei_deinterlaced_field_identification>(
        "1", "deinterlaced_picture_source_parity_flag 1\n");
    EXPECT_TRUE(field.deinterlaced_picture_source_parity_flag);
}

TEST(H265NalSeiDeinterlacedFieldIdentification, IsATopField) {
    const auto field = test::record_of<h265_nal_sei_deinterlaced_field_identification>(
        "0", "deinterlaced_picture_source_parity_flag 0\n");
    EXPECT_FALSE(field.deinterlaced_picture_source_parity_flag);
}

TEST(H265NalSeiDeinterlacedFieldIdentification, IsReadByItself) {
    const auto payload = test::bytes_of("1");
    h265_nal_sei_deinterlaced_field_identification record;
    h265_fault fault;
    test::rbsp input(payload);
    EXPECT_TRUE(record.parse_standard(input.reader));
    EXPECT_TRUE(record.valid);
    EXPECT_TRUE(record.deinterlaced_picture_source_parity_flag);
    test::rbsp traced(payload);
    h265_trace trace;
    EXPECT_TRUE(record.parse_standard(traced.reader, trace, &fault));
    EXPECT_EQ(trace.elements.size(), 1U);
    EXPECT_EQ(fault.kind, h265_fault_kind::none);
    EXPECT_TRUE(record.deinterlaced_picture_source_parity_flag);
    test::rbsp none;
    EXPECT_FALSE(record.parse_standard(none.reader, &fault));
    EXPECT_FALSE(record.valid);
    EXPECT_NE(fault.kind, h265_fault_kind::none);
}

}  // namespace
}  // namespace kovran
