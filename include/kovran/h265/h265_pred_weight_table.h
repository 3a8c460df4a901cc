#ifndef KOVRAN_H265_H265_PRED_WEIGHT_TABLE_H
#define KOVRAN_H265_H265_PRED_WEIGHT_TABLE_H

#include <kovran/export.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace kovran {

// pred_weight_table(), clause 7.3.6.3, as h265_slice_segment_header::parse_standard() reads it.
// Each array of list 0 has num_ref_idx_l0_active_minus1 + 1 entries; those of list 1 are likewise
// in a B slice, and empty in a P slice. Chroma has Cb, then Cr.
struct h265_pred_weight_table {
    unsigned int luma_log2_weight_denom = 0;  // ue(v)
    int delta_chroma_log2_weight_denom = 0;   // se(v), unless ChromaArrayType is 0

    // The flags of an entry that is the current picture itself are not in the stream.
    std::vector<bool> luma_weight_l0_flag;                   // u(1)
    std::vector<bool> chroma_weight_l0_flag;                 // u(1), unless ChromaArrayType is 0
    std::vector<int> delta_luma_weight_l0;                   // se(v), with luma_weight_l0_flag
    std::vector<int> luma_offset_l0;                         // se(v), likewise
    std::vector<std::array<int, 2>> delta_chroma_weight_l0;  // se(v), with chroma_weight_l0_flag
    std::vector<std::array<int, 2>> delta_chroma_offset_l0;  // se(v), likewise

    std::vector<bool> luma_weight_l1_flag;
    std::vector<bool> chroma_weight_l1_flag;
    std::vector<int> delta_luma_weight_l1;
    std::vector<int> luma_offset_l1;
    std::vector<std::array<int, 2>> delta_chroma_weight_l1;
    std::vector<std::array<int, 2>> delta_chroma_offset_l1;

    // The variables of clause 7.4.7.3 for an entry that the arrays have, `component` being 0 for Cb
    // and 1 for Cr. A denominator above 2^7, which the standard does not allow, counts as 2^7.

    [[nodiscard]] KOVRAN_API std::int64_t LumaWeightL0(std::size_t entry) const;
    [[nodiscard]] KOVRAN_API std::int64_t LumaWeightL1(std::size_t entry) const;
    [[nodiscard]] KOVRAN_API std::int64_t ChromaWeightL0(std::size_t entry,
                                                         std::size_t component) const;
    [[nodiscard]] KOVRAN_API std::int64_t ChromaWeightL1(std::size_t entry,
                                                         std::size_t component) const;

    // `wpOffsetHalfRangeC` is h265_wp_offset_half_range_chroma() of the SPS.
    [[nodiscard]] KOVRAN_API int ChromaOffsetL0(std::size_t entry, std::size_t component,
                                                int wpOffsetHalfRangeC) const;
    [[nodiscard]] KOVRAN_API int ChromaOffsetL1(std::size_t entry, std::size_t component,
                                                int wpOffsetHalfRangeC) const;
};

}  // namespace kovran

#endif  // KOVRAN_H265_H265_PRED_WEIGHT_TABLE_H
