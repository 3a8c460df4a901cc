#ifndef KOVRAN_H265_SEI_H265_NAL_SEI_TEMPORAL_MV_PREDICTION_CONSTRAINTS_H
#define KOVRAN_H265_SEI_H265_NAL_SEI_TEMPORAL_MV_PREDICTION_CONSTRAINTS_H

#include <kovran/export.h>
#include <kovran/h2645_common/h2645_common_bitreader.h>
#include <kovran/h265/h265_fault.h>
#include <kovran/h265/h265_trace.h>

namespace kovran {

// temporal_mv_prediction_constraints(), clause F.14.2.
struct h265_nal_sei_temporal_mv_prediction_constraints {
    static constexpr unsigned int payload_type = 167;
    static constexpr const char* payload_name = "temporal_mv_prediction_constraints";

    bool prev_pics_not_used_flag = false;      // u(1)
    bool no_intra_layer_col_pic_flag = false;  // u(1)

    bool valid = false;  // the latest parse succeeded

    // Reads one payload up to its last element, in a record that is reset first. False, with
    // `valid` false: the data ends.
    KOVRAN_API bool parse_standard(h2645_common_bitreader& reader, h265_fault* fault = nullptr);
    KOVRAN_API bool parse_standard(h2645_common_bitreader& reader, h265_trace& trace,
                                   h265_fault* fault = nullptr);
};

}  // namespace kovran

#endif  // KOVRAN_H265_SEI_H265_NAL_SEI_TEMPORAL_MV_PREDICTION_CONSTRAINTS_H
