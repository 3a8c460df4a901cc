#ifndef KOVRAN_SRC_H265_SEI_H265_NAL_SEI_CONTENT_COLOUR_VOLUME_SYNTAX_H
#define KOVRAN_SRC_H265_SEI_H265_NAL_SEI_CONTENT_COLOUR_VOLUME_SYNTAX_H

#include <kovran/h265/sei/h265_nal_sei_content_colour_volume.h>

#include "h2645_common/element.h"
#include "h2645_common/value_range.h"
#include "h265/sei/sei_context.h"

#include <cstddef>

namespace kovran {

// content_colour_volume(), clause D.2.40.
template <class Walker>
[[nodiscard]] bool payload_syntax(Walker& walk, h265_nal_sei_content_colour_volume& volume,
                                  const sei_context& /*context*/) {
    walk.u(1, ELEMENT(volume, ccv_cancel_flag));
    if (volume.ccv_cancel_flag) {
        return walk.finish(volume.valid);
    }
    walk.u(1, ELEMENT(volume, ccv_persistence_flag));
    walk.u(1, ELEMENT(volume, ccv_primaries_present_flag));
    walk.u(1, ELEMENT(volume, ccv_min_luminance_value_present_flag));
    walk.u(1, ELEMENT(volume, ccv_max_luminance_value_present_flag));
    walk.u(1, ELEMENT(volume, ccv_avg_luminance_value_present_flag));
    walk.skip(2, "ccv_reserved_zero_2bits");
    if (volume.ccv_primaries_present_flag) {
        constexpr value_range ccv_coordinates = between(-5000000, 5000000);
        for (std::size_t c = 0; c < volume.ccv_primaries_x.size(); ++c) {
            walk.i(32, ELEMENT(volume, ccv_primaries_x)[c], ccv_coordinates);
            walk.i(32, ELEMENT(volume, ccv_primaries_y)[c], ccv_coordinates);
        }
    }
    if (volume.ccv_min_luminance_value_present_flag) {
        walk.u(32, ELEMENT(volume, ccv_min_luminance_value));
    }
    if (volume.ccv_max_luminance_value_present_flag) {
        walk.u(32, ELEMENT(volume, ccv_max_luminance_value));
    }
    if (volume.ccv_avg_luminance_value_present_flag) {
        walk.u(32, ELEMENT(volume, ccv_avg_luminance_value));
    }
    return walk.finish(volume.valid);
}

}  // namespace kovran

#endif  // KOVRAN_SRC_H265_SEI_H265_NAL_SEI_CONTENT_COLOUR_VOLUME_SYNTAX_H
