#include <kovran/h265/h265_nal_sps.h>
#include <kovran/h265/h265_video_format.h>
#include <kovran/h265/h265_vui_parameters.h>

#include "h265/h265_vui_parameters.syntax.h"
#include "h265/parsing.h"

namespace kovran {
namespace {

auto description_of(h265_vui_parameters& record, h265_nal_sps& sps) {
    return [&record, &sps](auto& walk) { return vui_parameters(walk, record, sps); };
}

}  // namespace

bool h265_vui_parameters::parse(h2645_common_bitreader& reader, h265_nal_sps& sps) {
    return parse_by_own_rules(reader, description_of(*this, sps));
}

bool h265_vui_parameters::parse(h2645_common_bitreader& reader, h265_nal_sps& sps,
                                h265_trace& trace, h265_fault* fault) {
    return parse_by_own_rules(reader, trace, fault, description_of(*this, sps));
}

bool h265_vui_parameters::parse_standard(h2645_common_bitreader& reader, h265_nal_sps& sps,
                                         h265_fault* fault) {
    return parse_by_standard(*this, reader, nullptr, fault, description_of(*this, sps));
}

bool h265_vui_parameters::parse_standard(h2645_common_bitreader& reader, h265_nal_sps& sps,
                                         h265_trace& trace, h265_fault* fault) {
    return parse_by_standard(*this, reader, &trace, fault, description_of(*this, sps));
}

const char* h265_vui_parameters::video_format_to_str() const {
    return h265_video_format_to_str(static_cast<h265_video_format>(video_format));
}

}  // namespace kovran
