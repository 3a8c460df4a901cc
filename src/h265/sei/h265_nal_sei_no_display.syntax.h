#ifndef KOVRAN_SRC_H265_SEI_H265_NAL_SEI_NO_DISPLAY_SYNTAX_H
#define KOVRAN_SRC_H265_SEI_H265_NAL_SEI_NO_DISPLAY_SYNTAX_H

#include <kovran/h265/sei/h265_nal_sei_no_display.h>

#include "h2645_common/element.h"
#include "h265/sei/sei_context.h"

namespace kovran {

// no_display(), clause D.2.26.
template <class Walker>
[[nodiscard]] bool payload_syntax(Walker& walk, h265_nal_sei_no_display& no_display,
                                  const sei_context& /*context*/) {
    return walk.finish(no_display.valid);
}

}  // namespace kovran

#endif  // KOVRAN_SRC_H265_SEI_H265_NAL_SEI_NO_DISPLAY_SYNTAX_H
