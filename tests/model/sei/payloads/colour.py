"""Light, colour and grain."""

from ..elements import Refused
from .table import payload


@payload(19)
def film_grain_characteristics(s, around):
    if s.u(1, "film_grain_characteristics_cancel_flag"):
        return
    s.u(2, "film_grain_model_id")
    if s.u(1, "separate_colour_description_present_flag"):
        s.u(3, "film_grain_bit_depth_luma_minus8")
        s.u(3, "film_grain_bit_depth_chroma_minus8")
        s.u(1, "film_grain_full_range_flag")
        s.u(8, "film_grain_colour_primaries")
        s.u(8, "film_grain_transfer_characteristics")
        s.u(8, "film_grain_matrix_coeffs")
    s.u(2, "blending_mode_id")
    s.u(4, "log2_scale_factor")
    present = [s.u(1, "comp_model_present_flag", c) for c in range(3)]
    for c in range(3):
        if not present[c]:
            continue
        intervals = s.u(8, "num_intensity_intervals_minus1", c, top=3) + 1
        values = s.u(3, "num_model_values_minus1", c) + 1
        for i in range(intervals):
            s.u(8, "intensity_interval_lower_bound", c, i)
            s.u(8, "intensity_interval_upper_bound", c, i)
            for j in range(values):
                s.se("comp_model_value", c, i, j)
    s.u(1, "film_grain_characteristics_persistence_flag")


def whole_bytes(depth):
    return (depth + 7) >> 3 << 3


@payload(23)
def tone_mapping_info(s, around):
    s.ue("tone_map_id")
    if s.u(1, "tone_map_cancel_flag"):
        return
    s.u(1, "tone_map_persistence_flag")
    coded = s.u(8, "coded_data_bit_depth", top=17)
    target = s.u(8, "target_bit_depth", top=6)
    model = s.ue("tone_map_model_id", top=5)
    if model == 0:
        s.u(32, "min_value")
        s.u(32, "max_value")
    elif model == 1:
        s.u(32, "sigmoid_midpoint")
        s.u(32, "sigmoid_width")
    elif model == 2:
        if coded == 0 or coded > 32:
            raise Refused("values of no bits or more than 32")
        for i in range(1 << target):
            s.u(whole_bytes(coded), "start_of_coded_interval", i)
    elif model == 3:
        if coded > 32 or target > 32:
            raise Refused("values of more than 32 bits")
        for i in range(s.u(16, "num_pivots", top=5)):
            s.u(whole_bytes(coded), "coded_pivot_value", i)
            s.u(whole_bytes(target), "target_pivot_value", i)
    elif model == 4:
        if s.u(8, "camera_iso_speed_idc") == 255:
            s.u(32, "camera_iso_speed_value")
        if s.u(8, "exposure_index_idc") == 255:
            s.u(32, "exposure_index_value")
        s.u(1, "exposure_compensation_value_sign_flag")
        s.u(16, "exposure_compensation_value_numerator")
        s.u(16, "exposure_compensation_value_denom_idc")
        s.u(32, "ref_screen_luminance_white")
        s.u(32, "extended_range_white_level")
        s.u(16, "nominal_black_level_code_value")
        s.u(16, "nominal_white_level_code_value")
        s.u(16, "extended_white_level_code_value")


@payload(137)
def mastering_display_colour_volume(s, around):
    for c in range(3):
        s.u(16, "display_primaries_x", c)
        s.u(16, "display_primaries_y", c)
    s.u(16, "white_point_x")
    s.u(16, "white_point_y")
    s.u(32, "max_display_mastering_luminance")
    s.u(32, "min_display_mastering_luminance")


@payload(141)
def knee_function_info(s, around):
    s.ue("knee_function_id")
    if s.u(1, "knee_function_cancel_flag"):
        return
    s.u(1, "knee_function_persistence_flag")
    s.u(32, "input_d_range")
    s.u(32, "input_disp_luminance")
    s.u(32, "output_d_range")
    s.u(32, "output_disp_luminance")
    for i in range(s.ue("num_knee_points_minus1", top=4) + 1):
        s.u(10, "input_knee_point", i)
        s.u(10, "output_knee_point", i)


def look_up_tables(s, which, coded_bits, target_bits):
    for c in range(3):
        last = s.u(8, f"{which}_lut_num_val_minus1", c, top=3)
        for i in range(last + 1 if last else 0):
            s.u(coded_bits, f"{which}_lut_coded_value", c, i)
            s.u(target_bits, f"{which}_lut_target_value", c, i)


@payload(142)
def colour_remapping_info(s, around):
    s.ue("colour_remap_id")
    if s.u(1, "colour_remap_cancel_flag"):
        return
    s.u(1, "colour_remap_persistence_flag")
    if s.u(1, "colour_remap_video_signal_info_present_flag"):
        s.u(1, "colour_remap_full_range_flag")
        s.u(8, "colour_remap_primaries")
        s.u(8, "colour_remap_transfer_function")
        s.u(8, "colour_remap_matrix_coefficients")
    input_bits = whole_bytes(s.u(8, "colour_remap_input_bit_depth", top=17))
    output_bits = whole_bytes(s.u(8, "colour_remap_output_bit_depth", top=17))
    look_up_tables(s, "pre", input_bits, output_bits)
    if s.u(1, "colour_remap_matrix_present_flag"):
        s.u(4, "log2_matrix_denom")
        for c in range(3):
            for i in range(3):
                s.se("colour_remap_coeffs", c, i)
    look_up_tables(s, "post", output_bits, output_bits)


@payload(144)
def content_light_level_info(s, around):
    s.u(16, "max_content_light_level")
    s.u(16, "max_pic_average_light_level")


@payload(147)
def alternative_transfer_characteristics(s, around):
    s.u(8, "preferred_transfer_characteristics")


@payload(148)
def ambient_viewing_environment(s, around):
    s.u(32, "ambient_illuminance")
    s.u(16, "ambient_light_x")
    s.u(16, "ambient_light_y")


@payload(149)
def content_colour_volume(s, around):
    if s.u(1, "ccv_cancel_flag"):
        return
    s.u(1, "ccv_persistence_flag")
    primaries = s.u(1, "ccv_primaries_present_flag")
    present = {
        kind: s.u(1, f"ccv_{kind}_luminance_value_present_flag") for kind in ("min", "max", "avg")
    }
    s.u(2, "ccv_reserved_zero_2bits")
    for c in range(3 if primaries else 0):
        s.i(32, "ccv_primaries_x", c)
        s.i(32, "ccv_primaries_y", c)
    for kind in present:
        if present[kind]:
            s.u(32, f"ccv_{kind}_luminance_value")
