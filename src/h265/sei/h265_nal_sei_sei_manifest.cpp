#include <kovran/h265/sei/h265_nal_sei_sei_manifest.h>

#include "h265/sei/h265_nal_sei_sei_manifest.syntax.h"
#include "h265/sei/payload_parsing.h"

#include <iterator>

namespace kovran {

template bool walk_payload(reading<standard_rules>&, h265_nal_sei_sei_manifest&,
                           const sei_context&);
template bool walk_payload(tracing<standard_rules>&, h265_nal_sei_sei_manifest&,
                           const sei_context&);

bool h265_nal_sei_sei_manifest::parse_standard(h2645_common_bitreader& reader, h265_fault* fault) {
    return parse_payload(*this, reader, fault);
}

bool h265_nal_sei_sei_manifest::parse_standard(h2645_common_bitreader& reader, h265_trace& trace,
                                               h265_fault* fault) {
    return trace_payload(*this, reader, &trace, fault);
}

const char* h265_nal_sei_sei_manifest::manifest_sei_description_to_str(
    unsigned char manifest_sei_description) {
    static constexpr const char* names[] = {
        "not expected",
        "expected, necessary",
        "expected, unnecessary",
        "expected, necessity undetermined",
    };
    return manifest_sei_description < std::size(names) ? names[manifest_sei_description] : "?";
}

}  // namespace kovran
