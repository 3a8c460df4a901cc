#include "elements/difference_cause.h"

#include <variant>

namespace kovran::inspect {

difference_cause difference_causes::of(const nal_unit& unit, const unit_reader& reader,
                                       const char* noted_rule) {
    const auto here_or = [&](const difference_cause& earlier) {
        return noted_rule != nullptr ? difference_cause{noted_rule, unit.index} : earlier;
    };
    const unit_record& record = reader.record();
    if (const auto* const vps = std::get_if<h265_nal_vps>(&record); vps != nullptr) {
        return vps_[vps->vps_video_parameter_set_id] = here_or({});
    }
    if (const auto* const sps = std::get_if<h265_nal_sps>(&record); sps != nullptr) {
        const difference_cause cause = here_or(vps_[sps->sps_video_parameter_set_id]);
        return sps->valid ? sps_[sps->sps_seq_parameter_set_id] = cause : cause;
    }
    if (const auto* const pps = std::get_if<h265_nal_pps>(&record); pps != nullptr) {
        if (!pps->valid) {
            return here_or({});
        }
        return pps_[pps->pps_pic_parameter_set_id] = here_or(sps_[pps->pps_seq_parameter_set_id]);
    }
    if (const auto* const slice = std::get_if<h265_slice_segment_header>(&record);
        slice != nullptr) {
        const auto pps = pps_.find(slice->slice_pic_parameter_set_id);
        return here_or(pps != pps_.end() ? pps->second : difference_cause{});
    }
    const auto sps = sps_.find(reader.active_sps_id());
    return here_or(sps != sps_.end() ? sps->second : difference_cause{});
}

}  // namespace kovran::inspect
