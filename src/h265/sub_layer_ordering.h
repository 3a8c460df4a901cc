#ifndef KOVRAN_SRC_H265_SUB_LAYER_ORDERING_H
#define KOVRAN_SRC_H265_SUB_LAYER_ORDERING_H

#include "h2645_common/value_range.h"

#include <vector>

namespace kovran {

// The largest MaxDpbSize of clause A.4.2.
inline constexpr unsigned int max_dpb_size = 16;

// What the ordering information of sub-layer i may be: no less than that of the sub-layer below,
// clauses 7.4.3.1 and 7.4.3.2.1. `lowest` is the first sub-layer that has it in the stream.
[[nodiscard]] inline value_range ordering_range(const std::vector<unsigned int>& values,
                                                unsigned int i, unsigned int lowest,
                                                unsigned int highest_value) {
    return between(i > lowest ? values[i - 1] : 0, highest_value);
}

}  // namespace kovran

#endif  // KOVRAN_SRC_H265_SUB_LAYER_ORDERING_H
