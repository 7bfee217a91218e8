#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""The published figures as tables: bench/figures.py BUILD DATA TRAFFIC. `bench/peers.sh` builds first.

Each bench runs five times; the median counts, and the spread says from where to where the five went.
"""
import csv
import datetime
import os
import pathlib
import platform
import re
import statistics
import subprocess
import sys

HERE = pathlib.Path(__file__).resolve().parent
RUNS = 5
NANOSECONDS = {"ns": 1, "us": 1e3, "ms": 1e6, "s": 1e9}


def rate(row):
    return float(row["items_per_second"]) / 1000


def time_in(unit):
    return lambda row: float(row["cpu_time"]) * NANOSECONDS[row["time_unit"]] / NANOSECONDS[unit]


# Bench program, its filter, what a row says of it, unit, and the figure out of a row of its CSV.
BENCHES = [
    ("EngineBench", "StationsKnown/1000$", "reports of 1,000 known stations", "thousand a second", rate),
    ("EngineBench", "StationsKnown/31990$", "reports of 31,990 known stations", "thousand a second", rate),
    ("EngineBench", "KindOfPacket/mic_e$", "Mic-E reports", "thousand a second", rate),
    ("EngineBench", "KindOfPacket/message_to_us$", "messages to the station, filed and acknowledged", "thousand a second", rate),
    ("GateBench", "ReportsToInternet$", "gate, reports to the Internet", "thousand a second", rate),
    ("AirBench", "Digipeat$", "from a frame to the digipeated one", "us", time_in("us")),
    ("AirBench", "ObjectTick/500/10000$", "a tick of 500 own objects", "us", time_in("us")),
    ("MapBench", "ParseWorld", "the map of the world, read", "ms", time_in("ms")),
    ("MapBench", "ReplotTheCrowd/32000$", "32,000 stations put in their places", "us", time_in("us")),
    ("MapBench", "MoveOne/32000$", "one of 32,000 stations moved", "ns", time_in("ns")),
    ("TrailsWindowBench", ".*", "trails, {name}", "ms", time_in("ms")),
    ("ListWindowBench", ".*", "lists, {name}", "ms", time_in("ms")),
]


def table(title, columns, rows):
    print(f"\n## {title}\n\n| " + " | ".join(columns) + " |\n|" + "---|" * len(columns))
    for row in rows:
        print("| " + " | ".join(row) + " |")


def plain(number):
    return f"{number:,.0f}" if number >= 100 else f"{number:.3g}"


def bench_rows(build):
    for program, pattern, what, unit, figure in BENCHES:
        command = [build / program, f"--benchmark_filter={pattern}", f"--benchmark_repetitions={RUNS}", "--benchmark_format=csv"]
        out = subprocess.run(command, capture_output=True, text=True, check=True, env=dict(os.environ, QT_QPA_PLATFORM="offscreen")).stdout
        runs = {}
        for row in csv.DictReader(out[out.index("name,"):].splitlines()):
            if not re.search(r"_(mean|median|stddev|cv)$", row["name"]):
                runs.setdefault(row["name"], []).append(figure(row))
        for name, figures in runs.items():
            yield (what.format(name=name), plain(statistics.median(figures)), unit, f"{plain(min(figures))} to {plain(max(figures))}",
                   f"`{program} --benchmark_filter='{pattern}'`")


def script(name, *words):
    return subprocess.run([sys.executable, HERE / name, *map(str, words)], capture_output=True, text=True, check=True).stdout.strip()


def main():
    build, data, traffic = (pathlib.Path(word).resolve() for word in sys.argv[1:4])
    model = re.search(r"model name\s*: (.*)", pathlib.Path("/proc/cpuinfo").read_text())
    print(f"{datetime.date.today()}, {os.cpu_count()} cores of {model[1] if model else platform.machine()}, "
          f"load {os.getloadavg()[0]:.1f} at the start")
    for title, options in (("each round new stations", []), ("the same stations again", ["--same-calls"])):
        played = script("against_decoder.py", build / "halvern-console", data, traffic, "--runs", RUNS, *options).splitlines()
        table(f"Decoded and kept, beside a decoder: {title}", ["What"], [(line,) for line in played])
    table("By the bench programs", ["What", "Median", "Unit", f"{RUNS} runs", "Command"], bench_rows(build))
    table("The desktop program, from outside", ["What"], [(line,) for line in script("windows.py", build).splitlines()])


if __name__ == "__main__":
    main()
