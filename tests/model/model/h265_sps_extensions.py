"""The extensions of an SPS, H.265 clauses 7.3.2.2.2, 7.3.2.2.3, F.7.3.2.2.4 and I.7.3.2.2.5."""

from .record import Array, Fixed, fields, flag, u8, u32

RANGE_FLAGS = (
    "transform_skip_rotation_enabled_flag",
    "transform_skip_context_enabled_flag",
    "implicit_rdpcm_enabled_flag",
    "explicit_rdpcm_enabled_flag",
    "extended_precision_processing_flag",
    "intra_smoothing_disabled_flag",
    "high_precision_offsets_enabled_flag",
    "persistent_rice_adaptation_enabled_flag",
    "cabac_bypass_alignment_enabled_flag",
)


class h265_sps_range_extension(fields(**{name: flag for name in RANGE_FLAGS})):
    __slots__ = ()


class h265_sps_multilayer_extension(fields(inter_view_mv_vert_constraint_flag=flag)):
    __slots__ = ()


class h265_sps_3d_extension(
    fields(
        iv_di_mc_enabled_flag=Fixed(flag, 2),
        iv_mv_scal_enabled_flag=Fixed(flag, 2),
        log2_ivmc_sub_pb_size_minus3=Fixed(u32, 2),
        iv_res_pred_enabled_flag=Fixed(flag, 2),
        depth_ref_enabled_flag=Fixed(flag, 2),
        vsp_mc_enabled_flag=Fixed(flag, 2),
        dbbp_enabled_flag=Fixed(flag, 2),
        tex_mc_enabled_flag=Fixed(flag, 2),
        log2_texmc_sub_pb_size_minus3=Fixed(u32, 2),
        intra_contour_enabled_flag=Fixed(flag, 2),
        intra_dc_only_wedge_enabled_flag=Fixed(flag, 2),
        cqt_cu_part_pred_enabled_flag=Fixed(flag, 2),
        inter_dc_only_enabled_flag=Fixed(flag, 2),
        skip_intra_enabled_flag=Fixed(flag, 2),
    )
):
    __slots__ = ()


class h265_sps_scc_extension(
    fields(
        sps_curr_pic_ref_enabled_flag=flag,
        palette_mode_enabled_flag=flag,
        palette_max_size=u32,
        delta_palette_max_predictor_size=u32,
        sps_palette_predictor_initializers_present_flag=flag,
        sps_num_palette_predictor_initializers_minus1=u32,
        sps_palette_predictor_initializer=Fixed(Array(u32), 3),
        motion_vector_resolution_control_idc=u8,
        intra_boundary_filtering_disabled_flag=flag,
    )
):
    __slots__ = ()
