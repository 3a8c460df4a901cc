#ifndef KOVRAN_H265_SEI_H265_NAL_SEI_EQUIRECTANGULAR_PROJECTION_H
#define KOVRAN_H265_SEI_H265_NAL_SEI_EQUIRECTANGULAR_PROJECTION_H

#include <kovran/export.h>
#include <kovran/h2645_common/h2645_common_bitreader.h>
#include <kovran/h265/h265_fault.h>
#include <kovran/h265/h265_trace.h>

namespace kovran {

// equirectangular_projection(), clause D.2.41.
struct h265_nal_sei_equirectangular_projection {
    static constexpr unsigned int payload_type = 150;
    static constexpr const char* payload_name = "equirectangular_projection";

    bool erp_cancel_flag = false;  // u(1)

    // Unless erp_cancel_flag. Guard bands are as wide as so many luma samples.
    bool erp_persistence_flag = false;             // u(1)
    bool erp_guard_band_flag = false;              // u(1)
    unsigned char erp_guard_band_type = 0;         // u(3), when erp_guard_band_flag
    unsigned char erp_left_guard_band_width = 0;   // u(8), likewise
    unsigned char erp_right_guard_band_width = 0;  // u(8), likewise

    bool valid = false;  // the latest parse succeeded

    // Reads one payload up to its last element, in a record that is reset first. False, with
    // `valid` false: the data ends.
    KOVRAN_API bool parse_standard(h2645_common_bitreader& reader, h265_fault* fault = nullptr);
    KOVRAN_API bool parse_standard(h2645_common_bitreader& reader, h265_trace& trace,
                                   h265_fault* fault = nullptr);
};

}  // namespace kovran

#endif  // KOVRAN_H265_SEI_H265_NAL_SEI_EQUIRECTANGULAR_PROJECTION_H
