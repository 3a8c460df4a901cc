#ifndef KOVRAN_H265_H265_SPS_SCC_EXTENSION_H
#define KOVRAN_H265_H265_SPS_SCC_EXTENSION_H

#include <array>
#include <vector>

namespace kovran {

// sps_scc_extension(), clause 7.3.2.2.3, for screen content, as h265_nal_sps::parse_standard()
// reads it. Without the extension all fields are 0, false or empty.
struct h265_sps_scc_extension {
    bool sps_curr_pic_ref_enabled_flag = false;  // u(1)

    bool palette_mode_enabled_flag = false;                          // u(1)
    unsigned int palette_max_size = 0;                               // ue(v), with palette_mode_
    unsigned int delta_palette_max_predictor_size = 0;               // ue(v), likewise
    bool sps_palette_predictor_initializers_present_flag = false;    // u(1), likewise
    unsigned int sps_num_palette_predictor_initializers_minus1 = 0;  // ue(v), with that flag
    // u(v), with that flag: sps_num_palette_predictor_initializers_minus1 + 1 samples of each
    // colour component; where chroma_format_idc is 0 there is only the first.
    std::array<std::vector<unsigned int>, 3> sps_palette_predictor_initializer;

    unsigned char motion_vector_resolution_control_idc = 0;  // u(2)
    bool intra_boundary_filtering_disabled_flag = false;     // u(1)
};

}  // namespace kovran

#endif  // KOVRAN_H265_H265_SPS_SCC_EXTENSION_H
