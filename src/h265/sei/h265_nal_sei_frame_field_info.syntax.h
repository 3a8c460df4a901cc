#ifndef KOVRAN_SRC_H265_SEI_H265_NAL_SEI_FRAME_FIELD_INFO_SYNTAX_H
#define KOVRAN_SRC_H265_SEI_H265_NAL_SEI_FRAME_FIELD_INFO_SYNTAX_H

#include <kovran/h265/sei/h265_nal_sei_frame_field_info.h>

#include "h2645_common/element.h"
#include "h2645_common/value_range.h"
#include "h265/sei/sei_context.h"

namespace kovran {

// frame_field_info(), clause F.14.2.
template <class Walker>
[[nodiscard]] bool payload_syntax(Walker& walk, h265_nal_sei_frame_field_info& info,
                                  const sei_context& /*context*/) {
    walk.u(4, ELEMENT(info, ffinfo_pic_struct), up_to(12));
    walk.u(2, ELEMENT(info, ffinfo_source_scan_type), up_to(2));
    walk.u(1, ELEMENT(info, ffinfo_duplicate_flag));
    return walk.finish(info.valid);
}

}  // namespace kovran

#endif  // KOVRAN_SRC_H265_SEI_H265_NAL_SEI_FRAME_FIELD_INFO_SYNTAX_H
