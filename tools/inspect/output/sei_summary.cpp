#include "output/sei_summary.h"

#include <kovran/h265/sei/h265_t35_user_data.h>
#include <kovran/h265/sei/h265_unregistered_user_data.h>

#include "elements/sei_meaning.h"
#include "elements/standard_tables.h"
#include "process/printable.h"

#include <string_view>
#include <variant>

#include <fmt/format.h>

namespace kovran::inspect {
namespace {

// The types that Dolby Vision takes out of those that table 7-1 leaves to applications.
constexpr unsigned int dolby_vision_metadata_type = 62;
constexpr unsigned int dolby_vision_enhancement_type = 63;
constexpr std::size_t header_bytes = 2;
constexpr unsigned char first_byte_of_metadata = 0x19;

std::string number_of(std::uint64_t count, std::string_view what) {
    return fmt::format("{} {}{}", count, what, count == 1 ? "" : "s");
}

// An encoder's name and version, which stand before what else it tells; no more than fits on a
// line.
std::string short_text(std::string_view text) {
    constexpr std::size_t longest = 120;
    std::string_view beginning = text;
    for (const char* const behind : {" - H.265", " - Copy", " - options:"}) {
        beginning = beginning.substr(0, beginning.find(behind));
    }
    return printable(beginning.substr(0, longest)) + (beginning.size() > longest ? "..." : "");
}

void keep_first(std::string& kept, const h265_nal_sei_message& message) {
    if (kept.empty()) {
        kept = meaning_of(message).front();
    }
}

}  // namespace

void sei_summary::add(const nal_unit& unit) {
    const bool has_metadata = unit.header.nal_unit_type == dolby_vision_metadata_type &&
                              unit.size > header_bytes &&
                              unit.bytes[header_bytes] == first_byte_of_metadata;
    dolby_vision_metadata_ += has_metadata ? 1 : 0;
    dolby_vision_enhancement_ += unit.header.nal_unit_type == dolby_vision_enhancement_type ? 1 : 0;
}

void sei_summary::add(const h265_nal_sei_message& message) {
    if (std::holds_alternative<h265_nal_sei_mastering_display_colour_volume>(message.payload)) {
        keep_first(mastering_display_, message);
    } else if (std::holds_alternative<h265_nal_sei_content_light_level_info>(message.payload)) {
        keep_first(light_level_, message);
    } else {
        std::visit([this](const auto& payload) { add_payload(payload); }, message.payload);
    }
}

void sei_summary::add_payload(const h265_nal_sei_user_data_registered_itu_t_t35& user_data) {
    h265_t35_user_data codes;
    static_cast<void>(codes.parse(user_data));
    switch (codes.kind) {
        case h265_t35_kind::hdr10_plus:
            ++hdr10_plus_messages_;
            break;
        case h265_t35_kind::a53_captions:
            ++caption_messages_;
            break;
        default:
            break;
    }
}

void sei_summary::add_payload(const h265_nal_sei_user_data_unregistered& user_data) {
    if (const std::string_view text = h265_user_data_text(user_data);
        encoder_.empty() && !text.empty()) {
        encoder_ = short_text(text);
    }
}

void sei_summary::add_payload(const h265_nal_sei_time_code& code) {
    for (const auto& clock : code.clock_timestamps) {
        if (clock.clock_timestamp_flag && time_codes_++ == 0) {
            first_time_code_ = clock.time_to_str();
        }
    }
}

void sei_summary::add_payload(const h265_nal_sei_alternative_transfer_characteristics& transfer) {
    if (alternative_transfer_.empty()) {
        alternative_transfer_ =
            transfer_characteristics_name(transfer.preferred_transfer_characteristics);
    }
}

std::vector<std::pair<std::string, std::string>> sei_summary::lines() const {
    std::vector<std::pair<std::string, std::string>> all;
    const auto add = [&all](bool present, const char* name, const std::string& text) {
        if (present) {
            all.emplace_back(name, text);
        }
    };
    const bool has_both = !mastering_display_.empty() && !light_level_.empty();
    add(!mastering_display_.empty() || !light_level_.empty(), "HDR10",
        mastering_display_ + (has_both ? "; " : "") + light_level_);
    add(hdr10_plus_messages_ != 0, "HDR10+", number_of(hdr10_plus_messages_, "message"));
    add(!alternative_transfer_.empty(), "transfer", alternative_transfer_ + " preferred");
    add(dolby_vision_metadata_ + dolby_vision_enhancement_ != 0, "Dolby Vision",
        fmt::format("{} of metadata, {} of an enhancement layer",
                    number_of(dolby_vision_metadata_, "unit"),
                    number_of(dolby_vision_enhancement_, "unit")));
    add(caption_messages_ != 0, "captions", "A/53, " + number_of(caption_messages_, "message"));
    add(time_codes_ != 0, "time code",
        fmt::format("{}, first {}", number_of(time_codes_, "time"), first_time_code_));
    add(!encoder_.empty(), "encoder", encoder_);
    return all;
}

}  // namespace kovran::inspect
