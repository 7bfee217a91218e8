#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""The gate between real peers: what the packet engine direwolf hears as sound on one side, halvern-feed as the server on
the other.

gate_peers.py BUILD DATA TRAFFIC [LINES]: LINES recorded packets (300 without it) go on the air; what comes out
on the server must be the lines that the gate says it passed, byte for byte and in their order. Then messages from the server
go on the air behind their hold, unless another gate was first. Ends with 77 where something is missing.
"""
import os
import pathlib
import re
import shutil
import socket
import subprocess
import sys
import tempfile
import threading
import time

GATE, FAR, OTHER, NEAR, HOLD = b"Q0GAT", b"Q1FAR", b"Q2GAT", b"Q3NIL", 3
CONF = ("ADEVICE stdin rec\nARATE 44100\nACHANNELS 1\nCHANNEL 0\nMYCALL N0CALL-10\nMODEM 1200\nAGWPORT 0\nKISSPORT 4000\n"
        "TXDELAY 10\nTXTAIL 2\nPERSIST 255\nSLOTTIME 1\n")
SOUND = '</usr/share/alsa/alsa.conf>\npcm.rec {\n type file\n slave.pcm null\n file "sent.raw"\n format raw\n}\n'


# --- the peers -------------------------------------------------------------------------------------------------------

def listen(sock, end, take):
    def run():
        rest = b""
        while data := sock.recv(65536):
            *whole, rest = (rest + data).split(end)
            for each in whole:
                take(each)
    threading.Thread(target=run, daemon=True).start()


def wait_for(holds, what, seconds=20):
    until = time.monotonic() + seconds
    while not holds():
        if time.monotonic() > until:
            raise SystemExit("failed: " + what)
        time.sleep(0.01)


class Air:
    """The engine: sound in, frames out on port 4000, its log for what it transmits."""

    def __init__(self, folder):
        (folder / "engine.conf").write_text(CONF)
        (folder / "sound.conf").write_text(SOUND)
        self.folder, self.frames = folder, []
        self.engine = subprocess.Popen(
            ["direwolf", "-c", "engine.conf", "-t", "0", "-r", "44100", "-b", "16", "-n", "1", "-"], cwd=folder,
            stdin=subprocess.PIPE, stdout=open(folder / "log", "wb"), stderr=subprocess.STDOUT,
            env=dict(os.environ, ALSA_CONFIG_PATH=str(folder / "sound.conf")))
        for _ in range(500):
            try:
                self.tap = socket.create_connection(("127.0.0.1", 4000))
                break
            except OSError:
                time.sleep(0.02)
        listen(self.tap, b"\xc0", lambda frame: frame and self.frames.append(frame))

    def say(self, lines):
        (self.folder / "heard.txt").write_bytes(b"\n".join(lines) + b"\n")
        subprocess.run(["gen_packets", "-o", "heard.wav", "heard.txt"], cwd=self.folder, check=True, stdout=subprocess.DEVNULL)
        self.engine.stdin.write((self.folder / "heard.wav").read_bytes()[44:] + bytes(44100))
        self.engine.stdin.flush()

    def sent(self):
        return re.findall(rb"^\[0L\] (.*?)(?:<0x0d>)?\s*$", (self.folder / "log").read_bytes(), re.M)


class Server:
    """The feed, and a far station that is logged in to it and sees what the gate sends there."""

    def __init__(self, build, folder):
        self.feed = subprocess.Popen([build / "halvern-feed", "--check-login", "--port", "0"], stdout=subprocess.PIPE)
        self.port = next(int(line.rsplit(b":", 1)[1]) for line in self.feed.stdout if line.startswith(b"listening"))
        threading.Thread(target=self.feed.stdout.read, daemon=True).start()
        self.lines, self.far = [], socket.create_connection(("127.0.0.1", self.port))
        listen(self.far, b"\r\n", lambda line: line[:1] != b"#" and self.lines.append(line))
        self.say(b"user %s pass %d" % (FAR, passcode(FAR)))

    def say(self, line):
        self.far.sendall(line + b"\r\n")

    def gated(self):
        return [line for line in self.lines if not line.startswith(GATE + b">")]


def passcode(call):
    code = 0x73e2
    for i, byte in enumerate(call):
        code ^= byte << (8 if i % 2 == 0 else 0)
    return code & 0x7fff


class Station:
    def __init__(self, build, data, folder, port):
        for entry in data.iterdir():
            if entry.is_dir():
                (folder / entry.name).symlink_to(entry)
        settings = (data / "demo/Halvern.INI").read_bytes().split(b"\r\n")
        (folder / "Halvern.INI").write_bytes(b"\r\n".join([GATE, b"0"] + settings[2:]))
        self.process = subprocess.Popen([build / "halvern-console", folder], stdin=subprocess.PIPE, stdout=subprocess.PIPE)
        self.do(f"""set SetUpfrm.IntDomainCombo "127.0.0.1"
            set SetUpfrm.APRServePortTxt "{port}"
            set SetUpfrm.APRServePassTxt "{passcode(GATE)}"
            select SetUpfrm.IgateOpt 1
            select SetUpfrm.IgateBIOpt 1
            select SetUpfrm.IgateHopOpt 1
            set SetUpfrm.IgateTimeLbl "{HOLD}"
            click SetUpfrm.TabOkCmd
            click ConMdiFrm.SoundCardMenu
            click ConMdiFrm.PortIp""")

    def do(self, lines):
        self.process.stdin.write((lines + '\necho "done"\n').encode())
        self.process.stdin.flush()
        answers = []
        for line in self.process.stdout:
            if line.strip() == b'echo "done"':
                return answers
            if line.startswith(b"error"):
                raise SystemExit(line.decode())
            answers.append(line.decode().strip())
        raise SystemExit("failed: the station ended")


# --- the story -------------------------------------------------------------------------------------------------------

def recorded(traffic, count):
    lines = []
    for path in sorted(traffic.glob("*.tnc2"), key=lambda path: path.name != "tape-2005.tnc2"):
        for line in path.read_bytes().split(b"\n"):
            header, colon, info = line.partition(b":")
            header = re.sub(rb",q.*", b"", header)  # what only the Internet adds
            call = rb"[A-Z0-9]{1,6}(-\d+)?"
            # A third-party packet is another line inside; a zero and a byte's number would not go on the air as they stand.
            plain = 0 < len(info) < 250 and not re.search(rb"^}|<0x|\0", info)
            if plain and re.fullmatch(rb"%b>%b(,%b\*?){0,8}" % (call, call, call), header):
                lines.append(header + colon + info.rstrip(b"\r"))
    step = max(1, len(lines) // count)
    return (lines[::step] * (1 + count * step // len(lines)))[:count]


def as_read(line):
    """A frame says of each digipeater whether it was used; a line marks the last of them."""
    header, colon, info = line.partition(b":")
    used, star, rest = header.rpartition(b"*")
    return used.replace(b"*", b"") + star + rest + colon + info


def to_server(air, server, station, lines):
    begun, decided, said = time.monotonic(), [], []
    for at in range(0, len(lines), 500):  # the list of decisions has room for so many
        last = b"Q4END>APRS:>last of %d" % at
        said += [*lines[at:at + 500], last]
        air.say([*lines[at:at + 500], last])
        wait_for(lambda: last in server.lines, "the last line comes to the server", 60 + len(lines))
        rows = [row for row in station.do("rows DecisionLst") if " to Internet " in row]
        before = max((i for i, row in enumerate(rows[:-1]) if " Q4END " in row), default=-1)
        decided += rows[before + 1:]
    in_order, gated = map(as_read, said), server.gated()
    for line in gated:
        if line not in in_order:  # goes on behind the line that was found before
            raise SystemExit(f"failed: on the server, and not said or not in this order: {line}")
    passed = sum(row.rstrip('"').endswith(" passed") for row in decided)
    # Of a frame that is no packet of ours, or one that the sound lost, nothing is decided; there are few of them.
    if not 0.98 * len(lines) <= len(decided) <= len(air.frames) or passed != len(gated) or passed < len(lines) / 4:
        raise SystemExit(f"failed: {len(air.frames)} frames, {len(decided)} decisions, {passed} passed, {len(gated)} on the server")
    print(f"{len(said)} lines on the air, {len(air.frames)} frames, {passed} lines on the server, in "
          f"{time.monotonic() - begun:.0f} s")


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
    if "GATE_PEERS_ALONE" not in os.environ:  # the engine listens on every interface, on a fixed port
        os.environ["GATE_PEERS_ALONE"] = "1"
        alone = ["unshare", "-rn", sys.executable]
        if shutil.which("unshare") and subprocess.run([*alone, "-c", ""], stderr=subprocess.DEVNULL, check=False).returncode == 0:
            os.execvp("unshare", [*alone, *sys.argv])
        sys.exit(print("Skipped: no network namespace") or 77)
    build, data, traffic = (pathlib.Path(word).resolve() for word in sys.argv[1:4])
    if not all(map(shutil.which, ("direwolf", "gen_packets", "ip"))) or not any(traffic.glob("*.tnc2")):
        sys.exit(print("Skipped: needs direwolf, ip and recorded packets") or 77)
    subprocess.run(["ip", "link", "set", "lo", "up"], check=True)
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        (folder / "station").mkdir()
        server, air = Server(build, folder), Air(folder)
        station = Station(build, data, folder / "station", server.port)
        try:
            wait_for(lambda: any(line.startswith(GATE) for line in server.lines), "the gate beacons on the server")
            to_server(air, server, station, recorded(traffic, int(sys.argv[4]) if len(sys.argv) > 4 else 300))
            to_radio(air, server, station)
        finally:
            for process in (station.process, air.engine, server.feed):
                process.kill()


main()
