#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Asks the tests what they catch: changes one line of the sources at a time, builds, runs the core tests, and counts.

    tools/mutants.py --seed 7 --count 120 src/engine src/relay > before.txt
    tools/mutants.py --again before.txt > after.txt

It works on a copy of what is committed, in build/mutants, and leaves the sources as they are. A line of the output is a
mutant: verdict, file, the line as it was, the line as it became, parted by tabs. Only lines that stand once in their file
are taken, so that --again finds the same mutants after lines have moved; one that is no longer there is "gone".
Caught is what fails a test, ends the program or hangs it. The last lines count each verdict.
"""
import argparse
import collections
import pathlib
import random
import re
import shutil
import subprocess
import sys
import time

ROOT = pathlib.Path(__file__).resolve().parent.parent
TREE = ROOT / "build" / "mutants"
BUILD = TREE / "build" / "core"

# What a line may become: a pattern in the code, and what stands in its place.
MUTATIONS = [
    (r" == ", lambda m: " != "),
    (r" != ", lambda m: " == "),
    (r" < ", lambda m: " <= "),
    (r" <= ", lambda m: " < "),
    (r" > (?!\()", lambda m: " >= "),
    (r" >= ", lambda m: " > "),
    (r" && ", lambda m: " || "),
    (r" \|\| ", lambda m: " && "),
    (r"\btrue\b", lambda m: "false"),
    (r"\bfalse\b", lambda m: "true"),
    (r"\bif \(!", lambda m: "if ("),
    (r"\bif \((?=[\w.:>()-]+\) ?\{?$)", lambda m: "if (!"),
    (r"(?<![\w.'])\d{1,4}(?![\w.'])", lambda m: str(int(m.group()) + 1)),
    (r"^\s+[A-Za-z][\w.:>-]*\([^{}]*\);$", lambda m: "    ;"),
]
NOT_CODE = re.compile(r"\s*(//|/?\*|#|using |namespace |template|static_assert|$)")


def mutants_of(path, text):
    """Every mutant of a file: (file, line as it was, line as it became)."""
    lines = text.split("\n")
    times = collections.Counter(line.strip() for line in lines)
    for line in lines:
        if NOT_CODE.match(line) or times[line.strip()] > 1:
            continue
        # Literals of text keep their length and lose their words, so that no operator is found in them.
        bare = re.sub(r"\"(\\.|[^\"\\])*\"|'(\\.|[^'\\])'", lambda m: "~" * len(m.group()), line)
        bare = re.sub(r"\s*//.*", "", bare)
        for pattern, become in MUTATIONS:
            for found in re.finditer(pattern, bare):
                changed = line[: found.start()] + become(found) + line[found.end() :]
                yield path, line.strip(), changed.strip()


def sample(folders, seed, count):
    """The same mutants for the same seed and sources."""
    names = subprocess.run(["git", "ls-files", "--", *folders], cwd=ROOT, capture_output=True, text=True, check=True).stdout
    sources = [name for name in names.split() if name.endswith(".cpp")]
    found = [mutant for name in sources for mutant in mutants_of(name, (TREE / name).read_text())]
    return random.Random(seed).sample(found, min(count, len(found)))


def build():
    return subprocess.run(["ninja", "-j2", "-C", BUILD, "halvern_core_tests"], stdout=subprocess.DEVNULL).returncode == 0


def passes(limit):
    """Whether the tests pass within so many seconds."""
    command = [BUILD / "halvern_core_tests", "--gtest_brief=1", "--gtest_fail_fast"]
    try:
        return subprocess.run(command, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, timeout=limit).returncode == 0
    except subprocess.TimeoutExpired:
        return False


def verdict(mutant, limit):
    """One mutant tried; the file is as it was afterwards."""
    path, old, new = mutant
    source = TREE / path
    text = source.read_text() if source.exists() else ""
    lines = text.split("\n")
    at = [n for n, line in enumerate(lines) if line.strip() == old]
    if len(at) != 1:
        return "gone"
    lines[at[0]] = lines[at[0]].replace(old, new)
    source.write_text("\n".join(lines))
    try:
        if not build():
            return "did-not-compile"
        return "survived" if passes(limit) else "caught"
    finally:
        source.write_text(text)


def main():
    parser = argparse.ArgumentParser(description=__doc__.split("\n")[0])
    parser.add_argument("folders", nargs="*", default=["src/engine", "src/relay", "src/ports", "src/protocol"])
    parser.add_argument("--seed", type=int, default=1)
    parser.add_argument("--count", type=int, default=20)
    parser.add_argument("--again", type=pathlib.Path, help="the output of a run, whose mutants are tried once more")
    asked = parser.parse_args()
    shutil.rmtree(TREE, ignore_errors=True)
    TREE.mkdir(parents=True)
    subprocess.run(f"git archive HEAD | tar -xm -C '{TREE}'", shell=True, cwd=ROOT, check=True)
    if asked.again:
        rows = (line.split("\t") for line in asked.again.read_text().splitlines())
        mutants = [tuple(row[1:]) for row in rows if len(row) == 4]
    else:
        mutants = sample(asked.folders, asked.seed, asked.count)
    subprocess.run(["cmake", "--preset", "core"], cwd=TREE, stdout=subprocess.DEVNULL, check=True)
    if not build():
        sys.exit("mutants: what is committed does not build")
    began = time.monotonic()
    if not passes(3600):
        sys.exit("mutants: the tests fail without any mutant")
    limit = 30 + 5 * (time.monotonic() - began)
    counts = collections.Counter()
    for mutant in mutants:
        found = verdict(mutant, limit)
        counts[found] += 1
        print(found, *mutant, sep="\t", flush=True)
    print(", ".join(f"{found} {times}" for found, times in sorted(counts.items())))


if __name__ == "__main__":
    main()
