#include <kovran/h265/sei/h265_nal_sei_post_filter_hint.h>

#include "h265/sei/h265_nal_sei_post_filter_hint.syntax.h"
#include "h265/sei/payload_parsing.h"

namespace kovran {

template bool walk_payload(reading<standard_rules>&, h265_nal_sei_post_filter_hint&,
                           const sei_context&);
template bool walk_payload(tracing<standard_rules>&, h265_nal_sei_post_filter_hint&,
                           const sei_context&);

bool h265_nal_sei_post_filter_hint::parse_standard(h2645_common_bitreader& reader,
                                                   const h265_nal_sps& sps, h265_fault* fault) {
    return parse_payload(*this, reader, fault, context_of(sps));
}

bool h265_nal_sei_post_filter_hint::parse_standard(h2645_common_bitreader& reader,
                                                   const h265_nal_sps& sps, h265_trace& trace,
                                                   h265_fault* fault) {
    return trace_payload(*this, reader, &trace, fault, context_of(sps));
}

}  // namespace kovran
