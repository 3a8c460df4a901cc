#ifndef KOVRAN_H265_SEI_H265_NAL_SEI_PAN_SCAN_RECT_H
#define KOVRAN_H265_SEI_H265_NAL_SEI_PAN_SCAN_RECT_H

#include <kovran/export.h>
#include <kovran/h2645_common/h2645_common_bitreader.h>
#include <kovran/h265/h265_fault.h>
#include <kovran/h265/h265_trace.h>

#include <vector>

namespace kovran {

// pan_scan_rect(), clause D.2.4.
struct h265_nal_sei_pan_scan_rect {
    static constexpr unsigned int payload_type = 2;
    static constexpr const char* payload_name = "pan_scan_rect";

    // Offsets from the conformance window, in units of one sixteenth of a luma sample.
    struct rect_t {
        int pan_scan_rect_left_offset = 0;    // se(v)
        int pan_scan_rect_right_offset = 0;   // se(v)
        int pan_scan_rect_top_offset = 0;     // se(v)
        int pan_scan_rect_bottom_offset = 0;  // se(v)
    };

    unsigned int pan_scan_rect_id = 0;       // ue(v)
    bool pan_scan_rect_cancel_flag = false;  // u(1)

    // Unless pan_scan_rect_cancel_flag.
    unsigned int pan_scan_cnt_minus1 = 0;         // ue(v)
    std::vector<rect_t> rects;                    // pan_scan_cnt_minus1 + 1 entries
    bool pan_scan_rect_persistence_flag = false;  // u(1)

    bool valid = false;  // the latest parse succeeded

    // Reads one payload up to its last element, in a record that is reset first. False, with
    // `valid` false: there are more than 3 rectangles; the data ends; or there is no memory.
    KOVRAN_API bool parse_standard(h2645_common_bitreader& reader, h265_fault* fault = nullptr);
    KOVRAN_API bool parse_standard(h2645_common_bitreader& reader, h265_trace& trace,
                                   h265_fault* fault = nullptr);
};

}  // namespace kovran

#endif  // KOVRAN_H265_SEI_H265_NAL_SEI_PAN_SCAN_RECT_H
