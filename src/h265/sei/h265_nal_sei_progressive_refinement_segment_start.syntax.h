#ifndef KOVRAN_SRC_H265_SEI_H265_NAL_SEI_PROGRESSIVE_REFINEMENT_SEGMENT_START_SYNTAX_H
#define KOVRAN_SRC_H265_SEI_H265_NAL_SEI_PROGRESSIVE_REFINEMENT_SEGMENT_START_SYNTAX_H

#include <kovran/h265/sei/h265_nal_sei_progressive_refinement_segment_start.h>

#include "h2645_common/element.h"
#include "h265/sei/sei_context.h"

namespace kovran {

// progressive_refinement_segment_start(), clause D.2.11.
template <class Walker>
[[nodiscard]] bool payload_syntax(Walker& walk,
                                  h265_nal_sei_progressive_refinement_segment_start& refinement,
                                  const sei_context& /*context*/) {
    walk.ue(ELEMENT(refinement, progressive_refinement_id));
    walk.ue(ELEMENT(refinement, pic_order_cnt_delta));
    return walk.finish(refinement.valid);
}

}  // namespace kovran

#endif  // KOVRAN_SRC_H265_SEI_H265_NAL_SEI_PROGRESSIVE_REFINEMENT_SEGMENT_START_SYNTAX_H
