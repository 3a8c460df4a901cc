#ifndef KOVRAN_H265_H265_NAL_PPS_H
#define KOVRAN_H265_H265_NAL_PPS_H

#include <kovran/export.h>
#include <kovran/h2645_common/h2645_common_base_store.h>
#include <kovran/h2645_common/h2645_common_bitreader.h>
#include <kovran/h265/h265_fault.h>
#include <kovran/h265/h265_nal_sps.h>
#include <kovran/h265/h265_pps_3d_extension.h>
#include <kovran/h265/h265_pps_multilayer_extension.h>
#include <kovran/h265/h265_pps_range_extension.h>
#include <kovran/h265/h265_pps_scc_extension.h>
#include <kovran/h265/h265_scaling_list_data.h>
#include <kovran/h265/h265_trace.h>

#include <vector>

namespace kovran {

// pic_parameter_set_rbsp(), clause 7.3.2.3. No variable is derived.
struct h265_nal_pps {
    unsigned int pps_pic_parameter_set_id = 0;  // ue(v)
    unsigned int pps_seq_parameter_set_id = 0;  // ue(v)

    bool dependent_slice_segments_enabled_flag = false;  // u(1)
    bool output_flag_present_flag = false;               // u(1)
    unsigned char num_extra_slice_header_bits = 0;       // u(3)
    bool sign_data_hiding_enabled_flag = false;          // u(1)
    bool cabac_init_present_flag = false;                // u(1)

    unsigned int num_ref_idx_l0_default_active_minus1 = 0;  // ue(v)
    unsigned int num_ref_idx_l1_default_active_minus1 = 0;  // ue(v)
    int init_qp_minus26 = 0;                                // se(v)

    bool constrained_intra_pred_flag = false;  // u(1)
    bool transform_skip_enabled_flag = false;  // u(1)
    bool cu_qp_delta_enabled_flag = false;     // u(1)
    unsigned int diff_cu_qp_delta_depth = 0;   // ue(v), or 0 without cu_qp_delta_enabled_flag

    int pps_cb_qp_offset = 0;                               // se(v)
    int pps_cr_qp_offset = 0;                               // se(v)
    bool pps_slice_chroma_qp_offsets_present_flag = false;  // u(1)
    bool weighted_pred_flag = false;                        // u(1)
    bool weighted_bipred_flag = false;                      // u(1)
    bool transquant_bypass_enabled_flag = false;            // u(1)

    bool tiles_enabled_flag = false;                // u(1)
    bool entropy_coding_sync_enabled_flag = false;  // u(1)

    unsigned int num_tile_columns_minus1 = 0;       // ue(v), when tiles_enabled_flag
    unsigned int num_tile_rows_minus1 = 0;          // ue(v), likewise
    bool uniform_spacing_flag = false;              // u(1), likewise
    std::vector<unsigned int> column_width_minus1;  // ue(v), num_tile_columns_minus1 entries,
                                                    // without uniform_spacing_flag
    std::vector<unsigned int> row_height_minus1;    // ue(v), num_tile_rows_minus1 entries, likewise
    bool loop_filter_across_tiles_enabled_flag = false;  // u(1), when tiles_enabled_flag

    bool pps_loop_filter_across_slices_enabled_flag = false;  // u(1)
    bool deblocking_filter_control_present_flag = false;      // u(1)
    bool deblocking_filter_override_enabled_flag = false;     // u(1), when that is set
    bool pps_deblocking_filter_disabled_flag = false;         // u(1), likewise
    int pps_beta_offset_div2 = 0;                             // se(v), likewise, unless that is set
    int pps_tc_offset_div2 = 0;                               // se(v), likewise

    bool pps_scaling_list_data_present_flag = false;  // u(1)
    h265_scaling_list_data scaling_list_data;         // when pps_scaling_list_data_present_flag

    bool lists_modification_present_flag = false;              // u(1)
    unsigned int log2_parallel_merge_level_minus2 = 0;         // ue(v)
    bool slice_segment_header_extension_present_flag = false;  // u(1)

    bool pps_extension_present_flag = false;  // u(1)

    bool valid = false;  // the latest parse succeeded

    // Behind pps_extension_present_flag; only parse_standard() reads these.
    bool pps_range_extension_flag = false;       // u(1)
    bool pps_multilayer_extension_flag = false;  // u(1)
    bool pps_3d_extension_flag = false;          // u(1)
    bool pps_scc_extension_flag = false;         // u(1)
    unsigned char pps_extension_4bits = 0;       // u(4)
    // Each when its flag is set. A record that is used again is cleared of those whose flag is set.
    h265_pps_range_extension pps_range_extension;
    h265_pps_multilayer_extension pps_multilayer_extension;
    h265_pps_3d_extension pps_3d_extension;
    h265_pps_scc_extension pps_scc_extension;
    std::vector<bool> pps_extension_data_flag;  // u(1), what is read as nothing else

    // Reads one RBSP; `reader` stands right after the two NAL unit header bytes. Of the SPS only
    // its presence and `valid` matter. Nothing is inserted into `sps_store`. Fields of absent
    // elements keep their values, except diff_cu_qp_delta_depth. Extensions are skipped.
    //
    // False, with `valid` false: the SPS is not in the store, or not valid; num_tile_columns_minus1
    // or num_tile_rows_minus1 is above 128 and spacing is not uniform; the scaling lists cannot be
    // read; there is no memory; or the trailing bits are malformed. What was read before stays.
    KOVRAN_API bool parse(h2645_common_bitreader& reader,
                          h2645_common_base_store<h265_nal_sps>& sps_store);
    KOVRAN_API bool parse(h2645_common_bitreader& reader,
                          h2645_common_base_store<h265_nal_sps>& sps_store, h265_trace& trace,
                          h265_fault* fault = nullptr);

    // The same by the standard's own rules, in a record that is reset first: without tiles,
    // uniform_spacing_flag and loop_filter_across_tiles_enabled_flag are true, and predicted
    // scaling matrices are those of their references.
    //
    // Extensions are read. Other bits behind pps_extension_present_flag, as encoders older than the
    // extensions wrote them, are kept in pps_extension_data_flag: all of them, or those behind the
    // extensions. The PPS is valid; `fault` is unknown_extension unless pps_extension_4bits is set.
    //
    // Its SPS may come later. An SPS that is in the store decides, for a trace, which values are
    // allowed.
    //
    // False, with `valid` false: pps_pic_parameter_set_id is above 63 or pps_seq_parameter_set_id
    // above 15; a list has more than 15 reference indices; spacing is not uniform and there are
    // more than 1056 tile columns or rows, the coding tree blocks along the longest side of any
    // picture, or more than the data can hold; the scaling lists cannot be read; the data ends
    // before the trailing bits; or there is no memory. Malformed trailing bits are a fault, and the
    // PPS is valid.
    KOVRAN_API bool parse_standard(h2645_common_bitreader& reader,
                                   h2645_common_base_store<h265_nal_sps>& sps_store,
                                   h265_fault* fault = nullptr);
    KOVRAN_API bool parse_standard(h2645_common_bitreader& reader,
                                   h2645_common_base_store<h265_nal_sps>& sps_store,
                                   h265_trace& trace, h265_fault* fault = nullptr);
};

}  // namespace kovran

#endif  // KOVRAN_H265_H265_NAL_PPS_H
