"""vui_parameters(), H.265 clauses E.2.1 and E.3.1."""

from . import h265_hrd_parameters as hrd_reading


def parse(vui, r, sps):
    """Of `sps` only sps_max_sub_layers_minus1."""
    vui.reset()
    if not vui.read(
        r, lambda hrd: hrd_reading.parse(hrd, True, sps.sps_max_sub_layers_minus1, r)
    ):
        return False
    infer(vui)
    vui.valid = r.in_data()
    return vui.valid


def infer_absent(vui, general):
    """What holds without a VUI, by `general` of the profile, tier and level."""
    vui.reset()
    infer(vui)
    vui.frame_field_info_present_flag = (
        general.progressive_source_flag and general.interlaced_source_flag
    )


def infer(vui):
    if not vui.video_signal_type_present_flag:
        vui.video_format = 5
    if not vui.colour_description_present_flag:
        vui.colour_primaries = 2
        vui.transfer_characteristics = 2
        vui.matrix_coeffs = 2
    if not vui.bitstream_restriction_flag:
        vui.motion_vectors_over_pic_boundaries_flag = True
        vui.max_bytes_per_pic_denom = 2
        vui.max_bits_per_min_cu_denom = 1
        vui.log2_max_mv_length_horizontal = 15
        vui.log2_max_mv_length_vertical = 15
