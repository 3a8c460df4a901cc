"""What follows the extension flag of a parameter set, H.265 clauses 7.3.2.2.1 and 7.3.2.3.1."""


def read(parameter_set, r, prefix, bodies):
    """`bodies` are pairs of a name and what reads it, in the order of the flags. A reader of an
    older edition of the standard takes everything for data; so do streams of such an edition, whose
    bits fit no extension. What is left by the extensions is data in any case."""
    names = [f"{prefix}_{name}" for name, _ in bodies]

    def extensions():
        for name in names:
            setattr(parameter_set, name + "_flag", r.flag("one_extension_flag"))
        setattr(parameter_set, prefix + "_extension_4bits", r.u(4, "extension_4bits"))
        for name, (_, read_body) in zip(names, bodies):
            if getattr(parameter_set, name + "_flag"):
                if not read_body(getattr(parameter_set, name), r):
                    return False
        return True

    if not r.attempt(extensions):
        for name in names:
            setattr(parameter_set, name + "_flag", False)
            getattr(parameter_set, name).reset()
        setattr(parameter_set, prefix + "_extension_4bits", 0)
    data = [r.flag() for _ in range(r.payload_bits_left())]
    setattr(parameter_set, prefix + "_extension_data_flag", data)


def palette(initializers, r, count, widths):
    """Entries of each component, whose samples have the `widths`."""
    for component, width in enumerate(widths):
        if not r.holds(count * width):
            return False
        initializers[component] = [r.u(width) for _ in range(count)]
    return True
