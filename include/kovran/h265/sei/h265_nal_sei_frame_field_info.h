#ifndef KOVRAN_H265_SEI_H265_NAL_SEI_FRAME_FIELD_INFO_H
#define KOVRAN_H265_SEI_H265_NAL_SEI_FRAME_FIELD_INFO_H

#include <kovran/export.h>
#include <kovran/h2645_common/h2645_common_bitreader.h>
#include <kovran/h265/h265_fault.h>
#include <kovran/h265/h265_trace.h>

namespace kovran {

// frame_field_info(), clause F.14.2.
struct h265_nal_sei_frame_field_info {
    static constexpr unsigned int payload_type = 168;
    static constexpr const char* payload_name = "frame_field_info";

    // The values mean what those of pic_timing() do.
    unsigned char ffinfo_pic_struct = 0;        // u(4)
    unsigned char ffinfo_source_scan_type = 0;  // u(2)
    bool ffinfo_duplicate_flag = false;         // u(1)

    bool valid = false;  // the latest parse succeeded

    // Reads one payload up to its last element, in a record that is reset first. False, with
    // `valid` false: the data ends.
    KOVRAN_API bool parse_standard(h2645_common_bitreader& reader, h265_fault* fault = nullptr);
    KOVRAN_API bool parse_standard(h2645_common_bitreader& reader, h265_trace& trace,
                                   h265_fault* fault = nullptr);
};

}  // namespace kovran

#endif  // KOVRAN_H265_SEI_H265_NAL_SEI_FRAME_FIELD_INFO_H
