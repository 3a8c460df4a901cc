"""Streams made up: parameter sets, SEI messages and a slice."""

from .bits import exp_golomb, whole_bytes
from .inventor import invent_message
from .surroundings import Around, Hrd, Sps, Vps

IDR_W_RADL, VPS_NUT, SPS_NUT, PPS_NUT, PREFIX_SEI_NUT, SUFFIX_SEI_NUT = 19, 32, 33, 34, 39, 40
PICTURE_SIZES = ((8, 8), (64, 64), (72, 64), (176, 144), (1920, 1080))


class Bits:
    def __init__(self):
        self.pieces = []

    def u(self, *fields):
        """Widths and values in turn."""
        for width, value in zip(fields[::2], fields[1::2]):
            self.pieces.append(f"{value:0{width}b}")

    def ue(self, *values):
        self.pieces += map(exp_golomb, values)

    def unit(self, kind):
        return nal_unit(kind, whole_bytes("".join(self.pieces) + "1"))


def nal_unit(kind, rbsp, temporal_id=0):
    return bytes([kind << 1, temporal_id + 1]) + rbsp


def annex_b(units):
    stream = bytearray()
    for unit in units:
        stream += b"\0\0\0\1"
        zeros = 0
        for byte in unit:
            if zeros >= 2 and byte <= 3:
                stream.append(3)
                zeros = 0
            stream.append(byte)
            zeros = zeros + 1 if byte == 0 else 0
    return bytes(stream)


def some_hrd(rng, sub_layers):
    hrd = Hrd(nal=rng.randrange(2), vcl=rng.randrange(2))
    if hrd.nal or hrd.vcl:
        hrd.sub_pic = rng.randrange(2)
        if hrd.sub_pic:
            hrd.du_delay_bits = rng.randrange(1, 33)
            hrd.in_pic_timing = rng.randrange(2)
            hrd.dpb_du_delay_bits = rng.randrange(1, 33)
        hrd.initial_bits = rng.randrange(1, 33)
        hrd.au_delay_bits = rng.randrange(1, 33)
        hrd.dpb_delay_bits = rng.randrange(1, 33)
    hrd.cpb_counts = [rng.randrange(1, 4) for _ in range(sub_layers)]
    return hrd


def write_hrd(b, hrd):
    b.u(1, hrd.nal, 1, hrd.vcl)
    if hrd.nal or hrd.vcl:
        b.u(1, hrd.sub_pic)
        if hrd.sub_pic:
            b.u(8, 0, 5, hrd.du_delay_bits - 1, 1, hrd.in_pic_timing, 5, hrd.dpb_du_delay_bits - 1)
        b.u(4, 0, 4, 0)
        if hrd.sub_pic:
            b.u(4, 0)
        b.u(5, hrd.initial_bits - 1, 5, hrd.au_delay_bits - 1, 5, hrd.dpb_delay_bits - 1)
    for count in hrd.cpb_counts:
        b.u(1, 1)  # fixed_pic_rate_general_flag
        b.ue(0, count - 1)
        for _ in range((hrd.nal + hrd.vcl) * count):
            b.ue(0, 0)
            if hrd.sub_pic:
                b.ue(0, 0)
            b.u(1, 0)


def write_profile_tier_level(b, sub_layers):
    b.u(2, 0, 1, 0, 5, 1, 32, 3 << 29, 4, 0, 43, 0, 1, 0, 8, 93)
    if sub_layers > 1:
        b.u(16, 0)


def write_order(b):
    """One triple of the DPB for all sub-layers."""
    b.u(1, 0)
    b.ue(0, 0, 0)


def write_timing(b):
    b.u(1, 1, 32, 1, 32, 25, 1, 0)


def vps_unit(rng, number, sub_layers):
    vps = Vps(rng.randrange(2), rng.choice((0, 0, 1, 3, 62, 63)))
    layer_sets = rng.randrange(1, 4)
    vps.hrds = [
        (layer_set, some_hrd(rng, sub_layers))
        for layer_set in range(layer_sets)
        if rng.random() < 0.4
    ]
    b = Bits()
    b.u(4, number, 1, vps.base_layer_internal, 1, 1, 6, vps.max_layers_minus1, 3, sub_layers - 1)
    b.u(1, 1, 16, 0xFFFF)
    write_profile_tier_level(b, sub_layers)
    write_order(b)
    b.u(6, 1)
    b.ue(layer_sets - 1)
    b.u(*(2, 0) * (layer_sets - 1))
    write_timing(b)
    b.ue(len(vps.hrds))
    for place, (layer_set, hrd) in enumerate(vps.hrds):
        b.ue(layer_set)
        if place:
            b.u(1, 1)
        write_hrd(b, hrd)
    b.u(1, 0)
    return vps, b.unit(VPS_NUT)


def write_vui(b, sps):
    b.u(6, 0, 1, sps.frame_field_info_present, 1, 0)
    write_timing(b)
    b.u(1, sps.hrd is not None)
    if sps.hrd:
        write_hrd(b, sps.hrd)
    b.u(1, 0)


def sps_unit(rng, number, vps, sub_layers):
    sps = Sps(vps, rng.choice((0, 1, 1, 2, 3)))
    width, height = rng.choice(PICTURE_SIZES)
    sps.ctbs = (width + 63) // 64 * ((height + 63) // 64)
    has_vui = rng.random() < 0.8
    if has_vui:
        sps.frame_field_info_present = rng.randrange(2)
        sps.hrd = some_hrd(rng, sub_layers) if rng.random() < 0.8 else None
    b = Bits()
    b.u(4, vps, 3, sub_layers - 1, 1, 1)
    write_profile_tier_level(b, sub_layers)
    b.ue(number, sps.chroma_format_idc)
    if sps.chroma_format_idc == 3:
        b.u(1, 0)
    b.ue(width, height)
    b.u(1, 0)
    b.ue(0, 0, 0)  # bit depths, picture order count
    write_order(b)
    b.ue(0, 3, 0, 1, 0, 0)  # block sizes: coding tree blocks of 64 samples
    b.u(4, 0)
    b.ue(0)
    b.u(3, 0)
    b.u(1, has_vui)
    if has_vui:
        write_vui(b, sps)
    b.u(1, 0)
    return sps, b.unit(SPS_NUT)


def pps_unit():
    b = Bits()
    b.ue(0, 0)
    b.u(7, 0)
    b.ue(0, 0, 0)
    b.u(3, 0)
    b.ue(0, 0)
    b.u(10, 0)
    b.ue(0)
    b.u(2, 0)
    return b.unit(PPS_NUT)


def slice_unit():
    """An IDR picture of PPS 0; what follows the header is of no use."""
    b = Bits()
    b.u(2, 2)
    b.ue(0, 2, 0)
    b.u(1, 1)
    return nal_unit(IDR_W_RADL, whole_bytes("".join(b.pieces)) + b"\xaa\x80")


def sei_unit(rng, around):
    kind = rng.choice((PREFIX_SEI_NUT, PREFIX_SEI_NUT, SUFFIX_SEI_NUT))
    messages = [invent_message(rng, around) for _ in range(rng.choice((1, 1, 1, 2, 3)))]
    return nal_unit(kind, b"".join(messages) + b"\x80", around.temporal_id)


def invent_stream(rng, sei_units):
    """A stream; what its first message is read with; the SEI NAL units by their place."""
    sub_layers = rng.randrange(1, 4)
    units = []
    vps_by_id = {}
    for number in range(2):
        vps_by_id[number], unit = vps_unit(rng, number, sub_layers)
        units.append(unit)
    sps_by_id = {}
    for number in range(3):
        sps_by_id[number], unit = sps_unit(rng, number, rng.randrange(2), sub_layers)
        units.append(unit)
    units += [pps_unit(), slice_unit()]
    sei = {}
    for _ in range(sei_units):
        temporal_id = rng.randrange(sub_layers)
        unit = sei_unit(rng, Around(vps_by_id, sps_by_id, sps_by_id[0], temporal_id))
        sei[len(units)] = unit
        units.append(unit)
    units.append(slice_unit())
    return annex_b(units), Around(vps_by_id, sps_by_id, sps_by_id[0], 0), sei
