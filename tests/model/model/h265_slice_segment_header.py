"""slice_segment_header(), H.265 clause 7.3.6.1; own rules end with the list modification."""

from .bits import MASK32, bit_length
from .h265_pred_weight_table import h265_pred_weight_table
from .h265_ref_pic_lists_modification import ENTRY_LIMIT, h265_ref_pic_lists_modification
from .h265_st_ref_pic_set import h265_st_ref_pic_set
from .record import Array, BadAlloc, Bits, false, fields, flag, i32, resize, u8, u32, zero

SLICE_TYPES = ("B", "P", "I")


def picture_size_in_ctbs(sps):
    """0 stands for a size that no picture has."""
    shift = (
        sps.log2_min_luma_coding_block_size_minus3
        + 3
        + sps.log2_diff_max_min_luma_coding_block_size
    ) & MASK32
    if shift >= 32:
        return 0
    ctb = 1 << shift
    width = sps.pic_width_in_luma_samples
    height = sps.pic_height_in_luma_samples
    across = width // ctb + (1 if width % ctb else 0)
    down = height // ctb + (1 if height % ctb else 0)
    return across * down & MASK32


def used_pictures(count, flags):
    return sum(1 for used in flags[:count] if used)


class h265_slice_segment_header(
    fields(
        first_slice_segment_in_pic_flag=flag,
        no_output_of_prior_pics_flag=flag,
        slice_pic_parameter_set_id=u32,
        dependent_slice_segment_flag=flag,
        slice_segment_address=u32,
        slice_type=u32,
        pic_output_flag=flag,
        colour_plane_id=u8,
        slice_pic_order_cnt_lsb=u32,
        short_term_ref_pic_set_sps_flag=flag,
        st_ref_pic_set=h265_st_ref_pic_set,
        short_term_ref_pic_set_idx=u32,
        num_long_term_sps=u32,
        num_long_term_pics=u32,
        lt_idx_sps=Array(u32),
        poc_lsb_lt=Array(u32),
        used_by_curr_pic_lt_flag=Bits(),
        delta_poc_msb_present_flag=Bits(),
        delta_poc_msb_cycle_lt=Array(u32),
        slice_temporal_mvp_enabled_flag=flag,
        slice_sao_luma_flag=flag,
        slice_sao_chroma_flag=flag,
        num_ref_idx_active_override_flag=flag,
        num_ref_idx_l0_active_minus1=u32,
        num_ref_idx_l1_active_minus1=u32,
        ref_pic_lists_modification=h265_ref_pic_lists_modification,
        NumPicTotalCurr=u32,
        CurrRpsIdx=u32,
        valid=flag,
        mvd_l1_zero_flag=flag,
        cabac_init_flag=flag,
        collocated_from_l0_flag=flag,
        collocated_ref_idx=u32,
        pred_weight_table=h265_pred_weight_table,
        five_minus_max_num_merge_cand=u32,
        use_integer_mv_flag=flag,
        slice_qp_delta=i32,
        slice_cb_qp_offset=i32,
        slice_cr_qp_offset=i32,
        slice_act_y_qp_offset=i32,
        slice_act_cb_qp_offset=i32,
        slice_act_cr_qp_offset=i32,
        cu_chroma_qp_offset_enabled_flag=flag,
        deblocking_filter_override_flag=flag,
        slice_deblocking_filter_disabled_flag=flag,
        slice_beta_offset_div2=i32,
        slice_tc_offset_div2=i32,
        slice_loop_filter_across_slices_enabled_flag=flag,
        num_entry_point_offsets=u32,
        offset_len_minus1=u32,
        entry_point_offset_minus1=Array(u32),
        slice_segment_header_extension_length=u32,
        slice_segment_header_extension_data_byte=Array(u8),
        slice_data_begin=u32,
    )
):
    __slots__ = ()

    def parse(self, r, pps_store, sps_store, vps_store, nal_unit_type):
        self.valid = False
        self.first_slice_segment_in_pic_flag = r.flag("first_slice_segment_in_pic_flag")
        if 16 <= nal_unit_type <= 23:
            self.no_output_of_prior_pics_flag = r.flag()
        else:
            self.no_output_of_prior_pics_flag = False
        self.slice_pic_parameter_set_id = r.ue("slice_pic_parameter_set_id")

        pps = pps_store.map.get(self.slice_pic_parameter_set_id)
        if pps is None:
            return False
        sps = sps_store.map.get(pps.pps_seq_parameter_set_id)
        if sps is None:
            return False
        if sps.sps_video_parameter_set_id not in vps_store.map:
            return False

        self.NumPicTotalCurr = 0
        self.CurrRpsIdx = sps.num_short_term_ref_pic_sets
        self.num_ref_idx_l0_active_minus1 = pps.num_ref_idx_l0_default_active_minus1
        self.num_ref_idx_l1_active_minus1 = pps.num_ref_idx_l1_default_active_minus1

        if not self.first_slice_segment_in_pic_flag:
            if pps.dependent_slice_segments_enabled_flag:
                self.dependent_slice_segment_flag = r.flag("dependent_slice_segment_flag")
            else:
                self.dependent_slice_segment_flag = False
            size = picture_size_in_ctbs(sps)
            if size == 0:
                return False
            self.slice_segment_address = r.u(bit_length(size))
        if self.dependent_slice_segment_flag:
            self.valid = True
            return True

        for _ in range(pps.num_extra_slice_header_bits):
            r.skip(1)
        self.slice_type = r.ue("slice_type")
        if pps.output_flag_present_flag:
            self.pic_output_flag = r.flag()
        else:
            self.pic_output_flag = True
        if sps.separate_colour_plane_flag:
            self.colour_plane_id = r.u(2)

        if nal_unit_type not in (19, 20):
            self.slice_pic_order_cnt_lsb = r.u_v(sps.log2_max_pic_order_cnt_lsb_minus4 + 4)
            self.short_term_ref_pic_set_sps_flag = r.flag("short_term_ref_pic_set_sps_flag")
            count = sps.num_short_term_ref_pic_sets
            if not self.short_term_ref_pic_set_sps_flag:
                if not self.st_ref_pic_set.parse(r, sps, count, sps.st_ref_pic_set):
                    return False
            else:
                if count > 1:
                    self.short_term_ref_pic_set_idx = r.u(
                        bit_length(count), "short_term_ref_pic_set_idx"
                    )
                self.CurrRpsIdx = self.short_term_ref_pic_set_idx
            if sps.long_term_ref_pics_present_flag:
                if not self.long_term_pictures(r, sps):
                    return False

        if sps.sample_adaptive_offset_enabled_flag:
            self.slice_sao_luma_flag = r.flag()
            if not sps.separate_colour_plane_flag and sps.chroma_format_idc != 0:
                self.slice_sao_chroma_flag = r.flag()

        if self.slice_type > 1:
            self.valid = True
            return True

        self.num_ref_idx_active_override_flag = r.flag("num_ref_idx_active_override_flag")
        if self.num_ref_idx_active_override_flag:
            self.num_ref_idx_l0_active_minus1 = r.ue("num_ref_idx_active_minus1")
            if self.slice_type == 0:
                self.num_ref_idx_l1_active_minus1 = r.ue("num_ref_idx_active_minus1")

        self.count_pictures(sps)
        if pps.lists_modification_present_flag and self.NumPicTotalCurr > 1:
            if not self.ref_pic_lists_modification.parse(r, self):
                return False
        self.valid = True
        return True

    def long_term_pictures(self, r, sps):
        if sps.num_long_term_ref_pics_sps != 0:
            self.num_long_term_sps = r.ue("num_long_term_sps")
        self.num_long_term_pics = r.ue("num_long_term_pics")
        count = (self.num_long_term_sps + self.num_long_term_pics) & MASK32
        if count > ENTRY_LIMIT:
            if sps.num_long_term_ref_pics_sps == 0:
                return False
            raise BadAlloc
        resize(self.lt_idx_sps, count, zero)
        resize(self.poc_lsb_lt, count, zero)
        resize(self.used_by_curr_pic_lt_flag, count, false)
        resize(self.delta_poc_msb_present_flag, count, false)
        resize(self.delta_poc_msb_cycle_lt, count, zero)
        if count > 0:
            self.lt_idx_sps[0] = 0
            self.poc_lsb_lt[0] = 0
            self.used_by_curr_pic_lt_flag[0] = False
            self.delta_poc_msb_present_flag[0] = False
            self.delta_poc_msb_cycle_lt[0] = 0
        if sps.num_long_term_ref_pics_sps == 0:
            return False

        index_width = 0
        if sps.num_long_term_ref_pics_sps > 1:
            index_width = bit_length(sps.num_long_term_ref_pics_sps)
        lsb_width = (sps.log2_max_pic_order_cnt_lsb_minus4 + 4) & 0xFF
        for i in range(count):
            if r.exhausted() and count - i > 64:
                self.long_term_zeros(r, i, count, index_width, lsb_width)
                break
            if i < self.num_long_term_sps:
                if index_width:
                    self.lt_idx_sps[i] = r.u(index_width)
            else:
                self.poc_lsb_lt[i] = r.u(lsb_width)
                self.used_by_curr_pic_lt_flag[i] = r.flag()
            self.delta_poc_msb_present_flag[i] = r.flag("delta_poc_msb_present_flag")
            if self.delta_poc_msb_present_flag[i]:
                self.delta_poc_msb_cycle_lt[i] = r.ue()
        if sps.sps_temporal_mvp_enabled_flag:
            self.slice_temporal_mvp_enabled_flag = r.flag()
        return True

    def long_term_zeros(self, r, first, count, index_width, lsb_width):
        """The entries from `first` on, all of them past the end of the data."""
        middle = min(max(first, self.num_long_term_sps), count)
        if index_width:
            self.lt_idx_sps[first:middle] = [0] * (middle - first)
        r.skip((middle - first) * (index_width + 1))
        self.poc_lsb_lt[middle:] = [0] * (count - middle)
        self.used_by_curr_pic_lt_flag[middle:] = [False] * (count - middle)
        r.skip((count - middle) * (lsb_width + 2))
        self.delta_poc_msb_present_flag[first:] = [False] * (count - first)

    def count_pictures(self, sps):
        pictures = self.st_ref_pic_set
        if self.CurrRpsIdx < sps.num_short_term_ref_pic_sets:
            if self.CurrRpsIdx < len(sps.st_ref_pic_set):
                pictures = sps.st_ref_pic_set[self.CurrRpsIdx]
            else:
                pictures = h265_st_ref_pic_set()  # of an SPS that was not read to its end
        long_term = (self.num_long_term_sps + self.num_long_term_pics) & MASK32
        self.NumPicTotalCurr = (
            used_pictures(pictures.num_negative_pics, pictures.used_by_curr_pic_s0_flag)
            + used_pictures(pictures.num_positive_pics, pictures.used_by_curr_pic_s1_flag)
            + used_pictures(long_term, sps.used_by_curr_pic_lt_sps_flag)
        )

    def text(self):
        return [SLICE_TYPES[self.slice_type] if self.slice_type < 3 else "?"]
