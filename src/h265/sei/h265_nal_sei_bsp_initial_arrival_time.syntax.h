#ifndef KOVRAN_SRC_H265_SEI_H265_NAL_SEI_BSP_INITIAL_ARRIVAL_TIME_SYNTAX_H
#define KOVRAN_SRC_H265_SEI_H265_NAL_SEI_BSP_INITIAL_ARRIVAL_TIME_SYNTAX_H

#include <kovran/h265/sei/h265_nal_sei_bsp_initial_arrival_time.h>

#include "h2645_common/element.h"
#include "h265/sei/sei_context.h"
#include "h265/start_afresh.h"

#include <cstddef>
#include <vector>

namespace kovran {

inline void start_afresh(h265_nal_sei_bsp_initial_arrival_time& record) {
    auto& [nal_initial_arrival_delay, vcl_initial_arrival_delay, valid] = record;
    start_all_afresh(nal_initial_arrival_delay, vcl_initial_arrival_delay, valid);
}

template <class Walker>
[[nodiscard]] bool bsp_arrival_delays(Walker& walk, element<std::vector<unsigned int>&> delay,
                                      const h265_hrd_parameters& hrd, unsigned int BspSchedCnt) {
    const auto width = static_cast<unsigned char>(hrd.initial_cpb_removal_delay_length_minus1 + 1);
    if (!walk.data_holds(named("BspSchedCnt", BspSchedCnt), BspSchedCnt, width) ||
        !walk.grow(BspSchedCnt, delay.field)) {
        return false;
    }
    for (std::size_t i = 0; i < BspSchedCnt; ++i) {
        walk.u_v(width, delay[i]);
    }
    return true;
}

// bsp_initial_arrival_time(), clause F.14.2.
template <class Walker>
[[nodiscard]] bool bsp_initial_arrival_time(Walker& walk,
                                            h265_nal_sei_bsp_initial_arrival_time& arrival,
                                            const h265_hrd_parameters& hrd,
                                            unsigned int BspSchedCnt) {
    if (hrd.nal_hrd_parameters_present_flag &&
        !bsp_arrival_delays(walk, ELEMENT(arrival, nal_initial_arrival_delay), hrd, BspSchedCnt)) {
        return false;
    }
    if (hrd.vcl_hrd_parameters_present_flag &&
        !bsp_arrival_delays(walk, ELEMENT(arrival, vcl_initial_arrival_delay), hrd, BspSchedCnt)) {
        return false;
    }
    return walk.finish(arrival.valid);
}

// What it needs stands in the extension of a VPS, which is not read.
template <class Walker>
[[nodiscard]] bool payload_syntax(Walker& walk, h265_nal_sei_bsp_initial_arrival_time& /*arrival*/,
                                  const sei_context& context) {
    return walk.missing("VPS", context.active_sps() != nullptr
                                   ? context.active_sps()->sps_video_parameter_set_id
                                   : h2645_common_base_store<h265_nal_vps>::no_id);
}

}  // namespace kovran

#endif  // KOVRAN_SRC_H265_SEI_H265_NAL_SEI_BSP_INITIAL_ARRIVAL_TIME_SYNTAX_H
