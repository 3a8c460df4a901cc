#ifndef KOVRAN_SRC_H265_H265_NAL_SEI_PIC_TIMING_SYNTAX_H
#define KOVRAN_SRC_H265_H265_NAL_SEI_PIC_TIMING_SYNTAX_H

#include "h2645_common/element.h"
#include "h2645_common/value_range.h"
#include "h265/picture_size.h"

#include <cstdint>

namespace kovran {

// Table D.2: frames have 0 to 8, fields 1, 2 and 9 to 12.
template <class Vui>
[[nodiscard]] value_range pic_struct_range(const Vui& vui) {
    return vui.field_seq_flag ? between(1, 12) : up_to(8);
}

// The decoding units of pic_timing(), clause D.2.3.
template <class Walker, class PicTiming, class Sps, class Hrd>
[[nodiscard]] bool pic_timing_decoding_units(Walker& walk, PicTiming& timing, const Sps& sps,
                                             const Hrd& hrd) {
    const auto increment_bits =
        static_cast<unsigned char>(hrd.du_cpb_removal_delay_increment_length_minus1 + 1);
    walk.set(timing.du_info_present);
    walk.ue(ELEMENT(timing, num_decoding_units_minus1), pic_size_range(sps));
    walk.u(1, ELEMENT(timing, du_common_cpb_removal_delay_flag));
    if (timing.du_common_cpb_removal_delay_flag) {
        walk.u_v(increment_bits, ELEMENT(timing, du_common_cpb_removal_delay_increment_minus1));
    }
    if (!walk.at_most(ELEMENT(timing, num_decoding_units_minus1),
                      walk.rules.max_decoding_units_minus1(sps)) ||
        !walk.data_holds(ELEMENT(timing, num_decoding_units_minus1),
                         std::uint64_t{timing.num_decoding_units_minus1} + 1, /*fewest_bits=*/1) ||
        !walk.grow(timing.num_decoding_units_minus1 + 1, timing.num_nalus_in_du_minus1,
                   timing.du_cpb_removal_delay_increment_minus1)) {
        return false;
    }
    for (unsigned int i = 0; i <= timing.num_decoding_units_minus1; ++i) {
        walk.ue(ELEMENT(timing, num_nalus_in_du_minus1)[i]);
        if (!timing.du_common_cpb_removal_delay_flag && i < timing.num_decoding_units_minus1) {
            walk.u_v(increment_bits, ELEMENT(timing, du_cpb_removal_delay_increment_minus1)[i]);
        }
    }
    return true;
}

// pic_timing(), clause D.2.3. Without HRD parameters it ends before the delays.
template <class Walker, class PicTiming, class Sps, class Hrd>
[[nodiscard]] bool pic_timing(Walker& walk, PicTiming& timing, const Sps& sps, const Hrd* hrd) {
    const auto bits = [](unsigned char length_minus1) {
        return static_cast<unsigned char>(length_minus1 + 1);
    };
    if (sps.vui_parameters.frame_field_info_present_flag) {
        walk.u(4, ELEMENT(timing, pic_struct), pic_struct_range(sps.vui_parameters));
        walk.u(2, ELEMENT(timing, source_scan_type), up_to(2));
        walk.u(1, ELEMENT(timing, duplicate_flag));
    } else {
        walk.rules.infer_source_scan_type(walk, timing, sps);
    }
    walk.assign(timing.cpb_dpb_delays_present,
                hrd != nullptr &&
                    (hrd->nal_hrd_parameters_present_flag || hrd->vcl_hrd_parameters_present_flag));
    if (timing.cpb_dpb_delays_present) {
        walk.u_v(bits(hrd->au_cpb_removal_delay_length_minus1),
                 ELEMENT(timing, au_cpb_removal_delay_minus1));
        walk.u_v(bits(hrd->dpb_output_delay_length_minus1), ELEMENT(timing, pic_dpb_output_delay));
        if (hrd->sub_pic_hrd_params_present_flag) {
            walk.u_v(bits(hrd->dpb_output_delay_du_length_minus1),
                     ELEMENT(timing, pic_dpb_output_du_delay));
        }
        if (walk.rules.has_decoding_unit_info(*hrd) &&
            !pic_timing_decoding_units(walk, timing, sps, *hrd)) {
            return false;
        }
    }
    return walk.finish(timing.valid);
}

}  // namespace kovran

#endif  // KOVRAN_SRC_H265_H265_NAL_SEI_PIC_TIMING_SYNTAX_H
