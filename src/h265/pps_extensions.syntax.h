#ifndef KOVRAN_SRC_H265_PPS_EXTENSIONS_SYNTAX_H
#define KOVRAN_SRC_H265_PPS_EXTENSIONS_SYNTAX_H

#include "h2645_common/element.h"
#include "h2645_common/value_range.h"
#include "h265/h265_pps_3d_extension.syntax.h"
#include "h265/h265_pps_multilayer_extension.syntax.h"
#include "h265/palette_predictor.syntax.h"
#include "h265/pps_ranges.h"

namespace kovran {

// pps_range_extension(), clause 7.3.2.3.2.
template <class Walker, class Extension, class Pps, class Sps>
[[nodiscard]] bool pps_range_extension(Walker& walk, Extension& extension, const Pps& pps,
                                       const Sps* sps) {
    if (pps.transform_skip_enabled_flag) {
        walk.ue(ELEMENT(extension, log2_max_transform_skip_block_size_minus2),
                transform_skip_block_range(sps));
    }
    walk.u(1, ELEMENT(extension, cross_component_prediction_enabled_flag),
           full_chroma_flag_range(sps));
    walk.u(1, ELEMENT(extension, chroma_qp_offset_list_enabled_flag), chroma_flag_range(sps));
    if (extension.chroma_qp_offset_list_enabled_flag) {
        walk.ue(ELEMENT(extension, diff_cu_chroma_qp_offset_depth), cu_qp_delta_depth_range(sps));
        walk.ue(ELEMENT(extension, chroma_qp_offset_list_len_minus1), up_to(5));
        if (!walk.at_most(ELEMENT(extension, chroma_qp_offset_list_len_minus1), 5U) ||
            !walk.grow(extension.chroma_qp_offset_list_len_minus1 + 1, extension.cb_qp_offset_list,
                       extension.cr_qp_offset_list)) {
            return false;
        }
        for (unsigned int i = 0; i <= extension.chroma_qp_offset_list_len_minus1; ++i) {
            walk.se(ELEMENT(extension, cb_qp_offset_list)[i], between(-12, 12));
            walk.se(ELEMENT(extension, cr_qp_offset_list)[i], between(-12, 12));
        }
    }
    walk.ue(ELEMENT(extension, log2_sao_offset_scale_luma), luma_sao_offset_scale_range(sps));
    walk.ue(ELEMENT(extension, log2_sao_offset_scale_chroma), chroma_sao_offset_scale_range(sps));
    return true;
}

// pps_scc_extension(), clause 7.3.2.3.3.
template <class Walker, class Extension, class Sps>
[[nodiscard]] bool pps_scc_extension(Walker& walk, Extension& extension, const Sps* sps) {
    walk.u(1, ELEMENT(extension, pps_curr_pic_ref_enabled_flag), curr_pic_ref_range(sps));
    walk.u(1, ELEMENT(extension, residual_adaptive_colour_transform_enabled_flag),
           full_chroma_flag_range(sps));
    if (extension.residual_adaptive_colour_transform_enabled_flag) {
        walk.u(1, ELEMENT(extension, pps_slice_act_qp_offsets_present_flag));
        walk.se(ELEMENT(extension, pps_act_y_qp_offset_plus5), between(-7, 17));
        walk.se(ELEMENT(extension, pps_act_cb_qp_offset_plus5), between(-7, 17));
        walk.se(ELEMENT(extension, pps_act_cr_qp_offset_plus3), between(-9, 15));
    }
    walk.u(1, ELEMENT(extension, pps_palette_predictor_initializers_present_flag));
    if (!extension.pps_palette_predictor_initializers_present_flag) {
        return true;
    }
    walk.ue(ELEMENT(extension, pps_num_palette_predictor_initializers),
            palette_predictor_range(sps));
    if (!walk.at_most(ELEMENT(extension, pps_num_palette_predictor_initializers),
                      largest_palette_predictor)) {
        return false;
    }
    if (extension.pps_num_palette_predictor_initializers == 0) {
        return true;
    }
    walk.u(1, ELEMENT(extension, monochrome_palette_flag), monochrome_range(sps));
    walk.ue(ELEMENT(extension, luma_bit_depth_entry_minus8), luma_bit_depth_range(sps));
    if (!walk.at_most(ELEMENT(extension, luma_bit_depth_entry_minus8), 8U)) {
        return false;
    }
    if (!extension.monochrome_palette_flag) {
        walk.ue(ELEMENT(extension, chroma_bit_depth_entry_minus8), chroma_bit_depth_range(sps));
        if (!walk.at_most(ELEMENT(extension, chroma_bit_depth_entry_minus8), 8U)) {
            return false;
        }
    }
    return palette_predictor_initializers(
        walk, ELEMENT(extension, pps_palette_predictor_initializer),
        extension.pps_num_palette_predictor_initializers, extension.monochrome_palette_flag,
        extension.luma_bit_depth_entry_minus8, extension.chroma_bit_depth_entry_minus8);
}

// What follows pps_extension_present_flag, clause 7.3.2.3.1.
template <class Walker, class Pps, class Sps>
[[nodiscard]] bool pps_extensions(Walker& walk, Pps& pps, const Sps* sps) {
    walk.u(1, ELEMENT(pps, pps_range_extension_flag));
    walk.u(1, ELEMENT(pps, pps_multilayer_extension_flag));
    walk.u(1, ELEMENT(pps, pps_3d_extension_flag));
    walk.u(1, ELEMENT(pps, pps_scc_extension_flag));
    walk.u(4, ELEMENT(pps, pps_extension_4bits));
    if (pps.pps_range_extension_flag &&
        !walk.structure(ELEMENT(pps, pps_range_extension), [&](auto& extension) {
            return pps_range_extension(walk, extension, pps, sps);
        })) {
        return false;
    }
    if (pps.pps_multilayer_extension_flag &&
        !walk.structure(ELEMENT(pps, pps_multilayer_extension), [&](auto& extension) {
            return pps_multilayer_extension(walk, extension);
        })) {
        return false;
    }
    if (pps.pps_3d_extension_flag &&
        !walk.structure(ELEMENT(pps, pps_3d_extension),
                        [&](auto& extension) { return pps_3d_extension(walk, extension); })) {
        return false;
    }
    if (pps.pps_scc_extension_flag &&
        !walk.structure(ELEMENT(pps, pps_scc_extension),
                        [&](auto& extension) { return pps_scc_extension(walk, extension, sps); })) {
        return false;
    }
    return pps.pps_extension_4bits == 0 ||
           walk.extension_data(ELEMENT(pps, pps_extension_data_flag));
}

}  // namespace kovran

#endif  // KOVRAN_SRC_H265_PPS_EXTENSIONS_SYNTAX_H
