#include <kovran/h265/sei/h265_nal_sei_decoded_picture_hash.h>

#include "h265/sei/h265_nal_sei_decoded_picture_hash.syntax.h"
#include "h265/sei/payload_parsing.h"

#include <iterator>

namespace kovran {

template bool walk_payload(reading<standard_rules>&, h265_nal_sei_decoded_picture_hash&,
                           const sei_context&);
template bool walk_payload(tracing<standard_rules>&, h265_nal_sei_decoded_picture_hash&,
                           const sei_context&);

bool h265_nal_sei_decoded_picture_hash::parse_standard(h2645_common_bitreader& reader,
                                                       const h265_nal_sps& sps, h265_fault* fault) {
    return parse_payload(*this, reader, fault, context_of(sps));
}

bool h265_nal_sei_decoded_picture_hash::parse_standard(h2645_common_bitreader& reader,
                                                       const h265_nal_sps& sps, h265_trace& trace,
                                                       h265_fault* fault) {
    return trace_payload(*this, reader, &trace, fault, context_of(sps));
}

namespace {

void append_hash_digits(std::string& text, unsigned int value, unsigned int digits) {
    while (digits != 0) {
        --digits;
        text += "0123456789abcdef"[value >> 4 * digits & 0xFU];
    }
}

}  // namespace

std::string h265_nal_sei_decoded_picture_hash::plane_hash(std::size_t plane) const {
    std::string text;
    if (plane < picture_md5.size()) {
        for (const unsigned char byte : picture_md5[plane]) {
            append_hash_digits(text, byte, /*digits=*/2);
        }
    } else if (plane < picture_crc.size()) {
        append_hash_digits(text, picture_crc[plane], /*digits=*/4);
    } else if (plane < picture_checksum.size()) {
        append_hash_digits(text, picture_checksum[plane], /*digits=*/8);
    }
    return text;
}

const char* h265_nal_sei_hash_type_to_str(unsigned int hash_type) {
    static constexpr const char* names[] = {"MD5", "CRC", "checksum"};
    return hash_type < std::size(names) ? names[hash_type] : "";
}

}  // namespace kovran
