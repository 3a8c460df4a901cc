#ifndef KOVRAN_H265_H265_ST_REF_PIC_SET_H
#define KOVRAN_H265_H265_ST_REF_PIC_SET_H

#include <kovran/export.h>
#include <kovran/h2645_common/h2645_common_bitreader.h>
#include <kovran/h265/h265_fault.h>
#include <kovran/h265/h265_trace.h>

#include <vector>

namespace kovran {

struct h265_nal_sps;

// st_ref_pic_set(), clause 7.3.7, as it is coded. A predicted set gets no pictures: the lists of
// equations 7-61 and 7-62 are not derived.
struct h265_st_ref_pic_set {
    int deltaRps = 0;  // (1 - 2 * delta_rps_sign) * (abs_delta_rps_minus1 + 1), in a predicted set
    unsigned int stRpsIdx = 0;      // as given to parse
    unsigned int RefRpsIdx = 0;     // the set that this one is predicted from, or its own index
    unsigned int NumDeltaPocs = 0;  // num_negative_pics + num_positive_pics

    bool inter_ref_pic_set_prediction_flag = false;  // u(1), or false in set 0
    // A predicted set.
    unsigned int delta_idx_minus1 = 0;        // ue(v) in a slice segment header, else 0
    bool delta_rps_sign = false;              // u(1)
    unsigned int abs_delta_rps_minus1 = 0;    // ue(v)
    std::vector<bool> used_by_curr_pic_flag;  // u(1), NumDeltaPocs of the reference + 1
    std::vector<bool> use_delta_flag;         // u(1), or true where the flag above is

    // A set that is coded explicitly.
    unsigned int num_negative_pics = 0;             // ue(v), or 0 in a predicted set
    unsigned int num_positive_pics = 0;             // ue(v), or 0 in a predicted set
    std::vector<unsigned int> delta_poc_s0_minus1;  // ue(v), num_negative_pics entries
    std::vector<bool> used_by_curr_pic_s0_flag;     // u(1), likewise
    std::vector<unsigned int> delta_poc_s1_minus1;  // ue(v), num_positive_pics entries
    std::vector<bool> used_by_curr_pic_s1_flag;     // u(1), likewise

    bool valid = false;  // the latest parse succeeded

    // Reads the set with index `idx` of an SPS, or that of a slice segment header when `idx` is
    // num_short_term_ref_pic_sets of `sps`. `sets` are those of the SPS, and may hold this record.
    // Vectors of the coding that is not used keep their values.
    //
    // False, with `valid` false: the reference is outside `sets`, has more than 127 pictures, or
    // fewer than its own two counts say; num_negative_pics or num_positive_pics is above 128; or
    // there is no memory. What was read before stays, counts included.
    KOVRAN_API bool parse(h2645_common_bitreader& reader, const h265_nal_sps& sps, unsigned int idx,
                          const std::vector<h265_st_ref_pic_set>& sets);
    KOVRAN_API bool parse(h2645_common_bitreader& reader, const h265_nal_sps& sps, unsigned int idx,
                          const std::vector<h265_st_ref_pic_set>& sets, h265_trace& trace,
                          h265_fault* fault = nullptr);

    // The same by the standard's own rules, in a record that is reset first. A predicted set gets
    // its pictures, equations 7-61 and 7-62: num_negative_pics, num_positive_pics, NumDeltaPocs and
    // the four arrays are as if it had been coded explicitly. The sets that it is predicted from
    // must have been read this way too.
    //
    // False, with `valid` false: the reference is outside `sets`, or its arrays do not fit its
    // counts; this set or the reference has more than 16 pictures; a predicted picture is outside
    // -2^15 to 2^15 - 1; the data ends; or there is no memory.
    KOVRAN_API bool parse_standard(h2645_common_bitreader& reader, const h265_nal_sps& sps,
                                   unsigned int idx, const std::vector<h265_st_ref_pic_set>& sets,
                                   h265_fault* fault = nullptr);
    KOVRAN_API bool parse_standard(h2645_common_bitreader& reader, const h265_nal_sps& sps,
                                   unsigned int idx, const std::vector<h265_st_ref_pic_set>& sets,
                                   h265_trace& trace, h265_fault* fault = nullptr);
};

}  // namespace kovran

#endif  // KOVRAN_H265_H265_ST_REF_PIC_SET_H
