#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""From a frame of the packet engine to the line on the server, by real sockets: how long the gate takes, packet by packet,
with 10,000 stations heard on radio. Run by hand after a release build:

    bench/gate_latency.py [BUILD]       BUILD is build/release

The packet engine has the fixed port 4000: where that is taken, run it as "unshare -rn bench/gate_latency.py". What the
machine itself takes for the two sockets is measured the same way and told beside it.
"""
import pathlib
import socket
import subprocess
import sys
import tempfile
import threading
import time

from windows import ROOT, Station, call, prepare

KNOWN, FRAMES, PAUSE = 10000, 5000, 0.002
BEACON = b"Q0DEMO>"  # the gate's own


def address(text, last):
    name, _, ssid = text.partition("-")
    return bytes(2 * ord(letter) for letter in name.ljust(6)) + bytes([0x60 + 2 * int(ssid or 0) + last])


def frame(source, info):
    return b"\xc0\0" + address("APRS", 0) + address(source, 1) + b"\x03\xf0" + info.encode() + b"\xc0"


def read_line(far, rest):
    while b"\n" not in rest:
        rest += far.recv(65536)
    return rest.split(b"\n", 1)


def tell(name, times):
    times = sorted(1e6 * each for each in times)
    median, high, top = (times[int(len(times) * part)] for part in (0.5, 0.99, 0.999))
    print(f"{name:26} median {median:5.0f}, p99 {high:5.0f}, p99.9 {top:5.0f}, worst {times[-1]:6.0f} microseconds")


def measure(near, far, packets):
    times, rest = [], b""
    for data, expected in packets:
        begun = time.perf_counter()
        near.sendall(data)
        line, rest = read_line(far, rest)
        took = time.perf_counter() - begun
        while line.startswith(BEACON):
            line, rest = read_line(far, rest)
        times.append(took)
        if line.strip() != expected:
            raise SystemExit(f"expected {expected}, got {line}")
        time.sleep(PAUSE)
    return times


def echo():
    """The same road with nothing in it that thinks: two sockets and a process that wakes up."""
    with socket.create_server(("127.0.0.1", 0)) as server:
        program = ("import socket,sys\ns=socket.create_connection(('127.0.0.1',int(sys.argv[1])))\n"
                   "while d:=s.recv(9999): s.sendall(d)")
        process = subprocess.Popen([sys.executable, "-c", program, str(server.getsockname()[1])])
        near = server.accept()[0]
        line = b"Q1AAA-1>APRS:!4903.50N/07201.75W-x"
        tell("a process that hands on:", measure(near, near, [(line + b"\n", line)] * FRAMES))
        process.kill()


def main():
    build = pathlib.Path(sys.argv[1] if len(sys.argv) > 1 else ROOT / "build/release").resolve()
    subprocess.run(["ip", "link", "set", "lo", "up"], stderr=subprocess.DEVNULL, check=False)
    with tempfile.TemporaryDirectory() as name, socket.create_server(("127.0.0.1", 4000)) as engine, \
            socket.create_server(("127.0.0.1", 0)) as server:
        prepare(pathlib.Path(name))
        station = Station(build, name)
        station.say('set SetUpfrm.IntDomainCombo "127.0.0.1"', f'set SetUpfrm.APRServePortTxt "{server.getsockname()[1]}"',
                    "select SetUpfrm.IgateOpt 1", "click SetUpfrm.TabOkCmd", "click ConMdiFrm.SoundCardMenu",
                    "click ConMdiFrm.PortIp")
        near, far = engine.accept()[0], server.accept()[0]
        near.setsockopt(socket.IPPROTO_TCP, socket.TCP_NODELAY, 1)
        threading.Thread(target=lambda: near.recv(1), daemon=True).start()  # the own beacons
        far.sendall(b"# hello\r\n")
        read_line(far, b"")
        packets = []
        for number in range(KNOWN + FRAMES):
            info = f"!49{number % 60:02}.50N/07201.75W-{number}"
            packets.append((frame(call(number % KNOWN), info), f"{call(number % KNOWN)}>APRS:{info}".encode()))
        near.sendall(b"".join(data for data, _ in packets[:KNOWN]))
        line, rest = b"", b""
        while line.strip() != packets[KNOWN - 1][1]:
            line, rest = read_line(far, rest)
        echo()
        tell("the gate, frame to line:", measure(near, far, packets[KNOWN:]))
        station.quit()


main()
