#ifndef KOVRAN_SRC_H265_SEI_H265_NAL_SEI_AMBIENT_VIEWING_ENVIRONMENT_SYNTAX_H
#define KOVRAN_SRC_H265_SEI_H265_NAL_SEI_AMBIENT_VIEWING_ENVIRONMENT_SYNTAX_H

#include <kovran/h265/sei/h265_nal_sei_ambient_viewing_environment.h>

#include "h2645_common/element.h"
#include "h2645_common/value_range.h"
#include "h265/sei/sei_context.h"

namespace kovran {

// ambient_viewing_environment(), clause D.2.39.
template <class Walker>
[[nodiscard]] bool payload_syntax(Walker& walk, h265_nal_sei_ambient_viewing_environment& ambient,
                                  const sei_context& /*context*/) {
    walk.u(32, ELEMENT(ambient, ambient_illuminance), from(1));
    walk.u(16, ELEMENT(ambient, ambient_light_x), up_to(50000));
    walk.u(16, ELEMENT(ambient, ambient_light_y), up_to(50000));
    return walk.finish(ambient.valid);
}

}  // namespace kovran

#endif  // KOVRAN_SRC_H265_SEI_H265_NAL_SEI_AMBIENT_VIEWING_ENVIRONMENT_SYNTAX_H
