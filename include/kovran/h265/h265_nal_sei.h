#ifndef KOVRAN_H265_H265_NAL_SEI_H
#define KOVRAN_H265_H265_NAL_SEI_H

#include <kovran/export.h>
#include <kovran/h265/h265_nal.h>

namespace kovran {

// payloadType, clause 7.3.5, of an SEI message of either kind.
enum h265_nal_sei_payload_type : unsigned int {
    h265_nal_sei_payload_type_none = 0x7FFFFFFF,
};

// The types of prefix SEI messages, clause D.2.1.
enum h265_nal_sei_payload_type_prefix : unsigned int {
    h265_nal_sei_payload_type_prefix_buffering_period = 0,
    h265_nal_sei_payload_type_prefix_pic_timing = 1,
    h265_nal_sei_payload_type_prefix_pan_scan_rect = 2,
    h265_nal_sei_payload_type_prefix_filler_payload = 3,
    h265_nal_sei_payload_type_prefix_user_data_registered_itu_t_t35 = 4,
    h265_nal_sei_payload_type_prefix_user_data_unregistered = 5,
    h265_nal_sei_payload_type_prefix_recovery_point = 6,
    h265_nal_sei_payload_type_prefix_scene_info = 9,
    h265_nal_sei_payload_type_prefix_picture_snapshot = 15,
    h265_nal_sei_payload_type_prefix_progressive_refinement_segment_start = 16,
    h265_nal_sei_payload_type_prefix_progressive_refinement_segment_end = 17,
    h265_nal_sei_payload_type_prefix_film_grain_characteristics = 19,
    h265_nal_sei_payload_type_prefix_post_filter_hint = 22,
    h265_nal_sei_payload_type_prefix_tone_mapping_info = 23,
    h265_nal_sei_payload_type_prefix_frame_packing_arrangement = 45,
    h265_nal_sei_payload_type_prefix_display_orientation = 47,
    h265_nal_sei_payload_type_prefix_green_metadata = 56,
    h265_nal_sei_payload_type_prefix_structure_of_pictures_info = 128,
    h265_nal_sei_payload_type_prefix_active_parameter_sets = 129,
    h265_nal_sei_payload_type_prefix_decoding_unit_info = 130,
    h265_nal_sei_payload_type_prefix_temporal_sub_layer_zero_idx = 131,
    h265_nal_sei_payload_type_prefix_scalable_nesting = 133,
    h265_nal_sei_payload_type_prefix_region_refresh_info = 134,
    h265_nal_sei_payload_type_prefix_no_display = 135,
    h265_nal_sei_payload_type_prefix_time_code = 136,
    h265_nal_sei_payload_type_prefix_mastering_display_colour_volume = 137,
    h265_nal_sei_payload_type_prefix_segmented_rect_frame_packing_arrangement = 138,
    h265_nal_sei_payload_type_prefix_temporal_motion_constrained_tile_sets = 139,
    h265_nal_sei_payload_type_prefix_chroma_resampling_filter_hint = 140,
    h265_nal_sei_payload_type_prefix_knee_function_info = 141,
    h265_nal_sei_payload_type_prefix_colour_remapping_info = 142,
    h265_nal_sei_payload_type_prefix_deinterlaced_field_identification = 143,
    h265_nal_sei_payload_type_prefix_content_light_level_info = 144,
    h265_nal_sei_payload_type_prefix_dependent_rap_indication = 145,
    h265_nal_sei_payload_type_prefix_coded_region_completion = 146,
    h265_nal_sei_payload_type_prefix_alternative_transfer_characteristics = 147,
    h265_nal_sei_payload_type_prefix_ambient_viewing_environment = 148,
    h265_nal_sei_payload_type_prefix_content_colour_volume = 149,
    h265_nal_sei_payload_type_prefix_equirectangular_projection = 150,
    h265_nal_sei_payload_type_prefix_cubemap_projection = 151,
    h265_nal_sei_payload_type_prefix_fisheye_video_info = 152,
    h265_nal_sei_payload_type_prefix_sphere_rotation = 154,
    h265_nal_sei_payload_type_prefix_regionwise_packing = 155,
    h265_nal_sei_payload_type_prefix_omni_viewport = 156,
    h265_nal_sei_payload_type_prefix_regional_nesting = 157,
    h265_nal_sei_payload_type_prefix_mcts_extraction_info_sets = 158,
    h265_nal_sei_payload_type_prefix_mcts_extraction_info_nesting = 159,
    h265_nal_sei_payload_type_prefix_layers_not_present = 160,
    h265_nal_sei_payload_type_prefix_inter_layer_constrained_tile_sets = 161,
    h265_nal_sei_payload_type_prefix_bsp_nesting = 162,
    h265_nal_sei_payload_type_prefix_bsp_initial_arrival_time = 163,
    h265_nal_sei_payload_type_prefix_sub_bitstream_property = 164,
    h265_nal_sei_payload_type_prefix_alpha_channel_info = 165,
    h265_nal_sei_payload_type_prefix_overlay_info = 166,
    h265_nal_sei_payload_type_prefix_temporal_mv_prediction_constraints = 167,
    h265_nal_sei_payload_type_prefix_frame_field_info = 168,
    h265_nal_sei_payload_type_prefix_three_dimensional_reference_displays_info = 176,
    h265_nal_sei_payload_type_prefix_depth_representation_info = 177,
    h265_nal_sei_payload_type_prefix_multiview_scene_info = 178,
    h265_nal_sei_payload_type_prefix_multiview_acquisition_info = 179,
    h265_nal_sei_payload_type_prefix_multiview_view_position = 180,
    h265_nal_sei_payload_type_prefix_alternative_depth_info = 181,
    h265_nal_sei_payload_type_prefix_sei_manifest = 200,
    h265_nal_sei_payload_type_prefix_sei_prefix_indication = 201,
    h265_nal_sei_payload_type_prefix_annotated_regions = 202,
};

// The types of suffix SEI messages, clause D.2.1. Filler payload has its name under 0 here.
enum h265_nal_sei_payload_type_suffix : unsigned int {
    h265_nal_sei_payload_type_suffix_filler_payload = 0,
    h265_nal_sei_payload_type_suffix_user_data_registered_itu_t_t35 = 4,
    h265_nal_sei_payload_type_suffix_user_data_unregistered = 5,
    h265_nal_sei_payload_type_suffix_progressive_refinement_segment_end = 17,
    h265_nal_sei_payload_type_suffix_post_filter_hint = 22,
    h265_nal_sei_payload_type_suffix_decoded_picture_hash = 132,
    h265_nal_sei_payload_type_suffix_coded_region_completion = 146,
};

// The standard's name of a payload, for display; "" for any other value, never null.
[[nodiscard]] KOVRAN_API const char* h265_nal_sei_payload_type_prefix_to_str(
    h265_nal_sei_payload_type_prefix t);
[[nodiscard]] KOVRAN_API const char* h265_nal_sei_payload_type_suffix_to_str(
    h265_nal_sei_payload_type_suffix t);

// The same by the type of the NAL unit: PREFIX_SEI_NUT, SUFFIX_SEI_NUT, or "" for any other.
[[nodiscard]] KOVRAN_API const char* h265_nal_sei_payload_type_to_str(h265_nal_sei_payload_type t,
                                                                      h265_nal_unit_type nal_type);

}  // namespace kovran

#endif  // KOVRAN_H265_H265_NAL_SEI_H
