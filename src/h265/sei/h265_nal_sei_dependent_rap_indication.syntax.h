#ifndef KOVRAN_SRC_H265_SEI_H265_NAL_SEI_DEPENDENT_RAP_INDICATION_SYNTAX_H
#define KOVRAN_SRC_H265_SEI_H265_NAL_SEI_DEPENDENT_RAP_INDICATION_SYNTAX_H

#include <kovran/h265/sei/h265_nal_sei_dependent_rap_indication.h>

#include "h265/sei/sei_context.h"

namespace kovran {

// dependent_rap_indication(), clause D.2.36.
template <class Walker>
[[nodiscard]] bool payload_syntax(Walker& walk, h265_nal_sei_dependent_rap_indication& indication,
                                  const sei_context& /*context*/) {
    return walk.finish(indication.valid);
}

}  // namespace kovran

#endif  // KOVRAN_SRC_H265_SEI_H265_NAL_SEI_DEPENDENT_RAP_INDICATION_SYNTAX_H
