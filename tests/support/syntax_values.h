#ifndef KOVRAN_TESTS_SUPPORT_SYNTAX_VALUES_H
#define KOVRAN_TESTS_SUPPORT_SYNTAX_VALUES_H

#include <cstddef>
#include <cstdint>
#include <vector>

#include "support/bit_writer.h"

// Units written from values with the names of the elements, of which a test sets those that it is
// about: the others make a conforming unit of a stream of 384x256 samples, 6 by 4 coding tree
// blocks.
//
//     test::sps_values sps;
//     sps.bit_depth_luma_minus8 = 9;
//     test::rbsp input{test::bits_of(sps).bytes()};
//
// A flag that governs others is set where these have to be there. Values are wider than any element
// so that they can be out of its range; what its code cannot hold throws std::invalid_argument.
namespace kovran::test {

using element_value = std::int64_t;
using element_values = std::vector<element_value>;

struct hrd_values {
    bool sub_pic_hrd_params_present_flag = false;
    element_value elemental_duration_in_tc_minus1 = 0;
    element_value cpb_cnt_minus1 = 0;  // as many CPBs are written
};

// A set of pictures by their distances, or predicted from a set of `reference_pics`, all of which
// it takes over with the distance itself.
struct set_values {
    element_values delta_poc_s0_minus1;
    element_values delta_poc_s1_minus1;

    bool inter_ref_pic_set_prediction_flag = false;
    element_value delta_idx_minus1 = 0;  // in a slice
    bool delta_rps_sign = true;
    element_value abs_delta_rps_minus1 = 0;
    std::size_t reference_pics = 0;
};

// One matrix is coded outright, with the same difference for each coefficient; the others refer to
// the default lists.
struct scaling_list_values {
    std::size_t sizeId = 0;
    std::size_t matrixId = 0;
    bool scaling_list_pred_mode_flag = false;
    element_value scaling_list_pred_matrix_id_delta = 0;
    element_value scaling_list_dc_coef_minus8 = 8;
    element_value first_delta_coef = 0;
};

struct vui_values {
    element_value video_format = 5;
    element_value chroma_sample_loc_type_top_field = 0;
    element_value chroma_sample_loc_type_bottom_field = 0;
    bool field_seq_flag = false;
    element_value frame_field_info_present_flag = 0;
    element_value def_disp_win_left_offset = 0;
    element_value def_disp_win_right_offset = 0;
    element_value def_disp_win_top_offset = 0;
    element_value def_disp_win_bottom_offset = 0;
    element_value vui_num_units_in_tick = 1;
    element_value vui_time_scale = 50;
    hrd_values hrd;
    element_value min_spatial_segmentation_idc = 0;
    element_value max_bytes_per_pic_denom = 2;
    element_value max_bits_per_min_cu_denom = 1;
    element_value log2_max_mv_length_horizontal = 15;
    element_value log2_max_mv_length_vertical = 15;
};

struct vps_values {
    element_value vps_base_layer_internal_flag = 1;
    element_value vps_max_layers_minus1 = 0;
    element_value vps_max_sub_layers_minus1 = 0;
    element_value general_profile_space = 0;
    // By sub-layer; the last stands for all above it.
    element_values vps_max_dec_pic_buffering_minus1 = {4};
    element_values vps_max_num_reorder_pics = {2};
    element_value vps_num_layer_sets_minus1 = 0;
    element_value vps_num_units_in_tick = 1;
    element_value vps_time_scale = 50;
    element_value vps_num_hrd_parameters = 1;
    element_value hrd_layer_set_idx = 0;
    hrd_values hrd;
};

struct sps_values {
    element_value sps_max_sub_layers_minus1 = 0;
    element_value general_profile_space = 0;
    element_value sps_seq_parameter_set_id = 0;
    element_value chroma_format_idc = 1;
    bool separate_colour_plane_flag = false;
    element_value pic_width_in_luma_samples = 384;
    element_value pic_height_in_luma_samples = 256;
    element_value conf_win_left_offset = 0;
    element_value conf_win_right_offset = 0;
    element_value conf_win_top_offset = 0;
    element_value conf_win_bottom_offset = 0;
    element_value bit_depth_luma_minus8 = 0;
    element_value bit_depth_chroma_minus8 = 0;
    element_value log2_max_pic_order_cnt_lsb_minus4 = 4;
    // By sub-layer; the last stands for all above it.
    element_values sps_max_dec_pic_buffering_minus1 = {4};
    element_values sps_max_num_reorder_pics = {2};
    element_value log2_min_luma_coding_block_size_minus3 = 0;
    element_value log2_diff_max_min_luma_coding_block_size = 3;
    element_value log2_min_luma_transform_block_size_minus2 = 0;
    element_value log2_diff_max_min_luma_transform_block_size = 3;
    element_value max_transform_hierarchy_depth_inter = 0;
    element_value max_transform_hierarchy_depth_intra = 0;
    bool sps_scaling_list_data_present_flag = false;
    scaling_list_values scaling_list;
    bool pcm_enabled_flag = false;
    element_value pcm_sample_bit_depth_luma_minus1 = 7;
    element_value pcm_sample_bit_depth_chroma_minus1 = 7;
    element_value log2_min_pcm_luma_coding_block_size_minus3 = 0;
    element_value log2_diff_max_min_pcm_luma_coding_block_size = 0;
    std::vector<set_values> st_ref_pic_set;
    bool long_term_ref_pics_present_flag = false;
    element_value num_long_term_ref_pics_sps = 0;  // as many are written
    bool sps_temporal_mvp_enabled_flag = false;
    bool vui_parameters_present_flag = false;
    vui_values vui;
    bit_writer extension;  // from sps_range_extension_flag on; there is none when it is empty
};

struct pps_values {
    element_value pps_pic_parameter_set_id = 0;
    element_value pps_seq_parameter_set_id = 0;
    element_value num_ref_idx_l0_default_active_minus1 = 0;
    element_value num_ref_idx_l1_default_active_minus1 = 0;
    element_value init_qp_minus26 = 0;
    bool transform_skip_enabled_flag = false;
    bool cu_qp_delta_enabled_flag = false;
    element_value diff_cu_qp_delta_depth = 0;
    element_value pps_cb_qp_offset = 0;
    element_value pps_cr_qp_offset = 0;
    bool pps_slice_chroma_qp_offsets_present_flag = false;
    bool weighted_pred_flag = false;
    bool weighted_bipred_flag = false;
    bool tiles_enabled_flag = false;
    bool entropy_coding_sync_enabled_flag = false;
    element_value num_tile_columns_minus1 = 1;
    element_value num_tile_rows_minus1 = 1;
    element_values column_width_minus1;  // uniform spacing when there is no size
    element_values row_height_minus1;
    bool deblocking_filter_control_present_flag = false;
    bool deblocking_filter_override_enabled_flag = false;
    element_value pps_beta_offset_div2 = 0;
    element_value pps_tc_offset_div2 = 0;
    bool pps_scaling_list_data_present_flag = false;
    scaling_list_values scaling_list;
    bool lists_modification_present_flag = false;
    element_value log2_parallel_merge_level_minus2 = 0;
    bool slice_segment_header_extension_present_flag = false;
    bit_writer extension;  // from pps_range_extension_flag on; there is none when it is empty
};

// The first entry of each list has weights of luma and of chroma, these, and the others have none.
struct weight_values {
    element_value luma_log2_weight_denom = 0;
    element_value delta_chroma_log2_weight_denom = 0;
    element_value delta_luma_weight = 0;
    element_value luma_offset = 0;
    element_value delta_chroma_weight = 0;
    element_value delta_chroma_offset = 0;
};

// What a slice goes by: the widths are those of the standard.
struct slice_values {
    sps_values sps;
    pps_values pps;

    bool first_slice_segment_in_pic_flag = true;
    element_value slice_pic_parameter_set_id = 0;
    element_value slice_segment_address = 1;
    element_value slice_type = 1;  // P
    element_value colour_plane_id = 0;
    bool short_term_ref_pic_set_sps_flag = true;
    set_values st_ref_pic_set;
    element_value short_term_ref_pic_set_idx = 0;
    element_values lt_idx_sps;             // num_long_term_sps is their number
    element_value num_long_term_pics = 0;  // as many are written, all with order count 1
    element_value num_ref_idx_l0_active_minus1 = 0;
    element_value num_ref_idx_l1_active_minus1 = 0;
    element_values list_entry_l0;  // a list is modified when it has entries
    element_values list_entry_l1;
    unsigned int list_entry_width = 0;
    bool collocated_from_l0_flag = true;
    element_value collocated_ref_idx = 0;
    weight_values weights;
    element_value five_minus_max_num_merge_cand = 0;
    element_value slice_qp_delta = 0;
    element_value slice_cb_qp_offset = 0;
    element_value slice_cr_qp_offset = 0;
    element_value slice_beta_offset_div2 = 0;  // where the PPS allows them
    element_value slice_tc_offset_div2 = 0;
    element_value num_entry_point_offsets = 0;  // as many are written
    element_value offset_len_minus1 = 7;
    element_value slice_segment_header_extension_length = 0;  // as many bytes are written
};

struct aud_values {
    element_value pic_type = 2;
};

// One message each, in a prefix SEI unit, by the HRD parameters of vui_values. That of picture
// timing goes by an SPS with frame_field_info_present_flag and sub_pic_hrd_params_present_flag.
struct buffering_period_values {
    element_value bp_seq_parameter_set_id = 0;
};

struct pic_timing_values {
    element_value pic_struct = 0;
    element_value source_scan_type = 1;
    element_value num_decoding_units_minus1 = 0;  // as many units are written
};

struct active_parameter_sets_values {
    element_values active_seq_parameter_set_id = {0};
    element_value layer_sps_idx = 0;  // of layer 1
};

// RBSPs behind the NAL unit header, with trailing bits. Behind the header of a slice stands a byte
// of slice data.
bit_writer bits_of(const vps_values& vps);
bit_writer bits_of(const sps_values& sps);
bit_writer bits_of(const pps_values& pps);
bit_writer bits_of(const slice_values& slice);
bit_writer bits_of(const aud_values& aud);
bit_writer bits_of(const buffering_period_values& period);
bit_writer bits_of(const pic_timing_values& timing);
bit_writer bits_of(const active_parameter_sets_values& sets);

}  // namespace kovran::test

#endif  // KOVRAN_TESTS_SUPPORT_SYNTAX_VALUES_H
