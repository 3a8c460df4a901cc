#ifndef KOVRAN_FUZZ_EXTENSION_CLAIMS_H
#define KOVRAN_FUZZ_EXTENSION_CLAIMS_H

#include <kovran/kovran.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <vector>

#include "claim.h"
#include "support/record_fields.h"

// What holds for the extensions of a parameter set that parse_standard() has read.
namespace kovran::fuzz {

template <class Extension>
void claim_fresh_unless(bool flag, const Extension& extension) {
    claim(flag || test::difference(extension, Extension{}).empty(),
          "an extension without its flag is a fresh one");
}

template <class... Arrays>
bool all_have(std::size_t entries, const Arrays&... arrays) {
    return ((arrays.size() == entries) && ...);
}

inline void claim_palette(const std::array<std::vector<unsigned int>, 3>& initializer,
                          std::size_t entries, bool monochrome) {
    const std::size_t chroma_entries = monochrome ? 0 : entries;
    claim(entries <= 128 && initializer[0].size() == entries &&
              initializer[1].size() == chroma_entries && initializer[2].size() == chroma_entries,
          "a palette predictor has an entry for each sample");
    for (const auto& component : initializer) {
        claim(std::all_of(component.begin(), component.end(),
                          [](unsigned int sample) { return sample <= 0xFFFF; }),
              "a palette predictor has samples of 16 bits at the most");
    }
}

inline void claim_extensions(const h265_nal_sps& sps) {
    claim_fresh_unless(sps.sps_range_extension_flag, sps.sps_range_extension);
    claim_fresh_unless(sps.sps_multilayer_extension_flag, sps.sps_multilayer_extension);
    claim_fresh_unless(sps.sps_3d_extension_flag, sps.sps_3d_extension);
    claim_fresh_unless(sps.sps_scc_extension_flag, sps.sps_scc_extension);
    const bool any = sps.sps_range_extension_flag || sps.sps_multilayer_extension_flag ||
                     sps.sps_3d_extension_flag || sps.sps_scc_extension_flag ||
                     sps.sps_extension_4bits != 0 || !sps.sps_extension_data_flag.empty();
    claim(sps.sps_extension_flag || !any, "nothing is behind an extension flag of 0");

    const h265_sps_scc_extension& scc = sps.sps_scc_extension;
    const bool present = scc.sps_palette_predictor_initializers_present_flag;
    claim_palette(scc.sps_palette_predictor_initializer,
                  present ? scc.sps_num_palette_predictor_initializers_minus1 + std::size_t{1} : 0,
                  sps.chroma_format_idc == 0);
}

inline void claim_reference_offsets(const h265_pps_multilayer_extension& extension) {
    claim(extension.num_ref_loc_offsets <= 62 &&
              all_have(
                  extension.num_ref_loc_offsets, extension.ref_loc_offset_layer_id,
                  extension.scaled_ref_layer_offset_present_flag,
                  extension.scaled_ref_layer_left_offset, extension.scaled_ref_layer_top_offset,
                  extension.scaled_ref_layer_right_offset, extension.scaled_ref_layer_bottom_offset,
                  extension.ref_region_offset_present_flag, extension.ref_region_left_offset,
                  extension.ref_region_top_offset, extension.ref_region_right_offset,
                  extension.ref_region_bottom_offset, extension.resample_phase_set_present_flag,
                  extension.phase_hor_luma, extension.phase_ver_luma,
                  extension.phase_hor_chroma_plus8, extension.phase_ver_chroma_plus8),
          "reference layers have an entry for each offset");
}

inline void claim_colour_mapping(const h265_pps_multilayer_extension& extension) {
    const h265_colour_mapping_table& table = extension.colour_mapping_table;
    claim_fresh_unless(extension.colour_mapping_enabled_flag, table);
    if (!extension.colour_mapping_enabled_flag) {
        return;
    }
    const std::size_t octants = table.split_octant_flag ? 8 : 1;
    claim(table.cm_ref_layer_id.size() == table.num_cm_ref_layers_minus1 + std::size_t{1} &&
              table.parts.size() == octants << table.cm_y_part_num_log2,
          "a colour mapping has its layers and parts");
    for (const auto& part : table.parts) {
        claim(part.idxShiftY < (1U << table.cm_y_part_num_log2 << table.cm_octant_depth) &&
                  part.idxCb < 2 && part.idxCr < 2,
              "a part of a colour mapping stands in it");
    }
}

inline void claim_depth_tables(const h265_pps_3d_extension& extension) {
    const std::size_t layers =
        extension.dlts_present_flag ? extension.pps_depth_layers_minus1 + std::size_t{1} : 0;
    const std::size_t values = std::size_t{1}
                               << (extension.pps_bit_depth_for_depth_layers_minus8 + 8);
    claim(all_have(layers, extension.dlt_flag, extension.dlt_pred_flag,
                   extension.dlt_val_flags_present_flag, extension.dlt_value_flag,
                   extension.delta_dlt),
          "depth layers have an entry each");
    for (std::size_t i = 0; i < layers; ++i) {
        claim(extension.dlt_value_flag[i].size() ==
                  (extension.dlt_val_flags_present_flag[i] ? values : 0),
              "a depth lookup table has a flag for each value, or none");
        const h265_delta_dlt& delta = extension.delta_dlt[i];
        claim(delta.num_val_delta_dlt < values && delta.max_diff < values &&
                  (delta.delta_val_diff_minus_min.empty() ||
                   delta.delta_val_diff_minus_min.size() == delta.num_val_delta_dlt),
              "a difference of depth lookup tables has an entry for each value, or none");
    }
}

inline void claim_extensions(const h265_nal_pps& pps) {
    claim_fresh_unless(pps.pps_range_extension_flag, pps.pps_range_extension);
    claim_fresh_unless(pps.pps_multilayer_extension_flag, pps.pps_multilayer_extension);
    claim_fresh_unless(pps.pps_3d_extension_flag, pps.pps_3d_extension);
    claim_fresh_unless(pps.pps_scc_extension_flag, pps.pps_scc_extension);
    const bool any = pps.pps_range_extension_flag || pps.pps_multilayer_extension_flag ||
                     pps.pps_3d_extension_flag || pps.pps_scc_extension_flag ||
                     pps.pps_extension_4bits != 0 || !pps.pps_extension_data_flag.empty();
    claim(pps.pps_extension_present_flag || !any, "nothing is behind an extension flag of 0");

    const h265_pps_range_extension& range = pps.pps_range_extension;
    const std::size_t offsets = range.chroma_qp_offset_list_enabled_flag
                                    ? range.chroma_qp_offset_list_len_minus1 + std::size_t{1}
                                    : 0;
    claim(offsets <= 6 && all_have(offsets, range.cb_qp_offset_list, range.cr_qp_offset_list),
          "chroma offsets are as many as their length says");
    claim_reference_offsets(pps.pps_multilayer_extension);
    claim_colour_mapping(pps.pps_multilayer_extension);
    claim_depth_tables(pps.pps_3d_extension);
    const h265_pps_scc_extension& scc = pps.pps_scc_extension;
    claim_palette(scc.pps_palette_predictor_initializer, scc.pps_num_palette_predictor_initializers,
                  scc.monochrome_palette_flag);
}

}  // namespace kovran::fuzz

#endif  // KOVRAN_FUZZ_EXTENSION_CLAIMS_H
