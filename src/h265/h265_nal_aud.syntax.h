#ifndef KOVRAN_SRC_H265_H265_NAL_AUD_SYNTAX_H
#define KOVRAN_SRC_H265_H265_NAL_AUD_SYNTAX_H

#include "h2645_common/element.h"
#include "h2645_common/value_range.h"

namespace kovran {

// access_unit_delimiter_rbsp(), clause 7.3.2.5.
template <class Walker, class Aud>
[[nodiscard]] bool access_unit_delimiter_rbsp(Walker& walk, Aud& aud) {
    walk.align();  // skips nothing unless the host read a part of a byte first

    walk.u(3, ELEMENT(aud, pic_type), up_to(2));
    walk.assign(aud.valid, walk.rbsp_trailing_bits());
    return aud.valid;
}

}  // namespace kovran

#endif  // KOVRAN_SRC_H265_H265_NAL_AUD_SYNTAX_H
