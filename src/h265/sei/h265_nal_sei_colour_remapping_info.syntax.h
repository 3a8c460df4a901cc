#ifndef KOVRAN_SRC_H265_SEI_H265_NAL_SEI_COLOUR_REMAPPING_INFO_SYNTAX_H
#define KOVRAN_SRC_H265_SEI_H265_NAL_SEI_COLOUR_REMAPPING_INFO_SYNTAX_H

#include <kovran/h265/sei/h265_nal_sei_colour_remapping_info.h>

#include "h2645_common/element.h"
#include "h2645_common/value_range.h"
#include "h265/sei/sei_context.h"
#include "h265/start_afresh.h"

#include <cstddef>

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

// Values have whole bytes.
[[nodiscard]] inline unsigned char colour_remap_value_width(unsigned int bit_depth) {
    return static_cast<unsigned char>((bit_depth + 7) / 8 * 8);
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

template <class Walker>
[[nodiscard]] bool colour_remap_pre_lut(Walker& walk, h265_nal_sei_colour_remapping_info& remap,
                                        std::size_t c) {
    walk.u(8, ELEMENT(remap, pre_lut_num_val_minus1)[c], up_to(32));
    const unsigned int num_val_minus1 = remap.pre_lut_num_val_minus1[c];
    if (num_val_minus1 == 0) {
        return true;
    }
    if (!walk.at_most(ELEMENT(remap, pre_lut_num_val_minus1)[c], 32) ||
        !walk.grow(num_val_minus1 + 1, remap.pre_lut_coded_value[c],
                   remap.pre_lut_target_value[c])) {
        return false;
    }
    const unsigned char coded = colour_remap_value_width(remap.colour_remap_input_bit_depth);
    const unsigned char target = colour_remap_value_width(remap.colour_remap_output_bit_depth);
    for (std::size_t i = 0; i <= num_val_minus1; ++i) {
        walk.u_v(coded, ELEMENT(remap, pre_lut_coded_value)[c][i]);
        walk.u_v(target, ELEMENT(remap, pre_lut_target_value)[c][i]);
    }
    return true;
}

template <class Walker>
[[nodiscard]] bool colour_remap_post_lut(Walker& walk, h265_nal_sei_colour_remapping_info& remap,
                                         std::size_t c) {
    walk.u(8, ELEMENT(remap, post_lut_num_val_minus1)[c], up_to(32));
    const unsigned int num_val_minus1 = remap.post_lut_num_val_minus1[c];
    if (num_val_minus1 == 0) {
        return true;
    }
    if (!walk.at_most(ELEMENT(remap, post_lut_num_val_minus1)[c], 32) ||
        !walk.grow(num_val_minus1 + 1, remap.post_lut_coded_value[c],
                   remap.post_lut_target_value[c])) {
        return false;
    }
    const unsigned char width = colour_remap_value_width(remap.colour_remap_output_bit_depth);
    for (std::size_t i = 0; i <= num_val_minus1; ++i) {
        walk.u_v(width, ELEMENT(remap, post_lut_coded_value)[c][i]);
        walk.u_v(width, ELEMENT(remap, post_lut_target_value)[c][i]);
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
    for (std::size_t c = 0; c < 3; ++c) {
        if (!colour_remap_pre_lut(walk, remap, c)) {
            return false;
        }
    }
    colour_remap_matrix(walk, remap);
    for (std::size_t c = 0; c < 3; ++c) {
        if (!colour_remap_post_lut(walk, remap, c)) {
            return false;
        }
    }
    return walk.finish(remap.valid);
}

}  // namespace kovran

#endif  // KOVRAN_SRC_H265_SEI_H265_NAL_SEI_COLOUR_REMAPPING_INFO_SYNTAX_H
