#include <kovran/h265/sei/h265_nal_sei_time_code.h>

#include "h265/sei/h265_nal_sei_time_code.syntax.h"
#include "h265/sei/payload_parsing.h"

namespace kovran {

template bool walk_payload(reading<standard_rules>&, h265_nal_sei_time_code&, const sei_context&);
template bool walk_payload(tracing<standard_rules>&, h265_nal_sei_time_code&, const sei_context&);

bool h265_nal_sei_time_code::parse_standard(h2645_common_bitreader& reader, h265_fault* fault) {
    return parse_payload(*this, reader, fault);
}

bool h265_nal_sei_time_code::parse_standard(h2645_common_bitreader& reader, h265_trace& trace,
                                            h265_fault* fault) {
    return trace_payload(*this, reader, &trace, fault);
}

namespace {

std::string time_code_part(bool present, unsigned int value) {
    if (!present) {
        return "--";
    }
    const std::string digits = std::to_string(value);
    return digits.size() < 2 ? '0' + digits : digits;
}

}  // namespace

std::string h265_nal_sei_time_code::clock_timestamp_t::time_to_str() const {
    constexpr unsigned char drops_two_counts = 4;  // table D.11
    return time_code_part(full_timestamp_flag || hours_flag, hours_value) + ':' +
           time_code_part(full_timestamp_flag || minutes_flag, minutes_value) + ':' +
           time_code_part(full_timestamp_flag || seconds_flag, seconds_value) +
           (counting_type == drops_two_counts ? ';' : ':') +
           time_code_part(clock_timestamp_flag, n_frames);
}

}  // namespace kovran
