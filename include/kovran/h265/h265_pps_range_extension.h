#ifndef KOVRAN_H265_H265_PPS_RANGE_EXTENSION_H
#define KOVRAN_H265_H265_PPS_RANGE_EXTENSION_H

#include <vector>

namespace kovran {

// pps_range_extension(), clause 7.3.2.3.2, as h265_nal_pps::parse_standard() reads it. Without the
// extension all fields are 0, false or empty.
struct h265_pps_range_extension {
    unsigned int log2_max_transform_skip_block_size_minus2 = 0;  // ue(v), when
                                                                 // transform_skip_enabled_flag
    bool cross_component_prediction_enabled_flag = false;        // u(1)

    bool chroma_qp_offset_list_enabled_flag = false;    // u(1)
    unsigned int diff_cu_chroma_qp_offset_depth = 0;    // ue(v), with that flag
    unsigned int chroma_qp_offset_list_len_minus1 = 0;  // ue(v), likewise
    // chroma_qp_offset_list_len_minus1 + 1 entries, likewise.
    std::vector<int> cb_qp_offset_list;  // se(v)
    std::vector<int> cr_qp_offset_list;  // se(v)

    unsigned int log2_sao_offset_scale_luma = 0;    // ue(v)
    unsigned int log2_sao_offset_scale_chroma = 0;  // ue(v)
};

}  // namespace kovran

#endif  // KOVRAN_H265_H265_PPS_RANGE_EXTENSION_H
