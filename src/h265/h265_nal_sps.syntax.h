#ifndef KOVRAN_SRC_H265_H265_NAL_SPS_SYNTAX_H
#define KOVRAN_SRC_H265_H265_NAL_SPS_SYNTAX_H

#include "h2645_common/element.h"
#include "h2645_common/value_range.h"
#include "h2645_common/wrapping.h"
#include "h265/extensions_or_data.h"
#include "h265/h265_profile_tier_level.syntax.h"
#include "h265/h265_scaling_list_data.syntax.h"
#include "h265/h265_st_ref_pic_set.syntax.h"
#include "h265/h265_vui_parameters.syntax.h"
#include "h265/sps_extensions.syntax.h"
#include "h265/sps_ranges.h"
#include "h265/sub_layer_ordering.h"

#include <cstdint>

namespace kovran {

// seq_parameter_set_rbsp(), clause 7.3.2.2.
template <class Walker, class Sps, class VpsStore>
[[nodiscard]] bool seq_parameter_set_rbsp(Walker& walk, Sps& sps, VpsStore& vps_store) {
    walk.clear(sps.valid);

    walk.u(4, ELEMENT(sps, sps_video_parameter_set_id));
    if (!walk.rules.has_named_set(walk.named_set(vps_store, sps.sps_video_parameter_set_id))) {
        return walk.missing("VPS", sps.sps_video_parameter_set_id);
    }
    walk.u(3, ELEMENT(sps, sps_max_sub_layers_minus1), up_to(6));
    if (!walk.at_most(ELEMENT(sps, sps_max_sub_layers_minus1),
                      walk.rules.max_profile_tier_level_sub_layers)) {
        return false;
    }
    walk.u(1, ELEMENT(sps, sps_temporal_id_nesting_flag),
           between(sps.sps_max_sub_layers_minus1 == 0 ? 1 : 0, 1));
    if (!walk.structure(ELEMENT(sps, profile_tier_level), [&](auto& ptl) {
            return profile_tier_level(walk, ptl, /*profilePresentFlag=*/true,
                                      sps.sps_max_sub_layers_minus1);
        })) {
        return false;
    }

    walk.ue(ELEMENT(sps, sps_seq_parameter_set_id), up_to(15));
    if (!walk.at_most(ELEMENT(sps, sps_seq_parameter_set_id), walk.rules.max_sps_id)) {
        return false;
    }
    walk.ue(ELEMENT(sps, chroma_format_idc), up_to(3));
    if (sps.chroma_format_idc == 3) {
        walk.u(1, ELEMENT(sps, separate_colour_plane_flag));
    }
    walk.ue(ELEMENT(sps, pic_width_in_luma_samples), from(1));
    walk.ue(ELEMENT(sps, pic_height_in_luma_samples), from(1));
    walk.u(1, ELEMENT(sps, conformance_window_flag));
    if (sps.conformance_window_flag) {
        walk.ue(ELEMENT(sps, conf_win_left_offset),
                window_range(sps.pic_width_in_luma_samples, sub_width_c(sps)));
        walk.ue(ELEMENT(sps, conf_win_right_offset),
                window_range(sps.pic_width_in_luma_samples, sub_width_c(sps),
                             sps.conf_win_left_offset));
        walk.ue(ELEMENT(sps, conf_win_top_offset),
                window_range(sps.pic_height_in_luma_samples, sub_height_c(sps)));
        walk.ue(ELEMENT(sps, conf_win_bottom_offset),
                window_range(sps.pic_height_in_luma_samples, sub_height_c(sps),
                             sps.conf_win_top_offset));
    }
    walk.ue(ELEMENT(sps, bit_depth_luma_minus8), up_to(8));
    walk.ue(ELEMENT(sps, bit_depth_chroma_minus8), up_to(8));
    walk.ue(ELEMENT(sps, log2_max_pic_order_cnt_lsb_minus4), up_to(12));
    if (!walk.at_most(ELEMENT(sps, log2_max_pic_order_cnt_lsb_minus4),
                      walk.rules.max_log2_max_pic_order_cnt_lsb_minus4)) {
        return false;
    }

    walk.u(1, ELEMENT(sps, sps_sub_layer_ordering_info_present_flag));
    const unsigned int highest = sps.sps_max_sub_layers_minus1;  // u(3), so that no bound is needed
    if (!walk.grow(highest + 1, sps.sps_max_dec_pic_buffering_minus1, sps.sps_max_num_reorder_pics,
                   sps.sps_max_latency_increase_plus1)) {
        return false;
    }
    const unsigned int lowest = sps.sps_sub_layer_ordering_info_present_flag ? 0 : highest;
    for (unsigned int i = lowest; i <= highest; ++i) {
        walk.ue(ELEMENT(sps, sps_max_dec_pic_buffering_minus1)[i],
                ordering_range(sps.sps_max_dec_pic_buffering_minus1, i, lowest, max_dpb_size - 1));
        walk.ue(ELEMENT(sps, sps_max_num_reorder_pics)[i],
                ordering_range(sps.sps_max_num_reorder_pics, i, lowest,
                               sps.sps_max_dec_pic_buffering_minus1[i]));
        walk.ue(ELEMENT(sps, sps_max_latency_increase_plus1)[i]);
    }
    if (!sps.sps_sub_layer_ordering_info_present_flag) {
        walk.rules.infer_ordering_info(walk, highest, sps.sps_max_dec_pic_buffering_minus1,
                                       sps.sps_max_num_reorder_pics,
                                       sps.sps_max_latency_increase_plus1);
    }

    walk.ue(ELEMENT(sps, log2_min_luma_coding_block_size_minus3), up_to(largest_ctb_log2_size - 3));
    walk.ue(ELEMENT(sps, log2_diff_max_min_luma_coding_block_size),
            coding_block_difference_range(sps));
    walk.ue(ELEMENT(sps, log2_min_luma_transform_block_size_minus2),
            min_transform_block_range(sps));
    walk.ue(ELEMENT(sps, log2_diff_max_min_luma_transform_block_size),
            transform_block_difference_range(sps));
    walk.ue(ELEMENT(sps, max_transform_hierarchy_depth_inter), transform_hierarchy_range(sps));
    walk.ue(ELEMENT(sps, max_transform_hierarchy_depth_intra), transform_hierarchy_range(sps));

    walk.u(1, ELEMENT(sps, scaling_list_enabled_flag));
    if (sps.scaling_list_enabled_flag) {
        walk.u(1, ELEMENT(sps, sps_scaling_list_data_present_flag));
    }
    if (!sps.scaling_list_enabled_flag || !sps.sps_scaling_list_data_present_flag) {
        walk.rules.end_absent_structure(sps.scaling_list_data);
    } else if (!walk.structure(ELEMENT(sps, scaling_list_data),
                               [&](auto& lists) { return scaling_list_data(walk, lists); })) {
        return false;
    }

    walk.u(1, ELEMENT(sps, amp_enabled_flag));
    walk.u(1, ELEMENT(sps, sample_adaptive_offset_enabled_flag));
    walk.u(1, ELEMENT(sps, pcm_enabled_flag));
    if (sps.pcm_enabled_flag) {
        walk.u(4, ELEMENT(sps, pcm_sample_bit_depth_luma_minus1),
               up_to(std::int64_t{sps.bit_depth_luma_minus8} + 7));
        walk.u(4, ELEMENT(sps, pcm_sample_bit_depth_chroma_minus1),
               up_to(std::int64_t{sps.bit_depth_chroma_minus8} + 7));
        walk.ue(ELEMENT(sps, log2_min_pcm_luma_coding_block_size_minus3), min_pcm_block_range(sps));
        walk.ue(ELEMENT(sps, log2_diff_max_min_pcm_luma_coding_block_size),
                pcm_block_difference_range(sps));
        walk.u(1, ELEMENT(sps, pcm_loop_filter_disabled_flag));
    }

    walk.ue(ELEMENT(sps, num_short_term_ref_pic_sets), up_to(64));
    if (!walk.at_most(ELEMENT(sps, num_short_term_ref_pic_sets),
                      walk.rules.max_short_term_ref_pic_sets) ||
        !walk.data_holds(ELEMENT(sps, num_short_term_ref_pic_sets), sps.num_short_term_ref_pic_sets,
                         /*fewest_bits=*/2) ||
        !walk.grow(sps.num_short_term_ref_pic_sets, sps.st_ref_pic_set)) {
        return false;
    }
    for (unsigned int i = 0; i < sps.num_short_term_ref_pic_sets; ++i) {
        if (!walk.structure(ELEMENT(sps, st_ref_pic_set)[i], [&](auto& set) {
                return st_ref_pic_set(walk, set, sps, i, sps.st_ref_pic_set);
            })) {
            return false;
        }
    }

    walk.u(1, ELEMENT(sps, long_term_ref_pics_present_flag));
    if (sps.long_term_ref_pics_present_flag) {
        walk.ue(ELEMENT(sps, num_long_term_ref_pics_sps), up_to(32));
        if (!walk.at_most(ELEMENT(sps, num_long_term_ref_pics_sps),
                          walk.rules.max_long_term_ref_pics_sps) ||
            !walk.data_holds(ELEMENT(sps, num_long_term_ref_pics_sps),
                             sps.num_long_term_ref_pics_sps, /*fewest_bits=*/5) ||
            !walk.grow(sps.num_long_term_ref_pics_sps, sps.lt_ref_pic_poc_lsb_sps,
                       sps.used_by_curr_pic_lt_sps_flag)) {
            return false;
        }
        const auto lsb_bits =
            static_cast<unsigned char>(wrapping_sum(sps.log2_max_pic_order_cnt_lsb_minus4, 4));
        for (unsigned int i = 0; i < sps.num_long_term_ref_pics_sps; ++i) {
            walk.u_v(lsb_bits, ELEMENT(sps, lt_ref_pic_poc_lsb_sps)[i]);
            walk.u(1, ELEMENT(sps, used_by_curr_pic_lt_sps_flag)[i]);
        }
    }

    walk.u(1, ELEMENT(sps, sps_temporal_mvp_enabled_flag));
    walk.u(1, ELEMENT(sps, strong_intra_smoothing_enabled_flag));
    walk.u(1, ELEMENT(sps, vui_parameters_present_flag));
    if (!sps.vui_parameters_present_flag) {
        walk.rules.infer_absent_vui(walk, sps);
        walk.rules.end_absent_structure(sps.vui_parameters);
    } else if (!walk.structure(ELEMENT(sps, vui_parameters),
                               [&](auto& vui) { return vui_parameters(walk, vui, sps); })) {
        return false;
    }

    walk.u(1, named("sps_extension_present_flag", sps.sps_extension_flag));
    if (sps.sps_extension_flag && !walk.rules.knows_extensions()) {
        walk.extension_data("sps_extension_data_flag");
    } else if (sps.sps_extension_flag &&
               !extensions_or_data(walk, sps, ELEMENT(sps, sps_extension_data_flag),
                                   [&] { return sps_extensions(walk, sps); })) {
        return false;
    }
    return walk.finish_rbsp(sps.valid);
}

}  // namespace kovran

#endif  // KOVRAN_SRC_H265_H265_NAL_SPS_SYNTAX_H
