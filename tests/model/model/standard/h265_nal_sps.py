"""seq_parameter_set_rbsp(), H.265 clauses 7.3.2.2 and 7.4.3.2."""

from ..h265_st_ref_pic_set import h265_st_ref_pic_set
from . import h265_profile_tier_level as ptl_reading
from . import h265_scaling_list_data as scaling_list_reading
from . import h265_sps_extensions as extensions
from . import h265_st_ref_pic_set as set_reading
from . import h265_vui_parameters as vui_reading
from . import ordering_info


def parse(sps, r):
    sps.reset()
    sps.sps_video_parameter_set_id = r.u(4, "sps_video_parameter_set_id")
    sps.sps_max_sub_layers_minus1 = r.u(3, "max_sub_layers_minus1")
    sps.sps_temporal_id_nesting_flag = r.flag()
    if not ptl_reading.parse(sps.profile_tier_level, True, sps.sps_max_sub_layers_minus1, r):
        return False
    sps.sps_seq_parameter_set_id = r.ue("sps_seq_parameter_set_id")
    if sps.sps_seq_parameter_set_id > 15:
        return False
    sps.picture_format(r)
    sps.log2_max_pic_order_cnt_lsb_minus4 = r.ue("log2_max_pic_order_cnt_lsb_minus4")
    if sps.log2_max_pic_order_cnt_lsb_minus4 > 12:
        return False
    sps.ordering_info(r)
    ordering_info.infer(
        sps.sps_sub_layer_ordering_info_present_flag,
        sps.sps_max_dec_pic_buffering_minus1,
        sps.sps_max_num_reorder_pics,
        sps.sps_max_latency_increase_plus1,
    )
    sps.block_sizes(r)
    sps.scaling_list_enabled_flag = r.flag()
    if sps.scaling_list_enabled_flag:
        sps.sps_scaling_list_data_present_flag = r.flag("scaling_list_data_present_flag")
    if sps.sps_scaling_list_data_present_flag:
        if not scaling_list_reading.parse(sps.scaling_list_data, r):
            return False
    sps.tools(r)
    if not reference_pictures(sps, r):
        return False
    sps.sps_temporal_mvp_enabled_flag = r.flag()
    sps.strong_intra_smoothing_enabled_flag = r.flag()
    sps.vui_parameters_present_flag = r.flag("vui_parameters_present_flag")
    if not sps.vui_parameters_present_flag:
        vui_reading.infer_absent(sps.vui_parameters, sps.profile_tier_level.general)
    elif not vui_reading.parse(sps.vui_parameters, r, sps):
        return False
    sps.sps_extension_flag = r.flag("extension_flag")
    if sps.sps_extension_flag:
        extensions.read(sps, r)
    sps.valid = r.in_data()
    r.skip_rbsp_trailing_bits()
    return sps.valid


def reference_pictures(sps, r):
    sps.num_short_term_ref_pic_sets = r.ue("num_short_term_ref_pic_sets")
    if sps.num_short_term_ref_pic_sets > 64:
        return False
    for idx in range(sps.num_short_term_ref_pic_sets):
        pictures = h265_st_ref_pic_set()
        if not set_reading.parse(pictures, r, sps, idx, sps.st_ref_pic_set):
            return False
        sps.st_ref_pic_set.append(pictures)
    sps.long_term_ref_pics_present_flag = r.flag("long_term_ref_pics_present_flag")
    if sps.long_term_ref_pics_present_flag:
        sps.num_long_term_ref_pics_sps = r.ue("num_long_term_ref_pics_sps")
        if sps.num_long_term_ref_pics_sps > 32:
            return False
        sps.long_term_candidates(r)
    return True
