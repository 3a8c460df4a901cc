"""Reading bits. What is past the end of the data reads as zeros."""

MASK32 = 0xFFFFFFFF

# ue() of a code with more than 31 leading zeros, and how many bits of it are consumed.
OVERLONG_CODE = 0xFFFF
OVERLONG_BITS = 32


def signed(code):
    """The value of se(v) with this code number, table 9-3."""
    return (code >> 1) + 1 if code & 1 else -(code >> 1)


def bit_length(count):
    """How many binary digits a count has, at least one."""
    digits = 0
    while count:
        digits += 1
        count >>= 1
    return digits


class Reader:
    """The names of the elements are for those who invent input; see inventor.py."""

    __slots__ = ("bits", "size", "pos", "overlong")

    def __init__(self, data, start=0):
        self.size = 8 * len(data)
        self.bits = format(int.from_bytes(data, "big"), f"0{self.size}b") if data else ""
        self.pos = start
        self.overlong = False  # a code had more zeros before its first 1 than any value has

    def u(self, width, name=None):
        """Any width; of more than 32 bits the last 32 are the value."""
        if width == 0:
            return 0
        piece = self.bits[self.pos : self.pos + width]
        self.pos += width
        return int(piece.ljust(width, "0"), 2) & MASK32

    def u_v(self, width, name=None):
        """A width that comes from the stream: it is a byte, and may be 0."""
        return self.u(width & 0xFF, name)

    def flag(self, name=None):
        return self.u(1, name) != 0

    def ue(self, name=None):
        one = self.bits.find("1", self.pos, self.pos + OVERLONG_BITS)
        if one < 0:
            self.overlong = True
            self.pos += OVERLONG_BITS
            return OVERLONG_CODE
        zeros = one - self.pos
        self.pos = one + 1
        return (1 << zeros) - 1 + self.u(zeros)

    def se(self, name=None):
        return signed(self.ue(name))

    def skip(self, count, name=None):
        self.pos += count

    def align(self):
        self.pos += -self.pos % 8

    def exhausted(self):
        return self.pos >= self.size

    def in_data(self):
        """Whether all that was read is in the data, and every code has a value."""
        return self.pos <= self.size and not self.overlong

    def holds(self, count):
        """Whether so many more bits are in the data, behind codes that have values."""
        return self.pos + count <= self.size and not self.overlong

    def payload_bits_left(self):
        """Up to the last 1 of the data, which begins the trailing bits; below 0 behind it."""
        return max(self.bits.rfind("1"), 0) - self.pos

    def attempt(self, part):
        """Goes back where `part` returns false, or has read more than the payload."""
        before = self.pos, self.overlong
        if part() and self.payload_bits_left() >= 0 and not self.overlong:
            return True
        self.pos, self.overlong = before
        return False

    def more_rbsp_data(self):
        if self.pos >= self.size:
            return False
        if self.bits[self.pos] == "0":
            return True
        return self.bits.find("1", self.pos + 1) >= 0

    def skip_rbsp_trailing_bits(self):
        stop = self.u(1)
        padding = self.u(-self.pos % 8)
        return stop == 1 and padding == 0
