"""Elements read from bits: name with its indices, value, first bit, width."""

from model.bits import signed

MOST_LEADING_ZEROS = 31


class Refused(Exception):
    """A payload that cannot be taken apart: too short, or its parameters are not known."""


def indexed(name, indices):
    return name + "".join(f"[{i}]" for i in indices)


class Reader:
    """Reads up to `limit`; each read leaves an element, one of no bits leaves none.

    What `top` says is for those who make values up, see inventor.py."""

    def __init__(self, data):
        self.bits = format(int.from_bytes(data, "big"), f"0{8 * len(data)}b") if data else ""
        self.pos = 0
        self.limit = len(self.bits)
        self.elements = []

    def take(self, width):
        if self.pos + width > self.limit:
            raise Refused("too short")
        piece = self.bits[self.pos : self.pos + width]
        self.pos += width
        return piece

    def note(self, name, value, begin):
        self.elements.append((name, value, begin, self.pos - begin))
        return value

    def u(self, width, name, *indices, top=None):
        if width == 0:
            return 0
        begin = self.pos
        return self.note(indexed(name, indices), int(self.take(width), 2), begin)

    def i(self, width, name, *indices):
        begin = self.pos
        value = int(self.take(width), 2)
        return self.note(indexed(name, indices), value - (value >> (width - 1) << width), begin)

    def code_number(self):
        zeros = self.bits.find("1", self.pos, self.limit) - self.pos
        if not 0 <= zeros <= MOST_LEADING_ZEROS:
            raise Refused("no code number")
        self.take(zeros)
        return int(self.take(zeros + 1), 2) - 1

    def ue(self, name, *indices, top=None):
        begin = self.pos
        return self.note(indexed(name, indices), self.code_number(), begin)

    def se(self, name, *indices):
        begin = self.pos
        return self.note(indexed(name, indices), signed(self.code_number()), begin)

    def run(self, count, name, *indices):
        """Bytes that are one element."""
        if count:
            begin = self.pos
            digits = f"{int(self.take(8 * count), 2):0{2 * count}x}"
            self.note(indexed(name, indices) + f"[0..{count - 1}]", digits, begin)

    def text(self, name, *indices):
        begin = self.pos
        letters = bytearray()
        while byte := int(self.take(8), 2):
            letters.append(byte)
        self.note(indexed(name, indices), bytes(letters), begin)

    def align(self, name, bit=0):
        while self.pos % 8:
            self.u(1, name)

    def bytes_left(self):
        return (self.limit - self.pos) // 8

    def last_one(self):
        """Where the last 1 is, -1 without one from here on."""
        return self.bits.rfind("1", self.pos, self.limit)

    def payload_extension_present(self):
        return self.pos < self.limit and self.pos != self.last_one()
