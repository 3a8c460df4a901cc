#ifndef KOVRAN_SRC_H265_SEI_H265_NAL_SEI_DEPTH_REPRESENTATION_INFO_SYNTAX_H
#define KOVRAN_SRC_H265_SEI_H265_NAL_SEI_DEPTH_REPRESENTATION_INFO_SYNTAX_H

#include <kovran/h265/sei/h265_nal_sei_depth_representation_info.h>

#include "h2645_common/element.h"
#include "h2645_common/value_range.h"
#include "h265/sei/h265_float_value.syntax.h"
#include "h265/sei/sei_context.h"
#include "h265/start_afresh.h"

#include <cstddef>

namespace kovran {

inline void start_afresh(h265_nal_sei_depth_representation_info& record) {
    auto& [z_near_flag, z_far_flag, d_min_flag, d_max_flag, depth_representation_type,
           disparity_ref_view_id, z_near, z_far, d_min, d_max,
           depth_nonlinear_representation_num_minus1, depth_nonlinear_representation_model, valid] =
        record;
    start_all_afresh(z_near_flag, z_far_flag, d_min_flag, d_max_flag, depth_representation_type,
                     disparity_ref_view_id, z_near, z_far, d_min, d_max,
                     depth_nonlinear_representation_num_minus1,
                     depth_nonlinear_representation_model, valid);
}

// depth_rep_info_element(), clause G.14.2.
template <class Walker>
void depth_rep_info_element(Walker& walk, h265_float_value& value) {
    walk.u(1, named("da_sign_flag", value.sign));
    float_of_coded_length(walk, value, "da_exponent", "da_mantissa_len_minus1", "da_mantissa", {});
}

template <class Walker>
[[nodiscard]] bool depth_nonlinear_representation(Walker& walk,
                                                  h265_nal_sei_depth_representation_info& info) {
    walk.ue(ELEMENT(info, depth_nonlinear_representation_num_minus1));
    const std::size_t entries = std::size_t{info.depth_nonlinear_representation_num_minus1} + 1;
    if (!walk.data_holds(ELEMENT(info, depth_nonlinear_representation_num_minus1), entries,
                         /*fewest_bits=*/1) ||
        !walk.grow(entries + 1, info.depth_nonlinear_representation_model)) {
        return false;
    }
    for (std::size_t i = 1; i <= entries; ++i) {
        walk.ue(ELEMENT(info, depth_nonlinear_representation_model)[i]);
    }
    return true;
}

// depth_representation_info(), clause G.14.2.
template <class Walker>
[[nodiscard]] bool payload_syntax(Walker& walk, h265_nal_sei_depth_representation_info& info,
                                  const sei_context& /*context*/) {
    walk.u(1, ELEMENT(info, z_near_flag));
    walk.u(1, ELEMENT(info, z_far_flag));
    walk.u(1, ELEMENT(info, d_min_flag));
    walk.u(1, ELEMENT(info, d_max_flag));
    walk.ue(ELEMENT(info, depth_representation_type), up_to(3));
    if (info.d_min_flag || info.d_max_flag) {
        walk.ue(ELEMENT(info, disparity_ref_view_id));
    }
    if (info.z_near_flag) {
        depth_rep_info_element(walk, info.z_near);
    }
    if (info.z_far_flag) {
        depth_rep_info_element(walk, info.z_far);
    }
    if (info.d_min_flag) {
        depth_rep_info_element(walk, info.d_min);
    }
    if (info.d_max_flag) {
        depth_rep_info_element(walk, info.d_max);
    }
    if (info.depth_representation_type == 3 && !depth_nonlinear_representation(walk, info)) {
        return false;
    }
    return walk.finish(info.valid);
}

}  // namespace kovran

#endif  // KOVRAN_SRC_H265_SEI_H265_NAL_SEI_DEPTH_REPRESENTATION_INFO_SYNTAX_H
