#ifndef KOVRAN_H265_SEI_H265_NAL_SEI_TONE_MAPPING_INFO_H
#define KOVRAN_H265_SEI_H265_NAL_SEI_TONE_MAPPING_INFO_H

#include <kovran/export.h>
#include <kovran/h2645_common/h2645_common_bitreader.h>
#include <kovran/h265/h265_fault.h>
#include <kovran/h265/h265_trace.h>

#include <vector>

namespace kovran {

// tone_mapping_info(), clause D.2.15.
struct h265_nal_sei_tone_mapping_info {
    static constexpr unsigned int payload_type = 23;
    static constexpr const char* payload_name = "tone_mapping_info";

    unsigned int tone_map_id = 0;       // ue(v)
    bool tone_map_cancel_flag = false;  // u(1)

    // Unless tone_map_cancel_flag.
    bool tone_map_persistence_flag = false;  // u(1)
    unsigned char coded_data_bit_depth = 0;  // u(8)
    unsigned char target_bit_depth = 0;      // u(8)
    unsigned int tone_map_model_id = 0;      // ue(v)

    // When tone_map_model_id is 0.
    unsigned int min_value = 0;  // u(32)
    unsigned int max_value = 0;  // u(32)

    // When it is 1.
    unsigned int sigmoid_midpoint = 0;  // u(32)
    unsigned int sigmoid_width = 0;     // u(32)

    // When it is 2.
    std::vector<unsigned int> start_of_coded_interval;  // u(v), 1 << target_bit_depth entries

    // When it is 3; the arrays have num_pivots entries.
    unsigned short num_pivots = 0;                 // u(16)
    std::vector<unsigned int> coded_pivot_value;   // u(v)
    std::vector<unsigned int> target_pivot_value;  // u(v)

    // When it is 4.
    unsigned char camera_iso_speed_idc = 0;              // u(8)
    unsigned int camera_iso_speed_value = 0;             // u(32), when the element above is 255
    unsigned char exposure_index_idc = 0;                // u(8)
    unsigned int exposure_index_value = 0;               // u(32), when the element above is 255
    bool exposure_compensation_value_sign_flag = false;  // u(1)
    unsigned short exposure_compensation_value_numerator = 0;  // u(16)
    unsigned short exposure_compensation_value_denom_idc = 0;  // u(16)
    unsigned int ref_screen_luminance_white = 0;  // u(32), in units of 0.1 candela per square metre
    unsigned int extended_range_white_level = 0;  // u(32), in per cent of that
    unsigned short nominal_black_level_code_value = 0;   // u(16)
    unsigned short nominal_white_level_code_value = 0;   // u(16)
    unsigned short extended_white_level_code_value = 0;  // u(16)

    bool valid = false;  // the latest parse succeeded

    // Reads one payload up to its last element, in a record that is reset first. False, with
    // `valid` false: a model with arrays has values of more than 32 bits, or more of them than the
    // data can hold; the data ends; or there is no memory.
    KOVRAN_API bool parse_standard(h2645_common_bitreader& reader, h265_fault* fault = nullptr);
    KOVRAN_API bool parse_standard(h2645_common_bitreader& reader, h265_trace& trace,
                                   h265_fault* fault = nullptr);
};

// tone_map_model_id in words, for display: "linear", "sigmoid", "table", "piecewise linear" or
// "camera and display luminance", clause D.3.15; "" for values above 4, never null.
[[nodiscard]] KOVRAN_API const char* h265_nal_sei_tone_map_model_id_to_str(
    unsigned int tone_map_model_id);

}  // namespace kovran

#endif  // KOVRAN_H265_SEI_H265_NAL_SEI_TONE_MAPPING_INFO_H
