#include "elements/standard_tables.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <map>
#include <string>
#include <utility>

#include "elements/meaning.h"
#include "elements/sei_name.h"
#include "output/colour.h"

namespace kovran::inspect {
namespace {

using table = std::map<std::int64_t, std::string>;
using meaning = std::string (*)(std::int64_t value);

// That all values of a byte have these meanings, and those that are not listed, up to the largest
// that ue(v) can code, are reserved.
void expect_table(meaning name_of, const table& names, const std::string& reserved = "reserved") {
    constexpr std::int64_t largest = 0xFFFFFFFE;
    for (std::int64_t value = 0; value < 256; ++value) {
        const auto known = names.find(value);
        EXPECT_EQ(name_of(value), known == names.end() ? reserved : known->second) << value;
    }
    if (name_of != level_name && name_of != aspect_ratio_name) {
        EXPECT_EQ(name_of(256), reserved);
        EXPECT_EQ(name_of(largest), reserved);
    }
}

TEST(StandardTables, Profiles) {
    expect_table(profile_name, {{1, "Main"},
                                {2, "Main 10"},
                                {3, "Main Still Picture"},
                                {4, "format range extensions"},
                                {5, "high throughput"},
                                {6, "Multiview Main"},
                                {7, "scalable extensions"},
                                {8, "3D Main"},
                                {9, "screen content coding extensions"},
                                {10, "scalable format range extensions"},
                                {11, "high throughput screen content coding extensions"}});
}

TEST(StandardTables, Tiers) {
    EXPECT_EQ(tier_name(0), "Main tier");
    EXPECT_EQ(tier_name(1), "High tier");
}

// general_level_idc is 30 times the number of the level, clause A.4.1.
TEST(StandardTables, Levels) {
    expect_table(level_name,
                 {{30, "level 1"},
                  {60, "level 2"},
                  {63, "level 2.1"},
                  {90, "level 3"},
                  {93, "level 3.1"},
                  {120, "level 4"},
                  {123, "level 4.1"},
                  {150, "level 5"},
                  {153, "level 5.1"},
                  {156, "level 5.2"},
                  {180, "level 6"},
                  {183, "level 6.1"},
                  {186, "level 6.2"},
                  {189, "level 6.3"},
                  {255, "level 8.5"}},
                 "no level of the standard");
}

TEST(StandardTables, ChromaFormats) {
    expect_table(chroma_format_name, {{0, "monochrome"}, {1, "4:2:0"}, {2, "4:2:2"}, {3, "4:4:4"}});
}

// Table E.1.
TEST(StandardTables, AspectRatios) {
    expect_table(aspect_ratio_name, {{0, "unspecified"},
                                     {1, "1:1"},
                                     {2, "12:11"},
                                     {3, "10:11"},
                                     {4, "16:11"},
                                     {5, "40:33"},
                                     {6, "24:11"},
                                     {7, "20:11"},
                                     {8, "32:11"},
                                     {9, "80:33"},
                                     {10, "18:11"},
                                     {11, "15:11"},
                                     {12, "64:33"},
                                     {13, "160:99"},
                                     {14, "4:3"},
                                     {15, "3:2"},
                                     {16, "2:1"},
                                     {255, "as sar_width and sar_height say"}});
}

// Table E.3.
TEST(StandardTables, ColourPrimaries) {
    expect_table(colour_primaries_name, {{1, "BT.709"},
                                         {2, "unspecified"},
                                         {4, "BT.470 System M"},
                                         {5, "BT.470 System B, G; BT.601 625"},
                                         {6, "SMPTE 170M; BT.601 525"},
                                         {7, "SMPTE 240M"},
                                         {8, "generic film"},
                                         {9, "BT.2020; BT.2100"},
                                         {10, "SMPTE ST 428-1, XYZ"},
                                         {11, "SMPTE RP 431-2, DCI P3"},
                                         {12, "SMPTE EG 432-1, Display P3"},
                                         {22, "EBU Tech. 3213-E"}});
}

// Table E.4.
TEST(StandardTables, TransferCharacteristics) {
    expect_table(transfer_characteristics_name, {{1, "BT.709"},
                                                 {2, "unspecified"},
                                                 {4, "gamma 2.2, BT.470 System M"},
                                                 {5, "gamma 2.8, BT.470 System B, G"},
                                                 {6, "SMPTE 170M; BT.601"},
                                                 {7, "SMPTE 240M"},
                                                 {8, "linear"},
                                                 {9, "logarithmic, 100:1"},
                                                 {10, "logarithmic, 316:1"},
                                                 {11, "IEC 61966-2-4, xvYCC"},
                                                 {12, "BT.1361"},
                                                 {13, "IEC 61966-2-1, sRGB"},
                                                 {14, "BT.2020 10 bit"},
                                                 {15, "BT.2020 12 bit"},
                                                 {16, "SMPTE ST 2084, PQ"},
                                                 {17, "SMPTE ST 428-1"},
                                                 {18, "ARIB STD-B67, HLG"}});
}

// Table E.5.
TEST(StandardTables, MatrixCoefficients) {
    expect_table(matrix_coeffs_name, {{0, "identity, GBR or XYZ"},
                                      {1, "BT.709"},
                                      {2, "unspecified"},
                                      {4, "FCC"},
                                      {5, "BT.470 System B, G; BT.601 625"},
                                      {6, "SMPTE 170M; BT.601 525"},
                                      {7, "SMPTE 240M"},
                                      {8, "YCgCo"},
                                      {9, "BT.2020 non-constant luminance"},
                                      {10, "BT.2020 constant luminance"},
                                      {11, "SMPTE ST 2085, Y'D'zD'x"},
                                      {12, "chromaticity-derived non-constant luminance"},
                                      {13, "chromaticity-derived constant luminance"},
                                      {14, "BT.2100 ICtCp"}});
}

// Table 7-2.
TEST(StandardTables, PictureTypesOfDelimiters) {
    expect_table(aud_pic_type_name,
                 {{0, "I slices"}, {1, "P and I slices"}, {2, "B, P and I slices"}});
}

// Clause 7.4.3.2.3.
TEST(StandardTables, MotionVectorResolutions) {
    expect_table(motion_vector_resolution_name,
                 {{0, "fractional samples"}, {1, "whole samples"}, {2, "as each slice says"}});
}

// ---- Which element goes by which table

std::string meaning_of_element(const std::string& prefix, const std::string& name,
                               std::int64_t value) {
    shown_element element;
    element.name.prefix = prefix.c_str();
    element.name.name = name.c_str();
    element.value = value;
    return meaning_of(element);
}

std::string meaning_of_element(const std::string& name, std::int64_t value) {
    return meaning_of_element("", name, value);
}

TEST(StandardTables, EachElementHasItsOwn) {
    EXPECT_EQ(meaning_of_element("chroma_format_idc", 2), "4:2:2");
    EXPECT_EQ(meaning_of_element("aspect_ratio_idc", 8), "32:11");
    EXPECT_EQ(meaning_of_element("colour_primaries", 8), "generic film");
    EXPECT_EQ(meaning_of_element("transfer_characteristics", 8), "linear");
    EXPECT_EQ(meaning_of_element("matrix_coeffs", 8), "YCgCo");
    EXPECT_EQ(meaning_of_element("pic_type", 1), "P and I slices");
    EXPECT_EQ(meaning_of_element("motion_vector_resolution_control_idc", 1), "whole samples");
    for (const char* const layer : {"general_", "sub_layer_"}) {
        EXPECT_EQ(meaning_of_element(layer, "profile_idc", 2), "Main 10");
        EXPECT_EQ(meaning_of_element(layer, "tier_flag", 1), "High tier");
        EXPECT_EQ(meaning_of_element(layer, "level_idc", 63), "level 2.1");
    }
    EXPECT_EQ(meaning_of_element("profile_idc", 2), "");
    for (const char* const name :
         {"sps_seq_parameter_set_id", "pic_output_flag", "tier_flag", "colour_plane_id",
          "general_profile_space", "num_entry_points"}) {
        EXPECT_EQ(meaning_of_element(name, 1), "") << name;
    }
}

// Each by a value that other tables have another name for, or none.
TEST(StandardTables, ElementsOfMessagesHaveTheirOwn) {
    const std::map<std::string, std::pair<std::int64_t, std::string>> elements = {
        {"ffinfo_pic_struct", {8, "Frame tripling"}},
        {"ffinfo_source_scan_type", {1, "progressive"}},
        {"film_grain_model_id", {1, "auto-regression"}},
        {"blending_mode_id", {1, "multiplicative"}},
        {"film_grain_colour_primaries", {8, "generic film"}},
        {"film_grain_transfer_characteristics", {8, "linear"}},
        {"film_grain_matrix_coeffs", {8, "YCgCo"}},
        {"tone_map_model_id", {3, "piecewise linear"}},
        {"frame_packing_arrangement_type", {4, "top and bottom"}},
        {"content_interpretation_type", {2, "frame 0 is the right view"}},
        {"segmented_rect_content_interpretation_type", {1, "frame 0 is the left view"}},
        {"green_metadata_type", {1, "quality recovery metrics"}},
        {"hash_type", {2, "checksum"}},
        {"mcts_level_idc", {63, "level 2.1"}},
        {"mcts_max_level_idc", {93, "level 3.1"}},
        {"colour_remap_primaries", {8, "generic film"}},
        {"colour_remap_transfer_function", {8, "linear"}},
        {"colour_remap_matrix_coefficients", {8, "YCgCo"}},
        {"preferred_transfer_characteristics", {18, "ARIB STD-B67, HLG"}},
        {"depth_representation_type", {2, "Z, uniform steps"}},
        {"depth_type", {1, "warp map"}},
        {"manifest_sei_payload_type", {136, "time_code"}},
        {"manifest_sei_description", {1, "expected, necessary"}},
        {"prefix_sei_payload_type", {144, "content_light_level_info"}},
    };
    for (const auto& [name, value] : elements) {
        EXPECT_EQ(meaning_of_element(name, value.first), value.second) << name;
    }
    EXPECT_EQ(meaning_of_element("manifest_sei_payload_type", 100), "");
    EXPECT_EQ(meaning_of_element("hash_type", 3), "");
    EXPECT_EQ(meaning_of_element("depth_type", 3), "?");
}

// Table E.2.
TEST(StandardTables, VideoFormats) {
    const char* const names[] = {"Component", "PAL",         "NTSC", "SECAM",
                                 "MAC",       "Unspecified", "?",    "?"};
    for (int value = 0; value < 8; ++value) {
        EXPECT_EQ(meaning_of_element("video_format", value), names[value]);
    }
}

// Table 7-7.
TEST(StandardTables, SliceTypes) {
    EXPECT_EQ(meaning_of_element("slice_type", 0), "B");
    EXPECT_EQ(meaning_of_element("slice_type", 1), "P");
    EXPECT_EQ(meaning_of_element("slice_type", 2), "I");
    EXPECT_EQ(meaning_of_element("slice_type", 3), "?");
    EXPECT_EQ(meaning_of_element("slice_type", 256), "?");
}

// Table D.2.
TEST(StandardTables, PictureStructures) {
    const char* const names[] = {"Progressive frame",
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
                                 "?",
                                 "?",
                                 "?"};
    for (int value = 0; value < 16; ++value) {
        EXPECT_EQ(meaning_of_element("pic_struct", value), names[value]);
    }
}

TEST(StandardTables, ScanTypes) {
    EXPECT_EQ(meaning_of_element("source_scan_type", 0), "interlaced");
    EXPECT_EQ(meaning_of_element("source_scan_type", 1), "progressive");
    EXPECT_EQ(meaning_of_element("source_scan_type", 2), "unknown");
    EXPECT_EQ(meaning_of_element("source_scan_type", 3), "?");
}

// ---- SEI messages

// Clause D.2.1.
TEST(StandardTables, Messages) {
    const std::map<unsigned int, std::string> names = {
        {0, "buffering_period"},
        {1, "pic_timing"},
        {2, "pan_scan_rect"},
        {3, "filler_payload"},
        {4, "user_data_registered_itu_t_t35"},
        {5, "user_data_unregistered"},
        {6, "recovery_point"},
        {9, "scene_info"},
        {15, "picture_snapshot"},
        {16, "progressive_refinement_segment_start"},
        {17, "progressive_refinement_segment_end"},
        {19, "film_grain_characteristics"},
        {22, "post_filter_hint"},
        {23, "tone_mapping_info"},
        {45, "frame_packing_arrangement"},
        {47, "display_orientation"},
        {56, "green_metadata"},
        {128, "structure_of_pictures_info"},
        {129, "active_parameter_sets"},
        {130, "decoding_unit_info"},
        {131, "temporal_sub_layer_zero_idx"},
        {132, "decoded_picture_hash"},
        {133, "scalable_nesting"},
        {134, "region_refresh_info"},
        {135, "no_display"},
        {136, "time_code"},
        {137, "mastering_display_colour_volume"},
        {138, "segmented_rect_frame_packing_arrangement"},
        {139, "temporal_motion_constrained_tile_sets"},
        {140, "chroma_resampling_filter_hint"},
        {141, "knee_function_info"},
        {142, "colour_remapping_info"},
        {143, "deinterlaced_field_identification"},
        {144, "content_light_level_info"},
        {145, "dependent_rap_indication"},
        {146, "coded_region_completion"},
        {147, "alternative_transfer_characteristics"},
        {148, "ambient_viewing_environment"},
        {149, "content_colour_volume"},
        {150, "equirectangular_projection"},
        {151, "cubemap_projection"},
        {152, "fisheye_video_info"},
        {154, "sphere_rotation"},
        {155, "regionwise_packing"},
        {156, "omni_viewport"},
        {157, "regional_nesting"},
        {158, "mcts_extraction_info_sets"},
        {159, "mcts_extraction_info_nesting"},
        {160, "layers_not_present"},
        {161, "inter_layer_constrained_tile_sets"},
        {162, "bsp_nesting"},
        {163, "bsp_initial_arrival_time"},
        {164, "sub_bitstream_property"},
        {165, "alpha_channel_info"},
        {166, "overlay_info"},
        {167, "temporal_mv_prediction_constraints"},
        {168, "frame_field_info"},
        {176, "three_dimensional_reference_displays_info"},
        {177, "depth_representation_info"},
        {178, "multiview_scene_info"},
        {179, "multiview_acquisition_info"},
        {180, "multiview_view_position"},
        {181, "alternative_depth_info"},
        {200, "sei_manifest"},
        {201, "sei_prefix_indication"},
        {202, "annotated_regions"},
        {205, "shutter_interval_info"},
        {212, "phase_indication"}};
    for (unsigned int type = 0; type < 1024; ++type) {
        const auto known = names.find(type);
        EXPECT_EQ(sei_name(type),
                  known == names.end() ? "payload_type_" + std::to_string(type) : known->second);
    }
    EXPECT_EQ(sei_name(0xFFFFFFFE), "payload_type_4294967294");
}

// ---- Colours on a terminal

// Green for the pictures at which reading can begin, cyan for parameter sets, yellow for what is no
// picture data.
TEST(StandardTables, ColoursOfUnitTypes) {
    for (unsigned int type = 0; type < 64; ++type) {
        const std::string expected = type < 16   ? ""
                                     : type < 24 ? "\x1b[32m"
                                     : type < 32 ? ""
                                     : type < 35 ? "\x1b[36m"
                                                 : "\x1b[33m";
        EXPECT_EQ(colour_of(static_cast<h265_nal_unit_type>(type)), expected) << type;
    }
}

}  // namespace
}  // namespace kovran::inspect
