#ifndef KOVRAN_H265_SEI_H265_NAL_SEI_RECOVERY_POINT_H
#define KOVRAN_H265_SEI_H265_NAL_SEI_RECOVERY_POINT_H

#include <kovran/export.h>
#include <kovran/h2645_common/h2645_common_bitreader.h>
#include <kovran/h265/h265_fault.h>
#include <kovran/h265/h265_trace.h>

namespace kovran {

// recovery_point(), clause D.2.8.
struct h265_nal_sei_recovery_point {
    static constexpr unsigned int payload_type = 6;
    static constexpr const char* payload_name = "recovery_point";

    int recovery_poc_cnt = 0;       // se(v), in picture order counts: the first exact picture
    bool exact_match_flag = false;  // u(1)
    bool broken_link_flag = false;  // u(1)

    bool valid = false;  // the latest parse succeeded

    // Reads one payload up to its last element, in a record that is reset first. False, with
    // `valid` false: the data ends.
    KOVRAN_API bool parse_standard(h2645_common_bitreader& reader, h265_fault* fault = nullptr);
    KOVRAN_API bool parse_standard(h2645_common_bitreader& reader, h265_trace& trace,
                                   h265_fault* fault = nullptr);
};

}  // namespace kovran

#endif  // KOVRAN_H265_SEI_H265_NAL_SEI_RECOVERY_POINT_H
