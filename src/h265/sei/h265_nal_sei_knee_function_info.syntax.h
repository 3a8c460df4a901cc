#ifndef KOVRAN_SRC_H265_SEI_H265_NAL_SEI_KNEE_FUNCTION_INFO_SYNTAX_H
#define KOVRAN_SRC_H265_SEI_H265_NAL_SEI_KNEE_FUNCTION_INFO_SYNTAX_H

#include <kovran/h265/sei/h265_nal_sei_knee_function_info.h>

#include "h2645_common/element.h"
#include "h2645_common/value_range.h"
#include "h265/sei/sei_context.h"
#include "h265/start_afresh.h"

#include <cstddef>

namespace kovran {

inline void start_afresh(h265_nal_sei_knee_function_info& record) {
    auto& [knee_function_id, knee_function_cancel_flag, knee_function_persistence_flag,
           input_d_range, input_disp_luminance, output_d_range, output_disp_luminance,
           num_knee_points_minus1, input_knee_point, output_knee_point, valid] = record;
    start_all_afresh(knee_function_id, knee_function_cancel_flag, knee_function_persistence_flag,
                     input_d_range, input_disp_luminance, output_d_range, output_disp_luminance,
                     num_knee_points_minus1, input_knee_point, output_knee_point, valid);
}

template <class Walker>
[[nodiscard]] bool knee_points(Walker& walk, h265_nal_sei_knee_function_info& knee) {
    walk.ue(ELEMENT(knee, num_knee_points_minus1), up_to(998));
    if (!walk.at_most(ELEMENT(knee, num_knee_points_minus1), 998U) ||
        !walk.data_holds(ELEMENT(knee, num_knee_points_minus1), knee.num_knee_points_minus1 + 1,
                         /*fewest_bits=*/20) ||
        !walk.grow(knee.num_knee_points_minus1 + 1, knee.input_knee_point,
                   knee.output_knee_point)) {
        return false;
    }
    for (std::size_t i = 0; i <= knee.num_knee_points_minus1; ++i) {
        walk.u(10, ELEMENT(knee, input_knee_point)[i], between(1, 999));
        walk.u(10, ELEMENT(knee, output_knee_point)[i], up_to(1000));
    }
    return true;
}

// knee_function_info(), clause D.2.32.
template <class Walker>
[[nodiscard]] bool payload_syntax(Walker& walk, h265_nal_sei_knee_function_info& knee,
                                  const sei_context& /*context*/) {
    walk.ue(ELEMENT(knee, knee_function_id));
    walk.u(1, ELEMENT(knee, knee_function_cancel_flag));
    if (!knee.knee_function_cancel_flag) {
        walk.u(1, ELEMENT(knee, knee_function_persistence_flag));
        walk.u(32, ELEMENT(knee, input_d_range));
        walk.u(32, ELEMENT(knee, input_disp_luminance));
        walk.u(32, ELEMENT(knee, output_d_range));
        walk.u(32, ELEMENT(knee, output_disp_luminance));
        if (!knee_points(walk, knee)) {
            return false;
        }
    }
    return walk.finish(knee.valid);
}

}  // namespace kovran

#endif  // KOVRAN_SRC_H265_SEI_H265_NAL_SEI_KNEE_FUNCTION_INFO_SYNTAX_H
