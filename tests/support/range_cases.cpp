#include "support/range_cases.h"

#include <cstddef>
#include <utility>

#include "support/extension_range_cases.h"
#include "support/range_case_list.h"
#include "support/syntax_values.h"

namespace kovran::test {
namespace {

constexpr std::int64_t no_bound = 0xFFFFFFFE;  // but that of ue(v)

set_values pictures_before(std::size_t count) {
    set_values set;
    set.delta_poc_s0_minus1.assign(count, 0);
    return set;
}

set_values pictures_after(std::size_t count) {
    set_values set;
    set.delta_poc_s1_minus1.assign(count, 0);
    return set;
}

// ---- Parameter sets

range_table vps_ranges() {
    case_list<vps_values> list;
    list.at_most("vps_max_layers_minus1", 0, 62,
                 [](auto& vps, auto value) { vps.vps_max_layers_minus1 = value; });
    list.at_most("vps_max_sub_layers_minus1", 0, 6,
                 [](auto& vps, auto value) { vps.vps_max_sub_layers_minus1 = value; });
    list.reserved_above("general_profile_space", 0,
                        [](auto& vps, auto value) { vps.general_profile_space = value; });
    list.at_most("vps_max_dec_pic_buffering_minus1[0]", 0, 15,
                 [](auto& vps, auto value) { vps.vps_max_dec_pic_buffering_minus1 = {value}; });
    list.at_least("vps_max_dec_pic_buffering_minus1[1]", 4, 15, [](auto& vps, auto value) {
        vps.vps_max_sub_layers_minus1 = 1;
        vps.vps_max_dec_pic_buffering_minus1 = {4, value};
    });
    list.at_most("vps_max_num_reorder_pics[0]", 0, 4,
                 [](auto& vps, auto value) { vps.vps_max_num_reorder_pics = {value}; });
    list.at_most("vps_num_layer_sets_minus1", 0, 1023,
                 [](auto& vps, auto value) { vps.vps_num_layer_sets_minus1 = value; });
    list.at_least("vps_num_units_in_tick", 1, 0xFFFFFFFF,
                  [](auto& vps, auto value) { vps.vps_num_units_in_tick = value; });
    list.at_least("vps_time_scale", 1, 0xFFFFFFFF,
                  [](auto& vps, auto value) { vps.vps_time_scale = value; });
    list.at_most("vps_num_hrd_parameters", 0, 1,
                 [](auto& vps, auto value) { vps.vps_num_hrd_parameters = value; });
    list.at_most("hrd_layer_set_idx[0]", 0, 1, [](auto& vps, auto value) {
        vps.vps_num_layer_sets_minus1 = 1;
        vps.hrd_layer_set_idx = value;
    });
    list.at_least("hrd_layer_set_idx[0]", 1, 1, [](auto& vps, auto value) {
        vps.vps_base_layer_internal_flag = 0;
        vps.vps_num_layer_sets_minus1 = 1;
        vps.hrd_layer_set_idx = value;
    });
    list.at_most("elemental_duration_in_tc_minus1[0]", 0, 2047,
                 [](auto& vps, auto value) { vps.hrd.elemental_duration_in_tc_minus1 = value; });
    list.at_most("cpb_cnt_minus1[0]", 0, 31,
                 [](auto& vps, auto value) { vps.hrd.cpb_cnt_minus1 = value; });
    return {"video_parameter_set_rbsp", {}, VPS_NUT, list.cases()};
}

// What an SPS has of sizes: 384x256 samples, blocks of 8x8 to 64x64, transforms of 4x4 to 32x32.
void add_sizes(case_list<sps_values>& list) {
    list.at_most("chroma_format_idc", 0, 3,
                 [](auto& sps, auto value) { sps.chroma_format_idc = value; });
    list.at_least_one("pic_width_in_luma_samples", 8, no_bound,
                      [](auto& sps, auto value) { sps.pic_width_in_luma_samples = value; });
    list.at_least_one("pic_height_in_luma_samples", 8, no_bound,
                      [](auto& sps, auto value) { sps.pic_height_in_luma_samples = value; });
    list.at_most("conf_win_left_offset", 0, 191,
                 [](auto& sps, auto value) { sps.conf_win_left_offset = value; });
    list.at_most("conf_win_right_offset", 0, 91, [](auto& sps, auto value) {
        sps.conf_win_left_offset = 100;
        sps.conf_win_right_offset = value;
    });
    list.at_most("conf_win_top_offset", 0, 127,
                 [](auto& sps, auto value) { sps.conf_win_top_offset = value; });
    list.at_most("conf_win_bottom_offset", 0, 27, [](auto& sps, auto value) {
        sps.conf_win_top_offset = 100;
        sps.conf_win_bottom_offset = value;
    });
    // 4:0:0, 4:2:2 and 4:4:4 have other units across, down or both.
    const auto add_window = [&list](element_value format, std::int64_t last_column,
                                    std::int64_t last_row) {
        list.at_most("conf_win_left_offset", 0, last_column, [format](auto& sps, auto value) {
            sps.chroma_format_idc = format;
            sps.conf_win_left_offset = value;
        });
        list.at_most("conf_win_top_offset", 0, last_row, [format](auto& sps, auto value) {
            sps.chroma_format_idc = format;
            sps.conf_win_top_offset = value;
        });
    };
    add_window(0, 383, 255);
    add_window(2, 191, 255);
    add_window(3, 383, 255);
    list.at_most("bit_depth_luma_minus8", 0, 8,
                 [](auto& sps, auto value) { sps.bit_depth_luma_minus8 = value; });
    list.at_most("bit_depth_chroma_minus8", 0, 8,
                 [](auto& sps, auto value) { sps.bit_depth_chroma_minus8 = value; });
    list.at_most("log2_max_pic_order_cnt_lsb_minus4", 0, 12,
                 [](auto& sps, auto value) { sps.log2_max_pic_order_cnt_lsb_minus4 = value; });
    list.at_most("log2_min_luma_coding_block_size_minus3", 0, 3, [](auto& sps, auto value) {
        sps.log2_min_luma_coding_block_size_minus3 = value;
        sps.log2_diff_max_min_luma_coding_block_size = 0;
    });
    list.at_most("log2_diff_max_min_luma_coding_block_size", 0, 3, [](auto& sps, auto value) {
        sps.log2_diff_max_min_luma_coding_block_size = value;
    });
    list.at_most("log2_min_luma_transform_block_size_minus2", 0, 0, [](auto& sps, auto value) {
        sps.log2_min_luma_transform_block_size_minus2 = value;
        sps.log2_diff_max_min_luma_transform_block_size = 1;
    });
    list.at_most("log2_diff_max_min_luma_transform_block_size", 0, 3, [](auto& sps, auto value) {
        sps.log2_diff_max_min_luma_transform_block_size = value;
    });
    list.at_most("max_transform_hierarchy_depth_inter", 0, 4,
                 [](auto& sps, auto value) { sps.max_transform_hierarchy_depth_inter = value; });
    list.at_most("max_transform_hierarchy_depth_intra", 0, 4,
                 [](auto& sps, auto value) { sps.max_transform_hierarchy_depth_intra = value; });
}

void add_pcm(case_list<sps_values>& list) {
    // Not above the bit depth, here 9 for luma and 10 for chroma.
    list.at_most("pcm_sample_bit_depth_luma_minus1", 0, 8, [](auto& sps, auto value) {
        sps.bit_depth_luma_minus8 = 1;
        sps.bit_depth_chroma_minus8 = 2;
        sps.pcm_enabled_flag = true;
        sps.pcm_sample_bit_depth_luma_minus1 = value;
    });
    list.at_most("pcm_sample_bit_depth_chroma_minus1", 0, 9, [](auto& sps, auto value) {
        sps.bit_depth_luma_minus8 = 1;
        sps.bit_depth_chroma_minus8 = 2;
        sps.pcm_enabled_flag = true;
        sps.pcm_sample_bit_depth_chroma_minus1 = value;
    });
    list.at_most("log2_min_pcm_luma_coding_block_size_minus3", 0, 2, [](auto& sps, auto value) {
        sps.pcm_enabled_flag = true;
        sps.log2_min_pcm_luma_coding_block_size_minus3 = value;
    });
    // Not below the smallest coding block, here 16x16.
    list.at_least("log2_min_pcm_luma_coding_block_size_minus3", 1, 2, [](auto& sps, auto value) {
        sps.log2_min_luma_coding_block_size_minus3 = 1;
        sps.log2_diff_max_min_luma_coding_block_size = 2;
        sps.pcm_enabled_flag = true;
        sps.log2_min_pcm_luma_coding_block_size_minus3 = value;
    });
    list.at_most("log2_diff_max_min_pcm_luma_coding_block_size", 0, 2, [](auto& sps, auto value) {
        sps.pcm_enabled_flag = true;
        sps.log2_diff_max_min_pcm_luma_coding_block_size = value;
    });
}

// The lists of an SPS, and those of a PPS.
template <class Values>
void add_scaling_lists(case_list<Values>& list, void (*enable)(Values&)) {
    const auto delta = [&](std::size_t sizeId, std::size_t matrixId, std::int64_t highest) {
        list.at_most("scaling_list_pred_matrix_id_delta[" + std::to_string(sizeId) + "][" +
                         std::to_string(matrixId) + "]",
                     0, highest, [=](auto& values, auto value) {
                         enable(values);
                         values.scaling_list.sizeId = sizeId;
                         values.scaling_list.matrixId = matrixId;
                         values.scaling_list.scaling_list_pred_matrix_id_delta = value;
                     });
    };
    delta(0, 0, 0);
    delta(0, 5, 5);
    delta(1, 3, 3);
    delta(2, 4, 4);
    delta(3, 0, 0);
    delta(3, 3, 1);
    const auto coded = [&](std::size_t sizeId, std::size_t matrixId) {
        return [=](auto& values) {
            enable(values);
            values.scaling_list.sizeId = sizeId;
            values.scaling_list.matrixId = matrixId;
            values.scaling_list.scaling_list_pred_mode_flag = true;
        };
    };
    list.within("scaling_list_dc_coef_minus8[0][1]", -7, 247, [=](auto& values, auto value) {
        coded(2, 1)(values);
        values.scaling_list.scaling_list_dc_coef_minus8 = value;
        values.scaling_list.first_delta_coef = 8;  // no coefficient is 0
    });
    list.within("scaling_list_dc_coef_minus8[1][3]", -7, 247, [=](auto& values, auto value) {
        coded(3, 3)(values);
        values.scaling_list.scaling_list_dc_coef_minus8 = value;
        values.scaling_list.first_delta_coef = 8;
    });
    list.within("scaling_list_delta_coef", -128, 127, [=](auto& values, auto value) {
        coded(0, 2)(values);
        values.scaling_list.first_delta_coef = value;
    });
}

// At most four pictures before the current one, and after it.
void add_reference_pictures(case_list<sps_values>& list) {
    list.at_most("num_short_term_ref_pic_sets", 0, 64, [](auto& sps, auto value) {
        sps.st_ref_pic_set.resize(static_cast<std::size_t>(value));
    });
    list.at_most("num_negative_pics", 0, 4, [](auto& sps, auto value) {
        sps.st_ref_pic_set = {pictures_before(static_cast<std::size_t>(value))};
    });
    list.at_most("num_positive_pics", 0, 4, [](auto& sps, auto value) {
        sps.st_ref_pic_set = {pictures_after(static_cast<std::size_t>(value))};
    });
    list.at_most("num_positive_pics", 0, 1, [](auto& sps, auto value) {
        set_values set = pictures_after(static_cast<std::size_t>(value));
        set.delta_poc_s0_minus1 = {0, 0, 0};
        sps.st_ref_pic_set = {set};
    });
    // The highest sub-layer decides, here on three pictures.
    list.at_most("num_negative_pics", 0, 3, [](auto& sps, auto value) {
        sps.sps_max_sub_layers_minus1 = 1;
        sps.sps_max_dec_pic_buffering_minus1 = {2, 3};
        sps.st_ref_pic_set = {pictures_before(static_cast<std::size_t>(value))};
    });
    list.at_most("delta_poc_s0_minus1[0]", 0, 32767, [](auto& sps, auto value) {
        set_values set;
        set.delta_poc_s0_minus1 = {value};
        sps.st_ref_pic_set = {set};
    });
    list.at_most("delta_poc_s1_minus1[0]", 0, 32767, [](auto& sps, auto value) {
        set_values set;
        set.delta_poc_s1_minus1 = {value};
        sps.st_ref_pic_set = {set};
    });
    list.at_most("abs_delta_rps_minus1", 0, 32767, [](auto& sps, auto value) {
        set_values predicted;
        predicted.inter_ref_pic_set_prediction_flag = true;
        predicted.abs_delta_rps_minus1 = value;
        sps.st_ref_pic_set = {set_values(), predicted};
    });
    list.at_most("num_long_term_ref_pics_sps", 0, 32, [](auto& sps, auto value) {
        sps.long_term_ref_pics_present_flag = true;
        sps.num_long_term_ref_pics_sps = value;
    });
}

void add_vui(case_list<sps_values>& list) {
    const auto in_vui = [](element_value vui_values::*field) {
        return [field](sps_values& sps, std::int64_t value) {
            sps.vui_parameters_present_flag = true;
            sps.vui.*field = value;
        };
    };
    list.reserved_above("video_format", 5, in_vui(&vui_values::video_format));
    list.at_most("chroma_sample_loc_type_top_field", 0, 5,
                 in_vui(&vui_values::chroma_sample_loc_type_top_field));
    list.at_most("chroma_sample_loc_type_bottom_field", 0, 5,
                 in_vui(&vui_values::chroma_sample_loc_type_bottom_field));
    list.at_least("frame_field_info_present_flag", 1, 1, [](auto& sps, auto value) {
        sps.vui_parameters_present_flag = true;
        sps.vui.field_seq_flag = true;
        sps.vui.frame_field_info_present_flag = value;
    });
    list.at_most("def_disp_win_left_offset", 0, 191, in_vui(&vui_values::def_disp_win_left_offset));
    list.at_most("def_disp_win_right_offset", 0, 191,
                 in_vui(&vui_values::def_disp_win_right_offset));
    list.at_most("def_disp_win_top_offset", 0, 127, in_vui(&vui_values::def_disp_win_top_offset));
    list.at_most("def_disp_win_bottom_offset", 0, 127,
                 in_vui(&vui_values::def_disp_win_bottom_offset));
    // Beside the conformance window, here 15 of 192 columns and 7 of 128 rows, and each other.
    const auto in_window = [](element_value vui_values::*field) {
        return [field](sps_values& sps, std::int64_t value) {
            sps.conf_win_left_offset = 10;
            sps.conf_win_right_offset = 5;
            sps.conf_win_top_offset = 4;
            sps.conf_win_bottom_offset = 3;
            sps.vui_parameters_present_flag = true;
            sps.vui.def_disp_win_left_offset = 20;
            sps.vui.def_disp_win_top_offset = 30;
            sps.vui.*field = value;
        };
    };
    list.at_most("def_disp_win_left_offset", 0, 176,
                 in_window(&vui_values::def_disp_win_left_offset));
    list.at_most("def_disp_win_right_offset", 0, 156,
                 in_window(&vui_values::def_disp_win_right_offset));
    list.at_most("def_disp_win_top_offset", 0, 120,
                 in_window(&vui_values::def_disp_win_top_offset));
    list.at_most("def_disp_win_bottom_offset", 0, 90,
                 in_window(&vui_values::def_disp_win_bottom_offset));
    list.at_least("vui_num_units_in_tick", 1, 0xFFFFFFFF,
                  in_vui(&vui_values::vui_num_units_in_tick));
    list.at_least("vui_time_scale", 1, 0xFFFFFFFF, in_vui(&vui_values::vui_time_scale));
    list.at_most("elemental_duration_in_tc_minus1[0]", 0, 2047, [](auto& sps, auto value) {
        sps.vui_parameters_present_flag = true;
        sps.vui.hrd.elemental_duration_in_tc_minus1 = value;
    });
    list.at_most("cpb_cnt_minus1[0]", 0, 31, [](auto& sps, auto value) {
        sps.vui_parameters_present_flag = true;
        sps.vui.hrd.cpb_cnt_minus1 = value;
    });
    list.at_most("min_spatial_segmentation_idc", 0, 4095,
                 in_vui(&vui_values::min_spatial_segmentation_idc));
    list.at_most("max_bytes_per_pic_denom", 0, 16, in_vui(&vui_values::max_bytes_per_pic_denom));
    list.at_most("max_bits_per_min_cu_denom", 0, 16,
                 in_vui(&vui_values::max_bits_per_min_cu_denom));
    list.at_most("log2_max_mv_length_horizontal", 0, 15,
                 in_vui(&vui_values::log2_max_mv_length_horizontal));
    list.at_most("log2_max_mv_length_vertical", 0, 15,
                 in_vui(&vui_values::log2_max_mv_length_vertical));
}

range_table sps_ranges() {
    case_list<sps_values> list;
    list.at_most("sps_max_sub_layers_minus1", 0, 6,
                 [](auto& sps, auto value) { sps.sps_max_sub_layers_minus1 = value; });
    list.reserved_above("general_profile_space", 0,
                        [](auto& sps, auto value) { sps.general_profile_space = value; });
    list.at_most("sps_seq_parameter_set_id", 0, 15,
                 [](auto& sps, auto value) { sps.sps_seq_parameter_set_id = value; });
    list.at_most("sps_max_dec_pic_buffering_minus1[0]", 0, 15,
                 [](auto& sps, auto value) { sps.sps_max_dec_pic_buffering_minus1 = {value}; });
    list.at_least("sps_max_dec_pic_buffering_minus1[1]", 4, 15, [](auto& sps, auto value) {
        sps.sps_max_sub_layers_minus1 = 1;
        sps.sps_max_dec_pic_buffering_minus1 = {4, value};
    });
    list.at_most("sps_max_num_reorder_pics[0]", 0, 4,
                 [](auto& sps, auto value) { sps.sps_max_num_reorder_pics = {value}; });
    add_sizes(list);
    add_scaling_lists<sps_values>(
        list, [](sps_values& sps) { sps.sps_scaling_list_data_present_flag = true; });
    add_pcm(list);
    add_reference_pictures(list);
    add_vui(list);
    return {"seq_parameter_set_rbsp", {{VPS_NUT, bits_of(vps_values())}}, SPS_NUT, list.cases()};
}

range_table pps_ranges() {
    case_list<pps_values> list;
    list.at_most("pps_pic_parameter_set_id", 0, 63,
                 [](auto& pps, auto value) { pps.pps_pic_parameter_set_id = value; });
    list.at_most("pps_seq_parameter_set_id", 0, 15,
                 [](auto& pps, auto value) { pps.pps_seq_parameter_set_id = value; });
    list.at_most("num_ref_idx_l0_default_active_minus1", 0, 14,
                 [](auto& pps, auto value) { pps.num_ref_idx_l0_default_active_minus1 = value; });
    list.at_most("num_ref_idx_l1_default_active_minus1", 0, 14,
                 [](auto& pps, auto value) { pps.num_ref_idx_l1_default_active_minus1 = value; });
    list.within("init_qp_minus26", -26, 25,
                [](auto& pps, auto value) { pps.init_qp_minus26 = value; });
    list.within("init_qp_minus26", -38, 25, [](auto& pps, auto value) {
        pps.pps_seq_parameter_set_id = 15;
        pps.init_qp_minus26 = value;
    });
    list.at_most("diff_cu_qp_delta_depth", 0, 3, [](auto& pps, auto value) {
        pps.cu_qp_delta_enabled_flag = true;
        pps.diff_cu_qp_delta_depth = value;
    });
    list.within("pps_cb_qp_offset", -12, 12,
                [](auto& pps, auto value) { pps.pps_cb_qp_offset = value; });
    list.within("pps_cr_qp_offset", -12, 12,
                [](auto& pps, auto value) { pps.pps_cr_qp_offset = value; });
    list.at_most("num_tile_columns_minus1", 0, 5, [](auto& pps, auto value) {
        pps.tiles_enabled_flag = true;
        pps.num_tile_columns_minus1 = value;
    });
    list.at_most("num_tile_rows_minus1", 0, 3, [](auto& pps, auto value) {
        pps.tiles_enabled_flag = true;
        pps.num_tile_rows_minus1 = value;
    });
    // The last column and the last row have a block at least.
    list.at_most("column_width_minus1[0]", 0, 4, [](auto& pps, auto value) {
        pps.tiles_enabled_flag = true;
        pps.column_width_minus1 = {value};
        pps.row_height_minus1 = {0};
    });
    list.at_most("row_height_minus1[0]", 0, 2, [](auto& pps, auto value) {
        pps.tiles_enabled_flag = true;
        pps.column_width_minus1 = {0};
        pps.row_height_minus1 = {value};
    });
    list.within("pps_beta_offset_div2", -6, 6, [](auto& pps, auto value) {
        pps.deblocking_filter_control_present_flag = true;
        pps.pps_beta_offset_div2 = value;
    });
    list.within("pps_tc_offset_div2", -6, 6, [](auto& pps, auto value) {
        pps.deblocking_filter_control_present_flag = true;
        pps.pps_tc_offset_div2 = value;
    });
    list.at_most("pps_scaling_list_data_present_flag", 0, 0, [](auto& pps, auto value) {
        pps.pps_scaling_list_data_present_flag = value != 0;
    });
    list.at_most("log2_parallel_merge_level_minus2", 0, 4,
                 [](auto& pps, auto value) { pps.log2_parallel_merge_level_minus2 = value; });
    // The identifiers 0 and 15 are both there; 15 has 10 bits of luma and 8 of chroma.
    sps_values last;
    last.sps_seq_parameter_set_id = 15;
    last.bit_depth_luma_minus8 = 2;
    return {"pic_parameter_set_rbsp",
            {{VPS_NUT, bits_of(vps_values())},
             {SPS_NUT, bits_of(sps_values())},
             {SPS_NUT, bits_of(last)}},
            PPS_NUT,
            list.cases()};
}

// Of an SPS that allows scaling lists.
range_table pps_scaling_list_ranges() {
    case_list<pps_values> list;
    add_scaling_lists<pps_values>(
        list, [](pps_values& pps) { pps.pps_scaling_list_data_present_flag = true; });
    sps_values sps;
    sps.sps_scaling_list_data_present_flag = true;
    return {"pic_parameter_set_rbsp",
            {{VPS_NUT, bits_of(vps_values())}, {SPS_NUT, bits_of(sps)}},
            PPS_NUT,
            list.cases()};
}

// ---- Slice segment headers

std::vector<range_unit> parameter_sets_of(const slice_values& slice) {
    pps_values last = slice.pps;
    last.pps_pic_parameter_set_id = 63;
    return {{VPS_NUT, bits_of(vps_values())},
            {SPS_NUT, bits_of(slice.sps)},
            {PPS_NUT, bits_of(slice.pps)},
            {PPS_NUT, bits_of(last)}};
}

// P slices of an SPS with sets of one, two and no pictures and three long-term candidates, and of
// eight reference pictures at most.
slice_values slice_with_references() {
    slice_values slice;
    slice.sps.sps_max_dec_pic_buffering_minus1 = {8};
    slice.sps.st_ref_pic_set = {pictures_before(1), pictures_before(2), set_values()};
    slice.sps.long_term_ref_pics_present_flag = true;
    slice.sps.num_long_term_ref_pics_sps = 3;
    return slice;
}

range_table slice_ranges() {
    const slice_values base = slice_with_references();
    case_list<slice_values> list(base);
    list.at_most("slice_pic_parameter_set_id", 0, 63,
                 [](auto& slice, auto value) { slice.slice_pic_parameter_set_id = value; });
    list.within("slice_segment_address", 1, 23, [](auto& slice, auto value) {
        slice.first_slice_segment_in_pic_flag = false;
        slice.slice_segment_address = value;
    });
    list.at_most("slice_type", 0, 2, [](auto& slice, auto value) { slice.slice_type = value; });
    list.at_most("short_term_ref_pic_set_idx", 0, 2,
                 [](auto& slice, auto value) { slice.short_term_ref_pic_set_idx = value; });
    list.at_most("num_negative_pics", 0, 8, [](auto& slice, auto value) {
        slice.short_term_ref_pic_set_sps_flag = false;
        slice.st_ref_pic_set = pictures_before(static_cast<std::size_t>(value));
    });
    list.at_most("num_positive_pics", 0, 8, [](auto& slice, auto value) {
        slice.short_term_ref_pic_set_sps_flag = false;
        slice.st_ref_pic_set = pictures_after(static_cast<std::size_t>(value));
    });
    list.at_most("delta_idx_minus1", 0, 2, [](auto& slice, auto value) {
        slice.short_term_ref_pic_set_sps_flag = false;
        slice.st_ref_pic_set.inter_ref_pic_set_prediction_flag = true;
        slice.st_ref_pic_set.delta_idx_minus1 = value;
        slice.st_ref_pic_set.reference_pics = 1;  // set 0
    });
    list.at_most("abs_delta_rps_minus1", 0, 32767, [](auto& slice, auto value) {
        slice.short_term_ref_pic_set_sps_flag = false;
        slice.st_ref_pic_set.inter_ref_pic_set_prediction_flag = true;
        slice.st_ref_pic_set.abs_delta_rps_minus1 = value;  // from set 2, of no pictures
    });
    list.at_most("num_long_term_sps", 0, 3, [](auto& slice, auto value) {
        for (std::int64_t i = 0; i < value; ++i) {
            slice.lt_idx_sps.push_back(i % 3);
        }
    });
    // Beside the picture of the set.
    list.at_most("num_long_term_pics", 0, 7,
                 [](auto& slice, auto value) { slice.num_long_term_pics = value; });
    list.at_most("lt_idx_sps[0]", 0, 2,
                 [](auto& slice, auto value) { slice.lt_idx_sps = {value}; });
    list.at_most("num_ref_idx_l0_active_minus1", 0, 14,
                 [](auto& slice, auto value) { slice.num_ref_idx_l0_active_minus1 = value; });
    list.at_most("num_ref_idx_l1_active_minus1", 0, 14, [](auto& slice, auto value) {
        slice.slice_type = 0;
        slice.num_ref_idx_l1_active_minus1 = value;
    });
    return {"slice_segment_header", parameter_sets_of(base), TRAIL_R, list.cases()};
}

// Of three pictures.
range_table list_modification_ranges() {
    slice_values base;
    base.sps.st_ref_pic_set = {pictures_before(3)};
    base.pps.lists_modification_present_flag = true;
    base.list_entry_width = 2;
    case_list<slice_values> list(base);
    list.at_most("list_entry_l0[0]", 0, 2,
                 [](auto& slice, auto value) { slice.list_entry_l0 = {value}; });
    list.at_most("list_entry_l1[0]", 0, 2, [](auto& slice, auto value) {
        slice.slice_type = 0;
        slice.list_entry_l1 = {value};
    });
    return {"ref_pic_lists_modification", parameter_sets_of(base), TRAIL_R, list.cases()};
}

// P slices with two entries in each list, of 10 bits of luma and a PPS with offsets of its own.
range_table slice_end_ranges() {
    slice_values base;
    base.sps.st_ref_pic_set = {pictures_before(1)};
    base.sps.bit_depth_luma_minus8 = 2;
    base.sps.sps_temporal_mvp_enabled_flag = true;
    base.pps.init_qp_minus26 = 4;
    base.pps.pps_cb_qp_offset = 5;
    base.pps.pps_cr_qp_offset = -3;
    base.pps.pps_slice_chroma_qp_offsets_present_flag = true;
    base.pps.deblocking_filter_control_present_flag = true;
    base.pps.deblocking_filter_override_enabled_flag = true;
    base.pps.slice_segment_header_extension_present_flag = true;
    base.num_ref_idx_l0_active_minus1 = 1;
    base.num_ref_idx_l1_active_minus1 = 2;
    case_list<slice_values> list(base);
    list.at_most("collocated_ref_idx", 0, 1,
                 [](auto& slice, auto value) { slice.collocated_ref_idx = value; });
    list.at_most("collocated_ref_idx", 0, 2, [](auto& slice, auto value) {
        slice.slice_type = 0;
        slice.collocated_from_l0_flag = false;
        slice.collocated_ref_idx = value;
    });
    list.at_most("five_minus_max_num_merge_cand", 0, 4,
                 [](auto& slice, auto value) { slice.five_minus_max_num_merge_cand = value; });
    // 26 + 4 are added to it, for -12 to 51.
    list.within("slice_qp_delta", -42, 21,
                [](auto& slice, auto value) { slice.slice_qp_delta = value; });
    list.within("slice_cb_qp_offset", -12, 7,
                [](auto& slice, auto value) { slice.slice_cb_qp_offset = value; });
    list.within("slice_cr_qp_offset", -9, 12,
                [](auto& slice, auto value) { slice.slice_cr_qp_offset = value; });
    list.within("slice_beta_offset_div2", -6, 6,
                [](auto& slice, auto value) { slice.slice_beta_offset_div2 = value; });
    list.within("slice_tc_offset_div2", -6, 6,
                [](auto& slice, auto value) { slice.slice_tc_offset_div2 = value; });
    list.at_most("slice_segment_header_extension_length", 0, 256, [](auto& slice, auto value) {
        slice.slice_segment_header_extension_length = value;
    });
    return {"slice_segment_header", parameter_sets_of(base), TRAIL_R, list.cases()};
}

// Of 6 by 4 coding tree blocks.
range_table entry_point_ranges(bool tiles, bool wavefronts, std::int64_t most) {
    slice_values base;
    base.sps.st_ref_pic_set = {pictures_before(1)};
    base.pps.tiles_enabled_flag = tiles;
    base.pps.num_tile_columns_minus1 = 2;
    base.pps.num_tile_rows_minus1 = 1;
    base.pps.entropy_coding_sync_enabled_flag = wavefronts;
    case_list<slice_values> list(base);
    list.at_most("num_entry_point_offsets", 0, most,
                 [](auto& slice, auto value) { slice.num_entry_point_offsets = value; });
    list.at_most("offset_len_minus1", 0, 31, [](auto& slice, auto value) {
        slice.num_entry_point_offsets = 1;
        slice.offset_len_minus1 = value;
    });
    return {"slice_segment_header", parameter_sets_of(base), TRAIL_R, list.cases()};
}

// Of 8 bits; denominators are 3 and what is added to it.
range_table weight_ranges_of_list(const std::string& list_name, std::int64_t slice_type) {
    slice_values base;
    base.sps.st_ref_pic_set = {pictures_before(1)};
    base.pps.weighted_pred_flag = true;
    base.pps.weighted_bipred_flag = true;
    base.slice_type = slice_type;
    base.weights.luma_log2_weight_denom = 3;
    case_list<slice_values> list(base);
    list.at_most("luma_log2_weight_denom", 0, 7, [](auto& slice, auto value) {
        slice.weights.luma_log2_weight_denom = value;
        slice.weights.delta_chroma_log2_weight_denom = -1;
    });
    list.within("delta_chroma_log2_weight_denom", -3, 4, [](auto& slice, auto value) {
        slice.weights.delta_chroma_log2_weight_denom = value;
    });
    list.within("delta_luma_weight_" + list_name + "[0]", -128, 127,
                [](auto& slice, auto value) { slice.weights.delta_luma_weight = value; });
    list.within("luma_offset_" + list_name + "[0]", -128, 127,
                [](auto& slice, auto value) { slice.weights.luma_offset = value; });
    for (const char* const entry : {"[0][0]", "[0][1]"}) {
        const std::string component = list_name + entry;
        list.within("delta_chroma_weight_" + component, -128, 127,
                    [](auto& slice, auto value) { slice.weights.delta_chroma_weight = value; });
        list.within("delta_chroma_offset_" + component, -512, 511,
                    [](auto& slice, auto value) { slice.weights.delta_chroma_offset = value; });
    }
    return {"pred_weight_table", parameter_sets_of(base), TRAIL_R, list.cases()};
}

range_table colour_plane_ranges() {
    slice_values base;
    base.sps.chroma_format_idc = 3;
    base.sps.separate_colour_plane_flag = true;
    base.sps.st_ref_pic_set = {pictures_before(1)};
    case_list<slice_values> list(base);
    list.at_most("colour_plane_id", 0, 2,
                 [](auto& slice, auto value) { slice.colour_plane_id = value; });
    return {"slice_segment_header", parameter_sets_of(base), TRAIL_R, list.cases()};
}

// ---- Access unit delimiter and SEI messages

range_table aud_ranges() {
    case_list<aud_values> list;
    list.reserved_above("pic_type", 2, [](auto& aud, auto value) { aud.pic_type = value; });
    return {"access_unit_delimiter_rbsp", {}, AUD_NUT, list.cases()};
}

range_table buffering_period_ranges() {
    case_list<buffering_period_values> list;
    list.at_most("bp_seq_parameter_set_id", 0, 15,
                 [](auto& period, auto value) { period.bp_seq_parameter_set_id = value; });
    sps_values sps;
    sps.vui_parameters_present_flag = true;
    sps_values last = sps;
    last.sps_seq_parameter_set_id = 15;
    return {"buffering_period",
            {{VPS_NUT, bits_of(vps_values())}, {SPS_NUT, bits_of(sps)}, {SPS_NUT, bits_of(last)}},
            PREFIX_SEI_NUT,
            list.cases()};
}

std::vector<range_unit> parameter_sets_of_pictures(bool field_seq_flag) {
    sps_values sps;
    sps.vui_parameters_present_flag = true;
    sps.vui.field_seq_flag = field_seq_flag;
    sps.vui.frame_field_info_present_flag = 1;
    sps.vui.hrd.sub_pic_hrd_params_present_flag = true;
    return {{VPS_NUT, bits_of(vps_values())}, {SPS_NUT, bits_of(sps)}};
}

range_table pic_timing_of_frames_ranges() {
    case_list<pic_timing_values> list;
    list.at_most("pic_struct", 0, 8, [](auto& timing, auto value) { timing.pic_struct = value; });
    list.reserved_above("source_scan_type", 2,
                        [](auto& timing, auto value) { timing.source_scan_type = value; });
    list.at_most("num_decoding_units_minus1", 0, 23,
                 [](auto& timing, auto value) { timing.num_decoding_units_minus1 = value; });
    return {"pic_timing", parameter_sets_of_pictures(/*field_seq_flag=*/false), PREFIX_SEI_NUT,
            list.cases()};
}

range_table pic_timing_of_fields_ranges() {
    case_list<pic_timing_values> list;
    list.within("pic_struct", 1, 12, [](auto& timing, auto value) { timing.pic_struct = value; });
    return {"pic_timing", parameter_sets_of_pictures(/*field_seq_flag=*/true), PREFIX_SEI_NUT,
            list.cases()};
}

// Of a VPS with two layers.
range_table active_parameter_sets_ranges() {
    case_list<active_parameter_sets_values> list;
    list.at_most("num_sps_ids_minus1", 0, 15, [](auto& sets, auto value) {
        sets.active_seq_parameter_set_id.assign(static_cast<std::size_t>(value) + 1, 0);
    });
    list.at_most("active_seq_parameter_set_id[0]", 0, 15,
                 [](auto& sets, auto value) { sets.active_seq_parameter_set_id = {value}; });
    list.at_most("layer_sps_idx[1]", 0, 2, [](auto& sets, auto value) {
        sets.active_seq_parameter_set_id = {0, 1, 2};
        sets.layer_sps_idx = value;
    });
    vps_values vps;
    vps.vps_max_layers_minus1 = 1;
    return {"active_parameter_sets", {{VPS_NUT, bits_of(vps)}}, PREFIX_SEI_NUT, list.cases()};
}

}  // namespace

std::vector<range_table> range_tables() {
    std::vector<range_table> tables = {vps_ranges(),
                                       sps_ranges(),
                                       pps_ranges(),
                                       pps_scaling_list_ranges(),
                                       slice_ranges(),
                                       list_modification_ranges(),
                                       slice_end_ranges(),
                                       entry_point_ranges(/*tiles=*/true, /*wavefronts=*/false, 5),
                                       entry_point_ranges(/*tiles=*/false, /*wavefronts=*/true, 3),
                                       entry_point_ranges(/*tiles=*/true, /*wavefronts=*/true, 11),
                                       weight_ranges_of_list("l0", /*slice_type=*/1),
                                       weight_ranges_of_list("l1", /*slice_type=*/0),
                                       colour_plane_ranges(),
                                       aud_ranges(),
                                       buffering_period_ranges(),
                                       pic_timing_of_frames_ranges(),
                                       pic_timing_of_fields_ranges(),
                                       active_parameter_sets_ranges()};
    for (range_table& each : extension_range_tables()) {
        tables.push_back(std::move(each));
    }
    return tables;
}

}  // namespace kovran::test
