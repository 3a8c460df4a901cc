#ifndef KOVRAN_H265_SEI_H265_NAL_SEI_DISPLAY_ORIENTATION_H
#define KOVRAN_H265_SEI_H265_NAL_SEI_DISPLAY_ORIENTATION_H

#include <kovran/export.h>
#include <kovran/h2645_common/h2645_common_bitreader.h>
#include <kovran/h265/h265_fault.h>
#include <kovran/h265/h265_trace.h>

namespace kovran {

// display_orientation(), clause D.2.17.
struct h265_nal_sei_display_orientation {
    static constexpr unsigned int payload_type = 47;
    static constexpr const char* payload_name = "display_orientation";

    bool display_orientation_cancel_flag = false;  // u(1)

    // Unless display_orientation_cancel_flag. The flips come before the rotation.
    bool hor_flip = false;                              // u(1)
    bool ver_flip = false;                              // u(1)
    unsigned short anticlockwise_rotation = 0;          // u(16), in units of 360 / 65536 degrees
    bool display_orientation_persistence_flag = false;  // u(1)

    bool valid = false;  // the latest parse succeeded

    // Reads one payload up to its last element, in a record that is reset first. False, with
    // `valid` false: the data ends.
    KOVRAN_API bool parse_standard(h2645_common_bitreader& reader, h265_fault* fault = nullptr);
    KOVRAN_API bool parse_standard(h2645_common_bitreader& reader, h265_trace& trace,
                                   h265_fault* fault = nullptr);

    // anticlockwise_rotation in degrees, clause D.3.17: 0 to less than 360.
    [[nodiscard]] KOVRAN_API double anticlockwise_degrees() const;
};

}  // namespace kovran

#endif  // KOVRAN_H265_SEI_H265_NAL_SEI_DISPLAY_ORIENTATION_H
