#ifndef KOVRAN_H265_SEI_H265_NAL_SEI_NO_DISPLAY_H
#define KOVRAN_H265_SEI_H265_NAL_SEI_NO_DISPLAY_H

#include <kovran/export.h>
#include <kovran/h2645_common/h2645_common_bitreader.h>
#include <kovran/h265/h265_fault.h>
#include <kovran/h265/h265_trace.h>

namespace kovran {

// no_display(), clause D.2.26. Its picture is not to be shown. It has no elements.
struct h265_nal_sei_no_display {
    static constexpr unsigned int payload_type = 135;
    static constexpr const char* payload_name = "no_display";

    bool valid = false;  // the latest parse succeeded

    // Reads nothing, in a record that is reset first. False, with `valid` false: the reader stands
    // behind the end of its data.
    KOVRAN_API bool parse_standard(h2645_common_bitreader& reader, h265_fault* fault = nullptr);
    KOVRAN_API bool parse_standard(h2645_common_bitreader& reader, h265_trace& trace,
                                   h265_fault* fault = nullptr);
};

}  // namespace kovran

#endif  // KOVRAN_H265_SEI_H265_NAL_SEI_NO_DISPLAY_H
