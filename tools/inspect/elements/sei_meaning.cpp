#include "elements/sei_meaning.h"

#include <kovran/h265/sei/h265_mastering_display.h>
#include <kovran/h265/sei/h265_unregistered_user_data.h>

#include "elements/registered_user_data.h"
#include "process/printable.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <ctime>
#include <optional>
#include <string_view>
#include <variant>

#include <fmt/format.h>

namespace kovran::inspect {
namespace {

using lines = std::vector<std::string>;

constexpr double steps_of_coordinate = 50000;

// Longer than the options of any encoder.
constexpr std::size_t longest_text = 16384;

std::string coordinates(const h265_chromaticity& colour) {
    return fmt::format("{:.4f} {:.4f}", colour.x, colour.y);
}

// Of a time in microseconds or nanoseconds since 1970, as ISO 8601 has it.
std::string date_and_time(std::uint64_t time, std::uint64_t units_in_second, int digits) {
    const auto seconds = static_cast<std::time_t>(time / units_in_second);
    std::tm date{};
    gmtime_r(&seconds, &date);
    return fmt::format("{:04}-{:02}-{:02}T{:02}:{:02}:{:02}.{:0{}}Z", date.tm_year + 1900,
                       date.tm_mon + 1, date.tm_mday, date.tm_hour, date.tm_min, date.tm_sec,
                       time % units_in_second, digits);
}

// Messages that say nothing beyond their elements.
template <class Payload>
lines lines_of(const Payload& /*payload*/) {
    return {};
}

lines lines_of(const h265_nal_sei_user_data_registered_itu_t_t35& user_data) {
    return meaning_of(user_data);
}

lines lines_of(const h265_nal_sei_user_data_unregistered& user_data) {
    const std::string name = h265_user_data_name(user_data);
    std::string words = name;
    if (const std::optional<std::uint64_t> time = h265_misp_time(user_data)) {
        constexpr std::uint64_t microseconds = 1000000;
        constexpr std::uint64_t nanoseconds = 1000000000;
        words +=
            ": " + (name == "MISP time in nanoseconds" ? date_and_time(*time, nanoseconds, 9)
                                                       : date_and_time(*time, microseconds, 6));
    } else if (const std::string_view text = h265_user_data_text(user_data); !text.empty()) {
        words += (words.empty() ? "" : ": ") + printable(text.substr(0, longest_text)) +
                 (text.size() > longest_text ? "..." : "");
    }
    return words.empty() ? lines{} : lines{words};
}

lines lines_of(const h265_nal_sei_display_orientation& orientation) {
    if (orientation.display_orientation_cancel_flag) {
        return {"as decoded from here on"};
    }
    std::string words;
    if (orientation.hor_flip || orientation.ver_flip) {
        words = orientation.hor_flip && orientation.ver_flip ? "flipped in both directions"
                : orientation.hor_flip                       ? "flipped horizontally"
                                                             : "flipped vertically";
        words += ", then ";
    }
    return {words + fmt::format("turned anticlockwise by {:.6g} degrees",
                                orientation.anticlockwise_degrees())};
}

lines lines_of(const h265_nal_sei_decoded_picture_hash& hash) {
    constexpr std::array planes = {"Y", "Cb", "Cr"};
    std::string words;
    for (std::size_t plane = 0; plane < planes.size(); ++plane) {
        if (const std::string digits = hash.plane_hash(plane); !digits.empty()) {
            words += fmt::format("{}{} {}", words.empty() ? "" : ", ", planes[plane], digits);
        }
    }
    return words.empty() ? lines{} : lines{words};
}

lines lines_of(const h265_nal_sei_time_code& code) {
    std::string words;
    for (const auto& clock : code.clock_timestamps) {
        if (clock.clock_timestamp_flag) {
            words += (words.empty() ? "" : ", ") + clock.time_to_str();
        }
    }
    return words.empty() ? lines{} : lines{words};
}

lines lines_of(const h265_nal_sei_mastering_display_colour_volume& volume) {
    const h265_mastering_display display = h265_mastering_display_of(volume);
    return {fmt::format("G {}, B {}, R {}, white point {}; {:.4f} to {:.6g} cd/m2",
                        coordinates(display.green), coordinates(display.blue),
                        coordinates(display.red), coordinates(display.white_point),
                        display.min_luminance, display.max_luminance)};
}

lines lines_of(const h265_nal_sei_content_light_level_info& level) {
    const auto words = [](unsigned int value) {
        return value == 0 ? "unknown" : fmt::format("{} cd/m2", value);
    };
    return {fmt::format("content light level {}, of a picture on average {}",
                        words(level.max_content_light_level),
                        words(level.max_pic_average_light_level))};
}

lines lines_of(const h265_nal_sei_ambient_viewing_environment& ambient) {
    constexpr double steps_of_lux = 10000;
    return {fmt::format("{:.6g} lux, {}", ambient.ambient_illuminance / steps_of_lux,
                        coordinates({ambient.ambient_light_x / steps_of_coordinate,
                                     ambient.ambient_light_y / steps_of_coordinate}))};
}

lines lines_of(const h265_nal_sei_content_colour_volume& volume) {
    constexpr double steps_of_candela = 10000000;
    std::string words;
    const auto add = [&words](const std::string& more) {
        words += (words.empty() ? "" : ", ") + more;
    };
    if (volume.ccv_primaries_present_flag) {
        constexpr std::array names = {"G", "B", "R"};
        for (std::size_t c = 0; c < names.size(); ++c) {
            add(fmt::format("{} {}", names[c],
                            coordinates({volume.ccv_primaries_x[c] / steps_of_coordinate,
                                         volume.ccv_primaries_y[c] / steps_of_coordinate})));
        }
    }
    const auto add_luminance = [&](bool present, const char* name, unsigned int value) {
        if (present) {
            add(fmt::format("{} {:.6g} cd/m2", name, value / steps_of_candela));
        }
    };
    add_luminance(volume.ccv_min_luminance_value_present_flag, "at least",
                  volume.ccv_min_luminance_value);
    add_luminance(volume.ccv_max_luminance_value_present_flag, "at most",
                  volume.ccv_max_luminance_value);
    add_luminance(volume.ccv_avg_luminance_value_present_flag, "on average",
                  volume.ccv_avg_luminance_value);
    return words.empty() ? lines{} : lines{words};
}

}  // namespace

std::vector<std::string> meaning_of(const h265_nal_sei_message& message) {
    return std::visit([](const auto& payload) { return lines_of(payload); }, message.payload);
}

}  // namespace kovran::inspect
