#ifndef KOVRAN_H265_H265_NAL_SPS_H
#define KOVRAN_H265_H265_NAL_SPS_H

#include <kovran/export.h>
#include <kovran/h2645_common/h2645_common_base_store.h>
#include <kovran/h2645_common/h2645_common_bitreader.h>
#include <kovran/h265/h265_fault.h>
#include <kovran/h265/h265_nal_vps.h>
#include <kovran/h265/h265_profile_tier_level.h>
#include <kovran/h265/h265_scaling_list_data.h>
#include <kovran/h265/h265_sps_3d_extension.h>
#include <kovran/h265/h265_sps_multilayer_extension.h>
#include <kovran/h265/h265_sps_range_extension.h>
#include <kovran/h265/h265_sps_scc_extension.h>
#include <kovran/h265/h265_st_ref_pic_set.h>
#include <kovran/h265/h265_trace.h>
#include <kovran/h265/h265_vui_parameters.h>

#include <vector>

namespace kovran {

// seq_parameter_set_rbsp(), clause 7.3.2.2. No variable is derived.
struct h265_nal_sps {
    unsigned char sps_video_parameter_set_id = 0;  // u(4)
    unsigned char sps_max_sub_layers_minus1 = 0;   // u(3)
    bool sps_temporal_id_nesting_flag = false;     // u(1)

    h265_profile_tier_level profile_tier_level;

    unsigned int sps_seq_parameter_set_id = 0;    // ue(v)
    unsigned int chroma_format_idc = 0;           // ue(v)
    bool separate_colour_plane_flag = false;      // u(1), when chroma_format_idc is 3
    unsigned int pic_width_in_luma_samples = 0;   // ue(v)
    unsigned int pic_height_in_luma_samples = 0;  // ue(v)

    bool conformance_window_flag = false;     // u(1)
    unsigned int conf_win_left_offset = 0;    // ue(v), when conformance_window_flag
    unsigned int conf_win_right_offset = 0;   // ue(v), likewise
    unsigned int conf_win_top_offset = 0;     // ue(v), likewise
    unsigned int conf_win_bottom_offset = 0;  // ue(v), likewise

    unsigned int bit_depth_luma_minus8 = 0;              // ue(v)
    unsigned int bit_depth_chroma_minus8 = 0;            // ue(v)
    unsigned int log2_max_pic_order_cnt_lsb_minus4 = 0;  // ue(v)

    bool sps_sub_layer_ordering_info_present_flag = false;  // u(1)
    // sps_max_sub_layers_minus1 + 1 entries; without the flag only the last is in the stream.
    std::vector<unsigned int> sps_max_dec_pic_buffering_minus1;  // ue(v)
    std::vector<unsigned int> sps_max_num_reorder_pics;          // ue(v)
    std::vector<unsigned int> sps_max_latency_increase_plus1;    // ue(v)

    unsigned int log2_min_luma_coding_block_size_minus3 = 0;       // ue(v)
    unsigned int log2_diff_max_min_luma_coding_block_size = 0;     // ue(v)
    unsigned int log2_min_luma_transform_block_size_minus2 = 0;    // ue(v)
    unsigned int log2_diff_max_min_luma_transform_block_size = 0;  // ue(v)
    unsigned int max_transform_hierarchy_depth_inter = 0;          // ue(v)
    unsigned int max_transform_hierarchy_depth_intra = 0;          // ue(v)

    bool scaling_list_enabled_flag = false;           // u(1)
    bool sps_scaling_list_data_present_flag = false;  // u(1), when scaling_list_enabled_flag
    h265_scaling_list_data scaling_list_data;         // when sps_scaling_list_data_present_flag

    bool amp_enabled_flag = false;                     // u(1)
    bool sample_adaptive_offset_enabled_flag = false;  // u(1)

    bool pcm_enabled_flag = false;                                  // u(1)
    unsigned char pcm_sample_bit_depth_luma_minus1 = 0;             // u(4), when pcm_enabled_flag
    unsigned char pcm_sample_bit_depth_chroma_minus1 = 0;           // u(4), likewise
    unsigned int log2_min_pcm_luma_coding_block_size_minus3 = 0;    // ue(v), likewise
    unsigned int log2_diff_max_min_pcm_luma_coding_block_size = 0;  // ue(v), likewise
    bool pcm_loop_filter_disabled_flag = false;                     // u(1), likewise

    unsigned int num_short_term_ref_pic_sets = 0;     // ue(v)
    std::vector<h265_st_ref_pic_set> st_ref_pic_set;  // num_short_term_ref_pic_sets entries

    bool long_term_ref_pics_present_flag = false;  // u(1)
    unsigned int num_long_term_ref_pics_sps = 0;   // ue(v), when long_term_ref_pics_present_flag
    std::vector<unsigned int> lt_ref_pic_poc_lsb_sps;  // u(v), num_long_term_ref_pics_sps entries
    std::vector<bool> used_by_curr_pic_lt_sps_flag;    // u(1), likewise

    bool sps_temporal_mvp_enabled_flag = false;        // u(1)
    bool strong_intra_smoothing_enabled_flag = false;  // u(1)

    bool vui_parameters_present_flag = false;  // u(1)
    h265_vui_parameters vui_parameters;        // when vui_parameters_present_flag

    bool sps_extension_flag = false;  // u(1), sps_extension_present_flag

    bool valid = false;  // the latest parse succeeded

    // Behind sps_extension_present_flag; only parse_standard() reads these.
    bool sps_range_extension_flag = false;                   // u(1)
    bool sps_multilayer_extension_flag = false;              // u(1)
    bool sps_3d_extension_flag = false;                      // u(1)
    bool sps_scc_extension_flag = false;                     // u(1)
    unsigned char sps_extension_4bits = 0;                   // u(4)
    h265_sps_range_extension sps_range_extension;            // when sps_range_extension_flag
    h265_sps_multilayer_extension sps_multilayer_extension;  // when sps_multilayer_extension_flag
    h265_sps_3d_extension sps_3d_extension;                  // when sps_3d_extension_flag
    h265_sps_scc_extension sps_scc_extension;                // when sps_scc_extension_flag
    std::vector<bool> sps_extension_data_flag;               // u(1), what is read as nothing else

    // Reads one RBSP; `reader` stands right after the two NAL unit header bytes. Nothing is
    // inserted into `vps_store`. Fields of absent elements keep their values. Extensions are
    // skipped.
    //
    // False, with `valid` false: the VPS is not in the store, or not valid; one of the structures
    // in the SPS cannot be read; num_short_term_ref_pic_sets or num_long_term_ref_pics_sps is above
    // 128; there is no memory; or the trailing bits are malformed. What was read before stays.
    KOVRAN_API bool parse(h2645_common_bitreader& reader,
                          h2645_common_base_store<h265_nal_vps>& vps_store);
    KOVRAN_API bool parse(h2645_common_bitreader& reader,
                          h2645_common_base_store<h265_nal_vps>& vps_store, h265_trace& trace,
                          h265_fault* fault = nullptr);

    // The same by the standard's own rules, in a record that is reset first. Predicted sets get
    // their pictures, in chains as well; ordering information that is coded only for the highest
    // sub-layer applies to all; absent profiles and levels of sub-layers are those of the layer
    // above, predicted scaling matrices those of their references, and absent VUI elements, with a
    // VUI or without one, have the values of clause E.3.1.
    //
    // Extensions are read. Other bits behind sps_extension_present_flag, as encoders older than the
    // extensions wrote them, are kept in sps_extension_data_flag: all of them, or those behind the
    // extensions. The SPS is valid; `fault` is unknown_extension unless sps_extension_4bits is set.
    //
    // The SPS must belong to the base layer. An SPS whose first 3-bit field is 7, which announces
    // the syntax of clause F.7.3.2.2, is refused. The VPS may come later: `vps_store` is not used.
    //
    // False, with `valid` false: sps_max_sub_layers_minus1 is 7, sps_seq_parameter_set_id above 15,
    // log2_max_pic_order_cnt_lsb_minus4 above 12, num_short_term_ref_pic_sets above 64,
    // num_long_term_ref_pics_sps above 32, or either more than the data can hold; one of the
    // structures in the SPS cannot be read; the data ends before the trailing bits; or there is no
    // memory. Malformed trailing bits are a fault, and the SPS is valid.
    KOVRAN_API bool parse_standard(h2645_common_bitreader& reader,
                                   h2645_common_base_store<h265_nal_vps>& vps_store,
                                   h265_fault* fault = nullptr);
    KOVRAN_API bool parse_standard(h2645_common_bitreader& reader,
                                   h2645_common_base_store<h265_nal_vps>& vps_store,
                                   h265_trace& trace, h265_fault* fault = nullptr);
};

}  // namespace kovran

#endif  // KOVRAN_H265_H265_NAL_SPS_H
