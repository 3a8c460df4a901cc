#ifndef KOVRAN_BENCHMARKS_PARAMETER_SET_VALUES_H
#define KOVRAN_BENCHMARKS_PARAMETER_SET_VALUES_H

#include <kovran/h265/h265_nal_pps.h>
#include <kovran/h265/h265_nal_sps.h>
#include <kovran/h265/h265_nal_vps.h>

#include "parsing.h"

namespace kovran::benchmarks {

inline values values_of(const h265_nal_vps& vps) {
    return values_in(
        vps.vps_video_parameter_set_id, vps.vps_max_sub_layers_minus1,
        vps.profile_tier_level.general.profile_idc, vps.profile_tier_level.general.level_idc,
        vps.vps_max_dec_pic_buffering_minus1.back(), vps.vps_max_num_reorder_pics.back(),
        vps.vps_max_latency_increase_plus1.back(), vps.vps_max_layer_id,
        vps.vps_timing_info_present_flag, vps.vps_num_units_in_tick, vps.vps_time_scale);
}

// Values that are not in the stream are left out: by the standard some are inferred, which not
// every contender does.
inline values values_of(const h265_nal_sps& sps) {
    const h265_vui_parameters& vui = sps.vui_parameters;
    values all = values_in(
        sps.sps_seq_parameter_set_id, sps.sps_max_sub_layers_minus1,
        sps.profile_tier_level.general.level_idc, sps.pic_width_in_luma_samples,
        sps.pic_height_in_luma_samples, sps.bit_depth_luma_minus8,
        sps.log2_max_pic_order_cnt_lsb_minus4, sps.sps_max_dec_pic_buffering_minus1.back(),
        sps.log2_diff_max_min_luma_coding_block_size, sps.scaling_list_enabled_flag,
        sps.sample_adaptive_offset_enabled_flag, sps.num_short_term_ref_pic_sets,
        sps.num_long_term_ref_pics_sps, sps.strong_intra_smoothing_enabled_flag,
        sps.vui_parameters_present_flag,
        vui.colour_description_present_flag ? vui.colour_primaries : 0, vui.vui_num_units_in_tick,
        vui.vui_time_scale, vui.vui_hrd_parameters_present_flag, vui.bitstream_restriction_flag,
        vui.bitstream_restriction_flag ? vui.log2_max_mv_length_vertical : 0);
    for (const h265_st_ref_pic_set& set : sps.st_ref_pic_set) {
        all.push_back(set.num_negative_pics);
        all.push_back(set.num_positive_pics);
        all.insert(all.end(), set.used_by_curr_pic_s1_flag.begin(),
                   set.used_by_curr_pic_s1_flag.end());
    }
    for (const auto& lists : sps.scaling_list_data.ScalingList) {
        for (const auto& list : lists) {
            all.insert(all.end(), list.begin(), list.end());
        }
    }
    const h265_hrd_parameters& hrd = vui.hrd_parameters;
    for (const h265_nal_sub_layer_hrd_parameters& sub_layer : hrd.nal_sub_layer_hrd) {
        all.insert(all.end(), sub_layer.bit_rate_value_minus1.begin(),
                   sub_layer.bit_rate_value_minus1.end());
        all.insert(all.end(), sub_layer.cbr_flag.begin(), sub_layer.cbr_flag.end());
    }
    return all;
}

inline values values_of(const h265_nal_pps& pps) {
    return values_in(
        pps.pps_pic_parameter_set_id, pps.pps_seq_parameter_set_id,
        pps.sign_data_hiding_enabled_flag, pps.num_ref_idx_l0_default_active_minus1,
        pps.num_ref_idx_l1_default_active_minus1, pps.init_qp_minus26, pps.cu_qp_delta_enabled_flag,
        pps.diff_cu_qp_delta_depth, pps.pps_cb_qp_offset, pps.pps_cr_qp_offset,
        pps.weighted_pred_flag, pps.weighted_bipred_flag, pps.entropy_coding_sync_enabled_flag,
        pps.pps_loop_filter_across_slices_enabled_flag, pps.log2_parallel_merge_level_minus2);
}

}  // namespace kovran::benchmarks

#endif  // KOVRAN_BENCHMARKS_PARAMETER_SET_VALUES_H
