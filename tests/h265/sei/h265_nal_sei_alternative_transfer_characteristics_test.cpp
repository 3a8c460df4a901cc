#include <kovran/h265/sei/h265_nal_sei_alternative_transfer_characteristics.h>

#include <kovran/h265/h265_trace.h>

#include <gtest/gtest.h>

#include "support/rbsp.h"
#include "support/sei_payload.h"

namespace kovran {
namespace {

TEST(H265NalSeiAlternativeTransferCharacteristics, PrefersAnother) {
    const auto transfer = test::record_of<h265_nal_sei_alternative_transfer_characteristics>(
        "x92", "preferred_transfer_characteristics 146\n");
    EXPECT_EQ(transfer.preferred_transfer_characteristics, 0x92);
}

TEST(H265NalSeiAlternativeTransferCharacteristics, IsReadByItself) {
    const auto payload = test::bytes_of("x92");
    h265_nal_sei_alternative_transfer_characteristics record;
    h265_fault fault;
    test::rbsp input(payload);
    EXPECT_TRUE(record.parse_standard(input.reader));
    EXPECT_TRUE(record.valid);
    EXPECT_EQ(record.preferred_transfer_characteristics, 0x92);
    test::rbsp traced(payload);
    h265_trace trace;
    EXPECT_TRUE(record.parse_standard(traced.reader, trace, &fault));
    EXPECT_EQ(trace.elements.size(), 1U);
    EXPECT_EQ(fault.kind, h265_fault_kind::none);
    EXPECT_EQ(record.preferred_transfer_characteristics, 0x92);
    test::rbsp none;
    EXPECT_FALSE(record.parse_standard(none.reader, &fault));
    EXPECT_FALSE(record.valid);
    EXPECT_NE(fault.kind, h265_fault_kind::none);
}

}  // namespace
}  // namespace kovran
