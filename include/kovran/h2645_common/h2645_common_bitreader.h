#ifndef KOVRAN_H2645_COMMON_H2645_COMMON_BITREADER_H
#define KOVRAN_H2645_COMMON_H2645_COMMON_BITREADER_H

#include <kovran/export.h>
#include <kovran/h2645_common/bit_io.h>

namespace kovran {

// Reads the bits of an RBSP: bytes from which the emulation prevention bytes are already removed.
// It holds pointers into your bytes, which must outlive it. Copy it to look ahead.
//
// Reading past the end is not an error and is not reported: the bits there are 0. A parser notices
// it from the values, or because the trailing bits are missing.
struct h2645_common_bitreader
    : bit_io::reader<bit_io::reservoir<unsigned int, 0>,
                     bit_io::data_source_memory_alt1<unsigned char, const unsigned char*>> {
    // A reader of no bytes.
    h2645_common_bitreader() = default;

    // A reader of the bytes [range_begin, range_end); both may be null.
    h2645_common_bitreader(const unsigned char* range_begin, const unsigned char* range_end) {
        start = range_begin;
        current = range_begin;
        end = range_end;
    }

    // Exp-Golomb codes, clause 9.2: ue(v), 0 to 0xFFFFFFFE, and se(v), -0x7FFFFFFF to 0x7FFFFFFF.
    //
    // The standard has no code of more than 31 leading zeros; the zeros past the end look like one.
    // Such a code consumes 32 bits; ue() then returns 0xFFFF and se() 0x8000, beyond every bound on
    // a count.
    KOVRAN_API unsigned int ue();
    KOVRAN_API int se();
};

// more_rbsp_data(), clause 7.2: false when no bits are left, or when the bits left are a single 1
// bit and any number of 0 bits up to the end; true otherwise. No field of the reader changes.
//
// It costs as much as finding the next 1 bit after the bit that the reader is on, so reading bit by
// bit while this is true stays linear in the length of the data.
[[nodiscard]] KOVRAN_API bool h2645_common_more_rbsp_data(h2645_common_bitreader& reader);

// rbsp_trailing_bits(), clause 7.3.2.11: consumes the stop bit and the bits up to the next byte
// boundary. False when the stop bit is not 1 or another of them is not 0; they are consumed even
// then.
KOVRAN_API bool h2645_common_skip_rbsp_trailing_bits(h2645_common_bitreader& reader);

}  // namespace kovran

#endif  // KOVRAN_H2645_COMMON_H2645_COMMON_BITREADER_H
