#ifndef KOVRAN_H265_H265_PPS_3D_EXTENSION_H
#define KOVRAN_H265_H265_PPS_3D_EXTENSION_H

#include <kovran/h265/h265_delta_dlt.h>

#include <vector>

namespace kovran {

// pps_3d_extension(), clause I.7.3.2.3.7, with the depth lookup tables of the depth layers, as
// h265_nal_pps::parse_standard() reads it. Without the extension all fields are 0, false or empty.
struct h265_pps_3d_extension {
    bool dlts_present_flag = false;                           // u(1)
    unsigned char pps_depth_layers_minus1 = 0;                // u(6), with that flag
    unsigned char pps_bit_depth_for_depth_layers_minus8 = 0;  // u(4), likewise

    // pps_depth_layers_minus1 + 1 entries each, likewise.
    std::vector<bool> dlt_flag;                     // u(1)
    std::vector<bool> dlt_pred_flag;                // u(1), with dlt_flag
    std::vector<bool> dlt_val_flags_present_flag;   // u(1), with dlt_flag, not dlt_pred_flag
    std::vector<std::vector<bool>> dlt_value_flag;  // u(1), with dlt_val_flags_present_flag:
                                                    // a flag for each depth value
    std::vector<h265_delta_dlt> delta_dlt;          // with dlt_flag, without that flag
};

}  // namespace kovran

#endif  // KOVRAN_H265_H265_PPS_3D_EXTENSION_H
