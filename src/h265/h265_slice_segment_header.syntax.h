#ifndef KOVRAN_SRC_H265_H265_SLICE_SEGMENT_HEADER_SYNTAX_H
#define KOVRAN_SRC_H265_H265_SLICE_SEGMENT_HEADER_SYNTAX_H

#include <kovran/h265/h265_nal.h>

#include "h2645_common/element.h"
#include "h2645_common/resize.h"
#include "h2645_common/store_lookup.h"
#include "h2645_common/value_range.h"
#include "h2645_common/wrapping.h"
#include "h265/h265_ref_pic_lists_modification.syntax.h"
#include "h265/h265_st_ref_pic_set.syntax.h"
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
template <class Walker, class Slice, class Sps>
[[nodiscard]] unsigned int num_pic_total_curr(Walker& walk, const Slice& slice, const Sps& sps) {
    const auto* const set = short_term_set(slice, sps);
    return walk.rules.count_long_term_pics(slice, sps) +
           (set != nullptr ? count_short_term_pics(*set) : 0);
}

// slice_segment_header(), clause 7.3.6.1, up to ref_pic_lists_modification().
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
        return walk.finish(slice.valid);
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
    if (slice.slice_type > slice_type_p) {
        return walk.finish(slice.valid);
    }

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
    walk.assign(slice.NumPicTotalCurr, num_pic_total_curr(walk, slice, *sps));
    if (!walk.rules.can_count_pictures(slice, *pps, *sps)) {
        return false;
    }
    if (pps->lists_modification_present_flag && slice.NumPicTotalCurr > 1 &&
        !walk.structure(ELEMENT(slice, ref_pic_lists_modification), [&](auto& lists) {
            return ref_pic_lists_modification(walk, lists, slice);
        })) {
        return false;
    }
    return walk.finish(slice.valid);
}

}  // namespace kovran

#endif  // KOVRAN_SRC_H265_H265_SLICE_SEGMENT_HEADER_SYNTAX_H
