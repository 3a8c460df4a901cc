"""What can be parsed: the records, what their parsers are given, and how to make that up."""

from .h265_hrd_parameters import h265_hrd_parameters, h265_nal_sub_layer_hrd_parameters
from .h265_nal_aud import h265_nal_aud
from .h265_nal_pps import h265_nal_pps
from .h265_nal_sei_active_parameter_sets import h265_nal_sei_active_parameter_sets
from .h265_nal_sei_buffering_period import h265_nal_sei_buffering_period
from .h265_nal_sei_pic_timing import h265_nal_sei_pic_timing
from .h265_nal_sps import h265_nal_sps
from .h265_nal_vps import h265_nal_vps
from .h265_profile_tier_level import h265_profile_tier_level, layer_t
from .h265_ref_pic_lists_modification import h265_ref_pic_lists_modification
from .h265_scaling_list_data import h265_scaling_list_data
from .h265_slice_segment_header import h265_slice_segment_header
from .h265_st_ref_pic_set import h265_st_ref_pic_set
from .h265_vui_parameters import h265_vui_parameters
from .inputs import make_input
from .inventor import often, seldom
from .bits import Reader
from .record import BadAlloc, Store


def parsed(rng, record, parse, faults, habits=None):
    """A record after it was read, not always to its end."""
    data, start = make_input(rng, record, parse, False, 6000, habits or {}, faults)
    try:
        parse(record, Reader(data, start))
    except BadAlloc:
        pass
    return record


def store_json(store):
    return {
        "active_id": store.active_id,
        "records": [[number, record.sparse()] for number, record in sorted(store.map.items())],
    }


def sub_layers(rng):
    """maxNumSubLayersMinus1 as a host may give it."""
    choice = rng.random()
    if choice < 0.85:
        return rng.choice((0, 0, 1, 2, 3, 6, 7))
    if choice < 0.97:
        return rng.choice((8, 9, 30, 126, 127, 128, 129))
    return rng.choice((0xFFFFFFFF, 0xFFFFFFFE, 255, 256, 0x80000000, rng.getrandbits(32)))


class Entry:
    """One parse function. What it is given besides the reader stays as it is for a whole case, in
    `given`, or is new at each step, in what `arguments` returns."""

    record = None
    nested = False  # may begin within a byte
    budget = 20000
    habits = {}

    def __init__(self, rng):
        self.given = {}

    def fresh(self, rng):
        return self.record()

    def scrambled(self, rng):
        return self.record.scramble(rng)

    def arguments(self, rng, record):
        return {}

    def prepare(self, record, arguments):
        """What a host sets in the record before it calls."""

    def parse(self, record, reader, arguments):
        raise NotImplementedError


class Aud(Entry):
    record = h265_nal_aud
    nested = True

    def parse(self, record, reader, arguments):
        return record.parse(reader)


class ProfileTierLevel(Entry):
    record = h265_profile_tier_level
    nested = True

    def arguments(self, rng, record):
        return {
            "profilePresentFlag": rng.random() < 0.8,
            "maxNumSubLayersMinus1": sub_layers(rng),
        }

    def parse(self, record, reader, arguments):
        return record.parse(
            arguments["profilePresentFlag"], arguments["maxNumSubLayersMinus1"], reader
        )


class ProfileTierLevelLayer(Entry):
    record = layer_t
    nested = True

    def arguments(self, rng, record):
        return {
            "profile_present_flag": rng.random() < 0.8,
            "level_present_flag": rng.random() < 0.6,
        }

    def prepare(self, record, arguments):
        record.profile_present_flag = arguments["profile_present_flag"]
        record.level_present_flag = arguments["level_present_flag"]

    def parse(self, record, reader, arguments):
        return record.parse(reader)


class Hrd(Entry):
    record = h265_hrd_parameters
    nested = True

    def scrambled(self, rng):
        record = self.record.scramble(rng)
        if rng.random() < 0.5:
            # Counts that are kept, one of which wraps when 1 is added.
            size = rng.randrange(1, 5)
            record.low_delay_hrd_flag = [rng.random() < 0.8 for _ in range(size)]
            record.cpb_cnt_minus1 = [rng.choice((0, 1, 127, 128, 0xFFFFFFFF)) for _ in range(size)]
        return record

    def arguments(self, rng, record):
        return {
            "commonInfPresentFlag": rng.random() < 0.7,
            "maxNumSubLayersMinus1": sub_layers(rng),
        }

    def parse(self, record, reader, arguments):
        return record.parse(
            arguments["commonInfPresentFlag"], arguments["maxNumSubLayersMinus1"], reader
        )


class SubLayerHrd(Entry):
    record = h265_nal_sub_layer_hrd_parameters
    nested = True

    def __init__(self, rng):
        super().__init__(rng)
        self.hrd = h265_hrd_parameters()
        if rng.random() < 0.5:
            self.hrd = h265_hrd_parameters.scramble(rng)
        self.given = {"hrd": self.hrd.sparse()}

    def arguments(self, rng, record):
        return {
            "subLayerId": rng.choice((0, 1, 6, 127, rng.getrandbits(32))),
            "cpb_count": rng.choice((0, 1, 2, 3, 32, 127, 128, 129, 0xFFFFFFFF)),
        }

    def parse(self, record, reader, arguments):
        return record.parse(arguments["subLayerId"], arguments["cpb_count"], self.hrd, reader)


class Vps(Entry):
    record = h265_nal_vps

    def fresh(self, rng):
        record = self.record()
        if rng.random() < 0.3:
            # What the standard infers is for the host to set.
            record.cprms_present_flag = [True]
        return record

    def parse(self, record, reader, arguments):
        return record.parse(reader)


class ScalingListData(Entry):
    record = h265_scaling_list_data
    nested = True

    def parse(self, record, reader, arguments):
        return record.parse(reader)


class StRefPicSet(Entry):
    """The record may be one of the sets that it is predicted from, at any index."""

    record = h265_st_ref_pic_set
    nested = True

    def __init__(self, rng):
        super().__init__(rng)
        self.sets = []
        self.sps = h265_nal_sps()
        self.sps.num_short_term_ref_pic_sets = rng.randrange(6)
        for idx in range(rng.choice((0, 1, 2, 3, 3, 4, 5, 5))):
            new = h265_st_ref_pic_set()
            self.sets.append(new)
            if rng.random() < 0.15:
                self.sets[idx] = h265_st_ref_pic_set.scramble(rng)
            else:
                parsed(rng, new, lambda s, r: s.parse(r, self.sps, idx, self.sets), 0.1)
                if rng.random() < 0.08:
                    new.NumDeltaPocs = rng.choice((126, 127, 128, 0xFFFFFFFF))
        self.give(rng)

    def give(self, rng):
        """Tells of the sets, one of which may be the record."""
        if rng.random() < 0.7:
            self.sps.num_short_term_ref_pic_sets = len(self.sets)
        self.own = None
        self.given = {
            "num_short_term_ref_pic_sets": self.sps.num_short_term_ref_pic_sets,
            "sets_are_of_sps": rng.random() < 0.5,
        }
        if self.sets and rng.random() < 0.4:
            self.own = rng.randrange(len(self.sets))
            self.given["own"] = self.own
        self.given["sets"] = [each.sparse() for each in self.sets]

    def fresh(self, rng):
        return self.record() if self.own is None else self.sets[self.own]

    def scrambled(self, rng):
        return self.record.scramble(rng) if self.own is None else self.sets[self.own]

    def arguments(self, rng, record):
        idx = self.own
        if idx is None or rng.random() < 0.5:
            idx = rng.choice((0, 1, 2, 3, 4, 5, len(self.sets), len(self.sets) + 1))
            if rng.random() < 0.03:
                idx = rng.choice((0xFFFFFFFF, 0x80000000, 128, 129))
        return {"idx": idx}

    def parse(self, record, reader, arguments):
        return record.parse(reader, self.sps, arguments["idx"], self.sets)


class Vui(Entry):
    record = h265_vui_parameters
    nested = True

    def __init__(self, rng):
        super().__init__(rng)
        self.sps = h265_nal_sps()

    def arguments(self, rng, record):
        return {
            "sps_max_sub_layers_minus1": rng.choice((0, 0, 1, 2, 6, 7))
            if rng.random() < 0.95
            else rng.choice((127, 128, 255))
        }

    def parse(self, record, reader, arguments):
        self.sps.sps_max_sub_layers_minus1 = arguments["sps_max_sub_layers_minus1"]
        return record.parse(reader, self.sps)


def small_vps(rng):
    vps = h265_nal_vps()
    choice = rng.random()
    if choice < 0.1:
        return h265_nal_vps.scramble(rng)
    if choice < 0.2:
        return parsed(rng, vps, lambda record, reader: record.parse(reader), 0.3)
    vps.vps_base_layer_internal_flag = rng.random() < 0.5
    vps.vps_max_layers_minus1 = rng.choice((0, 0, 1, 2, 5, 63, 126, 127, 128, 255))
    vps.valid = rng.random() < 0.8
    return vps


def vps_store(rng, chance_of_none=0.05):
    store = Store()
    if rng.random() >= chance_of_none:
        for _ in range(rng.randrange(1, 4)):
            store.map[rng.randrange(16)] = small_vps(rng)
        if rng.random() < 0.05:
            store.map[rng.getrandbits(32)] = small_vps(rng)
    if rng.random() < 0.5:
        store.active_id = rng.choice((0, 1, *store.map))
    return store


class Sps(Entry):
    record = h265_nal_sps

    def __init__(self, rng):
        super().__init__(rng)
        self.vps_store = vps_store(rng)
        self.given = {"vps_store": store_json(self.vps_store)}
        # An invalid VPS ends everything at once, so it is not named as often.
        ids = [i for i in self.vps_store.map if i < 16 and self.vps_store.map[i].valid]
        self.habits = {"sps_video_parameter_set_id": often(ids, 0.95)}

    def parse(self, record, reader, arguments):
        return record.parse(reader, self.vps_store)


class Pps(Entry):
    record = h265_nal_pps

    def __init__(self, rng):
        super().__init__(rng)
        self.sps_store = Store()
        for _ in range(rng.choice((0, 1, 1, 2, 3)) if rng.random() < 0.3 else 2):
            sps = h265_nal_sps()
            sps.valid = rng.random() < 0.8
            number = rng.randrange(16) if rng.random() < 0.9 else rng.getrandbits(32)
            self.sps_store.map[min(number, 0xFFFFFFFE)] = sps
        self.given = {"sps_store": store_json(self.sps_store)}
        ids = [i for i, sps in self.sps_store.map.items() if sps.valid]
        self.habits = {"pps_seq_parameter_set_id": often(ids, 0.95)}

    def parse(self, record, reader, arguments):
        return record.parse(reader, self.sps_store)


SLICE_SPS_HABITS = {
    "scaling_list_data_present_flag": seldom(0.02),
    "vui_parameters_present_flag": seldom(0.02),
    "long_term_ref_pics_present_flag": seldom(0.6),
}


class SliceSegmentHeader(Entry):
    record = h265_slice_segment_header

    def __init__(self, rng):
        super().__init__(rng)
        self.vps_store = Store()
        self.sps_store = Store()
        self.pps_store = Store()
        vps_ids = rng.sample(range(16), 2)
        for number in vps_ids[: rng.choice((1, 2, 2))]:
            self.vps_store.map[number] = small_vps(rng)
        valid_vps = Store()
        for number in range(16):
            valid_vps.map[number] = h265_nal_vps()
            valid_vps.map[number].valid = True

        sps_ids = [rng.randrange(16), rng.randrange(16), min(rng.getrandbits(32), 0xFFFFFFFE)]
        for number in sps_ids[: rng.choice((1, 2, 2, 3))]:
            sps = h265_nal_sps()
            if rng.random() < 0.05:
                sps = h265_nal_sps.scramble(rng)
            else:
                parsed(rng, sps, lambda s, r: s.parse(r, valid_vps), 0.1, SLICE_SPS_HABITS)
                self.patch_sps(rng, sps)
            if rng.random() < 0.97:
                sps.sps_video_parameter_set_id = rng.choice(list(self.vps_store.map))
            self.sps_store.map[number] = sps

        valid_sps = Store()
        for number in self.sps_store.map:
            valid_sps.map[number] = h265_nal_sps()
            valid_sps.map[number].valid = True
        habits = {
            "pps_seq_parameter_set_id": often(self.sps_store.map),
            "scaling_list_data_present_flag": seldom(0.02),
        }
        for _ in range(rng.choice((1, 2, 3))):
            pps = h265_nal_pps()
            if rng.random() < 0.05:
                pps = h265_nal_pps.scramble(rng)
                pps.pps_seq_parameter_set_id = rng.choice(list(self.sps_store.map))
            else:
                parsed(rng, pps, lambda p, r: p.parse(r, valid_sps), 0.1, habits)
                if rng.random() < 0.5:
                    pps.lists_modification_present_flag = True
            number = rng.choice((0, 1, 2, 3, 63)) if rng.random() < 0.9 else rng.getrandbits(31)
            self.pps_store.map[number] = pps
        if rng.random() < 0.02:
            rng.choice((self.vps_store, self.sps_store, self.pps_store)).map.clear()

        self.given = {
            "pps_store": store_json(self.pps_store),
            "sps_store": store_json(self.sps_store),
            "vps_store": store_json(self.vps_store),
        }
        self.habits = {"slice_pic_parameter_set_id": often(self.pps_store.map)}

    def patch_sps(self, rng, sps):
        """States that a stream makes seldom, or only in a parse that failed."""
        if sps.pic_width_in_luma_samples == 0 and rng.random() < 0.8:
            sps.pic_width_in_luma_samples = 1920
            sps.pic_height_in_luma_samples = 1080
        choice = rng.random()
        if choice < 0.03:
            sps.num_short_term_ref_pic_sets += rng.choice((1, 2, 500, 0xFFFF))
        elif choice < 0.06:
            sps.used_by_curr_pic_lt_sps_flag = [True] * rng.randrange(6)
        elif choice < 0.09:
            sps.num_long_term_ref_pics_sps = rng.choice((1, 2, 3, 4, 128, 0xFFFF, 0xFFFFFFFF))
        elif choice < 0.12:
            sps.log2_min_luma_coding_block_size_minus3 = rng.choice((28, 29, 30, 0xFFFFFFFE))
            sps.log2_diff_max_min_luma_coding_block_size = rng.choice((0, 1, 2, 5, 0xFFFFFFFE))
        elif choice < 0.15:
            sps.pic_width_in_luma_samples = rng.choice((0, 0x80000000, 0xFFFFFFFF, 0x80000))
            sps.pic_height_in_luma_samples = rng.choice((0, 2, 16, 0xFFFFFFFF, 0x80000))
        for pictures in sps.st_ref_pic_set[:3]:
            if rng.random() < 0.03:
                pictures.num_negative_pics += 3
                pictures.num_positive_pics += 1

    def arguments(self, rng, record):
        choice = rng.random()
        if choice < 0.6:
            nal_unit_type = rng.choice((0, 1, 1, 19, 20, 21))
        elif choice < 0.97:
            nal_unit_type = rng.randrange(32)
        else:
            nal_unit_type = rng.choice((32, 39, 63, 64, 0xFFFFFFFF))
        return {"nal_unit_type": nal_unit_type}

    def parse(self, record, reader, arguments):
        return record.parse(
            reader, self.pps_store, self.sps_store, self.vps_store, arguments["nal_unit_type"]
        )


def entry_counts(rng):
    choice = rng.random()
    if choice < 0.95:
        return rng.randrange(8)
    if choice < 0.98:
        return rng.randrange(200)
    return rng.choice((1048575, 1048576, 0xFFFFFFFF, 0xFFFF))


class RefPicListsModification(Entry):
    record = h265_ref_pic_lists_modification
    nested = True

    def arguments(self, rng, record):
        header = h265_slice_segment_header()
        header.NumPicTotalCurr = rng.choice((0, 1, 2, 3, 4, 5, 7, 8, 16, 0xFFFF, 0xFFFFFFFF))
        header.slice_type = rng.choice((0, 0, 0, 1, 1, 2, 3, 0xFFFFFFFF))
        header.num_ref_idx_l0_active_minus1 = entry_counts(rng)
        header.num_ref_idx_l1_active_minus1 = entry_counts(rng)
        return {"header": header}

    def parse(self, record, reader, arguments):
        return record.parse(reader, arguments["header"])


HRD_LENGTHS = (
    "du_cpb_removal_delay_increment_length_minus1",
    "dpb_output_delay_du_length_minus1",
    "initial_cpb_removal_delay_length_minus1",
    "au_cpb_removal_delay_length_minus1",
    "dpb_output_delay_length_minus1",
)


def timing_sps(rng):
    """An SPS as far as timing messages look at it."""
    sps = h265_nal_sps()
    vui = sps.vui_parameters
    hrd = vui.hrd_parameters
    if rng.random() < 0.1:
        sps.vui_parameters = h265_vui_parameters.scramble(rng)
        return sps
    if rng.random() < 0.2:
        sps.sps_max_sub_layers_minus1 = rng.randrange(4)
        habits = {
            "vui_timing_info_present_flag": seldom(0.9),
            "vui_hrd_parameters_present_flag": seldom(0.9),
        }
        parsed(rng, vui, lambda v, r: v.parse(r, sps), 0.1, habits)
        return sps
    vui.frame_field_info_present_flag = rng.random() < 0.5
    hrd.nal_hrd_parameters_present_flag = rng.random() < 0.6
    hrd.vcl_hrd_parameters_present_flag = rng.random() < 0.5
    hrd.sub_pic_hrd_params_present_flag = rng.random() < 0.5
    hrd.sub_pic_cpb_params_in_pic_timing_sei_flag = rng.random() < 0.5
    for name in HRD_LENGTHS:
        length = rng.choice((rng.randrange(32), 22, 23, 24, 25, 30, 31))
        if rng.random() < 0.01:
            length = rng.choice((32, 49, 50, 63, 254, 255))
        setattr(hrd, name, length)
    if rng.random() < 0.9:
        first = rng.choice((0, 0, 1, 2, 3, 31))
        if rng.random() < 0.1:
            first = rng.choice((126, 127, 128, 0xFFFFFFFE, 0xFFFFFFFF))
        hrd.cpb_cnt_minus1 = [first, *(rng.randrange(9) for _ in range(rng.randrange(3)))]
    return sps


class PicTiming(Entry):
    record = h265_nal_sei_pic_timing
    nested = True

    def __init__(self, rng):
        super().__init__(rng)
        self.sps = timing_sps(rng)
        self.given = {"sps": self.sps.sparse()}

    def parse(self, record, reader, arguments):
        return record.parse(reader, self.sps)


class PicTimingStore(Entry):
    record = h265_nal_sei_pic_timing

    def __init__(self, rng):
        super().__init__(rng)
        self.sps_store = Store()
        for _ in range(rng.choice((0, 1, 2, 2, 3))):
            number = rng.randrange(4) if rng.random() < 0.9 else 0xFFFFFFFF
            self.sps_store.map[number] = timing_sps(rng)
        self.given = {"sps_store": store_json(self.sps_store)}

    def arguments(self, rng, record):
        choices = (*self.sps_store.map, *self.sps_store.map, 0, 1, 3, 0xFFFFFFFF, 0xFFFFFFFE)
        return {"active_id": rng.choice(choices)}

    def parse(self, record, reader, arguments):
        self.sps_store.active_id = arguments["active_id"]
        return record.parse_store(reader, self.sps_store)


class BufferingPeriod(Entry):
    record = h265_nal_sei_buffering_period

    def __init__(self, rng):
        super().__init__(rng)
        self.sps_store = Store()
        for _ in range(rng.choice((0, 1, 2, 2, 3))):
            number = rng.randrange(16) if rng.random() < 0.9 else rng.getrandbits(31)
            self.sps_store.map[number] = timing_sps(rng)
        self.given = {"sps_store": store_json(self.sps_store)}
        self.habits = {"bp_seq_parameter_set_id": often(self.sps_store.map)}

    def parse(self, record, reader, arguments):
        return record.parse(reader, self.sps_store)


class ActiveParameterSets(Entry):
    record = h265_nal_sei_active_parameter_sets
    nested = True

    def __init__(self, rng):
        super().__init__(rng)
        self.vps_store = vps_store(rng)
        self.given = {"vps_store": store_json(self.vps_store)}
        ids = [number for number in self.vps_store.map if number < 16]
        self.habits = {"active_video_parameter_set_id": often(ids)}

    def parse(self, record, reader, arguments):
        return record.parse(reader, self.vps_store)


ENTRIES = {
    "aud": Aud,
    "profile_tier_level": ProfileTierLevel,
    "profile_tier_level_layer": ProfileTierLevelLayer,
    "hrd": Hrd,
    "sub_layer_hrd": SubLayerHrd,
    "vps": Vps,
    "scaling_list_data": ScalingListData,
    "st_ref_pic_set": StRefPicSet,
    "vui": Vui,
    "sps": Sps,
    "pps": Pps,
    "slice_segment_header": SliceSegmentHeader,
    "ref_pic_lists_modification": RefPicListsModification,
    "pic_timing": PicTiming,
    "pic_timing_store": PicTimingStore,
    "buffering_period": BufferingPeriod,
    "active_parameter_sets": ActiveParameterSets,
}
