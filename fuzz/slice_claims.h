#ifndef KOVRAN_FUZZ_SLICE_CLAIMS_H
#define KOVRAN_FUZZ_SLICE_CLAIMS_H

#include <kovran/kovran.h>

#include <cstddef>

#include "claim.h"
#include "support/slice_record_fields.h"

// What holds for a slice segment header that parse_standard() has read.
namespace kovran::fuzz {

// An entry has weights behind its flags only, and none without them.
template <class Flags, class Values, class Pairs>
void claim_weights(std::size_t active, const Flags& luma_flag, const Values& luma_weight,
                   const Values& luma_offset, const Flags& chroma_flag, const Pairs& chroma_weight,
                   const Pairs& chroma_offset) {
    for (std::size_t i = 0; i < luma_flag.size(); ++i) {
        claim(i < active || (!luma_flag[i] && !chroma_flag[i]),
              "an entry that is not in use has no weights");
        claim(luma_flag[i] || (luma_weight[i] == 0 && luma_offset[i] == 0),
              "luma weights have their flag");
        for (std::size_t j = 0; j < 2; ++j) {
            claim(chroma_flag[i] || (chroma_weight[i][j] == 0 && chroma_offset[i][j] == 0),
                  "chroma weights have their flag");
        }
    }
}

inline void claim_weights(const h265_slice_segment_header& slice, const h265_nal_pps& pps) {
    const h265_pred_weight_table& table = slice.pred_weight_table;
    const bool is_b = slice.slice_type == 0;
    const bool is_p = slice.slice_type == 1;
    claim(
        table.present == (!slice.dependent_slice_segment_flag &&
                          ((is_p && pps.weighted_pred_flag) || (is_b && pps.weighted_bipred_flag))),
        "a slice has weights where its PPS says so");
    claim(table.present || test::difference(table, h265_pred_weight_table{}).empty(),
          "an absent table of weights is a fresh one");
    claim_weights(slice.num_ref_idx_l0_active_minus1 + std::size_t{1}, table.luma_weight_l0_flag,
                  table.delta_luma_weight_l0, table.luma_offset_l0, table.chroma_weight_l0_flag,
                  table.delta_chroma_weight_l0, table.delta_chroma_offset_l0);
    claim_weights(is_b ? slice.num_ref_idx_l1_active_minus1 + std::size_t{1} : 0,
                  table.luma_weight_l1_flag, table.delta_luma_weight_l1, table.luma_offset_l1,
                  table.chroma_weight_l1_flag, table.delta_chroma_weight_l1,
                  table.delta_chroma_offset_l1);
}

inline void claim_entry_points(const h265_slice_segment_header& slice, const h265_nal_pps& pps) {
    claim(slice.entry_point_offset_minus1.size() == slice.num_entry_point_offsets &&
              (slice.num_entry_point_offsets == 0 || pps.tiles_enabled_flag ||
               pps.entropy_coding_sync_enabled_flag),
          "entry points are as many as announced, and none without substreams");
    claim(slice.offset_len_minus1 <= 31, "entry points have a width");
    for (const unsigned int offset : slice.entry_point_offset_minus1) {
        claim(offset >> slice.offset_len_minus1 <= 1, "entry points have their width");
    }
}

// A dependent segment gets what its header does not have, and keeps what it has.
inline void claim_taken_over(const h265_slice_segment_header& dependent,
                             const h265_slice_segment_header& independent) {
    h265_slice_segment_header filled = dependent;
    filled.take_over(independent);
    claim(filled.valid == dependent.valid &&
              filled.slice_segment_address == dependent.slice_segment_address &&
              filled.slice_data_begin == dependent.slice_data_begin &&
              filled.entry_point_offset_minus1 == dependent.entry_point_offset_minus1,
          "a dependent segment keeps what its header has");
    h265_slice_segment_header back = independent;
    back.take_over(filled);
    claim(test::difference(back, independent).empty(),
          "a dependent segment has what its header does not have from the independent one");
}

// `reader_position` in bits, `size` of the RBSP in bytes.
inline void claim_whole_header(const h265_slice_segment_header& slice, const h265_nal_pps& pps,
                               std::size_t reader_position, std::size_t size) {
    claim(slice.slice_data_begin <= size && reader_position == 8 * slice.slice_data_begin,
          "slice data begins in the unit or at its end, where the reader stands");
    claim(slice.slice_segment_header_extension_length <= 256 &&
              slice.slice_segment_header_extension_data_byte.size() ==
                  slice.slice_segment_header_extension_length,
          "the extension of a header has its bytes");
    claim_entry_points(slice, pps);
    claim_weights(slice, pps);
}

}  // namespace kovran::fuzz

#endif  // KOVRAN_FUZZ_SLICE_CLAIMS_H
