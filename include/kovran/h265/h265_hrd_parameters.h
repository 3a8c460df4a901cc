#ifndef KOVRAN_H265_H265_HRD_PARAMETERS_H
#define KOVRAN_H265_H265_HRD_PARAMETERS_H

#include <kovran/export.h>
#include <kovran/h2645_common/h2645_common_bitreader.h>
#include <kovran/h265/h265_fault.h>
#include <kovran/h265/h265_nal_sub_layer_hrd_parameters.h>
#include <kovran/h265/h265_trace.h>

#include <vector>

namespace kovran {

// hrd_parameters(), clause E.2.2.
struct h265_hrd_parameters {
    bool commonInfPresentFlag = false;       // as given to parse
    unsigned int maxNumSubLayersMinus1 = 0;  // as given to parse

    bool nal_hrd_parameters_present_flag = false;  // u(1)
    bool vcl_hrd_parameters_present_flag = false;  // u(1)

    bool sub_pic_hrd_params_present_flag = false;  // u(1), when either flag above
    unsigned char tick_divisor_minus2 = 0;         // u(8), when sub_pic_hrd_params_present_flag
    unsigned char du_cpb_removal_delay_increment_length_minus1 = 0;  // u(5), likewise
    bool sub_pic_cpb_params_in_pic_timing_sei_flag = false;          // u(1), likewise
    unsigned char dpb_output_delay_du_length_minus1 = 0;             // u(5), likewise

    unsigned char bit_rate_scale = 0;     // u(4)
    unsigned char cpb_size_scale = 0;     // u(4)
    unsigned char cpb_size_du_scale = 0;  // u(4), when sub_pic_hrd_params_present_flag
    unsigned char initial_cpb_removal_delay_length_minus1 = 0;  // u(5), or 23
    unsigned char au_cpb_removal_delay_length_minus1 = 0;       // u(5), or 23
    unsigned char dpb_output_delay_length_minus1 = 0;           // u(5)

    // An entry for each sub-layer; the last two are filled when their present flag is set.
    std::vector<bool> fixed_pic_rate_general_flag;     // u(1)
    std::vector<bool> fixed_pic_rate_within_cvs_flag;  // u(1), or true where the general one is
    std::vector<unsigned int> elemental_duration_in_tc_minus1;  // ue(v), where that is true
    std::vector<bool> low_delay_hrd_flag;                       // u(1), where it is false
    std::vector<unsigned int> cpb_cnt_minus1;  // ue(v), where low_delay_hrd_flag is false
    std::vector<h265_nal_sub_layer_hrd_parameters> nal_sub_layer_hrd;
    std::vector<h265_nal_sub_layer_hrd_parameters> vcl_sub_layer_hrd;

    bool valid = false;  // the latest parse succeeded

    // Reads one structure. Fields of absent elements keep their values, and this parse uses them:
    // without common information the two present flags of an earlier parse, and low_delay_hrd_flag
    // where it is not read.
    //
    // False, with `valid` false: maxNumSubLayersMinus1 or a cpb_cnt_minus1 that sizes a sub-layer
    // structure is above 127, or there is no memory. What was read before stays.
    KOVRAN_API bool parse(bool commonInfPresentFlag, unsigned int maxNumSubLayersMinus1,
                          h2645_common_bitreader& reader);
    KOVRAN_API bool parse(bool commonInfPresentFlag, unsigned int maxNumSubLayersMinus1,
                          h2645_common_bitreader& reader, h265_trace& trace,
                          h265_fault* fault = nullptr);

    // The same by the standard's own rules, in a record that is reset first: an absent
    // low_delay_hrd_flag is false, and an absent dpb_output_delay_length_minus1 is 23. Absent
    // common information stays absent; only h265_nal_vps takes over that of an earlier structure.
    // False, with `valid` false: maxNumSubLayersMinus1 is above 6, a cpb_cnt_minus1 that sizes a
    // sub-layer structure above 31 or more than the data can hold, the data ends, or there is no
    // memory.
    KOVRAN_API bool parse_standard(bool commonInfPresentFlag, unsigned int maxNumSubLayersMinus1,
                                   h2645_common_bitreader& reader, h265_fault* fault = nullptr);
    KOVRAN_API bool parse_standard(bool commonInfPresentFlag, unsigned int maxNumSubLayersMinus1,
                                   h2645_common_bitreader& reader, h265_trace& trace,
                                   h265_fault* fault = nullptr);
};

}  // namespace kovran

#endif  // KOVRAN_H265_H265_HRD_PARAMETERS_H
