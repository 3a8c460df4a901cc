#include <kovran/h265/sei/h265_nal_sei_decoding_unit_info.h>

#include "h265/sei/h265_nal_sei_decoding_unit_info.syntax.h"
#include "h265/sei/payload_parsing.h"

namespace kovran {

template bool walk_payload(reading<standard_rules>&, h265_nal_sei_decoding_unit_info&,
                           const sei_context&);
template bool walk_payload(tracing<standard_rules>&, h265_nal_sei_decoding_unit_info&,
                           const sei_context&);

namespace {

sei_context decoding_unit_info_context(const h265_hrd_parameters& hrd) {
    sei_context context;
    context.operation_point = &hrd;
    return context;
}

}  // namespace

bool h265_nal_sei_decoding_unit_info::parse_standard(h2645_common_bitreader& reader,
                                                     const h265_hrd_parameters& hrd,
                                                     h265_fault* fault) {
    return parse_payload(*this, reader, fault, decoding_unit_info_context(hrd));
}

bool h265_nal_sei_decoding_unit_info::parse_standard(h2645_common_bitreader& reader,
                                                     const h265_hrd_parameters& hrd,
                                                     h265_trace& trace, h265_fault* fault) {
    return trace_payload(*this, reader, &trace, fault, decoding_unit_info_context(hrd));
}

}  // namespace kovran
