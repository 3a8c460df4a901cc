"""vui_parameters(), H.265 clause E.2.1."""

from .h265_hrd_parameters import h265_hrd_parameters
from .record import fields, flag, u8, u16, u32

# Table E.1; reserved values have no ratio.
SAMPLE_ASPECT_RATIOS = (
    (0, 0),
    (1, 1),
    (12, 11),
    (10, 11),
    (16, 11),
    (40, 33),
    (24, 11),
    (20, 11),
    (32, 11),
    (80, 33),
    (18, 11),
    (15, 11),
    (64, 33),
    (160, 99),
    (4, 3),
    (3, 2),
    (2, 1),
)
EXTENDED_SAR = 255

# Table E.2.
VIDEO_FORMATS = ("Component", "PAL", "NTSC", "SECAM", "MAC", "Unspecified")


class h265_vui_parameters(
    fields(
        aspect_ratio_info_present_flag=flag,
        aspect_ratio_idc=u8,
        extended_sar_flag=flag,
        sar_width=u16,
        sar_height=u16,
        overscan_info_present_flag=flag,
        overscan_appropriate_flag=flag,
        video_signal_type_present_flag=flag,
        video_format=u8,
        video_full_range_flag=flag,
        colour_description_present_flag=flag,
        colour_primaries=u8,
        transfer_characteristics=u8,
        matrix_coeffs=u8,
        chroma_loc_info_present_flag=flag,
        chroma_sample_loc_type_top_field=u32,
        chroma_sample_loc_type_bottom_field=u32,
        neutral_chroma_indication_flag=flag,
        field_seq_flag=flag,
        frame_field_info_present_flag=flag,
        default_display_window_flag=flag,
        def_disp_win_left_offset=u32,
        def_disp_win_right_offset=u32,
        def_disp_win_top_offset=u32,
        def_disp_win_bottom_offset=u32,
        vui_timing_info_present_flag=flag,
        vui_num_units_in_tick=u32,
        vui_time_scale=u32,
        vui_poc_proportional_to_timing_flag=flag,
        vui_num_ticks_poc_diff_one_minus1=u32,
        vui_hrd_parameters_present_flag=flag,
        hrd_parameters=h265_hrd_parameters,
        bitstream_restriction_flag=flag,
        tiles_fixed_structure_flag=flag,
        motion_vectors_over_pic_boundaries_flag=flag,
        restricted_ref_pic_lists_flag=flag,
        min_spatial_segmentation_idc=u32,
        max_bytes_per_pic_denom=u32,
        max_bits_per_min_cu_denom=u32,
        log2_max_mv_length_horizontal=u32,
        log2_max_mv_length_vertical=u32,
        valid=flag,
    )
):
    __slots__ = ()

    def parse(self, r, sps):
        """Of `sps` only sps_max_sub_layers_minus1."""
        return self.read(r, lambda hrd: hrd.parse(True, sps.sps_max_sub_layers_minus1, r))

    def read(self, r, parse_hrd):
        self.valid = False
        self.aspect_ratio_info_present_flag = r.flag()
        if self.aspect_ratio_info_present_flag:
            self.aspect_ratio_idc = r.u(8, "aspect_ratio_idc")
            if self.aspect_ratio_idc == EXTENDED_SAR:
                self.extended_sar_flag = True
                self.sar_width = r.u(16)
                self.sar_height = r.u(16)
            elif self.aspect_ratio_idc < len(SAMPLE_ASPECT_RATIOS):
                self.sar_width, self.sar_height = SAMPLE_ASPECT_RATIOS[self.aspect_ratio_idc]
            else:
                self.sar_width = 0
                self.sar_height = 0

        self.overscan_info_present_flag = r.flag()
        if self.overscan_info_present_flag:
            self.overscan_appropriate_flag = r.flag()

        self.video_signal_type_present_flag = r.flag()
        if self.video_signal_type_present_flag:
            self.video_format = r.u(3)
            self.video_full_range_flag = r.flag()
            self.colour_description_present_flag = r.flag()
            if self.colour_description_present_flag:
                self.colour_primaries = r.u(8)
                self.transfer_characteristics = r.u(8)
                self.matrix_coeffs = r.u(8)

        self.chroma_loc_info_present_flag = r.flag()
        if self.chroma_loc_info_present_flag:
            self.chroma_sample_loc_type_top_field = r.ue()
            self.chroma_sample_loc_type_bottom_field = r.ue()

        self.neutral_chroma_indication_flag = r.flag()
        self.field_seq_flag = r.flag()
        self.frame_field_info_present_flag = r.flag()
        self.default_display_window_flag = r.flag()
        if self.default_display_window_flag:
            self.def_disp_win_left_offset = r.ue()
            self.def_disp_win_right_offset = r.ue()
            self.def_disp_win_top_offset = r.ue()
            self.def_disp_win_bottom_offset = r.ue()

        self.vui_timing_info_present_flag = r.flag("vui_timing_info_present_flag")
        if self.vui_timing_info_present_flag:
            self.vui_num_units_in_tick = r.u(32)
            self.vui_time_scale = r.u(32)
            self.vui_poc_proportional_to_timing_flag = r.flag()
            if self.vui_poc_proportional_to_timing_flag:
                self.vui_num_ticks_poc_diff_one_minus1 = r.ue()
            self.vui_hrd_parameters_present_flag = r.flag("vui_hrd_parameters_present_flag")
            if self.vui_hrd_parameters_present_flag:
                if not parse_hrd(self.hrd_parameters):
                    return False

        self.bitstream_restriction_flag = r.flag()
        if self.bitstream_restriction_flag:
            self.tiles_fixed_structure_flag = r.flag()
            self.motion_vectors_over_pic_boundaries_flag = r.flag()
            self.restricted_ref_pic_lists_flag = r.flag()
            self.min_spatial_segmentation_idc = r.ue()
            self.max_bytes_per_pic_denom = r.ue()
            self.max_bits_per_min_cu_denom = r.ue()
            self.log2_max_mv_length_horizontal = r.ue()
            self.log2_max_mv_length_vertical = r.ue()
        self.valid = True
        return True

    def text(self):
        known = self.video_format < len(VIDEO_FORMATS)
        return [VIDEO_FORMATS[self.video_format] if known else "?"]
