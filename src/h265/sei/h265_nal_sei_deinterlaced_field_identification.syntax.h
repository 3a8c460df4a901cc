#ifndef KOVRAN_SRC_H265_SEI_H265_NAL_SEI_DEINTERLACED_FIELD_IDENTIFICATION_SYNTAX_H
#define KOVRAN_SRC_H265_SEI_H265_NAL_SEI_DEINTERLACED_FIELD_IDENTIFICATION_SYNTAX_H

#include <kovran/h265/sei/h265_nal_sei_deinterlaced_field_identification.h>

#include "h2645_common/element.h"
#include "h265/sei/sei_context.h"

namespace kovran {

// deinterlaced_field_identification(), clause D.2.34.
template <class Walker>
[[nodiscard]] bool payload_syntax(Walker& walk,
                                  h265_nal_sei_deinterlaced_field_identification& field,
                                  const sei_context& /*context*/) {
    walk.u(1, ELEMENT(field, deinterlaced_picture_source_parity_flag));
    return walk.finish(field.valid);
}

}  // namespace kovran

#endif  // KOVRAN_SRC_H265_SEI_H265_NAL_SEI_DEINTERLACED_FIELD_IDENTIFICATION_SYNTAX_H
