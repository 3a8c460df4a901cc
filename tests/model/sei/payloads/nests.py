"""Messages that hold messages."""

from .table import payload


@payload(133)
def scalable_nesting(s, around):
    inside = around.nest()
    s.u(1, "bitstream_subset_flag")
    if s.u(1, "nesting_op_flag"):
        default = s.u(1, "default_op_flag")
        points = []
        for i in range(default, s.ue("nesting_num_ops_minus1", top=3) + 1):
            highest = s.u(3, "nesting_max_temporal_id_plus1", i) - 1
            points.append((s.ue("nesting_op_idx", i, top=2), highest))
        inside.enter_operation_points(default, points)
    else:
        layers = 1
        if not s.u(1, "all_layers_flag"):
            s.u(3, "nesting_no_op_max_temporal_id_plus1")
            layers = s.ue("nesting_num_layers_minus1", top=3) + 1
            for i in range(layers):
                s.u(6, "nesting_layer_id", i)
        inside.enter_layers(layers)
    s.align("nesting_zero_bit")
    s.messages_to_the_end(inside)


@payload(157)
def regional_nesting(s, around):
    s.u(16, "regional_nesting_id")
    for i in range(s.u(8, "regional_nesting_num_rect_regions", top=3)):
        s.u(8, "regional_nesting_rect_region_id", i)
        for side in ("left", "right", "top", "bottom"):
            s.u(16, f"regional_nesting_rect_{side}_offset", i)
    for i in range(s.u(8, "num_sei_messages_in_regional_nesting_minus1", top=2) + 1):
        for j in range(s.u(8, "num_regions_for_sei_message", i, top=3)):
            s.u(8, "regional_nesting_sei_region_idx", i, j)
        s.message(around.nest())


@payload(159)
def mcts_extraction_info_nesting(s, around):
    if not s.u(1, "all_mcts_flag"):
        for i in range(s.ue("num_associated_mcts_minus1", top=3) + 1):
            s.ue("idx_of_associated_mcts", i)
    messages = s.ue("num_sei_messages_in_mcts_extraction_nesting_minus1", top=2) + 1
    s.align("mcts_nesting_zero_bit")
    for _ in range(messages):
        s.message(around.nest())


@payload(162)
def bsp_nesting(s, around):
    s.ue("sei_ols_idx")
    s.ue("sei_partitioning_scheme_idx")
    s.ue("bsp_idx")
    messages = s.ue("num_seis_in_bsp_minus1", top=2) + 1
    s.align("bsp_nesting_zero_bit")
    for _ in range(messages):
        s.message(around.nest())
