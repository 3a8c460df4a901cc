"""active_parameter_sets(), H.265 clause D.2.21."""

from .record import Array, fields, flag, resize, u8, u32, zero


class h265_nal_sei_active_parameter_sets(
    fields(
        active_video_parameter_set_id=u8,
        self_contained_cvs_flag=flag,
        no_parameter_set_update_flag=flag,
        num_sps_ids_minus1=u32,
        active_seq_parameter_set_id=Array(u32),
        layer_sps_idx=Array(u32),
        valid=flag,
    )
):
    __slots__ = ()

    def parse(self, r, vps_store):
        self.valid = False
        self.active_video_parameter_set_id = r.u(4, "active_video_parameter_set_id")
        vps = vps_store.map.get(self.active_video_parameter_set_id)
        if vps is None:
            return False
        self.self_contained_cvs_flag = r.flag()
        self.no_parameter_set_update_flag = r.flag()
        self.num_sps_ids_minus1 = r.ue("num_sps_ids_minus1")
        if self.num_sps_ids_minus1 > 127:
            return False
        resize(self.active_seq_parameter_set_id, self.num_sps_ids_minus1 + 1, zero)
        for i in range(self.num_sps_ids_minus1 + 1):
            self.active_seq_parameter_set_id[i] = r.ue()
        m = vps.vps_max_layers_minus1
        if m > 127:
            return False
        resize(self.layer_sps_idx, m + 1, zero)
        for i in range(1 if vps.vps_base_layer_internal_flag else 0, m + 1):
            self.layer_sps_idx[i] = r.ue()
        self.valid = True
        return True
