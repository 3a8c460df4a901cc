#ifndef KOVRAN_SRC_H265_SEI_H265_NAL_SEI_CUBEMAP_PROJECTION_SYNTAX_H
#define KOVRAN_SRC_H265_SEI_H265_NAL_SEI_CUBEMAP_PROJECTION_SYNTAX_H

#include <kovran/h265/sei/h265_nal_sei_cubemap_projection.h>

#include "h2645_common/element.h"
#include "h265/sei/sei_context.h"

namespace kovran {

// cubemap_projection(), clause D.2.41.
template <class Walker>
[[nodiscard]] bool payload_syntax(Walker& walk, h265_nal_sei_cubemap_projection& projection,
                                  const sei_context& /*context*/) {
    walk.u(1, ELEMENT(projection, cmp_cancel_flag));
    if (!projection.cmp_cancel_flag) {
        walk.u(1, ELEMENT(projection, cmp_persistence_flag));
    }
    return walk.finish(projection.valid);
}

}  // namespace kovran

#endif  // KOVRAN_SRC_H265_SEI_H265_NAL_SEI_CUBEMAP_PROJECTION_SYNTAX_H
