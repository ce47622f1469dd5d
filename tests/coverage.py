#!/usr/bin/env python3
"""Says which lines and branches of a folder a run of the coverage preset did not come past: coverage.py FOLDER PROFILE
PROGRAM…; the status is 1 where there are any.

Counted are the branches that somebody wrote: each condition of an if, a loop, a ?:, an && or an ||, and each case, is
to be met both ways. What the compiler adds of its own (for exceptions, for static values, for the library's code) is
no branch here. What was compiled several times, such as a template, counts once: one of its compilations is enough.
A line that says "// out of reach: REASON" is not counted, nor are its branches.
"""

import json
import re
import subprocess
import sys
from collections import defaultdict
from pathlib import Path

OUT_OF_REACH = re.compile(r"// out of reach: \S")


def llvm_cov():
    """The one that belongs to the compiler: they read no other version's files."""
    return subprocess.run(["clang++", "-print-prog-name=llvm-cov"], check=True, capture_output=True,
                          text=True).stdout.strip()


def exported(form, folder, profile, programs):
    first, *others = programs
    more = [part for program in others for part in ("-object", program)]
    return subprocess.run([llvm_cov(), "export", f"-format={form}", f"-instr-profile={profile}", first, *more, folder],
                          check=True, capture_output=True, text=True).stdout


def lines_of(lcov):
    """How often each line ran: {(file, line): count}."""
    counts, file = {}, None
    for record in lcov.splitlines():
        kind, _, value = record.partition(":")
        if kind == "SF":
            file = value
        elif kind == "DA":
            line, count = value.split(",")[:2]
            counts[file, int(line)] = int(count)
    return counts


def branches_of(exported_json):
    """How often each condition was true and false: {(file, line, column, end line, end column): [true, false]}."""
    counts = defaultdict(lambda: [0, 0])
    for file in json.loads(exported_json)["data"][0]["files"]:
        for *place, true, false, _file, _expanded, _kind in file["branches"]:
            both = counts[file["filename"], *place]
            both[0] += true
            both[1] += false
    return counts


class Sources:
    """The text of the files that were counted."""

    def __init__(self):
        self._lines = {}

    def line(self, file, line):
        if file not in self._lines:
            self._lines[file] = Path(file).read_text(encoding="utf-8").splitlines()
        return self._lines[file][line - 1]

    def is_counted(self, file, line):
        return not OUT_OF_REACH.search(self.line(file, line))

    def condition(self, file, line, column, end_line, end_column):
        text = self.line(file, line)
        return text[column - 1:end_column - 1] if line == end_line else text[column - 1:] + " …"


def share(name, reached, all_there):
    return f"{name}: {100 * reached / max(all_there, 1):.2f}% ({reached} out of {all_there})"


def main():
    folder, profile, *programs = sys.argv[1:]
    folder = str(Path(folder).resolve())
    sources = Sources()
    lines = {place: count for place, count in lines_of(exported("lcov", folder, profile, programs)).items()
             if sources.is_counted(*place)}
    branches = {place: both for place, both in branches_of(exported("text", folder, profile, programs)).items()
                if sources.is_counted(*place[:2])}
    if not lines or not branches:
        sys.exit(f"Nothing of {folder} was counted.")
    missed = [(place[0], place[1], f"never run: {sources.line(*place).strip()}")
              for place, count in lines.items() if count == 0]
    missed += [(place[0], place[1], f"never {way}: {sources.condition(*place)}")
               for place, both in branches.items() for way, count in zip(("true", "false"), both)
               if count == 0]
    for file, line, what in sorted(missed):
        print(f"{Path(file).relative_to(Path.cwd())}:{line}: {what}")
    ways = [count for both in branches.values() for count in both]
    print(share("lines", sum(map(bool, lines.values())), len(lines)))
    print(share("branches", sum(map(bool, ways)), len(ways)))
    sys.exit(1 if missed else 0)


if __name__ == "__main__":
    main()
