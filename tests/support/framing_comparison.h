#ifndef KOVRAN_TESTS_SUPPORT_FRAMING_COMPARISON_H
#define KOVRAN_TESTS_SUPPORT_FRAMING_COMPARISON_H

#include <kovran/h2645_common/h2645_common_nalfmt.h>
#include <kovran/h265/h265_nal.h>
#include <kovran/h265/h265_nal_reader.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <vector>

#include "support/bytewise_framing.h"
#include "support/rbsp.h"

namespace kovran::test {

constexpr h2645_common_nalfmt unknown_format = static_cast<h2645_common_nalfmt>(6);

// The header of the units that are written.
constexpr h265_nal trail_r{0, 1, TRAIL_R, true};

// Every field of a reader, with its pointers as distances from `origin`; null is -1.
template <class Reader>
std::array<long, 20> reader_fields(const Reader& reader, const unsigned char* origin) {
    const auto offset = [origin](const unsigned char* pointer) {
        return pointer == nullptr ? -1L : static_cast<long>(pointer - origin);
    };
    return {offset(reader.cursor),
            offset(reader.begin),
            offset(reader.fence),
            offset(reader.nal_begin),
            offset(reader.frame_begin),
            offset(reader.payload_begin),
            reader.nal_length,
            reader.payload_length,
            reader.zero_count,
            reader.found,
            reader.gave_up,
            reader.need_more_data,
            reader.length_known,
            offset(reader.decode_ptr),
            offset(reader.decode_fence),
            reader.nalfmt,
            reader.nal.nuh_layer_id,
            reader.nal.nuh_temporal_id_plus1,
            reader.nal.nal_unit_type,
            reader.nal.valid};
}

// Two readers of the same bytes, of which one is the plain one.
struct reader_pair {
    explicit reader_pair(h2645_common_nalfmt format) : fast(format), plain(format) {}

    void scan(unsigned char* first, unsigned char* last) {
        fast.scan(first, last);
        plain.scan(first, last);
    }

    void decode_from(const exact_bytes& input) {
        fast.decode_ptr = plain.decode_ptr = input.begin();
        fast.decode_fence = plain.decode_fence = input.end();
    }

    // Decodes up to n bytes with both, and expects that nothing is written behind what they give.
    // Starts `misalignment` bytes after a multiple of 64.
    bool decode_alike(std::size_t n, std::size_t misalignment = 0) {
        const exact_bytes from_fast(std::vector<unsigned char>(n, 0x55), misalignment);
        const exact_bytes from_plain(std::vector<unsigned char>(n, 0x55));
        const std::size_t fast_count = fast.block_decode(from_fast.begin(), n);
        const std::size_t plain_count = plain.block_decode(from_plain.begin(), n);
        return fast_count == plain_count && fast.decode_ptr == plain.decode_ptr &&
               std::equal(from_fast.begin(), from_fast.end(), from_plain.begin());
    }

    h265_nal_reader fast;
    bytewise_reader plain;
};

}  // namespace kovran::test

#endif  // KOVRAN_TESTS_SUPPORT_FRAMING_COMPARISON_H
