#include <kovran/h265/sei/h265_nal_sei_no_display.h>

#include <gtest/gtest.h>

#include "support/rbsp.h"
#include "support/sei_payload.h"

namespace kovran {
namespace {

TEST(H265NalSeiNoDisplay, HasNoElements) {
    EXPECT_TRUE(test::record_of<h265_nal_sei_no_display>("", "").valid);
}

TEST(H265NalSeiNoDisplay, IsParsedAlone) {
    test::rbsp input;
    h265_nal_sei_no_display no_display;
    EXPECT_TRUE(no_display.parse_standard(input.reader));
    h265_trace trace;
    EXPECT_TRUE(no_display.parse_standard(input.reader, trace));
    EXPECT_TRUE(no_display.valid);
    EXPECT_TRUE(trace.elements.empty());
}

TEST(H265NalSeiNoDisplay, IsNotReadBehindTheEnd) {
    test::rbsp input;
    input.reader.skip(1);
    h265_nal_sei_no_display no_display;
    EXPECT_FALSE(no_display.parse_standard(input.reader));
    EXPECT_FALSE(no_display.valid);
}

}  // namespace
}  // namespace kovran
