"""Bytes to parse: well formed, damaged, or nothing but noise."""

from .inventor import Inventor
from .record import BadAlloc


def to_bytes(rng, bits):
    """Fills the last byte with zeros, or with anything."""
    missing = -len(bits) % 8
    if missing:
        filling = rng.getrandbits(missing) if rng.random() < 0.3 else 0
        bits += format(filling, f"0{missing}b")
    return int(bits, 2).to_bytes(len(bits) // 8, "big") if bits else b""


def noise(rng):
    choice = rng.random()
    size = rng.randrange(60) if choice < 0.9 else rng.randrange(1000)
    if choice < 0.1:
        return bytes([rng.choice((0, 0xFF, 0x80, 0x55))]) * size
    if choice < 0.3:
        # Many ones make short codes, which get further.
        return bytes(rng.getrandbits(8) | rng.getrandbits(8) for _ in range(size))
    return rng.randbytes(size)


def damaged(rng, bits):
    choice = rng.random()
    if choice < 0.4:
        return bits[: rng.randrange(len(bits))]
    if choice < 0.8:
        changed = list(bits)
        for _ in range(rng.choice((1, 1, 1, 2, 4, 16))):
            place = rng.randrange(len(bits))
            changed[place] = "1" if changed[place] == "0" else "0"
        return "".join(changed)
    place = rng.randrange(len(bits))
    if choice < 0.9:
        return bits[:place] + bits[place + rng.randrange(1, 9) :]
    return bits[:place] + format(rng.getrandbits(8), "08b") + bits[place:]


def continuation(rng):
    """Bits that may well be read as the rest of a structure: many ones make short codes, and behind
    an extension flag anything goes up to the last one."""
    length = rng.randrange(1, 400)
    rest = rng.getrandbits(length)
    if rng.random() < 0.5:
        rest |= rng.getrandbits(length)
    return format(rest, f"0{length}b") + "1"


TAILS = (
    lambda rng: "",
    lambda rng: "1",
    lambda rng: "1" + "0" * rng.randrange(40),
    lambda rng: "0" * rng.randrange(40),
    lambda rng: format(rng.getrandbits(40), "040b")[: rng.randrange(41)],
)


def make_input(rng, record, parse, nested, budget, habits, faults):
    """Bytes, and the bit of them where the structure begins. `faults` is how often they are not
    well formed."""
    start = 0
    if rng.random() < (0.6 if nested else 0.08):
        start = rng.randrange(1, 24)
    fault = rng.random() < faults
    if fault and rng.random() < 0.25:
        return noise(rng), start

    inventor = Inventor(rng, start, budget, habits)
    try:
        fits = parse(record.copy(), inventor)
    except BadAlloc:
        fits = True
    bits = inventor.bits()
    if not fits:
        # Something to go on with, for a reader that should have stopped here and does not.
        bits += continuation(rng)
    if nested or rng.random() < 0.2:
        bits += rng.choice(TAILS)(rng)
    if fault and bits:
        bits = damaged(rng, bits)
    return to_bytes(rng, bits), start
