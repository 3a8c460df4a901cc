#ifndef KOVRAN_BENCHMARKS_GSTREAMER_VALUES_H
#define KOVRAN_BENCHMARKS_GSTREAMER_VALUES_H

#include <iterator>

#include "gstreamer.h"
#include "parsing.h"

namespace kovran::benchmarks {

// The same elements in the same order as in parameter_set_values.h.

inline values values_of(const GstH265VPS& vps) {
    const guint8 highest = vps.max_sub_layers_minus1;
    return values_in(vps.id, vps.max_sub_layers_minus1, vps.profile_tier_level.profile_idc,
                     vps.profile_tier_level.level_idc, vps.max_dec_pic_buffering_minus1[highest],
                     vps.max_num_reorder_pics[highest], vps.max_latency_increase_plus1[highest],
                     vps.max_layer_id, vps.timing_info_present_flag, vps.num_units_in_tick,
                     vps.time_scale);
}

inline void append_scaling_lists(values& all, const GstH265ScalingList& lists) {
    for (const auto& list : lists.scaling_lists_4x4) {
        all.insert(all.end(), std::begin(list), std::end(list));
    }
    for (const auto& list : lists.scaling_lists_8x8) {
        all.insert(all.end(), std::begin(list), std::end(list));
    }
    for (const auto& list : lists.scaling_lists_16x16) {
        all.insert(all.end(), std::begin(list), std::end(list));
    }
    for (const auto& list : lists.scaling_lists_32x32) {
        all.insert(all.end(), std::begin(list), std::end(list));
    }
}

inline values values_of(const GstH265SPS& sps) {
    const GstH265VUIParams& vui = sps.vui_params;
    values all = values_in(
        sps.id, sps.max_sub_layers_minus1, sps.profile_tier_level.level_idc,
        sps.pic_width_in_luma_samples, sps.pic_height_in_luma_samples, sps.bit_depth_luma_minus8,
        sps.log2_max_pic_order_cnt_lsb_minus4,
        sps.max_dec_pic_buffering_minus1[sps.max_sub_layers_minus1],
        sps.log2_diff_max_min_luma_coding_block_size, sps.scaling_list_enabled_flag,
        sps.sample_adaptive_offset_enabled_flag, sps.num_short_term_ref_pic_sets,
        sps.num_long_term_ref_pics_sps, sps.strong_intra_smoothing_enabled_flag,
        sps.vui_parameters_present_flag,
        vui.colour_description_present_flag != 0 ? vui.colour_primaries : 0, vui.num_units_in_tick,
        vui.time_scale, vui.hrd_parameters_present_flag, vui.bitstream_restriction_flag,
        vui.bitstream_restriction_flag != 0 ? vui.log2_max_mv_length_vertical : 0);
    for (unsigned int i = 0; i < sps.num_short_term_ref_pic_sets; ++i) {
        const GstH265ShortTermRefPicSet& set = sps.short_term_ref_pic_set[i];
        all.push_back(set.NumNegativePics);
        all.push_back(set.NumPositivePics);
        all.insert(all.end(), set.UsedByCurrPicS1, set.UsedByCurrPicS1 + set.NumPositivePics);
    }
    if (sps.scaling_list_data_present_flag != 0) {
        append_scaling_lists(all, sps.scaling_list);
    }
    if (vui.hrd_parameters_present_flag != 0) {
        for (unsigned int i = 0; i <= sps.max_sub_layers_minus1; ++i) {
            const GstH265SubLayerHRDParams& sub_layer = vui.hrd_params.sublayer_hrd_params[i];
            const unsigned int cpbs = vui.hrd_params.cpb_cnt_minus1[i] + 1U;
            all.insert(all.end(), sub_layer.bit_rate_value_minus1,
                       sub_layer.bit_rate_value_minus1 + cpbs);
            all.insert(all.end(), sub_layer.cbr_flag, sub_layer.cbr_flag + cpbs);
        }
    }
    return all;
}

inline values values_of(const GstH265PPS& pps) {
    return values_in(
        pps.id, pps.sps_id, pps.sign_data_hiding_enabled_flag,
        pps.num_ref_idx_l0_default_active_minus1, pps.num_ref_idx_l1_default_active_minus1,
        pps.init_qp_minus26, pps.cu_qp_delta_enabled_flag, pps.diff_cu_qp_delta_depth,
        pps.cb_qp_offset, pps.cr_qp_offset, pps.weighted_pred_flag, pps.weighted_bipred_flag,
        pps.entropy_coding_sync_enabled_flag, pps.loop_filter_across_slices_enabled_flag,
        pps.log2_parallel_merge_level_minus2);
}

}  // namespace kovran::benchmarks

#endif  // KOVRAN_BENCHMARKS_GSTREAMER_VALUES_H
