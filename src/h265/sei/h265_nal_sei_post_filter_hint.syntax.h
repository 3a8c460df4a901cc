#ifndef KOVRAN_SRC_H265_SEI_H265_NAL_SEI_POST_FILTER_HINT_SYNTAX_H
#define KOVRAN_SRC_H265_SEI_H265_NAL_SEI_POST_FILTER_HINT_SYNTAX_H

#include <kovran/h265/sei/h265_nal_sei_post_filter_hint.h>

#include "h2645_common/element.h"
#include "h2645_common/value_range.h"
#include "h265/sei/sei_context.h"
#include "h265/start_afresh.h"

#include <cstddef>

namespace kovran {

inline void start_afresh(h265_nal_sei_post_filter_hint& record) {
    auto& [filter_hint_size_y, filter_hint_size_x, filter_hint_type, filter_hint_value, valid] =
        record;
    start_all_afresh(filter_hint_size_y, filter_hint_size_x, filter_hint_type, filter_hint_value,
                     valid);
}

// post_filter_hint(), clause D.2.14.
template <class Walker>
[[nodiscard]] bool payload_syntax(Walker& walk, h265_nal_sei_post_filter_hint& hint,
                                  const sei_context& context) {
    if (context.active_sps() == nullptr) {
        return walk.missing("SPS", context.sps_store->active_id);
    }
    walk.ue(ELEMENT(hint, filter_hint_size_y), between(1, 15));
    walk.ue(ELEMENT(hint, filter_hint_size_x), between(1, 15));
    walk.u(2, ELEMENT(hint, filter_hint_type), up_to(2));
    if (!walk.at_most(ELEMENT(hint, filter_hint_size_y), 15U) ||
        !walk.at_most(ELEMENT(hint, filter_hint_size_x), 15U)) {
        return false;
    }
    const unsigned int matrices = context.active_sps()->chroma_format_idc == 0 ? 1 : 3;
    const unsigned int values = matrices * hint.filter_hint_size_y * hint.filter_hint_size_x;
    if (!walk.grow(values, hint.filter_hint_value)) {
        return false;
    }
    auto value = hint.filter_hint_value.begin();
    for (std::size_t c = 0; c < matrices; ++c) {
        for (std::size_t y = 0; y < hint.filter_hint_size_y; ++y) {
            for (std::size_t x = 0; x < hint.filter_hint_size_x; ++x, ++value) {
                walk.se(named("filter_hint_value", *value,
                              element_indices{}.followed_by(c).followed_by(y).followed_by(x)));
            }
        }
    }
    return walk.finish(hint.valid);
}

}  // namespace kovran

#endif  // KOVRAN_SRC_H265_SEI_H265_NAL_SEI_POST_FILTER_HINT_SYNTAX_H
