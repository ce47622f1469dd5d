"""A typist, who writes and is interrupted as a seed says, and tells after each passage what is not as the model says."""

import glob
import pathlib

import windows
from model import Model
from stage import NotFound

LONGEST_TEXT = 60
ENGLISH = ["hello", "mobile", "Facebook", "ok", "computer"]
ENDINGS = ["space"] * 12 + ["period", "period", "comma", "question", "exclam", "1"]
PASSED = [["space"], ["2", "0", "2", "6"], ["BackSpace"], ["Return"]]  # keys that are the program's

DROPPED = "where Qt puts the word in unannounced, IBus's daemon drops it when a program changes the engine"
TOGETHER = "GNOME Shell changes the engine before Qt has the answer to Super, when Space follows at once"
DEAF = "keys that are pressed while IBus's daemon is not there do not come to Qt, nor the first ones to XIM"
UNHEARD = "Qt drops keys for which IBus's daemon has an error instead of an answer, as it has not seen the engine die"
ASTRAY = "Fcitx5's server for XIM does not get the first key after a change of windows"
NOT_FOUND = "a program of Qt or XIM does not find a daemon again that was killed"
HELD = "IBus's daemon drops the word of Qt and XIM before they know that the focus is gone; the engine has it"
ENDED = "xterm ends with an error of X when XIM's server was killed while one of its keys was there"
HURRIED = "Qt takes IBus's answer to Tab, if it is there at once, before the word that the engine sent before it"
LATE = "IBus's daemon hears of the next program's focus first and takes the word from a GTK program that is late"
DISCARDED = "GNOME Shell in a window of X says itself that it has thrown a text or a key away"
WAITING = "what Fcitx5's server for XIM sends to a window that is left may come late, or only when that has the focus again"
TWICE = "where Qt 6 announces that it puts the word in, Qt 5, which does not, looks the same to an engine"


def qt6_announces():
    """Whether Qt 6's module for IBus tells that it puts the word in by itself: that of Debian 13 does."""
    modules = glob.glob("/usr/lib/*/qt6/plugins/platforminputcontexts/libibusplatforminputcontextplugin.so")
    return any(b"ClientCommitPreedit" in pathlib.Path(module).read_bytes() for module in modules)


class Typist:
    def __init__(self, stage, words, pauses, suggests, random, tally):
        self.pauses = pauses  # the shortest and the longest, in milliseconds
        self.stage = stage
        self.words = words
        self.random = random
        self.tally = tally
        self.strokes = []
        self.model = Model(words.read, [place.controls for place in stage.places], suggests)

    @property
    def is_qt_with_ibus(self):
        return self.stage.desk.name == "ibus" and self.stage.place.toolkit.startswith("qt")

    # Keys.

    def press(self, *keys):
        for key in keys:
            self.model.press(key)
            self.strokes.append((key, self.random.randint(*self.pauses)))

    def write(self):
        """What was pressed comes to the screen."""
        self.tally.typed(self.strokes)
        for start in range(0, len(self.strokes), 20):
            self.stage.write(self.strokes[start:start + 20])
        self.strokes = []

    def press_word(self):
        self.random.choice([self.press_plain_word] * 8 + [self.press_word_with_slip] * 2 + [self.press_english])()

    def press_plain_word(self):
        self.press(*self.words.draw(self.random), self.random.choice(ENDINGS))

    def press_word_with_slip(self):
        """A letter too many, or two, taken back at once."""
        word = self.words.draw(self.random)
        at = self.random.randint(1, len(word))
        self.press(*word[:at], self.random.choice("aimn"), *["BackSpace"] * self.random.randint(1, 2), *word[at:],
                   self.random.choice(ENDINGS))

    def press_english(self):
        self.press(*self.random.choice(ENGLISH), "Escape", "space")

    def begin_word(self):
        word = self.words.draw(self.random)
        self.press(*word[:self.random.randint(1, len(word))])

    def press_candidate(self):
        """A row is looked at, taken, or left."""
        self.press(*"gedr", *self.random.choices(["Down", "Tab", "Up"], k=self.random.randint(0, 4)))
        self.press(*self.random.choice([["space"], ["period"], ["Escape", "space"], ["BackSpace", "Escape"], [*"at", "space"]]))

    # Passages.

    def passage(self):
        self.tally.steps += 1
        for _ in range(self.random.randint(2, 6)):
            if self.model.is_suggesting and not self.model.risk and self.random.random() < 0.3:
                self.press_candidate()
            else:
                self.press_word()
        self.random.choice(self.acts())()
        self.write()
        self.check()
        if len(self.stage.place.text()) > LONGEST_TEXT:
            self.stage.place.empty(self.stage)
            self.model.clear(self.model.focus)

    def acts(self):
        killing = [self.kill_engine] if self.stage.can_kill("engine") else []
        killing += [self.kill_daemon] if self.stage.can_kill("daemon") else []
        return [self.leave] * 10 + [self.press_passed] * 3 + [self.change_engine] * 4 + killing

    def press_passed(self):
        self.tally.doing("the program's keys")
        self.settle()
        self.press(*self.random.choice(PASSED))

    def leave(self):
        """Another field, in the middle of a word or at the end of one."""
        if self.random.random() < 0.7:
            self.begin_word()
        if not self.possible_ways():
            self.press("space")
        self.settle()
        way, number = self.random.choice(self.possible_ways())
        self.tally.doing("%d to %d by %s" % (self.stage.here, number, way))
        word = self.model.marked()
        self.model.go(number, is_click=way == "click", held=self.holding(number), lost=self.losing(number),
                      astray=self.straying(number), twice=self.doubling(way))
        try:
            self.stage.go(number, way)
        except windows.Failure:
            if self.has_overtaken(way, word):
                self.begin_anew(HURRIED)
            raise

    def possible_ways(self):
        return [each for each in self.stage.ways() if self.may_go(*each)]

    def may_go(self, way, number):
        """Not by Tab where it may have another meaning, nor to a field that is not the one for which a word is held."""
        if way == "Tab" and self.model.keys and self.model.is_suggesting:
            return False
        program = self.stage.places[number].program
        held = [each for each, place in enumerate(self.stage.places)
                if place.program == program and self.model.holds(each)]
        return not held or number in held

    def holding(self, number):
        """Why a word that is left so may not be there before its program has the focus again."""
        here, there = self.stage.place, self.stage.places[number]
        if here.program == there.program:
            return None
        if self.stage.desk.name == "ibus":
            return HELD if here.toolkit[:2] in ("qt", "xi") else None
        return WAITING if here.toolkit == "xim" else None

    def losing(self, number):
        """Why a word that is left so may not be there at all."""
        here, there = self.stage.place, self.stage.places[number]
        is_dropped = here.toolkit.startswith("gtk") and here.program != there.program
        return LATE if self.stage.desk.name == "ibus" and is_dropped else None

    def straying(self, number):
        """Why the first key in another window may not be composed."""
        there = self.stage.places[number]
        is_astray = there.toolkit == "xim" and there.program != self.stage.place.program
        return ASTRAY if self.stage.desk.name == "fcitx5" and is_astray else None

    def doubling(self, way):
        """Why a word that is left so may stand in the other field as well."""
        is_doubled = self.stage.desk.name == "ibus" and self.stage.place.toolkit == "qt5" and way == "click"
        return TWICE if is_doubled and qt6_announces() else None

    def has_overtaken(self, way, word):
        """Whether Tab came to Qt before the word that it has put in, which is then in the field where Tab has led, too."""
        is_twice = word and self.stage.place.text() == word and self.model.allows_but(self.stage.texts(), self.stage.here)
        return self.is_qt_with_ibus and way == "Tab" and is_twice

    def change_engine(self):
        self.begin_word()
        self.settle()
        self.tally.doing("another engine")
        by_shortcut = self.random.random() < 0.7
        self.model.choose(False, lost=self.dropping(by_shortcut))
        self.stage.choose_other(by_shortcut)
        self.press("x")  # which is seen before the next: the first key after a change of the engine may be answered last
        self.settle()
        self.press(*self.random.choice(ENGLISH), "space")
        self.settle()
        self.model.choose(True)
        self.stage.desk.choose_ours()

    def dropping(self, by_shortcut):
        """Why a word may be lost in which the engine is changed."""
        if not self.is_qt_with_ibus:
            return None
        return TOGETHER if self.stage.has_own_shortcut else None if by_shortcut else DROPPED

    def kill_engine(self):
        self.kill(self.stage.kill_engine, UNHEARD if self.is_qt_with_ibus else None)
        self.revive()

    def kill_daemon(self):
        is_deaf = self.stage.desk.name == "ibus" and self.stage.place.toolkit[:2] in ("qt", "xi")
        try:
            self.kill(self.stage.kill_daemon, DEAF if is_deaf else None)
        except Lost:
            if not self.stage.place.has_ended():
                raise
            self.stage.desk.start_daemon()
            self.begin_anew(ENDED)
        self.stage.desk.start_daemon()
        self.revive()
        if any(place.toolkit == "xim" for place in self.stage.places if place is not self.stage.place):
            raise Anew  # which of them find XIM's server again is not the engine's

    def kill(self, kill, deaf=None):
        self.begin_word()
        self.settle()
        self.tally.doing(kill.__name__)
        late = self.random.randint(0, 2)
        self.press(*self.random.choices("aimn", k=late))
        self.write()
        kill()
        self.model.kill(late, deaf)
        self.settle()
        self.press(*self.random.choice(ENGLISH), "space")  # which comes as it is
        self.settle()

    def revive(self):
        """The engine is chosen again, and the program finds it."""
        self.check()
        self.stage.desk.choose_ours()
        self.model.choose(True)
        try:
            self.come_back()
        except NotFound:
            if not self.stage.place.toolkit.startswith(("xim", "qt")):
                raise
            self.begin_anew(ENDED if self.stage.place.has_ended() else NOT_FOUND)

    def begin_anew(self, reason):
        self.tally.known[reason] += 1
        raise Anew

    def come_back(self):
        """A word is written until it is composed, and with suggestions one that only they make; then the field is empty."""
        keys = [*"gedr", "Down"] if self.model.is_suggesting else [*"ka"]
        probe = Model(self.words.read, [{}], self.model.is_suggesting)
        for key in [*keys, "space"]:
            probe.press(key)
        for emptied in self.stage.come_back(keys, probe.allowed[0][0].text):
            self.model.clear(emptied)

    # What is there.

    def settle(self):
        """All that was pressed has come to where it belongs, as far as that can be seen."""
        self.write()
        if not self.stage.settle(self.model):
            if self.stage.has_discarded(self.model):
                self.begin_anew(DISCARDED)
            raise Lost

    def check(self):
        self.settle()
        self.tally.see(self.model.see(self.stage.texts()))


class Anew(Exception):
    """There is nothing to go on with: programs have to be started again."""


class Lost(Exception):
    """Something is not as the model says."""
