#include <kovran/h2645_common/h2645_common_bitreader.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <tuple>
#include <vector>

#include "support/bit_writer.h"
#include "support/rbsp.h"

namespace kovran {
namespace {

using bytes = std::vector<unsigned char>;

// `current` may stand where no pointer arithmetic is allowed to lead.
std::uintptr_t bytes_between(const unsigned char* from, const unsigned char* to) {
    return reinterpret_cast<std::uintptr_t>(to) - reinterpret_cast<std::uintptr_t>(from);
}

auto fields_of(const h2645_common_bitreader& reader) {
    return std::make_tuple(reader.reservoir, unsigned{reader.vacant}, reader.start, reader.current,
                           reader.end);
}

unsigned int get(h2645_common_bitreader& reader, unsigned int n) {
    return reader.get<unsigned int>(static_cast<unsigned char>(n));
}

// Bit by bit, so that every reader takes part in a read from each state of its reservoir.
void get_bits(h2645_common_bitreader& reader, unsigned int count) {
    for (unsigned int i = 0; i < count; ++i) {
        static_cast<void>(get(reader, 1));
    }
}

// The low 32 bits of the n that start at `position`, with zeros behind the end.
unsigned int bits_at(const bytes& data, std::size_t position, unsigned int n) {
    std::uint32_t value = 0;
    for (std::size_t bit = position; bit < position + n; ++bit) {
        const unsigned int byte = bit / 8 < data.size() ? data[bit / 8] : 0;
        value = value << 1 | (byte >> (7 - bit % 8) & 1U);
    }
    return value;
}

// Bytes in which every run of bits looks different.
bytes varied_bytes(std::size_t size) {
    bytes data;
    std::uint32_t state = 1;
    while (data.size() < size) {
        state = state * 1664525U + 1013904223U;
        data.push_back(static_cast<unsigned char>(state >> 24));
    }
    return data;
}

TEST(H2645CommonBitreader, IsFreshOverItsRange) {
    const unsigned char data[3] = {1, 2, 3};
    const h2645_common_bitreader reader(data, data + 3);
    EXPECT_EQ(reader.reservoir, 0U);
    EXPECT_EQ(reader.vacant, 32);
    EXPECT_EQ(reader.start, data);
    EXPECT_EQ(reader.current, data);
    EXPECT_EQ(reader.end, data + 3);
    EXPECT_EQ(reader.bit_position(), 0U);
}

TEST(H2645CommonBitreader, GetsTheMostSignificantBitFirst) {
    test::rbsp input{0xA5};
    for (const unsigned int bit : {1U, 0U, 1U, 0U, 0U, 1U, 0U, 1U}) {
        EXPECT_EQ(get(input.reader, 1), bit);
    }
}

TEST(H2645CommonBitreader, Gets25BitsAtOnce) {
    test::rbsp input{0x80, 0x00, 0x00, 0x00};
    EXPECT_EQ(get(input.reader, 25), 0x1000000U);
    EXPECT_EQ(get(input.reader, 7), 0U);
    EXPECT_EQ(input.reader.bit_position(), 32U);
}

TEST(H2645CommonBitreader, FeedsWholeBytesBeforeEachGet) {
    test::rbsp input{0xA5, 0xB6, 0xC7, 0xD8, 0xE9, 0xFA};
    h2645_common_bitreader& reader = input.reader;

    EXPECT_EQ(get(reader, 1), 1U);  // four bytes fed
    EXPECT_EQ(fields_of(reader),
              std::make_tuple(0xA5B6C7D8U << 1, 1U, reader.start, reader.start + 4, reader.end));
    EXPECT_EQ(get(reader, 7), 0x25U);  // no room for a fifth
    EXPECT_EQ(fields_of(reader),
              std::make_tuple(0xA5B6C7D8U << 8, 8U, reader.start, reader.start + 4, reader.end));
    EXPECT_EQ(get(reader, 4), 0xBU);  // one fed
    EXPECT_EQ(fields_of(reader),
              std::make_tuple(0xB6C7D8E9U << 4, 4U, reader.start, reader.start + 5, reader.end));
    EXPECT_EQ(get(reader, 25), 0x6C7D8E9U >> 3);
    EXPECT_EQ(fields_of(reader),
              std::make_tuple(0b001U << 29, 29U, reader.start, reader.start + 5, reader.end));
    EXPECT_EQ(get(reader, 3), 0b001U);  // three fed, the last two of them behind the end
    EXPECT_EQ(fields_of(reader),
              std::make_tuple(0xFA000000U, 8U, reader.start, reader.end + 2, reader.end));
}

TEST(H2645CommonBitreader, GetsEveryWidthAtEveryPosition) {
    const bytes data = varied_bytes(24);
    for (unsigned int position = 0; position <= 64; ++position) {
        for (unsigned int n = 0; n <= 25; ++n) {
            test::rbsp input{data};
            get_bits(input.reader, position);
            ASSERT_EQ(get(input.reader, n), bits_at(data, position, n)) << n << " at " << position;
            ASSERT_EQ(input.reader.bit_position(), position + n);
            ASSERT_EQ(get(input.reader, 9), bits_at(data, position + n, 9));
        }
    }
}

TEST(H2645CommonBitreader, GetOfNoBitsGivesZeroAndConsumesNothing) {
    test::rbsp input{0xFF, 0xFF};
    EXPECT_EQ(get(input.reader, 0), 0U);
    EXPECT_EQ(input.reader.bit_position(), 0U);
    EXPECT_EQ(get(input.reader, 3), 7U);
    EXPECT_EQ(get(input.reader, 0), 0U);
    EXPECT_EQ(input.reader.bit_position(), 3U);
}

TEST(H2645CommonBitreader, GetAbove25BitsGoesTheWideWay) {
    const bytes data = varied_bytes(48);
    for (unsigned int position = 0; position < 32; ++position) {
        for (unsigned int n = 26; n <= 255; ++n) {
            test::rbsp input{data};
            get_bits(input.reader, position);
            ASSERT_EQ(get(input.reader, n), bits_at(data, position, n)) << n << " at " << position;
            ASSERT_EQ(input.reader.bit_position(), position + n);
        }
    }
}

TEST(H2645CommonBitreader, GetWideTakesEveryWidth) {
    const bytes data = varied_bytes(48);
    for (unsigned int position = 0; position < 32; ++position) {
        for (unsigned int n = 0; n <= 255; ++n) {
            test::rbsp input{data};
            get_bits(input.reader, position);
            ASSERT_EQ(input.reader.get_wide(static_cast<unsigned char>(n)),
                      bits_at(data, position, n))
                << n << " at " << position;
            ASSERT_EQ(input.reader.bit_position(), position + n);
        }
    }
}

TEST(H2645CommonBitreader, GetWideReads32BitsAs25And7) {
    const bytes data{0x12, 0x34, 0x56, 0x78, 0x9A, 0xBC, 0xDE, 0xF0};
    test::rbsp wide{data};
    EXPECT_EQ(wide.reader.get_wide(32), 0x12345678U);

    test::rbsp pieces{data};
    EXPECT_EQ(get(pieces.reader, 25), 0x12345678U >> 7);
    EXPECT_EQ(get(pieces.reader, 7), 0x78U);
    EXPECT_EQ(wide.reader.reservoir, pieces.reader.reservoir);
    EXPECT_EQ(wide.reader.vacant, pieces.reader.vacant);
    EXPECT_EQ(wide.reader.current - wide.reader.start, pieces.reader.current - pieces.reader.start);
}

TEST(H2645CommonBitreader, GetWideKeepsTheLast32OfMoreBits) {
    test::rbsp input{0xFF, 0x12, 0x34, 0x56, 0x78, 0x9A};
    EXPECT_EQ(input.reader.get_wide(40), 0x12345678U);
    EXPECT_EQ(get(input.reader, 8), 0x9AU);
}

TEST(H2645CommonBitreader, GivesZerosPastTheEnd) {
    test::rbsp input{0xFF};
    EXPECT_EQ(get(input.reader, 12), 0xFF0U);
    EXPECT_EQ(get(input.reader, 25), 0U);
    EXPECT_EQ(input.reader.get_wide(32), 0U);
    EXPECT_EQ(input.reader.bit_position(), 69U);
}

TEST(H2645CommonBitreader, CurrentMovesPastTheEnd) {
    test::rbsp input{};
    h2645_common_bitreader& reader = input.reader;
    EXPECT_EQ(get(reader, 8), 0U);  // the first refill feeds four bytes
    EXPECT_EQ(bytes_between(reader.end, reader.current), 4U);
    for (unsigned int i = 1; i <= 100; ++i) {
        EXPECT_EQ(get(reader, 8), 0U);
        EXPECT_EQ(bytes_between(reader.end, reader.current), 4U + i);
        EXPECT_EQ(reader.bit_position(), 8U * (i + 1));
    }
}

TEST(H2645CommonBitreader, ReadsANullRangeAsZeros) {
    h2645_common_bitreader given(nullptr, nullptr);
    h2645_common_bitreader fresh;
    for (h2645_common_bitreader* const reader : {&given, &fresh}) {
        EXPECT_FALSE(h2645_common_more_rbsp_data(*reader));
        EXPECT_EQ(get(*reader, 25), 0U);
        EXPECT_EQ(bytes_between(nullptr, reader->current), 4U);
        reader->skip(100);
        reader->align();
        EXPECT_EQ(reader->bit_position(), 128U);
        EXPECT_EQ(reader->get_wide(32), 0U);
        EXPECT_EQ(reader->ue(), 0xFFFFU);
        EXPECT_FALSE(h2645_common_skip_rbsp_trailing_bits(*reader));
        EXPECT_FALSE(h2645_common_more_rbsp_data(*reader));
    }
}

TEST(H2645CommonBitreader, CopyLooksAhead) {
    test::rbsp input{0x12, 0x34, 0x56, 0x78, 0x9A};
    EXPECT_EQ(get(input.reader, 4), 0x1U);
    h2645_common_bitreader ahead = input.reader;
    EXPECT_EQ(get(ahead, 16), 0x2345U);
    EXPECT_EQ(input.reader.bit_position(), 4U);
    EXPECT_EQ(get(input.reader, 8), 0x23U);
}

TEST(H2645CommonBitreader, SkipsAnyNumberOfBits) {
    const bytes data = varied_bytes(40);
    for (unsigned int position = 0; position < 40; ++position) {
        for (unsigned int n = 0; n <= 300; ++n) {
            test::rbsp input{data};
            get_bits(input.reader, position);
            input.reader.skip(n);
            ASSERT_EQ(input.reader.bit_position(), position + n);
            ASSERT_EQ(get(input.reader, 25), bits_at(data, position + n, 25))
                << n << " from " << position;
        }
    }
}

TEST(H2645CommonBitreader, SkipsFarPastTheEnd) {
    for (unsigned int position = 0; position < 40; ++position) {
        test::rbsp input{0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF};
        get_bits(input.reader, position);
        input.reader.skip(0xFFFFFFFF);
        EXPECT_EQ(input.reader.bit_position(), position + std::size_t{0xFFFFFFFF});
        EXPECT_EQ(get(input.reader, 25), 0U);
        input.reader.skip(0xFFFFFFFF);
        EXPECT_EQ(input.reader.bit_position(), position + 2 * std::size_t{0xFFFFFFFF} + 25);
    }
}

TEST(H2645CommonBitreader, AlignsToTheNextByteBoundary) {
    const bytes data = varied_bytes(12);
    for (unsigned int position = 0; position <= 72; ++position) {
        test::rbsp input{data};
        get_bits(input.reader, position);
        input.reader.align();
        const unsigned int boundary = (position + 7) / 8 * 8;
        EXPECT_EQ(input.reader.bit_position(), boundary);
        EXPECT_EQ(input.reader.vacant % 8, 0);
        EXPECT_EQ(get(input.reader, 8), bits_at(data, boundary, 8));
    }
}

TEST(H2645CommonBitreader, AlignSkipsNothingWithAFullReservoir) {
    test::rbsp input{0x12, 0x34, 0x56, 0x78, 0x9A};
    EXPECT_EQ(get(input.reader, 8), 0x12U);
    input.reader.align();
    input.reader.align();
    EXPECT_EQ(input.reader.bit_position(), 8U);
    EXPECT_EQ(get(input.reader, 8), 0x34U);
}

// One code in each state of the reservoir, with bits of ones around it.
struct exp_golomb_input {
    exp_golomb_input(unsigned int position, unsigned int zeros, unsigned int suffix) {
        test::bit_writer bits;
        for (unsigned int i = 0; i < position; ++i) {
            bits.u<1>(1);
        }
        bits.u(zeros, 0).u<1>(1).u(std::min(zeros, 32U), suffix).u<32>(0xFFFFFFFF);
        input = test::rbsp{bits.bytes()};
        get_bits(input.reader, position);
    }

    test::rbsp input;
};

TEST(H2645CommonBitreaderUe, ReadsTheFirstCodes) {
    // Table 9-2: 1, 010, 011, 00100, 00101, 00110, 00111, 0001000.
    test::rbsp input{0b1'010'011'0, 0b0100'0010, 0b1'00110'00, 0b111'00010, 0b00'111111};
    for (unsigned int value = 0; value <= 7; ++value) {
        EXPECT_EQ(input.reader.ue(), value);
    }
    EXPECT_EQ(input.reader.bit_position(), 34U);
}

TEST(H2645CommonBitreaderUe, ReadsUpTo31LeadingZerosAtEveryAlignment) {
    for (unsigned int position = 0; position < 40; ++position) {
        for (unsigned int zeros = 0; zeros <= 31; ++zeros) {
            const unsigned int all_ones = (1U << zeros) - 1;
            for (const unsigned int suffix : {0U, all_ones, 0x2AAAAAAA & all_ones}) {
                exp_golomb_input code(position, zeros, suffix);
                ASSERT_EQ(code.input.reader.ue(), all_ones + suffix)
                    << zeros << " zeros at " << position;
                ASSERT_EQ(code.input.reader.bit_position(), position + 2 * zeros + 1);
                ASSERT_EQ(get(code.input.reader, 25), 0x1FFFFFFU);
            }
        }
    }
}

TEST(H2645CommonBitreaderUe, ReadsTheLargestCode) {
    test::rbsp input{0x00, 0x00, 0x00, 0x01, 0xFF, 0xFF, 0xFF, 0b1111111'0};
    EXPECT_EQ(input.reader.ue(), 0xFFFFFFFEU);
    EXPECT_EQ(input.reader.bit_position(), 63U);
}

TEST(H2645CommonBitreaderUe, StopsAtThe32ndZeroAtEveryAlignment) {
    for (unsigned int position = 0; position < 40; ++position) {
        for (unsigned int zeros = 32; zeros <= 64; ++zeros) {
            exp_golomb_input code(position, zeros, 0);
            ASSERT_EQ(code.input.reader.ue(), 0x0000FFFFU) << zeros << " zeros at " << position;
            ASSERT_EQ(code.input.reader.bit_position(), position + 32);
            get_bits(code.input.reader, zeros - 32);
            ASSERT_EQ(get(code.input.reader, 1), 1U);
        }
    }
}

TEST(H2645CommonBitreaderUe, ReadsZerosBehindTheEndAsPartOfACode) {
    test::rbsp input{0b0000000'1};
    EXPECT_EQ(input.reader.ue(), 127U);
    EXPECT_EQ(input.reader.bit_position(), 15U);
}

TEST(H2645CommonBitreaderUe, TerminatesBehindTheEnd) {
    test::rbsp zeros{0x00, 0x00};
    test::rbsp nothing{};
    for (h2645_common_bitreader* const reader : {&zeros.reader, &nothing.reader}) {
        for (unsigned int i = 1; i <= 10; ++i) {
            EXPECT_EQ(reader->ue(), 0x0000FFFFU);
            EXPECT_EQ(reader->bit_position(), 32U * i);
        }
    }
}

TEST(H2645CommonBitreaderUe, ReadsWhatTheBitWriterWrites) {
    std::vector<unsigned int> values;
    for (unsigned int shift = 0; shift < 32; ++shift) {
        for (const unsigned int value : {(1U << shift) - 1, 1U << shift, (1U << shift) + 1}) {
            values.push_back(value);
        }
    }
    test::bit_writer bits;
    for (const unsigned int value : values) {
        bits.ue(value);
    }
    test::rbsp input{bits.bytes()};
    for (const unsigned int value : values) {
        EXPECT_EQ(input.reader.ue(), value);
    }
    EXPECT_EQ(input.reader.bit_position(), bits.size());
}

TEST(H2645CommonBitreaderSe, MapsCodeNumbersToSignedValues) {
    // Table 9-3: 0, 1, -1, 2, -2, 3, -3.
    test::bit_writer bits;
    bits.ue(0).ue(1).ue(2).ue(3).ue(4).ue(5).ue(6);
    test::rbsp input{bits.bytes()};
    for (const int value : {0, 1, -1, 2, -2, 3, -3}) {
        EXPECT_EQ(input.reader.se(), value);
    }
}

TEST(H2645CommonBitreaderSe, ReachesBothLimits) {
    test::bit_writer bits;
    bits.ue(0xFFFFFFFD).ue(0xFFFFFFFE).ue(0xFFFFFFFC).ue(0x7FFFFFFF).ue(0x80000000);
    test::rbsp input{bits.bytes()};
    EXPECT_EQ(input.reader.se(), 0x7FFFFFFF);
    EXPECT_EQ(input.reader.se(), -0x7FFFFFFF);
    EXPECT_EQ(input.reader.se(), -0x7FFFFFFE);
    EXPECT_EQ(input.reader.se(), 0x40000000);
    EXPECT_EQ(input.reader.se(), -0x40000000);
    EXPECT_EQ(input.reader.bit_position(), bits.size());
}

TEST(H2645CommonBitreaderSe, GivesAConstantForTooManyLeadingZeros) {
    test::rbsp input{0x00, 0x00, 0x00, 0x00, 0xFF};
    EXPECT_EQ(input.reader.se(), 0x8000);  // that of the code number 0xFFFF
    EXPECT_EQ(input.reader.bit_position(), 32U);
    EXPECT_EQ(get(input.reader, 8), 0xFFU);
}

TEST(H2645CommonBitreaderSe, ReadsWhatTheBitWriterWrites) {
    const std::vector<int> values{0,           1,          -1,         127,    -128,
                                  32767,       -32768,     65536,      -65536, 0x3FFFFFFF,
                                  -0x40000000, 0x7FFFFFFF, -0x7FFFFFFF};
    test::bit_writer bits;
    for (const int value : values) {
        bits.se(value);
    }
    test::rbsp input{bits.bytes()};
    for (const int value : values) {
        EXPECT_EQ(input.reader.se(), value);
    }
}

TEST(H2645CommonMoreRbspData, IsFalseWhenNothingIsLeft) {
    test::rbsp nothing{};
    EXPECT_FALSE(h2645_common_more_rbsp_data(nothing.reader));

    test::rbsp input{0xFF, 0xFF};
    get_bits(input.reader, 16);
    EXPECT_FALSE(h2645_common_more_rbsp_data(input.reader));
    for (unsigned int past_end = 1; past_end < 80; ++past_end) {
        get_bits(input.reader, 1);
        EXPECT_FALSE(h2645_common_more_rbsp_data(input.reader)) << past_end;
    }
    input.reader.skip(0xFFFFFFFF);
    EXPECT_FALSE(h2645_common_more_rbsp_data(input.reader));
}

TEST(H2645CommonMoreRbspData, IsTrueInARestOfZerosOnly) {
    test::rbsp input{0x00, 0x00, 0x00, 0x00, 0x00, 0x00};
    for (unsigned int position = 0; position < 48; ++position) {
        EXPECT_TRUE(h2645_common_more_rbsp_data(input.reader)) << position;
        get_bits(input.reader, 1);
    }
    EXPECT_FALSE(h2645_common_more_rbsp_data(input.reader));
}

TEST(H2645CommonMoreRbspData, IsFalseForAStopBitAndAnyNumberOfZeroBytes) {
    for (std::size_t size = 1; size < 100; ++size) {
        for (unsigned int position = 0; position < 8; ++position) {
            bytes data(size);
            data[0] = static_cast<unsigned char>(0x80U >> position);
            test::rbsp input{data};
            get_bits(input.reader, position);
            ASSERT_FALSE(h2645_common_more_rbsp_data(input.reader)) << size << ", " << position;
        }
    }
}

TEST(H2645CommonMoreRbspData, FindsAOneAnywhereBehindAOne) {
    for (unsigned int position = 0; position < 40; ++position) {
        for (unsigned int distance = 1; distance <= 200; ++distance) {
            test::bit_writer bits;
            bits.u(position, 0).u<1>(1);
            for (unsigned int i = 1; i < distance; ++i) {
                bits.u<1>(0);
            }
            bits.u<1>(1);
            test::rbsp input{bits.bytes()};
            get_bits(input.reader, position);
            ASSERT_TRUE(h2645_common_more_rbsp_data(input.reader)) << position << ", " << distance;
        }
    }
}

TEST(H2645CommonMoreRbspData, IsRightForAllTwoByteInputsAtAllPositions) {
    const test::exact_bytes data{0, 0};
    for (unsigned int value = 0; value <= 0xFFFF; ++value) {
        *data.at(0) = static_cast<unsigned char>(value >> 8);
        *data.at(1) = static_cast<unsigned char>(value & 0xFF);
        h2645_common_bitreader reader(data.begin(), data.end());
        for (unsigned int left = 16; left > 0; --left) {
            const unsigned int rest = value & ((1U << left) - 1);
            const unsigned int stop_bit_and_zeros = 1U << (left - 1);
            ASSERT_EQ(h2645_common_more_rbsp_data(reader), rest != stop_bit_and_zeros)
                << "the last " << left << " bits of " << value;
            static_cast<void>(get(reader, 1));
        }
        ASSERT_FALSE(h2645_common_more_rbsp_data(reader));
    }
}

TEST(H2645CommonMoreRbspData, ChangesNoField) {
    for (const bytes& data : {bytes{}, bytes{0x80}, bytes{0x00, 0x80, 0x00, 0x00, 0x00, 0x00},
                              bytes{0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0x80}}) {
        test::rbsp input{data};
        for (unsigned int position = 0; position < 80; ++position) {
            const auto before = fields_of(input.reader);
            static_cast<void>(h2645_common_more_rbsp_data(input.reader));
            ASSERT_EQ(fields_of(input.reader), before) << data.size() << ", " << position;
            get_bits(input.reader, 1);
        }
    }
}

TEST(H2645CommonSkipRbspTrailingBits, TakesTheRestOfTheByte) {
    for (unsigned int bits_before = 0; bits_before < 8; ++bits_before) {
        for (unsigned int value = 0; value <= 0xFF; ++value) {
            test::rbsp input{0x00, static_cast<unsigned char>(value), 0xFF};
            get_bits(input.reader, 8 + bits_before);
            const unsigned int rest = value & (0xFFU >> bits_before);
            ASSERT_EQ(h2645_common_skip_rbsp_trailing_bits(input.reader),
                      rest == 0x80U >> bits_before)
                << value << " after " << bits_before << " bits";
            ASSERT_EQ(input.reader.bit_position(), 16U);
        }
    }
}

TEST(H2645CommonSkipRbspTrailingBits, TakesAWholeByteAtAByteBoundary) {
    test::rbsp input{0x80, 0x80, 0x80, 0x80, 0x80, 0x80};
    for (unsigned int i = 1; i <= 6; ++i) {
        EXPECT_TRUE(h2645_common_skip_rbsp_trailing_bits(input.reader));
        EXPECT_EQ(input.reader.bit_position(), 8U * i);
    }
    EXPECT_FALSE(h2645_common_skip_rbsp_trailing_bits(input.reader));
}

TEST(H2645CommonSkipRbspTrailingBits, IsFalseBehindTheEnd) {
    test::rbsp input{};
    EXPECT_FALSE(h2645_common_skip_rbsp_trailing_bits(input.reader));
    EXPECT_EQ(input.reader.bit_position(), 8U);
    get_bits(input.reader, 3);
    EXPECT_FALSE(h2645_common_skip_rbsp_trailing_bits(input.reader));
    EXPECT_EQ(input.reader.bit_position(), 16U);
}

}  // namespace
}  // namespace kovran
