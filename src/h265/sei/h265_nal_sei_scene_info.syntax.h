#ifndef KOVRAN_SRC_H265_SEI_H265_NAL_SEI_SCENE_INFO_SYNTAX_H
#define KOVRAN_SRC_H265_SEI_H265_NAL_SEI_SCENE_INFO_SYNTAX_H

#include <kovran/h265/sei/h265_nal_sei_scene_info.h>

#include "h2645_common/element.h"
#include "h2645_common/value_range.h"
#include "h265/sei/sei_context.h"

namespace kovran {

// scene_info(), clause D.2.9.
template <class Walker>
[[nodiscard]] bool payload_syntax(Walker& walk, h265_nal_sei_scene_info& scene,
                                  const sei_context& /*context*/) {
    walk.u(1, ELEMENT(scene, scene_info_present_flag));
    if (scene.scene_info_present_flag) {
        walk.u(1, ELEMENT(scene, prev_scene_id_valid_flag));
        walk.ue(ELEMENT(scene, scene_id));
        walk.ue(ELEMENT(scene, scene_transition_type), up_to(6));
        if (scene.scene_transition_type > 3) {
            walk.ue(ELEMENT(scene, second_scene_id));
        }
    }
    return walk.finish(scene.valid);
}

}  // namespace kovran

#endif  // KOVRAN_SRC_H265_SEI_H265_NAL_SEI_SCENE_INFO_SYNTAX_H
