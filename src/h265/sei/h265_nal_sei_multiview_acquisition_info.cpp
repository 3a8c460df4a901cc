#include <kovran/h265/sei/h265_nal_sei_multiview_acquisition_info.h>

#include "h265/sei/h265_nal_sei_multiview_acquisition_info.syntax.h"
#include "h265/sei/payload_parsing.h"

namespace kovran {

template bool walk_payload(reading<standard_rules>&, h265_nal_sei_multiview_acquisition_info&,
                           const sei_context&);
template bool walk_payload(tracing<standard_rules>&, h265_nal_sei_multiview_acquisition_info&,
                           const sei_context&);

namespace {

sei_context multiview_acquisition_info_context(unsigned int views) {
    sei_context context;
    context.views = views;
    return context;
}

}  // namespace

bool h265_nal_sei_multiview_acquisition_info::parse_standard(h2645_common_bitreader& reader,
                                                             unsigned int views,
                                                             h265_fault* fault) {
    return parse_payload(*this, reader, fault, multiview_acquisition_info_context(views));
}

bool h265_nal_sei_multiview_acquisition_info::parse_standard(h2645_common_bitreader& reader,
                                                             unsigned int views, h265_trace& trace,
                                                             h265_fault* fault) {
    return trace_payload(*this, reader, &trace, fault, multiview_acquisition_info_context(views));
}

}  // namespace kovran
