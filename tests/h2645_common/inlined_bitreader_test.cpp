#include "h2645_common/inlined_bitreader.h"

#include <gtest/gtest.h>

#include "support/bit_writer.h"
#include "support/rbsp.h"

namespace kovran {
namespace {

inlined_bitreader reader_of(const test::rbsp& input, unsigned int position) {
    inlined_bitreader reader(input.reader);
    reader.skip(position);
    return reader;
}

// `position` ones, a code, and ones behind it.
test::rbsp code_between_ones(unsigned int position, unsigned int zeros, unsigned int suffix) {
    test::bit_writer bits;
    for (unsigned int i = 0; i < position; ++i) {
        bits.u<1>(1);
    }
    bits.u(zeros, 0).u<1>(1).u(zeros, suffix).u<32>(0xFFFFFFFF);
    return test::rbsp{bits.bytes()};
}

TEST(InlinedBitreader, ReadsShortAndLongCodesAtEveryAlignment) {
    for (unsigned int position = 0; position < 40; ++position) {
        for (unsigned int zeros = 0; zeros <= 31; ++zeros) {
            const unsigned int all_ones = (1U << zeros) - 1;
            for (const unsigned int suffix : {0U, all_ones, 0x2AAAAAAA & all_ones}) {
                const test::rbsp input = code_between_ones(position, zeros, suffix);
                inlined_bitreader reader = reader_of(input, position);
                ASSERT_EQ(reader.ue(), all_ones + suffix) << zeros << " zeros at " << position;
                ASSERT_EQ(reader.bit_position(), position + 2 * zeros + 1);
                ASSERT_EQ(reader.get<unsigned int>(25), 0x1FFFFFFU);
            }
        }
    }
}

TEST(InlinedBitreader, ReadsCodesThatFollowOneUponTheOther) {
    test::bit_writer bits;
    for (unsigned int i = 0; i < 20000; ++i) {
        bits.ue(i);
    }
    const test::rbsp input{bits.bytes()};
    inlined_bitreader reader(input.reader);
    for (unsigned int i = 0; i < 20000; ++i) {
        ASSERT_EQ(reader.ue(), i);
    }
    EXPECT_EQ(reader.bit_position(), bits.size());
}

TEST(InlinedBitreader, ReadsZerosBehindTheEndAsPartOfACode) {
    const test::rbsp input{0b0000000'1};
    inlined_bitreader reader(input.reader);
    EXPECT_EQ(reader.ue(), 127U);
    EXPECT_EQ(reader.bit_position(), 15U);
}

TEST(InlinedBitreader, TerminatesBehindTheEnd) {
    const test::rbsp nothing{};
    inlined_bitreader reader(nothing.reader);
    for (unsigned int i = 1; i <= 10; ++i) {
        EXPECT_EQ(reader.ue(), 0xFFFFU);
        EXPECT_EQ(reader.bit_position(), 32U * i);
    }
}

TEST(InlinedBitreader, MapsCodeNumbersToSignedValues) {
    // Table 9-3, from the code number 0 on, and the largest code number, 0xFFFFFFFE.
    test::bit_writer bits;
    bits.ue(0).ue(1).ue(2).ue(3).ue(4).ue(0xFFFFFFFD).ue(0xFFFFFFFE);
    const test::rbsp input{bits.bytes()};
    inlined_bitreader reader(input.reader);
    for (const int value : {0, 1, -1, 2, -2, 0x7FFFFFFF, -0x7FFFFFFF}) {
        EXPECT_EQ(reader.se(), value);
    }
}

}  // namespace
}  // namespace kovran
