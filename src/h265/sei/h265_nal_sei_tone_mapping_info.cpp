#include <kovran/h265/sei/h265_nal_sei_tone_mapping_info.h>

#include "h265/sei/h265_nal_sei_tone_mapping_info.syntax.h"
#include "h265/sei/payload_parsing.h"

#include <iterator>

namespace kovran {

template bool walk_payload(reading<standard_rules>&, h265_nal_sei_tone_mapping_info&,
                           const sei_context&);
template bool walk_payload(tracing<standard_rules>&, h265_nal_sei_tone_mapping_info&,
                           const sei_context&);

bool h265_nal_sei_tone_mapping_info::parse_standard(h2645_common_bitreader& reader,
                                                    h265_fault* fault) {
    return parse_payload(*this, reader, fault);
}

bool h265_nal_sei_tone_mapping_info::parse_standard(h2645_common_bitreader& reader,
                                                    h265_trace& trace, h265_fault* fault) {
    return trace_payload(*this, reader, &trace, fault);
}

const char* h265_nal_sei_tone_map_model_id_to_str(unsigned int tone_map_model_id) {
    static constexpr const char* names[] = {"linear", "sigmoid", "table", "piecewise linear",
                                            "camera and display luminance"};
    return tone_map_model_id < std::size(names) ? names[tone_map_model_id] : "";
}

}  // namespace kovran
