#include <kovran/h265/sei/h265_nal_sei_frame_packing_arrangement.h>

#include "h265/sei/h265_nal_sei_frame_packing_arrangement.syntax.h"
#include "h265/sei/payload_parsing.h"

#include <iterator>

namespace kovran {

template bool walk_payload(reading<standard_rules>&, h265_nal_sei_frame_packing_arrangement&,
                           const sei_context&);
template bool walk_payload(tracing<standard_rules>&, h265_nal_sei_frame_packing_arrangement&,
                           const sei_context&);

bool h265_nal_sei_frame_packing_arrangement::parse_standard(h2645_common_bitreader& reader,
                                                            h265_fault* fault) {
    return parse_payload(*this, reader, fault);
}

bool h265_nal_sei_frame_packing_arrangement::parse_standard(h2645_common_bitreader& reader,
                                                            h265_trace& trace, h265_fault* fault) {
    return trace_payload(*this, reader, &trace, fault);
}

const char* h265_nal_sei_frame_packing_arrangement_type_to_str(
    unsigned int frame_packing_arrangement_type) {
    static constexpr const char* names[] = {
        "", "", "", "side by side", "top and bottom", "temporal interleaving"};
    return frame_packing_arrangement_type < std::size(names) ? names[frame_packing_arrangement_type]
                                                             : "";
}

const char* h265_nal_sei_content_interpretation_type_to_str(
    unsigned int content_interpretation_type) {
    static constexpr const char* names[] = {"unspecified", "frame 0 is the left view",
                                            "frame 0 is the right view"};
    return content_interpretation_type < std::size(names) ? names[content_interpretation_type] : "";
}

}  // namespace kovran
