#ifndef KOVRAN_H265_H265_REF_PIC_LISTS_MODIFICATION_H
#define KOVRAN_H265_H265_REF_PIC_LISTS_MODIFICATION_H

#include <kovran/export.h>
#include <kovran/h2645_common/h2645_common_bitreader.h>
#include <kovran/h265/h265_fault.h>
#include <kovran/h265/h265_trace.h>

#include <vector>

namespace kovran {

struct h265_slice_segment_header;

// ref_pic_lists_modification(), clause 7.3.6.2.
struct h265_ref_pic_lists_modification {
    bool ref_pic_list_modification_flag_l0 = false;  // u(1)
    std::vector<unsigned int> list_entry_l0;  // u(v), num_ref_idx_l0_active_minus1 + 1 entries
    bool ref_pic_list_modification_flag_l1 = false;  // u(1), B slices
    std::vector<unsigned int> list_entry_l1;  // u(v), num_ref_idx_l1_active_minus1 + 1 entries

    bool valid = false;  // the latest parse succeeded

    // Reads one structure; of `header` it uses NumPicTotalCurr, slice_type and the two
    // num_ref_idx_lX_active_minus1. A list whose flag is 0 or absent keeps its entries. False, with
    // `valid` false and nothing read, when NumPicTotalCurr is 0. Throws std::bad_alloc or
    // std::length_error when a list cannot grow, and std::bad_alloc for more than 1,048,576
    // entries, before anything is allocated.
    KOVRAN_API bool parse(h2645_common_bitreader& reader, const h265_slice_segment_header& header);
    KOVRAN_API bool parse(h2645_common_bitreader& reader, const h265_slice_segment_header& header,
                          h265_trace& trace, h265_fault* fault = nullptr);

    // The same by the standard's own rules, in a record that is reset first: entries have
    // Ceil(Log2(NumPicTotalCurr)) bits. False, with `valid` false: NumPicTotalCurr is 0 or either
    // list of `header` has more than 15 entries, of which nothing is read, or the data ends. Throws
    // std::bad_alloc when there is no memory.
    KOVRAN_API bool parse_standard(h2645_common_bitreader& reader,
                                   const h265_slice_segment_header& header,
                                   h265_fault* fault = nullptr);
    KOVRAN_API bool parse_standard(h2645_common_bitreader& reader,
                                   const h265_slice_segment_header& header, h265_trace& trace,
                                   h265_fault* fault = nullptr);
};

}  // namespace kovran

#endif  // KOVRAN_H265_H265_REF_PIC_LISTS_MODIFICATION_H
