#ifndef KOVRAN_SRC_H265_SEI_H265_NAL_SEI_SEI_MANIFEST_SYNTAX_H
#define KOVRAN_SRC_H265_SEI_H265_NAL_SEI_SEI_MANIFEST_SYNTAX_H

#include <kovran/h265/sei/h265_nal_sei_sei_manifest.h>

#include "h2645_common/element.h"
#include "h265/sei/sei_context.h"
#include "h265/start_afresh.h"

#include <cstddef>

namespace kovran {

inline void start_afresh(h265_nal_sei_sei_manifest& record) {
    auto& [manifest_num_sei_msg_types, manifest_sei_payload_type, manifest_sei_description, valid] =
        record;
    start_all_afresh(manifest_num_sei_msg_types, manifest_sei_payload_type,
                     manifest_sei_description, valid);
}

// sei_manifest(), clause D.2.45.
template <class Walker>
[[nodiscard]] bool payload_syntax(Walker& walk, h265_nal_sei_sei_manifest& manifest,
                                  const sei_context& /*context*/) {
    walk.u(16, ELEMENT(manifest, manifest_num_sei_msg_types));
    if (!walk.data_holds(ELEMENT(manifest, manifest_num_sei_msg_types),
                         manifest.manifest_num_sei_msg_types, /*fewest_bits=*/24) ||
        !walk.grow(manifest.manifest_num_sei_msg_types, manifest.manifest_sei_payload_type,
                   manifest.manifest_sei_description)) {
        return false;
    }
    for (std::size_t i = 0; i < manifest.manifest_num_sei_msg_types; ++i) {
        walk.u(16, ELEMENT(manifest, manifest_sei_payload_type)[i]);
        walk.u(8, ELEMENT(manifest, manifest_sei_description)[i]);
    }
    return walk.finish(manifest.valid);
}

}  // namespace kovran

#endif  // KOVRAN_SRC_H265_SEI_H265_NAL_SEI_SEI_MANIFEST_SYNTAX_H
