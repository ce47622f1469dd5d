#!/usr/bin/python3
"""Makes each call of the engine's start fail, and kills it there, one after the other:
engine.py LIBRARY VANOKA DESCRIPTION [--every N].

In a real daemon, with keys of the user's own, suggestions on, lists, and words learnt. After each failure somebody
types: either the word comes, or the engine has stopped in its own words, and the next one types it; after a kill the
next one does. What is stored is as it was. Now and then a kill ends the daemon of IBus 1.5.27 as well, by an assertion
of its own: then there is a new one. Needs IBus for Python.
"""

import os
import re
import signal
import subprocess
import sys
import tempfile
from pathlib import Path

from starts import AMMA, HUNG, KA, Faults, Stored, arguments, end, sweep, wait_for

NAME = "org.freedesktop.IBus.Vanoka"
# The last is GLib's: it ends a program that it cannot tell of changed files.
STOPPED = re.compile("Could not start the Vanoka input method server|GLib-GIO-ERROR.*inotify read")


class Daemon:
    def __init__(self, folder, library, program, description):
        self.folder, self.faults, self.program = Path(folder), Faults(library, folder), program
        self.stored = Stored(f"{folder}/configuration", f"{folder}/data")
        text = Path(description).read_text(encoding="utf-8")
        # It starts no engine by itself.
        (self.folder / "vanoka.xml").write_text(re.sub("<exec>.*?</exec>", "<exec>/bin/false</exec>", text), "utf-8")
        os.environ.update(
            HOME=folder, XDG_CONFIG_HOME=f"{folder}/configuration", XDG_DATA_HOME=f"{folder}/data", LC_ALL="C.UTF-8",
            XDG_CACHE_HOME=f"{folder}/cache", XDG_RUNTIME_DIR=folder, IBUS_ADDRESS_FILE=f"{folder}/address",
            IBUS_COMPONENT_PATH=f"{folder}:/usr/share/ibus/component", GSETTINGS_BACKEND="memory", NO_AT_BRIDGE="1")
        for name in ("DISPLAY", "WAYLAND_DISPLAY", "DBUS_SESSION_BUS_ADDRESS", "IBUS_ADDRESS"):
            os.environ.pop(name, None)
        self.starts, self.fields_left = 0, []
        self.start()

    def start(self):
        self.starts += 1
        self.process = subprocess.Popen(
            ["ibus-daemon", "--panel", "disable", "--emoji-extension", "disable", "--config", "disable", "--cache",
             "none"], stderr=subprocess.DEVNULL)
        self.bus = IBus.Bus()
        if not wait_and_settle(self.bus.is_connected):
            sys.exit("There is no daemon")

    def start_engine(self, faults):
        engine = subprocess.Popen([self.program], env={**os.environ, **faults}, stderr=subprocess.PIPE)
        wait_for(lambda: self.bus.name_has_owner(NAME) or engine.poll() is not None)
        return engine

    def typed(self, engine, keys):
        """What comes of them, as long as the engine is there."""
        context, committed = self.bus.create_input_context("fault"), []
        context.connect("commit-text", lambda _, text: committed.append(text.get_text()))
        context.set_capabilities(IBus.Capabilite.PREEDIT_TEXT | IBus.Capabilite.FOCUS)
        context.focus_in()

        def has_engine():
            return engine.poll() is not None or context.get_engine() and context.get_engine().get_name() == "vanoka"

        # With the focus a field gets the engine of the field before. Who asks for it at once gives it twice, and what
        # was typed into the first goes with it.
        if not wait_and_settle(has_engine, patience=0.5):
            context.set_engine("vanoka")
            wait_and_settle(has_engine)
        if engine.poll() is None:
            # The daemon knows the engine's name before it has one: until then keys pass.
            wait_and_settle(lambda: engine.poll() is not None or context.process_key_event(ord(keys[0]), 0, 0))
            for key in keys[1:]:
                if not context.process_key_event(ord(key), 0, 0):
                    settle()
                    committed.append(key)
            wait_and_settle(lambda: engine.poll() is not None or "".join(committed).endswith(" "))
        if engine.poll() is None:
            context.destroy()
        else:  # a field that goes together with its engine now and then ends the daemon, by an assertion of its own
            self.fields_left.append(context)
        return "".join(committed)

    def end(self, engine):
        errors = end(engine)
        wait_for(lambda: not self.bus.name_has_owner(NAME))
        return errors

    def problem(self, fault):
        """What is wrong with a start in which a call goes wrong."""
        before = self.stored.words()
        engine = self.start_engine(self.faults.environment(fault))
        if not fault.number:
            wait_for(self.faults.has_opened_words)
        typed = self.typed(engine, "amma ")
        briefly = 2  # the lists and words are read meanwhile, and nothing tells that there are no more calls
        wait_for(lambda: fault.is_over(self.faults.calls(), engine), briefly)
        has_stopped = engine.poll() is not None
        errors = self.end(engine)
        wrongs = list(self.stored.wrongs(before, 1, fault))
        if not has_stopped and typed != AMMA:
            wrongs.append(f"typing gave {typed!r}; {errors.strip()}")
        if HUNG in errors:
            wrongs.append(errors.strip())
        if has_stopped:
            is_killed = fault.how == "kill" and engine.returncode == -signal.SIGKILL
            wrongs.extend(() if is_killed else self.wrongs_of_stop(engine.returncode, errors))
            wrongs.extend(self.wrongs_of_next())
        return "; ".join(wrongs)

    def wrongs_of_stop(self, status, errors):
        if status >= 0 or not STOPPED.search(errors):
            yield f"it ended with {status}: {errors.strip()}"

    def wrongs_of_next(self):
        if self.process.poll() is not None:
            self.start()
        if (typed := self.typed_by_next("amma ")) != AMMA:
            yield f"typing with the next one gave {typed!r}"

    def typed_by_next(self, keys):
        engine = self.start_engine({})
        typed = self.typed(engine, keys)
        self.end(engine)
        return typed


def main():
    given = arguments()
    with tempfile.TemporaryDirectory(prefix="vanoka-engine-") as folder:
        daemon = Daemon(folder, *given.paths)
        try:
            if daemon.typed_by_next("zqa ") != f"{KA} ":
                sys.exit("The keys are not in force")
            status = sweep(daemon.faults, daemon.problem, given.every)
            print(f"the daemon ended {daemon.starts - 1} times")
            sys.exit(status)
        finally:
            daemon.process.terminate()
            daemon.process.wait()


try:
    import gi
    gi.require_version("IBus", "1.0")
    from gi.repository import IBus
    from loop import settle, wait_and_settle
except (ImportError, ValueError):
    print("SKIPPED: IBus for Python (gir1.2-ibus-1.0, python3-gi) is not there.")
    sys.exit(77)
main()
