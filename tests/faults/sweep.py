#!/usr/bin/env python3
"""Makes each call of a run fail, one after the other, and kills the program at each: sweep.py LIBRARY SINGLISH
[--every N] [--only NAME] [--calls NAME]
[--memory N].

After each: the status is one of the table, a failure says why, what is stored is the old value or the new one, and
the new one if the program said so; and the next run does what it should. --every takes one call of N, --only one
of the scenarios, --calls the calls of one name. With --memory, one request for memory of N is what fails, and then
the program may also give up.
"""

import argparse
import errno
import itertools
import signal
import sys
from dataclasses import dataclass, field
from pathlib import Path

from runs import TRANSFERS, Home, home, wrongs

KA, GA = "\u0d9a", "\u0d9c"
GEDARA, AMMA = "\u0d9c\u0dd9\u0daf\u0dbb", "\u0d85\u0db8\u0dca\u0db8"
STATUSES = (0, 1, 2, 3)


def no_state(_):
    return None


@dataclass
class Scenario:
    """A command, what stands before it, and how what is stored is read."""
    name: str
    command: list
    before: list = field(default_factory=list)  # commands
    given: bytes = b""
    state: object = no_state
    program: str = "singlish"


KEYS = '{"addedKeys":[{"key":"zi","letter":"%s"},{"key":"zj","letter":"%s"}],"disabledKeys":["a"]}' % (KA, GA)
WORDS = f"{GEDARA}\t3\nmate\tenglish\t3\t1\n{AMMA}\tforgotten\n"
A_KEY, A_WORD = ["keys", "add", "zq", KA], ["words", "add", AMMA]
SCENARIOS = [
    Scenario("the first key", ["keys", "add", "zr", GA], state=Home.keys),
    Scenario("another key", ["keys", "add", "zr", GA], before=[A_KEY], state=Home.keys),
    Scenario("removing a key", ["keys", "remove", "zq"], before=[A_KEY], state=Home.keys),
    Scenario("importing keys", ["keys", "import", "-"], before=[A_KEY], given=KEYS.encode(), state=Home.keys),
    Scenario("the filter", [], before=[A_KEY], given=b"amma zqa gedhara\n" * 10000, state=Home.keys),
    Scenario("the first word", ["words", "add", GEDARA], state=Home.words),
    Scenario("another word", ["words", "add", GEDARA], before=[A_WORD], state=Home.words),
    Scenario("forgetting a word", ["words", "forget", AMMA], before=[A_WORD], state=Home.words),
    Scenario("importing words", ["words", "import", "-"], before=[A_WORD], given=WORDS.encode(), state=Home.words),
    Scenario("a list", ["suggest", "-"], given=f"{GEDARA}\t5\n".encode(), program="vanoka-lists"),
]


class Sweep:
    def __init__(self, options):
        self.options = options
        self.runs = self.failures = 0

    def home(self, scenario):
        return home(self.options.library, str(self.options.singlish.parent / scenario.program))

    def prepared(self, scenario, place):
        for command in scenario.before:
            done = place.run(command)
            assert done.status == 0, done

    def plain(self, scenario):
        """A run in which nothing goes wrong, and what is stored before and after it."""
        with self.home(scenario) as place:
            self.prepared(scenario, place)
            before = scenario.state(place)
            done = place.run(scenario.command, scenario.given, at=0)
            assert done.status == 0, done
            return done, before, scenario.state(place)

    def turns(self, calls):
        for number, call in itertools.islice(enumerate(calls, 1), 0, None, self.options.every):
            if self.options.calls not in (None, call.name):
                continue
            for wrong in (*wrongs(call.name), "kill", *(("torn",) if call.name in TRANSFERS[2:] else ())):
                yield number, call, wrong

    def scenario(self, scenario):
        plain, *values = self.plain(scenario)
        if self.options.memory:
            number = 1
            while self.run(scenario, plain, values, "request for memory", at=number, how=errno.ENOMEM, memory=1).calls:
                number += self.options.memory
            return
        for number, call, wrong in self.turns(plain.calls):
            self.run(scenario, plain, values, f"{call.name} {' '.join(call.about)[:100]}", at=number, how=wrong)

    def run(self, scenario, plain, values, what, **fault):
        with self.home(scenario) as place:
            self.prepared(scenario, place)
            done = place.run(scenario.command, scenario.given, **fault)
            self.runs += 1
            problems = list(self.problems(scenario, place, done, fault, plain, values))
        if problems:
            self.failures += 1
            how = errno.errorcode.get(fault["how"], fault["how"])
            print(f"{scenario.name}: call {fault['at']}, {what}: {how}: status {done.status}, "
                  f"{done.errors.strip()!r}: {'; '.join(problems)}")
        return done

    def problems(self, scenario, place, done, fault, plain, values):
        if fault["how"] in ("kill", "torn"):
            if done.status != -signal.SIGKILL:
                yield "it was not killed"
        else:
            if done.status not in STATUSES and not ("memory" in fault and done.status == -signal.SIGABRT):
                yield "no such status"
            if done.status != 0 and not done.errors.strip():
                yield "it does not say why"
            if done.status == 0 and done.output != plain.output:
                yield "what it put out is not what it should be"
        try:
            left = scenario.state(place)
            if left not in values:
                yield f"neither the old value nor the new one is there: {left}"
            if done.status == 0 and left != values[1]:
                yield "the new value is not there"
            again = place.run(scenario.command, scenario.given)
            if left == values[0] and again.status != 0:
                yield f"the next run: {again.errors.strip()}"
            if scenario.state(place) != values[1] and not (left == values[1] and "add" in scenario.command):
                yield "the next run did not do it"
        except AssertionError as problem:
            yield str(problem)


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
