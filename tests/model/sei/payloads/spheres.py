"""Pictures of all directions."""

from .table import payload


@payload(150)
def equirectangular_projection(s, around):
    if s.u(1, "erp_cancel_flag"):
        return
    s.u(1, "erp_persistence_flag")
    guard_bands = s.u(1, "erp_guard_band_flag")
    s.u(2, "erp_reserved_zero_2bits")
    if guard_bands:
        s.u(3, "erp_guard_band_type")
        s.u(8, "erp_left_guard_band_width")
        s.u(8, "erp_right_guard_band_width")


@payload(151)
def cubemap_projection(s, around):
    if not s.u(1, "cmp_cancel_flag"):
        s.u(1, "cmp_persistence_flag")


@payload(152)
def fisheye_video_info(s, around):
    if s.u(1, "fisheye_cancel_flag"):
        return
    s.u(1, "fisheye_persistence_flag")
    s.u(3, "fisheye_view_dimension_idc")
    s.u(3, "fisheye_reserved_zero_3bits")
    for i in range(s.u(8, "fisheye_num_active_areas_minus1", top=3) + 1):
        s.u(32, "fisheye_circular_region_centre_x", i)
        s.u(32, "fisheye_circular_region_centre_y", i)
        for side in ("top", "left", "width", "height"):
            s.u(32, f"fisheye_rect_region_{side}", i)
        s.u(32, "fisheye_circular_region_radius", i)
        s.u(32, "fisheye_scene_radius", i)
        for angle in ("azimuth", "elevation", "tilt"):
            s.i(32, f"fisheye_camera_centre_{angle}", i)
        for axis in "xyz":
            s.u(32, f"fisheye_camera_centre_offset_{axis}", i)
        s.u(32, "fisheye_field_of_view", i)
        for j in range(s.u(16, "fisheye_num_polynomial_coeffs", i, top=4)):
            s.i(32, "fisheye_polynomial_coeff", i, j)


@payload(154)
def sphere_rotation(s, around):
    if s.u(1, "sphere_rotation_cancel_flag"):
        return
    s.u(1, "sphere_rotation_persistence_flag")
    s.u(6, "sphere_rotation_reserved_zero_6bits")
    for axis in ("yaw", "pitch", "roll"):
        s.i(32, f"{axis}_rotation")


@payload(155)
def regionwise_packing(s, around):
    if s.u(1, "rwp_cancel_flag"):
        return
    s.u(1, "rwp_persistence_flag")
    s.u(1, "constituent_picture_matching_flag")
    s.u(5, "rwp_reserved_zero_5bits")
    regions = s.u(8, "num_packed_regions", top=3)
    s.u(32, "proj_picture_width")
    s.u(32, "proj_picture_height")
    s.u(16, "packed_picture_width")
    s.u(16, "packed_picture_height")
    for i in range(regions):
        s.u(4, "rwp_reserved_zero_4bits", i)
        s.u(3, "rwp_transform_type", i)
        guard_bands = s.u(1, "rwp_guard_band_flag", i)
        for side in ("width", "height", "top", "left"):
            s.u(32, f"proj_region_{side}", i)
        for side in ("width", "height", "top", "left"):
            s.u(16, f"packed_region_{side}", i)
        if guard_bands:
            s.u(8, "rwp_left_guard_band_width", i)
            s.u(8, "rwp_right_guard_band_width", i)
            s.u(8, "rwp_top_guard_band_height", i)
            s.u(8, "rwp_bottom_guard_band_height", i)
            s.u(1, "rwp_guard_band_not_used_for_pred_flag", i)
            for j in range(4):
                s.u(3, "rwp_guard_band_type", i, j)
            s.u(3, "rwp_guard_band_reserved_zero_3bits", i)


@payload(156)
def omni_viewport(s, around):
    s.u(10, "omni_viewport_id")
    if s.u(1, "omni_viewport_cancel_flag"):
        return
    s.u(1, "omni_viewport_persistence_flag")
    for i in range(s.u(4, "omni_viewport_cnt_minus1", top=3) + 1):
        for angle in ("azimuth", "elevation", "tilt"):
            s.i(32, f"omni_viewport_{angle}_centre", i)
        s.u(32, "omni_viewport_hor_range", i)
        s.u(32, "omni_viewport_ver_range", i)
