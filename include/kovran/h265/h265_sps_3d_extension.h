#ifndef KOVRAN_H265_H265_SPS_3D_EXTENSION_H
#define KOVRAN_H265_H265_SPS_3D_EXTENSION_H

#include <array>

namespace kovran {

// sps_3d_extension(), clause I.7.3.2.2.5, as h265_nal_sps::parse_standard() reads it. Of each array
// entry 0 is for texture layers and entry 1 for depth layers; elements that only one of them has
// are 0 or false for the other.
struct h265_sps_3d_extension {
    std::array<bool, 2> iv_di_mc_enabled_flag{};                  // u(1)
    std::array<bool, 2> iv_mv_scal_enabled_flag{};                // u(1)
    std::array<unsigned int, 2> log2_ivmc_sub_pb_size_minus3{};   // ue(v), texture
    std::array<bool, 2> iv_res_pred_enabled_flag{};               // u(1), texture
    std::array<bool, 2> depth_ref_enabled_flag{};                 // u(1), texture
    std::array<bool, 2> vsp_mc_enabled_flag{};                    // u(1), texture
    std::array<bool, 2> dbbp_enabled_flag{};                      // u(1), texture
    std::array<bool, 2> tex_mc_enabled_flag{};                    // u(1), depth
    std::array<unsigned int, 2> log2_texmc_sub_pb_size_minus3{};  // ue(v), depth
    std::array<bool, 2> intra_contour_enabled_flag{};             // u(1), depth
    std::array<bool, 2> intra_dc_only_wedge_enabled_flag{};       // u(1), depth
    std::array<bool, 2> cqt_cu_part_pred_enabled_flag{};          // u(1), depth
    std::array<bool, 2> inter_dc_only_enabled_flag{};             // u(1), depth
    std::array<bool, 2> skip_intra_enabled_flag{};                // u(1), depth
};

}  // namespace kovran

#endif  // KOVRAN_H265_H265_SPS_3D_EXTENSION_H
