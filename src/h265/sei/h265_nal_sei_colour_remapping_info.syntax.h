#ifndef KOVRAN_SRC_H265_SEI_H265_NAL_SEI_COLOUR_REMAPPING_INFO_SYNTAX_H
#define KOVRAN_SRC_H265_SEI_H265_NAL_SEI_COLOUR_REMAPPING_INFO_SYNTAX_H

#include <kovran/h265/sei/h265_nal_sei_colour_remapping_info.h>

#include "h2645_common/element.h"
#include "h2645_common/value_range.h"
#include "h265/sei/code_value_width.h"
#include "h265/sei/sei_context.h"
#include "h265/start_afresh.h"

#include <cstddef>
#include <vector>

namespace kovran {

inline void start_afresh(h265_nal_sei_colour_remapping_info& record) {
    auto& [colour_remap_id, colour_remap_cancel_flag, colour_remap_persistence_flag,
           colour_remap_video_signal_info_present_flag, colour_remap_full_range_flag,
           colour_remap_primaries, colour_remap_transfer_function, colour_remap_matrix_coefficients,
           colour_remap_input_bit_depth, colour_remap_output_bit_depth, pre_lut_num_val_minus1,
           pre_lut_coded_value, pre_lut_target_value, colour_remap_matrix_present_flag,
           log2_matrix_denom, colour_remap_coeffs, post_lut_num_val_minus1, post_lut_coded_value,
           post_lut_target_value, valid] = record;
    start_all_afresh(colour_remap_id, colour_remap_cancel_flag, colour_remap_persistence_flag,
                     colour_remap_video_signal_info_present_flag, colour_remap_full_range_flag,
                     colour_remap_primaries, colour_remap_transfer_function,
                     colour_remap_matrix_coefficients, colour_remap_input_bit_depth,
                     colour_remap_output_bit_depth, pre_lut_num_val_minus1, pre_lut_coded_value,
                     pre_lut_target_value, colour_remap_matrix_present_flag, log2_matrix_denom,
                     colour_remap_coeffs, post_lut_num_val_minus1, post_lut_coded_value,
                     post_lut_target_value, valid);
}

inline constexpr unsigned int colour_remap_deepest = 32;  // what a field holds

template <class Walker>
[[nodiscard]] bool colour_remap_depths(Walker& walk, h265_nal_sei_colour_remapping_info& remap) {
    walk.u(8, ELEMENT(remap, colour_remap_input_bit_depth));
    if (!walk.at_most(ELEMENT(remap, colour_remap_input_bit_depth), colour_remap_deepest)) {
        return false;
    }
    walk.u(8, ELEMENT(remap, colour_remap_output_bit_depth));
    return walk.at_most(ELEMENT(remap, colour_remap_output_bit_depth), colour_remap_deepest);
}

// A table of a component; none when its number is 0.
template <class Walker>
[[nodiscard]] bool colour_remap_lut(Walker& walk, indexed_element<unsigned char&> num_val_minus1,
                                    indexed_element<std::vector<unsigned int>&> coded_value,
                                    unsigned char coded_width,
                                    indexed_element<std::vector<unsigned int>&> target_value,
                                    unsigned char target_width) {
    walk.u(8, num_val_minus1, up_to(32));
    if (num_val_minus1.field == 0) {
        return true;
    }
    const std::size_t values = num_val_minus1.field + std::size_t{1};
    if (!walk.at_most(num_val_minus1, 32) ||
        !walk.grow(values, coded_value.field, target_value.field)) {
        return false;
    }
    for (std::size_t i = 0; i < values; ++i) {
        walk.u_v(coded_width, coded_value[i]);
        walk.u_v(target_width, target_value[i]);
    }
    return true;
}

template <class Walker>
void colour_remap_matrix(Walker& walk, h265_nal_sei_colour_remapping_info& remap) {
    walk.u(1, ELEMENT(remap, colour_remap_matrix_present_flag));
    if (remap.colour_remap_matrix_present_flag) {
        walk.u(4, ELEMENT(remap, log2_matrix_denom));
        for (std::size_t c = 0; c < 3; ++c) {
            for (std::size_t i = 0; i < 3; ++i) {
                walk.se(ELEMENT(remap, colour_remap_coeffs)[c][i], between(-32768, 32767));
            }
        }
    }
}

// colour_remapping_info(), clause D.2.33.
template <class Walker>
[[nodiscard]] bool payload_syntax(Walker& walk, h265_nal_sei_colour_remapping_info& remap,
                                  const sei_context& /*context*/) {
    walk.ue(ELEMENT(remap, colour_remap_id));
    walk.u(1, ELEMENT(remap, colour_remap_cancel_flag));
    if (remap.colour_remap_cancel_flag) {
        return walk.finish(remap.valid);
    }
    walk.u(1, ELEMENT(remap, colour_remap_persistence_flag));
    walk.u(1, ELEMENT(remap, colour_remap_video_signal_info_present_flag));
    if (remap.colour_remap_video_signal_info_present_flag) {
        walk.u(1, ELEMENT(remap, colour_remap_full_range_flag));
        walk.u(8, ELEMENT(remap, colour_remap_primaries));
        walk.u(8, ELEMENT(remap, colour_remap_transfer_function));
        walk.u(8, ELEMENT(remap, colour_remap_matrix_coefficients));
    }
    if (!colour_remap_depths(walk, remap)) {
        return false;
    }
    const unsigned char input_width = code_value_width(remap.colour_remap_input_bit_depth);
    const unsigned char output_width = code_value_width(remap.colour_remap_output_bit_depth);
    for (std::size_t c = 0; c < 3; ++c) {
        if (!colour_remap_lut(walk, ELEMENT(remap, pre_lut_num_val_minus1)[c],
                              ELEMENT(remap, pre_lut_coded_value)[c], input_width,
                              ELEMENT(remap, pre_lut_target_value)[c], output_width)) {
            return false;
        }
    }
    colour_remap_matrix(walk, remap);
    for (std::size_t c = 0; c < 3; ++c) {
        if (!colour_remap_lut(walk, ELEMENT(remap, post_lut_num_val_minus1)[c],
                              ELEMENT(remap, post_lut_coded_value)[c], output_width,
                              ELEMENT(remap, post_lut_target_value)[c], output_width)) {
            return false;
        }
    }
    return walk.finish(remap.valid);
}

}  // namespace kovran

#endif  // KOVRAN_SRC_H265_SEI_H265_NAL_SEI_COLOUR_REMAPPING_INFO_SYNTAX_H
