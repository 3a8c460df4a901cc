#ifndef KOVRAN_H2645_COMMON_H2645_COMMON_NAL_WRITER_H
#define KOVRAN_H2645_COMMON_H2645_COMMON_NAL_WRITER_H

#include <kovran/export.h>
#include <kovran/h2645_common/h2645_common_nalfmt.h>

#include <cstddef>

namespace kovran {

// Appends NAL units to your buffer: framing, header, and the payload with emulation prevention
// bytes. It allocates nothing and may be copied.
//
// `buffer` <= `write` <= `fence` must hold; block_encode stops the process when it does not.
template <class Nal, class Format>
struct h2645_common_nal_writer {
    Format nalfmt{};                  // one of h2645_common_nalfmt
    unsigned char* buffer = nullptr;  // first byte of the output
    unsigned char* write = nullptr;   // the next byte to write
    unsigned char* fence = nullptr;   // one past the last byte that may be written

    h2645_common_nal_writer() = default;
    h2645_common_nal_writer(unsigned char* first, unsigned char* next, unsigned char* last,
                            Format format)
        : nalfmt(format), buffer(first), write(next), fence(last) {}

    // Sets another output, in the same format.
    void setbuf(unsigned char* first, unsigned char* next, unsigned char* last) {
        buffer = first;
        write = next;
        fence = last;
    }

    // Enough bytes for a unit whose RBSP has n bytes, whatever they are, with up to 27
    // `zero_bytes`; add the number beyond 27.
    [[nodiscard]] static std::size_t recommended_output_size(std::size_t n) {
        return n + n / 2 + 32;
    }

    // Writes one NAL unit whose RBSP (without the header) is data[0] to data[n - 1], and returns
    // the number of bytes written, framing included. `data` may be null when n is 0; it must not
    // overlap the output.
    //
    // `zero_bytes`, in Annex B only: the number of 00 bytes before the start code 00 00 01; 1 gives
    // the four-byte start code.
    //
    // 0 means that nothing was written: there is no buffer, it is full, the unit does not fit in
    // it, the unit is too long for its length prefix, or the format is nalfmt_none. `write` is then
    // unchanged; the bytes behind it may have changed. A format outside h2645_common_nalfmt is
    // written without framing. `nal` is not checked: an invalid one gives the header FF FF.
    //
    // An RBSP that ends in two zero bytes gets a final 03 in Annex B only, where it would run into
    // the next start code.
    [[nodiscard]] KOVRAN_API std::size_t block_encode(const unsigned char* data, std::size_t n,
                                                      const Nal& nal, unsigned int zero_bytes);

    // The number of bytes written so far, for all units.
    [[nodiscard]] std::size_t data_length() const {
        return static_cast<std::size_t>(write - buffer);
    }

    [[nodiscard]] bool full() const { return write >= fence; }
};

}  // namespace kovran

#endif  // KOVRAN_H2645_COMMON_H2645_COMMON_NAL_WRITER_H
