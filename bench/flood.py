#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""What a hostile or broken server costs the station: floods over real sockets of this machine, and what the system says
of the console meanwhile. Each flood must leave it hearing the packet behind it. Run by hand after a release build:

    bench/flood.py [BUILD]          BUILD is build/release

The sound card engine has the fixed port 4000: where that is taken, run it as "unshare -rn bench/flood.py".
"""
import pathlib
import socket
import subprocess
import sys
import tempfile
import time

from windows import ROOT, Station, prepare

MB = 1000000
LINE, FRAME_END = b"\n", b"\xc0"
ALPHABET = {byte: bytes([2 * byte]) for byte in range(128)}
FRAME = (b"\xc0\0" + b"".join(ALPHABET[byte] for byte in b"APRS  ") + b"\xe0" +
         b"".join(ALPHABET[byte] for byte in b"Q1END ") + b"\x61\x03\xf0>the end\xc0")
INTERNET = ("TCP/IP", "PortIp", LINE, b"Q1END>APRS:>the end\r\n")
SOUND = ("sound", "SoundCardMenu", FRAME_END, FRAME)
FLOODS = [(f"{count} MB of {name}", port, block, count * MB)
          for port in (INTERNET, SOUND)
          for count, name, block in ((200, "A", b"A" * MB), (200, "NUL", bytes(MB)), (200, "0xDB", b"\xdb" * MB),
                                     (60, "end marks", port[2] * MB))]
FLOODS += [("20,000 lines of 64 KB", INTERNET, b"Q1AAA>APRS:>" + b"x" * (65536 - 13) + LINE, 20000 * 65536),
           ("20,000 frames of 64 KB", SOUND, b"\xc0\0" + b"x" * (65536 - 3) + FRAME_END, 20000 * 65536)]


def connect(station, server, port):
    number = server.getsockname()[1]
    station.say('set SetUpfrm.IntDomainCombo "127.0.0.1"', f'set SetUpfrm.APRServePortTxt "{number}"',
                f"click ConMdiFrm.{port}")
    far = server.accept()[0]
    if port == INTERNET[1]:
        far.sendall(b"# hello\r\n")
        far.recv(1000)
    return far


def flood(build, folder, name, port, block, size):
    station = Station(build, folder)
    station.say("view", "wait 500")
    with socket.create_server(("127.0.0.1", 4000 if port is SOUND else 0)) as server:
        far = connect(station, server, port[1])
        start, stack = station.memory(), station.memory("VmStk")
        pathlib.Path(f"/proc/{station.process.pid}/clear_refs").write_text("5")  # the peak is counted from here
        spent = [station.cpu()]
        for _ in range(2):
            for _ in range(size // len(block) // 2):
                far.sendall(block)
            spent.append(station.cpu())
        far.sendall(port[2] + port[3])
        begun = time.monotonic()
        while not any("the end" in row for row in station.say("rows TerminalFrm.RawPacketLst")):
            if time.monotonic() - begun > 60:
                raise SystemExit(f"{name}: the packet behind it was not heard")
            station.say("wait 100")
        peak = station.memory("VmHWM")
        print(f"{port[0]:7} {name:23} CPU {spent[1] - spent[0]:5.2f} + {spent[2] - spent[1]:5.2f} s, memory {start:.1f} MB, "
              f"{peak - start:+5.1f} MB at its peak, {station.memory() - start:+5.1f} MB behind it, stack "
              f"{1024 * (station.memory('VmStk') - stack):+.0f} KB", flush=True)
    station.quit()


def main():
    build = pathlib.Path(sys.argv[1] if len(sys.argv) > 1 else ROOT / "build/release").resolve()
    subprocess.run(["ip", "link", "set", "lo", "up"], stderr=subprocess.DEVNULL, check=False)
    with tempfile.TemporaryDirectory() as name:
        prepare(pathlib.Path(name))
        for each in FLOODS:
            flood(build, name, *each)


main()
