#ifndef KOVRAN_H265_SEI_H265_NAL_SEI_AMBIENT_VIEWING_ENVIRONMENT_H
#define KOVRAN_H265_SEI_H265_NAL_SEI_AMBIENT_VIEWING_ENVIRONMENT_H

#include <kovran/export.h>
#include <kovran/h2645_common/h2645_common_bitreader.h>
#include <kovran/h265/h265_fault.h>
#include <kovran/h265/h265_trace.h>

namespace kovran {

// ambient_viewing_environment(), clause D.2.39.
struct h265_nal_sei_ambient_viewing_environment {
    static constexpr unsigned int payload_type = 148;
    static constexpr const char* payload_name = "ambient_viewing_environment";

    unsigned int ambient_illuminance = 0;  // u(32), in units of 0.0001 lux

    // CIE 1931 coordinates in units of 0.00002.
    unsigned short ambient_light_x = 0;  // u(16)
    unsigned short ambient_light_y = 0;  // u(16)

    bool valid = false;  // the latest parse succeeded

    // Reads one payload up to its last element, in a record that is reset first. False, with
    // `valid` false: the data ends.
    KOVRAN_API bool parse_standard(h2645_common_bitreader& reader, h265_fault* fault = nullptr);
    KOVRAN_API bool parse_standard(h2645_common_bitreader& reader, h265_trace& trace,
                                   h265_fault* fault = nullptr);
};

}  // namespace kovran

#endif  // KOVRAN_H265_SEI_H265_NAL_SEI_AMBIENT_VIEWING_ENVIRONMENT_H
