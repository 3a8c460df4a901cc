#ifndef KOVRAN_TESTS_SUPPORT_RECORD_FIELDS_H
#define KOVRAN_TESTS_SUPPORT_RECORD_FIELDS_H

#include <kovran/h265/h265_hrd_parameters.h>
#include <kovran/h265/h265_nal_pps.h>
#include <kovran/h265/h265_nal_sps.h>
#include <kovran/h265/h265_nal_sub_layer_hrd_parameters.h>
#include <kovran/h265/h265_nal_vps.h>
#include <kovran/h265/h265_profile.h>
#include <kovran/h265/h265_profile_tier_level.h>
#include <kovran/h265/h265_scaling_list_data.h>
#include <kovran/h265/h265_st_ref_pic_set.h>
#include <kovran/h265/h265_vui_parameters.h>

#include <array>
#include <cstddef>
#include <string>
#include <tuple>
#include <type_traits>
#include <vector>

// The fields of the parameter set records, in their order and with their types, as hosts rely on
// them; and a comparison of whole records that goes by these lists. Tests of records have it in
// support/same_fields.h.
namespace kovran::test {

template <class Record, class Type>
struct record_field {
    const char* name;
    Type Record::*member;
};

// Compiles only for a member of exactly this type.
template <class Type, class Record>
constexpr record_field<Record, Type> field(const char* name, Type Record::*member) {
    return {name, member};
}

template <class Record>
struct fields_of;  // has a tuple `list` of record_field

struct field_types {
    using u8 = unsigned char;
    using u16 = unsigned short;
    using u32 = unsigned int;
    using i32 = int;
    template <class Element>
    using array = std::vector<Element>;
    using bits = std::vector<bool>;
    template <class Element>
    using pair = std::array<Element, 2>;
    template <class Element>
    using components = std::array<Element, 3>;
    template <class Element>
    using vertices = std::array<Element, 4>;
};

#define FIELD(type, name) field<type>(#name, &record::name)

// One field a line.
// clang-format off
template <>
struct fields_of<h265_profile::level_decomposed> : field_types {
    using record = h265_profile::level_decomposed;
    static constexpr auto list = std::make_tuple(
        FIELD(u8, major),
        FIELD(u8, minor),
        FIELD(u8, remainder));
};

template <>
struct fields_of<h265_profile_tier_level::layer_t> : field_types {
    using record = h265_profile_tier_level::layer_t;
    static constexpr auto list = std::make_tuple(
        FIELD(bits, profile_compatibility_flag),
        FIELD(u8, profile_space),
        FIELD(u8, profile_idc),
        FIELD(u8, level_idc),
        FIELD(bool, progressive_source_flag),
        FIELD(bool, interlaced_source_flag),
        FIELD(bool, non_packed_constraint_flag),
        FIELD(bool, frame_only_constraint_flag),
        FIELD(bool, max_12bit_constraint_flag),
        FIELD(bool, max_10bit_constraint_flag),
        FIELD(bool, max_8bit_constraint_flag),
        FIELD(bool, max_422chroma_constraint_flag),
        FIELD(bool, max_420chroma_constraint_flag),
        FIELD(bool, max_monochrome_constraint_flag),
        FIELD(bool, intra_constraint_flag),
        FIELD(bool, one_picture_only_constraint_flag),
        FIELD(bool, lower_bit_rate_constraint_flag),
        FIELD(bool, max_14bit_constraint_flag),
        FIELD(bool, inbld_flag),
        FIELD(bool, tier_flag),
        FIELD(bool, profile_present_flag),
        FIELD(bool, level_present_flag),
        FIELD(bool, valid));
};

template <>
struct fields_of<h265_profile_tier_level> : field_types {
    using record = h265_profile_tier_level;
    static constexpr auto list = std::make_tuple(
        FIELD(h265_profile_tier_level::layer_t, general),
        FIELD(array<h265_profile_tier_level::layer_t>, sub_layers),
        FIELD(bool, valid));
};

template <>
struct fields_of<h265_nal_sub_layer_hrd_parameters> : field_types {
    using record = h265_nal_sub_layer_hrd_parameters;
    static constexpr auto list = std::make_tuple(
        FIELD(u32, subLayerId),
        FIELD(u32, cpb_count),
        FIELD(array<u32>, bit_rate_value_minus1),
        FIELD(array<u32>, cpb_size_value_minus1),
        FIELD(array<u32>, cpb_size_du_value_minus1),
        FIELD(array<u32>, bit_rate_du_value_minus1),
        FIELD(bits, cbr_flag),
        FIELD(bool, valid));
};

template <>
struct fields_of<h265_hrd_parameters> : field_types {
    using record = h265_hrd_parameters;
    static constexpr auto list = std::make_tuple(
        FIELD(bool, commonInfPresentFlag),
        FIELD(u32, maxNumSubLayersMinus1),
        FIELD(bool, nal_hrd_parameters_present_flag),
        FIELD(bool, vcl_hrd_parameters_present_flag),
        FIELD(bool, sub_pic_hrd_params_present_flag),
        FIELD(u8, tick_divisor_minus2),
        FIELD(u8, du_cpb_removal_delay_increment_length_minus1),
        FIELD(bool, sub_pic_cpb_params_in_pic_timing_sei_flag),
        FIELD(u8, dpb_output_delay_du_length_minus1),
        FIELD(u8, bit_rate_scale),
        FIELD(u8, cpb_size_scale),
        FIELD(u8, cpb_size_du_scale),
        FIELD(u8, initial_cpb_removal_delay_length_minus1),
        FIELD(u8, au_cpb_removal_delay_length_minus1),
        FIELD(u8, dpb_output_delay_length_minus1),
        FIELD(bits, fixed_pic_rate_general_flag),
        FIELD(bits, fixed_pic_rate_within_cvs_flag),
        FIELD(array<u32>, elemental_duration_in_tc_minus1),
        FIELD(bits, low_delay_hrd_flag),
        FIELD(array<u32>, cpb_cnt_minus1),
        FIELD(array<h265_nal_sub_layer_hrd_parameters>, nal_sub_layer_hrd),
        FIELD(array<h265_nal_sub_layer_hrd_parameters>, vcl_sub_layer_hrd),
        FIELD(bool, valid));
};

template <>
struct fields_of<h265_nal_vps> : field_types {
    using record = h265_nal_vps;
    static constexpr auto list = std::make_tuple(
        FIELD(u8, vps_video_parameter_set_id),
        FIELD(bool, vps_base_layer_internal_flag),
        FIELD(bool, vps_base_layer_available_flag),
        FIELD(u8, vps_max_layers_minus1),
        FIELD(u8, vps_max_sub_layers_minus1),
        FIELD(bool, vps_temporal_id_nesting_flag),
        FIELD(u16, vps_reserved_0xffff_16bits),
        FIELD(h265_profile_tier_level, profile_tier_level),
        FIELD(bool, vps_sub_layer_ordering_info_present_flag),
        FIELD(array<u32>, vps_max_dec_pic_buffering_minus1),
        FIELD(array<u32>, vps_max_num_reorder_pics),
        FIELD(array<u32>, vps_max_latency_increase_plus1),
        FIELD(u8, vps_max_layer_id),
        FIELD(u32, vps_num_layer_sets_minus1),
        FIELD(array<bits>, layer_id_included_flag),
        FIELD(bool, vps_timing_info_present_flag),
        FIELD(u32, vps_num_units_in_tick),
        FIELD(u32, vps_time_scale),
        FIELD(bool, vps_poc_proportional_to_timing_flag),
        FIELD(u32, vps_num_ticks_poc_diff_one_minus1),
        FIELD(u32, vps_num_hrd_parameters),
        FIELD(array<u32>, hrd_layer_set_idx),
        FIELD(bits, cprms_present_flag),
        FIELD(array<h265_hrd_parameters>, hrd_parameters),
        FIELD(bool, vps_extension_flag),
        FIELD(bool, valid));
};

template <>
struct fields_of<h265_scaling_list_data> : field_types {
    using record = h265_scaling_list_data;
    static constexpr auto list = std::make_tuple(
        FIELD(array<bits>, scaling_list_pred_mode_flag),
        FIELD(array<array<u32>>, scaling_list_pred_matrix_id_delta),
        FIELD(array<array<i32>>, scaling_list_dc_coef_minus8),
        FIELD(array<array<array<i32>>>, ScalingList),
        FIELD(bool, valid));
};

template <>
struct fields_of<h265_st_ref_pic_set> : field_types {
    using record = h265_st_ref_pic_set;
    static constexpr auto list = std::make_tuple(
        FIELD(i32, deltaRps),
        FIELD(u32, stRpsIdx),
        FIELD(u32, RefRpsIdx),
        FIELD(u32, NumDeltaPocs),
        FIELD(bool, inter_ref_pic_set_prediction_flag),
        FIELD(u32, delta_idx_minus1),
        FIELD(bool, delta_rps_sign),
        FIELD(u32, abs_delta_rps_minus1),
        FIELD(bits, used_by_curr_pic_flag),
        FIELD(bits, use_delta_flag),
        FIELD(u32, num_negative_pics),
        FIELD(u32, num_positive_pics),
        FIELD(array<u32>, delta_poc_s0_minus1),
        FIELD(bits, used_by_curr_pic_s0_flag),
        FIELD(array<u32>, delta_poc_s1_minus1),
        FIELD(bits, used_by_curr_pic_s1_flag),
        FIELD(bool, valid));
};

template <>
struct fields_of<h265_vui_parameters> : field_types {
    using record = h265_vui_parameters;
    static constexpr auto list = std::make_tuple(
        FIELD(bool, aspect_ratio_info_present_flag),
        FIELD(u8, aspect_ratio_idc),
        FIELD(bool, extended_sar_flag),
        FIELD(u16, sar_width),
        FIELD(u16, sar_height),
        FIELD(bool, overscan_info_present_flag),
        FIELD(bool, overscan_appropriate_flag),
        FIELD(bool, video_signal_type_present_flag),
        FIELD(u8, video_format),
        FIELD(bool, video_full_range_flag),
        FIELD(bool, colour_description_present_flag),
        FIELD(u8, colour_primaries),
        FIELD(u8, transfer_characteristics),
        FIELD(u8, matrix_coeffs),
        FIELD(bool, chroma_loc_info_present_flag),
        FIELD(u32, chroma_sample_loc_type_top_field),
        FIELD(u32, chroma_sample_loc_type_bottom_field),
        FIELD(bool, neutral_chroma_indication_flag),
        FIELD(bool, field_seq_flag),
        FIELD(bool, frame_field_info_present_flag),
        FIELD(bool, default_display_window_flag),
        FIELD(u32, def_disp_win_left_offset),
        FIELD(u32, def_disp_win_right_offset),
        FIELD(u32, def_disp_win_top_offset),
        FIELD(u32, def_disp_win_bottom_offset),
        FIELD(bool, vui_timing_info_present_flag),
        FIELD(u32, vui_num_units_in_tick),
        FIELD(u32, vui_time_scale),
        FIELD(bool, vui_poc_proportional_to_timing_flag),
        FIELD(u32, vui_num_ticks_poc_diff_one_minus1),
        FIELD(bool, vui_hrd_parameters_present_flag),
        FIELD(h265_hrd_parameters, hrd_parameters),
        FIELD(bool, bitstream_restriction_flag),
        FIELD(bool, tiles_fixed_structure_flag),
        FIELD(bool, motion_vectors_over_pic_boundaries_flag),
        FIELD(bool, restricted_ref_pic_lists_flag),
        FIELD(u32, min_spatial_segmentation_idc),
        FIELD(u32, max_bytes_per_pic_denom),
        FIELD(u32, max_bits_per_min_cu_denom),
        FIELD(u32, log2_max_mv_length_horizontal),
        FIELD(u32, log2_max_mv_length_vertical),
        FIELD(bool, valid));
};

template <>
struct fields_of<h265_sps_range_extension> : field_types {
    using record = h265_sps_range_extension;
    static constexpr auto list = std::make_tuple(
        FIELD(bool, transform_skip_rotation_enabled_flag),
        FIELD(bool, transform_skip_context_enabled_flag),
        FIELD(bool, implicit_rdpcm_enabled_flag),
        FIELD(bool, explicit_rdpcm_enabled_flag),
        FIELD(bool, extended_precision_processing_flag),
        FIELD(bool, intra_smoothing_disabled_flag),
        FIELD(bool, high_precision_offsets_enabled_flag),
        FIELD(bool, persistent_rice_adaptation_enabled_flag),
        FIELD(bool, cabac_bypass_alignment_enabled_flag));
};

template <>
struct fields_of<h265_sps_multilayer_extension> : field_types {
    using record = h265_sps_multilayer_extension;
    static constexpr auto list = std::make_tuple(
        FIELD(bool, inter_view_mv_vert_constraint_flag));
};

template <>
struct fields_of<h265_sps_3d_extension> : field_types {
    using record = h265_sps_3d_extension;
    static constexpr auto list = std::make_tuple(
        FIELD(pair<bool>, iv_di_mc_enabled_flag),
        FIELD(pair<bool>, iv_mv_scal_enabled_flag),
        FIELD(pair<u32>, log2_ivmc_sub_pb_size_minus3),
        FIELD(pair<bool>, iv_res_pred_enabled_flag),
        FIELD(pair<bool>, depth_ref_enabled_flag),
        FIELD(pair<bool>, vsp_mc_enabled_flag),
        FIELD(pair<bool>, dbbp_enabled_flag),
        FIELD(pair<bool>, tex_mc_enabled_flag),
        FIELD(pair<u32>, log2_texmc_sub_pb_size_minus3),
        FIELD(pair<bool>, intra_contour_enabled_flag),
        FIELD(pair<bool>, intra_dc_only_wedge_enabled_flag),
        FIELD(pair<bool>, cqt_cu_part_pred_enabled_flag),
        FIELD(pair<bool>, inter_dc_only_enabled_flag),
        FIELD(pair<bool>, skip_intra_enabled_flag));
};

template <>
struct fields_of<h265_sps_scc_extension> : field_types {
    using record = h265_sps_scc_extension;
    static constexpr auto list = std::make_tuple(
        FIELD(bool, sps_curr_pic_ref_enabled_flag),
        FIELD(bool, palette_mode_enabled_flag),
        FIELD(u32, palette_max_size),
        FIELD(u32, delta_palette_max_predictor_size),
        FIELD(bool, sps_palette_predictor_initializers_present_flag),
        FIELD(u32, sps_num_palette_predictor_initializers_minus1),
        FIELD(components<array<u32>>, sps_palette_predictor_initializer),
        FIELD(u8, motion_vector_resolution_control_idc),
        FIELD(bool, intra_boundary_filtering_disabled_flag));
};

template <>
struct fields_of<h265_nal_sps> : field_types {
    using record = h265_nal_sps;
    static constexpr auto list = std::make_tuple(
        FIELD(u8, sps_video_parameter_set_id),
        FIELD(u8, sps_max_sub_layers_minus1),
        FIELD(bool, sps_temporal_id_nesting_flag),
        FIELD(h265_profile_tier_level, profile_tier_level),
        FIELD(u32, sps_seq_parameter_set_id),
        FIELD(u32, chroma_format_idc),
        FIELD(bool, separate_colour_plane_flag),
        FIELD(u32, pic_width_in_luma_samples),
        FIELD(u32, pic_height_in_luma_samples),
        FIELD(bool, conformance_window_flag),
        FIELD(u32, conf_win_left_offset),
        FIELD(u32, conf_win_right_offset),
        FIELD(u32, conf_win_top_offset),
        FIELD(u32, conf_win_bottom_offset),
        FIELD(u32, bit_depth_luma_minus8),
        FIELD(u32, bit_depth_chroma_minus8),
        FIELD(u32, log2_max_pic_order_cnt_lsb_minus4),
        FIELD(bool, sps_sub_layer_ordering_info_present_flag),
        FIELD(array<u32>, sps_max_dec_pic_buffering_minus1),
        FIELD(array<u32>, sps_max_num_reorder_pics),
        FIELD(array<u32>, sps_max_latency_increase_plus1),
        FIELD(u32, log2_min_luma_coding_block_size_minus3),
        FIELD(u32, log2_diff_max_min_luma_coding_block_size),
        FIELD(u32, log2_min_luma_transform_block_size_minus2),
        FIELD(u32, log2_diff_max_min_luma_transform_block_size),
        FIELD(u32, max_transform_hierarchy_depth_inter),
        FIELD(u32, max_transform_hierarchy_depth_intra),
        FIELD(bool, scaling_list_enabled_flag),
        FIELD(bool, sps_scaling_list_data_present_flag),
        FIELD(h265_scaling_list_data, scaling_list_data),
        FIELD(bool, amp_enabled_flag),
        FIELD(bool, sample_adaptive_offset_enabled_flag),
        FIELD(bool, pcm_enabled_flag),
        FIELD(u8, pcm_sample_bit_depth_luma_minus1),
        FIELD(u8, pcm_sample_bit_depth_chroma_minus1),
        FIELD(u32, log2_min_pcm_luma_coding_block_size_minus3),
        FIELD(u32, log2_diff_max_min_pcm_luma_coding_block_size),
        FIELD(bool, pcm_loop_filter_disabled_flag),
        FIELD(u32, num_short_term_ref_pic_sets),
        FIELD(array<h265_st_ref_pic_set>, st_ref_pic_set),
        FIELD(bool, long_term_ref_pics_present_flag),
        FIELD(u32, num_long_term_ref_pics_sps),
        FIELD(array<u32>, lt_ref_pic_poc_lsb_sps),
        FIELD(bits, used_by_curr_pic_lt_sps_flag),
        FIELD(bool, sps_temporal_mvp_enabled_flag),
        FIELD(bool, strong_intra_smoothing_enabled_flag),
        FIELD(bool, vui_parameters_present_flag),
        FIELD(h265_vui_parameters, vui_parameters),
        FIELD(bool, sps_extension_flag),
        FIELD(bool, valid),
        FIELD(bool, sps_range_extension_flag),
        FIELD(bool, sps_multilayer_extension_flag),
        FIELD(bool, sps_3d_extension_flag),
        FIELD(bool, sps_scc_extension_flag),
        FIELD(u8, sps_extension_4bits),
        FIELD(h265_sps_range_extension, sps_range_extension),
        FIELD(h265_sps_multilayer_extension, sps_multilayer_extension),
        FIELD(h265_sps_3d_extension, sps_3d_extension),
        FIELD(h265_sps_scc_extension, sps_scc_extension),
        FIELD(bits, sps_extension_data_flag));
};

template <>
struct fields_of<h265_pps_range_extension> : field_types {
    using record = h265_pps_range_extension;
    static constexpr auto list = std::make_tuple(
        FIELD(u32, log2_max_transform_skip_block_size_minus2),
        FIELD(bool, cross_component_prediction_enabled_flag),
        FIELD(bool, chroma_qp_offset_list_enabled_flag),
        FIELD(u32, diff_cu_chroma_qp_offset_depth),
        FIELD(u32, chroma_qp_offset_list_len_minus1),
        FIELD(array<i32>, cb_qp_offset_list),
        FIELD(array<i32>, cr_qp_offset_list),
        FIELD(u32, log2_sao_offset_scale_luma),
        FIELD(u32, log2_sao_offset_scale_chroma));
};

template <>
struct fields_of<h265_colour_mapping_table::part_t> : field_types {
    using record = h265_colour_mapping_table::part_t;
    static constexpr auto list = std::make_tuple(
        FIELD(u8, idxShiftY),
        FIELD(u8, idxCb),
        FIELD(u8, idxCr),
        FIELD(vertices<bool>, coded_res_flag),
        FIELD(vertices<components<u32>>, res_coeff_q),
        FIELD(vertices<components<u32>>, res_coeff_r),
        FIELD(vertices<components<bool>>, res_coeff_s));
};

template <>
struct fields_of<h265_colour_mapping_table> : field_types {
    using record = h265_colour_mapping_table;
    static constexpr auto list = std::make_tuple(
        FIELD(u32, num_cm_ref_layers_minus1),
        FIELD(array<u8>, cm_ref_layer_id),
        FIELD(u8, cm_octant_depth),
        FIELD(u8, cm_y_part_num_log2),
        FIELD(u32, luma_bit_depth_cm_input_minus8),
        FIELD(u32, chroma_bit_depth_cm_input_minus8),
        FIELD(u32, luma_bit_depth_cm_output_minus8),
        FIELD(u32, chroma_bit_depth_cm_output_minus8),
        FIELD(u8, cm_res_quant_bits),
        FIELD(u8, cm_delta_flc_bits_minus1),
        FIELD(i32, cm_adapt_threshold_u_delta),
        FIELD(i32, cm_adapt_threshold_v_delta),
        FIELD(bool, split_octant_flag),
        FIELD(array<record::part_t>, parts));
};

template <>
struct fields_of<h265_pps_multilayer_extension> : field_types {
    using record = h265_pps_multilayer_extension;
    static constexpr auto list = std::make_tuple(
        FIELD(bool, poc_reset_info_present_flag),
        FIELD(bool, pps_infer_scaling_list_flag),
        FIELD(u8, pps_scaling_list_ref_layer_id),
        FIELD(u32, num_ref_loc_offsets),
        FIELD(array<u8>, ref_loc_offset_layer_id),
        FIELD(bits, scaled_ref_layer_offset_present_flag),
        FIELD(array<i32>, scaled_ref_layer_left_offset),
        FIELD(array<i32>, scaled_ref_layer_top_offset),
        FIELD(array<i32>, scaled_ref_layer_right_offset),
        FIELD(array<i32>, scaled_ref_layer_bottom_offset),
        FIELD(bits, ref_region_offset_present_flag),
        FIELD(array<i32>, ref_region_left_offset),
        FIELD(array<i32>, ref_region_top_offset),
        FIELD(array<i32>, ref_region_right_offset),
        FIELD(array<i32>, ref_region_bottom_offset),
        FIELD(bits, resample_phase_set_present_flag),
        FIELD(array<u32>, phase_hor_luma),
        FIELD(array<u32>, phase_ver_luma),
        FIELD(array<u32>, phase_hor_chroma_plus8),
        FIELD(array<u32>, phase_ver_chroma_plus8),
        FIELD(bool, colour_mapping_enabled_flag),
        FIELD(h265_colour_mapping_table, colour_mapping_table));
};

template <>
struct fields_of<h265_delta_dlt> : field_types {
    using record = h265_delta_dlt;
    static constexpr auto list = std::make_tuple(
        FIELD(u32, num_val_delta_dlt),
        FIELD(u32, max_diff),
        FIELD(i32, min_diff_minus1),
        FIELD(u32, delta_dlt_val0),
        FIELD(array<u32>, delta_val_diff_minus_min));
};

template <>
struct fields_of<h265_pps_3d_extension> : field_types {
    using record = h265_pps_3d_extension;
    static constexpr auto list = std::make_tuple(
        FIELD(bool, dlts_present_flag),
        FIELD(u8, pps_depth_layers_minus1),
        FIELD(u8, pps_bit_depth_for_depth_layers_minus8),
        FIELD(bits, dlt_flag),
        FIELD(bits, dlt_pred_flag),
        FIELD(bits, dlt_val_flags_present_flag),
        FIELD(array<bits>, dlt_value_flag),
        FIELD(array<h265_delta_dlt>, delta_dlt));
};

template <>
struct fields_of<h265_pps_scc_extension> : field_types {
    using record = h265_pps_scc_extension;
    static constexpr auto list = std::make_tuple(
        FIELD(bool, pps_curr_pic_ref_enabled_flag),
        FIELD(bool, residual_adaptive_colour_transform_enabled_flag),
        FIELD(bool, pps_slice_act_qp_offsets_present_flag),
        FIELD(i32, pps_act_y_qp_offset_plus5),
        FIELD(i32, pps_act_cb_qp_offset_plus5),
        FIELD(i32, pps_act_cr_qp_offset_plus3),
        FIELD(bool, pps_palette_predictor_initializers_present_flag),
        FIELD(u32, pps_num_palette_predictor_initializers),
        FIELD(bool, monochrome_palette_flag),
        FIELD(u32, luma_bit_depth_entry_minus8),
        FIELD(u32, chroma_bit_depth_entry_minus8),
        FIELD(components<array<u32>>, pps_palette_predictor_initializer));
};

template <>
struct fields_of<h265_nal_pps> : field_types {
    using record = h265_nal_pps;
    static constexpr auto list = std::make_tuple(
        FIELD(u32, pps_pic_parameter_set_id),
        FIELD(u32, pps_seq_parameter_set_id),
        FIELD(bool, dependent_slice_segments_enabled_flag),
        FIELD(bool, output_flag_present_flag),
        FIELD(u8, num_extra_slice_header_bits),
        FIELD(bool, sign_data_hiding_enabled_flag),
        FIELD(bool, cabac_init_present_flag),
        FIELD(u32, num_ref_idx_l0_default_active_minus1),
        FIELD(u32, num_ref_idx_l1_default_active_minus1),
        FIELD(i32, init_qp_minus26),
        FIELD(bool, constrained_intra_pred_flag),
        FIELD(bool, transform_skip_enabled_flag),
        FIELD(bool, cu_qp_delta_enabled_flag),
        FIELD(u32, diff_cu_qp_delta_depth),
        FIELD(i32, pps_cb_qp_offset),
        FIELD(i32, pps_cr_qp_offset),
        FIELD(bool, pps_slice_chroma_qp_offsets_present_flag),
        FIELD(bool, weighted_pred_flag),
        FIELD(bool, weighted_bipred_flag),
        FIELD(bool, transquant_bypass_enabled_flag),
        FIELD(bool, tiles_enabled_flag),
        FIELD(bool, entropy_coding_sync_enabled_flag),
        FIELD(u32, num_tile_columns_minus1),
        FIELD(u32, num_tile_rows_minus1),
        FIELD(bool, uniform_spacing_flag),
        FIELD(array<u32>, column_width_minus1),
        FIELD(array<u32>, row_height_minus1),
        FIELD(bool, loop_filter_across_tiles_enabled_flag),
        FIELD(bool, pps_loop_filter_across_slices_enabled_flag),
        FIELD(bool, deblocking_filter_control_present_flag),
        FIELD(bool, deblocking_filter_override_enabled_flag),
        FIELD(bool, pps_deblocking_filter_disabled_flag),
        FIELD(i32, pps_beta_offset_div2),
        FIELD(i32, pps_tc_offset_div2),
        FIELD(bool, pps_scaling_list_data_present_flag),
        FIELD(h265_scaling_list_data, scaling_list_data),
        FIELD(bool, lists_modification_present_flag),
        FIELD(u32, log2_parallel_merge_level_minus2),
        FIELD(bool, slice_segment_header_extension_present_flag),
        FIELD(bool, pps_extension_present_flag),
        FIELD(bool, valid),
        FIELD(bool, pps_range_extension_flag),
        FIELD(bool, pps_multilayer_extension_flag),
        FIELD(bool, pps_3d_extension_flag),
        FIELD(bool, pps_scc_extension_flag),
        FIELD(u8, pps_extension_4bits),
        FIELD(h265_pps_range_extension, pps_range_extension),
        FIELD(h265_pps_multilayer_extension, pps_multilayer_extension),
        FIELD(h265_pps_3d_extension, pps_3d_extension),
        FIELD(h265_pps_scc_extension, pps_scc_extension),
        FIELD(bits, pps_extension_data_flag));
};
// clang-format on
#undef FIELD

template <class Type, class = void>
struct is_record : std::false_type {};

template <class Type>
struct is_record<Type, std::void_t<decltype(fields_of<Type>::list)>> : std::true_type {};

// Calls visit(name, record.field) for each field.
template <class Record, class Visit>
void for_each_field(Record& record, Visit visit) {
    std::apply([&](const auto&... field) { (visit(field.name, record.*(field.member)), ...); },
               fields_of<std::remove_const_t<Record>>::list);
}

inline std::string to_text(const std::vector<bool>& flags) {
    std::string text;
    for (const bool flag : flags) {
        text += flag ? '1' : '0';
    }
    return text;
}
template <class Number>
std::string to_text(Number number) {
    return std::to_string(number);
}

// Where and how two values differ first, such as ".general.level_idc is 93, not 120"; or nothing.
template <class Value>
std::string difference(const Value& value, const Value& expected) {
    if constexpr (is_record<Value>::value) {
        std::string found;
        const auto compare = [&](const auto& field) {
            if (found.empty()) {
                found = difference(value.*(field.member), expected.*(field.member));
                if (!found.empty()) {
                    found = "." + std::string(field.name) + found;
                }
            }
        };
        std::apply([&](const auto&... field) { (compare(field), ...); }, fields_of<Value>::list);
        return found;
    } else if constexpr (std::is_arithmetic_v<Value> || std::is_same_v<Value, std::vector<bool>>) {
        return value == expected ? std::string()
                                 : " is " + to_text(value) + ", not " + to_text(expected);
    } else {
        if (value.size() != expected.size()) {
            return " has " + std::to_string(value.size()) + " entries, not " +
                   std::to_string(expected.size());
        }
        for (std::size_t i = 0; i < value.size(); ++i) {
            const std::string found = difference(value[i], expected[i]);
            if (!found.empty()) {
                return "[" + std::to_string(i) + "]" + found;
            }
        }
        return std::string();
    }
}

}  // namespace kovran::test

#endif  // KOVRAN_TESTS_SUPPORT_RECORD_FIELDS_H
