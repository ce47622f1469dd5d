#!/usr/bin/env python3
"""Checks that every source is compiled by somebody: sources.py TREE.

A test that stands in no list of CMake's is never run, and nothing else tells. A list is looked for in the folder of
the source and in those above; a program with a source of its own name is named without its ending.
"""

import re
import sys
from pathlib import Path

FLOORS = ("core", "Vanoka", "c", "platform", "tools", "tests", "fuzz", "bench")


def names_in(folder):
    """All words of a folder's lists."""
    lists = [*folder.glob("CMakeLists.txt"), *folder.glob("*.cmake")]
    return {word for each in lists for word in re.findall(r"[\w.+-]+", each.read_text(encoding="utf-8"))}


def main():
    top = Path(sys.argv[1]).resolve()
    names = {}
    sources = [path for floor in FLOORS for path in (top / floor).rglob("*") if path.suffix in {".cpp", ".mm"}]
    unlisted = []
    for source in sorted(sources):
        above = [folder for folder in source.parents if folder.is_relative_to(top)]
        for folder in above:
            names.setdefault(folder, names_in(folder))
        if not any({source.name, source.stem} & names[folder] for folder in above):
            unlisted.append(source.relative_to(top))
            print(f"{unlisted[-1]} stands in no list")
    print(f"{len(sources)} sources, {len(unlisted)} of them compiled by nobody")
    return 1 if unlisted or not sources else 0


sys.exit(main())
