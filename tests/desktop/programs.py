"""What a person does between two programs under a window manager: the part of windows.py that needs two.

A client is two toolkits, "qt6-gtk3": the first word is written in a program of the first, the next one in a program
of the second, and then the first has its turn again.
"""

import contextlib
import re
import signal
import time

import windows
from windows import KA, WORD, Failure, wait_until

MA = "\u0db8"
# What a program gets, and ought to get, when the first key of a word is not composed.
FIRST_KEY_RAW = {"m\u0d85": MA, "k\u0d85": KA, "a\u0db8\u0dca\u0db8": WORD}
KRA_NALA = "\u0d9a\u0dd8\u0d85 \u0dab\u0dc5"  # kRa NaLa

# Windows have no frames, so that a place on the screen is a place in a window. A change of the keyboard's map, such as
# comes with another engine, may leave openbox taking no click any more if it binds its keys anew.
CONFIGURATION = """<openbox_config xmlns="http://openbox.org/3.4/rc">
<focus><focusNew>yes</focusNew></focus>
<keyboard><rebindOnMappingNotify>no</rebindOnMappingNotify><keybind key="A-Tab"><action name="NextWindow"/></keybind></keyboard>
<mouse><context name="Client"><mousebind button="Left" action="Press">
<action name="Focus"/><action name="Raise"/></mousebind></context></mouse>
<applications><application class="*"><decor>no</decor></application></applications>
</openbox_config>
"""


def start_manager(desk, configuration=CONFIGURATION):
    path = desk.folder + "/openbox.xml"
    with open(path, "w") as file:
        file.write(configuration)
    desk.processes.start(["openbox", "--sm-disable", "--config-file", path])

    def answers():  # one that has only just told of itself may not look at what happens
        desk.processes.output("xdotool", "set_num_desktops", "2")
        return desk.processes.output("xdotool", "get_num_desktops") == "2"
    wait_until(answers, "the window manager is there")


class FieldsProgram:
    """The first field of a program of a toolkit."""

    def __init__(self, desk, toolkit, left):
        self.fields = windows.Fields(desk, toolkit, left=left)
        self.window = self.fields.one
        self.process = self.fields.process
        self.place = (left + 380, self.fields.heights[0])

    def text(self):
        return self.fields.texts()[0]

    def close(self):
        self.fields.close()


class XimProgram:
    """A terminal that knows nothing but XIM."""

    def __init__(self, desk, _, left):
        self.terminal = windows.XimWindow(desk, "vanoka-xterm-%d" % left)
        self.window = self.terminal.window
        self.process = self.terminal.process
        self.place = (left + 100, 50)
        desk.processes.output("xdotool", "windowmove", "--sync", self.window, str(left), "0")
        desk.focus(self.window)
        if desk.name == "fcitx5":
            desk.choose_ours()

    def text(self):
        return self.terminal.text()

    def close(self):
        self.terminal.close()


class Two:
    """Two programs, of which the first has the focus."""

    def __init__(self, desk, toolkits, pauses):
        self.desk = desk
        self.toolkits = toolkits
        self.pauses = pauses
        self.programs = []
        try:
            for left, toolkit in ((500, toolkits[1]), (0, toolkits[0])):
                kind = XimProgram if toolkit == "xim" else FieldsProgram
                self.programs.insert(0, kind(desk, toolkit, left))
            self.here, self.there = self.programs
            for program in (self.there, self.here):  # so that Alt and Tab go from one to the other
                activate(self, program)
        except BaseException:
            self.close()
            raise

    def close(self):
        for program in self.programs:
            program.close()

    def texts(self):
        return self.here.text(), self.there.text()

    def become(self, texts, patience=windows.PATIENCE):
        """Whether the texts are these in the end."""
        try:
            wait_until(lambda: self.texts() == texts, "", patience)
        except Failure:
            return False
        time.sleep(0.2)  # a second delivery would come now
        return self.texts() == texts

    def known(self, texts):
        """Why the texts may be what they are instead of these."""
        as_composed = tuple(text if "xim" not in toolkit else re.sub("|".join(FIRST_KEY_RAW), lambda found:
                                                                     FIRST_KEY_RAW[found.group()], text)
                            for text, toolkit in zip(self.texts(), self.toolkits))
        return "the first key after a change of windows did not reach XIM's server" if as_composed == texts else None

    def expect(self, *texts):
        if not self.become(texts):
            raise Failure("the texts are %r, not %r" % (self.texts(), texts), self.known(texts))


# The ways from one program to another.

def click(two, program):
    two.desk.click(*program.place)


def activate(two, program):
    """As a panel's list of windows does."""
    two.desk.processes.output("xdotool", "windowactivate", "--sync", program.window)
    time.sleep(two.desk.pause)


def alt_tab(two, _):
    two.desk.processes.output("xdotool", "keydown", "Alt_L", "key", "Tab", "keyup", "Alt_L")
    time.sleep(two.desk.pause)


def leave_and_return(two, go):
    two.desk.keys(*"amma", "space", *"ka")
    go(two, two.there)
    two.desk.keys(*"ka", "period")
    go(two, two.here)
    two.desk.keys(*"ma", "period")
    two.expect(WORD + " " + KA + MA + ".", KA + ".")


def by_click(two):
    leave_and_return(two, click)


def by_activation(two):
    leave_and_return(two, activate)


def by_alt_tab(two):
    leave_and_return(two, alt_tab)


@contextlib.contextmanager
def stopped(process):
    process.send_signal(signal.SIGSTOP)
    try:
        yield
    finally:
        process.send_signal(signal.SIGCONT)


def by_activation_when_late(two):
    """As on a busy machine: the program that is left hears of that late, and hears of the pointer first."""
    two.desk.keys(*"amma")
    x, y = two.here.place
    with stopped(two.here.process):
        for step in range(4):
            two.desk.processes.output("xdotool", "mousemove", str(x - 40 + 10 * step), str(y))
        activate(two, two.there)
        time.sleep(0.5)  # so late
    time.sleep(two.desk.pause)
    two.desk.keys(*"amma", "space")
    activate(two, two.here)
    two.desk.keys("space")
    two.expect(two.desk.word + " ", two.desk.word + " ")


def after_a_word(two):
    """The window changes as soon as a word has ended."""
    before, wrong, known = two.texts(), [], []
    for pause in two.pauses:
        for program, other in ((two.here, two.there), (two.there, two.here)):
            two.desk.processes.output("xdotool", "key", "--delay", "30", *"amma", "key", "--delay", "0", "space",
                                      "sleep", str(pause / 1000), "windowactivate", "--sync", other.window)
            time.sleep(two.desk.pause)
            wanted = tuple(text + two.desk.word + " " if program is writer else text
                           for text, writer in zip(before, two.programs))
            if not two.become(wanted, patience=2):
                wrong.append("%r, not %r at %d ms" % (two.texts(), wanted, pause))
                known.append(two.known(wanted))
            before = two.texts()
    if wrong:
        raise Failure("%d of %d words: %s" % (len(wrong), 2 * len(two.pauses), "; ".join(wrong)),
                      known[0] if all(known) else None)


def with_shift(two):
    """Shift is released, and pressed for the next letter, before the key has been handled."""
    here = ""
    for pause in two.pauses:
        two.desk.processes.output("xdotool", "key", "--delay", str(pause), *"kRa", "space", *"NaLa", "question", *"ka",
                                  "exclam")
        here += KRA_NALA + "?" + KA + "!"
        two.expect(here, "")


PARTS = [by_click, by_activation, by_activation_when_late, by_alt_tab, after_a_word, with_shift]
TOOLKITS = ["gtk3", "gtk4", "qt5", "qt6", "xim"]
CLIENTS = [here + "-" + there for here in TOOLKITS for there in TOOLKITS if here != there]

# What no engine can mend, with the reason; it is run, and reported when it has become better.
KNOWN = {
    **{("ibus", client, "by_activation_when_late"):
           "the daemon hears of the next program's focus first, and takes the marked text from the one that is left"
       for client in CLIENTS if client.startswith("gtk")},
    **{("ibus", client, "after_a_word"):
           "GTK's module puts marked text in when its window is left, though the text of the last key is on its way"
       for client in CLIENTS if "gtk" in client},
    **{("fcitx5", client, "after_a_word"): "keys of XIM go by Fcitx5's server for it beside a change of windows"
       for client in CLIENTS if "xim" in client},
}


def run_part(desk, client, part, pauses):
    two = Two(desk, client.split("-"), pauses)
    try:
        part(two)
    finally:
        two.close()


def main(description):
    parser = windows.options_of(description)
    parser.add_argument("--pauses", default="0,10,20,40", help="between two programs, in milliseconds")
    options = parser.parse_args()
    pauses = [int(pause) for pause in options.pauses.split(",")]
    clients = windows.chosen(options, windows.CLIENTS + CLIENTS)
    status = windows.run(options, [client for client in clients if client in windows.CLIENTS], windows.parts_of,
                         windows.run_part, windows.KNOWN)
    return windows.run(options, [client for client in clients if client in CLIENTS], lambda _: PARTS,
                       lambda desk, client, part: run_part(desk, client, part, pauses), KNOWN, start_manager) or status
