#!/usr/bin/python3
"""Makes each call of the engine's start fail, one after the other: engine.py LIBRARY VANOKA DESCRIPTION.

In a real daemon. After each failure somebody types: either the word comes, or the engine has stopped and said why, and
the next one types it. Needs IBus for Python.
"""

import os
import re
import signal
import subprocess
import sys
import tempfile
from pathlib import Path

from starts import AMMA, Faults, sweep, wait_for

NAME = "org.freedesktop.IBus.Vanoka"


class Daemon:
    def __init__(self, folder, library, program, description):
        self.folder, self.faults, self.program = Path(folder), Faults(library, folder), program
        text = Path(description).read_text(encoding="utf-8")
        # It starts no engine by itself.
        (self.folder / "vanoka.xml").write_text(re.sub("<exec>.*?</exec>", "<exec>/bin/false</exec>", text), "utf-8")
        os.environ.update(
            HOME=folder, XDG_CONFIG_HOME=f"{folder}/configuration", XDG_CACHE_HOME=f"{folder}/cache",
            XDG_RUNTIME_DIR=folder, IBUS_ADDRESS_FILE=f"{folder}/address", LC_ALL="C.UTF-8",
            IBUS_COMPONENT_PATH=f"{folder}:/usr/share/ibus/component", GSETTINGS_BACKEND="memory", NO_AT_BRIDGE="1")
        for name in ("DISPLAY", "WAYLAND_DISPLAY", "DBUS_SESSION_BUS_ADDRESS", "IBUS_ADDRESS"):
            os.environ.pop(name, None)
        self.process = subprocess.Popen(
            ["ibus-daemon", "--panel", "disable", "--emoji-extension", "disable", "--config", "disable", "--cache",
             "none"], stderr=subprocess.DEVNULL)
        self.bus = IBus.Bus()
        if not wait_and_settle(self.bus.is_connected):
            sys.exit("There is no daemon")

    def start_engine(self, number, error):
        engine = subprocess.Popen([self.program], env={**os.environ, **self.faults.environment(number, error)},
                                  stderr=subprocess.PIPE)
        wait_for(lambda: self.bus.name_has_owner(NAME) or engine.poll() is not None)
        return engine

    def typed(self):
        """What comes of typing a word, with an engine that is there."""
        context, committed = self.bus.create_input_context("fault"), []
        context.connect("commit-text", lambda _, text: committed.append(text.get_text()))
        context.set_capabilities(IBus.Capabilite.PREEDIT_TEXT | IBus.Capabilite.FOCUS)
        context.focus_in()
        context.set_engine("vanoka")
        if not wait_and_settle(lambda: context.get_engine() and context.get_engine().get_name() == "vanoka"):
            return "no engine"
        taken = [context.process_key_event(ord(key), 0, 0) for key in "amma "]
        if not taken[-1]:
            committed.append(" ")
        wait_and_settle(lambda: "".join(committed) == AMMA)
        context.destroy()
        return "".join(committed)

    def end(self, engine):
        engine.send_signal(signal.SIGTERM)
        errors = engine.communicate()[1].decode()
        wait_for(lambda: not self.bus.name_has_owner(NAME))
        return errors


def problem(daemon, number, error):
    """What is wrong with a start in which a call fails."""
    engine = daemon.start_engine(number, error)
    typed = daemon.typed() if engine.poll() is None else None
    has_stopped = engine.poll() is not None
    errors = daemon.end(engine)
    if has_stopped:
        return "" if errors.strip() else "it stopped, and does not say why"
    return "" if typed == AMMA else f"typing gave {typed!r}; {errors.strip()}"


def main():
    with tempfile.TemporaryDirectory(prefix="vanoka-engine-") as folder:
        daemon = Daemon(folder, *map(os.path.abspath, sys.argv[1:]))
        try:
            sys.exit(sweep(daemon.faults, lambda number, error: problem(daemon, number, error)))
        finally:
            daemon.process.terminate()
            daemon.process.wait()


try:
    import gi
    gi.require_version("IBus", "1.0")
    from gi.repository import IBus
    from loop import wait_and_settle
except (ImportError, ValueError):
    print("SKIPPED: IBus for Python (gir1.2-ibus-1.0, python3-gi) is not there.")
    sys.exit(77)
main()
