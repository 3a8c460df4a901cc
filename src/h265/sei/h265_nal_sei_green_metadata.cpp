#include <kovran/h265/sei/h265_nal_sei_green_metadata.h>

#include "h265/sei/h265_nal_sei_green_metadata.syntax.h"
#include "h265/sei/payload_parsing.h"

#include <iterator>

namespace kovran {

template bool walk_payload(reading<standard_rules>&, h265_nal_sei_green_metadata&,
                           const sei_context&);
template bool walk_payload(tracing<standard_rules>&, h265_nal_sei_green_metadata&,
                           const sei_context&);

bool h265_nal_sei_green_metadata::parse_standard(h2645_common_bitreader& reader,
                                                 h265_fault* fault) {
    return parse_payload(*this, reader, fault);
}

bool h265_nal_sei_green_metadata::parse_standard(h2645_common_bitreader& reader, h265_trace& trace,
                                                 h265_fault* fault) {
    return trace_payload(*this, reader, &trace, fault);
}

const char* h265_nal_sei_green_metadata_type_to_str(unsigned int green_metadata_type) {
    static constexpr const char* names[] = {"complexity metrics", "quality recovery metrics"};
    return green_metadata_type < std::size(names) ? names[green_metadata_type] : "";
}

}  // namespace kovran
