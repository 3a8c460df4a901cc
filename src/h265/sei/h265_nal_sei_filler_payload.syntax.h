#ifndef KOVRAN_SRC_H265_SEI_H265_NAL_SEI_FILLER_PAYLOAD_SYNTAX_H
#define KOVRAN_SRC_H265_SEI_H265_NAL_SEI_FILLER_PAYLOAD_SYNTAX_H

#include <kovran/h265/sei/h265_nal_sei_filler_payload.h>

#include "h2645_common/element.h"
#include "h2645_common/value_range.h"
#include "h265/sei/sei_context.h"
#include "h265/start_afresh.h"

namespace kovran {

inline void start_afresh(h265_nal_sei_filler_payload& record) {
    auto& [ff_byte, valid] = record;
    start_all_afresh(ff_byte, valid);
}

// filler_payload(), clause D.2.5.
template <class Walker>
[[nodiscard]] bool payload_syntax(Walker& walk, h265_nal_sei_filler_payload& filler,
                                  const sei_context& /*context*/) {
    if (!walk.grow(walk.payload_bytes_left(), filler.ff_byte)) {
        return false;
    }
    for (unsigned char& byte : filler.ff_byte) {
        walk.u(8, named("ff_byte", byte), between(0xFF, 0xFF));
    }
    return walk.finish(filler.valid);
}

}  // namespace kovran

#endif  // KOVRAN_SRC_H265_SEI_H265_NAL_SEI_FILLER_PAYLOAD_SYNTAX_H
