#include <kovran/h265/h265_nal_reader.h>
#include <kovran/h265/h265_nal_writer.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <type_traits>
#include <vector>

#include "support/rbsp.h"

namespace kovran {
namespace {

using bytes = std::vector<unsigned char>;

constexpr h265_nal vps{0, 1, VPS_NUT, true};  // header 40 01

constexpr h2645_common_nalfmt unknown_format = static_cast<h2645_common_nalfmt>(6);

bytes operator+(bytes first, const bytes& second) {
    first.insert(first.end(), second.begin(), second.end());
    return first;
}

// An output of `room` bytes and a writer at its start.
struct output {
    output(std::size_t room, h2645_common_nalfmt format)
        : memory(bytes(room, 0x55)), writer(memory.begin(), memory.begin(), memory.end(), format) {}

    bytes written() const { return memory.first(writer.data_length()); }

    test::exact_bytes memory;
    h265_nal_writer writer;
};

std::size_t encode(h265_nal_writer& writer, const bytes& payload, unsigned int zero_bytes = 0) {
    const test::exact_bytes data(payload);
    return writer.block_encode(data.begin(), data.size(), vps, zero_bytes);
}

bytes encoded(h2645_common_nalfmt format, const bytes& payload, unsigned int zero_bytes = 0) {
    output out(2 * payload.size() + zero_bytes + 32, format);
    const std::size_t count = encode(out.writer, payload, zero_bytes);
    EXPECT_EQ(count, out.writer.data_length());
    return out.written();
}

TEST(H265NalWriter, HasItsFieldsInTheirOrderAndTypes) {
    static_assert(
        std::is_same_v<h265_nal_writer, h2645_common_nal_writer<h265_nal, h2645_common_nalfmt>>);
    static_assert(std::is_same_v<decltype(h265_nal_writer::nalfmt), h2645_common_nalfmt>);
    static_assert(std::is_same_v<decltype(h265_nal_writer::buffer), unsigned char*>);
    static_assert(std::is_same_v<decltype(h265_nal_writer::write), unsigned char*>);
    static_assert(std::is_same_v<decltype(h265_nal_writer::fence), unsigned char*>);
    static_assert(offsetof(h265_nal_writer, nalfmt) == 0);
    static_assert(offsetof(h265_nal_writer, buffer) == 8);
    static_assert(offsetof(h265_nal_writer, write) == 16);
    static_assert(offsetof(h265_nal_writer, fence) == 24);
    static_assert(sizeof(h265_nal_writer) == 32);
}

TEST(H265NalWriter, WritesNothingWithoutABuffer) {
    h265_nal_writer writer;
    EXPECT_EQ(writer.nalfmt, nalfmt_none);
    EXPECT_EQ(writer.buffer, nullptr);
    EXPECT_EQ(writer.write, nullptr);
    EXPECT_EQ(writer.fence, nullptr);
    EXPECT_TRUE(writer.full());
    EXPECT_EQ(writer.data_length(), 0U);
    EXPECT_EQ(encode(writer, {0x0C}), 0U);
    EXPECT_EQ(encode(writer, {}), 0U);

    writer.nalfmt = nalfmt_annex_b;
    EXPECT_EQ(encode(writer, {0x0C}), 0U);

    const test::exact_bytes memory(bytes(32));
    writer.setbuf(nullptr, memory.begin(), memory.end());
    EXPECT_EQ(encode(writer, {0x0C}), 0U);
    EXPECT_EQ(writer.write, memory.begin());
}

TEST(H265NalWriter, TakesItsBufferAndFormat) {
    const test::exact_bytes memory(bytes(8));
    const h265_nal_writer writer(memory.begin(), memory.at(3), memory.end(), nalfmt_length16);
    EXPECT_EQ(writer.nalfmt, nalfmt_length16);
    EXPECT_EQ(writer.buffer, memory.begin());
    EXPECT_EQ(writer.write, memory.at(3));
    EXPECT_EQ(writer.fence, memory.end());
    EXPECT_EQ(writer.data_length(), 3U);
    EXPECT_FALSE(writer.full());
}

TEST(H265NalWriter, SetbufKeepsTheFormat) {
    const test::exact_bytes memory(bytes(8));
    h265_nal_writer writer(nullptr, nullptr, nullptr, nalfmt_length24);
    writer.setbuf(memory.begin(), memory.at(2), memory.at(7));
    EXPECT_EQ(writer.nalfmt, nalfmt_length24);
    EXPECT_EQ(writer.buffer, memory.begin());
    EXPECT_EQ(writer.write, memory.at(2));
    EXPECT_EQ(writer.fence, memory.at(7));
}

TEST(H265NalWriter, IsFullAtItsFenceAndBeyond) {
    const test::exact_bytes memory(bytes(8));
    h265_nal_writer writer(memory.begin(), memory.at(7), memory.end(), nalfmt_annex_b);
    EXPECT_FALSE(writer.full());
    writer.write = memory.end();
    EXPECT_TRUE(writer.full());
    writer.setbuf(memory.begin(), memory.at(6), memory.at(5));
    EXPECT_TRUE(writer.full());
    EXPECT_EQ(encode(writer, {}), 0U);
    EXPECT_EQ(writer.write, memory.at(6));
}

TEST(H265NalWriter, WritesAUnitInEachFormat) {
    const bytes payload{0x00, 0x00, 0x01, 0x00, 0x00};
    EXPECT_EQ(encoded(nalfmt_annex_b, payload, 1), (bytes{0x00, 0x00, 0x00, 0x01, 0x40, 0x01, 0x00,
                                                          0x00, 0x03, 0x01, 0x00, 0x00, 0x03}));
    EXPECT_EQ(encoded(nalfmt_length8, payload),
              (bytes{0x08, 0x40, 0x01, 0x00, 0x00, 0x03, 0x01, 0x00, 0x00}));
    EXPECT_EQ(encoded(nalfmt_length16, payload),
              (bytes{0x00, 0x08, 0x40, 0x01, 0x00, 0x00, 0x03, 0x01, 0x00, 0x00}));
    EXPECT_EQ(encoded(nalfmt_length24, payload),
              (bytes{0x00, 0x00, 0x08, 0x40, 0x01, 0x00, 0x00, 0x03, 0x01, 0x00, 0x00}));
    EXPECT_EQ(encoded(nalfmt_length32, payload),
              (bytes{0x00, 0x00, 0x00, 0x08, 0x40, 0x01, 0x00, 0x00, 0x03, 0x01, 0x00, 0x00}));
}

TEST(H265NalWriter, WritesNothingWithoutFraming) {
    EXPECT_EQ(encoded(nalfmt_none, {0x0C, 0x01}), bytes());
}

TEST(H265NalWriter, WritesAnUnknownFormatWithoutFraming) {
    for (const unsigned int value : {6U, 0xFFFFFFFFU}) {
        const auto format = static_cast<h2645_common_nalfmt>(value);
        EXPECT_EQ(encoded(format, {0x0C, 0x01, 0xFF}, 3), (bytes{0x40, 0x01, 0x0C, 0x01, 0xFF}));
        EXPECT_EQ(encoded(format, {0xAA, 0x00, 0x00}), (bytes{0x40, 0x01, 0xAA, 0x00, 0x00}));
    }
}

TEST(H265NalWriter, WritesAHeaderWithoutPayload) {
    output out(16, nalfmt_annex_b);
    const h265_nal end_of_sequence{0, 1, EOS_NUT, true};
    EXPECT_EQ(out.writer.block_encode(nullptr, 0, end_of_sequence, 0), 5U);
    EXPECT_EQ(out.written(), (bytes{0x00, 0x00, 0x01, 0x48, 0x01}));
    EXPECT_EQ(encoded(nalfmt_length16, {}), (bytes{0x00, 0x02, 0x40, 0x01}));
}

TEST(H265NalWriter, WritesTheZeroBytesAskedForInAnnexBOnly) {
    for (const unsigned int zero_bytes : {0U, 1U, 2U, 5U, 27U, 100U}) {
        EXPECT_EQ(encoded(nalfmt_annex_b, {0xAA}, zero_bytes),
                  bytes(zero_bytes) + bytes({0x00, 0x00, 0x01, 0x40, 0x01, 0xAA}));
        EXPECT_EQ(encoded(nalfmt_length8, {0xAA}, zero_bytes), (bytes{0x03, 0x40, 0x01, 0xAA}));
    }
}

TEST(H265NalWriter, DoesNotCheckTheHeader) {
    output out(64, nalfmt_annex_b);
    EXPECT_EQ(out.writer.block_encode(nullptr, 0, h265_nal{0, 1, VPS_NUT, false}, 0), 5U);
    EXPECT_EQ(out.written(), (bytes{0x00, 0x00, 0x01, 0xFF, 0xFF}));

    output spilled(64, nalfmt_length8);
    const h265_nal wide_layer{64, 1, TRAIL_N, true};
    EXPECT_EQ(spilled.writer.block_encode(nullptr, 0, wide_layer, 0), 3U);
    EXPECT_EQ(spilled.written(), (bytes{0x02, 0x02, 0x01}));

    output cut(64, nalfmt_length8);
    const h265_nal wide_type{0, 1, static_cast<h265_nal_unit_type>(0x81), true};
    EXPECT_EQ(cut.writer.block_encode(nullptr, 0, wide_type, 0), 3U);
    EXPECT_EQ(cut.written(), (bytes{0x02, 0x02, 0x01}));
}

TEST(H265NalWriter, EscapesInEveryFormat) {
    const struct {
        bytes payload;
        bytes escaped;
    } cases[] = {
        {{0xAA}, {0xAA}},
        {{0xAA, 0xBB, 0xCC, 0xDD}, {0xAA, 0xBB, 0xCC, 0xDD}},
        {{0x00}, {0x00}},
        {{0xAA, 0x00}, {0xAA, 0x00}},
        {{0x00, 0x00, 0x00}, {0x00, 0x00, 0x03, 0x00}},
        {{0x00, 0x00, 0x01}, {0x00, 0x00, 0x03, 0x01}},
        {{0x00, 0x00, 0x02}, {0x00, 0x00, 0x03, 0x02}},
        {{0x00, 0x00, 0x03}, {0x00, 0x00, 0x03, 0x03}},
        {{0x00, 0x00, 0x04}, {0x00, 0x00, 0x04}},
        {{0x00, 0x01, 0x00, 0x01}, {0x00, 0x01, 0x00, 0x01}},
        {{0xAA, 0xBB, 0x00, 0x00, 0x01, 0xCC}, {0xAA, 0xBB, 0x00, 0x00, 0x03, 0x01, 0xCC}},
        // The byte behind a 03 starts a new pattern.
        {{0x00, 0x00, 0x00, 0x00, 0x01}, {0x00, 0x00, 0x03, 0x00, 0x00, 0x03, 0x01}},
        {{0x00, 0x00, 0x00, 0x01}, {0x00, 0x00, 0x03, 0x00, 0x01}},
        {{0x00, 0x00, 0x00, 0x00, 0x00}, {0x00, 0x00, 0x03, 0x00, 0x00, 0x03, 0x00}},
        {{0x00, 0x00, 0x03, 0x00, 0x00, 0x03}, {0x00, 0x00, 0x03, 0x03, 0x00, 0x00, 0x03, 0x03}},
    };
    for (const auto& [payload, escaped] : cases) {
        const auto size = static_cast<unsigned char>(escaped.size() + 2);
        EXPECT_EQ(encoded(nalfmt_annex_b, payload),
                  (bytes{0x00, 0x00, 0x01, 0x40, 0x01}) + escaped);
        EXPECT_EQ(encoded(nalfmt_length8, payload), (bytes{size, 0x40, 0x01}) + escaped);
        EXPECT_EQ(encoded(nalfmt_length32, payload), (bytes{0, 0, 0, size, 0x40, 0x01}) + escaped);
    }
}

TEST(H265NalWriter, ClosesTwoTrailingZerosInAnnexBOnly) {
    const bytes header{0x40, 0x01};
    const bytes start_code{0x00, 0x00, 0x01};
    for (const bytes& before : {bytes{}, bytes{0xAA}, bytes{0xAA, 0xBB, 0xCC}}) {
        const bytes payload = before + bytes{0x00, 0x00};
        const auto size = static_cast<unsigned char>(payload.size() + 2);
        EXPECT_EQ(encoded(nalfmt_annex_b, payload), start_code + header + payload + bytes{0x03});
        EXPECT_EQ(encoded(nalfmt_length8, payload), bytes{size} + header + payload);
        EXPECT_EQ(encoded(unknown_format, payload), header + payload);
    }
    EXPECT_EQ(encoded(nalfmt_annex_b, {0x00, 0x00, 0x00, 0x00}),
              start_code + header + bytes({0x00, 0x00, 0x03, 0x00, 0x00, 0x03}));
    EXPECT_EQ(encoded(nalfmt_length8, {0x00, 0x00, 0x00, 0x00}),
              bytes({0x07}) + header + bytes({0x00, 0x00, 0x03, 0x00, 0x00}));
}

TEST(H265NalWriter, AppendsUnitAfterUnit) {
    output out(64, nalfmt_annex_b);
    EXPECT_EQ(encode(out.writer, {0xAA}, 1), 7U);
    EXPECT_EQ(out.writer.data_length(), 7U);
    EXPECT_EQ(encode(out.writer, {0xBB}, 0), 6U);
    EXPECT_EQ(out.writer.data_length(), 13U);
    EXPECT_EQ(out.written(), (bytes{0x00, 0x00, 0x00, 0x01, 0x40, 0x01, 0xAA,  //
                                    0x00, 0x00, 0x01, 0x40, 0x01, 0xBB}));
}

TEST(H265NalWriter, WritesNothingUnlessTheUnitFits) {
    const bytes payload{0x00, 0x00, 0x01, 0xAA, 0x00, 0x00};
    for (const h2645_common_nalfmt format : {nalfmt_length8, nalfmt_length16, nalfmt_length24,
                                             nalfmt_length32, nalfmt_annex_b, unknown_format}) {
        for (const unsigned int zero_bytes : {0U, 1U, 4U}) {
            const bytes whole = encoded(format, payload, zero_bytes);
            for (std::size_t room = 0; room < whole.size(); ++room) {
                output out(room + 3, format);
                out.writer.write += 3;
                EXPECT_EQ(encode(out.writer, payload, zero_bytes), 0U) << format << ", " << room;
                EXPECT_EQ(out.writer.data_length(), 3U);
                EXPECT_EQ(out.written(), (bytes{0x55, 0x55, 0x55}));
            }
            output exact(whole.size(), format);
            EXPECT_EQ(encode(exact.writer, payload, zero_bytes), whole.size());
            EXPECT_EQ(exact.written(), whole);
            EXPECT_TRUE(exact.writer.full());
        }
    }
}

TEST(H265NalWriter, GoesOnAfterAUnitThatDidNotFit) {
    output out(6, nalfmt_length8);
    EXPECT_EQ(encode(out.writer, {1, 2, 3, 4}), 0U);
    EXPECT_EQ(encode(out.writer, {1, 2, 3}), 6U);
    EXPECT_EQ(out.written(), (bytes{0x05, 0x40, 0x01, 1, 2, 3}));
}

TEST(H265NalWriter, StandsAnyNumberOfZeroBytes) {
    for (const unsigned int zero_bytes :
         {59U, 60U, 64U, 65U, 0x7FFFFFFFU, 0x80000000U, 0xFFFFFFFCU, 0xFFFFFFFDU, 0xFFFFFFFFU}) {
        output out(64, nalfmt_annex_b);
        EXPECT_EQ(encode(out.writer, {0xAA}, zero_bytes), 0U) << zero_bytes;
        EXPECT_EQ(out.writer.data_length(), 0U);
    }
    output out(64, nalfmt_annex_b);
    EXPECT_EQ(encode(out.writer, {0xAA}, 58), 64U);
}

TEST(H265NalWriter, WritesNothingThatItsPrefixCannotSay) {
    const struct {
        h2645_common_nalfmt format;
        std::size_t longest;  // unit, header included
    } cases[] = {{nalfmt_length8, 0xFF}, {nalfmt_length16, 0xFFFF}, {nalfmt_length24, 0xFFFFFF}};
    for (const auto& [format, longest] : cases) {
        const bytes fits = encoded(format, bytes(longest - 2, 0xAA));
        ASSERT_EQ(fits.size(), format + longest);
        EXPECT_EQ(bytes(fits.begin(), fits.begin() + format), bytes(format, 0xFF));
        EXPECT_EQ(encoded(format, bytes(longest - 1, 0xAA)), bytes());
    }
    EXPECT_EQ(encoded(nalfmt_length8, bytes(300, 0xAA)), bytes());
}

TEST(H265NalWriter, CountsTheEmulationPreventionBytesInTheLength) {
    const bytes pattern{0x00, 0x00, 0x01};
    const bytes fits = encoded(nalfmt_length8, pattern + bytes(249, 0xAA));
    ASSERT_EQ(fits.size(), 256U);
    EXPECT_EQ(fits.front(), 0xFF);
    EXPECT_EQ(encoded(nalfmt_length8, pattern + bytes(250, 0xAA)), bytes());
}

TEST(H265NalWriter, RecommendsHalfAsMuchAgainAnd32) {
    static_assert(
        std::is_same_v<decltype(h265_nal_writer::recommended_output_size(0)), std::size_t>);
    EXPECT_EQ(h265_nal_writer::recommended_output_size(0), 32U);
    EXPECT_EQ(h265_nal_writer::recommended_output_size(1), 33U);
    EXPECT_EQ(h265_nal_writer::recommended_output_size(2), 35U);
    EXPECT_EQ(h265_nal_writer::recommended_output_size(10), 47U);
    EXPECT_EQ(h265_nal_writer::recommended_output_size(0x6000000000000000), 0x9000000000000020);
}

TEST(H265NalWriter, FitsTheWorstPayloadIntoTheRecommendedSize) {
    for (std::size_t n = 0; n <= 200; ++n) {
        const std::size_t room = h265_nal_writer::recommended_output_size(n);
        for (const h2645_common_nalfmt format : {nalfmt_annex_b, nalfmt_length32}) {
            output out(room, format);
            EXPECT_NE(encode(out.writer, bytes(n), 27), 0U) << n;
        }
        output out(room, nalfmt_annex_b);
        EXPECT_EQ(encode(out.writer, bytes(n), 28), 0U) << n;
    }
}

TEST(H265NalWriter, StopsTheProcessWhenItStandsBeforeItsBuffer) {
    const test::exact_bytes memory(bytes(64));
    h265_nal_writer writer(memory.at(5), memory.at(4), memory.end(), nalfmt_annex_b);
    EXPECT_DEATH(static_cast<void>(writer.block_encode(nullptr, 0, vps, 0)), "buffer <= write");
}

}  // namespace
}  // namespace kovran
