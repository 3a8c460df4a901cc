"""Prints the most memory that `kovran info` holds beyond the stream, which it maps.

usage: peak_memory.py KOVRAN STREAM...

Sampled while the program runs, as the kernel keeps no peak of this part alone.
"""
import os
import subprocess
import sys

GOAL_MIB = 2.0


def anonymous_kib(pid):
    with open(f"/proc/{pid}/status", encoding="ascii") as status:
        for line in status:
            if line.startswith("RssAnon:"):
                return int(line.split()[1])
    return 0  # it has ended, and is not waited for yet


def peak_mib(program, stream):
    with subprocess.Popen([program, "info", stream], stdout=subprocess.DEVNULL) as running:
        peak = 0
        while running.poll() is None:
            peak = max(peak, anonymous_kib(running.pid))
        return peak / 1024


for path in sys.argv[2:]:
    mib = peak_mib(sys.argv[1], path)
    met = "yes" if mib <= GOAL_MIB else "no"
    print(f"| memory of `kovran info` beyond `{os.path.basename(path)}`, MiB | | {mib:.2f} "
          f"| <= {GOAL_MIB:.0f} | {met} |")
