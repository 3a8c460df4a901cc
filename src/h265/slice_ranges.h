#ifndef KOVRAN_SRC_H265_SLICE_RANGES_H
#define KOVRAN_SRC_H265_SLICE_RANGES_H

#include "h2645_common/value_range.h"
#include "h265/picture_size.h"
#include "h265/sps_ranges.h"

#include <algorithm>
#include <cstdint>

namespace kovran {

// What elements of a slice segment header may be by its PPS and SPS, which can hold anything.

// SliceQpY, equation 7-54, is -QpBdOffsetY to 51.
template <class Pps, class Sps>
[[nodiscard]] value_range slice_qp_delta_range(const Pps& pps, const Sps& sps) {
    const std::int64_t QpBdOffsetY = 6 * std::int64_t{sps.bit_depth_luma_minus8};
    const std::int64_t qp_of_pps = 26 + std::int64_t{pps.init_qp_minus26};
    return between(-QpBdOffsetY - qp_of_pps, 51 - qp_of_pps);
}

// An offset of a slice and that of its PPS, which is coded with a bias, add up to -12 to 12.
[[nodiscard]] inline value_range slice_offset_range(int pps_offset, int bias) {
    const std::int64_t of_pps = std::int64_t{pps_offset} - bias;
    return between(std::max<std::int64_t>(-12, -12 - of_pps),
                   std::min<std::int64_t>(12, 12 - of_pps));
}

// One less than there are substreams, clause 7.4.7.1: tiles, rows of coding tree blocks, or rows of
// each tile column.
template <class Pps, class Sps>
[[nodiscard]] std::int64_t most_entry_points(const Pps& pps, const Sps& sps) {
    constexpr std::uint64_t absurd = std::uint64_t{1} << 32;
    const picture_size size = picture_size_in_ctbs(sps);
    std::uint64_t columns = 1;
    std::uint64_t rows = size.height;
    if (pps.tiles_enabled_flag) {
        columns =
            std::min<std::uint64_t>(std::uint64_t{pps.num_tile_columns_minus1} + 1, size.width);
        if (!pps.entropy_coding_sync_enabled_flag) {
            rows =
                std::min<std::uint64_t>(std::uint64_t{pps.num_tile_rows_minus1} + 1, size.height);
        }
    }
    return static_cast<std::int64_t>(std::min(columns * rows, absurd)) - 1;
}

// Of prediction weights, clause 7.4.7.3.
struct weight_ranges {
    bool has_chroma = false;
    value_range luma_offset;
    value_range delta_chroma_offset;
};

// WpOffsetHalfRangeY or WpOffsetHalfRangeC, clause 7.4.3.2.2.
[[nodiscard]] inline std::int64_t wp_offset_half_range(bool high_precision,
                                                       unsigned int bit_depth_minus8) {
    constexpr unsigned int deepest_minus8 = 8;
    return std::int64_t{1} << (7 +
                               (high_precision ? std::min(bit_depth_minus8, deepest_minus8) : 0));
}

template <class Sps>
[[nodiscard]] weight_ranges weight_ranges_of(const Sps& sps) {
    const bool precise = sps.sps_range_extension.high_precision_offsets_enabled_flag;
    const std::int64_t luma = wp_offset_half_range(precise, sps.bit_depth_luma_minus8);
    const std::int64_t chroma = wp_offset_half_range(precise, sps.bit_depth_chroma_minus8);
    return {chroma_array_type(sps) != 0, between(-luma, luma - 1),
            between(-4 * chroma, 4 * chroma - 1)};
}

}  // namespace kovran

#endif  // KOVRAN_SRC_H265_SLICE_RANGES_H
