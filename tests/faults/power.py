#!/usr/bin/env python3
"""Takes the power away between any two calls of runs that edit: power.py LIBRARY SINGLISH [--chances N]
[--every N].

The runs' calls are recorded. For each beginning of that record a folder is made of what a disk may hold then: what was
forced to it, and of the rest nothing, all data, all names, or what the lot draws, torn at any byte. There, every
acknowledged edit of the keys and the words is stored, and the next one works. --every looks at one beginning of N, and
at all that end with an edit. Besides, each call that opens a file or forces it to the disk fails once in the first edits of
both, and then the power goes, with what was not forced: the edit is there unless it was told as one that may not last.
"""

import argparse
import errno
import os
import random
import sys
from dataclasses import dataclass, field
from pathlib import Path

from runs import home

KA, GA = "\u0d9a", "\u0d9c"
WORDS = ["\u0d85\u0db8\u0dca\u0db8", "\u0d9c\u0dd9\u0daf\u0dbb", "\u0d9c\u0db8"]
O_TRUNC, O_CREAT = os.O_TRUNC, os.O_CREAT


@dataclass
class File:
    """What is forced to the disk, and the changes since: (offset, bytes), or (size, None) that cuts it."""
    safe: bytes = b""
    pending: list = field(default_factory=list)


@dataclass
class Folder:
    """The same for names, which go in order: (name, what it stands for or None)."""
    safe: dict = field(default_factory=dict)
    pending: list = field(default_factory=list)

    def names(self):
        names = dict(self.safe)
        for name, what in self.pending:
            names[name] = what
        return {name: what for name, what in names.items() if what is not None}


class Disk:
    """What the recorded calls have done to the folder `top`, which was empty."""

    def __init__(self, top):
        self.top, self.root = str(top), Folder()
        self.opened, self.places = {}, {}

    def find(self, path):
        """The folder that holds the path, and the name there; nothing for a path elsewhere."""
        if not path.startswith(self.top + "/"):
            return None
        *above, name = path[len(self.top) + 1:].split("/")
        folder = self.root
        for each in above:
            folder = folder.names().get(each)
            if folder is None:
                return None
        return folder, name

    def what(self, path):
        if path == self.top:
            return self.root
        place = self.find(path)
        return place and place[0].names().get(place[1])

    def name(self, path, what):
        place = self.find(path)
        if place:
            place[0].pending.append((place[1], what))

    def follow(self, call):
        if call.result >= 0:
            getattr(self, "do_" + call.name, lambda *_: None)(call.result, *call.about)

    def do_open(self, result, path, flags):
        if self.what(path) is None and int(flags) & O_CREAT and self.find(path):
            self.name(path, File())
        self.opened[result], self.places[result] = self.what(path), 0
        if int(flags) & O_TRUNC and isinstance(self.opened[result], File):
            self.opened[result].pending.append((0, None))

    def do_mkostemp(self, result, path):
        self.do_open(result, path, O_CREAT)

    def do_mknod(self, _, path):
        self.name(path, File())

    def do_mkdir(self, _, path):
        self.name(path, Folder())

    def do_unlink(self, _, path):
        self.name(path, None)

    def do_rename(self, _, source, target):
        moved = self.what(source)
        self.name(target, moved)
        self.name(source, None)

    def do_close(self, _, number):
        self.opened.pop(int(number), None)

    def do_write(self, result, number, written):
        if isinstance(file := self.opened.get(int(number)), File):
            file.pending.append((self.places[int(number)], bytes.fromhex(written)))
            self.places[int(number)] += result

    def do_pwrite(self, _, number, offset, written):
        if isinstance(file := self.opened.get(int(number)), File):
            file.pending.append((int(offset), bytes.fromhex(written)))

    def do_ftruncate(self, _, number, size):
        if isinstance(file := self.opened.get(int(number)), File):
            file.pending.append((int(size), None))

    def do_fsync(self, _, number):
        what = self.opened.get(int(number))
        if isinstance(what, File):
            what.safe, what.pending = changed(what.safe, what.pending), []
        elif isinstance(what, Folder):
            what.safe, what.pending = what.names(), []

    do_fdatasync = do_fsync


def changed(content, changes):
    """The bytes of a file after changes."""
    content = bytearray(content)
    for offset, written in changes:
        content.extend(bytes(max(0, offset - len(content))))
        if written is None:
            del content[offset:]
        else:
            content[offset:offset + len(written)] = written
    return bytes(content)


class Loss:
    """What becomes of changes that were not forced to the disk."""

    def __init__(self, keeps_data, keeps_names, chance=None):
        self.keeps_data, self.keeps_names, self.chance = keeps_data, keeps_names, chance

    def data(self, changes):
        if not self.chance:
            return changes if self.keeps_data else []
        kept = [change for change in changes if self.chance.randrange(3)]
        return [(offset, written and written[:self.chance.randrange(len(written) + 1)])
                if self.chance.randrange(4) == 0 else (offset, written) for offset, written in kept]

    def names(self, changes):
        if not self.chance:
            return changes if self.keeps_names else []
        return changes[:self.chance.randrange(len(changes) + 1)]

    def make(self, folder, path):
        """Writes what is left of a folder to `path`."""
        path.mkdir(mode=0o700, exist_ok=True)
        for name, what in Folder(folder.safe, self.names(folder.pending)).names().items():
            if isinstance(what, Folder):
                self.make(what, path / name)
            else:
                (path / name).write_bytes(changed(what.safe, self.data(what.pending)))
                (path / name).chmod(0o600)


STORED = ("keys", "words")
EDITS = [(["keys", "add", "zqa", KA], "keys"), (["keys", "add", "zqb", GA], "keys"),
         *((["words", "add", word], "words") for word in WORDS),
         (["keys", "remove", "zqa"], "keys"), (["words", "forget", WORDS[0]], "words"), (["keys", "reset"], "keys")]


def stored_in(place):
    """What is stored of each kind."""
    return {"keys": place.keys(), "words": place.words()}


class PowerLoss:
    def __init__(self, options):
        self.options, self.states, self.failures = options, 0, 0

    def home(self):
        return home(self.options.library, self.options.singlish)

    def stored_at_first(self):
        """What is read where nothing is stored: elsewhere, as reading may make files."""
        with self.home() as place:
            return stored_in(place)

    def recorded(self):
        """The calls of each edit, and what is stored after it: a list of both, and the folder they speak of."""
        with self.home() as place:
            edits = []
            for command, _ in EDITS:
                done = place.run(command, at=0)
                assert done.status == 0, done
                edits.append((done.calls, stored_in(place)))
            return edits, place.folder

    def losses(self, number):
        return [Loss(False, False), Loss(False, True), Loss(True, False),
                *(Loss(True, True, random.Random(f"{number} {each}")) for each in range(self.options.chances))]

    def run(self):
        edits, folder = self.recorded()
        disk, before, number = Disk(folder), self.stored_at_first(), 0
        for (calls, after), (command, kind) in zip(edits, EDITS):
            assert before[kind] != after[kind], command
            for call in calls:
                if number % self.options.every == 0:
                    self.look(disk, self.losses(number), f"{' '.join(command)}: before call {number}", (before, after))
                disk.follow(call)
                number += 1
            disk.opened = {}
            before = after
            self.look(disk, self.losses(number), f"{' '.join(command)}: acknowledged", (after,))

    def look(self, disk, losses, when, stored):
        for each, loss in enumerate(losses):
            with self.home() as place:
                loss.make(disk.root, place.folder)
                self.states += 1
                problems = list(self.problems(place, stored))
            if problems:
                self.failures += 1
                print(f"{when}, loss {each}: {'; '.join(problems)}")

    def problems(self, place, stored):
        try:
            left = stored_in(place)
            for kind in STORED:
                if left[kind] not in (wanted := [each[kind] for each in stored]):
                    yield f"{kind} {left[kind]!r}, and not {' or '.join(map(repr, wanted))}"
            for edit in (["keys", "add", "zqc", KA], ["words", "add", WORDS[2]]):
                if (done := place.run(edit)).status != 0 or done.errors:
                    yield f"the next edit: {done}"
        except AssertionError as problem:
            yield str(problem)

    def run_unforced(self):
        """The first edits of each kind, which make folders and files, with one call after the other that fails."""
        edits, _ = self.recorded()
        before = self.stored_at_first()
        for number, (calls, after) in enumerate(edits[:4]):
            for at, call in enumerate(calls, 1):
                if call.name in ("open", "fsync", "fdatasync"):
                    self.unforced(number, at, (before, after))
            before = after

    def unforced(self, number, at, values):
        with self.home() as place:
            disk = Disk(place.folder)
            for command, _ in EDITS[:number]:
                self.follow(disk, place.run(command, at=0))
            command, _ = EDITS[number]
            done = self.follow(disk, place.run(command, at=at, how=errno.EIO))
        call = done.calls[at - 1]
        assert call.result == -1, call
        self.look(disk, [Loss(False, False), Loss(False, True), Loss(True, False)],
                  f"{' '.join(command)}: {call.name} failed, status {done.status}", values[done.status == 0:])

    def follow(self, disk, done):
        for call in done.calls:
            disk.follow(call)
        disk.opened = {}
        return done


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("library", type=Path)
    parser.add_argument("singlish")
    parser.add_argument("--chances", type=int, default=3)
    parser.add_argument("--every", type=int, default=1)
    loss = PowerLoss(parser.parse_args())
    loss.run()
    loss.run_unforced()
    print(f"{loss.states} states of a disk, {loss.failures} failures")
    sys.exit(1 if loss.failures or not loss.states else 0)


if __name__ == "__main__":
    main()
