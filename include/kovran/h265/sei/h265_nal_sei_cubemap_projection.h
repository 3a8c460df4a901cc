#ifndef KOVRAN_H265_SEI_H265_NAL_SEI_CUBEMAP_PROJECTION_H
#define KOVRAN_H265_SEI_H265_NAL_SEI_CUBEMAP_PROJECTION_H

#include <kovran/export.h>
#include <kovran/h2645_common/h2645_common_bitreader.h>
#include <kovran/h265/h265_fault.h>
#include <kovran/h265/h265_trace.h>

namespace kovran {

// cubemap_projection(), clause D.2.41.
struct h265_nal_sei_cubemap_projection {
    static constexpr unsigned int payload_type = 151;
    static constexpr const char* payload_name = "cubemap_projection";

    bool cmp_cancel_flag = false;       // u(1)
    bool cmp_persistence_flag = false;  // u(1), unless cmp_cancel_flag

    bool valid = false;  // the latest parse succeeded

    // Reads one payload up to its last element, in a record that is reset first. False, with
    // `valid` false: the data ends.
    KOVRAN_API bool parse_standard(h2645_common_bitreader& reader, h265_fault* fault = nullptr);
    KOVRAN_API bool parse_standard(h2645_common_bitreader& reader, h265_trace& trace,
                                   h265_fault* fault = nullptr);
};

}  // namespace kovran

#endif  // KOVRAN_H265_SEI_H265_NAL_SEI_CUBEMAP_PROJECTION_H
