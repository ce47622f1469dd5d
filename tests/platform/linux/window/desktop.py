"""A person's hands and eyes on a desktop: programs are found through the accessibility tree, used with real key
and mouse events, and looked at on the screen. Nothing here reaches into a program.

A desktop is started by the shell script beside this file. Everything that waits gives up after a while."""

import contextlib
import os
import pathlib
import re
import subprocess
import sys
import time

import gi
import pyatspi

gi.require_version("GLib", "2.0")

PATIENCE = 60.0  # seconds, for a machine that does much else at the same time
SCALE = int(os.environ.get("QT_SCALE_FACTOR", "1"))  # pixels of the screen to one of a program's

ORANGE, LIGHT, DARK = "964200", "FAFAFB", "222226"  # what the window takes for orange text and for its paper


class Failure(Exception):
    pass


def until(what, look, patience=PATIENCE):
    """Waits until `look` returns something true, and returns that."""
    end = time.monotonic() + patience
    while True:
        seen = look()
        if seen:
            return seen
        if time.monotonic() > end:
            raise Failure(f"waited in vain for {what}")
        time.sleep(0.02)


def run(*command):
    return subprocess.run(command, check=True, capture_output=True, timeout=PATIENCE, text=True).stdout


def press(*keys):
    """Presses keys by their names, as in "Return" or "ctrl+w", when a window has the keyboard."""
    look = ["xdotool", "getactivewindow"]
    until("an active window", lambda: subprocess.run(look, capture_output=True, check=False).returncode == 0)
    run("xdotool", "key", "--clearmodifiers", *keys)


def type_text(text):
    run("xdotool", "type", "--delay", "8", text)


def box(node):
    """Where something is on the screen, in its pixels: left, top, width and height."""
    place = node.queryComponent().getExtents(pyatspi.DESKTOP_COORDS)
    return tuple(side * SCALE for side in (place.x, place.y, place.width, place.height))


def is_active(program):
    return any(window is not None and has(window, pyatspi.STATE_ACTIVE) for window in children(program))


def turns(process):
    """How often each thread of a process has given the processor away; None while one has it, or waits for it."""
    told = []
    try:
        for thread in pathlib.Path(f"/proc/{process}/task").iterdir():
            status = (thread / "status").read_text()
            if "\nState:\tR" in status:
                return None
            told.append(re.findall(r"^(?:non)?voluntary_ctxt_switches:\t(\d+)$", status, re.MULTILINE))
    except (FileNotFoundError, ProcessLookupError):  # it has just ended
        return None
    return told


def is_at_rest(process):
    """Whether a process has nothing left to do, not even a frame to draw that it has put off until the next is due."""
    before = turns(process)
    time.sleep(0.04)
    return before is not None and before == turns(process)


def click(node):
    """Clicks the middle of something. A window tells of its parts before it is on the screen, where it will be when it
    has the keyboard, and where parts are that have moved when it has drawn them."""
    program = node.getApplication()
    until("an active window", lambda: is_active(program))
    until("a program at rest", lambda: is_at_rest(program.get_process_id()))
    x, y, width, height = box(node)
    run("xdotool", "mousemove", str(x + width // 2), str(y + height // 2), "click", "1")


def colours(node):
    """The colours that are seen where something is, with the number of their pixels, as "#RRGGBB"."""
    x, y, width, height = box(node)
    area = f"{width}x{height}+{x}+{y}"
    text = run("sh", "-c", f"import -window root -crop {area} +repage -depth 8 -format %c histogram:info:-")
    counts = {}
    for line in text.splitlines():
        count, _, rest = line.strip().partition(":")
        counts[rest.split("#")[1][:6].upper()] = int(count)
    return counts


def paper(node):
    """The colour that most of it has."""
    seen = colours(node)
    return max(seen, key=seen.get)


def photograph(path, crop=None):
    """Keeps what the screen shows as a picture."""
    command = ["import", "-window", "root"]
    if crop:
        command += ["-crop", crop, "+repage"]
    run(*command, "-strip", path)


@contextlib.contextmanager
def portal(scheme):
    """A settings portal that tells this, and anything else that is written to it."""
    program = str(pathlib.Path(__file__).parent / "portal.py")
    process = subprocess.Popen(
        [sys.executable, program, scheme], stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True, bufsize=1
    )
    try:
        until("the portal", lambda: process.stdout.readline() == "ready\n")
        yield process.stdin
    finally:
        process.stdin.close()
        process.wait(PATIENCE)


def children(node):
    """None of one that goes while it is asked: its number of children is below zero then."""
    try:
        return list(node)
    except ValueError:
        return []


def walk(node):
    for child in children(node):
        if child is None:
            continue
        yield child
        yield from walk(child)


def has(node, state):
    return node.getState().contains(state)


def role_of(node):
    """What kind of thing it is. Newer libraries say "button" for what older ones call "push button"."""
    name = node.getRoleName()
    return "push button" if name == "button" else name


def tell_what_is_shown():
    for program in pyatspi.Registry.getDesktop(0):
        program.clear_cache()
        for node in walk(program):
            if has(node, pyatspi.STATE_SHOWING):
                has_keyboard = has(node, pyatspi.STATE_ACTIVE) or has(node, pyatspi.STATE_FOCUSED)
                print(f"    {role_of(node)} {node.name!r}{' has the keyboard' if has_keyboard else ''}", file=sys.stderr)


class Program:
    """A program that this run has started, and that ends with it at the latest."""

    def __init__(self, *command, **environment):
        self.process = subprocess.Popen(command, env={**os.environ, **environment})

    def __enter__(self):
        return self

    def __exit__(self, problem, *_):
        if problem:
            tell_what_is_shown()
        if self.process.poll() is None:
            self.process.kill()
        self.process.wait()

    def status(self):
        """Waits for its end."""
        return self.process.wait(PATIENCE)

    def tree(self):
        """Its node in the accessibility tree, read anew."""
        for program in pyatspi.Registry.getDesktop(0):
            if program is not None and program.get_process_id() == self.process.pid:
                program.clear_cache()
                return program
        return None

    def all(self, role, name=None):
        """What of this kind is shown, with this name if one is given."""
        try:
            return [
                node
                for node in walk(self.tree() or [])
                if role_of(node) == role
                and has(node, pyatspi.STATE_SHOWING)
                and (name is None or node.name == name)
            ]
        except gi.repository.GLib.GError:  # it has changed while it was read
            return []

    def find(self, role, name=None):
        return until(f"{role} {name or ''}", lambda: self.all(role, name))[0]

    def gone(self, role, name=None):
        until(f"no {role} {name or ''}", lambda: not self.all(role, name))

    def names(self, role):
        return [node.name for node in self.all(role)]

    def window(self):
        """The number of its window for xdotool."""
        look = ["xdotool", "search", "--onlyvisible", "--pid", str(self.process.pid), "--name", "."]
        found = until(
            "a window", lambda: subprocess.run(look, capture_output=True, text=True, check=False).stdout.split()
        )
        return found[-1]


def main(*steps):
    """Takes the steps in their order and tells of the first that fails."""
    for step in steps:
        start = time.monotonic()
        try:
            step()
        except Exception as problem:  # whatever it is, the run has failed in this step
            print(f"FAILED  {step.__doc__}: {type(problem).__name__}: {problem}", file=sys.stderr)
            raise
        print(f"{time.monotonic() - start:5.2f} s  {step.__doc__}", flush=True)
