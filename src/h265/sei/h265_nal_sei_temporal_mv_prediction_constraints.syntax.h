#ifndef KOVRAN_SRC_H265_SEI_H265_NAL_SEI_TEMPORAL_MV_PREDICTION_CONSTRAINTS_SYNTAX_H
#define KOVRAN_SRC_H265_SEI_H265_NAL_SEI_TEMPORAL_MV_PREDICTION_CONSTRAINTS_SYNTAX_H

#include <kovran/h265/sei/h265_nal_sei_temporal_mv_prediction_constraints.h>

#include "h2645_common/element.h"
#include "h265/sei/sei_context.h"

namespace kovran {

// temporal_mv_prediction_constraints(), clause F.14.2.
template <class Walker>
[[nodiscard]] bool payload_syntax(Walker& walk,
                                  h265_nal_sei_temporal_mv_prediction_constraints& constraints,
                                  const sei_context& /*context*/) {
    walk.u(1, ELEMENT(constraints, prev_pics_not_used_flag));
    walk.u(1, ELEMENT(constraints, no_intra_layer_col_pic_flag));
    return walk.finish(constraints.valid);
}

}  // namespace kovran

#endif  // KOVRAN_SRC_H265_SEI_H265_NAL_SEI_TEMPORAL_MV_PREDICTION_CONSTRAINTS_SYNTAX_H
