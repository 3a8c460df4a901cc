#include <kovran/h265/h265_nal_sps.h>

#include "h265/h265_nal_sps.syntax.h"
#include "h265/parsing.h"

namespace kovran {
namespace {

auto description_of(h265_nal_sps& record, h2645_common_base_store<h265_nal_vps>& vps_store) {
    return [&record, &vps_store](auto& walk) {
        return seq_parameter_set_rbsp(walk, record, vps_store);
    };
}

}  // namespace

bool h265_nal_sps::parse(h2645_common_bitreader& reader,
                         h2645_common_base_store<h265_nal_vps>& vps_store) {
    return parse_by_own_rules(reader, description_of(*this, vps_store));
}

bool h265_nal_sps::parse(h2645_common_bitreader& reader,
                         h2645_common_base_store<h265_nal_vps>& vps_store, h265_trace& trace,
                         h265_fault* fault) {
    return parse_by_own_rules(reader, trace, fault, description_of(*this, vps_store));
}

bool h265_nal_sps::parse_standard(h2645_common_bitreader& reader,
                                  h2645_common_base_store<h265_nal_vps>& vps_store,
                                  h265_fault* fault) {
    return parse_by_standard(*this, reader, fault, description_of(*this, vps_store));
}

bool h265_nal_sps::parse_standard(h2645_common_bitreader& reader,
                                  h2645_common_base_store<h265_nal_vps>& vps_store,
                                  h265_trace& trace, h265_fault* fault) {
    return trace_by_standard(*this, reader, &trace, fault, description_of(*this, vps_store));
}

}  // namespace kovran
