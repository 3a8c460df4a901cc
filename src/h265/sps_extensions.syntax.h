#ifndef KOVRAN_SRC_H265_SPS_EXTENSIONS_SYNTAX_H
#define KOVRAN_SRC_H265_SPS_EXTENSIONS_SYNTAX_H

#include "h2645_common/element.h"
#include "h2645_common/value_range.h"
#include "h265/palette_predictor.syntax.h"
#include "h265/sps_ranges.h"

#include <cstdint>

namespace kovran {

// sps_range_extension(), clause 7.3.2.2.2.
template <class Walker, class Extension>
void sps_range_extension(Walker& walk, Extension& extension) {
    walk.u(1, ELEMENT(extension, transform_skip_rotation_enabled_flag));
    walk.u(1, ELEMENT(extension, transform_skip_context_enabled_flag));
    walk.u(1, ELEMENT(extension, implicit_rdpcm_enabled_flag));
    walk.u(1, ELEMENT(extension, explicit_rdpcm_enabled_flag));
    walk.u(1, ELEMENT(extension, extended_precision_processing_flag));
    walk.u(1, ELEMENT(extension, intra_smoothing_disabled_flag));
    walk.u(1, ELEMENT(extension, high_precision_offsets_enabled_flag));
    walk.u(1, ELEMENT(extension, persistent_rice_adaptation_enabled_flag));
    walk.u(1, ELEMENT(extension, cabac_bypass_alignment_enabled_flag));
}

// sps_scc_extension(), clause 7.3.2.2.3.
template <class Walker, class Extension, class Sps>
[[nodiscard]] bool sps_scc_extension(Walker& walk, Extension& extension, const Sps& sps) {
    walk.u(1, ELEMENT(extension, sps_curr_pic_ref_enabled_flag));
    walk.u(1, ELEMENT(extension, palette_mode_enabled_flag));
    if (extension.palette_mode_enabled_flag) {
        walk.ue(ELEMENT(extension, palette_max_size), up_to(largest_palette));
        walk.ue(ELEMENT(extension, delta_palette_max_predictor_size),
                up_to(extension.palette_max_size == 0
                          ? 0
                          : largest_palette_predictor - std::int64_t{extension.palette_max_size}));
        walk.u(1, ELEMENT(extension, sps_palette_predictor_initializers_present_flag));
        if (extension.sps_palette_predictor_initializers_present_flag) {
            walk.ue(ELEMENT(extension, sps_num_palette_predictor_initializers_minus1),
                    up_to(std::int64_t{extension.palette_max_size} +
                          extension.delta_palette_max_predictor_size - 1));
            if (!walk.at_most(ELEMENT(extension, sps_num_palette_predictor_initializers_minus1),
                              largest_palette_predictor - 1) ||
                sps.bit_depth_luma_minus8 > 8 || sps.bit_depth_chroma_minus8 > 8 ||
                !palette_predictor_initializers(
                    walk, ELEMENT(extension, sps_palette_predictor_initializer),
                    extension.sps_num_palette_predictor_initializers_minus1 + 1,
                    sps.chroma_format_idc == 0, sps.bit_depth_luma_minus8,
                    sps.bit_depth_chroma_minus8)) {
                return false;
            }
        }
    }
    walk.u(2, ELEMENT(extension, motion_vector_resolution_control_idc), up_to(2));
    walk.u(1, ELEMENT(extension, intra_boundary_filtering_disabled_flag));
    return true;
}

// sps_multilayer_extension(), clause F.7.3.2.2.4.
template <class Walker, class Extension>
void sps_multilayer_extension(Walker& walk, Extension& extension) {
    walk.u(1, ELEMENT(extension, inter_view_mv_vert_constraint_flag));
}

// sps_3d_extension(), clause I.7.3.2.2.5.
template <class Walker, class Extension, class Sps>
void sps_3d_extension(Walker& walk, Extension& extension, const Sps& sps) {
    constexpr unsigned int texture = 0;
    constexpr unsigned int depth = 1;
    const value_range sub_block = between(min_cb_log2_size(sps) - 3, ctb_log2_size(sps) - 3);
    walk.u(1, ELEMENT(extension, iv_di_mc_enabled_flag)[texture]);
    walk.u(1, ELEMENT(extension, iv_mv_scal_enabled_flag)[texture]);
    walk.ue(ELEMENT(extension, log2_ivmc_sub_pb_size_minus3)[texture], sub_block);
    walk.u(1, ELEMENT(extension, iv_res_pred_enabled_flag)[texture]);
    walk.u(1, ELEMENT(extension, depth_ref_enabled_flag)[texture]);
    walk.u(1, ELEMENT(extension, vsp_mc_enabled_flag)[texture]);
    walk.u(1, ELEMENT(extension, dbbp_enabled_flag)[texture]);

    walk.u(1, ELEMENT(extension, iv_di_mc_enabled_flag)[depth]);
    walk.u(1, ELEMENT(extension, iv_mv_scal_enabled_flag)[depth]);
    walk.u(1, ELEMENT(extension, tex_mc_enabled_flag)[depth]);
    walk.ue(ELEMENT(extension, log2_texmc_sub_pb_size_minus3)[depth], sub_block);
    walk.u(1, ELEMENT(extension, intra_contour_enabled_flag)[depth]);
    walk.u(1, ELEMENT(extension, intra_dc_only_wedge_enabled_flag)[depth]);
    walk.u(1, ELEMENT(extension, cqt_cu_part_pred_enabled_flag)[depth]);
    walk.u(1, ELEMENT(extension, inter_dc_only_enabled_flag)[depth]);
    walk.u(1, ELEMENT(extension, skip_intra_enabled_flag)[depth]);
}

// What follows sps_extension_present_flag, clause 7.3.2.2.1.
template <class Walker, class Sps>
[[nodiscard]] bool sps_extensions(Walker& walk, Sps& sps) {
    walk.u(1, ELEMENT(sps, sps_range_extension_flag));
    walk.u(1, ELEMENT(sps, sps_multilayer_extension_flag));
    walk.u(1, ELEMENT(sps, sps_3d_extension_flag));
    walk.u(1, ELEMENT(sps, sps_scc_extension_flag));
    walk.u(4, ELEMENT(sps, sps_extension_4bits));
    if (sps.sps_range_extension_flag) {
        static_cast<void>(walk.structure(ELEMENT(sps, sps_range_extension), [&](auto& extension) {
            sps_range_extension(walk, extension);
            return true;
        }));
    }
    if (sps.sps_multilayer_extension_flag) {
        static_cast<void>(
            walk.structure(ELEMENT(sps, sps_multilayer_extension), [&](auto& extension) {
                sps_multilayer_extension(walk, extension);
                return true;
            }));
    }
    if (sps.sps_3d_extension_flag) {
        static_cast<void>(walk.structure(ELEMENT(sps, sps_3d_extension), [&](auto& extension) {
            sps_3d_extension(walk, extension, sps);
            return true;
        }));
    }
    if (sps.sps_scc_extension_flag &&
        !walk.structure(ELEMENT(sps, sps_scc_extension),
                        [&](auto& extension) { return sps_scc_extension(walk, extension, sps); })) {
        return false;
    }
    return sps.sps_extension_4bits == 0 ||
           walk.extension_data(ELEMENT(sps, sps_extension_data_flag));
}

}  // namespace kovran

#endif  // KOVRAN_SRC_H265_SPS_EXTENSIONS_SYNTAX_H
