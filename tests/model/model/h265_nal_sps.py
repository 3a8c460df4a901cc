"""seq_parameter_set_rbsp(), H.265 clause 7.3.2.2."""

from .h265_profile_tier_level import h265_profile_tier_level
from .h265_scaling_list_data import h265_scaling_list_data
from .h265_sps_extensions import (
    h265_sps_3d_extension,
    h265_sps_multilayer_extension,
    h265_sps_range_extension,
    h265_sps_scc_extension,
)
from .h265_st_ref_pic_set import h265_st_ref_pic_set
from .h265_vui_parameters import h265_vui_parameters
from .record import Array, Bits, false, fields, flag, resize, u8, u32, zero


class h265_nal_sps(
    fields(
        sps_video_parameter_set_id=u8,
        sps_max_sub_layers_minus1=u8,
        sps_temporal_id_nesting_flag=flag,
        profile_tier_level=h265_profile_tier_level,
        sps_seq_parameter_set_id=u32,
        chroma_format_idc=u32,
        separate_colour_plane_flag=flag,
        pic_width_in_luma_samples=u32,
        pic_height_in_luma_samples=u32,
        conformance_window_flag=flag,
        conf_win_left_offset=u32,
        conf_win_right_offset=u32,
        conf_win_top_offset=u32,
        conf_win_bottom_offset=u32,
        bit_depth_luma_minus8=u32,
        bit_depth_chroma_minus8=u32,
        log2_max_pic_order_cnt_lsb_minus4=u32,
        sps_sub_layer_ordering_info_present_flag=flag,
        sps_max_dec_pic_buffering_minus1=Array(u32),
        sps_max_num_reorder_pics=Array(u32),
        sps_max_latency_increase_plus1=Array(u32),
        log2_min_luma_coding_block_size_minus3=u32,
        log2_diff_max_min_luma_coding_block_size=u32,
        log2_min_luma_transform_block_size_minus2=u32,
        log2_diff_max_min_luma_transform_block_size=u32,
        max_transform_hierarchy_depth_inter=u32,
        max_transform_hierarchy_depth_intra=u32,
        scaling_list_enabled_flag=flag,
        sps_scaling_list_data_present_flag=flag,
        scaling_list_data=h265_scaling_list_data,
        amp_enabled_flag=flag,
        sample_adaptive_offset_enabled_flag=flag,
        pcm_enabled_flag=flag,
        pcm_sample_bit_depth_luma_minus1=u8,
        pcm_sample_bit_depth_chroma_minus1=u8,
        log2_min_pcm_luma_coding_block_size_minus3=u32,
        log2_diff_max_min_pcm_luma_coding_block_size=u32,
        pcm_loop_filter_disabled_flag=flag,
        num_short_term_ref_pic_sets=u32,
        st_ref_pic_set=Array(h265_st_ref_pic_set),
        long_term_ref_pics_present_flag=flag,
        num_long_term_ref_pics_sps=u32,
        lt_ref_pic_poc_lsb_sps=Array(u32),
        used_by_curr_pic_lt_sps_flag=Bits(),
        sps_temporal_mvp_enabled_flag=flag,
        strong_intra_smoothing_enabled_flag=flag,
        vui_parameters_present_flag=flag,
        vui_parameters=h265_vui_parameters,
        sps_extension_flag=flag,
        valid=flag,
        sps_range_extension_flag=flag,
        sps_multilayer_extension_flag=flag,
        sps_3d_extension_flag=flag,
        sps_scc_extension_flag=flag,
        sps_extension_4bits=u8,
        sps_range_extension=h265_sps_range_extension,
        sps_multilayer_extension=h265_sps_multilayer_extension,
        sps_3d_extension=h265_sps_3d_extension,
        sps_scc_extension=h265_sps_scc_extension,
        sps_extension_data_flag=Bits(),
    )
):
    __slots__ = ()

    def parse(self, r, vps_store):
        self.valid = False
        self.sps_video_parameter_set_id = r.u(4, "sps_video_parameter_set_id")
        vps = vps_store.map.get(self.sps_video_parameter_set_id)
        if vps is None or not vps.valid:
            return False

        self.sps_max_sub_layers_minus1 = r.u(3, "max_sub_layers_minus1")
        self.sps_temporal_id_nesting_flag = r.flag()
        if not self.profile_tier_level.parse(True, self.sps_max_sub_layers_minus1, r):
            return False

        self.sps_seq_parameter_set_id = r.ue("sps_seq_parameter_set_id")
        self.picture_format(r)
        self.log2_max_pic_order_cnt_lsb_minus4 = r.ue("log2_max_pic_order_cnt_lsb_minus4")
        self.ordering_info(r)
        self.block_sizes(r)

        self.scaling_list_enabled_flag = r.flag()
        if self.scaling_list_enabled_flag:
            self.sps_scaling_list_data_present_flag = r.flag("scaling_list_data_present_flag")
            if self.sps_scaling_list_data_present_flag:
                if not self.scaling_list_data.parse(r):
                    return False
        self.tools(r)

        self.num_short_term_ref_pic_sets = r.ue("num_short_term_ref_pic_sets")
        if self.num_short_term_ref_pic_sets > 128:
            return False
        resize(self.st_ref_pic_set, self.num_short_term_ref_pic_sets, h265_st_ref_pic_set)
        for idx in range(self.num_short_term_ref_pic_sets):
            if not self.st_ref_pic_set[idx].parse(r, self, idx, self.st_ref_pic_set):
                return False

        self.long_term_ref_pics_present_flag = r.flag("long_term_ref_pics_present_flag")
        if self.long_term_ref_pics_present_flag:
            self.num_long_term_ref_pics_sps = r.ue("num_long_term_ref_pics_sps")
            if self.num_long_term_ref_pics_sps > 128:
                return False
            self.long_term_candidates(r)

        self.sps_temporal_mvp_enabled_flag = r.flag()
        self.strong_intra_smoothing_enabled_flag = r.flag()
        self.vui_parameters_present_flag = r.flag("vui_parameters_present_flag")
        if self.vui_parameters_present_flag:
            if not self.vui_parameters.parse(r, self):
                return False
        self.sps_extension_flag = r.flag("extension_flag")
        if self.sps_extension_flag:
            while r.more_rbsp_data():
                r.skip(1)
        self.valid = r.skip_rbsp_trailing_bits()
        return self.valid

    def picture_format(self, r):
        self.chroma_format_idc = r.ue("chroma_format_idc")
        if self.chroma_format_idc == 3:
            self.separate_colour_plane_flag = r.flag()
        self.pic_width_in_luma_samples = r.ue("picture_size")
        self.pic_height_in_luma_samples = r.ue("picture_size")
        self.conformance_window_flag = r.flag()
        if self.conformance_window_flag:
            self.conf_win_left_offset = r.ue()
            self.conf_win_right_offset = r.ue()
            self.conf_win_top_offset = r.ue()
            self.conf_win_bottom_offset = r.ue()
        self.bit_depth_luma_minus8 = r.ue()
        self.bit_depth_chroma_minus8 = r.ue()

    def ordering_info(self, r):
        self.sps_sub_layer_ordering_info_present_flag = r.flag()
        n = self.sps_max_sub_layers_minus1 + 1
        resize(self.sps_max_dec_pic_buffering_minus1, n, zero)
        resize(self.sps_max_num_reorder_pics, n, zero)
        resize(self.sps_max_latency_increase_plus1, n, zero)
        for i in range(0 if self.sps_sub_layer_ordering_info_present_flag else n - 1, n):
            self.sps_max_dec_pic_buffering_minus1[i] = r.ue()
            self.sps_max_num_reorder_pics[i] = r.ue()
            self.sps_max_latency_increase_plus1[i] = r.ue()

    def block_sizes(self, r):
        self.log2_min_luma_coding_block_size_minus3 = r.ue("log2_coding_block_size")
        self.log2_diff_max_min_luma_coding_block_size = r.ue("log2_coding_block_size")
        self.log2_min_luma_transform_block_size_minus2 = r.ue()
        self.log2_diff_max_min_luma_transform_block_size = r.ue()
        self.max_transform_hierarchy_depth_inter = r.ue()
        self.max_transform_hierarchy_depth_intra = r.ue()

    def tools(self, r):
        self.amp_enabled_flag = r.flag()
        self.sample_adaptive_offset_enabled_flag = r.flag()
        self.pcm_enabled_flag = r.flag()
        if self.pcm_enabled_flag:
            self.pcm_sample_bit_depth_luma_minus1 = r.u(4)
            self.pcm_sample_bit_depth_chroma_minus1 = r.u(4)
            self.log2_min_pcm_luma_coding_block_size_minus3 = r.ue()
            self.log2_diff_max_min_pcm_luma_coding_block_size = r.ue()
            self.pcm_loop_filter_disabled_flag = r.flag()

    def long_term_candidates(self, r):
        resize(self.lt_ref_pic_poc_lsb_sps, self.num_long_term_ref_pics_sps, zero)
        resize(self.used_by_curr_pic_lt_sps_flag, self.num_long_term_ref_pics_sps, false)
        for i in range(self.num_long_term_ref_pics_sps):
            self.lt_ref_pic_poc_lsb_sps[i] = r.u_v(self.log2_max_pic_order_cnt_lsb_minus4 + 4)
            self.used_by_curr_pic_lt_sps_flag[i] = r.flag()
