#!/usr/bin/env python3
"""Changes single lines of the core, of Vanoka/ and of c/, one at a time, and tells which changes no test notices:
mutants.py [--sample N] [--seed S] [--in FOLDER] [--list] [PATH…].

Each mutant is built in a copy of the tree, in build/mutants, and meets the tests that know its floor, the nearest
first. It is
    killed    when a test fails or crashes,
    endless   when one takes five times as long as it did without the change, and ten seconds, which kills it too,
    refused   when the compiler or the linker does,
    listed    when equivalent.txt says why nobody could notice it,
    alive     otherwise; then the status is 1.
With --sample, N of the mutants are taken, as many of one file as of another. Without a PATH, all files are meant.
"""

import argparse
import os
import random
import re
import shutil
import signal
import subprocess
import sys
import time
from collections import Counter
from dataclasses import dataclass
from pathlib import Path

import mutations

TOP = Path(__file__).resolve().parents[2]
FLOORS = ("core", "Vanoka", "c")
EQUIVALENT = Path(__file__).parent / "equivalent.txt"

# The tests in the order in which they are most likely to notice a change of a folder; the longest folder counts.
# All others come after them.
NEAREST = {
    "core": ["core_tests", "words_tests"],
    "core/words": ["words_tests", "application_tests"],
    "core/text/Rows": ["words_tests"],
    "core/text/Hasher": ["words_tests"],
    "core/settings": ["core_tests", "application_tests"],
    "core/settings/SharedSettings": ["linux_tests"],
    "core/settings/UserDefaults": ["core_tests", "linux_tests"],
    "Vanoka": ["application_tests", "c_tests"],
    "c": ["c_tests", "c_every_call", "c_memory_tests"],
}
ALL_TESTS = ["core_tests", "words_tests", "application_tests", "c_tests", "c_every_call", "c_memory_tests",
             "linux_tests", "threads_tests"]
PLAIN_PROGRAMS = {"c_every_call"}  # they know no options


@dataclass(frozen=True)
class Mutant:
    path: str
    number: int
    line: str
    form: str

    @property
    def key(self):
        return self.path, self.line.strip(), self.form.strip()

    def __str__(self):
        return f"{self.path}:{self.number}\n  - {self.line.strip()}\n  + {self.form.strip() or '(nothing)'}"


def files(paths):
    for path in paths:
        found = TOP / path
        if found.is_file():
            yield path
        elif found.is_dir():
            for file in sorted(found.rglob("*")):
                if file.suffix in (".cpp", ".h"):
                    yield str(file.relative_to(TOP))
        else:
            sys.exit(f"There is no {path}.")


def mutants_of(path):
    text = (TOP / path).read_text(encoding="utf-8")
    return [Mutant(path, *each) for each in mutations.of_text(text)]


def sample(by_file, count, seed):
    """`count` mutants, taken in turn from all files, so that none is left out while there are enough."""
    chance = random.Random(seed)
    left = {path: chance.sample(mutants, len(mutants)) for path, mutants in sorted(by_file.items())}
    order = chance.sample(sorted(left), len(left))
    taken = []
    while len(taken) < count and any(left.values()):
        for path in order:
            if left[path] and len(taken) < count:
                taken.append(left[path].pop())
    return sorted(taken, key=lambda each: (each.path, each.number, each.form))


class Equivalents:
    """The changes that nobody could notice: paragraphs of a path, the line, what it became and the reason. They are
    found by their text, so that lines may move."""

    def __init__(self, text):
        self.reasons = {}
        for paragraph in re.split(r"\n\s*\n", text.strip()):
            lines = [line for line in paragraph.splitlines() if not line.startswith("#")]
            if not lines:
                continue
            path, was, became, *reason = lines
            if not (was.startswith("- ") and became.startswith("+ ") and reason):
                sys.exit(f"A path, - a line, + what it became and the reason are expected:\n{paragraph}")
            self.reasons[path, was[2:].strip(), became[2:].strip()] = " ".join(reason)

    def stale(self, by_file):
        """Those that match no mutant any more, of the files that were looked at."""
        keys = {each.key for mutants in by_file.values() for each in mutants}
        return [key for key in self.reasons if key[0] in by_file and key not in keys]

    def of_no_file(self):
        return [key for key in self.reasons if not (TOP / key[0]).is_file()]


def copy_tree(copy):
    """What the tests are built from, as it is now; what has not changed is left, with its time."""
    wanted = set()
    listing = subprocess.run(["git", "-C", TOP, "ls-files", "-z", "--cached", "--others", "--exclude-standard"],
                             check=True, capture_output=True).stdout.decode().split("\0")
    for name in filter(None, listing):
        source, target = TOP / name, copy / name
        if not source.is_file():
            continue
        wanted.add(target)
        if not target.is_file() or target.read_bytes() != source.read_bytes():
            target.parent.mkdir(parents=True, exist_ok=True)
            shutil.copy(source, target)
    for old in [path for path in copy.rglob("*") if path.is_file() and path not in wanted]:
        old.unlink()


def tests_for(path):
    folder = max((each for each in NEAREST if path.startswith(each)), key=len)
    return NEAREST[folder] + [test for test in ALL_TESTS if test not in NEAREST[folder]]


class Runner:
    """Builds and tests mutants in a folder that holds a copy of the tree. What is not mutated passes all tests; that
    also tells how long they take."""

    def __init__(self, folder, tests):
        self.copy = folder / "tree"
        self.folder = folder / "build"
        self.limits = {}
        for test in tests:
            refused = self._refusal(test)
            if refused is not None:
                sys.exit(f"The copy cannot be built:\n{refused}")
            start = time.monotonic()
            if self._result(test, 600) != 0:
                sys.exit(f"{test} fails already without a mutant.")
            self.limits[test] = 10 + 5 * (time.monotonic() - start)

    def outcome(self, mutant):
        target = self.copy / mutant.path
        text = target.read_text(encoding="utf-8")
        lines = text.split("\n")
        lines[mutant.number - 1] = mutant.form
        target.write_text("\n".join(lines), encoding="utf-8")
        try:
            for test in tests_for(mutant.path):
                if self._refusal(test) is not None:
                    return "refused"
                result = self._result(test, self.limits[test])
                if result != 0:
                    return "endless" if result is None else "killed"
            return "alive"
        finally:
            target.write_text(text, encoding="utf-8")

    def _refusal(self, test):
        """What the compiler or the linker says where it refuses, or None."""
        run = subprocess.run(["cmake", "--build", self.folder, "--target", test], capture_output=True, text=True,
                             errors="replace")
        return run.stdout if run.returncode else None

    def _result(self, test, seconds):
        """The status of a test; None when the time is over."""
        command = [str(self.folder / "bin" / test)]
        if test not in PLAIN_PROGRAMS:
            command += ["--gtest_brief", "--gtest_fail_fast"]
        run = subprocess.Popen(command, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, start_new_session=True,
                               cwd=self.folder, env={**os.environ, "RC_PARAMS": "seed=1"})
        try:
            return run.wait(seconds)
        except subprocess.TimeoutExpired:
            os.killpg(run.pid, signal.SIGKILL)
            run.wait()
            return None


def arguments():
    parser = argparse.ArgumentParser(prog="scripts/mutants", description=__doc__,
                                     formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--sample", type=int, metavar="N")
    parser.add_argument("--seed", type=int, default=1, metavar="S")
    parser.add_argument("--in", dest="within", default=TOP / "build/mutants", metavar="FOLDER",
                        help="where they are built: one for each run that goes on at the same time")
    parser.add_argument("--list", action="store_true", help="print the mutants and try none")
    parser.add_argument("paths", nargs="*", metavar="PATH", default=FLOORS)
    return parser.parse_args()


def main():
    options = arguments()
    by_file = {path: mutants_of(path) for path in files(options.paths or FLOORS)}
    count = sum(map(len, by_file.values()))
    chosen = sample(by_file, count if options.sample is None else options.sample, options.seed)
    if options.list:
        print(*chosen, sep="\n")
        return 0
    equivalents = Equivalents(EQUIVALENT.read_text(encoding="utf-8"))
    stale = equivalents.stale(by_file) + equivalents.of_no_file()
    for path, was, became in stale:
        print(f"stale: {path} has no longer\n  - {was}\n  + {became}")

    folder = Path(options.within).resolve()
    copy_tree(folder / "tree")
    subprocess.run(["cmake", "--preset", "mutants", "-S", folder / "tree", "-B", folder / "build"], check=True,
                   cwd=folder / "tree", stdout=subprocess.DEVNULL)
    runner = Runner(folder, ALL_TESTS)
    outcomes = Counter()
    for at, mutant in enumerate(chosen, 1):
        outcome = "listed" if mutant.key in equivalents.reasons else runner.outcome(mutant)
        outcomes[outcome] += 1
        if outcome == "alive":
            print(f"alive: {mutant}", flush=True)
        print(f"[{at}/{len(chosen)}] {outcome} {mutant.path}:{mutant.number}", file=sys.stderr, flush=True)
    print(f"{len(chosen)} of {count} mutants: " +
          ", ".join(f"{outcomes[name]} {name}" for name in ("killed", "endless", "refused", "listed", "alive")))
    return 1 if outcomes["alive"] or stale else 0


if __name__ == "__main__":
    sys.exit(main())
