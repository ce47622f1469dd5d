#!/usr/bin/env python3
"""Makes each call of a run fail, one after the other, and kills the program at each: sweep.py LIBRARY SINGLISH
[--every N] [--only NAME] [--calls NAME] [--memory N].

After each: the call has failed indeed; the status is one of the table, and a failure names the error in the system's
words; what is stored is the old value or the new one, and the new one if the program said so; the keys that are stored
type their letters; and the next run does what it should. --every takes one call of N, --only one of the scenarios,
--calls the calls of one name. With --memory, one request for memory of N is what fails, and then the program may also
give up.
"""

import argparse
import errno
import itertools
import os
import signal
import sys
from dataclasses import dataclass, field
from pathlib import Path

from runs import TRANSFERS, WRITES, Home, home, wrongs

KA, GA, U = "\u0d9a", "\u0d9c", "\u0dd4"
GEDARA, AMMA = "\u0d9c\u0dd9\u0daf\u0dbb", "\u0d85\u0db8\u0dca\u0db8"
STATUSES = (0, 1, 2, 3)

# What is said in other words than the system's where calls of these names fail in SQLite: it forgets the system's error
# when it takes a transaction back, opens for reading alone what it cannot write, and takes any refusal of a lock for
# one that another program has.
OTHER_WORDS = {
    "disk I/O error": ("pread", "pwrite", "fdatasync", "ftruncate", "fcntl", "unlink", "stat"),
    "it cannot be opened for writing": ("open",),
    "another program keeps it locked, or the system gives no locks": ("fcntl",),
    "out of memory": ("malloc",),
    "terminate called": ("malloc",),  # with no memory for a reason, now and then
}


def no_state(_):
    return None


def keys_that_type(place):
    """The keys that are stored, each of which types its letter."""
    keys = place.keys()
    given = "".join(f"{key}u\n" for key, _ in keys) + "mu\n"
    letters = "".join(f"{letter}{U}\n" for _, letter in keys) + f"\u0db8{U}\n"
    typed = place.run([], given.encode()).output.decode()
    if typed != letters:
        raise AssertionError(f"{given!r} typed {typed!r}, and not {letters!r}")
    return keys


@dataclass
class Scenario:
    """A command, what stands before it, and how what is stored is read."""
    name: str
    command: list
    before: list = field(default_factory=list)  # commands
    files: dict = field(default_factory=dict)  # their texts by name, in the home
    given: bytes = b""
    comes: str = ""  # among what it puts out
    state: object = no_state
    program: str = "singlish"


KEYS = '{"addedKeys":[{"key":"zi","letter":"%s"},{"key":"zj","letter":"%s"}],"disabledKeys":["a"]}' % (KA, GA)
WORDS = f"{GEDARA}\t3\nmate\tenglish\t3\t1\n{AMMA}\tforgotten\n"
A_KEY, A_WORD = ["keys", "add", "zq", KA], ["words", "add", AMMA]
SCENARIOS = [
    Scenario("the first key", ["keys", "add", "zr", GA], comes=f"zra \u2192 {GA}", state=keys_that_type),
    Scenario("another key", ["keys", "add", "zr", GA], before=[A_KEY], state=keys_that_type),
    Scenario("removing a key", ["keys", "remove", "zq"], before=[A_KEY], state=keys_that_type),
    Scenario("importing keys", ["keys", "import", "-"], before=[A_KEY], given=KEYS.encode(), state=keys_that_type),
    Scenario("the filter", [], before=[A_KEY], given=b"amma zqa gedhara\n" * 10000,
             comes=f"{AMMA} {KA} {GEDARA}\n" * 10000, state=keys_that_type),
    Scenario("the first word", ["words", "add", GEDARA], state=Home.words),
    Scenario("another word", ["words", "add", GEDARA], before=[A_WORD], state=Home.words),
    Scenario("forgetting a word", ["words", "forget", AMMA], before=[A_WORD], state=Home.words),
    Scenario("importing words", ["words", "import", "-"], before=[A_WORD], given=WORDS.encode(), state=Home.words),
    Scenario("a list", ["suggest", "list"], files={"list": f"{GEDARA}\t5\n"}, given=b"gedara\n", comes=GEDARA,
             program="vanoka-lists"),
]


class Sweep:
    def __init__(self, options):
        self.options = options
        self.runs = self.failures = 0

    def home(self, scenario):
        return home(self.options.library, self.options.singlish.parent / scenario.program)

    def prepare(self, scenario, place):
        for name, text in scenario.files.items():
            (place.folder / name).write_text(text, encoding="utf-8")
        for command in scenario.before:
            done = place.run(command)
            assert done.status == 0, done

    def plain(self, scenario):
        """A run in which nothing goes wrong, and what is stored before it, after it and after another one."""
        with self.home(scenario) as place:
            self.prepare(scenario, place)
            before = scenario.state(place)
            done = place.run(scenario.command, scenario.given, at=0)
            assert done.status == 0 and scenario.comes in done.output.decode(), done
            once = scenario.state(place)
            place.run(scenario.command, scenario.given)
            return done, before, once, scenario.state(place)

    def turns(self, calls):
        for number, call in itertools.islice(enumerate(calls, 1), 0, None, self.options.every):
            if self.options.calls not in (None, call.name):
                continue
            for wrong in (*wrongs(call.name), "kill", *(("torn",) if call.name in WRITES else ())):
                yield number, call, wrong

    def scenario(self, scenario):
        plain, *values = self.plain(scenario)
        if self.options.memory:
            number = 1
            while self.run(scenario, plain, values, "malloc", at=number, how=errno.ENOMEM, memory=1):
                number += self.options.memory
            return
        for number, call, wrong in self.turns(plain.calls):
            self.run(scenario, plain, values, f"{call.name} {' '.join(call.about)[:100]}", at=number, how=wrong)

    def run(self, scenario, plain, values, what, **fault):
        """Whether there was a call to go wrong."""
        with self.home(scenario) as place:
            self.prepare(scenario, place)
            done = place.run(scenario.command, scenario.given, **fault)
            if "memory" in fault and not done.calls:
                return False
            self.runs += 1
            problems = [*self.problems_of_run(what, done, fault, plain),
                        *self.problems_afterwards(scenario, place, done, values)]
        if problems:
            self.failures += 1
            how = errno.errorcode.get(fault["how"], fault["how"])
            print(f"{scenario.name}: call {fault['at']}, {what}: {how}: status {done.status}, "
                  f"{done.errors.strip()!r}: {'; '.join(problems)}")
        return True

    def problems_of_run(self, what, done, fault, plain):
        how = fault["how"]
        if how in ("kill", "torn"):
            if done.status != -signal.SIGKILL:
                yield "it was not killed"
            return
        if how != "short" and "memory" not in fault and done.calls[fault["at"] - 1].result != -1:
            yield "the call has not failed"
        has_given_up = "memory" in fault and done.status == -signal.SIGABRT
        if done.status not in STATUSES and not has_given_up:
            yield "no such status"
        if done.status == 0 and done.output != plain.output:
            yield "what it put out is not what it should be"
        if done.status != 0 and not says_why(done.errors, what.split(" ")[0], how):
            yield "it does not say why"

    def problems_afterwards(self, scenario, place, done, values):
        before, once, twice = values
        try:
            left = scenario.state(place)
            if left not in (before, once):
                yield f"neither the old value nor the new one is there: {left}"
            if done.status == 0 and left != once:
                yield "the new value is not there"
            again = place.run(scenario.command, scenario.given)
            if left == before and again.status != 0:
                yield f"the next run: {again.errors.strip()}"
            if scenario.state(place) != (once if left == before else twice):
                yield "the next run did not do it"
        except AssertionError as problem:
            yield str(problem)


def says_why(said, call, how):
    """Whether a message names the error that a call of this name has met."""
    if how == "short":
        return said.strip()
    return os.strerror(how) in said or any(words in said and call in calls for words, calls in OTHER_WORDS.items())


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("library", type=Path)
    parser.add_argument("singlish", type=Path)
    parser.add_argument("--every", type=int, default=1)
    parser.add_argument("--only")
    parser.add_argument("--calls")
    parser.add_argument("--memory", type=int)
    sweep = Sweep(parser.parse_args())
    for scenario in SCENARIOS:
        if sweep.options.only in (None, scenario.name):
            sweep.scenario(scenario)
    print(f"{sweep.runs} runs, {sweep.failures} failures")
    sys.exit(1 if sweep.failures or not sweep.runs else 0)


if __name__ == "__main__":
    main()
