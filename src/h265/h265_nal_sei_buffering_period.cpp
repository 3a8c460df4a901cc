#include <kovran/h265/h265_nal_sei_buffering_period.h>

#include "h265/h265_nal_sei_buffering_period.syntax.h"
#include "h265/parsing.h"
#include "h265/sei/payload_parsing.h"

namespace kovran {

template <class Walker>
[[nodiscard]] bool payload_syntax(Walker& walk, h265_nal_sei_buffering_period& period,
                                  const sei_context& context) {
    return buffering_period(walk, period, *context.sps_store, context);
}
template bool walk_payload(reading<standard_rules>&, h265_nal_sei_buffering_period&,
                           const sei_context&);
template bool walk_payload(tracing<standard_rules>&, h265_nal_sei_buffering_period&,
                           const sei_context&);

namespace {

auto description_of(h265_nal_sei_buffering_period& record,
                    const h2645_common_base_store<h265_nal_sps>& sps_store) {
    return [&record, &sps_store](auto& walk) {
        return buffering_period(walk, record, sps_store, vui_hrd{});
    };
}

}  // namespace

bool h265_nal_sei_buffering_period::parse(h2645_common_bitreader& reader,
                                          const h2645_common_base_store<h265_nal_sps>& sps_store) {
    return parse_by_own_rules(reader, description_of(*this, sps_store));
}

bool h265_nal_sei_buffering_period::parse(h2645_common_bitreader& reader,
                                          const h2645_common_base_store<h265_nal_sps>& sps_store,
                                          h265_trace& trace, h265_fault* fault) {
    return parse_by_own_rules(reader, trace, fault, description_of(*this, sps_store));
}

bool h265_nal_sei_buffering_period::parse_standard(
    h2645_common_bitreader& reader, const h2645_common_base_store<h265_nal_sps>& sps_store,
    h265_fault* fault) {
    return parse_by_standard(*this, reader, fault, description_of(*this, sps_store));
}

bool h265_nal_sei_buffering_period::parse_standard(
    h2645_common_bitreader& reader, const h2645_common_base_store<h265_nal_sps>& sps_store,
    h265_trace& trace, h265_fault* fault) {
    return trace_by_standard(*this, reader, &trace, fault, description_of(*this, sps_store));
}

}  // namespace kovran
