#!/usr/bin/env python3
"""Changes single lines of the core, of Vanoka/ and of c/, one at a time, and tells which changes no test notices:
mutants.py [--sample N] [--seed S] [--jobs N] [--resume] [--known] [--in FOLDER] [--list] [PATH…].

Each mutant is built in a copy of the tree, in build/mutants, and meets the test suites that come past its line, the
most likely first. It is
    killed    when a test fails or crashes,
    endless   when one takes five times as long as it did without the change, and a second, which kills it too,
    refused   when the compiler or the linker does,
    listed    when equivalent.txt says why nobody could notice it,
    alive     otherwise; then the status is 1, as it is when --known knows nothing of one.
With --sample, N of the mutants are taken, as many of one file as of another. Without a PATH, all files are meant.
What became of each is kept: a run that was interrupted goes on with --resume, and --known tells it without a run. It
holds until the mutant's file or the tests that decided change; what else they are built from is not looked at.
"""

import argparse
import itertools
import queue
import random
import re
import shutil
import subprocess
import sys
import threading
from collections import Counter, defaultdict
from concurrent.futures import ThreadPoolExecutor
from dataclasses import dataclass
from pathlib import Path

import mutations
from outcomes import Outcomes
from runner import Runner

TOP = Path(__file__).resolve().parents[2]
FLOORS = ("core", "Vanoka", "c")
EQUIVALENT = Path(__file__).parent / "equivalent.txt"

PROGRAMS = ["core_tests", "words_tests", "application_tests", "c_tests", "c_every_call", "c_memory_tests",
            "linux_tests", "threads_tests"]
OUTCOMES = ("killed", "endless", "refused", "listed", "alive")


@dataclass(frozen=True)
class Mutant:
    path: str
    number: int
    line: str
    form: str
    after: str = ""  # the line after it

    @property
    def keys(self):
        """By what the list knows it: the line alone, or with the one after it."""
        key = self.path, self.line.strip(), self.form.strip()
        return (*key, ""), (*key, self.after.strip())

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
    lines = text.split("\n")
    return [Mutant(path, number, line, form, lines[number] if number < len(lines) else "")
            for number, line, form in mutations.of_text(text)]


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
    # File by file, so that little is built anew; the headers last, since each is part of many files.
    paths = sorted(by_file, key=lambda path: path.endswith(".h"))
    return sorted(taken, key=lambda each: (paths.index(each.path), each.number, each.form))


class Equivalents:
    """The changes that nobody could notice: paragraphs of a path, the line, each that it became and the reason. They
    are found by their text, so that lines may move. Where the same line stands elsewhere too and the change is noticed
    there, the line after it is named as well."""

    def __init__(self, text):
        self.reasons = {}
        for paragraph in re.split(r"\n\s*\n", text.strip()):
            lines = [line for line in paragraph.splitlines() if not line.startswith("#")]
            if not lines:
                continue
            path, *rest = lines
            known = [line[2:].strip() for line in itertools.takewhile(lambda line: line.startswith("- "), rest)]
            becomes = list(itertools.takewhile(lambda line: line.startswith("+ "), rest[len(known):]))
            reason = " ".join(rest[len(known) + len(becomes):])
            if not (len(known) in (1, 2) and becomes and reason):
                sys.exit(f"A path, - a line, + what it became and the reason are expected:\n{paragraph}")
            was, after = [*known, ""][:2]
            for became in becomes:
                self.reasons[path, was, became[2:].strip(), after] = reason

    def hold(self, mutant):
        return any(key in self.reasons for key in mutant.keys)

    def stale(self, by_file):
        """Those that match no mutant any more, of the files that were looked at."""
        keys = {key for mutants in by_file.values() for each in mutants for key in each.keys}
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


class Folders:
    """The places in which mutants are built, one for each that is tried at the same time."""

    def __init__(self, folder, jobs):
        self.runners = [self._runner(folder / str(at) if at else folder) for at in range(jobs)]
        programs = self.runners[0].programs
        self.suites = [suite for program in PROGRAMS for suite in programs.suites(program)]

    @staticmethod
    def _runner(folder):
        copy_tree(folder / "tree")
        # What cmake tells is nothing that a folder of its own would not: the one that stands is gone on with.
        subprocess.run(["cmake", "--preset", "mutants", "-S", folder / "tree", "-B", folder / "build"], check=True,
                       cwd=folder / "tree", stdout=subprocess.DEVNULL)
        return Runner(folder, PROGRAMS)

    def each(self, by_file, action):
        """Hands each file's mutants to a folder that is free: action(runner, mutants)."""
        free = queue.SimpleQueue()
        for runner in self.runners:
            free.put(runner)

        def act(mutants):
            runner = free.get()
            try:
                action(runner, mutants)
            finally:
                free.put(runner)
        with ThreadPoolExecutor(len(self.runners)) as pool:
            list(pool.map(act, by_file))


class Report:
    """Tells which mutants are alive, and in the end how many of each folder became what."""

    def __init__(self):
        self.told = 0
        self.folders = defaultdict(Counter)

    def tell(self, mutant, outcome):
        self.told += 1
        self.folders[str(Path(mutant.path).parent)][outcome] += 1
        if outcome == "alive":
            print(f"alive: {mutant}", flush=True)

    def sum(self):
        all_folders = Counter()
        for folder, outcomes in self.folders.items():
            all_folders.update(outcomes)
            print(f"{folder}: {self._line(outcomes)}")
        print(f"{sum(all_folders.values())} mutants: {self._line(all_folders)}")
        return all_folders

    @staticmethod
    def _line(outcomes):
        names = OUTCOMES + (("not run",) if outcomes["not run"] else ())
        return ", ".join(f"{outcomes[name]} {name}" for name in names)


def arguments():
    parser = argparse.ArgumentParser(prog="scripts/mutants", description=__doc__,
                                     formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--sample", type=int, metavar="N")
    parser.add_argument("--seed", type=int, default=1, metavar="S")
    parser.add_argument("--jobs", type=int, default=1, metavar="N", help="how many are tried at the same time")
    parser.add_argument("--resume", action="store_true", help="try none again whose outcome is known and holds")
    parser.add_argument("--known", action="store_true", help="try none; tell what is known of them")
    parser.add_argument("--in", dest="within", default=TOP / "build/mutants", metavar="FOLDER",
                        help="where they are built, and what became of them is kept")
    parser.add_argument("--list", action="store_true", help="print the mutants and try none")
    parser.add_argument("paths", nargs="*", metavar="PATH", default=FLOORS)
    return parser.parse_args()


def try_each(chosen, folders, known, outcomes, report):
    """Tries what is not known yet."""
    lock = threading.Lock()

    def tell(mutant, outcome, by=""):
        report.tell(mutant, outcome)
        print(f"[{report.told}/{len(chosen)}] {outcome} {mutant.path}:{mutant.number} {by}".rstrip(), file=sys.stderr,
              flush=True)

    def try_all(runner, mutants):
        unknown = [mutant for mutant in mutants if known(mutant) is None]
        with lock:
            for mutant in mutants:
                if mutant not in unknown:
                    tell(mutant, known(mutant))
        for mutant, outcome, by in runner.outcomes(unknown, folders.suites) if unknown else ():
            with lock:
                outcomes.add(mutant, outcome, by)
                tell(mutant, outcome, by)
    folders.each([list(mutants) for _, mutants in itertools.groupby(chosen, key=lambda mutant: mutant.path)], try_all)


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
    for path, was, became, after in stale:
        print(f"stale: {path} has no longer\n  - {was}\n  + {became}{after and f' (before {after})'}")

    folder, report = Path(options.within).resolve(), Report()
    folders = None if options.known else Folders(folder, options.jobs)
    # What is tried is the copy, whatever is written meanwhile.
    outcomes = Outcomes(folder / "outcomes", TOP if options.known else folder / "tree")

    def known(mutant):
        if equivalents.hold(mutant):
            return "listed"
        outcome = outcomes.known(mutant)
        return outcome if options.resume or options.known else None

    if options.known:
        for mutant in chosen:
            report.tell(mutant, known(mutant) or "not run")
    else:
        try_each(chosen, folders, known, outcomes, report)
    print(f"Of {count} mutants:")
    sums = report.sum()
    return 1 if sums["alive"] or sums["not run"] or stale else 0


if __name__ == "__main__":
    sys.exit(main())
