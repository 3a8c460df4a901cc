#include <kovran/h265/h265_nal_sei.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <string_view>
#include <type_traits>
#include <vector>

namespace kovran {
namespace {

using std::string_view;

template <class Type>
struct named_type {
    Type enumerator;
    unsigned int number;
    string_view name;
};

// clang-format off
constexpr named_type<h265_nal_sei_payload_type_prefix> prefix_types[] = {
    {h265_nal_sei_payload_type_prefix_buffering_period, 0, "buffering_period"},
    {h265_nal_sei_payload_type_prefix_pic_timing, 1, "pic_timing"},
    {h265_nal_sei_payload_type_prefix_pan_scan_rect, 2, "pan_scan_rect"},
    {h265_nal_sei_payload_type_prefix_filler_payload, 3, "filler_payload"},
    {h265_nal_sei_payload_type_prefix_user_data_registered_itu_t_t35, 4, "user_data_registered_itu_t_t35"},
    {h265_nal_sei_payload_type_prefix_user_data_unregistered, 5, "user_data_unregistered"},
    {h265_nal_sei_payload_type_prefix_recovery_point, 6, "recovery_point"},
    {h265_nal_sei_payload_type_prefix_scene_info, 9, "scene_info"},
    {h265_nal_sei_payload_type_prefix_picture_snapshot, 15, "picture_snapshot"},
    {h265_nal_sei_payload_type_prefix_progressive_refinement_segment_start, 16, "progressive_refinement_segment_start"},
    {h265_nal_sei_payload_type_prefix_progressive_refinement_segment_end, 17, "progressive_refinement_segment_end"},
    {h265_nal_sei_payload_type_prefix_film_grain_characteristics, 19, "film_grain_characteristics"},
    {h265_nal_sei_payload_type_prefix_post_filter_hint, 22, "post_filter_hint"},
    {h265_nal_sei_payload_type_prefix_tone_mapping_info, 23, "tone_mapping_info"},
    {h265_nal_sei_payload_type_prefix_frame_packing_arrangement, 45, "frame_packing_arrangement"},
    {h265_nal_sei_payload_type_prefix_display_orientation, 47, "display_orientation"},
    {h265_nal_sei_payload_type_prefix_green_metadata, 56, "green_metadata"},
    {h265_nal_sei_payload_type_prefix_structure_of_pictures_info, 128, "structure_of_pictures_info"},
    {h265_nal_sei_payload_type_prefix_active_parameter_sets, 129, "active_parameter_sets"},
    {h265_nal_sei_payload_type_prefix_decoding_unit_info, 130, "decoding_unit_info"},
    {h265_nal_sei_payload_type_prefix_temporal_sub_layer_zero_idx, 131, "temporal_sub_layer_zero_idx"},
    {h265_nal_sei_payload_type_prefix_scalable_nesting, 133, "scalable_nesting"},
    {h265_nal_sei_payload_type_prefix_region_refresh_info, 134, "region_refresh_info"},
    {h265_nal_sei_payload_type_prefix_no_display, 135, "no_display"},
    {h265_nal_sei_payload_type_prefix_time_code, 136, "time_code"},
    {h265_nal_sei_payload_type_prefix_mastering_display_colour_volume, 137, "mastering_display_colour_volume"},
    {h265_nal_sei_payload_type_prefix_segmented_rect_frame_packing_arrangement, 138, "segmented_rect_frame_packing_arrangement"},
    {h265_nal_sei_payload_type_prefix_temporal_motion_constrained_tile_sets, 139, "temporal_motion_constrained_tile_sets"},
    {h265_nal_sei_payload_type_prefix_chroma_resampling_filter_hint, 140, "chroma_resampling_filter_hint"},
    {h265_nal_sei_payload_type_prefix_knee_function_info, 141, "knee_function_info"},
    {h265_nal_sei_payload_type_prefix_colour_remapping_info, 142, "colour_remapping_info"},
    {h265_nal_sei_payload_type_prefix_deinterlaced_field_identification, 143, "deinterlaced_field_identification"},
    {h265_nal_sei_payload_type_prefix_content_light_level_info, 144, "content_light_level_info"},
    {h265_nal_sei_payload_type_prefix_dependent_rap_indication, 145, "dependent_rap_indication"},
    {h265_nal_sei_payload_type_prefix_coded_region_completion, 146, "coded_region_completion"},
    {h265_nal_sei_payload_type_prefix_alternative_transfer_characteristics, 147, "alternative_transfer_characteristics"},
    {h265_nal_sei_payload_type_prefix_ambient_viewing_environment, 148, "ambient_viewing_environment"},
    {h265_nal_sei_payload_type_prefix_content_colour_volume, 149, "content_colour_volume"},
    {h265_nal_sei_payload_type_prefix_equirectangular_projection, 150, "equirectangular_projection"},
    {h265_nal_sei_payload_type_prefix_cubemap_projection, 151, "cubemap_projection"},
    {h265_nal_sei_payload_type_prefix_fisheye_video_info, 152, "fisheye_video_info"},
    {h265_nal_sei_payload_type_prefix_sphere_rotation, 154, "sphere_rotation"},
    {h265_nal_sei_payload_type_prefix_regionwise_packing, 155, "regionwise_packing"},
    {h265_nal_sei_payload_type_prefix_omni_viewport, 156, "omni_viewport"},
    {h265_nal_sei_payload_type_prefix_regional_nesting, 157, "regional_nesting"},
    {h265_nal_sei_payload_type_prefix_mcts_extraction_info_sets, 158, "mcts_extraction_info_sets"},
    {h265_nal_sei_payload_type_prefix_mcts_extraction_info_nesting, 159, "mcts_extraction_info_nesting"},
    {h265_nal_sei_payload_type_prefix_layers_not_present, 160, "layers_not_present"},
    {h265_nal_sei_payload_type_prefix_inter_layer_constrained_tile_sets, 161, "inter_layer_constrained_tile_sets"},
    {h265_nal_sei_payload_type_prefix_bsp_nesting, 162, "bsp_nesting"},
    {h265_nal_sei_payload_type_prefix_bsp_initial_arrival_time, 163, "bsp_initial_arrival_time"},
    {h265_nal_sei_payload_type_prefix_sub_bitstream_property, 164, "sub_bitstream_property"},
    {h265_nal_sei_payload_type_prefix_alpha_channel_info, 165, "alpha_channel_info"},
    {h265_nal_sei_payload_type_prefix_overlay_info, 166, "overlay_info"},
    {h265_nal_sei_payload_type_prefix_temporal_mv_prediction_constraints, 167, "temporal_mv_prediction_constraints"},
    {h265_nal_sei_payload_type_prefix_frame_field_info, 168, "frame_field_info"},
    {h265_nal_sei_payload_type_prefix_three_dimensional_reference_displays_info, 176, "three_dimensional_reference_displays_info"},
    {h265_nal_sei_payload_type_prefix_depth_representation_info, 177, "depth_representation_info"},
    {h265_nal_sei_payload_type_prefix_multiview_scene_info, 178, "multiview_scene_info"},
    {h265_nal_sei_payload_type_prefix_multiview_acquisition_info, 179, "multiview_acquisition_info"},
    {h265_nal_sei_payload_type_prefix_multiview_view_position, 180, "multiview_view_position"},
    {h265_nal_sei_payload_type_prefix_alternative_depth_info, 181, "alternative_depth_info"},
    {h265_nal_sei_payload_type_prefix_sei_manifest, 200, "sei_manifest"},
    {h265_nal_sei_payload_type_prefix_sei_prefix_indication, 201, "sei_prefix_indication"},
    {h265_nal_sei_payload_type_prefix_annotated_regions, 202, "annotated_regions"},
};

constexpr named_type<h265_nal_sei_payload_type_suffix> suffix_types[] = {
    {h265_nal_sei_payload_type_suffix_filler_payload, 0, "filler_payload"},
    {h265_nal_sei_payload_type_suffix_user_data_registered_itu_t_t35, 4, "user_data_registered_itu_t_t35"},
    {h265_nal_sei_payload_type_suffix_user_data_unregistered, 5, "user_data_unregistered"},
    {h265_nal_sei_payload_type_suffix_progressive_refinement_segment_end, 17, "progressive_refinement_segment_end"},
    {h265_nal_sei_payload_type_suffix_post_filter_hint, 22, "post_filter_hint"},
    {h265_nal_sei_payload_type_suffix_decoded_picture_hash, 132, "decoded_picture_hash"},
    {h265_nal_sei_payload_type_suffix_coded_region_completion, 146, "coded_region_completion"},
};
// clang-format on

static_assert(std::size(prefix_types) == 65);
static_assert(std::size(suffix_types) == 7);

template <class Table>
string_view name_in(const Table& table, unsigned int number) {
    const auto row = std::find_if(std::begin(table), std::end(table),
                                  [&](const auto& each) { return each.number == number; });
    return row == std::end(table) ? string_view() : row->name;
}

// All that the tables reach, the numbers behind them, and those at the ends of the type's range.
std::vector<unsigned int> numbers() {
    std::vector<unsigned int> all;
    for (unsigned int number = 0; number < 1024; ++number) {
        all.push_back(number);
    }
    all.insert(all.end(), {0x7FFFFFFE, 0x7FFFFFFF, 0x80000000, 0xFFFFFFFE, 0xFFFFFFFF});
    return all;
}

string_view prefix_name(unsigned int number) {
    return h265_nal_sei_payload_type_prefix_to_str(
        static_cast<h265_nal_sei_payload_type_prefix>(number));
}

string_view suffix_name(unsigned int number) {
    return h265_nal_sei_payload_type_suffix_to_str(
        static_cast<h265_nal_sei_payload_type_suffix>(number));
}

string_view name(unsigned int number, unsigned int nal_unit_type) {
    return h265_nal_sei_payload_type_to_str(static_cast<h265_nal_sei_payload_type>(number),
                                            static_cast<h265_nal_unit_type>(nal_unit_type));
}

TEST(H265NalSei, HasTypesOf32Bits) {
    static_assert(std::is_same_v<std::underlying_type_t<h265_nal_sei_payload_type>, unsigned int>);
    static_assert(
        std::is_same_v<std::underlying_type_t<h265_nal_sei_payload_type_prefix>, unsigned int>);
    static_assert(
        std::is_same_v<std::underlying_type_t<h265_nal_sei_payload_type_suffix>, unsigned int>);
    static_assert(h265_nal_sei_payload_type_none == 0x7FFFFFFF);
}

TEST(H265NalSei, HasAnEnumeratorForEachName) {
    for (const auto& row : prefix_types) {
        EXPECT_EQ(row.enumerator, row.number) << row.name;
    }
    for (const auto& row : suffix_types) {
        EXPECT_EQ(row.enumerator, row.number) << row.name;
    }
}

TEST(H265NalSei, NamesPrefixTypesAndNoOthers) {
    for (const unsigned int number : numbers()) {
        EXPECT_EQ(prefix_name(number), name_in(prefix_types, number)) << number;
    }
}

TEST(H265NalSei, NamesSuffixTypesAndNoOthers) {
    for (const unsigned int number : numbers()) {
        EXPECT_EQ(suffix_name(number), name_in(suffix_types, number)) << number;
    }
}

TEST(H265NalSei, HasFillerPayloadUnder0AmongTheSuffixTypes) {
    EXPECT_EQ(suffix_name(0), "filler_payload");
    EXPECT_EQ(suffix_name(3), "");
    EXPECT_EQ(prefix_name(3), "filler_payload");
    EXPECT_EQ(prefix_name(0), "buffering_period");
}

TEST(H265NalSei, NamesByTheTypeOfTheNalUnit) {
    for (const unsigned int number : numbers()) {
        for (unsigned int nal_unit_type = 0; nal_unit_type < 64; ++nal_unit_type) {
            const string_view expected = nal_unit_type == 39   ? name_in(prefix_types, number)
                                         : nal_unit_type == 40 ? name_in(suffix_types, number)
                                                               : string_view();
            ASSERT_EQ(name(number, nal_unit_type), expected) << number << ", " << nal_unit_type;
        }
    }
    EXPECT_EQ(name(132, 40), "decoded_picture_hash");
    EXPECT_EQ(name(132, 39), "");
    EXPECT_EQ(name(1, 35), "");
    EXPECT_EQ(name(1, 0xFFFFFFFF), "");
}

}  // namespace
}  // namespace kovran
