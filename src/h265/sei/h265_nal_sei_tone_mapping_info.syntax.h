#ifndef KOVRAN_SRC_H265_SEI_H265_NAL_SEI_TONE_MAPPING_INFO_SYNTAX_H
#define KOVRAN_SRC_H265_SEI_H265_NAL_SEI_TONE_MAPPING_INFO_SYNTAX_H

#include <kovran/h265/sei/h265_nal_sei_tone_mapping_info.h>

#include "h2645_common/element.h"
#include "h265/sei/code_value_width.h"
#include "h265/sei/sei_context.h"
#include "h265/start_afresh.h"

#include <algorithm>
#include <cstddef>

namespace kovran {

inline void start_afresh(h265_nal_sei_tone_mapping_info& record) {
    auto& [tone_map_id, tone_map_cancel_flag, tone_map_persistence_flag, coded_data_bit_depth,
           target_bit_depth, tone_map_model_id, min_value, max_value, sigmoid_midpoint,
           sigmoid_width, start_of_coded_interval, num_pivots, coded_pivot_value,
           target_pivot_value, camera_iso_speed_idc, camera_iso_speed_value, exposure_index_idc,
           exposure_index_value, exposure_compensation_value_sign_flag,
           exposure_compensation_value_numerator, exposure_compensation_value_denom_idc,
           ref_screen_luminance_white, extended_range_white_level, nominal_black_level_code_value,
           nominal_white_level_code_value, extended_white_level_code_value, valid] = record;
    start_all_afresh(tone_map_id, tone_map_cancel_flag, tone_map_persistence_flag,
                     coded_data_bit_depth, target_bit_depth, tone_map_model_id, min_value,
                     max_value, sigmoid_midpoint, sigmoid_width, start_of_coded_interval,
                     num_pivots, coded_pivot_value, target_pivot_value, camera_iso_speed_idc,
                     camera_iso_speed_value, exposure_index_idc, exposure_index_value,
                     exposure_compensation_value_sign_flag, exposure_compensation_value_numerator,
                     exposure_compensation_value_denom_idc, ref_screen_luminance_white,
                     extended_range_white_level, nominal_black_level_code_value,
                     nominal_white_level_code_value, extended_white_level_code_value, valid);
}

// The greatest target_bit_depth whose intervals fit; 0 also when not even one does. Values without
// bits count as bytes.
[[nodiscard]] inline unsigned int tone_mapping_deepest_target(std::size_t bytes_left,
                                                              unsigned char width) {
    std::size_t intervals = bytes_left / std::max(1U, width / 8U);
    unsigned int bit_depth = 0;
    while (intervals > 1) {
        intervals /= 2;
        ++bit_depth;
    }
    return bit_depth;
}

template <class Walker>
[[nodiscard]] bool tone_mapping_intervals(Walker& walk, h265_nal_sei_tone_mapping_info& info) {
    if (!walk.at_most(ELEMENT(info, coded_data_bit_depth), 32U)) {
        return false;
    }
    const unsigned char width = code_value_width(info.coded_data_bit_depth);
    if (!walk.at_most(ELEMENT(info, target_bit_depth),
                      tone_mapping_deepest_target(walk.payload_bytes_left(), width))) {
        return false;
    }
    const std::size_t intervals = std::size_t{1} << info.target_bit_depth;
    if (!walk.grow(intervals, info.start_of_coded_interval)) {
        return false;
    }
    for (std::size_t i = 0; i < intervals; ++i) {
        walk.u_v(width, ELEMENT(info, start_of_coded_interval)[i]);
    }
    return true;
}

template <class Walker>
[[nodiscard]] bool tone_mapping_pivots(Walker& walk, h265_nal_sei_tone_mapping_info& info) {
    if (!walk.at_most(ELEMENT(info, coded_data_bit_depth), 32U) ||
        !walk.at_most(ELEMENT(info, target_bit_depth), 32U)) {
        return false;
    }
    const unsigned char coded_width = code_value_width(info.coded_data_bit_depth);
    const unsigned char target_width = code_value_width(info.target_bit_depth);
    walk.u(16, ELEMENT(info, num_pivots));
    if (!walk.data_holds(ELEMENT(info, num_pivots), info.num_pivots,
                         /*fewest_bits=*/std::max(1U, 0U + coded_width + target_width)) ||
        !walk.grow(info.num_pivots, info.coded_pivot_value, info.target_pivot_value)) {
        return false;
    }
    for (std::size_t i = 0; i < info.num_pivots; ++i) {
        walk.u_v(coded_width, ELEMENT(info, coded_pivot_value)[i]);
        walk.u_v(target_width, ELEMENT(info, target_pivot_value)[i]);
    }
    return true;
}

template <class Walker>
void tone_mapping_camera(Walker& walk, h265_nal_sei_tone_mapping_info& info) {
    constexpr unsigned char extended = 255;  // EXTENDED_ISO, clause D.3.15
    walk.u(8, ELEMENT(info, camera_iso_speed_idc));
    if (info.camera_iso_speed_idc == extended) {
        walk.u(32, ELEMENT(info, camera_iso_speed_value));
    }
    walk.u(8, ELEMENT(info, exposure_index_idc));
    if (info.exposure_index_idc == extended) {
        walk.u(32, ELEMENT(info, exposure_index_value));
    }
    walk.u(1, ELEMENT(info, exposure_compensation_value_sign_flag));
    walk.u(16, ELEMENT(info, exposure_compensation_value_numerator));
    walk.u(16, ELEMENT(info, exposure_compensation_value_denom_idc));
    walk.u(32, ELEMENT(info, ref_screen_luminance_white));
    walk.u(32, ELEMENT(info, extended_range_white_level));
    walk.u(16, ELEMENT(info, nominal_black_level_code_value));
    walk.u(16, ELEMENT(info, nominal_white_level_code_value));
    walk.u(16, ELEMENT(info, extended_white_level_code_value));
}

template <class Walker>
[[nodiscard]] bool tone_mapping_model(Walker& walk, h265_nal_sei_tone_mapping_info& info) {
    switch (info.tone_map_model_id) {
        case 0:
            walk.u(32, ELEMENT(info, min_value));
            walk.u(32, ELEMENT(info, max_value));
            return true;
        case 1:
            walk.u(32, ELEMENT(info, sigmoid_midpoint));
            walk.u(32, ELEMENT(info, sigmoid_width));
            return true;
        case 2:
            return tone_mapping_intervals(walk, info);
        case 3:
            return tone_mapping_pivots(walk, info);
        case 4:
            tone_mapping_camera(walk, info);
            return true;
        default:
            return true;
    }
}

// tone_mapping_info(), clause D.2.15.
template <class Walker>
[[nodiscard]] bool payload_syntax(Walker& walk, h265_nal_sei_tone_mapping_info& info,
                                  const sei_context& /*context*/) {
    walk.ue(ELEMENT(info, tone_map_id));
    walk.u(1, ELEMENT(info, tone_map_cancel_flag));
    if (!info.tone_map_cancel_flag) {
        walk.u(1, ELEMENT(info, tone_map_persistence_flag));
        walk.u(8, ELEMENT(info, coded_data_bit_depth));
        walk.u(8, ELEMENT(info, target_bit_depth));
        walk.ue(ELEMENT(info, tone_map_model_id));
        if (!tone_mapping_model(walk, info)) {
            return false;
        }
    }
    return walk.finish(info.valid);
}

}  // namespace kovran

#endif  // KOVRAN_SRC_H265_SEI_H265_NAL_SEI_TONE_MAPPING_INFO_SYNTAX_H
