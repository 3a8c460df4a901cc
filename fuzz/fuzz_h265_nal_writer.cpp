// Whatever RBSP is written, in any format and into any room, comes out as if written byte by byte,
// and the reader gives it back.
//
// Input: a byte for the format, one for the zero bytes before a start code, one for the room, two
// for the header, the RBSP.
#include <kovran/h265/h265_nal_reader.h>
#include <kovran/h265/h265_nal_writer.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "claim.h"
#include "support/bytewise_framing.h"

namespace {

using kovran::fuzz::claim;
using kovran::test::bytewise_writer;
using bytes = std::vector<unsigned char>;

struct unit {
    kovran::h2645_common_nalfmt format;
    unsigned int zero_bytes;
    kovran::h265_nal nal;
    bytes rbsp;
};

// Annex B takes a zero byte before a start code for one that belongs to it. The writer escapes
// zero bytes in pairs, so that the last of an odd number stands there bare.
bytes without_lost_zero_byte(const unit& written) {
    bytes rbsp = written.rbsp;
    const auto last_other =
        std::find_if(rbsp.rbegin(), rbsp.rend(), [](unsigned char b) { return b != 0; });
    if (written.format == kovran::nalfmt_annex_b && (last_other - rbsp.rbegin()) % 2 == 1) {
        rbsp.pop_back();
    }
    return rbsp;
}

void check_unit(kovran::h265_nal_reader reader, const unit& written, const bytes& rbsp) {
    claim(reader.found && !reader.need_more_data, "a unit that was written is found");
    claim(reader.nal.encode_header() == written.nal.encode_header(), "the header comes back");
    bytes read(static_cast<std::size_t>(reader.decode_fence - reader.decode_ptr));
    read.resize(reader.block_decode(read.data(), read.size()));
    claim(read == rbsp, "the RBSP comes back");
}

// A stream of twice the same unit.
void check_reading(unsigned char* begin, unsigned char* end, const unit& written) {
    kovran::h265_nal_reader reader(written.format);
    reader.scan(begin, end);
    check_unit(reader, written, without_lost_zero_byte(written));
    reader.scan(reader.cursor, end);
    check_unit(reader, written, written.rbsp);
}

void write_twice(unit& written, std::size_t room) {
    bytes stream(2 * room);
    bytes plain_stream(2 * room);
    unsigned char* const begin = stream.data();
    bytewise_writer plain(plain_stream.data(), plain_stream.data() + plain_stream.size(),
                          written.format);
    kovran::h265_nal_writer writer(begin, begin, begin + stream.size(), written.format);
    std::size_t size = 0;
    int units = 0;
    for (int i = 0; i < 2; ++i) {
        const std::size_t count = writer.block_encode(written.rbsp.data(), written.rbsp.size(),
                                                      written.nal, written.zero_bytes);
        claim(count == plain.block_encode(written.rbsp.data(), written.rbsp.size(), written.nal,
                                          written.zero_bytes),
              "a unit takes as many bytes as byte by byte");
        size += count;
        units += count == 0 ? 0 : 1;
        claim(writer.data_length() == size && writer.write == begin + size,
              "what does not fit leaves nothing");
        claim(writer.full() == (size == stream.size()), "full() says whether there is room");
    }
    claim(std::equal(begin, begin + size, plain_stream.data()), "a unit is as byte by byte");
    const bool has_reader = written.format <= kovran::nalfmt_annex_b;
    if (units == 2 && written.nal.valid && has_reader) {
        check_reading(begin, begin + size, written);
    }
    const bool fits_any_length =
        written.format == kovran::nalfmt_annex_b || written.format == kovran::nalfmt_length32;
    if (fits_any_length &&
        room >= kovran::h265_nal_writer::recommended_output_size(written.rbsp.size()) +
                    written.zero_bytes) {
        claim(units == 2, "the recommended size is enough");
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 5) {
        return 0;
    }
    // One more than there are: an unknown format is written without framing.
    unit written{static_cast<kovran::h2645_common_nalfmt>(data[0] % 7), data[1] % 32U, {}, {}};
    written.nal.decode_header(static_cast<unsigned short>(data[3] << 8 | data[4]));
    written.rbsp.assign(data + 5, data + size);
    const std::size_t enough =
        kovran::h265_nal_writer::recommended_output_size(written.rbsp.size()) + written.zero_bytes;
    const std::size_t room = data[2] >= 128 ? enough : enough * data[2] / 128;
    write_twice(written, room);
    return 0;
}
