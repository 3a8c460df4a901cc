#include <kovran/h265/h265_nal_reader.h>
#include <kovran/h265/h265_nal_writer.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <random>
#include <string>
#include <vector>

#include "support/bytewise_framing.h"
#include "support/framing_comparison.h"
#include "support/rbsp.h"

namespace kovran {
namespace {
// The library's framing, which works in blocks, against the same algorithms a byte at a time.

using bytes = std::vector<unsigned char>;
using test::bytewise_reader;
using test::bytewise_writer;
using test::exact_bytes;
using test::reader_fields;
using test::reader_pair;
using test::trail_r;
using test::unknown_format;

constexpr h2645_common_nalfmt reader_formats[] = {nalfmt_none,     nalfmt_length8,  nalfmt_length16,
                                                  nalfmt_length24, nalfmt_length32, nalfmt_annex_b};

constexpr h2645_common_nalfmt writer_formats[] = {nalfmt_none,     nalfmt_length8,  nalfmt_length16,
                                                  nalfmt_length24, nalfmt_length32, nalfmt_annex_b,
                                                  unknown_format};

// Random bytes, of which each recipe takes more or less from those that patterns are made of. They
// are the same on every machine.
class random_bytes {
public:
    explicit random_bytes(std::uint32_t seed) : engine_(seed) {}

    bytes operator()(std::size_t size) {
        static constexpr unsigned int recipes[] = {8, 12, 16, 64, 256};
        const unsigned int recipe = recipes[below(std::size(recipes))];
        bytes data(size);
        for (unsigned char& byte : data) {
            static constexpr unsigned char common[] = {0, 0, 0, 0, 1, 2, 3, 0x40};
            const unsigned int choice = below(recipe);
            byte = choice < std::size(common) ? common[choice]
                                              : static_cast<unsigned char>(below(256));
        }
        return data;
    }

    unsigned int below(std::size_t limit) { return static_cast<unsigned int>(engine_() % limit); }

private:
    std::mt19937 engine_;
};

// Scans from cursor to cursor, as a host does, up to the end of the data.
void expect_scans_alike(h2645_common_nalfmt format, const exact_bytes& input) {
    reader_pair readers(format);
    unsigned char* from = input.begin();
    do {
        readers.scan(from, input.end());
        ASSERT_EQ(reader_fields(readers.fast, input.begin()),
                  reader_fields(readers.plain, input.begin()))
            << testing::PrintToString(input.first(input.size()));
        from = readers.plain.cursor;
    } while (!readers.plain.need_more_data && from != input.end());
}

void expect_decodes_alike(const exact_bytes& input, std::size_t n, std::size_t misalignment = 0) {
    reader_pair readers(nalfmt_annex_b);
    readers.decode_from(input);
    do {
        ASSERT_TRUE(readers.decode_alike(n, misalignment))
            << n << " bytes of " << testing::PrintToString(input.first(input.size()));
    } while (n > 0 && readers.plain.decode_ptr != input.end());
}

// Decodes to `gap` bytes before the input, which is in place for 0.
void expect_overlapping_decodes_alike(const bytes& data, std::size_t gap, std::size_t n) {
    const bytes memory = [&] {
        bytes both(gap, 0x55);
        both.insert(both.end(), data.begin(), data.end());
        return both;
    }();
    const exact_bytes of_fast(memory);
    const exact_bytes of_plain(memory);
    h265_nal_reader fast(nalfmt_annex_b);
    fast.decode_ptr = of_fast.at(gap);
    fast.decode_fence = of_fast.end();
    bytewise_reader plain(nalfmt_annex_b);
    plain.decode_ptr = of_plain.at(gap);
    plain.decode_fence = of_plain.end();

    ASSERT_EQ(fast.block_decode(of_fast.begin(), n), plain.block_decode(of_plain.begin(), n))
        << n << ", " << gap << ", " << testing::PrintToString(data);
    ASSERT_EQ(fast.decode_ptr - of_fast.begin(), plain.decode_ptr - of_plain.begin());
    ASSERT_TRUE(std::equal(of_fast.begin(), of_fast.end(), of_plain.begin()))
        << n << ", " << gap << ", " << testing::PrintToString(data);
}

// Writes the unit into an output of exactly `room` bytes; returns what the plain writer did.
std::size_t expect_encodes_alike(h2645_common_nalfmt format, const exact_bytes& payload,
                                 unsigned int zero_bytes, std::size_t room,
                                 std::size_t misalignment = 0) {
    const exact_bytes of_fast(bytes(room, 0x55), misalignment);
    const exact_bytes of_plain(bytes(room, 0x55));
    h265_nal_writer fast(of_fast.begin(), of_fast.begin(), of_fast.end(), format);
    bytewise_writer plain(of_plain.begin(), of_plain.end(), format);
    const std::size_t fast_count =
        fast.block_encode(payload.begin(), payload.size(), trail_r, zero_bytes);
    const std::size_t plain_count =
        plain.block_encode(payload.begin(), payload.size(), trail_r, zero_bytes);
    EXPECT_EQ(fast_count, plain_count) << format << ", " << zero_bytes << ", " << room;
    EXPECT_EQ(fast.data_length(), plain_count);
    EXPECT_TRUE(std::equal(of_plain.begin(), of_plain.begin() + plain_count, of_fast.begin()))
        << format << ", " << zero_bytes << ", "
        << testing::PrintToString(payload.first(payload.size()));
    return plain_count;
}

// What a host offers for a payload; `room` for every unit of it.
std::size_t enough_room(std::size_t payload_size, unsigned int zero_bytes) {
    return h265_nal_writer::recommended_output_size(payload_size) + zero_bytes;
}

// Bytes without any pattern, except for `pattern` around the limits of the blocks that code may
// work in; `visit` takes each such buffer.
template <class Visit>
void for_each_pattern_at_a_block_limit(const bytes& pattern, Visit visit) {
    constexpr std::size_t size = 4200;
    bytes data(size);
    for (std::size_t i = 0; i < size; ++i) {
        data[i] = static_cast<unsigned char>(4 + i % 251);
    }
    for (const std::size_t limit : {16U, 32U, 64U, 128U, 256U, 1024U, 2048U, 4096U}) {
        for (std::size_t at = limit - pattern.size() - 2; at <= limit + 3; ++at) {
            bytes with_pattern = data;
            std::copy(pattern.begin(), pattern.end(),
                      with_pattern.begin() + static_cast<std::ptrdiff_t>(at));
            visit(with_pattern);
        }
    }
}

const bytes patterns[] = {
    {0, 0, 1, 0x40, 0x01},
    {0, 0, 0, 1, 0x40, 0x01},
    {0, 0, 0, 0, 0, 0, 0, 1, 0x40, 0x01},
    {0, 0, 1, 0x80, 0x01},
    {0, 0, 2},
    {0, 0, 3},
    {0, 0, 3, 0, 0, 3, 1},
    {0, 0, 4},
    {0, 4, 0, 4, 0, 0},
    {0, 0, 0},
};

TEST(FramingReference, ScansEveryLengthAtEveryAlignment) {
    random_bytes random(1);
    for (std::size_t size = 0; size <= 200; ++size) {
        for (std::size_t misalignment = 0; misalignment < 64; ++misalignment) {
            const exact_bytes input(random(size), misalignment);
            ASSERT_NO_FATAL_FAILURE(expect_scans_alike(nalfmt_annex_b, input));
        }
    }
}

TEST(FramingReference, ScansRunsOfEqualBytes) {
    for (std::size_t size = 0; size <= 200; ++size) {
        for (const unsigned char byte : bytes{0, 1, 2, 3, 0xFF}) {
            const exact_bytes input(bytes(size, byte));
            ASSERT_NO_FATAL_FAILURE(expect_scans_alike(nalfmt_annex_b, input));
        }
    }
}

TEST(FramingReference, ScansStartCodesBehindAnyNumberOfZeros) {
    random_bytes random(2);
    for (std::size_t zeros = 0; zeros <= 300; ++zeros) {
        for (const unsigned char header : bytes{0x40, 0x80}) {
            bytes data = random(random.below(70));
            data.insert(data.end(), zeros, 0);
            data.insert(data.end(), {0, 0, 1, header, 0x01});
            data.insert(data.end(), random.below(8), 0);
            const exact_bytes input(data, random.below(64));
            ASSERT_NO_FATAL_FAILURE(expect_scans_alike(nalfmt_annex_b, input));
        }
    }
}

TEST(FramingReference, ScansStartCodesBehindLongPadding) {
    random_bytes random(15);
    for (const std::size_t zeros : {256U, 272U, 4096U, 4111U, 4112U, 4400U, 8192U, 12000U}) {
        for (std::size_t more = 0; more < 20; ++more) {
            for (const unsigned char before : bytes{0, 1}) {
                bytes data(1, before);
                data.insert(data.end(), zeros + more, 0);
                data.insert(data.end(), {0, 0, 1, 0x40, 0x01});
                const exact_bytes input(data, random.below(64));
                ASSERT_NO_FATAL_FAILURE(expect_scans_alike(nalfmt_annex_b, input));
            }
        }
    }
}

TEST(FramingReference, ScansEveryFormat) {
    random_bytes random(3);
    for (const h2645_common_nalfmt format : reader_formats) {
        for (int round = 0; round < 4000; ++round) {
            const exact_bytes input(random(random.below(120)), random.below(64));
            ASSERT_NO_FATAL_FAILURE(expect_scans_alike(format, input));
        }
    }
}

TEST(FramingReference, ScansPatternsAroundBlockLimits) {
    for (const bytes& pattern : patterns) {
        for_each_pattern_at_a_block_limit(pattern, [](const bytes& data) {
            const exact_bytes input(data);
            ASSERT_NO_FATAL_FAILURE(expect_scans_alike(nalfmt_annex_b, input));
        });
    }
}

TEST(FramingReference, ScansPatternsAtTheEnd) {
    for (const bytes& pattern : patterns) {
        for (std::size_t size = 0; size <= 140; ++size) {
            for (std::size_t missing = 0; missing < pattern.size(); ++missing) {
                bytes data(size, 0xAA);
                data.insert(data.end(), pattern.begin(),
                            pattern.end() - static_cast<std::ptrdiff_t>(missing));
                const exact_bytes input(data);
                ASSERT_NO_FATAL_FAILURE(expect_scans_alike(nalfmt_annex_b, input));
            }
        }
    }
}

TEST(FramingReference, ScansDataThatComesInPieces) {
    random_bytes random(4);
    for (const h2645_common_nalfmt format : reader_formats) {
        for (int round = 0; round < 600; ++round) {
            const bytes stream = random(400);
            const std::size_t largest_piece = 1 + random.below(60);
            reader_pair readers(format);
            bytes kept;
            for (std::size_t fed = 0; fed < stream.size();) {
                const std::size_t piece =
                    std::min<std::size_t>(1 + random.below(largest_piece), stream.size() - fed);
                const auto next = stream.begin() + static_cast<std::ptrdiff_t>(fed);
                kept.insert(kept.end(), next, next + static_cast<std::ptrdiff_t>(piece));
                fed += piece;

                const exact_bytes buffer(kept, random.below(64));
                unsigned char* from = buffer.begin();
                do {
                    readers.scan(from, buffer.end());
                    ASSERT_EQ(reader_fields(readers.fast, buffer.begin()),
                              reader_fields(readers.plain, buffer.begin()));
                    if (readers.plain.found) {
                        ASSERT_TRUE(readers.decode_alike(buffer.size()));
                    }
                    from = readers.plain.cursor;
                } while (!readers.plain.need_more_data && from != buffer.end());
                kept.assign(from, buffer.end());
            }
        }
    }
}

// Where the units of `stream` begin, when its bytes arrive in pieces of the given size. Fewer than
// five bytes are kept whole, as they may be a start code's first ones.
std::vector<std::size_t> unit_offsets(const bytes& stream, std::size_t piece) {
    std::vector<std::size_t> offsets;
    h265_nal_reader reader(nalfmt_annex_b);
    std::size_t kept_from = 0;
    for (std::size_t fed = std::min(piece, stream.size());;
         fed = std::min(fed + piece, stream.size())) {
        const exact_bytes buffer(stream.data() + kept_from, fed - kept_from);
        unsigned char* from = buffer.begin();
        while (buffer.end() - from >= 5) {
            reader.scan(from, buffer.end());
            from = reader.cursor;
            if (!reader.found) {
                break;
            }
            const auto offset = static_cast<std::size_t>(reader.nal_begin - buffer.begin());
            offsets.push_back(kept_from + offset);
        }
        if (fed == stream.size()) {
            return offsets;
        }
        kept_from += static_cast<std::size_t>(from - buffer.begin());
    }
}

TEST(FramingReference, FindsTheSameUnitsInPiecesOfAnySize) {
    random_bytes random(5);
    for (int round = 0; round < 60; ++round) {
        const bytes stream = random(600);
        const std::vector<std::size_t> whole = unit_offsets(stream, stream.size());
        for (std::size_t piece = 1; piece <= 70; ++piece) {
            ASSERT_EQ(unit_offsets(stream, piece), whole) << piece;
        }
    }
}

TEST(FramingReference, DecodesRequestsOfEverySize) {
    random_bytes random(6);
    for (std::size_t size = 0; size <= 40; ++size) {
        for (int round = 0; round < 40; ++round) {
            const exact_bytes input(random(size), random.below(64));
            for (std::size_t n = 0; n <= size + 3; ++n) {
                ASSERT_NO_FATAL_FAILURE(expect_decodes_alike(input, n));
            }
        }
    }
}

TEST(FramingReference, DecodesEveryLengthAtEveryAlignment) {
    random_bytes random(7);
    for (std::size_t size = 0; size <= 200; ++size) {
        for (std::size_t misalignment = 0; misalignment < 64; ++misalignment) {
            const exact_bytes input(random(size), misalignment);
            ASSERT_NO_FATAL_FAILURE(expect_decodes_alike(input, size, random.below(64)));
            ASSERT_NO_FATAL_FAILURE(
                expect_decodes_alike(input, 1 + random.below(size + 2), random.below(64)));
        }
    }
}

TEST(FramingReference, DecodesPayloadsWithoutStartCodes) {
    random_bytes random(8);
    for (std::size_t size = 0; size <= 200; ++size) {
        for (int round = 0; round < 40; ++round) {
            const exact_bytes payload(random(size));
            const exact_bytes escaped(bytes(enough_room(size, 0)));
            bytewise_writer writer(escaped.begin(), escaped.end(), unknown_format);
            const std::size_t written = writer.block_encode(payload.begin(), size, trail_r, 0);
            const exact_bytes input(escaped.at(2), written - 2, random.below(64));
            ASSERT_NO_FATAL_FAILURE(expect_decodes_alike(input, input.size()));
            ASSERT_NO_FATAL_FAILURE(expect_decodes_alike(input, 1 + random.below(size + 1)));
        }
    }
}

TEST(FramingReference, DecodesPatternsAroundBlockLimits) {
    for (const bytes& pattern : patterns) {
        for_each_pattern_at_a_block_limit(pattern, [](const bytes& data) {
            const exact_bytes input(data);
            ASSERT_NO_FATAL_FAILURE(expect_decodes_alike(input, input.size()));
        });
    }
}

TEST(FramingReference, DecodesInPlace) {
    random_bytes random(9);
    for (std::size_t size = 0; size <= 200; ++size) {
        for (int round = 0; round < 40; ++round) {
            const bytes data = random(size);
            ASSERT_NO_FATAL_FAILURE(expect_overlapping_decodes_alike(data, 0, size));
            const std::size_t n = random.below(size + 1);
            ASSERT_NO_FATAL_FAILURE(expect_overlapping_decodes_alike(data, 0, n));
        }
    }
    for (const bytes& pattern : patterns) {
        for_each_pattern_at_a_block_limit(pattern, [](const bytes& data) {
            ASSERT_NO_FATAL_FAILURE(expect_overlapping_decodes_alike(data, 0, data.size()));
        });
    }
}

TEST(FramingReference, DecodesToAPlaceShortlyBeforeTheInput) {
    random_bytes random(10);
    for (std::size_t gap = 1; gap <= 70; ++gap) {
        for (int round = 0; round < 30; ++round) {
            const bytes data = random(random.below(200));
            ASSERT_NO_FATAL_FAILURE(expect_overlapping_decodes_alike(data, gap, data.size()));
        }
    }
}

TEST(FramingReference, DecodesPairsOneUponTheOther) {
    for (std::size_t pairs = 1; pairs <= 30; ++pairs) {
        for (const bytes& end : {bytes{}, bytes{0}, bytes{0, 0}, bytes{0, 0, 1}, bytes{0, 0, 2},
                                 bytes{0, 0, 4}, bytes{0, 3}, bytes{1}}) {
            bytes data;
            for (std::size_t i = 0; i < pairs; ++i) {
                data.insert(data.end(), {0, 0, 3});
            }
            data.insert(data.end(), end.begin(), end.end());
            for (std::size_t n = 1; n <= data.size(); ++n) {
                ASSERT_NO_FATAL_FAILURE(expect_decodes_alike(exact_bytes(data), n));
                ASSERT_NO_FATAL_FAILURE(expect_overlapping_decodes_alike(data, 0, n));
                ASSERT_NO_FATAL_FAILURE(expect_overlapping_decodes_alike(data, 1, n));
            }
        }
    }
}

TEST(FramingReference, EncodesIntoEveryRoom) {
    random_bytes random(11);
    for (const h2645_common_nalfmt format : writer_formats) {
        for (std::size_t size = 0; size <= 40; ++size) {
            for (int round = 0; round < 2; ++round) {
                const exact_bytes payload(random(size), random.below(64));
                const unsigned int zero_bytes = random.below(5);
                for (std::size_t room = 0; room <= enough_room(size, zero_bytes); ++room) {
                    expect_encodes_alike(format, payload, zero_bytes, room);
                }
            }
        }
    }
}

TEST(FramingReference, EncodesEveryLengthAtEveryAlignment) {
    random_bytes random(12);
    for (std::size_t size = 0; size <= 200; ++size) {
        for (std::size_t misalignment = 0; misalignment < 64; ++misalignment) {
            const exact_bytes payload(random(size), misalignment);
            const h2645_common_nalfmt format =
                writer_formats[random.below(std::size(writer_formats))];
            const std::size_t room = enough_room(size, 1);
            const std::size_t needed =
                expect_encodes_alike(format, payload, 1, room, random.below(64));
            expect_encodes_alike(format, payload, 1, needed);
            if (needed > 0) {
                expect_encodes_alike(format, payload, 1, needed - 1);
            }
        }
    }
}

TEST(FramingReference, EncodesRunsOfEqualBytes) {
    for (std::size_t size = 0; size <= 300; ++size) {
        for (const unsigned char byte : bytes{0, 1, 3, 0xFF}) {
            const exact_bytes payload(bytes(size, byte));
            for (const h2645_common_nalfmt format : writer_formats) {
                expect_encodes_alike(format, payload, 0, enough_room(size, 0));
            }
        }
    }
}

TEST(FramingReference, EncodesZerosIntoEveryRoom) {
    for (std::size_t size = 0; size <= 70; ++size) {
        for (const unsigned char last : bytes{0, 3, 4}) {
            bytes data(size);
            data.push_back(last);
            const exact_bytes payload(data);
            for (std::size_t room = 0; room <= enough_room(data.size(), 0); ++room) {
                expect_encodes_alike(nalfmt_length32, payload, 0, room);
                expect_encodes_alike(nalfmt_annex_b, payload, 0, room);
            }
        }
    }
}

// Runs of zeros behind bytes that are copied as they are: both may be handled many at a time.
TEST(FramingReference, WritesNothingBehindTheRoom) {
    constexpr unsigned char untouched = 0x55;
    for (const std::size_t clean : {0U, 1U, 7U, 40U, 100U}) {
        for (std::size_t zeros = 0; zeros <= 60; ++zeros) {
            bytes payload(clean, 0xAA);
            payload.insert(payload.end(), zeros, 0);
            for (std::size_t room = 0; room <= enough_room(payload.size(), 0); ++room) {
                bytes output(room + 64, untouched);
                unsigned char* const fence = output.data() + room;
                h265_nal_writer writer(output.data(), output.data(), fence, nalfmt_annex_b);
                static_cast<void>(writer.block_encode(payload.data(), payload.size(), trail_r, 0));
                ASSERT_EQ(std::count(fence, fence + 64, untouched), 64)
                    << clean << " bytes, " << zeros << " zeros, room of " << room;
            }
        }
    }
}

TEST(FramingReference, EncodesPatternsAroundBlockLimits) {
    for (const bytes& pattern : patterns) {
        for_each_pattern_at_a_block_limit(pattern, [](const bytes& data) {
            const exact_bytes payload(data);
            const std::size_t needed =
                expect_encodes_alike(nalfmt_annex_b, payload, 0, enough_room(data.size(), 0));
            expect_encodes_alike(nalfmt_annex_b, payload, 0, needed);
            expect_encodes_alike(nalfmt_annex_b, payload, 0, needed - 1);
        });
    }
}

TEST(FramingReference, HandlesLongRandomBuffers) {
    random_bytes random(13);
    for (int round = 0; round < 150; ++round) {
        const exact_bytes input(random(2000 + random.below(8000)), random.below(64));
        ASSERT_NO_FATAL_FAILURE(expect_scans_alike(nalfmt_annex_b, input));
        ASSERT_NO_FATAL_FAILURE(expect_decodes_alike(input, input.size()));
        ASSERT_NO_FATAL_FAILURE(expect_decodes_alike(input, 1 + random.below(3000)));
        const h2645_common_nalfmt format = writer_formats[random.below(std::size(writer_formats))];
        expect_encodes_alike(format, input, 2, enough_room(input.size(), 2), random.below(64));
    }
}

// As every RBSP does, the payload ends in a byte that is not zero.
TEST(FramingReference, DecodingGivesBackWhatWasEncoded) {
    random_bytes random(14);
    for (const h2645_common_nalfmt format :
         {nalfmt_length16, nalfmt_length24, nalfmt_length32, nalfmt_annex_b}) {
        for (int round = 0; round < 2000; ++round) {
            bytes payload = random(1 + random.below(300));
            payload.back() = 0x80;
            bytes stream(enough_room(payload.size(), 1));
            h265_nal_writer writer(stream.data(), stream.data(), stream.data() + stream.size(),
                                   format);
            ASSERT_NE(writer.block_encode(payload.data(), payload.size(), trail_r, 1), 0U);

            const exact_bytes input(stream.data(), writer.data_length());
            h265_nal_reader reader(format);
            reader.scan(input.begin(), input.end());
            ASSERT_TRUE(reader.found);
            bytes rbsp(input.size());
            rbsp.resize(reader.block_decode(rbsp.data(), rbsp.size()));
            ASSERT_EQ(rbsp, payload);
        }
    }
}

}  // namespace
}  // namespace kovran
