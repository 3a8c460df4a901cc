"""What a sequence is made of, and how its pictures depend on one another."""

from ..elements import Refused
from .table import payload


@payload(6)
def recovery_point(s, around):
    s.se("recovery_poc_cnt")
    s.u(1, "exact_match_flag")
    s.u(1, "broken_link_flag")


@payload(9)
def scene_info(s, around):
    if s.u(1, "scene_info_present_flag"):
        s.u(1, "prev_scene_id_valid_flag")
        s.ue("scene_id")
        if s.ue("scene_transition_type", top=6) > 3:
            s.ue("second_scene_id")


@payload(16)
def progressive_refinement_segment_start(s, around):
    s.ue("progressive_refinement_id")
    s.ue("pic_order_cnt_delta")


@payload(17)
def progressive_refinement_segment_end(s, around):
    s.ue("progressive_refinement_id")


@payload(128)
def structure_of_pictures_info(s, around):
    s.ue("sop_seq_parameter_set_id")
    for i in range(s.ue("num_entries_in_sop_minus1", top=5) + 1):
        kind = s.u(6, "sop_vcl_nut", i, top=21)
        s.u(3, "sop_temporal_id", i)
        if kind not in (19, 20):
            s.ue("sop_short_term_rps_idx", i)
        if i > 0:
            s.se("sop_poc_delta", i)


@payload(129)
def active_parameter_sets(s, around):
    vps = around.vps_by_id.get(s.u(4, "active_video_parameter_set_id", top=2))
    s.u(1, "self_contained_cvs_flag")
    s.u(1, "no_parameter_set_update_flag")
    for i in range(s.ue("num_sps_ids_minus1", top=4) + 1):
        s.ue("active_seq_parameter_set_id", i)
    if vps is None:
        raise Refused("no VPS")
    for i in range(vps.base_layer_internal, vps.layers_minus1() + 1):
        s.ue("layer_sps_idx", i)


@payload(131)
def temporal_sub_layer_zero_idx(s, around):
    s.u(8, "temporal_sub_layer_zero_idx")
    s.u(8, "irap_pic_id")


@payload(145)
def dependent_rap_indication(s, around):
    pass


@payload(146)
def coded_region_completion(s, around):
    if s.ue("next_segment_address") > 0:
        s.u(1, "independent_slice_segment_flag")


@payload(167)
def temporal_mv_prediction_constraints(s, around):
    s.u(1, "prev_pics_not_used_flag")
    s.u(1, "no_intra_layer_col_pic_flag")
