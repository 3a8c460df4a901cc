#include <kovran/h265/h265_nal_sei_pic_timing.h>

#include "h2645_common/store_lookup.h"
#include "h265/h265_nal_sei_pic_timing.syntax.h"
#include "h265/parsing.h"
#include "h265/sei/payload_parsing.h"

#include <iterator>

namespace kovran {

template <class Walker>
[[nodiscard]] bool payload_syntax(Walker& walk, h265_nal_sei_pic_timing& timing,
                                  const sei_context& context) {
    const h265_nal_sps* const sps = context.active_sps();
    if (sps == nullptr) {
        return walk.missing("SPS", context.sps_store->active_id);
    }
    return pic_timing(walk, timing, *sps, context.hrd_of(*sps));
}
template bool walk_payload(reading<standard_rules>&, h265_nal_sei_pic_timing&, const sei_context&);
template bool walk_payload(tracing<standard_rules>&, h265_nal_sei_pic_timing&, const sei_context&);

namespace {

const h265_nal_sps* active_entry(const h2645_common_base_store<h265_nal_sps>& store) {
    return store.active_id != store.no_id ? find_entry(store, store.active_id) : nullptr;
}

void tell_missing(const h2645_common_base_store<h265_nal_sps>& store, h265_fault* fault) {
    if (fault != nullptr) {
        *fault = {};
        fault->kind = h265_fault_kind::parameter_set_missing;
        fault->parameter_set = "SPS";
        fault->parameter_set_id = store.active_id;
    }
}

auto description_of(h265_nal_sei_pic_timing& record, const h265_nal_sps& sps) {
    return [&record, &sps](auto& walk) {
        return pic_timing(walk, record, sps, &sps.vui_parameters.hrd_parameters);
    };
}

}  // namespace

bool h265_nal_sei_pic_timing::parse(h2645_common_bitreader& reader, const h265_nal_sps& sps) {
    return parse_by_own_rules(reader, description_of(*this, sps));
}

bool h265_nal_sei_pic_timing::parse(h2645_common_bitreader& reader, const h265_nal_sps& sps,
                                    h265_trace& trace, h265_fault* fault) {
    return parse_by_own_rules(reader, trace, fault, description_of(*this, sps));
}

bool h265_nal_sei_pic_timing::parse_standard(h2645_common_bitreader& reader,
                                             const h265_nal_sps& sps, h265_fault* fault) {
    return parse_by_standard(*this, reader, fault, description_of(*this, sps));
}

bool h265_nal_sei_pic_timing::parse_standard(h2645_common_bitreader& reader,
                                             const h265_nal_sps& sps, h265_trace& trace,
                                             h265_fault* fault) {
    return trace_by_standard(*this, reader, &trace, fault, description_of(*this, sps));
}

bool h265_nal_sei_pic_timing::parse(h2645_common_bitreader& reader,
                                    const h2645_common_base_store<h265_nal_sps>& store) {
    const h265_nal_sps* const sps = active_entry(store);
    if (sps == nullptr) {
        valid = false;
        return false;
    }
    return parse(reader, *sps);
}

bool h265_nal_sei_pic_timing::parse(h2645_common_bitreader& reader,
                                    const h2645_common_base_store<h265_nal_sps>& store,
                                    h265_trace& trace, h265_fault* fault) {
    const h265_nal_sps* const sps = active_entry(store);
    if (sps == nullptr) {
        tell_missing(store, fault);
        trace.clear();
        valid = false;
        return false;
    }
    return parse(reader, *sps, trace, fault);
}

bool h265_nal_sei_pic_timing::parse_standard(h2645_common_bitreader& reader,
                                             const h2645_common_base_store<h265_nal_sps>& store,
                                             h265_fault* fault) {
    const h265_nal_sps* const sps = active_entry(store);
    if (sps == nullptr) {
        tell_missing(store, fault);
        start_afresh(*this);
        return false;
    }
    return parse_standard(reader, *sps, fault);
}

bool h265_nal_sei_pic_timing::parse_standard(h2645_common_bitreader& reader,
                                             const h2645_common_base_store<h265_nal_sps>& store,
                                             h265_trace& trace, h265_fault* fault) {
    const h265_nal_sps* const sps = active_entry(store);
    if (sps == nullptr) {
        tell_missing(store, fault);
        trace.clear();
        start_afresh(*this);
        return false;
    }
    return parse_standard(reader, *sps, trace, fault);
}

const char* h265_nal_sei_pic_timing::pic_struct_to_str() const {
    static constexpr const char* names[] = {
        "Progressive frame",
        "Top field",
        "Bottom field",
        "Top field, bottom field, in that order",
        "Bottom field, top field, in that order",
        "Top field, bottom field, top field repeated, in that order",
        "Bottom field, top field, bottom field repeated, in that order",
        "Frame doubling",
        "Frame tripling",
        "Top field paired with previous bottom field in output order",
        "Bottom field paired with previous top field in output order",
        "Top field paired with next bottom field in output order",
        "Bottom field paired with next top field in output order",
    };
    return pic_struct < std::size(names) ? names[pic_struct] : "?";
}

const char* h265_nal_sei_pic_timing::source_scan_type_to_str() const {
    static constexpr const char* names[] = {"interlaced", "progressive", "unknown"};
    return source_scan_type < std::size(names) ? names[source_scan_type] : "?";
}

}  // namespace kovran
