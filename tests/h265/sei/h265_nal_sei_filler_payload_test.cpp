#include <kovran/h265/sei/h265_nal_sei_filler_payload.h>

#include <vector>

#include <gtest/gtest.h>

#include "support/rbsp.h"
#include "support/sei_payload.h"

namespace kovran {
namespace {

// The name of its bytes is also that of a byte of payloadType, which the list leaves out.
TEST(H265NalSeiFillerPayload, TakesAllBytes) {
    const auto filler = test::record_of<h265_nal_sei_filler_payload>("xffxffxff", "", {},
                                                                     test::payload_end::takes_all);
    EXPECT_EQ(filler.ff_byte, (std::vector<unsigned char>{0xFF, 0xFF, 0xFF}));
}

TEST(H265NalSeiFillerPayload, MayBeEmpty) {
    const auto filler =
        test::record_of<h265_nal_sei_filler_payload>("", "", {}, test::payload_end::takes_all);
    EXPECT_TRUE(filler.ff_byte.empty());
}

TEST(H265NalSeiFillerPayload, IsParsedAlone) {
    test::rbsp input{0xFF, 0xFE};
    h265_nal_sei_filler_payload filler;
    EXPECT_TRUE(filler.parse_standard(input.reader));
    EXPECT_TRUE(filler.valid);
    EXPECT_EQ(filler.ff_byte, (std::vector<unsigned char>{0xFF, 0xFE}));
}

TEST(H265NalSeiFillerPayload, TellsOfOtherBytesThanFf) {
    test::rbsp input{0xFF, 0xFE};
    h265_nal_sei_filler_payload filler;
    h265_trace trace;
    EXPECT_TRUE(filler.parse_standard(input.reader, trace));
    ASSERT_EQ(trace.elements.size(), 1U);
    EXPECT_EQ(path_of(trace, trace.elements[0]), "ff_byte[0..1]");
    EXPECT_EQ(trace.elements[0].run, 2U);
    EXPECT_EQ(trace.elements[0].value, 0);
    EXPECT_TRUE(trace.elements[0].out_of_range);
}

// One element, however many bytes there are.
TEST(H265NalSeiFillerPayload, IsToldInOneElement) {
    const std::vector<unsigned char> bytes(1000, 0xFF);
    h2645_common_bitreader reader(bytes.data(), bytes.data() + bytes.size());
    h265_nal_sei_filler_payload filler;
    h265_trace trace;
    EXPECT_TRUE(filler.parse_standard(reader, trace));
    ASSERT_EQ(trace.elements.size(), 1U);
    EXPECT_EQ(trace.elements[0].width, 8000U);
    EXPECT_FALSE(trace.elements[0].out_of_range);
}

}  // namespace
}  // namespace kovran
