#ifndef KOVRAN_SRC_H265_SEI_H265_NAL_SEI_RECOVERY_POINT_SYNTAX_H
#define KOVRAN_SRC_H265_SEI_H265_NAL_SEI_RECOVERY_POINT_SYNTAX_H

#include <kovran/h265/sei/h265_nal_sei_recovery_point.h>

#include "h2645_common/element.h"
#include "h2645_common/value_range.h"
#include "h265/sei/sei_context.h"

namespace kovran {

// recovery_point(), clause D.2.8.
template <class Walker>
[[nodiscard]] bool payload_syntax(Walker& walk, h265_nal_sei_recovery_point& point,
                                  const sei_context& /*context*/) {
    walk.se(ELEMENT(point, recovery_poc_cnt), between(-32768, 32767));
    walk.u(1, ELEMENT(point, exact_match_flag));
    walk.u(1, ELEMENT(point, broken_link_flag));
    return walk.finish(point.valid);
}

}  // namespace kovran

#endif  // KOVRAN_SRC_H265_SEI_H265_NAL_SEI_RECOVERY_POINT_SYNTAX_H
