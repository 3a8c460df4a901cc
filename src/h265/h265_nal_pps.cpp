#include <kovran/h265/h265_nal_pps.h>

#include "h265/h265_nal_pps.syntax.h"
#include "h265/parsing.h"

namespace kovran {
namespace {

auto description_of(h265_nal_pps& record, h2645_common_base_store<h265_nal_sps>& sps_store) {
    return [&record, &sps_store](auto& walk) {
        return pic_parameter_set_rbsp(walk, record, sps_store);
    };
}

}  // namespace

bool h265_nal_pps::parse(h2645_common_bitreader& reader,
                         h2645_common_base_store<h265_nal_sps>& sps_store) {
    return parse_by_own_rules(reader, description_of(*this, sps_store));
}

bool h265_nal_pps::parse(h2645_common_bitreader& reader,
                         h2645_common_base_store<h265_nal_sps>& sps_store, h265_trace& trace,
                         h265_fault* fault) {
    return parse_by_own_rules(reader, trace, fault, description_of(*this, sps_store));
}

bool h265_nal_pps::parse_standard(h2645_common_bitreader& reader,
                                  h2645_common_base_store<h265_nal_sps>& sps_store,
                                  h265_fault* fault) {
    return parse_by_standard(*this, reader, fault, description_of(*this, sps_store));
}

bool h265_nal_pps::parse_standard(h2645_common_bitreader& reader,
                                  h2645_common_base_store<h265_nal_sps>& sps_store,
                                  h265_trace& trace, h265_fault* fault) {
    return trace_by_standard(*this, reader, &trace, fault, description_of(*this, sps_store));
}

}  // namespace kovran
