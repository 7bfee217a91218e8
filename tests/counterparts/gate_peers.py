#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""The gate between real peers: what the packet engine direwolf hears as sound on one side, halvern-feed as the server on
the other.

gate_peers.py BUILD DATA TRAFFIC [LINES]: LINES recorded packets (300 without it) go on the air; what comes out on the server
must be, byte for byte and in order, what the rules written down here make of the frames that the engine gave. Then messages
from the server go on the air behind their hold, unless another gate was first. Ends with 77 where something is missing.
"""
import collections
import itertools
import pathlib
import re
import shutil
import sys
import tempfile
import time

sys.path.insert(0, str(pathlib.Path(__file__).parents[2] / "bench"))
from real_peers import Air, Server, Station, run_alone, wait_for  # noqa: E402

GATE, FAR, OTHER, NEAR, HOLD = b"Q0GAT", b"Q1FAR", b"Q2GAT", b"Q3NIL", 3
SETTINGS = f"""select SetUpfrm.IgateOpt 1
select SetUpfrm.IgateBIOpt 1
select SetUpfrm.IgateHopOpt 1
set SetUpfrm.IgateTimeLbl "{HOLD}"
click SetUpfrm.TabOkCmd
click ConMdiFrm.SoundCardMenu
click ConMdiFrm.PortIp"""
WORDS = [b"TCPIP", b"TCPXX", b"qAC", b"qAX", b"qAU", b"qAo", b"qAO", b"qAS", b"qAr", b"qAR", b"qAZ", b"qAI"]
KEYWORDS = tuple(b"AP BEACON MAIL QST CQ GPS ALL AIR ID DF DRILL DX JAVA MICE QTH SKY SPACE SPC SYM TEST TLM WX ZIP DGPS "
                 b"RTCM TEL".split())


# --- the rules, told a second time -----------------------------------------------------------------------------------

def text_of(frame):
    """A KISS frame without its marks as the line that a station reads, empty for one that it does not take."""
    frame = frame[1:].removesuffix(b"\r")
    if (frame.find(b"\xf0", 15) - 15) % 7:  # a used digipeater of SSID 8 looks like the end of the addresses
        return b""
    frame = frame.replace(b"\xdb\xdc", b"\xc0").replace(b"\xdb\xdd", b"\xdb")
    calls, stars, at = [], [], 0
    while True:
        name = bytes(byte >> 1 for byte in frame[at:at + 6]).rstrip()
        last = frame[at + 6]
        calls.append(name + (b"-%d" % (last >> 1 & 15) if last >> 1 & 15 else b""))
        stars.append(last > 127)
        at += 7
        if last & 1:
            break
    used = max((i for i in range(2, len(calls)) if stars[i]), default=0)
    path = b"".join(b"," + call + (b"*" if i == used else b"") for i, call in enumerate(calls[2:], 2))
    return (calls[1] + b">" + calls[0] + path + b":" + frame[at + 2:]).replace(b"\r", b"").replace(b"\n", b"")


def header_of(line):
    """(source, destination, path) of a line whose header is well formed."""
    colon = line.find(b":")
    found = re.fullmatch(rb"([^>]{3,9})>([^,]{2,}?)((?:,[^,]{3,})*?(?:,[^,]{1,})?)", line[:colon], re.S)
    if colon < 7 or colon + 1 == len(line) or not found:
        return None
    pieces = found.group(3).split(b",")[1:]
    return None if len(pieces) > 1 and len(pieces[-1]) < 2 else (found.group(1), found.group(2), b",".join(pieces))


def unwrapped(line):
    while header := header_of(line):
        info = line[line.find(b":") + 1:]
        if not info.startswith(b"}") or not header[1].startswith(KEYWORDS):
            break
        line = info[1:]
    return line


def hops(path):
    def digit(text):
        return int(text) if text.isdigit() else 0
    total = 0
    for i, entry in enumerate(path.split(b",")):
        name, dash, rest = entry.partition(b"-")
        star = entry.endswith(b"*")
        if dash and digit(name[-1:]):
            total += digit(name[-1:]) - digit(rest.rstrip(b"*"))
        elif dash:
            total += 1 + i if star else 0
        else:
            total += digit(entry.rstrip(b"*")[-1:]) + (1 + i if star else 0)
    return total


class Gate:
    def __init__(self):
        self.heard, self.reasons = {}, collections.Counter()

    def step(self, line):
        """@return whether the line goes to the server"""
        reason = self.decide(line)
        self.reasons[reason] += 1
        return reason == "passed"

    def decide(self, line):
        arrow, colon = line.find(b">"), line.find(b":")
        if arrow < 0 or colon < 0 or colon + 1 == len(line):
            return "no packet"
        source, info = line[:arrow], line[colon + 1:]
        if source == GATE:
            return "own packet"
        if info[:1] in b"}?":
            return "third party or query"
        if any(word in line for word in WORDS):
            return "has been on the Internet"
        path = (header_of(line) or (b"", b"", b""))[2]
        count, call = hops(path) if path else 0, source[:9].ljust(9)
        self.heard[call] = min(count, self.heard.get(call, count))
        near = info[:1] == b":" and self.heard.get(info[1:10]) in (0, 100)
        return "addressee near" if near else "passed"


# --- the story -------------------------------------------------------------------------------------------------------

def recorded(traffic, count):
    lines = []
    for path in sorted(traffic.glob("*.tnc2"), key=lambda path: path.name != "tape-2005.tnc2"):
        for line in path.read_bytes().split(b"\n"):
            header, colon, info = line.partition(b":")
            header = re.sub(rb",q.*", b"", header)  # what only the Internet adds
            call = rb"[A-Z0-9]{1,6}(-\d+)?"
            if re.fullmatch(rb"%b>%b(,%b\*?){0,8}" % (call, call, call), header) and 0 < len(info) < 250:
                lines.append(header + colon + info)
    step = max(1, len(lines) // count)
    return (lines[::step] * (1 + count * step // len(lines)))[:count]


def to_server(air, server, lines):
    begun = time.monotonic()
    for at in range(0, len(lines), 500):
        air.say(lines[at:at + 500])
    last = b"Q4END>APRS:>last"
    air.say([last])
    wait_for(lambda: last in server.lines, "the last line comes to the server", 60 + len(lines))
    gate = Gate()
    expected = [line for line in list(air.lines) if gate.step(line)]
    for mine, theirs in itertools.zip_longest(expected, [line for line in server.lines if not line.startswith(GATE + b">")]):
        if mine != theirs:
            raise SystemExit(f"failed: expected {mine}\non the server {theirs}")
    print(f"{len(lines)} lines on the air, {len(air.lines)} frames, {len(expected)} lines on the server, all as expected, in "
          f"{time.monotonic() - begun:.0f} s: {dict(gate.reasons)}")


def to_radio(air, server, station):
    wrapped = GATE + b">APRS:}" + FAR + b">APRS,TCPIP," + GATE + b"*:"
    message, place = b":" + NEAR.ljust(9) + b":", b"=4903.50N/07201.75W-far"
    air.say([NEAR + b">APRS:>near"])
    wait_for(lambda: NEAR + b">APRS:>near" in server.lines, "the addressee is heard")
    server.say(FAR + b">APRS,TCPIP*:" + place)
    begun = time.monotonic()
    server.say(FAR + b">APRS,TCPIP*:" + message + b"one{1")
    wait_for(lambda: wrapped + place in air.sent(), "message and position go on the air: " + str(air.sent()[-3:]))
    took = time.monotonic() - begun
    if air.sent()[-2:] != [wrapped + message + b"one{1", wrapped + place]:
        raise SystemExit(f"failed: {air.sent()[-3:]} after {took:.1f} s")
    server.say(FAR + b">APRS,TCPIP*:" + message + b"two{2")
    air.say([OTHER + b">APRS:}" + FAR + b">APRS,TCPIP," + OTHER + b"*:" + message + b"two{2"])
    wait_for(lambda: "another gate was first" in "".join(station.do("rows DecisionLst")), "the second one is left alone")
    if any(b"two{2" in line for line in air.sent()):
        raise SystemExit(f"failed: doubled, {air.sent()[-3:]}")
    print(f"a message and its sender's position on the air after {took:.1f} s, a second one left to another gate")


def main():
    run_alone()
    build, data, traffic = (pathlib.Path(word).resolve() for word in sys.argv[1:4])
    if not all(map(shutil.which, ("direwolf", "gen_packets", "ip"))) or not any(traffic.glob("*.tnc2")):
        sys.exit(print("Skipped: needs direwolf, ip and recorded packets") or 77)
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        (folder / "station").mkdir()
        server = Server(build, FAR)
        air = Air(folder, lambda frame: unwrapped(text_of(frame)))
        station = Station(build, data, folder / "station", GATE, server.port)
        station.do(SETTINGS)
        try:
            wait_for(lambda: any(line.startswith(GATE) for line in server.lines), "the gate beacons on the server")
            to_server(air, server, recorded(traffic, int(sys.argv[4]) if len(sys.argv) > 4 else 300))
            to_radio(air, server, station)
        finally:
            for process in (station.process, air.engine, server.feed):
                process.kill()


main()
