// Any stream, in any format, gives the same units whether it is scanned whole or fed in pieces, up
// to framing that the reader gives up; and no unit decodes to more bytes than it has.
//
// Input: a byte for the format, a byte for the size of the pieces, the stream.
#include <kovran/h265/h265_nal_reader.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <tuple>
#include <vector>

#include "claim.h"

namespace {

using kovran::fuzz::claim;
using bytes = std::vector<unsigned char>;

struct unit {
    std::ptrdiff_t offset;
    unsigned int header;
    unsigned int length;
};

bool operator==(const unit& a, const unit& b) {
    return std::tie(a.offset, a.header, a.length) == std::tie(b.offset, b.header, b.length);
}

void check_decoding(kovran::h265_nal_reader reader) {
    const auto available = static_cast<std::size_t>(reader.decode_fence - reader.decode_ptr);
    bytes rbsp(available);
    claim(reader.block_decode(rbsp.data(), available) <= available, "a payload never grows");
}

// Feeds `stream` in pieces, as a host does, and collects the units that are whole. With one piece
// this is a scan of the whole.
std::vector<unit> units_of(const bytes& stream, std::size_t piece,
                           kovran::h2645_common_nalfmt format) {
    kovran::h265_nal_reader reader(format);
    std::vector<unit> units;
    bytes window;
    std::ptrdiff_t window_offset = 0;
    std::size_t fed = 0;
    for (;;) {
        unsigned char* const end = window.data() + window.size();
        reader.scan(window.data(), end);
        while (!reader.need_more_data && reader.nalfmt != kovran::nalfmt_none) {
            claim(reader.begin < reader.cursor && reader.cursor <= end, "a scan moves on");
            if (reader.found) {
                units.push_back({window_offset + (reader.nal_begin - window.data()),
                                 reader.nal.encode_header(), reader.nal_length});
                check_decoding(reader);
            } else {
                claim(reader.gave_up, "no unit and no wish for more means framing that is no use");
                return units;
            }
            reader.scan(reader.cursor, end);
        }
        if (fed == stream.size()) {
            return units;
        }
        // A range too short for a start code and a header is not looked at.
        const bool looked_at = format != kovran::nalfmt_annex_b || end - reader.begin >= 5;
        const std::ptrdiff_t used = (looked_at ? reader.cursor : reader.begin) - window.data();
        window.erase(window.begin(), window.begin() + used);
        window_offset += used;
        const std::size_t next = std::min(piece, stream.size() - fed);
        window.insert(window.end(), stream.data() + fed, stream.data() + fed + next);
        fed += next;
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 3) {
        return 0;
    }
    const auto format = static_cast<kovran::h2645_common_nalfmt>(data[0] % 6);
    const std::size_t piece = 1 + data[1] % 64;
    const bytes stream(data + 2, data + size);
    claim(units_of(stream, piece, format) == units_of(stream, stream.size(), format),
          "pieces give the units of the whole");
    return 0;
}
