#ifndef KOVRAN_H265_SEI_H265_NAL_SEI_KNEE_FUNCTION_INFO_H
#define KOVRAN_H265_SEI_H265_NAL_SEI_KNEE_FUNCTION_INFO_H

#include <kovran/export.h>
#include <kovran/h2645_common/h2645_common_bitreader.h>
#include <kovran/h265/h265_fault.h>
#include <kovran/h265/h265_trace.h>

#include <vector>

namespace kovran {

// knee_function_info(), clause D.2.32. A curve that maps the dynamic range of decoded pictures to
// another one.
struct h265_nal_sei_knee_function_info {
    static constexpr unsigned int payload_type = 141;
    static constexpr const char* payload_name = "knee_function_info";

    unsigned int knee_function_id = 0;       // ue(v)
    bool knee_function_cancel_flag = false;  // u(1)

    // Unless knee_function_cancel_flag. Dynamic ranges and knee points are in units of 0.1 percent,
    // luminances in candela per square metre.
    bool knee_function_persistence_flag = false;    // u(1)
    unsigned int input_d_range = 0;                 // u(32)
    unsigned int input_disp_luminance = 0;          // u(32)
    unsigned int output_d_range = 0;                // u(32)
    unsigned int output_disp_luminance = 0;         // u(32)
    unsigned int num_knee_points_minus1 = 0;        // ue(v)
    std::vector<unsigned short> input_knee_point;   // u(10), num_knee_points_minus1 + 1 entries
    std::vector<unsigned short> output_knee_point;  // u(10), likewise

    bool valid = false;  // the latest parse succeeded

    // Reads one payload up to its last element, in a record that is reset first. False, with
    // `valid` false: there are more than 999 knee points, or more than the data can hold; the data
    // ends; or there is no memory.
    KOVRAN_API bool parse_standard(h2645_common_bitreader& reader, h265_fault* fault = nullptr);
    KOVRAN_API bool parse_standard(h2645_common_bitreader& reader, h265_trace& trace,
                                   h265_fault* fault = nullptr);
};

}  // namespace kovran

#endif  // KOVRAN_H265_SEI_H265_NAL_SEI_KNEE_FUNCTION_INFO_H
