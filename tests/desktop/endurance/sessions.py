"""The sessions in which a typist sits: X11 with a window manager, and the compositors that hand text on."""

import re
import time

import compositors
import programs
import windows
from places import FieldPlace
from stage import UNSEEN, Stage
from windows import Failure, wait_until


class GnomeByHand(compositors.Gnome):
    """The engine is changed as a person does it, by Super and Space."""

    has_own_shortcut = True

    def command(self):
        self.log = self.folder + "/shell"
        return ["sh", "-c", 'exec "$@" 2>"$0"', self.log, *super().command()]

    def discarded(self):
        """What the shell says that it has thrown away: texts and marked texts that came from the engine, and keys for
        which the daemon has an error instead of an answer."""
        with open(self.log, encoding="utf-8", errors="replace") as file:
            return len(re.findall("Event does not have a stage: discarding|Error processing key on IM", file.read()))

    def choose_ours(self):
        def is_ours():
            return self.processes.output("ibus", "engine") == "vanoka" and self.engine_process() is not None

        def has_become_ours():
            compositors.press_super_space(self, 0.05)
            try:
                return wait_until(is_ours, "", 3)
            except Failure:
                return False
        if not is_ours():  # one that is dead starts when it is chosen again
            wait_until(has_become_ours, "the shell has chosen the engine", 30)
            time.sleep(0.3)  # until it has closed the list of sources

    def choose_other(self):
        compositors.press_super_space(self, 0.05)
        wait_until(lambda: self.processes.output("ibus", "engine") != "vanoka", "the shell has chosen another engine")
        time.sleep(0.3)


class X11:
    def start_framework(self):
        programs.start_manager(self)
        super().start_framework()


class AloneFields:
    """A program with one window and two fields, which the compositor shows where it likes."""

    one = two = None
    left, heights = 0, {}

    def __init__(self, session, toolkit):
        self.toolkit = toolkit
        self.session = session
        self.log = session.desk.folder + "/fields"
        with open(self.log, "w") as log:
            session.processes.start([session.desk.build + "/bin/" + toolkit + "_fields", "alone", "watched"], stdout=log)
        wait_until(self.has_focus, "the program has the focus", 20)

    def has_focus(self):
        self.session.give_focus()
        time.sleep(0.1)
        return self.texts()[4:] not in ([], [""])

    def texts(self):
        return (windows.last_line(self.log) or "||||").split("|")

    def close(self):
        self.session.processes.end_all()


class NestedStage(Stage):
    """One program in a compositor. Its fields are left by Tab."""

    way_back = "Tab"

    def __init__(self, desk, client, variables):
        self.variables = variables
        super().__init__(desk, client)

    def open(self):
        fields = AloneFields(compositors.Session(self.desk, self.variables), self.client)
        self.programs, self.places = fields, [FieldPlace(fields, index) for index in range(2)]
        self.visited = []
        self.here = next(number for number, place in enumerate(self.places) if place.has_focus())
        self.visited = [self.here]
        self.desk.choose_ours()

    def ways(self):
        return [("Tab", 1 - self.here)]

    def go(self, number, way):
        super().go(number, way)
        time.sleep(UNSEEN)  # the field has the focus; the compositor is on its way to it with the input method


def nested(name):
    """How to make a desk and a stage for a row of the table of compositors."""
    kind, variables = next((kind, variables) for row, kind, variables, _ in compositors.ROWS if row == name)
    if compositors.Gnome in kind.__mro__:
        kind = type(name, (GnomeByHand, windows.IBusDesk), {})
    return kind, lambda desk, client: NestedStage(desk, client, variables)


X11_CLIENTS = ["gtk3", "gtk4", "qt5", "qt6", "xim", "qt6-gtk3", "gtk4-qt5", "xim-gtk3"]
NESTED = {("gnome", "ibus"): "gnome-ibus-variables", ("kwin", "ibus"): "kde-ibus-variables",
          ("kwin", "fcitx5"): "kde-fcitx5-given", ("sway", "ibus"): "sway-ibus-variables",
          ("sway", "fcitx5"): "sway-fcitx5-variables"}
SESSIONS = {**{("x11", name): (lambda name=name: (type("x11-" + name, (X11, windows.DESKS[name]), {}), Stage), X11_CLIENTS)
               for name in windows.DESKS},
            **{place: (lambda row=row: nested(row), ["gtk3", "gtk4", "qt5", "qt6"]) for place, row in NESTED.items()}}
