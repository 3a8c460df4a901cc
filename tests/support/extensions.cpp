#include "support/extensions.h"

#include <cstddef>
#include <vector>

namespace kovran::test {

bit_writer joined(bit_writer first, const bit_writer& second) {
    return append(first, second);
}

sps_syntax sps_with_extension(const bit_writer& extension) {
    sps_syntax syntax;
    syntax.extension = bit_writer().u<1>(1);
    append(syntax.extension, extension);
    return syntax;
}

pps_syntax pps_with_extension(const bit_writer& extension) {
    pps_syntax syntax;
    syntax.intra_and_transform_skip = bit_writer().u<1>(0).u<1>(1);
    syntax.extension = bit_writer().u<1>(1);
    append(syntax.extension, extension);
    return syntax;
}

h265_nal_sps with_extensions(h265_nal_sps sps, const h265_nal_sps& extensions) {
    sps.sps_range_extension_flag = extensions.sps_range_extension_flag;
    sps.sps_multilayer_extension_flag = extensions.sps_multilayer_extension_flag;
    sps.sps_3d_extension_flag = extensions.sps_3d_extension_flag;
    sps.sps_scc_extension_flag = extensions.sps_scc_extension_flag;
    sps.sps_extension_4bits = extensions.sps_extension_4bits;
    sps.sps_range_extension = extensions.sps_range_extension;
    sps.sps_multilayer_extension = extensions.sps_multilayer_extension;
    sps.sps_3d_extension = extensions.sps_3d_extension;
    sps.sps_scc_extension = extensions.sps_scc_extension;
    sps.sps_extension_data_flag = extensions.sps_extension_data_flag;
    return sps;
}

h265_nal_pps with_extensions(h265_nal_pps pps, const h265_nal_pps& extensions) {
    pps.pps_range_extension_flag = extensions.pps_range_extension_flag;
    pps.pps_multilayer_extension_flag = extensions.pps_multilayer_extension_flag;
    pps.pps_3d_extension_flag = extensions.pps_3d_extension_flag;
    pps.pps_scc_extension_flag = extensions.pps_scc_extension_flag;
    pps.pps_extension_4bits = extensions.pps_extension_4bits;
    pps.pps_range_extension = extensions.pps_range_extension;
    pps.pps_multilayer_extension = extensions.pps_multilayer_extension;
    pps.pps_3d_extension = extensions.pps_3d_extension;
    pps.pps_scc_extension = extensions.pps_scc_extension;
    pps.pps_extension_data_flag = extensions.pps_extension_data_flag;
    return pps;
}

sample<h265_sps_range_extension> sps_range_extension() {
    sample<h265_sps_range_extension> whole;
    whole.syntax.u<9>(0b101100101);
    whole.record.transform_skip_rotation_enabled_flag = true;
    whole.record.implicit_rdpcm_enabled_flag = true;
    whole.record.explicit_rdpcm_enabled_flag = true;
    whole.record.high_precision_offsets_enabled_flag = true;
    whole.record.cabac_bypass_alignment_enabled_flag = true;
    return whole;
}

sample<h265_sps_3d_extension> sps_3d_extension() {
    sample<h265_sps_3d_extension> whole;
    whole.syntax.u<2>(0b01).ue(3).u<4>(0b1011);
    whole.syntax.u<3>(0b101).ue(2).u<5>(0b11001);
    whole.record.iv_mv_scal_enabled_flag = {true, false};
    whole.record.log2_ivmc_sub_pb_size_minus3 = {3, 0};
    whole.record.iv_res_pred_enabled_flag = {true, false};
    whole.record.vsp_mc_enabled_flag = {true, false};
    whole.record.dbbp_enabled_flag = {true, false};
    whole.record.iv_di_mc_enabled_flag = {false, true};
    whole.record.tex_mc_enabled_flag = {false, true};
    whole.record.log2_texmc_sub_pb_size_minus3 = {0, 2};
    whole.record.intra_contour_enabled_flag = {false, true};
    whole.record.intra_dc_only_wedge_enabled_flag = {false, true};
    whole.record.skip_intra_enabled_flag = {false, true};
    return whole;
}

sample<h265_sps_scc_extension> sps_scc_extension() {
    sample<h265_sps_scc_extension> whole;
    whole.syntax.u<1>(1).u<1>(1).ue(31).ue(32).u<1>(1).ue(1);
    whole.syntax.u<8>(10).u<8>(20).u<8>(30).u<8>(40).u<8>(50).u<8>(60);
    whole.syntax.u<2>(2).u<1>(1);
    whole.record.sps_curr_pic_ref_enabled_flag = true;
    whole.record.palette_mode_enabled_flag = true;
    whole.record.palette_max_size = 31;
    whole.record.delta_palette_max_predictor_size = 32;
    whole.record.sps_palette_predictor_initializers_present_flag = true;
    whole.record.sps_num_palette_predictor_initializers_minus1 = 1;
    whole.record.sps_palette_predictor_initializer = {{{10, 20}, {30, 40}, {50, 60}}};
    whole.record.motion_vector_resolution_control_idc = 2;
    whole.record.intra_boundary_filtering_disabled_flag = true;
    return whole;
}

sample<h265_pps_range_extension> pps_range_extension() {
    sample<h265_pps_range_extension> whole;
    whole.syntax.ue(3).u<1>(1).u<1>(1).ue(2).ue(1).se(-12).se(7).se(12).se(-1).ue(4).ue(5);
    whole.record.log2_max_transform_skip_block_size_minus2 = 3;
    whole.record.cross_component_prediction_enabled_flag = true;
    whole.record.chroma_qp_offset_list_enabled_flag = true;
    whole.record.diff_cu_chroma_qp_offset_depth = 2;
    whole.record.chroma_qp_offset_list_len_minus1 = 1;
    whole.record.cb_qp_offset_list = {-12, 12};
    whole.record.cr_qp_offset_list = {7, -1};
    whole.record.log2_sao_offset_scale_luma = 4;
    whole.record.log2_sao_offset_scale_chroma = 5;
    return whole;
}

// Of the first part the last vertex has coefficients, of 10 + 1 - 2 - 3 - 2 = 4 bits; all other
// vertices have none.
sample<h265_pps_multilayer_extension> pps_multilayer_extension() {
    sample<h265_pps_multilayer_extension> whole;
    bit_writer& bits = whole.syntax;
    bits.u<1>(1).u<1>(1).u<6>(62).ue(2);
    bits.u<6>(5).u<1>(1).se(1).se(-2).se(3).se(-4).u<1>(0).u<1>(1).ue(31).ue(0).ue(63).ue(9);
    bits.u<6>(0).u<1>(0).u<1>(1).se(-16384).se(16383).se(0).se(7).u<1>(0);
    bits.u<1>(1);
    bits.ue(1).u<6>(1).u<6>(2).u<2>(1).u<2>(1).ue(1).ue(0).ue(2).ue(3).u<2>(3).u<2>(1);
    bits.se(-32768).se(32767).u<1>(1);
    bits.u<3>(0).u<1>(1);
    bits.ue(18).u<4>(9).u<1>(1);
    bits.ue(0).u<4>(0);
    bits.ue(0).u<4>(1).u<1>(0);
    for (unsigned int vertex = 4; vertex < 16U * 4; ++vertex) {
        bits.u<1>(0);
    }

    h265_pps_multilayer_extension& record = whole.record;
    record.poc_reset_info_present_flag = true;
    record.pps_infer_scaling_list_flag = true;
    record.pps_scaling_list_ref_layer_id = 62;
    record.num_ref_loc_offsets = 2;
    record.ref_loc_offset_layer_id = {5, 0};
    record.scaled_ref_layer_offset_present_flag = {true, false};
    record.scaled_ref_layer_left_offset = {1, 0};
    record.scaled_ref_layer_top_offset = {-2, 0};
    record.scaled_ref_layer_right_offset = {3, 0};
    record.scaled_ref_layer_bottom_offset = {-4, 0};
    record.ref_region_offset_present_flag = {false, true};
    record.ref_region_left_offset = {0, -16384};
    record.ref_region_top_offset = {0, 16383};
    record.ref_region_right_offset = {0, 0};
    record.ref_region_bottom_offset = {0, 7};
    record.resample_phase_set_present_flag = {true, false};
    record.phase_hor_luma = {31, 0};
    record.phase_ver_luma = {0, 0};
    record.phase_hor_chroma_plus8 = {63, 8};
    record.phase_ver_chroma_plus8 = {9, 0};
    record.colour_mapping_enabled_flag = true;
    h265_colour_mapping_table& table = record.colour_mapping_table;
    table.num_cm_ref_layers_minus1 = 1;
    table.cm_ref_layer_id = {1, 2};
    table.cm_octant_depth = 1;
    table.cm_y_part_num_log2 = 1;
    table.luma_bit_depth_cm_input_minus8 = 1;
    table.luma_bit_depth_cm_output_minus8 = 2;
    table.chroma_bit_depth_cm_output_minus8 = 3;
    table.cm_res_quant_bits = 3;
    table.cm_delta_flc_bits_minus1 = 1;
    table.cm_adapt_threshold_u_delta = -32768;
    table.cm_adapt_threshold_v_delta = 32767;
    table.split_octant_flag = true;
    // The lower four octants in luma, then the upper four; the two parts of each.
    for (const unsigned int below : {0U, 2U}) {
        for (const unsigned int octant : {0U, 1U, 2U, 3U}) {
            for (const unsigned int i : {0U, 1U}) {
                h265_colour_mapping_table::part_t part;
                part.idxShiftY = static_cast<unsigned char>(below + i);
                part.idxCb = static_cast<unsigned char>(octant / 2);
                part.idxCr = static_cast<unsigned char>(octant % 2);
                table.parts.push_back(part);
            }
        }
    }
    table.parts[0].coded_res_flag = {false, false, false, true};
    table.parts[0].res_coeff_q[3] = {18, 0, 0};
    table.parts[0].res_coeff_r[3] = {9, 0, 1};
    table.parts[0].res_coeff_s[3] = {true, false, false};
    return whole;
}

// Depth values of 8 bits; layer 0 with all values by flags, layer 1 without a table, layer 2
// predicted with differences of Ceil( Log2( 9 - 4 + 1 ) ) = 3 bits, layer 3 with one value.
sample<h265_pps_3d_extension> pps_3d_extension() {
    sample<h265_pps_3d_extension> whole;
    bit_writer& bits = whole.syntax;
    bits.u<1>(1).u<6>(3).u<4>(0);
    bits.u<1>(1).u<1>(0).u<1>(1);
    for (unsigned int j = 0; j < 256; ++j) {
        bits.u<1>(j % 5 == 0 ? 1 : 0);
    }
    bits.u<1>(0);
    bits.u<1>(1).u<1>(1).u<8>(4).u<8>(9).u<4>(3).u<8>(200).u<3>(5).u<3>(0).u<3>(2);
    bits.u<1>(1).u<1>(0).u<1>(0).u<8>(1).u<8>(255);

    h265_pps_3d_extension& record = whole.record;
    record.dlts_present_flag = true;
    record.pps_depth_layers_minus1 = 3;
    record.dlt_flag = {true, false, true, true};
    record.dlt_pred_flag = {false, false, true, false};
    record.dlt_val_flags_present_flag = {true, false, false, false};
    record.dlt_value_flag.resize(4);
    for (unsigned int j = 0; j < 256; ++j) {
        record.dlt_value_flag[0].push_back(j % 5 == 0);
    }
    record.delta_dlt.resize(4);
    record.delta_dlt[2].num_val_delta_dlt = 4;
    record.delta_dlt[2].max_diff = 9;
    record.delta_dlt[2].min_diff_minus1 = 3;
    record.delta_dlt[2].delta_dlt_val0 = 200;
    record.delta_dlt[2].delta_val_diff_minus_min = {0, 5, 0, 2};
    record.delta_dlt[3].num_val_delta_dlt = 1;
    record.delta_dlt[3].min_diff_minus1 = -1;
    record.delta_dlt[3].delta_dlt_val0 = 255;
    return whole;
}

sample<h265_pps_scc_extension> pps_scc_extension() {
    sample<h265_pps_scc_extension> whole;
    whole.syntax.u<1>(1).u<1>(1).u<1>(1).se(-7).se(17).se(15).u<1>(1).ue(2).u<1>(0).ue(1).ue(2);
    whole.syntax.u<9>(511).u<9>(1).u<10>(2).u<10>(3).u<10>(4).u<10>(1023);
    whole.record.pps_curr_pic_ref_enabled_flag = true;
    whole.record.residual_adaptive_colour_transform_enabled_flag = true;
    whole.record.pps_slice_act_qp_offsets_present_flag = true;
    whole.record.pps_act_y_qp_offset_plus5 = -7;
    whole.record.pps_act_cb_qp_offset_plus5 = 17;
    whole.record.pps_act_cr_qp_offset_plus3 = 15;
    whole.record.pps_palette_predictor_initializers_present_flag = true;
    whole.record.pps_num_palette_predictor_initializers = 2;
    whole.record.luma_bit_depth_entry_minus8 = 1;
    whole.record.chroma_bit_depth_entry_minus8 = 2;
    whole.record.pps_palette_predictor_initializer = {{{511, 1}, {2, 3}, {4, 1023}}};
    return whole;
}

sample<h265_nal_sps> full_sps_extensions() {
    sample<h265_nal_sps> whole;
    whole.syntax.u<4>(0b1111).u<4>(0b0100);
    append(whole.syntax, sps_range_extension().syntax).u<1>(1);
    append(whole.syntax, sps_3d_extension().syntax);
    append(whole.syntax, sps_scc_extension().syntax).u<7>(0b0110100);
    whole.record.sps_range_extension_flag = true;
    whole.record.sps_multilayer_extension_flag = true;
    whole.record.sps_3d_extension_flag = true;
    whole.record.sps_scc_extension_flag = true;
    whole.record.sps_extension_4bits = 4;
    whole.record.sps_range_extension = sps_range_extension().record;
    whole.record.sps_multilayer_extension.inter_view_mv_vert_constraint_flag = true;
    whole.record.sps_3d_extension = sps_3d_extension().record;
    whole.record.sps_scc_extension = sps_scc_extension().record;
    whole.record.sps_extension_data_flag = {false, true, true, false, true, false, false};
    return whole;
}

sample<h265_nal_pps> full_pps_extensions() {
    sample<h265_nal_pps> whole;
    whole.syntax.u<4>(0b1111).u<4>(0b0001);
    append(whole.syntax, pps_range_extension().syntax);
    append(whole.syntax, pps_multilayer_extension().syntax);
    append(whole.syntax, pps_3d_extension().syntax);
    append(whole.syntax, pps_scc_extension().syntax).u<7>(0b1000100);
    whole.record.pps_range_extension_flag = true;
    whole.record.pps_multilayer_extension_flag = true;
    whole.record.pps_3d_extension_flag = true;
    whole.record.pps_scc_extension_flag = true;
    whole.record.pps_extension_4bits = 1;
    whole.record.pps_range_extension = pps_range_extension().record;
    whole.record.pps_multilayer_extension = pps_multilayer_extension().record;
    whole.record.pps_3d_extension = pps_3d_extension().record;
    whole.record.pps_scc_extension = pps_scc_extension().record;
    whole.record.pps_extension_data_flag = {true, false, false, false, true, false, false};
    return whole;
}

}  // namespace kovran::test
