#ifndef KOVRAN_SRC_H265_SEI_H265_NAL_SEI_PHASE_INDICATION_SYNTAX_H
#define KOVRAN_SRC_H265_SEI_H265_NAL_SEI_PHASE_INDICATION_SYNTAX_H

#include <kovran/h265/sei/h265_nal_sei_phase_indication.h>

#include "h2645_common/element.h"
#include "h265/sei/sei_context.h"

namespace kovran {

// phase_indication(), Annex D.
template <class Walker>
[[nodiscard]] bool payload_syntax(Walker& walk, h265_nal_sei_phase_indication& indication,
                                  const sei_context& /*context*/) {
    walk.u(8, ELEMENT(indication, pi_hor_phase_num));
    walk.u(8, ELEMENT(indication, pi_hor_phase_den_minus1));
    walk.u(8, ELEMENT(indication, pi_ver_phase_num));
    walk.u(8, ELEMENT(indication, pi_ver_phase_den_minus1));
    return walk.finish(indication.valid);
}

}  // namespace kovran

#endif  // KOVRAN_SRC_H265_SEI_H265_NAL_SEI_PHASE_INDICATION_SYNTAX_H
