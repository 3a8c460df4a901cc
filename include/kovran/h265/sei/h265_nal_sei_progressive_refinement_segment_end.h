#ifndef KOVRAN_H265_SEI_H265_NAL_SEI_PROGRESSIVE_REFINEMENT_SEGMENT_END_H
#define KOVRAN_H265_SEI_H265_NAL_SEI_PROGRESSIVE_REFINEMENT_SEGMENT_END_H

#include <kovran/export.h>
#include <kovran/h2645_common/h2645_common_bitreader.h>
#include <kovran/h265/h265_fault.h>
#include <kovran/h265/h265_trace.h>

namespace kovran {

// progressive_refinement_segment_end(), clause D.2.12.
struct h265_nal_sei_progressive_refinement_segment_end {
    static constexpr unsigned int payload_type = 17;
    static constexpr const char* payload_name = "progressive_refinement_segment_end";

    unsigned int progressive_refinement_id = 0;  // ue(v), that of the start

    bool valid = false;  // the latest parse succeeded

    // Reads one payload up to its last element, in a record that is reset first. False, with
    // `valid` false: the data ends.
    KOVRAN_API bool parse_standard(h2645_common_bitreader& reader, h265_fault* fault = nullptr);
    KOVRAN_API bool parse_standard(h2645_common_bitreader& reader, h265_trace& trace,
                                   h265_fault* fault = nullptr);
};

}  // namespace kovran

#endif  // KOVRAN_H265_SEI_H265_NAL_SEI_PROGRESSIVE_REFINEMENT_SEGMENT_END_H
