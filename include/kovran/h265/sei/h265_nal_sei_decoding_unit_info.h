#ifndef KOVRAN_H265_SEI_H265_NAL_SEI_DECODING_UNIT_INFO_H
#define KOVRAN_H265_SEI_H265_NAL_SEI_DECODING_UNIT_INFO_H

#include <kovran/export.h>
#include <kovran/h2645_common/h2645_common_bitreader.h>
#include <kovran/h265/h265_fault.h>
#include <kovran/h265/h265_hrd_parameters.h>
#include <kovran/h265/h265_trace.h>

namespace kovran {

// decoding_unit_info(), clause D.2.22.
struct h265_nal_sei_decoding_unit_info {
    static constexpr unsigned int payload_type = 130;
    static constexpr const char* payload_name = "decoding_unit_info";

    unsigned int decoding_unit_idx = 0;  // ue(v), counted within the access unit

    // In clock sub-ticks; the first one unless sub_pic_cpb_params_in_pic_timing_sei_flag.
    unsigned int du_spt_cpb_removal_delay_increment = 0;  // u(v)
    bool dpb_output_du_delay_present_flag = false;        // u(1)
    unsigned int pic_spt_dpb_output_du_delay = 0;         // u(v), when that is set

    bool valid = false;  // the latest parse succeeded

    // Reads one payload up to its last element, in a record that is reset first. `hrd` is that of
    // the active SPS's VUI or, within scalable_nesting(), of the operation point. False, with
    // `valid` false: sub_pic_hrd_params_present_flag is not set in `hrd`, or the data ends.
    KOVRAN_API bool parse_standard(h2645_common_bitreader& reader, const h265_hrd_parameters& hrd,
                                   h265_fault* fault = nullptr);
    KOVRAN_API bool parse_standard(h2645_common_bitreader& reader, const h265_hrd_parameters& hrd,
                                   h265_trace& trace, h265_fault* fault = nullptr);
};

}  // namespace kovran

#endif  // KOVRAN_H265_SEI_H265_NAL_SEI_DECODING_UNIT_INFO_H
