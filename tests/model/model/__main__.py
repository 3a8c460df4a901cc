"""usage: python3 -m model ENTRY|all SEED CASES [FIRST]

Writes cases, one a line, as JSON; the same ones for the same seed. `list` writes the entries."""

import json
import os
import sys

from .cases import NAMES, make_case


def main(arguments):
    if arguments == ["list"]:
        print(*NAMES, sep="\n")
        return 0
    if len(arguments) not in (3, 4):
        print(__doc__, file=sys.stderr)
        return 2
    entry, seed = arguments[:2]
    count = int(arguments[2])
    first = int(arguments[3]) if len(arguments) == 4 else 0
    for name in NAMES if entry == "all" else (entry,):
        for number in range(first, first + count):
            case = make_case(name, seed, number)
            sys.stdout.write(json.dumps(case, separators=(",", ":")) + "\n")
    return 0


try:
    sys.exit(main(sys.argv[1:]))
except BrokenPipeError:
    # The other end has seen enough.
    os.dup2(os.open(os.devnull, os.O_WRONLY), sys.stdout.fileno())
    sys.exit(1)
