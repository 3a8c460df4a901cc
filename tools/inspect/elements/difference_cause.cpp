#include "elements/difference_cause.h"

#include <variant>

namespace kovran::inspect {
namespace {

// Of a PPS, clause 7.4.3.3.1; those of the others are lower. No reader keeps a set above it, and
// what names one differs by a rule of its own.
constexpr unsigned int highest_id = 63;

// By which the library's own rules leave the end of a set out. They use nothing of it elsewhere.
constexpr std::string_view skips_extensions = "knows_extensions";

}  // namespace

difference_cause difference_causes::of_sets_used_by(const unit_reader& reader,
                                                    const h265_fault& own_fault) const {
    if (own_fault.kind == h265_fault_kind::parameter_set_missing) {
        const difference_cause cause = of({own_fault.parameter_set, own_fault.parameter_set_id});
        if (cause.rule != nullptr) {
            return cause;
        }
    }
    const unit_record& record = reader.record();
    if (const auto* const sps = std::get_if<h265_nal_sps>(&record); sps != nullptr) {
        return of({"VPS", sps->sps_video_parameter_set_id});
    }
    if (const auto* const pps = std::get_if<h265_nal_pps>(&record); pps != nullptr) {
        return of_sps(reader, pps->pps_seq_parameter_set_id);
    }
    if (const auto* const slice = std::get_if<h265_slice_segment_header>(&record);
        slice != nullptr) {
        return of_pps(reader, slice->slice_pic_parameter_set_id);
    }
    return of_sps(reader, reader.sets().sps.active_id);
}

void difference_causes::remember(const unit_reader& standard, const unit_reader& own,
                                 const difference_cause& cause) {
    const std::optional<set_name> name_by_own = name_of_set(own.record());
    std::optional<set_name> name = name_of_set(standard.record());
    if (!name) {
        name = name_by_own;
    }
    if (name && name->second <= highest_id) {
        const bool only_skips_extensions =
            name_by_own && cause.rule != nullptr && cause.rule == skips_extensions;
        causes_[*name] = only_skips_extensions ? difference_cause{} : cause;
    }
}

// None when it could not be read.
std::optional<difference_causes::set_name> difference_causes::name_of_set(
    const unit_record& record) {
    if (const auto* const vps = std::get_if<h265_nal_vps>(&record); vps != nullptr && vps->valid) {
        return set_name("VPS", vps->vps_video_parameter_set_id);
    }
    if (const auto* const sps = std::get_if<h265_nal_sps>(&record); sps != nullptr && sps->valid) {
        return set_name("SPS", sps->sps_seq_parameter_set_id);
    }
    if (const auto* const pps = std::get_if<h265_nal_pps>(&record); pps != nullptr && pps->valid) {
        return set_name("PPS", pps->pps_pic_parameter_set_id);
    }
    return std::nullopt;
}

difference_cause difference_causes::of(const set_name& name) const {
    const auto found = causes_.find(name);
    return found != causes_.end() ? found->second : difference_cause{};
}

difference_cause difference_causes::of_pps(const unit_reader& reader, unsigned int id) const {
    const difference_cause cause = of({"PPS", id});
    const auto pps = reader.sets().pps.find(id);
    return cause.rule != nullptr || pps == reader.sets().pps.end()
               ? cause
               : of_sps(reader, pps->second.pps_seq_parameter_set_id);
}

difference_cause difference_causes::of_sps(const unit_reader& reader, unsigned int id) const {
    const difference_cause cause = of({"SPS", id});
    const auto sps = reader.sets().sps.find(id);
    return cause.rule != nullptr || sps == reader.sets().sps.end()
               ? cause
               : of({"VPS", sps->second.sps_video_parameter_set_id});
}

}  // namespace kovran::inspect
