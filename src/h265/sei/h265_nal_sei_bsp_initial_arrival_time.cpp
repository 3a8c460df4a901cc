#include <kovran/h265/sei/h265_nal_sei_bsp_initial_arrival_time.h>

#include "h265/parsing.h"
#include "h265/sei/h265_nal_sei_bsp_initial_arrival_time.syntax.h"
#include "h265/sei/payload_parsing.h"

namespace kovran {

template bool walk_payload(reading<standard_rules>&, h265_nal_sei_bsp_initial_arrival_time&,
                           const sei_context&);
template bool walk_payload(tracing<standard_rules>&, h265_nal_sei_bsp_initial_arrival_time&,
                           const sei_context&);

namespace {

auto bsp_arrival_time_into(h265_nal_sei_bsp_initial_arrival_time& record,
                           const h265_hrd_parameters& hrd, unsigned int BspSchedCnt) {
    return [&record, &hrd, BspSchedCnt](auto& walk) {
        return bsp_initial_arrival_time(walk, record, hrd, BspSchedCnt);
    };
}

}  // namespace

bool h265_nal_sei_bsp_initial_arrival_time::parse_standard(h2645_common_bitreader& reader,
                                                           const h265_hrd_parameters& hrd,
                                                           unsigned int BspSchedCnt,
                                                           h265_fault* fault) {
    return parse_by_standard(*this, reader, fault, bsp_arrival_time_into(*this, hrd, BspSchedCnt));
}

bool h265_nal_sei_bsp_initial_arrival_time::parse_standard(h2645_common_bitreader& reader,
                                                           const h265_hrd_parameters& hrd,
                                                           unsigned int BspSchedCnt,
                                                           h265_trace& trace, h265_fault* fault) {
    return trace_by_standard(*this, reader, &trace, fault,
                             bsp_arrival_time_into(*this, hrd, BspSchedCnt));
}

}  // namespace kovran
