#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""An evening at the keyboard, as a screen reader hears it: the first run, a port, a station found, a message and its
answer, the settings saved, the end. No mouse, and nothing of the program but its windows.

evening.py BUILD DATA: the real desktop program on a screen and an accessibility bus of its own. Ends with 77 where
something for that is missing.
"""
import os
import pathlib
import shutil
import subprocess
import sys
import tempfile

sys.path.insert(0, str(pathlib.Path(__file__).parents[2] / "bench"))
from real_peers import SKIPPED, Server, wait_for  # noqa: E402

try:
    import pyatspi
    from gi.repository import GLib
except ImportError:
    pyatspi = None

OWN, FAR = b"Q0OWN", b"Q1FAR"
# What nothing on the screen may be without: a name.
NAMED = ["push button", "check box", "radio button", "text", "combo box", "table", "page tab", "menu item", "canvas",
         "table column header", "spin button", "list"]


class Ear:
    """What a screen reader finds, and the keys of the operator."""

    def things(self, top=None):
        """Every thing of the program that says of itself that it shows, the program first."""
        if top is None:
            top = next((app for app in pyatspi.Registry.getDesktop(0) if app and app.name == "halvern"), None)
        if top is not None and (top.getRole() == pyatspi.ROLE_APPLICATION or top.getState().contains(pyatspi.STATE_SHOWING)):
            yield top
            if top.getRoleName() != "menu item":
                for child in top:
                    yield from self.things(child)

    def hears(self, *texts):
        """Whether each text is the beginning of a name, a description or a text that shows."""
        try:
            said = [word for thing in self.things() for word in (thing.name, thing.description, text_in(thing))]
        except (GLib.Error, LookupError, RuntimeError):  # something went while it was looked at
            return False
        return all(any(word.startswith(text) for word in said) for text in texts)

    def waits(self, *texts):
        try:
            wait_for(lambda: self.hears(*texts), "", 60)
        except SystemExit:
            sys.exit(f"failed: {texts} are not heard, but {[thing.name for thing in self.things()]}")

    def waits_for_the_end_of(self, *texts):
        wait_for(lambda: self.hears("Halvern") and not any(map(self.hears, texts)), f"{texts} are gone", 60)

    def nameless(self):
        return [f"{thing.getRoleName()} in {thing.parent.name or thing.parent.parent.name}" for thing in self.things()
                if thing.getRoleName() in NAMED and not thing.name]

    @staticmethod
    def press(*keys):
        subprocess.run(["xdotool", "key", "--delay", "5", *keys], check=True)

    @staticmethod
    def type(text):
        subprocess.run(["xdotool", "type", "--delay", "5", text], check=True)

    def fill(self, *texts):
        """Fields one behind the other, the first of them having the keys."""
        for text in texts:
            self.type(text)
            self.press("Tab")


def text_in(thing):
    return thing.queryText().getText(0, -1) if "Text" in pyatspi.listInterfaces(thing) else ""


def first_run(ear, port):
    """What is typed here is all that a station needs; the passcode is reckoned at the next start."""
    ear.waits("Setup", "Call sign")
    assert not ear.nameless(), ear.nameless()
    ear.fill("q0own", "0", "40", "49", "14", "N", "073", "08", "41", "W", "h", "at home", "on the air")
    ear.press("ctrl+Tab", "ctrl+Tab")
    ear.waits("APRS-IS server")
    ear.press("ctrl+a")
    ear.fill("127.0.0.1", str(port))
    ear.press("Return")
    ear.waits("Q0OWN, ", "Settings not saved")


def open_port(ear, server):
    ear.waits("Q0OWN, ")
    ear.press("ctrl+i")
    ear.waits("TCP/IP Port: open")
    server.say(FAR + b">APRS,TCPIP*:=4200.00N/07100.00W-far away")
    ear.waits("Q1FAR>APRS,TCPIP*:=4200.00N")


def find(ear):
    ear.press("ctrl+f")
    ear.waits("Find Call Sign")
    ear.type("Q1FAR")
    ear.press("Return")
    ear.waits("Q1FAR House VHF", "No Status Packet")
    ear.press("alt+g")
    ear.waits("Centre 42.00° N, 71.00° W")
    ear.press("Escape")
    ear.waits_for_the_end_of("No Status Packet")


def talk(ear, server):
    ear.press("ctrl+5")
    ear.waits("Messages between other stations")
    ear.press("Right", "Tab")
    ear.waits("To Callsign")
    ear.fill("q1far", "")
    ear.type("hello")
    ear.press("Return")
    wait_for(lambda: any(b"::Q1FAR    :hello{1" in line for line in server.lines), f"the message goes out: {server.lines[-3:]}")
    server.say(FAR + b">APRS,TCPIP*::Q0OWN    :ack1")
    server.say(FAR + b">APRS,TCPIP*::Q0OWN    :good evening{7")
    ear.waits("Q0OWN>Q1FAR:1.hello", "Q1FAR>Q0OWN:7.good evening")
    wait_for(lambda: any(b"::Q1FAR    :ack7" in line for line in server.lines), "the answer is acknowledged")
    assert not ear.nameless(), ear.nameless()


def save(ear, folder):
    ear.press("ctrl+comma")
    ear.waits("Setup")
    ear.waits("APRS-IS server")
    ear.press("ctrl+Tab")
    ear.waits("OK uses the settings")
    assert not ear.nameless(), ear.nameless()
    ear.press("space")
    ear.waits("Your Configuration is now Saved.")
    assert (folder / "Halvern.INI").exists()
    ear.press("Return")
    ear.waits_for_the_end_of("Your Configuration", "This station")


def quit(ear, program):
    ear.press("ctrl+q")
    assert program.wait(30) == 0


def evening(ear, start, server, folder):
    program = start()
    first_run(ear, server.port)
    save(ear, folder)
    quit(ear, program)
    program = start()
    open_port(ear, server)
    find(ear)
    talk(ear, server)
    quit(ear, program)


def main():
    tools = ("Xvfb", "xvfb-run", "dbus-run-session", "xdotool", "openbox")
    if pyatspi is None or not all(map(shutil.which, tools)):
        sys.exit(print("Skipped: needs python3-pyatspi, " + ", ".join(tools)) or SKIPPED)
    if "SCREEN_OF_ITS_OWN" not in os.environ:
        os.environ.update(SCREEN_OF_ITS_OWN="1", QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1", QT_QPA_PLATFORM="xcb")
        os.execvp("xvfb-run", ["xvfb-run", "-a", "-s", "-screen 0 1366x768x24", "dbus-run-session", "--", sys.executable, *sys.argv])
    build, data = (pathlib.Path(word).resolve() for word in sys.argv[1:3])
    with tempfile.TemporaryDirectory() as name:
        folder, running = pathlib.Path(name), [subprocess.Popen(["openbox"], stderr=subprocess.DEVNULL)]
        for entry in data.iterdir():
            (folder / entry.name).symlink_to(entry)

        def start():
            running.append(subprocess.Popen([build / "halvern", folder]))
            return running[-1]

        server = Server(build, FAR)
        running.append(server.feed)
        try:
            evening(Ear(), start, server, folder)
            print("an evening by keyboard alone, each thing on the screen by its name")
        finally:
            for process in running:
                process.kill()


main()
