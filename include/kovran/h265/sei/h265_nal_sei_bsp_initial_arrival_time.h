#ifndef KOVRAN_H265_SEI_H265_NAL_SEI_BSP_INITIAL_ARRIVAL_TIME_H
#define KOVRAN_H265_SEI_H265_NAL_SEI_BSP_INITIAL_ARRIVAL_TIME_H

#include <kovran/export.h>
#include <kovran/h2645_common/h2645_common_bitreader.h>
#include <kovran/h265/h265_fault.h>
#include <kovran/h265/h265_hrd_parameters.h>
#include <kovran/h265/h265_trace.h>

#include <vector>

namespace kovran {

// bsp_initial_arrival_time(), clause F.14.2.
struct h265_nal_sei_bsp_initial_arrival_time {
    static constexpr unsigned int payload_type = 163;
    static constexpr const char* payload_name = "bsp_initial_arrival_time";

    // In units of a 90 kHz clock; an entry for each delivery schedule.
    std::vector<unsigned int> nal_initial_arrival_delay;  // u(v), when hrd has NAL HRD parameters
    std::vector<unsigned int> vcl_initial_arrival_delay;  // u(v), when hrd has VCL HRD parameters

    bool valid = false;  // the latest parse succeeded

    // Reads one payload up to its last element, in a record that is reset first. `hrd` is that of
    // the bitstream partition, and BspSchedCnt the number of its delivery schedules; both stand in
    // the extension of a VPS, and h265_nal_sei_message has neither: it keeps the payload as bytes.
    // False, with `valid` false: there are more schedules than the data can hold; the data ends; or
    // there is no memory.
    KOVRAN_API bool parse_standard(h2645_common_bitreader& reader, const h265_hrd_parameters& hrd,
                                   unsigned int BspSchedCnt, h265_fault* fault = nullptr);
    KOVRAN_API bool parse_standard(h2645_common_bitreader& reader, const h265_hrd_parameters& hrd,
                                   unsigned int BspSchedCnt, h265_trace& trace,
                                   h265_fault* fault = nullptr);
};

}  // namespace kovran

#endif  // KOVRAN_H265_SEI_H265_NAL_SEI_BSP_INITIAL_ARRIVAL_TIME_H
