#include "elements/meaning.h"

#include "elements/standard_tables.h"

#include <kovran/h265/h265_nal_sei_pic_timing.h>
#include <kovran/h265/h265_profile.h>
#include <kovran/h265/h265_slice_segment_header.h>
#include <kovran/h265/h265_video_format.h>

#include <algorithm>
#include <array>
#include <string_view>

#include <fmt/format.h>

namespace kovran::inspect {
namespace {

std::string video_format(std::int64_t value) {
    return h265_video_format_to_str(static_cast<h265_video_format>(value));
}

std::string slice_type(std::int64_t value) {
    h265_slice_segment_header slice;
    slice.slice_type = static_cast<unsigned int>(value);
    return slice.slice_type_to_str();
}

std::string pic_struct(std::int64_t value) {
    h265_nal_sei_pic_timing timing;
    timing.pic_struct = static_cast<unsigned char>(value);
    return timing.pic_struct_to_str();
}

std::string source_scan_type(std::int64_t value) {
    h265_nal_sei_pic_timing timing;
    timing.source_scan_type = static_cast<unsigned char>(value);
    return timing.source_scan_type_to_str();
}

struct table_of_element {
    std::string_view element;
    std::string (*meaning)(std::int64_t value);
};

constexpr std::array tables = {
    table_of_element{"general_profile_idc", profile_name},
    table_of_element{"sub_layer_profile_idc", profile_name},
    table_of_element{"general_tier_flag", tier_name},
    table_of_element{"sub_layer_tier_flag", tier_name},
    table_of_element{"general_level_idc", level_name},
    table_of_element{"sub_layer_level_idc", level_name},
    table_of_element{"chroma_format_idc", chroma_format_name},
    table_of_element{"aspect_ratio_idc", aspect_ratio_name},
    table_of_element{"video_format", video_format},
    table_of_element{"colour_primaries", colour_primaries_name},
    table_of_element{"transfer_characteristics", transfer_characteristics_name},
    table_of_element{"matrix_coeffs", matrix_coeffs_name},
    table_of_element{"pic_type", aud_pic_type_name},
    table_of_element{"motion_vector_resolution_control_idc", motion_vector_resolution_name},
    table_of_element{"slice_type", slice_type},
    table_of_element{"pic_struct", pic_struct},
    table_of_element{"source_scan_type", source_scan_type},
};

constexpr std::array<std::string_view, 9> framing = {
    "rbsp_stop_one_bit",
    "rbsp_alignment_zero_bit",
    "alignment_bit_equal_to_one",
    "alignment_bit_equal_to_zero",
    "last_payload_type_byte",
    "last_payload_size_byte",
    "ff_byte",
    "payload_bit_equal_to_one",
    "payload_bit_equal_to_zero",
};

}  // namespace

bool is_named_as_extension_data(std::string_view name) {
    constexpr std::string_view ending = "_extension_data_flag";
    return name.size() > ending.size() && name.substr(name.size() - ending.size()) == ending;
}

bool is_extension_data(const shown_element& element) {
    return is_named_as_extension_data(element.name.name) && element.width != 1;
}

bool is_extension_flag(const shown_element& element) {
    return is_named_as_extension_data(element.name.name) && element.width == 1;
}

std::string meaning_of(const shown_element& element) {
    const std::string name = std::string(element.name.prefix) + element.name.name;
    const auto table =
        std::find_if(tables.begin(), tables.end(),
                     [&name](const table_of_element& each) { return each.element == name; });
    return table != tables.end() ? table->meaning(element.value) : std::string();
}

bool is_framing(const shown_element& element) {
    const std::string_view name = element.name.name;
    return std::find(framing.begin(), framing.end(), name) != framing.end();
}

}  // namespace kovran::inspect
