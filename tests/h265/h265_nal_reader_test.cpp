#include <kovran/h265/h265_nal_reader.h>

#include <gtest/gtest.h>

#include <csignal>
#include <cstddef>
#include <iterator>
#include <type_traits>
#include <vector>

#include "support/rbsp.h"

namespace kovran {
namespace {

using bytes = std::vector<unsigned char>;

constexpr h2645_common_nalfmt length_formats[] = {nalfmt_length8, nalfmt_length16, nalfmt_length24,
                                                  nalfmt_length32};

// What remains when there is no unit: nothing to point at and nothing to decode.
void expect_no_unit(h265_nal_reader& reader) {
    EXPECT_FALSE(reader.found);
    EXPECT_FALSE(reader.nal.valid);
    EXPECT_EQ(reader.frame_begin, nullptr);
    EXPECT_EQ(reader.nal_begin, nullptr);
    EXPECT_EQ(reader.payload_begin, nullptr);
    EXPECT_EQ(reader.nal_length, 0U);
    EXPECT_EQ(reader.payload_length, 0U);
    EXPECT_EQ(reader.decode_ptr, nullptr);
    EXPECT_EQ(reader.decode_fence, nullptr);
    unsigned char out = 0;
    EXPECT_EQ(reader.block_decode(&out, 1), 0U);
}

// The length of `unit`, big endian, and the unit.
bytes length_prefixed(h2645_common_nalfmt format, const bytes& unit) {
    bytes framed;
    for (unsigned int shift = 8 * format; shift > 0; shift -= 8) {
        framed.push_back(static_cast<unsigned char>(unit.size() >> (shift - 8) & 0xFF));
    }
    framed.insert(framed.end(), unit.begin(), unit.end());
    return framed;
}

bytes operator+(bytes first, const bytes& second) {
    first.insert(first.end(), second.begin(), second.end());
    return first;
}

bytes decode(h265_nal_reader& reader, std::size_t n) {
    bytes out(n);
    const std::size_t written = reader.block_decode(out.data(), n);
    EXPECT_LE(written, n);
    out.resize(written);
    return out;
}

// A reader that has `input` left to decode.
h265_nal_reader decoding(const test::exact_bytes& input) {
    h265_nal_reader reader(nalfmt_annex_b);
    reader.decode_ptr = input.begin();
    reader.decode_fence = input.end();
    return reader;
}

TEST(H2645CommonNalfmt, HasItsValues) {
    static_assert(std::is_same_v<std::underlying_type_t<h2645_common_nalfmt>, unsigned int>);
    static_assert(nalfmt_none == 0);
    static_assert(nalfmt_length8 == 1);
    static_assert(nalfmt_length16 == 2);
    static_assert(nalfmt_length24 == 3);
    static_assert(nalfmt_length32 == 4);
    static_assert(nalfmt_annex_b == 5);
}

TEST(H265NalReader, HasItsFieldsInTheirTypes) {
    using base = h2645_common_nal_reader_base;
    static_assert(std::is_base_of_v<base, h265_nal_reader>);
    static_assert(
        std::is_same_v<h265_nal_reader, h2645_common_nal_reader<h265_nal, h2645_common_nalfmt>>);
    static_assert(std::is_same_v<decltype(base::cursor), unsigned char*>);
    static_assert(std::is_same_v<decltype(base::begin), unsigned char*>);
    static_assert(std::is_same_v<decltype(base::fence), unsigned char*>);
    static_assert(std::is_same_v<decltype(base::nal_begin), unsigned char*>);
    static_assert(std::is_same_v<decltype(base::frame_begin), unsigned char*>);
    static_assert(std::is_same_v<decltype(base::payload_begin), unsigned char*>);
    static_assert(std::is_same_v<decltype(base::nal_length), unsigned int>);
    static_assert(std::is_same_v<decltype(base::payload_length), unsigned int>);
    static_assert(std::is_same_v<decltype(base::zero_count), unsigned int>);
    static_assert(std::is_same_v<decltype(base::found), bool>);
    static_assert(std::is_same_v<decltype(base::gave_up), bool>);
    static_assert(std::is_same_v<decltype(base::need_more_data), bool>);
    static_assert(std::is_same_v<decltype(base::length_known), bool>);
    static_assert(std::is_same_v<decltype(base::decode_ptr), unsigned char*>);
    static_assert(std::is_same_v<decltype(base::decode_fence), unsigned char*>);
    static_assert(std::is_same_v<decltype(h265_nal_reader::nalfmt), h2645_common_nalfmt>);
    static_assert(std::is_same_v<decltype(h265_nal_reader::nal), h265_nal>);
}

TEST(H265NalReader, HasItsFieldsInTheirOrder) {
    const h265_nal_reader reader;
    const void* const fields[] = {
        &reader.cursor,       &reader.begin,         &reader.fence,        &reader.nal_begin,
        &reader.frame_begin,  &reader.payload_begin, &reader.nal_length,   &reader.payload_length,
        &reader.zero_count,   &reader.found,         &reader.gave_up,      &reader.need_more_data,
        &reader.length_known, &reader.decode_ptr,    &reader.decode_fence, &reader.nalfmt,
        &reader.nal,
    };
    EXPECT_EQ(fields[0], &reader);
    for (std::size_t i = 1; i < std::size(fields); ++i) {
        EXPECT_LT(fields[i - 1], fields[i]) << i;
    }
}

TEST(H265NalReader, PointsNowhereAtFirst) {
    h265_nal_reader reader;
    EXPECT_EQ(reader.nalfmt, nalfmt_none);
    EXPECT_EQ(reader.cursor, nullptr);
    EXPECT_EQ(reader.begin, nullptr);
    EXPECT_EQ(reader.fence, nullptr);
    EXPECT_EQ(reader.zero_count, 0U);
    EXPECT_FALSE(reader.gave_up);
    EXPECT_FALSE(reader.need_more_data);
    EXPECT_FALSE(reader.length_known);
    expect_no_unit(reader);
}

TEST(H265NalReader, TakesItsFormatExplicitly) {
    static_assert(std::is_constructible_v<h265_nal_reader, h2645_common_nalfmt>);
    static_assert(!std::is_convertible_v<h2645_common_nalfmt, h265_nal_reader>);
    static_assert(std::is_copy_constructible_v<h265_nal_reader>);
    h265_nal_reader reader(nalfmt_length24);
    EXPECT_EQ(reader.nalfmt, nalfmt_length24);
    expect_no_unit(reader);
}

TEST(H265NalReaderAnnexB, FindsAUnitBehindAFourByteStartCode) {
    const test::exact_bytes input{0x00, 0x00, 0x00, 0x01, 0x40, 0x01, 0x0C, 0x01, 0xFF};
    h265_nal_reader reader(nalfmt_annex_b);
    reader.scan(input.begin(), input.end());
    EXPECT_TRUE(reader.found);
    EXPECT_FALSE(reader.need_more_data);
    EXPECT_FALSE(reader.gave_up);
    EXPECT_FALSE(reader.length_known);
    EXPECT_EQ(reader.begin, input.begin());
    EXPECT_EQ(reader.fence, input.end());
    EXPECT_EQ(reader.frame_begin, input.at(1));
    EXPECT_EQ(reader.zero_count, 1U);
    EXPECT_EQ(reader.nal_begin, input.at(4));
    EXPECT_EQ(reader.payload_begin, input.at(6));
    EXPECT_EQ(reader.cursor, input.at(6));
    EXPECT_EQ(reader.nal_length, 0U);
    EXPECT_EQ(reader.payload_length, 0U);
    EXPECT_EQ(reader.decode_ptr, input.at(6));
    EXPECT_EQ(reader.decode_fence, input.end());
    EXPECT_TRUE(reader.nal.valid);
    EXPECT_EQ(reader.nal.nal_unit_type, VPS_NUT);
    EXPECT_EQ(reader.nal.nuh_layer_id, 0);
    EXPECT_EQ(reader.nal.nuh_temporal_id_plus1, 1);
}

TEST(H265NalReaderAnnexB, FindsAUnitBehindAThreeByteStartCode) {
    const test::exact_bytes input{0x00, 0x00, 0x01, 0x42, 0x01};
    h265_nal_reader reader(nalfmt_annex_b);
    reader.scan(input.begin(), input.end());
    EXPECT_TRUE(reader.found);
    EXPECT_EQ(reader.frame_begin, input.begin());
    EXPECT_EQ(reader.zero_count, 0U);
    EXPECT_EQ(reader.nal.nal_unit_type, SPS_NUT);
    EXPECT_EQ(reader.cursor, input.end());
    EXPECT_EQ(decode(reader, 8), bytes());
}

TEST(H265NalReaderAnnexB, CountsTheZeroBytesBeforeTheStartCode) {
    for (unsigned int zeros = 0; zeros < 100; ++zeros) {
        for (const bytes& before : {bytes{}, bytes{0xAA}, bytes{0x00, 0x00, 0x02}}) {
            const test::exact_bytes input(before + bytes(zeros) + bytes{0, 0, 1, 0x40, 0x01});
            h265_nal_reader reader(nalfmt_annex_b);
            reader.scan(input.begin(), input.end());
            EXPECT_TRUE(reader.found);
            EXPECT_EQ(reader.frame_begin, input.at(before.size() + zeros));
            EXPECT_EQ(reader.zero_count, zeros);
        }
    }
}

TEST(H265NalReaderAnnexB, CountsOnlyTheZeroBytesDirectlyBeforeTheStartCode) {
    for (const unsigned char between : bytes{0x02, 0x03, 0x04, 0xFF}) {
        const test::exact_bytes input{0x00, 0x00, 0x00, 0x00, between, 0x00,
                                      0x00, 0x00, 0x01, 0x40, 0x01};
        h265_nal_reader reader(nalfmt_annex_b);
        reader.scan(input.begin(), input.end());
        EXPECT_EQ(reader.frame_begin, input.at(6));
        EXPECT_EQ(reader.zero_count, 1U) << int{between};
    }
}

TEST(H265NalReaderAnnexB, NeedsFiveBytes) {
    for (std::size_t size = 0; size <= 4; ++size) {
        const test::exact_bytes input(bytes{0x00, 0x00, 0x01, 0x40, 0x01}.data(), size);
        h265_nal_reader reader(nalfmt_annex_b);
        reader.scan(input.begin(), input.end());
        EXPECT_TRUE(reader.need_more_data) << size;
        EXPECT_EQ(reader.cursor, input.end());
        EXPECT_EQ(reader.zero_count, 0U);
        expect_no_unit(reader);
    }
}

TEST(H265NalReaderAnnexB, StopsAtTheLastCandidateWhenThereIsNone) {
    for (const bytes& data : {bytes{1, 2, 3, 4, 5}, bytes{9, 9, 9, 9, 9, 9, 9, 9, 9},
                              bytes{9, 9, 9, 0, 0, 1, 0x40}, bytes{0, 0, 3, 0, 0, 2, 0, 0}}) {
        const test::exact_bytes input(data);
        h265_nal_reader reader(nalfmt_annex_b);
        reader.scan(input.begin(), input.end());
        EXPECT_TRUE(reader.need_more_data);
        EXPECT_EQ(reader.cursor, input.end() - 5);
        EXPECT_EQ(reader.zero_count, 0U);
        EXPECT_FALSE(reader.gave_up);
        expect_no_unit(reader);
    }
}

TEST(H265NalReaderAnnexB, KeepsTheZeroCountOfAnUnfinishedSearch) {
    const test::exact_bytes input{0xAA, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00};
    h265_nal_reader reader(nalfmt_annex_b);
    reader.scan(input.begin(), input.end());
    EXPECT_TRUE(reader.need_more_data);
    EXPECT_EQ(reader.zero_count, 3U);  // at the candidates 1, 2 and 3
    EXPECT_EQ(reader.cursor, input.at(3));
}

TEST(H265NalReaderAnnexB, FindsTheUnitAtTheCursorOnceThereIsMoreData) {
    const test::exact_bytes input{0xAA, 0xAA, 0xAA, 0x00, 0x00, 0x01, 0x44, 0x09};
    h265_nal_reader reader(nalfmt_annex_b);
    reader.scan(input.begin(), input.at(7));
    EXPECT_TRUE(reader.need_more_data);
    EXPECT_EQ(reader.cursor, input.at(2));
    reader.scan(reader.cursor, input.end());
    EXPECT_TRUE(reader.found);
    EXPECT_FALSE(reader.need_more_data);
    EXPECT_EQ(reader.frame_begin, input.at(3));
    EXPECT_EQ(reader.nal.nal_unit_type, PPS_NUT);
    EXPECT_EQ(reader.nal.nuh_layer_id, 1);
}

TEST(H265NalReaderAnnexB, PassesOverAStartCodeWithASetForbiddenBit) {
    const test::exact_bytes input{0x00, 0x00, 0x01, 0xC0, 0x01, 0x00, 0x00, 0x01, 0x42, 0x01};
    h265_nal_reader reader(nalfmt_annex_b);
    reader.scan(input.begin(), input.end());
    EXPECT_TRUE(reader.found);
    EXPECT_FALSE(reader.gave_up);
    EXPECT_EQ(reader.frame_begin, input.at(5));
    EXPECT_EQ(reader.nal.nal_unit_type, SPS_NUT);
}

TEST(H265NalReaderAnnexB, FindsNothingWhenEveryForbiddenBitIsSet) {
    const test::exact_bytes input{0x00, 0x00, 0x00, 0x01, 0x80, 0x00};
    h265_nal_reader reader(nalfmt_annex_b);
    reader.scan(input.begin(), input.end());
    EXPECT_TRUE(reader.need_more_data);
    EXPECT_FALSE(reader.gave_up);
    EXPECT_EQ(reader.cursor, input.at(1));
    EXPECT_EQ(reader.zero_count, 1U);
    expect_no_unit(reader);
}

TEST(H265NalReaderAnnexB, FindsEachUnitFromTheCursorOfTheOneBefore) {
    const test::exact_bytes input{0x00, 0x00, 0x01, 0x40, 0x01, 0xAA, 0xBB, 0x00, 0x00, 0x00,
                                  0x01, 0x42, 0x01, 0xCC, 0x00, 0x00, 0x01, 0x44, 0x01, 0xDD};
    h265_nal_reader reader(nalfmt_annex_b);

    reader.scan(input.begin(), input.end());
    EXPECT_EQ(reader.nal.nal_unit_type, VPS_NUT);
    EXPECT_EQ(decode(reader, 20), (bytes{0xAA, 0xBB}));

    reader.scan(reader.cursor, input.end());
    EXPECT_EQ(reader.begin, input.at(5));
    EXPECT_EQ(reader.nal.nal_unit_type, SPS_NUT);
    EXPECT_EQ(reader.frame_begin, input.at(8));
    EXPECT_EQ(reader.zero_count, 1U);
    EXPECT_EQ(decode(reader, 20), bytes{0xCC});

    reader.scan(reader.cursor, input.end());
    EXPECT_EQ(reader.nal.nal_unit_type, PPS_NUT);
    EXPECT_EQ(reader.zero_count, 0U);
    EXPECT_EQ(decode(reader, 20), bytes{0xDD});

    reader.scan(reader.cursor, input.end());
    EXPECT_TRUE(reader.need_more_data);
    EXPECT_EQ(reader.nal.nal_unit_type, PPS_NUT);  // only `valid` is cleared
    expect_no_unit(reader);
}

TEST(H265NalReaderAnnexB, FindsUnitsThatAreOnlyAHeader) {
    const test::exact_bytes input{0x00, 0x00, 0x01, 0x48, 0x01, 0x00, 0x00, 0x01, 0x4A, 0x01};
    h265_nal_reader reader(nalfmt_annex_b);
    reader.scan(input.begin(), input.end());
    EXPECT_EQ(reader.nal.nal_unit_type, EOS_NUT);
    EXPECT_EQ(decode(reader, 8), bytes());
    reader.scan(reader.cursor, input.end());
    EXPECT_EQ(reader.nal.nal_unit_type, EOB_NUT);
    EXPECT_EQ(reader.cursor, input.end());
}

TEST(H265NalReaderAnnexB, TakesHeaderBytesForNoPartOfAStartCode) {
    const test::exact_bytes input{0x00, 0x00, 0x01, 0x00, 0x00, 0x01, 0x40, 0x01, 0x0C, 0x01};
    h265_nal_reader reader(nalfmt_annex_b);
    reader.scan(input.begin(), input.end());
    EXPECT_TRUE(reader.found);
    EXPECT_EQ(reader.nal.nal_unit_type, TRAIL_N);
    EXPECT_EQ(reader.nal.nuh_temporal_id_plus1, 0);
    reader.scan(reader.cursor, input.end());
    EXPECT_FALSE(reader.found);
}

TEST(H265NalReaderAnnexB, SearchesAloneWithoutReadyingTheDecoder) {
    const test::exact_bytes input{0xAA, 0x00, 0x00, 0x00, 0x01, 0x40, 0x01, 0x0C};
    h265_nal_reader reader(nalfmt_annex_b);
    reader.scan_annex_b(input.begin(), input.end());
    EXPECT_TRUE(reader.found);
    EXPECT_EQ(reader.frame_begin, input.at(2));
    EXPECT_EQ(reader.zero_count, 1U);
    EXPECT_EQ(reader.cursor, input.at(7));
    EXPECT_EQ(reader.decode_ptr, nullptr);
}

TEST(H265NalReaderLengthPrefixed, FindsUnitsBehindEveryPrefix) {
    for (const h2645_common_nalfmt format : length_formats) {
        const bytes first = length_prefixed(format, {0x40, 0x01, 0xAA, 0xBB, 0xCC});
        const test::exact_bytes input(first + length_prefixed(format, {0x42, 0x0A, 0xDD}));
        h265_nal_reader reader(format);

        reader.scan(input.begin(), input.end());
        EXPECT_TRUE(reader.found);
        EXPECT_FALSE(reader.need_more_data);
        EXPECT_FALSE(reader.gave_up);
        EXPECT_TRUE(reader.length_known);
        EXPECT_EQ(reader.begin, input.begin());
        EXPECT_EQ(reader.fence, input.end());
        EXPECT_EQ(reader.frame_begin, input.begin());
        EXPECT_EQ(reader.nal_begin, input.at(format));
        EXPECT_EQ(reader.payload_begin, input.at(format + 2U));
        EXPECT_EQ(reader.nal_length, 5U);
        EXPECT_EQ(reader.payload_length, 3U);
        EXPECT_EQ(reader.zero_count, 0U);
        EXPECT_EQ(reader.cursor, input.at(first.size()));
        EXPECT_EQ(reader.decode_ptr, reader.payload_begin);
        EXPECT_EQ(reader.decode_fence, reader.cursor);
        EXPECT_EQ(reader.nal.nal_unit_type, VPS_NUT);
        EXPECT_EQ(decode(reader, 20), (bytes{0xAA, 0xBB, 0xCC}));

        reader.scan(reader.cursor, input.end());
        EXPECT_TRUE(reader.found);
        EXPECT_EQ(reader.frame_begin, input.at(first.size()));
        EXPECT_EQ(reader.nal.nal_unit_type, SPS_NUT);
        EXPECT_EQ(reader.nal.nuh_layer_id, 1);
        EXPECT_EQ(reader.nal.nuh_temporal_id_plus1, 2);
        EXPECT_EQ(reader.cursor, input.end());
        EXPECT_EQ(decode(reader, 20), bytes{0xDD});
    }
}

TEST(H265NalReaderLengthPrefixed, TakesEveryByteOfThePrefix) {
    const struct {
        bytes input;
        h2645_common_nalfmt format;
        unsigned int length;
    } cases[] = {
        {{0x12, 0x40, 0x01}, nalfmt_length8, 0x12},
        {{0x12, 0x34, 0x40, 0x01}, nalfmt_length16, 0x1234},
        {{0x12, 0x34, 0x56, 0x40, 0x01}, nalfmt_length24, 0x123456},
        {{0x12, 0x34, 0x56, 0x78, 0x40, 0x01}, nalfmt_length32, 0x12345678},
    };
    for (const auto& [framed, format, length] : cases) {
        const test::exact_bytes input(framed);
        h265_nal_reader reader(format);
        reader.scan(input.begin(), input.end());
        EXPECT_TRUE(reader.found);
        EXPECT_EQ(reader.nal_length, length);
        EXPECT_EQ(reader.payload_length, length - 2);
    }
}

TEST(H265NalReaderLengthPrefixed, NeedsThePrefixAndTheHeader) {
    for (const h2645_common_nalfmt format : length_formats) {
        const bytes whole = length_prefixed(format, {0x40, 0x01});
        for (std::size_t size = 0; size < whole.size(); ++size) {
            const test::exact_bytes input(whole.data(), size);
            h265_nal_reader reader(format);
            reader.scan(input.begin(), input.end());
            EXPECT_TRUE(reader.need_more_data) << format << ", " << size;
            EXPECT_EQ(reader.cursor, input.begin());
            EXPECT_FALSE(reader.length_known);
            EXPECT_FALSE(reader.gave_up);
            expect_no_unit(reader);
        }
    }
}

TEST(H265NalReaderLengthPrefixed, OffersAnIncompleteUnitFromItsPrefix) {
    for (const h2645_common_nalfmt format : length_formats) {
        const bytes before = length_prefixed(format, {0x40, 0x01, 0x11});
        const test::exact_bytes input(
            before + length_prefixed(format, {0x42, 0x01, 0xAA, 0xBB, 0xCC, 0xDD}));
        unsigned char* const unit = input.at(before.size());
        for (std::size_t missing = 1; missing <= 4; ++missing) {
            unsigned char* const fence = input.end() - missing;
            h265_nal_reader reader(format);
            reader.scan(unit, fence);
            EXPECT_TRUE(reader.found);
            EXPECT_TRUE(reader.need_more_data);
            EXPECT_TRUE(reader.nal.valid);
            EXPECT_TRUE(reader.length_known);
            EXPECT_FALSE(reader.gave_up);
            EXPECT_EQ(reader.frame_begin, unit);
            EXPECT_EQ(reader.cursor, unit);
            EXPECT_EQ(reader.nal_length, 6U);
            EXPECT_EQ(reader.payload_length, 4U);
            EXPECT_EQ(reader.decode_ptr, unit + format + 2);
            EXPECT_EQ(reader.decode_fence, fence);
            EXPECT_EQ(decode(reader, 20).size(), 4 - missing);

            reader.scan(reader.cursor, input.end());
            EXPECT_TRUE(reader.found);
            EXPECT_FALSE(reader.need_more_data);
            EXPECT_EQ(decode(reader, 20), (bytes{0xAA, 0xBB, 0xCC, 0xDD}));
        }
    }
}

TEST(H265NalReaderLengthPrefixed, StandsALengthNearTheLimitOf32Bits) {
    for (const unsigned int length : {0xFFFFFFFCU, 0xFFFFFFFDU, 0xFFFFFFFEU, 0xFFFFFFFFU}) {
        const auto last = static_cast<unsigned char>(length & 0xFF);
        const test::exact_bytes input{0xFF, 0xFF, 0xFF, last, 0x40, 0x01, 0xAA};
        h265_nal_reader reader(nalfmt_length32);
        reader.scan(input.begin(), input.end());
        EXPECT_TRUE(reader.found);
        EXPECT_TRUE(reader.need_more_data);
        EXPECT_EQ(reader.cursor, input.begin());
        EXPECT_EQ(reader.nal_length, length);
        EXPECT_EQ(reader.payload_length, length - 2);
        EXPECT_EQ(reader.decode_fence, input.end());
        EXPECT_EQ(decode(reader, 20), bytes{0xAA});
    }
}

TEST(H265NalReaderLengthPrefixed, GivesUpOnALengthOfZero) {
    for (const h2645_common_nalfmt format : length_formats) {
        const test::exact_bytes input(bytes(format) + bytes{0x40, 0x01, 0xAA, 0xBB});
        h265_nal_reader reader(format);
        reader.scan(input.begin(), input.end());
        EXPECT_TRUE(reader.gave_up);
        EXPECT_FALSE(reader.need_more_data);
        EXPECT_FALSE(reader.length_known);
        EXPECT_EQ(reader.cursor, input.end());
        expect_no_unit(reader);
    }
}

TEST(H265NalReaderLengthPrefixed, HasNothingToDecodeBehindALengthOfOne) {
    for (const h2645_common_nalfmt format : length_formats) {
        const test::exact_bytes input(length_prefixed(format, {0x40}) + bytes{0x01, 0xAA, 0xBB});
        h265_nal_reader reader(format);
        reader.scan(input.begin(), input.end());
        EXPECT_TRUE(reader.found);
        EXPECT_FALSE(reader.need_more_data);
        EXPECT_FALSE(reader.gave_up);
        EXPECT_EQ(reader.nal_length, 1U);
        EXPECT_EQ(reader.payload_length, 0xFFFFFFFFU);
        EXPECT_EQ(reader.nal_begin, input.at(format));
        EXPECT_EQ(reader.payload_begin, input.at(format + 2U));
        EXPECT_EQ(reader.cursor, input.at(format + 1U));
        EXPECT_EQ(reader.decode_ptr, reader.decode_fence);
        EXPECT_EQ(decode(reader, 20), bytes());
        reader.rewind();
        EXPECT_EQ(decode(reader, 20), bytes());
    }
}

TEST(H265NalReaderLengthPrefixed, FindsUnitsThatAreOnlyAHeader) {
    for (const h2645_common_nalfmt format : length_formats) {
        const test::exact_bytes input(length_prefixed(format, {0x48, 0x01}) + bytes{0xAA, 0xBB});
        h265_nal_reader reader(format);
        reader.scan(input.begin(), input.end());
        EXPECT_TRUE(reader.found);
        EXPECT_EQ(reader.payload_length, 0U);
        EXPECT_EQ(reader.cursor, input.at(format + 2U));
        EXPECT_EQ(decode(reader, 20), bytes());
    }
}

TEST(H265NalReaderLengthPrefixed, SkipsAUnitWithASetForbiddenBit) {
    for (const h2645_common_nalfmt format : length_formats) {
        const bytes bad = length_prefixed(format, {0xC0, 0x01, 0xAA});
        const test::exact_bytes input(bad + length_prefixed(format, {0x42, 0x01, 0xBB}));
        h265_nal_reader reader(format);
        reader.scan(input.begin(), input.end());
        EXPECT_TRUE(reader.gave_up);
        EXPECT_FALSE(reader.need_more_data);
        EXPECT_EQ(reader.cursor, input.at(bad.size()));
        expect_no_unit(reader);

        reader.scan(reader.cursor, input.end());
        EXPECT_TRUE(reader.found);
        EXPECT_FALSE(reader.gave_up);
        EXPECT_EQ(reader.nal.nal_unit_type, SPS_NUT);
    }
}

TEST(H265NalReaderLengthPrefixed, SkipsToTheFenceWhenTheBadUnitRunsPastIt) {
    for (const h2645_common_nalfmt format : length_formats) {
        bytes bad = length_prefixed(format, {0xC0, 0x01, 0xAA, 0xBB, 0xCC});
        bad.resize(bad.size() - 2);
        const test::exact_bytes input(bad);
        h265_nal_reader reader(format);
        reader.scan(input.begin(), input.end());
        EXPECT_TRUE(reader.gave_up);
        EXPECT_FALSE(reader.need_more_data);
        EXPECT_EQ(reader.cursor, input.end());
        expect_no_unit(reader);
    }
}

TEST(H265NalReader, FindsNothingWithoutFraming) {
    const test::exact_bytes input{0x00, 0x00, 0x00, 0x01, 0x40, 0x01, 0x0C};
    h265_nal_reader reader(nalfmt_none);
    reader.scan(input.begin(), input.end());
    EXPECT_EQ(reader.begin, input.begin());
    EXPECT_EQ(reader.fence, input.end());
    EXPECT_EQ(reader.cursor, input.end());
    EXPECT_FALSE(reader.need_more_data);
    EXPECT_FALSE(reader.gave_up);
    expect_no_unit(reader);
}

TEST(H265NalReader, ForgetsTheUnitBeforeAtEachScan) {
    const h2645_common_nalfmt formats[] = {nalfmt_none,     nalfmt_length8,  nalfmt_length16,
                                           nalfmt_length24, nalfmt_length32, nalfmt_annex_b};
    const test::exact_bytes whole{0x02, 0x40, 0x01};
    const test::exact_bytes bare{0x77};
    for (const h2645_common_nalfmt format : formats) {
        h265_nal_reader reader(nalfmt_length8);
        reader.scan(whole.begin(), whole.end());
        ASSERT_TRUE(reader.found);
        reader.nalfmt = format;
        reader.zero_count = 7;
        reader.gave_up = true;
        reader.scan(bare.begin(), bare.end());
        EXPECT_EQ(reader.begin, bare.begin());
        EXPECT_EQ(reader.fence, bare.end());
        EXPECT_EQ(reader.zero_count, 0U);
        EXPECT_FALSE(reader.gave_up);
        EXPECT_FALSE(reader.length_known);
        EXPECT_EQ(reader.need_more_data, format != nalfmt_none);
        expect_no_unit(reader);
    }
}

TEST(H265NalReader, TakesNullAndReversedRangesForEmptyOnes) {
    const test::exact_bytes input{0x00, 0x00, 0x01, 0x40, 0x01, 0x00, 0x00, 0x01, 0x42, 0x01};
    for (const h2645_common_nalfmt format :
         {nalfmt_length8, nalfmt_length16, nalfmt_length24, nalfmt_length32, nalfmt_annex_b}) {
        h265_nal_reader reader(format);

        reader.scan(nullptr, nullptr);
        EXPECT_TRUE(reader.need_more_data) << format;
        EXPECT_EQ(reader.cursor, nullptr);
        expect_no_unit(reader);

        reader.scan(input.end(), input.begin());
        EXPECT_TRUE(reader.need_more_data) << format;
        EXPECT_EQ(reader.cursor, input.end());
        expect_no_unit(reader);

        reader.scan(nullptr, input.end());
        EXPECT_TRUE(reader.need_more_data) << format;
        expect_no_unit(reader);

        reader.scan(input.begin(), nullptr);
        EXPECT_TRUE(reader.need_more_data) << format;
        expect_no_unit(reader);
    }
}

TEST(H265NalReader, ScanAnnexBByItselfForgetsTheLengthOfTheUnitBefore) {
    const test::exact_bytes prefixed{0x04, 0x40, 0x01, 0xAA, 0xBB};
    const test::exact_bytes input{0x00, 0x00, 0x00, 0x01, 0x42, 0x01, 0xCC, 0xDD, 0xEE};
    h265_nal_reader reader(nalfmt_length8);
    reader.scan(prefixed.begin(), prefixed.end());
    ASSERT_TRUE(reader.length_known);

    reader.scan_annex_b(input.begin(), input.end());
    EXPECT_TRUE(reader.found);
    EXPECT_FALSE(reader.length_known);
    EXPECT_EQ(reader.nal_length, 0U);
    EXPECT_EQ(reader.payload_length, 0U);
    EXPECT_EQ(reader.nal.nal_unit_type, SPS_NUT);
    EXPECT_EQ(reader.frame_begin, input.at(1));
    EXPECT_EQ(reader.nal_begin, input.at(4));
    EXPECT_EQ(reader.payload_begin, input.at(6));
    EXPECT_EQ(reader.cursor, input.at(6));
    EXPECT_EQ(reader.zero_count, 1U);

    reader.rewind();
    EXPECT_EQ(decode(reader, 20), (bytes{0xCC, 0xDD, 0xEE}));
}

TEST(H265NalReader, ScanAnnexBByItselfTakesAReversedRangeForAnEmptyOne) {
    const test::exact_bytes input{0x00, 0x00, 0x01, 0x40, 0x01};
    h265_nal_reader reader(nalfmt_annex_b);
    reader.scan_annex_b(input.end(), input.begin());
    EXPECT_EQ(reader.cursor, input.end());
    EXPECT_TRUE(reader.need_more_data);
    EXPECT_FALSE(reader.found);
}

// Zero bytes at the end of one range and at the beginning of the next are one run.
TEST(H265NalReader, ScanAnnexBByItselfGoesOnCountingZeroBytes) {
    const test::exact_bytes zeros{0x00, 0x00, 0x00, 0x00, 0x00, 0x00};
    const test::exact_bytes input{0x00, 0x00, 0x00, 0x01, 0x40, 0x01,
                                  0xAA, 0x00, 0x00, 0x01, 0x42, 0x01};
    h265_nal_reader reader(nalfmt_annex_b);
    reader.scan_annex_b(zeros.begin(), zeros.end());
    EXPECT_EQ(reader.zero_count, 2U);  // 00 00 00 at its first two bytes
    reader.scan_annex_b(input.begin(), input.end());
    EXPECT_EQ(reader.zero_count, 3U);
    reader.scan_annex_b(reader.cursor, input.end());
    EXPECT_EQ(reader.zero_count, 0U);
}

TEST(H265NalReader, AbortsOnAnUnknownFormat) {
    const test::exact_bytes input{0x00, 0x00, 0x01, 0x40, 0x01};
    for (const unsigned int value : {6U, 0x80000000U, 0xFFFFFFFFU}) {
        h265_nal_reader reader(static_cast<h2645_common_nalfmt>(value));
        EXPECT_EXIT(reader.scan(input.begin(), input.end()), testing::KilledBySignal(SIGABRT), "");
    }
}

TEST(H265NalReader, RewindStartsDecodingAgain) {
    const struct {
        bytes input;
        h2645_common_nalfmt format;
    } cases[] = {
        {{0x00, 0x00, 0x01, 0x40, 0x01, 0xAA, 0xBB, 0xCC, 0xDD}, nalfmt_annex_b},
        {{0x00, 0x00, 0x06, 0x40, 0x01, 0xAA, 0xBB, 0xCC, 0xDD}, nalfmt_length24},
    };
    for (const auto& [framed, format] : cases) {
        const test::exact_bytes input(framed);
        h265_nal_reader reader(format);
        reader.scan(input.begin(), input.end());
        EXPECT_EQ(decode(reader, 20), (bytes{0xAA, 0xBB, 0xCC, 0xDD}));
        EXPECT_EQ(decode(reader, 20), bytes());
        reader.rewind();
        EXPECT_EQ(reader.decode_ptr, reader.payload_begin);
        EXPECT_EQ(reader.decode_fence, input.end());
        EXPECT_EQ(decode(reader, 20), (bytes{0xAA, 0xBB, 0xCC, 0xDD}));
    }
}

TEST(H265NalReader, RewindHasNothingToDecodeWithoutAUnit) {
    h265_nal_reader reader;
    reader.rewind();
    expect_no_unit(reader);
}

TEST(H265NalReader, DoGiveUpLeavesNoUnit) {
    const test::exact_bytes input{0x05, 0x40, 0x01, 0xAA, 0xBB, 0xCC};
    h265_nal_reader reader(nalfmt_length8);
    reader.scan(input.begin(), input.end());
    ASSERT_TRUE(reader.found);
    reader.do_give_up();
    EXPECT_TRUE(reader.gave_up);
    EXPECT_FALSE(reader.found);
    EXPECT_EQ(reader.frame_begin, nullptr);
    EXPECT_EQ(reader.nal_begin, nullptr);
    EXPECT_EQ(reader.payload_begin, nullptr);
    EXPECT_EQ(reader.nal_length, 0U);
    EXPECT_EQ(reader.payload_length, 0U);
}

TEST(H265NalReaderBlockDecode, RemovesEmulationPreventionBytesUpToTheStartCode) {
    const test::exact_bytes input{0x25, 0x00, 0x00, 0x03, 0x01, 0x00, 0x00, 0x01};
    h265_nal_reader reader = decoding(input);
    EXPECT_EQ(decode(reader, 100), (bytes{0x25, 0x00, 0x00, 0x01}));
    EXPECT_EQ(reader.decode_ptr, input.end());
}

TEST(H265NalReaderBlockDecode, KnowsItsPatterns) {
    const struct {
        bytes input;
        bytes output;
    } cases[] = {
        {{}, {}},
        {{0xAA}, {0xAA}},
        {{0x00}, {0x00}},
        {{0x00, 0x00}, {0x00, 0x00}},
        {{0x00, 0x00, 0x00}, {}},
        {{0x00, 0x00, 0x01}, {}},
        {{0x00, 0x00, 0x02}, {}},
        {{0x00, 0x00, 0x03}, {0x00, 0x00}},
        {{0x00, 0x00, 0x04}, {0x00, 0x00, 0x04}},
        {{0x00, 0x01, 0x03}, {0x00, 0x01, 0x03}},
        {{0x01, 0x00, 0x03}, {0x01, 0x00, 0x03}},
        {{0x00, 0x03, 0x00, 0x03}, {0x00, 0x03, 0x00, 0x03}},
        // An emulation prevention byte before each value that needs it, and before another.
        {{0xAA, 0x00, 0x00, 0x03, 0x00, 0xBB}, {0xAA, 0x00, 0x00, 0x00, 0xBB}},
        {{0xAA, 0x00, 0x00, 0x03, 0x01, 0xBB}, {0xAA, 0x00, 0x00, 0x01, 0xBB}},
        {{0xAA, 0x00, 0x00, 0x03, 0x02, 0xBB}, {0xAA, 0x00, 0x00, 0x02, 0xBB}},
        {{0xAA, 0x00, 0x00, 0x03, 0x03, 0xBB}, {0xAA, 0x00, 0x00, 0x03, 0xBB}},
        {{0xAA, 0x00, 0x00, 0x03, 0x7F, 0xBB}, {0xAA, 0x00, 0x00, 0x7F, 0xBB}},
        // The byte behind a removed one starts a new pattern.
        {{0x00, 0x00, 0x03, 0x00, 0x00, 0x03, 0x01}, {0x00, 0x00, 0x00, 0x00, 0x01}},
        {{0x00, 0x00, 0x03, 0x00, 0x03, 0x00}, {0x00, 0x00, 0x00, 0x03, 0x00}},
        {{0x00, 0x00, 0x03, 0x00, 0x00, 0x01}, {0x00, 0x00}},
        // The end of the unit, at the first of any number of zero bytes.
        {{0xAA, 0xBB, 0x00, 0x00, 0x01, 0x42, 0x01}, {0xAA, 0xBB}},
        {{0xAA, 0xBB, 0x00, 0x00, 0x00, 0x01, 0x42, 0x01}, {0xAA, 0xBB}},
        {{0xAA, 0xBB, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00}, {0xAA, 0xBB}},
        {{0xAA, 0xBB, 0x00, 0x00, 0x02, 0x42, 0x01}, {0xAA, 0xBB}},
        {{0xAA, 0x00, 0x00, 0x03, 0x00, 0x00, 0x01, 0x42, 0x01}, {0xAA, 0x00, 0x00}},
        // The last two bytes stand for themselves.
        {{0xAA, 0x00, 0x00}, {0xAA, 0x00, 0x00}},
        {{0xAA, 0x00, 0x00, 0x03}, {0xAA, 0x00, 0x00}},
        {{0x00, 0x00, 0x03, 0x00, 0x00}, {0x00, 0x00, 0x00, 0x00}},
        {{0x00, 0x00, 0x03, 0x00, 0x03}, {0x00, 0x00, 0x00, 0x03}},
    };
    for (const auto& [source, expected] : cases) {
        const test::exact_bytes input(source);
        h265_nal_reader reader = decoding(input);
        EXPECT_EQ(decode(reader, 100), expected) << testing::PrintToString(source);
        EXPECT_EQ(reader.decode_ptr, input.end());
        EXPECT_EQ(decode(reader, 100), bytes());
    }
}

TEST(H265NalReaderBlockDecode, LooksForNoPatternsInARequestOfOneOrTwoBytes) {
    const test::exact_bytes input{0x00, 0x00, 0x03};
    h265_nal_reader reader = decoding(input);
    EXPECT_EQ(decode(reader, 2), (bytes{0x00, 0x00}));
    EXPECT_EQ(reader.decode_ptr, input.at(2));
    EXPECT_EQ(decode(reader, 1), bytes{0x03});
    EXPECT_EQ(reader.decode_ptr, input.end());
}

TEST(H265NalReaderBlockDecode, CopiesTheLastTwoBytesOfARequestAsTheyStand) {
    const test::exact_bytes input{0xAA, 0xBB, 0x00, 0x00, 0x03, 0x01};
    h265_nal_reader reader = decoding(input);
    EXPECT_EQ(decode(reader, 4), (bytes{0xAA, 0xBB, 0x00, 0x00}));
    EXPECT_EQ(reader.decode_ptr, input.at(4));
    EXPECT_EQ(decode(reader, 100), (bytes{0x03, 0x01}));

    reader = decoding(input);
    EXPECT_EQ(decode(reader, 5), (bytes{0xAA, 0xBB, 0x00, 0x00, 0x01}));
}

TEST(H265NalReaderBlockDecode, WritesNothingForARequestOfNothing) {
    const test::exact_bytes input{0xAA, 0xBB, 0xCC, 0xDD};
    h265_nal_reader reader = decoding(input);
    EXPECT_EQ(reader.block_decode(nullptr, 0), 0U);
    EXPECT_EQ(reader.decode_ptr, input.begin());
}

TEST(H265NalReaderBlockDecode, WritesNothingBehindTheCount) {
    const test::exact_bytes input(
        bytes(100, 0xAA) + bytes{0x00, 0x00, 0x03, 0x01, 0x00, 0x00, 0x01} + bytes(100, 0xBB));
    h265_nal_reader reader = decoding(input);
    bytes out(300, 0x55);
    EXPECT_EQ(reader.block_decode(out.data(), out.size()), 103U);
    EXPECT_EQ(out, bytes(100, 0xAA) + bytes({0x00, 0x00, 0x01}) + bytes(197, 0x55));
}

TEST(H265NalReaderBlockDecode, GivesNothingMoreOnceItHasReachedAStartCode) {
    const test::exact_bytes input{0x00, 0x00, 0x01, 0x40, 0x01, 0xAA, 0xBB,
                                  0x00, 0x00, 0x01, 0x42, 0x01, 0xCC, 0xDD};
    h265_nal_reader reader(nalfmt_annex_b);
    reader.scan(input.begin(), input.end());
    EXPECT_EQ(decode(reader, 100), (bytes{0xAA, 0xBB}));
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(decode(reader, 100), bytes());
    }
    reader.scan(reader.cursor, input.end());
    EXPECT_EQ(decode(reader, 100), (bytes{0xCC, 0xDD}));
}

TEST(H265NalReaderBlockDecode, StopsAtAStartCodeInALengthPrefixedUnitToo) {
    const test::exact_bytes input{0x07, 0x40, 0x01, 0xAA, 0x00, 0x00, 0x01, 0xBB, 0xCC};
    h265_nal_reader reader(nalfmt_length8);
    reader.scan(input.begin(), input.end());
    EXPECT_EQ(decode(reader, 100), bytes{0xAA});
}

TEST(H265NalReaderBlockDecode, EndsWithItsLengthPrefixedUnit) {
    const test::exact_bytes input{0x05, 0x40, 0x01, 0xAA, 0x00, 0x00, 0x03, 0x42, 0x01, 0xBB};
    h265_nal_reader reader(nalfmt_length8);
    reader.scan(input.begin(), input.end());
    EXPECT_EQ(decode(reader, 100), (bytes{0xAA, 0x00, 0x00}));
    EXPECT_EQ(reader.decode_ptr, input.at(6));
}

TEST(H265NalReaderBlockDecode, DecodesInPlace) {
    const test::exact_bytes input(bytes{0x08, 0x40, 0x01, 0x00, 0x00, 0x03, 0x00, 0x00, 0x03} +
                                  bytes{0x02, 0x42, 0x01});
    h265_nal_reader reader(nalfmt_length8);
    reader.scan(input.begin(), input.end());
    EXPECT_EQ(reader.block_decode(reader.decode_ptr, 6), 4U);
    EXPECT_EQ(input.first(12),
              (bytes{0x08, 0x40, 0x01, 0x00, 0x00, 0x00, 0x00, 0x00, 0x03, 0x02, 0x42, 0x01}));
    reader.scan(reader.cursor, input.end());
    EXPECT_EQ(reader.nal.nal_unit_type, SPS_NUT);
}

TEST(H265NalReaderBlockDecode, DecodesInPlaceOnceACopyHasFoundTheNextUnit) {
    // Decoded, the first payload holds 00 00 01 42 01.
    const test::exact_bytes input{0x00, 0x00, 0x01, 0x40, 0x01, 0x00, 0x00, 0x03, 0x01,
                                  0x42, 0x01, 0x00, 0x00, 0x01, 0x44, 0x01, 0xEE};
    h265_nal_reader reader(nalfmt_annex_b);
    reader.scan(input.begin(), input.end());

    h265_nal_reader next = reader;
    next.scan(next.cursor, input.end());
    ASSERT_TRUE(next.found);
    EXPECT_EQ(next.nal.nal_unit_type, PPS_NUT);

    unsigned char* const rbsp = reader.decode_ptr;
    EXPECT_EQ(reader.block_decode(rbsp, input.size() - 5), 5U);
    EXPECT_EQ(bytes(rbsp, rbsp + 5), (bytes{0x00, 0x00, 0x01, 0x42, 0x01}));
    EXPECT_EQ(decode(next, 100), bytes{0xEE});
}

}  // namespace
}  // namespace kovran
