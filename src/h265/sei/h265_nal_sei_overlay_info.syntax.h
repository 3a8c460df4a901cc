#ifndef KOVRAN_SRC_H265_SEI_H265_NAL_SEI_OVERLAY_INFO_SYNTAX_H
#define KOVRAN_SRC_H265_SEI_H265_NAL_SEI_OVERLAY_INFO_SYNTAX_H

#include <kovran/h265/sei/h265_nal_sei_overlay_info.h>

#include "h2645_common/element.h"
#include "h2645_common/value_range.h"
#include "h265/sei/in_entry.h"
#include "h265/sei/sei_context.h"
#include "h265/start_afresh.h"

#include <cstddef>

namespace kovran {

inline void start_afresh(h265_nal_sei_overlay_info& record) {
    auto& [overlay_info_cancel_flag, overlay_content_aux_id_minus128, overlay_label_aux_id_minus128,
           overlay_alpha_aux_id_minus128, overlay_element_label_value_length_minus8,
           num_overlays_minus1, overlays, overlay_info_persistence_flag, valid] = record;
    start_all_afresh(overlay_info_cancel_flag, overlay_content_aux_id_minus128,
                     overlay_label_aux_id_minus128, overlay_alpha_aux_id_minus128,
                     overlay_element_label_value_length_minus8, num_overlays_minus1,
                     overlay_info_persistence_flag, valid);
    overlays.clear();
}

template <class Walker, class Overlay>
[[nodiscard]] bool overlay_labels(Walker& walk, Overlay& overlay, std::size_t i,
                                  unsigned char label_width) {
    walk.ue(in_entry(i, ELEMENT(overlay, num_overlay_elements_minus1)));
    const std::size_t elements = std::size_t{overlay.num_overlay_elements_minus1} + 1;
    if (!walk.data_holds(in_entry(i, ELEMENT(overlay, num_overlay_elements_minus1)), elements,
                         /*fewest_bits=*/2U * label_width + 8) ||
        !walk.grow(elements, overlay.overlay_element_label_min, overlay.overlay_element_label_max,
                   overlay.overlay_element_name)) {
        return false;
    }
    for (std::size_t j = 0; j < elements; ++j) {
        walk.u_v(label_width, in_entry(i, ELEMENT(overlay, overlay_element_label_min))[j]);
        walk.u_v(label_width, in_entry(i, ELEMENT(overlay, overlay_element_label_max))[j]);
    }
    return true;
}

template <class Walker, class Overlay>
[[nodiscard]] bool overlay_layers(Walker& walk, Overlay& overlay, std::size_t i,
                                  unsigned char label_width) {
    walk.ue(in_entry(i, ELEMENT(overlay, overlay_idx)));
    walk.u(1, in_entry(i, ELEMENT(overlay, language_overlay_present_flag)));
    walk.u(6, in_entry(i, ELEMENT(overlay, overlay_content_layer_id)));
    walk.u(1, in_entry(i, ELEMENT(overlay, overlay_label_present_flag)));
    if (overlay.overlay_label_present_flag) {
        walk.u(6, in_entry(i, ELEMENT(overlay, overlay_label_layer_id)));
    }
    walk.u(1, in_entry(i, ELEMENT(overlay, overlay_alpha_present_flag)));
    if (overlay.overlay_alpha_present_flag) {
        walk.u(6, in_entry(i, ELEMENT(overlay, overlay_alpha_layer_id)));
    }
    return !overlay.overlay_label_present_flag || overlay_labels(walk, overlay, i, label_width);
}

template <class Walker, class Overlay>
[[nodiscard]] bool overlay_names(Walker& walk, Overlay& overlay, std::size_t i) {
    if (overlay.language_overlay_present_flag &&
        !walk.st(in_entry(i, ELEMENT(overlay, overlay_language)))) {
        return false;
    }
    if (!walk.st(in_entry(i, ELEMENT(overlay, overlay_name)))) {
        return false;
    }
    for (std::size_t j = 0; j < overlay.overlay_element_name.size(); ++j) {
        if (!walk.st(in_entry(i, ELEMENT(overlay, overlay_element_name))[j])) {
            return false;
        }
    }
    return true;
}

// overlay_info(), clause F.14.2.
template <class Walker>
[[nodiscard]] bool payload_syntax(Walker& walk, h265_nal_sei_overlay_info& info,
                                  const sei_context& /*context*/) {
    walk.u(1, ELEMENT(info, overlay_info_cancel_flag));
    if (info.overlay_info_cancel_flag) {
        return walk.finish(info.valid);
    }
    walk.ue(ELEMENT(info, overlay_content_aux_id_minus128));
    walk.ue(ELEMENT(info, overlay_label_aux_id_minus128));
    walk.ue(ELEMENT(info, overlay_alpha_aux_id_minus128));
    walk.ue(ELEMENT(info, overlay_element_label_value_length_minus8));
    constexpr unsigned int widest_minus8 = 32 - 8;  // what a field holds
    if (!walk.at_most(ELEMENT(info, overlay_element_label_value_length_minus8), widest_minus8)) {
        return false;
    }
    const auto label_width =
        static_cast<unsigned char>(info.overlay_element_label_value_length_minus8 + 8);
    walk.ue(ELEMENT(info, num_overlays_minus1), up_to(15));
    if (!walk.at_most(ELEMENT(info, num_overlays_minus1), 15U) ||
        !walk.grow(info.num_overlays_minus1 + 1, info.overlays)) {
        return false;
    }
    for (std::size_t i = 0; i <= info.num_overlays_minus1; ++i) {
        if (!overlay_layers(walk, info.overlays[i], i, label_width)) {
            return false;
        }
    }
    walk.align("overlay_zero_bit", 0);
    for (std::size_t i = 0; i <= info.num_overlays_minus1; ++i) {
        if (!overlay_names(walk, info.overlays[i], i)) {
            return false;
        }
    }
    walk.u(1, ELEMENT(info, overlay_info_persistence_flag));
    return walk.finish(info.valid);
}

}  // namespace kovran

#endif  // KOVRAN_SRC_H265_SEI_H265_NAL_SEI_OVERLAY_INFO_SYNTAX_H
