#!/usr/bin/env python3
"""Takes out of utf8proc's tables what Vanoka never asks for, so that a page has less to fetch.

    cmake/elsewhere/reduce_utf8proc.py utf8proc_data.c

rewrites the file. What is left: categories, canonical decomposition and composition, lower and upper case, the
borders of grapheme clusters. What goes: compatibility decompositions, case folding and title case, directions,
widths and what may be ignored. Before the file is written, every code point is looked up in the old tables and the
new ones; where a field that is left differs, nothing is written and the status is 1.
"""

import re
import sys

BLOCK = 256  # code points of a block of the two-stage table
NONE = "UINT16_MAX"
COLUMNS = ("category combining_class bidi_class decomp_type decomp casefold upper lower title comb mirrored "
           "comp_exclusion ignorable control_boundary width pad boundclass").split()
NEUTRAL = dict(bidi_class="0", casefold=NONE, title=NONE, mirrored="false", ignorable="false", width="0")


class Tables:
    def __init__(self, sequences, first, second, properties):
        self.sequences, self.first, self.second, self.properties = sequences, first, second, properties

    def number(self, code_point):
        return self.second[self.first[code_point // BLOCK] + code_point % BLOCK]

    def sequence(self, index, is_decomposition):
        """The units that stand for a property's index, which in a decomposition says how many scalars there are."""
        if index == NONE:
            return None
        at, scalars = int(index) & 0x3FFF, int(index) >> 14 if is_decomposition else 0
        start = at
        if scalars == 3:  # so many that their number has a unit of its own
            scalars, at = self.sequences[at], at + 1
        for _ in range(scalars + 1):
            at += 2 if self.sequences[at] & 0xFC00 == 0xD800 else 1
        return tuple(self.sequences[start:at])


def find(source, name):
    return re.search(r"(const \w+ %s\[\] = \{)(.*?)(\};)" % name, source, re.DOTALL)


def numbers(source, name):
    return [int(number) for number in re.findall(r"\d+", find(source, name)[2])]


def read(source):
    rows = re.findall(r"\{(.*?)\}", find(source, "utf8proc_properties")[2])
    properties = [dict(zip(COLUMNS, re.split(r",\s*", row.strip()), strict=True)) for row in rows]
    return Tables(numbers(source, "utf8proc_sequences"), numbers(source, "utf8proc_stage1table"),
                  numbers(source, "utf8proc_stage2table"), properties)


class Reduced(Tables):
    def __init__(self, whole):
        super().__init__([], [], [], [])
        self.whole, self.place, self.blocks = whole, {}, {}
        number = {}
        renumbered = []
        for row in whole.properties:
            row = self.reduce(row)
            key = tuple(row.values())
            if key not in number:
                number[key] = len(self.properties)
                self.properties.append(row)
            renumbered.append(number[key])
        for start in whole.first:
            block = tuple(renumbered[at] for at in whole.second[start:start + BLOCK])
            if block not in self.blocks:
                self.blocks[block] = len(self.second)
                self.second += block
            self.first.append(self.blocks[block])

    def reduce(self, row):
        row = row | NEUTRAL
        if row["decomp_type"] != "0":  # asked for by compatibility alone
            row |= dict(decomp_type="0", decomp=NONE)
        return row | {name: self.moved(row[name], name == "decomp") for name in ("decomp", "upper", "lower")}

    def moved(self, index, is_decomposition):
        units = self.whole.sequence(index, is_decomposition)
        if units is None:
            return NONE
        if units not in self.place:
            self.place[units] = len(self.sequences)
            self.sequences += units
        length = int(index) & 0xC000 if is_decomposition else 0
        return str(self.place[units] | length)


def meaning(tables, number):
    """What is asked for of a code point with these properties, whatever the tables' order."""
    row = tables.properties[number]
    kept = {name: row[name] for name in COLUMNS if name not in NEUTRAL | dict(decomp_type=0)}
    if row["decomp_type"] != "0":
        kept["decomp"] = NONE
    return kept | {name: tables.sequence(kept[name], name == "decomp") for name in ("decomp", "upper", "lower")}


def replaced(source, name, rows):
    found = find(source, name)
    return source[:found.end(1)] + "\n" + ",\n".join(map(str, rows)) + "\n" + source[found.start(3):]


def main(path):
    with open(path) as file:
        source = file.read()
    whole = read(source)
    reduced = Reduced(whole)
    numbers_of = {(whole.number(code_point), reduced.number(code_point)): code_point
                  for code_point in range(len(whole.first) * BLOCK)}
    for (old, new), code_point in numbers_of.items():
        if meaning(whole, old) != meaning(reduced, new):
            sys.exit(f"reduce_utf8proc.py: U+{code_point:04X} would not be the same")
    source = replaced(source, "utf8proc_sequences", reduced.sequences)
    source = replaced(source, "utf8proc_stage1table", reduced.first)
    source = replaced(source, "utf8proc_stage2table", reduced.second)
    source = replaced(source, "utf8proc_properties", ["{" + ", ".join(row.values()) + "}" for row in reduced.properties])
    with open(path, "w") as file:
        file.write(source)


if __name__ == "__main__":
    main(sys.argv[1])
