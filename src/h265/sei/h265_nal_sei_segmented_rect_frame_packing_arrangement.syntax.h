#ifndef KOVRAN_SRC_H265_SEI_H265_NAL_SEI_SEGMENTED_RECT_FRAME_PACKING_ARRANGEMENT_SYNTAX_H
#define KOVRAN_SRC_H265_SEI_H265_NAL_SEI_SEGMENTED_RECT_FRAME_PACKING_ARRANGEMENT_SYNTAX_H

#include <kovran/h265/sei/h265_nal_sei_segmented_rect_frame_packing_arrangement.h>

#include "h2645_common/element.h"
#include "h265/sei/sei_context.h"

namespace kovran {

// segmented_rect_frame_packing_arrangement(), clause D.2.29.
template <class Walker>
[[nodiscard]] bool payload_syntax(Walker& walk,
                                  h265_nal_sei_segmented_rect_frame_packing_arrangement& packing,
                                  const sei_context& /*context*/) {
    walk.u(1, ELEMENT(packing, segmented_rect_frame_packing_arrangement_cancel_flag));
    if (!packing.segmented_rect_frame_packing_arrangement_cancel_flag) {
        walk.u(2, ELEMENT(packing, segmented_rect_content_interpretation_type));
        walk.u(1, ELEMENT(packing, segmented_rect_frame_packing_arrangement_persistence_flag));
    }
    return walk.finish(packing.valid);
}

}  // namespace kovran

#endif  // KOVRAN_SRC_H265_SEI_H265_NAL_SEI_SEGMENTED_RECT_FRAME_PACKING_ARRANGEMENT_SYNTAX_H
