"""Streams made up, read by the model and by the program."""

import random
from collections import Counter
from itertools import zip_longest

from .elements import Refused
from .messages import HEADER_BITS, UnitReader
from .streams import invent_stream
from .trace import listing, spelled

UNITS_OF_A_STREAM = 40


def model_listing(reader, around):
    """What the model lists of a unit, up to where its framing breaks."""
    try:
        reader.read(around)
    except Refused:
        pass
    return [spelled(element, HEADER_BITS) for element in reader.elements]


def first_difference(ours, theirs):
    for place, pair in enumerate(zip_longest(ours, theirs)):
        if pair[0] != pair[1]:
            return place, pair
    return None


def describe(unit, reader, difference):
    """The innermost message around the difference comes last."""
    place, (ours, theirs) = difference
    bit = reader.elements[min(place, len(reader.elements) - 1)][2]
    kinds = [kind for kind, begin, end in reader.messages if begin <= bit < end]
    return f"in payloads {kinds} of {unit.hex()}:\n  program {theirs}\n  model   {ours}"


def compare_stream(program, name, alike, differences):
    stream, around, sei = invent_stream(random.Random(name), UNITS_OF_A_STREAM)
    listed = listing(program, stream)
    for place, unit in sei.items():
        around.temporal_id = unit[1] - 1
        reader = UnitReader(unit)
        difference = first_difference(model_listing(reader, around), listed[place])
        if difference:
            differences.append(f"{name}, unit {place}, {describe(unit, reader, difference)}")
        else:
            alike.update(kind for kind, _, _ in reader.messages)


def compare(program, seed, streams):
    """How many messages of each type are alike, and the differences in words."""
    alike = Counter()
    differences = []
    for number in range(streams):
        compare_stream(program, f"stream {seed}/{number}", alike, differences)
    return alike, differences
