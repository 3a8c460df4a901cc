#ifndef KOVRAN_SRC_H265_SEI_H265_NAL_SEI_MASTERING_DISPLAY_COLOUR_VOLUME_SYNTAX_H
#define KOVRAN_SRC_H265_SEI_H265_NAL_SEI_MASTERING_DISPLAY_COLOUR_VOLUME_SYNTAX_H

#include <kovran/h265/sei/h265_nal_sei_mastering_display_colour_volume.h>

#include "h2645_common/element.h"
#include "h265/sei/sei_context.h"

#include <cstddef>

namespace kovran {

// mastering_display_colour_volume(), clause D.2.28.
template <class Walker>
[[nodiscard]] bool payload_syntax(Walker& walk,
                                  h265_nal_sei_mastering_display_colour_volume& volume,
                                  const sei_context& /*context*/) {
    for (std::size_t c = 0; c < volume.display_primaries_x.size(); ++c) {
        walk.u(16, ELEMENT(volume, display_primaries_x)[c]);
        walk.u(16, ELEMENT(volume, display_primaries_y)[c]);
    }
    walk.u(16, ELEMENT(volume, white_point_x));
    walk.u(16, ELEMENT(volume, white_point_y));
    walk.u(32, ELEMENT(volume, max_display_mastering_luminance));
    walk.u(32, ELEMENT(volume, min_display_mastering_luminance));
    return walk.finish(volume.valid);
}

}  // namespace kovran

#endif  // KOVRAN_SRC_H265_SEI_H265_NAL_SEI_MASTERING_DISPLAY_COLOUR_VOLUME_SYNTAX_H
