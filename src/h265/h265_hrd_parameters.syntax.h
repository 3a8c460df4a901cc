#ifndef KOVRAN_SRC_H265_H265_HRD_PARAMETERS_SYNTAX_H
#define KOVRAN_SRC_H265_H265_HRD_PARAMETERS_SYNTAX_H

#include "h2645_common/element.h"
#include "h2645_common/value_range.h"
#include "h2645_common/wrapping.h"
#include "h265/h265_nal_sub_layer_hrd_parameters.syntax.h"

#include <cstdint>

namespace kovran {

// hrd_parameters(), clause E.2.2. `earlier` is the structure before it, in a VPS.
template <class Walker, class Hrd>
[[nodiscard]] bool hrd_parameters(Walker& walk, Hrd& hrd, bool commonInfPresentFlag,
                                  unsigned int maxNumSubLayersMinus1,
                                  const Hrd* earlier = nullptr) {
    walk.clear(hrd.valid);
    walk.assign(hrd.commonInfPresentFlag, commonInfPresentFlag);
    walk.assign(hrd.maxNumSubLayersMinus1, maxNumSubLayersMinus1);
    walk.assign(hrd.initial_cpb_removal_delay_length_minus1, 23);
    walk.assign(hrd.au_cpb_removal_delay_length_minus1, 23);
    walk.rules.infer_dpb_output_delay_length(walk, hrd);

    if (commonInfPresentFlag) {
        walk.u(1, ELEMENT(hrd, nal_hrd_parameters_present_flag));
        walk.u(1, ELEMENT(hrd, vcl_hrd_parameters_present_flag));
        if (hrd.nal_hrd_parameters_present_flag || hrd.vcl_hrd_parameters_present_flag) {
            walk.u(1, ELEMENT(hrd, sub_pic_hrd_params_present_flag));
            if (hrd.sub_pic_hrd_params_present_flag) {
                walk.u(8, ELEMENT(hrd, tick_divisor_minus2));
                walk.u(5, ELEMENT(hrd, du_cpb_removal_delay_increment_length_minus1));
                walk.u(1, ELEMENT(hrd, sub_pic_cpb_params_in_pic_timing_sei_flag));
                walk.u(5, ELEMENT(hrd, dpb_output_delay_du_length_minus1));
            }
            walk.u(4, ELEMENT(hrd, bit_rate_scale));
            walk.u(4, ELEMENT(hrd, cpb_size_scale));
            if (hrd.sub_pic_hrd_params_present_flag) {
                walk.u(4, ELEMENT(hrd, cpb_size_du_scale));
            }
            walk.u(5, ELEMENT(hrd, initial_cpb_removal_delay_length_minus1));
            walk.u(5, ELEMENT(hrd, au_cpb_removal_delay_length_minus1));
            walk.u(5, ELEMENT(hrd, dpb_output_delay_length_minus1));
        }
    } else {
        walk.rules.infer_common_information(walk, hrd, earlier);
    }

    if (!walk.at_most(named("maxNumSubLayersMinus1", maxNumSubLayersMinus1),
                      walk.rules.max_hrd_sub_layers - 1) ||
        !walk.grow(maxNumSubLayersMinus1 + 1, hrd.fixed_pic_rate_general_flag,
                   hrd.fixed_pic_rate_within_cvs_flag, hrd.elemental_duration_in_tc_minus1,
                   hrd.low_delay_hrd_flag, hrd.cpb_cnt_minus1, hrd.nal_sub_layer_hrd,
                   hrd.vcl_sub_layer_hrd)) {
        return false;
    }
    for (unsigned int i = 0; i <= maxNumSubLayersMinus1; ++i) {
        walk.u(1, ELEMENT(hrd, fixed_pic_rate_general_flag)[i]);
        if (hrd.fixed_pic_rate_general_flag[i]) {
            walk.set(hrd.fixed_pic_rate_within_cvs_flag[i]);
        } else {
            walk.u(1, ELEMENT(hrd, fixed_pic_rate_within_cvs_flag)[i]);
        }
        if (hrd.fixed_pic_rate_within_cvs_flag[i]) {
            walk.ue(ELEMENT(hrd, elemental_duration_in_tc_minus1)[i], up_to(2047));
            walk.rules.infer_low_delay_hrd_flag(walk, hrd.low_delay_hrd_flag, i);
        } else {
            walk.u(1, ELEMENT(hrd, low_delay_hrd_flag)[i]);
        }
        if (!hrd.low_delay_hrd_flag[i]) {
            walk.ue(ELEMENT(hrd, cpb_cnt_minus1)[i], up_to(31));
        }

        const unsigned int structures = (hrd.nal_hrd_parameters_present_flag ? 1U : 0U) +
                                        (hrd.vcl_hrd_parameters_present_flag ? 1U : 0U);
        if (structures != 0 && !walk.data_holds(ELEMENT(hrd, cpb_cnt_minus1)[i],
                                                std::uint64_t{hrd.cpb_cnt_minus1[i]} + 1,
                                                /*fewest_bits=*/3 * structures)) {
            return false;
        }
        const auto walk_sub_layer = [&walk, &hrd, i](auto& sub_layer) {
            return sub_layer_hrd_parameters(walk, sub_layer, i,
                                            wrapping_sum(hrd.cpb_cnt_minus1[i], 1), hrd);
        };
        if (!hrd.nal_hrd_parameters_present_flag) {
            walk.rules.end_absent_structure(hrd.nal_sub_layer_hrd[i]);
        } else if (!walk.structure(ELEMENT(hrd, nal_sub_layer_hrd)[i], walk_sub_layer)) {
            return false;
        }
        if (!hrd.vcl_hrd_parameters_present_flag) {
            walk.rules.end_absent_structure(hrd.vcl_sub_layer_hrd[i]);
        } else if (!walk.structure(ELEMENT(hrd, vcl_sub_layer_hrd)[i], walk_sub_layer)) {
            return false;
        }
    }
    return walk.finish(hrd.valid);
}

}  // namespace kovran

#endif  // KOVRAN_SRC_H265_H265_HRD_PARAMETERS_SYNTAX_H
