#ifndef KOVRAN_SRC_H265_SEI_H265_NAL_SEI_FRAME_PACKING_ARRANGEMENT_SYNTAX_H
#define KOVRAN_SRC_H265_SEI_H265_NAL_SEI_FRAME_PACKING_ARRANGEMENT_SYNTAX_H

#include <kovran/h265/sei/h265_nal_sei_frame_packing_arrangement.h>

#include "h2645_common/element.h"
#include "h265/sei/sei_context.h"

namespace kovran {

template <class Walker>
void frame_packing_layout(Walker& walk, h265_nal_sei_frame_packing_arrangement& packing) {
    constexpr unsigned char temporal_interleaving = 5;  // table D.8
    walk.u(7, ELEMENT(packing, frame_packing_arrangement_type));
    walk.u(1, ELEMENT(packing, quincunx_sampling_flag));
    walk.u(6, ELEMENT(packing, content_interpretation_type));
    walk.u(1, ELEMENT(packing, spatial_flipping_flag));
    walk.u(1, ELEMENT(packing, frame0_flipped_flag));
    walk.u(1, ELEMENT(packing, field_views_flag));
    walk.u(1, ELEMENT(packing, current_frame_is_frame0_flag));
    walk.u(1, ELEMENT(packing, frame0_self_contained_flag));
    walk.u(1, ELEMENT(packing, frame1_self_contained_flag));
    if (!packing.quincunx_sampling_flag &&
        packing.frame_packing_arrangement_type != temporal_interleaving) {
        walk.u(4, ELEMENT(packing, frame0_grid_position_x));
        walk.u(4, ELEMENT(packing, frame0_grid_position_y));
        walk.u(4, ELEMENT(packing, frame1_grid_position_x));
        walk.u(4, ELEMENT(packing, frame1_grid_position_y));
    }
    walk.u(8, ELEMENT(packing, frame_packing_arrangement_reserved_byte));
    walk.u(1, ELEMENT(packing, frame_packing_arrangement_persistence_flag));
}

// frame_packing_arrangement(), clause D.2.16.
template <class Walker>
[[nodiscard]] bool payload_syntax(Walker& walk, h265_nal_sei_frame_packing_arrangement& packing,
                                  const sei_context& /*context*/) {
    walk.ue(ELEMENT(packing, frame_packing_arrangement_id));
    walk.u(1, ELEMENT(packing, frame_packing_arrangement_cancel_flag));
    if (!packing.frame_packing_arrangement_cancel_flag) {
        frame_packing_layout(walk, packing);
    }
    walk.u(1, ELEMENT(packing, upsampled_aspect_ratio_flag));
    return walk.finish(packing.valid);
}

}  // namespace kovran

#endif  // KOVRAN_SRC_H265_SEI_H265_NAL_SEI_FRAME_PACKING_ARRANGEMENT_SYNTAX_H
