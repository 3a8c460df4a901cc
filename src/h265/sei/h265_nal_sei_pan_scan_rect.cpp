#include <kovran/h265/sei/h265_nal_sei_pan_scan_rect.h>

#include "h265/sei/h265_nal_sei_pan_scan_rect.syntax.h"
#include "h265/sei/payload_parsing.h"

namespace kovran {

template bool walk_payload(reading<standard_rules>&, h265_nal_sei_pan_scan_rect&,
                           const sei_context&);
template bool walk_payload(tracing<standard_rules>&, h265_nal_sei_pan_scan_rect&,
                           const sei_context&);

bool h265_nal_sei_pan_scan_rect::parse_standard(h2645_common_bitreader& reader, h265_fault* fault) {
    return parse_payload(*this, reader, fault);
}

bool h265_nal_sei_pan_scan_rect::parse_standard(h2645_common_bitreader& reader, h265_trace& trace,
                                                h265_fault* fault) {
    return trace_payload(*this, reader, &trace, fault);
}

}  // namespace kovran
