"""Views and their depth."""

from .table import payload


def mantissa_bits(exponent, precision):
    return max(0, exponent + precision - 31 if exponent else precision - 30)


@payload(176)
def three_dimensional_reference_displays_info(s, around):
    width_precision = s.ue("prec_ref_display_width", top=40)
    distances = s.u(1, "ref_viewing_distance_flag")
    if distances:
        distance_precision = s.ue("prec_ref_viewing_dist", top=40)
    for i in range(s.ue("num_ref_displays_minus1", top=3) + 1):
        s.ue("left_view_id", i)
        s.ue("right_view_id", i)
        exponent = s.u(6, "exponent_ref_display_width", i)
        s.u(mantissa_bits(exponent, width_precision), "mantissa_ref_display_width", i)
        if distances:
            exponent = s.u(6, "exponent_ref_viewing_distance", i)
            s.u(mantissa_bits(exponent, distance_precision), "mantissa_ref_viewing_distance", i)
        if s.u(1, "additional_shift_present_flag", i):
            s.u(10, "num_sample_shift_plus512", i)
    s.u(1, "three_dimensional_reference_displays_extension_flag")


@payload(177)
def depth_representation_info(s, around):
    present = [s.u(1, name) for name in ("z_near_flag", "z_far_flag", "d_min_flag", "d_max_flag")]
    kind = s.ue("depth_representation_type", top=4)
    if present[2] or present[3]:
        s.ue("disparity_ref_view_id")
    for _ in range(sum(present)):
        s.u(1, "da_sign_flag")
        s.u(7, "da_exponent")
        s.u(s.u(5, "da_mantissa_len_minus1") + 1, "da_mantissa")
    if kind == 3:
        last = s.ue("depth_nonlinear_representation_num_minus1", top=4) + 1
        for i in range(1, last + 1):
            s.ue("depth_nonlinear_representation_model", i)


@payload(178)
def multiview_scene_info(s, around):
    s.se("min_disparity")
    s.ue("max_disparity_range")


def real(s, what, precision, *indices):
    s.u(1, f"sign_{what}", *indices)
    exponent = s.u(6, f"exponent_{what}", *indices)
    s.u(mantissa_bits(exponent, precision), f"mantissa_{what}", *indices)


@payload(179)
def multiview_acquisition_info(s, around):
    intrinsic = s.u(1, "intrinsic_param_flag")
    extrinsic = s.u(1, "extrinsic_param_flag")
    if intrinsic:
        equal = s.u(1, "intrinsic_params_equal_flag")
        focal = s.ue("prec_focal_length", top=40)
        principal = s.ue("prec_principal_point", top=40)
        skew = s.ue("prec_skew_factor", top=40)
        for i in range(1 if equal else around.views):
            real(s, "focal_length_x", focal, i)
            real(s, "focal_length_y", focal, i)
            real(s, "principal_point_x", principal, i)
            real(s, "principal_point_y", principal, i)
            real(s, "skew_factor", skew, i)
    if extrinsic:
        rotation = s.ue("prec_rotation_param", top=40)
        translation = s.ue("prec_translation_param", top=40)
        for i in range(around.views):
            for j in range(3):
                for k in range(3):
                    real(s, "r", rotation, i, j, k)
                real(s, "t", translation, i, j)


@payload(180)
def multiview_view_position(s, around):
    for i in range(s.ue("num_views_minus1", top=4) + 1):
        s.ue("view_position", i)


def real_gvd(s, what, precision, *indices):
    s.u(1, f"sign_gvd_{what}", *indices)
    exponent = s.u(6, f"exp_gvd_{what}", *indices)
    s.u(mantissa_bits(exponent, precision), f"man_gvd_{what}", *indices)


@payload(181)
def alternative_depth_info(s, around):
    if s.u(1, "alternative_depth_info_cancel_flag"):
        return
    kind = s.u(2, "depth_type")
    if kind == 0:
        global_view_and_depth(s)
    elif kind == 1:
        warping(s)


def global_view_and_depth(s):
    views = s.ue("num_constituent_views_gvd_minus1", top=3) + 2
    s.u(1, "depth_present_gvd_flag")
    z = s.u(1, "z_gvd_flag")
    intrinsic = s.u(1, "intrinsic_param_gvd_flag")
    rotations = s.u(1, "rotation_gvd_flag")
    translations = s.u(1, "translation_gvd_flag")
    for i in range(views if z else 0):
        for what in ("z_near", "z_far"):
            s.u(1, f"sign_gvd_{what}_flag", i)
            s.u(7, f"exp_gvd_{what}", i)
            s.u(s.u(5, f"man_len_gvd_{what}_minus1", i) + 1, f"man_gvd_{what}", i)
    if intrinsic:
        focal = s.ue("prec_gvd_focal_length", top=40)
        principal = s.ue("prec_gvd_principal_point", top=40)
    if rotations:
        rotation = s.ue("prec_gvd_rotation_param", top=40)
    if translations:
        translation = s.ue("prec_gvd_translation_param", top=40)
    for i in range(views if intrinsic or rotations or translations else 0):
        if intrinsic:
            real_gvd(s, "focal_length_x", focal, i)
            real_gvd(s, "focal_length_y", focal, i)
            real_gvd(s, "principal_point_x", principal, i)
            real_gvd(s, "principal_point_y", principal, i)
        if rotations:
            for j in range(3):
                for k in range(3):
                    real_gvd(s, "r", rotation, i, j, k)
        if translations:
            real_gvd(s, "t_x", translation, i)


def offsets(s, axis):
    s.se(f"min_offset_{axis}_int")
    s.u(8, f"min_offset_{axis}_frac")
    s.se(f"max_offset_{axis}_int")
    s.u(8, f"max_offset_{axis}_frac")


def warping(s):
    offsets(s, "x")
    if s.u(1, "offset_y_present_flag"):
        offsets(s, "y")
    if s.u(1, "warp_map_size_present_flag"):
        s.ue("warp_map_width_minus2")
        s.ue("warp_map_height_minus2")
