#ifndef KOVRAN_H265_SEI_H265_NAL_SEI_CONTENT_COLOUR_VOLUME_H
#define KOVRAN_H265_SEI_H265_NAL_SEI_CONTENT_COLOUR_VOLUME_H

#include <kovran/export.h>
#include <kovran/h2645_common/h2645_common_bitreader.h>
#include <kovran/h265/h265_fault.h>
#include <kovran/h265/h265_trace.h>

#include <array>

namespace kovran {

// content_colour_volume(), clause D.2.40.
struct h265_nal_sei_content_colour_volume {
    static constexpr unsigned int payload_type = 149;
    static constexpr const char* payload_name = "content_colour_volume";

    bool ccv_cancel_flag = false;  // u(1)

    // Unless ccv_cancel_flag.
    bool ccv_persistence_flag = false;                  // u(1)
    bool ccv_primaries_present_flag = false;            // u(1)
    bool ccv_min_luminance_value_present_flag = false;  // u(1)
    bool ccv_max_luminance_value_present_flag = false;  // u(1)
    bool ccv_avg_luminance_value_present_flag = false;  // u(1)

    // CIE 1931 coordinates in units of 0.00002, when ccv_primaries_present_flag; the order should
    // be green, blue, red.
    std::array<int, 3> ccv_primaries_x{};  // i(32)
    std::array<int, 3> ccv_primaries_y{};  // i(32)

    // In units of 0.0000001 candela per square metre.
    unsigned int ccv_min_luminance_value = 0;  // u(32), when ccv_min_luminance_value_present_flag
    unsigned int ccv_max_luminance_value = 0;  // u(32), when ccv_max_luminance_value_present_flag
    unsigned int ccv_avg_luminance_value = 0;  // u(32), when ccv_avg_luminance_value_present_flag

    bool valid = false;  // the latest parse succeeded

    // Reads one payload up to its last element, in a record that is reset first. False, with
    // `valid` false: the data ends.
    KOVRAN_API bool parse_standard(h2645_common_bitreader& reader, h265_fault* fault = nullptr);
    KOVRAN_API bool parse_standard(h2645_common_bitreader& reader, h265_trace& trace,
                                   h265_fault* fault = nullptr);
};

}  // namespace kovran

#endif  // KOVRAN_H265_SEI_H265_NAL_SEI_CONTENT_COLOUR_VOLUME_H
