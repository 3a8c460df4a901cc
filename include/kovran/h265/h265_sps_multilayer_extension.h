#ifndef KOVRAN_H265_H265_SPS_MULTILAYER_EXTENSION_H
#define KOVRAN_H265_H265_SPS_MULTILAYER_EXTENSION_H

namespace kovran {

// sps_multilayer_extension(), clause F.7.3.2.2.4, as h265_nal_sps::parse_standard() reads it.
struct h265_sps_multilayer_extension {
    bool inter_view_mv_vert_constraint_flag = false;  // u(1)
};

}  // namespace kovran

#endif  // KOVRAN_H265_H265_SPS_MULTILAYER_EXTENSION_H
