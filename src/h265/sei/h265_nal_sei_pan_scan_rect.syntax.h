#ifndef KOVRAN_SRC_H265_SEI_H265_NAL_SEI_PAN_SCAN_RECT_SYNTAX_H
#define KOVRAN_SRC_H265_SEI_H265_NAL_SEI_PAN_SCAN_RECT_SYNTAX_H

#include <kovran/h265/sei/h265_nal_sei_pan_scan_rect.h>

#include "h2645_common/element.h"
#include "h2645_common/value_range.h"
#include "h265/sei/in_entry.h"
#include "h265/sei/sei_context.h"
#include "h265/start_afresh.h"

#include <cstddef>

namespace kovran {

inline void start_afresh(h265_nal_sei_pan_scan_rect& record) {
    auto& [pan_scan_rect_id, pan_scan_rect_cancel_flag, pan_scan_cnt_minus1, rects,
           pan_scan_rect_persistence_flag, valid] = record;
    start_all_afresh(pan_scan_rect_id, pan_scan_rect_cancel_flag, pan_scan_cnt_minus1, rects,
                     pan_scan_rect_persistence_flag, valid);
}

template <class Walker>
[[nodiscard]] bool pan_scan_rects(Walker& walk, h265_nal_sei_pan_scan_rect& pan_scan) {
    walk.ue(ELEMENT(pan_scan, pan_scan_cnt_minus1), up_to(2));
    if (!walk.at_most(ELEMENT(pan_scan, pan_scan_cnt_minus1), 2U) ||
        !walk.grow(pan_scan.pan_scan_cnt_minus1 + 1, pan_scan.rects)) {
        return false;
    }
    for (std::size_t i = 0; i <= pan_scan.pan_scan_cnt_minus1; ++i) {
        h265_nal_sei_pan_scan_rect::rect_t& rect = pan_scan.rects[i];
        walk.se(in_entry(i, ELEMENT(rect, pan_scan_rect_left_offset)));
        walk.se(in_entry(i, ELEMENT(rect, pan_scan_rect_right_offset)));
        walk.se(in_entry(i, ELEMENT(rect, pan_scan_rect_top_offset)));
        walk.se(in_entry(i, ELEMENT(rect, pan_scan_rect_bottom_offset)));
    }
    return true;
}

// pan_scan_rect(), clause D.2.4.
template <class Walker>
[[nodiscard]] bool payload_syntax(Walker& walk, h265_nal_sei_pan_scan_rect& pan_scan,
                                  const sei_context& /*context*/) {
    walk.ue(ELEMENT(pan_scan, pan_scan_rect_id));
    walk.u(1, ELEMENT(pan_scan, pan_scan_rect_cancel_flag));
    if (!pan_scan.pan_scan_rect_cancel_flag) {
        if (!pan_scan_rects(walk, pan_scan)) {
            return false;
        }
        walk.u(1, ELEMENT(pan_scan, pan_scan_rect_persistence_flag));
    }
    return walk.finish(pan_scan.valid);
}

}  // namespace kovran

#endif  // KOVRAN_SRC_H265_SEI_H265_NAL_SEI_PAN_SCAN_RECT_SYNTAX_H
