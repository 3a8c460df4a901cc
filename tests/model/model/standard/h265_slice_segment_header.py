"""slice_segment_header(), H.265 clauses 7.3.6.1 and 7.4.7.1."""

from . import h265_pred_weight_table as weight_reading
from . import h265_ref_pic_lists_modification as modification_reading
from . import h265_st_ref_pic_set as set_reading
from .arithmetic import ceil_log2, ctb_log2_size, size_in_ctbs

B, P, I = 0, 1, 2
BLA_W_LP, RSV_IRAP_VCL23 = 16, 23
IDR_W_RADL, IDR_N_LP = 19, 20
# As many coding tree blocks as slice_segment_address can count, which no picture has.
MAX_BLOCKS = 1 << 32
MAX_LONG_TERM_PICS = 16
MAX_REF_IDX_ACTIVE = 15


def parse(header, r, pps_store, sps_store, vps_store, nal_unit_type):
    header.reset()
    header.first_slice_segment_in_pic_flag = r.flag("first_slice_segment_in_pic_flag")
    if BLA_W_LP <= nal_unit_type <= RSV_IRAP_VCL23:
        header.no_output_of_prior_pics_flag = r.flag()
    header.slice_pic_parameter_set_id = r.ue("slice_pic_parameter_set_id")
    if header.slice_pic_parameter_set_id > 63:
        return False
    pps = pps_store.map.get(header.slice_pic_parameter_set_id)
    sps = sps_store.map.get(pps.pps_seq_parameter_set_id) if pps else None
    if sps is None or sps.sps_video_parameter_set_id not in vps_store.map:
        return False
    header.CurrRpsIdx = sps.num_short_term_ref_pic_sets
    header.num_ref_idx_l0_active_minus1 = pps.num_ref_idx_l0_default_active_minus1
    header.num_ref_idx_l1_active_minus1 = pps.num_ref_idx_l1_default_active_minus1

    if not header.first_slice_segment_in_pic_flag:
        if pps.dependent_slice_segments_enabled_flag:
            header.dependent_slice_segment_flag = r.flag("dependent_slice_segment_flag")
        across, down = size_in_ctbs(sps)
        if ctb_log2_size(sps) > 31 or not 0 < across * down < MAX_BLOCKS:
            return False
        header.slice_segment_address = r.u(ceil_log2(across * down))
    if not header.dependent_slice_segment_flag and not independent(
        header, r, pps, sps, nal_unit_type in (IDR_W_RADL, IDR_N_LP)
    ):
        return False
    if not entry_points(header, r, pps, sps) or not extension(header, r, pps):
        return False
    # The first bit of byte_alignment() must be there.
    header.valid = r.holds(1)
    r.skip_rbsp_trailing_bits()
    if header.valid:
        header.slice_data_begin = r.pos // 8
    return header.valid


def independent(header, r, pps, sps, is_idr):
    r.skip(pps.num_extra_slice_header_bits)
    header.slice_type = r.ue("slice_type")
    if header.slice_type > I:
        return False
    header.pic_output_flag = r.flag() if pps.output_flag_present_flag else True
    if sps.separate_colour_plane_flag:
        header.colour_plane_id = r.u(2)
    pictures = None
    if not is_idr:
        pictures = reference_picture_set(header, r, sps)
        if pictures is None:
            return False
        if sps.sps_temporal_mvp_enabled_flag:
            header.slice_temporal_mvp_enabled_flag = r.flag()
    if sps.sample_adaptive_offset_enabled_flag:
        header.slice_sao_luma_flag = r.flag()
        # ChromaArrayType
        if sps.chroma_format_idc != 0 and not sps.separate_colour_plane_flag:
            header.slice_sao_chroma_flag = r.flag()
    header.collocated_from_l0_flag = True
    if header.slice_type != I:
        if not reference_lists(header, r, pps, sps, pictures):
            return False
        prediction(header, r, pps, sps)
    quantisation(header, r, pps)
    loop_filters(header, r, pps)
    return True


def reference_picture_set(header, r, sps):
    """The short-term set in use, or None."""
    header.slice_pic_order_cnt_lsb = r.u(sps.log2_max_pic_order_cnt_lsb_minus4 + 4)
    header.short_term_ref_pic_set_sps_flag = r.flag("short_term_ref_pic_set_sps_flag")
    count = sps.num_short_term_ref_pic_sets
    if header.short_term_ref_pic_set_sps_flag:
        idx = r.u(ceil_log2(count), "short_term_ref_pic_set_idx")
        if idx >= count:
            return None
        header.short_term_ref_pic_set_idx = idx
        header.CurrRpsIdx = idx
        pictures = sps.st_ref_pic_set[idx]
    else:
        pictures = header.st_ref_pic_set
        if not set_reading.parse(pictures, r, sps, count, sps.st_ref_pic_set):
            return None
    if sps.long_term_ref_pics_present_flag and not long_term_pictures(header, r, sps):
        return None
    return pictures


def long_term_pictures(header, r, sps):
    candidates = sps.num_long_term_ref_pics_sps
    if candidates > 0:
        header.num_long_term_sps = r.ue("num_long_term_sps")
    header.num_long_term_pics = r.ue("num_long_term_pics")
    if header.num_long_term_sps > candidates:
        return False
    if header.num_long_term_sps + header.num_long_term_pics > MAX_LONG_TERM_PICS:
        return False
    for i in range(header.num_long_term_sps + header.num_long_term_pics):
        idx = 0
        if i < header.num_long_term_sps:
            idx = r.u(ceil_log2(candidates), "lt_idx_sps")
            if idx >= candidates:
                return False
            lsb = sps.lt_ref_pic_poc_lsb_sps[idx]
            used = sps.used_by_curr_pic_lt_sps_flag[idx]
        else:
            lsb = r.u(sps.log2_max_pic_order_cnt_lsb_minus4 + 4)
            used = r.flag("used_by_curr_pic_lt_flag")
        header.lt_idx_sps.append(idx)
        header.poc_lsb_lt.append(lsb)
        header.used_by_curr_pic_lt_flag.append(used)
        present = r.flag("delta_poc_msb_present_flag")
        header.delta_poc_msb_present_flag.append(present)
        header.delta_poc_msb_cycle_lt.append(r.ue() if present else 0)
    return True


def reference_lists(header, r, pps, sps, pictures):
    header.num_ref_idx_active_override_flag = r.flag("num_ref_idx_active_override_flag")
    if header.num_ref_idx_active_override_flag:
        header.num_ref_idx_l0_active_minus1 = r.ue("num_ref_idx_active_minus1")
        if header.slice_type == B:
            header.num_ref_idx_l1_active_minus1 = r.ue("num_ref_idx_active_minus1")
    for minus1 in (header.num_ref_idx_l0_active_minus1, header.num_ref_idx_l1_active_minus1):
        if minus1 + 1 > MAX_REF_IDX_ACTIVE:
            return False
    # Equation 7-55.
    header.NumPicTotalCurr = sum(header.used_by_curr_pic_lt_flag)
    if pictures is not None:
        header.NumPicTotalCurr += sum(pictures.used_by_curr_pic_s0_flag)
        header.NumPicTotalCurr += sum(pictures.used_by_curr_pic_s1_flag)
    if pps.pps_scc_extension.pps_curr_pic_ref_enabled_flag:
        header.NumPicTotalCurr += 1
    if pps.lists_modification_present_flag and header.NumPicTotalCurr > 1:
        return modification_reading.parse(header.ref_pic_lists_modification, r, header)
    return True


def prediction(header, r, pps, sps):
    if header.slice_type == B:
        header.mvd_l1_zero_flag = r.flag()
    if pps.cabac_init_present_flag:
        header.cabac_init_flag = r.flag()
    if header.slice_temporal_mvp_enabled_flag:
        last = header.num_ref_idx_l0_active_minus1
        if header.slice_type == B:
            header.collocated_from_l0_flag = r.flag()
            if not header.collocated_from_l0_flag:
                last = header.num_ref_idx_l1_active_minus1
        if last > 0:
            header.collocated_ref_idx = r.ue()
    if header.slice_type == P and pps.weighted_pred_flag:
        weight_reading.parse(header.pred_weight_table, r, header, pps, sps)
    if header.slice_type == B and pps.weighted_bipred_flag:
        weight_reading.parse(header.pred_weight_table, r, header, pps, sps)
    header.five_minus_max_num_merge_cand = r.ue()
    resolution = sps.sps_scc_extension.motion_vector_resolution_control_idc
    header.use_integer_mv_flag = r.flag() if resolution == 2 else resolution != 0


def quantisation(header, r, pps):
    header.slice_qp_delta = r.se()
    if pps.pps_slice_chroma_qp_offsets_present_flag:
        header.slice_cb_qp_offset = r.se()
        header.slice_cr_qp_offset = r.se()
    if pps.pps_scc_extension.pps_slice_act_qp_offsets_present_flag:
        header.slice_act_y_qp_offset = r.se()
        header.slice_act_cb_qp_offset = r.se()
        header.slice_act_cr_qp_offset = r.se()
    if pps.pps_range_extension.chroma_qp_offset_list_enabled_flag:
        header.cu_chroma_qp_offset_enabled_flag = r.flag()


def loop_filters(header, r, pps):
    header.slice_deblocking_filter_disabled_flag = pps.pps_deblocking_filter_disabled_flag
    header.slice_beta_offset_div2 = pps.pps_beta_offset_div2
    header.slice_tc_offset_div2 = pps.pps_tc_offset_div2
    header.slice_loop_filter_across_slices_enabled_flag = (
        pps.pps_loop_filter_across_slices_enabled_flag
    )
    if pps.deblocking_filter_override_enabled_flag:
        header.deblocking_filter_override_flag = r.flag()
    if header.deblocking_filter_override_flag:
        header.slice_deblocking_filter_disabled_flag = r.flag()
        if not header.slice_deblocking_filter_disabled_flag:
            header.slice_beta_offset_div2 = r.se()
            header.slice_tc_offset_div2 = r.se()
    filters = (
        header.slice_sao_luma_flag
        or header.slice_sao_chroma_flag
        or not header.slice_deblocking_filter_disabled_flag
    )
    if pps.pps_loop_filter_across_slices_enabled_flag and filters:
        header.slice_loop_filter_across_slices_enabled_flag = r.flag()


def substreams(pps, sps):
    """Tiles, rows of blocks, or rows of each tile column; no picture has more tiles than blocks."""
    across, down = size_in_ctbs(sps) if ctb_log2_size(sps) < 32 else (0, 0)
    columns = min(pps.num_tile_columns_minus1 + 1, across) if pps.tiles_enabled_flag else 1
    if pps.entropy_coding_sync_enabled_flag:
        return columns * down
    return columns * min(pps.num_tile_rows_minus1 + 1, down)


def entry_points(header, r, pps, sps):
    if not pps.tiles_enabled_flag and not pps.entropy_coding_sync_enabled_flag:
        return True
    header.num_entry_point_offsets = r.ue("num_entry_point_offsets")
    if header.num_entry_point_offsets >= min(substreams(pps, sps), MAX_BLOCKS):
        return False
    if header.num_entry_point_offsets > 0:
        header.offset_len_minus1 = r.ue("offset_len_minus1")
        width = header.offset_len_minus1 + 1
        if width > 32 or not r.holds(header.num_entry_point_offsets * width):
            return False
        header.entry_point_offset_minus1 = [
            r.u(width) for _ in range(header.num_entry_point_offsets)
        ]
    return True


def extension(header, r, pps):
    if not pps.slice_segment_header_extension_present_flag:
        return True
    length = r.ue("slice_segment_header_extension_length")
    header.slice_segment_header_extension_length = length
    if length > 256:
        return False
    header.slice_segment_header_extension_data_byte = [r.u(8) for _ in range(length)]
    return True


OF_A_SEGMENT = (
    "first_slice_segment_in_pic_flag",
    "no_output_of_prior_pics_flag",
    "slice_pic_parameter_set_id",
    "dependent_slice_segment_flag",
    "slice_segment_address",
    "num_entry_point_offsets",
    "offset_len_minus1",
    "entry_point_offset_minus1",
    "slice_segment_header_extension_length",
    "slice_segment_header_extension_data_byte",
    "slice_data_begin",
    "valid",
)


def take_over(header, independent):
    """Clause 7.4.7.1: what a dependent slice segment has not is that of the slice before."""
    for name, kind in header.kinds:
        if name not in OF_A_SEGMENT:
            setattr(header, name, kind.copy(getattr(independent, name)))
