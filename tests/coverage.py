#!/usr/bin/env python3
"""Says which functions, lines and branches of a folder a run of the coverage preset did not come past: coverage.py
FOLDER PROFILE PROGRAM…; the status is 1 where there are any.

Functions count beside lines, since one that stands within a line, such as a lambda, is not called where the line runs.

Counted are the branches that somebody wrote: each condition of an if, a loop, a ?:, an && or an ||, and each case, is
to be met both ways. What the compiler adds of its own (for exceptions, for static values, for the library's code) is
no branch here. What was compiled several times, such as a template, counts once: one of its compilations is enough.
Not counted are
- constexpr functions of which the compiler made no code, since they run while it compiles and nowhere else,
- the way past all cases of a switch that has no default, which the warnings keep complete,
- the comparisons of fields in an operator that the compiler writes, since nobody can have got one wrong,
- conditions that are never asked: their line, the one before them, or their function is told instead, where the answer
  is not one that a template knows beforehand,
- lines that say "// out of reach: REASON", with what an if does that says so.
"""

import functools
import json
import re
import subprocess
import sys
from collections import defaultdict
from pathlib import Path

OUT_OF_REACH = re.compile(r"// out of reach: \S")
NOT_OURS = "^/usr/"
STATEMENT_END = re.compile(r"^\s*$|[;{}]$")


def output(*command):
    return subprocess.run(command, check=True, capture_output=True, text=True).stdout


def tool(name):
    """The one that belongs to the compiler: they read no other version's files."""
    return output("clang++", f"-print-prog-name={name}").strip()


def exported(form, profile, programs):
    first, *others = programs
    more = [part for program in others for part in ("-object", program)]
    return output(tool("llvm-cov"), "export", f"-format={form}", f"-instr-profile={profile}", first, *more,
                  f"-ignore-filename-regex={NOT_OURS}")


@functools.cache
def resolved(file):
    """The file's one name, however the compiler was told of it."""
    return str(Path(file).resolve())


def functions_with_code(profile):
    listing = output(tool("llvm-profdata"), "show", "-all-functions", profile)
    return {line.strip().removesuffix(":") for line in listing.splitlines() if re.match(r"  \S", line)}


def compiled_away(functions, with_code):
    """The lines of functions that are in the sources and in no program: {file: [(first, last)]}. What has code in one
    place and none in another, such as a template, is not among them."""
    lines = defaultdict(list)
    places = defaultdict(list)
    for function in functions:
        first, _, last, *_ = function["regions"][0]
        places[resolved(function["filenames"][0]), first, last].append(function["name"] in with_code)
    for (file, first, last), have_code in places.items():
        if not any(have_code):
            lines[file].append((first, last))
    return lines


def calls_of(functions):
    """How often each function was called, as whatever it was compiled: {(file, line, column): count}."""
    counts = defaultdict(int)
    for function in functions:
        line, column, *_ = function["regions"][0]
        counts[resolved(function["filenames"][0]), line, column] += function["count"]
    return counts


def lines_of(lcov):
    """How often each line ran: {(file, line): count}."""
    counts, file = {}, None
    for record in lcov.splitlines():
        kind, _, value = record.partition(":")
        if kind == "SF":
            file = resolved(value)
        elif kind == "DA":
            line, count = value.split(",")[:2]
            counts[file, int(line)] = counts.get((file, int(line)), 0) + int(count)
    return counts


def branches_of(files):
    """How often each condition was true and false: {(file, line, column, end line, end column): [true, false]}."""
    counts = defaultdict(lambda: [0, 0])
    for file in files:
        for *place, true, false, _file, _expanded, _kind in file["branches"]:
            both = counts[resolved(file["filename"]), *place]
            both[0] += true
            both[1] += false
    return counts


class Sources:
    """The text of the files that were counted, and what of them counts."""

    def __init__(self, compiled_away):
        self._compiled_away = compiled_away
        self._lines = {}

    def line(self, file, line):
        return self.lines(file)[line - 1]

    def lines(self, file):
        if file not in self._lines:
            self._lines[file] = Path(file).read_text(encoding="utf-8").splitlines()
        return self._lines[file]

    def counts(self, file, line):
        return not self._is_out_of_reach(file, line) and not any(
            first <= line <= last and self._is_constexpr(file, first) for first, last in self._compiled_away[file])

    def _is_out_of_reach(self, file, line):
        before = self.line(file, line - 1) if line > 1 else ""
        return bool(OUT_OF_REACH.search(self.line(file, line)) or
                    (OUT_OF_REACH.search(before) and before.lstrip().startswith("if (")))

    def _is_constexpr(self, file, first):
        """Whether a function says so where it begins, or the one around it that begins further up."""
        start = first
        while start > 1 and not STATEMENT_END.search(self.line(file, start - 1)):
            start -= 1
        return any("constexpr" in line for line in self.lines(file)[start - 1:first])

    def is_written(self, file, line, column, *_end):
        """Whether somebody wrote the condition that stands there, and not the compiler."""
        text = self.line(file, line)
        return not text[:column - 1].endswith("switch (") and "= default;" not in text

    def condition(self, file, line, column, end_line, end_column):
        text = self.line(file, line)
        return text[column - 1:end_column - 1] if line == end_line else text[column - 1:] + " …"


def share(name, reached, all_there):
    return f"{name}: {100 * reached / max(all_there, 1):.2f}% ({reached} out of {all_there})"


def main():
    folder, profile, *programs = sys.argv[1:]
    folder = str(Path(folder).resolve()) + "/"
    counted = json.loads(exported("text", profile, programs))["data"][0]
    sources = Sources(compiled_away(counted["functions"], functions_with_code(profile)))
    lines = {(file, *place): count for (file, *place), count in lines_of(exported("lcov", profile, programs)).items()
             if file.startswith(folder) and sources.counts(file, *place)}
    branches = {(file, *place): both for (file, *place), both in branches_of(counted["files"]).items()
                if any(both) and file.startswith(folder) and sources.counts(file, place[0]) and
                sources.is_written(file, *place)}
    calls = {(file, *place): count for (file, *place), count in calls_of(counted["functions"]).items()
             if file.startswith(folder) and sources.counts(file, place[0])}
    if not lines or not branches or not calls:
        sys.exit(f"Nothing of {folder} was counted.")
    missed = [(place[0], place[1], f"never run: {sources.line(*place).strip()}")
              for place, count in lines.items() if count == 0]
    missed += [(file, line, f"never called: {sources.line(file, line)[column - 1:].strip()}")
               for (file, line, column), count in calls.items() if count == 0 and lines.get((file, line))]
    missed += [(place[0], place[1], f"never {way}: {sources.condition(*place)}")
               for place, both in branches.items() for way, count in zip(("true", "false"), both)
               if count == 0]
    for file, line, what in sorted(missed):
        print(f"{Path(file).relative_to(Path.cwd())}:{line}: {what}")
    ways = [count for both in branches.values() for count in both]
    print(share("functions", sum(map(bool, calls.values())), len(calls)))
    print(share("lines", sum(map(bool, lines.values())), len(lines)))
    print(share("branches", sum(map(bool, ways)), len(ways)))
    sys.exit(1 if missed else 0)


if __name__ == "__main__":
    main()
