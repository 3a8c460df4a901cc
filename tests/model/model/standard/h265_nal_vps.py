"""video_parameter_set_rbsp(), H.265 clauses 7.3.2.1 and 7.4.3.1."""

from ..h265_hrd_parameters import h265_hrd_parameters
from . import h265_hrd_parameters as hrd_reading
from . import h265_profile_tier_level as ptl_reading
from . import ordering_info


def parse(vps, r):
    vps.reset()
    vps.first_elements(r)
    if not ptl_reading.parse(vps.profile_tier_level, True, vps.vps_max_sub_layers_minus1, r):
        return False
    vps.ordering_info(r)
    ordering_info.infer(
        vps.vps_sub_layer_ordering_info_present_flag,
        vps.vps_max_dec_pic_buffering_minus1,
        vps.vps_max_num_reorder_pics,
        vps.vps_max_latency_increase_plus1,
    )
    vps.vps_max_layer_id = r.u(6, "max_layer_id")
    vps.vps_num_layer_sets_minus1 = r.ue("vps_num_layer_sets_minus1")
    if vps.vps_num_layer_sets_minus1 > 1023:
        return False
    vps.layer_sets(r)
    vps.vps_timing_info_present_flag = r.flag("vps_timing_info_present_flag")
    if vps.vps_timing_info_present_flag:
        vps.timing_info(r)
        vps.vps_num_hrd_parameters = r.ue("vps_num_hrd_parameters")
        if vps.vps_num_hrd_parameters > 1024 or not hrd_structures(vps, r):
            return False
    vps.end(r)
    vps.valid = r.in_data()
    r.skip_rbsp_trailing_bits()
    return vps.valid


def hrd_structures(vps, r):
    before = None
    for i in range(vps.vps_num_hrd_parameters):
        vps.hrd_layer_set_idx.append(r.ue())
        vps.cprms_present_flag.append(i == 0 or r.flag("cprms_present_flag"))
        hrd = h265_hrd_parameters()
        vps.hrd_parameters.append(hrd)
        common = vps.cprms_present_flag[i]
        if not hrd_reading.parse(hrd, common, vps.vps_max_sub_layers_minus1, r, before):
            return False
        before = hrd
    return True
