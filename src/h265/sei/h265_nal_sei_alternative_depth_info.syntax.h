#ifndef KOVRAN_SRC_H265_SEI_H265_NAL_SEI_ALTERNATIVE_DEPTH_INFO_SYNTAX_H
#define KOVRAN_SRC_H265_SEI_H265_NAL_SEI_ALTERNATIVE_DEPTH_INFO_SYNTAX_H

#include <kovran/h265/sei/h265_nal_sei_alternative_depth_info.h>

#include "h2645_common/element.h"
#include "h2645_common/value_range.h"
#include "h265/sei/h265_float_value.syntax.h"
#include "h265/sei/sei_context.h"
#include "h265/start_afresh.h"

#include <algorithm>
#include <cstddef>

namespace kovran {

inline void start_afresh(h265_nal_sei_alternative_depth_info& record) {
    auto& [alternative_depth_info_cancel_flag, depth_type, num_constituent_views_gvd_minus1,
           depth_present_gvd_flag, z_gvd_flag, intrinsic_param_gvd_flag, rotation_gvd_flag,
           translation_gvd_flag, prec_gvd_focal_length, prec_gvd_principal_point,
           prec_gvd_rotation_param, prec_gvd_translation_param, gvd_z, gvd_intrinsic_params, gvd_r,
           gvd_t_x, min_offset_x_int, min_offset_x_frac, max_offset_x_int, max_offset_x_frac,
           offset_y_present_flag, min_offset_y_int, min_offset_y_frac, max_offset_y_int,
           max_offset_y_frac, warp_map_size_present_flag, warp_map_width_minus2,
           warp_map_height_minus2, valid] = record;
    start_all_afresh(alternative_depth_info_cancel_flag, depth_type,
                     num_constituent_views_gvd_minus1, depth_present_gvd_flag, z_gvd_flag,
                     intrinsic_param_gvd_flag, rotation_gvd_flag, translation_gvd_flag,
                     prec_gvd_focal_length, prec_gvd_principal_point, prec_gvd_rotation_param,
                     prec_gvd_translation_param, gvd_z, gvd_intrinsic_params, gvd_r, gvd_t_x,
                     min_offset_x_int, min_offset_x_frac, max_offset_x_int, max_offset_x_frac,
                     offset_y_present_flag, min_offset_y_int, min_offset_y_frac, max_offset_y_int,
                     max_offset_y_frac, warp_map_size_present_flag, warp_map_width_minus2,
                     warp_map_height_minus2, valid);
}

// The precisions of mantissas, for those values that are there.
template <class Walker>
[[nodiscard]] bool gvd_precisions(Walker& walk, h265_nal_sei_alternative_depth_info& info) {
    if (info.intrinsic_param_gvd_flag) {
        walk.ue(ELEMENT(info, prec_gvd_focal_length), up_to(highest_float_precision));
        walk.ue(ELEMENT(info, prec_gvd_principal_point), up_to(highest_float_precision));
    }
    if (info.rotation_gvd_flag) {
        walk.ue(ELEMENT(info, prec_gvd_rotation_param), up_to(highest_float_precision));
    }
    if (info.translation_gvd_flag) {
        walk.ue(ELEMENT(info, prec_gvd_translation_param), up_to(highest_float_precision));
    }
    return walk.at_most(ELEMENT(info, prec_gvd_focal_length), highest_float_precision) &&
           walk.at_most(ELEMENT(info, prec_gvd_principal_point), highest_float_precision) &&
           walk.at_most(ELEMENT(info, prec_gvd_rotation_param), highest_float_precision) &&
           walk.at_most(ELEMENT(info, prec_gvd_translation_param), highest_float_precision);
}

template <class Walker>
void gvd_z_range(Walker& walk, h265_nal_sei_alternative_depth_info::z_range_t& range,
                 unsigned int i) {
    walk.u(1, named("sign_gvd_z_near_flag", range.z_near.sign, {{i}, 1}));
    float_of_coded_length(walk, range.z_near, "exp_gvd_z_near", "man_len_gvd_z_near_minus1",
                          "man_gvd_z_near", {{i}, 1});
    walk.u(1, named("sign_gvd_z_far_flag", range.z_far.sign, {{i}, 1}));
    float_of_coded_length(walk, range.z_far, "exp_gvd_z_far", "man_len_gvd_z_far_minus1",
                          "man_gvd_z_far", {{i}, 1});
}

template <class Walker>
void gvd_intrinsic_params(Walker& walk, h265_nal_sei_alternative_depth_info& info, unsigned int i) {
    auto& params = info.gvd_intrinsic_params[i];
    walk.u(1, named("sign_gvd_focal_length_x", params.focal_length_x.sign, {{i}, 1}));
    float_of_precision(walk, params.focal_length_x, info.prec_gvd_focal_length,
                       "exp_gvd_focal_length_x", "man_gvd_focal_length_x", {{i}, 1});
    walk.u(1, named("sign_gvd_focal_length_y", params.focal_length_y.sign, {{i}, 1}));
    float_of_precision(walk, params.focal_length_y, info.prec_gvd_focal_length,
                       "exp_gvd_focal_length_y", "man_gvd_focal_length_y", {{i}, 1});
    walk.u(1, named("sign_gvd_principal_point_x", params.principal_point_x.sign, {{i}, 1}));
    float_of_precision(walk, params.principal_point_x, info.prec_gvd_principal_point,
                       "exp_gvd_principal_point_x", "man_gvd_principal_point_x", {{i}, 1});
    walk.u(1, named("sign_gvd_principal_point_y", params.principal_point_y.sign, {{i}, 1}));
    float_of_precision(walk, params.principal_point_y, info.prec_gvd_principal_point,
                       "exp_gvd_principal_point_y", "man_gvd_principal_point_y", {{i}, 1});
}

template <class Walker>
void gvd_rotation(Walker& walk, h265_nal_sei_alternative_depth_info& info, unsigned int i) {
    for (unsigned int j = 0; j < 3; ++j) {
        for (unsigned int k = 0; k < 3; ++k) {
            h265_float_value& value = info.gvd_r[i][j][k];
            walk.u(1, named("sign_gvd_r", value.sign, {{i, j, k}, 3}));
            float_of_precision(walk, value, info.prec_gvd_rotation_param, "exp_gvd_r", "man_gvd_r",
                               {{i, j, k}, 3});
        }
    }
}

// Arrays for those values of views that are there.
template <class Walker>
[[nodiscard]] bool grow_gvd_views(Walker& walk, h265_nal_sei_alternative_depth_info& info,
                                  std::size_t views) {
    const unsigned int fewest_bits =
        (info.z_gvd_flag ? 2U * 14 : 0U) + (info.intrinsic_param_gvd_flag ? 4U * 7 : 0U) +
        (info.rotation_gvd_flag ? 9U * 7 : 0U) + (info.translation_gvd_flag ? 7U : 0U);
    if (fewest_bits == 0) {
        return true;
    }
    return walk.data_holds(ELEMENT(info, num_constituent_views_gvd_minus1), views, fewest_bits) &&
           (!info.z_gvd_flag || walk.grow(views, info.gvd_z)) &&
           (!info.intrinsic_param_gvd_flag || walk.grow(views, info.gvd_intrinsic_params)) &&
           (!info.rotation_gvd_flag || walk.grow(views, info.gvd_r)) &&
           (!info.translation_gvd_flag || walk.grow(views, info.gvd_t_x));
}

template <class Walker>
[[nodiscard]] bool global_view_and_depth(Walker& walk, h265_nal_sei_alternative_depth_info& info) {
    walk.ue(ELEMENT(info, num_constituent_views_gvd_minus1));
    walk.u(1, ELEMENT(info, depth_present_gvd_flag));
    walk.u(1, ELEMENT(info, z_gvd_flag));
    walk.u(1, ELEMENT(info, intrinsic_param_gvd_flag));
    walk.u(1, ELEMENT(info, rotation_gvd_flag));
    walk.u(1, ELEMENT(info, translation_gvd_flag));
    if (!grow_gvd_views(walk, info, std::size_t{info.num_constituent_views_gvd_minus1} + 2)) {
        return false;
    }
    for (unsigned int i = 0; i < info.gvd_z.size(); ++i) {
        gvd_z_range(walk, info.gvd_z[i], i);
    }
    if (!gvd_precisions(walk, info)) {
        return false;
    }
    const std::size_t views =
        std::max({info.gvd_intrinsic_params.size(), info.gvd_r.size(), info.gvd_t_x.size()});
    for (unsigned int i = 0; i < views; ++i) {
        if (info.intrinsic_param_gvd_flag) {
            gvd_intrinsic_params(walk, info, i);
        }
        if (info.rotation_gvd_flag) {
            gvd_rotation(walk, info, i);
        }
        if (info.translation_gvd_flag) {
            walk.u(1, named("sign_gvd_t_x", info.gvd_t_x[i].sign, {{i}, 1}));
            float_of_precision(walk, info.gvd_t_x[i], info.prec_gvd_translation_param,
                               "exp_gvd_t_x", "man_gvd_t_x", {{i}, 1});
        }
    }
    return true;
}

template <class Walker>
void warp_map(Walker& walk, h265_nal_sei_alternative_depth_info& info) {
    walk.se(ELEMENT(info, min_offset_x_int));
    walk.u(8, ELEMENT(info, min_offset_x_frac));
    walk.se(ELEMENT(info, max_offset_x_int));
    walk.u(8, ELEMENT(info, max_offset_x_frac));
    walk.u(1, ELEMENT(info, offset_y_present_flag));
    if (info.offset_y_present_flag) {
        walk.se(ELEMENT(info, min_offset_y_int));
        walk.u(8, ELEMENT(info, min_offset_y_frac));
        walk.se(ELEMENT(info, max_offset_y_int));
        walk.u(8, ELEMENT(info, max_offset_y_frac));
    }
    walk.u(1, ELEMENT(info, warp_map_size_present_flag));
    if (info.warp_map_size_present_flag) {
        walk.ue(ELEMENT(info, warp_map_width_minus2));
        walk.ue(ELEMENT(info, warp_map_height_minus2));
    }
}

// alternative_depth_info(), clause I.14.2.
template <class Walker>
[[nodiscard]] bool payload_syntax(Walker& walk, h265_nal_sei_alternative_depth_info& info,
                                  const sei_context& /*context*/) {
    walk.u(1, ELEMENT(info, alternative_depth_info_cancel_flag));
    if (!info.alternative_depth_info_cancel_flag) {
        walk.u(2, ELEMENT(info, depth_type));
        if (info.depth_type == 0 && !global_view_and_depth(walk, info)) {
            return false;
        }
        if (info.depth_type == 1) {
            warp_map(walk, info);
        }
    }
    return walk.finish(info.valid);
}

}  // namespace kovran

#endif  // KOVRAN_SRC_H265_SEI_H265_NAL_SEI_ALTERNATIVE_DEPTH_INFO_SYNTAX_H
