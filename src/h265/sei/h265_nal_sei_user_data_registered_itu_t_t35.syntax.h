#ifndef KOVRAN_SRC_H265_SEI_H265_NAL_SEI_USER_DATA_REGISTERED_ITU_T_T35_SYNTAX_H
#define KOVRAN_SRC_H265_SEI_H265_NAL_SEI_USER_DATA_REGISTERED_ITU_T_T35_SYNTAX_H

#include <kovran/h265/sei/h265_nal_sei_user_data_registered_itu_t_t35.h>

#include "h2645_common/element.h"
#include "h265/sei/sei_context.h"
#include "h265/start_afresh.h"

namespace kovran {

inline void start_afresh(h265_nal_sei_user_data_registered_itu_t_t35& record) {
    auto& [itu_t_t35_country_code, itu_t_t35_country_code_extension_byte, itu_t_t35_payload_byte,
           valid] = record;
    start_all_afresh(itu_t_t35_country_code, itu_t_t35_country_code_extension_byte,
                     itu_t_t35_payload_byte, valid);
}

// user_data_registered_itu_t_t35(), clause D.2.6.
template <class Walker>
[[nodiscard]] bool payload_syntax(Walker& walk, h265_nal_sei_user_data_registered_itu_t_t35& data,
                                  const sei_context& /*context*/) {
    walk.b(ELEMENT(data, itu_t_t35_country_code));
    if (data.itu_t_t35_country_code == 0xFF) {
        walk.b(ELEMENT(data, itu_t_t35_country_code_extension_byte));
    }
    if (!walk.grow(walk.payload_bytes_left(), data.itu_t_t35_payload_byte)) {
        return false;
    }
    walk.bytes(ELEMENT(data, itu_t_t35_payload_byte));
    return walk.finish(data.valid);
}

}  // namespace kovran

#endif  // KOVRAN_SRC_H265_SEI_H265_NAL_SEI_USER_DATA_REGISTERED_ITU_T_T35_SYNTAX_H
