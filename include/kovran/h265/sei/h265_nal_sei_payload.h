#ifndef KOVRAN_H265_SEI_H265_NAL_SEI_PAYLOAD_H
#define KOVRAN_H265_SEI_H265_NAL_SEI_PAYLOAD_H

#include <kovran/h265/h265_nal_sei_active_parameter_sets.h>
#include <kovran/h265/h265_nal_sei_buffering_period.h>
#include <kovran/h265/h265_nal_sei_pic_timing.h>
#include <kovran/h265/sei/h265_nal_sei_alternative_transfer_characteristics.h>
#include <kovran/h265/sei/h265_nal_sei_ambient_viewing_environment.h>
#include <kovran/h265/sei/h265_nal_sei_chroma_resampling_filter_hint.h>
#include <kovran/h265/sei/h265_nal_sei_coded_region_completion.h>
#include <kovran/h265/sei/h265_nal_sei_colour_remapping_info.h>
#include <kovran/h265/sei/h265_nal_sei_content_colour_volume.h>
#include <kovran/h265/sei/h265_nal_sei_content_light_level_info.h>
#include <kovran/h265/sei/h265_nal_sei_cubemap_projection.h>
#include <kovran/h265/sei/h265_nal_sei_decoded_picture_hash.h>
#include <kovran/h265/sei/h265_nal_sei_decoding_unit_info.h>
#include <kovran/h265/sei/h265_nal_sei_deinterlaced_field_identification.h>
#include <kovran/h265/sei/h265_nal_sei_dependent_rap_indication.h>
#include <kovran/h265/sei/h265_nal_sei_depth_representation_info.h>
#include <kovran/h265/sei/h265_nal_sei_display_orientation.h>
#include <kovran/h265/sei/h265_nal_sei_equirectangular_projection.h>
#include <kovran/h265/sei/h265_nal_sei_filler_payload.h>
#include <kovran/h265/sei/h265_nal_sei_film_grain_characteristics.h>
#include <kovran/h265/sei/h265_nal_sei_fisheye_video_info.h>
#include <kovran/h265/sei/h265_nal_sei_frame_field_info.h>
#include <kovran/h265/sei/h265_nal_sei_frame_packing_arrangement.h>
#include <kovran/h265/sei/h265_nal_sei_green_metadata.h>
#include <kovran/h265/sei/h265_nal_sei_knee_function_info.h>
#include <kovran/h265/sei/h265_nal_sei_mastering_display_colour_volume.h>
#include <kovran/h265/sei/h265_nal_sei_mcts_extraction_info_nesting.h>
#include <kovran/h265/sei/h265_nal_sei_mcts_extraction_info_sets.h>
#include <kovran/h265/sei/h265_nal_sei_multiview_acquisition_info.h>
#include <kovran/h265/sei/h265_nal_sei_multiview_scene_info.h>
#include <kovran/h265/sei/h265_nal_sei_multiview_view_position.h>
#include <kovran/h265/sei/h265_nal_sei_no_display.h>
#include <kovran/h265/sei/h265_nal_sei_omni_viewport.h>
#include <kovran/h265/sei/h265_nal_sei_pan_scan_rect.h>
#include <kovran/h265/sei/h265_nal_sei_picture_snapshot.h>
#include <kovran/h265/sei/h265_nal_sei_post_filter_hint.h>
#include <kovran/h265/sei/h265_nal_sei_progressive_refinement_segment_end.h>
#include <kovran/h265/sei/h265_nal_sei_progressive_refinement_segment_start.h>
#include <kovran/h265/sei/h265_nal_sei_recovery_point.h>
#include <kovran/h265/sei/h265_nal_sei_region_refresh_info.h>
#include <kovran/h265/sei/h265_nal_sei_regional_nesting.h>
#include <kovran/h265/sei/h265_nal_sei_regionwise_packing.h>
#include <kovran/h265/sei/h265_nal_sei_reserved_message.h>
#include <kovran/h265/sei/h265_nal_sei_scalable_nesting.h>
#include <kovran/h265/sei/h265_nal_sei_scene_info.h>
#include <kovran/h265/sei/h265_nal_sei_segmented_rect_frame_packing_arrangement.h>
#include <kovran/h265/sei/h265_nal_sei_sphere_rotation.h>
#include <kovran/h265/sei/h265_nal_sei_structure_of_pictures_info.h>
#include <kovran/h265/sei/h265_nal_sei_temporal_motion_constrained_tile_sets.h>
#include <kovran/h265/sei/h265_nal_sei_temporal_mv_prediction_constraints.h>
#include <kovran/h265/sei/h265_nal_sei_temporal_sub_layer_zero_idx.h>
#include <kovran/h265/sei/h265_nal_sei_three_dimensional_reference_displays_info.h>
#include <kovran/h265/sei/h265_nal_sei_time_code.h>
#include <kovran/h265/sei/h265_nal_sei_tone_mapping_info.h>
#include <kovran/h265/sei/h265_nal_sei_user_data_registered_itu_t_t35.h>
#include <kovran/h265/sei/h265_nal_sei_user_data_unregistered.h>

#include <variant>

namespace kovran {

// sei_payload(), clause D.2.1: the payload of an SEI message, in the order of the payload types.
// Each record has its type as payload_type, and its standard's name as payload_name.
using h265_nal_sei_payload = std::variant<                   //
    h265_nal_sei_reserved_message,                           //
    h265_nal_sei_buffering_period,                           //
    h265_nal_sei_pic_timing,                                 //
    h265_nal_sei_pan_scan_rect,                              //
    h265_nal_sei_filler_payload,                             //
    h265_nal_sei_user_data_registered_itu_t_t35,             //
    h265_nal_sei_user_data_unregistered,                     //
    h265_nal_sei_recovery_point,                             //
    h265_nal_sei_scene_info,                                 //
    h265_nal_sei_picture_snapshot,                           //
    h265_nal_sei_progressive_refinement_segment_start,       //
    h265_nal_sei_progressive_refinement_segment_end,         //
    h265_nal_sei_film_grain_characteristics,                 //
    h265_nal_sei_post_filter_hint,                           //
    h265_nal_sei_tone_mapping_info,                          //
    h265_nal_sei_frame_packing_arrangement,                  //
    h265_nal_sei_display_orientation,                        //
    h265_nal_sei_green_metadata,                             //
    h265_nal_sei_structure_of_pictures_info,                 //
    h265_nal_sei_active_parameter_sets,                      //
    h265_nal_sei_decoding_unit_info,                         //
    h265_nal_sei_temporal_sub_layer_zero_idx,                //
    h265_nal_sei_decoded_picture_hash,                       //
    h265_nal_sei_scalable_nesting,                           //
    h265_nal_sei_region_refresh_info,                        //
    h265_nal_sei_no_display,                                 //
    h265_nal_sei_time_code,                                  //
    h265_nal_sei_mastering_display_colour_volume,            //
    h265_nal_sei_segmented_rect_frame_packing_arrangement,   //
    h265_nal_sei_temporal_motion_constrained_tile_sets,      //
    h265_nal_sei_chroma_resampling_filter_hint,              //
    h265_nal_sei_knee_function_info,                         //
    h265_nal_sei_colour_remapping_info,                      //
    h265_nal_sei_deinterlaced_field_identification,          //
    h265_nal_sei_content_light_level_info,                   //
    h265_nal_sei_dependent_rap_indication,                   //
    h265_nal_sei_coded_region_completion,                    //
    h265_nal_sei_alternative_transfer_characteristics,       //
    h265_nal_sei_ambient_viewing_environment,                //
    h265_nal_sei_content_colour_volume,                      //
    h265_nal_sei_equirectangular_projection,                 //
    h265_nal_sei_cubemap_projection,                         //
    h265_nal_sei_fisheye_video_info,                         //
    h265_nal_sei_sphere_rotation,                            //
    h265_nal_sei_regionwise_packing,                         //
    h265_nal_sei_omni_viewport,                              //
    h265_nal_sei_regional_nesting,                           //
    h265_nal_sei_mcts_extraction_info_sets,                  //
    h265_nal_sei_mcts_extraction_info_nesting,               //
    h265_nal_sei_temporal_mv_prediction_constraints,         //
    h265_nal_sei_frame_field_info,                           //
    h265_nal_sei_three_dimensional_reference_displays_info,  //
    h265_nal_sei_depth_representation_info,                  //
    h265_nal_sei_multiview_scene_info,                       //
    h265_nal_sei_multiview_acquisition_info,                 //
    h265_nal_sei_multiview_view_position>;

}  // namespace kovran

#endif  // KOVRAN_H265_SEI_H265_NAL_SEI_PAYLOAD_H
