#ifndef KOVRAN_SRC_H265_SEI_H265_NAL_SEI_INTER_LAYER_CONSTRAINED_TILE_SETS_SYNTAX_H
#define KOVRAN_SRC_H265_SEI_H265_NAL_SEI_INTER_LAYER_CONSTRAINED_TILE_SETS_SYNTAX_H

#include <kovran/h265/sei/h265_nal_sei_inter_layer_constrained_tile_sets.h>

#include "h2645_common/element.h"
#include "h2645_common/value_range.h"
#include "h265/sei/in_entry.h"
#include "h265/sei/sei_context.h"
#include "h265/start_afresh.h"

#include <cstddef>

namespace kovran {

inline void start_afresh(h265_nal_sei_inter_layer_constrained_tile_sets& record) {
    auto& [il_all_tiles_exact_sample_value_match_flag, il_one_tile_per_tile_set_flag,
           il_num_sets_in_message_minus1, skipped_tile_set_present_flag, tile_sets,
           all_tiles_ilc_idc, valid] = record;
    start_all_afresh(il_all_tiles_exact_sample_value_match_flag, il_one_tile_per_tile_set_flag,
                     il_num_sets_in_message_minus1, skipped_tile_set_present_flag,
                     all_tiles_ilc_idc, valid);
    tile_sets.clear();
}

template <class Walker, class TileSet>
[[nodiscard]] bool inter_layer_tile_set(Walker& walk, TileSet& set, std::size_t i,
                                        bool il_all_tiles_exact_sample_value_match_flag) {
    walk.ue(in_entry(i, ELEMENT(set, ilcts_id)));
    walk.ue(in_entry(i, ELEMENT(set, il_num_tile_rects_in_set_minus1)));
    const std::size_t rects = std::size_t{set.il_num_tile_rects_in_set_minus1} + 1;
    if (!walk.data_holds(in_entry(i, ELEMENT(set, il_num_tile_rects_in_set_minus1)), rects,
                         /*fewest_bits=*/2) ||
        !walk.grow(rects, set.il_top_left_tile_idx, set.il_bottom_right_tile_idx)) {
        return false;
    }
    for (std::size_t j = 0; j < rects; ++j) {
        walk.ue(in_entry(i, ELEMENT(set, il_top_left_tile_idx))[j]);
        walk.ue(in_entry(i, ELEMENT(set, il_bottom_right_tile_idx))[j]);
    }
    walk.u(2, in_entry(i, ELEMENT(set, ilc_idc)));
    if (!il_all_tiles_exact_sample_value_match_flag) {
        walk.u(1, in_entry(i, ELEMENT(set, il_exact_sample_value_match_flag)));
    }
    return true;
}

// inter_layer_constrained_tile_sets(), clause F.14.2.
template <class Walker>
[[nodiscard]] bool payload_syntax(Walker& walk,
                                  h265_nal_sei_inter_layer_constrained_tile_sets& tiles,
                                  const sei_context& /*context*/) {
    walk.u(1, ELEMENT(tiles, il_all_tiles_exact_sample_value_match_flag));
    walk.u(1, ELEMENT(tiles, il_one_tile_per_tile_set_flag));
    if (tiles.il_one_tile_per_tile_set_flag) {
        walk.u(2, ELEMENT(tiles, all_tiles_ilc_idc));
        return walk.finish(tiles.valid);
    }
    walk.ue(ELEMENT(tiles, il_num_sets_in_message_minus1), up_to(255));
    if (!walk.at_most(ELEMENT(tiles, il_num_sets_in_message_minus1), 255U)) {
        return false;
    }
    if (tiles.il_num_sets_in_message_minus1 > 0) {
        walk.u(1, ELEMENT(tiles, skipped_tile_set_present_flag));
    }
    const std::size_t sets = std::size_t{tiles.il_num_sets_in_message_minus1} + 1 -
                             (tiles.skipped_tile_set_present_flag ? 1 : 0);
    if (!walk.data_holds(ELEMENT(tiles, il_num_sets_in_message_minus1), sets,
                         /*fewest_bits=*/6) ||
        !walk.grow(sets, tiles.tile_sets)) {
        return false;
    }
    for (std::size_t i = 0; i < sets; ++i) {
        if (!inter_layer_tile_set(walk, tiles.tile_sets[i], i,
                                  tiles.il_all_tiles_exact_sample_value_match_flag)) {
            return false;
        }
    }
    return walk.finish(tiles.valid);
}

}  // namespace kovran

#endif  // KOVRAN_SRC_H265_SEI_H265_NAL_SEI_INTER_LAYER_CONSTRAINED_TILE_SETS_SYNTAX_H
