#include <kovran/h265/sei/h265_nal_sei_display_orientation.h>

#include "h265/sei/h265_nal_sei_display_orientation.syntax.h"
#include "h265/sei/payload_parsing.h"

namespace kovran {

template bool walk_payload(reading<standard_rules>&, h265_nal_sei_display_orientation&,
                           const sei_context&);
template bool walk_payload(tracing<standard_rules>&, h265_nal_sei_display_orientation&,
                           const sei_context&);

bool h265_nal_sei_display_orientation::parse_standard(h2645_common_bitreader& reader,
                                                      h265_fault* fault) {
    return parse_payload(*this, reader, fault);
}

bool h265_nal_sei_display_orientation::parse_standard(h2645_common_bitreader& reader,
                                                      h265_trace& trace, h265_fault* fault) {
    return trace_payload(*this, reader, &trace, fault);
}

double h265_nal_sei_display_orientation::anticlockwise_degrees() const {
    return anticlockwise_rotation * 360.0 / 65536.0;
}

}  // namespace kovran
