#include "elements/meaning.h"

#include "elements/standard_tables.h"

#include <kovran/h265/h265_nal_sei_pic_timing.h>
#include <kovran/h265/h265_profile.h>
#include <kovran/h265/h265_slice_segment_header.h>
#include <kovran/h265/h265_video_format.h>
#include <kovran/h265/sei/h265_nal_sei_message.h>

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

// Tables that the library has.
template <const char* (*name_of)(unsigned int)>
std::string library_name(std::int64_t value) {
    return name_of(static_cast<unsigned int>(value));
}

std::string description_type(std::int64_t value) {
    return h265_nal_sei_sei_manifest::manifest_sei_description_to_str(
        static_cast<unsigned char>(value));
}

std::string depth_type(std::int64_t value) {
    h265_nal_sei_alternative_depth_info info;
    info.depth_type = static_cast<unsigned char>(value);
    return info.depth_type_to_str();
}

std::string depth_representation_type(std::int64_t value) {
    h265_nal_sei_depth_representation_info info;
    info.depth_representation_type = static_cast<unsigned int>(value);
    return info.depth_representation_type_to_str();
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
    table_of_element{"ffinfo_pic_struct", pic_struct},
    table_of_element{"ffinfo_source_scan_type", source_scan_type},
    table_of_element{"film_grain_model_id", library_name<h265_nal_sei_film_grain_model_id_to_str>},
    table_of_element{"blending_mode_id",
                     library_name<h265_nal_sei_film_grain_blending_mode_id_to_str>},
    table_of_element{"film_grain_colour_primaries", colour_primaries_name},
    table_of_element{"film_grain_transfer_characteristics", transfer_characteristics_name},
    table_of_element{"film_grain_matrix_coeffs", matrix_coeffs_name},
    table_of_element{"tone_map_model_id", library_name<h265_nal_sei_tone_map_model_id_to_str>},
    table_of_element{"frame_packing_arrangement_type",
                     library_name<h265_nal_sei_frame_packing_arrangement_type_to_str>},
    table_of_element{"content_interpretation_type",
                     library_name<h265_nal_sei_content_interpretation_type_to_str>},
    table_of_element{"segmented_rect_content_interpretation_type",
                     library_name<h265_nal_sei_content_interpretation_type_to_str>},
    table_of_element{"green_metadata_type", library_name<h265_nal_sei_green_metadata_type_to_str>},
    table_of_element{"hash_type", library_name<h265_nal_sei_hash_type_to_str>},
    table_of_element{"mcts_level_idc", level_name},
    table_of_element{"mcts_max_level_idc", level_name},
    table_of_element{"colour_remap_primaries", colour_primaries_name},
    table_of_element{"colour_remap_transfer_function", transfer_characteristics_name},
    table_of_element{"colour_remap_matrix_coefficients", matrix_coeffs_name},
    table_of_element{"preferred_transfer_characteristics", transfer_characteristics_name},
    table_of_element{"depth_representation_type", depth_representation_type},
    table_of_element{"depth_type", depth_type},
    table_of_element{"manifest_sei_payload_type", library_name<h265_nal_sei_payload_name>},
    table_of_element{"manifest_sei_description", description_type},
    table_of_element{"prefix_sei_payload_type", library_name<h265_nal_sei_payload_name>},
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
    if (element.run != 0) {  // the ff_byte elements of filler_payload()
        return false;
    }
    const std::string_view name = element.name.name;
    return std::find(framing.begin(), framing.end(), name) != framing.end();
}

}  // namespace kovran::inspect
