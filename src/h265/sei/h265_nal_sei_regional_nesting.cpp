#include <kovran/h265/sei/h265_nal_sei_regional_nesting.h>

#include "h265/sei/h265_nal_sei_regional_nesting.syntax.h"
#include "h265/sei/payload_parsing.h"

namespace kovran {

template bool walk_payload(reading<standard_rules>&, h265_nal_sei_regional_nesting&,
                           const sei_context&);
template bool walk_payload(tracing<standard_rules>&, h265_nal_sei_regional_nesting&,
                           const sei_context&);

bool h265_nal_sei_regional_nesting::parse_standard(
    h2645_common_bitreader& reader, const h2645_common_base_store<h265_nal_vps>& vps_store,
    const h2645_common_base_store<h265_nal_sps>& sps_store, h265_fault* fault) {
    return parse_payload(*this, reader, fault, context_of(vps_store, sps_store));
}

bool h265_nal_sei_regional_nesting::parse_standard(
    h2645_common_bitreader& reader, const h2645_common_base_store<h265_nal_vps>& vps_store,
    const h2645_common_base_store<h265_nal_sps>& sps_store, h265_trace& trace, h265_fault* fault) {
    return trace_payload(*this, reader, &trace, fault, context_of(vps_store, sps_store));
}

}  // namespace kovran
