#ifndef KOVRAN_H265_SEI_H265_NAL_SEI_REGION_REFRESH_INFO_H
#define KOVRAN_H265_SEI_H265_NAL_SEI_REGION_REFRESH_INFO_H

#include <kovran/export.h>
#include <kovran/h2645_common/h2645_common_bitreader.h>
#include <kovran/h265/h265_fault.h>
#include <kovran/h265/h265_trace.h>

namespace kovran {

// region_refresh_info(), clause D.2.25.
struct h265_nal_sei_region_refresh_info {
    static constexpr unsigned int payload_type = 134;
    static constexpr const char* payload_name = "region_refresh_info";

    bool refreshed_region_flag = false;  // u(1): the slice segments up to the next such message are
                                         // decoded exactly from here on

    bool valid = false;  // the latest parse succeeded

    // Reads one payload up to its last element, in a record that is reset first. False, with
    // `valid` false: the data ends.
    KOVRAN_API bool parse_standard(h2645_common_bitreader& reader, h265_fault* fault = nullptr);
    KOVRAN_API bool parse_standard(h2645_common_bitreader& reader, h265_trace& trace,
                                   h265_fault* fault = nullptr);
};

}  // namespace kovran

#endif  // KOVRAN_H265_SEI_H265_NAL_SEI_REGION_REFRESH_INFO_H
