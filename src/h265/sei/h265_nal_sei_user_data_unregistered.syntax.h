#ifndef KOVRAN_SRC_H265_SEI_H265_NAL_SEI_USER_DATA_UNREGISTERED_SYNTAX_H
#define KOVRAN_SRC_H265_SEI_H265_NAL_SEI_USER_DATA_UNREGISTERED_SYNTAX_H

#include <kovran/h265/sei/h265_nal_sei_user_data_unregistered.h>

#include "h2645_common/element.h"
#include "h265/sei/sei_context.h"
#include "h265/start_afresh.h"

namespace kovran {

inline void start_afresh(h265_nal_sei_user_data_unregistered& record) {
    auto& [uuid_iso_iec_11578, user_data_payload_byte, valid] = record;
    start_all_afresh(uuid_iso_iec_11578, user_data_payload_byte, valid);
}

// user_data_unregistered(), clause D.2.7.
template <class Walker>
[[nodiscard]] bool payload_syntax(Walker& walk, h265_nal_sei_user_data_unregistered& data,
                                  const sei_context& /*context*/) {
    if (!walk.u_bytes(ELEMENT(data, uuid_iso_iec_11578)) ||
        !walk.grow(walk.payload_bytes_left(), data.user_data_payload_byte)) {
        return false;
    }
    walk.bytes(ELEMENT(data, user_data_payload_byte));
    return walk.finish(data.valid);
}

}  // namespace kovran

#endif  // KOVRAN_SRC_H265_SEI_H265_NAL_SEI_USER_DATA_UNREGISTERED_SYNTAX_H
