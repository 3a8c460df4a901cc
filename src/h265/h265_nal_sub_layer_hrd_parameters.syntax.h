#ifndef KOVRAN_SRC_H265_H265_NAL_SUB_LAYER_HRD_PARAMETERS_SYNTAX_H
#define KOVRAN_SRC_H265_H265_NAL_SUB_LAYER_HRD_PARAMETERS_SYNTAX_H

#include "h2645_common/element.h"

#include <cstdint>

namespace kovran {

// sub_layer_hrd_parameters(), clause E.2.3.
template <class Walker, class SubLayerHrd, class Hrd>
[[nodiscard]] bool sub_layer_hrd_parameters(Walker& walk, SubLayerHrd& sub_layer,
                                            unsigned int subLayerId, unsigned int cpb_count,
                                            const Hrd& hrd) {
    walk.clear(sub_layer.valid);
    walk.assign(sub_layer.subLayerId, subLayerId);
    walk.assign(sub_layer.cpb_count, cpb_count);
    const std::int64_t cpb_cnt_minus1 = std::int64_t{cpb_count} - 1;
    const auto count = named("cpb_cnt_minus1", cpb_cnt_minus1, {{subLayerId}, 1});
    if (!walk.at_most(count, walk.rules.max_hrd_cpbs - 1) ||
        !walk.data_holds(count, cpb_count, /*fewest_bits=*/3) ||
        !walk.grow(cpb_count, sub_layer.bit_rate_value_minus1, sub_layer.cpb_size_value_minus1,
                   sub_layer.cpb_size_du_value_minus1, sub_layer.bit_rate_du_value_minus1,
                   sub_layer.cbr_flag)) {
        return false;
    }
    for (unsigned int i = 0; i < cpb_count; ++i) {
        walk.ue(ELEMENT(sub_layer, bit_rate_value_minus1)[i]);
        walk.ue(ELEMENT(sub_layer, cpb_size_value_minus1)[i]);
        if (hrd.sub_pic_hrd_params_present_flag) {
            walk.ue(ELEMENT(sub_layer, cpb_size_du_value_minus1)[i]);
            walk.ue(ELEMENT(sub_layer, bit_rate_du_value_minus1)[i]);
        }
        walk.u(1, ELEMENT(sub_layer, cbr_flag)[i]);
    }
    return walk.finish(sub_layer.valid);
}

}  // namespace kovran

#endif  // KOVRAN_SRC_H265_H265_NAL_SUB_LAYER_HRD_PARAMETERS_SYNTAX_H
