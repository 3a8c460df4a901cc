#include "support/syntax_values.h"

#include <kovran/h265/h265_nal_sei.h>

#include <algorithm>

#include "support/parameter_sets.h"

namespace kovran::test {
namespace {

// Ceil(Log2(count)), clause 5.8.
unsigned int ceil_log2(std::size_t count) {
    unsigned int width = 0;
    while (std::size_t{1} << width < count) {
        ++width;
    }
    return width;
}

// The writer with values that may be out of range.
class value_writer {
public:
    value_writer& u(unsigned int width, element_value value) {
        bits_.u(width, static_cast<std::uint64_t>(value));
        return *this;
    }
    value_writer& ue(element_value value) {
        bits_.ue(static_cast<std::uint32_t>(value));
        return *this;
    }
    value_writer& se(element_value value) {
        bits_.se(static_cast<std::int32_t>(value));
        return *this;
    }
    value_writer& flag(bool value) { return u(1, value ? 1 : 0); }
    value_writer& zeros(unsigned int count) {
        for (unsigned int i = 0; i < count; ++i) {
            flag(false);
        }
        return *this;
    }

    // A flag, and what it governs.
    value_writer& optional(const bit_writer& more) {
        flag(more.size() != 0);
        append(bits_, more);
        return *this;
    }

    bit_writer rbsp() const {
        bit_writer whole = bits_;
        return whole.trailing_bits();
    }

    // sei_rbsp() of a message with this payload.
    bit_writer sei_rbsp(unsigned int payload_type) const {
        bit_writer payload = bits_;
        if (payload.size() % 8 != 0) {
            payload.trailing_bits();  // bit_equal_to_one, and zeros
        }
        bit_writer whole = bit_writer().u<8>(payload_type).u<8>(payload.bytes().size());
        return append(whole, payload).trailing_bits();
    }

private:
    bit_writer bits_;
};

element_value of_sub_layer(const element_values& values, element_value i) {
    return values[std::min(static_cast<std::size_t>(i), values.size() - 1)];
}

void profile_tier_level(value_writer& bits, element_value general_profile_space,
                        element_value max_sub_layers_minus1) {
    bits.u(2, general_profile_space).u(1, 0).u(5, 1).u(32, 0x60000000);
    bits.flag(true).flag(false).flag(false).flag(true).u(43, 0).u(1, 0);
    bits.u(8, 93);
    if (max_sub_layers_minus1 > 0) {
        bits.zeros(16);  // no profile and no level of a sub-layer, and the reserved bits
    }
}

void ordering_info(value_writer& bits, element_value max_sub_layers_minus1,
                   const element_values& max_dec_pic_buffering_minus1,
                   const element_values& max_num_reorder_pics) {
    bits.flag(true);
    for (element_value i = 0; i <= max_sub_layers_minus1; ++i) {
        bits.ue(of_sub_layer(max_dec_pic_buffering_minus1, i));
        bits.ue(of_sub_layer(max_num_reorder_pics, i)).ue(0);
    }
}

void hrd_parameters(value_writer& bits, const hrd_values& hrd,
                    element_value max_sub_layers_minus1) {
    bits.flag(true).flag(false).flag(hrd.sub_pic_hrd_params_present_flag);
    if (hrd.sub_pic_hrd_params_present_flag) {
        bits.u(8, 0).u(5, 7).flag(true).u(5, 7);
    }
    bits.u(4, 0).u(4, 0);
    if (hrd.sub_pic_hrd_params_present_flag) {
        bits.u(4, 0);
    }
    bits.u(5, 23).u(5, 7).u(5, 7);
    for (element_value i = 0; i <= max_sub_layers_minus1; ++i) {
        bits.flag(true).ue(hrd.elemental_duration_in_tc_minus1).ue(hrd.cpb_cnt_minus1);
        for (element_value j = 0; j <= hrd.cpb_cnt_minus1; ++j) {
            bits.ue(100 + j).ue(100 + j);
            if (hrd.sub_pic_hrd_params_present_flag) {
                bits.ue(100 + j).ue(100 + j);
            }
            bits.flag(false);
        }
    }
}

void scaling_list_data(value_writer& bits, const scaling_list_values& lists) {
    for (std::size_t sizeId = 0; sizeId < 4; ++sizeId) {
        for (std::size_t matrixId = 0; matrixId < 6; matrixId += sizeId == 3 ? 3 : 1) {
            const bool chosen = sizeId == lists.sizeId && matrixId == lists.matrixId;
            if (!chosen || !lists.scaling_list_pred_mode_flag) {
                bits.flag(false).ue(chosen ? lists.scaling_list_pred_matrix_id_delta : 0);
                continue;
            }
            bits.flag(true);
            if (sizeId > 1) {
                bits.se(lists.scaling_list_dc_coef_minus8);
            }
            bits.se(lists.first_delta_coef);
            for (int i = 1; i < (sizeId == 0 ? 16 : 64); ++i) {
                bits.se(0);
            }
        }
    }
}

void st_ref_pic_set(value_writer& bits, const set_values& set, bool is_first, bool in_slice) {
    if (!is_first) {
        bits.flag(set.inter_ref_pic_set_prediction_flag);
    }
    if (set.inter_ref_pic_set_prediction_flag) {
        if (in_slice) {
            bits.ue(set.delta_idx_minus1);
        }
        bits.flag(set.delta_rps_sign).ue(set.abs_delta_rps_minus1);
        for (std::size_t j = 0; j <= set.reference_pics; ++j) {
            bits.flag(true);
        }
        return;
    }
    bits.ue(static_cast<element_value>(set.delta_poc_s0_minus1.size()));
    bits.ue(static_cast<element_value>(set.delta_poc_s1_minus1.size()));
    for (const element_values* side : {&set.delta_poc_s0_minus1, &set.delta_poc_s1_minus1}) {
        for (const element_value distance : *side) {
            bits.ue(distance).flag(true);
        }
    }
}

void vui_parameters(value_writer& bits, const vui_values& vui,
                    element_value max_sub_layers_minus1) {
    bits.flag(false).flag(false);
    bits.flag(true).u(3, vui.video_format).flag(false).flag(false);
    bits.flag(true).ue(vui.chroma_sample_loc_type_top_field);
    bits.ue(vui.chroma_sample_loc_type_bottom_field);
    bits.flag(false).flag(vui.field_seq_flag).u(1, vui.frame_field_info_present_flag);
    bits.flag(true).ue(vui.def_disp_win_left_offset).ue(vui.def_disp_win_right_offset);
    bits.ue(vui.def_disp_win_top_offset).ue(vui.def_disp_win_bottom_offset);
    bits.flag(true).u(32, vui.vui_num_units_in_tick).u(32, vui.vui_time_scale).flag(false);
    bits.flag(true);
    hrd_parameters(bits, vui.hrd, max_sub_layers_minus1);
    bits.flag(true).flag(false).flag(true).flag(false).ue(vui.min_spatial_segmentation_idc);
    bits.ue(vui.max_bytes_per_pic_denom).ue(vui.max_bits_per_min_cu_denom);
    bits.ue(vui.log2_max_mv_length_horizontal).ue(vui.log2_max_mv_length_vertical);
}

constexpr element_value type_b = 0;
constexpr element_value type_p = 1;

void list_weights(value_writer& bits, const weight_values& weights, bool has_chroma,
                  element_value num_ref_idx_active_minus1) {
    const auto others = static_cast<unsigned int>(num_ref_idx_active_minus1);
    bits.flag(true).zeros(others);
    if (has_chroma) {
        bits.flag(true).zeros(others);
    }
    bits.se(weights.delta_luma_weight).se(weights.luma_offset);
    for (int component = 0; has_chroma && component < 2; ++component) {
        bits.se(weights.delta_chroma_weight).se(weights.delta_chroma_offset);
    }
}

void pred_weight_table(value_writer& bits, const slice_values& slice) {
    const bool has_chroma =
        slice.sps.chroma_format_idc != 0 && !slice.sps.separate_colour_plane_flag;
    bits.ue(slice.weights.luma_log2_weight_denom);
    if (has_chroma) {
        bits.se(slice.weights.delta_chroma_log2_weight_denom);
    }
    list_weights(bits, slice.weights, has_chroma, slice.num_ref_idx_l0_active_minus1);
    if (slice.slice_type == type_b) {
        list_weights(bits, slice.weights, has_chroma, slice.num_ref_idx_l1_active_minus1);
    }
}

void inter_prediction(value_writer& bits, const slice_values& slice) {
    if (slice.slice_type != type_b && slice.slice_type != type_p) {
        return;
    }
    const bool is_b = slice.slice_type == type_b;
    if (is_b) {
        bits.flag(false);  // mvd_l1_zero_flag
    }
    if (slice.sps.sps_temporal_mvp_enabled_flag) {
        if (is_b) {
            bits.flag(slice.collocated_from_l0_flag);
        }
        if ((slice.collocated_from_l0_flag ? slice.num_ref_idx_l0_active_minus1
                                           : slice.num_ref_idx_l1_active_minus1) > 0) {
            bits.ue(slice.collocated_ref_idx);
        }
    }
    if (is_b ? slice.pps.weighted_bipred_flag : slice.pps.weighted_pred_flag) {
        pred_weight_table(bits, slice);
    }
    bits.ue(slice.five_minus_max_num_merge_cand);
}

void quantization_and_filters(value_writer& bits, const slice_values& slice) {
    const pps_values& pps = slice.pps;
    bits.se(slice.slice_qp_delta);
    if (pps.pps_slice_chroma_qp_offsets_present_flag) {
        bits.se(slice.slice_cb_qp_offset).se(slice.slice_cr_qp_offset);
    }
    if (pps.deblocking_filter_control_present_flag && pps.deblocking_filter_override_enabled_flag) {
        bits.flag(true).flag(false);
        bits.se(slice.slice_beta_offset_div2).se(slice.slice_tc_offset_div2);
    }
}

void slice_segment_end(value_writer& bits, const slice_values& slice) {
    if (slice.pps.tiles_enabled_flag || slice.pps.entropy_coding_sync_enabled_flag) {
        bits.ue(slice.num_entry_point_offsets);
        if (slice.num_entry_point_offsets > 0) {
            bits.ue(slice.offset_len_minus1);
        }
        for (element_value i = 0; i < slice.num_entry_point_offsets; ++i) {
            bits.u(static_cast<unsigned int>(slice.offset_len_minus1 + 1), i % 2);
        }
    }
    if (slice.pps.slice_segment_header_extension_present_flag) {
        bits.ue(slice.slice_segment_header_extension_length);
        for (element_value i = 0; i < slice.slice_segment_header_extension_length; ++i) {
            bits.u(8, i % 256);
        }
    }
}

std::size_t pic_size_in_ctbs(const sps_values& sps) {
    const element_value log2_size = 3 + sps.log2_min_luma_coding_block_size_minus3 +
                                    sps.log2_diff_max_min_luma_coding_block_size;
    const element_value size = element_value{1} << log2_size;
    return static_cast<std::size_t>(((sps.pic_width_in_luma_samples + size - 1) / size) *
                                    ((sps.pic_height_in_luma_samples + size - 1) / size));
}

}  // namespace

bit_writer bits_of(const vps_values& vps) {
    value_writer bits;
    bits.u(4, 0).u(1, vps.vps_base_layer_internal_flag).flag(true).u(6, vps.vps_max_layers_minus1);
    bits.u(3, vps.vps_max_sub_layers_minus1).flag(true).u(16, 0xFFFF);
    profile_tier_level(bits, vps.general_profile_space, vps.vps_max_sub_layers_minus1);
    ordering_info(bits, vps.vps_max_sub_layers_minus1, vps.vps_max_dec_pic_buffering_minus1,
                  vps.vps_max_num_reorder_pics);
    bits.u(6, 0).ue(vps.vps_num_layer_sets_minus1);
    for (element_value i = 1; i <= vps.vps_num_layer_sets_minus1; ++i) {
        bits.flag(true);
    }
    bits.flag(true).u(32, vps.vps_num_units_in_tick).u(32, vps.vps_time_scale).flag(false);
    bits.ue(vps.vps_num_hrd_parameters);
    for (element_value i = 0; i < vps.vps_num_hrd_parameters; ++i) {
        bits.ue(vps.hrd_layer_set_idx);
        if (i > 0) {
            bits.flag(true);
        }
        hrd_parameters(bits, vps.hrd, vps.vps_max_sub_layers_minus1);
    }
    return bits.flag(false).rbsp();
}

bit_writer bits_of(const sps_values& sps) {
    value_writer bits;
    bits.u(4, 0).u(3, sps.sps_max_sub_layers_minus1).flag(true);
    profile_tier_level(bits, sps.general_profile_space, sps.sps_max_sub_layers_minus1);
    bits.ue(sps.sps_seq_parameter_set_id).ue(sps.chroma_format_idc);
    if (sps.chroma_format_idc == 3) {
        bits.flag(sps.separate_colour_plane_flag);
    }
    bits.ue(sps.pic_width_in_luma_samples).ue(sps.pic_height_in_luma_samples);
    bits.flag(true).ue(sps.conf_win_left_offset).ue(sps.conf_win_right_offset);
    bits.ue(sps.conf_win_top_offset).ue(sps.conf_win_bottom_offset);
    bits.ue(sps.bit_depth_luma_minus8).ue(sps.bit_depth_chroma_minus8);
    bits.ue(sps.log2_max_pic_order_cnt_lsb_minus4);
    ordering_info(bits, sps.sps_max_sub_layers_minus1, sps.sps_max_dec_pic_buffering_minus1,
                  sps.sps_max_num_reorder_pics);
    bits.ue(sps.log2_min_luma_coding_block_size_minus3);
    bits.ue(sps.log2_diff_max_min_luma_coding_block_size);
    bits.ue(sps.log2_min_luma_transform_block_size_minus2);
    bits.ue(sps.log2_diff_max_min_luma_transform_block_size);
    bits.ue(sps.max_transform_hierarchy_depth_inter).ue(sps.max_transform_hierarchy_depth_intra);
    bits.flag(sps.sps_scaling_list_data_present_flag);
    if (sps.sps_scaling_list_data_present_flag) {
        scaling_list_data(bits.flag(true), sps.scaling_list);
    }
    bits.flag(false).flag(false).flag(sps.pcm_enabled_flag);
    if (sps.pcm_enabled_flag) {
        bits.u(4, sps.pcm_sample_bit_depth_luma_minus1);
        bits.u(4, sps.pcm_sample_bit_depth_chroma_minus1);
        bits.ue(sps.log2_min_pcm_luma_coding_block_size_minus3);
        bits.ue(sps.log2_diff_max_min_pcm_luma_coding_block_size).flag(false);
    }
    bits.ue(static_cast<element_value>(sps.st_ref_pic_set.size()));
    for (std::size_t i = 0; i < sps.st_ref_pic_set.size(); ++i) {
        st_ref_pic_set(bits, sps.st_ref_pic_set[i], /*is_first=*/i == 0, /*in_slice=*/false);
    }
    bits.flag(sps.long_term_ref_pics_present_flag);
    if (sps.long_term_ref_pics_present_flag) {
        bits.ue(sps.num_long_term_ref_pics_sps);
        for (element_value i = 0; i < sps.num_long_term_ref_pics_sps; ++i) {
            bits.u(static_cast<unsigned int>(sps.log2_max_pic_order_cnt_lsb_minus4 + 4), i);
            bits.flag(true);
        }
    }
    bits.flag(sps.sps_temporal_mvp_enabled_flag).flag(false);
    bits.flag(sps.vui_parameters_present_flag);
    if (sps.vui_parameters_present_flag) {
        vui_parameters(bits, sps.vui, sps.sps_max_sub_layers_minus1);
    }
    return bits.optional(sps.extension).rbsp();
}

bit_writer bits_of(const pps_values& pps) {
    value_writer bits;
    bits.ue(pps.pps_pic_parameter_set_id).ue(pps.pps_seq_parameter_set_id);
    bits.flag(false).flag(false).u(3, 0).flag(false).flag(false);
    bits.ue(pps.num_ref_idx_l0_default_active_minus1);
    bits.ue(pps.num_ref_idx_l1_default_active_minus1);
    bits.se(pps.init_qp_minus26).flag(false).flag(pps.transform_skip_enabled_flag);
    bits.flag(pps.cu_qp_delta_enabled_flag);
    if (pps.cu_qp_delta_enabled_flag) {
        bits.ue(pps.diff_cu_qp_delta_depth);
    }
    bits.se(pps.pps_cb_qp_offset).se(pps.pps_cr_qp_offset);
    bits.flag(pps.pps_slice_chroma_qp_offsets_present_flag);
    bits.flag(pps.weighted_pred_flag).flag(pps.weighted_bipred_flag).flag(false);
    bits.flag(pps.tiles_enabled_flag).flag(pps.entropy_coding_sync_enabled_flag);
    if (pps.tiles_enabled_flag) {
        bits.ue(pps.num_tile_columns_minus1).ue(pps.num_tile_rows_minus1);
        bits.flag(pps.column_width_minus1.empty() && pps.row_height_minus1.empty());
        for (const element_values* sizes : {&pps.column_width_minus1, &pps.row_height_minus1}) {
            for (const element_value size : *sizes) {
                bits.ue(size);
            }
        }
        bits.flag(true);
    }
    bits.flag(false).flag(pps.deblocking_filter_control_present_flag);
    if (pps.deblocking_filter_control_present_flag) {
        bits.flag(pps.deblocking_filter_override_enabled_flag).flag(false);
        bits.se(pps.pps_beta_offset_div2).se(pps.pps_tc_offset_div2);
    }
    bits.flag(pps.pps_scaling_list_data_present_flag);
    if (pps.pps_scaling_list_data_present_flag) {
        scaling_list_data(bits, pps.scaling_list);
    }
    bits.flag(pps.lists_modification_present_flag).ue(pps.log2_parallel_merge_level_minus2);
    bits.flag(pps.slice_segment_header_extension_present_flag);
    return bits.optional(pps.extension).rbsp();
}

bit_writer bits_of(const slice_values& slice) {
    const sps_values& sps = slice.sps;
    const auto lsb_width = static_cast<unsigned int>(sps.log2_max_pic_order_cnt_lsb_minus4 + 4);
    value_writer bits;
    bits.flag(slice.first_slice_segment_in_pic_flag).ue(slice.slice_pic_parameter_set_id);
    if (!slice.first_slice_segment_in_pic_flag) {
        bits.u(ceil_log2(pic_size_in_ctbs(sps)), slice.slice_segment_address);
    }
    bits.ue(slice.slice_type);
    if (sps.separate_colour_plane_flag) {
        bits.u(2, slice.colour_plane_id);
    }
    bits.u(lsb_width, 9).flag(slice.short_term_ref_pic_set_sps_flag);
    if (!slice.short_term_ref_pic_set_sps_flag) {
        st_ref_pic_set(bits, slice.st_ref_pic_set, /*is_first=*/sps.st_ref_pic_set.empty(),
                       /*in_slice=*/true);
    } else {
        bits.u(ceil_log2(sps.st_ref_pic_set.size()), slice.short_term_ref_pic_set_idx);
    }
    if (sps.long_term_ref_pics_present_flag) {
        if (sps.num_long_term_ref_pics_sps > 0) {
            bits.ue(static_cast<element_value>(slice.lt_idx_sps.size()));
        }
        bits.ue(slice.num_long_term_pics);
        for (const element_value idx : slice.lt_idx_sps) {
            const auto candidates = static_cast<std::size_t>(sps.num_long_term_ref_pics_sps);
            bits.u(ceil_log2(candidates), idx).flag(false);
        }
        for (element_value i = 0; i < slice.num_long_term_pics; ++i) {
            bits.u(lsb_width, 1).flag(true).flag(false);
        }
    }
    if (sps.sps_temporal_mvp_enabled_flag) {
        bits.flag(true);
    }
    if (slice.slice_type == type_p || slice.slice_type == type_b) {
        bits.flag(true).ue(slice.num_ref_idx_l0_active_minus1);
        if (slice.slice_type == type_b) {
            bits.ue(slice.num_ref_idx_l1_active_minus1);
        }
        if (slice.list_entry_width != 0) {
            bits.flag(!slice.list_entry_l0.empty());
            for (const element_value entry : slice.list_entry_l0) {
                bits.u(slice.list_entry_width, entry);
            }
            if (slice.slice_type == type_b) {
                bits.flag(!slice.list_entry_l1.empty());
                for (const element_value entry : slice.list_entry_l1) {
                    bits.u(slice.list_entry_width, entry);
                }
            }
        }
    }
    inter_prediction(bits, slice);
    quantization_and_filters(bits, slice);
    slice_segment_end(bits, slice);
    return bits.rbsp().u<8>(0x80);  // byte_alignment() is the same
}

bit_writer bits_of(const aud_values& aud) {
    return value_writer().u(3, aud.pic_type).rbsp();
}

bit_writer bits_of(const buffering_period_values& period) {
    value_writer bits;
    bits.ue(period.bp_seq_parameter_set_id).flag(false).flag(false).u(8, 5);
    bits.u(24, 90000).u(24, 0);  // nal_initial_cpb_removal_delay[0] and its offset
    return bits.sei_rbsp(h265_nal_sei_payload_type_prefix_buffering_period);
}

bit_writer bits_of(const pic_timing_values& timing) {
    value_writer bits;
    bits.u(4, timing.pic_struct).u(2, timing.source_scan_type).flag(false);
    bits.u(8, 3).u(8, 4).u(8, 5);
    bits.ue(timing.num_decoding_units_minus1).flag(true).u(8, 6);
    for (element_value i = 0; i <= timing.num_decoding_units_minus1; ++i) {
        bits.ue(0);
    }
    return bits.sei_rbsp(h265_nal_sei_payload_type_prefix_pic_timing);
}

bit_writer bits_of(const active_parameter_sets_values& sets) {
    value_writer bits;
    bits.u(4, 0).flag(false).flag(false);
    bits.ue(static_cast<element_value>(sets.active_seq_parameter_set_id.size()) - 1);
    for (const element_value id : sets.active_seq_parameter_set_id) {
        bits.ue(id);
    }
    bits.ue(sets.layer_sps_idx);
    return bits.sei_rbsp(h265_nal_sei_payload_type_prefix_active_parameter_sets);
}

}  // namespace kovran::test
