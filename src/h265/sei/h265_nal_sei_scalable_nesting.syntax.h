#ifndef KOVRAN_SRC_H265_SEI_H265_NAL_SEI_SCALABLE_NESTING_SYNTAX_H
#define KOVRAN_SRC_H265_SEI_H265_NAL_SEI_SCALABLE_NESTING_SYNTAX_H

#include <kovran/h265/sei/h265_nal_sei_scalable_nesting.h>

#include "h2645_common/element.h"
#include "h2645_common/value_range.h"
#include "h265/sei/nested_messages.h"
#include "h265/sei/sei_context.h"
#include "h265/start_afresh.h"

#include <cstddef>

namespace kovran {

inline void start_afresh(h265_nal_sei_scalable_nesting& record) {
    auto& [bitstream_subset_flag, nesting_op_flag, default_op_flag, nesting_num_ops_minus1,
           nesting_max_temporal_id_plus1, nesting_op_idx, all_layers_flag,
           nesting_no_op_max_temporal_id_plus1, nesting_num_layers_minus1, nesting_layer_id,
           sei_message, valid] = record;
    start_all_afresh(bitstream_subset_flag, nesting_op_flag, default_op_flag,
                     nesting_num_ops_minus1, nesting_max_temporal_id_plus1, nesting_op_idx,
                     all_layers_flag, nesting_no_op_max_temporal_id_plus1,
                     nesting_num_layers_minus1, nesting_layer_id, valid);
    sei_message.clear();
}

template <class Walker>
[[nodiscard]] bool nesting_operation_points(Walker& walk, h265_nal_sei_scalable_nesting& nesting) {
    walk.u(1, ELEMENT(nesting, default_op_flag));
    walk.ue(ELEMENT(nesting, nesting_num_ops_minus1), up_to(1023));
    const std::size_t first = nesting.default_op_flag ? 1 : 0;
    if (!walk.at_most(ELEMENT(nesting, nesting_num_ops_minus1), 1023U) ||
        !walk.data_holds(ELEMENT(nesting, nesting_num_ops_minus1),
                         nesting.nesting_num_ops_minus1 + 1 - first, /*fewest_bits=*/4) ||
        !walk.grow(nesting.nesting_num_ops_minus1 + 1, nesting.nesting_max_temporal_id_plus1,
                   nesting.nesting_op_idx)) {
        return false;
    }
    for (std::size_t i = first; i <= nesting.nesting_num_ops_minus1; ++i) {
        walk.u(3, ELEMENT(nesting, nesting_max_temporal_id_plus1)[i]);
        walk.ue(ELEMENT(nesting, nesting_op_idx)[i], up_to(1023));
    }
    return true;
}

template <class Walker>
[[nodiscard]] bool nesting_layers(Walker& walk, h265_nal_sei_scalable_nesting& nesting) {
    walk.u(1, ELEMENT(nesting, all_layers_flag));
    if (nesting.all_layers_flag) {
        return true;
    }
    walk.u(3, ELEMENT(nesting, nesting_no_op_max_temporal_id_plus1));
    walk.ue(ELEMENT(nesting, nesting_num_layers_minus1), up_to(63));
    if (!walk.at_most(ELEMENT(nesting, nesting_num_layers_minus1), 63U) ||
        !walk.grow(nesting.nesting_num_layers_minus1 + 1, nesting.nesting_layer_id)) {
        return false;
    }
    for (std::size_t i = 0; i <= nesting.nesting_num_layers_minus1; ++i) {
        walk.u(6, ELEMENT(nesting, nesting_layer_id)[i]);
    }
    return true;
}

// What the messages in `nesting` are read with: of several operation points, the first one counts.
[[nodiscard]] inline sei_context context_within(const h265_nal_sei_scalable_nesting& nesting,
                                                const sei_context& around) {
    sei_context within = around.nested();
    within.views = 1;
    if (!nesting.nesting_op_flag) {
        if (!nesting.all_layers_flag) {
            within.views = nesting.nesting_num_layers_minus1 + 1;
        }
        return within;
    }
    // The default one has the layers up to the NAL unit's own, which is the base layer.
    constexpr unsigned int base_layer_alone = 0;
    if (nesting.default_op_flag) {
        within.operation_point = around.hrd_of_operation_point(base_layer_alone);
    } else {
        within.operation_point = around.hrd_of_operation_point(nesting.nesting_op_idx.front());
        within.highest_sub_layer_plus1 = nesting.nesting_max_temporal_id_plus1.front();
    }
    return within;
}

// scalable_nesting(), clause D.2.24.
template <class Walker>
[[nodiscard]] bool payload_syntax(Walker& walk, h265_nal_sei_scalable_nesting& nesting,
                                  const sei_context& context) {
    walk.u(1, ELEMENT(nesting, bitstream_subset_flag));
    walk.u(1, ELEMENT(nesting, nesting_op_flag));
    if (!(nesting.nesting_op_flag ? nesting_operation_points(walk, nesting)
                                  : nesting_layers(walk, nesting))) {
        return false;
    }
    walk.align("nesting_zero_bit", 0);
    return nested_messages(walk, ELEMENT(nesting, sei_message), walk.count_messages(),
                           context_within(nesting, context)) &&
           walk.finish(nesting.valid);
}

}  // namespace kovran

#endif  // KOVRAN_SRC_H265_SEI_H265_NAL_SEI_SCALABLE_NESTING_SYNTAX_H
