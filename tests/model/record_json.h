#ifndef KOVRAN_TESTS_MODEL_RECORD_JSON_H
#define KOVRAN_TESTS_MODEL_RECORD_JSON_H

#include <kovran/h2645_common/h2645_common_base_store.h>
#include <kovran/h265/h265_colour_mapping_table.h>
#include <kovran/h265/h265_delta_dlt.h>
#include <kovran/h265/h265_hrd_parameters.h>
#include <kovran/h265/h265_nal_aud.h>
#include <kovran/h265/h265_nal_pps.h>
#include <kovran/h265/h265_nal_sei_active_parameter_sets.h>
#include <kovran/h265/h265_nal_sei_buffering_period.h>
#include <kovran/h265/h265_nal_sei_pic_timing.h>
#include <kovran/h265/h265_nal_sps.h>
#include <kovran/h265/h265_nal_sub_layer_hrd_parameters.h>
#include <kovran/h265/h265_nal_vps.h>
#include <kovran/h265/h265_pps_3d_extension.h>
#include <kovran/h265/h265_pps_multilayer_extension.h>
#include <kovran/h265/h265_pps_range_extension.h>
#include <kovran/h265/h265_pps_scc_extension.h>
#include <kovran/h265/h265_pred_weight_table.h>
#include <kovran/h265/h265_profile_tier_level.h>
#include <kovran/h265/h265_ref_pic_lists_modification.h>
#include <kovran/h265/h265_scaling_list_data.h>
#include <kovran/h265/h265_slice_segment_header.h>
#include <kovran/h265/h265_sps_3d_extension.h>
#include <kovran/h265/h265_sps_multilayer_extension.h>
#include <kovran/h265/h265_sps_range_extension.h>
#include <kovran/h265/h265_sps_scc_extension.h>
#include <kovran/h265/h265_st_ref_pic_set.h>
#include <kovran/h265/h265_vui_parameters.h>

#include <nlohmann/json.hpp>

#include <array>
#include <cstddef>
#include <stdexcept>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

// Records as JSON: an object of the fields by name, without those that are zero, false or empty.
// An array of flags is a string of 0 and 1. An array may also be {"size": ..., "head": ...}, which
// leaves out zeros at its end, as one of a fixed length may.
namespace kovran::model {

using json = nlohmann::json;

template <class Record>
struct fields_of;  // visit(record, visit) calls visit(name, record.field) for each field in order

#define FIELD(name) visit(#name, record.name)

template <>
struct fields_of<h265_nal_aud> {
    template <class Record, class Visit>
    static void visit(Record& record, Visit visit) {
        FIELD(pic_type);
        FIELD(valid);
    }
};

template <>
struct fields_of<h265_profile_tier_level::layer_t> {
    template <class Record, class Visit>
    static void visit(Record& record, Visit visit) {
        FIELD(profile_compatibility_flag);
        FIELD(profile_space);
        FIELD(profile_idc);
        FIELD(level_idc);
        FIELD(progressive_source_flag);
        FIELD(interlaced_source_flag);
        FIELD(non_packed_constraint_flag);
        FIELD(frame_only_constraint_flag);
        FIELD(max_12bit_constraint_flag);
        FIELD(max_10bit_constraint_flag);
        FIELD(max_8bit_constraint_flag);
        FIELD(max_422chroma_constraint_flag);
        FIELD(max_420chroma_constraint_flag);
        FIELD(max_monochrome_constraint_flag);
        FIELD(intra_constraint_flag);
        FIELD(one_picture_only_constraint_flag);
        FIELD(lower_bit_rate_constraint_flag);
        FIELD(max_14bit_constraint_flag);
        FIELD(inbld_flag);
        FIELD(tier_flag);
        FIELD(profile_present_flag);
        FIELD(level_present_flag);
        FIELD(valid);
    }
};

template <>
struct fields_of<h265_profile_tier_level> {
    template <class Record, class Visit>
    static void visit(Record& record, Visit visit) {
        FIELD(general);
        FIELD(sub_layers);
        FIELD(valid);
    }
};

template <>
struct fields_of<h265_nal_sub_layer_hrd_parameters> {
    template <class Record, class Visit>
    static void visit(Record& record, Visit visit) {
        FIELD(subLayerId);
        FIELD(cpb_count);
        FIELD(bit_rate_value_minus1);
        FIELD(cpb_size_value_minus1);
        FIELD(cpb_size_du_value_minus1);
        FIELD(bit_rate_du_value_minus1);
        FIELD(cbr_flag);
        FIELD(valid);
    }
};

template <>
struct fields_of<h265_hrd_parameters> {
    template <class Record, class Visit>
    static void visit(Record& record, Visit visit) {
        FIELD(commonInfPresentFlag);
        FIELD(maxNumSubLayersMinus1);
        FIELD(nal_hrd_parameters_present_flag);
        FIELD(vcl_hrd_parameters_present_flag);
        FIELD(sub_pic_hrd_params_present_flag);
        FIELD(tick_divisor_minus2);
        FIELD(du_cpb_removal_delay_increment_length_minus1);
        FIELD(sub_pic_cpb_params_in_pic_timing_sei_flag);
        FIELD(dpb_output_delay_du_length_minus1);
        FIELD(bit_rate_scale);
        FIELD(cpb_size_scale);
        FIELD(cpb_size_du_scale);
        FIELD(initial_cpb_removal_delay_length_minus1);
        FIELD(au_cpb_removal_delay_length_minus1);
        FIELD(dpb_output_delay_length_minus1);
        FIELD(fixed_pic_rate_general_flag);
        FIELD(fixed_pic_rate_within_cvs_flag);
        FIELD(elemental_duration_in_tc_minus1);
        FIELD(low_delay_hrd_flag);
        FIELD(cpb_cnt_minus1);
        FIELD(nal_sub_layer_hrd);
        FIELD(vcl_sub_layer_hrd);
        FIELD(valid);
    }
};

template <>
struct fields_of<h265_nal_vps> {
    template <class Record, class Visit>
    static void visit(Record& record, Visit visit) {
        FIELD(vps_video_parameter_set_id);
        FIELD(vps_base_layer_internal_flag);
        FIELD(vps_base_layer_available_flag);
        FIELD(vps_max_layers_minus1);
        FIELD(vps_max_sub_layers_minus1);
        FIELD(vps_temporal_id_nesting_flag);
        FIELD(vps_reserved_0xffff_16bits);
        FIELD(profile_tier_level);
        FIELD(vps_sub_layer_ordering_info_present_flag);
        FIELD(vps_max_dec_pic_buffering_minus1);
        FIELD(vps_max_num_reorder_pics);
        FIELD(vps_max_latency_increase_plus1);
        FIELD(vps_max_layer_id);
        FIELD(vps_num_layer_sets_minus1);
        FIELD(layer_id_included_flag);
        FIELD(vps_timing_info_present_flag);
        FIELD(vps_num_units_in_tick);
        FIELD(vps_time_scale);
        FIELD(vps_poc_proportional_to_timing_flag);
        FIELD(vps_num_ticks_poc_diff_one_minus1);
        FIELD(vps_num_hrd_parameters);
        FIELD(hrd_layer_set_idx);
        FIELD(cprms_present_flag);
        FIELD(hrd_parameters);
        FIELD(vps_extension_flag);
        FIELD(valid);
    }
};

template <>
struct fields_of<h265_scaling_list_data> {
    template <class Record, class Visit>
    static void visit(Record& record, Visit visit) {
        FIELD(scaling_list_pred_mode_flag);
        FIELD(scaling_list_pred_matrix_id_delta);
        FIELD(scaling_list_dc_coef_minus8);
        FIELD(ScalingList);
        FIELD(valid);
    }
};

template <>
struct fields_of<h265_st_ref_pic_set> {
    template <class Record, class Visit>
    static void visit(Record& record, Visit visit) {
        FIELD(deltaRps);
        FIELD(stRpsIdx);
        FIELD(RefRpsIdx);
        FIELD(NumDeltaPocs);
        FIELD(inter_ref_pic_set_prediction_flag);
        FIELD(delta_idx_minus1);
        FIELD(delta_rps_sign);
        FIELD(abs_delta_rps_minus1);
        FIELD(used_by_curr_pic_flag);
        FIELD(use_delta_flag);
        FIELD(num_negative_pics);
        FIELD(num_positive_pics);
        FIELD(delta_poc_s0_minus1);
        FIELD(used_by_curr_pic_s0_flag);
        FIELD(delta_poc_s1_minus1);
        FIELD(used_by_curr_pic_s1_flag);
        FIELD(valid);
    }
};

template <>
struct fields_of<h265_vui_parameters> {
    template <class Record, class Visit>
    static void visit(Record& record, Visit visit) {
        FIELD(aspect_ratio_info_present_flag);
        FIELD(aspect_ratio_idc);
        FIELD(extended_sar_flag);
        FIELD(sar_width);
        FIELD(sar_height);
        FIELD(overscan_info_present_flag);
        FIELD(overscan_appropriate_flag);
        FIELD(video_signal_type_present_flag);
        FIELD(video_format);
        FIELD(video_full_range_flag);
        FIELD(colour_description_present_flag);
        FIELD(colour_primaries);
        FIELD(transfer_characteristics);
        FIELD(matrix_coeffs);
        FIELD(chroma_loc_info_present_flag);
        FIELD(chroma_sample_loc_type_top_field);
        FIELD(chroma_sample_loc_type_bottom_field);
        FIELD(neutral_chroma_indication_flag);
        FIELD(field_seq_flag);
        FIELD(frame_field_info_present_flag);
        FIELD(default_display_window_flag);
        FIELD(def_disp_win_left_offset);
        FIELD(def_disp_win_right_offset);
        FIELD(def_disp_win_top_offset);
        FIELD(def_disp_win_bottom_offset);
        FIELD(vui_timing_info_present_flag);
        FIELD(vui_num_units_in_tick);
        FIELD(vui_time_scale);
        FIELD(vui_poc_proportional_to_timing_flag);
        FIELD(vui_num_ticks_poc_diff_one_minus1);
        FIELD(vui_hrd_parameters_present_flag);
        FIELD(hrd_parameters);
        FIELD(bitstream_restriction_flag);
        FIELD(tiles_fixed_structure_flag);
        FIELD(motion_vectors_over_pic_boundaries_flag);
        FIELD(restricted_ref_pic_lists_flag);
        FIELD(min_spatial_segmentation_idc);
        FIELD(max_bytes_per_pic_denom);
        FIELD(max_bits_per_min_cu_denom);
        FIELD(log2_max_mv_length_horizontal);
        FIELD(log2_max_mv_length_vertical);
        FIELD(valid);
    }
};

template <>
struct fields_of<h265_sps_range_extension> {
    template <class Record, class Visit>
    static void visit(Record& record, Visit visit) {
        FIELD(transform_skip_rotation_enabled_flag);
        FIELD(transform_skip_context_enabled_flag);
        FIELD(implicit_rdpcm_enabled_flag);
        FIELD(explicit_rdpcm_enabled_flag);
        FIELD(extended_precision_processing_flag);
        FIELD(intra_smoothing_disabled_flag);
        FIELD(high_precision_offsets_enabled_flag);
        FIELD(persistent_rice_adaptation_enabled_flag);
        FIELD(cabac_bypass_alignment_enabled_flag);
    }
};

template <>
struct fields_of<h265_sps_multilayer_extension> {
    template <class Record, class Visit>
    static void visit(Record& record, Visit visit) {
        FIELD(inter_view_mv_vert_constraint_flag);
    }
};

template <>
struct fields_of<h265_sps_3d_extension> {
    template <class Record, class Visit>
    static void visit(Record& record, Visit visit) {
        FIELD(iv_di_mc_enabled_flag);
        FIELD(iv_mv_scal_enabled_flag);
        FIELD(log2_ivmc_sub_pb_size_minus3);
        FIELD(iv_res_pred_enabled_flag);
        FIELD(depth_ref_enabled_flag);
        FIELD(vsp_mc_enabled_flag);
        FIELD(dbbp_enabled_flag);
        FIELD(tex_mc_enabled_flag);
        FIELD(log2_texmc_sub_pb_size_minus3);
        FIELD(intra_contour_enabled_flag);
        FIELD(intra_dc_only_wedge_enabled_flag);
        FIELD(cqt_cu_part_pred_enabled_flag);
        FIELD(inter_dc_only_enabled_flag);
        FIELD(skip_intra_enabled_flag);
    }
};

template <>
struct fields_of<h265_sps_scc_extension> {
    template <class Record, class Visit>
    static void visit(Record& record, Visit visit) {
        FIELD(sps_curr_pic_ref_enabled_flag);
        FIELD(palette_mode_enabled_flag);
        FIELD(palette_max_size);
        FIELD(delta_palette_max_predictor_size);
        FIELD(sps_palette_predictor_initializers_present_flag);
        FIELD(sps_num_palette_predictor_initializers_minus1);
        FIELD(sps_palette_predictor_initializer);
        FIELD(motion_vector_resolution_control_idc);
        FIELD(intra_boundary_filtering_disabled_flag);
    }
};

template <>
struct fields_of<h265_nal_sps> {
    template <class Record, class Visit>
    static void visit(Record& record, Visit visit) {
        FIELD(sps_video_parameter_set_id);
        FIELD(sps_max_sub_layers_minus1);
        FIELD(sps_temporal_id_nesting_flag);
        FIELD(profile_tier_level);
        FIELD(sps_seq_parameter_set_id);
        FIELD(chroma_format_idc);
        FIELD(separate_colour_plane_flag);
        FIELD(pic_width_in_luma_samples);
        FIELD(pic_height_in_luma_samples);
        FIELD(conformance_window_flag);
        FIELD(conf_win_left_offset);
        FIELD(conf_win_right_offset);
        FIELD(conf_win_top_offset);
        FIELD(conf_win_bottom_offset);
        FIELD(bit_depth_luma_minus8);
        FIELD(bit_depth_chroma_minus8);
        FIELD(log2_max_pic_order_cnt_lsb_minus4);
        FIELD(sps_sub_layer_ordering_info_present_flag);
        FIELD(sps_max_dec_pic_buffering_minus1);
        FIELD(sps_max_num_reorder_pics);
        FIELD(sps_max_latency_increase_plus1);
        FIELD(log2_min_luma_coding_block_size_minus3);
        FIELD(log2_diff_max_min_luma_coding_block_size);
        FIELD(log2_min_luma_transform_block_size_minus2);
        FIELD(log2_diff_max_min_luma_transform_block_size);
        FIELD(max_transform_hierarchy_depth_inter);
        FIELD(max_transform_hierarchy_depth_intra);
        FIELD(scaling_list_enabled_flag);
        FIELD(sps_scaling_list_data_present_flag);
        FIELD(scaling_list_data);
        FIELD(amp_enabled_flag);
        FIELD(sample_adaptive_offset_enabled_flag);
        FIELD(pcm_enabled_flag);
        FIELD(pcm_sample_bit_depth_luma_minus1);
        FIELD(pcm_sample_bit_depth_chroma_minus1);
        FIELD(log2_min_pcm_luma_coding_block_size_minus3);
        FIELD(log2_diff_max_min_pcm_luma_coding_block_size);
        FIELD(pcm_loop_filter_disabled_flag);
        FIELD(num_short_term_ref_pic_sets);
        FIELD(st_ref_pic_set);
        FIELD(long_term_ref_pics_present_flag);
        FIELD(num_long_term_ref_pics_sps);
        FIELD(lt_ref_pic_poc_lsb_sps);
        FIELD(used_by_curr_pic_lt_sps_flag);
        FIELD(sps_temporal_mvp_enabled_flag);
        FIELD(strong_intra_smoothing_enabled_flag);
        FIELD(vui_parameters_present_flag);
        FIELD(vui_parameters);
        FIELD(sps_extension_flag);
        FIELD(valid);
        FIELD(sps_range_extension_flag);
        FIELD(sps_multilayer_extension_flag);
        FIELD(sps_3d_extension_flag);
        FIELD(sps_scc_extension_flag);
        FIELD(sps_extension_4bits);
        FIELD(sps_range_extension);
        FIELD(sps_multilayer_extension);
        FIELD(sps_3d_extension);
        FIELD(sps_scc_extension);
        FIELD(sps_extension_data_flag);
    }
};

template <>
struct fields_of<h265_pps_range_extension> {
    template <class Record, class Visit>
    static void visit(Record& record, Visit visit) {
        FIELD(log2_max_transform_skip_block_size_minus2);
        FIELD(cross_component_prediction_enabled_flag);
        FIELD(chroma_qp_offset_list_enabled_flag);
        FIELD(diff_cu_chroma_qp_offset_depth);
        FIELD(chroma_qp_offset_list_len_minus1);
        FIELD(cb_qp_offset_list);
        FIELD(cr_qp_offset_list);
        FIELD(log2_sao_offset_scale_luma);
        FIELD(log2_sao_offset_scale_chroma);
    }
};

template <>
struct fields_of<h265_colour_mapping_table::part_t> {
    template <class Record, class Visit>
    static void visit(Record& record, Visit visit) {
        FIELD(idxShiftY);
        FIELD(idxCb);
        FIELD(idxCr);
        FIELD(coded_res_flag);
        FIELD(res_coeff_q);
        FIELD(res_coeff_r);
        FIELD(res_coeff_s);
    }
};

template <>
struct fields_of<h265_colour_mapping_table> {
    template <class Record, class Visit>
    static void visit(Record& record, Visit visit) {
        FIELD(num_cm_ref_layers_minus1);
        FIELD(cm_ref_layer_id);
        FIELD(cm_octant_depth);
        FIELD(cm_y_part_num_log2);
        FIELD(luma_bit_depth_cm_input_minus8);
        FIELD(chroma_bit_depth_cm_input_minus8);
        FIELD(luma_bit_depth_cm_output_minus8);
        FIELD(chroma_bit_depth_cm_output_minus8);
        FIELD(cm_res_quant_bits);
        FIELD(cm_delta_flc_bits_minus1);
        FIELD(cm_adapt_threshold_u_delta);
        FIELD(cm_adapt_threshold_v_delta);
        FIELD(split_octant_flag);
        FIELD(parts);
    }
};

template <>
struct fields_of<h265_pps_multilayer_extension> {
    template <class Record, class Visit>
    static void visit(Record& record, Visit visit) {
        FIELD(poc_reset_info_present_flag);
        FIELD(pps_infer_scaling_list_flag);
        FIELD(pps_scaling_list_ref_layer_id);
        FIELD(num_ref_loc_offsets);
        FIELD(ref_loc_offset_layer_id);
        FIELD(scaled_ref_layer_offset_present_flag);
        FIELD(scaled_ref_layer_left_offset);
        FIELD(scaled_ref_layer_top_offset);
        FIELD(scaled_ref_layer_right_offset);
        FIELD(scaled_ref_layer_bottom_offset);
        FIELD(ref_region_offset_present_flag);
        FIELD(ref_region_left_offset);
        FIELD(ref_region_top_offset);
        FIELD(ref_region_right_offset);
        FIELD(ref_region_bottom_offset);
        FIELD(resample_phase_set_present_flag);
        FIELD(phase_hor_luma);
        FIELD(phase_ver_luma);
        FIELD(phase_hor_chroma_plus8);
        FIELD(phase_ver_chroma_plus8);
        FIELD(colour_mapping_enabled_flag);
        FIELD(colour_mapping_table);
    }
};

template <>
struct fields_of<h265_delta_dlt> {
    template <class Record, class Visit>
    static void visit(Record& record, Visit visit) {
        FIELD(num_val_delta_dlt);
        FIELD(max_diff);
        FIELD(min_diff_minus1);
        FIELD(delta_dlt_val0);
        FIELD(delta_val_diff_minus_min);
    }
};

template <>
struct fields_of<h265_pps_3d_extension> {
    template <class Record, class Visit>
    static void visit(Record& record, Visit visit) {
        FIELD(dlts_present_flag);
        FIELD(pps_depth_layers_minus1);
        FIELD(pps_bit_depth_for_depth_layers_minus8);
        FIELD(dlt_flag);
        FIELD(dlt_pred_flag);
        FIELD(dlt_val_flags_present_flag);
        FIELD(dlt_value_flag);
        FIELD(delta_dlt);
    }
};

template <>
struct fields_of<h265_pps_scc_extension> {
    template <class Record, class Visit>
    static void visit(Record& record, Visit visit) {
        FIELD(pps_curr_pic_ref_enabled_flag);
        FIELD(residual_adaptive_colour_transform_enabled_flag);
        FIELD(pps_slice_act_qp_offsets_present_flag);
        FIELD(pps_act_y_qp_offset_plus5);
        FIELD(pps_act_cb_qp_offset_plus5);
        FIELD(pps_act_cr_qp_offset_plus3);
        FIELD(pps_palette_predictor_initializers_present_flag);
        FIELD(pps_num_palette_predictor_initializers);
        FIELD(monochrome_palette_flag);
        FIELD(luma_bit_depth_entry_minus8);
        FIELD(chroma_bit_depth_entry_minus8);
        FIELD(pps_palette_predictor_initializer);
    }
};

template <>
struct fields_of<h265_nal_pps> {
    template <class Record, class Visit>
    static void visit(Record& record, Visit visit) {
        FIELD(pps_pic_parameter_set_id);
        FIELD(pps_seq_parameter_set_id);
        FIELD(dependent_slice_segments_enabled_flag);
        FIELD(output_flag_present_flag);
        FIELD(num_extra_slice_header_bits);
        FIELD(sign_data_hiding_enabled_flag);
        FIELD(cabac_init_present_flag);
        FIELD(num_ref_idx_l0_default_active_minus1);
        FIELD(num_ref_idx_l1_default_active_minus1);
        FIELD(init_qp_minus26);
        FIELD(constrained_intra_pred_flag);
        FIELD(transform_skip_enabled_flag);
        FIELD(cu_qp_delta_enabled_flag);
        FIELD(diff_cu_qp_delta_depth);
        FIELD(pps_cb_qp_offset);
        FIELD(pps_cr_qp_offset);
        FIELD(pps_slice_chroma_qp_offsets_present_flag);
        FIELD(weighted_pred_flag);
        FIELD(weighted_bipred_flag);
        FIELD(transquant_bypass_enabled_flag);
        FIELD(tiles_enabled_flag);
        FIELD(entropy_coding_sync_enabled_flag);
        FIELD(num_tile_columns_minus1);
        FIELD(num_tile_rows_minus1);
        FIELD(uniform_spacing_flag);
        FIELD(column_width_minus1);
        FIELD(row_height_minus1);
        FIELD(loop_filter_across_tiles_enabled_flag);
        FIELD(pps_loop_filter_across_slices_enabled_flag);
        FIELD(deblocking_filter_control_present_flag);
        FIELD(deblocking_filter_override_enabled_flag);
        FIELD(pps_deblocking_filter_disabled_flag);
        FIELD(pps_beta_offset_div2);
        FIELD(pps_tc_offset_div2);
        FIELD(pps_scaling_list_data_present_flag);
        FIELD(scaling_list_data);
        FIELD(lists_modification_present_flag);
        FIELD(log2_parallel_merge_level_minus2);
        FIELD(slice_segment_header_extension_present_flag);
        FIELD(pps_extension_present_flag);
        FIELD(valid);
        FIELD(pps_range_extension_flag);
        FIELD(pps_multilayer_extension_flag);
        FIELD(pps_3d_extension_flag);
        FIELD(pps_scc_extension_flag);
        FIELD(pps_extension_4bits);
        FIELD(pps_range_extension);
        FIELD(pps_multilayer_extension);
        FIELD(pps_3d_extension);
        FIELD(pps_scc_extension);
        FIELD(pps_extension_data_flag);
    }
};

template <>
struct fields_of<h265_ref_pic_lists_modification> {
    template <class Record, class Visit>
    static void visit(Record& record, Visit visit) {
        FIELD(ref_pic_list_modification_flag_l0);
        FIELD(list_entry_l0);
        FIELD(ref_pic_list_modification_flag_l1);
        FIELD(list_entry_l1);
        FIELD(valid);
    }
};

template <>
struct fields_of<h265_pred_weight_table> {
    template <class Record, class Visit>
    static void visit(Record& record, Visit visit) {
        FIELD(luma_log2_weight_denom);
        FIELD(delta_chroma_log2_weight_denom);
        FIELD(luma_weight_l0_flag);
        FIELD(chroma_weight_l0_flag);
        FIELD(delta_luma_weight_l0);
        FIELD(luma_offset_l0);
        FIELD(delta_chroma_weight_l0);
        FIELD(delta_chroma_offset_l0);
        FIELD(luma_weight_l1_flag);
        FIELD(chroma_weight_l1_flag);
        FIELD(delta_luma_weight_l1);
        FIELD(luma_offset_l1);
        FIELD(delta_chroma_weight_l1);
        FIELD(delta_chroma_offset_l1);
        FIELD(present);
    }
};

template <>
struct fields_of<h265_slice_segment_header> {
    template <class Record, class Visit>
    static void visit(Record& record, Visit visit) {
        FIELD(first_slice_segment_in_pic_flag);
        FIELD(no_output_of_prior_pics_flag);
        FIELD(slice_pic_parameter_set_id);
        FIELD(dependent_slice_segment_flag);
        FIELD(slice_segment_address);
        FIELD(slice_type);
        FIELD(pic_output_flag);
        FIELD(colour_plane_id);
        FIELD(slice_pic_order_cnt_lsb);
        FIELD(short_term_ref_pic_set_sps_flag);
        FIELD(st_ref_pic_set);
        FIELD(short_term_ref_pic_set_idx);
        FIELD(num_long_term_sps);
        FIELD(num_long_term_pics);
        FIELD(lt_idx_sps);
        FIELD(poc_lsb_lt);
        FIELD(used_by_curr_pic_lt_flag);
        FIELD(delta_poc_msb_present_flag);
        FIELD(delta_poc_msb_cycle_lt);
        FIELD(slice_temporal_mvp_enabled_flag);
        FIELD(slice_sao_luma_flag);
        FIELD(slice_sao_chroma_flag);
        FIELD(num_ref_idx_active_override_flag);
        FIELD(num_ref_idx_l0_active_minus1);
        FIELD(num_ref_idx_l1_active_minus1);
        FIELD(ref_pic_lists_modification);
        FIELD(NumPicTotalCurr);
        FIELD(CurrRpsIdx);
        FIELD(valid);
        FIELD(mvd_l1_zero_flag);
        FIELD(cabac_init_flag);
        FIELD(collocated_from_l0_flag);
        FIELD(collocated_ref_idx);
        FIELD(pred_weight_table);
        FIELD(five_minus_max_num_merge_cand);
        FIELD(use_integer_mv_flag);
        FIELD(slice_qp_delta);
        FIELD(slice_cb_qp_offset);
        FIELD(slice_cr_qp_offset);
        FIELD(slice_act_y_qp_offset);
        FIELD(slice_act_cb_qp_offset);
        FIELD(slice_act_cr_qp_offset);
        FIELD(cu_chroma_qp_offset_enabled_flag);
        FIELD(deblocking_filter_override_flag);
        FIELD(slice_deblocking_filter_disabled_flag);
        FIELD(slice_beta_offset_div2);
        FIELD(slice_tc_offset_div2);
        FIELD(slice_loop_filter_across_slices_enabled_flag);
        FIELD(num_entry_point_offsets);
        FIELD(offset_len_minus1);
        FIELD(entry_point_offset_minus1);
        FIELD(slice_segment_header_extension_length);
        FIELD(slice_segment_header_extension_data_byte);
        FIELD(slice_data_begin);
    }
};

template <>
struct fields_of<h265_nal_sei_pic_timing> {
    template <class Record, class Visit>
    static void visit(Record& record, Visit visit) {
        FIELD(pic_struct);
        FIELD(source_scan_type);
        FIELD(duplicate_flag);
        FIELD(au_cpb_removal_delay_minus1);
        FIELD(pic_dpb_output_delay);
        FIELD(pic_dpb_output_du_delay);
        FIELD(num_decoding_units_minus1);
        FIELD(du_common_cpb_removal_delay_flag);
        FIELD(du_common_cpb_removal_delay_increment_minus1);
        FIELD(num_nalus_in_du_minus1);
        FIELD(du_cpb_removal_delay_increment_minus1);
        FIELD(du_info_present);
        FIELD(cpb_dpb_delays_present);
        FIELD(valid);
    }
};

template <>
struct fields_of<h265_nal_sei_buffering_period> {
    template <class Record, class Visit>
    static void visit(Record& record, Visit visit) {
        FIELD(bp_seq_parameter_set_id);
        FIELD(irap_cpb_params_present_flag);
        FIELD(cpb_delay_offset);
        FIELD(dpb_delay_offset);
        FIELD(concatenation_flag);
        FIELD(au_cpb_removal_delay_delta_minus1);
        FIELD(nal_initial_cpb_removal_delay);
        FIELD(nal_initial_cpb_removal_offset);
        FIELD(nal_initial_alt_cpb_removal_delay);
        FIELD(nal_initial_alt_cpb_removal_offset);
        FIELD(vcl_initial_cpb_removal_delay);
        FIELD(vcl_initial_cpb_removal_offset);
        FIELD(vcl_initial_alt_cpb_removal_delay);
        FIELD(vcl_initial_alt_cpb_removal_offset);
        FIELD(use_alt_cpb_params_flag);
        FIELD(reserved_u32);
        FIELD(CpbCnt);
        FIELD(NalHrdBpPresentFlag);
        FIELD(VclHrdBpPresentFlag);
        FIELD(use_alt_cpb_params_flag_present);
        FIELD(valid);
    }
};

template <>
struct fields_of<h265_nal_sei_active_parameter_sets> {
    template <class Record, class Visit>
    static void visit(Record& record, Visit visit) {
        FIELD(active_video_parameter_set_id);
        FIELD(self_contained_cvs_flag);
        FIELD(no_parameter_set_update_flag);
        FIELD(num_sps_ids_minus1);
        FIELD(active_seq_parameter_set_id);
        FIELD(layer_sps_idx);
        FIELD(valid);
    }
};

#undef FIELD

template <class Type>
struct is_vector : std::false_type {};

template <class Element>
struct is_vector<std::vector<Element>> : std::true_type {};

template <class Type>
struct is_array : std::false_type {};

template <class Element, std::size_t length>
struct is_array<std::array<Element, length>> : std::true_type {};

// Sets a value that is fresh.
template <class Value>
void read(Value& value, const json& from) {
    if constexpr (std::is_same_v<Value, bool>) {
        value = from.get<bool>();
    } else if constexpr (std::is_arithmetic_v<Value>) {
        value = from.get<Value>();
        if (from != value) {
            throw std::out_of_range(from.dump() + " does not fit its field");
        }
    } else if constexpr (is_vector<Value>::value) {
        const json& entries = from.is_object() ? from.at("head") : from;
        if constexpr (std::is_same_v<Value, std::vector<bool>>) {
            for (const char digit : entries.get_ref<const std::string&>()) {
                value.push_back(digit == '1');
            }
        } else {
            value.resize(entries.size());
            for (std::size_t i = 0; i < value.size(); ++i) {
                read(value[i], entries[i]);
            }
        }
        if (from.is_object()) {
            value.resize(from.at("size").get<std::size_t>());
        }
    } else if constexpr (is_array<Value>::value) {
        for (std::size_t i = 0; i < from.size(); ++i) {
            read(value.at(i), from[i]);
        }
    } else {
        std::size_t known = 0;
        fields_of<Value>::visit(value, [&](const char* name, auto& field) {
            const auto found = from.find(name);
            if (found != from.end()) {
                ++known;
                read(field, *found);
            }
        });
        if (known != from.size()) {
            throw std::out_of_range(from.dump() + " has fields that the record has not");
        }
    }
}

template <class Record>
Record record_of(const json& from) {
    Record record;
    read(record, from);
    return record;
}

template <class Record>
h2645_common_base_store<Record> store_of(const json& from) {
    h2645_common_base_store<Record> store;
    store.active_id = from.at("active_id").get<unsigned int>();
    for (const json& entry : from.at("records")) {
        read(store[entry.at(0).get<unsigned int>()], entry.at(1));
    }
    return store;
}

// With zeros, which `compare` takes as well.
template <class Value>
json to_json(const Value& value) {
    if constexpr (std::is_arithmetic_v<Value>) {
        return value;
    } else if constexpr (std::is_same_v<Value, std::vector<bool>>) {
        std::string digits;
        for (const bool digit : value) {
            digits += digit ? '1' : '0';
        }
        return digits;
    } else if constexpr (is_vector<Value>::value || is_array<Value>::value) {
        json entries = json::array();
        for (const auto& entry : value) {
            entries.push_back(to_json(entry));
        }
        return entries;
    } else {
        json record = json::object();
        fields_of<Value>::visit(
            value, [&](const char* name, const auto& field) { record[name] = to_json(field); });
        return record;
    }
}

// A field or an entry within a record, as a chain from the inside out.
struct place {
    const place* outer;
    const char* name;  // or null, and an index
    std::size_t index;

    std::string text() const {
        const std::string outside = outer == nullptr ? std::string() : outer->text();
        return name == nullptr ? outside + "[" + std::to_string(index) + "]"
                               : outside + (outside.empty() ? "" : ".") + name;
    }
};

// Appends a line for each difference from `expected`; null stands for zero, false or empty.
template <class Value>
void compare(const Value& value, const json& expected, const place& here,
             std::vector<std::string>& differences) {
    const auto differs = [&](const auto& is, const auto& should) {
        differences.push_back(here.text() + " is " + json(is).dump() + ", not " +
                              json(should).dump());
    };
    static const json nothing;

    if constexpr (std::is_same_v<Value, bool>) {
        const bool should = !expected.is_null() && expected.get<bool>();
        if (value != should) {
            differs(value, should);
        }
    } else if constexpr (std::is_arithmetic_v<Value>) {
        const Value should = expected.is_null() ? Value{} : expected.get<Value>();
        if (value != should) {
            differs(value, should);
        }
    } else if constexpr (is_vector<Value>::value) {
        const json& entries = expected.is_object() ? expected.at("head") : expected;
        static const std::string no_digits;
        const std::string& digits =
            entries.is_string() ? entries.get_ref<const std::string&>() : no_digits;
        const std::size_t given = entries.is_string() ? digits.size() : entries.size();
        const std::size_t size =
            expected.is_object() ? expected.at("size").get<std::size_t>() : given;
        if (value.size() != size) {
            differences.push_back(here.text() + " has " + std::to_string(value.size()) +
                                  " entries, not " + std::to_string(size));
            return;
        }
        for (std::size_t i = 0; i < size; ++i) {
            const place entry{&here, nullptr, i};
            if constexpr (std::is_same_v<Value, std::vector<bool>>) {
                const bool should = i < given && digits[i] == '1';
                if (value[i] != should) {
                    compare(bool{value[i]}, json(should), entry, differences);
                }
            } else {
                compare(value[i], i < given ? entries[i] : nothing, entry, differences);
            }
        }
    } else if constexpr (is_array<Value>::value) {
        if (expected.size() > value.size()) {
            throw std::out_of_range(expected.dump() + " does not fit its field");
        }
        for (std::size_t i = 0; i < value.size(); ++i) {
            compare(value[i], i < expected.size() ? expected[i] : nothing, place{&here, nullptr, i},
                    differences);
        }
    } else {
        std::size_t known = 0;
        fields_of<Value>::visit(value, [&](const char* name, const auto& field) {
            const auto found = expected.find(name);
            const bool given = found != expected.end();
            known += given ? 1U : 0U;
            compare(field, given ? *found : nothing, place{&here, name, 0}, differences);
        });
        if (known != expected.size()) {
            throw std::out_of_range(expected.dump() + " has fields that the record has not");
        }
    }
}

// No parser changes a store.
template <class Record>
void compare(const h2645_common_base_store<Record>& store, unsigned int active_id,
             const json& expected, const char* name, std::vector<std::string>& differences) {
    const place here{nullptr, name, 0};
    const json& records = expected.at("records");
    if (store.active_id != active_id) {
        differences.push_back(here.text() + ".active_id has changed");
    }
    if (store.size() != records.size()) {
        differences.push_back(here.text() + " has " + std::to_string(store.size()) +
                              " entries, not " + std::to_string(records.size()));
        return;
    }
    std::size_t i = 0;
    for (const auto& [number, record] : store) {
        const json& entry = records[i++];
        if (entry.at(0).get<unsigned int>() != number) {
            differences.push_back(here.text() + " has other identifiers");
            return;
        }
        compare(record, entry.at(1), place{&here, nullptr, number}, differences);
    }
}

}  // namespace kovran::model

#endif  // KOVRAN_TESTS_MODEL_RECORD_JSON_H
