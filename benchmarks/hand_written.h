#ifndef KOVRAN_BENCHMARKS_HAND_WRITTEN_H
#define KOVRAN_BENCHMARKS_HAND_WRITTEN_H

#include <kovran/h265/h265_nal_pps.h>
#include <kovran/h265/h265_nal_sps.h>
#include <kovran/h265/h265_nal_vps.h>

#include "h2645_common/inlined_bitreader.h"
#include "h2645_common/resize.h"

#include <vector>

namespace kovran::benchmarks {

// Parsers as one would write them without a description: a read and a store for each element. They
// go as far as the parameter sets of sei_everything.hevc need, and are false beyond that.

inline bool hand_written_layer(h265_profile_tier_level::layer_t& layer, inlined_bitreader& bits) {
    layer.profile_space = static_cast<unsigned char>(bits.get<unsigned int>(2));
    layer.tier_flag = bits.get<unsigned int>(1) != 0;
    layer.profile_idc = static_cast<unsigned char>(bits.get<unsigned int>(5));
    if (!try_resize(32, layer.profile_compatibility_flag)) {
        return false;
    }
    for (unsigned int j = 0; j < 32; ++j) {
        layer.profile_compatibility_flag[j] = bits.get<unsigned int>(1) != 0;
    }
    layer.progressive_source_flag = bits.get<unsigned int>(1) != 0;
    layer.interlaced_source_flag = bits.get<unsigned int>(1) != 0;
    layer.non_packed_constraint_flag = bits.get<unsigned int>(1) != 0;
    layer.frame_only_constraint_flag = bits.get<unsigned int>(1) != 0;
    const std::vector<bool>& compatible = layer.profile_compatibility_flag;
    const unsigned int idc = layer.profile_idc;
    if (idc == 4 || compatible[4] || idc == 5 || compatible[5] || idc == 6 || compatible[6] ||
        idc == 7 || compatible[7] || idc == 8 || compatible[8] || idc == 9 || compatible[9] ||
        idc == 10 || compatible[10] || idc == 11 || compatible[11]) {
        return false;
    }
    if (idc == 2 || compatible[2]) {
        bits.skip(7);
        layer.one_picture_only_constraint_flag = bits.get<unsigned int>(1) != 0;
        bits.skip(35);
    } else {
        bits.skip(43);
    }
    if (idc == 1 || compatible[1] || idc == 2 || compatible[2] || idc == 3 || compatible[3] ||
        idc == 4 || compatible[4] || idc == 5 || compatible[5] || idc == 9 || compatible[9] ||
        idc == 11 || compatible[11]) {
        layer.inbld_flag = bits.get<unsigned int>(1) != 0;
    } else {
        bits.skip(1);
    }
    layer.level_idc = static_cast<unsigned char>(bits.get<unsigned int>(8));
    layer.valid = true;
    return true;
}

inline bool hand_written_profile_tier_level(h265_profile_tier_level& ptl,
                                            unsigned int maxNumSubLayersMinus1,
                                            inlined_bitreader& bits) {
    ptl.general.profile_present_flag = true;
    ptl.general.level_present_flag = true;
    if (!hand_written_layer(ptl.general, bits) || maxNumSubLayersMinus1 != 0 ||
        !try_resize(0, ptl.sub_layers)) {
        return false;
    }
    ptl.valid = true;
    return true;
}

inline bool hand_written_vps(h265_nal_vps& vps, inlined_bitreader& bits) {
    vps.vps_video_parameter_set_id = static_cast<unsigned char>(bits.get<unsigned int>(4));
    vps.vps_base_layer_internal_flag = bits.get<unsigned int>(1) != 0;
    vps.vps_base_layer_available_flag = bits.get<unsigned int>(1) != 0;
    vps.vps_max_layers_minus1 = static_cast<unsigned char>(bits.get<unsigned int>(6));
    vps.vps_max_sub_layers_minus1 = static_cast<unsigned char>(bits.get<unsigned int>(3));
    vps.vps_temporal_id_nesting_flag = bits.get<unsigned int>(1) != 0;
    vps.vps_reserved_0xffff_16bits = static_cast<unsigned short>(bits.get<unsigned int>(16));
    const unsigned int highest = vps.vps_max_sub_layers_minus1;
    if (!hand_written_profile_tier_level(vps.profile_tier_level, highest, bits)) {
        return false;
    }
    vps.vps_sub_layer_ordering_info_present_flag = bits.get<unsigned int>(1) != 0;
    if (!try_resize(highest + 1, vps.vps_max_dec_pic_buffering_minus1, vps.vps_max_num_reorder_pics,
                    vps.vps_max_latency_increase_plus1)) {
        return false;
    }
    for (unsigned int i = vps.vps_sub_layer_ordering_info_present_flag ? 0 : highest; i <= highest;
         ++i) {
        vps.vps_max_dec_pic_buffering_minus1[i] = bits.ue();
        vps.vps_max_num_reorder_pics[i] = bits.ue();
        vps.vps_max_latency_increase_plus1[i] = bits.ue();
    }
    vps.vps_max_layer_id = static_cast<unsigned char>(bits.get<unsigned int>(6));
    vps.vps_num_layer_sets_minus1 = bits.ue();
    if (vps.vps_num_layer_sets_minus1 != 0 || !try_resize(1, vps.layer_id_included_flag)) {
        return false;
    }
    vps.vps_timing_info_present_flag = bits.get<unsigned int>(1) != 0;
    vps.vps_extension_flag = bits.get<unsigned int>(1) != 0;
    if (vps.vps_timing_info_present_flag || vps.vps_extension_flag) {
        return false;
    }
    vps.valid = bits.rbsp_trailing_bits();
    return vps.valid;
}

inline bool hand_written_hrd(h265_hrd_parameters& hrd, unsigned int maxNumSubLayersMinus1,
                             inlined_bitreader& bits) {
    hrd.valid = false;
    hrd.commonInfPresentFlag = true;
    hrd.maxNumSubLayersMinus1 = maxNumSubLayersMinus1;
    hrd.nal_hrd_parameters_present_flag = bits.get<unsigned int>(1) != 0;
    hrd.vcl_hrd_parameters_present_flag = bits.get<unsigned int>(1) != 0;
    hrd.sub_pic_hrd_params_present_flag = bits.get<unsigned int>(1) != 0;
    if (!hrd.nal_hrd_parameters_present_flag || hrd.vcl_hrd_parameters_present_flag ||
        hrd.sub_pic_hrd_params_present_flag) {
        return false;
    }
    hrd.bit_rate_scale = static_cast<unsigned char>(bits.get<unsigned int>(4));
    hrd.cpb_size_scale = static_cast<unsigned char>(bits.get<unsigned int>(4));
    hrd.initial_cpb_removal_delay_length_minus1 =
        static_cast<unsigned char>(bits.get<unsigned int>(5));
    hrd.au_cpb_removal_delay_length_minus1 = static_cast<unsigned char>(bits.get<unsigned int>(5));
    hrd.dpb_output_delay_length_minus1 = static_cast<unsigned char>(bits.get<unsigned int>(5));
    if (maxNumSubLayersMinus1 > 127 ||
        !try_resize(maxNumSubLayersMinus1 + 1, hrd.fixed_pic_rate_general_flag,
                    hrd.fixed_pic_rate_within_cvs_flag, hrd.elemental_duration_in_tc_minus1,
                    hrd.low_delay_hrd_flag, hrd.cpb_cnt_minus1, hrd.nal_sub_layer_hrd,
                    hrd.vcl_sub_layer_hrd)) {
        return false;
    }
    for (unsigned int i = 0; i <= maxNumSubLayersMinus1; ++i) {
        hrd.fixed_pic_rate_general_flag[i] = bits.get<unsigned int>(1) != 0;
        hrd.fixed_pic_rate_within_cvs_flag[i] =
            hrd.fixed_pic_rate_general_flag[i] || bits.get<unsigned int>(1) != 0;
        if (hrd.fixed_pic_rate_within_cvs_flag[i]) {
            hrd.elemental_duration_in_tc_minus1[i] = bits.ue();
        } else {
            hrd.low_delay_hrd_flag[i] = bits.get<unsigned int>(1) != 0;
        }
        if (!hrd.low_delay_hrd_flag[i]) {
            hrd.cpb_cnt_minus1[i] = bits.ue();
        }
        h265_nal_sub_layer_hrd_parameters& nal = hrd.nal_sub_layer_hrd[i];
        nal.subLayerId = i;
        nal.cpb_count = hrd.cpb_cnt_minus1[i] + 1;
        if (nal.cpb_count > 128 ||
            !try_resize(nal.cpb_count, nal.bit_rate_value_minus1, nal.cpb_size_value_minus1,
                        nal.cpb_size_du_value_minus1, nal.bit_rate_du_value_minus1, nal.cbr_flag)) {
            return false;
        }
        for (unsigned int cpb = 0; cpb < nal.cpb_count; ++cpb) {
            nal.bit_rate_value_minus1[cpb] = bits.ue();
            nal.cpb_size_value_minus1[cpb] = bits.ue();
            nal.cbr_flag[cpb] = bits.get<unsigned int>(1) != 0;
        }
        nal.valid = true;
    }
    hrd.valid = true;
    return true;
}

inline bool hand_written_vui(h265_vui_parameters& vui, unsigned int highest,
                             inlined_bitreader& bits) {
    vui.valid = false;
    vui.aspect_ratio_info_present_flag = bits.get<unsigned int>(1) != 0;
    if (vui.aspect_ratio_info_present_flag) {
        vui.aspect_ratio_idc = static_cast<unsigned char>(bits.get<unsigned int>(8));
        if (vui.aspect_ratio_idc != 1) {
            return false;
        }
        vui.sar_width = 1;
        vui.sar_height = 1;
    }
    vui.overscan_info_present_flag = bits.get<unsigned int>(1) != 0;
    vui.video_signal_type_present_flag = bits.get<unsigned int>(1) != 0;
    vui.chroma_loc_info_present_flag = bits.get<unsigned int>(1) != 0;
    vui.neutral_chroma_indication_flag = bits.get<unsigned int>(1) != 0;
    vui.field_seq_flag = bits.get<unsigned int>(1) != 0;
    vui.frame_field_info_present_flag = bits.get<unsigned int>(1) != 0;
    vui.default_display_window_flag = bits.get<unsigned int>(1) != 0;
    if (vui.overscan_info_present_flag || vui.video_signal_type_present_flag ||
        vui.chroma_loc_info_present_flag || vui.default_display_window_flag) {
        return false;
    }
    vui.vui_timing_info_present_flag = bits.get<unsigned int>(1) != 0;
    if (vui.vui_timing_info_present_flag) {
        vui.vui_num_units_in_tick = bits.get<unsigned int>(32);
        vui.vui_time_scale = bits.get<unsigned int>(32);
        vui.vui_poc_proportional_to_timing_flag = bits.get<unsigned int>(1) != 0;
        if (vui.vui_poc_proportional_to_timing_flag) {
            vui.vui_num_ticks_poc_diff_one_minus1 = bits.ue();
        }
        vui.vui_hrd_parameters_present_flag = bits.get<unsigned int>(1) != 0;
        if (vui.vui_hrd_parameters_present_flag &&
            !hand_written_hrd(vui.hrd_parameters, highest, bits)) {
            return false;
        }
    }
    vui.bitstream_restriction_flag = bits.get<unsigned int>(1) != 0;
    vui.valid = !vui.bitstream_restriction_flag;
    return vui.valid;
}

inline bool hand_written_sps(h265_nal_sps& sps, inlined_bitreader& bits,
                             h2645_common_base_store<h265_nal_vps>& vps_store) {
    sps.valid = false;
    sps.sps_video_parameter_set_id = static_cast<unsigned char>(bits.get<unsigned int>(4));
    const auto vps = vps_store.find(sps.sps_video_parameter_set_id);
    if (vps == vps_store.end() || !vps->second.valid) {
        return false;
    }
    sps.sps_max_sub_layers_minus1 = static_cast<unsigned char>(bits.get<unsigned int>(3));
    sps.sps_temporal_id_nesting_flag = bits.get<unsigned int>(1) != 0;
    const unsigned int highest = sps.sps_max_sub_layers_minus1;
    if (!hand_written_profile_tier_level(sps.profile_tier_level, highest, bits)) {
        return false;
    }
    sps.sps_seq_parameter_set_id = bits.ue();
    sps.chroma_format_idc = bits.ue();
    if (sps.chroma_format_idc == 3) {
        sps.separate_colour_plane_flag = bits.get<unsigned int>(1) != 0;
    }
    sps.pic_width_in_luma_samples = bits.ue();
    sps.pic_height_in_luma_samples = bits.ue();
    sps.conformance_window_flag = bits.get<unsigned int>(1) != 0;
    if (sps.conformance_window_flag) {
        sps.conf_win_left_offset = bits.ue();
        sps.conf_win_right_offset = bits.ue();
        sps.conf_win_top_offset = bits.ue();
        sps.conf_win_bottom_offset = bits.ue();
    }
    sps.bit_depth_luma_minus8 = bits.ue();
    sps.bit_depth_chroma_minus8 = bits.ue();
    sps.log2_max_pic_order_cnt_lsb_minus4 = bits.ue();
    sps.sps_sub_layer_ordering_info_present_flag = bits.get<unsigned int>(1) != 0;
    if (!try_resize(highest + 1, sps.sps_max_dec_pic_buffering_minus1, sps.sps_max_num_reorder_pics,
                    sps.sps_max_latency_increase_plus1)) {
        return false;
    }
    for (unsigned int i = sps.sps_sub_layer_ordering_info_present_flag ? 0 : highest; i <= highest;
         ++i) {
        sps.sps_max_dec_pic_buffering_minus1[i] = bits.ue();
        sps.sps_max_num_reorder_pics[i] = bits.ue();
        sps.sps_max_latency_increase_plus1[i] = bits.ue();
    }
    sps.log2_min_luma_coding_block_size_minus3 = bits.ue();
    sps.log2_diff_max_min_luma_coding_block_size = bits.ue();
    sps.log2_min_luma_transform_block_size_minus2 = bits.ue();
    sps.log2_diff_max_min_luma_transform_block_size = bits.ue();
    sps.max_transform_hierarchy_depth_inter = bits.ue();
    sps.max_transform_hierarchy_depth_intra = bits.ue();
    sps.scaling_list_enabled_flag = bits.get<unsigned int>(1) != 0;
    sps.amp_enabled_flag = bits.get<unsigned int>(1) != 0;
    sps.sample_adaptive_offset_enabled_flag = bits.get<unsigned int>(1) != 0;
    sps.pcm_enabled_flag = bits.get<unsigned int>(1) != 0;
    sps.num_short_term_ref_pic_sets = bits.ue();
    sps.long_term_ref_pics_present_flag = bits.get<unsigned int>(1) != 0;
    if (sps.scaling_list_enabled_flag || sps.pcm_enabled_flag ||
        sps.num_short_term_ref_pic_sets != 0 || sps.long_term_ref_pics_present_flag ||
        !try_resize(0, sps.st_ref_pic_set)) {
        return false;
    }
    sps.sps_temporal_mvp_enabled_flag = bits.get<unsigned int>(1) != 0;
    sps.strong_intra_smoothing_enabled_flag = bits.get<unsigned int>(1) != 0;
    sps.vui_parameters_present_flag = bits.get<unsigned int>(1) != 0;
    if (sps.vui_parameters_present_flag && !hand_written_vui(sps.vui_parameters, highest, bits)) {
        return false;
    }
    sps.sps_extension_flag = bits.get<unsigned int>(1) != 0;
    if (sps.sps_extension_flag) {
        return false;
    }
    sps.valid = bits.rbsp_trailing_bits();
    return sps.valid;
}

inline bool hand_written_pps(h265_nal_pps& pps, inlined_bitreader& bits,
                             h2645_common_base_store<h265_nal_sps>& sps_store) {
    pps.valid = false;
    pps.pps_pic_parameter_set_id = bits.ue();
    pps.pps_seq_parameter_set_id = bits.ue();
    const auto sps = sps_store.find(pps.pps_seq_parameter_set_id);
    if (sps == sps_store.end() || !sps->second.valid) {
        return false;
    }
    pps.dependent_slice_segments_enabled_flag = bits.get<unsigned int>(1) != 0;
    pps.output_flag_present_flag = bits.get<unsigned int>(1) != 0;
    pps.num_extra_slice_header_bits = static_cast<unsigned char>(bits.get<unsigned int>(3));
    pps.sign_data_hiding_enabled_flag = bits.get<unsigned int>(1) != 0;
    pps.cabac_init_present_flag = bits.get<unsigned int>(1) != 0;
    pps.num_ref_idx_l0_default_active_minus1 = bits.ue();
    pps.num_ref_idx_l1_default_active_minus1 = bits.ue();
    pps.init_qp_minus26 = bits.se();
    pps.constrained_intra_pred_flag = bits.get<unsigned int>(1) != 0;
    pps.transform_skip_enabled_flag = bits.get<unsigned int>(1) != 0;
    pps.cu_qp_delta_enabled_flag = bits.get<unsigned int>(1) != 0;
    pps.diff_cu_qp_delta_depth = pps.cu_qp_delta_enabled_flag ? bits.ue() : 0;
    pps.pps_cb_qp_offset = bits.se();
    pps.pps_cr_qp_offset = bits.se();
    pps.pps_slice_chroma_qp_offsets_present_flag = bits.get<unsigned int>(1) != 0;
    pps.weighted_pred_flag = bits.get<unsigned int>(1) != 0;
    pps.weighted_bipred_flag = bits.get<unsigned int>(1) != 0;
    pps.transquant_bypass_enabled_flag = bits.get<unsigned int>(1) != 0;
    pps.tiles_enabled_flag = bits.get<unsigned int>(1) != 0;
    pps.entropy_coding_sync_enabled_flag = bits.get<unsigned int>(1) != 0;
    if (pps.tiles_enabled_flag) {
        return false;
    }
    pps.pps_loop_filter_across_slices_enabled_flag = bits.get<unsigned int>(1) != 0;
    pps.deblocking_filter_control_present_flag = bits.get<unsigned int>(1) != 0;
    if (pps.deblocking_filter_control_present_flag) {
        pps.deblocking_filter_override_enabled_flag = bits.get<unsigned int>(1) != 0;
        pps.pps_deblocking_filter_disabled_flag = bits.get<unsigned int>(1) != 0;
        if (!pps.pps_deblocking_filter_disabled_flag) {
            pps.pps_beta_offset_div2 = bits.se();
            pps.pps_tc_offset_div2 = bits.se();
        }
    }
    pps.pps_scaling_list_data_present_flag = bits.get<unsigned int>(1) != 0;
    if (pps.pps_scaling_list_data_present_flag) {
        return false;
    }
    pps.lists_modification_present_flag = bits.get<unsigned int>(1) != 0;
    pps.log2_parallel_merge_level_minus2 = bits.ue();
    pps.slice_segment_header_extension_present_flag = bits.get<unsigned int>(1) != 0;
    pps.pps_extension_present_flag = bits.get<unsigned int>(1) != 0;
    if (pps.pps_extension_present_flag) {
        return false;
    }
    pps.valid = bits.rbsp_trailing_bits();
    return pps.valid;
}

}  // namespace kovran::benchmarks

#endif  // KOVRAN_BENCHMARKS_HAND_WRITTEN_H
