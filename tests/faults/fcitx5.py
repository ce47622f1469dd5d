#!/usr/bin/python3
"""Makes each call of Fcitx5's start fail from where it loads our add-on, and kills it there, one after the other:
fcitx5.py LIBRARY ADDON-FOLDER DATA-FOLDER [--every N].

With keys of the user's own, suggestions on, lists, and words learnt. After each failure somebody types: either the word
comes, or Fcitx5 tells why it has not loaded the add-on, goes on and passes the keys; after a kill the next one types
it. What is stored is as it was. Needs GLib for Python.
"""

import os
import re
import signal
import subprocess
import sys
import sysconfig
import tempfile
from pathlib import Path

from starts import AMMA, HUNG, KA, PATIENCE, Faults, Stored, arguments, end, sweep, wait_for

NAME, CONTROLLER = "org.fcitx.Fcitx5", "org.fcitx.Fcitx.Controller1"
NOT_LOADED = re.compile(r"(?:Could not load|Failed to load|Failed to create)[^\n]*vanoka")
SHOWS_MARKED_TEXT = 0x12
PROFILE = """[Groups/0]
Name=Default
Default Layout=us
DefaultIM=vanoka

[Groups/0/Items/0]
Name=keyboard-us
Layout=

[Groups/0/Items/1]
Name=vanoka
Layout=

[GroupOrder]
0=Default
"""


class Desktop:
    """A session bus and a home folder, for one fcitx5 after the other."""

    def __init__(self, folder, library, addons, data):
        self.folder, self.faults, self.process = Path(folder), Faults(library, folder, "vanoka.so"), None
        own = Path("/usr/lib", sysconfig.get_config_var("MULTIARCH") or "", "fcitx5")
        address = f"unix:path={folder}/bus"
        self.environment = {
            "HOME": folder, "PATH": os.environ["PATH"], "LC_ALL": "C.UTF-8", "XDG_RUNTIME_DIR": folder,
            "XDG_CONFIG_HOME": f"{folder}/configuration", "XDG_DATA_HOME": f"{folder}/data",
            "XDG_CACHE_HOME": f"{folder}/cache", "DBUS_SESSION_BUS_ADDRESS": address,
            "FCITX_ADDON_DIRS": f"{addons}:{own}", "FCITX_DATA_DIRS": f"{data}:/usr/share/fcitx5"}
        self.stored = Stored(f"{folder}/configuration", f"{folder}/data")
        profile = self.folder / "configuration/fcitx5/profile"
        profile.parent.mkdir()
        profile.write_text(PROFILE, encoding="utf-8")
        self.bus = subprocess.Popen(["dbus-daemon", "--session", "--nofork", "--nosyslog", f"--address={address}"],
                                    env=self.environment, stderr=subprocess.DEVNULL)
        if not wait_for(lambda: self.connect(address)):
            self.close()
            sys.exit("There is no session bus")

    def connect(self, address):
        """Whether the bus is there; it makes its socket before it listens."""
        kind = Gio.DBusConnectionFlags
        try:
            self.connection = Gio.DBusConnection.new_for_address_sync(
                address, kind.AUTHENTICATION_CLIENT | kind.MESSAGE_BUS_CONNECTION, None, None)
        except GLib.Error:
            return False
        return True

    def close(self):
        for process in (self.process, self.bus):
            if process and process.poll() is None:
                process.terminate()
                process.wait()

    def call(self, name, path, interface, method, arguments=None):
        """The answer; nothing when there is none."""
        try:
            return self.connection.call_sync(name, path, interface, method, arguments, None,
                                             Gio.DBusCallFlags.NO_AUTO_START, PATIENCE * 1000, None).unpack()
        except GLib.Error:
            return ()

    def is_there(self):
        """Whether fcitx5 is on the bus."""
        bus = "org.freedesktop.DBus"
        return self.call(bus, "/org/freedesktop/DBus", bus, "NameHasOwner", GLib.Variant("(s)", (NAME,)))[0]

    def start(self, faults):
        self.process = subprocess.Popen(
            ["fcitx5", "--disable=all", "--enable=dbus,dbusfrontend,keyboard,vanoka"], stderr=subprocess.PIPE,
            env={**self.environment, **faults})
        wait_for(lambda: self.is_there() or self.process.poll() is not None)
        return self.process.poll() is None

    def end(self):
        """What it has said."""
        said = end(self.process)
        wait_for(lambda: not self.is_there())
        return said

    def typed(self, keys):
        """What comes of them in a field."""
        made = self.call(NAME, "/org/freedesktop/portal/inputmethod", "org.fcitx.Fcitx.InputMethod1",
                         "CreateInputContext", GLib.Variant("(a(ss))", ([("program", "faults")],)))
        if not made:
            return "no answer"
        path, came = made[0], []
        watch = self.connection.signal_subscribe(
            None, "org.fcitx.Fcitx.InputContext1", "CommitString", path, None, 0,
            lambda *signal: came.append(signal[5].unpack()[0]))

        def field(method, arguments=None):
            return self.call(NAME, path, "org.fcitx.Fcitx.InputContext1", method, arguments)

        field("SetCapability", GLib.Variant("(t)", (SHOWS_MARKED_TEXT,)))
        field("FocusIn")
        self.call(NAME, "/controller", CONTROLLER, "SetCurrentIM", GLib.Variant("(s)", ("vanoka",)))
        for key in keys:
            if field("ProcessKeyEvent", GLib.Variant("(uuubu)", (ord(key), 0, 0, False, 0))) != (True,):
                settle()
                came.append(key)
        wait_and_settle(lambda: "".join(came).endswith(" "))
        field("DestroyIC")
        self.connection.signal_unsubscribe(watch)
        return "".join(came)

    def problem(self, fault):
        """What is wrong with a start in which a call goes wrong."""
        before, is_there = self.stored.words(), self.start(self.faults.environment(fault))
        if not fault.number:
            wait_for(self.faults.has_opened_words)
        typed = [self.typed("amma ")] if is_there else []
        briefly = 2  # where lists cannot be read nobody opens the store, and nothing tells that there are no more calls
        wait_for(self.faults.has_opened_words, briefly)
        wait_for(lambda: fault.is_over(self.faults.calls(), self.process), briefly)
        if self.process.poll() is None:
            typed.append(self.typed("amma "))
        said = self.end()
        wrongs = list(self.stored.wrongs(before, 2, fault))
        if HUNG in said:
            wrongs.append(said.strip())
        elif fault.how == "kill" and self.process.returncode == -signal.SIGKILL:
            return "; ".join([*wrongs, *self.wrongs_of_next()])
        elif self.process.returncode != 0:
            wrongs.append(f"it ended with {self.process.returncode}")
        is_not_loaded = typed == ["amma "] * 2 and NOT_LOADED.search(said)
        if typed != [AMMA] * 2 and not is_not_loaded:
            wrongs.append(f"typing gave {typed!r}: {said}")
        return "; ".join([*wrongs, *(self.wrongs_of_next() if is_not_loaded else ())])

    def wrongs_of_next(self):
        if (typed := self.typed_by_next("amma ")) != AMMA:
            yield f"typing with the next one gave {typed!r}"

    def typed_by_next(self, keys):
        self.start({})
        typed = self.typed(keys)
        self.end()
        return typed


def main():
    given = arguments()
    with tempfile.TemporaryDirectory(prefix="vanoka-fcitx5-") as folder:
        desktop = Desktop(folder, *given.paths)
        try:
            if desktop.typed_by_next("zqa ") != f"{KA} ":  # with the first word, the store of words is made
                sys.exit("The keys are not in force")
            status = sweep(desktop.faults, desktop.problem, given.every)
            sys.exit(status if desktop.typed_by_next("zqa ") == f"{KA} " else "The keys are not in force afterwards")
        finally:
            desktop.close()


try:
    import gi
    gi.require_version("Gio", "2.0")
    from gi.repository import Gio, GLib
    from loop import settle, wait_and_settle
except (ImportError, ValueError):
    print("SKIPPED: GLib for Python (python3-gi) is not there.")
    sys.exit(77)
main()
