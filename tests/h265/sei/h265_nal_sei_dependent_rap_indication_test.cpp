#include <kovran/h265/sei/h265_nal_sei_dependent_rap_indication.h>

#include <kovran/h265/h265_trace.h>

#include <gtest/gtest.h>

#include "support/rbsp.h"
#include "support/sei_payload.h"

namespace kovran {
namespace {

TEST(H265NalSeiDependentRapIndication, HasNoElements) {
    const auto indication = test::record_of<h265_nal_sei_dependent_rap_indication>("", "");
    EXPECT_TRUE(indication.valid);
}

TEST(H265NalSeiDependentRapIndication, IsReadByItself) {
    h265_nal_sei_dependent_rap_indication record;
    test::rbsp input;
    EXPECT_TRUE(record.parse_standard(input.reader));
    EXPECT_TRUE(record.valid);

    h265_trace trace;
    EXPECT_TRUE(record.parse_standard(input.reader, trace));
    EXPECT_TRUE(trace.elements.empty());

    input.reader.skip(1);
    EXPECT_FALSE(record.parse_standard(input.reader));
    EXPECT_FALSE(record.valid);
}

}  // namespace
}  // namespace kovran
