#ifndef KOVRAN_SRC_H265_SEI_H265_NAL_SEI_PROGRESSIVE_REFINEMENT_SEGMENT_END_SYNTAX_H
#define KOVRAN_SRC_H265_SEI_H265_NAL_SEI_PROGRESSIVE_REFINEMENT_SEGMENT_END_SYNTAX_H

#include <kovran/h265/sei/h265_nal_sei_progressive_refinement_segment_end.h>

#include "h2645_common/element.h"
#include "h265/sei/sei_context.h"

namespace kovran {

// progressive_refinement_segment_end(), clause D.2.12.
template <class Walker>
[[nodiscard]] bool payload_syntax(Walker& walk,
                                  h265_nal_sei_progressive_refinement_segment_end& refinement,
                                  const sei_context& /*context*/) {
    walk.ue(ELEMENT(refinement, progressive_refinement_id));
    return walk.finish(refinement.valid);
}

}  // namespace kovran

#endif  // KOVRAN_SRC_H265_SEI_H265_NAL_SEI_PROGRESSIVE_REFINEMENT_SEGMENT_END_SYNTAX_H
