#ifndef KOVRAN_H265_SEI_H265_NAL_SEI_DECODED_PICTURE_HASH_H
#define KOVRAN_H265_SEI_H265_NAL_SEI_DECODED_PICTURE_HASH_H

#include <kovran/export.h>
#include <kovran/h2645_common/h2645_common_bitreader.h>
#include <kovran/h265/h265_fault.h>
#include <kovran/h265/h265_nal_sps.h>
#include <kovran/h265/h265_trace.h>

#include <array>
#include <cstddef>
#include <string>
#include <vector>

namespace kovran {

// decoded_picture_hash(), clause D.2.20.
struct h265_nal_sei_decoded_picture_hash {
    static constexpr unsigned int payload_type = 132;
    static constexpr const char* payload_name = "decoded_picture_hash";

    unsigned char hash_type = 0;  // u(8)

    // Y, Cb, Cr, or Y alone when chroma_format_idc is 0.
    std::vector<std::array<unsigned char, 16>> picture_md5;  // u(8), when hash_type is 0
    std::vector<unsigned short> picture_crc;                 // u(16), when hash_type is 1
    std::vector<unsigned int> picture_checksum;              // u(32), when hash_type is 2

    bool valid = false;  // the latest parse succeeded

    // Reads one payload up to its last element, in a record that is reset first. `sps` is the
    // active one; it tells which planes there are. False, with `valid` false: the data ends, or
    // there is no memory.
    KOVRAN_API bool parse_standard(h2645_common_bitreader& reader, const h265_nal_sps& sps,
                                   h265_fault* fault = nullptr);
    KOVRAN_API bool parse_standard(h2645_common_bitreader& reader, const h265_nal_sps& sps,
                                   h265_trace& trace, h265_fault* fault = nullptr);

    // The hash of a plane, 0 for Y, 1 for Cb, 2 for Cr, in lower-case hexadecimal: of 32, 4 or 8
    // digits. "" when the record has none for it.
    [[nodiscard]] KOVRAN_API std::string plane_hash(std::size_t plane) const;
};

// hash_type in words, for display: "MD5", "CRC" or "checksum", clause D.3.20; "" for values above
// 2, never null.
[[nodiscard]] KOVRAN_API const char* h265_nal_sei_hash_type_to_str(unsigned int hash_type);

}  // namespace kovran

#endif  // KOVRAN_H265_SEI_H265_NAL_SEI_DECODED_PICTURE_HASH_H
