#ifndef KOVRAN_SRC_H265_PPS_RANGES_H
#define KOVRAN_SRC_H265_PPS_RANGES_H

#include "h2645_common/value_range.h"
#include "h265/picture_size.h"
#include "h265/sps_ranges.h"

#include <algorithm>
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

// Of the extensions, clauses 7.4.3.3.2 and 7.4.3.3.3.

template <class Sps>
[[nodiscard]] value_range transform_skip_block_range(const Sps* sps) {
    return up_to((sps != nullptr
                      ? min_tb_log2_size(*sps) + sps->log2_diff_max_min_luma_transform_block_size
                      : largest_tb_log2_size) -
                 2);
}

// A flag that is 0 without chroma; one that is 0 unless chroma has as many samples as luma.
template <class Sps>
[[nodiscard]] value_range chroma_flag_range(const Sps* sps) {
    return up_to(sps == nullptr || chroma_array_type(*sps) != 0 ? 1 : 0);
}
template <class Sps>
[[nodiscard]] value_range full_chroma_flag_range(const Sps* sps) {
    return up_to(sps == nullptr || chroma_array_type(*sps) == 3 ? 1 : 0);
}

// Max( 0, BitDepth - 10 ).
[[nodiscard]] inline value_range sao_offset_scale_range(std::int64_t bit_depth_minus8) {
    return up_to(std::max<std::int64_t>(bit_depth_minus8 - 2, 0));
}
template <class Sps>
[[nodiscard]] value_range luma_sao_offset_scale_range(const Sps* sps) {
    return sao_offset_scale_range(sps != nullptr ? sps->bit_depth_luma_minus8 : 8);
}
template <class Sps>
[[nodiscard]] value_range chroma_sao_offset_scale_range(const Sps* sps) {
    return sao_offset_scale_range(sps != nullptr ? sps->bit_depth_chroma_minus8 : 8);
}

template <class Sps>
[[nodiscard]] value_range curr_pic_ref_range(const Sps* sps) {
    return up_to(sps == nullptr || sps->sps_scc_extension.sps_curr_pic_ref_enabled_flag ? 1 : 0);
}

// PaletteMaxPredictorSize, equation 7-35.
template <class Sps>
[[nodiscard]] value_range palette_predictor_range(const Sps* sps) {
    return up_to(sps != nullptr ? std::int64_t{sps->sps_scc_extension.palette_max_size} +
                                      sps->sps_scc_extension.delta_palette_max_predictor_size
                                : std::int64_t{largest_palette_predictor});
}

// Elements that repeat what the SPS says.
template <class Sps>
[[nodiscard]] value_range monochrome_range(const Sps* sps) {
    return sps != nullptr
               ? between(sps->chroma_format_idc == 0 ? 1 : 0, sps->chroma_format_idc == 0 ? 1 : 0)
               : up_to(1);
}
template <class Sps>
[[nodiscard]] value_range luma_bit_depth_range(const Sps* sps) {
    return sps != nullptr ? between(sps->bit_depth_luma_minus8, sps->bit_depth_luma_minus8)
                          : up_to(8);
}
template <class Sps>
[[nodiscard]] value_range chroma_bit_depth_range(const Sps* sps) {
    return sps != nullptr ? between(sps->bit_depth_chroma_minus8, sps->bit_depth_chroma_minus8)
                          : up_to(8);
}

}  // namespace kovran

#endif  // KOVRAN_SRC_H265_PPS_RANGES_H
