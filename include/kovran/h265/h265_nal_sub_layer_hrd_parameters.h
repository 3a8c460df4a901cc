#ifndef KOVRAN_H265_H265_NAL_SUB_LAYER_HRD_PARAMETERS_H
#define KOVRAN_H265_H265_NAL_SUB_LAYER_HRD_PARAMETERS_H

#include <kovran/export.h>
#include <kovran/h2645_common/h2645_common_bitreader.h>
#include <kovran/h265/h265_fault.h>
#include <kovran/h265/h265_trace.h>

#include <vector>

namespace kovran {

struct h265_hrd_parameters;

// sub_layer_hrd_parameters(), clause E.2.3. Every array has cpb_count entries.
struct h265_nal_sub_layer_hrd_parameters {
    unsigned int subLayerId = 0;  // as given to parse
    unsigned int cpb_count = 0;   // as given to parse

    std::vector<unsigned int> bit_rate_value_minus1;     // ue(v)
    std::vector<unsigned int> cpb_size_value_minus1;     // ue(v)
    std::vector<unsigned int> cpb_size_du_value_minus1;  // ue(v), with sub-picture parameters
    std::vector<unsigned int> bit_rate_du_value_minus1;  // ue(v), with sub-picture parameters
    std::vector<bool> cbr_flag;                          // u(1)

    bool valid = false;  // the latest parse succeeded

    // Reads one structure of `cpb_count` CPB specifications; of `hrd` it uses
    // sub_pic_hrd_params_present_flag. False when cpb_count is above 128 or there is no memory;
    // `valid` is then false.
    KOVRAN_API bool parse(unsigned int subLayerId, unsigned int cpb_count,
                          const h265_hrd_parameters& hrd, h2645_common_bitreader& reader);
    KOVRAN_API bool parse(unsigned int subLayerId, unsigned int cpb_count,
                          const h265_hrd_parameters& hrd, h2645_common_bitreader& reader,
                          h265_trace& trace, h265_fault* fault = nullptr);

    // The same by the standard's own rules, in a record that is reset first. False, with `valid`
    // false: there are more than 32 CPB specifications or more than the data can hold, the data
    // ends, or there is no memory.
    KOVRAN_API bool parse_standard(unsigned int subLayerId, unsigned int cpb_count,
                                   const h265_hrd_parameters& hrd, h2645_common_bitreader& reader,
                                   h265_fault* fault = nullptr);
    KOVRAN_API bool parse_standard(unsigned int subLayerId, unsigned int cpb_count,
                                   const h265_hrd_parameters& hrd, h2645_common_bitreader& reader,
                                   h265_trace& trace, h265_fault* fault = nullptr);
};

}  // namespace kovran

#endif  // KOVRAN_H265_H265_NAL_SUB_LAYER_HRD_PARAMETERS_H
