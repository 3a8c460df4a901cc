// Whatever RBSP is written, in any format, the reader gives it back.
//
// Input: a byte for the format, two bytes for the header, the RBSP.
#include <kovran/h265/h265_nal_reader.h>
#include <kovran/h265/h265_nal_writer.h>

#include <cstddef>
#include <cstdint>
#include <vector>

#include "claim.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using kovran::fuzz::claim;
    if (size < 3) {
        return 0;
    }
    const auto format = static_cast<kovran::h2645_common_nalfmt>(1 + data[0] % 5);
    kovran::h265_nal nal;
    nal.decode_header(static_cast<unsigned short>(data[1] << 8 | data[2]));
    if (!nal.valid) {
        return 0;
    }
    const std::vector<unsigned char> rbsp(data + 3, data + size);

    std::vector<unsigned char> stream(
        kovran::h265_nal_writer::recommended_output_size(rbsp.size()));
    unsigned char* const begin = stream.data();
    kovran::h265_nal_writer writer(begin, begin, begin + stream.size(), format);
    const std::size_t written =
        writer.block_encode(rbsp.data(), rbsp.size(), nal, /*zero_bytes=*/27);
    if (written == 0) {
        claim(format != kovran::nalfmt_annex_b && format != kovran::nalfmt_length32,
              "only a length prefix can be too small");
        claim(writer.write == begin, "a unit that does not fit leaves nothing");
        return 0;
    }
    claim(written == writer.data_length(), "data_length counts what was written");

    kovran::h265_nal_reader reader(format);
    reader.scan(begin, writer.write);
    claim(reader.found && !reader.need_more_data, "a unit that was written is found");
    claim(reader.nal.encode_header() == nal.encode_header(), "the header comes back");
    std::vector<unsigned char> read(written);
    read.resize(reader.block_decode(read.data(), read.size()));
    claim(read == rbsp, "the RBSP comes back");
    return 0;
}
