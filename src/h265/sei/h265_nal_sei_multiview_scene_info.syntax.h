#ifndef KOVRAN_SRC_H265_SEI_H265_NAL_SEI_MULTIVIEW_SCENE_INFO_SYNTAX_H
#define KOVRAN_SRC_H265_SEI_H265_NAL_SEI_MULTIVIEW_SCENE_INFO_SYNTAX_H

#include <kovran/h265/sei/h265_nal_sei_multiview_scene_info.h>

#include "h2645_common/element.h"
#include "h2645_common/value_range.h"
#include "h265/sei/sei_context.h"

namespace kovran {

// multiview_scene_info(), clause G.14.2.
template <class Walker>
[[nodiscard]] bool payload_syntax(Walker& walk, h265_nal_sei_multiview_scene_info& info,
                                  const sei_context& /*context*/) {
    walk.se(ELEMENT(info, min_disparity), between(-1024, 1023));
    walk.ue(ELEMENT(info, max_disparity_range), up_to(2047));
    return walk.finish(info.valid);
}

}  // namespace kovran

#endif  // KOVRAN_SRC_H265_SEI_H265_NAL_SEI_MULTIVIEW_SCENE_INFO_SYNTAX_H
