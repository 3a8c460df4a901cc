#include "elements/registered_user_data.h"

#include <kovran/h265/sei/h265_a53_captions.h>
#include <kovran/h265/sei/h265_afd.h>
#include <kovran/h265/sei/h265_bar_data.h>
#include <kovran/h265/sei/h265_hdr10_plus.h>
#include <kovran/h265/sei/h265_t35_user_data.h>

#include <cstddef>
#include <iterator>
#include <string_view>
#include <utility>

#include <fmt/format.h>

namespace kovran::inspect {
namespace {

using lines = std::vector<std::string>;
using user_data_record = h265_nal_sei_user_data_registered_itu_t_t35;

// A code by its name, "United States (0xb5)", or by what it is of where it has none.
std::string named_code(std::string_view name, std::string_view what, unsigned int code,
                       int digits) {
    return name.empty() ? fmt::format("{} 0x{:0{}x}", what, code, digits)
                        : fmt::format("{} (0x{:0{}x})", name, code, digits);
}

lines lines_of_captions(const user_data_record& user_data) {
    h265_a53_captions captions;
    if (!captions.parse(user_data)) {
        return {"the captions cannot be read"};
    }
    std::string words;
    for (const auto& each : captions.cc_data) {
        fmt::format_to(std::back_inserter(words), "{}{} {:02x}{:02x}{}", words.empty() ? "" : ", ",
                       each.cc_type, each.cc_data_1, each.cc_data_2,
                       each.cc_valid ? "" : " not valid");
    }
    if (words.empty()) {
        return {"no caption triples"};
    }
    return {fmt::format("{} caption triple{}, by type: {}", captions.cc_count,
                        captions.cc_count == 1 ? "" : "s", words)};
}

lines lines_of_format(const user_data_record& user_data) {
    h265_afd afd;
    if (!afd.parse(user_data)) {
        return {"the active format cannot be read"};
    }
    return {afd.active_format_flag ? fmt::format("active format {}", afd.active_format)
                                   : "no active format"};
}

lines lines_of_bars(const user_data_record& user_data) {
    h265_bar_data bars;
    if (!bars.parse(user_data)) {
        return {"the bars cannot be read"};
    }
    std::string words;
    const auto add = [&words](bool present, std::string_view what, unsigned int place) {
        if (present) {
            words += fmt::format("{}{} {}", words.empty() ? "" : ", ", what, place);
        }
    };
    add(bars.top_bar_flag, "top bar ends at line", bars.line_number_end_of_top_bar);
    add(bars.bottom_bar_flag, "bottom bar begins at line", bars.line_number_start_of_bottom_bar);
    add(bars.left_bar_flag, "left bar ends at pixel", bars.pixel_number_end_of_left_bar);
    add(bars.right_bar_flag, "right bar begins at pixel", bars.pixel_number_start_of_right_bar);
    return {words.empty() ? "no bars" : words};
}

std::string words_of(const h265_hdr10_plus::window_t& window) {
    constexpr double steps_of_light = 100000;
    std::string words =
        fmt::format("largest R {:.5f}, G {:.5f}, B {:.5f}, average of the largest {:.5f}",
                    window.maxscl[0] / steps_of_light, window.maxscl[1] / steps_of_light,
                    window.maxscl[2] / steps_of_light, window.average_maxrgb / steps_of_light);
    for (std::size_t i = 0; i < window.distribution_maxrgb_percentages.size(); ++i) {
        words += fmt::format("{}{} % {:.5f}", i == 0 ? "; " : ", ",
                             window.distribution_maxrgb_percentages[i],
                             window.distribution_maxrgb_percentiles[i] / steps_of_light);
    }
    if (window.tone_mapping_flag) {
        words += fmt::format("; knee {} {}, {} anchor{}", window.knee_point_x, window.knee_point_y,
                             window.num_bezier_curve_anchors,
                             window.num_bezier_curve_anchors == 1 ? "" : "s");
    }
    return words;
}

lines lines_of_hdr10_plus(const user_data_record& user_data) {
    h265_hdr10_plus metadata;
    if (!metadata.parse(user_data)) {
        return {"the metadata cannot be read"};
    }
    lines all = {fmt::format("application version {}, for a display of {} cd/m2",
                             metadata.application_version,
                             metadata.targeted_system_display_maximum_luminance)};
    for (const auto& window : metadata.windows) {
        all.push_back(words_of(window));
    }
    return all;
}

lines lines_of_kind(h265_t35_kind kind, const user_data_record& user_data) {
    switch (kind) {
        case h265_t35_kind::a53_captions:
            return lines_of_captions(user_data);
        case h265_t35_kind::afd:
            return lines_of_format(user_data);
        case h265_t35_kind::bar_data:
            return lines_of_bars(user_data);
        case h265_t35_kind::hdr10_plus:
            return lines_of_hdr10_plus(user_data);
        default:
            return {};
    }
}

}  // namespace

std::vector<std::string> meaning_of(const user_data_record& user_data) {
    h265_t35_user_data codes;
    if (!codes.parse(user_data)) {
        return {};
    }
    std::string heading = fmt::format(
        "{}, {}", named_code(h265_t35_country_name(codes.country), "country", codes.country, 2),
        named_code(h265_t35_provider_name(codes.country, codes.provider), "provider",
                   codes.provider, 4));
    if (codes.kind != h265_t35_kind::other) {
        heading += fmt::format(": {}", h265_t35_kind_name(codes.kind));
    }
    lines all = {heading};
    for (std::string& line : lines_of_kind(codes.kind, user_data)) {
        all.push_back(std::move(line));
    }
    return all;
}

}  // namespace kovran::inspect
