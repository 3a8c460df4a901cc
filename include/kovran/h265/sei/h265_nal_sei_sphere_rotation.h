#ifndef KOVRAN_H265_SEI_H265_NAL_SEI_SPHERE_ROTATION_H
#define KOVRAN_H265_SEI_H265_NAL_SEI_SPHERE_ROTATION_H

#include <kovran/export.h>
#include <kovran/h2645_common/h2645_common_bitreader.h>
#include <kovran/h265/h265_fault.h>
#include <kovran/h265/h265_trace.h>

namespace kovran {

// sphere_rotation(), clause D.2.41.
struct h265_nal_sei_sphere_rotation {
    static constexpr unsigned int payload_type = 154;
    static constexpr const char* payload_name = "sphere_rotation";

    bool sphere_rotation_cancel_flag = false;  // u(1)

    // Unless sphere_rotation_cancel_flag. Angles are in units of 2^-16 degrees.
    bool sphere_rotation_persistence_flag = false;  // u(1)
    int yaw_rotation = 0;                           // i(32)
    int pitch_rotation = 0;                         // i(32)
    int roll_rotation = 0;                          // i(32)

    bool valid = false;  // the latest parse succeeded

    // Reads one payload up to its last element, in a record that is reset first. False, with
    // `valid` false: the data ends.
    KOVRAN_API bool parse_standard(h2645_common_bitreader& reader, h265_fault* fault = nullptr);
    KOVRAN_API bool parse_standard(h2645_common_bitreader& reader, h265_trace& trace,
                                   h265_fault* fault = nullptr);
};

}  // namespace kovran

#endif  // KOVRAN_H265_SEI_H265_NAL_SEI_SPHERE_ROTATION_H
