"""Times: buffering, display, clocks and shutters."""

from ..elements import Refused
from .table import payload


@payload(0)
def buffering_period(s, around):
    sps = around.sps_by_id.get(s.ue("bp_seq_parameter_set_id", top=2))
    hrd = around.hrd(sps) if sps else None
    if hrd is None:
        raise Refused("no HRD")
    alternative = hrd.sub_pic
    if not hrd.sub_pic:
        alternative = s.u(1, "irap_cpb_params_present_flag")
        if alternative:
            s.u(hrd.au_delay_bits, "cpb_delay_offset")
            s.u(hrd.dpb_delay_bits, "dpb_delay_offset")
    s.u(1, "concatenation_flag")
    s.u(hrd.au_delay_bits, "au_cpb_removal_delay_delta_minus1")
    for present, kind in ((hrd.nal, "nal"), (hrd.vcl, "vcl")):
        for i in range(around.cpb_count(hrd) if present else 0):
            s.u(hrd.initial_bits, f"{kind}_initial_cpb_removal_delay", i)
            s.u(hrd.initial_bits, f"{kind}_initial_cpb_removal_offset", i)
            if alternative:
                s.u(hrd.initial_bits, f"{kind}_initial_alt_cpb_removal_delay", i)
                s.u(hrd.initial_bits, f"{kind}_initial_alt_cpb_removal_offset", i)
    if s.payload_extension_present():
        s.u(1, "use_alt_cpb_params_flag")


@payload(1)
def pic_timing(s, around):
    sps = around.active_sps()
    hrd = around.hrd(sps)
    if sps.frame_field_info_present:
        s.u(4, "pic_struct")
        s.u(2, "source_scan_type")
        s.u(1, "duplicate_flag")
    if hrd is None or not (hrd.nal or hrd.vcl):
        return
    s.u(hrd.au_delay_bits, "au_cpb_removal_delay_minus1")
    s.u(hrd.dpb_delay_bits, "pic_dpb_output_delay")
    if not hrd.sub_pic:
        return
    s.u(hrd.dpb_du_delay_bits, "pic_dpb_output_du_delay")
    if not hrd.in_pic_timing:
        return
    last = s.ue("num_decoding_units_minus1", top=4)
    if last >= sps.ctbs:
        raise Refused("more decoding units than coding tree blocks")
    common = s.u(1, "du_common_cpb_removal_delay_flag")
    if common:
        s.u(hrd.du_delay_bits, "du_common_cpb_removal_delay_increment_minus1")
    for i in range(last + 1):
        s.ue("num_nalus_in_du_minus1", i)
        if not common and i < last:
            s.u(hrd.du_delay_bits, "du_cpb_removal_delay_increment_minus1", i)


@payload(130)
def decoding_unit_info(s, around):
    hrd = around.hrd(around.active_sps())
    if hrd is None or not hrd.sub_pic:
        raise Refused("no sub-picture HRD")
    s.ue("decoding_unit_idx")
    if not hrd.in_pic_timing:
        s.u(hrd.du_delay_bits, "du_spt_cpb_removal_delay_increment")
    if s.u(1, "dpb_output_du_delay_present_flag"):
        s.u(hrd.dpb_du_delay_bits, "pic_spt_dpb_output_du_delay")


@payload(136)
def time_code(s, around):
    for i in range(s.u(2, "num_clock_ts")):
        if not s.u(1, "clock_timestamp_flag", i):
            continue
        s.u(1, "units_field_based_flag", i)
        s.u(5, "counting_type", i)
        full = s.u(1, "full_timestamp_flag", i)
        s.u(1, "discontinuity_flag", i)
        s.u(1, "cnt_dropped_flag", i)
        s.u(9, "n_frames", i)
        if full:
            s.u(6, "seconds_value", i)
            s.u(6, "minutes_value", i)
            s.u(5, "hours_value", i)
        elif s.u(1, "seconds_flag", i):
            s.u(6, "seconds_value", i)
            if s.u(1, "minutes_flag", i):
                s.u(6, "minutes_value", i)
                if s.u(1, "hours_flag", i):
                    s.u(5, "hours_value", i)
        length = s.u(5, "time_offset_length", i)
        if length:
            s.i(length, "time_offset_value", i)


@payload(168)
def frame_field_info(s, around):
    s.u(4, "ffinfo_pic_struct")
    s.u(2, "ffinfo_source_scan_type")
    s.u(1, "ffinfo_duplicate_flag")


@payload(205)
def shutter_interval_info(s, around):
    s.u(32, "sii_time_scale")
    if s.u(1, "fixed_shutter_interval_within_clvs_flag"):
        s.u(32, "sii_num_units_in_shutter_interval")
    else:
        for i in range(s.u(3, "sii_max_sub_layers_minus1") + 1):
            s.u(32, "sub_layer_num_units_in_shutter_interval", i)
