#ifndef KOVRAN_SRC_H265_SEI_H265_NAL_SEI_SHUTTER_INTERVAL_INFO_SYNTAX_H
#define KOVRAN_SRC_H265_SEI_H265_NAL_SEI_SHUTTER_INTERVAL_INFO_SYNTAX_H

#include <kovran/h265/sei/h265_nal_sei_shutter_interval_info.h>

#include "h2645_common/element.h"
#include "h2645_common/value_range.h"
#include "h265/sei/sei_context.h"
#include "h265/start_afresh.h"

namespace kovran {

inline void start_afresh(h265_nal_sei_shutter_interval_info& record) {
    auto& [sii_time_scale, fixed_shutter_interval_within_clvs_flag,
           sii_num_units_in_shutter_interval, sii_max_sub_layers_minus1,
           sub_layer_num_units_in_shutter_interval, valid] = record;
    start_all_afresh(sii_time_scale, fixed_shutter_interval_within_clvs_flag,
                     sii_num_units_in_shutter_interval, sii_max_sub_layers_minus1,
                     sub_layer_num_units_in_shutter_interval, valid);
}

// shutter_interval_info(), clause D.2.48.
template <class Walker>
[[nodiscard]] bool payload_syntax(Walker& walk, h265_nal_sei_shutter_interval_info& info,
                                  const sei_context& /*context*/) {
    walk.u(32, ELEMENT(info, sii_time_scale), from(1));
    walk.u(1, ELEMENT(info, fixed_shutter_interval_within_clvs_flag));
    if (info.fixed_shutter_interval_within_clvs_flag) {
        walk.u(32, ELEMENT(info, sii_num_units_in_shutter_interval));
        return walk.finish(info.valid);
    }
    walk.u(3, ELEMENT(info, sii_max_sub_layers_minus1));
    const unsigned int sub_layers = info.sii_max_sub_layers_minus1 + 1U;
    if (!walk.data_holds(ELEMENT(info, sii_max_sub_layers_minus1), sub_layers,
                         /*fewest_bits=*/32) ||
        !walk.grow(sub_layers, info.sub_layer_num_units_in_shutter_interval)) {
        return false;
    }
    for (unsigned int i = 0; i < sub_layers; ++i) {
        walk.u(32, ELEMENT(info, sub_layer_num_units_in_shutter_interval)[i]);
    }
    return walk.finish(info.valid);
}

}  // namespace kovran

#endif  // KOVRAN_SRC_H265_SEI_H265_NAL_SEI_SHUTTER_INTERVAL_INFO_SYNTAX_H
