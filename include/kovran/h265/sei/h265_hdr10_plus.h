#ifndef KOVRAN_H265_SEI_H265_HDR10_PLUS_H
#define KOVRAN_H265_SEI_H265_HDR10_PLUS_H

#include <kovran/export.h>
#include <kovran/h265/sei/h265_nal_sei_user_data_registered_itu_t_t35.h>

#include <array>
#include <vector>

namespace kovran {

// Dynamic metadata of SMPTE ST 2094-40 (HDR10+) in user data of ITU-T T.35.
struct h265_hdr10_plus {
    // A processing window.
    struct window_t {
        // Where the window is, and the ellipses in it; the first window is the whole picture.
        unsigned short window_upper_left_corner_x = 0;       // u(16), in pixels
        unsigned short window_upper_left_corner_y = 0;       // u(16)
        unsigned short window_lower_right_corner_x = 0;      // u(16)
        unsigned short window_lower_right_corner_y = 0;      // u(16)
        unsigned short center_of_ellipse_x = 0;              // u(16)
        unsigned short center_of_ellipse_y = 0;              // u(16)
        unsigned char rotation_angle = 0;                    // u(8), in degrees, clockwise
        unsigned short semimajor_axis_internal_ellipse = 0;  // u(16), in pixels
        unsigned short semimajor_axis_external_ellipse = 0;  // u(16)
        unsigned short semiminor_axis_external_ellipse = 0;  // u(16)
        bool overlap_process_option = false;  // u(1): layering; else weighted averaging

        // Linear light, in units of 0.00001.
        std::array<unsigned int, 3> maxscl{};                        // u(17): red, green, blue
        unsigned int average_maxrgb = 0;                             // u(17)
        unsigned char num_distribution_maxrgb_percentiles = 0;       // u(4)
        std::vector<unsigned char> distribution_maxrgb_percentages;  // u(7), so many entries
        std::vector<unsigned int> distribution_maxrgb_percentiles;   // u(17), likewise
        unsigned short fraction_bright_pixels = 0;                   // u(10), in units of 0.001

        // Knee points are in units of 1 / 4095, anchors of 1 / 1023, the weight of 1 / 8.
        bool tone_mapping_flag = false;                    // u(1)
        unsigned short knee_point_x = 0;                   // u(12), when tone_mapping_flag
        unsigned short knee_point_y = 0;                   // u(12), likewise
        unsigned char num_bezier_curve_anchors = 0;        // u(4), likewise
        std::vector<unsigned short> bezier_curve_anchors;  // u(10), so many entries

        bool color_saturation_mapping_flag = false;  // u(1)
        unsigned char color_saturation_weight = 0;   // u(6), when the flag is set
    };

    unsigned char application_version = 0;  // u(8)
    unsigned char num_windows = 0;          // u(2)
    std::vector<window_t> windows;          // num_windows entries

    // u(27), in candela per square metre.
    unsigned int targeted_system_display_maximum_luminance = 0;

    // Peak luminances of parts of a display, row by row, in units of 1 / 15; each table when its
    // flag is set.
    bool targeted_system_display_actual_peak_luminance_flag = false;           // u(1)
    unsigned char num_rows_targeted_system_display_actual_peak_luminance = 0;  // u(5)
    unsigned char num_cols_targeted_system_display_actual_peak_luminance = 0;  // u(5)
    std::vector<unsigned char> targeted_system_display_actual_peak_luminance;  // u(4)
    bool mastering_display_actual_peak_luminance_flag = false;                 // u(1)
    unsigned char num_rows_mastering_display_actual_peak_luminance = 0;        // u(5)
    unsigned char num_cols_mastering_display_actual_peak_luminance = 0;        // u(5)
    std::vector<unsigned char> mastering_display_actual_peak_luminance;        // u(4)

    bool valid = false;  // the latest parse succeeded

    // Reads the metadata in a record that is reset first. False, with `valid` false: the user data
    // is of another kind, application_version is neither 0 nor 1, there is no window, a table has
    // fewer than 2 or more than 25 rows or columns, the data ends, or there is no memory.
    KOVRAN_API bool parse(const h265_nal_sei_user_data_registered_itu_t_t35& user_data);
};

}  // namespace kovran

#endif  // KOVRAN_H265_SEI_H265_HDR10_PLUS_H
