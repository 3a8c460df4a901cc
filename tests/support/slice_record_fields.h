#ifndef KOVRAN_TESTS_SUPPORT_SLICE_RECORD_FIELDS_H
#define KOVRAN_TESTS_SUPPORT_SLICE_RECORD_FIELDS_H

#include <kovran/h265/h265_nal_aud.h>
#include <kovran/h265/h265_nal_sei_active_parameter_sets.h>
#include <kovran/h265/h265_nal_sei_buffering_period.h>
#include <kovran/h265/h265_nal_sei_pic_timing.h>
#include <kovran/h265/h265_nal_sei_reader.h>
#include <kovran/h265/h265_pred_weight_table.h>
#include <kovran/h265/h265_ref_pic_lists_modification.h>
#include <kovran/h265/h265_slice_segment_header.h>

#include <array>
#include <cstddef>
#include <tuple>

#include "support/record_fields.h"

// The fields of the slice, access unit delimiter and SEI records, as support/record_fields.h has
// those of the parameter sets.
namespace kovran::test {

#define FIELD(type, name) field<type>(#name, &record::name)

// One field a line.
// clang-format off
template <>
struct fields_of<h265_nal_aud> : field_types {
    using record = h265_nal_aud;
    static constexpr auto list = std::make_tuple(
        FIELD(u8, pic_type),
        FIELD(bool, valid));
};

template <>
struct fields_of<h265_ref_pic_lists_modification> : field_types {
    using record = h265_ref_pic_lists_modification;
    static constexpr auto list = std::make_tuple(
        FIELD(bool, ref_pic_list_modification_flag_l0),
        FIELD(array<u32>, list_entry_l0),
        FIELD(bool, ref_pic_list_modification_flag_l1),
        FIELD(array<u32>, list_entry_l1),
        FIELD(bool, valid));
};

template <>
struct fields_of<h265_pred_weight_table> : field_types {
    using record = h265_pred_weight_table;
    template <class Value>
    using entries = record::entries<Value>;
    using cb_and_cr = entries<std::array<i32, 2>>;
    static constexpr auto list = std::make_tuple(
        FIELD(u32, luma_log2_weight_denom),
        FIELD(i32, delta_chroma_log2_weight_denom),
        FIELD(entries<bool>, luma_weight_l0_flag),
        FIELD(entries<bool>, chroma_weight_l0_flag),
        FIELD(entries<i32>, delta_luma_weight_l0),
        FIELD(entries<i32>, luma_offset_l0),
        FIELD(cb_and_cr, delta_chroma_weight_l0),
        FIELD(cb_and_cr, delta_chroma_offset_l0),
        FIELD(entries<bool>, luma_weight_l1_flag),
        FIELD(entries<bool>, chroma_weight_l1_flag),
        FIELD(entries<i32>, delta_luma_weight_l1),
        FIELD(entries<i32>, luma_offset_l1),
        FIELD(cb_and_cr, delta_chroma_weight_l1),
        FIELD(cb_and_cr, delta_chroma_offset_l1),
        FIELD(bool, present));
};

template <>
struct fields_of<h265_slice_segment_header> : field_types {
    using record = h265_slice_segment_header;
    static constexpr auto list = std::make_tuple(
        FIELD(bool, first_slice_segment_in_pic_flag),
        FIELD(bool, no_output_of_prior_pics_flag),
        FIELD(u32, slice_pic_parameter_set_id),
        FIELD(bool, dependent_slice_segment_flag),
        FIELD(u32, slice_segment_address),
        FIELD(u32, slice_type),
        FIELD(bool, pic_output_flag),
        FIELD(u8, colour_plane_id),
        FIELD(u32, slice_pic_order_cnt_lsb),
        FIELD(bool, short_term_ref_pic_set_sps_flag),
        FIELD(h265_st_ref_pic_set, st_ref_pic_set),
        FIELD(u32, short_term_ref_pic_set_idx),
        FIELD(u32, num_long_term_sps),
        FIELD(u32, num_long_term_pics),
        FIELD(array<u32>, lt_idx_sps),
        FIELD(array<u32>, poc_lsb_lt),
        FIELD(bits, used_by_curr_pic_lt_flag),
        FIELD(bits, delta_poc_msb_present_flag),
        FIELD(array<u32>, delta_poc_msb_cycle_lt),
        FIELD(bool, slice_temporal_mvp_enabled_flag),
        FIELD(bool, slice_sao_luma_flag),
        FIELD(bool, slice_sao_chroma_flag),
        FIELD(bool, num_ref_idx_active_override_flag),
        FIELD(u32, num_ref_idx_l0_active_minus1),
        FIELD(u32, num_ref_idx_l1_active_minus1),
        FIELD(h265_ref_pic_lists_modification, ref_pic_lists_modification),
        FIELD(u32, NumPicTotalCurr),
        FIELD(u32, CurrRpsIdx),
        FIELD(bool, valid),
        FIELD(bool, mvd_l1_zero_flag),
        FIELD(bool, cabac_init_flag),
        FIELD(bool, collocated_from_l0_flag),
        FIELD(u32, collocated_ref_idx),
        FIELD(h265_pred_weight_table, pred_weight_table),
        FIELD(u32, five_minus_max_num_merge_cand),
        FIELD(bool, use_integer_mv_flag),
        FIELD(i32, slice_qp_delta),
        FIELD(i32, slice_cb_qp_offset),
        FIELD(i32, slice_cr_qp_offset),
        FIELD(i32, slice_act_y_qp_offset),
        FIELD(i32, slice_act_cb_qp_offset),
        FIELD(i32, slice_act_cr_qp_offset),
        FIELD(bool, cu_chroma_qp_offset_enabled_flag),
        FIELD(bool, deblocking_filter_override_flag),
        FIELD(bool, slice_deblocking_filter_disabled_flag),
        FIELD(i32, slice_beta_offset_div2),
        FIELD(i32, slice_tc_offset_div2),
        FIELD(bool, slice_loop_filter_across_slices_enabled_flag),
        FIELD(u32, num_entry_point_offsets),
        FIELD(u32, offset_len_minus1),
        FIELD(array<u32>, entry_point_offset_minus1),
        FIELD(u32, slice_segment_header_extension_length),
        FIELD(array<u8>, slice_segment_header_extension_data_byte),
        FIELD(std::size_t, slice_data_begin));
};

template <>
struct fields_of<h265_nal_sei_reader> : field_types {
    using record = h265_nal_sei_reader;
    static constexpr auto list = std::make_tuple(
        FIELD(unsigned char*, cursor),
        FIELD(unsigned char*, end),
        FIELD(unsigned char*, message_begin),
        FIELD(unsigned char*, payload_begin),
        FIELD(unsigned char*, payload_end),
        FIELD(u32, payload_type),
        FIELD(h265_nal_unit_type, nal_unit_type),
        FIELD(u32, payload_size),
        FIELD(bool, message_valid),
        FIELD(bool, truncated));
};

template <>
struct fields_of<h265_nal_sei_pic_timing> : field_types {
    using record = h265_nal_sei_pic_timing;
    static constexpr auto list = std::make_tuple(
        FIELD(u8, pic_struct),
        FIELD(u8, source_scan_type),
        FIELD(bool, duplicate_flag),
        FIELD(u32, au_cpb_removal_delay_minus1),
        FIELD(u32, pic_dpb_output_delay),
        FIELD(u32, pic_dpb_output_du_delay),
        FIELD(u32, num_decoding_units_minus1),
        FIELD(bool, du_common_cpb_removal_delay_flag),
        FIELD(u32, du_common_cpb_removal_delay_increment_minus1),
        FIELD(array<u32>, num_nalus_in_du_minus1),
        FIELD(array<u32>, du_cpb_removal_delay_increment_minus1),
        FIELD(bool, du_info_present),
        FIELD(bool, cpb_dpb_delays_present),
        FIELD(bool, valid));
};

template <>
struct fields_of<h265_nal_sei_buffering_period> : field_types {
    using record = h265_nal_sei_buffering_period;
    static constexpr auto list = std::make_tuple(
        FIELD(u32, bp_seq_parameter_set_id),
        FIELD(bool, irap_cpb_params_present_flag),
        FIELD(u32, cpb_delay_offset),
        FIELD(u32, dpb_delay_offset),
        FIELD(bool, concatenation_flag),
        FIELD(u32, au_cpb_removal_delay_delta_minus1),
        FIELD(array<u32>, nal_initial_cpb_removal_delay),
        FIELD(array<u32>, nal_initial_cpb_removal_offset),
        FIELD(array<u32>, nal_initial_alt_cpb_removal_delay),
        FIELD(array<u32>, nal_initial_alt_cpb_removal_offset),
        FIELD(array<u32>, vcl_initial_cpb_removal_delay),
        FIELD(array<u32>, vcl_initial_cpb_removal_offset),
        FIELD(array<u32>, vcl_initial_alt_cpb_removal_delay),
        FIELD(array<u32>, vcl_initial_alt_cpb_removal_offset),
        FIELD(bool, use_alt_cpb_params_flag),
        FIELD(u32, reserved_u32),
        FIELD(u32, CpbCnt),
        FIELD(bool, NalHrdBpPresentFlag),
        FIELD(bool, VclHrdBpPresentFlag),
        FIELD(bool, use_alt_cpb_params_flag_present),
        FIELD(bool, valid));
};

template <>
struct fields_of<h265_nal_sei_active_parameter_sets> : field_types {
    using record = h265_nal_sei_active_parameter_sets;
    static constexpr auto list = std::make_tuple(
        FIELD(u8, active_video_parameter_set_id),
        FIELD(bool, self_contained_cvs_flag),
        FIELD(bool, no_parameter_set_update_flag),
        FIELD(u32, num_sps_ids_minus1),
        FIELD(array<u32>, active_seq_parameter_set_id),
        FIELD(array<u32>, layer_sps_idx),
        FIELD(bool, valid));
};
// clang-format on
#undef FIELD

}  // namespace kovran::test

#endif  // KOVRAN_TESTS_SUPPORT_SLICE_RECORD_FIELDS_H
