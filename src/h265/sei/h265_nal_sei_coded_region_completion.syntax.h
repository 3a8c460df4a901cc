#ifndef KOVRAN_SRC_H265_SEI_H265_NAL_SEI_CODED_REGION_COMPLETION_SYNTAX_H
#define KOVRAN_SRC_H265_SEI_H265_NAL_SEI_CODED_REGION_COMPLETION_SYNTAX_H

#include <kovran/h265/sei/h265_nal_sei_coded_region_completion.h>

#include "h2645_common/element.h"
#include "h265/sei/sei_context.h"

namespace kovran {

// coded_region_completion(), clause D.2.37.
template <class Walker>
[[nodiscard]] bool payload_syntax(Walker& walk, h265_nal_sei_coded_region_completion& completion,
                                  const sei_context& /*context*/) {
    walk.ue(ELEMENT(completion, next_segment_address));
    if (completion.next_segment_address > 0) {
        walk.u(1, ELEMENT(completion, independent_slice_segment_flag));
    }
    return walk.finish(completion.valid);
}

}  // namespace kovran

#endif  // KOVRAN_SRC_H265_SEI_H265_NAL_SEI_CODED_REGION_COMPLETION_SYNTAX_H
