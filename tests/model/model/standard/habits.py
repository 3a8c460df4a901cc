"""What suits an element by the standard's limits, in place of what inventor.py has for it."""

from ..inventor import any_code, count, often, seldom


def mostly_small(rng):
    """Distances between pictures, such that chains of sets stay near."""
    choice = rng.random()
    if choice < 0.9:
        return rng.randrange(5)
    if choice < 0.98:
        return rng.choice((30, 1000, 16383, 32765, 32766, 32767, 32767, 32768))
    return any_code(rng)


def index(rng):
    return rng.choice((0, 0, 1, 1, 2, 3, rng.getrandbits(6)))


def pictures(rng):
    """Of two counts whose sum has a limit."""
    return rng.randrange(5) if rng.random() < 0.9 else rng.choice((7, 8, 9, 15, 16, 17, 128))


HABITS = {
    "max_sub_layers_minus1": lambda rng: rng.choice((0, 0, 0, 1, 2, 3, 5, 6, 6, 7)),
    "sps_seq_parameter_set_id": often((0, 1, 7, 14, 15, 15, 16)),
    "pps_pic_parameter_set_id": often((0, 1, 31, 62, 63, 63, 64)),
    "log2_max_pic_order_cnt_lsb_minus4": often((*range(13), 12, 12, 12, 13)),
    "vps_num_layer_sets_minus1": count(3, 1023),
    "vps_num_hrd_parameters": count(5, 1024),
    "cpb_cnt_minus1": count(2, 31),
    "num_short_term_ref_pic_sets": often((*range(9), 4, 8, 16, 63, 64, 64, 65)),
    "num_long_term_ref_pics_sps": often((*range(9), 2, 4, 16, 31, 32, 32, 33)),
    "num_negative_pics": pictures,
    "num_positive_pics": pictures,
    "delta_poc_minus1": mostly_small,
    "abs_delta_rps_minus1": mostly_small,
    "delta_idx_minus1": often((0, 0, 0, 1, 2)),
    "scaling_list_pred_matrix_id_delta": often((0, 0, 0, 0, 1), 0.99),
    "num_tiles_minus1": count(4, 1055),
    "num_decoding_units_minus1": count(5, 80),
    "num_sps_ids_minus1": count(4, 15),
    "active_seq_parameter_set_id": often(range(16), 0.99),
    "slice_type": often((0, 0, 0, 0, 0, 0, 1, 1, 1, 1, 2, 2, 3), 0.99),
    "short_term_ref_pic_set_idx": index,
    "num_long_term_sps": often((0, 0, 0, 1, 1, 1, 1, 2), 0.9),
    "num_long_term_pics": often((0, 0, 1, 1, 2, 2, 3, 3, 4, 13, 14, 15, 16, 17), 0.99),
    "lt_idx_sps": index,
    "max_layer_id": lambda rng: rng.choice((0, 0, 1, 5, rng.getrandbits(6))),
    "num_ref_idx_active_minus1": often((0, 0, 1, 1, 2, 3, 13, 14, 14, 15), 0.99),
    "first_slice_segment_in_pic_flag": seldom(0.4),
    "dependent_slice_segment_flag": seldom(0.4),
    "num_entry_point_offsets": often((0, 0, 1, 2, 3, 4, 5, 7, 8, 16, 33, 34), 0.98),
    "offset_len_minus1": often((*range(32), 0, 7, 30, 31, 31, 31, 32), 0.99),
    "slice_segment_header_extension_length": often((0, 1, 2, 3, 4, 255, 256, 257), 0.99),
    "extension_flag": seldom(0.6),
    "extension_4bits": lambda rng: rng.choice((0, 0, 0, 0, 0, 0, 1, 8, 15)),
    "num_palette_predictor_initializers": often((0, 0, 1, 2, 3, 31, 127, 127, 128, 129), 0.98),
    "bit_depth_entry_minus8": often((*range(9), 0, 2, 8, 9), 0.99),
    "bit_depth_cm_minus8": often((0, 0, 0, 1, 2, 7, 8, 8, 8, 9), 0.99),
    "chroma_qp_offset_list_len_minus1": often((0, 1, 2, 3, 4, 5, 5, 6), 0.98),
    "num_ref_loc_offsets": often((0, 0, 1, 1, 2, 3, 61, 62, 63), 0.99),
    "num_cm_ref_layers_minus1": often((0, 0, 1, 2, 60, 61, 62), 0.99),
    "cm_octant_depth": lambda rng: rng.choice((0, 0, 1, 1, 1, 1, 2, 3)),
    "dlts_present_flag": seldom(0.8),
    "depth_layers_minus1": lambda rng: rng.choice((0, 0, 1, 2, 5, rng.getrandbits(6))),
    "bit_depth_for_depth_layers_minus8": lambda rng: rng.choice((0,) * 12 + (1, 2, 3, 15)),
    "num_val_delta_dlt": lambda rng: rng.choice((0, 1, 2, 3, 3, 4, 5, 9, rng.getrandbits(8))),
    "max_diff": lambda rng: rng.choice((0, 1, 2, 3, 4, 7, 8, rng.getrandbits(8), 255)),
}

# Sets that are all within the limits, so that many of them are.
NEAR = {
    "num_negative_pics": lambda rng: rng.randrange(4),
    "num_positive_pics": lambda rng: rng.randrange(4),
    "delta_poc_minus1": lambda rng: rng.randrange(9),
    "abs_delta_rps_minus1": lambda rng: rng.randrange(9),
}
