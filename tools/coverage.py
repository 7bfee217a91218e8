#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Tells which lines of src/ and of the tools the core tests run, room by room.

    tools/coverage.py            the table
    tools/coverage.py --missed   and every line that no test ran, as FILE:LINE

It builds the core preset with gcov's counters in build/coverage. What needs Qt (forms, platform/qt, the programs) is not
in the core tests and so not in the table: the window tests run it. A header's line counts once, whoever includes it.
"""
import argparse
import collections
import json
import os
import pathlib
import subprocess

ROOT = pathlib.Path(__file__).resolve().parent.parent
BUILD = ROOT / "build" / "coverage"
FLAGS = "-O0 -g1 --coverage"


def run_tests():
    """Builds, forgets the counts of the run before, and runs the tests: their failure is no failure of this program."""
    subprocess.run(["cmake", "--preset", "core", "-B", BUILD, f"-DCMAKE_CXX_FLAGS_DEBUG={FLAGS}"], cwd=ROOT, check=True,
                   stdout=subprocess.DEVNULL)
    subprocess.run(["ninja", "-C", BUILD, "halvern_core_tests"], check=True)
    for counts in BUILD.rglob("*.gcda"):
        counts.unlink()
    subprocess.run([BUILD / "halvern_core_tests", "--gtest_brief=1"], check=False)


def runs_of_lines():
    """How often each line was run: {file: {line: times}}. What a header defines may be counted in a test's object."""
    runs = collections.defaultdict(dict)
    for path in BUILD.rglob("*.gcno"):
        told = subprocess.run(["gcov", "--json-format", "--stdout", path], cwd=BUILD, capture_output=True, check=True)
        for unit in map(json.loads, told.stdout.splitlines()):
            for source in unit["files"]:
                name = os.path.relpath(os.path.join(unit["current_working_directory"], source["file"]), ROOT)
                if name.startswith(("src/", "tools/")):
                    lines = runs[name]
                    for line in source["lines"]:
                        number = line["line_number"]
                        lines[number] = max(lines.get(number, 0), line["count"])
    return runs


def main():
    parser = argparse.ArgumentParser(description=__doc__.split("\n")[0])
    parser.add_argument("--missed", action="store_true", help="every line that no test ran")
    asked = parser.parse_args()
    run_tests()
    rooms, missed = collections.defaultdict(lambda: [0, 0]), []
    for name, lines in sorted(runs_of_lines().items()):
        ran = sum(times > 0 for times in lines.values())
        for room in (os.path.dirname(name), name.split("/")[0] + ", all of it"):
            rooms[room][0] += ran
            rooms[room][1] += len(lines)
        missed += [f"{name}:{number}" for number, times in sorted(lines.items()) if not times]
    for room, (ran, of) in sorted(rooms.items()):
        print(f"{room:28} {ran:6} of {of:6} lines {100 * ran / of:6.1f} %")
    if asked.missed:
        print(*missed, sep="\n")


main()
