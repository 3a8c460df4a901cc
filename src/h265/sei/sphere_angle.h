#ifndef KOVRAN_SRC_H265_SEI_SPHERE_ANGLE_H
#define KOVRAN_SRC_H265_SEI_SPHERE_ANGLE_H

#include "h2645_common/value_range.h"

#include <cstdint>

namespace kovran {

// Ranges of angles in units of 2^-16 degrees, clause D.3.41: around an axis, and up or down from
// the horizon.
inline constexpr std::int64_t sphere_angle_of_180 = std::int64_t{180} << 16;
inline constexpr value_range sphere_angle_around =
    between(-sphere_angle_of_180, sphere_angle_of_180 - 1);
inline constexpr value_range sphere_angle_up =
    between(-sphere_angle_of_180 / 2, sphere_angle_of_180 / 2);

}  // namespace kovran

#endif  // KOVRAN_SRC_H265_SEI_SPHERE_ANGLE_H
