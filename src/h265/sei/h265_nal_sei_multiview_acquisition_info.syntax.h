#ifndef KOVRAN_SRC_H265_SEI_H265_NAL_SEI_MULTIVIEW_ACQUISITION_INFO_SYNTAX_H
#define KOVRAN_SRC_H265_SEI_H265_NAL_SEI_MULTIVIEW_ACQUISITION_INFO_SYNTAX_H

#include <kovran/h265/sei/h265_nal_sei_multiview_acquisition_info.h>

#include "h2645_common/element.h"
#include "h2645_common/value_range.h"
#include "h265/sei/h265_float_value.syntax.h"
#include "h265/sei/sei_context.h"
#include "h265/start_afresh.h"

namespace kovran {

inline void start_afresh(h265_nal_sei_multiview_acquisition_info& record) {
    auto& [intrinsic_param_flag, extrinsic_param_flag, intrinsic_params_equal_flag,
           prec_focal_length, prec_principal_point, prec_skew_factor, intrinsic_params,
           prec_rotation_param, prec_translation_param, extrinsic_params, valid] = record;
    start_all_afresh(intrinsic_param_flag, extrinsic_param_flag, intrinsic_params_equal_flag,
                     prec_focal_length, prec_principal_point, prec_skew_factor, intrinsic_params,
                     prec_rotation_param, prec_translation_param, extrinsic_params, valid);
}

template <class Walker>
[[nodiscard]] bool intrinsic_params(Walker& walk, h265_nal_sei_multiview_acquisition_info& info,
                                    unsigned int views) {
    walk.u(1, ELEMENT(info, intrinsic_params_equal_flag));
    walk.ue(ELEMENT(info, prec_focal_length), up_to(highest_float_precision));
    walk.ue(ELEMENT(info, prec_principal_point), up_to(highest_float_precision));
    walk.ue(ELEMENT(info, prec_skew_factor), up_to(highest_float_precision));
    const unsigned int entries = info.intrinsic_params_equal_flag ? 1 : views;
    if (!walk.at_most(ELEMENT(info, prec_focal_length), highest_float_precision) ||
        !walk.at_most(ELEMENT(info, prec_principal_point), highest_float_precision) ||
        !walk.at_most(ELEMENT(info, prec_skew_factor), highest_float_precision) ||
        !walk.data_holds(named("numViews", entries), entries, /*fewest_bits=*/35) ||
        !walk.grow(entries, info.intrinsic_params)) {
        return false;
    }
    for (unsigned int i = 0; i < entries; ++i) {
        auto& params = info.intrinsic_params[i];
        walk.u(1, named("sign_focal_length_x", params.focal_length_x.sign, {{i}, 1}));
        float_of_precision(walk, params.focal_length_x, info.prec_focal_length,
                           "exponent_focal_length_x", "mantissa_focal_length_x", {{i}, 1});
        walk.u(1, named("sign_focal_length_y", params.focal_length_y.sign, {{i}, 1}));
        float_of_precision(walk, params.focal_length_y, info.prec_focal_length,
                           "exponent_focal_length_y", "mantissa_focal_length_y", {{i}, 1});
        walk.u(1, named("sign_principal_point_x", params.principal_point_x.sign, {{i}, 1}));
        float_of_precision(walk, params.principal_point_x, info.prec_principal_point,
                           "exponent_principal_point_x", "mantissa_principal_point_x", {{i}, 1});
        walk.u(1, named("sign_principal_point_y", params.principal_point_y.sign, {{i}, 1}));
        float_of_precision(walk, params.principal_point_y, info.prec_principal_point,
                           "exponent_principal_point_y", "mantissa_principal_point_y", {{i}, 1});
        walk.u(1, named("sign_skew_factor", params.skew_factor.sign, {{i}, 1}));
        float_of_precision(walk, params.skew_factor, info.prec_skew_factor, "exponent_skew_factor",
                           "mantissa_skew_factor", {{i}, 1});
    }
    return true;
}

template <class Walker>
[[nodiscard]] bool extrinsic_params(Walker& walk, h265_nal_sei_multiview_acquisition_info& info,
                                    unsigned int views) {
    walk.ue(ELEMENT(info, prec_rotation_param), up_to(highest_float_precision));
    walk.ue(ELEMENT(info, prec_translation_param), up_to(highest_float_precision));
    if (!walk.at_most(ELEMENT(info, prec_rotation_param), highest_float_precision) ||
        !walk.at_most(ELEMENT(info, prec_translation_param), highest_float_precision) ||
        !walk.data_holds(named("numViews", views), views, /*fewest_bits=*/84) ||
        !walk.grow(views, info.extrinsic_params)) {
        return false;
    }
    for (unsigned int i = 0; i < views; ++i) {
        auto& params = info.extrinsic_params[i];
        for (unsigned int j = 0; j < 3; ++j) {
            for (unsigned int k = 0; k < 3; ++k) {
                walk.u(1, named("sign_r", params.r[j][k].sign, {{i, j, k}, 3}));
                float_of_precision(walk, params.r[j][k], info.prec_rotation_param, "exponent_r",
                                   "mantissa_r", {{i, j, k}, 3});
            }
            walk.u(1, named("sign_t", params.t[j].sign, {{i, j}, 2}));
            float_of_precision(walk, params.t[j], info.prec_translation_param, "exponent_t",
                               "mantissa_t", {{i, j}, 2});
        }
    }
    return true;
}

// multiview_acquisition_info(), clause G.14.2.
template <class Walker>
[[nodiscard]] bool payload_syntax(Walker& walk, h265_nal_sei_multiview_acquisition_info& info,
                                  const sei_context& context) {
    walk.u(1, ELEMENT(info, intrinsic_param_flag));
    walk.u(1, ELEMENT(info, extrinsic_param_flag));
    if (info.intrinsic_param_flag && !intrinsic_params(walk, info, context.views)) {
        return false;
    }
    if (info.extrinsic_param_flag && !extrinsic_params(walk, info, context.views)) {
        return false;
    }
    return walk.finish(info.valid);
}

}  // namespace kovran

#endif  // KOVRAN_SRC_H265_SEI_H265_NAL_SEI_MULTIVIEW_ACQUISITION_INFO_SYNTAX_H
