#!/usr/bin/python3
"""Types into real windows through a real input method framework and reads their texts back.

    windows.py --framework ibus|fcitx5 --build FOLDER [--client gtk3|gtk4|qt5|qt6|xim] [--only PART] [--rounds N]
    windows.py ... --client qt6-gtk3 [--pauses 0,10,20,40]

The first types into one program, the second goes from one program to another under a window manager and back:
see programs.py. Without a client, all are used.

Needs Xvfb, xdotool, openbox and the framework with its modules for the toolkits. Every process it starts has a
home folder of its own and ends with it. Exit status: 0 all as expected, 1 something was lost, doubled or misplaced.
"""

import argparse
import ctypes
import glob
import os
import re
import shutil
import signal
import sqlite3
import subprocess
import sys
import tempfile
import time

KA = "\u0d9a"
WORD = "\u0d85\u0db8\u0dca\u0db8"  # amma
HOUSE, TO_HOUSE = "\u0d9c\u0dd9\u0daf\u0dbb", "\u0d9c\u0dd9\u0daf\u0dbb\u0da7"  # what is suggested for gedr
LISTS = os.path.join(os.path.dirname(os.path.abspath(__file__)), "../scenarios/suggestions/lists")
PATIENCE = 8  # seconds


class Failure(Exception):
    """Something is not as expected; `known` is the reason where nobody here can mend it."""

    def __init__(self, text, known=None):
        super().__init__(text)
        self.known = known


def wait_until(condition, what, patience=PATIENCE):
    end = time.monotonic() + patience
    while time.monotonic() < end:
        result = condition()
        if result:
            return result
        time.sleep(0.02)
    raise Failure("waited in vain until " + what)


def last_line(path):
    """The last whole line of a file that grows; empty while there is none."""
    with open(path, "rb") as file:
        file.seek(max(file.seek(0, os.SEEK_END) - (1 << 16), 0))
        lines = file.read().split(b"\n")  # the last is not whole
    return lines[-2].decode() if len(lines) > 1 else ""


class Processes:
    """Every process that was started, so that each is ended by its own id."""

    def __init__(self, environment):
        self.environment = environment
        self.running = []

    def start(self, command, **options):
        process = subprocess.Popen(command, env=self.environment, stdin=subprocess.DEVNULL,
                                   stderr=options.pop("stderr", subprocess.DEVNULL), start_new_session=True, **options)
        self.running.append(process)
        return process

    def output(self, *command):
        return subprocess.run(command, env=self.environment, stdin=subprocess.DEVNULL, capture_output=True,
                              text=True, timeout=PATIENCE, start_new_session=True).stdout.strip()

    def end(self, process):
        if process in self.running:
            self.running.remove(process)
        if process.poll() is None:
            process.send_signal(signal.SIGTERM)
            try:
                process.wait(5)
            except subprocess.TimeoutExpired:
                process.kill()
                process.wait()

    def end_all(self):
        for process in reversed(list(self.running)):
            self.end(process)


class Desk:
    """A screen, a session bus, a home folder and a framework with the engine chosen."""

    def __init__(self, build, is_asynchronous=False, bare=None):
        self.build = build
        self.is_asynchronous = is_asynchronous
        self.bare = bare  # the folder with the description of an engine that only echoes, to be used instead
        self.our_engine = "echo" if bare else "vanoka"
        self.word = "amma" if bare else WORD
        self.folder = tempfile.mkdtemp(prefix="vanoka-desk-")
        environment = {"PATH": os.environ["PATH"], "HOME": self.folder, "LC_ALL": "C.UTF-8",
                       "XDG_CONFIG_HOME": self.folder + "/config", "XDG_CACHE_HOME": self.folder + "/cache",
                       "XDG_DATA_HOME": self.folder + "/data", "XDG_RUNTIME_DIR": self.folder,
                       "GSETTINGS_BACKEND": "memory", "NO_AT_BRIDGE": "1", "GTK_A11Y": "none",
                       "QT_QPA_PLATFORM": "xcb", "GDK_BACKEND": "x11", "GSK_RENDERER": "cairo",
                       "LIBGL_ALWAYS_SOFTWARE": "1"}
        self.processes = Processes(environment)
        self.environment = environment
        try:
            self.start_screen()
            self.start_bus()
            self.start_framework()
        except BaseException:
            self.close()
            raise

    def start_screen(self):
        reader, writer = os.pipe()
        # A busy machine may let a key go long after it was pressed: it is not to be repeated meanwhile.
        self.processes.start(["Xvfb", "-displayfd", str(writer), "-screen", "0", "1024x768x24", "-nolisten", "tcp",
                              "-noreset", "-ardelay", "60000"], pass_fds=[writer])
        os.close(writer)
        with os.fdopen(reader) as answer:
            self.environment["DISPLAY"] = ":" + answer.readline().strip()

    def start_bus(self):
        bus = self.processes.start(["dbus-daemon", "--session", "--nofork", "--print-address"],
                                   stdout=subprocess.PIPE, text=True)
        self.environment["DBUS_SESSION_BUS_ADDRESS"] = bus.stdout.readline().strip()

    def close(self):
        self.processes.end_all()
        shutil.rmtree(self.folder, ignore_errors=True)

    def process_of(self, program):
        """The number of a process of this desk, whoever started it."""
        mine = ("XDG_RUNTIME_DIR=" + self.folder).encode()
        for process in filter(str.isdigit, os.listdir("/proc")):
            try:
                if os.path.basename(os.readlink("/proc/%s/exe" % process)) == program:
                    with open("/proc/%s/environ" % process, "rb") as file:
                        if mine in file.read().split(b"\0"):
                            return int(process)
            except OSError:
                pass  # it has ended, or is one of another user
        return None

    def suggest(self, are_on, are_private=False):
        """Switches suggestions, which the engine sees with the next focus; nothing is learnt before they are on."""
        shutil.rmtree(self.folder + "/data/vanoka", ignore_errors=True)
        if are_on:
            shutil.copytree(LISTS, self.folder + "/data/vanoka")
        os.makedirs(self.folder + "/config/vanoka", exist_ok=True)
        with open(self.folder + "/config/vanoka/vanoka.suggestions.v1", "w") as file:
            file.write("suggestions=%s\nprivate=%s\n" % tuple("on" if each else "off" for each in (are_on, are_private)))

    def has_learnt(self, word):
        words = sqlite3.connect("file:%s/data/vanoka/words.sqlite?mode=ro" % self.folder, uri=True)
        try:
            return word in "\n".join(words.iterdump())
        except sqlite3.Error:
            return False  # not made yet, or being written
        finally:
            words.close()

    # Toolkits ask the input method asynchronously. A key that comes back to a program only after the next
    # one was pressed acts later than that one, whatever the engine does; so the typist pauses after those that
    # move the focus or end a line.
    coming_back = ("Tab", "Return", "End")
    pause = 0.15  # seconds, also after a click and when a window gets the focus

    def keys(self, *names):
        start = 0
        for index, name in enumerate(names):
            if name in self.coming_back or index == len(names) - 1:
                self.processes.output("xdotool", "key", "--delay", "30", *names[start:index + 1])
                start = index + 1
                time.sleep(self.pause)

    def click(self, x, y):
        self.processes.output("xdotool", "mousemove", str(x), str(y), "click", "1")
        time.sleep(self.pause)

    def focus(self, window):
        self.processes.output("xdotool", "windowfocus", "--sync", window)
        time.sleep(self.pause)

    def window(self, title, process=None):
        of_process = ["--all", "--pid", str(process.pid)] if process else []
        found = wait_until(lambda: self.processes.output("xdotool", "search", "--onlyvisible", *of_process, "--name",
                                                         title), "the window " + title + " is there")
        return found.splitlines()[-1]


class IBusDesk(Desk):
    name = "ibus"
    other_engine = "xkb:us::eng"

    def start_framework(self):
        self.environment.update({
            "IBUS_ADDRESS_FILE": self.folder + "/address",
            "IBUS_COMPONENT_PATH": ":".join(filter(None, [self.build + "/component", self.bare,
                                                          "/usr/share/ibus/component"])),
            "GTK_IM_MODULE": "ibus", "QT_IM_MODULE": "ibus", "XMODIFIERS": "@im=ibus"})
        if self.is_asynchronous:
            self.environment["IBUS_ENABLE_SYNC_MODE"] = "0"
        self.start_daemon()

    def start_daemon(self):
        self.daemon = self.processes.start(["ibus-daemon", "--panel", "disable", "--emoji-extension", "disable",
                                            "--config", "disable", "--cache", "none", "--xim"], stdout=subprocess.DEVNULL)
        wait_until(lambda: "unix:" in self.processes.output("ibus", "address"), "the daemon has an address")
        wait_until(self.has_xim, "XIM's server runs")
        time.sleep(0.5)  # until it has told the screen
        self.choose(self.our_engine)

    def choose(self, engine):
        self.processes.output("ibus", "engine", engine)
        wait_until(lambda: self.processes.output("ibus", "engine") == engine, engine + " is in force")
        time.sleep(0.1)

    def has_xim(self):
        return self.process_of("ibus-x11") is not None

    def engine_process(self):
        return self.process_of("Vanoka")

    def choose_other(self):
        self.choose(self.other_engine)

    def choose_ours(self):
        self.choose(self.our_engine)


class Fcitx5Desk(Desk):
    name = "fcitx5"
    left_out = "notificationitem,classicui,kimpanel,clipboard,wayland,waylandim"

    def start_framework(self):
        self.configure()
        self.start_daemon()

    def start_daemon(self):
        self.daemon = self.processes.start(["fcitx5", "--disable=" + self.left_out])
        self.wait_for_framework()

    def engine_process(self):
        return self.process_of("fcitx5")  # the engine is a part of it

    def configure(self):
        libraries = os.path.dirname(subprocess.run(["sh", "-c", "ls -d /usr/lib/*/fcitx5 /usr/lib*/fcitx5"],
                                                   capture_output=True, text=True).stdout.splitlines()[0])
        self.environment.update({
            "FCITX_ADDON_DIRS": self.build + "/fcitx5/lib:" + libraries + "/fcitx5",
            "FCITX_DATA_DIRS": self.build + "/fcitx5/share:/usr/share/fcitx5",
            "GTK_IM_MODULE": "fcitx", "QT_IM_MODULE": "fcitx", "XMODIFIERS": "@im=fcitx"})
        configuration = self.folder + "/config/fcitx5"
        os.makedirs(configuration)
        with open(configuration + "/profile", "w") as file:
            file.write("[Groups/0]\nName=Default\nDefault Layout=us\nDefaultIM=vanoka\n\n"
                       "[Groups/0/Items/0]\nName=keyboard-us\nLayout=\n\n"
                       "[Groups/0/Items/1]\nName=vanoka\nLayout=\n\n[GroupOrder]\n0=Default\n")
        with open(configuration + "/config", "w") as file:
            file.write("[Behavior]\nActiveByDefault=True\nShareInputState=All\n")

    def wait_for_framework(self):
        wait_until(self.is_running, "fcitx5 is on the bus")
        time.sleep(0.5)

    def is_running(self):
        # Not by a call to fcitx5 itself: that would start a second one.
        return "true" in self.processes.output(
            "dbus-send", "--session", "--print-reply", "--dest=org.freedesktop.DBus", "/org/freedesktop/DBus",
            "org.freedesktop.DBus.NameHasOwner", "string:org.fcitx.Fcitx5")

    def choose(self, engine):
        self.processes.output("fcitx5-remote", "-s", engine)
        wait_until(lambda: self.processes.output("fcitx5-remote", "-n") == engine, engine + " is in force")
        time.sleep(0.1)

    def choose_other(self):
        self.choose("keyboard-us")

    def choose_ours(self):
        self.choose(self.our_engine)


DESKS = {"ibus": IBusDesk, "fcitx5": Fcitx5Desk}


def gtk4_release():
    """The second number of its version; 0 where there is none."""
    try:
        return ctypes.CDLL("libgtk-4.so.1").gtk_get_minor_version()
    except OSError:
        return 0


class Fields:
    """A program with two windows: fields 0 and 1 in the first, field 2 in the second."""

    heights = {0: 50, 1: 150, 2: 550}
    line_end = ""  # what Return types in the first

    def __init__(self, desk, toolkit, *arguments, left=0):
        self.desk = desk
        self.toolkit = toolkit
        self.left = left
        self.log = "%s/fields-%d" % (desk.folder, left)
        with open(self.log, "w") as log:
            self.process = desk.processes.start([desk.build + "/bin/" + toolkit + "_fields", *arguments], stdout=log)
        try:
            self.place_windows()
        except BaseException:
            self.close()
            raise

    def place_windows(self):
        desk, left = self.desk, self.left
        self.one = desk.window("vanoka-one", self.process)
        self.two = desk.window("vanoka-two", self.process)
        desk.processes.output("xdotool", "windowmove", "--sync", self.one, str(left), "0")
        desk.processes.output("xdotool", "windowmove", "--sync", self.two, str(left), "500")
        desk.focus(self.one)
        self.click(0)
        if desk.name == "fcitx5":
            desk.choose_ours()

    def close(self):
        self.desk.processes.end(self.process)

    def click(self, field, x=380):
        self.desk.click(self.left + x, self.heights[field])

    def texts(self):
        return (last_line(self.log) or "||").split("|")

    def wait_for(self, text):
        """Until the first field has a text: a key that comes back to the program acts when it comes, and the next
        word may overtake it there."""
        wait_until(lambda: self.texts()[0] == text, "the first field has %r" % text)

    def expect(self, *texts):
        """The texts of the fields at the end of the day; one of several where there are sets."""
        def as_wanted():
            return all(text in wanted if isinstance(wanted, set) else text == wanted
                       for text, wanted in zip(self.texts(), texts))
        try:
            wait_until(as_wanted, "")
        except Failure:
            raise Failure("the fields are %r, not %r" % (self.texts(), list(texts))) from None
        time.sleep(0.2)  # a second delivery would come now
        if not as_wanted():
            raise Failure("the fields became %r, not %r" % (self.texts(), list(texts)))

    def write_word(self):
        """A word that is in, and one that is not."""
        self.desk.keys(*"amma", "space", *"ka")


# What a person does in the middle of a word. Each leaves the field with the word and types on elsewhere.

def by_keys(fields):
    fields.desk.keys(*"amma", "period", *"ka", "comma", "1")
    fields.wait_for(WORD + "." + KA + ",1")
    fields.desk.keys(*"kra", "space", *"amma", "BackSpace", "Return", *"ab", "Escape")
    fields.expect(WORD + "." + KA + ",1" + KA + "\u0dca\u200d\u0dbb" + " \u0d85\u0db8\u0dca" + fields.line_end + "ab", "", "")


def by_click_elsewhere(fields):
    fields.write_word()
    fields.click(1)
    fields.desk.keys(*"ka", "period")
    fields.expect(WORD + " " + KA, KA + ".", "")


def by_tab(fields):
    fields.write_word()
    fields.desk.keys("Tab", *"ka", "period")
    fields.expect(WORD + " " + KA, KA + ".", "")


def by_other_window(fields):
    fields.write_word()
    fields.desk.focus(fields.two)
    fields.click(2)
    fields.desk.keys(*"ka", "period")
    fields.expect(WORD + " " + KA, "", KA + ".")


def by_other_window_and_back(fields):
    fields.write_word()
    fields.desk.focus(fields.two)
    fields.desk.focus(fields.one)
    fields.desk.keys(*"ma", "period")
    fields.expect(WORD + " " + KA + "\u0db8.", "", "")


def by_click_in_the_field(fields):
    fields.write_word()
    fields.click(0)
    fields.desk.keys(*"ma", "period")
    fields.expect(WORD + " " + KA + "\u0db8.", "", "")


def by_click_before(fields):
    """The caret goes before the text; the word stays where it was, or follows where the toolkit takes it."""
    fields.write_word()
    fields.click(0, 3)
    fields.desk.keys("End", "period")
    fields.expect({WORD + " " + KA + ".", KA + WORD + " ."}, "", "")


def by_shortcut(fields):
    fields.write_word()
    fields.desk.keys("ctrl+a", "ctrl+c", "End")
    time.sleep(0.3)  # a caret that is late would let the next key replace everything
    fields.desk.keys("period")
    fields.expect(WORD + " " + KA + ".", "", "")


def type_with_the_other(fields):
    """One key is seen before the next is typed: GTK 4 has IBus answer each by itself, and the first one after a change of
    the engine may be answered last."""
    try:
        fields.desk.keys("x")
        fields.expect(WORD + " " + KA + "x", "", "")
        fields.desk.keys("period")
    finally:
        fields.desk.choose_ours()
    fields.expect(WORD + " " + KA + "x.", "", "")


def by_engine(fields):
    fields.write_word()
    fields.desk.choose_other()
    type_with_the_other(fields)


def by_engine_with_shortcut(fields):
    """As a person does who changes the engine with Super and Space: the modifier is seen, the shortcut is not."""
    fields.write_word()
    fields.desk.processes.output("xdotool", "keydown", "Super_L")
    time.sleep(0.05)
    fields.desk.choose_other()
    fields.desk.processes.output("xdotool", "keyup", "Super_L")
    type_with_the_other(fields)


def with_suggestions(fields):
    """The second word is taken, and is the first one the next time."""
    fields.desk.keys(*"gedr", "Tab", "Down", "space")
    fields.expect(TO_HOUSE + " ", "", "")
    wait_until(lambda: fields.desk.has_learnt(TO_HOUSE), "the word is learnt")
    fields.desk.keys(*"gedr", "Down", "period")
    fields.expect(TO_HOUSE + " " + TO_HOUSE + ".", "", "")


def with_a_suggestion_by_click_elsewhere(fields):
    fields.desk.keys(*"gedr", "Down")
    fields.click(1)
    fields.desk.keys(*"ka", "period")
    fields.expect({HOUSE, TO_HOUSE}, KA + ".", "")  # as the part before has taught


def in_password(fields):
    fields.click(1)
    fields.desk.keys(*"amma", "period")
    fields.expect("", "amma.", "")


def in_field_that_is_left(fields):
    """The program moves the focus as soon as a text comes."""
    fields.desk.keys(*"amma", "space")
    fields.desk.keys(*"ka", "period")
    fields.expect(WORD + " ", KA + ".", "")


PARTS = [by_keys, by_click_elsewhere, by_tab, by_other_window, by_other_window_and_back, by_click_in_the_field,
         by_click_before, by_shortcut, by_engine, by_engine_with_shortcut, in_password, in_field_that_is_left]
SUGGESTING_PARTS = [with_suggestions, with_a_suggestion_by_click_elsewhere]

# What no engine can mend, with the reason; it is run, and reported when it has become better.
KNOWN = {
    ("ibus", toolkit, "by_engine"):
        "where Qt puts the word in unannounced, the daemon must not, and drops it when a program changes the engine"
    for toolkit in ("qt5", "qt6")
}
def qt_modules_differ():
    """Whether Qt 6's module tells IBus that it puts the word in, and Qt 5's, which looks the same, does not."""
    announcing = [any(b"ClientCommitPreedit" in open(path, "rb").read() for path in glob.glob(
        "/usr/lib/*/%s/plugins/platforminputcontexts/libibusplatforminputcontextplugin.so" % qt)) for qt in ("qt5", "qt6")]
    return announcing == [False, True]


if qt_modules_differ():
    KNOWN |= {
        ("ibus", "qt5", part.__name__):
            "Qt 5 and Qt 6 look the same to an engine, and the word is delivered as Qt 6 needs it"
        for part in (by_click_elsewhere, by_other_window, by_other_window_and_back, by_click_in_the_field, by_click_before,
                     with_a_suggestion_by_click_elsewhere)
    }
if gtk4_release() >= 12:
    KNOWN |= {
        (framework, "gtk4", "by_click_in_the_field"):
            "GTK finds the caret's place before it lets its input module put the word in, and so puts it before the word"
        for framework in DESKS
    }


class XimWindow:
    """xterm, which knows nothing but XIM; the text is what its shell gets."""

    def __init__(self, desk, name):
        self.desk = desk
        self.log = desk.folder + "/" + name
        self.process = desk.processes.start(["xterm", "-u8", "-T", name, "-geometry", "40x5", "-e", "sh", "-c",
                                             "stty -icanon -echo; exec cat >" + self.log])
        self.window = desk.window(name)
        wait_until(lambda: os.path.exists(self.log), "xterm runs its shell")
        time.sleep(0.3)

    def close(self):
        self.desk.processes.end(self.process)

    def text(self):
        with open(self.log, encoding="utf-8", errors="replace") as file:
            return file.read()

    def expect(self, wanted):
        try:
            wait_until(lambda: self.text() == wanted, "")
        except Failure:
            raise Failure("xterm got %r, not %r" % (self.text(), wanted)) from None


def xim_by_keys(desk):
    window = XimWindow(desk, "vanoka-xterm")
    try:
        desk.focus(window.window)
        if desk.name == "fcitx5":
            desk.choose_ours()
        desk.keys(*"amma", "period", *"ka", "Return", *"kra", "space", *"ab", "Escape", "1", "Return")
        window.expect(WORD + "." + KA + "\n" + KA + "\u0dca\u200d\u0dbb" + " ab" + "1\n")
    finally:
        window.close()


def xim_at_full_speed(desk):
    """Texts and keys that are passed on come in one order, however fast they follow each other."""
    window = XimWindow(desk, "vanoka-xterm")
    try:
        desk.focus(window.window)
        if desk.name == "fcitx5":
            desk.choose_ours()
        words = 8
        desk.processes.output("xdotool", "key", "--delay", "15", *[*"ka", "Return", "1", *"ab", "Escape", "2", *"ma",
                                                                  "comma", "3", "Return"] * words)
        window.expect((KA + "\n1ab2\u0db8,3\n") * words)
    finally:
        window.close()


def xim_by_window_with_shortcut(desk):
    """As a person does who changes the window with Alt and Tab."""
    xim_by_window(desk, "Alt_L")


def xim_by_window(desk, modifier=None):
    one, two = XimWindow(desk, "vanoka-xterm-one"), XimWindow(desk, "vanoka-xterm-two")
    try:
        desk.processes.output("xdotool", "windowmove", "--sync", two.window, "0", "400")
        desk.focus(one.window)
        if desk.name == "fcitx5":
            desk.choose_ours()
        desk.keys(*"ka")
        if modifier:
            desk.processes.output("xdotool", "keydown", modifier)
            time.sleep(0.05)
        desk.focus(two.window)
        if modifier:
            desk.processes.output("xdotool", "keyup", modifier)
        desk.keys(*"ma", "period")
        two.expect("\u0db8.")
        desk.focus(one.window)  # where the word waits if it could not be put in before
        one.expect(KA)
    finally:
        one.close()
        two.close()


XIM_PARTS = [xim_by_keys, xim_at_full_speed, xim_by_window, xim_by_window_with_shortcut]


def run_part(desk, toolkit, part):
    if toolkit == "xim":
        part(desk)
        return
    mode = {in_password: ["password"], in_field_that_is_left: ["left"]}.get(part, [])
    if part in SUGGESTING_PARTS:
        desk.suggest(True)
    fields = Fields(desk, toolkit, *mode)
    try:
        part(fields)
    finally:
        fields.close()
        if part in SUGGESTING_PARTS:
            desk.suggest(False)


def options_of(description):
    parser = argparse.ArgumentParser(description=description.splitlines()[0])
    parser.add_argument("--framework", choices=list(DESKS), required=True)
    parser.add_argument("--build", required=True, help="the folder in which everything was built")
    parser.add_argument("--client", action="append", help="instead of every one")
    parser.add_argument("--only", help="parts whose names hold this pattern")
    parser.add_argument("--rounds", type=int, default=1)
    parser.add_argument("--tries", type=int, default=1, help="a part that fails is acted again, so often in all: on a "
                        "busy machine the focus may take longer to move than a typist pauses")
    parser.add_argument("--asynchronous", action="store_true", help="IBus's modules do not wait for answers")
    parser.add_argument("--bare", metavar="FOLDER", help="use IBus with the bare engine described there instead")
    return parser


def chosen(options, clients):
    unknown = set(options.client or []) - set(clients)
    if unknown:
        sys.exit("There is no client %s; there are: %s" % (", ".join(sorted(unknown)), ", ".join(clients)))
    return options.client or clients


def outcome_of(act, reason, tries):
    """What came of a part, in words, and whether it failed every time. `reason` tells why it is known to."""
    for left in reversed(range(tries)):
        try:
            act()
            return ("ok (better than known: %s)" % reason if reason else "ok"), False
        except Failure as failure:
            why = reason or failure.known
            if why:
                return "known (%s): %s" % (why, failure), False
            if left == 0:
                return "FAILED: %s" % failure, True
            print("again, after: %s" % failure, flush=True)


def run(options, clients, parts_of, act, known, prepare=lambda desk: None):
    """Acts every part with every client on one desk, and returns the exit status."""
    acts = [(client, part) for _ in range(options.rounds) for client in clients for part in parts_of(client)
            if re.search(options.only or "", part.__name__)]
    if not acts:
        return 0
    failures = 0
    signal.signal(signal.SIGTERM, lambda *_: sys.exit(1))  # what was started is ended then, too
    desk = DESKS[options.framework](os.path.abspath(options.build), options.asynchronous, options.bare)
    try:
        prepare(desk)
        for client, part in acts:
            reason = known.get((options.framework, client, part.__name__))
            start = time.monotonic()
            outcome, isFailure = outcome_of(lambda: act(desk, client, part), reason, options.tries)
            failures += isFailure
            print("%-6s %-17s %-28s %.1f s  %s" % (options.framework, client, part.__name__, time.monotonic() - start,
                                                 outcome), flush=True)
    finally:
        desk.close()
    return 1 if failures else 0


CLIENTS = ["gtk3", "gtk4", "qt5", "qt6", "xim"]


def parts_of(client):
    return XIM_PARTS if client == "xim" else PARTS + SUGGESTING_PARTS


if __name__ == "__main__":
    import programs  # which does all of this, too
    sys.exit(programs.main(__doc__))
