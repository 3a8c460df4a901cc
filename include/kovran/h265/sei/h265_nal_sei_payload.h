#ifndef KOVRAN_H265_SEI_H265_NAL_SEI_PAYLOAD_H
#define KOVRAN_H265_SEI_H265_NAL_SEI_PAYLOAD_H

#include <kovran/h265/h265_nal_sei_active_parameter_sets.h>
#include <kovran/h265/h265_nal_sei_buffering_period.h>
#include <kovran/h265/h265_nal_sei_pic_timing.h>
#include <kovran/h265/sei/h265_nal_sei_alpha_channel_info.h>
#include <kovran/h265/sei/h265_nal_sei_alternative_transfer_characteristics.h>
#include <kovran/h265/sei/h265_nal_sei_ambient_viewing_environment.h>
#include <kovran/h265/sei/h265_nal_sei_bsp_initial_arrival_time.h>
#include <kovran/h265/sei/h265_nal_sei_bsp_nesting.h>
#include <kovran/h265/sei/h265_nal_sei_coded_region_completion.h>
#include <kovran/h265/sei/h265_nal_sei_colour_remapping_info.h>
#include <kovran/h265/sei/h265_nal_sei_content_colour_volume.h>
#include <kovran/h265/sei/h265_nal_sei_content_light_level_info.h>
#include <kovran/h265/sei/h265_nal_sei_cubemap_projection.h>
#include <kovran/h265/sei/h265_nal_sei_deinterlaced_field_identification.h>
#include <kovran/h265/sei/h265_nal_sei_dependent_rap_indication.h>
#include <kovran/h265/sei/h265_nal_sei_equirectangular_projection.h>
#include <kovran/h265/sei/h265_nal_sei_fisheye_video_info.h>
#include <kovran/h265/sei/h265_nal_sei_inter_layer_constrained_tile_sets.h>
#include <kovran/h265/sei/h265_nal_sei_knee_function_info.h>
#include <kovran/h265/sei/h265_nal_sei_layers_not_present.h>
#include <kovran/h265/sei/h265_nal_sei_mastering_display_colour_volume.h>
#include <kovran/h265/sei/h265_nal_sei_mcts_extraction_info_nesting.h>
#include <kovran/h265/sei/h265_nal_sei_mcts_extraction_info_sets.h>
#include <kovran/h265/sei/h265_nal_sei_omni_viewport.h>
#include <kovran/h265/sei/h265_nal_sei_overlay_info.h>
#include <kovran/h265/sei/h265_nal_sei_recovery_point.h>
#include <kovran/h265/sei/h265_nal_sei_regional_nesting.h>
#include <kovran/h265/sei/h265_nal_sei_regionwise_packing.h>
#include <kovran/h265/sei/h265_nal_sei_reserved_message.h>
#include <kovran/h265/sei/h265_nal_sei_scalable_nesting.h>
#include <kovran/h265/sei/h265_nal_sei_sphere_rotation.h>
#include <kovran/h265/sei/h265_nal_sei_sub_bitstream_property.h>
#include <kovran/h265/sei/h265_nal_sei_user_data_unregistered.h>

#include <variant>

namespace kovran {

// sei_payload(), clause D.2.1: the payload of an SEI message, in the order of the payload types.
// Each record has its type as payload_type, and its standard's name as payload_name.
using h265_nal_sei_payload = std::variant<              //
    h265_nal_sei_reserved_message,                      //
    h265_nal_sei_buffering_period,                      //
    h265_nal_sei_pic_timing,                            //
    h265_nal_sei_user_data_unregistered,                //
    h265_nal_sei_recovery_point,                        //
    h265_nal_sei_active_parameter_sets,                 //
    h265_nal_sei_scalable_nesting,                      //
    h265_nal_sei_mastering_display_colour_volume,       //
    h265_nal_sei_knee_function_info,                    //
    h265_nal_sei_colour_remapping_info,                 //
    h265_nal_sei_deinterlaced_field_identification,     //
    h265_nal_sei_content_light_level_info,              //
    h265_nal_sei_dependent_rap_indication,              //
    h265_nal_sei_coded_region_completion,               //
    h265_nal_sei_alternative_transfer_characteristics,  //
    h265_nal_sei_ambient_viewing_environment,           //
    h265_nal_sei_content_colour_volume,                 //
    h265_nal_sei_equirectangular_projection,            //
    h265_nal_sei_cubemap_projection,                    //
    h265_nal_sei_fisheye_video_info,                    //
    h265_nal_sei_sphere_rotation,                       //
    h265_nal_sei_regionwise_packing,                    //
    h265_nal_sei_omni_viewport,                         //
    h265_nal_sei_regional_nesting,                      //
    h265_nal_sei_mcts_extraction_info_sets,             //
    h265_nal_sei_mcts_extraction_info_nesting,          //
    h265_nal_sei_layers_not_present,                    //
    h265_nal_sei_inter_layer_constrained_tile_sets,     //
    h265_nal_sei_bsp_nesting,                           //
    h265_nal_sei_bsp_initial_arrival_time,              //
    h265_nal_sei_sub_bitstream_property,                //
    h265_nal_sei_alpha_channel_info,                    //
    h265_nal_sei_overlay_info>;

}  // namespace kovran

#endif  // KOVRAN_H265_SEI_H265_NAL_SEI_PAYLOAD_H
