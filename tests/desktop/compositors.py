#!/usr/bin/python3
"""Types into programs of each toolkit under real Wayland compositors, and asks `singlish doctor` what it thinks of it.

    compositors.py --build FOLDER [--only ROW]
    compositors.py --build FOLDER --change-source 0,10,20,50 [--rounds N]

Each row of the table is a compositor, a framework and the variables that the programs see. What is typed has to be
what the table says, and so has what the doctor says. The compositors run in a window of an X server without a screen.
The second form counts the words that Super and Space, so many milliseconds apart, take from Qt under GNOME Shell.
Needs gnome-shell, kwin_wayland and sway besides what windows.py needs: see the group `compositors` of
scripts/need-packages. Exit status: 0 when all are right.
"""

import argparse
import contextlib
import os
import re
import shutil
import signal
import sys
import time

import programs
import windows
from windows import Failure, wait_until

TOOLKITS = {"gtk3": "GTK 3", "gtk4": "GTK 4", "qt6": "Qt 6", "qt5": "Qt 5"}
LATIN = "amma."
SINHALA = windows.WORD + "."
IBUS = {"GTK_IM_MODULE": "ibus", "QT_IM_MODULE": "ibus"}
FCITX = {"GTK_IM_MODULE": "fcitx", "QT_IM_MODULE": "fcitx"}


class Wayland:
    """A desk with a compositor, in which the programs are."""

    platform = {"XDG_SESSION_TYPE": "wayland", "GDK_BACKEND": "wayland", "QT_QPA_PLATFORM": "wayland",
                "WAYLAND_DISPLAY": "wayland-1"}
    left_out = "notificationitem,classicui,kimpanel,clipboard,xcb,xim"  # of Fcitx5

    def start_framework(self):
        self.environment.update(self.platform, XDG_CURRENT_DESKTOP=self.desktop)
        self.processes.start(self.command())
        socket = self.folder + "/wayland-1"
        wait_until(lambda: os.path.exists(socket) and "wl_seat" in self.processes.output("wayland-info"),
                   "the compositor serves", 30)
        self.start_input_method()

    def start_input_method(self):
        super().start_framework()

    def has_xim(self):
        return True  # which no program here uses


class X11:
    """A desk with a window manager, which gives a new window the focus."""

    desktop = "X11"
    left_out = windows.Fcitx5Desk.left_out
    platform = {"XDG_SESSION_TYPE": "x11"}

    def start_framework(self):
        programs.start_manager(self)
        super().start_framework()


class Sway(Wayland):
    desktop = "sway"

    def command(self):
        path = self.folder + "/sway.conf"
        with open(path, "w") as file:
            file.write("xwayland disable\n")
        self.environment.update(WLR_BACKENDS="x11", WLR_RENDERER="pixman")
        as_user = ["unshare", "--user", "--map-user=1000", "--map-group=1000"] if os.getuid() == 0 else []
        return [*as_user, "sway", "--config", path]  # it does not run as root


class KWin(Wayland):
    desktop = "KDE"
    input_method = []

    def command(self):
        # A copy has no capabilities, which not every machine can give.
        program = shutil.copy(shutil.which("kwin_wayland"), self.folder)
        self.environment["KWIN_COMPOSE"] = "Q"
        return [program, "--x11-display", self.environment["DISPLAY"], "--width", "1024", "--height", "768",
                "--no-lockscreen", "--socket", "wayland-1", *self.input_method]


class KWinWithFcitx5(KWin):
    """As it is with "Fcitx 5" under Virtual Keyboard."""

    input_method = ["--inputmethod", "fcitx5"]

    def command(self):
        self.configure()
        for name in (*FCITX, "XMODIFIERS"):
            self.environment.pop(name)
        return super().command()

    def start_input_method(self):
        self.wait_for_framework()


class Gnome(Wayland):
    """It starts the daemon itself."""

    desktop = "GNOME"
    sources = "[('ibus', 'vanoka'), ('xkb', 'us')]"

    def command(self):
        settings = self.folder + "/config/glib-2.0/settings"
        os.makedirs(settings)
        with open(settings + "/keyfile", "w") as file:
            file.write("[org/gnome/desktop/input-sources]\nsources=%s\n"
                       "[org/gnome/desktop/notifications]\nshow-banners=false\n" % self.sources)  # they take the keys
        self.environment.update(
            GSETTINGS_BACKEND="keyfile", DBUS_SYSTEM_BUS_ADDRESS=self.environment["DBUS_SESSION_BUS_ADDRESS"],
            IBUS_COMPONENT_PATH=self.build + "/component:/usr/share/ibus/component")
        return ["gnome-shell", "--nested", "--wayland", "--wayland-display", "wayland-1"]

    def close(self):
        self.processes.output("ibus", "exit")  # the daemon outlives the shell that has started it
        super().close()

    def shell(self, *arguments):
        return self.processes.output("dbus-send", "--session", "--print-reply=literal", "--dest=org.gnome.Shell",
                                     "/org/gnome/Shell", *arguments)

    def start_input_method(self):
        wait_until(lambda: self.processes.output("ibus", "engine") == "vanoka", "the shell has chosen the engine", 30)
        self.leave_overview()

    def leave_overview(self):
        properties = "org.freedesktop.DBus.Properties."
        name = ["string:org.gnome.Shell", "string:OverviewActive"]

        def is_left():
            self.shell(properties + "Set", *name, "variant:boolean:false")
            return "false" in self.shell(properties + "Get", *name)
        wait_until(is_left, "the shell shows windows", 30)


def row(compositor, framework, variables, latin=()):
    name = "-".join([compositor.desktop.lower(), framework.name, *(["given"] if compositor is KWinWithFcitx5 else []),
                     *(["variables"] if variables else [])])
    return name, type(name, (compositor, framework), {}), variables, latin


I, F = windows.IBusDesk, windows.Fcitx5Desk
QT = ["qt6", "qt5"]
ROWS = [
    row(X11, I, {}, QT), row(X11, I, IBUS),
    row(X11, F, {}, QT), row(X11, F, FCITX),
    row(Gnome, I, {}, QT), row(Gnome, I, {"QT_IM_MODULE": "ibus"}),
    row(KWin, F, {}, TOOLKITS), row(KWin, F, FCITX), row(KWinWithFcitx5, F, {}),
    row(KWin, I, {}, TOOLKITS), row(KWin, I, IBUS),
    row(Sway, F, {}, QT), row(Sway, F, {"QT_IM_MODULE": "fcitx"}),
    row(Sway, I, {}, TOOLKITS), row(Sway, I, IBUS),
]


class Session:
    """What the programs of a row see of its desk."""

    def __init__(self, desk, variables):
        self.desk = desk
        self.environment = {name: value for name, value in desk.environment.items()
                            if name not in (*IBUS, "XMODIFIERS", "QT_QPA_PLATFORM", "GDK_BACKEND")}
        self.environment.update(desk.platform, **variables)
        if "WAYLAND_DISPLAY" in self.environment:
            self.environment.pop("DISPLAY")
        self.processes = windows.Processes(self.environment)

    @contextlib.contextmanager
    def field(self, toolkit):
        """A program whose field has the focus; what it gives is the field's text."""
        path = self.desk.folder + "/" + toolkit
        with open(path, "w") as log:
            self.processes.start([self.desk.build + "/bin/" + toolkit + "_fields", "alone"], stdout=log)

        def text():
            with open(path, encoding="utf-8") as file:
                lines = file.read().splitlines()
            return lines and lines[-1].strip("|")

        def digits_come():
            """The program has a field from its first line on, and the focus at any time after."""
            if text() == "":
                self.give_focus()
                self.desk.processes.output("xdotool", "key", "1")
                time.sleep(0.1)
            return text()
        try:
            wait_until(digits_come, "something comes into the field", 10)
            yield text
        except Failure as failure:
            raise Failure("%s (%r)" % (failure, text())) from None
        finally:
            self.processes.end_all()

    def typed_in_the_end(self, toolkit):
        """Not every new window gets the focus, or keeps it: the program is started again then."""
        for _ in range(3):
            try:
                return self.typed(toolkit)
            except Failure as failure:
                last = failure
        raise last

    def typed(self, toolkit):
        """What comes into a field of a program when a word is typed."""
        with self.field(toolkit) as text:
            before = text()
            for _ in range(2):  # with the first the input method may only be on its way to the field
                self.desk.processes.output("xdotool", "key", "--delay", "50", *"amma", "period")
                wait_until(lambda: text().startswith(before) and text()[len(before):].endswith("."),
                           "a word comes into the field")
                before, word = text(), text()[len(before):]
            return word

    def give_focus(self):
        """To the window of the compositor, which gives it to the program."""
        if self.desk.desktop != "X11":
            self.desk.processes.output("xdotool", "mousemove", "200", "100", "getmouselocation", "windowfocus", "--sync")

    def doctor(self):
        report = self.processes.output(self.desk.build + "/bin/singlish", "doctor")
        return dict(re.findall(r"Programs with (\w+ \d) get (Sinhala|Latin)", report)), report


def act(build, kind, variables, latin):
    """What is wrong with a row."""
    desk = kind(build)
    wrong = []
    try:
        session = Session(desk, variables)
        says, report = session.doctor()
        for toolkit, name in TOOLKITS.items():
            wanted = "Latin" if toolkit in latin else "Sinhala"
            try:
                typed = session.typed_in_the_end(toolkit)
                typed = {LATIN: "Latin", SINHALA: "Sinhala"}.get(typed, typed)
            except Failure as failure:
                typed = str(failure)
            for what, got in (("types", typed), ("has, as the doctor says,", says.get(name))):
                if got != wanted:
                    wrong.append("%s %s %s and not %s" % (name, what, got, wanted))
    finally:
        desk.close()
    return wrong, report


def press_super_space(desk, pause):
    desk.processes.output("xdotool", "keydown", "Super_L", "sleep", str(pause), "key", "--delay", "20", "space", "sleep",
                          str(pause), "keyup", "Super_L")


def words_lost(session, toolkit, pause, rounds):
    """How many of the words in which the source was changed did not come into the field."""
    desk, lost = session.desk, 0
    with session.field(toolkit) as text:
        for _ in range(rounds):
            wait_until(lambda: desk.processes.output("ibus", "engine") == "vanoka", "our engine is in force")
            time.sleep(0.3)  # until the shell has closed the list of sources
            before = text()
            desk.processes.output("xdotool", "key", "--delay", "50", *"ka")
            press_super_space(desk, pause / 1000)
            wait_until(lambda: desk.processes.output("ibus", "engine") != "vanoka", "the other is")
            time.sleep(0.5)
            desk.processes.output("xdotool", "key", "x")
            wait_until(lambda: text().endswith("x"), "keys are the program's")
            lost += text()[len(before):] != windows.KA + "x"
            press_super_space(desk, 0.05)
    return lost


def change_source(build, pauses, rounds):
    desk = type("change", (Gnome, windows.IBusDesk), {})(build)
    try:
        session = Session(desk, {"QT_IM_MODULE": "ibus"})
        for toolkit in QT:
            for pause in pauses:
                print("%s: %d of %d words lost at %d ms" % (TOOLKITS[toolkit], words_lost(session, toolkit, pause, rounds),
                                                           rounds, pause), flush=True)
    finally:
        desk.close()


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--build", required=True, help="the folder in which everything was built")
    parser.add_argument("--only", default="", help="rows whose names hold this pattern")
    parser.add_argument("--doctor", action="store_true", help="print what the doctor says, too")
    parser.add_argument("--change-source", metavar="MILLISECONDS", help="count lost words instead")
    parser.add_argument("--rounds", type=int, default=12, help="of that")
    options = parser.parse_args()
    signal.signal(signal.SIGTERM, lambda *_: sys.exit(1))  # what was started is ended then, too
    if options.change_source:
        pauses = [int(pause) for pause in options.change_source.split(",")]
        return change_source(os.path.abspath(options.build), pauses, options.rounds)
    failures = 0
    for name, kind, variables, latin in ROWS:
        if not re.search(options.only, name):
            continue
        try:
            wrong, report = act(os.path.abspath(options.build), kind, variables, latin)
        except Failure as failure:
            wrong, report = [str(failure)], ""
        failures += bool(wrong)
        print("%-24s %s" % (name, "FAILED: " + "; ".join(wrong) if wrong else "ok"), flush=True)
        if options.doctor:
            print(report)
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main())
