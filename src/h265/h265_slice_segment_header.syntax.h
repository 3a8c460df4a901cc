#ifndef KOVRAN_SRC_H265_H265_SLICE_SEGMENT_HEADER_SYNTAX_H
#define KOVRAN_SRC_H265_H265_SLICE_SEGMENT_HEADER_SYNTAX_H

#include <kovran/h265/h265_nal.h>

#include "h2645_common/element.h"
#include "h2645_common/resize.h"
#include "h2645_common/store_lookup.h"
#include "h2645_common/value_range.h"
#include "h2645_common/wrapping.h"
#include "h265/h265_pred_weight_table.syntax.h"
#include "h265/h265_ref_pic_lists_modification.syntax.h"
#include "h265/h265_st_ref_pic_set.syntax.h"
#include "h265/slice_ranges.h"
#include "h265/slice_type.h"
#include "h265/sps_ranges.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace kovran {

// The short-term set in use, or null: an SPS whose parse failed can have fewer sets than its count
// says.
template <class Slice, class Sps>
[[nodiscard]] auto* short_term_set(const Slice& slice, const Sps& sps) {
    if (slice.CurrRpsIdx >= sps.num_short_term_ref_pic_sets) {
        return &slice.st_ref_pic_set;
    }
    return slice.CurrRpsIdx < sps.st_ref_pic_set.size() ? &sps.st_ref_pic_set[slice.CurrRpsIdx]
                                                        : nullptr;
}

// num_long_term_pics: all reference pictures together fit the decoded picture buffer of the highest
// sub-layer beside the current one, clause 7.4.7.1.
template <class Slice, class Sps>
[[nodiscard]] value_range long_term_pics_range(const Slice& slice, const Sps& sps) {
    const auto* const set = short_term_set(slice, sps);
    const std::uint64_t taken =
        std::uint64_t{set != nullptr ? set->NumDeltaPocs : 0} + slice.num_long_term_sps;
    return reference_pictures_range(sps, taken);
}

// The long-term pictures of slice_segment_header(), clause 7.3.6.1.
template <class Walker, class Slice, class Sps>
[[nodiscard]] bool slice_long_term_pics(Walker& walk, Slice& slice, const Sps& sps,
                                        unsigned char lsb_bits) {
    if (sps.num_long_term_ref_pics_sps > 0) {
        walk.ue(ELEMENT(slice, num_long_term_sps), up_to(sps.num_long_term_ref_pics_sps));
    }
    walk.ue(ELEMENT(slice, num_long_term_pics), long_term_pics_range(slice, sps));
    if (!walk.at_most(ELEMENT(slice, num_long_term_sps), walk.rules.max_long_term_sps(sps)) ||
        !walk.at_most(ELEMENT(slice, num_long_term_pics),
                      walk.rules.max_long_term_pics(slice.num_long_term_sps))) {
        return false;
    }
    const unsigned int entries = wrapping_sum(slice.num_long_term_sps, slice.num_long_term_pics);
    const bool goes_on = walk.rules.can_read_long_term_pics(sps);
    if (!goes_on && entries > largest_unbounded_array) {
        return false;
    }
    walk.grow_or_throw(entries, slice.lt_idx_sps, slice.poc_lsb_lt, slice.used_by_curr_pic_lt_flag,
                       slice.delta_poc_msb_present_flag, slice.delta_poc_msb_cycle_lt);
    if (entries != 0) {
        walk.assign(slice.lt_idx_sps[0], 0);
        walk.assign(slice.poc_lsb_lt[0], 0);
        walk.clear(slice.used_by_curr_pic_lt_flag[0]);
        walk.clear(slice.delta_poc_msb_present_flag[0]);
        walk.assign(slice.delta_poc_msb_cycle_lt[0], 0);
    }
    if (!goes_on) {
        return false;
    }
    for (unsigned int i = 0; i < entries; ++i) {
        if (i < slice.num_long_term_sps) {
            if (sps.num_long_term_ref_pics_sps > 1) {
                walk.u_v(walk.rules.index_width(sps.num_long_term_ref_pics_sps),
                         ELEMENT(slice, lt_idx_sps)[i],
                         up_to(std::int64_t{sps.num_long_term_ref_pics_sps} - 1));
            }
            if (!walk.rules.take_candidate(walk, slice, sps, i)) {
                return false;
            }
        } else {
            walk.u_v(lsb_bits, ELEMENT(slice, poc_lsb_lt)[i]);
            walk.u(1, ELEMENT(slice, used_by_curr_pic_lt_flag)[i]);
        }
        walk.u(1, ELEMENT(slice, delta_poc_msb_present_flag)[i]);
        if (slice.delta_poc_msb_present_flag[i]) {
            walk.ue(ELEMENT(slice, delta_poc_msb_cycle_lt)[i]);
        }
    }
    return true;
}

// What slice_segment_header() has of reference pictures unless the picture is IDR, clause 7.3.6.1.
template <class Walker, class Slice, class Sps>
[[nodiscard]] bool slice_ref_pic_sets(Walker& walk, Slice& slice, const Sps& sps) {
    const auto lsb_bits = static_cast<unsigned char>(sps.log2_max_pic_order_cnt_lsb_minus4 + 4);
    walk.u_v(lsb_bits, ELEMENT(slice, slice_pic_order_cnt_lsb));
    walk.u(1, ELEMENT(slice, short_term_ref_pic_set_sps_flag),
           up_to(sps.num_short_term_ref_pic_sets != 0 ? 1 : 0));
    if (!slice.short_term_ref_pic_set_sps_flag) {
        if (!walk.structure(ELEMENT(slice, st_ref_pic_set), [&](auto& set) {
                return st_ref_pic_set(walk, set, sps, sps.num_short_term_ref_pic_sets,
                                      sps.st_ref_pic_set);
            })) {
            return false;
        }
    } else {
        walk.rules.end_absent_structure(slice.st_ref_pic_set);
        if (sps.num_short_term_ref_pic_sets > 1) {
            walk.u_v(walk.rules.index_width(sps.num_short_term_ref_pic_sets),
                     ELEMENT(slice, short_term_ref_pic_set_idx),
                     up_to(std::int64_t{sps.num_short_term_ref_pic_sets} - 1));
        }
        if (!walk.rules.has_set(sps, slice.short_term_ref_pic_set_idx)) {
            return false;
        }
        walk.assign(slice.CurrRpsIdx, slice.short_term_ref_pic_set_idx);
    }
    if (sps.long_term_ref_pics_present_flag && !slice_long_term_pics(walk, slice, sps, lsb_bits)) {
        return false;
    }
    if (walk.rules.has_temporal_mvp_flag(sps)) {
        walk.u(1, ELEMENT(slice, slice_temporal_mvp_enabled_flag));
    }
    return true;
}

// The pictures of one direction of a short-term set that the current picture may use. The counts of
// a set whose parse failed can be larger than its arrays.
inline unsigned int count_used_pics(unsigned int num_pics,
                                    const std::vector<bool>& used_by_curr_pic) {
    const auto end = used_by_curr_pic.begin() + static_cast<std::ptrdiff_t>(std::min<std::size_t>(
                                                    num_pics, used_by_curr_pic.size()));
    return static_cast<unsigned int>(std::count(used_by_curr_pic.begin(), end, true));
}

template <class Set>
[[nodiscard]] unsigned int count_short_term_pics(const Set& set) {
    return count_used_pics(set.num_negative_pics, set.used_by_curr_pic_s0_flag) +
           count_used_pics(set.num_positive_pics, set.used_by_curr_pic_s1_flag);
}

// NumPicTotalCurr, equation 7-55.
template <class Walker, class Slice, class Pps, class Sps>
[[nodiscard]] unsigned int num_pic_total_curr(Walker& walk, const Slice& slice, const Pps& pps,
                                              const Sps& sps) {
    const auto* const set = short_term_set(slice, sps);
    return walk.rules.count_long_term_pics(slice, sps) +
           (set != nullptr ? count_short_term_pics(*set) : 0) +
           (walk.rules.counts_current_picture(pps) ? 1 : 0);
}

// What slice_segment_header() has of the lists of reference pictures in P and B slices, clause
// 7.3.6.1.
template <class Walker, class Slice, class Pps, class Sps>
[[nodiscard]] bool slice_ref_pic_lists(Walker& walk, Slice& slice, const Pps& pps, const Sps& sps) {
    walk.u(1, ELEMENT(slice, num_ref_idx_active_override_flag));
    if (slice.num_ref_idx_active_override_flag) {
        walk.ue(ELEMENT(slice, num_ref_idx_l0_active_minus1), up_to(14));
        if (slice.slice_type == slice_type_b) {
            walk.ue(ELEMENT(slice, num_ref_idx_l1_active_minus1), up_to(14));
        }
    }
    if (!can_have_references(walk, slice)) {
        return false;
    }
    walk.assign(slice.NumPicTotalCurr, num_pic_total_curr(walk, slice, pps, sps));
    return !pps.lists_modification_present_flag || slice.NumPicTotalCurr <= 1 ||
           walk.structure(ELEMENT(slice, ref_pic_lists_modification), [&](auto& lists) {
               return ref_pic_lists_modification(walk, lists, slice);
           });
}

// The rest of what P and B slices have of their own, clause 7.3.6.1.
template <class Walker, class Slice, class Pps, class Sps>
void slice_inter_prediction(Walker& walk, Slice& slice, const Pps& pps, const Sps& sps) {
    const bool is_b = slice.slice_type == slice_type_b;
    if (is_b) {
        walk.u(1, ELEMENT(slice, mvd_l1_zero_flag));
    }
    if (pps.cabac_init_present_flag) {
        walk.u(1, ELEMENT(slice, cabac_init_flag));
    }
    if (slice.slice_temporal_mvp_enabled_flag) {
        if (is_b) {
            walk.u(1, ELEMENT(slice, collocated_from_l0_flag));
        }
        const unsigned int last_entry = slice.collocated_from_l0_flag
                                            ? slice.num_ref_idx_l0_active_minus1
                                            : slice.num_ref_idx_l1_active_minus1;
        if (last_entry > 0) {
            walk.ue(ELEMENT(slice, collocated_ref_idx), up_to(last_entry));
        }
    }
    if (is_b ? pps.weighted_bipred_flag : pps.weighted_pred_flag) {
        static_cast<void>(walk.structure(ELEMENT(slice, pred_weight_table), [&](auto& table) {
            pred_weight_table(walk, table, slice, pps, sps);
            return true;
        }));
    }
    walk.ue(ELEMENT(slice, five_minus_max_num_merge_cand), up_to(4));
    constexpr unsigned int by_slice = 2;
    const unsigned int resolution = sps.sps_scc_extension.motion_vector_resolution_control_idc;
    if (resolution == by_slice) {
        walk.u(1, ELEMENT(slice, use_integer_mv_flag));
    } else {
        walk.assign(slice.use_integer_mv_flag, resolution != 0);
    }
}

// Quantization and loop filters, clause 7.3.6.1.
template <class Walker, class Slice, class Pps, class Sps>
[[gnu::always_inline]] inline void slice_quantization_and_filters(Walker& walk, Slice& slice,
                                                                  const Pps& pps, const Sps& sps) {
    walk.se(ELEMENT(slice, slice_qp_delta), slice_qp_delta_range(pps, sps));
    if (pps.pps_slice_chroma_qp_offsets_present_flag) {
        walk.se(ELEMENT(slice, slice_cb_qp_offset), slice_offset_range(pps.pps_cb_qp_offset, 0));
        walk.se(ELEMENT(slice, slice_cr_qp_offset), slice_offset_range(pps.pps_cr_qp_offset, 0));
    }
    const auto& scc = pps.pps_scc_extension;
    if (scc.pps_slice_act_qp_offsets_present_flag) {
        walk.se(ELEMENT(slice, slice_act_y_qp_offset),
                slice_offset_range(scc.pps_act_y_qp_offset_plus5, 5));
        walk.se(ELEMENT(slice, slice_act_cb_qp_offset),
                slice_offset_range(scc.pps_act_cb_qp_offset_plus5, 5));
        walk.se(ELEMENT(slice, slice_act_cr_qp_offset),
                slice_offset_range(scc.pps_act_cr_qp_offset_plus3, 3));
    }
    if (pps.pps_range_extension.chroma_qp_offset_list_enabled_flag) {
        walk.u(1, ELEMENT(slice, cu_chroma_qp_offset_enabled_flag));
    }

    walk.assign(slice.slice_deblocking_filter_disabled_flag,
                pps.pps_deblocking_filter_disabled_flag);
    walk.assign(slice.slice_beta_offset_div2, pps.pps_beta_offset_div2);
    walk.assign(slice.slice_tc_offset_div2, pps.pps_tc_offset_div2);
    if (pps.deblocking_filter_override_enabled_flag) {
        walk.u(1, ELEMENT(slice, deblocking_filter_override_flag));
    }
    if (slice.deblocking_filter_override_flag) {
        walk.u(1, ELEMENT(slice, slice_deblocking_filter_disabled_flag));
        if (!slice.slice_deblocking_filter_disabled_flag) {
            walk.se(ELEMENT(slice, slice_beta_offset_div2), between(-6, 6));
            walk.se(ELEMENT(slice, slice_tc_offset_div2), between(-6, 6));
        }
    }
    walk.assign(slice.slice_loop_filter_across_slices_enabled_flag,
                pps.pps_loop_filter_across_slices_enabled_flag);
    if (pps.pps_loop_filter_across_slices_enabled_flag &&
        (slice.slice_sao_luma_flag || slice.slice_sao_chroma_flag ||
         !slice.slice_deblocking_filter_disabled_flag)) {
        walk.u(1, ELEMENT(slice, slice_loop_filter_across_slices_enabled_flag));
    }
}

// Entry points, extension and alignment, which dependent slice segments have as well, clause
// 7.3.6.1.
template <class Walker, class Slice, class Pps, class Sps>
[[nodiscard]] bool slice_segment_end(Walker& walk, Slice& slice, const Pps& pps, const Sps& sps) {
    unsigned int width = 0;  // of an entry point
    if (pps.tiles_enabled_flag || pps.entropy_coding_sync_enabled_flag) {
        const std::int64_t most = most_entry_points(pps, sps);
        walk.ue(ELEMENT(slice, num_entry_point_offsets), up_to(most));
        if (!walk.at_most(ELEMENT(slice, num_entry_point_offsets), most)) {
            return false;
        }
        if (slice.num_entry_point_offsets > 0) {
            walk.ue(ELEMENT(slice, offset_len_minus1), up_to(31));
            width = wrapping_sum(slice.offset_len_minus1, 1);
            if (!walk.at_most(ELEMENT(slice, offset_len_minus1), 31U) ||
                !walk.data_holds(ELEMENT(slice, num_entry_point_offsets),
                                 slice.num_entry_point_offsets, width)) {
                return false;
            }
        }
    }
    walk.grow_or_throw(slice.num_entry_point_offsets, slice.entry_point_offset_minus1);
    for (unsigned int i = 0; i < slice.num_entry_point_offsets; ++i) {
        walk.u_v(static_cast<unsigned char>(width), ELEMENT(slice, entry_point_offset_minus1)[i]);
    }
    if (pps.slice_segment_header_extension_present_flag) {
        walk.ue(ELEMENT(slice, slice_segment_header_extension_length), up_to(256));
        if (!walk.at_most(ELEMENT(slice, slice_segment_header_extension_length), 256U) ||
            !walk.data_holds(ELEMENT(slice, slice_segment_header_extension_length),
                             slice.slice_segment_header_extension_length, /*fewest_bits=*/8)) {
            return false;
        }
        walk.grow_or_throw(slice.slice_segment_header_extension_length,
                           slice.slice_segment_header_extension_data_byte);
        for (unsigned int i = 0; i < slice.slice_segment_header_extension_length; ++i) {
            walk.u(8, ELEMENT(slice, slice_segment_header_extension_data_byte)[i]);
        }
    }
    if (!walk.finish_aligned(slice.valid)) {
        return false;
    }
    walk.assign(slice.slice_data_begin, walk.byte_position());
    return true;
}

// slice_segment_header(), clause 7.3.6.1.
template <class Walker, class Slice, class PpsStore, class SpsStore, class VpsStore>
[[nodiscard]] bool slice_segment_header(Walker& walk, Slice& slice, PpsStore& pps_store,
                                        SpsStore& sps_store, VpsStore& vps_store,
                                        h265_nal_unit_type nal_unit_type) {
    walk.clear(slice.valid);

    walk.u(1, ELEMENT(slice, first_slice_segment_in_pic_flag));
    if (nal_unit_type >= BLA_W_LP && nal_unit_type <= RSV_IRAP_VCL23) {
        walk.u(1, ELEMENT(slice, no_output_of_prior_pics_flag));
    } else {
        walk.clear(slice.no_output_of_prior_pics_flag);
    }
    walk.ue(ELEMENT(slice, slice_pic_parameter_set_id), up_to(63));
    if (!walk.at_most(ELEMENT(slice, slice_pic_parameter_set_id), walk.rules.max_pps_id)) {
        return false;
    }
    const auto* const pps = find_entry(pps_store, slice.slice_pic_parameter_set_id);
    if (pps == nullptr) {
        return walk.missing("PPS", slice.slice_pic_parameter_set_id);
    }
    const auto* const sps = find_entry(sps_store, pps->pps_seq_parameter_set_id);
    if (sps == nullptr) {
        return walk.missing("SPS", pps->pps_seq_parameter_set_id);
    }
    if (find_entry(vps_store, sps->sps_video_parameter_set_id) == nullptr) {
        return walk.missing("VPS", sps->sps_video_parameter_set_id);
    }
    walk.assign(slice.NumPicTotalCurr, 0);
    walk.assign(slice.CurrRpsIdx, sps->num_short_term_ref_pic_sets);
    walk.assign(slice.num_ref_idx_l0_active_minus1, pps->num_ref_idx_l0_default_active_minus1);
    walk.assign(slice.num_ref_idx_l1_active_minus1, pps->num_ref_idx_l1_default_active_minus1);

    if (!slice.first_slice_segment_in_pic_flag) {
        if (pps->dependent_slice_segments_enabled_flag) {
            walk.u(1, ELEMENT(slice, dependent_slice_segment_flag));
        } else {
            walk.clear(slice.dependent_slice_segment_flag);
        }
        const unsigned int PicSizeInCtbsY = walk.rules.pic_size_in_ctbs(*sps);
        if (PicSizeInCtbsY == 0) {
            return false;
        }
        walk.u_v(walk.rules.index_width(PicSizeInCtbsY), ELEMENT(slice, slice_segment_address),
                 between(1, std::int64_t{PicSizeInCtbsY} - 1));
    }
    if (walk.rules.is_dependent(slice)) {
        walk.rules.end_absent_structure(slice.st_ref_pic_set);
        return walk.rules.stops_at_prediction ? walk.finish(slice.valid)
                                              : slice_segment_end(walk, slice, *pps, *sps);
    }

    for (unsigned int i = 0; i < pps->num_extra_slice_header_bits; ++i) {
        walk.skip(1, "slice_reserved_flag", i);
    }
    walk.ue(ELEMENT(slice, slice_type), up_to(2));
    if (!walk.rules.is_slice_type(slice.slice_type)) {
        return false;
    }
    if (pps->output_flag_present_flag) {
        walk.u(1, ELEMENT(slice, pic_output_flag));
    } else {
        walk.set(slice.pic_output_flag);
    }
    if (sps->separate_colour_plane_flag) {
        walk.u(2, ELEMENT(slice, colour_plane_id), up_to(2));
    }
    if (nal_unit_type == IDR_W_RADL || nal_unit_type == IDR_N_LP) {
        walk.rules.end_absent_structure(slice.st_ref_pic_set);
    } else if (!slice_ref_pic_sets(walk, slice, *sps)) {
        return false;
    }

    if (sps->sample_adaptive_offset_enabled_flag) {
        walk.u(1, ELEMENT(slice, slice_sao_luma_flag));
        if (!sps->separate_colour_plane_flag && sps->chroma_format_idc != 0) {
            walk.u(1, ELEMENT(slice, slice_sao_chroma_flag));
        }
    }
    const bool is_inter = slice.slice_type <= slice_type_p;
    if (is_inter && !slice_ref_pic_lists(walk, slice, *pps, *sps)) {
        return false;
    }
    if (walk.rules.stops_at_prediction) {
        return walk.finish(slice.valid);
    }
    walk.set(slice.collocated_from_l0_flag);
    if (is_inter) {
        slice_inter_prediction(walk, slice, *pps, *sps);
    }
    slice_quantization_and_filters(walk, slice, *pps, *sps);
    return slice_segment_end(walk, slice, *pps, *sps);
}

}  // namespace kovran

#endif  // KOVRAN_SRC_H265_H265_SLICE_SEGMENT_HEADER_SYNTAX_H
