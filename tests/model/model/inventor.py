"""Input that fits a structure: a reader that makes up what it is asked for, and keeps the bits."""

from .bits import MASK32, OVERLONG_BITS, OVERLONG_CODE, signed

EXTREMES = (0xFFFFFFFE, 0xFFFFFFFD, 0x80000000, 0x7FFFFFFF, 0x7FFFFFFE, 0xFFFF, 0xFFFFFFFB)
OVERLONG = -1


def any_code(rng):
    """A code number of ue(v); OVERLONG for a code that is too long to be one."""
    choice = rng.random()
    if choice < 0.35:
        return 0
    if choice < 0.75:
        return rng.randrange(6)
    if choice < 0.9:
        return rng.randrange(40)
    if choice < 0.97:
        return (1 << rng.randrange(32)) - 1 + rng.getrandbits(31) % (1 << rng.randrange(1, 32))
    if choice < 0.99:
        return rng.choice(EXTREMES)
    return OVERLONG


def count(top, limit):
    """Mostly 0 to `top`, seldom about the limit, very seldom anything."""

    def choose(rng):
        choice = rng.random()
        if choice < 0.93:
            return rng.randrange(top + 1)
        if choice < 0.98:
            return rng.choice((limit - 1, limit, limit + 1))
        return any_code(rng)

    return choose


def seldom(probability):
    return lambda rng: rng.random() < probability


def often(values, probability=0.97):
    """One of `values` with the probability, else any code."""
    values = tuple(values)

    def choose(rng):
        if values and rng.random() < probability:
            return rng.choice(values)
        return any_code(rng)

    return choose


def unbounded_count(rng):
    """Of arrays without a bound in the syntax, which get long when the data end early."""
    choice = rng.random()
    if choice < 0.96:
        return rng.randrange(4)
    if choice < 0.985:
        return rng.randrange(40)
    if choice < 0.995:
        return rng.choice((1048573, 1048575, 1048576, 1048577, 0xFFFFFFFE, 0xFFFFFFFD))
    return any_code(rng)


PICTURE_SIZES = (1, 8, 16, 64, 65, 128, 176, 144, 352, 288, 1920, 1080, 4096, 8192, 16888)

# Where 4 more bits make a read in several pieces, a value that has no room, or a width of 0.
LSB_WIDTH_EDGES = (13, 20, 21, 22, 27, 28, 29, 45, 46, 47, 251, 252, 253, 0xFFFFFFFC)

# What suits an element better than any value at all, by its name.
HABITS = {
    "max_sub_layers_minus1": lambda rng: rng.choice((0, 0, 0, 1, 2, 3, 6, 7)),
    "profile_idc": lambda rng: rng.randrange(13) if rng.random() < 0.9 else rng.randrange(32),
    "aspect_ratio_idc": lambda rng: rng.choice((*range(18), 254, 255, 255, 255)),
    "chroma_format_idc": often((0, 1, 1, 2, 3, 3, 4)),
    "picture_size": often(PICTURE_SIZES, 0.9),
    "log2_coding_block_size": often((0, 0, 1, 1, 2, 3, 4), 0.98),
    "log2_max_pic_order_cnt_lsb_minus4": often((*range(13), 12, 12, *LSB_WIDTH_EDGES)),
    "vps_num_layer_sets_minus1": count(3, 127),
    "vps_num_hrd_parameters": count(3, 128),
    "cpb_cnt_minus1": count(2, 127),
    "num_short_term_ref_pic_sets": count(5, 128),
    "num_long_term_ref_pics_sps": count(4, 128),
    "num_negative_pics": count(3, 128),
    "num_positive_pics": count(3, 128),
    "num_tiles_minus1": count(4, 128),
    "num_decoding_units_minus1": count(5, 127),
    "num_sps_ids_minus1": count(4, 127),
    "slice_type": often((0, 0, 0, 1, 1, 2, 3)),
    "num_long_term_sps": unbounded_count,
    "num_long_term_pics": unbounded_count,
    "num_ref_idx_active_minus1": unbounded_count,
    "delta_idx_minus1": often(range(4), 0.95),
    "scaling_list_delta_coef": often(range(9), 0.9),
    "dependent_slice_segment_flag": seldom(0.2),
    "extension_flag": seldom(0.3),
}

# Flags that are the same often enough in one input, with the probabilities to choose from.
TENDENCIES = {
    "profile_compatibility_flag": (0.0, 0.02, 0.05, 0.5),
    "scaling_list_pred_mode_flag": (0.0, 0.05, 0.3, 1.0),
    "inter_ref_pic_set_prediction_flag": (0.0, 0.2, 0.5, 1.0),
    "one_extension_flag": (0.1, 0.3, 0.5, 1.0),
    "weight_flag": (0.0, 0.1, 0.5, 1.0),
    "": (0.1, 0.5, 0.5, 0.5, 0.9),
}


class Inventor:
    """Has the interface of bits.Reader. After so many bits the data are at an end."""

    def __init__(self, rng, start, budget, habits):
        self.rng = rng
        self.habits = {**HABITS, **habits}
        self.tendencies = {name: rng.choice(choices) for name, choices in TENDENCIES.items()}
        self.pieces = []
        self.pos = 0
        self.size = start + budget
        self.extension_bits = None
        self.write(rng.getrandbits(start) if start else 0, start)

    def bits(self):
        return "".join(self.pieces)

    def write(self, value, width):
        if width:
            self.pieces.append(format(value, f"0{width}b"))
            self.pos += width

    def exhausted(self):
        return self.pos >= self.size

    def u(self, width, name=None):
        if width == 0 or self.exhausted():
            return 0
        if name in self.habits:
            value = self.habits[name](self.rng) & ((1 << width) - 1)
        else:
            value = self.rng.getrandbits(width)
            if self.rng.random() < 0.1:
                value = self.rng.choice((0, (1 << width) - 1))
        self.write(value, width)
        return value & MASK32

    def u_v(self, width, name=None):
        return self.u(width & 0xFF, name)

    def flag(self, name=None):
        if self.exhausted():
            return False
        if name in self.habits:
            value = self.habits[name](self.rng)
        else:
            tendency = self.tendencies.get(name)
            if tendency is None:
                tendency = self.tendencies[""]
            value = self.rng.random() < tendency
        self.pieces.append("1" if value else "0")
        self.pos += 1
        return bool(value)

    def ue(self, name=None):
        if self.exhausted():
            return OVERLONG_CODE
        code = self.habits.get(name, any_code)(self.rng)
        if code == OVERLONG:
            self.write(0, OVERLONG_BITS)
            return OVERLONG_CODE
        code = min(code, 0xFFFFFFFE)
        length = (code + 1).bit_length()
        self.write(code + 1, 2 * length - 1)
        return code

    def se(self, name=None):
        return signed(self.ue(name))

    def skip(self, width, name=None):
        if not self.exhausted():
            self.u(width)

    def align(self):
        self.skip(-self.pos % 8)

    def in_data(self):
        return True

    def holds(self, count):
        return self.pos + count <= self.size

    def payload_bits_left(self):
        return self.rng.choice((0, 0, 0, 0, 0, 1, 7, 8, self.rng.randrange(200)))

    def attempt(self, part):
        """What was read is not taken back: it is to be read as data. Now and then that is all."""
        if self.rng.random() < 0.15:
            self.u(self.rng.randrange(1, 70))
            return False
        return part()

    def more_rbsp_data(self):
        if self.extension_bits is None:
            self.extension_bits = self.rng.choice((0, 1, 2, 7, 8, 9, self.rng.randrange(200)))
        if self.exhausted() or self.extension_bits == 0:
            return False
        self.extension_bits -= 1
        return True

    def skip_rbsp_trailing_bits(self):
        if not self.exhausted():
            self.write(1, 1)
            self.write(0, -self.pos % 8)
        return True
