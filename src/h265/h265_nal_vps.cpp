#include <kovran/h265/h265_nal_vps.h>

#include "h265/h265_nal_vps.syntax.h"
#include "h265/parsing.h"

namespace kovran {
namespace {

auto description_of(h265_nal_vps& record) {
    return [&record](auto& walk) { return video_parameter_set_rbsp(walk, record); };
}

}  // namespace

bool h265_nal_vps::parse(h2645_common_bitreader& reader) {
    return parse_by_own_rules(reader, description_of(*this));
}

bool h265_nal_vps::parse(h2645_common_bitreader& reader, h265_trace& trace, h265_fault* fault) {
    return parse_by_own_rules(reader, trace, fault, description_of(*this));
}

bool h265_nal_vps::parse_standard(h2645_common_bitreader& reader, h265_fault* fault) {
    return parse_by_standard(*this, reader, fault, description_of(*this));
}

bool h265_nal_vps::parse_standard(h2645_common_bitreader& reader, h265_trace& trace,
                                  h265_fault* fault) {
    return trace_by_standard(*this, reader, &trace, fault, description_of(*this));
}

}  // namespace kovran
