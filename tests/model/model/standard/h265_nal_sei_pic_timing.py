"""pic_timing(), H.265 clauses D.2.3 and D.3.3."""

from .arithmetic import size_in_ctbs

INTERLACED, PROGRESSIVE, UNKNOWN = 0, 1, 2
MAX_PIC_SIZE_IN_CTBS = 139264  # of 16x16 in a picture of level 6.2, table A.8


def scan_type(general):
    if general.progressive_source_flag == general.interlaced_source_flag:
        return UNKNOWN
    return PROGRESSIVE if general.progressive_source_flag else INTERLACED


def parse_store(timing, r, store):
    timing.reset()
    if store.active_id == store.NO_ID or store.active_id not in store.map:
        return False
    return parse(timing, r, store.map[store.active_id])


def parse(timing, r, sps):
    timing.reset()
    hrd = sps.vui_parameters.hrd_parameters
    if sps.vui_parameters.frame_field_info_present_flag:
        timing.pic_struct = r.u(4)
        timing.source_scan_type = r.u(2)
        timing.duplicate_flag = r.flag()
    else:
        timing.source_scan_type = scan_type(sps.profile_tier_level.general)
    timing.cpb_dpb_delays_present = (
        hrd.nal_hrd_parameters_present_flag or hrd.vcl_hrd_parameters_present_flag
    )
    if timing.cpb_dpb_delays_present:
        timing.au_cpb_removal_delay_minus1 = r.u(hrd.au_cpb_removal_delay_length_minus1 + 1)
        timing.pic_dpb_output_delay = r.u(hrd.dpb_output_delay_length_minus1 + 1)
        if hrd.sub_pic_hrd_params_present_flag:
            timing.pic_dpb_output_du_delay = r.u(hrd.dpb_output_delay_du_length_minus1 + 1)
            if hrd.sub_pic_cpb_params_in_pic_timing_sei_flag:
                if not decoding_units(timing, r, sps, hrd):
                    return False
    timing.valid = r.in_data()
    return timing.valid


def decoding_units(timing, r, sps, hrd):
    timing.du_info_present = True
    timing.num_decoding_units_minus1 = r.ue("num_decoding_units_minus1")
    across, down = size_in_ctbs(sps)
    n = timing.num_decoding_units_minus1 + 1
    if n > min(across * down, MAX_PIC_SIZE_IN_CTBS):
        return False
    width = hrd.du_cpb_removal_delay_increment_length_minus1 + 1
    timing.du_common_cpb_removal_delay_flag = r.flag()
    if timing.du_common_cpb_removal_delay_flag:
        timing.du_common_cpb_removal_delay_increment_minus1 = r.u(width)
    for i in range(n):
        timing.num_nalus_in_du_minus1.append(r.ue())
        own = not timing.du_common_cpb_removal_delay_flag and i + 1 < n
        timing.du_cpb_removal_delay_increment_minus1.append(r.u(width) if own else 0)
    return True
