#ifndef KOVRAN_SRC_H265_H265_PRED_WEIGHT_TABLE_SYNTAX_H
#define KOVRAN_SRC_H265_H265_PRED_WEIGHT_TABLE_SYNTAX_H

#include "h2645_common/element.h"
#include "h2645_common/value_range.h"
#include "h265/slice_ranges.h"
#include "h265/slice_type.h"

#include <cstddef>
#include <cstdint>

namespace kovran {

// Whether an entry of a reference picture list is the current picture itself, clause 8.3.4. The
// list repeats NumPicTotalCurr pictures, the last of which is the current one where the PPS says
// so, and is cut off at its number of active entries. Picture order counts play no part in it.
template <class Slice>
[[nodiscard]] bool is_current_picture(const Slice& slice, bool is_list_1, unsigned int entry) {
    const auto& lists = slice.ref_pic_lists_modification;
    const bool is_modified = is_list_1 ? lists.ref_pic_list_modification_flag_l1
                                       : lists.ref_pic_list_modification_flag_l0;
    const auto& list_entry = is_list_1 ? lists.list_entry_l1 : lists.list_entry_l0;
    const unsigned int last = slice.NumPicTotalCurr - 1;
    const unsigned int place = is_modified ? list_entry[entry] : entry;
    // Where the pictures are more than the entries of list 0, the current one takes the last entry.
    const bool takes_last_entry = !is_list_1 && !is_modified &&
                                  last > slice.num_ref_idx_l0_active_minus1 &&
                                  entry == slice.num_ref_idx_l0_active_minus1;
    return takes_last_entry || place % slice.NumPicTotalCurr == last;
}

// The weights of one list, clause 7.3.6.3. `has_flags` tells of an entry whether its flags are
// coded; `weights_left` counts down what the slice may have.
template <class Walker, class HasFlags, class Flags, class Values, class PairsOfValues>
[[gnu::always_inline]] inline void list_weights(
    Walker& walk, unsigned int last_entry, const HasFlags& has_flags, const weight_ranges& ranges,
    int& weights_left, element<Flags&> luma_flag, element<Flags&> chroma_flag,
    element<Values&> luma_weight, element<Values&> luma_offset,
    element<PairsOfValues&> chroma_weight, element<PairsOfValues&> chroma_offset) {
    const auto weight_flag = [&walk, &weights_left](auto flag, int weights) {
        walk.u(1, flag, up_to(weights <= weights_left ? 1 : 0));
        weights_left -= flag.field ? weights : 0;
    };
    for (unsigned int i = 0; i <= last_entry; ++i) {
        if (has_flags(i)) {
            weight_flag(luma_flag[i], 1);
        }
    }
    if (ranges.has_chroma) {
        for (unsigned int i = 0; i <= last_entry; ++i) {
            if (has_flags(i)) {
                weight_flag(chroma_flag[i], 2);
            }
        }
    }
    for (unsigned int i = 0; i <= last_entry; ++i) {
        if (luma_flag.field[i]) {
            walk.se(luma_weight[i], between(-128, 127));
            walk.se(luma_offset[i], ranges.luma_offset);
        }
        if (chroma_flag.field[i]) {
            for (std::size_t j = 0; j < 2; ++j) {
                walk.se(chroma_weight[i][j], between(-128, 127));
                walk.se(chroma_offset[i][j], ranges.delta_chroma_offset);
            }
        }
    }
}

// pred_weight_table(), clause 7.3.6.3. The numbers of entries have been compared with their bound.
template <class Walker, class Table, class Slice, class Pps, class Sps>
[[gnu::always_inline]] inline void pred_weight_table(Walker& walk, Table& table, const Slice& slice,
                                                     const Pps& pps, const Sps& sps) {
    walk.set(table.present);
    const weight_ranges ranges = weight_ranges_of(sps);
    walk.ue(ELEMENT(table, luma_log2_weight_denom), up_to(7));
    if (ranges.has_chroma) {
        walk.se(ELEMENT(table, delta_chroma_log2_weight_denom),
                between(-std::int64_t{table.luma_log2_weight_denom},
                        7 - std::int64_t{table.luma_log2_weight_denom}));
    }
    const bool may_be_current = pps.pps_scc_extension.pps_curr_pic_ref_enabled_flag;
    const auto has_flags = [&slice, may_be_current](bool is_list_1) {
        return [&slice, may_be_current, is_list_1](unsigned int entry) {
            return !may_be_current || !is_current_picture(slice, is_list_1, entry);
        };
    };
    int weights_left = 24;  // of both lists together, clause 7.4.7.3
    list_weights(walk, slice.num_ref_idx_l0_active_minus1, has_flags(/*is_list_1=*/false), ranges,
                 weights_left, ELEMENT(table, luma_weight_l0_flag),
                 ELEMENT(table, chroma_weight_l0_flag), ELEMENT(table, delta_luma_weight_l0),
                 ELEMENT(table, luma_offset_l0), ELEMENT(table, delta_chroma_weight_l0),
                 ELEMENT(table, delta_chroma_offset_l0));
    if (slice.slice_type == slice_type_b) {
        list_weights(walk, slice.num_ref_idx_l1_active_minus1, has_flags(/*is_list_1=*/true),
                     ranges, weights_left, ELEMENT(table, luma_weight_l1_flag),
                     ELEMENT(table, chroma_weight_l1_flag), ELEMENT(table, delta_luma_weight_l1),
                     ELEMENT(table, luma_offset_l1), ELEMENT(table, delta_chroma_weight_l1),
                     ELEMENT(table, delta_chroma_offset_l1));
    }
}

}  // namespace kovran

#endif  // KOVRAN_SRC_H265_H265_PRED_WEIGHT_TABLE_SYNTAX_H
