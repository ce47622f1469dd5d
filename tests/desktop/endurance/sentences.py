"""Real Sinhala as the keys that type it: words of the project's list, as often as people write them."""

import itertools
import os
import re

TREE = os.path.join(os.path.dirname(os.path.abspath(__file__)), "../../..")
GOLDEN = ["every-key.txt", "consonants-with-vowels.txt", "consonant-pairs.txt"]


def syllables():
    """The text of each syllable and the first keys that read as it."""
    keys_of = {}
    for name in GOLDEN:
        with open(os.path.join(TREE, "tests/golden", name), encoding="utf-8") as file:
            for keys, text in re.findall(r"(\w+)=(\S+)", file.read()):
                keys_of.setdefault(text.replace(r"\u200D", "\u200d"), keys)
    return keys_of


def spelling(keys_of, word):
    """Keys for a word, the longest syllables first; none where it has a letter that no key types."""
    keys, at, longest = "", 0, max(map(len, keys_of))
    while at < len(word):
        found = next((word[at:end] for end in range(at + longest, at, -1) if word[at:end] in keys_of), None)
        if found is None:
            return None
        keys += keys_of[found]
        at += len(found)
    return keys


def commonest_words(count):
    """Words and how often each is written."""
    with open(os.path.join(TREE, "data/si.tsv"), encoding="utf-8") as file:
        rows = (line.split("\t") for line in file if "\t" in line and not line.startswith("#"))
        return [(word, int(number)) for word, number in itertools.islice(rows, count)]


class Words:
    """The commonest words that can be typed without thinking, as keys, drawn as often as people write them."""

    def __init__(self, read, count=2000):
        self.read = read
        keys_of = syllables()
        spelt = [(spelling(keys_of, word), word, number) for word, number in commonest_words(count)]
        typed = [(keys, number) for keys, word, number in spelt if keys and read(keys) == word]
        self.keys = [keys for keys, _ in typed]
        self.bounds = list(itertools.accumulate(number for _, number in typed))

    def draw(self, random):
        return random.choices(self.keys, cum_weights=self.bounds)[0]
