"""What a message is read with: the parameter sets, and the nests that it is in."""

from dataclasses import dataclass, field

from .elements import Refused


@dataclass
class Hrd:
    nal: int = 0
    vcl: int = 0
    sub_pic: int = 0
    in_pic_timing: int = 0
    du_delay_bits: int = 0
    dpb_du_delay_bits: int = 0
    initial_bits: int = 24
    au_delay_bits: int = 24
    dpb_delay_bits: int = 24
    cpb_counts: list = field(default_factory=list)  # by sub-layer


@dataclass
class Vps:
    base_layer_internal: int = 1
    max_layers_minus1: int = 0
    hrds: list = field(default_factory=list)  # layer set and Hrd

    def layers_minus1(self):
        return min(62, self.max_layers_minus1)


@dataclass
class Sps:
    vps: int = 0
    chroma_format_idc: int = 1
    ctbs: int = 1
    frame_field_info_present: int = 0
    hrd: Hrd = None


class Around:
    def __init__(self, vps_by_id, sps_by_id, sps, temporal_id):
        self.vps_by_id = vps_by_id
        self.sps_by_id = sps_by_id
        self.sps = sps  # the active one
        self.temporal_id = temporal_id
        self.views = 1
        self.points = []  # layer set and highest sub-layer of the operation points
        self.depth = 0

    def nest(self):
        inside = Around(self.vps_by_id, self.sps_by_id, self.sps, self.temporal_id)
        inside.views = self.views
        inside.points = self.points
        inside.depth = self.depth + 1
        return inside

    def enter_operation_points(self, default, points):
        """The default point is the base layer up to the sub-layer of the NAL unit."""
        self.views = 1
        self.points = [(0, self.temporal_id)] * default + points

    def enter_layers(self, layers):
        self.views = layers
        self.points = []

    def activate(self, sps):
        """A message outside nests tells which SPS the slices behind it use."""
        if self.depth == 0:
            self.sps = self.sps_by_id.get(sps, self.sps)

    def active_sps(self):
        if self.sps is None:
            raise Refused("no SPS")
        return self.sps

    def hrd(self, sps):
        """That of the first operation point, of the SPS, or else the first of its VPS."""
        vps = self.vps_by_id.get(sps.vps, Vps())
        for layer_set, hrd in vps.hrds:
            if self.points and layer_set == self.points[0][0]:
                return hrd
        if sps.hrd or not vps.hrds:
            return sps.hrd
        return vps.hrds[0][1]

    def cpb_count(self, hrd):
        """That of the highest sub-layer, or of the one that the first operation point names."""
        highest = len(hrd.cpb_counts) - 1
        if self.points and self.points[0][1] >= 0:
            highest = min(self.points[0][1], highest)
        return hrd.cpb_counts[highest]

    def components(self):
        return 3 if self.active_sps().chroma_format_idc else 1
