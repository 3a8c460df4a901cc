#include <kovran/h265/sei/h265_nal_sei_layers_not_present.h>

#include "h265/sei/h265_nal_sei_layers_not_present.syntax.h"
#include "h265/sei/payload_parsing.h"

namespace kovran {

template bool walk_payload(reading<standard_rules>&, h265_nal_sei_layers_not_present&,
                           const sei_context&);
template bool walk_payload(tracing<standard_rules>&, h265_nal_sei_layers_not_present&,
                           const sei_context&);

namespace {

sei_context layers_not_present_context(const h2645_common_base_store<h265_nal_vps>& vps_store) {
    sei_context context;
    context.vps_store = &vps_store;
    return context;
}

}  // namespace

bool h265_nal_sei_layers_not_present::parse_standard(
    h2645_common_bitreader& reader, const h2645_common_base_store<h265_nal_vps>& vps_store,
    h265_fault* fault) {
    return parse_payload(*this, reader, fault, layers_not_present_context(vps_store));
}

bool h265_nal_sei_layers_not_present::parse_standard(
    h2645_common_bitreader& reader, const h2645_common_base_store<h265_nal_vps>& vps_store,
    h265_trace& trace, h265_fault* fault) {
    return trace_payload(*this, reader, &trace, fault, layers_not_present_context(vps_store));
}

}  // namespace kovran
