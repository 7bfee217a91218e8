#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""What the windows cost, measured from outside: start to the first map, memory and CPU with 20,000 stations and every
list open, a steady 500 packets a second, and idleness. Run by hand after a release build:

    bench/windows.py [BUILD]        BUILD is build/release

Off the screen where there is no display. These machines are noisy: compare figures of one run.
"""
import os
import pathlib
import random
import subprocess
import sys
import tempfile
import time

ROOT = pathlib.Path(__file__).resolve().parent.parent
TICKS = os.sysconf("SC_CLK_TCK")
STATIONS, PACKETS, RATE = 20000, 10000, 500


def call(number):
    letters = "".join(chr(65 + number // 26**place % 26) for place in range(4))
    return f"Q{letters}-{1 + number % 15}"


def report(number, drift):
    place = random.Random(number)
    latitude, longitude = place.randint(0, 5999), place.randint(0, 17999)
    if number % 3 == 0:
        latitude = (latitude + drift) % 6000
    return (f"{call(number)}>APRS,WIDE1-1,WIDE2-1:!{latitude // 100:02}{place.randint(0, 59):02}.{latitude % 100:02}"
            f"{place.choice('NS')}/{longitude // 100:03}{place.randint(0, 59):02}.{longitude % 100:02}{place.choice('EW')}"
            f"{place.choice('>-#k_')}088/036 on the road")


class Station:
    """The console, and what the system says of it."""

    def __init__(self, build, folder, *options):
        environment = dict(os.environ, QT_LOGGING_RULES="default.warning=false", XDG_RUNTIME_DIR=folder)
        if not (os.environ.get("DISPLAY") or os.environ.get("WAYLAND_DISPLAY")):
            environment["QT_QPA_PLATFORM"] = f"offscreen:configfile={ROOT}/data/demo/screen.json"
        self.process = subprocess.Popen([build / "halvern-console", *options, folder], stdin=subprocess.PIPE,
                                        stdout=subprocess.PIPE, text=True, env=environment, errors="replace")

    def say(self, *lines):
        self.process.stdin.write("\n".join(lines) + '\necho "done"\n')
        self.process.stdin.flush()
        answers = []
        for line in self.process.stdout:
            if line.strip() == 'echo "done"':
                return answers
            answers.append(line.strip())
        raise SystemExit("the station ended")

    def count(self, store):
        return int(next(part for part in self.say(f"get {store}")[-1].split() if part.startswith("count=")).split("=")[1])

    def cpu(self):
        fields = pathlib.Path(f"/proc/{self.process.pid}/stat").read_text().rsplit(")", 1)[1].split()
        return (int(fields[11]) + int(fields[12])) / TICKS

    def memory(self, what="VmRSS"):
        status = pathlib.Path(f"/proc/{self.process.pid}/status").read_text()
        return int(next(line for line in status.splitlines() if line.startswith(what)).split()[1]) / 1024

    def quit(self):
        self.process.stdin.write("quit\n")
        self.process.stdin.close()
        self.process.wait()


def prepare(folder):
    for entry in (ROOT / "data").iterdir():
        if entry.is_dir():
            (folder / entry.name).symlink_to(entry)
    (folder / "Halvern.INI").write_bytes((ROOT / "data/demo/Halvern.INI").read_bytes())
    (folder / "view.ini").write_text("[General]\nPlaceNames=true\nTrails=true\n")
    (folder / "APRSDomain.INI").write_bytes((ROOT / "data/APRSDomain.INI").read_bytes())
    lines = [report(number, 0) for number in range(STATIONS)]
    (folder / "known.tnc2").write_text("\n".join(lines) + "\n")
    order = random.Random(1)
    lines = [report(order.randrange(STATIONS), 1 + number // 100) for number in range(PACKETS)]
    (folder / "more.tnc2").write_text("\n".join(lines) + "\n")


def steady(station, build, folder, range_step):
    """CPU seconds and lateness of a steady feed, in the view of a ladder step."""
    feed = subprocess.Popen([build / "halvern-feed", "--port", "0", "--rate", str(RATE), "--once", folder / "more.tnc2"],
                            stdout=subprocess.PIPE, text=True)
    port = next(line for line in feed.stdout if line.startswith("listening")).rsplit(":", 1)[1].strip()
    station.say("click ConMdiFrm.ClearMenu", f'replay TCPIP "{folder}/known.tnc2"', f"select ConMdiFrm.ScaleCombo {range_step}",
                'set SetUpfrm.IntDomainCombo "127.0.0.1"', f'set SetUpfrm.APRServePortTxt "{port}"', "wait 1500")
    before = station.count("TerminalFrm.RawPacketLst")
    cpu, begun = station.cpu(), time.monotonic()
    station.say("click ConMdiFrm.PortIp")
    clicks = []
    while station.count("TerminalFrm.RawPacketLst") - before < PACKETS and time.monotonic() - begun < 120:
        asked = time.monotonic()
        station.say("click ConMdiFrm.NoticesMenu")
        clicks.append(time.monotonic() - asked)
        station.say("wait 100")
    spent, took = station.cpu() - cpu, time.monotonic() - begun
    arrived = station.count("TerminalFrm.RawPacketLst") - before
    station.say("click ConMdiFrm.PortIp")
    feed.kill()
    print(f"step {range_step}: {arrived} packets in {took:.1f} s ({PACKETS / RATE:.0f} s of feed), CPU {spent:.2f} s, "
          f"{100 * spent / took:.1f} %, memory {station.memory():.0f} MB, a click answered in "
          f"{1000 * sorted(clicks)[len(clicks) // 2]:.0f} ms, at most {1000 * max(clicks):.0f} ms")


def burst(station, folder):
    """CPU seconds for the packets handed over at once, until the windows have shown them."""
    station.say("click ConMdiFrm.ClearMenu", f'replay TCPIP "{folder}/known.tnc2"', "wait 1500")
    cpu = station.cpu()
    station.say(f'replay TCPIP "{folder}/more.tnc2"', "wait 1500")
    print(f"at once: {PACKETS} packets, CPU {station.cpu() - cpu:.2f} s")


def main():
    build = pathlib.Path(sys.argv[1] if len(sys.argv) > 1 else ROOT / "build/release").resolve()
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        prepare(folder)
        starts = []
        for _ in range(5):
            begun = time.monotonic()
            station = Station(build, name, "--windows")
            station.say("view")
            starts.append(time.monotonic() - begun)
            station.quit()
        print(f"start to first map: {sorted(starts)[2]:.2f} s (median of 5)")
        station = Station(build, name, "--windows")
        station.say("view")
        print(f"memory at start: {station.memory():.0f} MB")
        station.say(*[f"click ConMdiFrm.FrmMenu({window})" for window in range(2, 11)])
        print("the map over everything:")
        steady(station, build, folder, 0)
        steady(station, build, folder, 5)
        print("map and lists side by side:")
        station.say("click ConMdiFrm.TileMenu")
        burst(station, folder)
        steady(station, build, folder, 0)
        station.say("wait 2000")
        cpu = station.cpu()
        station.say("wait 5000")
        print(f"idle: CPU {100 * (station.cpu() - cpu) / 5:.2f} %")
        station.quit()


if __name__ == "__main__":
    main()
