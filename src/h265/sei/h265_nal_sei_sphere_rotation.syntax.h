#ifndef KOVRAN_SRC_H265_SEI_H265_NAL_SEI_SPHERE_ROTATION_SYNTAX_H
#define KOVRAN_SRC_H265_SEI_H265_NAL_SEI_SPHERE_ROTATION_SYNTAX_H

#include <kovran/h265/sei/h265_nal_sei_sphere_rotation.h>

#include "h2645_common/element.h"
#include "h265/sei/sei_context.h"
#include "h265/sei/sphere_angle.h"

namespace kovran {

// sphere_rotation(), clause D.2.41.
template <class Walker>
[[nodiscard]] bool payload_syntax(Walker& walk, h265_nal_sei_sphere_rotation& sphere,
                                  const sei_context& /*context*/) {
    walk.u(1, ELEMENT(sphere, sphere_rotation_cancel_flag));
    if (!sphere.sphere_rotation_cancel_flag) {
        walk.u(1, ELEMENT(sphere, sphere_rotation_persistence_flag));
        walk.skip(6, "sphere_rotation_reserved_zero_6bits");
        walk.i(32, ELEMENT(sphere, yaw_rotation), sphere_angle_around);
        walk.i(32, ELEMENT(sphere, pitch_rotation), sphere_angle_up);
        walk.i(32, ELEMENT(sphere, roll_rotation), sphere_angle_around);
    }
    return walk.finish(sphere.valid);
}

}  // namespace kovran

#endif  // KOVRAN_SRC_H265_SEI_H265_NAL_SEI_SPHERE_ROTATION_SYNTAX_H
