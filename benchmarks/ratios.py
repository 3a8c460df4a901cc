"""Prints runs of the benchmarks as a table of ratios, with the goal beside each ratio that has one.

usage: ratios.py RESULTS.json...   (with aggregates, as scripts/benchmark makes them)

A ratio is of medians of one run: `speed` is the speed of kovran over that of the other contender,
`time` is its time over the other's. Rows whose contenders are not in the results are left out.
"""
import json
import sys

SPEED, TIME = "speed", "time"

# What the row is about; the results divided; how; the goal.
ROWS = [
    ("scan, large units from memory", "scan/hi_from_memory", "memchr", SPEED, ">= 0.85"),
    ("", "scan/hi_from_memory", "byte_loop", SPEED, ""),
    ("", "scan/hi_from_memory", "gstreamer_masked_scan", SPEED, ""),
    ("", "scan/hi_from_memory", "gstreamer_identify_nalu", SPEED, ""),
    ("scan, large units in cache", "scan/hi_in_cache", "memchr", SPEED, ">= 0.55"),
    ("", "scan/hi_in_cache", "byte_loop", SPEED, ""),
    ("", "scan/hi_in_cache", "gstreamer_masked_scan", SPEED, ""),
    ("", "scan/hi_in_cache", "gstreamer_identify_nalu", SPEED, ""),
    ("scan, 170-byte units in cache", "scan/170_byte_units", "memchr", SPEED, ">= 0.30"),
    ("", "scan/170_byte_units", "byte_loop", SPEED, ""),
    ("", "scan/170_byte_units", "gstreamer_identify_nalu", SPEED, ">= 10"),
    ("scan, `lo` in cache", "scan/lo_in_cache", "memchr", SPEED, ""),
    ("", "scan/lo_in_cache", "gstreamer_identify_nalu", SPEED, ""),
    ("scan, `lo` from memory", "scan/lo_from_memory", "memchr", SPEED, ""),
    ("", "scan/lo_from_memory", "gstreamer_identify_nalu", SPEED, ""),
    ("scan, zeros", "scan/zeros", "memchr", SPEED, ">= 0.25"),
    ("scan, only 00 00 03", "scan/emulation_only", "memchr", SPEED, ">= 0.25"),
    ("scan, noise", "scan/noise", "memchr", SPEED, ""),
    ("scan, 00 00 03 every 1024 bytes", "scan/emulation_every_1024", "memchr", SPEED, ""),
    ("scan, 00 00 03 every 61 bytes", "scan/emulation_every_61", "memchr", SPEED, ""),
    ("decode, clean 128 KB in cache", "decode/clean_in_cache", "memcpy", SPEED, ">= 0.55"),
    ("decode, large units from memory", "decode/hi_from_memory", "memcpy", SPEED, ">= 0.65"),
    ("", "decode/hi_from_memory", "byte_loop", SPEED, ""),
    ("decode, 170-byte units", "decode/170_byte_units", "memcpy", SPEED, ">= 0.30"),
    ("decode, `lo` in cache", "decode/lo_in_cache", "memcpy", SPEED, ""),
    ("decode, only 00 00 03", "decode/zero_pairs", "byte_loop", SPEED, ">= 1.0"),
    ("decode, 00 00 03 every 1024 bytes", "decode/emulation_every_1024", "memcpy", SPEED, ""),
    ("decode, 00 00 03 every 61 bytes", "decode/emulation_every_61", "memcpy", SPEED, ""),
    ("encode, clean 128 KB in cache", "encode/clean_in_cache", "memcpy", SPEED, ">= 0.50"),
    ("encode, 170-byte units", "encode/170_byte_units", "memcpy", SPEED, ""),
    ("encode, zeros", "encode/zeros", "byte_loop", SPEED, ">= 0.9"),
    ("encode, a pair every 1024 bytes", "encode/emulation_every_1024", "memcpy", SPEED, ""),
    ("encode, a pair every 61 bytes", "encode/emulation_every_61", "memcpy", SPEED, ""),
    ("scan, decode and encode, `hi`", "rewrite/hi", "ffmpeg", TIME, ""),
    ("scan, decode and encode, `lo`", "rewrite/lo", "ffmpeg", TIME, ""),
    ("scan, decode and encode, `rich`", "rewrite/rich", "ffmpeg", TIME, ""),
    ("SPS, typical", "sps/typical", "gstreamer", TIME, "<= 0.25"),
    ("SPS, rich", "sps/rich", "gstreamer", TIME, "<= 0.25"),
    ("SPS, heavy", "sps/heavy", "gstreamer", TIME, "<= 0.40"),
    ("VPS", "vps/rich", "gstreamer", TIME, "<= 0.30"),
    ("PPS", "pps/rich", "gstreamer", TIME, "<= 0.30"),
    ("slice headers, `lo`", "slices/lo", "gstreamer", TIME, "<= 0.35"),
    ("slice headers, `rich`", "slices/rich", "gstreamer", TIME, "<= 0.35"),
    ("SEI messages of `rich`", "sei/rich", "gstreamer", TIME, ""),
    ("buffering period", "sei/buffering_period", "gstreamer", TIME, "<= 0.30"),
    ("picture timing", "sei/pic_timing", "gstreamer", TIME, "<= 0.30"),
    ("registered user data", "sei/user_data_registered_itu_t_t35", "gstreamer", TIME, "<= 0.30"),
    ("unregistered user data", "sei/user_data_unregistered", "gstreamer", TIME, "<= 0.30"),
    ("recovery point", "sei/recovery_point", "gstreamer", TIME, "<= 0.30"),
    ("time code", "sei/time_code", "gstreamer", TIME, "<= 0.30"),
    ("mastering display", "sei/mastering_display_colour_volume", "gstreamer", TIME, "<= 0.30"),
    ("content light level", "sei/content_light_level_info", "gstreamer", TIME, "<= 0.30"),
    ("whole walk, `lo`", "walk/lo", "gstreamer", TIME, "<= 0.35"),
    ("", "walk/lo", "ffmpeg", TIME, ""),
    ("whole walk, `rich`", "walk/rich", "gstreamer", TIME, ""),
    ("", "walk/rich", "ffmpeg", TIME, ""),
]

# kovran against itself: the job, its time, the time that it is divided by, the goal.
SELF_ROWS = [
    ("decode, only 00 00 03, twice the bytes", "decode/zero_pairs_twice_the_bytes",
     "decode/zero_pairs", "<= 2.1"),
    ("decode, first 128 bytes: of 500 KB / of 1 KB", "decode/first_128_of_500_kb",
     "decode/first_128_of_1_kb", "<= 1.1"),
]


def read(paths):
    """The medians of all runs, by name."""
    medians = {}
    for path in paths:
        with open(path, encoding="utf-8") as file:
            for row in json.load(file)["benchmarks"]:
                if row.get("aggregate_name") == "median":
                    medians[row["run_name"]] = row
    return medians


def verdict(ratio, goal):
    if not goal:
        return ""
    bound = float(goal[2:])
    return "yes" if (ratio >= bound if goal[0] == ">" else ratio <= bound) else "no"


def main(paths):
    medians = read(paths)
    print("| job | kovran against | ratio | goal | met |")
    print("|---|---|---|---|---|")
    last_job = ""
    for job, prefix, other, kind, goal in ROWS:
        last_job = job or last_job
        own, theirs = medians.get(f"{prefix}/kovran"), medians.get(f"{prefix}/{other}")
        if own is None or theirs is None:
            continue
        ratio = own["cpu_time"] / theirs["cpu_time"]
        if kind == SPEED:
            ratio = 1 / ratio
        print(f"| {last_job} | {other}: {kind} | {ratio:.2f} | {goal} | {verdict(ratio, goal)} |")
    for job, name, other, goal in SELF_ROWS:
        own, theirs = medians.get(f"{name}/kovran"), medians.get(f"{other}/kovran")
        if own is not None and theirs is not None:
            ratio = own["cpu_time"] / theirs["cpu_time"]
            print(f"| {job} | itself: time | {ratio:.2f} | {goal} | {verdict(ratio, goal)} |")
    counts = [row["allocations"] for row in medians.values() if "allocations" in row]
    if counts:
        most = max(counts)
        print(f"| allocations per parse, the most of {len(counts)} kinds | | {most:.0f} | <= 0 "
              f"| {verdict(most, '<= 0')} |")


main(sys.argv[1:])
