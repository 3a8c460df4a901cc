"""Extensions of an SPS, H.265 clauses 7.3.2.2.2, 7.3.2.2.3, F.7.3.2.2.4 and I.7.3.2.2.5."""

from ..h265_sps_extensions import RANGE_FLAGS
from . import extension_data

MAX_PALETTE_PREDICTOR = 128
MAX_BIT_DEPTH = 16


def read(sps, r):
    bodies = (
        ("range_extension", range_extension),
        ("multilayer_extension", multilayer_extension),
        ("3d_extension", extension_3d),
        ("scc_extension", lambda extension, r: scc_extension(extension, r, sps)),
    )
    extension_data.read(sps, r, "sps", bodies)


def range_extension(extension, r):
    for name in RANGE_FLAGS:
        setattr(extension, name, r.flag())
    return True


def multilayer_extension(extension, r):
    extension.inter_view_mv_vert_constraint_flag = r.flag()
    return True


def extension_3d(extension, r):
    for d in (0, 1):
        extension.iv_di_mc_enabled_flag[d] = r.flag()
        extension.iv_mv_scal_enabled_flag[d] = r.flag()
        if d == 0:
            extension.log2_ivmc_sub_pb_size_minus3[d] = r.ue()
            extension.iv_res_pred_enabled_flag[d] = r.flag()
            extension.depth_ref_enabled_flag[d] = r.flag()
            extension.vsp_mc_enabled_flag[d] = r.flag()
            extension.dbbp_enabled_flag[d] = r.flag()
        else:
            extension.tex_mc_enabled_flag[d] = r.flag()
            extension.log2_texmc_sub_pb_size_minus3[d] = r.ue()
            extension.intra_contour_enabled_flag[d] = r.flag()
            extension.intra_dc_only_wedge_enabled_flag[d] = r.flag()
            extension.cqt_cu_part_pred_enabled_flag[d] = r.flag()
            extension.inter_dc_only_enabled_flag[d] = r.flag()
            extension.skip_intra_enabled_flag[d] = r.flag()
    return True


def scc_extension(extension, r, sps):
    extension.sps_curr_pic_ref_enabled_flag = r.flag()
    extension.palette_mode_enabled_flag = r.flag()
    if extension.palette_mode_enabled_flag and not palette_mode(extension, r, sps):
        return False
    extension.motion_vector_resolution_control_idc = r.u(2)
    extension.intra_boundary_filtering_disabled_flag = r.flag()
    return True


def palette_mode(extension, r, sps):
    extension.palette_max_size = r.ue()
    extension.delta_palette_max_predictor_size = r.ue()
    extension.sps_palette_predictor_initializers_present_flag = r.flag()
    if not extension.sps_palette_predictor_initializers_present_flag:
        return True
    minus1 = r.ue("num_palette_predictor_initializers")
    extension.sps_num_palette_predictor_initializers_minus1 = minus1
    luma = sps.bit_depth_luma_minus8 + 8
    chroma = sps.bit_depth_chroma_minus8 + 8
    if minus1 + 1 > MAX_PALETTE_PREDICTOR or max(luma, chroma) > MAX_BIT_DEPTH:
        return False
    # chroma_format_idc, not ChromaArrayType.
    widths = (luma,) if sps.chroma_format_idc == 0 else (luma, chroma, chroma)
    return extension_data.palette(
        extension.sps_palette_predictor_initializer, r, minus1 + 1, widths
    )
