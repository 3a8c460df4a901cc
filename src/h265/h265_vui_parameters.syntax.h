#ifndef KOVRAN_SRC_H265_H265_VUI_PARAMETERS_SYNTAX_H
#define KOVRAN_SRC_H265_H265_VUI_PARAMETERS_SYNTAX_H

#include <kovran/h265/h265_vui_parameters.h>

#include "h2645_common/element.h"
#include "h2645_common/value_range.h"
#include "h265/h265_hrd_parameters.syntax.h"
#include "h265/sps_ranges.h"

#include <cstdint>

namespace kovran {

// vui_parameters(), clause E.2.1.
template <class Walker, class Vui, class Sps>
[[nodiscard]] bool vui_parameters(Walker& walk, Vui& vui, const Sps& sps) {
    walk.clear(vui.valid);
    walk.rules.infer_vui_elements(walk, vui);

    walk.u(1, ELEMENT(vui, aspect_ratio_info_present_flag));
    if (vui.aspect_ratio_info_present_flag) {
        walk.u(8, ELEMENT(vui, aspect_ratio_idc));
        if (vui.aspect_ratio_idc == h265_extended_sar) {
            walk.set(vui.extended_sar_flag);
            walk.u(16, ELEMENT(vui, sar_width));
            walk.u(16, ELEMENT(vui, sar_height));
        } else {
            const h265_sample_aspect_ratio ratio =
                h265_sample_aspect_ratio_of(vui.aspect_ratio_idc);
            walk.assign(vui.sar_width, ratio.width);
            walk.assign(vui.sar_height, ratio.height);
        }
    }

    walk.u(1, ELEMENT(vui, overscan_info_present_flag));
    if (vui.overscan_info_present_flag) {
        walk.u(1, ELEMENT(vui, overscan_appropriate_flag));
    }

    walk.u(1, ELEMENT(vui, video_signal_type_present_flag));
    if (vui.video_signal_type_present_flag) {
        walk.u(3, ELEMENT(vui, video_format), up_to(5));
        walk.u(1, ELEMENT(vui, video_full_range_flag));
        walk.u(1, ELEMENT(vui, colour_description_present_flag));
        if (vui.colour_description_present_flag) {
            walk.u(8, ELEMENT(vui, colour_primaries));
            walk.u(8, ELEMENT(vui, transfer_characteristics));
            walk.u(8, ELEMENT(vui, matrix_coeffs));
        }
    }

    walk.u(1, ELEMENT(vui, chroma_loc_info_present_flag));
    if (vui.chroma_loc_info_present_flag) {
        walk.ue(ELEMENT(vui, chroma_sample_loc_type_top_field), up_to(5));
        walk.ue(ELEMENT(vui, chroma_sample_loc_type_bottom_field), up_to(5));
    }

    walk.u(1, ELEMENT(vui, neutral_chroma_indication_flag));
    walk.u(1, ELEMENT(vui, field_seq_flag));
    walk.u(1, ELEMENT(vui, frame_field_info_present_flag), between(vui.field_seq_flag ? 1 : 0, 1));

    walk.u(1, ELEMENT(vui, default_display_window_flag));
    if (vui.default_display_window_flag) {
        const std::uint64_t across =
            std::uint64_t{sps.conf_win_left_offset} + sps.conf_win_right_offset;
        const std::uint64_t down =
            std::uint64_t{sps.conf_win_top_offset} + sps.conf_win_bottom_offset;
        walk.ue(ELEMENT(vui, def_disp_win_left_offset),
                window_range(sps.pic_width_in_luma_samples, sub_width_c(sps), across));
        walk.ue(ELEMENT(vui, def_disp_win_right_offset),
                window_range(sps.pic_width_in_luma_samples, sub_width_c(sps),
                             across + vui.def_disp_win_left_offset));
        walk.ue(ELEMENT(vui, def_disp_win_top_offset),
                window_range(sps.pic_height_in_luma_samples, sub_height_c(sps), down));
        walk.ue(ELEMENT(vui, def_disp_win_bottom_offset),
                window_range(sps.pic_height_in_luma_samples, sub_height_c(sps),
                             down + vui.def_disp_win_top_offset));
    }

    walk.u(1, ELEMENT(vui, vui_timing_info_present_flag));
    if (vui.vui_timing_info_present_flag) {
        walk.u(32, ELEMENT(vui, vui_num_units_in_tick), from(1));
        walk.u(32, ELEMENT(vui, vui_time_scale), from(1));
        walk.u(1, ELEMENT(vui, vui_poc_proportional_to_timing_flag));
        if (vui.vui_poc_proportional_to_timing_flag) {
            walk.ue(ELEMENT(vui, vui_num_ticks_poc_diff_one_minus1));
        }
        walk.u(1, ELEMENT(vui, vui_hrd_parameters_present_flag));
    }
    if (!vui.vui_timing_info_present_flag || !vui.vui_hrd_parameters_present_flag) {
        walk.rules.end_absent_structure(vui.hrd_parameters);
    } else if (!walk.structure(ELEMENT(vui, hrd_parameters), [&](auto& hrd) {
                   return hrd_parameters(walk, hrd, /*commonInfPresentFlag=*/true,
                                         sps.sps_max_sub_layers_minus1);
               })) {
        return false;
    }

    walk.u(1, ELEMENT(vui, bitstream_restriction_flag));
    if (vui.bitstream_restriction_flag) {
        walk.u(1, ELEMENT(vui, tiles_fixed_structure_flag));
        walk.u(1, ELEMENT(vui, motion_vectors_over_pic_boundaries_flag));
        walk.u(1, ELEMENT(vui, restricted_ref_pic_lists_flag));
        walk.ue(ELEMENT(vui, min_spatial_segmentation_idc), up_to(4095));
        walk.ue(ELEMENT(vui, max_bytes_per_pic_denom), up_to(16));
        walk.ue(ELEMENT(vui, max_bits_per_min_cu_denom), up_to(16));
        walk.ue(ELEMENT(vui, log2_max_mv_length_horizontal), up_to(15));
        walk.ue(ELEMENT(vui, log2_max_mv_length_vertical), up_to(15));
    }
    return walk.finish(vui.valid);
}

}  // namespace kovran

#endif  // KOVRAN_SRC_H265_H265_VUI_PARAMETERS_SYNTAX_H
