#ifndef KOVRAN_SRC_H265_SEI_H265_NAL_SEI_BSP_NESTING_SYNTAX_H
#define KOVRAN_SRC_H265_SEI_H265_NAL_SEI_BSP_NESTING_SYNTAX_H

#include <kovran/h265/sei/h265_nal_sei_bsp_nesting.h>

#include "h2645_common/element.h"
#include "h265/sei/nested_messages.h"
#include "h265/sei/sei_context.h"
#include "h265/start_afresh.h"

#include <cstddef>

namespace kovran {

inline void start_afresh(h265_nal_sei_bsp_nesting& record) {
    auto& [sei_ols_idx, sei_partitioning_scheme_idx, bsp_idx, num_seis_in_bsp_minus1, sei_message,
           valid] = record;
    start_all_afresh(sei_ols_idx, sei_partitioning_scheme_idx, bsp_idx, num_seis_in_bsp_minus1,
                     valid);
    sei_message.clear();
}

// bsp_nesting(), clause F.14.2.
template <class Walker>
[[nodiscard]] bool payload_syntax(Walker& walk, h265_nal_sei_bsp_nesting& nesting,
                                  const sei_context& context) {
    walk.ue(ELEMENT(nesting, sei_ols_idx));
    walk.ue(ELEMENT(nesting, sei_partitioning_scheme_idx));
    walk.ue(ELEMENT(nesting, bsp_idx));
    walk.ue(ELEMENT(nesting, num_seis_in_bsp_minus1));
    const std::size_t messages = std::size_t{nesting.num_seis_in_bsp_minus1} + 1;
    if (!walk.data_holds(ELEMENT(nesting, num_seis_in_bsp_minus1), messages,
                         /*fewest_bits=*/2 * 8)) {
        return false;
    }
    walk.align("bsp_nesting_zero_bit", 0);
    return nested_messages(walk, ELEMENT(nesting, sei_message), messages, context.nested()) &&
           walk.finish(nesting.valid);
}

}  // namespace kovran

#endif  // KOVRAN_SRC_H265_SEI_H265_NAL_SEI_BSP_NESTING_SYNTAX_H
