#ifndef KOVRAN_SRC_H265_H265_PPS_MULTILAYER_EXTENSION_SYNTAX_H
#define KOVRAN_SRC_H265_H265_PPS_MULTILAYER_EXTENSION_SYNTAX_H

#include "h2645_common/element.h"
#include "h2645_common/value_range.h"
#include "h265/h265_colour_mapping_table.syntax.h"

namespace kovran {

// Entry i of num_ref_loc_offsets, clause F.7.3.2.3.4.
template <class Walker, class Extension>
void ref_loc_offset(Walker& walk, Extension& extension, unsigned int i) {
    constexpr value_range offset = between(-(1 << 14), (1 << 14) - 1);
    walk.u(6, ELEMENT(extension, ref_loc_offset_layer_id)[i], up_to(62));
    const element_indices layer =
        element_indices{}.followed_by(extension.ref_loc_offset_layer_id[i]);
    const auto of_layer = [&](auto array) { return named(array.name, array.field[i], layer); };

    walk.u(1, ELEMENT(extension, scaled_ref_layer_offset_present_flag)[i]);
    if (extension.scaled_ref_layer_offset_present_flag[i]) {
        walk.se(of_layer(ELEMENT(extension, scaled_ref_layer_left_offset)), offset);
        walk.se(of_layer(ELEMENT(extension, scaled_ref_layer_top_offset)), offset);
        walk.se(of_layer(ELEMENT(extension, scaled_ref_layer_right_offset)), offset);
        walk.se(of_layer(ELEMENT(extension, scaled_ref_layer_bottom_offset)), offset);
    }
    walk.u(1, ELEMENT(extension, ref_region_offset_present_flag)[i]);
    if (extension.ref_region_offset_present_flag[i]) {
        walk.se(of_layer(ELEMENT(extension, ref_region_left_offset)), offset);
        walk.se(of_layer(ELEMENT(extension, ref_region_top_offset)), offset);
        walk.se(of_layer(ELEMENT(extension, ref_region_right_offset)), offset);
        walk.se(of_layer(ELEMENT(extension, ref_region_bottom_offset)), offset);
    }
    walk.u(1, ELEMENT(extension, resample_phase_set_present_flag)[i]);
    if (extension.resample_phase_set_present_flag[i]) {
        walk.ue(named("phase_hor_luma", extension.phase_hor_luma[i], layer), up_to(31));
        walk.ue(named("phase_ver_luma", extension.phase_ver_luma[i], layer), up_to(31));
        walk.ue(named("phase_hor_chroma_plus8", extension.phase_hor_chroma_plus8[i], layer),
                up_to(63));
        walk.ue(named("phase_ver_chroma_plus8", extension.phase_ver_chroma_plus8[i], layer),
                up_to(63));
    } else {
        walk.assign(extension.phase_hor_chroma_plus8[i], 8);
    }
}

// pps_multilayer_extension(), clause F.7.3.2.3.4.
template <class Walker, class Extension>
[[nodiscard]] bool pps_multilayer_extension(Walker& walk, Extension& extension) {
    // Of 63 layers, each may refer to all below it.
    constexpr unsigned int most_offsets = 62;
    walk.u(1, ELEMENT(extension, poc_reset_info_present_flag));
    walk.u(1, ELEMENT(extension, pps_infer_scaling_list_flag));
    if (extension.pps_infer_scaling_list_flag) {
        walk.u(6, ELEMENT(extension, pps_scaling_list_ref_layer_id), up_to(62));
    }
    walk.ue(ELEMENT(extension, num_ref_loc_offsets), up_to(most_offsets));
    if (!walk.at_most(ELEMENT(extension, num_ref_loc_offsets), most_offsets) ||
        !walk.data_holds(ELEMENT(extension, num_ref_loc_offsets), extension.num_ref_loc_offsets,
                         /*fewest_bits=*/9) ||
        !walk.grow(extension.num_ref_loc_offsets, extension.ref_loc_offset_layer_id,
                   extension.scaled_ref_layer_offset_present_flag,
                   extension.scaled_ref_layer_left_offset, extension.scaled_ref_layer_top_offset,
                   extension.scaled_ref_layer_right_offset,
                   extension.scaled_ref_layer_bottom_offset,
                   extension.ref_region_offset_present_flag, extension.ref_region_left_offset,
                   extension.ref_region_top_offset, extension.ref_region_right_offset,
                   extension.ref_region_bottom_offset, extension.resample_phase_set_present_flag,
                   extension.phase_hor_luma, extension.phase_ver_luma,
                   extension.phase_hor_chroma_plus8, extension.phase_ver_chroma_plus8)) {
        return false;
    }
    for (unsigned int i = 0; i < extension.num_ref_loc_offsets; ++i) {
        ref_loc_offset(walk, extension, i);
    }
    walk.u(1, ELEMENT(extension, colour_mapping_enabled_flag));
    return !extension.colour_mapping_enabled_flag ||
           walk.structure(ELEMENT(extension, colour_mapping_table),
                          [&](auto& table) { return colour_mapping_table(walk, table); });
}

}  // namespace kovran

#endif  // KOVRAN_SRC_H265_H265_PPS_MULTILAYER_EXTENSION_SYNTAX_H
