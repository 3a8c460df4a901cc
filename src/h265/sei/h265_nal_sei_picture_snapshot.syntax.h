#ifndef KOVRAN_SRC_H265_SEI_H265_NAL_SEI_PICTURE_SNAPSHOT_SYNTAX_H
#define KOVRAN_SRC_H265_SEI_H265_NAL_SEI_PICTURE_SNAPSHOT_SYNTAX_H

#include <kovran/h265/sei/h265_nal_sei_picture_snapshot.h>

#include "h2645_common/element.h"
#include "h265/sei/sei_context.h"

namespace kovran {

// picture_snapshot(), clause D.2.10.
template <class Walker>
[[nodiscard]] bool payload_syntax(Walker& walk, h265_nal_sei_picture_snapshot& snapshot,
                                  const sei_context& /*context*/) {
    walk.ue(ELEMENT(snapshot, snapshot_id));
    return walk.finish(snapshot.valid);
}

}  // namespace kovran

#endif  // KOVRAN_SRC_H265_SEI_H265_NAL_SEI_PICTURE_SNAPSHOT_SYNTAX_H
