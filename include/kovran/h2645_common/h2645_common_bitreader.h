#ifndef KOVRAN_H2645_COMMON_H2645_COMMON_BITREADER_H
#define KOVRAN_H2645_COMMON_H2645_COMMON_BITREADER_H

#include <kovran/export.h>
#include <kovran/h2645_common/bit_io.h>

namespace kovran {

// Reads the bits of an RBSP: bytes from which the emulation prevention bytes are already removed.
// It holds pointers into the caller's bytes, which must outlive it, and may be copied freely to
// look ahead.
//
// Reading past the end is no error and is not reported: the bits there are 0. A parser notices by
// the values, or by the trailing bits that are missing.
struct h2645_common_bitreader
    : bit_io::reader<bit_io::reservoir<unsigned int, 0>,
                     bit_io::data_source_memory_alt1<unsigned char, const unsigned char*>> {
    // Over no bytes at all.
    h2645_common_bitreader() = default;

    // Over the bytes [range_begin, range_end); both may be null.
    h2645_common_bitreader(const unsigned char* range_begin, const unsigned char* range_end) {
        start = range_begin;
        current = range_begin;
        end = range_end;
    }

    // Exp-Golomb codes, clause 9.2: ue(v), 0 to 0xFFFFFFFE, and se(v), -0x7FFFFFFF to 0x7FFFFFFF.
    //
    // A code of more than 31 leading zeros is not one of the standard's, and is what the zeros past
    // the end look like. Of such a code 32 bits are consumed; ue() then gives 0xFFFF, se() 0x8000:
    // beyond every bound that is put on a count.
    KOVRAN_API unsigned int ue();
    KOVRAN_API int se();
};

// more_rbsp_data(), clause 7.2: false when no bits are left, or when those left are a single 1 bit
// and any number of 0 bits up to the end; true otherwise. The reader is left as it was, in every
// field.
//
// The cost is that of finding the next 1 bit after the one that the reader stands on, so that
// reading on bit by bit while this is true stays linear in the length of the data.
[[nodiscard]] KOVRAN_API bool h2645_common_more_rbsp_data(h2645_common_bitreader& reader);

// rbsp_trailing_bits(), clause 7.3.2.11: consumes the stop bit and the bits up to the next byte
// boundary. False when the stop bit is not 1 or one of the others not 0; they are consumed even
// then.
KOVRAN_API bool h2645_common_skip_rbsp_trailing_bits(h2645_common_bitreader& reader);

}  // namespace kovran

#endif  // KOVRAN_H2645_COMMON_H2645_COMMON_BITREADER_H
