"""What a typist does on a desk, by real keys and clicks, each until it has come about: a wait is for a state."""

import contextlib
import functools
import os
import signal
import time

import windows
from places import Programs
from windows import Failure

UNSEEN = 0.25  # seconds that a typist waits where nothing shows that the keys have come: xterm shows no marked text
PATIENCE = 30  # as there may be much else to do on the machine

wait_until = functools.partial(windows.wait_until, patience=PATIENCE)


class NotFound(Failure):
    """The engine, by a program that was there before it."""


class Stage:
    """A desk, a client's programs on it, and the place that has the focus."""

    way_back = "click"  # which leads to any place

    def __init__(self, desk, client):
        self.desk = desk
        self.client = client
        self.programs = None
        self.discarded_before = self.discarded()
        self.open()

    def open(self):
        self.programs = Programs(self.desk, self.client)
        self.places = self.programs.places
        self.visited = []
        self.go(0, "click")
        self.desk.choose_ours()

    def close(self):
        self.programs.close()

    def reopen(self):
        self.close()
        self.open()

    @property
    def place(self):
        return self.places[self.here]

    def texts(self):
        return [place.text() for place in self.places]

    def write(self, strokes):
        """Keys with the pause, in milliseconds, before each."""
        command = []
        for key, pause in strokes:
            command += ["sleep", str(pause / 1000), "key", "--delay", "0", key]
        self.desk.processes.output("xdotool", *command)

    def press(self, *keys):
        self.write([(key, 0) for key in keys])

    @contextlib.contextmanager
    def holding(self, modifier):
        """While a key that the program gets back would find it released, if it came late."""
        self.desk.processes.output("xdotool", "keydown", modifier)
        try:
            yield
        finally:
            self.desk.processes.output("xdotool", "keyup", modifier)

    def look(self):
        """Until what a shortcut's first key does has come about: with some clients it puts the word in."""
        if self.desk.name == "ibus" and self.place.toolkit.startswith("qt"):
            wait_until(lambda: not self.place.marked(), "the word is in")
        else:
            time.sleep(UNSEEN)

    def settle(self, model):
        """Until all that was typed is where it belongs. False when it is not in the end."""
        try:
            wait_until(lambda: self.is_as(model), "")
        except Failure:
            return False
        self.discarded_before = self.discarded()
        if not self.place.is_watched and model.keys:
            time.sleep(UNSEEN)
        return True

    def discarded(self):
        return self.desk.discarded() if hasattr(self.desk, "discarded") else 0

    def has_discarded(self, model):
        """Whether the compositor has thrown texts away since all was where it belongs, and nothing else is wrong."""
        return self.discarded() > self.discarded_before and model.lacks(self.texts())

    def is_as(self, model):
        is_shown = not self.place.is_watched or model.is_dead or self.place.marked() in model.marks()
        return is_shown and model.allows(self.texts())

    # From one place to another.

    def ways(self):
        """Where each way leads from here, as (way, number of the place)."""
        others = [number for number in range(len(self.places)) if number != self.here]
        windows = [self.last_in(window) for window in self.windows()[1:]]
        return [*(("click", number) for number in others),
                *(("Tab", number) for number in others if self.places[number].window == self.place.window),
                *(("activate", number) for number in windows), *(("Alt+Tab", number) for number in windows[:1])]

    def windows(self):
        """That have had the focus, the last first."""
        return list(dict.fromkeys(self.places[number].window for number in reversed(self.visited)))

    def last_in(self, window):
        return next(number for number in reversed(self.visited) if self.places[number].window == window)

    def go(self, number, way):
        place = self.places[number]
        if way == "click":
            self.desk.processes.output("xdotool", "mousemove", *map(str, place.point()), "click", "1")
        elif way == "activate":
            self.desk.processes.output("xdotool", "windowactivate", "--sync", place.window)
        elif way == "Alt+Tab":
            with self.holding("Alt_L"):
                self.look()
                self.press("Tab")
            self.end_list(place)
        else:
            self.press(way)
        try:
            wait_until(place.has_focus, "")
        except Failure:
            raise Failure("%s does not give the focus to field %d; %s" % (way, number, self.focus())) from None
        self.here = number
        self.visited = [*self.visited[-50:], number]
        if way == "Tab" and place.text():
            wait_until(lambda: not place.is_at_end(), "Tab has selected all")
        self.go_to_end()

    def end_list(self, place):
        """A window manager that has come to Tab only after Alt went up shows its list until Alt goes up again."""
        try:
            wait_until(place.has_focus, "", patience=5)
        except Failure:
            self.press("Alt_L")

    def focus(self):
        """Who has it, in words."""
        title = self.desk.processes.output("xdotool", "getwindowfocus", "getwindowname")
        return "%r has it, and of the fields %r" % (title, [number for number, place in enumerate(self.places)
                                                            if place.has_focus()])

    def go_to_end(self):
        if not self.place.is_at_end():
            self.press("End")
            wait_until(self.place.is_at_end, "the caret is at the end")

    # Another engine, and none.

    @property
    def has_own_shortcut(self):
        return getattr(self.desk, "has_own_shortcut", False)

    def can_kill(self, what):
        """In Fcitx5 the engine is a part of the daemon; a daemon that a compositor has started is that one's to start."""
        return hasattr(self.desk, "daemon") if what == "daemon" else self.desk.name == "ibus"

    def choose_other(self, by_shortcut):
        """As a person does, with Super and Space, of which the modifier is seen; or as a program does."""
        if not by_shortcut or self.has_own_shortcut:
            return self.desk.choose_other()
        with self.holding("Super_L"):
            self.look()
            self.desk.choose_other()

    def kill_engine(self):
        self.kill(self.desk.engine_process())

    def kill_daemon(self):
        self.kill(self.desk.daemon.pid)
        self.desk.daemon.wait()

    @staticmethod
    def kill(process):
        os.kill(process, signal.SIGKILL)
        wait_until(lambda: has_ended(process), "a process that was killed has ended")

    def come_back(self, probe, expected):
        """Until keys are composed again: writes a word, again and again. Returns the places that are empty then."""
        here, emptied, written = self.here, {self.here}, []

        def composes():
            self.place.empty(self)
            before = self.texts()
            self.press(*probe, "space")
            wait_until(lambda: any(new != old and new.endswith(" ") for new, old in zip(self.texts(), before)),
                       "the space comes")
            is_composed = self.place.text() == expected
            written.append(self.texts())
            for number, old in enumerate(before):  # a key that was not composed may have moved the focus
                if self.places[number].text() != old:
                    self.empty(number)
                    emptied.add(number)
            self.empty(here)
            return is_composed
        try:
            wait_until(composes, "")
        except Failure:
            raise NotFound("keys do not come to the engine again: %r" % written[-1:]) from None
        return emptied

    def empty(self, number):
        if not self.places[number].has_focus():
            self.go(number, self.way_back)
        self.place.empty(self)


def has_ended(process):
    try:
        with open("/proc/%d/stat" % process) as file:
            return file.read().rsplit(")", 1)[1].split()[0] == "Z"
    except OSError:
        return True
