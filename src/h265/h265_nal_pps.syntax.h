#ifndef KOVRAN_SRC_H265_H265_NAL_PPS_SYNTAX_H
#define KOVRAN_SRC_H265_H265_NAL_PPS_SYNTAX_H

#include "h2645_common/element.h"
#include "h2645_common/value_range.h"
#include "h265/extensions_or_data.h"
#include "h265/h265_scaling_list_data.syntax.h"
#include "h265/pps_extensions.syntax.h"
#include "h265/pps_ranges.h"

#include <cstdint>

namespace kovran {

// The widths and heights of tiles that are not spaced uniformly, clause 7.3.2.3.1.
template <class Walker, class Pps, class Sps>
[[nodiscard]] bool pps_tile_sizes(Walker& walk, Pps& pps, const Sps* sps) {
    if (!walk.at_most(ELEMENT(pps, num_tile_columns_minus1), walk.rules.max_tile_columns_minus1) ||
        !walk.data_holds(ELEMENT(pps, num_tile_columns_minus1), pps.num_tile_columns_minus1,
                         /*fewest_bits=*/1) ||
        !walk.grow(pps.num_tile_columns_minus1, pps.column_width_minus1) ||
        !walk.at_most(ELEMENT(pps, num_tile_rows_minus1), walk.rules.max_tile_rows_minus1) ||
        !walk.data_holds(ELEMENT(pps, num_tile_rows_minus1), pps.num_tile_rows_minus1,
                         /*fewest_bits=*/1) ||
        !walk.grow(pps.num_tile_rows_minus1, pps.row_height_minus1)) {
        return false;
    }
    std::uint64_t columns = 0;
    for (unsigned int i = 0; i < pps.num_tile_columns_minus1; ++i) {
        walk.ue(ELEMENT(pps, column_width_minus1)[i],
                tile_size_range(most_tile_columns(sps), columns));
        columns += std::uint64_t{pps.column_width_minus1[i]} + 1;
    }
    std::uint64_t rows = 0;
    for (unsigned int i = 0; i < pps.num_tile_rows_minus1; ++i) {
        walk.ue(ELEMENT(pps, row_height_minus1)[i], tile_size_range(most_tile_rows(sps), rows));
        rows += std::uint64_t{pps.row_height_minus1[i]} + 1;
    }
    return true;
}

// pic_parameter_set_rbsp(), clause 7.3.2.3.
template <class Walker, class Pps, class SpsStore>
[[nodiscard]] bool pic_parameter_set_rbsp(Walker& walk, Pps& pps, SpsStore& sps_store) {
    walk.clear(pps.valid);

    walk.ue(ELEMENT(pps, pps_pic_parameter_set_id), up_to(63));
    walk.ue(ELEMENT(pps, pps_seq_parameter_set_id), up_to(15));
    if (!walk.at_most(ELEMENT(pps, pps_pic_parameter_set_id), walk.rules.max_pps_id) ||
        !walk.at_most(ELEMENT(pps, pps_seq_parameter_set_id), walk.rules.max_sps_id)) {
        return false;
    }
    const auto* const sps = walk.named_set(sps_store, pps.pps_seq_parameter_set_id);
    if (!walk.rules.has_named_set(sps)) {
        return walk.missing("SPS", pps.pps_seq_parameter_set_id);
    }

    walk.u(1, ELEMENT(pps, dependent_slice_segments_enabled_flag));
    walk.u(1, ELEMENT(pps, output_flag_present_flag));
    walk.u(3, ELEMENT(pps, num_extra_slice_header_bits));
    walk.u(1, ELEMENT(pps, sign_data_hiding_enabled_flag));
    walk.u(1, ELEMENT(pps, cabac_init_present_flag));

    walk.ue(ELEMENT(pps, num_ref_idx_l0_default_active_minus1), up_to(14));
    walk.ue(ELEMENT(pps, num_ref_idx_l1_default_active_minus1), up_to(14));
    if (!walk.at_most(ELEMENT(pps, num_ref_idx_l0_default_active_minus1),
                      walk.rules.max_ref_idx_active_minus1) ||
        !walk.at_most(ELEMENT(pps, num_ref_idx_l1_default_active_minus1),
                      walk.rules.max_ref_idx_active_minus1)) {
        return false;
    }
    walk.se(ELEMENT(pps, init_qp_minus26), init_qp_range(sps));

    walk.u(1, ELEMENT(pps, constrained_intra_pred_flag));
    walk.u(1, ELEMENT(pps, transform_skip_enabled_flag));
    walk.u(1, ELEMENT(pps, cu_qp_delta_enabled_flag));
    if (pps.cu_qp_delta_enabled_flag) {
        walk.ue(ELEMENT(pps, diff_cu_qp_delta_depth), cu_qp_delta_depth_range(sps));
    } else {
        walk.assign(pps.diff_cu_qp_delta_depth, 0);
    }

    walk.se(ELEMENT(pps, pps_cb_qp_offset), between(-12, 12));
    walk.se(ELEMENT(pps, pps_cr_qp_offset), between(-12, 12));
    walk.u(1, ELEMENT(pps, pps_slice_chroma_qp_offsets_present_flag));
    walk.u(1, ELEMENT(pps, weighted_pred_flag));
    walk.u(1, ELEMENT(pps, weighted_bipred_flag));
    walk.u(1, ELEMENT(pps, transquant_bypass_enabled_flag));

    walk.u(1, ELEMENT(pps, tiles_enabled_flag));
    walk.u(1, ELEMENT(pps, entropy_coding_sync_enabled_flag));
    if (pps.tiles_enabled_flag) {
        walk.ue(ELEMENT(pps, num_tile_columns_minus1), up_to(most_tile_columns(sps) - 1));
        walk.ue(ELEMENT(pps, num_tile_rows_minus1), up_to(most_tile_rows(sps) - 1));
        walk.u(1, ELEMENT(pps, uniform_spacing_flag));
        if (!pps.uniform_spacing_flag && !pps_tile_sizes(walk, pps, sps)) {
            return false;
        }
        walk.u(1, ELEMENT(pps, loop_filter_across_tiles_enabled_flag));
    } else {
        walk.rules.infer_single_tile(walk, pps);
    }

    walk.u(1, ELEMENT(pps, pps_loop_filter_across_slices_enabled_flag));
    walk.u(1, ELEMENT(pps, deblocking_filter_control_present_flag));
    if (pps.deblocking_filter_control_present_flag) {
        walk.u(1, ELEMENT(pps, deblocking_filter_override_enabled_flag));
        walk.u(1, ELEMENT(pps, pps_deblocking_filter_disabled_flag));
        if (!pps.pps_deblocking_filter_disabled_flag) {
            walk.se(ELEMENT(pps, pps_beta_offset_div2), between(-6, 6));
            walk.se(ELEMENT(pps, pps_tc_offset_div2), between(-6, 6));
        }
    }

    walk.u(1, ELEMENT(pps, pps_scaling_list_data_present_flag), scaling_lists_range(sps));
    if (!pps.pps_scaling_list_data_present_flag) {
        walk.rules.end_absent_structure(pps.scaling_list_data);
    } else if (!walk.structure(ELEMENT(pps, scaling_list_data),
                               [&](auto& lists) { return scaling_list_data(walk, lists); })) {
        return false;
    }

    walk.u(1, ELEMENT(pps, lists_modification_present_flag));
    walk.ue(ELEMENT(pps, log2_parallel_merge_level_minus2), parallel_merge_level_range(sps));
    walk.u(1, ELEMENT(pps, slice_segment_header_extension_present_flag));

    walk.u(1, ELEMENT(pps, pps_extension_present_flag));
    if (pps.pps_extension_present_flag && !walk.rules.knows_extensions()) {
        walk.extension_data("pps_extension_data_flag");
    } else if (pps.pps_extension_present_flag &&
               !extensions_or_data(walk, pps, ELEMENT(pps, pps_extension_data_flag),
                                   [&] { return pps_extensions(walk, pps, sps); })) {
        return false;
    }
    if (!pps.pps_3d_extension_flag) {
        walk.rules.end_absent_structure(pps.pps_3d_extension);
    }
    return walk.finish_rbsp(pps.valid);
}

}  // namespace kovran

#endif  // KOVRAN_SRC_H265_H265_NAL_PPS_SYNTAX_H
