"""Extensions of a PPS, H.265 clauses 7.3.2.3.2, 7.3.2.3.3, F.7.3.2.3.4 to F.7.3.2.3.6, I.7.3.2.3.7
and I.7.3.2.3.8."""

from ..h265_pps_extensions import h265_delta_dlt, part_t
from . import extension_data
from .arithmetic import ceil_log2

MAX_PALETTE_PREDICTOR = 128
MAX_LAYER_ID = 62


def read(pps, r):
    bodies = (
        ("range_extension", lambda extension, r: range_extension(extension, r, pps)),
        ("multilayer_extension", multilayer_extension),
        ("3d_extension", extension_3d),
        ("scc_extension", scc_extension),
    )
    extension_data.read(pps, r, "pps", bodies)


def range_extension(extension, r, pps):
    if pps.transform_skip_enabled_flag:
        extension.log2_max_transform_skip_block_size_minus2 = r.ue()
    extension.cross_component_prediction_enabled_flag = r.flag()
    extension.chroma_qp_offset_list_enabled_flag = r.flag()
    if extension.chroma_qp_offset_list_enabled_flag:
        extension.diff_cu_chroma_qp_offset_depth = r.ue()
        extension.chroma_qp_offset_list_len_minus1 = r.ue("chroma_qp_offset_list_len_minus1")
        if extension.chroma_qp_offset_list_len_minus1 > 5:
            return False
        for _ in range(extension.chroma_qp_offset_list_len_minus1 + 1):
            extension.cb_qp_offset_list.append(r.se())
            extension.cr_qp_offset_list.append(r.se())
    extension.log2_sao_offset_scale_luma = r.ue()
    extension.log2_sao_offset_scale_chroma = r.ue()
    return True


SIDES = ("left", "top", "right", "bottom")


def multilayer_extension(extension, r):
    extension.poc_reset_info_present_flag = r.flag()
    extension.pps_infer_scaling_list_flag = r.flag()
    if extension.pps_infer_scaling_list_flag:
        extension.pps_scaling_list_ref_layer_id = r.u(6)
    extension.num_ref_loc_offsets = r.ue("num_ref_loc_offsets")
    if extension.num_ref_loc_offsets > MAX_LAYER_ID:
        return False
    for _ in range(extension.num_ref_loc_offsets):
        extension.ref_loc_offset_layer_id.append(r.u(6))
        for region in ("scaled_ref_layer", "ref_region"):
            present = r.flag()
            getattr(extension, region + "_offset_present_flag").append(present)
            for side in SIDES:
                getattr(extension, f"{region}_{side}_offset").append(r.se() if present else 0)
        present = r.flag()
        extension.resample_phase_set_present_flag.append(present)
        extension.phase_hor_luma.append(r.ue() if present else 0)
        extension.phase_ver_luma.append(r.ue() if present else 0)
        extension.phase_hor_chroma_plus8.append(r.ue() if present else 8)
        extension.phase_ver_chroma_plus8.append(r.ue() if present else 0)
    extension.colour_mapping_enabled_flag = r.flag()
    if extension.colour_mapping_enabled_flag:
        return colour_mapping_table(extension.colour_mapping_table, r)
    return True


def colour_mapping_table(table, r):
    table.num_cm_ref_layers_minus1 = r.ue("num_cm_ref_layers_minus1")
    if table.num_cm_ref_layers_minus1 > MAX_LAYER_ID - 1:
        return False
    for _ in range(table.num_cm_ref_layers_minus1 + 1):
        table.cm_ref_layer_id.append(r.u(6))
    table.cm_octant_depth = r.u(2, "cm_octant_depth")
    table.cm_y_part_num_log2 = r.u(2)
    table.luma_bit_depth_cm_input_minus8 = r.ue("bit_depth_cm_minus8")
    table.chroma_bit_depth_cm_input_minus8 = r.ue("bit_depth_cm_minus8")
    table.luma_bit_depth_cm_output_minus8 = r.ue("bit_depth_cm_minus8")
    table.chroma_bit_depth_cm_output_minus8 = r.ue("bit_depth_cm_minus8")
    # Those that decide how the rest is read.
    if table.cm_octant_depth > 1:
        return False
    if max(table.luma_bit_depth_cm_input_minus8, table.luma_bit_depth_cm_output_minus8) > 8:
        return False
    table.cm_res_quant_bits = r.u(2)
    table.cm_delta_flc_bits_minus1 = r.u(2)
    if table.cm_octant_depth == 1:
        table.cm_adapt_threshold_u_delta = r.se()
        table.cm_adapt_threshold_v_delta = r.se()
    octants(table, r, 0, 0, 0, 0, 1 << table.cm_octant_depth)
    return True


def octants(table, r, depth, idx_y, idx_cb, idx_cr, length):
    parts = 1 << table.cm_y_part_num_log2
    split = depth < table.cm_octant_depth and r.flag()
    if split:
        table.split_octant_flag = True
        half = length // 2
        for k in (0, 1):
            for m in (0, 1):
                for n in (0, 1):
                    octants(
                        table,
                        r,
                        depth + 1,
                        idx_y + parts * k * half,
                        idx_cb + m * half,
                        idx_cr + n * half,
                        half,
                    )
        return
    for i in range(parts):
        part = part_t()
        part.idxShiftY = idx_y + (i << (table.cm_octant_depth - depth))
        part.idxCb = idx_cb
        part.idxCr = idx_cr
        for j in range(4):
            part.coded_res_flag[j] = r.flag()
            if part.coded_res_flag[j]:
                coefficients(table, part, j, r)
        table.parts.append(part)


def coefficients(table, part, j, r):
    depths = table.luma_bit_depth_cm_input_minus8 - table.luma_bit_depth_cm_output_minus8
    width = 10 + depths - table.cm_res_quant_bits - (table.cm_delta_flc_bits_minus1 + 1)
    for c in range(3):
        part.res_coeff_q[j][c] = r.ue()
        part.res_coeff_r[j][c] = r.u(max(0, width))
        if part.res_coeff_q[j][c] or part.res_coeff_r[j][c]:
            part.res_coeff_s[j][c] = r.flag()


def extension_3d(extension, r):
    extension.dlts_present_flag = r.flag("dlts_present_flag")
    if not extension.dlts_present_flag:
        return True
    extension.pps_depth_layers_minus1 = r.u(6, "depth_layers_minus1")
    extension.pps_bit_depth_for_depth_layers_minus8 = r.u(4, "bit_depth_for_depth_layers_minus8")
    if extension.pps_bit_depth_for_depth_layers_minus8 > 8:
        return False
    for _ in range(extension.pps_depth_layers_minus1 + 1):
        dlt = r.flag()
        predicted = dlt and r.flag()
        by_flags = dlt and not predicted and r.flag()
        extension.dlt_flag.append(dlt)
        extension.dlt_pred_flag.append(predicted)
        extension.dlt_val_flags_present_flag.append(by_flags)
        extension.dlt_value_flag.append([])
        extension.delta_dlt.append(h265_delta_dlt())
        width = extension.pps_bit_depth_for_depth_layers_minus8 + 8
        if by_flags:
            if not r.holds(1 << width):
                return False
            extension.dlt_value_flag[-1] = [r.flag() for _ in range(1 << width)]
        elif dlt and not delta_dlt(extension.delta_dlt[-1], r, width):
            return False
    return True


def delta_dlt(delta, r, depth_width):
    delta.num_val_delta_dlt = r.u(depth_width, "num_val_delta_dlt")
    if delta.num_val_delta_dlt > 1:
        delta.max_diff = r.u(depth_width, "max_diff")
    delta.min_diff_minus1 = delta.max_diff - 1
    if delta.num_val_delta_dlt > 2 and delta.max_diff > 0:
        delta.min_diff_minus1 = r.u(ceil_log2(delta.max_diff + 1))
    if delta.num_val_delta_dlt > 0:
        delta.delta_dlt_val0 = r.u(depth_width)
    least = delta.min_diff_minus1 + 1
    if delta.max_diff > least:
        width = ceil_log2(delta.max_diff - least + 1)
        if not r.holds((delta.num_val_delta_dlt - 1) * width):
            return False
        values = [r.u(width) for _ in range(delta.num_val_delta_dlt - 1)]
        delta.delta_val_diff_minus_min = [0, *values]
    return True


def scc_extension(extension, r):
    extension.pps_curr_pic_ref_enabled_flag = r.flag()
    extension.residual_adaptive_colour_transform_enabled_flag = r.flag()
    if extension.residual_adaptive_colour_transform_enabled_flag:
        extension.pps_slice_act_qp_offsets_present_flag = r.flag()
        extension.pps_act_y_qp_offset_plus5 = r.se()
        extension.pps_act_cb_qp_offset_plus5 = r.se()
        extension.pps_act_cr_qp_offset_plus3 = r.se()
    extension.pps_palette_predictor_initializers_present_flag = r.flag()
    if not extension.pps_palette_predictor_initializers_present_flag:
        return True
    count = r.ue("num_palette_predictor_initializers")
    extension.pps_num_palette_predictor_initializers = count
    if count > MAX_PALETTE_PREDICTOR:
        return False
    if count == 0:
        return True
    extension.monochrome_palette_flag = r.flag()
    extension.luma_bit_depth_entry_minus8 = r.ue("bit_depth_entry_minus8")
    widths = [extension.luma_bit_depth_entry_minus8 + 8]
    if not extension.monochrome_palette_flag:
        extension.chroma_bit_depth_entry_minus8 = r.ue("bit_depth_entry_minus8")
        widths += [extension.chroma_bit_depth_entry_minus8 + 8] * 2
    if max(widths) > 16:
        return False
    return extension_data.palette(extension.pps_palette_predictor_initializer, r, count, widths)
