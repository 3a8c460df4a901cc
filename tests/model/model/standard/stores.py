"""Parameter sets that were read by the standard's rules, for those that are read by them."""

from .. import entries
from ..h265_nal_pps import h265_nal_pps
from ..h265_nal_sps import h265_nal_sps
from ..h265_nal_vps import h265_nal_vps
from ..inventor import PICTURE_SIZES, often, seldom
from ..record import Store
from . import h265_nal_pps as pps_reading
from . import h265_nal_sps as sps_reading
from . import h265_nal_vps as vps_reading
from .habits import HABITS, NEAR

SPS_HABITS = {
    **HABITS,
    **NEAR,
    "scaling_list_data_present_flag": seldom(0.02),
    "vui_parameters_present_flag": seldom(0.02),
    "long_term_ref_pics_present_flag": seldom(0.7),
    "picture_size": lambda rng: rng.choice(PICTURE_SIZES),
    "log2_coding_block_size": lambda rng: rng.choice((0, 0, 1, 1, 2, 3)),
}
PPS_HABITS = {
    **HABITS,
    "scaling_list_data_present_flag": seldom(0.02),
    "dependent_slice_segments_enabled_flag": seldom(0.6),
}


def read(rng, make, parse, habits):
    """A record that could be read."""
    while True:
        record = entries.parsed(rng, make(), parse, 0, habits)
        if record.valid:
            return record


def small_sps():
    sps = h265_nal_sps()
    sps.pic_width_in_luma_samples = 1920
    sps.pic_height_in_luma_samples = 1080
    sps.log2_diff_max_min_luma_coding_block_size = 3
    return sps


def impossible_size(rng, sps):
    """Sizes that no picture has."""
    sps.pic_width_in_luma_samples = rng.choice((0, 0x80000, 0x80000, 0x7FFF8, 0xFFFFFFFE))
    sps.pic_height_in_luma_samples = rng.choice((0, 0x80000, 0x80000, 0xFFFFFFFE))
    sps.log2_min_luma_coding_block_size_minus3 = rng.choice((0, 0, 0, 28, 29, 0xFFFFFFFE))
    sps.log2_diff_max_min_luma_coding_block_size = rng.choice((0, 0, 1, 0xFFFFFFFE))


def vps(rng):
    if rng.random() < 0.2:
        return read(rng, h265_nal_vps, vps_reading.parse, HABITS)
    small = h265_nal_vps()
    small.vps_base_layer_internal_flag = rng.random() < 0.5
    small.vps_max_layers_minus1 = rng.choice((0, 0, 1, 2, 5, 61, 62, 63))
    small.valid = rng.random() < 0.9
    return small


def vps_store(rng):
    store = Store()
    for number in rng.sample(range(16), rng.choice((0, 1, 1, 2, 3))):
        store.map[number] = vps(rng)
    return store


def sps(rng):
    record = read(rng, h265_nal_sps, sps_reading.parse, SPS_HABITS)
    if rng.random() < 0.05:
        impossible_size(rng, record)
    record.sps_scc_extension.motion_vector_resolution_control_idc = rng.choice((0, 0, 1, 2, 2, 3))
    return record


def pps(rng, sps_store):
    habits = {**PPS_HABITS, "pps_seq_parameter_set_id": often(sps_store.map, 1.0)}
    record = read(rng, h265_nal_pps, pps_reading.parse, habits)
    record.lists_modification_present_flag = rng.random() < 0.7
    # As of a PPS with these extensions.
    screen_content = record.pps_scc_extension
    screen_content.pps_curr_pic_ref_enabled_flag = rng.random() < 0.5
    screen_content.pps_slice_act_qp_offsets_present_flag = rng.random() < 0.3
    record.pps_range_extension.chroma_qp_offset_list_enabled_flag = rng.random() < 0.4
    record.weighted_pred_flag = rng.random() < 0.6
    record.weighted_bipred_flag = rng.random() < 0.6
    return record


def timing_sps(rng):
    """An SPS as far as timing messages look at it."""
    record = small_sps()
    record.sps_max_sub_layers_minus1 = rng.randrange(7)
    record.pic_width_in_luma_samples = rng.choice((1, 64, 65, 320, 640, 1920))
    record.pic_height_in_luma_samples = rng.choice((1, 64, 65, 320, 640, 1080))
    general = record.profile_tier_level.general
    vui = record.vui_parameters
    hrd = vui.hrd_parameters
    vui.frame_field_info_present_flag = rng.random() < 0.5
    general.progressive_source_flag = rng.random() < 0.5
    general.interlaced_source_flag = rng.random() < 0.5
    if general.progressive_source_flag and general.interlaced_source_flag:
        # The scan type is then told by picture, and nothing is inferred.
        vui.frame_field_info_present_flag = True
    hrd.nal_hrd_parameters_present_flag = rng.random() < 0.6
    hrd.vcl_hrd_parameters_present_flag = rng.random() < 0.5
    hrd.sub_pic_hrd_params_present_flag = rng.random() < 0.6
    hrd.sub_pic_cpb_params_in_pic_timing_sei_flag = rng.random() < 0.6
    for name in entries.HRD_LENGTHS:
        setattr(hrd, name, rng.choice((rng.randrange(32), 0, 23, 24, 25, 31)))
    if rng.random() < 0.95:
        hrd.cpb_cnt_minus1 = [
            rng.choice((0, 0, 1, 2, 3, 30, 31)) if rng.random() < 0.95 else 32
            for _ in range(record.sps_max_sub_layers_minus1 + 1)
        ]
    return record


def timing_sps_store(rng):
    store = Store()
    for number in rng.sample((*range(16), 16, 0xFFFFFFFF), rng.choice((0, 1, 2, 2, 3))):
        store.map[number] = timing_sps(rng)
    return store
