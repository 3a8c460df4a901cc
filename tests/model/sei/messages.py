"""sei_rbsp(): the messages of a NAL unit as elements, clauses 7.3.2.4, 7.3.5 and D.2.1."""

from .elements import Reader, Refused
from .limits import LIMITS
from .payloads import PAYLOADS

HEADER_BITS = 16
PREFIX_SEI_NUT = 39
BUFFERING_PERIOD = 0
ACTIVE_PARAMETER_SETS = 129


class UnitReader(Reader):
    """Over a NAL unit with its header. Nests call back for the messages in them."""

    def __init__(self, unit):
        super().__init__(unit)
        self.pos = HEADER_BITS
        self.prefix = unit[0] >> 1 == PREFIX_SEI_NUT
        self.messages = []  # payload type, first bit and end of each payload

    def note(self, name, value, begin):
        stem = name.split("[")[0]
        if stem in LIMITS and not LIMITS[stem][0] <= value <= LIMITS[stem][1]:
            raise Refused(f"{name} is {value}")
        return super().note(name, value, begin)

    def read(self, around):
        """All messages and the trailing bits. Raises Refused where the framing breaks."""
        self.message(around)
        while self.pos < self.last_one():
            self.message(around)
        self.u(1, "rbsp_stop_one_bit")
        while self.pos < self.limit:
            self.u(1, "rbsp_alignment_zero_bit")

    def message(self, around):
        kind = self.run_length("type")
        size = self.run_length("size")
        begin, outer = self.pos, self.limit
        end = min(begin + 8 * size, outer)
        self.messages.append((kind, begin, end))
        if end - begin < 8 * size:
            self.opaque(kind, end)
            return
        self.limit = end
        known = len(self.elements)
        try:
            self.payload(kind, around)
        except Refused:
            del self.elements[known:]
            self.pos = begin
            self.opaque(kind, end)
        self.limit = outer

    def run_length(self, what):
        value = 0
        while self.bits.startswith("1" * 8, self.pos):
            value += self.u(8, "ff_byte")
        return value + self.u(8, f"last_payload_{what}_byte")

    def payload(self, kind, around):
        if kind not in PAYLOADS:
            raise Refused("reserved")
        known = len(self.elements)
        PAYLOADS[kind](self, around)
        self.close_payload()
        if self.prefix and kind == BUFFERING_PERIOD:
            around.activate(self.value_of("bp_seq_parameter_set_id", known))
        elif self.prefix and kind == ACTIVE_PARAMETER_SETS:
            around.activate(self.value_of("active_seq_parameter_set_id[0]", known))

    def value_of(self, name, begin):
        return next(element[1] for element in self.elements[begin:] if element[0] == name)

    def close_payload(self):
        """Zero bytes too many are closing bits, each of them, of which the first is no 1."""
        begin, one = self.pos, self.last_one()
        if begin < one:
            self.note("reserved_payload_extension_data", int(self.take(one - begin), 2), begin)
        while self.pos < self.limit:
            self.u(1, "payload_bit_equal_to_one")
            self.align("payload_bit_equal_to_zero")

    def opaque(self, kind, end):
        if self.pos < end:
            begin, size = self.pos, (end - self.pos) // 8
            self.note(f"sei_payload({kind})", f"{int(self.take(8 * size), 2):0{2 * size}x}", begin)

    def messages_to_the_end(self, around):
        """A single byte left is no message."""
        while self.pos + 8 < self.limit:
            self.message(around)
