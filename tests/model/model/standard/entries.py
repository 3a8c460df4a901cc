"""The entries of the package above, read by the standard's rules, and now and then by the library's
own in between: nothing that is left in a record by either may show."""

from .. import entries as own
from ..h265_nal_sps import h265_nal_sps
from ..h265_st_ref_pic_set import h265_st_ref_pic_set
from ..inventor import often
from ..record import Store
from . import (
    h265_hrd_parameters,
    h265_nal_pps,
    h265_nal_sei_active_parameter_sets,
    h265_nal_sei_buffering_period,
    h265_nal_sei_pic_timing,
    h265_nal_sps as sps_reading,
    h265_nal_vps,
    h265_profile_tier_level,
    h265_ref_pic_lists_modification,
    h265_scaling_list_data,
    h265_slice_segment_header,
    h265_st_ref_pic_set as set_reading,
    h265_vui_parameters,
    stores,
)
from .habits import HABITS, NEAR


class StandardEntry:
    """Before an own.Entry in the bases of an entry."""

    def __init__(self, rng):
        super().__init__(rng)
        self.habits = {**HABITS, **self.habits}

    def arguments(self, rng, record):
        rules = "standard" if rng.random() < 0.8 else "own"
        return {**super().arguments(rng, record), "rules": rules}

    def parse(self, record, reader, arguments):
        if arguments["rules"] == "own":
            return super().parse(record, reader, arguments)
        return self.parse_standard(record, reader, arguments)


def sub_layers(rng):
    return rng.choice((0, 0, 1, 2, 3, 5, 6, 6, 7)) if rng.random() < 0.97 else own.sub_layers(rng)


class StandardAud(StandardEntry, own.Aud):
    def parse_standard(self, record, reader, arguments):
        record.reset()
        return record.parse(reader)


class StandardProfileTierLevel(StandardEntry, own.ProfileTierLevel):
    def arguments(self, rng, record):
        return {**super().arguments(rng, record), "maxNumSubLayersMinus1": sub_layers(rng)}

    def parse_standard(self, record, reader, arguments):
        return h265_profile_tier_level.parse(
            record, arguments["profilePresentFlag"], arguments["maxNumSubLayersMinus1"], reader
        )


class StandardHrd(StandardEntry, own.Hrd):
    def arguments(self, rng, record):
        return {**super().arguments(rng, record), "maxNumSubLayersMinus1": sub_layers(rng)}

    def parse_standard(self, record, reader, arguments):
        return h265_hrd_parameters.parse(
            record, arguments["commonInfPresentFlag"], arguments["maxNumSubLayersMinus1"], reader
        )


class StandardSubLayerHrd(StandardEntry, own.SubLayerHrd):
    def arguments(self, rng, record):
        arguments = super().arguments(rng, record)
        if rng.random() < 0.9:
            arguments["cpb_count"] = rng.choice((0, 1, 2, 3, 31, 32, 33))
        return arguments

    def parse_standard(self, record, reader, arguments):
        return h265_hrd_parameters.parse_sub_layer(
            record, arguments["subLayerId"], arguments["cpb_count"], self.hrd, reader
        )


class StandardVps(StandardEntry, own.Vps):
    budget = 80000  # for as many layer sets as there may be

    def parse_standard(self, record, reader, arguments):
        return h265_nal_vps.parse(record, reader)


class StandardScalingListData(StandardEntry, own.ScalingListData):
    def parse_standard(self, record, reader, arguments):
        return h265_scaling_list_data.parse(record, reader)


class StandardStRefPicSet(StandardEntry, own.StRefPicSet):
    """The record may be one of the sets, but is then the one with its own index: no set is
    predicted from itself."""

    def __init__(self, rng):
        super(own.StRefPicSet, self).__init__(rng)
        self.habits = HABITS
        self.sps = h265_nal_sps()
        self.sps.num_short_term_ref_pic_sets = rng.randrange(9)
        self.sets = []
        for idx in range(rng.choice((0, 1, 2, 3, 4, 5, 8))):
            self.sets.append(
                stores.read(
                    rng,
                    h265_st_ref_pic_set,
                    lambda s, r: set_reading.parse(s, r, self.sps, idx, self.sets),
                    HABITS,
                )
            )
        if self.sets and rng.random() < 0.15:
            self.spoil(rng, rng.choice(self.sets))
        self.give(rng)

    def spoil(self, rng, pictures):
        """Arrays that are shorter than their counts, or too many pictures."""
        choice = rng.randrange(4)
        if choice == 0:
            count = rng.choice((16, 17, 18, 128))
            pictures.reset()
            pictures.num_negative_pics = count
            pictures.NumDeltaPocs = count
            pictures.delta_poc_s0_minus1 = [0] * count
            pictures.used_by_curr_pic_s0_flag = [True] * count
        elif choice == 1 and pictures.delta_poc_s0_minus1:
            pictures.delta_poc_s0_minus1.pop()
        elif choice == 2 and pictures.delta_poc_s1_minus1:
            pictures.delta_poc_s1_minus1.pop()
        else:
            pictures.num_positive_pics += 1
            pictures.NumDeltaPocs += 1

    def arguments(self, rng, record):
        arguments = super().arguments(rng, record)
        if self.own is not None:
            arguments["idx"] = self.own
        return arguments

    def parse_standard(self, record, reader, arguments):
        return set_reading.parse(record, reader, self.sps, arguments["idx"], self.sets)


class StandardVui(StandardEntry, own.Vui):
    def parse_standard(self, record, reader, arguments):
        self.sps.sps_max_sub_layers_minus1 = arguments["sps_max_sub_layers_minus1"]
        return h265_vui_parameters.parse(record, reader, self.sps)


class StandardSps(StandardEntry, own.Sps):
    def __init__(self, rng):
        super().__init__(rng)
        if rng.random() < 0.7:
            self.habits.update(NEAR)

    def parse_standard(self, record, reader, arguments):
        return sps_reading.parse(record, reader)


class StandardPps(StandardEntry, own.Pps):
    def __init__(self, rng):
        super(own.Pps, self).__init__(rng)
        self.sps_store = Store()
        for number in rng.sample((*range(16), 16, 1000), rng.choice((0, 1, 2, 2, 3))):
            sps = stores.timing_sps(rng)
            sps.valid = rng.random() < 0.9
            self.sps_store.map[number] = sps
        self.given = {"sps_store": own.store_json(self.sps_store)}
        self.habits = {**HABITS, "pps_seq_parameter_set_id": often((*range(16), 15, 16), 0.98)}

    def parse_standard(self, record, reader, arguments):
        return h265_nal_pps.parse(record, reader)


class StandardSliceSegmentHeader(StandardEntry, own.SliceSegmentHeader):
    def __init__(self, rng):
        super(own.SliceSegmentHeader, self).__init__(rng)
        self.vps_store = stores.vps_store(rng)
        if not self.vps_store.map:  # seldom worth a case
            self.vps_store = stores.vps_store(rng)
        self.sps_store = Store()
        for number in rng.sample(range(16), rng.choice((1, 1, 2))):
            sps = stores.sps(rng)
            if self.vps_store.map and rng.random() < 0.98:
                sps.sps_video_parameter_set_id = rng.choice(list(self.vps_store.map))
            self.sps_store.map[number] = sps
        self.pps_store = Store()
        for number in rng.sample((*range(64), 64, 4095), rng.choice((1, 2, 3))):
            self.pps_store.map[number] = stores.pps(rng, self.sps_store)
        if rng.random() < 0.02:
            self.sps_store.map.clear()
        self.given = {
            "pps_store": own.store_json(self.pps_store),
            "sps_store": own.store_json(self.sps_store),
            "vps_store": own.store_json(self.vps_store),
        }
        self.habits = {**HABITS, "slice_pic_parameter_set_id": often(self.pps_store.map, 0.99)}

    def arguments(self, rng, record):
        """Now and then with what a dependent slice segment takes over: of the segment before, or
        anything that a host may have."""
        arguments = super().arguments(rng, record)
        if arguments["rules"] == "standard" and rng.random() < 0.3:
            of_record = record.valid and rng.random() < 0.7
            arguments["independent"] = record.copy() if of_record else self.record.scramble(rng)
        return arguments

    def parse_standard(self, record, reader, arguments):
        read = self.parse_header(record, reader, arguments)
        if read and record.dependent_slice_segment_flag and "independent" in arguments:
            h265_slice_segment_header.take_over(record, arguments["independent"])
        return read

    def parse_header(self, record, reader, arguments):
        return h265_slice_segment_header.parse(
            record,
            reader,
            self.pps_store,
            self.sps_store,
            self.vps_store,
            arguments["nal_unit_type"],
        )


class StandardRefPicListsModification(StandardEntry, own.RefPicListsModification):
    def arguments(self, rng, record):
        arguments = super().arguments(rng, record)
        header = arguments["header"]
        if rng.random() < 0.9:
            header.num_ref_idx_l0_active_minus1 = rng.choice((0, 1, 2, 7, 13, 14))
            header.num_ref_idx_l1_active_minus1 = rng.choice((0, 1, 2, 7, 13, 14, 15))
        return arguments

    def parse_standard(self, record, reader, arguments):
        return h265_ref_pic_lists_modification.parse(record, reader, arguments["header"])


class StandardPicTiming(StandardEntry, own.PicTiming):
    def __init__(self, rng):
        super(own.PicTiming, self).__init__(rng)
        self.habits = HABITS
        self.sps = stores.timing_sps(rng)
        if rng.random() < 0.05:
            self.sps.pic_width_in_luma_samples = 0
        self.given = {"sps": self.sps.sparse()}

    def parse_standard(self, record, reader, arguments):
        return h265_nal_sei_pic_timing.parse(record, reader, self.sps)


class StandardPicTimingStore(StandardEntry, own.PicTimingStore):
    def __init__(self, rng):
        super(own.PicTimingStore, self).__init__(rng)
        self.habits = HABITS
        self.sps_store = stores.timing_sps_store(rng)
        self.given = {"sps_store": own.store_json(self.sps_store)}

    def parse_standard(self, record, reader, arguments):
        self.sps_store.active_id = arguments["active_id"]
        return h265_nal_sei_pic_timing.parse_store(record, reader, self.sps_store)


class StandardBufferingPeriod(StandardEntry, own.BufferingPeriod):
    def __init__(self, rng):
        super(own.BufferingPeriod, self).__init__(rng)
        self.sps_store = stores.timing_sps_store(rng)
        self.given = {"sps_store": own.store_json(self.sps_store)}
        self.habits = {**HABITS, "bp_seq_parameter_set_id": often(self.sps_store.map)}

    def parse_standard(self, record, reader, arguments):
        return h265_nal_sei_buffering_period.parse(record, reader, self.sps_store)


class StandardActiveParameterSets(StandardEntry, own.ActiveParameterSets):
    def __init__(self, rng):
        super(own.ActiveParameterSets, self).__init__(rng)
        self.vps_store = stores.vps_store(rng)
        self.given = {"vps_store": own.store_json(self.vps_store)}
        self.habits = {**HABITS, "active_video_parameter_set_id": often(self.vps_store.map)}

    def parse_standard(self, record, reader, arguments):
        return h265_nal_sei_active_parameter_sets.parse(record, reader, self.vps_store)


ENTRIES = {
    "standard_aud": StandardAud,
    "standard_profile_tier_level": StandardProfileTierLevel,
    "standard_hrd": StandardHrd,
    "standard_sub_layer_hrd": StandardSubLayerHrd,
    "standard_vps": StandardVps,
    "standard_scaling_list_data": StandardScalingListData,
    "standard_st_ref_pic_set": StandardStRefPicSet,
    "standard_vui": StandardVui,
    "standard_sps": StandardSps,
    "standard_pps": StandardPps,
    "standard_slice_segment_header": StandardSliceSegmentHeader,
    "standard_ref_pic_lists_modification": StandardRefPicListsModification,
    "standard_pic_timing": StandardPicTiming,
    "standard_pic_timing_store": StandardPicTimingStore,
    "standard_buffering_period": StandardBufferingPeriod,
    "standard_active_parameter_sets": StandardActiveParameterSets,
}
