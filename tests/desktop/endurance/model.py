"""What every field must hold, from the keys alone: an engine's plain twin, which knows no toolkit and no framework.

A key is named as a keyboard's: a letter, a digit, "space", "period", "BackSpace", "Escape", "Return", "Tab", "Down", "Up".
"""

import dataclasses

from reading import after_backspace

PRINTED = {"space": " ", "period": ".", "comma": ",", "question": "?", "exclam": "!"}
# Under the keys that have a line of candidates, in tests/scenarios/suggestions/lists, what stands in it below them.
LINES = {"gedr": ["\u0d9c\u0dd9\u0daf\u0dbb", "\u0d9c\u0dd9\u0daf\u0dbb\u0da7"]}


def printed(key):
    """What a key puts in by itself; nothing where it is none that prints."""
    return PRINTED.get(key) or (key if len(key) == 1 else "")


def is_letter(key):
    return len(key) == 1 and key.isascii() and key.isalpha()


@dataclasses.dataclass(frozen=True)
class Ending:
    """A text that a field may hold, and why, where it is not as it ought to be."""

    text: str
    reason: str = ""


class Model:
    """The fields' texts, and the word that is being composed in the one that has the focus.

    What a field may hold is a list, the first of which is what it ought to: only what others did to a word while it was
    composed makes more than one.
    """

    def __init__(self, read, fields, line_end=""):
        self.read = read
        self.line_end = line_end  # what Return types
        self.allowed = [[Ending("")] for _ in range(fields)]
        self.focus = 0
        self.is_ours = True  # whether the engine has the keys
        self.is_suggesting = False
        self.keys = ""
        self.row = 0  # of the line of candidates, from what was typed

    def rows(self):
        lines = LINES.get(self.keys, []) if self.is_suggesting else []
        return [self.read(self.keys), *lines]

    def marked(self):
        """What is shown as marked text."""
        return self.rows()[self.row] if self.keys else ""

    def put(self, text):
        self.allowed[self.focus] = [dataclasses.replace(each, text=each.text + text) for each in self.allowed[self.focus]]

    def put_marked(self, after=""):
        text, self.keys, self.row = self.marked(), "", 0
        self.put(text + after)

    def press(self, key):
        if not self.is_ours:
            self.pass_on(key)
        elif is_letter(key):
            self.keys, self.row = self.keys + key, 0
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

    def take_back(self, key):
        if self.row:
            self.row = 0
        elif key == "BackSpace":
            self.keys = after_backspace(self.read, self.keys)
        else:
            keys, self.keys = self.keys, ""
            self.put(keys)

    def pass_on(self, key):
        """What the program does with a key."""
        if key == "BackSpace":
            self.allowed[self.focus] = [dataclasses.replace(each, text=each.text[:-1]) for each in self.allowed[self.focus]]
        else:
            self.put(self.line_end if key == "Return" else printed(key))

    def go(self, field, lost=None):
        """To another field. `lost` tells why the word that is left may not be there."""
        self.end_word(lost)
        self.focus = field

    def choose(self, is_ours, lost=None):
        """Another engine, or ours."""
        self.end_word(lost)
        self.is_ours = is_ours

    def end_word(self, lost=None):
        """Others put the marked text in, or take it away where there is a reason for that."""
        before = self.allowed[self.focus]
        self.put_marked()
        if lost and self.allowed[self.focus] != before:
            self.allowed[self.focus] += [dataclasses.replace(each, reason=each.reason or lost) for each in before]

    def kill(self, typed_late=0):
        """The engine dies in a word, of which the last so many keys may not have reached it: they come as they are. Of
        the others what was shown may be there, or nothing. So do all keys come from now on."""
        before, word = self.allowed[self.focus], self.keys
        self.keys, self.row, self.is_ours = "", 0, False
        words = [Ending("")] if not word else [
            Ending(shown + word[count:], reason)
            for count in range(len(word), max(len(word) - typed_late, 0) - 1, -1)
            for shown, reason in dict.fromkeys([(self.read(word[:count]), ""), ("", "the word that was being composed")])]
        self.allowed[self.focus] = [Ending(each.text + word.text, each.reason or word.reason)
                                    for each in before for word in words]

    def clear(self, field):
        """All of it was deleted by a person."""
        self.allowed[field] = [Ending("")]

    def see(self, texts):
        """Compares with what the fields hold, goes on from there, and returns (field, allowed, found) for each that is
        wrong and the reasons of those that are not as they ought to be."""
        wrong, reasons = [], []
        for field, text in enumerate(texts):
            found = next((each for each in self.allowed[field] if each.text == text), None)
            if found is None:
                wrong.append((field, [each.text for each in self.allowed[field]], text))
            elif found.reason:
                reasons.append(found.reason)
            self.allowed[field] = [Ending(text)]
        return wrong, reasons

    def allows(self, texts):
        return all(any(each.text == text for each in allowed) for allowed, text in zip(self.allowed, texts))
