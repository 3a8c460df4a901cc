"""The readings of tests/streams that other programs confirm, held against the model."""

import json

from .bits import without_emulation_prevention
from .elements import Refused
from .messages import PREFIX_SEI_NUT, UnitReader
from .parameter_sets import sps_of, vps_of
from .surroundings import Around

VPS_NUT, SPS_NUT, PPS_NUT, SUFFIX_SEI_NUT = 32, 33, 34, 40


def spelled(element):
    name, value, bit, width = element
    if isinstance(value, bytes):
        value = value.decode()
    elif width == 128:
        value = f"{value:032x}"
    return [name, value, bit, width]


class ReadingModel:
    """Parameter sets come from the reading, messages from the stream."""

    def __init__(self, units, stream):
        self.units = units
        self.stream = stream
        self.vps_by_id = {}
        self.sps_by_id = {}
        self.sps_of_pps = {}

    def active_sps(self, slices):
        """That of the first of these units that is a slice."""
        for unit in slices:
            values = {name: value for name, value, *_ in unit["elements"]}
            if unit["nal_unit_type"] < VPS_NUT and "slice_pic_parameter_set_id" in values:
                pps = values["slice_pic_parameter_set_id"]
                return self.sps_by_id.get(self.sps_of_pps.get(pps))
        return None

    def differences(self):
        """The places of SEI units that differ, and how many there are."""
        differences, messages = [], 0
        for place, unit in enumerate(self.units):
            kind, elements = unit["nal_unit_type"], unit["elements"]
            if kind == VPS_NUT:
                number, vps = vps_of(elements)
                self.vps_by_id[number] = vps
            elif kind == SPS_NUT:
                number, sps = sps_of(elements)
                self.sps_by_id[number] = sps
            elif kind == PPS_NUT:
                values = {name: value for name, value, *_ in elements}
                pps = values["pps_pic_parameter_set_id"]
                self.sps_of_pps[pps] = values["pps_seq_parameter_set_id"]
            elif kind == PREFIX_SEI_NUT:
                reader = self.read(unit, self.units[place:])
            elif kind == SUFFIX_SEI_NUT:
                reader = self.read(unit, self.units[place::-1])
            if kind in (PREFIX_SEI_NUT, SUFFIX_SEI_NUT):
                messages += len(reader.messages)
                if [spelled(element) for element in reader.elements] != elements:
                    differences.append(unit["offset"])
        return differences, messages

    def read(self, unit, slices):
        data = self.stream[unit["offset"] : unit["offset"] + unit["size"]]
        reader = UnitReader(without_emulation_prevention(data))
        temporal_id = unit["nuh_temporal_id_plus1"] - 1
        around = Around(self.vps_by_id, self.sps_by_id, self.active_sps(slices), temporal_id)
        try:
            reader.read(around)
        except Refused:
            pass
        return reader


def compare_readings(folder):
    """How many messages were compared, and where units differ."""
    messages, differences = 0, []
    for path in sorted(folder.glob("*.json")):
        reading = json.loads(path.read_text())
        units = [unit for unit in reading["units"] if unit["nuh_layer_id"] == 0]
        if not any("read_by" in unit for unit in units):
            continue
        units = [unit for unit in units if "elements" in unit]
        stream = path.with_suffix(".hevc").read_bytes()
        places, count = ReadingModel(units, stream).differences()
        messages += count
        differences += [f"{path.name}, unit at {place}" for place in places]
    return messages, differences
