#ifndef KOVRAN_H265_SEI_H265_NAL_SEI_THREE_DIMENSIONAL_REFERENCE_DISPLAYS_INFO_H
#define KOVRAN_H265_SEI_H265_NAL_SEI_THREE_DIMENSIONAL_REFERENCE_DISPLAYS_INFO_H

#include <kovran/export.h>
#include <kovran/h2645_common/h2645_common_bitreader.h>
#include <kovran/h265/h265_fault.h>
#include <kovran/h265/h265_trace.h>
#include <kovran/h265/sei/h265_float_value.h>

#include <vector>

namespace kovran {

// three_dimensional_reference_displays_info(), clause G.14.2.
struct h265_nal_sei_three_dimensional_reference_displays_info {
    static constexpr unsigned int payload_type = 176;
    static constexpr const char* payload_name = "three_dimensional_reference_displays_info";

    struct reference_display_t {
        unsigned int left_view_id = 0;               // ue(v)
        unsigned int right_view_id = 0;              // ue(v)
        h265_float_value ref_display_width;          // exponent u(6), mantissa u(v), in centimetres
        h265_float_value ref_viewing_distance;       // likewise, when ref_viewing_distance_flag
        bool additional_shift_present_flag = false;  // u(1)
        unsigned short num_sample_shift_plus512 = 0;  // u(10), when additional_shift_present_flag
    };

    unsigned int prec_ref_display_width = 0;              // ue(v)
    bool ref_viewing_distance_flag = false;               // u(1)
    unsigned int prec_ref_viewing_dist = 0;               // ue(v), when ref_viewing_distance_flag
    unsigned int num_ref_displays_minus1 = 0;             // ue(v)
    std::vector<reference_display_t> reference_displays;  // num_ref_displays_minus1 + 1 entries
    bool three_dimensional_reference_displays_extension_flag = false;  // u(1)

    bool valid = false;  // the latest parse succeeded

    // Reads one payload up to its last element, in a record that is reset first. False, with
    // `valid` false: a precision or num_ref_displays_minus1 is above 31, there are more displays
    // than the data can hold, the data ends, or there is no memory.
    KOVRAN_API bool parse_standard(h2645_common_bitreader& reader, h265_fault* fault = nullptr);
    KOVRAN_API bool parse_standard(h2645_common_bitreader& reader, h265_trace& trace,
                                   h265_fault* fault = nullptr);
};

}  // namespace kovran

#endif  // KOVRAN_H265_SEI_H265_NAL_SEI_THREE_DIMENSIONAL_REFERENCE_DISPLAYS_INFO_H
