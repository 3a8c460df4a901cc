#ifndef KOVRAN_H265_H265_NAL_SEI_BUFFERING_PERIOD_H
#define KOVRAN_H265_H265_NAL_SEI_BUFFERING_PERIOD_H

#include <kovran/export.h>
#include <kovran/h2645_common/h2645_common_base_store.h>
#include <kovran/h2645_common/h2645_common_bitreader.h>
#include <kovran/h265/h265_fault.h>
#include <kovran/h265/h265_nal_sps.h>
#include <kovran/h265/h265_trace.h>

#include <vector>

namespace kovran {

// buffering_period(), clause D.2.2.
struct h265_nal_sei_buffering_period {
    static constexpr unsigned int payload_type = 0;
    static constexpr const char* payload_name = "buffering_period";

    unsigned int bp_seq_parameter_set_id = 0;   // ue(v)
    bool irap_cpb_params_present_flag = false;  // u(1), unless sub_pic_hrd_params_present_flag
    unsigned int cpb_delay_offset = 0;          // u(v), when irap_cpb_params_present_flag
    unsigned int dpb_delay_offset = 0;          // u(v), likewise

    bool concatenation_flag = false;                     // u(1)
    unsigned int au_cpb_removal_delay_delta_minus1 = 0;  // u(v)

    // CpbCnt entries, when NalHrdBpPresentFlag.
    std::vector<unsigned int> nal_initial_cpb_removal_delay;       // u(v)
    std::vector<unsigned int> nal_initial_cpb_removal_offset;      // u(v)
    std::vector<unsigned int> nal_initial_alt_cpb_removal_delay;   // u(v)
    std::vector<unsigned int> nal_initial_alt_cpb_removal_offset;  // u(v)

    // CpbCnt entries, when VclHrdBpPresentFlag.
    std::vector<unsigned int> vcl_initial_cpb_removal_delay;       // u(v)
    std::vector<unsigned int> vcl_initial_cpb_removal_offset;      // u(v)
    std::vector<unsigned int> vcl_initial_alt_cpb_removal_delay;   // u(v)
    std::vector<unsigned int> vcl_initial_alt_cpb_removal_offset;  // u(v)

    bool use_alt_cpb_params_flag = false;  // u(1), when use_alt_cpb_params_flag_present
    unsigned int reserved_u32 = 0;         // 0

    unsigned int CpbCnt = 0;                       // cpb_cnt_minus1[0] + 1
    bool NalHrdBpPresentFlag = false;              // nal_hrd_parameters_present_flag of the SPS
    bool VclHrdBpPresentFlag = false;              // vcl_hrd_parameters_present_flag of the SPS
    bool use_alt_cpb_params_flag_present = false;  // the payload had it

    bool valid = false;  // a parse has succeeded and no SPS was missing since

    // Reads one payload; `reader` ends where the payload does. The HRD parameters in the VUI of the
    // SPS are used unchecked: their presence flags and `valid` of the SPS are ignored. Fields of
    // absent elements keep their values.
    //
    // False, with `valid` false: the SPS is not in the store. False, with `valid` unchanged (test
    // the return value): the SPS never had HRD parameters, cpb_cnt_minus1[0] is above 127, or there
    // is no memory.
    KOVRAN_API bool parse(h2645_common_bitreader& reader,
                          const h2645_common_base_store<h265_nal_sps>& sps_store);
    KOVRAN_API bool parse(h2645_common_bitreader& reader,
                          const h2645_common_base_store<h265_nal_sps>& sps_store, h265_trace& trace,
                          h265_fault* fault = nullptr);

    // The same by the standard's own rules, in a record that is reset first: CpbCnt is that of the
    // highest sub-layer, and an absent irap_cpb_params_present_flag is false. False, with `valid`
    // false: bp_seq_parameter_set_id is above 15 or its SPS not in the store; the SPS has no HRD
    // parameters; CpbCnt is above 32; the data ends; or there is no memory.
    KOVRAN_API bool parse_standard(h2645_common_bitreader& reader,
                                   const h2645_common_base_store<h265_nal_sps>& sps_store,
                                   h265_fault* fault = nullptr);
    KOVRAN_API bool parse_standard(h2645_common_bitreader& reader,
                                   const h2645_common_base_store<h265_nal_sps>& sps_store,
                                   h265_trace& trace, h265_fault* fault = nullptr);
};

}  // namespace kovran

#endif  // KOVRAN_H265_H265_NAL_SEI_BUFFERING_PERIOD_H
