"""What `kovran trace` lists, and how it spells what the model has."""

import re
import subprocess

# The name of an element is what is behind the last dot of its path, but the dots of a range.
NAME = re.compile(r"(?:[^.]|\.\.)*$")


def listing(program, stream):
    """The elements of each NAL unit: name, value as listed, bit behind the header, width."""
    done = subprocess.run(
        [program, "trace", "-"], input=stream, capture_output=True, timeout=60, check=False
    )
    if done.returncode not in (0, 1):
        raise RuntimeError(f"{program} ended with {done.returncode}: {done.stderr[-500:]}")
    units = []
    for line in done.stdout.decode(errors="replace").split("\n"):
        if line.startswith("unit "):
            units.append([])
        elif line.startswith(" "):
            _, bit, width, path, descriptor, *value = line.split(None, 5)
            name = "sei_payload" if descriptor == "bytes" else NAME.search(path)[0]
            if width != "0":
                units[-1].append((name, "".join(value), int(bit), int(width)))
    return units


def spelled(element, header_bits):
    name, value, bit, width = element
    if isinstance(value, bytes):
        value = value.decode(errors="replace")
    elif isinstance(value, int) and width > 63:
        whole_bytes = bit % 8 == 0 and width % 8 == 0
        value = f"{'' if whole_bytes else '0x'}{value:0{(width + 3) // 4}x}"
    return re.sub(r"^sei_payload\(.*", "sei_payload", name), str(value), bit - header_bits, width
