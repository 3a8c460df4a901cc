#include <kovran/h265/h265_nal_sei_active_parameter_sets.h>

#include "h265/h265_nal_sei_active_parameter_sets.syntax.h"
#include "h265/parsing.h"
#include "h265/sei/payload_parsing.h"

namespace kovran {

template <class Walker>
[[nodiscard]] bool payload_syntax(Walker& walk, h265_nal_sei_active_parameter_sets& active,
                                  const sei_context& context) {
    return active_parameter_sets(walk, active, *context.vps_store);
}
template bool walk_payload(reading<standard_rules>&, h265_nal_sei_active_parameter_sets&,
                           const sei_context&);
template bool walk_payload(tracing<standard_rules>&, h265_nal_sei_active_parameter_sets&,
                           const sei_context&);

namespace {

auto description_of(h265_nal_sei_active_parameter_sets& record,
                    h2645_common_base_store<h265_nal_vps>& vps_store) {
    return [&record, &vps_store](auto& walk) {
        return active_parameter_sets(walk, record, vps_store);
    };
}

}  // namespace

bool h265_nal_sei_active_parameter_sets::parse(h2645_common_bitreader& reader,
                                               h2645_common_base_store<h265_nal_vps>& vps_store) {
    return parse_by_own_rules(reader, description_of(*this, vps_store));
}

bool h265_nal_sei_active_parameter_sets::parse(h2645_common_bitreader& reader,
                                               h2645_common_base_store<h265_nal_vps>& vps_store,
                                               h265_trace& trace, h265_fault* fault) {
    return parse_by_own_rules(reader, trace, fault, description_of(*this, vps_store));
}

bool h265_nal_sei_active_parameter_sets::parse_standard(
    h2645_common_bitreader& reader, h2645_common_base_store<h265_nal_vps>& vps_store,
    h265_fault* fault) {
    return parse_by_standard(*this, reader, fault, description_of(*this, vps_store));
}

bool h265_nal_sei_active_parameter_sets::parse_standard(
    h2645_common_bitreader& reader, h2645_common_base_store<h265_nal_vps>& vps_store,
    h265_trace& trace, h265_fault* fault) {
    return trace_by_standard(*this, reader, &trace, fault, description_of(*this, vps_store));
}

}  // namespace kovran
