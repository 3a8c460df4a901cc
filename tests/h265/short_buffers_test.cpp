#include <kovran/h265/h265_nal_reader.h>
#include <kovran/h265/h265_nal_writer.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <vector>

#include "support/bytewise_framing.h"
#include "support/framing_comparison.h"
#include "support/rbsp.h"

namespace kovran {
namespace {
// The framing on every short buffer there is, of the bytes that it tells apart: those of start
// codes and emulation prevention, and one that has the forbidden_zero_bit set.

using bytes = std::vector<unsigned char>;
using test::bytewise_reader;
using test::bytewise_writer;
using test::exact_bytes;
using test::reader_pair;
using test::trail_r;
using test::unknown_format;

constexpr unsigned char alphabet[] = {0x00, 0x01, 0x02, 0x03, 0x80};
constexpr std::size_t longest_buffer = KOVRAN_LONGEST_SHORT_BUFFER;

constexpr h2645_common_nalfmt formats[] = {nalfmt_length8, nalfmt_length16, nalfmt_length24,
                                           nalfmt_length32, nalfmt_annex_b};

// Shows `claim` every buffer of up to `longest` bytes, each in memory of its size, until it is
// false for one.
template <class Claim>
void expect_of_every_buffer(std::size_t longest, Claim claim) {
    for (std::size_t size = 0; size <= longest; ++size) {
        const exact_bytes buffer(bytes(size, alphabet[0]));
        std::vector<std::size_t> letters(size);
        for (bool more = true; more;) {
            if (!claim(buffer)) {
                FAIL() << testing::PrintToString(buffer.first(size));
            }
            more = false;
            for (std::size_t i = 0; i < size && !more; ++i) {
                letters[i] = (letters[i] + 1) % std::size(alphabet);
                *buffer.at(i) = alphabet[letters[i]];
                more = letters[i] != 0;
            }
        }
    }
}

// Both readers are the ones of the buffer before, so that nothing may be left of it.
bool scans_alike(reader_pair& readers, const exact_bytes& buffer) {
    unsigned char* from = buffer.begin();
    do {
        readers.scan(from, buffer.end());
        if (test::reader_fields(readers.fast, buffer.begin()) !=
            test::reader_fields(readers.plain, buffer.begin())) {
            return false;
        }
        from = readers.plain.cursor;
    } while (!readers.plain.need_more_data && from != buffer.end());
    return true;
}

TEST(ShortBuffers, AreScannedAsByteByByte) {
    for (const h2645_common_nalfmt format : formats) {
        reader_pair readers(format);
        expect_of_every_buffer(longest_buffer, [&](const exact_bytes& buffer) {
            return scans_alike(readers, buffer);
        });
    }
}

// By readers that have looked at the buffer in another format, and then by ones that have searched
// it.
TEST(ShortBuffers, AreSearchedForStartCodesAsByteByByte) {
    reader_pair readers(nalfmt_length8);
    expect_of_every_buffer(longest_buffer, [&](const exact_bytes& buffer) {
        readers.scan(buffer.begin(), buffer.end());
        unsigned char* from = buffer.begin();
        for (int i = 0; i < 2; ++i) {
            readers.fast.scan_annex_b(from, buffer.end());
            readers.plain.scan_annex_b(from, buffer.end());
            if (test::reader_fields(readers.fast, buffer.begin()) !=
                test::reader_fields(readers.plain, buffer.begin())) {
                return false;
            }
            from = readers.plain.cursor;
        }
        return true;
    });
}

// ---- Every chunking

// What a host has got out of the bytes that came so far.
struct reception {
    std::size_t kept_from = 0;                        // the bytes that it still holds begin here
    std::array<std::size_t, longest_buffer> units{};  // where those found so far begin
    std::size_t unit_count = 0;
    bool gave_up = false;  // the framing is lost, and what follows is not looked at

    bool operator==(const reception& other) const {
        return unit_count == other.unit_count && gave_up == other.gave_up &&
               std::equal(units.begin(), units.begin() + unit_count, other.units.begin());
    }
};

// Takes more bytes: now there are `size` of the stream.
void receive(reception& host, h265_nal_reader& reader, unsigned char* stream, std::size_t size) {
    while (!host.gave_up) {
        // Of so few bytes in Annex B nothing is looked at; they may be a start code's first.
        if (reader.nalfmt == nalfmt_annex_b && size - host.kept_from < 5) {
            return;
        }
        reader.scan(stream + host.kept_from, stream + size);
        host.gave_up = reader.gave_up;
        if (reader.found && !reader.need_more_data) {
            host.units[host.unit_count++] = static_cast<std::size_t>(reader.nal_begin - stream);
        }
        host.kept_from = static_cast<std::size_t>(reader.cursor - stream);
        if (!reader.found || reader.need_more_data) {
            return;
        }
    }
}

// A buffer's first bytes as a stream that has arrived, in every way of cutting them. Ways that
// leave the same bytes with the host go on alike, and are one from there.
class every_chunking {
public:
    explicit every_chunking(h2645_common_nalfmt format) : reader_(format) {
        ways_[0] = {reception()};
    }

    // Appends each letter in turn and, behind it, every buffer of `more` bytes less one.
    void append_every_buffer(std::size_t more) {
        if (more == 0 || testing::Test::HasFatalFailure()) {
            return;
        }
        for (const unsigned char letter : alphabet) {
            stream_[size_++] = letter;
            expect_the_units_of_the_whole();
            append_every_buffer(more - 1);
            --size_;
        }
    }

private:
    // The latest piece may have begun behind any of the bytes.
    void expect_the_units_of_the_whole() {
        reception whole;
        receive(whole, reader_, stream_.data(), size_);
        std::vector<reception>& ways = ways_[size_];
        ways.clear();
        for (std::size_t fed = 0; fed < size_; ++fed) {
            for (reception host : ways_[fed]) {
                receive(host, reader_, stream_.data(), size_);
                ASSERT_EQ(host, whole)
                    << testing::PrintToString(bytes(stream_.begin(), stream_.begin() + size_))
                    << " as " << reader_.nalfmt << ", the last piece from " << fed;
                const auto keeps_the_same = [&](const reception& other) {
                    return other.kept_from == host.kept_from;
                };
                if (std::none_of(ways.begin(), ways.end(), keeps_the_same)) {
                    ways.push_back(host);
                }
            }
        }
    }

    h265_nal_reader reader_;
    std::array<unsigned char, longest_buffer> stream_{};
    std::size_t size_ = 0;
    std::array<std::vector<reception>, longest_buffer + 1> ways_;
};

TEST(ShortBuffers, GiveTheSameUnitsInEveryChunking) {
    for (const h2645_common_nalfmt format : formats) {
        every_chunking(format).append_every_buffer(longest_buffer);
    }
}

// ---- Decoding and encoding

// Decodes by requests of n bytes until there is nothing left.
bool decodes_alike(const exact_bytes& buffer, std::size_t n) {
    std::array<unsigned char, longest_buffer + 2> of_fast;
    std::array<unsigned char, longest_buffer + 2> of_plain;
    reader_pair readers(nalfmt_annex_b);
    readers.decode_from(buffer);
    do {
        of_fast.fill(0x55);
        of_plain.fill(0x55);
        if (readers.fast.block_decode(of_fast.data(), n) !=
                readers.plain.block_decode(of_plain.data(), n) ||
            readers.fast.decode_ptr != readers.plain.decode_ptr || of_fast != of_plain) {
            return false;
        }
    } while (readers.plain.decode_ptr != buffer.end());
    return true;
}

TEST(ShortBuffers, AreDecodedAsByteByByteByRequestsOfEverySize) {
    expect_of_every_buffer(longest_buffer, [](const exact_bytes& buffer) {
        for (std::size_t n = 1; n <= buffer.size() + 1; ++n) {
            if (!decodes_alike(buffer, n)) {
                return false;
            }
        }
        return true;
    });
}

// What the longest buffer needs in any format: a prefix or start code with one zero byte, the
// header, and an emulation prevention byte after every second byte.
constexpr std::size_t enough_room = 4 + 2 + longest_buffer + longest_buffer / 2;

using output = std::array<unsigned char, enough_room>;

// Both write a unit into the first `room` bytes. `size` becomes what the plain one has written.
bool encodes_alike(const exact_bytes& payload, h2645_common_nalfmt format, std::size_t room,
                   output& of_fast, std::size_t& size) {
    output of_plain;
    of_fast.fill(0x55);
    of_plain.fill(0x55);
    h265_nal_writer fast(of_fast.data(), of_fast.data(), of_fast.data() + room, format);
    bytewise_writer plain(of_plain.data(), of_plain.data() + room, format);
    size = plain.block_encode(payload.begin(), payload.size(), trail_r, 1);
    const bool in_room = std::all_of(of_fast.begin() + room, of_fast.end(),
                                     [](unsigned char byte) { return byte == 0x55; });
    return fast.block_encode(payload.begin(), payload.size(), trail_r, 1) == size && in_room &&
           std::equal(of_plain.begin(), of_plain.begin() + size, of_fast.begin());
}

// The unit is the only one that a reader finds, and holds the payload.
bool reads_back(h2645_common_nalfmt format, output& unit, std::size_t size,
                const exact_bytes& payload) {
    h265_nal_reader reader(format);
    reader.scan(unit.data(), unit.data() + size);
    if (!reader.found || reader.need_more_data || reader.nal.encode_header() != 0x0201) {
        return false;
    }
    output rbsp;
    const std::size_t rbsp_size = reader.block_decode(rbsp.data(), rbsp.size());
    if (!std::equal(rbsp.begin(), rbsp.begin() + rbsp_size, payload.begin(), payload.end())) {
        return false;
    }
    reader.scan(reader.cursor, unit.data() + size);
    return !reader.found;
}

TEST(ShortBuffers, AreEncodedAsByteByByteAndReadBack) {
    for (const h2645_common_nalfmt format : formats) {
        expect_of_every_buffer(longest_buffer, [format](const exact_bytes& payload) {
            output unit;
            std::size_t size = 0;
            std::size_t size_in_less = 0;
            return encodes_alike(payload, format, enough_room, unit, size) && size != 0 &&
                   encodes_alike(payload, format, size - 1, unit, size_in_less) &&
                   size_in_less == 0 && encodes_alike(payload, format, size, unit, size) &&
                   reads_back(format, unit, size, payload);
        });
    }
}

// All rooms of all formats, which for the longest buffers would take too long.
TEST(ShortBuffers, AreEncodedAsByteByByteIntoEveryRoom) {
    for (const h2645_common_nalfmt format :
         {nalfmt_none, nalfmt_length8, nalfmt_length32, nalfmt_annex_b, unknown_format}) {
        expect_of_every_buffer(longest_buffer - 3, [format](const exact_bytes& payload) {
            output unit;
            std::size_t size = 0;
            for (std::size_t room = 0; room <= enough_room; ++room) {
                if (!encodes_alike(payload, format, room, unit, size)) {
                    return false;
                }
            }
            return true;
        });
    }
}

}  // namespace
}  // namespace kovran
