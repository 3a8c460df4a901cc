"""usage: python3 -m sei trace KOVRAN SEED STREAMS
       python3 -m sei readings FOLDER

Compares what the program lists, or what readings of streams have, with the model. Exit status: 0
all alike, 1 differences."""

import sys
from pathlib import Path

from .comparison import compare
from .readings import compare_readings

MOST_SHOWN = 10


def report(messages, differences):
    print(f"{messages} messages are alike, {len(differences)} units differ")
    print(*differences[:MOST_SHOWN], sep="\n")
    return 1 if differences or not messages else 0


def main(arguments):
    if len(arguments) == 4 and arguments[0] == "trace":
        alike, differences = compare(arguments[1], arguments[2], int(arguments[3]))
        for kind in sorted(alike):
            print(f"payload type {kind}: {alike[kind]}")
        return report(alike.total(), differences)
    if len(arguments) == 2 and arguments[0] == "readings":
        return report(*compare_readings(Path(arguments[1])))
    print(__doc__, file=sys.stderr)
    return 2


sys.exit(main(sys.argv[1:]))
