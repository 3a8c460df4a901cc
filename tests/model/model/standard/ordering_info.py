"""Sub-layer ordering information of the VPS and of the SPS, clauses 7.4.3.1 and 7.4.3.2.1."""


def infer(present, *arrays):
    """Without the flag all sub-layers have what the highest has."""
    if not present:
        for array in arrays:
            array[:] = [array[-1]] * len(array)
