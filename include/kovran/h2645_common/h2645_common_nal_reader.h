#ifndef KOVRAN_H2645_COMMON_H2645_COMMON_NAL_READER_H
#define KOVRAN_H2645_COMMON_H2645_COMMON_NAL_READER_H

#include <kovran/export.h>
#include <kovran/h2645_common/h2645_common_nalfmt.h>

#include <cstddef>

namespace kovran {

// What is known about the NAL unit found last. All pointers point into your buffer; the reader does
// not own it or write to it.
struct h2645_common_nal_reader_base {
    unsigned char* cursor = nullptr;         // where the next scan starts, from `begin` to `fence`
    unsigned char* begin = nullptr;          // the range of the latest scan
    unsigned char* fence = nullptr;          //
    unsigned char* nal_begin = nullptr;      // the unit, from its header on; null: no unit found
    unsigned char* frame_begin = nullptr;    // its start code or length; null: no unit found
    unsigned char* payload_begin = nullptr;  // after its two header bytes; null: no unit found

    // For length-prefixed units, the length in the prefix, and that length minus the two header
    // bytes; 0 in Annex B. A prefix of 1 is too short for a header and gives a payload_length of
    // 0xFFFFFFFF.
    unsigned int nal_length = 0;
    unsigned int payload_length = 0;

    unsigned int zero_count =
        0;                 // Annex B: zero bytes before 00 00 01; 1 for a four-byte start code
    bool found = false;    // a unit with a valid header
    bool gave_up = false;  // the latest scan found unusable framing
    bool need_more_data = false;  // the range ended too soon: see scan
    bool length_known = false;    // nal_length and payload_length are those of the unit

    // The bytes left for block_decode.
    unsigned char* decode_ptr = nullptr;
    unsigned char* decode_fence = nullptr;

    // Makes block_decode start again at the first byte of the payload. There is nothing to decode
    // when no unit is found, and for a prefix of 1. A unit that runs past the range is decoded up
    // to the end of the range.
    KOVRAN_API void rewind();

    // Leaves the reader without a unit, and `gave_up` set.
    KOVRAN_API void do_give_up();
};

// Finds NAL units in a buffer, one per scan, and copies their payloads without the emulation
// prevention bytes. It allocates nothing and may be copied.
//
//     for (unsigned char* next = begin; next != end; next = reader.cursor) {
//         reader.scan(next, end);
//         if (reader.need_more_data) {
//             break;  // what stands at cursor is not a whole unit
//         }
//         if (reader.found) {
//             const std::size_t rbsp_size = reader.block_decode(rbsp, rbsp_capacity);
//             ...
//         }
//     }
//
// A scan that finds nothing is not the end of the stream: it may have skipped a unit. The loop ends
// for every input and in every format.
template <class Nal, class Format>
struct h2645_common_nal_reader : h2645_common_nal_reader_base {
    Format nalfmt{};  // one of h2645_common_nalfmt
    Nal nal;          // the header of the unit found

    h2645_common_nal_reader() = default;
    explicit h2645_common_nal_reader(Format format) : nalfmt(format) {}

    // Finds the next NAL unit in [first, last). A null or reversed range counts as empty; `cursor`
    // is then `first`.
    //
    //  - `found`: the unit's header is in `nal`, its place in the pointers, its payload ready for
    //    block_decode. `cursor` is where to scan next.
    //  - `need_more_data`: the range ended before a complete start code or length with a header, or
    //    within a length-prefixed unit (then `found` is set too). Keep the bytes from `cursor` on,
    //    append more and scan them again. At the end of a stream, the bytes left there are not a
    //    complete unit. An Annex B range of fewer than 5 bytes is not examined, and `cursor` is at
    //    its end: keep all of such a range.
    //  - neither: nothing usable. A length-prefixed unit whose forbidden_zero_bit is 1 was skipped,
    //    and `cursor` is behind it, or at the end of the range when the range does not hold all of
    //    it. After a length of 0 the rest of the range is skipped, and `cursor` is at its end. Both
    //    set `gave_up`: if you scan a length-prefixed stream in pieces, do not assume that the next
    //    piece begins with a length. nalfmt_none finds nothing.
    //
    // In Annex B a start code before a forbidden_zero_bit of 1 does not count as one. A unit
    // extends to the next start code, which only the next scan finds; the zero bytes that it counts
    // in `zero_count` belong to neither unit. If you scan a stream in pieces, keep a unit's bytes
    // until then.
    //
    // A format outside h2645_common_nalfmt aborts the process.
    KOVRAN_API void scan(unsigned char* first, unsigned char* last);

    // The part of scan that finds a start code, whatever the format. scan clears the fields before
    // it and calls rewind() after it. Called directly, it sets `begin`, `fence` and `cursor`. When
    // it finds a unit, it sets `found` and the fields that describe the unit, with `length_known`
    // false and both lengths 0; otherwise it sets `need_more_data`. Where `first` is one of the
    // zero bytes that `zero_count` counts, it keeps counting.
    KOVRAN_API void scan_annex_b(unsigned char* first, unsigned char* last);

    // Copies up to n bytes of the payload to `out`, without the emulation prevention bytes (clause
    // 7.3.1.1), and returns how many were written. In Annex B the payload ends before the next
    // start code or its zero bytes. Returns 0 when there is no more.
    //
    // Decode a whole unit in one call: n must be at least decode_fence - decode_ptr. The last two
    // bytes of a request, and those of the range, are copied unchanged, so an emulation prevention
    // byte that straddles two requests is not removed.
    //
    // `out` may be `decode_ptr` itself, or any place that holds no byte still to be read. Decoding
    // in place leaves bytes that may look like a start code: in Annex B, scan for the next unit
    // with a copy of the reader before you decode this one.
    [[nodiscard]] KOVRAN_API std::size_t block_decode(unsigned char* out, std::size_t n);

private:
    void scan_length_prefixed(unsigned char* first, unsigned char* last);
};

}  // namespace kovran

#endif  // KOVRAN_H2645_COMMON_H2645_COMMON_NAL_READER_H
