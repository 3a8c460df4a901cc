#ifndef KOVRAN_SRC_H265_SEI_H265_NAL_SEI_FISHEYE_VIDEO_INFO_SYNTAX_H
#define KOVRAN_SRC_H265_SEI_H265_NAL_SEI_FISHEYE_VIDEO_INFO_SYNTAX_H

#include <kovran/h265/sei/h265_nal_sei_fisheye_video_info.h>

#include "h2645_common/element.h"
#include "h2645_common/value_range.h"
#include "h265/sei/in_entry.h"
#include "h265/sei/sei_context.h"
#include "h265/sei/sphere_angle.h"
#include "h265/start_afresh.h"

#include <cstddef>

namespace kovran {

inline void start_afresh(h265_nal_sei_fisheye_video_info& record) {
    auto& [fisheye_cancel_flag, fisheye_persistence_flag, fisheye_view_dimension_idc,
           fisheye_num_active_areas_minus1, active_areas, valid] = record;
    start_all_afresh(fisheye_cancel_flag, fisheye_persistence_flag, fisheye_view_dimension_idc,
                     fisheye_num_active_areas_minus1, valid);
    active_areas.clear();
}

template <class Walker, class ActiveArea>
[[nodiscard]] bool fisheye_active_area(Walker& walk, ActiveArea& area, std::size_t i) {
    walk.u(32, in_entry(i, ELEMENT(area, fisheye_circular_region_centre_x)));
    walk.u(32, in_entry(i, ELEMENT(area, fisheye_circular_region_centre_y)));
    walk.u(32, in_entry(i, ELEMENT(area, fisheye_rect_region_top)));
    walk.u(32, in_entry(i, ELEMENT(area, fisheye_rect_region_left)));
    walk.u(32, in_entry(i, ELEMENT(area, fisheye_rect_region_width)));
    walk.u(32, in_entry(i, ELEMENT(area, fisheye_rect_region_height)));
    walk.u(32, in_entry(i, ELEMENT(area, fisheye_circular_region_radius)));
    walk.u(32, in_entry(i, ELEMENT(area, fisheye_scene_radius)));
    walk.i(32, in_entry(i, ELEMENT(area, fisheye_camera_centre_azimuth)), sphere_angle_around);
    walk.i(32, in_entry(i, ELEMENT(area, fisheye_camera_centre_elevation)), sphere_angle_up);
    walk.i(32, in_entry(i, ELEMENT(area, fisheye_camera_centre_tilt)), sphere_angle_around);
    walk.u(32, in_entry(i, ELEMENT(area, fisheye_camera_centre_offset_x)));
    walk.u(32, in_entry(i, ELEMENT(area, fisheye_camera_centre_offset_y)));
    walk.u(32, in_entry(i, ELEMENT(area, fisheye_camera_centre_offset_z)));
    walk.u(32, in_entry(i, ELEMENT(area, fisheye_field_of_view)), up_to(2 * sphere_angle_of_180));
    walk.u(16, in_entry(i, ELEMENT(area, fisheye_num_polynomial_coeffs)));
    if (!walk.data_holds(in_entry(i, ELEMENT(area, fisheye_num_polynomial_coeffs)),
                         area.fisheye_num_polynomial_coeffs, /*fewest_bits=*/32) ||
        !walk.grow(area.fisheye_num_polynomial_coeffs, area.fisheye_polynomial_coeff)) {
        return false;
    }
    for (std::size_t j = 0; j < area.fisheye_num_polynomial_coeffs; ++j) {
        walk.i(32, in_entry(i, ELEMENT(area, fisheye_polynomial_coeff))[j]);
    }
    return true;
}

// fisheye_video_info(), clause D.2.41.
template <class Walker>
[[nodiscard]] bool payload_syntax(Walker& walk, h265_nal_sei_fisheye_video_info& video,
                                  const sei_context& /*context*/) {
    walk.u(1, ELEMENT(video, fisheye_cancel_flag));
    if (video.fisheye_cancel_flag) {
        return walk.finish(video.valid);
    }
    walk.u(1, ELEMENT(video, fisheye_persistence_flag));
    walk.u(3, ELEMENT(video, fisheye_view_dimension_idc));
    walk.skip(3, "fisheye_reserved_zero_3bits");
    walk.u(8, ELEMENT(video, fisheye_num_active_areas_minus1));
    const std::size_t areas = std::size_t{video.fisheye_num_active_areas_minus1} + 1;
    if (!walk.data_holds(ELEMENT(video, fisheye_num_active_areas_minus1), areas,
                         /*fewest_bits=*/15 * 32 + 16) ||
        !walk.grow(areas, video.active_areas)) {
        return false;
    }
    for (std::size_t i = 0; i < areas; ++i) {
        if (!fisheye_active_area(walk, video.active_areas[i], i)) {
            return false;
        }
    }
    return walk.finish(video.valid);
}

}  // namespace kovran

#endif  // KOVRAN_SRC_H265_SEI_H265_NAL_SEI_FISHEYE_VIDEO_INFO_SYNTAX_H
