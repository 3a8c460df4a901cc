#ifndef KOVRAN_SRC_H265_START_AFRESH_H
#define KOVRAN_SRC_H265_START_AFRESH_H

#include <kovran/h265/h265_nal_aud.h>
#include <kovran/h265/h265_nal_pps.h>
#include <kovran/h265/h265_nal_sei_active_parameter_sets.h>
#include <kovran/h265/h265_nal_sei_buffering_period.h>
#include <kovran/h265/h265_nal_sei_pic_timing.h>
#include <kovran/h265/h265_nal_sps.h>
#include <kovran/h265/h265_nal_vps.h>
#include <kovran/h265/h265_slice_segment_header.h>

#include <array>
#include <cstddef>
#include <type_traits>
#include <vector>

namespace kovran {

// start_afresh() makes a record that may have been used before a fresh one, but for the memory of
// its arrays. The fields of a record are named in its own order; the compiler counts them. A fresh
// field is 0, false or empty.
//
// Arrays whose entries have memory of their own keep them, each of them fresh. So do those that are
// sized whenever their structure is read: sparse() ones, whose entries are not all read then, with
// zeros; full() ones as they are, as are those that the reading itself starts afresh. A reading
// that does not come to them has to drop them.

inline void start_afresh(h265_nal_aud& record);
inline void start_afresh(h265_profile_tier_level::layer_t& record);
inline void start_afresh(h265_profile_tier_level& record);
inline void start_afresh(h265_nal_sub_layer_hrd_parameters& record);
inline void start_afresh(h265_hrd_parameters& record);
inline void start_afresh(h265_vui_parameters& record);
inline void start_afresh(h265_scaling_list_data& record);
inline void start_afresh(h265_st_ref_pic_set& record);
inline void start_afresh(h265_nal_vps& record);
inline void start_afresh(h265_sps_range_extension& record);
inline void start_afresh(h265_sps_scc_extension& record);
inline void start_afresh(h265_sps_multilayer_extension& record);
inline void start_afresh(h265_sps_3d_extension& record);
inline void start_afresh(h265_nal_sps& record);
inline void start_afresh(h265_pps_range_extension& record);
inline void start_afresh(h265_colour_mapping_table& record);
inline void start_afresh(h265_pps_multilayer_extension& record);
inline void start_afresh(h265_delta_dlt& record);
inline void start_afresh(h265_pps_3d_extension& record);
inline void start_afresh(h265_pps_scc_extension& record);
inline void start_afresh(h265_nal_pps& record);
inline void start_afresh(h265_ref_pic_lists_modification& record);
inline void start_afresh(h265_pred_weight_table& record);
inline void start_afresh(h265_slice_segment_header& record);
inline void start_afresh(h265_nal_sei_buffering_period& record);
inline void start_afresh(h265_nal_sei_pic_timing& record);
inline void start_afresh(h265_nal_sei_active_parameter_sets& record);

template <class Value>
std::enable_if_t<std::is_arithmetic_v<Value>> start_afresh(Value& value) {
    value = Value{};
}

// A record without arrays.
template <class Record>
std::enable_if_t<std::is_class_v<Record> && std::is_trivially_copyable_v<Record>> start_afresh(
    Record& record) {
    record = Record{};
}

template <class Value>
void start_afresh(std::vector<Value>& array) {
    if constexpr (std::is_trivially_destructible_v<Value>) {
        array.clear();
    } else {
        for (Value& entry : array) {
            start_afresh(entry);
        }
    }
}

template <class Value, std::size_t Count>
void start_afresh(std::array<Value, Count>& entries) {
    for (Value& entry : entries) {
        start_afresh(entry);
    }
}

template <class Array>
struct full_array {
    Array& array;
};
template <class Value>
full_array<std::vector<Value>> full(std::vector<Value>& array) {
    return {array};
}
template <class Value>
void start_afresh(full_array<std::vector<Value>> /*full*/) {}

template <class Array>
struct sparse_array {
    Array& array;
};
template <class Value>
sparse_array<std::vector<Value>> sparse(std::vector<Value>& array) {
    return {array};
}
template <class Value>
void start_afresh(sparse_array<std::vector<Value>> sparse) {
    for (Value& entry : sparse.array) {
        entry = 0;
    }
}

template <class... Fields>
void start_all_afresh(Fields&&... fields) {
    (start_afresh(fields), ...);
}

inline void start_afresh(h265_nal_aud& record) {
    auto& [pic_type, valid] = record;
    start_all_afresh(pic_type, valid);
}

inline void start_afresh(h265_profile_tier_level::layer_t& record) {
    auto& [profile_compatibility_flag, profile_space, profile_idc, level_idc,
           progressive_source_flag, interlaced_source_flag, non_packed_constraint_flag,
           frame_only_constraint_flag, max_12bit_constraint_flag, max_10bit_constraint_flag,
           max_8bit_constraint_flag, max_422chroma_constraint_flag, max_420chroma_constraint_flag,
           max_monochrome_constraint_flag, intra_constraint_flag, one_picture_only_constraint_flag,
           lower_bit_rate_constraint_flag, max_14bit_constraint_flag, inbld_flag, tier_flag,
           profile_present_flag, level_present_flag, valid] = record;
    start_all_afresh(
        full(profile_compatibility_flag), profile_space, profile_idc, level_idc,
        progressive_source_flag, interlaced_source_flag, non_packed_constraint_flag,
        frame_only_constraint_flag, max_12bit_constraint_flag, max_10bit_constraint_flag,
        max_8bit_constraint_flag, max_422chroma_constraint_flag, max_420chroma_constraint_flag,
        max_monochrome_constraint_flag, intra_constraint_flag, one_picture_only_constraint_flag,
        lower_bit_rate_constraint_flag, max_14bit_constraint_flag, inbld_flag, tier_flag,
        profile_present_flag, level_present_flag, valid);
}

inline void start_afresh(h265_profile_tier_level& record) {
    auto& [general, sub_layers, valid] = record;
    start_all_afresh(general, sub_layers, valid);
}

inline void start_afresh(h265_nal_sub_layer_hrd_parameters& record) {
    auto& [subLayerId, cpb_count, bit_rate_value_minus1, cpb_size_value_minus1,
           cpb_size_du_value_minus1, bit_rate_du_value_minus1, cbr_flag, valid] = record;
    start_all_afresh(subLayerId, cpb_count, full(bit_rate_value_minus1),
                     full(cpb_size_value_minus1), sparse(cpb_size_du_value_minus1),
                     sparse(bit_rate_du_value_minus1), full(cbr_flag), valid);
}

inline void start_afresh(h265_hrd_parameters& record) {
    auto& [commonInfPresentFlag, maxNumSubLayersMinus1, nal_hrd_parameters_present_flag,
           vcl_hrd_parameters_present_flag, sub_pic_hrd_params_present_flag, tick_divisor_minus2,
           du_cpb_removal_delay_increment_length_minus1, sub_pic_cpb_params_in_pic_timing_sei_flag,
           dpb_output_delay_du_length_minus1, bit_rate_scale, cpb_size_scale, cpb_size_du_scale,
           initial_cpb_removal_delay_length_minus1, au_cpb_removal_delay_length_minus1,
           dpb_output_delay_length_minus1, fixed_pic_rate_general_flag,
           fixed_pic_rate_within_cvs_flag, elemental_duration_in_tc_minus1, low_delay_hrd_flag,
           cpb_cnt_minus1, nal_sub_layer_hrd, vcl_sub_layer_hrd, valid] = record;
    start_all_afresh(commonInfPresentFlag, maxNumSubLayersMinus1, nal_hrd_parameters_present_flag,
                     vcl_hrd_parameters_present_flag, sub_pic_hrd_params_present_flag,
                     tick_divisor_minus2, du_cpb_removal_delay_increment_length_minus1,
                     sub_pic_cpb_params_in_pic_timing_sei_flag, dpb_output_delay_du_length_minus1,
                     bit_rate_scale, cpb_size_scale, cpb_size_du_scale,
                     initial_cpb_removal_delay_length_minus1, au_cpb_removal_delay_length_minus1,
                     dpb_output_delay_length_minus1, full(fixed_pic_rate_general_flag),
                     full(fixed_pic_rate_within_cvs_flag), sparse(elemental_duration_in_tc_minus1),
                     full(low_delay_hrd_flag), sparse(cpb_cnt_minus1), nal_sub_layer_hrd,
                     vcl_sub_layer_hrd, valid);
}

inline void start_afresh(h265_vui_parameters& record) {
    auto& [aspect_ratio_info_present_flag, aspect_ratio_idc, extended_sar_flag, sar_width,
           sar_height, overscan_info_present_flag, overscan_appropriate_flag,
           video_signal_type_present_flag, video_format, video_full_range_flag,
           colour_description_present_flag, colour_primaries, transfer_characteristics,
           matrix_coeffs, chroma_loc_info_present_flag, chroma_sample_loc_type_top_field,
           chroma_sample_loc_type_bottom_field, neutral_chroma_indication_flag, field_seq_flag,
           frame_field_info_present_flag, default_display_window_flag, def_disp_win_left_offset,
           def_disp_win_right_offset, def_disp_win_top_offset, def_disp_win_bottom_offset,
           vui_timing_info_present_flag, vui_num_units_in_tick, vui_time_scale,
           vui_poc_proportional_to_timing_flag, vui_num_ticks_poc_diff_one_minus1,
           vui_hrd_parameters_present_flag, hrd_parameters, bitstream_restriction_flag,
           tiles_fixed_structure_flag, motion_vectors_over_pic_boundaries_flag,
           restricted_ref_pic_lists_flag, min_spatial_segmentation_idc, max_bytes_per_pic_denom,
           max_bits_per_min_cu_denom, log2_max_mv_length_horizontal, log2_max_mv_length_vertical,
           valid] = record;
    start_all_afresh(
        aspect_ratio_info_present_flag, aspect_ratio_idc, extended_sar_flag, sar_width, sar_height,
        overscan_info_present_flag, overscan_appropriate_flag, video_signal_type_present_flag,
        video_format, video_full_range_flag, colour_description_present_flag, colour_primaries,
        transfer_characteristics, matrix_coeffs, chroma_loc_info_present_flag,
        chroma_sample_loc_type_top_field, chroma_sample_loc_type_bottom_field,
        neutral_chroma_indication_flag, field_seq_flag, frame_field_info_present_flag,
        default_display_window_flag, def_disp_win_left_offset, def_disp_win_right_offset,
        def_disp_win_top_offset, def_disp_win_bottom_offset, vui_timing_info_present_flag,
        vui_num_units_in_tick, vui_time_scale, vui_poc_proportional_to_timing_flag,
        vui_num_ticks_poc_diff_one_minus1, vui_hrd_parameters_present_flag, hrd_parameters,
        bitstream_restriction_flag, tiles_fixed_structure_flag,
        motion_vectors_over_pic_boundaries_flag, restricted_ref_pic_lists_flag,
        min_spatial_segmentation_idc, max_bytes_per_pic_denom, max_bits_per_min_cu_denom,
        log2_max_mv_length_horizontal, log2_max_mv_length_vertical, valid);
}

inline void start_afresh(h265_scaling_list_data& record) {
    auto& [scaling_list_pred_mode_flag, scaling_list_pred_matrix_id_delta,
           scaling_list_dc_coef_minus8, ScalingList, valid] = record;
    start_all_afresh(full(scaling_list_pred_mode_flag), full(scaling_list_pred_matrix_id_delta),
                     full(scaling_list_dc_coef_minus8), full(ScalingList), valid);
}

inline void start_afresh(h265_st_ref_pic_set& record) {
    auto& [deltaRps, stRpsIdx, RefRpsIdx, NumDeltaPocs, inter_ref_pic_set_prediction_flag,
           delta_idx_minus1, delta_rps_sign, abs_delta_rps_minus1, used_by_curr_pic_flag,
           use_delta_flag, num_negative_pics, num_positive_pics, delta_poc_s0_minus1,
           used_by_curr_pic_s0_flag, delta_poc_s1_minus1, used_by_curr_pic_s1_flag, valid] = record;
    start_all_afresh(deltaRps, stRpsIdx, RefRpsIdx, NumDeltaPocs, inter_ref_pic_set_prediction_flag,
                     delta_idx_minus1, delta_rps_sign, abs_delta_rps_minus1,
                     full(used_by_curr_pic_flag), full(use_delta_flag), num_negative_pics,
                     num_positive_pics, full(delta_poc_s0_minus1), full(used_by_curr_pic_s0_flag),
                     full(delta_poc_s1_minus1), full(used_by_curr_pic_s1_flag), valid);
}

inline void start_afresh(h265_nal_vps& record) {
    auto& [vps_video_parameter_set_id, vps_base_layer_internal_flag, vps_base_layer_available_flag,
           vps_max_layers_minus1, vps_max_sub_layers_minus1, vps_temporal_id_nesting_flag,
           vps_reserved_0xffff_16bits, profile_tier_level, vps_sub_layer_ordering_info_present_flag,
           vps_max_dec_pic_buffering_minus1, vps_max_num_reorder_pics,
           vps_max_latency_increase_plus1, vps_max_layer_id, vps_num_layer_sets_minus1,
           layer_id_included_flag, vps_timing_info_present_flag, vps_num_units_in_tick,
           vps_time_scale, vps_poc_proportional_to_timing_flag, vps_num_ticks_poc_diff_one_minus1,
           vps_num_hrd_parameters, hrd_layer_set_idx, cprms_present_flag, hrd_parameters,
           vps_extension_flag, valid] = record;
    start_all_afresh(
        vps_video_parameter_set_id, vps_base_layer_internal_flag, vps_base_layer_available_flag,
        vps_max_layers_minus1, vps_max_sub_layers_minus1, vps_temporal_id_nesting_flag,
        vps_reserved_0xffff_16bits, profile_tier_level, vps_sub_layer_ordering_info_present_flag,
        full(vps_max_dec_pic_buffering_minus1), full(vps_max_num_reorder_pics),
        full(vps_max_latency_increase_plus1), vps_max_layer_id, vps_num_layer_sets_minus1,
        layer_id_included_flag, vps_timing_info_present_flag, vps_num_units_in_tick, vps_time_scale,
        vps_poc_proportional_to_timing_flag, vps_num_ticks_poc_diff_one_minus1,
        vps_num_hrd_parameters, hrd_layer_set_idx, cprms_present_flag, hrd_parameters,
        vps_extension_flag, valid);
}

inline void start_afresh(h265_sps_range_extension& record) {
    auto& [transform_skip_rotation_enabled_flag, transform_skip_context_enabled_flag,
           implicit_rdpcm_enabled_flag, explicit_rdpcm_enabled_flag,
           extended_precision_processing_flag, intra_smoothing_disabled_flag,
           high_precision_offsets_enabled_flag, persistent_rice_adaptation_enabled_flag,
           cabac_bypass_alignment_enabled_flag] = record;
    start_all_afresh(transform_skip_rotation_enabled_flag, transform_skip_context_enabled_flag,
                     implicit_rdpcm_enabled_flag, explicit_rdpcm_enabled_flag,
                     extended_precision_processing_flag, intra_smoothing_disabled_flag,
                     high_precision_offsets_enabled_flag, persistent_rice_adaptation_enabled_flag,
                     cabac_bypass_alignment_enabled_flag);
}

inline void start_afresh(h265_sps_scc_extension& record) {
    auto& [sps_curr_pic_ref_enabled_flag, palette_mode_enabled_flag, palette_max_size,
           delta_palette_max_predictor_size, sps_palette_predictor_initializers_present_flag,
           sps_num_palette_predictor_initializers_minus1, sps_palette_predictor_initializer,
           motion_vector_resolution_control_idc, intra_boundary_filtering_disabled_flag] = record;
    start_all_afresh(
        sps_curr_pic_ref_enabled_flag, palette_mode_enabled_flag, palette_max_size,
        delta_palette_max_predictor_size, sps_palette_predictor_initializers_present_flag,
        sps_num_palette_predictor_initializers_minus1, sps_palette_predictor_initializer,
        motion_vector_resolution_control_idc, intra_boundary_filtering_disabled_flag);
}

inline void start_afresh(h265_sps_multilayer_extension& record) {
    auto& [inter_view_mv_vert_constraint_flag] = record;
    start_all_afresh(inter_view_mv_vert_constraint_flag);
}

inline void start_afresh(h265_sps_3d_extension& record) {
    auto& [iv_di_mc_enabled_flag, iv_mv_scal_enabled_flag, log2_ivmc_sub_pb_size_minus3,
           iv_res_pred_enabled_flag, depth_ref_enabled_flag, vsp_mc_enabled_flag, dbbp_enabled_flag,
           tex_mc_enabled_flag, log2_texmc_sub_pb_size_minus3, intra_contour_enabled_flag,
           intra_dc_only_wedge_enabled_flag, cqt_cu_part_pred_enabled_flag,
           inter_dc_only_enabled_flag, skip_intra_enabled_flag] = record;
    start_all_afresh(iv_di_mc_enabled_flag, iv_mv_scal_enabled_flag, log2_ivmc_sub_pb_size_minus3,
                     iv_res_pred_enabled_flag, depth_ref_enabled_flag, vsp_mc_enabled_flag,
                     dbbp_enabled_flag, tex_mc_enabled_flag, log2_texmc_sub_pb_size_minus3,
                     intra_contour_enabled_flag, intra_dc_only_wedge_enabled_flag,
                     cqt_cu_part_pred_enabled_flag, inter_dc_only_enabled_flag,
                     skip_intra_enabled_flag);
}

inline void start_afresh(h265_nal_sps& record) {
    auto& [sps_video_parameter_set_id, sps_max_sub_layers_minus1, sps_temporal_id_nesting_flag,
           profile_tier_level, sps_seq_parameter_set_id, chroma_format_idc,
           separate_colour_plane_flag, pic_width_in_luma_samples, pic_height_in_luma_samples,
           conformance_window_flag, conf_win_left_offset, conf_win_right_offset,
           conf_win_top_offset, conf_win_bottom_offset, bit_depth_luma_minus8,
           bit_depth_chroma_minus8, log2_max_pic_order_cnt_lsb_minus4,
           sps_sub_layer_ordering_info_present_flag, sps_max_dec_pic_buffering_minus1,
           sps_max_num_reorder_pics, sps_max_latency_increase_plus1,
           log2_min_luma_coding_block_size_minus3, log2_diff_max_min_luma_coding_block_size,
           log2_min_luma_transform_block_size_minus2, log2_diff_max_min_luma_transform_block_size,
           max_transform_hierarchy_depth_inter, max_transform_hierarchy_depth_intra,
           scaling_list_enabled_flag, sps_scaling_list_data_present_flag, scaling_list_data,
           amp_enabled_flag, sample_adaptive_offset_enabled_flag, pcm_enabled_flag,
           pcm_sample_bit_depth_luma_minus1, pcm_sample_bit_depth_chroma_minus1,
           log2_min_pcm_luma_coding_block_size_minus3, log2_diff_max_min_pcm_luma_coding_block_size,
           pcm_loop_filter_disabled_flag, num_short_term_ref_pic_sets, st_ref_pic_set,
           long_term_ref_pics_present_flag, num_long_term_ref_pics_sps, lt_ref_pic_poc_lsb_sps,
           used_by_curr_pic_lt_sps_flag, sps_temporal_mvp_enabled_flag,
           strong_intra_smoothing_enabled_flag, vui_parameters_present_flag, vui_parameters,
           sps_extension_flag, valid, sps_range_extension_flag, sps_multilayer_extension_flag,
           sps_3d_extension_flag, sps_scc_extension_flag, sps_extension_4bits, sps_range_extension,
           sps_multilayer_extension, sps_3d_extension, sps_scc_extension, sps_extension_data_flag] =
        record;
    start_all_afresh(
        sps_video_parameter_set_id, sps_max_sub_layers_minus1, sps_temporal_id_nesting_flag,
        profile_tier_level, sps_seq_parameter_set_id, chroma_format_idc, separate_colour_plane_flag,
        pic_width_in_luma_samples, pic_height_in_luma_samples, conformance_window_flag,
        conf_win_left_offset, conf_win_right_offset, conf_win_top_offset, conf_win_bottom_offset,
        bit_depth_luma_minus8, bit_depth_chroma_minus8, log2_max_pic_order_cnt_lsb_minus4,
        sps_sub_layer_ordering_info_present_flag, full(sps_max_dec_pic_buffering_minus1),
        full(sps_max_num_reorder_pics), full(sps_max_latency_increase_plus1),
        log2_min_luma_coding_block_size_minus3, log2_diff_max_min_luma_coding_block_size,
        log2_min_luma_transform_block_size_minus2, log2_diff_max_min_luma_transform_block_size,
        max_transform_hierarchy_depth_inter, max_transform_hierarchy_depth_intra,
        scaling_list_enabled_flag, sps_scaling_list_data_present_flag, scaling_list_data,
        amp_enabled_flag, sample_adaptive_offset_enabled_flag, pcm_enabled_flag,
        pcm_sample_bit_depth_luma_minus1, pcm_sample_bit_depth_chroma_minus1,
        log2_min_pcm_luma_coding_block_size_minus3, log2_diff_max_min_pcm_luma_coding_block_size,
        pcm_loop_filter_disabled_flag, num_short_term_ref_pic_sets, st_ref_pic_set,
        long_term_ref_pics_present_flag, num_long_term_ref_pics_sps, lt_ref_pic_poc_lsb_sps,
        used_by_curr_pic_lt_sps_flag, sps_temporal_mvp_enabled_flag,
        strong_intra_smoothing_enabled_flag, vui_parameters_present_flag, vui_parameters,
        sps_extension_flag, valid, sps_range_extension_flag, sps_multilayer_extension_flag,
        sps_3d_extension_flag, sps_scc_extension_flag, sps_extension_4bits, sps_range_extension,
        sps_multilayer_extension, sps_3d_extension, sps_scc_extension, sps_extension_data_flag);
}

inline void start_afresh(h265_pps_range_extension& record) {
    auto& [log2_max_transform_skip_block_size_minus2, cross_component_prediction_enabled_flag,
           chroma_qp_offset_list_enabled_flag, diff_cu_chroma_qp_offset_depth,
           chroma_qp_offset_list_len_minus1, cb_qp_offset_list, cr_qp_offset_list,
           log2_sao_offset_scale_luma, log2_sao_offset_scale_chroma] = record;
    start_all_afresh(log2_max_transform_skip_block_size_minus2,
                     cross_component_prediction_enabled_flag, chroma_qp_offset_list_enabled_flag,
                     diff_cu_chroma_qp_offset_depth, chroma_qp_offset_list_len_minus1,
                     cb_qp_offset_list, cr_qp_offset_list, log2_sao_offset_scale_luma,
                     log2_sao_offset_scale_chroma);
}

inline void start_afresh(h265_colour_mapping_table& record) {
    auto& [num_cm_ref_layers_minus1, cm_ref_layer_id, cm_octant_depth, cm_y_part_num_log2,
           luma_bit_depth_cm_input_minus8, chroma_bit_depth_cm_input_minus8,
           luma_bit_depth_cm_output_minus8, chroma_bit_depth_cm_output_minus8, cm_res_quant_bits,
           cm_delta_flc_bits_minus1, cm_adapt_threshold_u_delta, cm_adapt_threshold_v_delta,
           split_octant_flag, parts] = record;
    start_all_afresh(num_cm_ref_layers_minus1, cm_ref_layer_id, cm_octant_depth, cm_y_part_num_log2,
                     luma_bit_depth_cm_input_minus8, chroma_bit_depth_cm_input_minus8,
                     luma_bit_depth_cm_output_minus8, chroma_bit_depth_cm_output_minus8,
                     cm_res_quant_bits, cm_delta_flc_bits_minus1, cm_adapt_threshold_u_delta,
                     cm_adapt_threshold_v_delta, split_octant_flag, parts);
}

inline void start_afresh(h265_pps_multilayer_extension& record) {
    auto& [poc_reset_info_present_flag, pps_infer_scaling_list_flag, pps_scaling_list_ref_layer_id,
           num_ref_loc_offsets, ref_loc_offset_layer_id, scaled_ref_layer_offset_present_flag,
           scaled_ref_layer_left_offset, scaled_ref_layer_top_offset, scaled_ref_layer_right_offset,
           scaled_ref_layer_bottom_offset, ref_region_offset_present_flag, ref_region_left_offset,
           ref_region_top_offset, ref_region_right_offset, ref_region_bottom_offset,
           resample_phase_set_present_flag, phase_hor_luma, phase_ver_luma, phase_hor_chroma_plus8,
           phase_ver_chroma_plus8, colour_mapping_enabled_flag, colour_mapping_table] = record;
    start_all_afresh(
        poc_reset_info_present_flag, pps_infer_scaling_list_flag, pps_scaling_list_ref_layer_id,
        num_ref_loc_offsets, ref_loc_offset_layer_id, scaled_ref_layer_offset_present_flag,
        scaled_ref_layer_left_offset, scaled_ref_layer_top_offset, scaled_ref_layer_right_offset,
        scaled_ref_layer_bottom_offset, ref_region_offset_present_flag, ref_region_left_offset,
        ref_region_top_offset, ref_region_right_offset, ref_region_bottom_offset,
        resample_phase_set_present_flag, phase_hor_luma, phase_ver_luma, phase_hor_chroma_plus8,
        phase_ver_chroma_plus8, colour_mapping_enabled_flag, colour_mapping_table);
}

inline void start_afresh(h265_delta_dlt& record) {
    auto& [num_val_delta_dlt, max_diff, min_diff_minus1, delta_dlt_val0, delta_val_diff_minus_min] =
        record;
    start_all_afresh(num_val_delta_dlt, max_diff, min_diff_minus1, delta_dlt_val0,
                     delta_val_diff_minus_min);
}

inline void start_afresh(h265_pps_3d_extension& record) {
    auto& [dlts_present_flag, pps_depth_layers_minus1, pps_bit_depth_for_depth_layers_minus8,
           dlt_flag, dlt_pred_flag, dlt_val_flags_present_flag, dlt_value_flag, delta_dlt] = record;
    start_all_afresh(dlts_present_flag, pps_depth_layers_minus1,
                     pps_bit_depth_for_depth_layers_minus8, dlt_flag, dlt_pred_flag,
                     dlt_val_flags_present_flag, dlt_value_flag, delta_dlt);
}

inline void start_afresh(h265_pps_scc_extension& record) {
    auto& [pps_curr_pic_ref_enabled_flag, residual_adaptive_colour_transform_enabled_flag,
           pps_slice_act_qp_offsets_present_flag, pps_act_y_qp_offset_plus5,
           pps_act_cb_qp_offset_plus5, pps_act_cr_qp_offset_plus3,
           pps_palette_predictor_initializers_present_flag, pps_num_palette_predictor_initializers,
           monochrome_palette_flag, luma_bit_depth_entry_minus8, chroma_bit_depth_entry_minus8,
           pps_palette_predictor_initializer] = record;
    start_all_afresh(pps_curr_pic_ref_enabled_flag, residual_adaptive_colour_transform_enabled_flag,
                     pps_slice_act_qp_offsets_present_flag, pps_act_y_qp_offset_plus5,
                     pps_act_cb_qp_offset_plus5, pps_act_cr_qp_offset_plus3,
                     pps_palette_predictor_initializers_present_flag,
                     pps_num_palette_predictor_initializers, monochrome_palette_flag,
                     luma_bit_depth_entry_minus8, chroma_bit_depth_entry_minus8,
                     pps_palette_predictor_initializer);
}

inline void start_afresh(h265_nal_pps& record) {
    auto& [pps_pic_parameter_set_id, pps_seq_parameter_set_id,
           dependent_slice_segments_enabled_flag, output_flag_present_flag,
           num_extra_slice_header_bits, sign_data_hiding_enabled_flag, cabac_init_present_flag,
           num_ref_idx_l0_default_active_minus1, num_ref_idx_l1_default_active_minus1,
           init_qp_minus26, constrained_intra_pred_flag, transform_skip_enabled_flag,
           cu_qp_delta_enabled_flag, diff_cu_qp_delta_depth, pps_cb_qp_offset, pps_cr_qp_offset,
           pps_slice_chroma_qp_offsets_present_flag, weighted_pred_flag, weighted_bipred_flag,
           transquant_bypass_enabled_flag, tiles_enabled_flag, entropy_coding_sync_enabled_flag,
           num_tile_columns_minus1, num_tile_rows_minus1, uniform_spacing_flag, column_width_minus1,
           row_height_minus1, loop_filter_across_tiles_enabled_flag,
           pps_loop_filter_across_slices_enabled_flag, deblocking_filter_control_present_flag,
           deblocking_filter_override_enabled_flag, pps_deblocking_filter_disabled_flag,
           pps_beta_offset_div2, pps_tc_offset_div2, pps_scaling_list_data_present_flag,
           scaling_list_data, lists_modification_present_flag, log2_parallel_merge_level_minus2,
           slice_segment_header_extension_present_flag, pps_extension_present_flag, valid,
           pps_range_extension_flag, pps_multilayer_extension_flag, pps_3d_extension_flag,
           pps_scc_extension_flag, pps_extension_4bits, pps_range_extension,
           pps_multilayer_extension, pps_3d_extension, pps_scc_extension, pps_extension_data_flag] =
        record;
    // Their many arrays are fresh unless the flag is set, and hardly a stream has one.
    if (pps_range_extension_flag) {
        start_afresh(pps_range_extension);
    }
    if (pps_multilayer_extension_flag) {
        start_afresh(pps_multilayer_extension);
    }
    if (pps_3d_extension_flag) {
        start_afresh(pps_3d_extension);
    }
    if (pps_scc_extension_flag) {
        start_afresh(pps_scc_extension);
    }
    start_all_afresh(
        pps_pic_parameter_set_id, pps_seq_parameter_set_id, dependent_slice_segments_enabled_flag,
        output_flag_present_flag, num_extra_slice_header_bits, sign_data_hiding_enabled_flag,
        cabac_init_present_flag, num_ref_idx_l0_default_active_minus1,
        num_ref_idx_l1_default_active_minus1, init_qp_minus26, constrained_intra_pred_flag,
        transform_skip_enabled_flag, cu_qp_delta_enabled_flag, diff_cu_qp_delta_depth,
        pps_cb_qp_offset, pps_cr_qp_offset, pps_slice_chroma_qp_offsets_present_flag,
        weighted_pred_flag, weighted_bipred_flag, transquant_bypass_enabled_flag,
        tiles_enabled_flag, entropy_coding_sync_enabled_flag, num_tile_columns_minus1,
        num_tile_rows_minus1, uniform_spacing_flag, column_width_minus1, row_height_minus1,
        loop_filter_across_tiles_enabled_flag, pps_loop_filter_across_slices_enabled_flag,
        deblocking_filter_control_present_flag, deblocking_filter_override_enabled_flag,
        pps_deblocking_filter_disabled_flag, pps_beta_offset_div2, pps_tc_offset_div2,
        pps_scaling_list_data_present_flag, scaling_list_data, lists_modification_present_flag,
        log2_parallel_merge_level_minus2, slice_segment_header_extension_present_flag,
        pps_extension_present_flag, valid, pps_range_extension_flag, pps_multilayer_extension_flag,
        pps_3d_extension_flag, pps_scc_extension_flag, pps_extension_4bits,
        pps_extension_data_flag);
}

inline void start_afresh(h265_ref_pic_lists_modification& record) {
    auto& [ref_pic_list_modification_flag_l0, list_entry_l0, ref_pic_list_modification_flag_l1,
           list_entry_l1, valid] = record;
    start_all_afresh(ref_pic_list_modification_flag_l0, list_entry_l0,
                     ref_pic_list_modification_flag_l1, list_entry_l1, valid);
}

// All of it is values, which are cleared fastest together.
inline void start_afresh(h265_pred_weight_table& record) {
    static_assert(std::is_trivially_copyable_v<h265_pred_weight_table>);
    record = {};
}

inline void start_afresh(h265_slice_segment_header& record) {
    auto& [first_slice_segment_in_pic_flag, no_output_of_prior_pics_flag,
           slice_pic_parameter_set_id, dependent_slice_segment_flag, slice_segment_address,
           slice_type, pic_output_flag, colour_plane_id, slice_pic_order_cnt_lsb,
           short_term_ref_pic_set_sps_flag, st_ref_pic_set, short_term_ref_pic_set_idx,
           num_long_term_sps, num_long_term_pics, lt_idx_sps, poc_lsb_lt, used_by_curr_pic_lt_flag,
           delta_poc_msb_present_flag, delta_poc_msb_cycle_lt, slice_temporal_mvp_enabled_flag,
           slice_sao_luma_flag, slice_sao_chroma_flag, num_ref_idx_active_override_flag,
           num_ref_idx_l0_active_minus1, num_ref_idx_l1_active_minus1, ref_pic_lists_modification,
           NumPicTotalCurr, CurrRpsIdx, valid, mvd_l1_zero_flag, cabac_init_flag,
           collocated_from_l0_flag, collocated_ref_idx, pred_weight_table,
           five_minus_max_num_merge_cand, use_integer_mv_flag, slice_qp_delta, slice_cb_qp_offset,
           slice_cr_qp_offset, slice_act_y_qp_offset, slice_act_cb_qp_offset,
           slice_act_cr_qp_offset, cu_chroma_qp_offset_enabled_flag,
           deblocking_filter_override_flag, slice_deblocking_filter_disabled_flag,
           slice_beta_offset_div2, slice_tc_offset_div2,
           slice_loop_filter_across_slices_enabled_flag, num_entry_point_offsets, offset_len_minus1,
           entry_point_offset_minus1, slice_segment_header_extension_length,
           slice_segment_header_extension_data_byte, slice_data_begin] = record;
    start_all_afresh(
        first_slice_segment_in_pic_flag, no_output_of_prior_pics_flag, slice_pic_parameter_set_id,
        dependent_slice_segment_flag, slice_segment_address, slice_type, pic_output_flag,
        colour_plane_id, slice_pic_order_cnt_lsb, short_term_ref_pic_set_sps_flag, st_ref_pic_set,
        short_term_ref_pic_set_idx, num_long_term_sps, num_long_term_pics, lt_idx_sps, poc_lsb_lt,
        used_by_curr_pic_lt_flag, delta_poc_msb_present_flag, delta_poc_msb_cycle_lt,
        slice_temporal_mvp_enabled_flag, slice_sao_luma_flag, slice_sao_chroma_flag,
        num_ref_idx_active_override_flag, num_ref_idx_l0_active_minus1,
        num_ref_idx_l1_active_minus1, ref_pic_lists_modification, NumPicTotalCurr, CurrRpsIdx,
        valid, mvd_l1_zero_flag, cabac_init_flag, collocated_from_l0_flag, collocated_ref_idx,
        pred_weight_table, five_minus_max_num_merge_cand, use_integer_mv_flag, slice_qp_delta,
        slice_cb_qp_offset, slice_cr_qp_offset, slice_act_y_qp_offset, slice_act_cb_qp_offset,
        slice_act_cr_qp_offset, cu_chroma_qp_offset_enabled_flag, deblocking_filter_override_flag,
        slice_deblocking_filter_disabled_flag, slice_beta_offset_div2, slice_tc_offset_div2,
        slice_loop_filter_across_slices_enabled_flag, num_entry_point_offsets, offset_len_minus1,
        full(entry_point_offset_minus1), slice_segment_header_extension_length,
        slice_segment_header_extension_data_byte, slice_data_begin);
}

inline void start_afresh(h265_nal_sei_buffering_period& record) {
    auto& [bp_seq_parameter_set_id, irap_cpb_params_present_flag, cpb_delay_offset,
           dpb_delay_offset, concatenation_flag, au_cpb_removal_delay_delta_minus1,
           nal_initial_cpb_removal_delay, nal_initial_cpb_removal_offset,
           nal_initial_alt_cpb_removal_delay, nal_initial_alt_cpb_removal_offset,
           vcl_initial_cpb_removal_delay, vcl_initial_cpb_removal_offset,
           vcl_initial_alt_cpb_removal_delay, vcl_initial_alt_cpb_removal_offset,
           use_alt_cpb_params_flag, reserved_u32, CpbCnt, NalHrdBpPresentFlag, VclHrdBpPresentFlag,
           use_alt_cpb_params_flag_present, valid] = record;
    start_all_afresh(bp_seq_parameter_set_id, irap_cpb_params_present_flag, cpb_delay_offset,
                     dpb_delay_offset, concatenation_flag, au_cpb_removal_delay_delta_minus1,
                     nal_initial_cpb_removal_delay, nal_initial_cpb_removal_offset,
                     nal_initial_alt_cpb_removal_delay, nal_initial_alt_cpb_removal_offset,
                     vcl_initial_cpb_removal_delay, vcl_initial_cpb_removal_offset,
                     vcl_initial_alt_cpb_removal_delay, vcl_initial_alt_cpb_removal_offset,
                     use_alt_cpb_params_flag, reserved_u32, CpbCnt, NalHrdBpPresentFlag,
                     VclHrdBpPresentFlag, use_alt_cpb_params_flag_present, valid);
}

inline void start_afresh(h265_nal_sei_pic_timing& record) {
    auto& [pic_struct, source_scan_type, duplicate_flag, au_cpb_removal_delay_minus1,
           pic_dpb_output_delay, pic_dpb_output_du_delay, num_decoding_units_minus1,
           du_common_cpb_removal_delay_flag, du_common_cpb_removal_delay_increment_minus1,
           num_nalus_in_du_minus1, du_cpb_removal_delay_increment_minus1, du_info_present,
           cpb_dpb_delays_present, valid] = record;
    start_all_afresh(pic_struct, source_scan_type, duplicate_flag, au_cpb_removal_delay_minus1,
                     pic_dpb_output_delay, pic_dpb_output_du_delay, num_decoding_units_minus1,
                     du_common_cpb_removal_delay_flag, du_common_cpb_removal_delay_increment_minus1,
                     num_nalus_in_du_minus1, du_cpb_removal_delay_increment_minus1, du_info_present,
                     cpb_dpb_delays_present, valid);
}

inline void start_afresh(h265_nal_sei_active_parameter_sets& record) {
    auto& [active_video_parameter_set_id, self_contained_cvs_flag, no_parameter_set_update_flag,
           num_sps_ids_minus1, active_seq_parameter_set_id, layer_sps_idx, valid] = record;
    start_all_afresh(active_video_parameter_set_id, self_contained_cvs_flag,
                     no_parameter_set_update_flag, num_sps_ids_minus1, active_seq_parameter_set_id,
                     layer_sps_idx, valid);
}

// The matrices of scaling lists, before they are read: few streams have them.
inline void start_matrices_afresh(h265_scaling_list_data& lists) {
    start_all_afresh(lists.scaling_list_pred_mode_flag, lists.scaling_list_pred_matrix_id_delta,
                     lists.scaling_list_dc_coef_minus8, lists.ScalingList);
}

// What stands in the extensions of a parameter set, but for extension data.
inline void drop_extensions(h265_nal_sps& sps) {
    start_all_afresh(sps.sps_range_extension_flag, sps.sps_multilayer_extension_flag,
                     sps.sps_3d_extension_flag, sps.sps_scc_extension_flag, sps.sps_extension_4bits,
                     sps.sps_range_extension, sps.sps_multilayer_extension, sps.sps_3d_extension,
                     sps.sps_scc_extension);
}
inline void drop_extensions(h265_nal_pps& pps) {
    start_all_afresh(pps.pps_range_extension_flag, pps.pps_multilayer_extension_flag,
                     pps.pps_3d_extension_flag, pps.pps_scc_extension_flag, pps.pps_extension_4bits,
                     pps.pps_range_extension, pps.pps_multilayer_extension, pps.pps_3d_extension,
                     pps.pps_scc_extension);
}

// What is left of the entries that start_afresh() keeps when the stream has no such structure:
// none.
inline void drop_entries(h265_profile_tier_level::layer_t& layer) {
    layer.profile_compatibility_flag.clear();
}
inline void drop_entries(h265_nal_sub_layer_hrd_parameters& sub_layer) {
    sub_layer.bit_rate_value_minus1.clear();
    sub_layer.cpb_size_value_minus1.clear();
    sub_layer.cpb_size_du_value_minus1.clear();
    sub_layer.bit_rate_du_value_minus1.clear();
    sub_layer.cbr_flag.clear();
}
inline void drop_entries(h265_hrd_parameters& hrd) {
    hrd.fixed_pic_rate_general_flag.clear();
    hrd.fixed_pic_rate_within_cvs_flag.clear();
    hrd.elemental_duration_in_tc_minus1.clear();
    hrd.low_delay_hrd_flag.clear();
    hrd.cpb_cnt_minus1.clear();
    hrd.nal_sub_layer_hrd.clear();
    hrd.vcl_sub_layer_hrd.clear();
}
inline void drop_entries(h265_vui_parameters& vui) {
    drop_entries(vui.hrd_parameters);
}
inline void drop_entries(h265_scaling_list_data& lists) {
    lists.scaling_list_pred_mode_flag.clear();
    lists.scaling_list_pred_matrix_id_delta.clear();
    lists.scaling_list_dc_coef_minus8.clear();
    lists.ScalingList.clear();
}
inline void drop_prediction_flags(h265_st_ref_pic_set& set) {
    set.used_by_curr_pic_flag.clear();
    set.use_delta_flag.clear();
}
inline void drop_entries(h265_st_ref_pic_set& set) {
    drop_prediction_flags(set);
    set.delta_poc_s0_minus1.clear();
    set.used_by_curr_pic_s0_flag.clear();
    set.delta_poc_s1_minus1.clear();
    set.used_by_curr_pic_s1_flag.clear();
}
inline void drop_entries(h265_pps_3d_extension& extension) {
    extension.dlt_value_flag.clear();
    extension.delta_dlt.clear();
}
inline void drop_entries(std::vector<h265_hrd_parameters>& structures) {
    structures.clear();
}

}  // namespace kovran

#endif  // KOVRAN_SRC_H265_START_AFRESH_H
