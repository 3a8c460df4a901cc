#ifndef KOVRAN_SRC_H265_SEI_H265_NAL_SEI_TEMPORAL_MOTION_CONSTRAINED_TILE_SETS_SYNTAX_H
#define KOVRAN_SRC_H265_SEI_H265_NAL_SEI_TEMPORAL_MOTION_CONSTRAINED_TILE_SETS_SYNTAX_H

#include <kovran/h265/sei/h265_nal_sei_temporal_motion_constrained_tile_sets.h>

#include "h2645_common/element.h"
#include "h2645_common/value_range.h"
#include "h265/sei/in_entry.h"
#include "h265/sei/sei_context.h"
#include "h265/start_afresh.h"

#include <cstddef>
#include <cstdint>

namespace kovran {

inline void start_afresh(h265_nal_sei_temporal_motion_constrained_tile_sets& record) {
    auto& [mc_all_tiles_exact_sample_value_match_flag, each_tile_one_tile_set_flag,
           limited_tile_set_display_flag, num_sets_in_message_minus1, tile_sets,
           max_mcs_tier_level_idc_present_flag, mcts_max_tier_flag, mcts_max_level_idc, valid] =
        record;
    start_all_afresh(mc_all_tiles_exact_sample_value_match_flag, each_tile_one_tile_set_flag,
                     limited_tile_set_display_flag, num_sets_in_message_minus1,
                     max_mcs_tier_level_idc_present_flag, mcts_max_tier_flag, mcts_max_level_idc,
                     valid);
    tile_sets.clear();
}

template <class Walker>
[[nodiscard]] bool motion_constrained_tile_set(
    Walker& walk, h265_nal_sei_temporal_motion_constrained_tile_sets& sets, std::size_t i) {
    auto& set = sets.tile_sets[i];
    walk.ue(in_entry(i, ELEMENT(set, mcts_id)));
    if (sets.limited_tile_set_display_flag) {
        walk.u(1, in_entry(i, ELEMENT(set, display_tile_set_flag)));
    }
    walk.ue(in_entry(i, ELEMENT(set, num_tile_rects_in_set_minus1)));
    const std::uint64_t rects = std::uint64_t{set.num_tile_rects_in_set_minus1} + 1;
    if (!walk.data_holds(in_entry(i, ELEMENT(set, num_tile_rects_in_set_minus1)), rects,
                         /*fewest_bits=*/2) ||
        !walk.grow(rects, set.top_left_tile_idx, set.bottom_right_tile_idx)) {
        return false;
    }
    for (std::size_t j = 0; j < rects; ++j) {
        walk.ue(in_entry(i, ELEMENT(set, top_left_tile_idx))[j]);
        walk.ue(in_entry(i, ELEMENT(set, bottom_right_tile_idx))[j]);
    }
    if (!sets.mc_all_tiles_exact_sample_value_match_flag) {
        walk.u(1, in_entry(i, ELEMENT(set, mc_exact_sample_value_match_flag)));
    }
    walk.u(1, in_entry(i, ELEMENT(set, mcts_tier_level_idc_present_flag)));
    if (set.mcts_tier_level_idc_present_flag) {
        walk.u(1, in_entry(i, ELEMENT(set, mcts_tier_flag)));
        walk.u(8, in_entry(i, ELEMENT(set, mcts_level_idc)));
    }
    return true;
}

template <class Walker>
[[nodiscard]] bool motion_constrained_tile_sets(
    Walker& walk, h265_nal_sei_temporal_motion_constrained_tile_sets& sets) {
    walk.u(1, ELEMENT(sets, limited_tile_set_display_flag));
    walk.ue(ELEMENT(sets, num_sets_in_message_minus1), up_to(255));
    const std::uint64_t count = std::uint64_t{sets.num_sets_in_message_minus1} + 1;
    if (!walk.at_most(ELEMENT(sets, num_sets_in_message_minus1), 255U) ||
        !walk.data_holds(ELEMENT(sets, num_sets_in_message_minus1), count, /*fewest_bits=*/5) ||
        !walk.grow(count, sets.tile_sets)) {
        return false;
    }
    for (std::size_t i = 0; i < count; ++i) {
        if (!motion_constrained_tile_set(walk, sets, i)) {
            return false;
        }
    }
    return true;
}

// temporal_motion_constrained_tile_sets(), clause D.2.30.
template <class Walker>
[[nodiscard]] bool payload_syntax(Walker& walk,
                                  h265_nal_sei_temporal_motion_constrained_tile_sets& sets,
                                  const sei_context& /*context*/) {
    walk.u(1, ELEMENT(sets, mc_all_tiles_exact_sample_value_match_flag));
    walk.u(1, ELEMENT(sets, each_tile_one_tile_set_flag));
    if (!sets.each_tile_one_tile_set_flag) {
        if (!motion_constrained_tile_sets(walk, sets)) {
            return false;
        }
    } else {
        walk.u(1, ELEMENT(sets, max_mcs_tier_level_idc_present_flag));
        if (sets.max_mcs_tier_level_idc_present_flag) {
            walk.u(1, ELEMENT(sets, mcts_max_tier_flag));
            walk.u(8, ELEMENT(sets, mcts_max_level_idc));
        }
    }
    return walk.finish(sets.valid);
}

}  // namespace kovran

#endif  // KOVRAN_SRC_H265_SEI_H265_NAL_SEI_TEMPORAL_MOTION_CONSTRAINED_TILE_SETS_SYNTAX_H
