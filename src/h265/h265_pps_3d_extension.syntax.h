#ifndef KOVRAN_SRC_H265_H265_PPS_3D_EXTENSION_SYNTAX_H
#define KOVRAN_SRC_H265_H265_PPS_3D_EXTENSION_SYNTAX_H

#include "h2645_common/element.h"
#include "h2645_common/value_range.h"
#include "h265/h265_delta_dlt.syntax.h"

namespace kovran {

// The depth lookup table of one depth layer, clause I.7.3.2.3.7.
template <class Walker, class Extension>
[[nodiscard]] bool depth_lookup_table(Walker& walk, Extension& extension, unsigned int i) {
    const auto depth_bits =
        static_cast<unsigned char>(extension.pps_bit_depth_for_depth_layers_minus8 + 8);
    walk.u(1, ELEMENT(extension, dlt_flag)[i]);
    if (!extension.dlt_flag[i]) {
        return true;
    }
    walk.u(1, ELEMENT(extension, dlt_pred_flag)[i], up_to(i == 0 ? 0 : 1));
    if (!extension.dlt_pred_flag[i]) {
        walk.u(1, ELEMENT(extension, dlt_val_flags_present_flag)[i]);
    }
    if (!extension.dlt_val_flags_present_flag[i]) {
        return walk.structure(ELEMENT(extension, delta_dlt)[i],
                              [&](auto& delta) { return delta_dlt(walk, delta, depth_bits); });
    }
    const unsigned int values = 1U << depth_bits;
    if (!walk.data_holds(ELEMENT(extension, dlt_val_flags_present_flag)[i], values,
                         /*fewest_bits=*/1) ||
        !walk.grow(values, extension.dlt_value_flag[i])) {
        return false;
    }
    for (unsigned int j = 0; j < values; ++j) {
        walk.u(1, ELEMENT(extension, dlt_value_flag)[i][j]);
    }
    return true;
}

// pps_3d_extension(), clause I.7.3.2.3.7.
template <class Walker, class Extension>
[[nodiscard]] bool pps_3d_extension(Walker& walk, Extension& extension) {
    walk.u(1, ELEMENT(extension, dlts_present_flag));
    if (!extension.dlts_present_flag) {
        walk.rules.end_absent_structure(extension);
        return true;
    }
    walk.u(6, ELEMENT(extension, pps_depth_layers_minus1));
    walk.u(4, ELEMENT(extension, pps_bit_depth_for_depth_layers_minus8), up_to(8));
    const unsigned int layers = extension.pps_depth_layers_minus1 + 1U;
    if (!walk.at_most(ELEMENT(extension, pps_bit_depth_for_depth_layers_minus8), 8U) ||
        !walk.data_holds(ELEMENT(extension, pps_depth_layers_minus1), layers, /*fewest_bits=*/1) ||
        !walk.grow(layers, extension.dlt_flag, extension.dlt_pred_flag,
                   extension.dlt_val_flags_present_flag, extension.dlt_value_flag,
                   extension.delta_dlt)) {
        return false;
    }
    for (unsigned int i = 0; i < layers; ++i) {
        if (!depth_lookup_table(walk, extension, i)) {
            return false;
        }
    }
    return true;
}

}  // namespace kovran

#endif  // KOVRAN_SRC_H265_H265_PPS_3D_EXTENSION_SYNTAX_H
