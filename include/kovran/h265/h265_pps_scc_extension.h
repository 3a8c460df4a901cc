#ifndef KOVRAN_H265_H265_PPS_SCC_EXTENSION_H
#define KOVRAN_H265_H265_PPS_SCC_EXTENSION_H

#include <array>
#include <vector>

namespace kovran {

// pps_scc_extension(), clause 7.3.2.3.3, for screen content, as h265_nal_pps::parse_standard()
// reads it. Without the extension all fields are 0, false or empty.
struct h265_pps_scc_extension {
    bool pps_curr_pic_ref_enabled_flag = false;  // u(1)

    bool residual_adaptive_colour_transform_enabled_flag = false;  // u(1)
    bool pps_slice_act_qp_offsets_present_flag = false;            // u(1), with that flag
    int pps_act_y_qp_offset_plus5 = 0;                             // se(v), likewise
    int pps_act_cb_qp_offset_plus5 = 0;                            // se(v), likewise
    int pps_act_cr_qp_offset_plus3 = 0;                            // se(v), likewise

    bool pps_palette_predictor_initializers_present_flag = false;  // u(1)
    unsigned int pps_num_palette_predictor_initializers = 0;       // ue(v), with that flag
    bool monochrome_palette_flag = false;                          // u(1), unless there are none
    unsigned int luma_bit_depth_entry_minus8 = 0;                  // ue(v), likewise
    unsigned int chroma_bit_depth_entry_minus8 = 0;  // ue(v), unless monochrome_palette_flag
    // u(v): pps_num_palette_predictor_initializers samples of each colour component; with
    // monochrome_palette_flag there is only the first.
    std::array<std::vector<unsigned int>, 3> pps_palette_predictor_initializer;
};

}  // namespace kovran

#endif  // KOVRAN_H265_H265_PPS_SCC_EXTENSION_H
