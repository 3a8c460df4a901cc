#ifndef KOVRAN_SRC_H265_H265_NAL_SEI_ACTIVE_PARAMETER_SETS_SYNTAX_H
#define KOVRAN_SRC_H265_H265_NAL_SEI_ACTIVE_PARAMETER_SETS_SYNTAX_H

#include "h2645_common/element.h"
#include "h2645_common/store_lookup.h"
#include "h2645_common/value_range.h"

namespace kovran {

// active_parameter_sets(), clause D.2.21.
template <class Walker, class ActiveSets, class VpsStore>
[[nodiscard]] bool active_parameter_sets(Walker& walk, ActiveSets& active, VpsStore& vps_store) {
    walk.clear(active.valid);

    walk.u(4, ELEMENT(active, active_video_parameter_set_id));
    const auto* const vps = find_entry(vps_store, active.active_video_parameter_set_id);
    if (vps == nullptr) {
        return walk.missing("VPS", active.active_video_parameter_set_id);
    }
    walk.u(1, ELEMENT(active, self_contained_cvs_flag));
    walk.u(1, ELEMENT(active, no_parameter_set_update_flag));
    walk.ue(ELEMENT(active, num_sps_ids_minus1), up_to(15));
    if (!walk.at_most(ELEMENT(active, num_sps_ids_minus1), walk.rules.max_active_sps_ids - 1) ||
        !walk.grow(active.num_sps_ids_minus1 + 1, active.active_seq_parameter_set_id)) {
        return false;
    }
    for (unsigned int i = 0; i <= active.num_sps_ids_minus1; ++i) {
        walk.ue(ELEMENT(active, active_seq_parameter_set_id)[i], up_to(15));
        if (!walk.at_most(ELEMENT(active, active_seq_parameter_set_id)[i], walk.rules.max_sps_id)) {
            return false;
        }
    }
    const unsigned int highest_layer = walk.rules.max_layers_minus1(*vps);
    if (!walk.at_most(named("vps_max_layers_minus1", highest_layer),
                      walk.rules.max_active_layers - 1) ||
        !walk.grow(highest_layer + 1, active.layer_sps_idx)) {
        return false;
    }
    for (unsigned int i = vps->vps_base_layer_internal_flag ? 1 : 0; i <= highest_layer; ++i) {
        walk.ue(ELEMENT(active, layer_sps_idx)[i], up_to(active.num_sps_ids_minus1));
    }
    return walk.finish(active.valid);
}

}  // namespace kovran

#endif  // KOVRAN_SRC_H265_H265_NAL_SEI_ACTIVE_PARAMETER_SETS_SYNTAX_H
