#include "output/stream_summary.h"

#include <kovran/h265/h265_picture_format.h>
#include <kovran/h265/h265_picture_rate.h>
#include <kovran/h265/h265_profile_name.h>

#include "elements/sei_name.h"
#include "elements/standard_tables.h"

#include <algorithm>
#include <iterator>

#include <fmt/format.h>

namespace kovran::inspect {
namespace {

constexpr std::uint64_t iraps_listed = 8;
constexpr std::size_t most_unnamed_types = 32;  // payload types have 32 bits

bool is_irap(h265_nal_unit_type type) {
    return type >= BLA_W_LP && type <= RSV_IRAP_VCL23;
}

// Counts by name: "B 12, I 1, P 3".
std::string counts(const std::map<std::string, std::uint64_t>& by_name) {
    std::string text;
    for (const auto& [name, count] : by_name) {
        text += fmt::format("{}{} {}", text.empty() ? "" : ", ", name, count);
    }
    return text.empty() ? "none" : text;
}

// By its flags; by its number alone where no profile has such flags.
std::string profile_text(const h265_profile_tier_level::layer_t& general) {
    if (general.profile_space != 0) {
        return "reserved";
    }
    const std::string name = h265_profile_name(general);
    return name.empty() ? profile_name(general.profile_idc) : name;
}

std::string profile_tier_level_text(const h265_profile_tier_level::layer_t& general) {
    return fmt::format("{}, {}, {}", profile_text(general), tier_name(general.tier_flag ? 1 : 0),
                       level_name(general.level_idc));
}

std::string size_text(const h265_nal_sps& sps) {
    std::string text =
        fmt::format("{} x {}", sps.pic_width_in_luma_samples, sps.pic_height_in_luma_samples);
    if (!sps.conformance_window_flag) {
        return text;
    }
    const h265_picture_size cropped = h265_cropped_size(sps);
    if (cropped.width == 0) {
        return text + ", with a conformance window that leaves nothing";
    }
    return text + fmt::format(", cropped to {} x {}", cropped.width, cropped.height);
}

std::string rate_text(const std::map<unsigned int, h265_nal_vps>& vps_by_id,
                      const h265_nal_sps& sps) {
    const auto found = vps_by_id.find(sps.sps_video_parameter_set_id);
    const h265_nal_vps* const vps = found != vps_by_id.end() ? &found->second : nullptr;
    const h265_picture_rate rate = h265_picture_rate_of(sps, vps);
    const h265_vui_parameters& vui = sps.vui_parameters;
    if (rate.is_known()) {
        return fmt::format("{:.6g} {} per second ({}/{})",
                           static_cast<double>(rate.time_scale) / rate.num_units_in_tick,
                           vui.field_seq_flag ? "fields" : "pictures", rate.time_scale,
                           rate.num_units_in_tick);
    }
    const bool given =
        vui.vui_timing_info_present_flag || (vps != nullptr && vps->vps_timing_info_present_flag);
    return given ? "unknown: the tick or the time scale is 0" : "not given";
}

std::string colour_text(const h265_nal_sps& sps) {
    const h265_vui_parameters& vui = sps.vui_parameters;
    if (!sps.vui_parameters_present_flag || !vui.video_signal_type_present_flag) {
        return "not given";
    }
    const char* const range = vui.video_full_range_flag ? "full range" : "limited range";
    if (!vui.colour_description_present_flag) {
        return range;
    }
    return fmt::format("{}; primaries {}; transfer {}; matrix {}", range,
                       colour_primaries_name(vui.colour_primaries),
                       transfer_characteristics_name(vui.transfer_characteristics),
                       matrix_coeffs_name(vui.matrix_coeffs));
}

// How many pictures it is from one IRAP picture to the next.
std::string distances_text(std::uint64_t shortest, std::uint64_t longest) {
    if (shortest != longest) {
        return fmt::format("every {} to {} pictures", shortest, longest);
    }
    return shortest == 1 ? "every picture" : fmt::format("every {} pictures", shortest);
}

void line(std::string& text, std::string_view name, std::string_view value) {
    fmt::format_to(std::back_inserter(text), "{:<14}{}\n", name, value);
}

}  // namespace

void stream_summary::add(const nal_unit& unit, const unit_record& record) {
    faults_ += unit.faults.count();
    if (!unit.readable) {
        return;
    }
    ++units_.at(unit.header.nal_unit_type);
    higher_layer_units_ += unit.header.nuh_layer_id != 0 ? 1 : 0;
    sei_.add(unit);
    if (const auto* const vps = std::get_if<h265_nal_vps>(&record); vps != nullptr) {
        if (vps->valid) {
            vps_.emplace(vps->vps_video_parameter_set_id, *vps);
        }
    } else if (const auto* const sps = std::get_if<h265_nal_sps>(&record); sps != nullptr) {
        if (sps->valid && !sps_) {
            sps_ = *sps;
        }
    } else if (const auto* const slice = std::get_if<h265_slice_segment_header>(&record);
               slice != nullptr) {
        add_slice(unit, *slice);
    }
}

void stream_summary::add_slice(const nal_unit& unit, const h265_slice_segment_header& slice) {
    if (!slice.valid) {
        ++slices_["unreadable"];
    } else if (slice.dependent_slice_segment_flag) {
        ++slices_["dependent"];
    } else {
        ++slices_[slice.slice_type_to_str()];
    }
    if (!slice.first_slice_segment_in_pic_flag) {
        return;
    }
    const std::uint64_t picture = pictures_++;
    if (!is_irap(unit.header.nal_unit_type)) {
        return;
    }
    if (irap_pictures_ != 0) {
        const std::uint64_t distance = picture - last_irap_;
        shortest_irap_distance_ =
            irap_pictures_ == 1 ? distance : std::min(shortest_irap_distance_, distance);
        longest_irap_distance_ = std::max(longest_irap_distance_, distance);
    }
    if (irap_pictures_ < iraps_listed) {
        first_iraps_ +=
            fmt::format("{}{} at {}", first_iraps_.empty() ? "" : ", ", picture, unit.offset);
    }
    last_irap_ = picture;
    ++irap_pictures_;
}

void stream_summary::begin_message(const h265_nal_sei_reader& message) {
    const std::string name = sei_name(message.payload_type);
    if (!has_standard_name(message.payload_type) && messages_.count(name) == 0) {
        if (unnamed_types_ == most_unnamed_types) {
            ++other_messages_;
            return;
        }
        ++unnamed_types_;
    }
    ++messages_[name];
}

std::string stream_summary::text() const {
    std::string text;
    if (sps_) {
        line(text, "profile", profile_tier_level_text(sps_->profile_tier_level.general));
        line(text, "size", size_text(*sps_));
        line(text, "format",
             fmt::format("{}, {} bit luma, {} bit chroma",
                         chroma_format_name(sps_->chroma_format_idc), h265_bit_depth_luma(*sps_),
                         h265_bit_depth_chroma(*sps_)));
        line(text, "rate", rate_text(vps_, *sps_));
        line(text, "colour", colour_text(*sps_));
    } else {
        line(text, "profile", "unknown: no SPS could be read");
    }

    std::map<std::string, std::uint64_t> units_by_name;
    std::uint64_t all_units = 0;
    for (unsigned int type = 0; type < type_count; ++type) {
        if (units_[type] != 0) {
            units_by_name[type_name(static_cast<h265_nal_unit_type>(type))] = units_[type];
            all_units += units_[type];
        }
    }
    line(text, "NAL units", fmt::format("{}: {}", all_units, counts(units_by_name)));
    if (higher_layer_units_ != 0) {
        line(text, "",
             fmt::format("{} of them in enhancement layers, not parsed", higher_layer_units_));
    }
    line(text, "slices", counts(slices_));
    line(text, "pictures", fmt::format("{}", pictures_));
    std::string iraps = fmt::format("{}", irap_pictures_);
    if (irap_pictures_ != 0) {
        iraps += fmt::format(": picture {}{}", first_iraps_,
                             irap_pictures_ > iraps_listed ? ", ..." : "");
    }
    if (irap_pictures_ > 1) {
        iraps += "; " + distances_text(shortest_irap_distance_, longest_irap_distance_);
    }
    line(text, "IRAP", iraps);
    line(text, "SEI",
         counts(messages_) + (other_messages_ != 0
                                  ? fmt::format(", and {} of other types", other_messages_)
                                  : std::string{}));
    for (const auto& [name, words] : sei_.lines()) {
        line(text, name, words);
    }
    line(text, "rules", name_of(rules_));
    line(text, "faults", faults_ == 0 ? "none" : fmt::format("{}", faults_));
    return text;
}

}  // namespace kovran::inspect
