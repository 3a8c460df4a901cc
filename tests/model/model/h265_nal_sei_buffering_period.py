"""buffering_period(), H.265 clause D.2.2."""

from .bits import MASK32
from .record import Array, fields, flag, resize, u32, zero


class h265_nal_sei_buffering_period(
    fields(
        bp_seq_parameter_set_id=u32,
        irap_cpb_params_present_flag=flag,
        cpb_delay_offset=u32,
        dpb_delay_offset=u32,
        concatenation_flag=flag,
        au_cpb_removal_delay_delta_minus1=u32,
        nal_initial_cpb_removal_delay=Array(u32),
        nal_initial_cpb_removal_offset=Array(u32),
        nal_initial_alt_cpb_removal_delay=Array(u32),
        nal_initial_alt_cpb_removal_offset=Array(u32),
        vcl_initial_cpb_removal_delay=Array(u32),
        vcl_initial_cpb_removal_offset=Array(u32),
        vcl_initial_alt_cpb_removal_delay=Array(u32),
        vcl_initial_alt_cpb_removal_offset=Array(u32),
        use_alt_cpb_params_flag=flag,
        reserved_u32=u32,
        CpbCnt=u32,
        NalHrdBpPresentFlag=flag,
        VclHrdBpPresentFlag=flag,
        use_alt_cpb_params_flag_present=flag,
        valid=flag,
    )
):
    __slots__ = ()

    def parse(self, r, sps_store):
        self.bp_seq_parameter_set_id = r.ue("bp_seq_parameter_set_id")
        sps = sps_store.map.get(self.bp_seq_parameter_set_id)
        if sps is None:
            self.valid = False
            return False
        hrd = sps.vui_parameters.hrd_parameters
        au_width = hrd.au_cpb_removal_delay_length_minus1 + 1
        if not hrd.sub_pic_hrd_params_present_flag:
            self.irap_cpb_params_present_flag = r.flag()
        if self.irap_cpb_params_present_flag:
            self.cpb_delay_offset = r.u_v(au_width)
            self.dpb_delay_offset = r.u_v(hrd.dpb_output_delay_length_minus1 + 1)
        self.concatenation_flag = r.flag()
        self.au_cpb_removal_delay_delta_minus1 = r.u_v(au_width)

        self.reserved_u32 = 0
        if not hrd.cpb_cnt_minus1:
            return False
        self.CpbCnt = (hrd.cpb_cnt_minus1[0] + 1) & MASK32
        if self.CpbCnt > 128:
            return False
        alternative = hrd.sub_pic_hrd_params_present_flag or self.irap_cpb_params_present_flag

        self.NalHrdBpPresentFlag = hrd.nal_hrd_parameters_present_flag
        if self.NalHrdBpPresentFlag:
            self.initial_removal(
                r,
                hrd,
                alternative,
                self.nal_initial_cpb_removal_delay,
                self.nal_initial_cpb_removal_offset,
                self.nal_initial_alt_cpb_removal_delay,
                self.nal_initial_alt_cpb_removal_offset,
            )
        self.VclHrdBpPresentFlag = hrd.vcl_hrd_parameters_present_flag
        if self.VclHrdBpPresentFlag:
            self.initial_removal(
                r,
                hrd,
                alternative,
                self.vcl_initial_cpb_removal_delay,
                self.vcl_initial_cpb_removal_offset,
                self.vcl_initial_alt_cpb_removal_delay,
                self.vcl_initial_alt_cpb_removal_offset,
            )

        self.use_alt_cpb_params_flag_present = False
        if r.more_rbsp_data():
            self.use_alt_cpb_params_flag_present = True
            self.use_alt_cpb_params_flag = r.flag()
        self.valid = True
        return True

    def initial_removal(self, r, hrd, alternative, delay, offset, alt_delay, alt_offset):
        width = hrd.initial_cpb_removal_delay_length_minus1 + 1
        for array in (delay, offset, alt_delay, alt_offset):
            resize(array, self.CpbCnt, zero)
        for i in range(self.CpbCnt):
            delay[i] = r.u_v(width)
            offset[i] = r.u_v(width)
            if alternative:
                alt_delay[i] = r.u_v(width)
                alt_offset[i] = r.u_v(width)
