#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""A station that is cut off again and again: `kill -9` at random moments while it saves its settings, logs, exports, puts
its lists aside and brings them back. Whatever it had told as done has to be there, whole, and the next start has to read
all that it left.

    bench/power_cut.py HALVERN_CONSOLE DATA [CUTS [SEED]]
"""
import collections
import os
import pathlib
import random
import re
import signal
import subprocess
import sys
import tempfile
import time

FIRST_RUN = {"CallSignTxt": "Q0OWN", "LatDegtxt": "40", "LatMintxt": "49", "LatDectxt": "14", "LatSigntxt": "N",
             "LonDegtxt": "073", "LonMintxt": "08", "LonDectxt": "41", "LonSigntxt": "W", "CommentTXT": "cut 0",
             "StatusTXT": "here", "SymbolCombo": "House VHF /-"}
KEPT = ["Pos.txt", "Status.txt", "Digi.txt", "Msgtoyou.txt", "OutMsg.txt", "Traffic.txt", "Bullmsg.txt", "Object.txt",
        "Objtrans.txt", "Resource.txt", "MsgTimerint.txt", "MsgTimer.txt", "Objecttimerint.txt", "Objecttimer.txt"]


def packet(number):
    return f"Q{number % 90:02d}AB>APRS:!4{number % 10}49.14N/073{number % 60:02d}.41W>number {number}"


class Cuts:
    def __init__(self, console, data, seed):
        self.console, self.random = console, random.Random(seed)
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="halvern-cut-"))
        for entry in pathlib.Path(data).resolve().iterdir():
            (self.folder / entry.name).symlink_to(entry)
        (self.folder / "Log").mkdir()
        (self.folder / "Log/old.log").write_text("".join(packet(n) + "\r\n" for n in range(1000, 1400)))
        self.saved = self.number = 0
        self.leftovers = set()
        self.during = collections.Counter()
        first = [f'set SetUpfrm.{name} "{text}"' for name, text in FIRST_RUN.items()]
        first += ["click SetUpfrm.TabOkCmd", "click ConMdiFrm.SetupMenu", "select SetUpfrm.WXPortCombo 1",
                  "click SetUpfrm.TabSaveCmd"]
        self.require("is now Saved" in self.run(first), "the station is set up")
        self.lines = len(self.settings().splitlines())

    def require(self, holds, what):
        if not holds:
            sys.exit(f"broken after {sum(self.during.values())} cuts in {self.folder}: {what}")

    def settings(self):
        return (self.folder / "Halvern.INI").read_text()

    def run(self, script):
        return subprocess.run([self.console, "--simulate", self.folder], input="\n".join(script) + "\n", text=True,
                              stdout=subprocess.PIPE, check=False).stdout

    def work(self, round_):
        """What is done in a run. An echo behind each deed says that the answer to it was out."""
        yield from [f'answer "day-{round_}.log"', "click ConMdiFrm.Log"]
        for _ in range(8):
            deed = self.random.choice(["save", "log", "log", "export", "view"])
            yield f'echo "begin {deed}"'
            if deed == "save":
                self.saved += 1
                yield from ["click ConMdiFrm.SetupMenu", f'set SetUpfrm.CommentTXT "cut {self.saved}"',
                            "click SetUpfrm.TabSaveCmd"]
            elif deed == "log":
                for _ in range(200):
                    self.number += 1
                    yield from [f'packet TNC "{packet(self.number)}"', f'echo "row {self.number}"']
            elif deed == "export":
                yield from ['answer "memory.log"', "click ConMdiFrm.ExportMemory", 'echo "exported"']
            else:
                yield from ["rows PositionFrm.PosLst", 'answer "old.log"', "click ConMdiFrm.ImportLog",
                            'echo "begin restore"', "click ConMdiFrm.RestoreMenu"]
            yield 'echo "done"'

    def cut(self, round_):
        """One run, killed somewhere. @return all that it had said"""
        process = subprocess.Popen([self.console, "--simulate", self.folder], stdin=subprocess.PIPE,
                                   stdout=subprocess.PIPE, text=True)
        script = "\n".join(self.work(round_)) + "\n"
        process.stdin.write(script)
        process.stdin.flush()
        said = []
        for _ in range(self.random.randrange(1, script.count("echo"))):
            said.append(process.stdout.readline())
        time.sleep(self.random.choice([0, 0.001, 0.004]) * self.random.random())
        process.send_signal(signal.SIGKILL)
        said += process.stdout.readlines()
        process.wait()
        return said

    def check(self, round_, said):
        phase = [line for line in said if line.startswith('echo "begin') or line.startswith('echo "done')]
        self.during[phase[-1].split('"')[1] if phase else "start"] += 1
        text = "".join(said)
        self.leftovers.update(self.folder.glob("*.new"))

        told = self.told + text.count("is now Saved")  # in their order: the last one counts
        settings = self.settings()
        self.require(len(settings.splitlines()) == self.lines, "the settings are whole")
        now = int(re.search(r"^cut (\d+)$", settings, re.M).group(1))
        order = [self.base] + self.versions(text)
        self.require(now in (order[-1], order[-1] + 1), f"settings told as saved: {order[-1]}, in the file: {now}")
        self.told, self.base = told, now

        log = self.folder / f"Log/day-{round_}.log"
        rows = log.read_bytes().decode().split("\r\n") if log.exists() else []
        heard = [int(number) for number in re.findall(r'^echo "row (\d+)"', text, re.M)]
        self.require(all(packet(number) in rows for number in heard), "a row that was heard is in the log")
        self.require(not rows or rows[-1] == "", "the log ends with a whole row")
        log.unlink(missing_ok=True)
        if 'echo "exported"' in text and phase[-1] != 'echo "begin export"\n':
            exported = (self.folder / "Log/memory.log").read_bytes()
            self.require(exported.endswith(b"\r\n"), "an export that was through is whole")

        # a view whose way back was offered, and not taken yet, leaves the lists on the disk
        stands = (self.folder / "Pos.txt").exists()
        viewing = text.rfind("When you are finished") > text.rfind('echo "begin restore"')
        self.require(stands or not viewing, "lists that were put aside are there")
        if stands:
            missing = [name for name in KEPT if not (self.folder / name).exists()]
            self.require(not missing, f"all lists that were put aside are there: {missing}")
        self.start_again(text, stands)

    def versions(self, text):
        """The settings that were told as saved in this run."""
        return [self.first + i for i in range(1, text.count("is now Saved") + 1)]

    def start_again(self, text, stands):
        script = ["get SetUpfrm.CommentTXT", "rows NoticesFrm.NoticeLst"]
        if stands:
            script += ['answer "old.log"', "click ConMdiFrm.ImportLog", "click ConMdiFrm.RestoreMenu",
                       "rows PositionFrm.PosLst"]
        said = self.run(script)
        self.require(f'CommentTXT text="cut {self.base}"' in said, f"the next start has the settings: {said}")
        self.require("could not be read" not in said and "rror" not in said, f"the next start reads all: {said}")
        self.require(("were put aside in an earlier run" in said) == stands, "the next start tells of kept lists")
        if stands:
            kept, back = self.stations(text), self.stations(said)
            self.require(kept[1:] == back[1:], f"every station is back: {len(kept)}, {len(back)}")
        self.saved = self.base

    @staticmethod
    def stations(text):
        last = text[text.rindex("PositionFrm.PosLst count="):]
        return re.findall(r'^PositionFrm\.PosLst\[\d+\] "(.*)"$', last, re.M)

    def all(self, count):
        self.told = self.base = 0
        begun = time.monotonic()
        for round_ in range(count):
            self.first = self.saved
            self.check(round_, self.cut(round_))
        self.run(["click ConMdiFrm.SetupMenu", 'set SetUpfrm.CommentTXT "last"', "click SetUpfrm.TabSaveCmd",
                  'answer "old.log"', "click ConMdiFrm.ImportLog", "click ConMdiFrm.RestoreMenu"])
        left = [path.name for path in self.folder.glob("*.new")]
        self.require(not left, f"files in the making are cleared away: {left}")
        spread = ", ".join(f"{name} {times}" for name, times in sorted(self.during.items()))
        print(f"{count} cuts in {time.monotonic() - begun:.0f} s, nothing lost: {spread}; {self.told} saves told, "
              f"{self.number} rows logged, {len(self.leftovers)} files in the making left behind and cleared away")
        subprocess.run(["rm", "-r", self.folder], check=True)


if __name__ == "__main__":
    console, data, *more = sys.argv[1:]
    Cuts(os.path.abspath(console), data, int(more[1]) if len(more) > 1 else 1).all(int(more[0]) if more else 2000)
