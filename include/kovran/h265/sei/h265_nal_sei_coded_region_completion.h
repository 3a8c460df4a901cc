#ifndef KOVRAN_H265_SEI_H265_NAL_SEI_CODED_REGION_COMPLETION_H
#define KOVRAN_H265_SEI_H265_NAL_SEI_CODED_REGION_COMPLETION_H

#include <kovran/export.h>
#include <kovran/h2645_common/h2645_common_bitreader.h>
#include <kovran/h265/h265_fault.h>
#include <kovran/h265/h265_trace.h>

namespace kovran {

// coded_region_completion(), clause D.2.37.
struct h265_nal_sei_coded_region_completion {
    static constexpr unsigned int payload_type = 146;
    static constexpr const char* payload_name = "coded_region_completion";

    unsigned int next_segment_address = 0;  // ue(v), of the next slice segment; 0: none is coded
    bool independent_slice_segment_flag = false;  // u(1), when next_segment_address > 0

    bool valid = false;  // the latest parse succeeded

    // Reads one payload up to its last element, in a record that is reset first. False, with
    // `valid` false: the data ends.
    KOVRAN_API bool parse_standard(h2645_common_bitreader& reader, h265_fault* fault = nullptr);
    KOVRAN_API bool parse_standard(h2645_common_bitreader& reader, h265_trace& trace,
                                   h265_fault* fault = nullptr);
};

}  // namespace kovran

#endif  // KOVRAN_H265_SEI_H265_NAL_SEI_CODED_REGION_COMPLETION_H
