#ifndef KOVRAN_H265_H265_VUI_PARAMETERS_H
#define KOVRAN_H265_H265_VUI_PARAMETERS_H

#include <kovran/export.h>
#include <kovran/h2645_common/h2645_common_bitreader.h>
#include <kovran/h265/h265_fault.h>
#include <kovran/h265/h265_hrd_parameters.h>
#include <kovran/h265/h265_trace.h>
#include <kovran/h265/h265_video_format.h>

namespace kovran {

struct h265_nal_sps;

// vui_parameters(), clause E.2.1.
struct h265_vui_parameters {
    bool aspect_ratio_info_present_flag = false;  // u(1)
    unsigned char aspect_ratio_idc = 0;           // u(8), when aspect_ratio_info_present_flag
    bool extended_sar_flag = false;               // aspect_ratio_idc is or was 255
    unsigned short sar_width = 0;   // u(16) when aspect_ratio_idc is 255, or by table E.1
    unsigned short sar_height = 0;  // u(16), likewise

    bool overscan_info_present_flag = false;  // u(1)
    bool overscan_appropriate_flag = false;   // u(1), when overscan_info_present_flag

    bool video_signal_type_present_flag = false;  // u(1)
    unsigned char video_format = 0;  // u(3), when video_signal_type_present_flag: h265_video_format
    bool video_full_range_flag = false;            // u(1), likewise
    bool colour_description_present_flag = false;  // u(1), likewise
    unsigned char colour_primaries = 0;            // u(8), when colour_description_present_flag
    unsigned char transfer_characteristics = 0;    // u(8), likewise
    unsigned char matrix_coeffs = 0;               // u(8), likewise

    bool chroma_loc_info_present_flag = false;          // u(1)
    unsigned int chroma_sample_loc_type_top_field = 0;  // ue(v), when chroma_loc_info_present_flag
    unsigned int chroma_sample_loc_type_bottom_field = 0;  // ue(v), likewise

    bool neutral_chroma_indication_flag = false;  // u(1)
    bool field_seq_flag = false;                  // u(1)
    bool frame_field_info_present_flag = false;   // u(1)

    bool default_display_window_flag = false;     // u(1)
    unsigned int def_disp_win_left_offset = 0;    // ue(v), when default_display_window_flag
    unsigned int def_disp_win_right_offset = 0;   // ue(v), likewise
    unsigned int def_disp_win_top_offset = 0;     // ue(v), likewise
    unsigned int def_disp_win_bottom_offset = 0;  // ue(v), likewise

    bool vui_timing_info_present_flag = false;           // u(1)
    unsigned int vui_num_units_in_tick = 0;              // u(32), when vui_timing_info_present_flag
    unsigned int vui_time_scale = 0;                     // u(32), likewise
    bool vui_poc_proportional_to_timing_flag = false;    // u(1), likewise
    unsigned int vui_num_ticks_poc_diff_one_minus1 = 0;  // ue(v), when that is set
    bool vui_hrd_parameters_present_flag = false;        // u(1), when vui_timing_info_present_flag
    h265_hrd_parameters hrd_parameters;                  // when vui_hrd_parameters_present_flag

    bool bitstream_restriction_flag = false;               // u(1)
    bool tiles_fixed_structure_flag = false;               // u(1), when bitstream_restriction_flag
    bool motion_vectors_over_pic_boundaries_flag = false;  // u(1), likewise
    bool restricted_ref_pic_lists_flag = false;            // u(1), likewise
    unsigned int min_spatial_segmentation_idc = 0;         // ue(v), likewise
    unsigned int max_bytes_per_pic_denom = 0;              // ue(v), likewise
    unsigned int max_bits_per_min_cu_denom = 0;            // ue(v), likewise
    unsigned int log2_max_mv_length_horizontal = 0;        // ue(v), likewise
    unsigned int log2_max_mv_length_vertical = 0;          // ue(v), likewise

    bool valid = false;  // the latest parse succeeded

    // Reads one structure; of `sps` it uses sps_max_sub_layers_minus1. Fields of absent elements
    // keep their values, and extended_sar_flag is never reset. False when the HRD parameters cannot
    // be read; `valid` is then false, and what was read before stays.
    KOVRAN_API bool parse(h2645_common_bitreader& reader, h265_nal_sps& sps);
    KOVRAN_API bool parse(h2645_common_bitreader& reader, h265_nal_sps& sps, h265_trace& trace,
                          h265_fault* fault = nullptr);

    // The same by the standard's own rules, in a record that is reset first: absent elements have
    // the values of clause E.3.1 (video_format 5, colour descriptions 2,
    // motion_vectors_over_pic_boundaries_flag true, max_bytes_per_pic_denom 2,
    // max_bits_per_min_cu_denom 1, log2_max_mv_length_horizontal and _vertical 15), and
    // extended_sar_flag is that of this VUI alone. False, with `valid` false, when the HRD
    // parameters cannot be read or the data ends.
    KOVRAN_API bool parse_standard(h2645_common_bitreader& reader, h265_nal_sps& sps,
                                   h265_fault* fault = nullptr);
    KOVRAN_API bool parse_standard(h2645_common_bitreader& reader, h265_nal_sps& sps,
                                   h265_trace& trace, h265_fault* fault = nullptr);

    // h265_video_format_to_str of video_format.
    [[nodiscard]] KOVRAN_API const char* video_format_to_str() const;
};

struct h265_sample_aspect_ratio {
    unsigned short width = 0;
    unsigned short height = 0;
};

// The value of aspect_ratio_idc that says that sar_width and sar_height are coded.
constexpr unsigned char h265_extended_sar = 255;

// What table E.1 has for an aspect_ratio_idc; 0 by 0 where it is unspecified, coded or reserved.
[[nodiscard]] KOVRAN_API h265_sample_aspect_ratio
h265_sample_aspect_ratio_of(unsigned char aspect_ratio_idc);

}  // namespace kovran

#endif  // KOVRAN_H265_H265_VUI_PARAMETERS_H
