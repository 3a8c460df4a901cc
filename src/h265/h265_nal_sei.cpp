#include <kovran/h265/h265_nal_sei.h>

#include "h265/reading_rules.h"

namespace kovran {

static_assert(h265_nal_sei_payload_type_suffix_filler_payload == own_rules::suffix_filler_payload);

const char* h265_nal_sei_payload_type_prefix_to_str(h265_nal_sei_payload_type_prefix t) {
    switch (t) {
        case h265_nal_sei_payload_type_prefix_buffering_period:
            return "buffering_period";
        case h265_nal_sei_payload_type_prefix_pic_timing:
            return "pic_timing";
        case h265_nal_sei_payload_type_prefix_pan_scan_rect:
            return "pan_scan_rect";
        case h265_nal_sei_payload_type_prefix_filler_payload:
            return "filler_payload";
        case h265_nal_sei_payload_type_prefix_user_data_registered_itu_t_t35:
            return "user_data_registered_itu_t_t35";
        case h265_nal_sei_payload_type_prefix_user_data_unregistered:
            return "user_data_unregistered";
        case h265_nal_sei_payload_type_prefix_recovery_point:
            return "recovery_point";
        case h265_nal_sei_payload_type_prefix_scene_info:
            return "scene_info";
        case h265_nal_sei_payload_type_prefix_picture_snapshot:
            return "picture_snapshot";
        case h265_nal_sei_payload_type_prefix_progressive_refinement_segment_start:
            return "progressive_refinement_segment_start";
        case h265_nal_sei_payload_type_prefix_progressive_refinement_segment_end:
            return "progressive_refinement_segment_end";
        case h265_nal_sei_payload_type_prefix_film_grain_characteristics:
            return "film_grain_characteristics";
        case h265_nal_sei_payload_type_prefix_post_filter_hint:
            return "post_filter_hint";
        case h265_nal_sei_payload_type_prefix_tone_mapping_info:
            return "tone_mapping_info";
        case h265_nal_sei_payload_type_prefix_frame_packing_arrangement:
            return "frame_packing_arrangement";
        case h265_nal_sei_payload_type_prefix_display_orientation:
            return "display_orientation";
        case h265_nal_sei_payload_type_prefix_green_metadata:
            return "green_metadata";
        case h265_nal_sei_payload_type_prefix_structure_of_pictures_info:
            return "structure_of_pictures_info";
        case h265_nal_sei_payload_type_prefix_active_parameter_sets:
            return "active_parameter_sets";
        case h265_nal_sei_payload_type_prefix_decoding_unit_info:
            return "decoding_unit_info";
        case h265_nal_sei_payload_type_prefix_temporal_sub_layer_zero_idx:
            return "temporal_sub_layer_zero_idx";
        case h265_nal_sei_payload_type_prefix_scalable_nesting:
            return "scalable_nesting";
        case h265_nal_sei_payload_type_prefix_region_refresh_info:
            return "region_refresh_info";
        case h265_nal_sei_payload_type_prefix_no_display:
            return "no_display";
        case h265_nal_sei_payload_type_prefix_time_code:
            return "time_code";
        case h265_nal_sei_payload_type_prefix_mastering_display_colour_volume:
            return "mastering_display_colour_volume";
        case h265_nal_sei_payload_type_prefix_segmented_rect_frame_packing_arrangement:
            return "segmented_rect_frame_packing_arrangement";
        case h265_nal_sei_payload_type_prefix_temporal_motion_constrained_tile_sets:
            return "temporal_motion_constrained_tile_sets";
        case h265_nal_sei_payload_type_prefix_chroma_resampling_filter_hint:
            return "chroma_resampling_filter_hint";
        case h265_nal_sei_payload_type_prefix_knee_function_info:
            return "knee_function_info";
        case h265_nal_sei_payload_type_prefix_colour_remapping_info:
            return "colour_remapping_info";
        case h265_nal_sei_payload_type_prefix_deinterlaced_field_identification:
            return "deinterlaced_field_identification";
        case h265_nal_sei_payload_type_prefix_content_light_level_info:
            return "content_light_level_info";
        case h265_nal_sei_payload_type_prefix_dependent_rap_indication:
            return "dependent_rap_indication";
        case h265_nal_sei_payload_type_prefix_coded_region_completion:
            return "coded_region_completion";
        case h265_nal_sei_payload_type_prefix_alternative_transfer_characteristics:
            return "alternative_transfer_characteristics";
        case h265_nal_sei_payload_type_prefix_ambient_viewing_environment:
            return "ambient_viewing_environment";
        case h265_nal_sei_payload_type_prefix_content_colour_volume:
            return "content_colour_volume";
        case h265_nal_sei_payload_type_prefix_equirectangular_projection:
            return "equirectangular_projection";
        case h265_nal_sei_payload_type_prefix_cubemap_projection:
            return "cubemap_projection";
        case h265_nal_sei_payload_type_prefix_fisheye_video_info:
            return "fisheye_video_info";
        case h265_nal_sei_payload_type_prefix_sphere_rotation:
            return "sphere_rotation";
        case h265_nal_sei_payload_type_prefix_regionwise_packing:
            return "regionwise_packing";
        case h265_nal_sei_payload_type_prefix_omni_viewport:
            return "omni_viewport";
        case h265_nal_sei_payload_type_prefix_regional_nesting:
            return "regional_nesting";
        case h265_nal_sei_payload_type_prefix_mcts_extraction_info_sets:
            return "mcts_extraction_info_sets";
        case h265_nal_sei_payload_type_prefix_mcts_extraction_info_nesting:
            return "mcts_extraction_info_nesting";
        case h265_nal_sei_payload_type_prefix_layers_not_present:
            return "layers_not_present";
        case h265_nal_sei_payload_type_prefix_inter_layer_constrained_tile_sets:
            return "inter_layer_constrained_tile_sets";
        case h265_nal_sei_payload_type_prefix_bsp_nesting:
            return "bsp_nesting";
        case h265_nal_sei_payload_type_prefix_bsp_initial_arrival_time:
            return "bsp_initial_arrival_time";
        case h265_nal_sei_payload_type_prefix_sub_bitstream_property:
            return "sub_bitstream_property";
        case h265_nal_sei_payload_type_prefix_alpha_channel_info:
            return "alpha_channel_info";
        case h265_nal_sei_payload_type_prefix_overlay_info:
            return "overlay_info";
        case h265_nal_sei_payload_type_prefix_temporal_mv_prediction_constraints:
            return "temporal_mv_prediction_constraints";
        case h265_nal_sei_payload_type_prefix_frame_field_info:
            return "frame_field_info";
        case h265_nal_sei_payload_type_prefix_three_dimensional_reference_displays_info:
            return "three_dimensional_reference_displays_info";
        case h265_nal_sei_payload_type_prefix_depth_representation_info:
            return "depth_representation_info";
        case h265_nal_sei_payload_type_prefix_multiview_scene_info:
            return "multiview_scene_info";
        case h265_nal_sei_payload_type_prefix_multiview_acquisition_info:
            return "multiview_acquisition_info";
        case h265_nal_sei_payload_type_prefix_multiview_view_position:
            return "multiview_view_position";
        case h265_nal_sei_payload_type_prefix_alternative_depth_info:
            return "alternative_depth_info";
        case h265_nal_sei_payload_type_prefix_sei_manifest:
            return "sei_manifest";
        case h265_nal_sei_payload_type_prefix_sei_prefix_indication:
            return "sei_prefix_indication";
        case h265_nal_sei_payload_type_prefix_annotated_regions:
            return "annotated_regions";
    }
    return "";
}

const char* h265_nal_sei_payload_type_suffix_to_str(h265_nal_sei_payload_type_suffix t) {
    switch (t) {
        case h265_nal_sei_payload_type_suffix_filler_payload:
            return "filler_payload";
        case h265_nal_sei_payload_type_suffix_user_data_registered_itu_t_t35:
            return "user_data_registered_itu_t_t35";
        case h265_nal_sei_payload_type_suffix_user_data_unregistered:
            return "user_data_unregistered";
        case h265_nal_sei_payload_type_suffix_progressive_refinement_segment_end:
            return "progressive_refinement_segment_end";
        case h265_nal_sei_payload_type_suffix_post_filter_hint:
            return "post_filter_hint";
        case h265_nal_sei_payload_type_suffix_decoded_picture_hash:
            return "decoded_picture_hash";
        case h265_nal_sei_payload_type_suffix_coded_region_completion:
            return "coded_region_completion";
    }
    return "";
}

const char* h265_nal_sei_payload_type_to_str(h265_nal_sei_payload_type t,
                                             h265_nal_unit_type nal_type) {
    switch (nal_type) {
        case PREFIX_SEI_NUT:
            return h265_nal_sei_payload_type_prefix_to_str(
                static_cast<h265_nal_sei_payload_type_prefix>(t));
        case SUFFIX_SEI_NUT:
            return h265_nal_sei_payload_type_suffix_to_str(
                static_cast<h265_nal_sei_payload_type_suffix>(t));
        default:
            return "";
    }
}

}  // namespace kovran
