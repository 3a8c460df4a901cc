#ifndef KOVRAN_SRC_H265_H265_NAL_SEI_BUFFERING_PERIOD_SYNTAX_H
#define KOVRAN_SRC_H265_H265_NAL_SEI_BUFFERING_PERIOD_SYNTAX_H

#include "h2645_common/element.h"
#include "h2645_common/store_lookup.h"
#include "h2645_common/value_range.h"

namespace kovran {

// The initial delays and offsets of buffering_period() for NAL or VCL, clause D.2.2.
struct initial_cpb_removal_bits {
    unsigned char width;
    bool alternative;  // the alternative delays and offsets are coded as well
};

template <class Walker, class Values>
[[nodiscard, gnu::always_inline]] inline bool initial_cpb_removal(
    Walker& walk, unsigned int CpbCnt, initial_cpb_removal_bits bits, element<Values&> delay,
    element<Values&> offset, element<Values&> alt_delay, element<Values&> alt_offset) {
    if (!walk.grow(CpbCnt, delay.field, offset.field, alt_delay.field, alt_offset.field)) {
        return false;
    }
    for (unsigned int i = 0; i < CpbCnt; ++i) {
        walk.u_v(bits.width, delay[i]);
        walk.u_v(bits.width, offset[i]);
        if (bits.alternative) {
            walk.u_v(bits.width, alt_delay[i]);
            walk.u_v(bits.width, alt_offset[i]);
        }
    }
    return true;
}

// What is read by an SPS alone goes by the HRD parameters in its VUI.
struct vui_hrd {
    static constexpr unsigned int highest_sub_layer_plus1 = 0;
    template <class Sps>
    [[nodiscard]] static const auto* hrd_of(const Sps& sps) {
        return &sps.vui_parameters.hrd_parameters;
    }
};

// buffering_period(), clause D.2.2. `context` says which HRD parameters go with an SPS, and which
// sub-layer is the highest one that the message applies to.
template <class Walker, class BufferingPeriod, class SpsStore, class Context>
[[nodiscard]] bool buffering_period(Walker& walk, BufferingPeriod& period, SpsStore& sps_store,
                                    const Context& context) {
    walk.ue(ELEMENT(period, bp_seq_parameter_set_id), up_to(15));
    if (!walk.at_most(ELEMENT(period, bp_seq_parameter_set_id), walk.rules.max_sps_id)) {
        return false;
    }
    const auto* const sps = find_entry(sps_store, period.bp_seq_parameter_set_id);
    if (sps == nullptr) {
        walk.clear(period.valid);
        return walk.missing("SPS", period.bp_seq_parameter_set_id);
    }
    const auto* const hrd_of_sps = context.hrd_of(*sps);
    if (hrd_of_sps == nullptr) {
        return false;
    }
    const auto& hrd = *hrd_of_sps;
    const auto bits = [](unsigned char length_minus1) {
        return static_cast<unsigned char>(length_minus1 + 1);
    };

    if (!hrd.sub_pic_hrd_params_present_flag) {
        walk.u(1, ELEMENT(period, irap_cpb_params_present_flag));
    } else {
        walk.rules.infer_irap_cpb_params_present_flag(walk, period);
    }
    if (period.irap_cpb_params_present_flag) {
        walk.u_v(bits(hrd.au_cpb_removal_delay_length_minus1), ELEMENT(period, cpb_delay_offset));
        walk.u_v(bits(hrd.dpb_output_delay_length_minus1), ELEMENT(period, dpb_delay_offset));
    }
    walk.u(1, ELEMENT(period, concatenation_flag));
    walk.u_v(bits(hrd.au_cpb_removal_delay_length_minus1),
             ELEMENT(period, au_cpb_removal_delay_delta_minus1));

    walk.assign(period.reserved_u32, 0);
    if (hrd.cpb_cnt_minus1.empty()) {
        return false;
    }
    walk.assign(period.CpbCnt, walk.rules.cpb_cnt_minus1(hrd, context.highest_sub_layer_plus1) + 1);
    if (!walk.at_most(ELEMENT(period, CpbCnt), walk.rules.max_hrd_cpbs)) {
        return false;
    }
    const initial_cpb_removal_bits removal_bits = {
        bits(hrd.initial_cpb_removal_delay_length_minus1),
        hrd.sub_pic_hrd_params_present_flag || period.irap_cpb_params_present_flag};
    walk.assign(period.NalHrdBpPresentFlag, hrd.nal_hrd_parameters_present_flag);
    if (period.NalHrdBpPresentFlag &&
        !initial_cpb_removal(walk, period.CpbCnt, removal_bits,
                             ELEMENT(period, nal_initial_cpb_removal_delay),
                             ELEMENT(period, nal_initial_cpb_removal_offset),
                             ELEMENT(period, nal_initial_alt_cpb_removal_delay),
                             ELEMENT(period, nal_initial_alt_cpb_removal_offset))) {
        return false;
    }
    walk.assign(period.VclHrdBpPresentFlag, hrd.vcl_hrd_parameters_present_flag);
    if (period.VclHrdBpPresentFlag &&
        !initial_cpb_removal(walk, period.CpbCnt, removal_bits,
                             ELEMENT(period, vcl_initial_cpb_removal_delay),
                             ELEMENT(period, vcl_initial_cpb_removal_offset),
                             ELEMENT(period, vcl_initial_alt_cpb_removal_delay),
                             ELEMENT(period, vcl_initial_alt_cpb_removal_offset))) {
        return false;
    }

    walk.assign(period.use_alt_cpb_params_flag_present, walk.more_rbsp_data());
    if (period.use_alt_cpb_params_flag_present) {
        walk.u(1, ELEMENT(period, use_alt_cpb_params_flag));
    }
    return walk.finish(period.valid);
}

}  // namespace kovran

#endif  // KOVRAN_SRC_H265_H265_NAL_SEI_BUFFERING_PERIOD_SYNTAX_H
