"""active_parameter_sets(), H.265 clauses D.2.21 and D.3.21."""


def parse(active, r, vps_store):
    active.reset()
    active.active_video_parameter_set_id = r.u(4, "active_video_parameter_set_id")
    vps = vps_store.map.get(active.active_video_parameter_set_id)
    if vps is None:
        return False
    active.self_contained_cvs_flag = r.flag()
    active.no_parameter_set_update_flag = r.flag()
    active.num_sps_ids_minus1 = r.ue("num_sps_ids_minus1")
    if active.num_sps_ids_minus1 > 15:
        return False
    for _ in range(active.num_sps_ids_minus1 + 1):
        active.active_seq_parameter_set_id.append(r.ue("active_seq_parameter_set_id"))
    if max(active.active_seq_parameter_set_id) > 15:
        return False
    max_layers_minus1 = min(62, vps.vps_max_layers_minus1)
    for i in range(max_layers_minus1 + 1):
        present = i >= vps.vps_base_layer_internal_flag
        active.layer_sps_idx.append(r.ue() if present else 0)
    active.valid = r.in_data()
    return active.valid
