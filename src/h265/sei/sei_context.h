#ifndef KOVRAN_SRC_H265_SEI_SEI_CONTEXT_H
#define KOVRAN_SRC_H265_SEI_SEI_CONTEXT_H

#include <kovran/h2645_common/h2645_common_base_store.h>
#include <kovran/h265/h265_hrd_parameters.h>
#include <kovran/h265/h265_nal_sps.h>
#include <kovran/h265/h265_nal_vps.h>

#include "h2645_common/store_lookup.h"

#include <algorithm>
#include <cstddef>

namespace kovran {

// What an SEI message is read with, besides its own bits. Of the parameter sets, those are null
// that a payload does not need.
struct sei_context {
    const h2645_common_base_store<h265_nal_vps>* vps_store = nullptr;
    const h2645_common_base_store<h265_nal_sps>* sps_store = nullptr;
    const h265_nal_sps* sps = nullptr;  // the active one, when it is not that of the store

    // From the nesting messages around it.
    unsigned int depth = 0;                                // how many there are
    const h265_hrd_parameters* operation_point = nullptr;  // HRD of the one that it applies to
    unsigned int highest_sub_layer_plus1 = 0;              // of that; 0 when there is none
    unsigned int views = 1;                                // numViews, clause G.14.2.6

    [[nodiscard]] sei_context nested() const {
        sei_context within = *this;
        ++within.depth;
        return within;
    }

    // Null when there is none.
    [[nodiscard]] const h265_nal_sps* active_sps() const {
        const bool is_in_store =
            sps == nullptr && sps_store != nullptr && sps_store->active_id != sps_store->no_id;
        return is_in_store ? find_entry(*sps_store, sps_store->active_id) : sps;
    }

    [[nodiscard]] const h265_nal_vps* vps_of(const h265_nal_sps& set) const {
        return vps_store != nullptr ? find_entry(*vps_store, set.sps_video_parameter_set_id)
                                    : nullptr;
    }

    // The HRD parameters that messages of timing go by, clause D.3.1: those of the operation point,
    // of the SPS's VUI, or the first ones of its VPS; null when there are none.
    [[nodiscard]] const h265_hrd_parameters* hrd_of(const h265_nal_sps& set) const {
        if (operation_point != nullptr) {
            return operation_point;
        }
        const h265_vui_parameters& vui = set.vui_parameters;
        if (set.vui_parameters_present_flag && vui.vui_hrd_parameters_present_flag) {
            return &vui.hrd_parameters;
        }
        const h265_nal_vps* const vps = vps_of(set);
        return vps != nullptr && !vps->hrd_parameters.empty() ? &vps->hrd_parameters.front()
                                                              : nullptr;
    }

    // Of the active SPS's VPS; null when it has none for this operation point.
    [[nodiscard]] const h265_hrd_parameters* hrd_of_operation_point(unsigned int index) const {
        const h265_nal_sps* const active = active_sps();
        const h265_nal_vps* const vps = active != nullptr ? vps_of(*active) : nullptr;
        if (vps == nullptr) {
            return nullptr;
        }
        const std::size_t structures =
            std::min(vps->hrd_layer_set_idx.size(), vps->hrd_parameters.size());
        for (std::size_t i = 0; i < structures; ++i) {
            if (vps->hrd_layer_set_idx[i] == index) {
                return &vps->hrd_parameters[i];
            }
        }
        return nullptr;
    }
};

[[nodiscard]] inline sei_context context_of(
    const h2645_common_base_store<h265_nal_vps>& vps_store,
    const h2645_common_base_store<h265_nal_sps>& sps_store) {
    sei_context context;
    context.vps_store = &vps_store;
    context.sps_store = &sps_store;
    return context;
}

// For a payload that is parsed alone, with the SPS that is active for it.
[[nodiscard]] inline sei_context context_of(const h265_nal_sps& sps) {
    sei_context context;
    context.sps = &sps;
    return context;
}

}  // namespace kovran

#endif  // KOVRAN_SRC_H265_SEI_SEI_CONTEXT_H
