"""video_parameter_set_rbsp(), H.265 clause 7.3.2.1."""

from .h265_hrd_parameters import h265_hrd_parameters
from .h265_profile_tier_level import h265_profile_tier_level
from .record import Array, Bits, false, fields, flag, resize, u8, u16, u32, zero


class h265_nal_vps(
    fields(
        vps_video_parameter_set_id=u8,
        vps_base_layer_internal_flag=flag,
        vps_base_layer_available_flag=flag,
        vps_max_layers_minus1=u8,
        vps_max_sub_layers_minus1=u8,
        vps_temporal_id_nesting_flag=flag,
        vps_reserved_0xffff_16bits=u16,
        profile_tier_level=h265_profile_tier_level,
        vps_sub_layer_ordering_info_present_flag=flag,
        vps_max_dec_pic_buffering_minus1=Array(u32),
        vps_max_num_reorder_pics=Array(u32),
        vps_max_latency_increase_plus1=Array(u32),
        vps_max_layer_id=u8,
        vps_num_layer_sets_minus1=u32,
        layer_id_included_flag=Array(Bits()),
        vps_timing_info_present_flag=flag,
        vps_num_units_in_tick=u32,
        vps_time_scale=u32,
        vps_poc_proportional_to_timing_flag=flag,
        vps_num_ticks_poc_diff_one_minus1=u32,
        vps_num_hrd_parameters=u32,
        hrd_layer_set_idx=Array(u32),
        cprms_present_flag=Bits(),
        hrd_parameters=Array(h265_hrd_parameters),
        vps_extension_flag=flag,
        valid=flag,
    )
):
    __slots__ = ()

    def parse(self, r):
        self.first_elements(r)
        if not self.profile_tier_level.parse(True, self.vps_max_sub_layers_minus1, r):
            self.valid = False
            return False
        self.ordering_info(r)
        self.vps_max_layer_id = r.u(6)
        self.vps_num_layer_sets_minus1 = r.ue("vps_num_layer_sets_minus1")
        if self.vps_num_layer_sets_minus1 > 127:
            return False
        self.layer_sets(r)

        self.vps_timing_info_present_flag = r.flag("vps_timing_info_present_flag")
        if self.vps_timing_info_present_flag:
            self.timing_info(r)
            self.vps_num_hrd_parameters = r.ue("vps_num_hrd_parameters")
            if self.vps_num_hrd_parameters != 0:
                if self.vps_num_hrd_parameters > 128:
                    return False
                resize(self.hrd_layer_set_idx, self.vps_num_hrd_parameters, zero)
                resize(self.cprms_present_flag, self.vps_num_hrd_parameters, false)
                resize(self.hrd_parameters, self.vps_num_hrd_parameters, h265_hrd_parameters)
                for i in range(self.vps_num_hrd_parameters):
                    self.hrd_layer_set_idx[i] = r.ue()
                    if i > 0:
                        self.cprms_present_flag[i] = r.flag("cprms_present_flag")
                    self.hrd_parameters[i].parse(
                        self.cprms_present_flag[i], self.vps_max_sub_layers_minus1, r
                    )
                    if not self.hrd_parameters[i].valid:
                        return False
        self.end(r)
        self.valid = r.skip_rbsp_trailing_bits()
        return self.valid

    def first_elements(self, r):
        self.vps_video_parameter_set_id = r.u(4)
        self.vps_base_layer_internal_flag = r.flag()
        self.vps_base_layer_available_flag = r.flag()
        self.vps_max_layers_minus1 = r.u(6)
        self.vps_max_sub_layers_minus1 = r.u(3, "max_sub_layers_minus1")
        self.vps_temporal_id_nesting_flag = r.flag()
        self.vps_reserved_0xffff_16bits = r.u(16)

    def ordering_info(self, r):
        self.vps_sub_layer_ordering_info_present_flag = r.flag()
        n = self.vps_max_sub_layers_minus1 + 1
        resize(self.vps_max_dec_pic_buffering_minus1, n, zero)
        resize(self.vps_max_num_reorder_pics, n, zero)
        resize(self.vps_max_latency_increase_plus1, n, zero)
        for i in range(0 if self.vps_sub_layer_ordering_info_present_flag else n - 1, n):
            self.vps_max_dec_pic_buffering_minus1[i] = r.ue()
            self.vps_max_num_reorder_pics[i] = r.ue()
            self.vps_max_latency_increase_plus1[i] = r.ue()

    def layer_sets(self, r):
        resize(self.layer_id_included_flag, self.vps_num_layer_sets_minus1 + 1, list)
        for row in self.layer_id_included_flag[1:]:
            resize(row, self.vps_max_layer_id + 1, false)
            for j in range(self.vps_max_layer_id + 1):
                row[j] = r.flag()

    def timing_info(self, r):
        self.vps_num_units_in_tick = r.u(32)
        self.vps_time_scale = r.u(32)
        self.vps_poc_proportional_to_timing_flag = r.flag()
        if self.vps_poc_proportional_to_timing_flag:
            self.vps_num_ticks_poc_diff_one_minus1 = r.ue()

    def end(self, r):
        self.vps_extension_flag = r.flag("extension_flag")
        if self.vps_extension_flag:
            while r.more_rbsp_data():
                r.skip(1)
