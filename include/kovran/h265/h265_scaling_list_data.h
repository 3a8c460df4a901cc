#ifndef KOVRAN_H265_H265_SCALING_LIST_DATA_H
#define KOVRAN_H265_H265_SCALING_LIST_DATA_H

#include <kovran/export.h>
#include <kovran/h2645_common/h2645_common_bitreader.h>
#include <kovran/h265/h265_fault.h>
#include <kovran/h265/h265_trace.h>

#include <vector>

namespace kovran {

// scaling_list_data(), clause 7.3.4, as it is coded: by sizeId (0 to 3: 4x4 to 32x32), then
// matrixId (0 to 5; of 32x32 only 0 and 3), coefficients in scan order. A predicted matrix is not
// filled in from its reference or from the default lists.
struct h265_scaling_list_data {
    // 4 x 6.
    std::vector<std::vector<bool>> scaling_list_pred_mode_flag;  // u(1)
    // 4 x 6, where scaling_list_pred_mode_flag is 0.
    std::vector<std::vector<unsigned int>> scaling_list_pred_matrix_id_delta;  // ue(v)
    // 2 x 6, for sizeId 2 and 3 where it is 1.
    std::vector<std::vector<int>> scaling_list_dc_coef_minus8;  // se(v)
    // 4 x 6 x 16 or 64, where it is 1.
    std::vector<std::vector<std::vector<int>>> ScalingList;

    bool valid = false;  // the latest parse succeeded

    // Reads one structure. Entries that it does not visit keep their values. False when there is no
    // memory; `valid` is then false.
    KOVRAN_API bool parse(h2645_common_bitreader& reader);
    KOVRAN_API bool parse(h2645_common_bitreader& reader, h265_trace& trace,
                          h265_fault* fault = nullptr);

    // The same by the standard's own rules, in a record that is reset first: a predicted matrix,
    // and its DC coefficient, are those of its reference or of the default lists, tables 7-5 and
    // 7-6. False, with `valid` false: scaling_list_pred_matrix_id_delta names no matrix before it,
    // the data ends, or there is no memory.
    KOVRAN_API bool parse_standard(h2645_common_bitreader& reader, h265_fault* fault = nullptr);
    KOVRAN_API bool parse_standard(h2645_common_bitreader& reader, h265_trace& trace,
                                   h265_fault* fault = nullptr);
};

}  // namespace kovran

#endif  // KOVRAN_H265_H265_SCALING_LIST_DATA_H
