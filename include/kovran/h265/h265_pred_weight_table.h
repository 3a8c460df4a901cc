#ifndef KOVRAN_H265_H265_PRED_WEIGHT_TABLE_H
#define KOVRAN_H265_H265_PRED_WEIGHT_TABLE_H

#include <kovran/export.h>

#include <array>
#include <cstddef>
#include <cstdint>

namespace kovran {

// pred_weight_table(), clause 7.3.6.3, as h265_slice_segment_header::parse_standard() reads it.
// An entry of an array belongs to the same entry of the reference picture list: the first
// num_ref_idx_l0_active_minus1 + 1 are in use, and in a B slice the first
// num_ref_idx_l1_active_minus1 + 1 of list 1. The others, and what the stream does not have, are 0
// or false. Chroma has Cb, then Cr.
struct h265_pred_weight_table {
    // Of a reference picture list, by num_ref_idx_l0_active_minus1 and
    // num_ref_idx_l1_active_minus1.
    static constexpr std::size_t most_entries = 15;

    template <class Value>
    using entries = std::array<Value, most_entries>;

    unsigned int luma_log2_weight_denom = 0;  // ue(v)
    int delta_chroma_log2_weight_denom = 0;   // se(v), unless ChromaArrayType is 0

    // The flags of an entry that is the current picture itself are not in the stream.
    entries<bool> luma_weight_l0_flag{};                   // u(1)
    entries<bool> chroma_weight_l0_flag{};                 // u(1), unless ChromaArrayType is 0
    entries<int> delta_luma_weight_l0{};                   // se(v), with luma_weight_l0_flag
    entries<int> luma_offset_l0{};                         // se(v), likewise
    entries<std::array<int, 2>> delta_chroma_weight_l0{};  // se(v), with chroma_weight_l0_flag
    entries<std::array<int, 2>> delta_chroma_offset_l0{};  // se(v), likewise

    entries<bool> luma_weight_l1_flag{};
    entries<bool> chroma_weight_l1_flag{};
    entries<int> delta_luma_weight_l1{};
    entries<int> luma_offset_l1{};
    entries<std::array<int, 2>> delta_chroma_weight_l1{};
    entries<std::array<int, 2>> delta_chroma_offset_l1{};

    bool present = false;  // the slice has the table

    // The variables of clause 7.4.7.3 for an entry below most_entries, `component` being 0 for Cb
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
