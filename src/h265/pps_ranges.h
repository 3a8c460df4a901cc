#ifndef KOVRAN_SRC_H265_PPS_RANGES_H
#define KOVRAN_SRC_H265_PPS_RANGES_H

#include "h2645_common/value_range.h"
#include "h265/picture_size.h"
#include "h265/sps_ranges.h"

#include <algorithm>
#include <cstdint>

namespace kovran {

// What those elements of a PPS may be that hang on its SPS, clause 7.4.3.3.1.
struct ranges_by_sps {
    value_range init_qp_minus26;
    value_range diff_cu_qp_delta_depth;
    value_range num_tile_columns_minus1;
    value_range num_tile_rows_minus1;
    value_range log2_parallel_merge_level_minus2;
};

// A PPS may come before its SPS: without one they are what any SPS allows.
template <class Sps>
[[nodiscard]] ranges_by_sps pps_ranges(const Sps* sps) {
    if (sps == nullptr) {
        constexpr std::int64_t largest_qp_bd_offset = 48;
        return {between(-26 - largest_qp_bd_offset, 25), up_to(largest_ctb_log2_size - 3),
                up_to(longest_side_in_ctbs - 1), up_to(longest_side_in_ctbs - 1),
                up_to(largest_ctb_log2_size - 2)};
    }
    const std::int64_t QpBdOffsetY = 6 * std::int64_t{sps->bit_depth_luma_minus8};
    const picture_size size = picture_size_in_ctbs(*sps);
    return {between(-26 - QpBdOffsetY, 25), up_to(sps->log2_diff_max_min_luma_coding_block_size),
            up_to(std::int64_t{size.width} - 1), up_to(std::int64_t{size.height} - 1),
            up_to(ctb_log2_size(*sps) - 2)};
}

}  // namespace kovran

#endif  // KOVRAN_SRC_H265_PPS_RANGES_H
