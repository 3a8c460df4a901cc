"""pic_timing(), H.265 clause D.2.3."""

from .record import Array, fields, flag, resize, u8, u32, zero

# Tables D.2 and D.3.
PIC_STRUCTS = (
    "Progressive frame",
    "Top field",
    "Bottom field",
    "Top field, bottom field, in that order",
    "Bottom field, top field, in that order",
    "Top field, bottom field, top field repeated, in that order",
    "Bottom field, top field, bottom field repeated, in that order",
    "Frame doubling",
    "Frame tripling",
    "Top field paired with previous bottom field in output order",
    "Bottom field paired with previous top field in output order",
    "Top field paired with next bottom field in output order",
    "Bottom field paired with next top field in output order",
)
SCAN_TYPES = ("interlaced", "progressive", "unknown")


def word(words, index):
    return words[index] if index < len(words) else "?"


class h265_nal_sei_pic_timing(
    fields(
        pic_struct=u8,
        source_scan_type=u8,
        duplicate_flag=flag,
        au_cpb_removal_delay_minus1=u32,
        pic_dpb_output_delay=u32,
        pic_dpb_output_du_delay=u32,
        num_decoding_units_minus1=u32,
        du_common_cpb_removal_delay_flag=flag,
        du_common_cpb_removal_delay_increment_minus1=u32,
        num_nalus_in_du_minus1=Array(u32),
        du_cpb_removal_delay_increment_minus1=Array(u32),
        du_info_present=flag,
        cpb_dpb_delays_present=flag,
        valid=flag,
    )
):
    __slots__ = ()

    def parse_store(self, r, store):
        if store.active_id == store.NO_ID or store.active_id not in store.map:
            self.valid = False
            return False
        return self.parse(r, store.map[store.active_id])

    def parse(self, r, sps):
        hrd = sps.vui_parameters.hrd_parameters
        if sps.vui_parameters.frame_field_info_present_flag:
            self.pic_struct = r.u(4)
            self.source_scan_type = r.u(2)
            self.duplicate_flag = r.flag()
        if not hrd.nal_hrd_parameters_present_flag and not hrd.vcl_hrd_parameters_present_flag:
            self.cpb_dpb_delays_present = False
            self.valid = True
            return True
        self.cpb_dpb_delays_present = True
        self.au_cpb_removal_delay_minus1 = r.u_v(hrd.au_cpb_removal_delay_length_minus1 + 1)
        self.pic_dpb_output_delay = r.u_v(hrd.dpb_output_delay_length_minus1 + 1)
        if hrd.sub_pic_hrd_params_present_flag:
            self.pic_dpb_output_du_delay = r.u_v(hrd.dpb_output_delay_du_length_minus1 + 1)
        elif not hrd.sub_pic_cpb_params_in_pic_timing_sei_flag:
            self.valid = True
            return True

        self.du_info_present = True
        width = hrd.du_cpb_removal_delay_increment_length_minus1 + 1
        self.num_decoding_units_minus1 = r.ue("num_decoding_units_minus1")
        self.du_common_cpb_removal_delay_flag = r.flag()
        if self.du_common_cpb_removal_delay_flag:
            self.du_common_cpb_removal_delay_increment_minus1 = r.u_v(width)
        if self.num_decoding_units_minus1 > 127:
            return False
        n = self.num_decoding_units_minus1 + 1
        resize(self.num_nalus_in_du_minus1, n, zero)
        resize(self.du_cpb_removal_delay_increment_minus1, n, zero)
        for i in range(n):
            self.num_nalus_in_du_minus1[i] = r.ue()
            if not self.du_common_cpb_removal_delay_flag and i < n - 1:
                self.du_cpb_removal_delay_increment_minus1[i] = r.u_v(width)
        self.valid = True
        return True

    def text(self):
        return [word(PIC_STRUCTS, self.pic_struct), word(SCAN_TYPES, self.source_scan_type)]
