#include "elements/standard_tables.h"

#include <kovran/h265/h265_vui_parameters.h>

#include <algorithm>
#include <cstddef>
#include <iterator>

#include <fmt/format.h>

namespace kovran::inspect {
namespace {

// Rows that are null are reserved, as are those beyond the end.
template <std::size_t rows>
std::string row(const char* const (&table)[rows], std::int64_t value) {
    const auto index = static_cast<std::size_t>(value);
    return index < rows && table[index] != nullptr ? table[index] : "reserved";
}

}  // namespace

std::string profile_name(std::int64_t profile_idc) {
    static constexpr const char* names[] = {
        nullptr,
        "Main",
        "Main 10",
        "Main Still Picture",
        "format range extensions",
        "high throughput",
        "Multiview Main",
        "scalable extensions",
        "3D Main",
        "screen content coding extensions",
        "scalable format range extensions",
        "high throughput screen content coding extensions",
    };
    return row(names, profile_idc);
}

std::string tier_name(std::int64_t tier_flag) {
    return tier_flag != 0 ? "High tier" : "Main tier";
}

std::string level_name(std::int64_t level_idc) {
    // Ten times the numbers of the levels in clause A.4.
    static constexpr std::int64_t levels[] = {10, 20, 21, 30, 31, 40, 41, 50,
                                              51, 52, 60, 61, 62, 63, 85};
    const auto* const level =
        std::find_if(std::begin(levels), std::end(levels),
                     [&](std::int64_t each) { return 3 * each == level_idc; });
    if (level == std::end(levels)) {
        return "no level of the standard";
    }
    const std::int64_t minor = *level % 10;
    return minor == 0 ? fmt::format("level {}", *level / 10)
                      : fmt::format("level {}.{}", *level / 10, minor);
}

std::string chroma_format_name(std::int64_t chroma_format_idc) {
    static constexpr const char* names[] = {"monochrome", "4:2:0", "4:2:2", "4:4:4"};
    return row(names, chroma_format_idc);
}

std::string aspect_ratio_name(std::int64_t aspect_ratio_idc) {
    if (aspect_ratio_idc == h265_extended_sar) {
        return "as sar_width and sar_height say";
    }
    if (aspect_ratio_idc == 0) {
        return "unspecified";
    }
    const h265_sample_aspect_ratio ratio =
        h265_sample_aspect_ratio_of(static_cast<unsigned char>(aspect_ratio_idc));
    return ratio.width != 0 ? fmt::format("{}:{}", ratio.width, ratio.height) : "reserved";
}

std::string colour_primaries_name(std::int64_t value) {
    static constexpr const char* names[] = {
        nullptr,
        "BT.709",
        "unspecified",
        nullptr,
        "BT.470 System M",
        "BT.470 System B, G; BT.601 625",
        "SMPTE 170M; BT.601 525",
        "SMPTE 240M",
        "generic film",
        "BT.2020; BT.2100",
        "SMPTE ST 428-1, XYZ",
        "SMPTE RP 431-2, DCI P3",
        "SMPTE EG 432-1, Display P3",
        nullptr,
        nullptr,
        nullptr,
        nullptr,
        nullptr,
        nullptr,
        nullptr,
        nullptr,
        nullptr,
        "EBU Tech. 3213-E",
    };
    return row(names, value);
}

std::string transfer_characteristics_name(std::int64_t value) {
    static constexpr const char* names[] = {
        nullptr,
        "BT.709",
        "unspecified",
        nullptr,
        "gamma 2.2, BT.470 System M",
        "gamma 2.8, BT.470 System B, G",
        "SMPTE 170M; BT.601",
        "SMPTE 240M",
        "linear",
        "logarithmic, 100:1",
        "logarithmic, 316:1",
        "IEC 61966-2-4, xvYCC",
        "BT.1361",
        "IEC 61966-2-1, sRGB",
        "BT.2020 10 bit",
        "BT.2020 12 bit",
        "SMPTE ST 2084, PQ",
        "SMPTE ST 428-1",
        "ARIB STD-B67, HLG",
    };
    return row(names, value);
}

std::string matrix_coeffs_name(std::int64_t value) {
    static constexpr const char* names[] = {
        "identity, GBR or XYZ",
        "BT.709",
        "unspecified",
        nullptr,
        "FCC",
        "BT.470 System B, G; BT.601 625",
        "SMPTE 170M; BT.601 525",
        "SMPTE 240M",
        "YCgCo",
        "BT.2020 non-constant luminance",
        "BT.2020 constant luminance",
        "SMPTE ST 2085, Y'D'zD'x",
        "chromaticity-derived non-constant luminance",
        "chromaticity-derived constant luminance",
        "BT.2100 ICtCp",
    };
    return row(names, value);
}

std::string aud_pic_type_name(std::int64_t pic_type) {
    static constexpr const char* names[] = {"I slices", "P and I slices", "B, P and I slices"};
    return row(names, pic_type);
}

std::string motion_vector_resolution_name(std::int64_t value) {
    static constexpr const char* names[] = {"fractional samples", "whole samples",
                                            "as each slice says"};
    return row(names, value);
}

}  // namespace kovran::inspect
