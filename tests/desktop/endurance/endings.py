"""Texts that a field may hold, and why, where they are not what it ought to hold."""

import dataclasses
import os


@dataclasses.dataclass(frozen=True)
class Ending:
    """A text that a field may hold, and why, where it is not as it ought to be."""

    text: str
    reason: str = ""
    held: str = ""  # what comes at its end with the first key after the focus has come back
    doubtful: str = None  # what has been typed while keys came or did not come; nothing while all come

    def with_more(self, text):
        if self.doubtful is None:
            return dataclasses.replace(self, text=self.text + text)
        return dataclasses.replace(self, doubtful=self.doubtful + text)

    def as_it_comes(self):
        return Ending(self.text + self.held) if self.held else self

    def as_it_comes_elsewhere(self):
        """Where a click may have put the caret."""
        return [Ending(self.text[:at] + self.held + self.text[at:], CLICKED) for at in range(len(self.text)) if self.held]

    def is_as(self, text):
        if self.doubtful is None:
            return text == self.text
        return text.startswith(self.text) and is_part(text[len(self.text):], self.doubtful)

    def __str__(self):
        return repr(self.text) + (" with some of %r" % self.doubtful if self.doubtful else "")


def is_part(text, whole):
    """Whether all of it stands there, in this order, whatever is between."""
    rest = iter(whole)
    return all(each in rest for each in text)


@dataclasses.dataclass(frozen=True)
class Risk:
    """Why a word may not be composed as one: its first letter comes as it is, or those that were there when the program
    resets the engine are put in then, or lost."""

    reason: str
    is_raw: bool


CLICKED = "a word that the engine held for a field goes where the click that gives the focus back puts the caret"
RESET = "letters come before Return or BackSpace is back in the program, which resets the engine then"
OVERTAKEN = "keys that are the program's came back to it later than others: toolkits ask asynchronously"
OTHER_CASE = "keys that are the program's came back to it with the modifiers of another moment"
COMPOSED = "the word that was being composed when the engine was killed"
HELD_BY_KILLED = "a word that the engine held for a field without focus when it was killed"
UNANSWERED = "the engine had shown a key, and was killed before it answered: the key came as it is, too"
KEY_FIRST = "a key that was pressed while the engine died came before its word"


def is_overtaken(wanted, found, passed):
    """Whether texts differ in nothing but where the keys are that the program got back."""
    start = len(os.path.commonprefix([wanted, found]))
    end = len(os.path.commonprefix([wanted[start:][::-1], found[start:][::-1]]))
    middles = [text[start:len(text) - end] for text in (wanted, found)]
    return sorted(middles[0]) == sorted(middles[1]) and len({"".join(each for each in middle if each not in passed)
                                                            for middle in middles}) == 1


def is_in_other_case(wanted, found, passed):
    """Whether letters that the program got back have lost their Shift, and nothing else is different."""
    return wanted != found and len(wanted) == len(found) and all(
        one == other or (one in passed and one.lower() == other.lower()) for one, other in zip(wanted, found))
