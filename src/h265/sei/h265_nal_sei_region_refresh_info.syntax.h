#ifndef KOVRAN_SRC_H265_SEI_H265_NAL_SEI_REGION_REFRESH_INFO_SYNTAX_H
#define KOVRAN_SRC_H265_SEI_H265_NAL_SEI_REGION_REFRESH_INFO_SYNTAX_H

#include <kovran/h265/sei/h265_nal_sei_region_refresh_info.h>

#include "h2645_common/element.h"
#include "h265/sei/sei_context.h"

namespace kovran {

// region_refresh_info(), clause D.2.25.
template <class Walker>
[[nodiscard]] bool payload_syntax(Walker& walk, h265_nal_sei_region_refresh_info& refresh,
                                  const sei_context& /*context*/) {
    walk.u(1, ELEMENT(refresh, refreshed_region_flag));
    return walk.finish(refresh.valid);
}

}  // namespace kovran

#endif  // KOVRAN_SRC_H265_SEI_H265_NAL_SEI_REGION_REFRESH_INFO_SYNTAX_H
