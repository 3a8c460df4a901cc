"""hrd_parameters() and sub_layer_hrd_parameters(), H.265 clauses E.2.2 and E.2.3."""

from .bits import MASK32
from .record import Array, Bits, false, fields, flag, resize, u8, u32, zero


class h265_nal_sub_layer_hrd_parameters(
    fields(
        subLayerId=u32,
        cpb_count=u32,
        bit_rate_value_minus1=Array(u32),
        cpb_size_value_minus1=Array(u32),
        cpb_size_du_value_minus1=Array(u32),
        bit_rate_du_value_minus1=Array(u32),
        cbr_flag=Bits(),
        valid=flag,
    )
):
    __slots__ = ()

    def parse(self, sub_layer_id, cpb_count, hrd, r):
        self.valid = False
        self.subLayerId = sub_layer_id
        self.cpb_count = cpb_count
        if cpb_count > 128:
            return False
        self.specifications(cpb_count, hrd, r)
        self.valid = True
        return True

    def specifications(self, cpb_count, hrd, r):
        resize(self.bit_rate_value_minus1, cpb_count, zero)
        resize(self.cpb_size_value_minus1, cpb_count, zero)
        resize(self.cpb_size_du_value_minus1, cpb_count, zero)
        resize(self.bit_rate_du_value_minus1, cpb_count, zero)
        resize(self.cbr_flag, cpb_count, false)
        for i in range(cpb_count):
            self.bit_rate_value_minus1[i] = r.ue()
            self.cpb_size_value_minus1[i] = r.ue()
            if hrd.sub_pic_hrd_params_present_flag:
                self.cpb_size_du_value_minus1[i] = r.ue()
                self.bit_rate_du_value_minus1[i] = r.ue()
            self.cbr_flag[i] = r.flag()


class h265_hrd_parameters(
    fields(
        commonInfPresentFlag=flag,
        maxNumSubLayersMinus1=u32,
        nal_hrd_parameters_present_flag=flag,
        vcl_hrd_parameters_present_flag=flag,
        sub_pic_hrd_params_present_flag=flag,
        tick_divisor_minus2=u8,
        du_cpb_removal_delay_increment_length_minus1=u8,
        sub_pic_cpb_params_in_pic_timing_sei_flag=flag,
        dpb_output_delay_du_length_minus1=u8,
        bit_rate_scale=u8,
        cpb_size_scale=u8,
        cpb_size_du_scale=u8,
        initial_cpb_removal_delay_length_minus1=u8,
        au_cpb_removal_delay_length_minus1=u8,
        dpb_output_delay_length_minus1=u8,
        fixed_pic_rate_general_flag=Bits(),
        fixed_pic_rate_within_cvs_flag=Bits(),
        elemental_duration_in_tc_minus1=Array(u32),
        low_delay_hrd_flag=Bits(),
        cpb_cnt_minus1=Array(u32),
        nal_sub_layer_hrd=Array(h265_nal_sub_layer_hrd_parameters),
        vcl_sub_layer_hrd=Array(h265_nal_sub_layer_hrd_parameters),
        valid=flag,
    )
):
    __slots__ = ()

    def parse(self, common_inf_present_flag, max_num_sub_layers_minus1, r):
        self.valid = False
        self.commonInfPresentFlag = common_inf_present_flag
        self.maxNumSubLayersMinus1 = max_num_sub_layers_minus1
        self.initial_cpb_removal_delay_length_minus1 = 23
        self.au_cpb_removal_delay_length_minus1 = 23

        if common_inf_present_flag:
            self.common_information(r)

        # A host's 0xFFFFFFFF, whose successor would wrap, is refused as well.
        if max_num_sub_layers_minus1 > 127:
            return False
        self.resize_sub_layers(max_num_sub_layers_minus1 + 1)
        for i in range(max_num_sub_layers_minus1 + 1):
            self.sub_layer_rate(i, r)
            count = (self.cpb_cnt_minus1[i] + 1) & MASK32
            if self.nal_hrd_parameters_present_flag:
                if not self.nal_sub_layer_hrd[i].parse(i, count, self, r):
                    return False
            if self.vcl_hrd_parameters_present_flag:
                if not self.vcl_sub_layer_hrd[i].parse(i, count, self, r):
                    return False
        self.valid = True
        return True

    def common_information(self, r):
        self.nal_hrd_parameters_present_flag = r.flag("nal_hrd_parameters_present_flag")
        self.vcl_hrd_parameters_present_flag = r.flag("vcl_hrd_parameters_present_flag")
        if not (self.nal_hrd_parameters_present_flag or self.vcl_hrd_parameters_present_flag):
            return
        self.sub_pic_hrd_params_present_flag = r.flag("sub_pic_hrd_params_present_flag")
        if self.sub_pic_hrd_params_present_flag:
            self.tick_divisor_minus2 = r.u(8)
            self.du_cpb_removal_delay_increment_length_minus1 = r.u(5)
            self.sub_pic_cpb_params_in_pic_timing_sei_flag = r.flag()
            self.dpb_output_delay_du_length_minus1 = r.u(5)
        self.bit_rate_scale = r.u(4)
        self.cpb_size_scale = r.u(4)
        if self.sub_pic_hrd_params_present_flag:
            self.cpb_size_du_scale = r.u(4)
        self.initial_cpb_removal_delay_length_minus1 = r.u(5)
        self.au_cpb_removal_delay_length_minus1 = r.u(5)
        self.dpb_output_delay_length_minus1 = r.u(5)

    def resize_sub_layers(self, n):
        resize(self.fixed_pic_rate_general_flag, n, false)
        resize(self.fixed_pic_rate_within_cvs_flag, n, false)
        resize(self.elemental_duration_in_tc_minus1, n, zero)
        resize(self.low_delay_hrd_flag, n, false)
        resize(self.cpb_cnt_minus1, n, zero)
        resize(self.nal_sub_layer_hrd, n, h265_nal_sub_layer_hrd_parameters)
        resize(self.vcl_sub_layer_hrd, n, h265_nal_sub_layer_hrd_parameters)

    def sub_layer_rate(self, i, r):
        self.fixed_pic_rate_general_flag[i] = r.flag("fixed_pic_rate_general_flag")
        if self.fixed_pic_rate_general_flag[i]:
            self.fixed_pic_rate_within_cvs_flag[i] = True
        else:
            self.fixed_pic_rate_within_cvs_flag[i] = r.flag("fixed_pic_rate_within_cvs_flag")
        if self.fixed_pic_rate_within_cvs_flag[i]:
            self.elemental_duration_in_tc_minus1[i] = r.ue()
        else:
            self.low_delay_hrd_flag[i] = r.flag("low_delay_hrd_flag")
        if not self.low_delay_hrd_flag[i]:
            self.cpb_cnt_minus1[i] = r.ue("cpb_cnt_minus1")
