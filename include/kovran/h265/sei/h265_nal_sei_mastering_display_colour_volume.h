#ifndef KOVRAN_H265_SEI_H265_NAL_SEI_MASTERING_DISPLAY_COLOUR_VOLUME_H
#define KOVRAN_H265_SEI_H265_NAL_SEI_MASTERING_DISPLAY_COLOUR_VOLUME_H

#include <kovran/export.h>
#include <kovran/h2645_common/h2645_common_bitreader.h>
#include <kovran/h265/h265_fault.h>
#include <kovran/h265/h265_trace.h>

#include <array>

namespace kovran {

// mastering_display_colour_volume(), clause D.2.28.
struct h265_nal_sei_mastering_display_colour_volume {
    static constexpr unsigned int payload_type = 137;
    static constexpr const char* payload_name = "mastering_display_colour_volume";

    // CIE 1931 coordinates in units of 0.00002; the primaries should be green, blue, red.
    std::array<unsigned short, 3> display_primaries_x{};  // u(16)
    std::array<unsigned short, 3> display_primaries_y{};  // u(16)
    unsigned short white_point_x = 0;                     // u(16)
    unsigned short white_point_y = 0;                     // u(16)

    // In units of 0.0001 candela per square metre.
    unsigned int max_display_mastering_luminance = 0;  // u(32)
    unsigned int min_display_mastering_luminance = 0;  // u(32)

    bool valid = false;  // the latest parse succeeded

    // Reads one payload up to its last element, in a record that is reset first. False, with
    // `valid` false: the data ends.
    KOVRAN_API bool parse_standard(h2645_common_bitreader& reader, h265_fault* fault = nullptr);
    KOVRAN_API bool parse_standard(h2645_common_bitreader& reader, h265_trace& trace,
                                   h265_fault* fault = nullptr);
};

}  // namespace kovran

#endif  // KOVRAN_H265_SEI_H265_NAL_SEI_MASTERING_DISPLAY_COLOUR_VOLUME_H
