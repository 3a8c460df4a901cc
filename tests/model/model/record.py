"""Records: fields in order, all zero, false or empty at first."""


class BadAlloc(Exception):
    """Stands for std::bad_alloc."""


class Number:
    def __init__(self, low, high):
        self.low = low
        self.high = high

    def fresh(self):
        return 0

    def copy(self, value):
        return value

    def sparse(self, value):
        assert self.low <= value <= self.high and value is not True and value is not False, value
        return value

    def scramble(self, rng):
        choice = rng.random()
        if choice < 0.6:
            return rng.randrange(4)
        if choice < 0.75:
            return rng.choice((self.low, self.high, self.high - 1))
        bits = rng.randrange(1, 33)
        return min(self.high, rng.getrandbits(bits)) if self.low == 0 else rng.randint(-99, 99)


class Flag:
    def fresh(self):
        return False

    def copy(self, value):
        return value

    def sparse(self, value):
        assert value is True or value is False, value
        return value

    def scramble(self, rng):
        return rng.random() < 0.5


u8 = Number(0, 0xFF)
u16 = Number(0, 0xFFFF)
u32 = Number(0, 0xFFFFFFFF)
i32 = Number(-0x80000000, 0x7FFFFFFF)
flag = Flag()

# An array of at least this many numbers is written without the zeros at its end.
LONG_ARRAY = 64


def random_length(rng):
    return rng.choice((0, 0, 1, 1, 2, 2, 3, 4, 7 if rng.random() < 0.8 else 20))


class Bits:
    def fresh(self):
        return []

    def copy(self, value):
        return value[:]

    def sparse(self, value):
        text = "".join(["1" if bit else "0" for bit in value])
        if len(text) < LONG_ARRAY:
            return text
        return {"size": len(text), "head": text.rstrip("0")}

    def scramble(self, rng):
        return [rng.random() < 0.5 for _ in range(random_length(rng))]


class Array:
    def __init__(self, element):
        self.element = element
        self.numbers = isinstance(element, Number)

    def fresh(self):
        return []

    def copy(self, value):
        if self.numbers:
            return value[:]
        copy = self.element.copy
        return [copy(entry) for entry in value]

    def sparse(self, value):
        if not self.numbers:
            sparse = self.element.sparse
            return [sparse(entry) for entry in value]
        if len(value) < LONG_ARRAY:
            return value[:]
        used = len(value)
        while used and value[used - 1] == 0:
            used -= 1
        return {"size": len(value), "head": value[:used]}

    def scramble(self, rng):
        length = random_length(rng)
        if not self.numbers:
            length = min(length, 3)
        return [self.element.scramble(rng) for _ in range(length)]


class Fixed:
    """An array of a fixed length, which is written without what is fresh at its end."""

    def __init__(self, element, length):
        self.element = element
        self.length = length

    def fresh(self):
        return [self.element.fresh() for _ in range(self.length)]

    def copy(self, value):
        return [self.element.copy(entry) for entry in value]

    def sparse(self, value):
        assert len(value) == self.length
        entries = [self.element.sparse(entry) for entry in value]
        while entries and not entries[-1]:
            entries.pop()
        return entries

    def scramble(self, rng):
        return [self.element.scramble(rng) for _ in range(self.length)]


class Record:
    """Base of all; `fields` makes the class in between that has the fields."""

    __slots__ = ()
    kinds = ()

    def __init__(self):
        for name, kind in self.kinds:
            setattr(self, name, kind.fresh())

    @classmethod
    def fresh(cls):
        return cls()

    def reset(self):
        """Makes this a fresh record."""
        Record.__init__(self)

    def copy(self):
        twin = object.__new__(type(self))
        for name, kind in self.kinds:
            setattr(twin, name, kind.copy(getattr(self, name)))
        return twin

    def sparse(self):
        """What is not zero, false or empty, for JSON."""
        found = {}
        for name, kind in self.kinds:
            value = getattr(self, name)
            if value:
                value = kind.sparse(value)
                if value:
                    found[name] = value
        return found

    @classmethod
    def scramble(cls, rng):
        """Any content at all, as a host may leave it."""
        record = cls()
        for name, kind in cls.kinds:
            setattr(record, name, kind.scramble(rng))
        return record


def fields(**kinds):
    return type("fields", (Record,), {"__slots__": tuple(kinds), "kinds": tuple(kinds.items())})


def resize(array, count, fresh):
    """Keeps what is there; `fresh` makes new entries."""
    if count < len(array):
        del array[count:]
    else:
        array.extend([fresh() for _ in range(count - len(array))])


def zero():
    return 0


def false():
    return False


class Store:
    """Parsed parameter sets by their identifier."""

    NO_ID = 0xFFFFFFFF

    def __init__(self):
        self.active_id = self.NO_ID
        self.map = {}
