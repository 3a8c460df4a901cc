#ifndef KOVRAN_H265_H265_PPS_MULTILAYER_EXTENSION_H
#define KOVRAN_H265_H265_PPS_MULTILAYER_EXTENSION_H

#include <kovran/h265/h265_colour_mapping_table.h>

#include <vector>

namespace kovran {

// pps_multilayer_extension(), clause F.7.3.2.3.4, as h265_nal_pps::parse_standard() reads it.
// Without the extension all fields are 0, false or empty.
struct h265_pps_multilayer_extension {
    bool poc_reset_info_present_flag = false;         // u(1)
    bool pps_infer_scaling_list_flag = false;         // u(1)
    unsigned char pps_scaling_list_ref_layer_id = 0;  // u(6), with that flag

    unsigned int num_ref_loc_offsets = 0;  // ue(v)

    // num_ref_loc_offsets entries each. The standard's index of the offsets and of the phases is
    // the layer; here entry i is for layer ref_loc_offset_layer_id[i].
    std::vector<unsigned char> ref_loc_offset_layer_id;      // u(6)
    std::vector<bool> scaled_ref_layer_offset_present_flag;  // u(1)
    std::vector<int> scaled_ref_layer_left_offset;           // se(v), with that flag
    std::vector<int> scaled_ref_layer_top_offset;            // se(v), likewise
    std::vector<int> scaled_ref_layer_right_offset;          // se(v), likewise
    std::vector<int> scaled_ref_layer_bottom_offset;         // se(v), likewise
    std::vector<bool> ref_region_offset_present_flag;        // u(1)
    std::vector<int> ref_region_left_offset;                 // se(v), with that flag
    std::vector<int> ref_region_top_offset;                  // se(v), likewise
    std::vector<int> ref_region_right_offset;                // se(v), likewise
    std::vector<int> ref_region_bottom_offset;               // se(v), likewise
    std::vector<bool> resample_phase_set_present_flag;       // u(1)
    std::vector<unsigned int> phase_hor_luma;                // ue(v), with that flag
    std::vector<unsigned int> phase_ver_luma;                // ue(v), likewise
    std::vector<unsigned int> phase_hor_chroma_plus8;        // ue(v), likewise, or 8
    // ue(v), likewise, or 0: what is inferred depends on the sizes of the pictures.
    std::vector<unsigned int> phase_ver_chroma_plus8;

    bool colour_mapping_enabled_flag = false;        // u(1)
    h265_colour_mapping_table colour_mapping_table;  // with that flag
};

}  // namespace kovran

#endif  // KOVRAN_H265_H265_PPS_MULTILAYER_EXTENSION_H
