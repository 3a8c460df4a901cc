#ifndef KOVRAN_SRC_H265_SPS_RANGES_H
#define KOVRAN_SRC_H265_SPS_RANGES_H

#include "h2645_common/value_range.h"

#include <algorithm>
#include <cstdint>

namespace kovran {

// What elements may be by the elements of an SPS before them. An SPS can hold anything, so every
// sum is wide and every range may turn out empty.

// ChromaArrayType, clause 7.4.3.2.1.
template <class Sps>
[[nodiscard]] unsigned int chroma_array_type(const Sps& sps) {
    return sps.separate_colour_plane_flag ? 0 : sps.chroma_format_idc;
}

// SubWidthC and SubHeightC, table 6-1; separate colour planes have format 3.
template <class Sps>
[[nodiscard]] unsigned int sub_width_c(const Sps& sps) {
    return sps.chroma_format_idc == 1 || sps.chroma_format_idc == 2 ? 2 : 1;
}
template <class Sps>
[[nodiscard]] unsigned int sub_height_c(const Sps& sps) {
    return sps.chroma_format_idc == 1 ? 2 : 1;
}

// A window's offsets leave at least one of so many samples, clauses 7.4.3.2.1 and E.3.1. `taken` is
// the sum of the offsets before, in the units of this one.
[[nodiscard]] inline value_range window_range(std::uint64_t samples, unsigned int unit,
                                              std::uint64_t taken = 0) {
    const auto last = static_cast<std::int64_t>(samples / unit + (samples % unit != 0 ? 1 : 0)) - 1;
    return up_to(last - static_cast<std::int64_t>(taken));
}

// Block sizes of clause 7.4.3.2.1, as logarithms.
template <class Sps>
[[nodiscard]] std::int64_t min_cb_log2_size(const Sps& sps) {
    return std::int64_t{sps.log2_min_luma_coding_block_size_minus3} + 3;
}
template <class Sps>
[[nodiscard]] std::int64_t ctb_log2_size(const Sps& sps) {
    return min_cb_log2_size(sps) + sps.log2_diff_max_min_luma_coding_block_size;
}
template <class Sps>
[[nodiscard]] std::int64_t min_tb_log2_size(const Sps& sps) {
    return std::int64_t{sps.log2_min_luma_transform_block_size_minus2} + 2;
}

// Coding tree blocks of 16x16 to 64x64, clause A.3.
inline constexpr std::int64_t smallest_ctb_log2_size = 4;
inline constexpr std::int64_t largest_ctb_log2_size = 6;
inline constexpr std::int64_t largest_tb_log2_size = 5;

template <class Sps>
[[nodiscard]] value_range coding_block_difference_range(const Sps& sps) {
    const std::int64_t smallest = min_cb_log2_size(sps);
    return between(std::max<std::int64_t>(smallest_ctb_log2_size - smallest, 0),
                   largest_ctb_log2_size - smallest);
}
template <class Sps>
[[nodiscard]] value_range min_transform_block_range(const Sps& sps) {
    return up_to(std::min(min_cb_log2_size(sps) - 1, largest_tb_log2_size) - 2);
}
template <class Sps>
[[nodiscard]] value_range transform_block_difference_range(const Sps& sps) {
    return up_to(std::min(ctb_log2_size(sps), largest_tb_log2_size) - min_tb_log2_size(sps));
}
template <class Sps>
[[nodiscard]] value_range transform_hierarchy_range(const Sps& sps) {
    return up_to(ctb_log2_size(sps) - min_tb_log2_size(sps));
}
template <class Sps>
[[nodiscard]] value_range min_pcm_block_range(const Sps& sps) {
    return between(std::min(min_cb_log2_size(sps), largest_tb_log2_size) - 3,
                   std::min(ctb_log2_size(sps), largest_tb_log2_size) - 3);
}
template <class Sps>
[[nodiscard]] value_range pcm_block_difference_range(const Sps& sps) {
    return up_to(std::min(ctb_log2_size(sps), largest_tb_log2_size) - 3 -
                 std::int64_t{sps.log2_min_pcm_luma_coding_block_size_minus3});
}

// Of palettes and their predictors, in the profiles for screen content, clause A.3.7.
inline constexpr unsigned int largest_palette = 64;
inline constexpr unsigned int largest_palette_predictor = 128;

// The pictures of a short-term set: no more than the decoded picture buffer of the highest
// sub-layer holds beside the current one, clause 7.4.8.
template <class Sps>
[[nodiscard]] value_range reference_pictures_range(const Sps& sps, std::uint64_t taken = 0) {
    const auto& sizes = sps.sps_max_dec_pic_buffering_minus1;
    const std::int64_t most = sizes.empty() ? 15 : std::min(sizes.back(), 15U);
    return up_to(most - static_cast<std::int64_t>(taken));
}

}  // namespace kovran

#endif  // KOVRAN_SRC_H265_SPS_RANGES_H
