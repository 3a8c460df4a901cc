#include <kovran/h265/sei/h265_hdr10_plus.h>

#include "h2645_common/resize.h"
#include "h265/sei/t35_application_data.h"

#include <cstddef>

namespace kovran {
namespace {

void hdr10_plus_geometry(h2645_common_bitreader& reader, h265_hdr10_plus::window_t& window) {
    window.window_upper_left_corner_x = reader.get<unsigned short>(16);
    window.window_upper_left_corner_y = reader.get<unsigned short>(16);
    window.window_lower_right_corner_x = reader.get<unsigned short>(16);
    window.window_lower_right_corner_y = reader.get<unsigned short>(16);
    window.center_of_ellipse_x = reader.get<unsigned short>(16);
    window.center_of_ellipse_y = reader.get<unsigned short>(16);
    window.rotation_angle = reader.get<unsigned char>(8);
    window.semimajor_axis_internal_ellipse = reader.get<unsigned short>(16);
    window.semimajor_axis_external_ellipse = reader.get<unsigned short>(16);
    window.semiminor_axis_external_ellipse = reader.get<unsigned short>(16);
    window.overlap_process_option = reader.get<bool>(1);
}

[[nodiscard]] bool hdr10_plus_peak_luminance(h2645_common_bitreader& reader,
                                             unsigned char& num_rows, unsigned char& num_cols,
                                             std::vector<unsigned char>& peak_luminance) {
    constexpr unsigned char fewest = 2;
    constexpr unsigned char most = 25;
    num_rows = reader.get<unsigned char>(5);
    num_cols = reader.get<unsigned char>(5);
    if (num_rows < fewest || num_rows > most || num_cols < fewest || num_cols > most ||
        !try_resize(std::size_t{num_rows} * num_cols, peak_luminance)) {
        return false;
    }
    for (unsigned char& luminance : peak_luminance) {
        luminance = reader.get<unsigned char>(4);
    }
    return true;
}

[[nodiscard]] bool hdr10_plus_light(h2645_common_bitreader& reader,
                                    h265_hdr10_plus::window_t& window) {
    for (unsigned int& component : window.maxscl) {
        component = reader.get<unsigned int>(17);
    }
    window.average_maxrgb = reader.get<unsigned int>(17);
    window.num_distribution_maxrgb_percentiles = reader.get<unsigned char>(4);
    if (!try_resize(window.num_distribution_maxrgb_percentiles,
                    window.distribution_maxrgb_percentages,
                    window.distribution_maxrgb_percentiles)) {
        return false;
    }
    for (std::size_t i = 0; i < window.num_distribution_maxrgb_percentiles; ++i) {
        window.distribution_maxrgb_percentages[i] = reader.get<unsigned char>(7);
        window.distribution_maxrgb_percentiles[i] = reader.get<unsigned int>(17);
    }
    window.fraction_bright_pixels = reader.get<unsigned short>(10);
    return true;
}

[[nodiscard]] bool hdr10_plus_mapping(h2645_common_bitreader& reader,
                                      h265_hdr10_plus::window_t& window) {
    window.tone_mapping_flag = reader.get<bool>(1);
    if (window.tone_mapping_flag) {
        window.knee_point_x = reader.get<unsigned short>(12);
        window.knee_point_y = reader.get<unsigned short>(12);
        window.num_bezier_curve_anchors = reader.get<unsigned char>(4);
        if (!try_resize(window.num_bezier_curve_anchors, window.bezier_curve_anchors)) {
            return false;
        }
        for (unsigned short& anchor : window.bezier_curve_anchors) {
            anchor = reader.get<unsigned short>(10);
        }
    }
    window.color_saturation_mapping_flag = reader.get<bool>(1);
    if (window.color_saturation_mapping_flag) {
        window.color_saturation_weight = reader.get<unsigned char>(6);
    }
    return true;
}

[[nodiscard]] bool hdr10_plus_metadata(h2645_common_bitreader& reader, h265_hdr10_plus& metadata) {
    metadata.application_version = reader.get<unsigned char>(8);
    metadata.num_windows = reader.get<unsigned char>(2);
    if (metadata.application_version > 1 || metadata.num_windows == 0 ||
        !try_resize(metadata.num_windows, metadata.windows)) {
        return false;
    }
    for (std::size_t w = 1; w < metadata.num_windows; ++w) {
        hdr10_plus_geometry(reader, metadata.windows[w]);
    }
    metadata.targeted_system_display_maximum_luminance = reader.get<unsigned int>(27);
    metadata.targeted_system_display_actual_peak_luminance_flag = reader.get<bool>(1);
    if (metadata.targeted_system_display_actual_peak_luminance_flag &&
        !hdr10_plus_peak_luminance(reader,
                                   metadata.num_rows_targeted_system_display_actual_peak_luminance,
                                   metadata.num_cols_targeted_system_display_actual_peak_luminance,
                                   metadata.targeted_system_display_actual_peak_luminance)) {
        return false;
    }
    for (h265_hdr10_plus::window_t& window : metadata.windows) {
        if (!hdr10_plus_light(reader, window)) {
            return false;
        }
    }
    metadata.mastering_display_actual_peak_luminance_flag = reader.get<bool>(1);
    if (metadata.mastering_display_actual_peak_luminance_flag &&
        !hdr10_plus_peak_luminance(reader,
                                   metadata.num_rows_mastering_display_actual_peak_luminance,
                                   metadata.num_cols_mastering_display_actual_peak_luminance,
                                   metadata.mastering_display_actual_peak_luminance)) {
        return false;
    }
    for (h265_hdr10_plus::window_t& window : metadata.windows) {
        if (!hdr10_plus_mapping(reader, window)) {
            return false;
        }
    }
    return t35_data_holds(reader, 0);
}

}  // namespace

bool h265_hdr10_plus::parse(const h265_nal_sei_user_data_registered_itu_t_t35& user_data) {
    *this = {};
    auto reader = t35_application_data(user_data, h265_t35_kind::hdr10_plus);
    valid = reader && hdr10_plus_metadata(*reader, *this);
    return valid;
}

}  // namespace kovran
