#include "support/extension_range_cases.h"

#include <cstdint>

#include "support/range_case_list.h"
#include "support/syntax_values.h"

namespace kovran::test {
namespace {

std::uint32_t code(element_value value) {
    return static_cast<std::uint32_t>(value);
}
std::int32_t signed_code(element_value value) {
    return static_cast<std::int32_t>(value);
}

// ---- SPS

struct sps_3d_values {
    element_value log2_ivmc_sub_pb_size_minus3 = 1;
    element_value log2_texmc_sub_pb_size_minus3 = 1;
};

bit_writer bits_of(const sps_3d_values& extension) {
    bit_writer bits = bit_writer().u<8>(0b00100000);
    bits.u<2>(0).ue(code(extension.log2_ivmc_sub_pb_size_minus3)).u<4>(0);
    return bits.u<3>(0).ue(code(extension.log2_texmc_sub_pb_size_minus3)).u<5>(0);
}

// Samples of 8 bits.
struct sps_scc_values {
    element_value palette_max_size = 2;
    element_value delta_palette_max_predictor_size = 1;
    bool sps_palette_predictor_initializers_present_flag = false;
    element_value sps_num_palette_predictor_initializers_minus1 = 0;
    element_value motion_vector_resolution_control_idc = 0;
};

bit_writer bits_of(const sps_scc_values& extension) {
    bit_writer bits = bit_writer().u<8>(0b00010000).u<1>(1).u<1>(1);
    bits.ue(code(extension.palette_max_size)).ue(code(extension.delta_palette_max_predictor_size));
    bits.u<1>(extension.sps_palette_predictor_initializers_present_flag ? 1 : 0);
    if (extension.sps_palette_predictor_initializers_present_flag) {
        bits.ue(code(extension.sps_num_palette_predictor_initializers_minus1));
        const auto samples = 3 * (extension.sps_num_palette_predictor_initializers_minus1 + 1);
        for (element_value i = 0; i < samples; ++i) {
            bits.u<8>(0);
        }
    }
    return bits.u<2>(code(extension.motion_vector_resolution_control_idc)).u<1>(0);
}

range_table sps_extension_ranges() {
    case_list<sps_values> list;
    // Blocks of 8x8 to 64x64, then of 16x16 to 32x32.
    const auto in_3d = [&list](const char* element, element_value sps_3d_values::*field) {
        const auto set = [field](auto& sps, auto value) {
            sps_3d_values extension;
            extension.*field = value;
            sps.extension = bits_of(extension);
        };
        list.at_most(element, 0, 3, set);
        list.within(element, 1, 2, [set](auto& sps, auto value) {
            set(sps, value);
            sps.log2_min_luma_coding_block_size_minus3 = 1;
            sps.log2_diff_max_min_luma_coding_block_size = 1;
        });
    };
    in_3d("log2_ivmc_sub_pb_size_minus3[0]", &sps_3d_values::log2_ivmc_sub_pb_size_minus3);
    in_3d("log2_texmc_sub_pb_size_minus3[1]", &sps_3d_values::log2_texmc_sub_pb_size_minus3);

    const auto in_scc = [](auto set) {
        return [set](auto& sps, auto value) {
            sps_scc_values extension;
            set(extension, value);
            sps.extension = bits_of(extension);
        };
    };
    list.at_most("palette_max_size", 0, 64,
                 in_scc([](auto& extension, auto value) { extension.palette_max_size = value; }));
    // 128 together; none for no palette.
    list.at_most("delta_palette_max_predictor_size", 0, 100,
                 in_scc([](auto& extension, auto value) {
                     extension.palette_max_size = 28;
                     extension.delta_palette_max_predictor_size = value;
                 }));
    list.at_most("delta_palette_max_predictor_size", 0, 0, in_scc([](auto& extension, auto value) {
                     extension.palette_max_size = 0;
                     extension.delta_palette_max_predictor_size = value;
                 }));
    list.at_most("sps_num_palette_predictor_initializers_minus1", 0, 2,
                 in_scc([](auto& extension, auto value) {
                     extension.sps_palette_predictor_initializers_present_flag = true;
                     extension.sps_num_palette_predictor_initializers_minus1 = value;
                 }));
    list.at_most("motion_vector_resolution_control_idc", 0, 2,
                 in_scc([](auto& extension, auto value) {
                     extension.motion_vector_resolution_control_idc = value;
                 }));
    return {"seq_parameter_set_rbsp", {{VPS_NUT, bits_of(vps_values())}}, SPS_NUT, list.cases()};
}

// ---- PPS

// The first is of 4:2:0 with 8 bits, without screen content, and has the largest transform blocks
// and coding tree blocks. The others have 12 bits of luma and 14 of chroma, smaller blocks, and a
// palette predictor of three entries.
constexpr element_value without_chroma = 1;
constexpr element_value of_full_chroma = 2;
constexpr element_value of_separate_planes = 3;

sps_values sps_of_screen_content(element_value sps_id, element_value chroma_format_idc) {
    sps_values sps;
    sps.sps_seq_parameter_set_id = sps_id;
    sps.chroma_format_idc = chroma_format_idc;
    sps.bit_depth_luma_minus8 = 4;
    sps.bit_depth_chroma_minus8 = 6;
    sps.log2_diff_max_min_luma_coding_block_size = 2;
    sps.log2_diff_max_min_luma_transform_block_size = 1;
    sps.extension = bits_of(sps_scc_values());
    return sps;
}

std::vector<range_unit> parameter_sets() {
    sps_values separate_planes = sps_of_screen_content(of_separate_planes, 3);
    separate_planes.separate_colour_plane_flag = true;
    return {{VPS_NUT, bits_of(vps_values())},
            {SPS_NUT, bits_of(sps_values())},
            {SPS_NUT, bits_of(sps_of_screen_content(without_chroma, 0))},
            {SPS_NUT, bits_of(sps_of_screen_content(of_full_chroma, 3))},
            {SPS_NUT, bits_of(separate_planes)}};
}

// Gives an element of an extension its value, in a PPS of the SPS.
template <class Extension, class Set>
auto in_extension(element_value sps_id, Set set) {
    return [sps_id, set](auto& pps, auto value) {
        Extension extension;
        set(extension, value);
        pps.pps_seq_parameter_set_id = sps_id;
        pps.transform_skip_enabled_flag = true;
        pps.extension = bits_of(extension);
    };
}
template <class Extension>
auto in_extension(element_value sps_id, element_value Extension::*field) {
    return in_extension<Extension>(
        sps_id, [field](Extension& extension, element_value value) { extension.*field = value; });
}
// An element that is there when another one is 1.
template <class Extension>
auto in_extension(element_value sps_id, element_value Extension::*condition,
                  element_value Extension::*field) {
    return in_extension<Extension>(sps_id,
                                   [condition, field](Extension& extension, element_value value) {
                                       extension.*condition = 1;
                                       extension.*field = value;
                                   });
}

struct pps_range_values {
    element_value log2_max_transform_skip_block_size_minus2 = 0;
    element_value cross_component_prediction_enabled_flag = 0;
    element_value chroma_qp_offset_list_enabled_flag = 0;
    element_value diff_cu_chroma_qp_offset_depth = 0;
    element_value cb_qp_offset = 0;
    element_value cr_qp_offset = 0;
    element_value log2_sao_offset_scale_luma = 0;
    element_value log2_sao_offset_scale_chroma = 0;
};

bit_writer bits_of(const pps_range_values& extension) {
    bit_writer bits = bit_writer().u<8>(0b10000000);
    bits.ue(code(extension.log2_max_transform_skip_block_size_minus2));
    bits.u<1>(code(extension.cross_component_prediction_enabled_flag));
    bits.u<1>(code(extension.chroma_qp_offset_list_enabled_flag));
    if (extension.chroma_qp_offset_list_enabled_flag != 0) {
        bits.ue(code(extension.diff_cu_chroma_qp_offset_depth)).ue(0);
        bits.se(signed_code(extension.cb_qp_offset)).se(signed_code(extension.cr_qp_offset));
    }
    bits.ue(code(extension.log2_sao_offset_scale_luma));
    return bits.ue(code(extension.log2_sao_offset_scale_chroma));
}

void add_range_extension(case_list<pps_values>& list) {
    using values = pps_range_values;
    list.at_most("log2_max_transform_skip_block_size_minus2", 0, 3,
                 in_extension(0, &values::log2_max_transform_skip_block_size_minus2));
    list.at_most("log2_max_transform_skip_block_size_minus2", 0, 1,
                 in_extension(of_full_chroma, &values::log2_max_transform_skip_block_size_minus2));
    for (const element_value sps_id : {element_value{0}, without_chroma, of_separate_planes}) {
        list.at_most("cross_component_prediction_enabled_flag", 0, 0,
                     in_extension(sps_id, &values::cross_component_prediction_enabled_flag));
    }
    for (const element_value sps_id : {without_chroma, of_separate_planes}) {
        list.at_most("chroma_qp_offset_list_enabled_flag", 0, 0,
                     in_extension(sps_id, &values::chroma_qp_offset_list_enabled_flag));
    }
    const auto in_lists = [](element_value sps_id, element_value values::*field) {
        return in_extension(sps_id, &values::chroma_qp_offset_list_enabled_flag, field);
    };
    list.at_most("diff_cu_chroma_qp_offset_depth", 0, 3,
                 in_lists(0, &values::diff_cu_chroma_qp_offset_depth));
    list.at_most("diff_cu_chroma_qp_offset_depth", 0, 2,
                 in_lists(of_full_chroma, &values::diff_cu_chroma_qp_offset_depth));
    list.within("cb_qp_offset_list[0]", -12, 12, in_lists(0, &values::cb_qp_offset));
    list.within("cr_qp_offset_list[0]", -12, 12, in_lists(0, &values::cr_qp_offset));
    list.at_most("log2_sao_offset_scale_luma", 0, 0,
                 in_extension(0, &values::log2_sao_offset_scale_luma));
    list.at_most("log2_sao_offset_scale_luma", 0, 2,
                 in_extension(of_full_chroma, &values::log2_sao_offset_scale_luma));
    list.at_most("log2_sao_offset_scale_chroma", 0, 0,
                 in_extension(0, &values::log2_sao_offset_scale_chroma));
    list.at_most("log2_sao_offset_scale_chroma", 0, 4,
                 in_extension(of_full_chroma, &values::log2_sao_offset_scale_chroma));
}

// Of one layer, with a table that has one octant of one part.
struct pps_multilayer_values {
    element_value pps_scaling_list_ref_layer_id = 0;
    element_value ref_loc_offset_layer_id = 0;
    element_value scaled_ref_layer_left_offset = 0;
    element_value scaled_ref_layer_top_offset = 0;
    element_value scaled_ref_layer_right_offset = 0;
    element_value scaled_ref_layer_bottom_offset = 0;
    element_value ref_region_left_offset = 0;
    element_value ref_region_top_offset = 0;
    element_value ref_region_right_offset = 0;
    element_value ref_region_bottom_offset = 0;
    element_value phase_hor_luma = 0;
    element_value phase_ver_luma = 0;
    element_value phase_hor_chroma_plus8 = 0;
    element_value phase_ver_chroma_plus8 = 0;
    element_value cm_ref_layer_id = 0;
    element_value cm_y_part_num_log2 = 0;
    element_value luma_bit_depth_cm_input_minus8 = 3;
    element_value chroma_bit_depth_cm_input_minus8 = 3;
    element_value luma_bit_depth_cm_output_minus8 = 8;
    element_value chroma_bit_depth_cm_output_minus8 = 8;
    element_value cm_adapt_threshold_u_delta = 0;
    element_value cm_adapt_threshold_v_delta = 0;
};

bit_writer bits_of(const pps_multilayer_values& extension) {
    bit_writer bits = bit_writer().u<8>(0b01000000).u<1>(0).u<1>(1);
    bits.u<6>(code(extension.pps_scaling_list_ref_layer_id)).ue(1);
    bits.u<6>(code(extension.ref_loc_offset_layer_id)).u<1>(1);
    bits.se(signed_code(extension.scaled_ref_layer_left_offset));
    bits.se(signed_code(extension.scaled_ref_layer_top_offset));
    bits.se(signed_code(extension.scaled_ref_layer_right_offset));
    bits.se(signed_code(extension.scaled_ref_layer_bottom_offset)).u<1>(1);
    bits.se(signed_code(extension.ref_region_left_offset));
    bits.se(signed_code(extension.ref_region_top_offset));
    bits.se(signed_code(extension.ref_region_right_offset));
    bits.se(signed_code(extension.ref_region_bottom_offset)).u<1>(1);
    bits.ue(code(extension.phase_hor_luma)).ue(code(extension.phase_ver_luma));
    bits.ue(code(extension.phase_hor_chroma_plus8)).ue(code(extension.phase_ver_chroma_plus8));
    bits.u<1>(1).ue(0).u<6>(code(extension.cm_ref_layer_id));
    bits.u<2>(1).u<2>(code(extension.cm_y_part_num_log2));
    bits.ue(code(extension.luma_bit_depth_cm_input_minus8));
    bits.ue(code(extension.chroma_bit_depth_cm_input_minus8));
    bits.ue(code(extension.luma_bit_depth_cm_output_minus8));
    bits.ue(code(extension.chroma_bit_depth_cm_output_minus8)).u<4>(0);
    bits.se(signed_code(extension.cm_adapt_threshold_u_delta));
    bits.se(signed_code(extension.cm_adapt_threshold_v_delta)).u<1>(0);
    for (element_value i = 0; i < element_value{1} << extension.cm_y_part_num_log2; ++i) {
        bits.u<4>(0);
    }
    return bits;
}

void add_multilayer_extension(case_list<pps_values>& list) {
    using values = pps_multilayer_values;
    list.at_most("pps_scaling_list_ref_layer_id", 0, 62,
                 in_extension(0, &values::pps_scaling_list_ref_layer_id));
    list.at_most("ref_loc_offset_layer_id[0]", 0, 62,
                 in_extension(0, &values::ref_loc_offset_layer_id));
    const auto add_offset = [&list](const char* element, element_value values::*field) {
        list.within(element, -16384, 16383, in_extension(0, field));
    };
    add_offset("scaled_ref_layer_left_offset[0]", &values::scaled_ref_layer_left_offset);
    add_offset("scaled_ref_layer_top_offset[0]", &values::scaled_ref_layer_top_offset);
    add_offset("scaled_ref_layer_right_offset[0]", &values::scaled_ref_layer_right_offset);
    add_offset("scaled_ref_layer_bottom_offset[0]", &values::scaled_ref_layer_bottom_offset);
    add_offset("ref_region_left_offset[0]", &values::ref_region_left_offset);
    add_offset("ref_region_top_offset[0]", &values::ref_region_top_offset);
    add_offset("ref_region_right_offset[0]", &values::ref_region_right_offset);
    add_offset("ref_region_bottom_offset[0]", &values::ref_region_bottom_offset);
    list.at_most("phase_hor_luma[0]", 0, 31, in_extension(0, &values::phase_hor_luma));
    list.at_most("phase_ver_luma[0]", 0, 31, in_extension(0, &values::phase_ver_luma));
    list.at_most("phase_hor_chroma_plus8[0]", 0, 63,
                 in_extension(0, &values::phase_hor_chroma_plus8));
    list.at_most("phase_ver_chroma_plus8[0]", 0, 63,
                 in_extension(0, &values::phase_ver_chroma_plus8));

    list.at_most("cm_ref_layer_id[0]", 0, 62, in_extension(0, &values::cm_ref_layer_id));
    list.at_most("cm_y_part_num_log2", 0, 2, in_extension(0, &values::cm_y_part_num_log2));
    list.at_most("chroma_bit_depth_cm_input_minus8", 0, 8,
                 in_extension(0, &values::chroma_bit_depth_cm_input_minus8));
    list.at_least("luma_bit_depth_cm_output_minus8", 3, 8,
                  in_extension(0, &values::luma_bit_depth_cm_output_minus8));
    list.within("chroma_bit_depth_cm_output_minus8", 3, 8,
                in_extension(0, &values::chroma_bit_depth_cm_output_minus8));
    list.within("cm_adapt_threshold_u_delta", -32768, 32767,
                in_extension(0, &values::cm_adapt_threshold_u_delta));
    list.within("cm_adapt_threshold_v_delta", -32768, 32767,
                in_extension(0, &values::cm_adapt_threshold_v_delta));
}

// Of one depth layer, with three depth values of 8 bits, no more than 6 apart.
struct pps_3d_values {
    element_value dlt_pred_flag = 0;
    element_value min_diff_minus1 = 1;
    element_value delta_val_diff_minus_min = 0;
};

bit_writer bits_of(const pps_3d_values& extension) {
    bit_writer bits = bit_writer().u<8>(0b00100000).u<1>(1).u<6>(0).u<4>(0);
    bits.u<1>(1).u<1>(code(extension.dlt_pred_flag));
    if (extension.dlt_pred_flag == 0) {
        bits.u<1>(0);
    }
    bits.u<8>(3).u<8>(6).u<3>(code(extension.min_diff_minus1)).u<8>(0);
    if (extension.min_diff_minus1 + 1 < 6) {
        bits.u<3>(code(extension.delta_val_diff_minus_min)).u<3>(0);
    }
    return bits;
}

void add_3d_extension(case_list<pps_values>& list) {
    list.at_most("dlt_pred_flag[0]", 0, 0, in_extension(0, &pps_3d_values::dlt_pred_flag));
    list.at_most("min_diff_minus1", 0, 5, in_extension(0, &pps_3d_values::min_diff_minus1));
    list.at_most("delta_val_diff_minus_min[1]", 0, 4,
                 in_extension(0, &pps_3d_values::delta_val_diff_minus_min));
}

struct pps_scc_values {
    element_value pps_curr_pic_ref_enabled_flag = 0;
    element_value residual_adaptive_colour_transform_enabled_flag = 0;
    element_value pps_act_y_qp_offset_plus5 = 0;
    element_value pps_act_cb_qp_offset_plus5 = 0;
    element_value pps_act_cr_qp_offset_plus3 = 0;
    element_value pps_num_palette_predictor_initializers = 0;
    element_value monochrome_palette_flag = 0;
    element_value luma_bit_depth_entry_minus8 = 4;
    element_value chroma_bit_depth_entry_minus8 = 6;
};

bit_writer bits_of(const pps_scc_values& extension) {
    bit_writer bits = bit_writer().u<8>(0b00010000);
    bits.u<1>(code(extension.pps_curr_pic_ref_enabled_flag));
    bits.u<1>(code(extension.residual_adaptive_colour_transform_enabled_flag));
    if (extension.residual_adaptive_colour_transform_enabled_flag != 0) {
        bits.u<1>(0).se(signed_code(extension.pps_act_y_qp_offset_plus5));
        bits.se(signed_code(extension.pps_act_cb_qp_offset_plus5));
        bits.se(signed_code(extension.pps_act_cr_qp_offset_plus3));
    }
    bits.u<1>(1).ue(code(extension.pps_num_palette_predictor_initializers));
    if (extension.pps_num_palette_predictor_initializers == 0) {
        return bits;
    }
    bits.u<1>(code(extension.monochrome_palette_flag));
    bits.ue(code(extension.luma_bit_depth_entry_minus8));
    const bool monochrome = extension.monochrome_palette_flag != 0;
    if (!monochrome) {
        bits.ue(code(extension.chroma_bit_depth_entry_minus8));
    }
    for (const bool is_luma : {true, false, false}) {
        const element_value depth = is_luma ? extension.luma_bit_depth_entry_minus8
                                            : extension.chroma_bit_depth_entry_minus8;
        const element_value samples =
            is_luma || !monochrome ? extension.pps_num_palette_predictor_initializers : 0;
        for (element_value i = 0; i < samples; ++i) {
            bits.u(code(depth) + 8, 0);
        }
    }
    return bits;
}

void add_scc_extension(case_list<pps_values>& list) {
    using values = pps_scc_values;
    list.at_most("pps_curr_pic_ref_enabled_flag", 0, 0,
                 in_extension(0, &values::pps_curr_pic_ref_enabled_flag));
    for (const element_value sps_id : {element_value{0}, without_chroma, of_separate_planes}) {
        list.at_most(
            "residual_adaptive_colour_transform_enabled_flag", 0, 0,
            in_extension(sps_id, &values::residual_adaptive_colour_transform_enabled_flag));
    }
    const auto with_transform = [](element_value values::*field) {
        return in_extension(of_full_chroma,
                            &values::residual_adaptive_colour_transform_enabled_flag, field);
    };
    list.within("pps_act_y_qp_offset_plus5", -7, 17,
                with_transform(&values::pps_act_y_qp_offset_plus5));
    list.within("pps_act_cb_qp_offset_plus5", -7, 17,
                with_transform(&values::pps_act_cb_qp_offset_plus5));
    list.within("pps_act_cr_qp_offset_plus3", -9, 15,
                with_transform(&values::pps_act_cr_qp_offset_plus3));

    list.at_most("pps_num_palette_predictor_initializers", 0, 0,
                 in_extension(0, &values::pps_num_palette_predictor_initializers));
    list.at_most("pps_num_palette_predictor_initializers", 0, 3,
                 in_extension(of_full_chroma, &values::pps_num_palette_predictor_initializers));
    // These repeat what the SPS says.
    const auto with_palette = [](element_value sps_id, element_value values::*field) {
        return in_extension(sps_id, &values::pps_num_palette_predictor_initializers, field);
    };
    list.at_least("monochrome_palette_flag", 1, 1,
                  with_palette(without_chroma, &values::monochrome_palette_flag));
    for (const element_value sps_id : {of_full_chroma, of_separate_planes}) {
        list.at_most("monochrome_palette_flag", 0, 0,
                     with_palette(sps_id, &values::monochrome_palette_flag));
    }
    list.within("luma_bit_depth_entry_minus8", 4, 4,
                with_palette(of_full_chroma, &values::luma_bit_depth_entry_minus8));
    list.within("chroma_bit_depth_entry_minus8", 6, 6,
                with_palette(of_full_chroma, &values::chroma_bit_depth_entry_minus8));
}

range_table pps_extension_ranges() {
    case_list<pps_values> list;
    add_range_extension(list);
    add_multilayer_extension(list);
    add_3d_extension(list);
    add_scc_extension(list);
    return {"pic_parameter_set_rbsp", parameter_sets(), PPS_NUT, list.cases()};
}

}  // namespace

std::vector<range_table> extension_range_tables() {
    return {sps_extension_ranges(), pps_extension_ranges()};
}

}  // namespace kovran::test
