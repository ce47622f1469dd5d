#!/usr/bin/env python3
"""Changes single lines of the core, of Vanoka/ and of c/, one at a time, and tells which changes no test notices:
mutants.py [--sample N] [--seed S] [--jobs N] [--resume] [--known] [--listed] [--in FOLDER] [--list] [PATH…].

Each mutant is built in a copy of the tree, in build/mutants, and meets the test suites that come past its line, the
most likely first. It is
    killed    when a test fails or crashes,
    endless   when one takes five times as long as it did without the change, and a second, which kills it too,
    refused   when the compiler or the linker does,
    listed    when equivalent.txt says why nobody could notice it,
    alive     otherwise; then the status is 1, as it is when --known knows nothing of one.
With --sample, N of the mutants are taken, as many of one file as of another. Without a PATH, all files are meant.
With --listed, only those are meant that equivalent.txt lists, and they are tried like all others: where one is killed,
endless or refused, its reason is false, and the status is 1. Whoever lists one asks so whether it may be.
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
MOST_AFTER = 2
OUTCOMES = ("killed", "endless", "refused", "listed", "alive")


@dataclass(frozen=True)
class Mutant:
    path: str
    number: int
    line: str
    form: str
    after: tuple = ()  # the lines after it that are not empty

    @property
    def keys(self):
        """By what the list knows it: the line alone, or with some of those after it."""
        return [(self.path, self.line.strip(), self.form.strip(), self.after[:count])
                for count in range(len(self.after) + 1)]

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

    def after(number):
        return tuple(itertools.islice(filter(None, map(str.strip, lines[number:])), MOST_AFTER))
    return [Mutant(path, number, line, form, after(number)) for number, line, form in mutations.of_text(text)]


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
    are found by their text, so that lines may move. Where the same line stands elsewhere too, those after it are named
    as well; or it begins with -- where all of them are meant."""

    def __init__(self, text):
        self.reasons = {}
        self.of_several = set()  # those that are meant wherever the line stands
        for paragraph in re.split(r"\n\s*\n", text.strip()):
            lines = [line for line in paragraph.splitlines() if not line.startswith("#")]
            if not lines:
                continue
            path, *rest = lines
            known = list(itertools.takewhile(lambda line: line.startswith(("- ", "-- ")), rest))
            becomes = list(itertools.takewhile(lambda line: line.startswith("+ "), rest[len(known):]))
            reason = " ".join(rest[len(known) + len(becomes):])
            if not (1 <= len(known) <= 1 + MOST_AFTER and becomes and reason):
                sys.exit(f"A path, - a line, + what it became and the reason are expected:\n{paragraph}")
            was, *after = [line.split(" ", 1)[1].strip() for line in known]
            for became in becomes:
                key = path, was, became[2:].strip(), tuple(after)
                self.reasons[key] = reason
                if known[0].startswith("-- "):
                    self.of_several.add(key)

    def hold(self, mutant):
        return any(key in self.reasons for key in mutant.keys)

    def stale(self, by_file):
        """Those that match no mutant any more, of the files that were looked at."""
        keys = {key for mutants in by_file.values() for each in mutants for key in each.keys}
        return [key for key in self.reasons if key[0] in by_file and key not in keys]

    def ambiguous(self, by_file):
        """Those that match several lines where one is meant, or one where several are."""
        numbers = defaultdict(set)
        for each in itertools.chain.from_iterable(by_file.values()):
            for key in each.keys:
                numbers[key].add(each.number)
        return [key for key in self.reasons if key in numbers and (len(numbers[key]) > 1) != (key in self.of_several)]

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
    """Tells which mutants are alive, or, of those that are listed, which are not, and in the end how many of each
    folder became what."""

    def __init__(self, are_listed):
        self.unwanted = ("killed", "endless", "refused") if are_listed else ("alive",)
        self.lives = "listed" if are_listed else "alive"
        self.told = 0
        self.folders = defaultdict(Counter)

    def tell(self, mutant, outcome):
        self.told += 1
        outcome = self.lives if outcome == "alive" else outcome
        self.folders[str(Path(mutant.path).parent)][outcome] += 1
        if outcome in self.unwanted:
            print(f"{outcome}: {mutant}", flush=True)

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
    parser.add_argument("--listed", action="store_true", help="try those that are listed as ones that nobody notices")
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
    equivalents = Equivalents(EQUIVALENT.read_text(encoding="utf-8"))
    meant = {path: list(filter(equivalents.hold, mutants)) if options.listed else mutants
             for path, mutants in by_file.items()}
    chosen = sample(meant, count if options.sample is None else options.sample, options.seed)
    if options.list:
        print(*chosen, sep="\n")
        return 0
    stale = equivalents.stale(by_file) + equivalents.of_no_file()
    for path, was, became, after in stale:
        print(f"stale: {path} has no longer\n  - {was}\n  + {became}{after and f' (before {after[0]})' or ''}")

    folder, report = Path(options.within).resolve(), Report(options.listed)
    folders = None if options.known else Folders(folder, options.jobs)
    # What is tried is the copy, whatever is written meanwhile.
    outcomes = Outcomes(folder / "outcomes", TOP if options.known else folder / "tree")

    def known(mutant):
        if equivalents.hold(mutant) and not options.listed:
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
    return 1 if any(sums[outcome] for outcome in (*report.unwanted, "not run")) or stale else 0


if __name__ == "__main__":
    sys.exit(main())
