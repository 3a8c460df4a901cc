"""Layers and parts of a bitstream."""

from ..elements import Refused
from .table import payload


@payload(160)
def layers_not_present(s, around):
    vps = around.vps_by_id.get(s.u(4, "lnp_sei_active_vps_id", top=2))
    if vps is None:
        raise Refused("no VPS")
    for i in range(vps.layers_minus1() + 1):
        s.u(1, "layer_not_present_flag", i)


@payload(163)
def bsp_initial_arrival_time(s, around):
    raise Refused("no HRD of a bitstream partition")


@payload(164)
def sub_bitstream_property(s, around):
    s.u(4, "sb_property_active_vps_id")
    for i in range(s.ue("num_additional_sub_streams_minus1", top=3) + 1):
        s.u(2, "sub_bitstream_mode", i)
        s.ue("ols_idx_to_vps", i)
        s.u(3, "highest_sublayer_id", i)
        s.u(16, "avg_sb_property_bit_rate", i)
        s.u(16, "max_sb_property_bit_rate", i)
