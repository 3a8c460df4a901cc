#ifndef KOVRAN_SRC_H265_PPS_RANGES_H
#define KOVRAN_SRC_H265_PPS_RANGES_H

#include "h2645_common/value_range.h"
#include "h265/picture_size.h"
#include "h265/sps_ranges.h"

#include <cstdint>

namespace kovran {

// What those elements of a PPS may be that hang on its SPS, clause 7.4.3.3.1. A PPS may come before
// its SPS: without one, null, they are what any SPS allows.

template <class Sps>
[[nodiscard]] value_range init_qp_range(const Sps* sps) {
    constexpr std::int64_t largest_qp_bd_offset = 48;
    const std::int64_t QpBdOffsetY =
        sps != nullptr ? 6 * std::int64_t{sps->bit_depth_luma_minus8} : largest_qp_bd_offset;
    return between(-26 - QpBdOffsetY, 25);
}

template <class Sps>
[[nodiscard]] value_range cu_qp_delta_depth_range(const Sps* sps) {
    return up_to(sps != nullptr ? std::int64_t{sps->log2_diff_max_min_luma_coding_block_size}
                                : largest_ctb_log2_size - 3);
}

template <class Sps>
[[nodiscard]] std::int64_t most_tile_columns(const Sps* sps) {
    return sps != nullptr ? picture_size_in_ctbs(*sps).width : longest_side_in_ctbs;
}

template <class Sps>
[[nodiscard]] std::int64_t most_tile_rows(const Sps* sps) {
    return sps != nullptr ? picture_size_in_ctbs(*sps).height : longest_side_in_ctbs;
}

// The width or height of a tile less 1, where `taken` of `all` blocks belong to the tiles before
// and the last tile keeps one.
[[nodiscard]] inline value_range tile_size_range(std::int64_t all, std::uint64_t taken) {
    return up_to(all - static_cast<std::int64_t>(taken) - 2);
}

template <class Sps>
[[nodiscard]] value_range scaling_lists_range(const Sps* sps) {
    return up_to(sps == nullptr || sps->scaling_list_enabled_flag ? 1 : 0);
}

template <class Sps>
[[nodiscard]] value_range parallel_merge_level_range(const Sps* sps) {
    return up_to((sps != nullptr ? ctb_log2_size(*sps) : largest_ctb_log2_size) - 2);
}

}  // namespace kovran

#endif  // KOVRAN_SRC_H265_PPS_RANGES_H
