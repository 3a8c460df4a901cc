#ifndef KOVRAN_SRC_H265_SEI_H265_NAL_SEI_ALPHA_CHANNEL_INFO_SYNTAX_H
#define KOVRAN_SRC_H265_SEI_H265_NAL_SEI_ALPHA_CHANNEL_INFO_SYNTAX_H

#include <kovran/h265/sei/h265_nal_sei_alpha_channel_info.h>

#include "h2645_common/element.h"
#include "h265/sei/sei_context.h"

namespace kovran {

// alpha_channel_info(), clause F.14.2.
template <class Walker>
[[nodiscard]] bool payload_syntax(Walker& walk, h265_nal_sei_alpha_channel_info& alpha,
                                  const sei_context& /*context*/) {
    walk.u(1, ELEMENT(alpha, alpha_channel_cancel_flag));
    if (!alpha.alpha_channel_cancel_flag) {
        walk.u(3, ELEMENT(alpha, alpha_channel_use_idc));
        walk.u(3, ELEMENT(alpha, alpha_channel_bit_depth_minus8));
        const auto width = static_cast<unsigned char>(alpha.alpha_channel_bit_depth_minus8 + 9);
        walk.u_v(width, ELEMENT(alpha, alpha_transparent_value));
        walk.u_v(width, ELEMENT(alpha, alpha_opaque_value));
        walk.u(1, ELEMENT(alpha, alpha_channel_incr_flag));
        walk.u(1, ELEMENT(alpha, alpha_channel_clip_flag));
        if (alpha.alpha_channel_clip_flag) {
            walk.u(1, ELEMENT(alpha, alpha_channel_clip_type_flag));
        }
    }
    return walk.finish(alpha.valid);
}

}  // namespace kovran

#endif  // KOVRAN_SRC_H265_SEI_H265_NAL_SEI_ALPHA_CHANNEL_INFO_SYNTAX_H
