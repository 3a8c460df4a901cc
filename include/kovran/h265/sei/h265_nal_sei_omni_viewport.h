#ifndef KOVRAN_H265_SEI_H265_NAL_SEI_OMNI_VIEWPORT_H
#define KOVRAN_H265_SEI_H265_NAL_SEI_OMNI_VIEWPORT_H

#include <kovran/export.h>
#include <kovran/h2645_common/h2645_common_bitreader.h>
#include <kovran/h265/h265_fault.h>
#include <kovran/h265/h265_trace.h>

#include <vector>

namespace kovran {

// omni_viewport(), clause D.2.41.
struct h265_nal_sei_omni_viewport {
    static constexpr unsigned int payload_type = 156;
    static constexpr const char* payload_name = "omni_viewport";

    unsigned short omni_viewport_id = 0;     // u(10)
    bool omni_viewport_cancel_flag = false;  // u(1)

    // Unless omni_viewport_cancel_flag.
    bool omni_viewport_persistence_flag = false;  // u(1)
    unsigned char omni_viewport_cnt_minus1 = 0;   // u(4)

    // Angles are in units of 2^-16 degrees.
    struct viewport_t {
        int omni_viewport_azimuth_centre = 0;      // i(32)
        int omni_viewport_elevation_centre = 0;    // i(32)
        int omni_viewport_tilt_centre = 0;         // i(32)
        unsigned int omni_viewport_hor_range = 0;  // u(32)
        unsigned int omni_viewport_ver_range = 0;  // u(32)
    };
    std::vector<viewport_t> viewports;  // omni_viewport_cnt_minus1 + 1 entries

    bool valid = false;  // the latest parse succeeded

    // Reads one payload up to its last element, in a record that is reset first. False, with
    // `valid` false: there are more viewports than the data can hold; the data ends; or there is no
    // memory.
    KOVRAN_API bool parse_standard(h2645_common_bitreader& reader, h265_fault* fault = nullptr);
    KOVRAN_API bool parse_standard(h2645_common_bitreader& reader, h265_trace& trace,
                                   h265_fault* fault = nullptr);
};

}  // namespace kovran

#endif  // KOVRAN_H265_SEI_H265_NAL_SEI_OMNI_VIEWPORT_H
