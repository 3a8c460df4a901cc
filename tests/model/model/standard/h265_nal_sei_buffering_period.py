"""buffering_period(), H.265 clauses D.2.2 and D.3.2."""


def parse(period, r, sps_store):
    period.reset()
    period.bp_seq_parameter_set_id = r.ue("bp_seq_parameter_set_id")
    if period.bp_seq_parameter_set_id > 15:
        return False
    sps = sps_store.map.get(period.bp_seq_parameter_set_id)
    if sps is None:
        return False
    hrd = sps.vui_parameters.hrd_parameters
    if not hrd.cpb_cnt_minus1:
        return False
    period.CpbCnt = hrd.cpb_cnt_minus1[-1] + 1
    if period.CpbCnt > 32:
        return False

    au_width = hrd.au_cpb_removal_delay_length_minus1 + 1
    if not hrd.sub_pic_hrd_params_present_flag:
        period.irap_cpb_params_present_flag = r.flag()
    if period.irap_cpb_params_present_flag:
        period.cpb_delay_offset = r.u(au_width)
        period.dpb_delay_offset = r.u(hrd.dpb_output_delay_length_minus1 + 1)
    period.concatenation_flag = r.flag()
    period.au_cpb_removal_delay_delta_minus1 = r.u(au_width)
    period.NalHrdBpPresentFlag = hrd.nal_hrd_parameters_present_flag
    period.VclHrdBpPresentFlag = hrd.vcl_hrd_parameters_present_flag
    if period.NalHrdBpPresentFlag:
        initial_removal(period, "nal_initial_", r, hrd)
    if period.VclHrdBpPresentFlag:
        initial_removal(period, "vcl_initial_", r, hrd)
    period.use_alt_cpb_params_flag_present = r.more_rbsp_data()
    if period.use_alt_cpb_params_flag_present:
        period.use_alt_cpb_params_flag = r.flag()
    period.valid = r.in_data()
    return period.valid


def initial_removal(period, prefix, r, hrd):
    width = hrd.initial_cpb_removal_delay_length_minus1 + 1
    alternative = hrd.sub_pic_hrd_params_present_flag or period.irap_cpb_params_present_flag
    for _ in range(period.CpbCnt):
        for name, present in (
            ("cpb_removal_delay", True),
            ("cpb_removal_offset", True),
            ("alt_cpb_removal_delay", alternative),
            ("alt_cpb_removal_offset", alternative),
        ):
            getattr(period, prefix + name).append(r.u(width) if present else 0)
