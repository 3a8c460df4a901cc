#ifndef KOVRAN_SRC_H265_SEI_H265_NAL_SEI_REGIONAL_NESTING_SYNTAX_H
#define KOVRAN_SRC_H265_SEI_H265_NAL_SEI_REGIONAL_NESTING_SYNTAX_H

#include <kovran/h265/sei/h265_nal_sei_regional_nesting.h>

#include "h2645_common/element.h"
#include "h265/sei/in_entry.h"
#include "h265/sei/nested_messages.h"
#include "h265/sei/sei_context.h"
#include "h265/start_afresh.h"

#include <cstddef>

namespace kovran {

inline void start_afresh(h265_nal_sei_regional_nesting& record) {
    auto& [regional_nesting_id, regional_nesting_num_rect_regions, rect_regions,
           num_sei_messages_in_regional_nesting_minus1, num_regions_for_sei_message,
           regional_nesting_sei_region_idx, sei_message, valid] = record;
    start_all_afresh(regional_nesting_id, regional_nesting_num_rect_regions, rect_regions,
                     num_sei_messages_in_regional_nesting_minus1, num_regions_for_sei_message,
                     valid);
    regional_nesting_sei_region_idx.clear();
    sei_message.clear();
}

template <class Walker>
[[nodiscard]] bool regional_nesting_regions(Walker& walk, h265_nal_sei_regional_nesting& nesting) {
    walk.u(8, ELEMENT(nesting, regional_nesting_num_rect_regions));
    const std::size_t regions = nesting.regional_nesting_num_rect_regions;
    if (!walk.data_holds(ELEMENT(nesting, regional_nesting_num_rect_regions), regions,
                         /*fewest_bits=*/8 + 4 * 16) ||
        !walk.grow(regions, nesting.rect_regions)) {
        return false;
    }
    for (std::size_t i = 0; i < regions; ++i) {
        auto& region = nesting.rect_regions[i];
        walk.u(8, in_entry(i, ELEMENT(region, regional_nesting_rect_region_id)));
        walk.u(16, in_entry(i, ELEMENT(region, regional_nesting_rect_left_offset)));
        walk.u(16, in_entry(i, ELEMENT(region, regional_nesting_rect_right_offset)));
        walk.u(16, in_entry(i, ELEMENT(region, regional_nesting_rect_top_offset)));
        walk.u(16, in_entry(i, ELEMENT(region, regional_nesting_rect_bottom_offset)));
    }
    return true;
}

template <class Walker>
[[nodiscard]] bool regional_nesting_message(Walker& walk, h265_nal_sei_regional_nesting& nesting,
                                            std::size_t i, const sei_context& within) {
    walk.u(8, ELEMENT(nesting, num_regions_for_sei_message)[i]);
    const std::size_t regions = nesting.num_regions_for_sei_message[i];
    if (!walk.data_holds(ELEMENT(nesting, num_regions_for_sei_message)[i], regions,
                         /*fewest_bits=*/8) ||
        !walk.grow(regions, nesting.regional_nesting_sei_region_idx[i])) {
        return false;
    }
    for (std::size_t j = 0; j < regions; ++j) {
        walk.u(8, ELEMENT(nesting, regional_nesting_sei_region_idx)[i][j]);
    }
    return walk.structure(ELEMENT(nesting, sei_message)[i], [&](h265_nal_sei_message& message) {
        return walk_message(walk, message, within);
    });
}

// regional_nesting(), clause D.2.42.
template <class Walker>
[[nodiscard]] bool payload_syntax(Walker& walk, h265_nal_sei_regional_nesting& nesting,
                                  const sei_context& context) {
    walk.u(16, ELEMENT(nesting, regional_nesting_id));
    if (!regional_nesting_regions(walk, nesting)) {
        return false;
    }
    walk.u(8, ELEMENT(nesting, num_sei_messages_in_regional_nesting_minus1));
    const std::size_t messages =
        std::size_t{nesting.num_sei_messages_in_regional_nesting_minus1} + 1;
    if (!walk.data_holds(ELEMENT(nesting, num_sei_messages_in_regional_nesting_minus1), messages,
                         /*fewest_bits=*/3 * 8) ||
        !walk.grow(messages, nesting.num_regions_for_sei_message,
                   nesting.regional_nesting_sei_region_idx, nesting.sei_message)) {
        return false;
    }
    for (std::size_t i = 0; i < messages; ++i) {
        if (!regional_nesting_message(walk, nesting, i, context.nested())) {
            return false;
        }
    }
    return walk.finish(nesting.valid);
}

}  // namespace kovran

#endif  // KOVRAN_SRC_H265_SEI_H265_NAL_SEI_REGIONAL_NESTING_SYNTAX_H
