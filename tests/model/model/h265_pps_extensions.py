"""The extensions of a PPS, H.265 clauses 7.3.2.3.2, 7.3.2.3.3, F.7.3.2.3.4 to F.7.3.2.3.6,
I.7.3.2.3.7 and I.7.3.2.3.8."""

from .record import Array, Bits, Fixed, fields, flag, i32, u8, u32


class h265_pps_range_extension(
    fields(
        log2_max_transform_skip_block_size_minus2=u32,
        cross_component_prediction_enabled_flag=flag,
        chroma_qp_offset_list_enabled_flag=flag,
        diff_cu_chroma_qp_offset_depth=u32,
        chroma_qp_offset_list_len_minus1=u32,
        cb_qp_offset_list=Array(i32),
        cr_qp_offset_list=Array(i32),
        log2_sao_offset_scale_luma=u32,
        log2_sao_offset_scale_chroma=u32,
    )
):
    __slots__ = ()


class part_t(
    fields(
        idxShiftY=u8,
        idxCb=u8,
        idxCr=u8,
        coded_res_flag=Fixed(flag, 4),
        res_coeff_q=Fixed(Fixed(u32, 3), 4),
        res_coeff_r=Fixed(Fixed(u32, 3), 4),
        res_coeff_s=Fixed(Fixed(flag, 3), 4),
    )
):
    __slots__ = ()


class h265_colour_mapping_table(
    fields(
        num_cm_ref_layers_minus1=u32,
        cm_ref_layer_id=Array(u8),
        cm_octant_depth=u8,
        cm_y_part_num_log2=u8,
        luma_bit_depth_cm_input_minus8=u32,
        chroma_bit_depth_cm_input_minus8=u32,
        luma_bit_depth_cm_output_minus8=u32,
        chroma_bit_depth_cm_output_minus8=u32,
        cm_res_quant_bits=u8,
        cm_delta_flc_bits_minus1=u8,
        cm_adapt_threshold_u_delta=i32,
        cm_adapt_threshold_v_delta=i32,
        split_octant_flag=flag,
        parts=Array(part_t),
    )
):
    __slots__ = ()


class h265_pps_multilayer_extension(
    fields(
        poc_reset_info_present_flag=flag,
        pps_infer_scaling_list_flag=flag,
        pps_scaling_list_ref_layer_id=u8,
        num_ref_loc_offsets=u32,
        ref_loc_offset_layer_id=Array(u8),
        scaled_ref_layer_offset_present_flag=Bits(),
        scaled_ref_layer_left_offset=Array(i32),
        scaled_ref_layer_top_offset=Array(i32),
        scaled_ref_layer_right_offset=Array(i32),
        scaled_ref_layer_bottom_offset=Array(i32),
        ref_region_offset_present_flag=Bits(),
        ref_region_left_offset=Array(i32),
        ref_region_top_offset=Array(i32),
        ref_region_right_offset=Array(i32),
        ref_region_bottom_offset=Array(i32),
        resample_phase_set_present_flag=Bits(),
        phase_hor_luma=Array(u32),
        phase_ver_luma=Array(u32),
        phase_hor_chroma_plus8=Array(u32),
        phase_ver_chroma_plus8=Array(u32),
        colour_mapping_enabled_flag=flag,
        colour_mapping_table=h265_colour_mapping_table,
    )
):
    __slots__ = ()


class h265_delta_dlt(
    fields(
        num_val_delta_dlt=u32,
        max_diff=u32,
        min_diff_minus1=i32,
        delta_dlt_val0=u32,
        delta_val_diff_minus_min=Array(u32),
    )
):
    __slots__ = ()


class h265_pps_3d_extension(
    fields(
        dlts_present_flag=flag,
        pps_depth_layers_minus1=u8,
        pps_bit_depth_for_depth_layers_minus8=u8,
        dlt_flag=Bits(),
        dlt_pred_flag=Bits(),
        dlt_val_flags_present_flag=Bits(),
        dlt_value_flag=Array(Bits()),
        delta_dlt=Array(h265_delta_dlt),
    )
):
    __slots__ = ()


class h265_pps_scc_extension(
    fields(
        pps_curr_pic_ref_enabled_flag=flag,
        residual_adaptive_colour_transform_enabled_flag=flag,
        pps_slice_act_qp_offsets_present_flag=flag,
        pps_act_y_qp_offset_plus5=i32,
        pps_act_cb_qp_offset_plus5=i32,
        pps_act_cr_qp_offset_plus3=i32,
        pps_palette_predictor_initializers_present_flag=flag,
        pps_num_palette_predictor_initializers=u32,
        monochrome_palette_flag=flag,
        luma_bit_depth_entry_minus8=u32,
        chroma_bit_depth_entry_minus8=u32,
        pps_palette_predictor_initializer=Fixed(Array(u32), 3),
    )
):
    __slots__ = ()
