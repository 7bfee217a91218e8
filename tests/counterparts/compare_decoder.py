#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Compares our position rows with an independent decoder's reading of the same recorded packets.

compare_decoder.py CONSOLE DATA TRAFFIC: CONSOLE is halvern-console, DATA an application directory, TRAFFIC a folder of
recorded packets. Every difference has to be one of the rules below; each is counted. Ends with 77 where the other
decoder or the traffic is missing.
"""
import collections
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile

DECODER = "decode_aprs"
COLOURS = re.compile(rb"\x1b\[[0-9;]*[mJ]")
PLACE = re.compile(rb"^([NS]) (\d\d) (\d\d\.\d+), ([EW]) (\d\d\d) (\d\d\.\d+)", re.M)
SETUP = pathlib.Path(__file__).parents[1] / "stories/parts/set-up.txt"
SKIPPED = 77
# Destinations that mode Normal lets in, by their beginnings.
LET_IN = tuple(b"AP BEACON MAIL QST CQ GPS ALL AIR ID DF DRILL DX JAVA MICE QTH SKY SPACE SPC SYM TEST TLM WX ZIP DGPS RTCM TEL".split())


def recorded(folder):
    """(source, destination, information field) of every recorded packet that both sides can be asked about."""
    for path in sorted(folder.glob("*.tnc2")):
        for line in path.read_bytes().split(b"\n"):
            found = re.match(rb"^([A-Z0-9]{3,6}(?:-(?:[1-9]|1[0-5]))?)>([A-Z0-9]{2,6})(?:-\d+)?[,:][^:]*:?(.*)$", line)
            colon = line.find(b":")
            if found and colon > 0 and colon + 1 < len(line):
                info = line[colon + 1:].rstrip(b"\r\n")
                if info and info[:1] != b"}":
                    yield found.group(1), found.group(2), info


def stand_in(number, source):
    """A call of its own for every packet, so that each makes a row of its own; the SSID matters to sentences."""
    digits = "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ"
    call = "".join(digits[number // 36**place % 36] for place in (3, 2, 1, 0))
    ssid = source.split(b"-")[1] if b"-" in source else b""
    return b"Q" + call.encode() + (b"-" + ssid if ssid else b"")


def quoted(line):
    return '"' + "".join(f"\\x{byte:02X}" if byte < 32 or byte > 126 or byte in b'"\\' else chr(byte) for byte in line) + '"'


def unquoted(text):
    escapes = {"r": "\r", "n": "\n", "t": "\t"}
    return re.sub(r"\\(x([0-9A-F]{2})|.)",
                  lambda m: chr(int(m.group(2), 16)) if m.group(2) else escapes.get(m.group(1), m.group(1)), text)


def our_rows(console, data, packets):
    with tempfile.TemporaryDirectory() as folder:
        for entry in pathlib.Path(data).resolve().iterdir():
            if entry.is_dir():
                (pathlib.Path(folder) / entry.name).symlink_to(entry)
        script = SETUP.read_text().splitlines()
        script += [f"packet TCPIP {quoted(call + b'>' + dest + b':' + info)}" for call, dest, info in packets]
        script += ["rows PositionFrm.PosLst"]
        answer = subprocess.run([console, "--simulate", folder], input="\n".join(script).encode(), capture_output=True, check=False)
    rows = {}
    for found in re.finditer(r'^PositionFrm\.PosLst\[\d+\] "(.*)"$', answer.stdout.decode("ascii"), re.M):
        row = unquoted(found.group(1))
        rows[row[:9].rstrip().encode()] = row
    return rows


def their_readings(packets):
    lines = b"".join(call + b">" + dest + b":" + info + b"\n" for call, dest, info in packets)
    answer = COLOURS.sub(b"", subprocess.run([DECODER], input=lines, capture_output=True, check=False).stdout)
    readings = {}
    blocks = re.split(rb"^(Q[0-9A-Z]{4}(?:-\d+)?)>", answer, flags=re.M)
    for call, text in zip(blocks[1::2], blocks[2::2]):
        readings[call] = text
    return readings


def minutes(degrees, minute, side):
    value = int(degrees) * 60 + float(minute)
    return -value if side in "SE" else value


def our_place(row):
    latitude, longitude = row[18:26], row[27:36]
    return minutes(latitude[:2], latitude[2:7], latitude[7]), minutes(longitude[:3], longitude[3:8], longitude[8].upper())


def their_place(text):
    found = PLACE.search(text)
    if not found:
        return None
    ns, lat, latmin, ew, lon, lonmin = (part.decode() for part in found.groups())
    return minutes(lat, latmin, ns), minutes(lon, lonmin, ew)


def kind_of(info):
    first = info[:1]
    if first in b"\x1c\x1d'`":
        return "Mic-E"
    if first == b"$":
        return "sentence"
    return "plain" if first in b"!=/@" else "other"


def why_unread(kind, dest, info, place):
    """The first of our rules by which we read no position where they do, or None."""
    text = info.decode("latin-1")
    body = text[8:] if text[7:8] == "z" else text[1:]
    rules = (
        (kind != "Mic-E" and not dest.startswith(LET_IN), "mode Normal does not let the destination in"),
        (kind == "plain" and re.match(r"[^\d ]", body), "we do not read the compressed form"),
        (text[0] in "/@" and text[7:8] in ("h", "/"), "we read no stamp but ddhhmmz"),
        (kind == "Mic-E" and len(text) < 9, "we do not read fewer than nine characters"),
        (kind == "Mic-E" and len(text) > 8 and not symbol_known(text[8], text[7]), "we know no such symbol"),
        (kind == "sentence" and re.fullmatch(rb"GPS([CE]\d\d|.?)", dest), "we drop what names no symbol by its letters"),
        (min(map(abs, place)) < 1e-9, "the equator and the meridian of Greenwich are no positions here"),
        (len(body) > 18 and not symbol_known(body[8], body[18]), "we know no such symbol"),
    )
    return next((rule for holds, rule in rules if holds), None)


def symbol_known(table, code):
    """Whether the set of symbols has a picture of it."""
    name = f"table1/{ord(code):03}" if table == "/" else f"table2/{ord(code):03}" + ("" if table == "\\" else f"_{ord(table)}")
    return (pathlib.Path(sys.argv[2]) / "symbols" / (name + ".GIF")).exists()


def main():
    if len(sys.argv) != 4 or not shutil.which(DECODER) or not any(pathlib.Path(sys.argv[3]).glob("*.tnc2")):
        print("Skipped: needs the console, its data, recorded packets and", DECODER)
        return SKIPPED
    console, data, traffic = sys.argv[1], sys.argv[2], pathlib.Path(sys.argv[3])
    packets = [(stand_in(number, source), dest, info) for number, (source, dest, info) in enumerate(recorded(traffic))]
    ours, theirs = our_rows(console, data, packets), their_readings(packets)
    same, rules, unexplained = collections.Counter(), collections.Counter(), []
    for call, dest, info in packets:
        kind = kind_of(info)
        if kind == "other":
            continue
        row, place = ours.get(call), their_place(theirs.get(call, b""))
        if row is None and place is None:
            same["neither reads " + kind] += 1
            continue
        if row is None or place is None:
            refused = "they refuse what we read by columns" if kind == "sentence" else None
            rule = why_unread(kind, dest, info, place) if row is None else refused
            (rules.update([kind + ": " + rule]) if rule else unexplained.append((kind, call, dest, info, row)))
            continue
        mine = our_place(row)
        apart = max(abs(mine[0] - place[0]), abs(mine[1] - place[1]))
        if apart < 0.011:
            same[kind] += 1
        elif " " in info[:30].decode("latin-1") or kind == "Mic-E" and any(c in b"KLZ" for c in dest):
            rules[kind + ": ambiguous positions: we take the corner, they the middle"] += 1
        else:
            unexplained.append((kind, call, dest, info, row, place))
    for title, table in (("alike", same), ("explained", rules)):
        for name, count in sorted(table.items()):
            print(f"{title:10} {count:6}  {name}")
    for case in unexplained[:40]:
        print("unexplained:", *case)
    print(f"{sum(same.values())} alike, {sum(rules.values())} explained, {len(unexplained)} unexplained")
    return 1 if unexplained or not same["plain"] or not same["Mic-E"] else 0


sys.exit(main())
