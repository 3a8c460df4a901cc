// Any stream, in any format: every scan and every block_decode come out as a walk byte by byte, and
// a stream that is fed in pieces of any sizes gives the units of the whole.
//
// Input: a byte for the format, a byte for the sizes of the pieces, the stream.
#include <kovran/h265/h265_nal_reader.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <random>
#include <tuple>
#include <vector>

#include "claim.h"
#include "support/bytewise_framing.h"

namespace {

using kovran::fuzz::claim;
using kovran::test::bytewise_reader;
using bytes = std::vector<unsigned char>;

struct unit {
    std::ptrdiff_t offset;
    unsigned int header;
    unsigned int length;
    bytes rbsp;  // of length-prefixed units; those of Annex B end only at the next one

    bool operator==(const unit& other) const {
        return std::tie(offset, header, length, rbsp) ==
               std::tie(other.offset, other.header, other.length, other.rbsp);
    }
};

template <class Reader>
auto fields(const Reader& reader) {
    const unsigned int header = reader.nal.valid ? reader.nal.encode_header() : 0;
    return std::make_tuple(reader.cursor, reader.begin, reader.fence, reader.nal_begin,
                           reader.frame_begin, reader.payload_begin, reader.nal_length,
                           reader.payload_length, reader.zero_count, reader.found, reader.gave_up,
                           reader.need_more_data, reader.length_known, reader.decode_ptr,
                           reader.decode_fence, reader.nal.valid, header);
}

// Up to `n` bytes.
template <class Reader>
bytes decoded(Reader& reader, std::size_t n) {
    bytes out(n);
    out.resize(reader.block_decode(out.data(), n));
    return out;
}

bytes checked_rbsp(const kovran::h265_nal_reader& reader, const bytewise_reader& plain,
                   std::size_t first_request) {
    const auto size = static_cast<std::size_t>(reader.decode_fence - reader.decode_ptr);
    kovran::h265_nal_reader in_parts = reader;
    bytewise_reader plain_in_parts = plain;
    for (const std::size_t request : {first_request, size, size}) {
        claim(decoded(in_parts, request) == decoded(plain_in_parts, request),
              "a part of a payload is decoded as byte by byte");
        claim(in_parts.decode_ptr == plain_in_parts.decode_ptr,
              "decoding stands where it stands byte by byte");
    }

    kovran::h265_nal_reader whole = reader;
    bytes rbsp = decoded(whole, size);
    bytes place(reader.decode_ptr, reader.decode_fence);
    kovran::h265_nal_reader inside = reader;
    inside.decode_ptr = place.data();
    inside.decode_fence = place.data() + size;
    place.resize(inside.block_decode(place.data(), size));
    claim(place == rbsp, "a payload can be decoded where it stands");
    return rbsp;
}

// How many bytes each read of a host brings.
class piece_sizes {
public:
    explicit piece_sizes(unsigned int seed) : random_(seed), largest_(1 + seed % 64) {}

    std::size_t next() { return 1 + random_() % largest_; }

private:
    std::minstd_rand random_;
    unsigned int largest_;
};

bytes joined(const unsigned char* first, const unsigned char* last, const unsigned char* more,
             std::size_t size) {
    bytes all;
    all.reserve(static_cast<std::size_t>(last - first) + size);
    all.insert(all.end(), first, last);
    all.insert(all.end(), more, more + size);
    return all;
}

bool length_is_zero(const kovran::h265_nal_reader& reader) {
    const unsigned char* const prefix = reader.begin;
    return reader.gave_up &&
           std::all_of(prefix, prefix + reader.nalfmt, [](unsigned char b) { return b == 0; });
}

// Feeds `stream` as a host does, that keeps what the reader wants to see again, and collects the
// units.
template <class NextPiece>
std::vector<unit> units_of(const bytes& stream, kovran::h2645_common_nalfmt format,
                           NextPiece next_piece) {
    kovran::h265_nal_reader reader(format);
    std::vector<unit> units;
    bytes window;
    std::size_t from = 0;  // of the window
    std::ptrdiff_t window_offset = 0;
    std::size_t fed = 0;
    for (;;) {
        unsigned char* const begin = window.data() + from;
        unsigned char* const end = window.data() + window.size();
        reader.scan(begin, end);
        bytewise_reader plain(format);
        plain.scan(begin, end);
        claim(fields(reader) == fields(plain), "a scan ends as byte by byte");

        // A unit that was passed over may go on behind the window, which only its length tells.
        const bool passed_over = reader.gave_up && reader.cursor == end && !length_is_zero(reader);
        if (reader.need_more_data || (passed_over && fed != stream.size())) {
            if (fed == stream.size()) {
                return units;
            }
            const bool looked_at = format != kovran::nalfmt_annex_b || end - begin >= 5;
            const unsigned char* const kept =
                looked_at && reader.need_more_data ? reader.cursor : begin;
            const std::size_t size = std::min<std::size_t>(next_piece(), stream.size() - fed);
            window_offset += kept - window.data();
            window = joined(kept, end, stream.data() + fed, size);
            fed += size;
            from = 0;
            continue;
        }
        if (format == kovran::nalfmt_none || length_is_zero(reader)) {
            return units;
        }
        claim(begin < reader.cursor && reader.cursor <= end, "a scan moves on");
        if (reader.found) {
            const bytes rbsp = checked_rbsp(reader, plain, next_piece());
            units.push_back({window_offset + (reader.nal_begin - window.data()),
                             reader.nal.encode_header(), reader.nal_length,
                             reader.length_known ? rbsp : bytes{}});
        } else {
            claim(reader.gave_up, "no unit and no wish for more means framing that is no use");
        }
        from = static_cast<std::size_t>(reader.cursor - window.data());
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 3) {
        return 0;
    }
    const auto format = static_cast<kovran::h2645_common_nalfmt>(data[0] % 6);
    piece_sizes pieces(data[1]);
    const bytes stream(data + 2, data + size);
    const auto whole = units_of(stream, format, [&] { return stream.size(); });
    claim(units_of(stream, format, [&] { return pieces.next(); }) == whole,
          "pieces give the units of the whole");
    return 0;
}
