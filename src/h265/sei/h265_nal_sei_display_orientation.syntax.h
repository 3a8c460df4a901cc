#ifndef KOVRAN_SRC_H265_SEI_H265_NAL_SEI_DISPLAY_ORIENTATION_SYNTAX_H
#define KOVRAN_SRC_H265_SEI_H265_NAL_SEI_DISPLAY_ORIENTATION_SYNTAX_H

#include <kovran/h265/sei/h265_nal_sei_display_orientation.h>

#include "h2645_common/element.h"
#include "h265/sei/sei_context.h"

namespace kovran {

// display_orientation(), clause D.2.17.
template <class Walker>
[[nodiscard]] bool payload_syntax(Walker& walk, h265_nal_sei_display_orientation& orientation,
                                  const sei_context& /*context*/) {
    walk.u(1, ELEMENT(orientation, display_orientation_cancel_flag));
    if (!orientation.display_orientation_cancel_flag) {
        walk.u(1, ELEMENT(orientation, hor_flip));
        walk.u(1, ELEMENT(orientation, ver_flip));
        walk.u(16, ELEMENT(orientation, anticlockwise_rotation));
        walk.u(1, ELEMENT(orientation, display_orientation_persistence_flag));
    }
    return walk.finish(orientation.valid);
}

}  // namespace kovran

#endif  // KOVRAN_SRC_H265_SEI_H265_NAL_SEI_DISPLAY_ORIENTATION_SYNTAX_H
