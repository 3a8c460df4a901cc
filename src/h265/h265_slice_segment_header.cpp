#include <kovran/h265/h265_slice_segment_header.h>

#include "h265/h265_slice_segment_header.syntax.h"
#include "h265/parsing.h"

namespace kovran {
namespace {

auto description_of(h265_slice_segment_header& record,
                    h2645_common_base_store<h265_nal_pps>& pps_store,
                    h2645_common_base_store<h265_nal_sps>& sps_store,
                    h2645_common_base_store<h265_nal_vps>& vps_store,
                    h265_nal_unit_type nal_unit_type) {
    return [&record, &pps_store, &sps_store, &vps_store, nal_unit_type](auto& walk) {
        return slice_segment_header(walk, record, pps_store, sps_store, vps_store, nal_unit_type);
    };
}

}  // namespace

bool h265_slice_segment_header::parse(h2645_common_bitreader& reader,
                                      h2645_common_base_store<h265_nal_pps>& pps_store,
                                      h2645_common_base_store<h265_nal_sps>& sps_store,
                                      h2645_common_base_store<h265_nal_vps>& vps_store,
                                      h265_nal_unit_type nal_unit_type) {
    return parse_by_own_rules(
        reader, description_of(*this, pps_store, sps_store, vps_store, nal_unit_type));
}

bool h265_slice_segment_header::parse(h2645_common_bitreader& reader,
                                      h2645_common_base_store<h265_nal_pps>& pps_store,
                                      h2645_common_base_store<h265_nal_sps>& sps_store,
                                      h2645_common_base_store<h265_nal_vps>& vps_store,
                                      h265_nal_unit_type nal_unit_type, h265_trace& trace,
                                      h265_fault* fault) {
    return parse_by_own_rules(
        reader, trace, fault,
        description_of(*this, pps_store, sps_store, vps_store, nal_unit_type));
}

bool h265_slice_segment_header::parse_standard(h2645_common_bitreader& reader,
                                               h2645_common_base_store<h265_nal_pps>& pps_store,
                                               h2645_common_base_store<h265_nal_sps>& sps_store,
                                               h2645_common_base_store<h265_nal_vps>& vps_store,
                                               h265_nal_unit_type nal_unit_type,
                                               h265_fault* fault) {
    return parse_by_standard(*this, reader, fault,
                             description_of(*this, pps_store, sps_store, vps_store, nal_unit_type));
}

bool h265_slice_segment_header::parse_standard(h2645_common_bitreader& reader,
                                               h2645_common_base_store<h265_nal_pps>& pps_store,
                                               h2645_common_base_store<h265_nal_sps>& sps_store,
                                               h2645_common_base_store<h265_nal_vps>& vps_store,
                                               h265_nal_unit_type nal_unit_type, h265_trace& trace,
                                               h265_fault* fault) {
    return trace_by_standard(*this, reader, &trace, fault,
                             description_of(*this, pps_store, sps_store, vps_store, nal_unit_type));
}

const char* h265_slice_segment_header::slice_type_to_str() const {
    switch (slice_type) {
        case slice_type_b:
            return "B";
        case slice_type_p:
            return "P";
        case slice_type_i:
            return "I";
        default:
            return "?";
    }
}

}  // namespace kovran
