#ifndef KOVRAN_H265_SEI_H265_NAL_SEI_SEGMENTED_RECT_FRAME_PACKING_ARRANGEMENT_H
#define KOVRAN_H265_SEI_H265_NAL_SEI_SEGMENTED_RECT_FRAME_PACKING_ARRANGEMENT_H

#include <kovran/export.h>
#include <kovran/h2645_common/h2645_common_bitreader.h>
#include <kovran/h265/h265_fault.h>
#include <kovran/h265/h265_trace.h>

namespace kovran {

// segmented_rect_frame_packing_arrangement(), clause D.2.29.
struct h265_nal_sei_segmented_rect_frame_packing_arrangement {
    static constexpr unsigned int payload_type = 138;
    static constexpr const char* payload_name = "segmented_rect_frame_packing_arrangement";

    bool segmented_rect_frame_packing_arrangement_cancel_flag = false;  // u(1)

    // Unless segmented_rect_frame_packing_arrangement_cancel_flag.
    unsigned char segmented_rect_content_interpretation_type = 0;  // u(2): 1 the left view is frame
                                                                   // 0, 2 the right one
    bool segmented_rect_frame_packing_arrangement_persistence_flag = false;  // u(1)

    bool valid = false;  // the latest parse succeeded

    // Reads one payload up to its last element, in a record that is reset first. False, with
    // `valid` false: the data ends.
    KOVRAN_API bool parse_standard(h2645_common_bitreader& reader, h265_fault* fault = nullptr);
    KOVRAN_API bool parse_standard(h2645_common_bitreader& reader, h265_trace& trace,
                                   h265_fault* fault = nullptr);
};

}  // namespace kovran

#endif  // KOVRAN_H265_SEI_H265_NAL_SEI_SEGMENTED_RECT_FRAME_PACKING_ARRANGEMENT_H
