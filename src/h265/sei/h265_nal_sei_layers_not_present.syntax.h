#ifndef KOVRAN_SRC_H265_SEI_H265_NAL_SEI_LAYERS_NOT_PRESENT_SYNTAX_H
#define KOVRAN_SRC_H265_SEI_H265_NAL_SEI_LAYERS_NOT_PRESENT_SYNTAX_H

#include <kovran/h265/sei/h265_nal_sei_layers_not_present.h>

#include "h2645_common/element.h"
#include "h2645_common/store_lookup.h"
#include "h265/sei/sei_context.h"
#include "h265/start_afresh.h"

#include <cstddef>

namespace kovran {

inline void start_afresh(h265_nal_sei_layers_not_present& record) {
    auto& [lnp_sei_active_vps_id, layer_not_present_flag, valid] = record;
    start_all_afresh(lnp_sei_active_vps_id, layer_not_present_flag, valid);
}

// layers_not_present(), clause F.14.2.
template <class Walker>
[[nodiscard]] bool payload_syntax(Walker& walk, h265_nal_sei_layers_not_present& layers,
                                  const sei_context& context) {
    walk.u(4, ELEMENT(layers, lnp_sei_active_vps_id));
    const h265_nal_vps* const vps = find_entry(*context.vps_store, layers.lnp_sei_active_vps_id);
    if (vps == nullptr) {
        return walk.missing("VPS", layers.lnp_sei_active_vps_id);
    }
    const std::size_t MaxLayersMinus1 = walk.rules.max_layers_minus1(*vps);
    if (!walk.grow(MaxLayersMinus1 + 1, layers.layer_not_present_flag)) {
        return false;
    }
    for (std::size_t i = 0; i <= MaxLayersMinus1; ++i) {
        walk.u(1, ELEMENT(layers, layer_not_present_flag)[i]);
    }
    return walk.finish(layers.valid);
}

}  // namespace kovran

#endif  // KOVRAN_SRC_H265_SEI_H265_NAL_SEI_LAYERS_NOT_PRESENT_SYNTAX_H
