"""Sets of tiles."""

from ..elements import Refused
from .table import payload


@payload(139)
def temporal_motion_constrained_tile_sets(s, around):
    all_match = s.u(1, "mc_all_tiles_exact_sample_value_match_flag")
    if s.u(1, "each_tile_one_tile_set_flag"):
        if s.u(1, "max_mcs_tier_level_idc_present_flag"):
            s.u(1, "mcts_max_tier_flag")
            s.u(8, "mcts_max_level_idc")
        return
    limited = s.u(1, "limited_tile_set_display_flag")
    for i in range(s.ue("num_sets_in_message_minus1", top=3) + 1):
        s.ue("mcts_id", i)
        if limited:
            s.u(1, "display_tile_set_flag", i)
        for j in range(s.ue("num_tile_rects_in_set_minus1", i, top=3) + 1):
            s.ue("top_left_tile_idx", i, j)
            s.ue("bottom_right_tile_idx", i, j)
        if not all_match:
            s.u(1, "mc_exact_sample_value_match_flag", i)
        if s.u(1, "mcts_tier_level_idc_present_flag", i):
            s.u(1, "mcts_tier_flag", i)
            s.u(8, "mcts_level_idc", i)


@payload(158)
def mcts_extraction_info_sets(s, around):
    for i in range(s.ue("num_info_sets_minus1", top=2) + 1):
        for j in range(s.ue("num_mcts_sets_minus1", i, top=2) + 1):
            for k in range(s.ue("num_mcts_in_set_minus1", i, j, top=2) + 1):
                s.ue("idx_of_mcts_in_set", i, j, k)
        if s.u(1, "slice_reordering_enabled_flag", i):
            ctbs = around.active_sps().ctbs
            segments = s.ue("num_slice_segments_minus1", i, top=3) + 1
            if segments > ctbs:
                raise Refused("more slice segments than coding tree blocks")
            for j in range(segments):
                s.u((ctbs - 1).bit_length(), "output_slice_segment_address", i, j)
        lengths = {}
        for kind in ("vps", "sps", "pps"):
            lengths[kind] = []
            for j in range(s.ue(f"num_{kind}_in_info_set_minus1", i, top=2) + 1):
                if kind == "pps":
                    s.u(3, "pps_nuh_temporal_id_plus1", i, j)
                lengths[kind].append(s.ue(f"{kind}_rbsp_data_length", i, j, top=9))
        s.align("mcts_alignment_bit_equal_to_zero")
        for kind, its_lengths in lengths.items():
            for j, length in enumerate(its_lengths):
                s.run(length, f"{kind}_rbsp_data_byte", i, j)


@payload(161)
def inter_layer_constrained_tile_sets(s, around):
    all_match = s.u(1, "il_all_tiles_exact_sample_value_match_flag")
    if s.u(1, "il_one_tile_per_tile_set_flag"):
        s.u(2, "all_tiles_ilc_idc")
        return
    last = s.ue("il_num_sets_in_message_minus1", top=3)
    skipped = s.u(1, "skipped_tile_set_present_flag") if last > 0 else 0
    for i in range(last - skipped + 1):
        s.ue("ilcts_id", i)
        for j in range(s.ue("il_num_tile_rects_in_set_minus1", i, top=3) + 1):
            s.ue("il_top_left_tile_idx", i, j)
            s.ue("il_bottom_right_tile_idx", i, j)
        s.u(2, "ilc_idc", i)
        if not all_match:
            s.u(1, "il_exact_sample_value_match_flag", i)
