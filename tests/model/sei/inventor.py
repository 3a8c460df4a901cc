"""Payloads made up: a source of elements that keeps the bits of what it is asked for."""

from .bits import exp_golomb, whole_bytes
from .elements import Refused
from .payloads import PAYLOADS

DEEPEST = 4
MOST_BITS = 6000
RESERVED = (7, 8, 20, 55, 153, 203, 210, 255, 300, 1020)
NESTS = (133, 157, 159, 162)
OTHERS = [kind for kind in PAYLOADS if kind not in NESTS]
FAULTS = 0.1
TEXTS = (b"", b"en", b"zh-Hant", "Überschrift".encode(), b"a label of several words")


class Inventor:
    """Asked for more than MOST_BITS it refuses. `top` is what a value mostly stays below or at."""

    def __init__(self, rng):
        self.rng = rng
        self.pieces = []
        self.pos = 0

    def bits(self):
        return "".join(self.pieces)

    def append(self, bits):
        self.pieces.append(bits)
        self.pos += len(bits)
        if self.pos > MOST_BITS:
            raise Refused("long enough")

    def write(self, value, width):
        self.append(f"{value:0{width}b}")
        return value

    def of_width(self, width):
        choice = self.rng.random()
        if choice < 0.1:
            return 0
        if choice < 0.2:
            return (1 << width) - 1
        if choice < 0.25:
            return 1 << (width - 1)
        return self.rng.getrandbits(width)

    def u(self, width, name, *indices, top=None):
        if width == 0:
            return 0
        if width > MOST_BITS:
            raise Refused("long enough")
        if width == 1:
            return self.write(self.rng.random() < (0.2 if "cancel" in name else 0.5), 1)
        if top is not None and self.rng.random() < 0.96:
            return self.write(self.rng.randrange(top + 1), width)
        return self.write(self.of_width(width), width)

    def i(self, width, name, *indices):
        self.write(self.of_width(width), width)

    def code_number(self):
        choice = self.rng.random()
        if choice < 0.6:
            return self.rng.randrange(6)
        if choice < 0.8:
            return self.rng.randrange(300)
        if choice < 0.9:
            return (1 << self.rng.randrange(32)) - 1
        if choice < 0.95:
            return self.rng.choice((0xFFFFFFFE, 0xFFFFFFFD, 0x7FFFFFFF, 0x7FFFFFFE))
        return self.rng.getrandbits(31)

    def ue(self, name, *indices, top=None):
        code = self.code_number()
        if top is not None and self.rng.random() < 0.96:
            code = self.rng.randrange(top + 1)
        self.append(exp_golomb(code))
        return code

    def se(self, name, *indices):
        self.append(exp_golomb(self.code_number()))

    def run(self, count, name, *indices):
        if count > MOST_BITS:
            raise Refused("long enough")
        for _ in range(count):
            self.write(self.of_width(8), 8)

    def text(self, name, *indices):
        for byte in self.rng.choice(TEXTS) + b"\0":
            self.write(byte, 8)

    def align(self, name, bit=0):
        while self.pos % 8:
            self.write(bit, 1)

    def bytes_left(self):
        return self.rng.choice((0, 1, 2, 7, self.rng.randrange(40), self.rng.randrange(239, 600)))

    def payload_extension_present(self):
        return self.rng.random() < 0.5

    def message(self, around):
        for byte in invent_message(self.rng, around):
            self.write(byte, 8)

    def messages_to_the_end(self, around):
        for _ in range(self.rng.choice((0, 1, 1, 2, 3))):
            self.message(around)


def random_bytes(rng, most):
    return bytes(rng.getrandbits(8) for _ in range(rng.randrange(most)))


def close(rng, bits):
    """The bits with extension data or none, and the closing bits."""
    choice = rng.random()
    if choice < 0.2:
        bits += f"{rng.getrandbits(80):080b}"[: rng.randrange(1, 81)]
    elif choice < 0.7 and len(bits) % 8 == 0:
        return bits
    return bits + "1" + ("0" * 8 * rng.randrange(3) if rng.random() < 0.1 else "")


def spoil(rng, data):
    choice = rng.random()
    if choice < 0.3:
        return data[: rng.randrange(len(data) + 1)]
    if choice < 0.6:
        return data + random_bytes(rng, 6)
    if choice < 0.7:
        return data + b"\0" * rng.randrange(1, 4)
    spoilt = bytearray(data)
    for _ in range(rng.randrange(1, 4)):
        if spoilt:
            spoilt[rng.randrange(len(spoilt))] ^= 1 << rng.randrange(8)
    return bytes(spoilt)


def invent_payload(rng, kind, around):
    source = Inventor(rng)
    try:
        PAYLOADS[kind](source, around)
    except Refused:
        if rng.random() < 0.5:
            return random_bytes(rng, 40)
    return whole_bytes(close(rng, source.bits()))


def run_length(value):
    return b"\xff" * (value // 255) + bytes([value % 255])


def any_kind(rng, around):
    choice = rng.random()
    if choice < 0.05:
        return rng.choice(RESERVED)
    if choice < 0.2 and around.depth < DEEPEST:
        return rng.choice(NESTS)
    return rng.choice(OTHERS)


def invent_message(rng, around):
    kind = any_kind(rng, around)
    data = invent_payload(rng, kind, around) if kind in PAYLOADS else random_bytes(rng, 20)
    if rng.random() < FAULTS:
        data = spoil(rng, data)
    return run_length(kind) + run_length(len(data)) + data
