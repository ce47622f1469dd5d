#!/usr/bin/env python3
"""Kills a program that edits, again and again: kills.py LIBRARY SINGLISH COUNT.

Each edit gives a key to a letter, takes it away, or learns a word. Three of four kills come at a call of the system
that is drawn by lot, half of those at one that writes, with half of its bytes written; the fourth comes from outside at
any instant. After each kill what is stored is what was acknowledged, or that and the edit that was being made.
"""

import json
import random
import signal
import subprocess
import sys
import time
from pathlib import Path

from runs import WRITES, home

KA, AMMA = "\u0d9a", "\u0d85\u0db8\u0dca\u0db8"
LETTERS = "bcdfghjklm"
WORDS_EVERY = 10  # one kill of ten is of a program that learns a word


class Edits:
    """What may be stored: what was acknowledged, and what the edit that is being made would give."""

    def __init__(self, place, chance):
        self.place, self.chance = place, chance
        self.keys, self.learnt = frozenset(), 0
        self.calls = {}  # of each kind of edit, as a whole one makes them
        self.lost = self.acknowledged = self.kills = 0

    def kill_one(self):
        if self.kills % WORDS_EVERY == 0:
            self.learn_a_word()
        else:
            self.edit_a_key()

    def edit_a_key(self):
        key = "zq" + self.chance.choice(LETTERS)
        wanted = self.keys ^ {key}
        verb = ["add", key, KA] if key in wanted else ["remove", key]
        status = self.run(["keys", *verb])
        stored = self.stored_keys()
        self.judge(stored, self.keys, wanted, status)
        self.keys = stored

    def learn_a_word(self):
        status = self.run(["words", "add", AMMA])
        line = next((line for line in self.place.words().splitlines() if line.startswith(AMMA)), f"{AMMA}\t0")
        stored = int(line.split("\t")[1])
        self.judge(stored, self.learnt, self.learnt + 1, status)
        self.learnt = stored

    def run(self, command):
        """The status of an edit that is killed. The first of a kind is not, and tells which calls there are, as does
        each that makes fewer calls than the one that was to be its last."""
        kind = tuple(command[:2])
        if kind in self.calls and self.chance.randrange(4) == 0:
            return self.killed_from_outside(command)
        how = "kill" if self.chance.randrange(2) else "torn"
        done = self.place.run(command, at=self.call_to_be_the_last(kind, how), how=how)
        if done.status == 0:
            self.calls[kind] = [call.name for call in done.calls]
        return done.status

    def call_to_be_the_last(self, kind, how):
        """Its number; 0 where nobody knows the calls."""
        numbers = [number for number, name in enumerate(self.calls.get(kind, ()), 1) if how == "kill" or name in WRITES]
        return self.chance.choice(numbers) if numbers else 0

    def killed_from_outside(self, command):
        with subprocess.Popen([self.place.program, *command], env=self.place.environment, stdout=subprocess.DEVNULL,
                              stderr=subprocess.DEVNULL) as process:
            time.sleep(self.chance.random() * 0.01)
            process.send_signal(signal.SIGKILL)
        return process.returncode

    def stored_keys(self):
        """Read without the program, which would take a third of the time; it agrees, now and then."""
        path = self.place.folder / ".config/vanoka/vanoka.customization.v1"
        try:
            document = json.loads(path.read_bytes()) if path.exists() else {"addedKeys": []}
        except ValueError:
            sys.exit(f"After {self.kills} kills the keys are torn: {path.read_bytes()!r}")
        keys = frozenset(each["key"] for each in document["addedKeys"])
        if self.chance.randrange(100) == 0 and keys != frozenset(key for key, _ in self.place.keys()):
            raise AssertionError("the program reads something else")
        return keys

    def judge(self, stored, before, after, status):
        self.kills += status == -signal.SIGKILL
        self.acknowledged += status == 0
        if status not in (0, -signal.SIGKILL):
            raise AssertionError(f"status {status}")
        if stored != after and (status == 0 or stored != before):
            self.lost += 1
            print(f"kill {self.kills}: status {status}, {stored} and not {before} or {after}")


def main():
    library, singlish, count = Path(sys.argv[1]), sys.argv[2], int(sys.argv[3])
    with home(library, singlish) as place:
        edits = Edits(place, random.Random(1))
        while edits.kills < count:
            edits.kill_one()
        left = [path.name for path in place.folder.rglob("*") if ".damaged" in path.name or ".kept" in path.name]
        print(f"{edits.kills} kills, {edits.acknowledged} acknowledged edits between them, {edits.lost} lost; "
              f"set aside: {left or 'nothing'}")
        sys.exit(1 if edits.lost or left else 0)


if __name__ == "__main__":
    main()
