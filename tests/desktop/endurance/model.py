"""What every field must hold, from the keys alone: an engine's plain twin, which knows no toolkit and no framework.

A key is named as a keyboard's: a letter, a digit, "space", "period", "BackSpace", "Escape", "Return", "Tab", "Down", "Up".
"""

import dataclasses

from endings import (COMPOSED, HELD_BY_KILLED, KEY_FIRST, OTHER_CASE, OVERTAKEN, RESET, UNANSWERED, Ending, Risk,
                     is_in_other_case, is_overtaken, is_part)
from reading import after_backspace

PRINTED = {"space": " ", "period": ".", "comma": ",", "question": "?", "exclam": "!"}
# Under the keys that have a line of candidates, in tests/scenarios/suggestions/lists, what stands in it below them.
LINES = {"gedr": ["\u0d9c\u0dd9\u0daf\u0dbb", "\u0d9c\u0dd9\u0daf\u0dbb\u0da7"]}


def printed(key):
    """What a key puts in by itself; nothing where it is none that prints."""
    return PRINTED.get(key) or (key if len(key) == 1 else "")


def is_letter(key):
    return len(key) == 1 and key.isascii() and key.isalpha()


class Model:
    """The fields' texts, and the word that is being composed in the one that has the focus.

    What a field may hold is a list, the first of which is what it ought to: only what others did to a word while it was
    composed makes more than one.
    """

    def __init__(self, read, controls, is_suggesting=False):
        """`controls` says of each field what Return and BackSpace type there, by name; most drop one and obey the other."""
        self.read = read
        self.controls = controls
        self.is_suggesting = is_suggesting
        self.allowed = [[Ending("")] for _ in controls]
        self.passed = ["" for _ in controls]  # what keys that were the program's have typed since the field was seen
        self.focus = 0
        self.is_ours = True  # whether the engine has the keys
        self.is_dead = False  # it was killed, and nobody takes what is marked away
        self.keys = ""
        self.row = 0  # of the line of candidates, from what was typed
        self.risk = None  # that the next word is not composed as one
        self.broken = []  # what such a word may have become: a text, and the keys that are being composed after it

    def rows(self):
        lines = LINES.get(self.keys, []) if self.is_suggesting else []
        return [self.read(self.keys), *lines]

    def marked(self):
        """What is shown as marked text."""
        return self.rows()[self.row] if self.keys else ""

    def marks(self):
        """All that may be shown as marked text."""
        return {self.marked(), *(self.read(keys) for _, keys in self.broken)}

    # Keys.

    def press(self, key):
        self.allowed[self.focus] = list(dict.fromkeys(each.as_it_comes() for each in self.allowed[self.focus]))
        if not self.is_ours:
            self.pass_on(key)
        elif is_letter(key):
            self.compose(key)
        elif not self.keys:
            self.pass_on(key)
        elif key in ("Down", "Tab", "Up") and len(self.rows()) > 1:
            self.row = (self.row + (-1 if key == "Up" else 1)) % len(self.rows())
        elif key in ("Escape", "BackSpace"):
            self.take_back(key)
        elif printed(key):
            self.put_marked(printed(key))
        else:
            self.put_marked()
            self.pass_on(key)

    def compose(self, key):
        self.broken = [(text, keys + key) for text, keys in self.broken]
        if self.risk and self.risk.is_raw and not self.keys and not self.broken:
            self.broken = [(key, "")]
        elif self.risk and not self.risk.is_raw and self.keys:
            self.broken += [("", key), (self.read(self.keys), key)]
        self.keys, self.row = self.keys + key, 0

    def take_back(self, key):
        if self.row:
            self.row = 0
        elif key == "BackSpace":
            self.keys = after_backspace(self.read, self.keys)
            self.broken = [self.taken_back(*each) for each in self.broken]
        else:
            self.put_word(self.keys, [text + keys for text, keys in self.broken])

    def taken_back(self, text, keys):
        """What BackSpace leaves of a word that was not composed as one: what is not composed is the program's."""
        if keys:
            return text, after_backspace(self.read, keys)
        typed = self.controls[self.focus].get("BackSpace")
        return text + typed if typed else text[:-1], ""

    def pass_on(self, key):
        """What the program does with a key."""
        if self.broken:
            self.put_word("", [text + self.read(keys) for text, keys in self.broken])
        self.risk = None
        typed = self.controls[self.focus].get(key, printed(key))
        if self.is_ours and key in ("BackSpace", "Return") and not typed:
            self.risk = Risk(RESET, is_raw=False)
        if key == "BackSpace" and not typed:
            self.allowed[self.focus] = [dataclasses.replace(each, text=each.text[:-1]) for each in self.allowed[self.focus]]
        else:
            self.passed[self.focus] += typed
            self.put(typed)

    def put(self, text):
        self.allowed[self.focus] = [each.with_more(text) for each in self.allowed[self.focus]]

    def put_marked(self, after=""):
        self.put_word(self.marked() + after, [text + self.read(keys) + after for text, keys in self.broken])

    def put_word(self, text, broken):
        """Ends the word with a text, or with another where it was not composed as one."""
        before, risk = self.allowed[self.focus], self.risk
        self.keys, self.row, self.broken, self.risk = "", 0, [], None
        self.put(text)
        self.allowed[self.focus] += [dataclasses.replace(each.with_more(other), reason=risk.reason)
                                     for each in before for other in dict.fromkeys(broken)]

    # What others do.

    def go(self, field, is_click=False, held=None, lost=None, astray=None, twice=None):
        """To another field, by a click, which puts the caret anywhere, or by a key. `held` tells why the word that is left
        may not be there before the focus comes back, `lost` why it may not be there at all, `astray` why the first key
        there may not be composed, `twice` why the word may be there, too."""
        before, word = self.allowed[self.focus], self.marked()
        self.put_marked()
        if held and word:
            self.allowed[self.focus] += [dataclasses.replace(each, reason=held, held=word) for each in before]
        if lost and word:
            self.allowed[self.focus] += [dataclasses.replace(each, reason=lost) for each in before]
        self.focus, self.risk = field, Risk(astray, is_raw=True) if astray else None
        came = [each.as_it_comes() for each in self.allowed[field]]
        if is_click:
            came += [elsewhere for each in self.allowed[field] for elsewhere in each.as_it_comes_elsewhere()]
        self.allowed[field] = list(dict.fromkeys(came + self.allowed[field]))
        if twice and word:
            self.allowed[field] += [dataclasses.replace(each.with_more(word), reason=twice) for each in self.allowed[field]]

    def holds(self, field):
        """Whether a word may be on its way into a field that has lost the focus."""
        return any(each.held for each in self.allowed[field])

    def choose(self, is_ours, lost=None):
        """Another engine, or ours. `lost` tells why the word may not be there."""
        before, word = self.allowed[self.focus], self.marked()
        self.put_marked()
        if lost and word:
            self.allowed[self.focus] += [dataclasses.replace(each, reason=lost) for each in before]
        self.is_ours, self.is_dead = is_ours, False

    def kill(self, typed_late=0, deaf=None):
        """The engine dies in a word, of which the last so many keys may not have reached it: they come as they are. Of
        the others what was shown may be there, or nothing. So do all keys come from now on, or, where there is a reason
        for it in `deaf`, some or none."""
        word = self.keys
        endings = [ending for count in range(len(word), len(word) - typed_late - 1, -1)
                   for ending in self.endings_of_kill(word[:count], word[count:])]
        endings += [Ending(text, UNANSWERED) for count in range(len(word), max(len(word) - typed_late - 1, 0), -1)
                    for text in self.unanswered(word[:count - 1], word[count - 1:])]
        self.keys, self.row, self.is_ours, self.is_dead = "", 0, False, True
        self.allowed = [[*allowed, *(Ending(each.text, HELD_BY_KILLED) for each in allowed if each.held)]
                        for allowed in self.allowed]
        self.passed[self.focus] += word[len(word) - typed_late:]
        before = self.allowed[self.focus]
        self.allowed[self.focus] = [Ending(each.text + ending.text, each.reason or ending.reason)
                                    for each in before for ending in endings]
        if deaf:
            self.allowed[self.focus] += [Ending(each.text + text, deaf, doubtful=word[count:])
                                         for each in before for count in range(len(word), len(word) - typed_late - 1, -1)
                                         for text in ("", self.read(word[:count]))]

    def endings_of_kill(self, keys, late):
        shown = self.read(keys)
        if not shown:
            return [Ending(late)]
        return [Ending(shown + late), Ending(late, COMPOSED), *([Ending(late + shown, KEY_FIRST)] if late else [])]

    def unanswered(self, keys, late):
        """The first of the late keys had been shown, and what was shown may be lost."""
        shown = self.read(keys + late[0])
        return [shown + late, late + shown, late]

    def clear(self, field):
        """All of it was deleted by a person."""
        self.allowed[field] = [Ending("")]
        self.passed[field] = ""

    # What is there.

    def found(self, field, text):
        """The endings that a text may be; none where it is none. What is on its way may have come by now."""
        come = [each.as_it_comes() for each in self.allowed[field] if each.held]
        found = [each for each in self.allowed[field] + come if each.is_as(text)]
        if found:
            return found
        return [dataclasses.replace(each, text=text, reason=reason) for each in self.allowed[field]
                for is_like, reason in ((is_overtaken, OVERTAKEN), (is_in_other_case, OTHER_CASE))
                if is_like(each.text, text, self.passed[field])]

    def allows(self, texts):
        return all(self.found(field, text) for field, text in enumerate(texts))

    def allows_but(self, texts, but):
        """Whether nothing is wrong with the texts, one aside."""
        return all(field == but or self.found(field, text) for field, text in enumerate(texts))

    def lacks(self, texts):
        """Whether nothing is wrong with the texts but that something is missing."""
        return all(any(is_part(text, each.text) for each in self.allowed[field]) for field, text in enumerate(texts))

    def see(self, texts):
        """Compares with what the fields hold, goes on from there, and returns (field, endings, found) for each that is
        wrong and the reasons of those that are not as they ought to be."""
        wrong, reasons = [], []
        for field, text in enumerate(texts):
            found = self.found(field, text)
            if not found:
                wrong.append((field, self.allowed[field], text))
            elif found[0].reason:
                reasons.append(found[0].reason)
            held = list(dict.fromkeys(each.held for each in found)) or [""]
            self.allowed[field] = [Ending(text, "" if each == held[0] else HELD_BY_KILLED, each) for each in held]
            self.passed[field] = ""
        return wrong, reasons
