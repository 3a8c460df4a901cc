#ifndef KOVRAN_SRC_H265_H265_ST_REF_PIC_SET_SYNTAX_H
#define KOVRAN_SRC_H265_H265_ST_REF_PIC_SET_SYNTAX_H

#include "h2645_common/element.h"
#include "h2645_common/value_range.h"
#include "h2645_common/wrapping.h"
#include "h265/derived_pictures.h"
#include "h265/sps_ranges.h"

#include <cstdint>

namespace kovran {

// The part of st_ref_pic_set() that predicts one set from another, clause 7.3.7.
template <class Walker, class Set, class Sps, class Sets>
[[nodiscard]] bool predicted_st_ref_pic_set(Walker& walk, Set& set, const Sps& sps,
                                            unsigned int stRpsIdx, const Sets& sets) {
    if (stRpsIdx == sps.num_short_term_ref_pic_sets) {
        walk.ue(ELEMENT(set, delta_idx_minus1), up_to(std::int64_t{stRpsIdx} - 1));
    } else {
        walk.assign(set.delta_idx_minus1, 0);
    }
    walk.u(1, ELEMENT(set, delta_rps_sign));
    walk.ue(ELEMENT(set, abs_delta_rps_minus1), up_to(farthest_picture - 1));
    walk.assign(set.RefRpsIdx, wrapping_difference(stRpsIdx - 1, set.delta_idx_minus1));
    const unsigned int absDeltaRps = set.abs_delta_rps_minus1 + 1;
    walk.assign(set.deltaRps,
                set.delta_rps_sign ? wrapping_difference(0, absDeltaRps) : absDeltaRps);
    if (!walk.at_most(ELEMENT(set, delta_idx_minus1), stRpsIdx - 1) ||
        set.RefRpsIdx >= sets.size()) {
        return false;
    }

    walk.assign(set.num_negative_pics, 0);
    walk.assign(set.num_positive_pics, 0);
    // Copied, as the reference may be this record, or move when it grows.
    const auto& reference = sets[set.RefRpsIdx];
    typename Walker::rules_type::reference_pictures pictures;
    const unsigned int reference_pics = reference.NumDeltaPocs;
    const unsigned int reference_counts =
        wrapping_sum(reference.num_negative_pics, reference.num_positive_pics);
    walk.assign(set.NumDeltaPocs, reference_pics);
    if (reference_pics < reference_counts ||
        !walk.at_most(named("NumDeltaPocs", reference_pics),
                      walk.rules.max_pics_in_reference_set) ||
        !walk.rules.take_reference(reference, pictures) ||
        !walk.grow(reference_pics + 1, set.use_delta_flag, set.used_by_curr_pic_flag)) {
        return false;
    }
    for (unsigned int j = 0; j <= reference_pics; ++j) {
        walk.u(1, ELEMENT(set, used_by_curr_pic_flag)[j]);
        if (set.used_by_curr_pic_flag[j]) {
            walk.set(set.use_delta_flag[j]);
        } else {
            walk.u(1, ELEMENT(set, use_delta_flag)[j]);
        }
    }
    return walk.rules.end_predicted_set(walk, set, pictures);
}

// st_ref_pic_set( stRpsIdx ), clause 7.3.7.
template <class Walker, class Set, class Sps, class Sets>
[[nodiscard]] bool st_ref_pic_set(Walker& walk, Set& set, const Sps& sps, unsigned int stRpsIdx,
                                  const Sets& sets) {
    walk.assign(set.stRpsIdx, stRpsIdx);
    walk.assign(set.RefRpsIdx, stRpsIdx);
    walk.assign(set.NumDeltaPocs, 0);
    walk.clear(set.valid);

    if (stRpsIdx == 0) {
        walk.clear(set.inter_ref_pic_set_prediction_flag);
    } else {
        walk.u(1, ELEMENT(set, inter_ref_pic_set_prediction_flag));
    }
    if (set.inter_ref_pic_set_prediction_flag) {
        if (!predicted_st_ref_pic_set(walk, set, sps, stRpsIdx, sets)) {
            return false;
        }
        return walk.finish(set.valid);
    }

    walk.rules.end_absent_prediction(set);
    walk.ue(ELEMENT(set, num_negative_pics), reference_pictures_range(sps));
    walk.ue(ELEMENT(set, num_positive_pics), reference_pictures_range(sps, set.num_negative_pics));
    if (!walk.at_most(ELEMENT(set, num_negative_pics), walk.rules.max_pics_in_one_direction) ||
        !walk.at_most(ELEMENT(set, num_positive_pics),
                      walk.rules.max_positive_pics(set.num_negative_pics)) ||
        !walk.grow(set.num_negative_pics, set.delta_poc_s0_minus1, set.used_by_curr_pic_s0_flag)) {
        return false;
    }
    for (unsigned int i = 0; i < set.num_negative_pics; ++i) {
        walk.ue(ELEMENT(set, delta_poc_s0_minus1)[i], up_to(farthest_picture - 1));
        walk.u(1, ELEMENT(set, used_by_curr_pic_s0_flag)[i]);
    }
    if (!walk.at_most(ELEMENT(set, num_positive_pics), walk.rules.max_pics_in_one_direction) ||
        !walk.grow(set.num_positive_pics, set.delta_poc_s1_minus1, set.used_by_curr_pic_s1_flag)) {
        return false;
    }
    for (unsigned int i = 0; i < set.num_positive_pics; ++i) {
        walk.ue(ELEMENT(set, delta_poc_s1_minus1)[i], up_to(farthest_picture - 1));
        walk.u(1, ELEMENT(set, used_by_curr_pic_s1_flag)[i]);
    }
    walk.assign(set.NumDeltaPocs, set.num_negative_pics + set.num_positive_pics);
    return walk.finish(set.valid);
}

}  // namespace kovran

#endif  // KOVRAN_SRC_H265_H265_ST_REF_PIC_SET_SYNTAX_H
