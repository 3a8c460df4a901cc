#ifndef KOVRAN_SRC_H265_SEI_H265_NAL_SEI_ANNOTATED_REGIONS_SYNTAX_H
#define KOVRAN_SRC_H265_SEI_H265_NAL_SEI_ANNOTATED_REGIONS_SYNTAX_H

#include <kovran/h265/sei/h265_nal_sei_annotated_regions.h>

#include "h2645_common/element.h"
#include "h2645_common/value_range.h"
#include "h265/sei/in_entry.h"
#include "h265/sei/sei_context.h"
#include "h265/start_afresh.h"

namespace kovran {

inline void start_afresh(h265_nal_sei_annotated_regions& record) {
    auto& [ar_cancel_flag, ar_not_optimized_for_viewing_flag, ar_true_motion_flag,
           ar_occluded_object_flag, ar_partial_object_flag_present_flag,
           ar_object_label_present_flag, ar_object_confidence_info_present_flag,
           ar_object_confidence_length_minus1, ar_object_label_language_present_flag,
           ar_object_label_language, ar_num_label_updates, label_updates, ar_num_object_updates,
           object_updates, valid] = record;
    start_all_afresh(ar_cancel_flag, ar_not_optimized_for_viewing_flag, ar_true_motion_flag,
                     ar_occluded_object_flag, ar_partial_object_flag_present_flag,
                     ar_object_label_present_flag, ar_object_confidence_info_present_flag,
                     ar_object_confidence_length_minus1, ar_object_label_language_present_flag,
                     ar_object_label_language, ar_num_label_updates, ar_num_object_updates,
                     object_updates, valid);
    label_updates.clear();
}

template <class Walker>
[[nodiscard]] bool region_label_update(Walker& walk,
                                       h265_nal_sei_annotated_regions::label_update_t& update,
                                       unsigned int i) {
    walk.ue(in_entry(i, ELEMENT(update, ar_label_idx)), up_to(255));
    walk.u(1, ELEMENT(update, ar_label_cancel_flag));
    if (update.ar_label_cancel_flag) {
        return true;
    }
    walk.align("ar_bit_equal_to_zero", 0);
    return walk.st(in_entry(update.ar_label_idx, ELEMENT(update, ar_label)));
}

template <class Walker>
[[nodiscard]] bool region_labels(Walker& walk, h265_nal_sei_annotated_regions& regions) {
    walk.u(1, ELEMENT(regions, ar_object_label_language_present_flag));
    if (regions.ar_object_label_language_present_flag) {
        walk.align("ar_bit_equal_to_zero", 0);
        if (!walk.st(ELEMENT(regions, ar_object_label_language))) {
            return false;
        }
    }
    walk.ue(ELEMENT(regions, ar_num_label_updates), up_to(255));
    if (!walk.at_most(ELEMENT(regions, ar_num_label_updates), 255U) ||
        !walk.data_holds(ELEMENT(regions, ar_num_label_updates), regions.ar_num_label_updates,
                         /*fewest_bits=*/2) ||
        !walk.grow(regions.ar_num_label_updates, regions.label_updates)) {
        return false;
    }
    for (unsigned int i = 0; i < regions.ar_num_label_updates; ++i) {
        if (!region_label_update(walk, regions.label_updates[i], i)) {
            return false;
        }
    }
    return true;
}

template <class Walker>
void region_bounding_box(Walker& walk, const h265_nal_sei_annotated_regions& regions,
                         h265_nal_sei_annotated_regions::object_update_t& update) {
    const unsigned int object = update.ar_object_idx;
    walk.u(16, in_entry(object, ELEMENT(update, ar_bounding_box_top)));
    walk.u(16, in_entry(object, ELEMENT(update, ar_bounding_box_left)));
    walk.u(16, in_entry(object, ELEMENT(update, ar_bounding_box_width)));
    walk.u(16, in_entry(object, ELEMENT(update, ar_bounding_box_height)));
    if (regions.ar_partial_object_flag_present_flag) {
        walk.u(1, in_entry(object, ELEMENT(update, ar_partial_object_flag)));
    }
    if (regions.ar_object_confidence_info_present_flag) {
        walk.u_v(static_cast<unsigned char>(regions.ar_object_confidence_length_minus1 + 1),
                 in_entry(object, ELEMENT(update, ar_object_confidence)));
    }
}

template <class Walker>
void region_object_update(Walker& walk, const h265_nal_sei_annotated_regions& regions,
                          h265_nal_sei_annotated_regions::object_update_t& update, unsigned int i) {
    walk.ue(in_entry(i, ELEMENT(update, ar_object_idx)), up_to(255));
    walk.u(1, ELEMENT(update, ar_object_cancel_flag));
    if (update.ar_object_cancel_flag) {
        return;
    }
    if (regions.ar_object_label_present_flag) {
        walk.u(1, ELEMENT(update, ar_object_label_update_flag));
        if (update.ar_object_label_update_flag) {
            walk.ue(in_entry(update.ar_object_idx, ELEMENT(update, ar_object_label_idx)),
                    up_to(255));
        }
    }
    walk.u(1, ELEMENT(update, ar_bounding_box_update_flag));
    if (update.ar_bounding_box_update_flag) {
        walk.u(1, ELEMENT(update, ar_bounding_box_cancel_flag));
        if (!update.ar_bounding_box_cancel_flag) {
            region_bounding_box(walk, regions, update);
        }
    }
}

// annotated_regions(), clause D.2.47. Elements of an object, and texts, have the index that the
// stream gives them.
template <class Walker>
[[nodiscard]] bool payload_syntax(Walker& walk, h265_nal_sei_annotated_regions& regions,
                                  const sei_context& /*context*/) {
    walk.u(1, ELEMENT(regions, ar_cancel_flag));
    if (regions.ar_cancel_flag) {
        return walk.finish(regions.valid);
    }
    walk.u(1, ELEMENT(regions, ar_not_optimized_for_viewing_flag));
    walk.u(1, ELEMENT(regions, ar_true_motion_flag));
    walk.u(1, ELEMENT(regions, ar_occluded_object_flag));
    walk.u(1, ELEMENT(regions, ar_partial_object_flag_present_flag));
    walk.u(1, ELEMENT(regions, ar_object_label_present_flag));
    walk.u(1, ELEMENT(regions, ar_object_confidence_info_present_flag));
    if (regions.ar_object_confidence_info_present_flag) {
        walk.u(4, ELEMENT(regions, ar_object_confidence_length_minus1));
    }
    if (regions.ar_object_label_present_flag && !region_labels(walk, regions)) {
        return false;
    }
    walk.ue(ELEMENT(regions, ar_num_object_updates), up_to(255));
    if (!walk.at_most(ELEMENT(regions, ar_num_object_updates), 255U) ||
        !walk.data_holds(ELEMENT(regions, ar_num_object_updates), regions.ar_num_object_updates,
                         /*fewest_bits=*/2) ||
        !walk.grow(regions.ar_num_object_updates, regions.object_updates)) {
        return false;
    }
    for (unsigned int i = 0; i < regions.ar_num_object_updates; ++i) {
        region_object_update(walk, regions, regions.object_updates[i], i);
    }
    return walk.finish(regions.valid);
}

}  // namespace kovran

#endif  // KOVRAN_SRC_H265_SEI_H265_NAL_SEI_ANNOTATED_REGIONS_SYNTAX_H
