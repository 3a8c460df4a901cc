#ifndef KOVRAN_H265_SEI_H265_NAL_SEI_COLOUR_REMAPPING_INFO_H
#define KOVRAN_H265_SEI_H265_NAL_SEI_COLOUR_REMAPPING_INFO_H

#include <kovran/export.h>
#include <kovran/h2645_common/h2645_common_bitreader.h>
#include <kovran/h265/h265_fault.h>
#include <kovran/h265/h265_trace.h>

#include <array>
#include <vector>

namespace kovran {

// colour_remapping_info(), clause D.2.33.
struct h265_nal_sei_colour_remapping_info {
    static constexpr unsigned int payload_type = 142;
    static constexpr const char* payload_name = "colour_remapping_info";

    unsigned int colour_remap_id = 0;       // ue(v)
    bool colour_remap_cancel_flag = false;  // u(1)

    // Unless colour_remap_cancel_flag.
    bool colour_remap_persistence_flag = false;                // u(1)
    bool colour_remap_video_signal_info_present_flag = false;  // u(1)
    bool colour_remap_full_range_flag = false;                 // u(1), with that flag
    unsigned char colour_remap_primaries = 0;                  // u(8), likewise
    unsigned char colour_remap_transfer_function = 0;          // u(8), likewise
    unsigned char colour_remap_matrix_coefficients = 0;        // u(8), likewise
    unsigned char colour_remap_input_bit_depth = 0;            // u(8)
    unsigned char colour_remap_output_bit_depth = 0;           // u(8)

    // A table for each component, of as many values and 1 more; none for a component whose number
    // is 0.
    std::array<unsigned char, 3> pre_lut_num_val_minus1{};          // u(8)
    std::array<std::vector<unsigned int>, 3> pre_lut_coded_value;   // u(v)
    std::array<std::vector<unsigned int>, 3> pre_lut_target_value;  // u(v)

    bool colour_remap_matrix_present_flag = false;  // u(1)
    unsigned char log2_matrix_denom = 0;            // u(4), when colour_remap_matrix_present_flag
    std::array<std::array<int, 3>, 3> colour_remap_coeffs{};  // se(v), likewise

    std::array<unsigned char, 3> post_lut_num_val_minus1{};          // u(8), the same tables
    std::array<std::vector<unsigned int>, 3> post_lut_coded_value;   // u(v)
    std::array<std::vector<unsigned int>, 3> post_lut_target_value;  // u(v)

    bool valid = false;  // the latest parse succeeded

    // Reads one payload up to its last element, in a record that is reset first. False, with
    // `valid` false: a bit depth is above 32, or a table has more than 33 values; the data ends; or
    // there is no memory.
    KOVRAN_API bool parse_standard(h2645_common_bitreader& reader, h265_fault* fault = nullptr);
    KOVRAN_API bool parse_standard(h2645_common_bitreader& reader, h265_trace& trace,
                                   h265_fault* fault = nullptr);
};

}  // namespace kovran

#endif  // KOVRAN_H265_SEI_H265_NAL_SEI_COLOUR_REMAPPING_INFO_H
