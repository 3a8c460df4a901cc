#ifndef KOVRAN_SRC_H265_SEI_H265_NAL_SEI_EQUIRECTANGULAR_PROJECTION_SYNTAX_H
#define KOVRAN_SRC_H265_SEI_H265_NAL_SEI_EQUIRECTANGULAR_PROJECTION_SYNTAX_H

#include <kovran/h265/sei/h265_nal_sei_equirectangular_projection.h>

#include "h2645_common/element.h"
#include "h265/sei/sei_context.h"

namespace kovran {

// equirectangular_projection(), clause D.2.41.
template <class Walker>
[[nodiscard]] bool payload_syntax(Walker& walk, h265_nal_sei_equirectangular_projection& projection,
                                  const sei_context& /*context*/) {
    walk.u(1, ELEMENT(projection, erp_cancel_flag));
    if (!projection.erp_cancel_flag) {
        walk.u(1, ELEMENT(projection, erp_persistence_flag));
        walk.u(1, ELEMENT(projection, erp_guard_band_flag));
        walk.skip(2, "erp_reserved_zero_2bits");
        if (projection.erp_guard_band_flag) {
            walk.u(3, ELEMENT(projection, erp_guard_band_type));
            walk.u(8, ELEMENT(projection, erp_left_guard_band_width));
            walk.u(8, ELEMENT(projection, erp_right_guard_band_width));
        }
    }
    return walk.finish(projection.valid);
}

}  // namespace kovran

#endif  // KOVRAN_SRC_H265_SEI_H265_NAL_SEI_EQUIRECTANGULAR_PROJECTION_SYNTAX_H
