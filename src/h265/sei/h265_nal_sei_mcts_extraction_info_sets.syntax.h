#ifndef KOVRAN_SRC_H265_SEI_H265_NAL_SEI_MCTS_EXTRACTION_INFO_SETS_SYNTAX_H
#define KOVRAN_SRC_H265_SEI_H265_NAL_SEI_MCTS_EXTRACTION_INFO_SETS_SYNTAX_H

#include <kovran/h265/sei/h265_nal_sei_mcts_extraction_info_sets.h>

#include "h2645_common/ceil_log2.h"
#include "h2645_common/element.h"
#include "h265/sei/in_entry.h"
#include "h265/sei/sei_context.h"
#include "h265/start_afresh.h"

#include <cstddef>
#include <vector>

namespace kovran {

inline void start_afresh(h265_nal_sei_mcts_extraction_info_sets& record) {
    auto& [num_info_sets_minus1, info_sets, valid] = record;
    start_all_afresh(num_info_sets_minus1, valid);
    info_sets.clear();
}

template <class Walker, class InfoSet>
[[nodiscard]] bool mcts_extraction_sets(Walker& walk, InfoSet& set, std::size_t i) {
    walk.ue(in_entry(i, ELEMENT(set, num_mcts_sets_minus1)));
    const std::size_t sets = std::size_t{set.num_mcts_sets_minus1} + 1;
    if (!walk.data_holds(in_entry(i, ELEMENT(set, num_mcts_sets_minus1)), sets,
                         /*fewest_bits=*/2) ||
        !walk.grow(sets, set.num_mcts_in_set_minus1, set.idx_of_mcts_in_set)) {
        return false;
    }
    for (std::size_t j = 0; j < sets; ++j) {
        const auto num_mcts_in_set_minus1 = in_entry(i, ELEMENT(set, num_mcts_in_set_minus1))[j];
        walk.ue(num_mcts_in_set_minus1);
        const std::size_t mcts = std::size_t{num_mcts_in_set_minus1.field} + 1;
        if (!walk.data_holds(num_mcts_in_set_minus1, mcts, /*fewest_bits=*/1) ||
            !walk.grow(mcts, set.idx_of_mcts_in_set[j])) {
            return false;
        }
        for (std::size_t k = 0; k < mcts; ++k) {
            walk.ue(in_entry(i, ELEMENT(set, idx_of_mcts_in_set))[j][k]);
        }
    }
    return true;
}

template <class Walker, class InfoSet>
[[nodiscard]] bool mcts_extraction_slice_order(Walker& walk, InfoSet& set, std::size_t i,
                                               const sei_context& context) {
    walk.u(1, in_entry(i, ELEMENT(set, slice_reordering_enabled_flag)));
    if (!set.slice_reordering_enabled_flag) {
        return true;
    }
    if (context.active_sps() == nullptr) {
        return walk.missing("SPS", context.sps_store->active_id);
    }
    const unsigned int PicSizeInCtbsY = walk.rules.pic_size_in_ctbs(*context.active_sps());
    if (PicSizeInCtbsY == 0) {
        return false;
    }
    // A slice segment has a coding tree block at the least.
    const unsigned char width = ceil_log2(PicSizeInCtbsY);
    walk.ue(in_entry(i, ELEMENT(set, num_slice_segments_minus1)));
    const auto num_slice_segments_minus1 = in_entry(i, ELEMENT(set, num_slice_segments_minus1));
    if (!walk.at_most(num_slice_segments_minus1, PicSizeInCtbsY - 1) ||
        !walk.data_holds(num_slice_segments_minus1, set.num_slice_segments_minus1 + 1, width) ||
        !walk.grow(set.num_slice_segments_minus1 + 1, set.output_slice_segment_address)) {
        return false;
    }
    for (std::size_t j = 0; j <= set.num_slice_segments_minus1; ++j) {
        walk.u_v(width, in_entry(i, ELEMENT(set, output_slice_segment_address))[j]);
    }
    return true;
}

template <class Walker>
[[nodiscard]] bool mcts_extraction_rbsp_lengths(Walker& walk,
                                                indexed_element<unsigned int&> num_minus1,
                                                indexed_element<std::vector<unsigned int>&> length,
                                                std::vector<std::vector<unsigned char>>& data) {
    walk.ue(num_minus1);
    const std::size_t sets = std::size_t{num_minus1.field} + 1;
    if (!walk.data_holds(num_minus1, sets, /*fewest_bits=*/1) ||
        !walk.grow(sets, length.field, data)) {
        return false;
    }
    for (std::size_t j = 0; j < sets; ++j) {
        walk.ue(length[j]);
    }
    return true;
}

template <class Walker, class InfoSet>
[[nodiscard]] bool mcts_extraction_pps_lengths(Walker& walk, InfoSet& set, std::size_t i) {
    walk.ue(in_entry(i, ELEMENT(set, num_pps_in_info_set_minus1)));
    const std::size_t sets = std::size_t{set.num_pps_in_info_set_minus1} + 1;
    if (!walk.data_holds(in_entry(i, ELEMENT(set, num_pps_in_info_set_minus1)), sets,
                         /*fewest_bits=*/4) ||
        !walk.grow(sets, set.pps_nuh_temporal_id_plus1, set.pps_rbsp_data_length,
                   set.pps_rbsp_data_byte)) {
        return false;
    }
    for (std::size_t j = 0; j < sets; ++j) {
        walk.u(3, in_entry(i, ELEMENT(set, pps_nuh_temporal_id_plus1))[j]);
        walk.ue(in_entry(i, ELEMENT(set, pps_rbsp_data_length))[j]);
    }
    return true;
}

template <class Walker>
[[nodiscard]] bool mcts_extraction_rbsp_bytes(
    Walker& walk, indexed_element<std::vector<unsigned int>&> length,
    indexed_element<std::vector<std::vector<unsigned char>>&> data) {
    for (std::size_t j = 0; j < length.field.size(); ++j) {
        if (!walk.data_holds(length[j], length.field[j], /*fewest_bits=*/8) ||
            !walk.grow(length.field[j], data.field[j])) {
            return false;
        }
        walk.bytes(data[j]);
    }
    return true;
}

template <class Walker, class InfoSet>
[[nodiscard]] bool mcts_extraction_info_set(Walker& walk, InfoSet& set, std::size_t i,
                                            const sei_context& context) {
    if (!mcts_extraction_sets(walk, set, i) ||
        !mcts_extraction_slice_order(walk, set, i, context) ||
        !mcts_extraction_rbsp_lengths(walk, in_entry(i, ELEMENT(set, num_vps_in_info_set_minus1)),
                                      in_entry(i, ELEMENT(set, vps_rbsp_data_length)),
                                      set.vps_rbsp_data_byte) ||
        !mcts_extraction_rbsp_lengths(walk, in_entry(i, ELEMENT(set, num_sps_in_info_set_minus1)),
                                      in_entry(i, ELEMENT(set, sps_rbsp_data_length)),
                                      set.sps_rbsp_data_byte) ||
        !mcts_extraction_pps_lengths(walk, set, i)) {
        return false;
    }
    walk.align("mcts_alignment_bit_equal_to_zero", 0);
    return mcts_extraction_rbsp_bytes(walk, in_entry(i, ELEMENT(set, vps_rbsp_data_length)),
                                      in_entry(i, ELEMENT(set, vps_rbsp_data_byte))) &&
           mcts_extraction_rbsp_bytes(walk, in_entry(i, ELEMENT(set, sps_rbsp_data_length)),
                                      in_entry(i, ELEMENT(set, sps_rbsp_data_byte))) &&
           mcts_extraction_rbsp_bytes(walk, in_entry(i, ELEMENT(set, pps_rbsp_data_length)),
                                      in_entry(i, ELEMENT(set, pps_rbsp_data_byte)));
}

// mcts_extraction_info_sets(), clause D.2.43.
template <class Walker>
[[nodiscard]] bool payload_syntax(Walker& walk, h265_nal_sei_mcts_extraction_info_sets& extraction,
                                  const sei_context& context) {
    walk.ue(ELEMENT(extraction, num_info_sets_minus1));
    const std::size_t sets = std::size_t{extraction.num_info_sets_minus1} + 1;
    if (!walk.data_holds(ELEMENT(extraction, num_info_sets_minus1), sets, /*fewest_bits=*/13) ||
        !walk.grow(sets, extraction.info_sets)) {
        return false;
    }
    for (std::size_t i = 0; i < sets; ++i) {
        if (!mcts_extraction_info_set(walk, extraction.info_sets[i], i, context)) {
            return false;
        }
    }
    return walk.finish(extraction.valid);
}

}  // namespace kovran

#endif  // KOVRAN_SRC_H265_SEI_H265_NAL_SEI_MCTS_EXTRACTION_INFO_SETS_SYNTAX_H
