"""Builds mutants in a copy of the tree and lets the suites that come past them run."""

import os
import subprocess
from collections import Counter, defaultdict
from pathlib import Path

from suites import Programs

START = 0.05  # the seconds in which any test begins

def ordered(mutant, suites, kills):
    """Those that come past the line, and those that are named after the file, which may try how it stops, where
    nothing is counted any more. Where none comes past the line, as with a table, those that come past the file, or all.
    First come those that are most likely to kill in the time that they take: that are named after the file, or killed
    many of its mutants."""
    named = {suite for suite in suites if Path(mutant.path).stem in suite.name}
    passing = [suite for suite in suites if suite.passes(mutant.path, mutant.number)] or \
        [suite for suite in suites if suite.lines.get(mutant.path)] or suites

    def likely(suite):
        return (kills[suite] + (1 if suite in named else 0.1)) / (START + suite.seconds)
    return sorted({*named, *passing}, key=lambda suite: (-likely(suite), str(suite)))


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

    def outcome(self, mutant, suites):
        """What becomes of a mutant, and the name of the suite that killed it, or an empty one."""
        target = self.copy / mutant.path
        text = target.read_text(encoding="utf-8")
        lines = text.split("\n")
        lines[mutant.number - 1] = mutant.form
        target.write_text("\n".join(lines), encoding="utf-8")
        try:
            return self._met(mutant, suites)
        finally:
            target.write_text(text, encoding="utf-8")

    def _met(self, mutant, suites):
        for suite in ordered(mutant, suites, self.kills[mutant.path]):
            if self._refusal(suite.program) is not None:
                return "refused", ""
            status = self.programs.status(suite, 2 + 5 * suite.seconds)
            if status != 0:
                self.kills[mutant.path][suite] += 1
                return "endless" if status is None else "killed", suite.name
        return "alive", ""

    def _refusal(self, *programs):
        """What the compiler or the linker says where it refuses, or None."""
        run = subprocess.run(["ninja", "-C", self.folder, *programs], capture_output=True, text=True, errors="replace",
                             env={**os.environ, "LLVM_PROFILE_FILE": "/dev/null"})
        return run.stdout if run.returncode else None
