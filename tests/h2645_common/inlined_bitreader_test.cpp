#include "h2645_common/inlined_bitreader.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <vector>

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

// ---- Against one bit after the other

using bytes = std::vector<unsigned char>;

struct slow_bits {
    const bytes& data;
    std::size_t position;

    unsigned int bit() {
        const std::size_t at = position++;
        const unsigned int byte = at < 8 * data.size() ? data[at / 8] : 0;
        return byte >> (7 - at % 8) & 1U;
    }

    // The last 32 of `n` bits.
    unsigned int get(unsigned int n) {
        unsigned int value = 0;
        for (unsigned int i = 0; i < n; ++i) {
            value = value << 1 | bit();
        }
        return value;
    }

    unsigned int ue() {
        unsigned int zeros = 0;
        while (bit() == 0) {
            if (++zeros == 32) {
                return 0xFFFF;
            }
        }
        const unsigned int suffix = get(zeros);
        return (1U << zeros) - 1 + suffix;
    }
};

// Ones, so that every bit from elsewhere shows, and bytes that all differ.
std::vector<bytes> data_of(std::size_t size) {
    const bytes different = {0xA5, 0x3C, 0x01, 0x80, 0x7E, 0xD2, 0x4B, 0xF0, 0x19, 0x66,
                             0xC7, 0x08, 0x9A, 0x35, 0xEB, 0x52, 0x20, 0xBD, 0x73, 0x0F};
    return {bytes(size, 0xFF),
            bytes(different.begin(), different.begin() + static_cast<std::ptrdiff_t>(size))};
}

// Calls `check` with data of 0 to 20 bytes and every position in it and four words behind it.
template <class Check>
void at_every_position(const Check& check) {
    for (std::size_t size = 0; size <= 20; ++size) {
        for (const bytes& data : data_of(size)) {
            for (unsigned int position = 0; position <= 8 * size + 256; ++position) {
                check(data, position);
            }
        }
    }
}

TEST(InlinedBitreader, ReadsEveryWidthAtEveryPosition) {
    at_every_position([](const bytes& data, unsigned int position) {
        const test::rbsp input{data};
        for (unsigned char width = 0; width <= 40; ++width) {
            inlined_bitreader reader = reader_of(input, position);
            slow_bits slow{data, position};
            ASSERT_EQ(reader.get<unsigned int>(width), slow.get(width))
                << width << " bits at " << position << " of " << data.size() << " bytes";
            ASSERT_EQ(reader.bit_position(), position + width);
            ASSERT_EQ(reader.get<unsigned int>(32), slow.get(32));
        }
    });
}

TEST(InlinedBitreader, ReadsFlagsAtEveryPosition) {
    at_every_position([](const bytes& data, unsigned int position) {
        const test::rbsp input{data};
        inlined_bitreader reader = reader_of(input, position);
        slow_bits slow{data, position};
        for (unsigned int i = 0; i < 9; ++i) {
            ASSERT_EQ(reader.get<unsigned int>(1), slow.get(1))
                << "bit " << position + i << " of " << data.size() << " bytes";
        }
        ASSERT_EQ(reader.bit_position(), position + 9);
    });
}

TEST(InlinedBitreader, ReadsCodesAtEveryPosition) {
    at_every_position([](const bytes& data, unsigned int position) {
        const test::rbsp input{data};
        inlined_bitreader reader = reader_of(input, position);
        slow_bits slow{data, position};
        for (unsigned int i = 0; i < 3; ++i) {
            ASSERT_EQ(reader.ue(), slow.ue())
                << "from " << position << " of " << data.size() << " bytes";
            ASSERT_EQ(reader.bit_position(), slow.position);
        }
    });
}

// 0 to 40 zeros, a 1 bit, and up to nine bytes of ones: codes that end before the end of the data,
// at it and behind it.
TEST(InlinedBitreader, ReadsCodesNearTheEnd) {
    for (unsigned int position = 0; position < 72; ++position) {
        for (unsigned int zeros = 0; zeros <= 40; ++zeros) {
            test::bit_writer bits;
            for (unsigned int i = 0; i < position; ++i) {
                bits.u<1>(1);
            }
            for (unsigned int i = 0; i < zeros; ++i) {
                bits.u<1>(0);
            }
            bits.u<1>(1);
            bytes data = bits.bytes();
            for (unsigned int more = 0; more <= 9; ++more, data.push_back(0xFF)) {
                const test::rbsp input{data};
                inlined_bitreader reader = reader_of(input, position);
                slow_bits slow{data, position};
                ASSERT_EQ(reader.ue(), slow.ue())
                    << zeros << " zeros at " << position << " of " << data.size() << " bytes";
                ASSERT_EQ(reader.bit_position(), slow.position);
                ASSERT_EQ(reader.get<unsigned int>(25), slow.get(25));
            }
        }
    }
}

TEST(InlinedBitreader, KnowsItsPlace) {
    at_every_position([](const bytes& data, unsigned int position) {
        const test::rbsp input{data};
        const inlined_bitreader reader = reader_of(input, position);
        const unsigned int to_boundary = (8 - position % 8) % 8;
        ASSERT_EQ(reader.bits_to_byte_boundary(), to_boundary);
        ASSERT_EQ(reader.bits_left(),
                  8 * static_cast<std::int64_t>(data.size()) - static_cast<int>(position));
        inlined_bitreader aligned = reader;
        aligned.align();
        ASSERT_EQ(aligned.bit_position(), position + to_boundary);
        slow_bits slow{data, position + to_boundary};
        ASSERT_EQ(aligned.get<unsigned int>(8), slow.get(8));
    });
}

// ---- To and from the reader of a host

TEST(InlinedBitreader, GivesAReaderOfTheSamePosition) {
    at_every_position([](const bytes& data, unsigned int position) {
        const test::rbsp input{data};
        h2645_common_bitreader given = reader_of(input, position).bitreader();
        ASSERT_EQ(given.start, input.reader.start);
        ASSERT_EQ(given.end, input.reader.end);
        ASSERT_EQ(given.bit_position(), position);
        slow_bits slow{data, position};
        ASSERT_EQ(given.get<unsigned int>(25), slow.get(25))
            << "from " << position << " of " << data.size() << " bytes";
    });
}

// A host may have read flags, codes, or past the end before.
TEST(InlinedBitreader, GoesOnWhereAHostStands) {
    at_every_position([](const bytes& data, unsigned int position) {
        for (const unsigned char step : {std::uint8_t{1}, std::uint8_t{3}, std::uint8_t{25}}) {
            const test::rbsp input{data};
            h2645_common_bitreader host = input.reader;
            while (host.bit_position() + step <= position) {
                static_cast<void>(host.get<unsigned int>(step));
            }
            const std::size_t place = host.bit_position();
            inlined_bitreader reader(host);
            slow_bits slow{data, place};
            ASSERT_EQ(reader.bit_position(), place);
            ASSERT_EQ(reader.get<unsigned int>(17), slow.get(17))
                << "from " << place << " of " << data.size() << " bytes";
            h2645_common_bitreader back = reader.bitreader();
            ASSERT_EQ(back.bit_position(), place + 17);
            ASSERT_EQ(back.get<unsigned int>(8), slow.get(8));
        }
    });
}

// ---- The end of an RBSP

TEST(InlinedBitreader, FindsTheStopBit) {
    const auto left = [](const bytes& data, unsigned int position) {
        const test::rbsp input{data};
        return reader_of(input, position).bits_to_stop_bit();
    };
    EXPECT_EQ(left({0b10110'100}, 0), 5);
    EXPECT_EQ(left({0b10110'100}, 3), 2);
    EXPECT_EQ(left({0b10110'100}, 5), 0);
    EXPECT_EQ(left({0b10110'100}, 6), -1);
    EXPECT_EQ(left({0b1'0000000}, 0), 0);
    EXPECT_EQ(left({0b0000000'1}, 0), 7);
    EXPECT_EQ(left({0x12, 0x34, 0b1'0000000}, 4), 12);
    EXPECT_EQ(left({0x12, 0b001'10000, 0, 0}, 4), 7);  // zero bytes behind it
    EXPECT_EQ(left({0x12, 0b001'10000, 0, 0}, 12), -1);
    EXPECT_EQ(left({0x12, 0b001'10000, 0, 0}, 40), -29);
}

TEST(InlinedBitreader, FindsNoStopBitWithoutA1Bit) {
    for (std::size_t size = 0; size <= 9; ++size) {
        const test::rbsp input{bytes(size, 0)};
        EXPECT_EQ(reader_of(input, 0).bits_to_stop_bit(), -1) << size;
        EXPECT_EQ(reader_of(input, 80).bits_to_stop_bit(), -1) << size;
    }
}

TEST(InlinedBitreader, ReadsTrailingBits) {
    const auto read = [](const bytes& data, unsigned int position, std::size_t behind) {
        const test::rbsp input{data};
        inlined_bitreader reader = reader_of(input, position);
        const bool well_formed = reader.rbsp_trailing_bits();
        EXPECT_EQ(reader.bit_position(), behind);
        return well_formed;
    };
    EXPECT_TRUE(read({0b10110'100}, 5, 8));
    EXPECT_TRUE(read({0b1011010'1}, 7, 8));
    EXPECT_TRUE(read({0xFF, 0b1'0000000}, 8, 16));
    EXPECT_FALSE(read({0b10110'101}, 5, 8));
    EXPECT_FALSE(read({0b10110'000}, 5, 8));
    EXPECT_FALSE(read({0xFF}, 8, 16));
}

}  // namespace
}  // namespace kovran
