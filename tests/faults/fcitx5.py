#!/usr/bin/python3
"""Makes each call of Fcitx5's start fail from where it loads our add-on, one after the other: fcitx5.py LIBRARY
ADDON-FOLDER DATA-FOLDER.

With keys of the user's own, suggestions on and words learnt. After each failure somebody types: either the word
comes, or the add-on could not be loaded and Fcitx5, which goes on, passes the keys. What is stored is as it was. Needs
GLib for Python.
"""

import os
import shutil
import signal
import subprocess
import sys
import sysconfig
import tempfile
from pathlib import Path

from starts import AMMA, Faults, sweep, wait_for

NAME, CONTROLLER = "org.fcitx.Fcitx5", "org.fcitx.Fcitx.Controller1"
KA = "\u0d9a"
KEYS = '{"addedKeys":[{"key":"zq","letter":"%s"}],"disabledKeys":[]}' % KA
SHOWS_MARKED_TEXT = 0x12
LISTS = Path(__file__).parents[1] / "scenarios/suggestions/lists"
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
        self.folder, self.faults, self.process = Path(folder), Faults(library, folder), None
        own = Path("/usr/lib", sysconfig.get_config_var("MULTIARCH") or "", "fcitx5")
        address = f"unix:path={folder}/bus"
        self.environment = {
            "HOME": folder, "PATH": os.environ["PATH"], "LC_ALL": "C.UTF-8", "XDG_RUNTIME_DIR": folder,
            "XDG_CONFIG_HOME": f"{folder}/configuration", "XDG_DATA_HOME": f"{folder}/data",
            "XDG_CACHE_HOME": f"{folder}/cache", "DBUS_SESSION_BUS_ADDRESS": address,
            "FCITX_ADDON_DIRS": f"{addons}:{own}", "FCITX_DATA_DIRS": f"{data}:/usr/share/fcitx5"}
        self.store("configuration/fcitx5/profile", PROFILE)
        self.store("configuration/vanoka/vanoka.customization.v1", KEYS)
        self.store("configuration/vanoka/vanoka.suggestions.v1", "suggestions=on\nprivate=off\nrows=6\n")
        shutil.copytree(LISTS, self.folder / "data/vanoka")
        self.bus = subprocess.Popen(["dbus-daemon", "--session", "--nofork", "--nosyslog", f"--address={address}"],
                                    env=self.environment, stderr=subprocess.DEVNULL)
        wait_for(lambda: (self.folder / "bus").exists())
        kind = Gio.DBusConnectionFlags
        self.connection = Gio.DBusConnection.new_for_address_sync(
            address, kind.AUTHENTICATION_CLIENT | kind.MESSAGE_BUS_CONNECTION, None, None)

    def close(self):
        for process in (self.process, self.bus):
            if process and process.poll() is None:
                process.terminate()
                process.wait()

    def store(self, name, text):
        path = self.folder / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text(text, encoding="utf-8")

    def call(self, name, path, interface, method, arguments=None):
        """The answer; nothing when there is none."""
        try:
            return self.connection.call_sync(name, path, interface, method, arguments, None,
                                             Gio.DBusCallFlags.NO_AUTO_START, 5000, None).unpack()
        except GLib.Error:
            return ()

    def is_there(self):
        """Whether fcitx5 is on the bus."""
        bus = "org.freedesktop.DBus"
        return self.call(bus, "/org/freedesktop/DBus", bus, "NameHasOwner", GLib.Variant("(s)", (NAME,)))[0]

    def start(self, number=0, error=0):
        self.process = subprocess.Popen(
            ["fcitx5", "--disable=all", "--enable=dbus,dbusfrontend,keyboard,vanoka"], stderr=subprocess.PIPE,
            env={**self.environment, **self.faults.environment(number, error)})
        wait_for(lambda: self.is_there() or self.process.poll() is not None)
        return self.process.poll() is None

    def end(self):
        """What it has said."""
        self.process.send_signal(signal.SIGTERM)
        said = self.process.communicate()[1].decode()
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

    def stored_otherwise(self):
        """What is stored in another way than it was, or was set aside."""
        keys = (self.folder / "configuration/vanoka/vanoka.customization.v1").read_text(encoding="utf-8")
        aside = [path.name for path in self.folder.rglob("*") if ".damaged" in path.name or ".kept" in path.name]
        return aside + ([] if keys == KEYS else [keys])


def problem(desktop, number, error):
    """What is wrong with a start in which a call fails."""
    if not desktop.start(number, error):
        return f"fcitx5 has ended: {desktop.end()}"
    typed = desktop.typed("amma ")
    briefly = 2  # where the lists cannot be read nobody opens the store, and nothing tells that there are no more calls
    wait_for(lambda: any("words.sqlite" in call for call in desktop.faults.calls()), briefly)
    wait_for(lambda: number == 0 or desktop.faults.call(number), briefly)
    again = desktop.typed("amma ")
    said, wrongs = desktop.end(), []
    if desktop.process.returncode != 0:
        wrongs.append(f"it ended with {desktop.process.returncode}")
    if (typed, again) != (AMMA, AMMA) and ((typed, again) != ("amma ", "amma ") or "Loaded addon vanoka" in said):
        wrongs.append(f"typing gave {typed!r} and {again!r}: {said}")
    wrongs.extend(f"stored: {each}" for each in desktop.stored_otherwise())
    return "; ".join(wrongs)


def knows_the_keys(desktop):
    desktop.start()
    typed = desktop.typed("zqa ")
    desktop.end()
    return typed == KA + " "


def main():
    with tempfile.TemporaryDirectory(prefix="vanoka-fcitx5-") as folder:
        desktop = Desktop(folder, *map(os.path.abspath, sys.argv[1:]))
        try:
            status = sweep(desktop.faults, lambda number, error: problem(desktop, number, error),
                           begins=lambda call: "vanoka.so" in call)
            sys.exit(status if knows_the_keys(desktop) else "The keys are not in force afterwards")
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
