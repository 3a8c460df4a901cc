#ifndef KOVRAN_SRC_H265_SEI_H265_NAL_SEI_OMNI_VIEWPORT_SYNTAX_H
#define KOVRAN_SRC_H265_SEI_H265_NAL_SEI_OMNI_VIEWPORT_SYNTAX_H

#include <kovran/h265/sei/h265_nal_sei_omni_viewport.h>

#include "h2645_common/element.h"
#include "h2645_common/value_range.h"
#include "h265/sei/in_entry.h"
#include "h265/sei/sei_context.h"
#include "h265/sei/sphere_angle.h"
#include "h265/start_afresh.h"

#include <cstddef>

namespace kovran {

inline void start_afresh(h265_nal_sei_omni_viewport& record) {
    auto& [omni_viewport_id, omni_viewport_cancel_flag, omni_viewport_persistence_flag,
           omni_viewport_cnt_minus1, viewports, valid] = record;
    start_all_afresh(omni_viewport_id, omni_viewport_cancel_flag, omni_viewport_persistence_flag,
                     omni_viewport_cnt_minus1, viewports, valid);
}

template <class Walker, class Viewport>
void omni_viewport_region(Walker& walk, Viewport& viewport, std::size_t i) {
    walk.i(32, in_entry(i, ELEMENT(viewport, omni_viewport_azimuth_centre)), sphere_angle_around);
    walk.i(32, in_entry(i, ELEMENT(viewport, omni_viewport_elevation_centre)), sphere_angle_up);
    walk.i(32, in_entry(i, ELEMENT(viewport, omni_viewport_tilt_centre)), sphere_angle_around);
    walk.u(32, in_entry(i, ELEMENT(viewport, omni_viewport_hor_range)),
           between(1, 2 * sphere_angle_of_180));
    walk.u(32, in_entry(i, ELEMENT(viewport, omni_viewport_ver_range)),
           between(1, sphere_angle_of_180));
}

// omni_viewport(), clause D.2.41.
template <class Walker>
[[nodiscard]] bool payload_syntax(Walker& walk, h265_nal_sei_omni_viewport& omni,
                                  const sei_context& /*context*/) {
    walk.u(10, ELEMENT(omni, omni_viewport_id));
    walk.u(1, ELEMENT(omni, omni_viewport_cancel_flag));
    if (omni.omni_viewport_cancel_flag) {
        return walk.finish(omni.valid);
    }
    walk.u(1, ELEMENT(omni, omni_viewport_persistence_flag));
    walk.u(4, ELEMENT(omni, omni_viewport_cnt_minus1));
    const std::size_t viewports = std::size_t{omni.omni_viewport_cnt_minus1} + 1;
    if (!walk.data_holds(ELEMENT(omni, omni_viewport_cnt_minus1), viewports,
                         /*fewest_bits=*/5 * 32) ||
        !walk.grow(viewports, omni.viewports)) {
        return false;
    }
    for (std::size_t i = 0; i < viewports; ++i) {
        omni_viewport_region(walk, omni.viewports[i], i);
    }
    return walk.finish(omni.valid);
}

}  // namespace kovran

#endif  // KOVRAN_SRC_H265_SEI_H265_NAL_SEI_OMNI_VIEWPORT_SYNTAX_H
