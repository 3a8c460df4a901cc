#ifndef KOVRAN_SRC_H265_SEI_H265_NAL_SEI_MCTS_EXTRACTION_INFO_NESTING_SYNTAX_H
#define KOVRAN_SRC_H265_SEI_H265_NAL_SEI_MCTS_EXTRACTION_INFO_NESTING_SYNTAX_H

#include <kovran/h265/sei/h265_nal_sei_mcts_extraction_info_nesting.h>

#include "h2645_common/element.h"
#include "h265/sei/nested_messages.h"
#include "h265/sei/sei_context.h"
#include "h265/start_afresh.h"

#include <cstddef>

namespace kovran {

inline void start_afresh(h265_nal_sei_mcts_extraction_info_nesting& record) {
    auto& [all_mcts_flag, num_associated_mcts_minus1, idx_of_associated_mcts,
           num_sei_messages_in_mcts_extraction_nesting_minus1, sei_message, valid] = record;
    start_all_afresh(all_mcts_flag, num_associated_mcts_minus1, idx_of_associated_mcts,
                     num_sei_messages_in_mcts_extraction_nesting_minus1, valid);
    sei_message.clear();
}

template <class Walker>
[[nodiscard]] bool mcts_nesting_associated(Walker& walk,
                                           h265_nal_sei_mcts_extraction_info_nesting& nesting) {
    walk.u(1, ELEMENT(nesting, all_mcts_flag));
    if (nesting.all_mcts_flag) {
        return true;
    }
    walk.ue(ELEMENT(nesting, num_associated_mcts_minus1));
    const std::size_t mcts = std::size_t{nesting.num_associated_mcts_minus1} + 1;
    if (!walk.data_holds(ELEMENT(nesting, num_associated_mcts_minus1), mcts, /*fewest_bits=*/1) ||
        !walk.grow(mcts, nesting.idx_of_associated_mcts)) {
        return false;
    }
    for (std::size_t i = 0; i < mcts; ++i) {
        walk.ue(ELEMENT(nesting, idx_of_associated_mcts)[i]);
    }
    return true;
}

// mcts_extraction_info_nesting(), clause D.2.44.
template <class Walker>
[[nodiscard]] bool payload_syntax(Walker& walk, h265_nal_sei_mcts_extraction_info_nesting& nesting,
                                  const sei_context& context) {
    if (!mcts_nesting_associated(walk, nesting)) {
        return false;
    }
    walk.ue(ELEMENT(nesting, num_sei_messages_in_mcts_extraction_nesting_minus1));
    const std::size_t messages =
        std::size_t{nesting.num_sei_messages_in_mcts_extraction_nesting_minus1} + 1;
    if (!walk.data_holds(ELEMENT(nesting, num_sei_messages_in_mcts_extraction_nesting_minus1),
                         messages, /*fewest_bits=*/2 * 8)) {
        return false;
    }
    walk.align("mcts_nesting_zero_bit", 0);
    return nested_messages(walk, ELEMENT(nesting, sei_message), messages, context.nested()) &&
           walk.finish(nesting.valid);
}

}  // namespace kovran

#endif  // KOVRAN_SRC_H265_SEI_H265_NAL_SEI_MCTS_EXTRACTION_INFO_NESTING_SYNTAX_H
