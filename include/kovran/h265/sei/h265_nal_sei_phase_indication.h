#ifndef KOVRAN_H265_SEI_H265_NAL_SEI_PHASE_INDICATION_H
#define KOVRAN_H265_SEI_H265_NAL_SEI_PHASE_INDICATION_H

#include <kovran/export.h>
#include <kovran/h2645_common/h2645_common_bitreader.h>
#include <kovran/h265/h265_fault.h>
#include <kovran/h265/h265_trace.h>

namespace kovran {

// phase_indication(), Annex D. No stream with this message has been seen; its elements are read as
// a byte each.
struct h265_nal_sei_phase_indication {
    static constexpr unsigned int payload_type = 212;
    static constexpr const char* payload_name = "phase_indication";

    unsigned char pi_hor_phase_num = 0;         // u(8)
    unsigned char pi_hor_phase_den_minus1 = 0;  // u(8)
    unsigned char pi_ver_phase_num = 0;         // u(8)
    unsigned char pi_ver_phase_den_minus1 = 0;  // u(8)

    bool valid = false;  // the latest parse succeeded

    // Reads one payload up to its last element, in a record that is reset first. False, with
    // `valid` false: the data ends.
    KOVRAN_API bool parse_standard(h2645_common_bitreader& reader, h265_fault* fault = nullptr);
    KOVRAN_API bool parse_standard(h2645_common_bitreader& reader, h265_trace& trace,
                                   h265_fault* fault = nullptr);
};

}  // namespace kovran

#endif  // KOVRAN_H265_SEI_H265_NAL_SEI_PHASE_INDICATION_H
