#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Who may include whom: a room sees the rooms below it, and only the topmost ones see Qt. --arrows lists who does."""
import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent / "src"
# The floors from the ground up. The rooms of a floor see those below it, never one above or beside them.
FLOORS = [
    ["platform"],
    ["platform/simulated", "platform/qt"],
    ["platform/qt/screen"],
    ["state"],
    ["protocol"],
    ["view", "transmit"],
    ["engine"],
    ["relay", "map", "reports"],
    ["ports", "config", "history"],
    ["app"],
    ["app/console", "forms"],
    ["app/programs"],
]
# Rooms that see fewer than their floor lets them: a folder, or a single header.
NARROWED = {
    "state": {"platform"},
    "protocol": {"platform", "state/Rows.h"},  # bytes and words: of the state it knows the columns of rows alone
}
# What only the floors that run a whole program see.
OUTSIDE = {
    "platform/simulated": {"app/console", "app/programs"},
    "platform/qt": {"platform/qt/screen", "forms", "app/programs"},
    "platform/qt/screen": {"forms", "app/programs"},
}
# Rooms that see one beside or above them, each with its reason.
EXCEPTIONS = {}
SEE_QT = {"platform/qt", "platform/qt/screen", "forms", "app/programs"}
INCLUDE = re.compile(r'^\s*#\s*include\s+(?:"([^"]+)"|<(Q[A-Za-z]+)[^>]*>)')


def floor_of(room):
    return next((number for number, rooms in enumerate(FLOORS) if room in rooms), None)


def may_see(room, header):
    """Whether a file of `room` may include `header`, a path below src/."""
    target = str(pathlib.PurePosixPath(header).parent)
    if target in (room, ".") or (room, target) in EXCEPTIONS:
        return True
    if room in NARROWED:
        return target in NARROWED[room] or header in NARROWED[room]
    if target in OUTSIDE:
        return room in OUTSIDE[target]
    return floor_of(target) is not None and floor_of(target) < floor_of(room)


def faults_of(path):
    room = str(path.relative_to(ROOT).parent)
    if floor_of(room) is None:
        return [f"src/{room}: a folder without a floor"]
    faults = []
    for number, line in enumerate(path.read_text(encoding="utf-8").splitlines(), 1):
        found = INCLUDE.match(line)
        if not found:
            continue
        where = f"src/{path.relative_to(ROOT)}:{number}"
        if found.group(2) and room not in SEE_QT:
            faults.append(f"{where}: Qt below the windows: {found.group(2)}")
        if found.group(1):
            if not may_see(room, found.group(1)):
                faults.append(f"{where}: {room} may not see {found.group(1)}")
    return faults


def headers_in_a_ring():
    """Headers that include each other, however far round."""
    sees = {}
    for path in ROOT.rglob("*.h"):
        text = path.read_text(encoding="utf-8")
        sees[str(path.relative_to(ROOT))] = re.findall(r'^\s*#\s*include\s+"([^"]+)"', text, re.M)
    faults, done = [], set()

    def walk(header, trail):
        if header in trail:
            faults.append("a ring of headers: " + " -> ".join(trail[trail.index(header):] + [header]))
            return
        if header in done:
            return
        for next_header in sees.get(header, []):
            walk(next_header, trail + [header])
        done.add(header)

    for header in sees:
        walk(header, [])
    return faults


def arrows():
    """Every arrow from a room to another, with the number of includes behind it."""
    count = {}
    for path in list(ROOT.rglob("*.h")) + list(ROOT.rglob("*.cpp")):
        room = str(path.relative_to(ROOT).parent)
        for target in re.findall(r'^\s*#\s*include\s+"([^"]+)/[^"/]+"', path.read_text(encoding="utf-8"), re.M):
            if target != room:
                count[room, target] = count.get((room, target), 0) + 1
    return [f"{room} -> {target}: {number}" for (room, target), number in sorted(count.items())]


def main():
    if "--arrows" in sys.argv:
        print("\n".join(arrows()))
    files = sorted(ROOT.rglob("*.h")) + sorted(ROOT.rglob("*.cpp"))
    faults = [fault for path in files for fault in faults_of(path)] + headers_in_a_ring()
    print("\n".join(faults) if faults else f"{len(files)} files include only what they may")
    return 1 if faults or not files else 0


sys.exit(main())
