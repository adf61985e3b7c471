#!/usr/bin/env python3
"""Prints the results of the benchmarks as one table, from the files that Google Benchmark wrote.

    benchmarks/table.py RESULT.json...

Of a benchmark that runs with many arguments of a name ("zoom:2"), the slowest stands for all.
"""

import json
import re
import sys

HEAD = ("Operation", "Size", "Time", "Per second", "Plain copies", "Beside it", "Its time",
        "Times faster")
NANOSECONDS = {"ns": 1, "us": 1e3, "ms": 1e6, "s": 1e9}


def with_unit(value, units):
    """`value` in the largest of `units` (factor, name) that it reaches when rounded to three
    digits."""
    factor, name = next((unit for unit in units if value >= 0.9995 * unit[0]), units[-1])
    scaled = value / factor
    digits = 0 if scaled >= 99.5 else 1 if scaled >= 9.95 else 2
    return f"{scaled:.{digits}f} {name}"


def duration(nanoseconds):
    return with_unit(nanoseconds, ((1e9, "s"), (1e6, "ms"), (1e3, "µs"), (1, "ns")))


def bytes_text(count):
    return with_unit(count, ((1e9, "GB"), (1e6, "MB"), (1e3, "kB"), (1, "B")))


def ratio(value):
    return f"{value:,.0f}" if value >= 9.95 else f"{value:.1f}" if value >= 0.95 else f"{value:.2f}"


def operation(name):
    """"OpenByClick/os9_hard_disk/manual_time" as "Open by click, os9 hard disk"."""
    parts = [part for part in name.split("/")
             if part != "manual_time" and not re.match(r"iterations:\d+$", part)]
    words = re.sub(r"(?<=[a-z0-9])(?=[A-Z])", " ", parts[0]).capitalize()
    return ", ".join([words] + [part.replace("_", " ") for part in parts[1:]])


def nanoseconds(result, which="real_time"):
    return result[which] * NANOSECONDS[result["time_unit"]]


def slowest_of_each(results):
    """`results` (name, result), where those with named arguments are one, the slowest."""
    kept = {}
    count = {}
    for result in results:
        named = re.search(r"/[a-z]+:\d+", result["name"].replace("/iterations:", "/"))
        key = result["name"].split("/")[0] if named else result["name"]
        count[key] = count.get(key, 0) + 1
        if key not in kept or nanoseconds(result) > nanoseconds(kept[key]):
            kept[key] = dict(result, name=key if named else result["name"])
    for key, result in kept.items():
        if count[key] > 1:
            result["name"] += f"/the slowest of {count[key]}"
    return list(kept.values())


def row(result):
    time = nanoseconds(result)
    # Google Benchmark counts bytes by the processor's time unless the benchmark gives its own.
    counted = time if "/manual_time" in result["name"] else nanoseconds(result, "cpu_time")
    speed = result.get("bytes_per_second")
    cells = [operation(result["name"]), "", duration(time), "", "", "", "", ""]
    if speed:
        cells[1] = bytes_text(speed * counted / 1e9)
        cells[3] = bytes_text(speed * counted / time)
    if "times_copy" in result:
        cells[4] = ratio(result["times_copy"])
    if "peer_ms" in result:
        # The quickest run of each side.
        cells[2] = duration(result["ours_ms"] * 1e6)
        cells[3] = bytes_text(speed * time / (result["ours_ms"] * 1e6))
        cells[5] = result["label"]
        cells[6] = duration(result["peer_ms"] * 1e6)
        cells[7] = ratio(result["peer_ms"] / result["ours_ms"])
    return cells


def table(rows):
    widths = [max(len(line[column]) for line in [HEAD] + rows) for column in range(len(HEAD))]
    lines = ["| " + " | ".join(cell.ljust(width) for cell, width in zip(line, widths)) + " |"
             for line in [HEAD] + rows]
    return "\n".join([lines[0], "|" + "|".join("-" * (width + 2) for width in widths) + "|"]
                     + lines[1:])


def main():
    rows = []
    failed = []
    for path in sys.argv[1:]:
        with open(path, encoding="utf-8") as file:
            results = json.load(file)["benchmarks"]
        failed += [result["name"] for result in results if result.get("error_occurred")]
        rows += [row(result) for result in slowest_of_each(
            [result for result in results if not result.get("error_occurred")])]
    print(table(rows))
    for name in failed:
        print(f"{name} failed", file=sys.stderr)
    return 1 if failed or not rows else 0


if __name__ == "__main__":
    sys.exit(main())
