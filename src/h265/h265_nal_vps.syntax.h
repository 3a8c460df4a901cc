#ifndef KOVRAN_SRC_H265_H265_NAL_VPS_SYNTAX_H
#define KOVRAN_SRC_H265_H265_NAL_VPS_SYNTAX_H

#include "h2645_common/element.h"
#include "h2645_common/value_range.h"
#include "h265/h265_hrd_parameters.syntax.h"
#include "h265/h265_profile_tier_level.syntax.h"
#include "h265/sub_layer_ordering.h"

#include <cstdint>

namespace kovran {

// The HRD structures of the timing information, clause 7.3.2.1.
template <class Walker, class Vps>
[[nodiscard]] bool vps_hrd_parameters(Walker& walk, Vps& vps) {
    if (!walk.at_most(ELEMENT(vps, vps_num_hrd_parameters), walk.rules.max_vps_hrd_parameters) ||
        !walk.data_holds(ELEMENT(vps, vps_num_hrd_parameters), vps.vps_num_hrd_parameters,
                         /*fewest_bits=*/4) ||
        !walk.grow(vps.vps_num_hrd_parameters, vps.hrd_layer_set_idx, vps.cprms_present_flag,
                   vps.hrd_parameters)) {
        return false;
    }
    walk.rules.infer_first_cprms_present_flag(walk, vps.cprms_present_flag);
    for (unsigned int i = 0; i < vps.vps_num_hrd_parameters; ++i) {
        walk.ue(ELEMENT(vps, hrd_layer_set_idx)[i],
                between(vps.vps_base_layer_internal_flag ? 0 : 1, vps.vps_num_layer_sets_minus1));
        if (i > 0) {
            walk.u(1, ELEMENT(vps, cprms_present_flag)[i]);
        }
        if (!walk.structure(ELEMENT(vps, hrd_parameters)[i], [&](auto& hrd) {
                return hrd_parameters(walk, hrd, vps.cprms_present_flag[i],
                                      vps.vps_max_sub_layers_minus1,
                                      i > 0 ? &vps.hrd_parameters[i - 1] : nullptr);
            })) {
            return false;
        }
    }
    return true;
}

// video_parameter_set_rbsp(), clause 7.3.2.1.
template <class Walker, class Vps>
[[nodiscard]] bool video_parameter_set_rbsp(Walker& walk, Vps& vps) {
    walk.u(4, ELEMENT(vps, vps_video_parameter_set_id));
    walk.u(1, ELEMENT(vps, vps_base_layer_internal_flag));
    walk.u(1, ELEMENT(vps, vps_base_layer_available_flag));
    walk.u(6, ELEMENT(vps, vps_max_layers_minus1), up_to(62));
    walk.u(3, ELEMENT(vps, vps_max_sub_layers_minus1), up_to(6));
    if (!walk.at_most(ELEMENT(vps, vps_max_sub_layers_minus1),
                      walk.rules.max_profile_tier_level_sub_layers)) {
        return false;
    }
    walk.u(1, ELEMENT(vps, vps_temporal_id_nesting_flag),
           between(vps.vps_max_sub_layers_minus1 == 0 ? 1 : 0, 1));
    walk.u(16, ELEMENT(vps, vps_reserved_0xffff_16bits));
    if (!walk.structure(ELEMENT(vps, profile_tier_level), [&](auto& ptl) {
            return profile_tier_level(walk, ptl, /*profilePresentFlag=*/true,
                                      vps.vps_max_sub_layers_minus1);
        })) {
        walk.clear(vps.valid);
        return false;
    }

    walk.u(1, ELEMENT(vps, vps_sub_layer_ordering_info_present_flag));
    const unsigned int highest = vps.vps_max_sub_layers_minus1;  // u(3), so that no bound is needed
    if (!walk.grow(highest + 1, vps.vps_max_dec_pic_buffering_minus1, vps.vps_max_num_reorder_pics,
                   vps.vps_max_latency_increase_plus1)) {
        return false;
    }
    const unsigned int lowest = vps.vps_sub_layer_ordering_info_present_flag ? 0 : highest;
    for (unsigned int i = lowest; i <= highest; ++i) {
        walk.ue(ELEMENT(vps, vps_max_dec_pic_buffering_minus1)[i],
                ordering_range(vps.vps_max_dec_pic_buffering_minus1, i, lowest, max_dpb_size - 1));
        walk.ue(ELEMENT(vps, vps_max_num_reorder_pics)[i],
                ordering_range(vps.vps_max_num_reorder_pics, i, lowest,
                               vps.vps_max_dec_pic_buffering_minus1[i]));
        walk.ue(ELEMENT(vps, vps_max_latency_increase_plus1)[i]);
    }
    if (!vps.vps_sub_layer_ordering_info_present_flag) {
        walk.rules.infer_ordering_info(walk, highest, vps.vps_max_dec_pic_buffering_minus1,
                                       vps.vps_max_num_reorder_pics,
                                       vps.vps_max_latency_increase_plus1);
    }

    walk.u(6, ELEMENT(vps, vps_max_layer_id), up_to(62));
    walk.ue(ELEMENT(vps, vps_num_layer_sets_minus1), up_to(1023));
    if (!walk.at_most(ELEMENT(vps, vps_num_layer_sets_minus1), walk.rules.max_vps_layer_sets - 1) ||
        !walk.data_holds(ELEMENT(vps, vps_num_layer_sets_minus1), vps.vps_num_layer_sets_minus1,
                         /*fewest_bits=*/vps.vps_max_layer_id + 1U) ||
        !walk.grow(vps.vps_num_layer_sets_minus1 + 1, vps.layer_id_included_flag)) {
        return false;
    }
    for (unsigned int i = 1; i <= vps.vps_num_layer_sets_minus1; ++i) {
        if (!walk.grow(vps.vps_max_layer_id + 1U, vps.layer_id_included_flag[i])) {
            return false;
        }
        for (unsigned int j = 0; j <= vps.vps_max_layer_id; ++j) {
            walk.u(1, ELEMENT(vps, layer_id_included_flag)[i][j]);
        }
    }

    walk.u(1, ELEMENT(vps, vps_timing_info_present_flag));
    if (vps.vps_timing_info_present_flag) {
        walk.u(32, ELEMENT(vps, vps_num_units_in_tick), from(1));
        walk.u(32, ELEMENT(vps, vps_time_scale), from(1));
        walk.u(1, ELEMENT(vps, vps_poc_proportional_to_timing_flag));
        if (vps.vps_poc_proportional_to_timing_flag) {
            walk.ue(ELEMENT(vps, vps_num_ticks_poc_diff_one_minus1));
        }
        walk.ue(ELEMENT(vps, vps_num_hrd_parameters),
                up_to(std::int64_t{vps.vps_num_layer_sets_minus1} + 1));
    }
    if (!vps.vps_timing_info_present_flag || vps.vps_num_hrd_parameters == 0) {
        walk.rules.end_absent_structure(vps.hrd_parameters);
    } else if (!vps_hrd_parameters(walk, vps)) {
        return false;
    }

    walk.u(1, ELEMENT(vps, vps_extension_flag));
    if (vps.vps_extension_flag) {
        walk.extension_data("vps_extension_data_flag");
    }
    return walk.finish_rbsp(vps.valid);
}

}  // namespace kovran

#endif  // KOVRAN_SRC_H265_H265_NAL_VPS_SYNTAX_H
