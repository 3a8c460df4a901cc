#include "support/full_values.h"

namespace kovran::test {

vps_values full_vps_values() {
    vps_values values;
    values.vps_max_sub_layers_minus1 = 1;
    values.vps_num_layer_sets_minus1 = 2;
    values.vps_num_hrd_parameters = 2;
    values.hrd.sub_pic_hrd_params_present_flag = true;
    values.hrd.cpb_cnt_minus1 = 2;
    return values;
}

sps_values full_sps_values() {
    sps_values values;
    values.sps_max_sub_layers_minus1 = 2;
    values.sps_scaling_list_data_present_flag = true;
    values.scaling_list.sizeId = 2;
    values.scaling_list.scaling_list_pred_mode_flag = true;
    values.pcm_enabled_flag = true;
    set_values set;
    set.delta_poc_s0_minus1 = {0, 3};
    set.delta_poc_s1_minus1 = {1};
    set_values predicted;
    predicted.inter_ref_pic_set_prediction_flag = true;
    predicted.reference_pics = 3;
    values.st_ref_pic_set = {set, predicted};
    values.long_term_ref_pics_present_flag = true;
    values.num_long_term_ref_pics_sps = 3;
    values.vui_parameters_present_flag = true;
    values.vui.hrd.cpb_cnt_minus1 = 1;
    return values;
}

pps_values full_pps_values() {
    pps_values values;
    values.cu_qp_delta_enabled_flag = true;
    values.tiles_enabled_flag = true;
    values.num_tile_columns_minus1 = 3;
    values.num_tile_rows_minus1 = 2;
    values.column_width_minus1 = {0, 1, 0};
    values.row_height_minus1 = {0, 0};
    values.deblocking_filter_control_present_flag = true;
    values.pps_scaling_list_data_present_flag = true;
    return values;
}

slice_values full_slice_values() {
    slice_values values;
    set_values set;
    set.delta_poc_s0_minus1 = {0, 1};
    values.sps.st_ref_pic_set = {set};
    values.sps.long_term_ref_pics_present_flag = true;
    values.sps.num_long_term_ref_pics_sps = 3;
    values.pps.lists_modification_present_flag = true;
    values.first_slice_segment_in_pic_flag = false;
    values.slice_segment_address = 5;
    values.slice_type = 0;
    values.short_term_ref_pic_set_sps_flag = false;
    values.st_ref_pic_set.inter_ref_pic_set_prediction_flag = true;
    values.st_ref_pic_set.reference_pics = 2;
    values.lt_idx_sps = {2};
    values.num_long_term_pics = 1;
    values.num_ref_idx_l0_active_minus1 = 2;
    values.num_ref_idx_l1_active_minus1 = 1;
    values.list_entry_l0 = {4, 0, 1};  // of three short-term pictures and two long-term ones
    values.list_entry_l1 = {3, 2};
    values.list_entry_width = 3;
    values.sps.sps_temporal_mvp_enabled_flag = true;
    values.collocated_from_l0_flag = false;
    values.collocated_ref_idx = 1;
    values.pps.weighted_bipred_flag = true;
    values.weights = {5, -1, -20, 30, 40, -500};
    values.pps.pps_slice_chroma_qp_offsets_present_flag = true;
    values.slice_cb_qp_offset = 7;
    values.slice_cr_qp_offset = -7;
    values.pps.deblocking_filter_control_present_flag = true;
    values.pps.deblocking_filter_override_enabled_flag = true;
    values.slice_beta_offset_div2 = -2;
    values.slice_tc_offset_div2 = 3;
    values.pps.entropy_coding_sync_enabled_flag = true;
    values.num_entry_point_offsets = 3;
    values.offset_len_minus1 = 10;
    values.pps.slice_segment_header_extension_present_flag = true;
    values.slice_segment_header_extension_length = 4;
    return values;
}

}  // namespace kovran::test
