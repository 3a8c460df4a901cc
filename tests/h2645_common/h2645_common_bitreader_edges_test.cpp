#include <kovran/h2645_common/h2645_common_bitreader.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <limits>

#include "support/bit_writer.h"
#include "support/rbsp.h"

namespace kovran {
namespace {
// Every read of the bit reader, at the edges of what its width holds, from every state in which the
// reservoir can be: from empty, through every number of bits in it, to a whole word consumed.

constexpr unsigned int word_bits = 32;

// Bits that all are `filler`, with what `write` writes behind the first `position` of them. The
// reader has read those in as few reads as it can, which leaves its reservoir as empty as it can
// be.
class framed_bits {
public:
    template <class Write>
    framed_bits(unsigned int position, unsigned int filler, Write write) : filler_(filler) {
        test::bit_writer bits;
        fill(bits, position);
        write(bits);
        end_ = bits.size();
        fill(bits, word_bits);
        input_ = test::rbsp(bits.bytes());
        static_cast<void>(reader().get_wide(static_cast<unsigned char>(position)));
    }

    h2645_common_bitreader& reader() { return input_.reader; }

    // Whether the reader stands behind what was written, and reads what follows.
    bool stands_behind_it() {
        const bool in_place = reader().bit_position() == end_;
        const unsigned int next = reader().get<unsigned int>(25);
        return in_place && next == (filler_ != 0 ? 0x1FFFFFFU : 0);
    }

private:
    void fill(test::bit_writer& bits, unsigned int count) const {
        for (unsigned int i = 0; i < count; ++i) {
            bits.u<1>(filler_);
        }
    }

    unsigned int filler_;
    std::size_t end_ = 0;
    test::rbsp input_;
};

template <class Check>
void at_every_state_of_the_reservoir(Check check) {
    for (unsigned int position = 0; position <= 2 * word_bits; ++position) {
        for (const unsigned int filler : {0U, 1U}) {
            SCOPED_TRACE(testing::Message() << filler << " around position " << position);
            ASSERT_NO_FATAL_FAILURE(check(position, filler));
        }
    }
}

// 0, 1, the highest bit alone, all bits but it, all but the lowest, and all.
template <class Check>
void at_every_edge(unsigned int width, Check check) {
    const auto all = static_cast<unsigned int>((std::uint64_t{1} << width) - 1);
    const unsigned int highest = 1U << (width - 1);
    for (const unsigned int value : {0U, 1U, highest, all - highest, all - 1, all}) {
        check(value);
    }
}

TEST(H2645CommonBitreaderEdges, GetReadsEveryWidth) {
    at_every_state_of_the_reservoir([](unsigned int position, unsigned int filler) {
        for (unsigned int width = 1; width <= word_bits; ++width) {
            at_every_edge(width, [&](unsigned int value) {
                framed_bits bits(position, filler,
                                 [&](test::bit_writer& writer) { writer.u(width, value); });
                ASSERT_EQ(bits.reader().get<unsigned int>(static_cast<unsigned char>(width)), value)
                    << width;
                ASSERT_TRUE(bits.stands_behind_it()) << width;
            });
        }
    });
}

TEST(H2645CommonBitreaderEdges, GetWideReadsEveryWidth) {
    at_every_state_of_the_reservoir([](unsigned int position, unsigned int filler) {
        for (unsigned int width = 1; width <= word_bits; ++width) {
            at_every_edge(width, [&](unsigned int value) {
                framed_bits bits(position, filler,
                                 [&](test::bit_writer& writer) { writer.u(width, value); });
                ASSERT_EQ(bits.reader().get_wide(static_cast<unsigned char>(width)), value)
                    << width;
                ASSERT_TRUE(bits.stands_behind_it()) << width;
            });
        }
    });
}

TEST(H2645CommonBitreaderEdges, SkipPassesOverEveryWidth) {
    at_every_state_of_the_reservoir([](unsigned int position, unsigned int filler) {
        for (unsigned int width = 1; width <= 2 * word_bits; ++width) {
            framed_bits bits(position, filler, [&](test::bit_writer& writer) {
                writer.u(width, (filler ^ 1U) << (width < word_bits ? width - 1 : 0));
            });
            bits.reader().skip(width);
            ASSERT_TRUE(bits.stands_behind_it()) << width;
        }
    });
}

// Codes of one length go from 2^k - 1 to 2^(k + 1) - 2.
TEST(H2645CommonBitreaderEdges, UeReadsEveryLengthOfACode) {
    at_every_state_of_the_reservoir([](unsigned int position, unsigned int filler) {
        for (unsigned int zeros = 0; zeros < word_bits; ++zeros) {
            const unsigned int first = (1U << zeros) - 1;
            for (const unsigned int value : {first, first + (first + 1) / 2, 2 * first}) {
                framed_bits bits(position, filler,
                                 [&](test::bit_writer& writer) { writer.ue(value); });
                ASSERT_EQ(bits.reader().ue(), value);
                ASSERT_TRUE(bits.stands_behind_it()) << value;
            }
        }
    });
}

TEST(H2645CommonBitreaderEdges, UeStopsAtThe32ndZero) {
    at_every_state_of_the_reservoir([](unsigned int position, unsigned int filler) {
        framed_bits bits(position, filler, [](test::bit_writer& writer) { writer.u<32>(0); });
        ASSERT_EQ(bits.reader().ue(), 0xFFFFU);
        ASSERT_TRUE(bits.stands_behind_it());
    });
}

// The code numbers 2k - 1 and 2k stand for k and -k.
TEST(H2645CommonBitreaderEdges, SeReadsBothSignsOfEveryLength) {
    at_every_state_of_the_reservoir([](unsigned int position, unsigned int filler) {
        for (unsigned int zeros = 0; zeros < word_bits - 1; ++zeros) {
            const int smallest = 1 << zeros;
            const int largest = std::numeric_limits<int>::max() >> (word_bits - 2 - zeros);
            for (const int value : {smallest, -smallest, largest, -largest}) {
                framed_bits bits(position, filler,
                                 [&](test::bit_writer& writer) { writer.se(value); });
                ASSERT_EQ(bits.reader().se(), value);
                ASSERT_TRUE(bits.stands_behind_it()) << value;
            }
        }
    });
}

}  // namespace
}  // namespace kovran
