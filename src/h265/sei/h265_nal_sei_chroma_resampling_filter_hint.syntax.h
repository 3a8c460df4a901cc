#ifndef KOVRAN_SRC_H265_SEI_H265_NAL_SEI_CHROMA_RESAMPLING_FILTER_HINT_SYNTAX_H
#define KOVRAN_SRC_H265_SEI_H265_NAL_SEI_CHROMA_RESAMPLING_FILTER_HINT_SYNTAX_H

#include <kovran/h265/sei/h265_nal_sei_chroma_resampling_filter_hint.h>

#include "h2645_common/element.h"
#include "h265/sei/in_entry.h"
#include "h265/sei/sei_context.h"
#include "h265/start_afresh.h"

#include <cstddef>
#include <vector>

namespace kovran {

inline void start_afresh(h265_nal_sei_chroma_resampling_filter_hint& record) {
    auto& [ver_chroma_filter_idc, hor_chroma_filter_idc, ver_filtering_field_processing_flag,
           target_format_idc, num_vertical_filters, vertical_filters, num_horizontal_filters,
           horizontal_filters, valid] = record;
    start_all_afresh(ver_chroma_filter_idc, hor_chroma_filter_idc,
                     ver_filtering_field_processing_flag, target_format_idc, num_vertical_filters,
                     num_horizontal_filters, valid);
    vertical_filters.clear();
    horizontal_filters.clear();
}

template <class Walker>
[[nodiscard]] bool chroma_resampling_filter(Walker& walk,
                                            indexed_element<unsigned int&> tap_length_minus1,
                                            indexed_element<std::vector<int>&> coeff) {
    walk.ue(tap_length_minus1);
    const std::size_t taps = std::size_t{tap_length_minus1.field} + 1;
    if (!walk.data_holds(tap_length_minus1, taps, /*fewest_bits=*/1) ||
        !walk.grow(taps, coeff.field)) {
        return false;
    }
    for (std::size_t j = 0; j < taps; ++j) {
        walk.se(coeff[j]);
    }
    return true;
}

template <class Walker>
[[nodiscard]] bool chroma_resampling_vertical_filters(
    Walker& walk, h265_nal_sei_chroma_resampling_filter_hint& hint) {
    walk.ue(ELEMENT(hint, num_vertical_filters));
    if (!walk.data_holds(ELEMENT(hint, num_vertical_filters), hint.num_vertical_filters,
                         /*fewest_bits=*/2) ||
        !walk.grow(hint.num_vertical_filters, hint.vertical_filters)) {
        return false;
    }
    for (std::size_t i = 0; i < hint.num_vertical_filters; ++i) {
        auto& filter = hint.vertical_filters[i];
        if (!chroma_resampling_filter(walk, in_entry(i, ELEMENT(filter, ver_tap_length_minus1)),
                                      in_entry(i, ELEMENT(filter, ver_filter_coeff)))) {
            return false;
        }
    }
    return true;
}

template <class Walker>
[[nodiscard]] bool chroma_resampling_horizontal_filters(
    Walker& walk, h265_nal_sei_chroma_resampling_filter_hint& hint) {
    walk.ue(ELEMENT(hint, num_horizontal_filters));
    if (!walk.data_holds(ELEMENT(hint, num_horizontal_filters), hint.num_horizontal_filters,
                         /*fewest_bits=*/2) ||
        !walk.grow(hint.num_horizontal_filters, hint.horizontal_filters)) {
        return false;
    }
    for (std::size_t i = 0; i < hint.num_horizontal_filters; ++i) {
        auto& filter = hint.horizontal_filters[i];
        if (!chroma_resampling_filter(walk, in_entry(i, ELEMENT(filter, hor_tap_length_minus1)),
                                      in_entry(i, ELEMENT(filter, hor_filter_coeff)))) {
            return false;
        }
    }
    return true;
}

// chroma_resampling_filter_hint(), clause D.2.31.
template <class Walker>
[[nodiscard]] bool payload_syntax(Walker& walk, h265_nal_sei_chroma_resampling_filter_hint& hint,
                                  const sei_context& /*context*/) {
    constexpr unsigned char coded = 1;  // the filters are in the message, clause D.3.31
    walk.u(8, ELEMENT(hint, ver_chroma_filter_idc));
    walk.u(8, ELEMENT(hint, hor_chroma_filter_idc));
    walk.u(1, ELEMENT(hint, ver_filtering_field_processing_flag));
    const bool vertical = hint.ver_chroma_filter_idc == coded;
    const bool horizontal = hint.hor_chroma_filter_idc == coded;
    if (vertical || horizontal) {
        walk.ue(ELEMENT(hint, target_format_idc));
        if ((vertical && !chroma_resampling_vertical_filters(walk, hint)) ||
            (horizontal && !chroma_resampling_horizontal_filters(walk, hint))) {
            return false;
        }
    }
    return walk.finish(hint.valid);
}

}  // namespace kovran

#endif  // KOVRAN_SRC_H265_SEI_H265_NAL_SEI_CHROMA_RESAMPLING_FILTER_HINT_SYNTAX_H
