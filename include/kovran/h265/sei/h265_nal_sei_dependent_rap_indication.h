#ifndef KOVRAN_H265_SEI_H265_NAL_SEI_DEPENDENT_RAP_INDICATION_H
#define KOVRAN_H265_SEI_H265_NAL_SEI_DEPENDENT_RAP_INDICATION_H

#include <kovran/export.h>
#include <kovran/h2645_common/h2645_common_bitreader.h>
#include <kovran/h265/h265_fault.h>
#include <kovran/h265/h265_trace.h>

namespace kovran {

// dependent_rap_indication(), clause D.2.36. It has no elements: it says that the picture refers to
// no other one than its IRAP picture.
struct h265_nal_sei_dependent_rap_indication {
    static constexpr unsigned int payload_type = 145;
    static constexpr const char* payload_name = "dependent_rap_indication";

    bool valid = false;  // the latest parse succeeded

    // Reads one payload, of no bits, in a record that is reset first. False, with `valid` false:
    // the reader stands behind the end of its data already.
    KOVRAN_API bool parse_standard(h2645_common_bitreader& reader, h265_fault* fault = nullptr);
    KOVRAN_API bool parse_standard(h2645_common_bitreader& reader, h265_trace& trace,
                                   h265_fault* fault = nullptr);
};

}  // namespace kovran

#endif  // KOVRAN_H265_SEI_H265_NAL_SEI_DEPENDENT_RAP_INDICATION_H
