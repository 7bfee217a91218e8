#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Who may include whom: a file sees its own floor and those below it, and only the topmost ones see Qt."""
import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent / "src"
BEHAVIOUR = {"engine", "ports", "relay", "map", "config", "reports"}
# What the files of a floor may include, besides their own floor.
MAY_SEE = {
    "platform": set(),
    "platform/simulated": {"platform"},
    "platform/qt": {"platform"},
    "state": {"platform"},
    **{floor: {"platform", "state"} | BEHAVIOUR for floor in BEHAVIOUR},
    "app": {"platform", "platform/simulated", "state"} | BEHAVIOUR,
    "forms": {"platform", "platform/qt", "state", "app"} | BEHAVIOUR,
    "app/programs": {"platform", "platform/qt", "platform/simulated", "state", "app", "forms"} | BEHAVIOUR,
}
SEE_QT = {"platform/qt", "forms", "app/programs"}
INCLUDE = re.compile(r'^\s*#\s*include\s+(?:"([^"]+)"|<(Q[A-Za-z]+)[^>]*>)')


def faults_of(path):
    floor = str(path.relative_to(ROOT).parent)
    if floor not in MAY_SEE:
        return [f"src/{floor}: a folder without a floor"]
    faults = []
    for number, line in enumerate(path.read_text(encoding="utf-8").splitlines(), 1):
        found = INCLUDE.match(line)
        if not found:
            continue
        where = f"src/{path.relative_to(ROOT)}:{number}"
        if found.group(2) and floor not in SEE_QT:
            faults.append(f"{where}: Qt below the windows: {found.group(2)}")
        if found.group(1):
            target = str(pathlib.PurePosixPath(found.group(1)).parent)
            if target not in (floor, ".") and target not in MAY_SEE[floor]:
                faults.append(f"{where}: {floor} may not see {target}")
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


def main():
    files = sorted(ROOT.rglob("*.h")) + sorted(ROOT.rglob("*.cpp"))
    faults = [fault for path in files for fault in faults_of(path)] + headers_in_a_ring()
    print("\n".join(faults) if faults else f"{len(files)} files include only what they may")
    return 1 if faults or not files else 0


sys.exit(main())
