#include "support/parameter_set_elements.h"

#include <algorithm>
#include <cstddef>
#include <initializer_list>
#include <utility>

namespace kovran::test {
namespace {

using indices = std::initializer_list<std::size_t>;

class element_list {
public:
    void add(std::string name, std::int64_t value) {
        elements_.push_back({std::move(name), value});
    }

    void add(std::string name, indices brackets, std::int64_t value) {
        for (const std::size_t index : brackets) {
            name += "[" + std::to_string(index) + "]";
        }
        add(std::move(name), value);
    }

    // A whole array, entry by entry.
    template <class Array>
    void add_all(const char* name, const Array& array) {
        for (std::size_t i = 0; i < array.size(); ++i) {
            add(name, {i}, array[i]);
        }
    }

    std::vector<element> take() { return std::move(elements_); }

private:
    std::vector<element> elements_;
};

// The names of a sub-layer's elements end in its index, before that of a flag.
class layer_names {
public:
    layer_names() : prefix_("general_") {}
    explicit layer_names(std::size_t i) : prefix_("sub_layer_"), suffix_(bracket(i)) {}

    std::string operator()(const char* name) const { return prefix_ + name + suffix_; }

private:
    static std::string bracket(std::size_t i) { return "[" + std::to_string(i) + "]"; }

    std::string prefix_;
    std::string suffix_;
};

void add_layer(element_list& list, const h265_profile_tier_level::layer_t& layer,
               const layer_names& name) {
    if (layer.profile_present_flag) {
        list.add(name("profile_space"), layer.profile_space);
        list.add(name("tier_flag"), layer.tier_flag);
        list.add(name("profile_idc"), layer.profile_idc);
        for (std::size_t j = 0; j < 32; ++j) {
            list.add(name("profile_compatibility_flag"), {j}, layer.profile_compatibility_flag[j]);
        }
        list.add(name("progressive_source_flag"), layer.progressive_source_flag);
        list.add(name("interlaced_source_flag"), layer.interlaced_source_flag);
        list.add(name("non_packed_constraint_flag"), layer.non_packed_constraint_flag);
        list.add(name("frame_only_constraint_flag"), layer.frame_only_constraint_flag);

        const auto profile_is_any = [&](indices profiles) {
            return std::any_of(profiles.begin(), profiles.end(), [&](std::size_t profile) {
                return layer.profile_idc == profile || layer.profile_compatibility_flag[profile];
            });
        };
        if (profile_is_any({4, 5, 6, 7, 8, 9, 10, 11})) {
            list.add(name("max_12bit_constraint_flag"), layer.max_12bit_constraint_flag);
            list.add(name("max_10bit_constraint_flag"), layer.max_10bit_constraint_flag);
            list.add(name("max_8bit_constraint_flag"), layer.max_8bit_constraint_flag);
            list.add(name("max_422chroma_constraint_flag"), layer.max_422chroma_constraint_flag);
            list.add(name("max_420chroma_constraint_flag"), layer.max_420chroma_constraint_flag);
            list.add(name("max_monochrome_constraint_flag"), layer.max_monochrome_constraint_flag);
            list.add(name("intra_constraint_flag"), layer.intra_constraint_flag);
            list.add(name("one_picture_only_constraint_flag"),
                     layer.one_picture_only_constraint_flag);
            list.add(name("lower_bit_rate_constraint_flag"), layer.lower_bit_rate_constraint_flag);
            if (profile_is_any({5, 9, 10, 11})) {
                list.add(name("max_14bit_constraint_flag"), layer.max_14bit_constraint_flag);
            }
        } else if (profile_is_any({2})) {
            list.add(name("one_picture_only_constraint_flag"),
                     layer.one_picture_only_constraint_flag);
        }
        if (profile_is_any({1, 2, 3, 4, 5, 9, 11})) {
            list.add(name("inbld_flag"), layer.inbld_flag);
        }
    }
    if (layer.level_present_flag) {
        list.add(name("level_idc"), layer.level_idc);
    }
}

void add_profile_tier_level(element_list& list, const h265_profile_tier_level& ptl) {
    add_layer(list, ptl.general, layer_names());
    for (std::size_t i = 0; i < ptl.sub_layers.size(); ++i) {
        list.add("sub_layer_profile_present_flag", {i}, ptl.sub_layers[i].profile_present_flag);
        list.add("sub_layer_level_present_flag", {i}, ptl.sub_layers[i].level_present_flag);
    }
    for (std::size_t i = 0; i < ptl.sub_layers.size(); ++i) {
        add_layer(list, ptl.sub_layers[i], layer_names(i));
    }
}

void add_sub_layer_hrd(element_list& list, const h265_nal_sub_layer_hrd_parameters& hrd,
                       bool sub_pic_hrd_params_present_flag) {
    for (std::size_t i = 0; i < hrd.bit_rate_value_minus1.size(); ++i) {
        list.add("bit_rate_value_minus1", {i}, hrd.bit_rate_value_minus1[i]);
        list.add("cpb_size_value_minus1", {i}, hrd.cpb_size_value_minus1[i]);
        if (sub_pic_hrd_params_present_flag) {
            list.add("cpb_size_du_value_minus1", {i}, hrd.cpb_size_du_value_minus1[i]);
            list.add("bit_rate_du_value_minus1", {i}, hrd.bit_rate_du_value_minus1[i]);
        }
        list.add("cbr_flag", {i}, hrd.cbr_flag[i]);
    }
}

void add_hrd(element_list& list, const h265_hrd_parameters& hrd) {
    if (hrd.commonInfPresentFlag) {
        list.add("nal_hrd_parameters_present_flag", hrd.nal_hrd_parameters_present_flag);
        list.add("vcl_hrd_parameters_present_flag", hrd.vcl_hrd_parameters_present_flag);
        if (hrd.nal_hrd_parameters_present_flag || hrd.vcl_hrd_parameters_present_flag) {
            list.add("sub_pic_hrd_params_present_flag", hrd.sub_pic_hrd_params_present_flag);
            if (hrd.sub_pic_hrd_params_present_flag) {
                list.add("tick_divisor_minus2", hrd.tick_divisor_minus2);
                list.add("du_cpb_removal_delay_increment_length_minus1",
                         hrd.du_cpb_removal_delay_increment_length_minus1);
                list.add("sub_pic_cpb_params_in_pic_timing_sei_flag",
                         hrd.sub_pic_cpb_params_in_pic_timing_sei_flag);
                list.add("dpb_output_delay_du_length_minus1",
                         hrd.dpb_output_delay_du_length_minus1);
            }
            list.add("bit_rate_scale", hrd.bit_rate_scale);
            list.add("cpb_size_scale", hrd.cpb_size_scale);
            if (hrd.sub_pic_hrd_params_present_flag) {
                list.add("cpb_size_du_scale", hrd.cpb_size_du_scale);
            }
            list.add("initial_cpb_removal_delay_length_minus1",
                     hrd.initial_cpb_removal_delay_length_minus1);
            list.add("au_cpb_removal_delay_length_minus1", hrd.au_cpb_removal_delay_length_minus1);
            list.add("dpb_output_delay_length_minus1", hrd.dpb_output_delay_length_minus1);
        }
    }
    for (std::size_t i = 0; i < hrd.fixed_pic_rate_general_flag.size(); ++i) {
        list.add("fixed_pic_rate_general_flag", {i}, hrd.fixed_pic_rate_general_flag[i]);
        if (!hrd.fixed_pic_rate_general_flag[i]) {
            list.add("fixed_pic_rate_within_cvs_flag", {i}, hrd.fixed_pic_rate_within_cvs_flag[i]);
        }
        if (hrd.fixed_pic_rate_within_cvs_flag[i]) {
            list.add("elemental_duration_in_tc_minus1", {i},
                     hrd.elemental_duration_in_tc_minus1[i]);
        } else {
            list.add("low_delay_hrd_flag", {i}, hrd.low_delay_hrd_flag[i]);
        }
        if (!hrd.low_delay_hrd_flag[i]) {
            list.add("cpb_cnt_minus1", {i}, hrd.cpb_cnt_minus1[i]);
        }
        if (hrd.nal_hrd_parameters_present_flag) {
            add_sub_layer_hrd(list, hrd.nal_sub_layer_hrd[i], hrd.sub_pic_hrd_params_present_flag);
        }
        if (hrd.vcl_hrd_parameters_present_flag) {
            add_sub_layer_hrd(list, hrd.vcl_sub_layer_hrd[i], hrd.sub_pic_hrd_params_present_flag);
        }
    }
}

void add_scaling_list_data(element_list& list, const h265_scaling_list_data& data) {
    for (std::size_t sizeId = 0; sizeId < 4; ++sizeId) {
        for (std::size_t matrixId = 0; matrixId < 6; matrixId += sizeId == 3 ? 3 : 1) {
            const bool coded = data.scaling_list_pred_mode_flag[sizeId][matrixId];
            list.add("scaling_list_pred_mode_flag", {sizeId, matrixId}, coded);
            if (!coded) {
                list.add("scaling_list_pred_matrix_id_delta", {sizeId, matrixId},
                         data.scaling_list_pred_matrix_id_delta[sizeId][matrixId]);
                continue;
            }
            int coefficient = 8;
            if (sizeId > 1) {
                const int dc = data.scaling_list_dc_coef_minus8[sizeId - 2][matrixId];
                list.add("scaling_list_dc_coef_minus8", {sizeId - 2, matrixId}, dc);
                coefficient = dc + 8;
            }
            const std::vector<int>& coefficients = data.ScalingList[sizeId][matrixId];
            for (std::size_t i = 0; i < coefficients.size(); ++i) {
                // The only difference modulo 256 that the standard allows, -128 to 127.
                const int delta = (coefficients[i] - coefficient + 128 + 256) % 256 - 128;
                list.add("scaling_list_delta_coef", {sizeId, matrixId, i}, delta);
                coefficient = coefficients[i];
            }
        }
    }
}

void add_st_ref_pic_set(element_list& list, const h265_st_ref_pic_set& set) {
    if (set.stRpsIdx != 0) {
        list.add("inter_ref_pic_set_prediction_flag", set.inter_ref_pic_set_prediction_flag);
    }
    if (set.inter_ref_pic_set_prediction_flag) {
        list.add("delta_rps_sign", set.delta_rps_sign);
        list.add("abs_delta_rps_minus1", set.abs_delta_rps_minus1);
        for (std::size_t j = 0; j < set.used_by_curr_pic_flag.size(); ++j) {
            list.add("used_by_curr_pic_flag", {j}, set.used_by_curr_pic_flag[j]);
            if (!set.used_by_curr_pic_flag[j]) {
                list.add("use_delta_flag", {j}, set.use_delta_flag[j]);
            }
        }
        return;
    }
    list.add("num_negative_pics", set.num_negative_pics);
    list.add("num_positive_pics", set.num_positive_pics);
    for (std::size_t i = 0; i < set.delta_poc_s0_minus1.size(); ++i) {
        list.add("delta_poc_s0_minus1", {i}, set.delta_poc_s0_minus1[i]);
        list.add("used_by_curr_pic_s0_flag", {i}, set.used_by_curr_pic_s0_flag[i]);
    }
    for (std::size_t i = 0; i < set.delta_poc_s1_minus1.size(); ++i) {
        list.add("delta_poc_s1_minus1", {i}, set.delta_poc_s1_minus1[i]);
        list.add("used_by_curr_pic_s1_flag", {i}, set.used_by_curr_pic_s1_flag[i]);
    }
}

void add_vui(element_list& list, const h265_vui_parameters& vui) {
    list.add("aspect_ratio_info_present_flag", vui.aspect_ratio_info_present_flag);
    if (vui.aspect_ratio_info_present_flag) {
        list.add("aspect_ratio_idc", vui.aspect_ratio_idc);
        if (vui.aspect_ratio_idc == 255) {
            list.add("sar_width", vui.sar_width);
            list.add("sar_height", vui.sar_height);
        }
    }
    list.add("overscan_info_present_flag", vui.overscan_info_present_flag);
    if (vui.overscan_info_present_flag) {
        list.add("overscan_appropriate_flag", vui.overscan_appropriate_flag);
    }
    list.add("video_signal_type_present_flag", vui.video_signal_type_present_flag);
    if (vui.video_signal_type_present_flag) {
        list.add("video_format", vui.video_format);
        list.add("video_full_range_flag", vui.video_full_range_flag);
        list.add("colour_description_present_flag", vui.colour_description_present_flag);
        if (vui.colour_description_present_flag) {
            list.add("colour_primaries", vui.colour_primaries);
            list.add("transfer_characteristics", vui.transfer_characteristics);
            list.add("matrix_coeffs", vui.matrix_coeffs);
        }
    }
    list.add("chroma_loc_info_present_flag", vui.chroma_loc_info_present_flag);
    if (vui.chroma_loc_info_present_flag) {
        list.add("chroma_sample_loc_type_top_field", vui.chroma_sample_loc_type_top_field);
        list.add("chroma_sample_loc_type_bottom_field", vui.chroma_sample_loc_type_bottom_field);
    }
    list.add("neutral_chroma_indication_flag", vui.neutral_chroma_indication_flag);
    list.add("field_seq_flag", vui.field_seq_flag);
    list.add("frame_field_info_present_flag", vui.frame_field_info_present_flag);
    list.add("default_display_window_flag", vui.default_display_window_flag);
    if (vui.default_display_window_flag) {
        list.add("def_disp_win_left_offset", vui.def_disp_win_left_offset);
        list.add("def_disp_win_right_offset", vui.def_disp_win_right_offset);
        list.add("def_disp_win_top_offset", vui.def_disp_win_top_offset);
        list.add("def_disp_win_bottom_offset", vui.def_disp_win_bottom_offset);
    }
    list.add("vui_timing_info_present_flag", vui.vui_timing_info_present_flag);
    if (vui.vui_timing_info_present_flag) {
        list.add("vui_num_units_in_tick", vui.vui_num_units_in_tick);
        list.add("vui_time_scale", vui.vui_time_scale);
        list.add("vui_poc_proportional_to_timing_flag", vui.vui_poc_proportional_to_timing_flag);
        if (vui.vui_poc_proportional_to_timing_flag) {
            list.add("vui_num_ticks_poc_diff_one_minus1", vui.vui_num_ticks_poc_diff_one_minus1);
        }
        list.add("vui_hrd_parameters_present_flag", vui.vui_hrd_parameters_present_flag);
        if (vui.vui_hrd_parameters_present_flag) {
            add_hrd(list, vui.hrd_parameters);
        }
    }
    list.add("bitstream_restriction_flag", vui.bitstream_restriction_flag);
    if (vui.bitstream_restriction_flag) {
        list.add("tiles_fixed_structure_flag", vui.tiles_fixed_structure_flag);
        list.add("motion_vectors_over_pic_boundaries_flag",
                 vui.motion_vectors_over_pic_boundaries_flag);
        list.add("restricted_ref_pic_lists_flag", vui.restricted_ref_pic_lists_flag);
        list.add("min_spatial_segmentation_idc", vui.min_spatial_segmentation_idc);
        list.add("max_bytes_per_pic_denom", vui.max_bytes_per_pic_denom);
        list.add("max_bits_per_min_cu_denom", vui.max_bits_per_min_cu_denom);
        list.add("log2_max_mv_length_horizontal", vui.log2_max_mv_length_horizontal);
        list.add("log2_max_mv_length_vertical", vui.log2_max_mv_length_vertical);
    }
}

}  // namespace

std::vector<element> elements_of(const h265_nal_vps& vps) {
    element_list list;
    list.add("vps_video_parameter_set_id", vps.vps_video_parameter_set_id);
    list.add("vps_base_layer_internal_flag", vps.vps_base_layer_internal_flag);
    list.add("vps_base_layer_available_flag", vps.vps_base_layer_available_flag);
    list.add("vps_max_layers_minus1", vps.vps_max_layers_minus1);
    list.add("vps_max_sub_layers_minus1", vps.vps_max_sub_layers_minus1);
    list.add("vps_temporal_id_nesting_flag", vps.vps_temporal_id_nesting_flag);
    list.add("vps_reserved_0xffff_16bits", vps.vps_reserved_0xffff_16bits);
    add_profile_tier_level(list, vps.profile_tier_level);

    const bool all = vps.vps_sub_layer_ordering_info_present_flag;
    list.add("vps_sub_layer_ordering_info_present_flag", all);
    const std::size_t sub_layers = vps.vps_max_dec_pic_buffering_minus1.size();
    for (std::size_t i = all ? 0 : vps.vps_max_sub_layers_minus1; i < sub_layers; ++i) {
        list.add("vps_max_dec_pic_buffering_minus1", {i}, vps.vps_max_dec_pic_buffering_minus1[i]);
        list.add("vps_max_num_reorder_pics", {i}, vps.vps_max_num_reorder_pics[i]);
        list.add("vps_max_latency_increase_plus1", {i}, vps.vps_max_latency_increase_plus1[i]);
    }

    list.add("vps_max_layer_id", vps.vps_max_layer_id);
    list.add("vps_num_layer_sets_minus1", vps.vps_num_layer_sets_minus1);
    for (std::size_t i = 1; i < vps.layer_id_included_flag.size(); ++i) {
        for (std::size_t j = 0; j < vps.layer_id_included_flag[i].size(); ++j) {
            list.add("layer_id_included_flag", {i, j}, vps.layer_id_included_flag[i][j]);
        }
    }

    list.add("vps_timing_info_present_flag", vps.vps_timing_info_present_flag);
    if (vps.vps_timing_info_present_flag) {
        list.add("vps_num_units_in_tick", vps.vps_num_units_in_tick);
        list.add("vps_time_scale", vps.vps_time_scale);
        list.add("vps_poc_proportional_to_timing_flag", vps.vps_poc_proportional_to_timing_flag);
        if (vps.vps_poc_proportional_to_timing_flag) {
            list.add("vps_num_ticks_poc_diff_one_minus1", vps.vps_num_ticks_poc_diff_one_minus1);
        }
        list.add("vps_num_hrd_parameters", vps.vps_num_hrd_parameters);
        for (std::size_t i = 0; i < vps.hrd_parameters.size(); ++i) {
            list.add("hrd_layer_set_idx", {i}, vps.hrd_layer_set_idx[i]);
            if (i > 0) {
                list.add("cprms_present_flag", {i}, vps.cprms_present_flag[i]);
            }
            add_hrd(list, vps.hrd_parameters[i]);
        }
    }
    list.add("vps_extension_flag", vps.vps_extension_flag);
    return list.take();
}

std::vector<element> elements_of(const h265_nal_sps& sps) {
    element_list list;
    list.add("sps_video_parameter_set_id", sps.sps_video_parameter_set_id);
    list.add("sps_max_sub_layers_minus1", sps.sps_max_sub_layers_minus1);
    list.add("sps_temporal_id_nesting_flag", sps.sps_temporal_id_nesting_flag);
    add_profile_tier_level(list, sps.profile_tier_level);

    list.add("sps_seq_parameter_set_id", sps.sps_seq_parameter_set_id);
    list.add("chroma_format_idc", sps.chroma_format_idc);
    if (sps.chroma_format_idc == 3) {
        list.add("separate_colour_plane_flag", sps.separate_colour_plane_flag);
    }
    list.add("pic_width_in_luma_samples", sps.pic_width_in_luma_samples);
    list.add("pic_height_in_luma_samples", sps.pic_height_in_luma_samples);
    list.add("conformance_window_flag", sps.conformance_window_flag);
    if (sps.conformance_window_flag) {
        list.add("conf_win_left_offset", sps.conf_win_left_offset);
        list.add("conf_win_right_offset", sps.conf_win_right_offset);
        list.add("conf_win_top_offset", sps.conf_win_top_offset);
        list.add("conf_win_bottom_offset", sps.conf_win_bottom_offset);
    }
    list.add("bit_depth_luma_minus8", sps.bit_depth_luma_minus8);
    list.add("bit_depth_chroma_minus8", sps.bit_depth_chroma_minus8);
    list.add("log2_max_pic_order_cnt_lsb_minus4", sps.log2_max_pic_order_cnt_lsb_minus4);

    const bool all = sps.sps_sub_layer_ordering_info_present_flag;
    list.add("sps_sub_layer_ordering_info_present_flag", all);
    const std::size_t sub_layers = sps.sps_max_dec_pic_buffering_minus1.size();
    for (std::size_t i = all ? 0 : sps.sps_max_sub_layers_minus1; i < sub_layers; ++i) {
        list.add("sps_max_dec_pic_buffering_minus1", {i}, sps.sps_max_dec_pic_buffering_minus1[i]);
        list.add("sps_max_num_reorder_pics", {i}, sps.sps_max_num_reorder_pics[i]);
        list.add("sps_max_latency_increase_plus1", {i}, sps.sps_max_latency_increase_plus1[i]);
    }

    list.add("log2_min_luma_coding_block_size_minus3", sps.log2_min_luma_coding_block_size_minus3);
    list.add("log2_diff_max_min_luma_coding_block_size",
             sps.log2_diff_max_min_luma_coding_block_size);
    list.add("log2_min_luma_transform_block_size_minus2",
             sps.log2_min_luma_transform_block_size_minus2);
    list.add("log2_diff_max_min_luma_transform_block_size",
             sps.log2_diff_max_min_luma_transform_block_size);
    list.add("max_transform_hierarchy_depth_inter", sps.max_transform_hierarchy_depth_inter);
    list.add("max_transform_hierarchy_depth_intra", sps.max_transform_hierarchy_depth_intra);

    list.add("scaling_list_enabled_flag", sps.scaling_list_enabled_flag);
    if (sps.scaling_list_enabled_flag) {
        list.add("sps_scaling_list_data_present_flag", sps.sps_scaling_list_data_present_flag);
        if (sps.sps_scaling_list_data_present_flag) {
            add_scaling_list_data(list, sps.scaling_list_data);
        }
    }
    list.add("amp_enabled_flag", sps.amp_enabled_flag);
    list.add("sample_adaptive_offset_enabled_flag", sps.sample_adaptive_offset_enabled_flag);
    list.add("pcm_enabled_flag", sps.pcm_enabled_flag);
    if (sps.pcm_enabled_flag) {
        list.add("pcm_sample_bit_depth_luma_minus1", sps.pcm_sample_bit_depth_luma_minus1);
        list.add("pcm_sample_bit_depth_chroma_minus1", sps.pcm_sample_bit_depth_chroma_minus1);
        list.add("log2_min_pcm_luma_coding_block_size_minus3",
                 sps.log2_min_pcm_luma_coding_block_size_minus3);
        list.add("log2_diff_max_min_pcm_luma_coding_block_size",
                 sps.log2_diff_max_min_pcm_luma_coding_block_size);
        list.add("pcm_loop_filter_disabled_flag", sps.pcm_loop_filter_disabled_flag);
    }

    list.add("num_short_term_ref_pic_sets", sps.num_short_term_ref_pic_sets);
    for (const h265_st_ref_pic_set& set : sps.st_ref_pic_set) {
        add_st_ref_pic_set(list, set);
    }
    list.add("long_term_ref_pics_present_flag", sps.long_term_ref_pics_present_flag);
    if (sps.long_term_ref_pics_present_flag) {
        list.add("num_long_term_ref_pics_sps", sps.num_long_term_ref_pics_sps);
        for (std::size_t i = 0; i < sps.lt_ref_pic_poc_lsb_sps.size(); ++i) {
            list.add("lt_ref_pic_poc_lsb_sps", {i}, sps.lt_ref_pic_poc_lsb_sps[i]);
            list.add("used_by_curr_pic_lt_sps_flag", {i}, sps.used_by_curr_pic_lt_sps_flag[i]);
        }
    }
    list.add("sps_temporal_mvp_enabled_flag", sps.sps_temporal_mvp_enabled_flag);
    list.add("strong_intra_smoothing_enabled_flag", sps.strong_intra_smoothing_enabled_flag);
    list.add("vui_parameters_present_flag", sps.vui_parameters_present_flag);
    if (sps.vui_parameters_present_flag) {
        add_vui(list, sps.vui_parameters);
    }
    list.add("sps_extension_flag", sps.sps_extension_flag);
    return list.take();
}

std::vector<element> elements_of(const h265_st_ref_pic_set& set) {
    element_list list;
    add_st_ref_pic_set(list, set);
    return list.take();
}

std::vector<element> elements_of(const h265_nal_pps& pps) {
    element_list list;
    list.add("pps_pic_parameter_set_id", pps.pps_pic_parameter_set_id);
    list.add("pps_seq_parameter_set_id", pps.pps_seq_parameter_set_id);
    list.add("dependent_slice_segments_enabled_flag", pps.dependent_slice_segments_enabled_flag);
    list.add("output_flag_present_flag", pps.output_flag_present_flag);
    list.add("num_extra_slice_header_bits", pps.num_extra_slice_header_bits);
    list.add("sign_data_hiding_enabled_flag", pps.sign_data_hiding_enabled_flag);
    list.add("cabac_init_present_flag", pps.cabac_init_present_flag);
    list.add("num_ref_idx_l0_default_active_minus1", pps.num_ref_idx_l0_default_active_minus1);
    list.add("num_ref_idx_l1_default_active_minus1", pps.num_ref_idx_l1_default_active_minus1);
    list.add("init_qp_minus26", pps.init_qp_minus26);
    list.add("constrained_intra_pred_flag", pps.constrained_intra_pred_flag);
    list.add("transform_skip_enabled_flag", pps.transform_skip_enabled_flag);
    list.add("cu_qp_delta_enabled_flag", pps.cu_qp_delta_enabled_flag);
    if (pps.cu_qp_delta_enabled_flag) {
        list.add("diff_cu_qp_delta_depth", pps.diff_cu_qp_delta_depth);
    }
    list.add("pps_cb_qp_offset", pps.pps_cb_qp_offset);
    list.add("pps_cr_qp_offset", pps.pps_cr_qp_offset);
    list.add("pps_slice_chroma_qp_offsets_present_flag",
             pps.pps_slice_chroma_qp_offsets_present_flag);
    list.add("weighted_pred_flag", pps.weighted_pred_flag);
    list.add("weighted_bipred_flag", pps.weighted_bipred_flag);
    list.add("transquant_bypass_enabled_flag", pps.transquant_bypass_enabled_flag);
    list.add("tiles_enabled_flag", pps.tiles_enabled_flag);
    list.add("entropy_coding_sync_enabled_flag", pps.entropy_coding_sync_enabled_flag);
    if (pps.tiles_enabled_flag) {
        list.add("num_tile_columns_minus1", pps.num_tile_columns_minus1);
        list.add("num_tile_rows_minus1", pps.num_tile_rows_minus1);
        list.add("uniform_spacing_flag", pps.uniform_spacing_flag);
        list.add_all("column_width_minus1", pps.column_width_minus1);
        list.add_all("row_height_minus1", pps.row_height_minus1);
        list.add("loop_filter_across_tiles_enabled_flag",
                 pps.loop_filter_across_tiles_enabled_flag);
    }
    list.add("pps_loop_filter_across_slices_enabled_flag",
             pps.pps_loop_filter_across_slices_enabled_flag);
    list.add("deblocking_filter_control_present_flag", pps.deblocking_filter_control_present_flag);
    if (pps.deblocking_filter_control_present_flag) {
        list.add("deblocking_filter_override_enabled_flag",
                 pps.deblocking_filter_override_enabled_flag);
        list.add("pps_deblocking_filter_disabled_flag", pps.pps_deblocking_filter_disabled_flag);
        if (!pps.pps_deblocking_filter_disabled_flag) {
            list.add("pps_beta_offset_div2", pps.pps_beta_offset_div2);
            list.add("pps_tc_offset_div2", pps.pps_tc_offset_div2);
        }
    }
    list.add("pps_scaling_list_data_present_flag", pps.pps_scaling_list_data_present_flag);
    if (pps.pps_scaling_list_data_present_flag) {
        add_scaling_list_data(list, pps.scaling_list_data);
    }
    list.add("lists_modification_present_flag", pps.lists_modification_present_flag);
    list.add("log2_parallel_merge_level_minus2", pps.log2_parallel_merge_level_minus2);
    list.add("slice_segment_header_extension_present_flag",
             pps.slice_segment_header_extension_present_flag);
    list.add("pps_extension_present_flag", pps.pps_extension_present_flag);
    return list.take();
}

}  // namespace kovran::test
