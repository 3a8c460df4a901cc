#ifndef KOVRAN_H265_SEI_H265_NAL_SEI_TEMPORAL_SUB_LAYER_ZERO_IDX_H
#define KOVRAN_H265_SEI_H265_NAL_SEI_TEMPORAL_SUB_LAYER_ZERO_IDX_H

#include <kovran/export.h>
#include <kovran/h2645_common/h2645_common_bitreader.h>
#include <kovran/h265/h265_fault.h>
#include <kovran/h265/h265_trace.h>

namespace kovran {

// temporal_sub_layer_zero_idx(), clause D.2.23.
struct h265_nal_sei_temporal_sub_layer_zero_idx {
    static constexpr unsigned int payload_type = 131;
    static constexpr const char* payload_name = "temporal_sub_layer_zero_idx";

    unsigned char temporal_sub_layer_zero_idx = 0;  // u(8)
    unsigned char irap_pic_id = 0;                  // u(8)

    bool valid = false;  // the latest parse succeeded

    // Reads one payload up to its last element, in a record that is reset first. False, with
    // `valid` false: the data ends.
    KOVRAN_API bool parse_standard(h2645_common_bitreader& reader, h265_fault* fault = nullptr);
    KOVRAN_API bool parse_standard(h2645_common_bitreader& reader, h265_trace& trace,
                                   h265_fault* fault = nullptr);
};

}  // namespace kovran

#endif  // KOVRAN_H265_SEI_H265_NAL_SEI_TEMPORAL_SUB_LAYER_ZERO_IDX_H
