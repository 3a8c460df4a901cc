#ifndef KOVRAN_H265_SEI_H265_NAL_SEI_MULTIVIEW_VIEW_POSITION_H
#define KOVRAN_H265_SEI_H265_NAL_SEI_MULTIVIEW_VIEW_POSITION_H

#include <kovran/export.h>
#include <kovran/h2645_common/h2645_common_bitreader.h>
#include <kovran/h265/h265_fault.h>
#include <kovran/h265/h265_trace.h>

#include <vector>

namespace kovran {

// multiview_view_position(), clause G.14.2.
struct h265_nal_sei_multiview_view_position {
    static constexpr unsigned int payload_type = 180;
    static constexpr const char* payload_name = "multiview_view_position";

    unsigned int num_views_minus1 = 0;  // ue(v)

    // num_views_minus1 + 1 entries: where the views are, from left to right.
    std::vector<unsigned int> view_position;  // ue(v)

    bool valid = false;  // the latest parse succeeded

    // Reads one payload up to its last element, in a record that is reset first. False, with
    // `valid` false: there are more views than the data can hold, the data ends, or there is no
    // memory.
    KOVRAN_API bool parse_standard(h2645_common_bitreader& reader, h265_fault* fault = nullptr);
    KOVRAN_API bool parse_standard(h2645_common_bitreader& reader, h265_trace& trace,
                                   h265_fault* fault = nullptr);
};

}  // namespace kovran

#endif  // KOVRAN_H265_SEI_H265_NAL_SEI_MULTIVIEW_VIEW_POSITION_H
