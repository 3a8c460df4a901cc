#ifndef KOVRAN_SRC_H265_SEI_H265_NAL_SEI_FILM_GRAIN_CHARACTERISTICS_SYNTAX_H
#define KOVRAN_SRC_H265_SEI_H265_NAL_SEI_FILM_GRAIN_CHARACTERISTICS_SYNTAX_H

#include <kovran/h265/sei/h265_nal_sei_film_grain_characteristics.h>

#include "h2645_common/element.h"
#include "h2645_common/value_range.h"
#include "h265/sei/in_entry.h"
#include "h265/sei/sei_context.h"
#include "h265/start_afresh.h"

#include <cstddef>

namespace kovran {

inline void start_afresh(h265_nal_sei_film_grain_characteristics::component_t& record) {
    auto& [num_intensity_intervals_minus1, num_model_values_minus1, intensity_intervals] = record;
    start_all_afresh(num_intensity_intervals_minus1, num_model_values_minus1, intensity_intervals);
}

inline void start_afresh(h265_nal_sei_film_grain_characteristics& record) {
    auto& [film_grain_characteristics_cancel_flag, film_grain_model_id,
           separate_colour_description_present_flag, film_grain_bit_depth_luma_minus8,
           film_grain_bit_depth_chroma_minus8, film_grain_full_range_flag,
           film_grain_colour_primaries, film_grain_transfer_characteristics,
           film_grain_matrix_coeffs, blending_mode_id, log2_scale_factor, comp_model_present_flag,
           components, film_grain_characteristics_persistence_flag, valid] = record;
    start_all_afresh(film_grain_characteristics_cancel_flag, film_grain_model_id,
                     separate_colour_description_present_flag, film_grain_bit_depth_luma_minus8,
                     film_grain_bit_depth_chroma_minus8, film_grain_full_range_flag,
                     film_grain_colour_primaries, film_grain_transfer_characteristics,
                     film_grain_matrix_coeffs, blending_mode_id, log2_scale_factor,
                     comp_model_present_flag, components,
                     film_grain_characteristics_persistence_flag, valid);
}

template <class Walker>
void film_grain_colour_description(Walker& walk, h265_nal_sei_film_grain_characteristics& grain) {
    walk.u(3, ELEMENT(grain, film_grain_bit_depth_luma_minus8));
    walk.u(3, ELEMENT(grain, film_grain_bit_depth_chroma_minus8));
    walk.u(1, ELEMENT(grain, film_grain_full_range_flag));
    walk.u(8, ELEMENT(grain, film_grain_colour_primaries));
    walk.u(8, ELEMENT(grain, film_grain_transfer_characteristics));
    walk.u(8, ELEMENT(grain, film_grain_matrix_coeffs));
}

template <class Walker>
[[nodiscard]] bool film_grain_component(
    Walker& walk, h265_nal_sei_film_grain_characteristics::component_t& component, std::size_t c) {
    walk.u(8, in_entry(c, ELEMENT(component, num_intensity_intervals_minus1)));
    walk.u(3, in_entry(c, ELEMENT(component, num_model_values_minus1)), up_to(5));
    const unsigned int intervals = component.num_intensity_intervals_minus1 + 1U;
    const unsigned int values = component.num_model_values_minus1 + 1U;
    if (!walk.at_most(in_entry(c, ELEMENT(component, num_model_values_minus1)), 5U) ||
        !walk.data_holds(in_entry(c, ELEMENT(component, num_intensity_intervals_minus1)), intervals,
                         /*fewest_bits=*/16 + values) ||
        !walk.grow(intervals, component.intensity_intervals)) {
        return false;
    }
    for (std::size_t i = 0; i < intervals; ++i) {
        auto& interval = component.intensity_intervals[i];
        const auto of_interval = [c, i](auto field) {
            return named(field.name, field.field, element_indices{}.followed_by(c).followed_by(i));
        };
        walk.u(8, of_interval(ELEMENT(interval, intensity_interval_lower_bound)));
        walk.u(8, of_interval(ELEMENT(interval, intensity_interval_upper_bound)));
        for (std::size_t j = 0; j < values; ++j) {
            walk.se(of_interval(ELEMENT(interval, comp_model_value))[j]);
        }
    }
    return true;
}

template <class Walker>
[[nodiscard]] bool film_grain_model(Walker& walk, h265_nal_sei_film_grain_characteristics& grain) {
    walk.u(2, ELEMENT(grain, film_grain_model_id));
    walk.u(1, ELEMENT(grain, separate_colour_description_present_flag));
    if (grain.separate_colour_description_present_flag) {
        film_grain_colour_description(walk, grain);
    }
    walk.u(2, ELEMENT(grain, blending_mode_id));
    walk.u(4, ELEMENT(grain, log2_scale_factor));
    for (std::size_t c = 0; c < grain.comp_model_present_flag.size(); ++c) {
        walk.u(1, ELEMENT(grain, comp_model_present_flag)[c]);
    }
    for (std::size_t c = 0; c < grain.components.size(); ++c) {
        if (grain.comp_model_present_flag[c] &&
            !film_grain_component(walk, grain.components[c], c)) {
            return false;
        }
    }
    walk.u(1, ELEMENT(grain, film_grain_characteristics_persistence_flag));
    return true;
}

// film_grain_characteristics(), clause D.2.13.
template <class Walker>
[[nodiscard]] bool payload_syntax(Walker& walk, h265_nal_sei_film_grain_characteristics& grain,
                                  const sei_context& /*context*/) {
    walk.u(1, ELEMENT(grain, film_grain_characteristics_cancel_flag));
    if (!grain.film_grain_characteristics_cancel_flag && !film_grain_model(walk, grain)) {
        return false;
    }
    return walk.finish(grain.valid);
}

}  // namespace kovran

#endif  // KOVRAN_SRC_H265_SEI_H265_NAL_SEI_FILM_GRAIN_CHARACTERISTICS_SYNTAX_H
