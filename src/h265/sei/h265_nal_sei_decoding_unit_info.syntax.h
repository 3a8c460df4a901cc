#ifndef KOVRAN_SRC_H265_SEI_H265_NAL_SEI_DECODING_UNIT_INFO_SYNTAX_H
#define KOVRAN_SRC_H265_SEI_H265_NAL_SEI_DECODING_UNIT_INFO_SYNTAX_H

#include <kovran/h265/sei/h265_nal_sei_decoding_unit_info.h>

#include "h2645_common/element.h"
#include "h265/sei/sei_context.h"

namespace kovran {

// The HRD parameters that the message goes by; null when there are none.
[[nodiscard]] inline const h265_hrd_parameters* decoding_unit_hrd(const sei_context& context) {
    return context.active_sps() != nullptr ? context.hrd_of(*context.active_sps())
                                           : context.operation_point;
}

// decoding_unit_info(), clause D.2.22.
template <class Walker>
[[nodiscard]] bool payload_syntax(Walker& walk, h265_nal_sei_decoding_unit_info& info,
                                  const sei_context& context) {
    const h265_hrd_parameters* const hrd = decoding_unit_hrd(context);
    if (hrd == nullptr && context.active_sps() == nullptr) {
        return walk.missing("SPS", context.sps_store->active_id);
    }
    if (hrd == nullptr || !hrd->sub_pic_hrd_params_present_flag) {
        return false;
    }
    const auto bits = [](unsigned char length_minus1) {
        return static_cast<unsigned char>(length_minus1 + 1);
    };
    walk.ue(ELEMENT(info, decoding_unit_idx));
    if (!hrd->sub_pic_cpb_params_in_pic_timing_sei_flag) {
        walk.u_v(bits(hrd->du_cpb_removal_delay_increment_length_minus1),
                 ELEMENT(info, du_spt_cpb_removal_delay_increment));
    }
    walk.u(1, ELEMENT(info, dpb_output_du_delay_present_flag));
    if (info.dpb_output_du_delay_present_flag) {
        walk.u_v(bits(hrd->dpb_output_delay_du_length_minus1),
                 ELEMENT(info, pic_spt_dpb_output_du_delay));
    }
    return walk.finish(info.valid);
}

}  // namespace kovran

#endif  // KOVRAN_SRC_H265_SEI_H265_NAL_SEI_DECODING_UNIT_INFO_SYNTAX_H
