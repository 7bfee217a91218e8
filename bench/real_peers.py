# SPDX-License-Identifier: GPL-3.0-or-later
"""Real peers of a station: the packet engine direwolf with sound on both sides, halvern-feed as the server, a live
halvern-console between them.

`run_alone` comes first: the engine listens on every interface, on a fixed port, and so gets a network of its own.
"""
import os
import re
import shutil
import socket
import subprocess
import sys
import threading
import time

CONF = ("ADEVICE stdin rec\nARATE 44100\nACHANNELS 1\nCHANNEL 0\nMYCALL N0CALL-10\nMODEM 1200\nAGWPORT 0\nKISSPORT 4000\n"
        "TXDELAY 10\nTXTAIL 2\nPERSIST 255\nSLOTTIME 1\n")
SOUND = '</usr/share/alsa/alsa.conf>\npcm.rec {\n type file\n slave.pcm null\n file "sent.raw"\n format raw\n}\n'
SKIPPED = 77


def run_alone():
    """Starts the program once more in a network namespace with nothing but the loopback; ends it where there is none."""
    if "ALONE_WITH_PEERS" not in os.environ:
        os.environ["ALONE_WITH_PEERS"] = "1"
        alone = ["unshare", "-rn", sys.executable]
        if shutil.which("unshare") and subprocess.run([*alone, "-c", ""], stderr=subprocess.DEVNULL, check=False).returncode == 0:
            os.execvp("unshare", [*alone, *sys.argv])
        sys.exit(print("Skipped: no network namespace") or SKIPPED)
    if shutil.which("ip"):
        subprocess.run(["ip", "link", "set", "lo", "up"], check=True)


def listen(sock, end, take):
    """Hands on each piece that `end` ends, from a thread of its own."""
    def run():
        rest = b""
        while data := sock.recv(65536):
            *whole, rest = (rest + data).split(end)
            for each in whole:
                take(each)
    threading.Thread(target=run, daemon=True).start()


def wait_for(holds, what, seconds=20):
    """Ends the program with what failed if it does not hold in time."""
    until = time.monotonic() + seconds
    while not holds():
        if time.monotonic() > until:
            raise SystemExit("failed: " + what)
        time.sleep(0.01)


class Air:
    """The engine: sound in, frames out on port 4000 (each through `read` into `lines`), its log for what it transmits."""

    def __init__(self, folder, read):
        (folder / "engine.conf").write_text(CONF)
        (folder / "sound.conf").write_text(SOUND)
        self.folder, self.lines = folder, []
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
        listen(self.tap, b"\xc0", lambda frame: frame and self.lines.append(read(frame)))

    def say(self, lines):
        """Lines as sound for the engine to hear, one behind the other, and half a second of silence."""
        (self.folder / "heard.txt").write_bytes(b"\n".join(lines) + b"\n")
        subprocess.run(["gen_packets", "-o", "heard.wav", "heard.txt"], cwd=self.folder, check=True, stdout=subprocess.DEVNULL)
        self.engine.stdin.write((self.folder / "heard.wav").read_bytes()[44:] + bytes(44100))
        self.engine.stdin.flush()

    def sent(self):
        """The lines that the engine has transmitted so far."""
        return re.findall(rb"^\[0L\] (.*?)(?:<0x0d>)?\s*$", (self.folder / "log").read_bytes(), re.M)


class Server:
    """The feed, and a far station that is logged in to it and sees in `lines` what others send there."""

    def __init__(self, build, far):
        self.feed = subprocess.Popen([build / "halvern-feed", "--check-login", "--port", "0"], stdout=subprocess.PIPE)
        self.port = next(int(line.rsplit(b":", 1)[1]) for line in self.feed.stdout if line.startswith(b"listening"))
        threading.Thread(target=self.feed.stdout.read, daemon=True).start()
        self.lines, self.far = [], socket.create_connection(("127.0.0.1", self.port))
        listen(self.far, b"\r\n", lambda line: line[:1] != b"#" and self.lines.append(line))
        self.say(b"user %s pass %d" % (far, passcode(far)))

    def say(self, line):
        self.far.sendall(line + b"\r\n")


def passcode(call):
    code = 0x73e2
    for i, byte in enumerate(call):
        code ^= byte << (8 if i % 2 == 0 else 0)
    return code & 0x7fff


class Station:
    """A live console in a folder of its own, set up under a call, its server being the one at `port`."""

    def __init__(self, build, data, folder, call, port):
        for entry in data.iterdir():
            if entry.is_dir():
                (folder / entry.name).symlink_to(entry)
        settings = (data / "demo/Halvern.INI").read_bytes().split(b"\r\n")
        (folder / "Halvern.INI").write_bytes(b"\r\n".join([call, b"0"] + settings[2:]))
        self.process = subprocess.Popen([build / "halvern-console", folder], stdin=subprocess.PIPE, stdout=subprocess.PIPE)
        self.do(f"""set SetUpfrm.IntDomainCombo "127.0.0.1"
            set SetUpfrm.APRServePortTxt "{port}"
            set SetUpfrm.APRServePassTxt "{passcode(call)}\"""")

    def do(self, lines):
        """Has commands carried out. @return their answers; an error ends the program"""
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
