#ifndef KOVRAN_SRC_H265_SEI_H265_NAL_SEI_TEMPORAL_SUB_LAYER_ZERO_IDX_SYNTAX_H
#define KOVRAN_SRC_H265_SEI_H265_NAL_SEI_TEMPORAL_SUB_LAYER_ZERO_IDX_SYNTAX_H

#include <kovran/h265/sei/h265_nal_sei_temporal_sub_layer_zero_idx.h>

#include "h2645_common/element.h"
#include "h265/sei/sei_context.h"

namespace kovran {

// temporal_sub_layer_zero_idx(), clause D.2.23.
template <class Walker>
[[nodiscard]] bool payload_syntax(Walker& walk, h265_nal_sei_temporal_sub_layer_zero_idx& index,
                                  const sei_context& /*context*/) {
    walk.u(8, ELEMENT(index, temporal_sub_layer_zero_idx));
    walk.u(8, ELEMENT(index, irap_pic_id));
    return walk.finish(index.valid);
}

}  // namespace kovran

#endif  // KOVRAN_SRC_H265_SEI_H265_NAL_SEI_TEMPORAL_SUB_LAYER_ZERO_IDX_SYNTAX_H
