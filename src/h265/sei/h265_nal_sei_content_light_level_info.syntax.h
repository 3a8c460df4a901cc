#ifndef KOVRAN_SRC_H265_SEI_H265_NAL_SEI_CONTENT_LIGHT_LEVEL_INFO_SYNTAX_H
#define KOVRAN_SRC_H265_SEI_H265_NAL_SEI_CONTENT_LIGHT_LEVEL_INFO_SYNTAX_H

#include <kovran/h265/sei/h265_nal_sei_content_light_level_info.h>

#include "h2645_common/element.h"
#include "h265/sei/sei_context.h"

namespace kovran {

// content_light_level_info(), clause D.2.35.
template <class Walker>
[[nodiscard]] bool payload_syntax(Walker& walk, h265_nal_sei_content_light_level_info& light,
                                  const sei_context& /*context*/) {
    walk.u(16, ELEMENT(light, max_content_light_level));
    walk.u(16, ELEMENT(light, max_pic_average_light_level));
    return walk.finish(light.valid);
}

}  // namespace kovran

#endif  // KOVRAN_SRC_H265_SEI_H265_NAL_SEI_CONTENT_LIGHT_LEVEL_INFO_SYNTAX_H
