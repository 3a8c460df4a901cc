#ifndef KOVRAN_H265_SEI_H265_NAL_SEI_POST_FILTER_HINT_H
#define KOVRAN_H265_SEI_H265_NAL_SEI_POST_FILTER_HINT_H

#include <kovran/export.h>
#include <kovran/h2645_common/h2645_common_bitreader.h>
#include <kovran/h265/h265_fault.h>
#include <kovran/h265/h265_nal_sps.h>
#include <kovran/h265/h265_trace.h>

#include <vector>

namespace kovran {

// post_filter_hint(), clause D.2.14.
struct h265_nal_sei_post_filter_hint {
    static constexpr unsigned int payload_type = 22;
    static constexpr const char* payload_name = "post_filter_hint";

    unsigned int filter_hint_size_y = 0;  // ue(v), 1 to 15
    unsigned int filter_hint_size_x = 0;  // ue(v), 1 to 15
    unsigned char filter_hint_type = 0;   // u(2): 0 two-dimensional FIR filter, 1 two
                                          // one-dimensional ones, 2 cross-correlation matrix

    // se(v). Matrices of filter_hint_size_y rows of filter_hint_size_x entries, one after the
    // other: Y, Cb, Cr, or Y alone when chroma_format_idc is 0.
    std::vector<int> filter_hint_value;

    bool valid = false;  // the latest parse succeeded

    // Reads one payload up to its last element, in a record that is reset first. `sps` is the
    // active one; it tells which planes there are. False, with `valid` false: a size is above 15;
    // the data ends; or there is no memory.
    KOVRAN_API bool parse_standard(h2645_common_bitreader& reader, const h265_nal_sps& sps,
                                   h265_fault* fault = nullptr);
    KOVRAN_API bool parse_standard(h2645_common_bitreader& reader, const h265_nal_sps& sps,
                                   h265_trace& trace, h265_fault* fault = nullptr);
};

}  // namespace kovran

#endif  // KOVRAN_H265_SEI_H265_NAL_SEI_POST_FILTER_HINT_H
