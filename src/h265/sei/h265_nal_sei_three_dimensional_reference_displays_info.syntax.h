#ifndef KOVRAN_SRC_H265_SEI_H265_NAL_SEI_THREE_DIMENSIONAL_REFERENCE_DISPLAYS_INFO_SYNTAX_H
#define KOVRAN_SRC_H265_SEI_H265_NAL_SEI_THREE_DIMENSIONAL_REFERENCE_DISPLAYS_INFO_SYNTAX_H

#include <kovran/h265/sei/h265_nal_sei_three_dimensional_reference_displays_info.h>

#include "h2645_common/element.h"
#include "h2645_common/value_range.h"
#include "h265/sei/h265_float_value.syntax.h"
#include "h265/sei/in_entry.h"
#include "h265/sei/sei_context.h"
#include "h265/start_afresh.h"

namespace kovran {

inline void start_afresh(h265_nal_sei_three_dimensional_reference_displays_info& record) {
    auto& [prec_ref_display_width, ref_viewing_distance_flag, prec_ref_viewing_dist,
           num_ref_displays_minus1, reference_displays,
           three_dimensional_reference_displays_extension_flag, valid] = record;
    start_all_afresh(prec_ref_display_width, ref_viewing_distance_flag, prec_ref_viewing_dist,
                     num_ref_displays_minus1, reference_displays,
                     three_dimensional_reference_displays_extension_flag, valid);
}

template <class Walker>
void reference_display(Walker& walk, h265_nal_sei_three_dimensional_reference_displays_info& info,
                       unsigned int i) {
    auto& display = info.reference_displays[i];
    walk.ue(in_entry(i, ELEMENT(display, left_view_id)));
    walk.ue(in_entry(i, ELEMENT(display, right_view_id)));
    float_of_precision(walk, display.ref_display_width, info.prec_ref_display_width,
                       "exponent_ref_display_width", "mantissa_ref_display_width", {{i}, 1});
    if (info.ref_viewing_distance_flag) {
        float_of_precision(walk, display.ref_viewing_distance, info.prec_ref_viewing_dist,
                           "exponent_ref_viewing_distance", "mantissa_ref_viewing_distance",
                           {{i}, 1});
    }
    walk.u(1, in_entry(i, ELEMENT(display, additional_shift_present_flag)));
    if (display.additional_shift_present_flag) {
        walk.u(10, in_entry(i, ELEMENT(display, num_sample_shift_plus512)));
    }
}

// three_dimensional_reference_displays_info(), clause G.14.2.
template <class Walker>
[[nodiscard]] bool payload_syntax(Walker& walk,
                                  h265_nal_sei_three_dimensional_reference_displays_info& info,
                                  const sei_context& /*context*/) {
    walk.ue(ELEMENT(info, prec_ref_display_width), up_to(highest_float_precision));
    if (!walk.at_most(ELEMENT(info, prec_ref_display_width), highest_float_precision)) {
        return false;
    }
    walk.u(1, ELEMENT(info, ref_viewing_distance_flag));
    if (info.ref_viewing_distance_flag) {
        walk.ue(ELEMENT(info, prec_ref_viewing_dist), up_to(highest_float_precision));
        if (!walk.at_most(ELEMENT(info, prec_ref_viewing_dist), highest_float_precision)) {
            return false;
        }
    }
    walk.ue(ELEMENT(info, num_ref_displays_minus1), up_to(31));
    if (!walk.at_most(ELEMENT(info, num_ref_displays_minus1), 31U) ||
        !walk.data_holds(ELEMENT(info, num_ref_displays_minus1), info.num_ref_displays_minus1 + 1,
                         /*fewest_bits=*/info.ref_viewing_distance_flag ? 15 : 9) ||
        !walk.grow(info.num_ref_displays_minus1 + 1, info.reference_displays)) {
        return false;
    }
    for (unsigned int i = 0; i <= info.num_ref_displays_minus1; ++i) {
        reference_display(walk, info, i);
    }
    walk.u(1, ELEMENT(info, three_dimensional_reference_displays_extension_flag));
    return walk.finish(info.valid);
}

}  // namespace kovran

#endif  // KOVRAN_SRC_H265_SEI_H265_NAL_SEI_THREE_DIMENSIONAL_REFERENCE_DISPLAYS_INFO_SYNTAX_H
