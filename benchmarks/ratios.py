"""Prints a run of benchmark_framing as a table of speeds relative to memchr and memcpy.

usage: ratios.py FRAMING.json   (with aggregates, as scripts/benchmark makes it)
"""
import json
import sys

with open(sys.argv[1], encoding="utf-8") as file:
    run = json.load(file)
speed = {
    row["run_name"]: row["bytes_per_second"]
    for row in run["benchmarks"]
    if row["aggregate_name"] == "median"
}

print("| job | GB/s | limit | of the limit |")
print("|---|---|---|---|")
for name, value in speed.items():
    job, _, place = name.rpartition("/")
    if job in ("memchr", "memcpy"):
        continue
    limit = ("memchr/" if job.startswith("scan") else "memcpy/") + place
    print(f"| {name} | {value / 1e9:.2f} | {limit} | {value / speed[limit]:.2f} |")
