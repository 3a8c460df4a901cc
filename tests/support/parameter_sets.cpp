#include "support/parameter_sets.h"

#include <initializer_list>
#include <vector>

namespace kovran::test {
namespace {

using layer_t = h265_profile_tier_level::layer_t;

bit_writer join(std::initializer_list<const bit_writer*> groups) {
    bit_writer bits;
    for (const bit_writer* group : groups) {
        append(bits, *group);
    }
    return bits;
}

bit_writer full_extension() {
    return bit_writer().u<1>(1).u<extension_data_bits>(extension_data);
}

// Of a profile with each of the general constraint flags; every second flag is set.
layer_t write_full_profile(bit_writer& bits) {
    layer_t layer;
    bits.u<2>(2);
    layer.profile_space = 2;
    bits.u<1>(1);
    layer.tier_flag = true;
    bits.u<5>(5);
    layer.profile_idc = 5;
    bits.u<32>(0x04000001);
    layer.profile_compatibility_flag.assign(32, false);
    layer.profile_compatibility_flag[5] = true;
    layer.profile_compatibility_flag[31] = true;

    bits.u<1>(1).u<1>(0).u<1>(1).u<1>(0);
    layer.progressive_source_flag = true;
    layer.non_packed_constraint_flag = true;
    bits.u<1>(1).u<1>(0).u<1>(1).u<1>(0).u<1>(1).u<1>(0).u<1>(1).u<1>(0).u<1>(1).u<1>(0);
    layer.max_12bit_constraint_flag = true;
    layer.max_8bit_constraint_flag = true;
    layer.max_420chroma_constraint_flag = true;
    layer.intra_constraint_flag = true;
    layer.lower_bit_rate_constraint_flag = true;
    bits.u<33>(0x155555555);  // general_reserved_zero_33bits
    bits.u<1>(1);
    layer.inbld_flag = true;

    layer.profile_present_flag = true;
    layer.valid = true;
    return layer;
}

void write_level(bit_writer& bits, layer_t& layer, unsigned char level_idc) {
    bits.u<8>(level_idc);
    layer.level_idc = level_idc;
    layer.level_present_flag = true;
    layer.valid = true;
}

// `base` tells the values of one structure from those of the next.
h265_nal_sub_layer_hrd_parameters write_sub_layer_hrd(bit_writer& bits, unsigned int subLayerId,
                                                      unsigned int cpb_count, unsigned int base) {
    h265_nal_sub_layer_hrd_parameters hrd;
    hrd.subLayerId = subLayerId;
    hrd.cpb_count = cpb_count;
    for (unsigned int i = 0; i < cpb_count; ++i) {
        const unsigned int value = base + 10 * i;
        bits.ue(value).ue(value + 1).ue(value + 2).ue(value + 3).u<1>(i % 2);
        hrd.bit_rate_value_minus1.push_back(value);
        hrd.cpb_size_value_minus1.push_back(value + 1);
        hrd.cpb_size_du_value_minus1.push_back(value + 2);
        hrd.bit_rate_du_value_minus1.push_back(value + 3);
        hrd.cbr_flag.push_back(i % 2 != 0);
    }
    hrd.valid = true;
    return hrd;
}

// The loop over three sub-layers, one for each way through it.
void write_sub_layers(bit_writer& bits, h265_hrd_parameters& hrd) {
    hrd.maxNumSubLayersMinus1 = sample_max_sub_layers_minus1;
    hrd.fixed_pic_rate_general_flag = {true, false, false};
    hrd.fixed_pic_rate_within_cvs_flag = {true, true, false};
    hrd.elemental_duration_in_tc_minus1 = {700, 3, 0};
    hrd.low_delay_hrd_flag = {false, false, true};
    hrd.cpb_cnt_minus1 = {1, 2, 0};
    hrd.nal_sub_layer_hrd.resize(3);
    hrd.vcl_sub_layer_hrd.resize(3);

    const auto structures = [&](unsigned int i) {
        if (hrd.nal_hrd_parameters_present_flag) {
            hrd.nal_sub_layer_hrd[i] =
                write_sub_layer_hrd(bits, i, hrd.cpb_cnt_minus1[i] + 1, 1000 * i + 100);
        }
        if (hrd.vcl_hrd_parameters_present_flag) {
            hrd.vcl_sub_layer_hrd[i] =
                write_sub_layer_hrd(bits, i, hrd.cpb_cnt_minus1[i] + 1, 1000 * i + 500);
        }
    };
    bits.u<1>(1);  // fixed_pic_rate_general_flag
    bits.ue(700);  // elemental_duration_in_tc_minus1
    bits.ue(1);    // cpb_cnt_minus1
    structures(0);
    bits.u<1>(0).u<1>(1);  // fixed_pic_rate_general_flag, fixed_pic_rate_within_cvs_flag
    bits.ue(3);            // elemental_duration_in_tc_minus1
    bits.ue(2);            // cpb_cnt_minus1
    structures(1);
    bits.u<1>(0).u<1>(0);  // fixed_pic_rate_general_flag, fixed_pic_rate_within_cvs_flag
    bits.u<1>(1);          // low_delay_hrd_flag
    structures(2);

    hrd.valid = true;
}

// Coefficients that fall by one every second step: 9, 7, 8, 6, 7, 5, ... from a start of 8.
std::vector<int> write_coefficients(bit_writer& bits, int start, int count) {
    std::vector<int> coefficients;
    for (int i = 0; i < count; i += 2) {
        bits.se(1).se(-2);
        coefficients.push_back((start + 1 - i / 2) & 0xFF);
        coefficients.push_back((start - 1 - i / 2) & 0xFF);
    }
    return coefficients;
}

}  // namespace

bit_writer& append(bit_writer& bits, const bit_writer& more) {
    for (const bool bit : flags_of(more)) {
        bits.u<1>(bit ? 1 : 0);
    }
    return bits;
}

bit_writer first_bits(const bit_writer& bits, std::size_t count) {
    const std::vector<bool> all = flags_of(bits);
    bit_writer first;
    for (std::size_t i = 0; i < count; ++i) {
        first.u<1>(all.at(i) ? 1 : 0);
    }
    return first;
}

std::vector<bool> flags_of(const bit_writer& bits) {
    std::vector<bool> all;
    for (std::size_t i = 0; i < bits.size(); ++i) {
        all.push_back((bits.bytes()[i / 8] >> (7 - i % 8) & 1) != 0);
    }
    return all;
}

bit_writer minimal_profile_tier_level() {
    bit_writer bits;
    bits.u<2>(0).u<1>(0).u<5>(1);          // profile_space, tier_flag, profile_idc
    bits.u<32>(0x40000000);                // profile_compatibility_flag[1]
    bits.u<1>(1).u<1>(0).u<1>(0).u<1>(1);  // progressive, interlaced, non-packed, frame-only
    bits.u<43>(0).u<1>(0);                 // reserved, inbld_flag
    bits.u<8>(93);                         // level_idc
    return bits;
}

bit_writer vps_syntax::payload() const {
    return join({&header, &profile_tier_level, &sub_layer_ordering_info, &layer_sets, &timing_info,
                 &extension});
}

bit_writer sps_syntax::payload() const {
    return join({&header, &profile_tier_level, &sps_seq_parameter_set_id, &chroma_format,
                 &picture_size, &conformance_window, &bit_depths,
                 &log2_max_pic_order_cnt_lsb_minus4, &sub_layer_ordering_info, &block_sizes,
                 &scaling_list, &amp_and_sao, &pcm, &short_term_ref_pic_sets, &long_term_ref_pics,
                 &motion_and_smoothing, &vui, &extension});
}

bit_writer pps_syntax::payload() const {
    return join({&identifiers, &slice_header, &reference_indices, &init_qp_minus26,
                 &intra_and_transform_skip, &cu_qp_delta, &chroma_qp_offsets, &weighting_and_bypass,
                 &tiles, &loop_filter_across_slices, &deblocking, &scaling_list,
                 &lists_and_merge_level, &extension});
}

sample<h265_profile_tier_level> full_profile_tier_level() {
    sample<h265_profile_tier_level> ptl;
    bit_writer& bits = ptl.syntax;
    h265_profile_tier_level& record = ptl.record;

    record.general = write_full_profile(bits);
    write_level(bits, record.general, 186);

    record.sub_layers.resize(sample_max_sub_layers_minus1);
    bits.u<1>(1).u<1>(0);  // sub_layer_profile_present_flag[0], sub_layer_level_present_flag[0]
    bits.u<1>(0).u<1>(1);  // the same of sub-layer 1
    bits.u<12>(0xABC);     // reserved_zero_2bits for sub-layers 2 to 7
    record.sub_layers[0] = write_full_profile(bits);
    write_level(bits, record.sub_layers[1], 123);

    record.valid = true;
    return ptl;
}

sample<h265_hrd_parameters> full_hrd_parameters() {
    sample<h265_hrd_parameters> hrd;
    bit_writer& bits = hrd.syntax;
    h265_hrd_parameters& record = hrd.record;

    record.commonInfPresentFlag = true;
    bits.u<1>(1).u<1>(1);
    record.nal_hrd_parameters_present_flag = true;
    record.vcl_hrd_parameters_present_flag = true;
    bits.u<1>(1);
    record.sub_pic_hrd_params_present_flag = true;
    bits.u<8>(201);
    record.tick_divisor_minus2 = 201;
    bits.u<5>(21);
    record.du_cpb_removal_delay_increment_length_minus1 = 21;
    bits.u<1>(1);
    record.sub_pic_cpb_params_in_pic_timing_sei_flag = true;
    bits.u<5>(22);
    record.dpb_output_delay_du_length_minus1 = 22;
    bits.u<4>(9).u<4>(10).u<4>(11);
    record.bit_rate_scale = 9;
    record.cpb_size_scale = 10;
    record.cpb_size_du_scale = 11;
    bits.u<5>(29).u<5>(30).u<5>(31);
    record.initial_cpb_removal_delay_length_minus1 = 29;
    record.au_cpb_removal_delay_length_minus1 = 30;
    record.dpb_output_delay_length_minus1 = 31;

    write_sub_layers(bits, record);
    return hrd;
}

sample<h265_hrd_parameters> hrd_parameters_of_sub_layers() {
    sample<h265_hrd_parameters> hrd;
    hrd.record.initial_cpb_removal_delay_length_minus1 = 23;
    hrd.record.au_cpb_removal_delay_length_minus1 = 23;
    write_sub_layers(hrd.syntax, hrd.record);
    return hrd;
}

sample<h265_scaling_list_data> full_scaling_list_data() {
    sample<h265_scaling_list_data> lists;
    bit_writer& bits = lists.syntax;
    h265_scaling_list_data& record = lists.record;
    record.scaling_list_pred_mode_flag.assign(4, std::vector<bool>(6));
    record.scaling_list_pred_matrix_id_delta.assign(4, std::vector<unsigned int>(6));
    record.scaling_list_dc_coef_minus8.assign(2, std::vector<int>(6));
    record.ScalingList.assign(4, std::vector<std::vector<int>>(6));

    // In each size one matrix is coded outright: matrixId equals sizeId.
    for (unsigned int sizeId = 0; sizeId < 4; ++sizeId) {
        for (unsigned int matrixId = 0; matrixId < 6; matrixId += sizeId == 3 ? 3 : 1) {
            if (matrixId != sizeId) {
                bits.u<1>(0).ue(sizeId + matrixId);
                record.scaling_list_pred_matrix_id_delta[sizeId][matrixId] = sizeId + matrixId;
                continue;
            }
            bits.u<1>(1);
            record.scaling_list_pred_mode_flag[sizeId][matrixId] = true;
            int start = 8;
            if (sizeId > 1) {
                const int dc = sizeId == 2 ? -7 : 247;
                bits.se(dc);
                record.scaling_list_dc_coef_minus8[sizeId - 2][matrixId] = dc;
                start = dc + 8;
            }
            record.ScalingList[sizeId][matrixId] =
                write_coefficients(bits, start, sizeId == 0 ? 16 : 64);
        }
    }
    record.valid = true;
    return lists;
}

sample<h265_st_ref_pic_set> explicit_st_ref_pic_set() {
    sample<h265_st_ref_pic_set> set;
    set.syntax.ue(2).ue(1);
    set.record.num_negative_pics = 2;
    set.record.num_positive_pics = 1;
    set.record.NumDeltaPocs = 3;
    set.syntax.ue(0).u<1>(1).ue(3).u<1>(0);
    set.record.delta_poc_s0_minus1 = {0, 3};
    set.record.used_by_curr_pic_s0_flag = {true, false};
    set.syntax.ue(1).u<1>(1);
    set.record.delta_poc_s1_minus1 = {1};
    set.record.used_by_curr_pic_s1_flag = {true};
    set.record.valid = true;
    return set;
}

sample<h265_st_ref_pic_set> predicted_st_ref_pic_set() {
    sample<h265_st_ref_pic_set> set;
    set.record.stRpsIdx = 1;
    set.record.RefRpsIdx = 0;
    set.syntax.u<1>(1);
    set.record.inter_ref_pic_set_prediction_flag = true;
    set.syntax.u<1>(1).ue(2);
    set.record.delta_rps_sign = true;
    set.record.abs_delta_rps_minus1 = 2;
    set.record.deltaRps = -3;
    set.syntax.u<1>(1);          // used_by_curr_pic_flag[0]
    set.syntax.u<1>(0).u<1>(1);  // used_by_curr_pic_flag[1], use_delta_flag[1]
    set.syntax.u<1>(0).u<1>(0);  // used_by_curr_pic_flag[2], use_delta_flag[2]
    set.syntax.u<1>(1);          // used_by_curr_pic_flag[3]
    set.record.used_by_curr_pic_flag = {true, false, false, true};
    set.record.use_delta_flag = {true, true, false, true};
    set.record.valid = true;
    return set;
}

sample<h265_vui_parameters> full_vui_parameters() {
    sample<h265_vui_parameters> vui;
    bit_writer& bits = vui.syntax;
    h265_vui_parameters& record = vui.record;

    bits.u<1>(1).u<8>(255).u<16>(0xABCD).u<16>(0x4321);
    record.aspect_ratio_info_present_flag = true;
    record.aspect_ratio_idc = 255;
    record.extended_sar_flag = true;
    record.sar_width = 0xABCD;
    record.sar_height = 0x4321;
    bits.u<1>(1).u<1>(1);
    record.overscan_info_present_flag = true;
    record.overscan_appropriate_flag = true;
    bits.u<1>(1).u<3>(4).u<1>(1).u<1>(1).u<8>(9).u<8>(16).u<8>(14);
    record.video_signal_type_present_flag = true;
    record.video_format = 4;
    record.video_full_range_flag = true;
    record.colour_description_present_flag = true;
    record.colour_primaries = 9;
    record.transfer_characteristics = 16;
    record.matrix_coeffs = 14;
    bits.u<1>(1).ue(3).ue(5);
    record.chroma_loc_info_present_flag = true;
    record.chroma_sample_loc_type_top_field = 3;
    record.chroma_sample_loc_type_bottom_field = 5;
    bits.u<1>(1).u<1>(0).u<1>(1);
    record.neutral_chroma_indication_flag = true;
    record.frame_field_info_present_flag = true;
    bits.u<1>(1).ue(11).ue(12).ue(13).ue(14);
    record.default_display_window_flag = true;
    record.def_disp_win_left_offset = 11;
    record.def_disp_win_right_offset = 12;
    record.def_disp_win_top_offset = 13;
    record.def_disp_win_bottom_offset = 14;
    bits.u<1>(1).u<32>(0xFEDCBA98).u<32>(0x89ABCDEF).u<1>(1).ue(99);
    record.vui_timing_info_present_flag = true;
    record.vui_num_units_in_tick = 0xFEDCBA98;
    record.vui_time_scale = 0x89ABCDEF;
    record.vui_poc_proportional_to_timing_flag = true;
    record.vui_num_ticks_poc_diff_one_minus1 = 99;
    const sample<h265_hrd_parameters> hrd = full_hrd_parameters();
    append(bits.u<1>(1), hrd.syntax);
    record.vui_hrd_parameters_present_flag = true;
    record.hrd_parameters = hrd.record;
    bits.u<1>(1).u<1>(1).u<1>(0).u<1>(1).ue(21).ue(22).ue(23).ue(24).ue(25);
    record.bitstream_restriction_flag = true;
    record.tiles_fixed_structure_flag = true;
    record.restricted_ref_pic_lists_flag = true;
    record.min_spatial_segmentation_idc = 21;
    record.max_bytes_per_pic_denom = 22;
    record.max_bits_per_min_cu_denom = 23;
    record.log2_max_mv_length_horizontal = 24;
    record.log2_max_mv_length_vertical = 25;

    record.valid = true;
    return vui;
}

sample<h265_nal_vps, vps_syntax> full_vps() {
    sample<h265_nal_vps, vps_syntax> vps;
    vps_syntax& syntax = vps.syntax;
    h265_nal_vps& record = vps.record;

    syntax.header = bit_writer().u<4>(13).u<1>(1).u<1>(0).u<6>(42);
    record.vps_video_parameter_set_id = 13;
    record.vps_base_layer_internal_flag = true;
    record.vps_max_layers_minus1 = 42;
    syntax.header.u<3>(sample_max_sub_layers_minus1).u<1>(1).u<16>(0xA55A);
    record.vps_max_sub_layers_minus1 = sample_max_sub_layers_minus1;
    record.vps_temporal_id_nesting_flag = true;
    record.vps_reserved_0xffff_16bits = 0xA55A;

    const sample<h265_profile_tier_level> ptl = full_profile_tier_level();
    syntax.profile_tier_level = ptl.syntax;
    record.profile_tier_level = ptl.record;

    syntax.sub_layer_ordering_info =
        bit_writer().u<1>(1).ue(1).ue(2).ue(3).ue(4).ue(5).ue(6).ue(7).ue(8).ue(9);
    record.vps_sub_layer_ordering_info_present_flag = true;
    record.vps_max_dec_pic_buffering_minus1 = {1, 4, 7};
    record.vps_max_num_reorder_pics = {2, 5, 8};
    record.vps_max_latency_increase_plus1 = {3, 6, 9};

    syntax.layer_sets = bit_writer().u<6>(2).ue(2).u<3>(0b101).u<3>(0b011);
    record.vps_max_layer_id = 2;
    record.vps_num_layer_sets_minus1 = 2;
    record.layer_id_included_flag = {{}, {true, false, true}, {false, true, true}};

    syntax.timing_info = bit_writer().u<1>(1).u<32>(0xFFFFFFFE).u<32>(0x80000001).u<1>(1).ue(6);
    record.vps_timing_info_present_flag = true;
    record.vps_num_units_in_tick = 0xFFFFFFFE;
    record.vps_time_scale = 0x80000001;
    record.vps_poc_proportional_to_timing_flag = true;
    record.vps_num_ticks_poc_diff_one_minus1 = 6;
    const sample<h265_hrd_parameters> first_hrd = hrd_parameters_of_sub_layers();
    const sample<h265_hrd_parameters> second_hrd = full_hrd_parameters();
    append(syntax.timing_info.ue(2).ue(1), first_hrd.syntax);
    append(syntax.timing_info.ue(2).u<1>(1), second_hrd.syntax);
    record.vps_num_hrd_parameters = 2;
    record.hrd_layer_set_idx = {1, 2};
    record.cprms_present_flag = {false, true};
    record.hrd_parameters = {first_hrd.record, second_hrd.record};

    syntax.extension = full_extension();
    record.vps_extension_flag = true;

    record.valid = true;
    return vps;
}

sample<h265_nal_sps, sps_syntax> full_sps() {
    sample<h265_nal_sps, sps_syntax> sps;
    sps_syntax& syntax = sps.syntax;
    h265_nal_sps& record = sps.record;

    syntax.header = bit_writer().u<4>(13).u<3>(sample_max_sub_layers_minus1).u<1>(1);
    record.sps_video_parameter_set_id = 13;
    record.sps_max_sub_layers_minus1 = sample_max_sub_layers_minus1;
    record.sps_temporal_id_nesting_flag = true;

    const sample<h265_profile_tier_level> ptl = full_profile_tier_level();
    syntax.profile_tier_level = ptl.syntax;
    record.profile_tier_level = ptl.record;

    syntax.sps_seq_parameter_set_id = bit_writer().ue(15);
    record.sps_seq_parameter_set_id = 15;
    syntax.chroma_format = bit_writer().ue(3).u<1>(1);
    record.chroma_format_idc = 3;
    record.separate_colour_plane_flag = true;
    syntax.picture_size = bit_writer().ue(8192).ue(4320);
    record.pic_width_in_luma_samples = 8192;
    record.pic_height_in_luma_samples = 4320;
    syntax.conformance_window = bit_writer().u<1>(1).ue(1).ue(2).ue(3).ue(4);
    record.conformance_window_flag = true;
    record.conf_win_left_offset = 1;
    record.conf_win_right_offset = 2;
    record.conf_win_top_offset = 3;
    record.conf_win_bottom_offset = 4;
    syntax.bit_depths = bit_writer().ue(7).ue(8);
    record.bit_depth_luma_minus8 = 7;
    record.bit_depth_chroma_minus8 = 8;
    syntax.log2_max_pic_order_cnt_lsb_minus4 = bit_writer().ue(12);
    record.log2_max_pic_order_cnt_lsb_minus4 = 12;

    syntax.sub_layer_ordering_info =
        bit_writer().u<1>(1).ue(1).ue(2).ue(3).ue(4).ue(5).ue(6).ue(7).ue(8).ue(9);
    record.sps_sub_layer_ordering_info_present_flag = true;
    record.sps_max_dec_pic_buffering_minus1 = {1, 4, 7};
    record.sps_max_num_reorder_pics = {2, 5, 8};
    record.sps_max_latency_increase_plus1 = {3, 6, 9};

    syntax.block_sizes = bit_writer().ue(11).ue(12).ue(13).ue(14).ue(15).ue(16);
    record.log2_min_luma_coding_block_size_minus3 = 11;
    record.log2_diff_max_min_luma_coding_block_size = 12;
    record.log2_min_luma_transform_block_size_minus2 = 13;
    record.log2_diff_max_min_luma_transform_block_size = 14;
    record.max_transform_hierarchy_depth_inter = 15;
    record.max_transform_hierarchy_depth_intra = 16;

    const sample<h265_scaling_list_data> lists = full_scaling_list_data();
    syntax.scaling_list = bit_writer().u<1>(1).u<1>(1);
    append(syntax.scaling_list, lists.syntax);
    record.scaling_list_enabled_flag = true;
    record.sps_scaling_list_data_present_flag = true;
    record.scaling_list_data = lists.record;

    syntax.amp_and_sao = bit_writer().u<1>(1).u<1>(0);
    record.amp_enabled_flag = true;
    syntax.pcm = bit_writer().u<1>(1).u<4>(9).u<4>(10).ue(5).ue(6).u<1>(1);
    record.pcm_enabled_flag = true;
    record.pcm_sample_bit_depth_luma_minus1 = 9;
    record.pcm_sample_bit_depth_chroma_minus1 = 10;
    record.log2_min_pcm_luma_coding_block_size_minus3 = 5;
    record.log2_diff_max_min_pcm_luma_coding_block_size = 6;
    record.pcm_loop_filter_disabled_flag = true;

    const sample<h265_st_ref_pic_set> first = explicit_st_ref_pic_set();
    const sample<h265_st_ref_pic_set> second = predicted_st_ref_pic_set();
    syntax.short_term_ref_pic_sets = bit_writer().ue(4);
    append(syntax.short_term_ref_pic_sets, first.syntax);
    append(syntax.short_term_ref_pic_sets, second.syntax);
    record.num_short_term_ref_pic_sets = 4;
    record.st_ref_pic_set = {first.record, second.record, {}, {}};
    // inter_ref_pic_set_prediction_flag, delta_rps_sign, abs_delta_rps_minus1; then the one pair of
    // flags that there is when the reference set has no pictures.
    syntax.short_term_ref_pic_sets.u<1>(1).u<1>(0).ue(0).u<1>(0).u<1>(1);
    h265_st_ref_pic_set& third = record.st_ref_pic_set[2];
    third.stRpsIdx = 2;
    third.RefRpsIdx = 1;
    third.inter_ref_pic_set_prediction_flag = true;
    third.deltaRps = 1;
    third.used_by_curr_pic_flag = {false};
    third.use_delta_flag = {true};
    third.valid = true;
    syntax.short_term_ref_pic_sets.u<1>(0).ue(0).ue(0);
    h265_st_ref_pic_set& fourth = record.st_ref_pic_set[3];
    fourth.stRpsIdx = 3;
    fourth.RefRpsIdx = 3;
    fourth.valid = true;

    syntax.long_term_ref_pics =
        bit_writer().u<1>(1).ue(2).u<16>(0xFACE).u<1>(0).u<16>(0x1234).u<1>(1);
    record.long_term_ref_pics_present_flag = true;
    record.num_long_term_ref_pics_sps = 2;
    record.lt_ref_pic_poc_lsb_sps = {0xFACE, 0x1234};
    record.used_by_curr_pic_lt_sps_flag = {false, true};

    syntax.motion_and_smoothing = bit_writer().u<1>(1).u<1>(0);
    record.sps_temporal_mvp_enabled_flag = true;

    const sample<h265_vui_parameters> vui = full_vui_parameters();
    syntax.vui = bit_writer().u<1>(1);
    append(syntax.vui, vui.syntax);
    record.vui_parameters_present_flag = true;
    record.vui_parameters = vui.record;

    syntax.extension = full_extension();
    record.sps_extension_flag = true;

    record.valid = true;
    return sps;
}

sample<h265_nal_pps, pps_syntax> full_pps() {
    sample<h265_nal_pps, pps_syntax> pps;
    pps_syntax& syntax = pps.syntax;
    h265_nal_pps& record = pps.record;

    syntax.identifiers = bit_writer().ue(63).ue(15);
    record.pps_pic_parameter_set_id = 63;
    record.pps_seq_parameter_set_id = 15;
    syntax.slice_header = bit_writer().u<1>(1).u<1>(0).u<3>(5).u<1>(1).u<1>(0);
    record.dependent_slice_segments_enabled_flag = true;
    record.num_extra_slice_header_bits = 5;
    record.sign_data_hiding_enabled_flag = true;
    syntax.reference_indices = bit_writer().ue(13).ue(14);
    record.num_ref_idx_l0_default_active_minus1 = 13;
    record.num_ref_idx_l1_default_active_minus1 = 14;
    syntax.init_qp_minus26 = bit_writer().se(-26);
    record.init_qp_minus26 = -26;
    syntax.intra_and_transform_skip = bit_writer().u<1>(0).u<1>(1);
    record.transform_skip_enabled_flag = true;
    syntax.cu_qp_delta = bit_writer().u<1>(1).ue(3);
    record.cu_qp_delta_enabled_flag = true;
    record.diff_cu_qp_delta_depth = 3;
    syntax.chroma_qp_offsets = bit_writer().se(-12).se(12).u<1>(1);
    record.pps_cb_qp_offset = -12;
    record.pps_cr_qp_offset = 12;
    record.pps_slice_chroma_qp_offsets_present_flag = true;
    syntax.weighting_and_bypass = bit_writer().u<1>(0).u<1>(1).u<1>(0);
    record.weighted_bipred_flag = true;

    syntax.tiles = bit_writer().u<1>(1).u<1>(0);
    record.tiles_enabled_flag = true;
    syntax.tiles.ue(2).ue(3).u<1>(0);
    record.num_tile_columns_minus1 = 2;
    record.num_tile_rows_minus1 = 3;
    syntax.tiles.ue(31).ue(32).ue(33).ue(34).ue(35).u<1>(1);
    record.column_width_minus1 = {31, 32};
    record.row_height_minus1 = {33, 34, 35};
    record.loop_filter_across_tiles_enabled_flag = true;

    syntax.loop_filter_across_slices = bit_writer().u<1>(1);
    record.pps_loop_filter_across_slices_enabled_flag = true;
    syntax.deblocking = bit_writer().u<1>(1).u<1>(1).u<1>(0).se(-6).se(6);
    record.deblocking_filter_control_present_flag = true;
    record.deblocking_filter_override_enabled_flag = true;
    record.pps_beta_offset_div2 = -6;
    record.pps_tc_offset_div2 = 6;

    const sample<h265_scaling_list_data> lists = full_scaling_list_data();
    syntax.scaling_list = bit_writer().u<1>(1);
    append(syntax.scaling_list, lists.syntax);
    record.pps_scaling_list_data_present_flag = true;
    record.scaling_list_data = lists.record;

    syntax.lists_and_merge_level = bit_writer().u<1>(1).ue(4).u<1>(1);
    record.lists_modification_present_flag = true;
    record.log2_parallel_merge_level_minus2 = 4;
    record.slice_segment_header_extension_present_flag = true;

    syntax.extension = full_extension();
    record.pps_extension_present_flag = true;

    record.valid = true;
    return pps;
}

h2645_common_base_store<h265_nal_vps> vps_store_with(unsigned int id) {
    h2645_common_base_store<h265_nal_vps> store;
    store[id].valid = true;
    return store;
}

h2645_common_base_store<h265_nal_sps> sps_store_with(unsigned int id) {
    h2645_common_base_store<h265_nal_sps> store;
    store[id].valid = true;
    return store;
}

}  // namespace kovran::test
