#include <kovran/h265/h265_picture_rate.h>

namespace kovran {

h265_picture_rate h265_picture_rate_of(const h265_nal_sps& sps, const h265_nal_vps* vps) {
    const h265_vui_parameters& vui = sps.vui_parameters;
    if (sps.vui_parameters_present_flag && vui.vui_timing_info_present_flag) {
        const h265_picture_rate rate{vui.vui_time_scale, vui.vui_num_units_in_tick};
        if (rate.is_known()) {
            return rate;
        }
    }
    if (vps != nullptr && vps->vps_timing_info_present_flag) {
        const h265_picture_rate rate{vps->vps_time_scale, vps->vps_num_units_in_tick};
        if (rate.is_known()) {
            return rate;
        }
    }
    return {};
}

}  // namespace kovran
