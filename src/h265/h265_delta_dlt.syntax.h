#ifndef KOVRAN_SRC_H265_H265_DELTA_DLT_SYNTAX_H
#define KOVRAN_SRC_H265_H265_DELTA_DLT_SYNTAX_H

#include "h2645_common/ceil_log2.h"
#include "h2645_common/element.h"
#include "h2645_common/value_range.h"

#include <cstdint>

namespace kovran {

// delta_dlt(), clause I.7.3.2.3.8, of depth values of so many bits, 16 at most.
template <class Walker, class Delta>
[[nodiscard]] bool delta_dlt(Walker& walk, Delta& delta, unsigned char depth_bits) {
    walk.u_v(depth_bits, ELEMENT(delta, num_val_delta_dlt));
    if (delta.num_val_delta_dlt > 1) {
        walk.u_v(depth_bits, ELEMENT(delta, max_diff));
    }
    if (delta.num_val_delta_dlt > 2 && delta.max_diff > 0) {
        walk.u_v(ceil_log2(delta.max_diff + 1), ELEMENT(delta, min_diff_minus1),
                 up_to(std::int64_t{delta.max_diff} - 1));
    } else {
        walk.assign(delta.min_diff_minus1, static_cast<int>(delta.max_diff) - 1);
    }
    if (delta.num_val_delta_dlt > 0) {
        walk.u_v(depth_bits, ELEMENT(delta, delta_dlt_val0));
    }
    const auto minDiff = static_cast<unsigned int>(delta.min_diff_minus1 + 1);
    if (delta.max_diff <= minDiff) {
        return true;
    }
    const unsigned char width = ceil_log2(delta.max_diff - minDiff + 1);
    if (!walk.data_holds(ELEMENT(delta, num_val_delta_dlt), delta.num_val_delta_dlt - 1, width) ||
        !walk.grow(delta.num_val_delta_dlt, delta.delta_val_diff_minus_min)) {
        return false;
    }
    for (unsigned int k = 1; k < delta.num_val_delta_dlt; ++k) {
        walk.u_v(width, ELEMENT(delta, delta_val_diff_minus_min)[k],
                 up_to(std::int64_t{delta.max_diff} - minDiff));
    }
    return true;
}

}  // namespace kovran

#endif  // KOVRAN_SRC_H265_H265_DELTA_DLT_SYNTAX_H
