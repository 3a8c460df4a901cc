"""pic_parameter_set_rbsp(), H.265 clauses 7.3.2.3 and 7.4.3.3."""

from . import h265_pps_extensions as extensions
from . import h265_scaling_list_data as scaling_list_reading

MAX_REF_IDX_ACTIVE = 15
# Of a picture of level 6.2, in blocks of 16 samples: Sqrt( 8 * 35651584 ) / 16.
LONGEST_SIDE = 1056


def parse(pps, r):
    pps.reset()
    pps.pps_pic_parameter_set_id = r.ue("pps_pic_parameter_set_id")
    pps.pps_seq_parameter_set_id = r.ue("pps_seq_parameter_set_id")
    if pps.pps_pic_parameter_set_id > 63 or pps.pps_seq_parameter_set_id > 15:
        return False
    pps.first_tools(r)
    pps.num_ref_idx_l0_default_active_minus1 = r.ue("num_ref_idx_active_minus1")
    pps.num_ref_idx_l1_default_active_minus1 = r.ue("num_ref_idx_active_minus1")
    for minus1 in (
        pps.num_ref_idx_l0_default_active_minus1,
        pps.num_ref_idx_l1_default_active_minus1,
    ):
        if minus1 + 1 > MAX_REF_IDX_ACTIVE:
            return False
    pps.quantisation(r)
    pps.tiles_enabled_flag = r.flag("tiles_enabled_flag")
    pps.entropy_coding_sync_enabled_flag = r.flag()
    if not tiles(pps, r):
        return False
    pps.loop_filters(r)
    pps.pps_scaling_list_data_present_flag = r.flag("scaling_list_data_present_flag")
    if pps.pps_scaling_list_data_present_flag:
        if not scaling_list_reading.parse(pps.scaling_list_data, r):
            return False
    pps.end(r)
    if pps.pps_extension_present_flag:
        extensions.read(pps, r)
    pps.valid = r.in_data()
    r.skip_rbsp_trailing_bits()
    return pps.valid


def tiles(pps, r):
    if not pps.tiles_enabled_flag:
        pps.uniform_spacing_flag = True
        pps.loop_filter_across_tiles_enabled_flag = True
        return True
    pps.num_tile_columns_minus1 = r.ue("num_tiles_minus1")
    pps.num_tile_rows_minus1 = r.ue("num_tiles_minus1")
    pps.uniform_spacing_flag = r.flag("uniform_spacing_flag")
    if not pps.uniform_spacing_flag:
        if max(pps.num_tile_columns_minus1, pps.num_tile_rows_minus1) >= LONGEST_SIDE:
            return False
        pps.tile_sizes(r)
    pps.loop_filter_across_tiles_enabled_flag = r.flag()
    return True
