#ifndef KOVRAN_SRC_H265_SEI_H265_NAL_SEI_MULTIVIEW_VIEW_POSITION_SYNTAX_H
#define KOVRAN_SRC_H265_SEI_H265_NAL_SEI_MULTIVIEW_VIEW_POSITION_SYNTAX_H

#include <kovran/h265/sei/h265_nal_sei_multiview_view_position.h>

#include "h2645_common/element.h"
#include "h265/sei/sei_context.h"
#include "h265/start_afresh.h"

#include <cstddef>

namespace kovran {

inline void start_afresh(h265_nal_sei_multiview_view_position& record) {
    auto& [num_views_minus1, view_position, valid] = record;
    start_all_afresh(num_views_minus1, view_position, valid);
}

// multiview_view_position(), clause G.14.2.
template <class Walker>
[[nodiscard]] bool payload_syntax(Walker& walk, h265_nal_sei_multiview_view_position& positions,
                                  const sei_context& /*context*/) {
    walk.ue(ELEMENT(positions, num_views_minus1));
    const std::size_t views = std::size_t{positions.num_views_minus1} + 1;
    if (!walk.data_holds(ELEMENT(positions, num_views_minus1), views, /*fewest_bits=*/1) ||
        !walk.grow(views, positions.view_position)) {
        return false;
    }
    for (std::size_t i = 0; i < views; ++i) {
        walk.ue(ELEMENT(positions, view_position)[i]);
    }
    return walk.finish(positions.valid);
}

}  // namespace kovran

#endif  // KOVRAN_SRC_H265_SEI_H265_NAL_SEI_MULTIVIEW_VIEW_POSITION_SYNTAX_H
