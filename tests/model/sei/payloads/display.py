"""Arrangements, turns and filters for the display."""

from .table import payload


@payload(45)
def frame_packing_arrangement(s, around):
    s.ue("frame_packing_arrangement_id")
    if not s.u(1, "frame_packing_arrangement_cancel_flag"):
        kind = s.u(7, "frame_packing_arrangement_type", top=6)
        quincunx = s.u(1, "quincunx_sampling_flag")
        s.u(6, "content_interpretation_type")
        s.u(1, "spatial_flipping_flag")
        s.u(1, "frame0_flipped_flag")
        s.u(1, "field_views_flag")
        s.u(1, "current_frame_is_frame0_flag")
        s.u(1, "frame0_self_contained_flag")
        s.u(1, "frame1_self_contained_flag")
        if not quincunx and kind != 5:
            s.u(4, "frame0_grid_position_x")
            s.u(4, "frame0_grid_position_y")
            s.u(4, "frame1_grid_position_x")
            s.u(4, "frame1_grid_position_y")
        s.u(8, "frame_packing_arrangement_reserved_byte")
        s.u(1, "frame_packing_arrangement_persistence_flag")
    s.u(1, "upsampled_aspect_ratio_flag")


@payload(47)
def display_orientation(s, around):
    if not s.u(1, "display_orientation_cancel_flag"):
        s.u(1, "hor_flip")
        s.u(1, "ver_flip")
        s.u(16, "anticlockwise_rotation")
        s.u(1, "display_orientation_persistence_flag")


@payload(56)
def green_metadata(s, around):
    kind = s.u(8, "green_metadata_type", top=2)
    if kind == 0:
        period = s.u(8, "period_type", top=4)
        if period == 2:
            s.u(16, "num_seconds")
        elif period == 3:
            s.u(16, "num_pictures")
        if s.u(8, "portion_non_zero_blocks_area"):
            s.u(8, "portion_8x8_blocks_in_non_zero_area")
            s.u(8, "portion_16x16_blocks_in_non_zero_area")
            s.u(8, "portion_32x32_blocks_in_non_zero_area")
        if s.u(8, "portion_intra_predicted_blocks_area") == 255:
            s.u(8, "portion_planar_blocks_in_intra_area")
            s.u(8, "portion_dc_blocks_in_intra_area")
            s.u(8, "portion_angular_hv_blocks_in_intra_area")
        else:
            s.u(8, "portion_blocks_a_c_d_n_filterings")
            s.u(8, "portion_blocks_h_b_filterings")
            s.u(8, "portion_blocks_f_i_k_q_filterings")
            s.u(8, "portion_blocks_j_filterings")
            s.u(8, "portion_blocks_e_g_p_r_filterings")
        s.u(8, "portion_deblocking_instances")
    elif kind == 1:
        s.u(8, "xsd_metric_type")
        s.u(16, "xsd_metric_value")


@payload(138)
def segmented_rect_frame_packing_arrangement(s, around):
    if not s.u(1, "segmented_rect_frame_packing_arrangement_cancel_flag"):
        s.u(2, "segmented_rect_content_interpretation_type")
        s.u(1, "segmented_rect_frame_packing_arrangement_persistence_flag")


@payload(140)
def chroma_resampling_filter_hint(s, around):
    vertical = s.u(8, "ver_chroma_filter_idc", top=2)
    horizontal = s.u(8, "hor_chroma_filter_idc", top=2)
    s.u(1, "ver_filtering_field_processing_flag")
    if vertical != 1 and horizontal != 1:
        return
    s.ue("target_format_idc")
    for wanted, way, short in ((vertical, "vertical", "ver"), (horizontal, "horizontal", "hor")):
        if wanted != 1:
            continue
        for i in range(s.ue(f"num_{way}_filters", top=3)):
            for j in range(s.ue(f"{short}_tap_length_minus1", i, top=5) + 1):
                s.se(f"{short}_filter_coeff", i, j)


@payload(165)
def alpha_channel_info(s, around):
    if s.u(1, "alpha_channel_cancel_flag"):
        return
    s.u(3, "alpha_channel_use_idc")
    bits = s.u(3, "alpha_channel_bit_depth_minus8") + 9
    s.u(bits, "alpha_transparent_value")
    s.u(bits, "alpha_opaque_value")
    s.u(1, "alpha_channel_incr_flag")
    if s.u(1, "alpha_channel_clip_flag"):
        s.u(1, "alpha_channel_clip_type_flag")


@payload(166)
def overlay_info(s, around):
    if s.u(1, "overlay_info_cancel_flag"):
        return
    s.ue("overlay_content_aux_id_minus128")
    s.ue("overlay_label_aux_id_minus128")
    s.ue("overlay_alpha_aux_id_minus128")
    label_bits = s.ue("overlay_element_label_value_length_minus8", top=60) + 8
    overlays = s.ue("num_overlays_minus1", top=3) + 1
    languages = []
    element_counts = []
    for i in range(overlays):
        s.ue("overlay_idx", i)
        languages.append(s.u(1, "language_overlay_present_flag", i))
        s.u(6, "overlay_content_layer_id", i)
        labels = s.u(1, "overlay_label_present_flag", i)
        if labels:
            s.u(6, "overlay_label_layer_id", i)
        if s.u(1, "overlay_alpha_present_flag", i):
            s.u(6, "overlay_alpha_layer_id", i)
        count = 0
        if labels:
            count = s.ue("num_overlay_elements_minus1", i, top=3) + 1
            for j in range(count):
                s.u(label_bits, "overlay_element_label_min", i, j)
                s.u(label_bits, "overlay_element_label_max", i, j)
        element_counts.append(count)
    s.align("overlay_zero_bit")
    for i in range(overlays):
        if languages[i]:
            s.text("overlay_language", i)
        s.text("overlay_name", i)
        for j in range(element_counts[i]):
            s.text("overlay_element_name", i, j)
    s.u(1, "overlay_info_persistence_flag")


@payload(212)
def phase_indication(s, around):
    s.u(8, "pi_hor_phase_num")
    s.u(8, "pi_hor_phase_den_minus1")
    s.u(8, "pi_ver_phase_num")
    s.u(8, "pi_ver_phase_den_minus1")
