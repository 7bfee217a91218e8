#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Lines a CPU second, decoded and kept, beside a packet engine's decoder that only decodes.

    bench/against_decoder.py CONSOLE DATA_FOLDER TRAFFIC_FOLDER [--rounds 16] [--runs 3] [--same-calls]

Plays all recorded lines ROUNDS times, each round under changed calls (so that each brings its own stations), into
`halvern-console --simulate` by one `replay`, and feeds the same file to `decode_aprs` (Debian's direwolf). CPU time of
both processes, user and system, less that of a start with nothing to do; runs alternate and the least of each counts.
"""
import argparse
import os
import pathlib
import re
import subprocess
import sys
import tempfile

SETUP = pathlib.Path(__file__).parent.parent / "tests/stories/parts/set-up.txt"
CALL = re.compile(rb"^([A-Z0-9]{3,6})(-[0-9]{1,2})?>")


def other_call(call: bytes, turn: int) -> bytes:
    """Another call of the same length: its letters and digits moved on by the turn, the first one kept."""
    moved = bytearray(call)
    for i in range(1, len(moved)):
        first, count = (0x41, 26) if moved[i] >= 0x41 else (0x30, 10)
        moved[i] = first + (moved[i] - first + turn * (i + 1)) % count
    return bytes(moved)


def write_lines(folder: pathlib.Path, rounds: int, path: pathlib.Path, same: bool = False) -> int:
    recorded = [line for file in sorted(folder.glob("*.tnc2")) for line in file.read_bytes().splitlines()]
    with path.open("wb") as out:
        for turn in range(rounds):
            for line in recorded:
                out.write(CALL.sub(lambda m: other_call(m[1], 0 if same else turn) + (m[2] or b"") + b">", line) + b"\n")
    return rounds * len(recorded)


def cpu_seconds(command: list[str], stdin: bytes | pathlib.Path) -> float:
    before = os.times()
    source = stdin.open("rb") if isinstance(stdin, pathlib.Path) else None
    subprocess.run(command, stdin=source, input=None if source else stdin, stdout=subprocess.DEVNULL,
                   stderr=subprocess.DEVNULL, check=False)
    after = os.times()
    return after.children_user + after.children_system - before.children_user - before.children_system


def main() -> None:
    options = argparse.ArgumentParser()
    options.add_argument("console")
    options.add_argument("data", type=pathlib.Path)
    options.add_argument("traffic", type=pathlib.Path)
    options.add_argument("--rounds", type=int, default=16)
    options.add_argument("--runs", type=int, default=3)
    options.add_argument("--same-calls", action="store_true", help="as a feed is where most stations are known")
    options.add_argument("--only", choices=["halvern"], help="for a profile: no decoder beside it")
    args = options.parse_args()
    with tempfile.TemporaryDirectory() as folder:
        lines_file = pathlib.Path(folder, "lines.tnc2")
        lines = write_lines(args.traffic, args.rounds, lines_file, args.same_calls)
        station = pathlib.Path(folder, "station")
        station.mkdir()
        for entry in args.data.resolve().iterdir():
            if entry.is_dir():
                (station / entry.name).symlink_to(entry)
        console = [args.console, "--simulate", str(station)]
        play = SETUP.read_bytes() + f'\nreplay TCPIP "{lines_file}"\n'.encode()
        ours, theirs = [], []
        for _ in range(args.runs):
            ours.append(cpu_seconds(console, play) - cpu_seconds(console, SETUP.read_bytes()))
            if not args.only:
                theirs.append(cpu_seconds(["decode_aprs"], lines_file))
        print(f"{lines} lines; kept: {lines / min(ours):,.0f} lines a CPU second")
        if theirs:
            print(f"decode_aprs, decoded only: {lines / min(theirs):,.0f}; ratio {min(theirs) / min(ours):.2f}")


if __name__ == "__main__":
    sys.exit(main())
