#ifndef KOVRAN_H265_H265_SLICE_SEGMENT_HEADER_H
#define KOVRAN_H265_H265_SLICE_SEGMENT_HEADER_H

#include <kovran/export.h>
#include <kovran/h2645_common/h2645_common_base_store.h>
#include <kovran/h2645_common/h2645_common_bitreader.h>
#include <kovran/h265/h265_fault.h>
#include <kovran/h265/h265_nal.h>
#include <kovran/h265/h265_nal_pps.h>
#include <kovran/h265/h265_nal_sps.h>
#include <kovran/h265/h265_nal_vps.h>
#include <kovran/h265/h265_pred_weight_table.h>
#include <kovran/h265/h265_ref_pic_lists_modification.h>
#include <kovran/h265/h265_st_ref_pic_set.h>
#include <kovran/h265/h265_trace.h>

#include <cstddef>
#include <cstdint>
#include <vector>

namespace kovran {

// slice_segment_header(), clause 7.3.6.1. parse() reads it from its start to
// ref_pic_lists_modification(): the part that tells which picture it belongs to, with which
// parameter sets, reference picture set and lists. parse_standard() reads all of it.
struct h265_slice_segment_header {
    bool first_slice_segment_in_pic_flag = false;  // u(1)
    bool no_output_of_prior_pics_flag = false;     // u(1) for IRAP types, or false
    unsigned int slice_pic_parameter_set_id = 0;   // ue(v)

    bool dependent_slice_segment_flag = false;  // u(1), or false
    unsigned int slice_segment_address = 0;     // u(v), unless first_slice_segment_in_pic_flag

    unsigned int slice_type = 0;        // ue(v): 0 B, 1 P, 2 I
    bool pic_output_flag = false;       // u(1), or true
    unsigned char colour_plane_id = 0;  // u(2), when separate_colour_plane_flag

    unsigned int slice_pic_order_cnt_lsb = 0;      // u(v), unless IDR
    bool short_term_ref_pic_set_sps_flag = false;  // u(1), likewise
    h265_st_ref_pic_set st_ref_pic_set;            // unless that flag is set
    unsigned int short_term_ref_pic_set_idx = 0;   // u(v), when that flag is set

    unsigned int num_long_term_sps = 0;   // ue(v), when num_long_term_ref_pics_sps
    unsigned int num_long_term_pics = 0;  // ue(v), when long_term_ref_pics_present_flag
    // num_long_term_sps + num_long_term_pics entries.
    std::vector<unsigned int> lt_idx_sps;              // u(v)
    std::vector<unsigned int> poc_lsb_lt;              // u(v)
    std::vector<bool> used_by_curr_pic_lt_flag;        // u(1)
    std::vector<bool> delta_poc_msb_present_flag;      // u(1)
    std::vector<unsigned int> delta_poc_msb_cycle_lt;  // ue(v)

    bool slice_temporal_mvp_enabled_flag = false;  // u(1), after long-term pictures only

    bool slice_sao_luma_flag = false;    // u(1), when sample_adaptive_offset_enabled_flag
    bool slice_sao_chroma_flag = false;  // u(1), likewise, unless ChromaArrayType is 0

    bool num_ref_idx_active_override_flag = false;  // u(1), P and B
    unsigned int num_ref_idx_l0_active_minus1 = 0;  // ue(v), or the PPS's default
    unsigned int num_ref_idx_l1_active_minus1 = 0;  // ue(v), or the PPS's default

    // When lists_modification_present_flag and NumPicTotalCurr is above 1.
    h265_ref_pic_lists_modification ref_pic_lists_modification;

    // Derived: the reference pictures that the current picture may use, and the short-term set in
    // use.
    unsigned int NumPicTotalCurr = 0;  // P and B, else 0
    unsigned int CurrRpsIdx = 0;       // num_short_term_ref_pic_sets stands for st_ref_pic_set

    bool valid = false;  // the latest parse succeeded

    // The rest of the header; only parse_standard() reads it.

    bool mvd_l1_zero_flag = false;         // u(1), B
    bool cabac_init_flag = false;          // u(1), P and B when cabac_init_present_flag
    bool collocated_from_l0_flag = false;  // u(1), B when slice_temporal_mvp_enabled_flag, or
                                           // true
    unsigned int collocated_ref_idx = 0;   // ue(v), P and B when slice_temporal_mvp_enabled_flag
                                           // and that list has several entries
    h265_pred_weight_table pred_weight_table;        // P when weighted_pred_flag, B when
                                                     // weighted_bipred_flag
    unsigned int five_minus_max_num_merge_cand = 0;  // ue(v), P and B
    bool use_integer_mv_flag = false;  // P and B: u(1) when motion_vector_resolution_control_idc is
                                       // 2, or that

    int slice_qp_delta = 0;          // se(v)
    int slice_cb_qp_offset = 0;      // se(v), when pps_slice_chroma_qp_offsets_present_flag
    int slice_cr_qp_offset = 0;      // se(v), likewise
    int slice_act_y_qp_offset = 0;   // se(v), when pps_slice_act_qp_offsets_present_flag
    int slice_act_cb_qp_offset = 0;  // se(v), likewise
    int slice_act_cr_qp_offset = 0;  // se(v), likewise
    bool cu_chroma_qp_offset_enabled_flag = false;  // u(1), when chroma_qp_offset_list_enabled_flag

    bool deblocking_filter_override_flag = false;        // u(1), when
                                                         // deblocking_filter_override_enabled_flag
    bool slice_deblocking_filter_disabled_flag = false;  // u(1), when that is set, or the PPS's
    int slice_beta_offset_div2 = 0;  // se(v), likewise, unless disabled, or the PPS's
    int slice_tc_offset_div2 = 0;    // se(v), likewise
    bool slice_loop_filter_across_slices_enabled_flag = false;  // u(1), or the PPS's

    // In dependent slice segments as well.
    unsigned int num_entry_point_offsets = 0;             // ue(v), with tiles or wavefronts
    unsigned int offset_len_minus1 = 0;                   // ue(v), unless there are none
    std::vector<unsigned int> entry_point_offset_minus1;  // u(v), num_entry_point_offsets of them
    // When slice_segment_header_extension_present_flag.
    unsigned int slice_segment_header_extension_length = 0;               // ue(v)
    std::vector<unsigned char> slice_segment_header_extension_data_byte;  // u(8), as many

    // Derived: where slice_segment_data() begins, as a number of bytes from the first one that the
    // reader was made for; emulation prevention bytes, which it does not have, are not counted. The
    // data may be empty.
    std::size_t slice_data_begin = 0;

    // Reads the header of a VCL NAL unit of the given type; `reader` stands right after the two NAL
    // unit header bytes. Afterwards it stands where reading stopped: after slice_segment_address in
    // a dependent slice segment, before num_ref_idx_active_override_flag in an I slice, and after
    // the list modification otherwise. Nothing is inserted into the stores. Fields of absent
    // elements keep their values. In a record that is used again, therefore:
    //
    //  - a dependent_slice_segment_flag that an earlier parse left set also ends this one, in the
    //    first segment of a picture;
    //  - of the long-term arrays only entry 0 is cleared.
    //
    // False, with `valid` false: the PPS, its SPS or its VPS is not in the store (their `valid`
    // does not matter); the SPS has no picture size or coding tree block size; st_ref_pic_set
    // cannot be read; or the SPS allows long-term pictures and has num_long_term_ref_pics_sps 0.
    //
    // Throws std::bad_alloc or std::length_error when an array cannot grow: the long-term arrays,
    // and the lists of the modification, have no bound in the syntax. More than 1,048,576 entries
    // are refused that way before anything is allocated, unless the answer is false anyway. `valid`
    // is then false. The record keeps what was read; parse into a copy if you do not want that.
    KOVRAN_API bool parse(h2645_common_bitreader& reader,
                          h2645_common_base_store<h265_nal_pps>& pps_store,
                          h2645_common_base_store<h265_nal_sps>& sps_store,
                          h2645_common_base_store<h265_nal_vps>& vps_store,
                          h265_nal_unit_type nal_unit_type);
    KOVRAN_API bool parse(h2645_common_bitreader& reader,
                          h2645_common_base_store<h265_nal_pps>& pps_store,
                          h2645_common_base_store<h265_nal_sps>& sps_store,
                          h2645_common_base_store<h265_nal_vps>& vps_store,
                          h265_nal_unit_type nal_unit_type, h265_trace& trace,
                          h265_fault* fault = nullptr);

    // The same by the standard's own rules, in a record that is reset first; the parameter sets
    // must have been read this way too. The NAL unit must belong to the base layer. Indices have
    // Ceil(Log2(n)) bits; slice_temporal_mvp_enabled_flag is read whenever the SPS enables it,
    // unless the picture is IDR; an SPS without long-term candidates still allows long-term
    // pictures. A long-term entry that names a candidate has its poc_lsb_lt and
    // used_by_curr_pic_lt_flag, and NumPicTotalCurr is that of equation 7-55.
    //
    // Afterwards `reader` stands at the first bit of slice_segment_data(), behind byte_alignment();
    // nothing of that data is looked at.
    //
    // A dependent slice segment has entry points, the extension and slice_data_begin of its own.
    // The fields that its header does not have are as in a fresh record, except CurrRpsIdx and the
    // two num_ref_idx_lX_active_minus1, which have their starting values; take_over() fills them.
    //
    // False, with `valid` false: as above, except for the last reason; the PPS identifier is above
    // 63, slice_type above 2, short_term_ref_pic_set_idx or lt_idx_sps beyond what the SPS has, or
    // num_long_term_sps above what it has; there are more than 16 long-term pictures, 15 reference
    // indices in a list, or as many entry points as the picture has tiles, rows of coding tree
    // blocks, or with both, rows in all tile columns; offset_len_minus1 is above 31 or
    // slice_segment_header_extension_length above 256; or the data ends before the first bit of
    // byte_alignment(). Malformed bits of byte_alignment() are told as a fault of the kind
    // trailing_bits, and everything was read. Other values out of their range are kept.
    //
    // When there is no memory the record is a fresh one: throws std::bad_alloc, or is false if
    // st_ref_pic_set cannot grow.
    KOVRAN_API bool parse_standard(h2645_common_bitreader& reader,
                                   h2645_common_base_store<h265_nal_pps>& pps_store,
                                   h2645_common_base_store<h265_nal_sps>& sps_store,
                                   h2645_common_base_store<h265_nal_vps>& vps_store,
                                   h265_nal_unit_type nal_unit_type, h265_fault* fault = nullptr);
    KOVRAN_API bool parse_standard(h2645_common_bitreader& reader,
                                   h2645_common_base_store<h265_nal_pps>& pps_store,
                                   h2645_common_base_store<h265_nal_sps>& sps_store,
                                   h2645_common_base_store<h265_nal_vps>& vps_store,
                                   h265_nal_unit_type nal_unit_type, h265_trace& trace,
                                   h265_fault* fault = nullptr);

    // Gives a dependent slice segment that parse_standard() has read the fields that its header
    // does not have: those of `independent`, the independent one before it in the same picture. The
    // others stay: all up to slice_segment_address, `valid`, and from num_entry_point_offsets on.
    //
    // Throws std::bad_alloc when there is no memory; `valid` is then false. Segments that are alike
    // need no more of it.
    KOVRAN_API void take_over(const h265_slice_segment_header& independent);

    // SliceQpY, equation 7-54, by the PPS of the slice.
    [[nodiscard]] KOVRAN_API std::int64_t SliceQpY(const h265_nal_pps& pps) const;

    // MaxNumMergeCand, equation 7-53; 0 where five_minus_max_num_merge_cand is above 5.
    [[nodiscard]] KOVRAN_API unsigned int MaxNumMergeCand() const;

    // "B", "P" or "I" by slice_type, "?" for any other value; never null.
    [[nodiscard]] KOVRAN_API const char* slice_type_to_str() const;
};

}  // namespace kovran

#endif  // KOVRAN_H265_H265_SLICE_SEGMENT_HEADER_H
