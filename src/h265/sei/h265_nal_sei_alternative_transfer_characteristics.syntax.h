#ifndef KOVRAN_SRC_H265_SEI_H265_NAL_SEI_ALTERNATIVE_TRANSFER_CHARACTERISTICS_SYNTAX_H
#define KOVRAN_SRC_H265_SEI_H265_NAL_SEI_ALTERNATIVE_TRANSFER_CHARACTERISTICS_SYNTAX_H

#include <kovran/h265/sei/h265_nal_sei_alternative_transfer_characteristics.h>

#include "h2645_common/element.h"
#include "h265/sei/sei_context.h"

namespace kovran {

// alternative_transfer_characteristics(), clause D.2.38.
template <class Walker>
[[nodiscard]] bool payload_syntax(Walker& walk,
                                  h265_nal_sei_alternative_transfer_characteristics& transfer,
                                  const sei_context& /*context*/) {
    walk.u(8, ELEMENT(transfer, preferred_transfer_characteristics));
    return walk.finish(transfer.valid);
}

}  // namespace kovran

#endif  // KOVRAN_SRC_H265_SEI_H265_NAL_SEI_ALTERNATIVE_TRANSFER_CHARACTERISTICS_SYNTAX_H
