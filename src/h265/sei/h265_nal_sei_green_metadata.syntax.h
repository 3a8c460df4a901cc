#ifndef KOVRAN_SRC_H265_SEI_H265_NAL_SEI_GREEN_METADATA_SYNTAX_H
#define KOVRAN_SRC_H265_SEI_H265_NAL_SEI_GREEN_METADATA_SYNTAX_H

#include <kovran/h265/sei/h265_nal_sei_green_metadata.h>

#include "h2645_common/element.h"
#include "h265/sei/sei_context.h"

namespace kovran {

template <class Walker>
void green_metadata_complexity(Walker& walk, h265_nal_sei_green_metadata& green) {
    walk.u(8, ELEMENT(green, period_type));
    if (green.period_type == 2) {
        walk.u(16, ELEMENT(green, num_seconds));
    } else if (green.period_type == 3) {
        walk.u(16, ELEMENT(green, num_pictures));
    }
    walk.u(8, ELEMENT(green, portion_non_zero_blocks_area));
    if (green.portion_non_zero_blocks_area != 0) {
        walk.u(8, ELEMENT(green, portion_8x8_blocks_in_non_zero_area));
        walk.u(8, ELEMENT(green, portion_16x16_blocks_in_non_zero_area));
        walk.u(8, ELEMENT(green, portion_32x32_blocks_in_non_zero_area));
    }
    walk.u(8, ELEMENT(green, portion_intra_predicted_blocks_area));
    if (green.portion_intra_predicted_blocks_area == 255) {
        walk.u(8, ELEMENT(green, portion_planar_blocks_in_intra_area));
        walk.u(8, ELEMENT(green, portion_dc_blocks_in_intra_area));
        walk.u(8, ELEMENT(green, portion_angular_hv_blocks_in_intra_area));
    } else {
        walk.u(8, ELEMENT(green, portion_blocks_a_c_d_n_filterings));
        walk.u(8, ELEMENT(green, portion_blocks_h_b_filterings));
        walk.u(8, ELEMENT(green, portion_blocks_f_i_k_q_filterings));
        walk.u(8, ELEMENT(green, portion_blocks_j_filterings));
        walk.u(8, ELEMENT(green, portion_blocks_e_g_p_r_filterings));
    }
    walk.u(8, ELEMENT(green, portion_deblocking_instances));
}

// green_metadata(), clause D.2.18.
template <class Walker>
[[nodiscard]] bool payload_syntax(Walker& walk, h265_nal_sei_green_metadata& green,
                                  const sei_context& /*context*/) {
    walk.u(8, ELEMENT(green, green_metadata_type));
    if (green.green_metadata_type == 0) {
        green_metadata_complexity(walk, green);
    } else if (green.green_metadata_type == 1) {
        walk.u(8, ELEMENT(green, xsd_metric_type));
        walk.u(16, ELEMENT(green, xsd_metric_value));
    }
    return walk.finish(green.valid);
}

}  // namespace kovran

#endif  // KOVRAN_SRC_H265_SEI_H265_NAL_SEI_GREEN_METADATA_SYNTAX_H
