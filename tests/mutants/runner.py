"""Builds mutants in a copy of the tree and lets the suites that come past them run."""

import contextlib
import functools
import os
import re
import subprocess
import sys
from collections import Counter, defaultdict
from pathlib import Path

from suites import Programs
from together import VARIABLE, Together

START = 0.05  # the seconds in which any test begins


def named_after(path, suites):
    return {suite for suite in suites if Path(path).stem in suite.name}


def of_file(path, suites):
    """Those that come past a file, or all where none does, and those that are named after it, which may try how it
    stops, where nothing is counted any more."""
    return named_after(path, suites) | set([suite for suite in suites if suite.lines.get(path)] or suites)


def ordered(mutant, suites, kills):
    """Those that come past the line, and those that are named after the file; where none comes past the line, as with a
    table, those of the file. First come those that are most likely to kill in the time that they take: that are named
    after the file, or killed many of its mutants."""
    named = named_after(mutant.path, suites)
    passing = {suite for suite in suites if suite.passes(mutant.path, mutant.number)} or of_file(mutant.path, suites)

    def likely(suite):
        return (kills[suite] + (1 if suite in named else 0.1)) / (START + suite.seconds)
    return sorted(named | passing, key=lambda suite: (-likely(suite), str(suite)))


class Runner:
    """A folder that holds a copy of the tree, and what is built from it."""

    def __init__(self, folder, programs):
        self.copy = folder / "tree"
        self.folder = folder / "build"
        self.programs = Programs(self.folder, self.copy)
        refused = self._refusal(*programs)
        if refused is not None:
            raise SystemExit(f"The copy cannot be built:\n{refused}")
        self.kills = defaultdict(Counter)  # how many of a file's mutants each suite has killed

    def outcomes(self, mutants, suites):
        """What becomes of each of a file's mutants, as it comes: the mutant, the outcome, and the name of the suite
        that killed it, or an empty one."""
        for mutant, outcome, suite in self._each(mutants, suites):
            yield mutant, outcome, suite.name if suite else ""

    def _each(self, mutants, suites):
        told = set()
        for mutant, *outcome in self._together(mutants, suites):
            told.add(mutant)
            yield mutant, *outcome
        for mutant in mutants:
            if mutant not in told:
                lines = self._text(mutant.path).split("\n")
                lines[mutant.number - 1] = mutant.form
                with self._written(mutant.path, "\n".join(lines)):
                    yield mutant, *self._met(mutant, suites)

    def _together(self, mutants, suites):
        path = mutants[0].path
        passing = of_file(path, suites)
        # What no suite comes past is worked out while compiling, if at all.
        reached = [mutant for mutant in mutants if any(suite.passes(path, mutant.number) for suite in passing)]
        together = Together(self._text(path), reached)
        while together.numbers:
            with self._written(path, str(together)):
                refusal = self._refusal(*{suite.program for suite in passing})
                if refusal is None:
                    yield from self._chosen(together, suites)
                    return
            # What the compiler refuses there may be refused for being there; or it refuses a template that is used there,
            # which a note tells.
            refused = next(filter(None, (together.to_leave(self._lines(path, kind, refusal))
                                         for kind in ("error", "note"))), None)
            if not refused:
                print(f"{path}: each is built alone, since together the compiler refuses them.", file=sys.stderr)
                return
            together.leave(refused)

    def _lines(self, path, kind, refusal):
        """The lines of a file about which the compiler says something of a kind."""
        of_file = rf"^{re.escape(str(self.copy / path))}:(\d+):\d+: {kind}:"
        return [int(line) for line in re.findall(of_file, refusal, re.MULTILINE)]

    def _chosen(self, together, suites):
        # Only those that kill are asked, and late, since all of them take minutes.
        fails = functools.cache(lambda suite: self._status(suite, 0) != 0)
        for number, mutant in together.numbers.items():
            outcome, suite = self._met(mutant, suites, number)
            if suite and fails(suite):
                print(f"{mutant.path}: each is built alone, since together {suite} fails.", file=sys.stderr)
                return
            if outcome != "alive" or together.is_certain(mutant):
                yield mutant, outcome, suite

    def _text(self, path):
        return (self.copy / path).read_text(encoding="utf-8")

    @contextlib.contextmanager
    def _written(self, path, text):
        """Another text in the place of a file's own."""
        own = self._text(path)
        (self.copy / path).write_text(text, encoding="utf-8")
        try:
            yield
        finally:
            (self.copy / path).write_text(own, encoding="utf-8")

    def _met(self, mutant, suites, number=0):
        """The outcome of one that is built, or chosen, and the suite that killed it, or None."""
        kills = self.kills[mutant.path]
        for suite in ordered(mutant, suites, kills):
            if number == 0 and self._refusal(suite.program) is not None:
                return "refused", None
            status = self._status(suite, number)
            if status != 0:
                kills[suite] += 1
                return "endless" if status is None else "killed", suite
        return "alive", None

    def _status(self, suite, number):
        return self.programs.status(suite, 1 + 5 * suite.seconds, {VARIABLE: str(number)})

    def _refusal(self, *programs):
        """What the compiler or the linker says where it refuses, or None."""
        run = subprocess.run(["ninja", "-C", self.folder, *programs], capture_output=True, text=True, errors="replace",
                             env={**os.environ, "LLVM_PROFILE_FILE": "/dev/null"})
        return run.stdout if run.returncode else None
