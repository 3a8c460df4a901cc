#include <kovran/h265/sei/h265_nal_sei_film_grain_characteristics.h>

#include "h265/sei/h265_nal_sei_film_grain_characteristics.syntax.h"
#include "h265/sei/payload_parsing.h"

#include <iterator>

namespace kovran {

template bool walk_payload(reading<standard_rules>&, h265_nal_sei_film_grain_characteristics&,
                           const sei_context&);
template bool walk_payload(tracing<standard_rules>&, h265_nal_sei_film_grain_characteristics&,
                           const sei_context&);

bool h265_nal_sei_film_grain_characteristics::parse_standard(h2645_common_bitreader& reader,
                                                             h265_fault* fault) {
    return parse_payload(*this, reader, fault);
}

bool h265_nal_sei_film_grain_characteristics::parse_standard(h2645_common_bitreader& reader,
                                                             h265_trace& trace, h265_fault* fault) {
    return trace_payload(*this, reader, &trace, fault);
}

const char* h265_nal_sei_film_grain_model_id_to_str(unsigned int film_grain_model_id) {
    static constexpr const char* names[] = {"frequency filtering", "auto-regression"};
    return film_grain_model_id < std::size(names) ? names[film_grain_model_id] : "";
}

const char* h265_nal_sei_film_grain_blending_mode_id_to_str(unsigned int blending_mode_id) {
    static constexpr const char* names[] = {"additive", "multiplicative"};
    return blending_mode_id < std::size(names) ? names[blending_mode_id] : "";
}

}  // namespace kovran
