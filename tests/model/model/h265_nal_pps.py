"""pic_parameter_set_rbsp(), H.265 clause 7.3.2.3."""

from .h265_pps_extensions import (
    h265_pps_3d_extension,
    h265_pps_multilayer_extension,
    h265_pps_range_extension,
    h265_pps_scc_extension,
)
from .h265_scaling_list_data import h265_scaling_list_data
from .record import Array, Bits, fields, flag, i32, resize, u8, u32, zero


class h265_nal_pps(
    fields(
        pps_pic_parameter_set_id=u32,
        pps_seq_parameter_set_id=u32,
        dependent_slice_segments_enabled_flag=flag,
        output_flag_present_flag=flag,
        num_extra_slice_header_bits=u8,
        sign_data_hiding_enabled_flag=flag,
        cabac_init_present_flag=flag,
        num_ref_idx_l0_default_active_minus1=u32,
        num_ref_idx_l1_default_active_minus1=u32,
        init_qp_minus26=i32,
        constrained_intra_pred_flag=flag,
        transform_skip_enabled_flag=flag,
        cu_qp_delta_enabled_flag=flag,
        diff_cu_qp_delta_depth=u32,
        pps_cb_qp_offset=i32,
        pps_cr_qp_offset=i32,
        pps_slice_chroma_qp_offsets_present_flag=flag,
        weighted_pred_flag=flag,
        weighted_bipred_flag=flag,
        transquant_bypass_enabled_flag=flag,
        tiles_enabled_flag=flag,
        entropy_coding_sync_enabled_flag=flag,
        num_tile_columns_minus1=u32,
        num_tile_rows_minus1=u32,
        uniform_spacing_flag=flag,
        column_width_minus1=Array(u32),
        row_height_minus1=Array(u32),
        loop_filter_across_tiles_enabled_flag=flag,
        pps_loop_filter_across_slices_enabled_flag=flag,
        deblocking_filter_control_present_flag=flag,
        deblocking_filter_override_enabled_flag=flag,
        pps_deblocking_filter_disabled_flag=flag,
        pps_beta_offset_div2=i32,
        pps_tc_offset_div2=i32,
        pps_scaling_list_data_present_flag=flag,
        scaling_list_data=h265_scaling_list_data,
        lists_modification_present_flag=flag,
        log2_parallel_merge_level_minus2=u32,
        slice_segment_header_extension_present_flag=flag,
        pps_extension_present_flag=flag,
        valid=flag,
        pps_range_extension_flag=flag,
        pps_multilayer_extension_flag=flag,
        pps_3d_extension_flag=flag,
        pps_scc_extension_flag=flag,
        pps_extension_4bits=u8,
        pps_range_extension=h265_pps_range_extension,
        pps_multilayer_extension=h265_pps_multilayer_extension,
        pps_3d_extension=h265_pps_3d_extension,
        pps_scc_extension=h265_pps_scc_extension,
        pps_extension_data_flag=Bits(),
    )
):
    __slots__ = ()

    @classmethod
    def scramble(cls, rng):
        """A host sets the flags of the extensions that it puts there."""
        pps = super().scramble(rng)
        for kind in ("range", "multilayer", "3d", "scc"):
            if not getattr(pps, f"pps_{kind}_extension_flag"):
                getattr(pps, f"pps_{kind}_extension").reset()
        return pps

    def parse(self, r, sps_store):
        self.valid = False
        self.pps_pic_parameter_set_id = r.ue("pps_pic_parameter_set_id")
        self.pps_seq_parameter_set_id = r.ue("pps_seq_parameter_set_id")
        sps = sps_store.map.get(self.pps_seq_parameter_set_id)
        if sps is None or not sps.valid:
            return False

        self.first_tools(r)
        self.num_ref_idx_l0_default_active_minus1 = r.ue("num_ref_idx_active_minus1")
        self.num_ref_idx_l1_default_active_minus1 = r.ue("num_ref_idx_active_minus1")
        self.quantisation(r)

        self.tiles_enabled_flag = r.flag("tiles_enabled_flag")
        self.entropy_coding_sync_enabled_flag = r.flag()
        if self.tiles_enabled_flag:
            self.num_tile_columns_minus1 = r.ue("num_tiles_minus1")
            self.num_tile_rows_minus1 = r.ue("num_tiles_minus1")
            self.uniform_spacing_flag = r.flag("uniform_spacing_flag")
            if not self.uniform_spacing_flag:
                if self.num_tile_columns_minus1 > 128:
                    return False
                resize(self.column_width_minus1, self.num_tile_columns_minus1, zero)
                if self.num_tile_rows_minus1 > 128:
                    return False
                self.tile_sizes(r)
            self.loop_filter_across_tiles_enabled_flag = r.flag()

        self.loop_filters(r)
        self.pps_scaling_list_data_present_flag = r.flag("scaling_list_data_present_flag")
        if self.pps_scaling_list_data_present_flag:
            if not self.scaling_list_data.parse(r):
                return False
        self.end(r)
        if self.pps_extension_present_flag:
            while r.more_rbsp_data():
                r.skip(1)
        self.valid = r.skip_rbsp_trailing_bits()
        return self.valid

    def first_tools(self, r):
        self.dependent_slice_segments_enabled_flag = r.flag()
        self.output_flag_present_flag = r.flag()
        self.num_extra_slice_header_bits = r.u(3)
        self.sign_data_hiding_enabled_flag = r.flag()
        self.cabac_init_present_flag = r.flag()

    def quantisation(self, r):
        self.init_qp_minus26 = r.se()
        self.constrained_intra_pred_flag = r.flag()
        self.transform_skip_enabled_flag = r.flag()
        self.cu_qp_delta_enabled_flag = r.flag()
        if self.cu_qp_delta_enabled_flag:
            self.diff_cu_qp_delta_depth = r.ue()
        else:
            self.diff_cu_qp_delta_depth = 0
        self.pps_cb_qp_offset = r.se()
        self.pps_cr_qp_offset = r.se()
        self.pps_slice_chroma_qp_offsets_present_flag = r.flag()
        self.weighted_pred_flag = r.flag()
        self.weighted_bipred_flag = r.flag()
        self.transquant_bypass_enabled_flag = r.flag()

    def tile_sizes(self, r):
        resize(self.column_width_minus1, self.num_tile_columns_minus1, zero)
        resize(self.row_height_minus1, self.num_tile_rows_minus1, zero)
        for i in range(self.num_tile_columns_minus1):
            self.column_width_minus1[i] = r.ue()
        for i in range(self.num_tile_rows_minus1):
            self.row_height_minus1[i] = r.ue()

    def loop_filters(self, r):
        self.pps_loop_filter_across_slices_enabled_flag = r.flag()
        self.deblocking_filter_control_present_flag = r.flag()
        if self.deblocking_filter_control_present_flag:
            self.deblocking_filter_override_enabled_flag = r.flag()
            self.pps_deblocking_filter_disabled_flag = r.flag()
            if not self.pps_deblocking_filter_disabled_flag:
                self.pps_beta_offset_div2 = r.se()
                self.pps_tc_offset_div2 = r.se()

    def end(self, r):
        self.lists_modification_present_flag = r.flag()
        self.log2_parallel_merge_level_minus2 = r.ue()
        self.slice_segment_header_extension_present_flag = r.flag()
        self.pps_extension_present_flag = r.flag("extension_flag")
