"""Cases: inputs that are parsed one after the other into one record, and what comes of each."""

import random

from .bits import Reader
from .entries import ENTRIES as OWN_ENTRIES
from .h265_nal_sei_reader import h265_nal_sei_reader
from .inputs import make_input
from .record import BadAlloc, Record
from .standard.entries import ENTRIES as STANDARD_ENTRIES

ENTRIES = {**OWN_ENTRIES, **STANDARD_ENTRIES}

FAULTS = 0.4


def step_of(entry, record, data, start, arguments):
    step = {"hex": data.hex(), "start": start}
    for name, value in arguments.items():
        step[name] = value.sparse() if isinstance(value, Record) else value
    entry.prepare(record, arguments)
    reader = Reader(data, start)
    try:
        step["returns"] = entry.parse(record, reader, arguments)
    except BadAlloc:
        step["throws"] = "std::bad_alloc"
    if failed_by_the_standard(step):
        return step
    step["position"] = reader.pos
    step["next"] = reader.u(16)
    step["record"] = record.sparse()
    if hasattr(record, "text"):
        step["text"] = record.text()
    return step


def failed_by_the_standard(step):
    """What is in the record then, and where the reader stands, is not the model's to say."""
    return step.get("rules") == "standard" and not step["returns"]


def record_case(name, rng):
    entry = ENTRIES[name](rng)
    case = {"entry": name, **entry.given}
    if rng.random() < 0.25:
        record = entry.scrambled(rng)
    else:
        record = entry.fresh(rng)
    case["record"] = record.sparse()
    case["steps"] = []
    for _ in range(rng.choice((1, 1, 2, 3, 4))):
        arguments = entry.arguments(rng, record)
        if case["steps"] and failed_by_the_standard(case["steps"][-1]):
            arguments["rules"] = "standard"
        entry.prepare(record, arguments)
        data, start = make_input(
            rng,
            record,
            lambda twin, reader: entry.parse(twin, reader, arguments),
            entry.nested,
            entry.budget,
            entry.habits,
            FAULTS,
        )
        case["steps"].append(step_of(entry, record, data, start, arguments))
    return case


FLAWED_ENDS = (b"", b"\x80\x00", b"\x80\x80", b"\x81", b"\xff", b"\x00")


def sei_bytes(rng):
    """Messages with their trailing bits, often with a flaw."""
    if rng.random() < 0.002:
        # About where the sum of a run leaves 32 bits.
        run = b"\xff" * (0xFFFFFFFF // 255 + rng.randrange(-2, 2))
        run += bytes([rng.choice((0, 253, 254))]) if rng.random() < 0.8 else b""
        return rng.choice((b"", b"\x05")) + run + rng.choice((b"", b"\x00", b"\x01\x02\x80"))
    if rng.random() < 0.005:
        # A message of every type that has a name, and of those around them.
        return bytes(byte for payload_type in range(210) for byte in (payload_type, 0)) + b"\x80"
    if rng.random() < 0.15:
        choices = (0, 1, 0x80, 0xFF, 0xFF, rng.randrange(256))
        return bytes(rng.choice(choices) for _ in range(rng.randrange(12)))
    data = bytearray()
    for _ in range(rng.choice((0, 1, 1, 2, 3))):
        payload_type = rng.choice((rng.randrange(256), rng.randrange(1000), 132, 254, 255, 510))
        size = rng.choice((0, 1, 2, rng.randrange(30), 254, 255, 256, rng.randrange(1200)))
        for value in (payload_type, size):
            data += b"\xff" * (value // 255) + bytes([value % 255])
        if rng.random() < 0.1:
            size = rng.randrange(size + 3)
        data += rng.randbytes(size)
    data += rng.choice((b"\x80", b"\x80", b"\x80", *FLAWED_ENDS))
    if rng.random() < 0.2:
        del data[rng.randrange(len(data) + 1) :]
    return bytes(data)


def sei_reader_case(rng):
    """Each step sets the reader to new data and asks for messages beyond their end."""
    case = {"entry": "sei_reader", "steps": []}
    reader = h265_nal_sei_reader()
    case["record"] = reader.state()
    case["returns"] = reader.next_message()
    case["after"] = reader.state()
    for _ in range(rng.choice((1, 1, 2, 3))):
        data = sei_bytes(rng)
        begin, end = 0, len(data)
        choice = rng.random()
        if choice < 0.03:
            data, begin, end = b"", None, None
        elif choice < 0.08:
            begin = rng.randrange(len(data) + 1)
            end = rng.randrange(len(data) + 1)
        nal_unit_type = rng.choice((39, 39, 39, 40, 40, 35, 0, 41))
        reader.set_ptr(data, begin, end, nal_unit_type)
        head = data[: 0 if data[:1] == b"\xff" else 1]
        rest = data[len(head) :].lstrip(b"\xff")
        step = {
            "head": head.hex(),
            "ff_bytes": len(data) - len(head) - len(rest),
            "hex": rest.hex(),
            "begin": begin,
            "end": end,
            "nal_unit_type": nal_unit_type,
            "record": reader.state(),
            "messages": [],
        }
        more = True
        extra = 2
        while extra:
            more = reader.next_message()
            extra -= 0 if more else 1
            step["messages"].append(
                {"returns": more, "record": reader.state(), "text": reader.text()}
            )
        case["steps"].append(step)
    return case


NAMES = (*ENTRIES, "sei_reader")


def make_case(name, seed, number):
    rng = random.Random(f"{name} {seed} {number}")
    case = sei_reader_case(rng) if name == "sei_reader" else record_case(name, rng)
    return {"id": f"{name} {seed} {number}", **case}
