"""All mutants of a file that can be told apart while a program runs, in one text, since compiling each takes far longer
than the tests that kill it. The environment says which of them is meant:

    if (count < most) {    becomes    if (mutants::chosen() == 1 ? bool(count <= most) : bool(count < most)) {

What a statement does, what a condition asks and what a variable begins with can be chosen so; tables and what is
worked out while compiling cannot.
"""

import re

import mutations

VARIABLE = "VANOKA_MUTANT"
PRELUDE = f"""\
#include <cstdlib>
#include <type_traits>
namespace mutants {{
inline struct Number {{
    const char* text = std::getenv("{VARIABLE}");
    int value = text != nullptr ? std::atoi(text) : 0;
}} number __attribute__((init_priority(101)));
constexpr int chosen() {{ return std::is_constant_evaluated() ? 0 : number.value; }}
}}
"""
LONGEST_UNIT = 40

STATEMENT = re.compile(r"\s*(?:return\b|continue;|break;|(?:\+\+|--|\*)?[\w:]+(?:[(.\[;]|->|\+\+|--| [-+*/|&^%]?= ))")
HEAD = re.compile(r"\s*(?:\} )?(?:else )?(?:if|while|for) \(")
# The parts of which one may be chosen: where they stand, and as what they are taken.
PARTS = [(re.compile(pattern, re.DOTALL), taken) for pattern, taken in [
    (r"\s*(?:\} )?(?:else )?(?:if|while) \((?!.*(?:;| = ))(.*)\)(?: \{)?", "bool"),
    (r"\s*for \((?:const )?[\w:]+ \w+ = ([^;,]+);.*", ""),
    (r"\s*for \([^;]*; ([^;]+); [^;]*", "bool"),
    (r"\s*for \([^;]*; [^;]*; ([^;]+)\)(?: \{)?", "void"),
    (r"\s*(?!return\b|static\b|constexpr\b|inline\b|for\b|if\b|while\b)\w[\w:<>,&* ]* = "
     r"(?!\{|.*, \w+(?:;|\{| = ))(.*);", ""),
]]


# What is worked out while compiling shows no choice.
EARLY = re.compile(r"\bconsteval\b|\bconstexpr\b.*\(")


def is_whole(code):
    return all(code.count(one) == code.count(other) for one, other in ("()", "[]")) and \
        (code[-1:] in ";{}:" or code.endswith(")") and bool(HEAD.match(code)))


def units(text):
    """(first line, last line) of what may stand alone: statements, and the heads of those that hold others."""
    first, before, code = None, "", []
    for number, (_, outside) in enumerate(mutations.without_comments(text), 1):
        line = mutations.code_of(outside).replace("\0", " ").rstrip()
        if not line.strip() or line.lstrip().startswith("#"):
            continue
        if first is None and mutations.BEFORE_STATEMENT.search(before):
            first, code = number, []
        code.append(line)
        before = line.strip()
        if first is not None and (is_whole("\n".join(code)) or number - first > LONGEST_UNIT):
            yield first, number
            first = None


def choice(part, others, taken):
    """An expression of which others can be chosen, in pieces: each with the number of what it holds, or 0."""
    return [*((f"mutants::chosen() == {number} ? {taken}({other}\n) :\n", number) for number, other in others.items()),
            (f"{taken}({part}\n)", 0)]


def with_choices(was, forms):
    """A unit in which some forms of it can be chosen, by their numbers, in pieces as above; those that cannot be chosen
    are left out."""
    blotted = "\n".join(mutations.code_of(line).replace("\0", "_") for line in was.split("\n")).rstrip("_ ")
    if STATEMENT.match(blotted) and blotted.endswith(";"):
        others = [(f"if (mutants::chosen() == {number}) {{\n{form}\n}} else\n", number)
                  for number, form in forms.items()]
        return [("{\n", 0), *others, (f"{{\n{was}\n}} }}\n", 0)]
    spans = [(*found.span(1), taken) for pattern, taken in PARTS if (found := pattern.fullmatch(blotted))]
    pieces, at = [], 0
    for start, end, taken in spans:
        others = {number: form[start:len(form) - len(was) + end] for number, form in forms.items()
                  if form.startswith(was[:start]) and form.endswith(was[end:])}
        pieces += [(was[at:start], 0), *choice(was[start:end], others, taken)]
        at = end
    return [*pieces, (was[at:] + "\n", 0)]


class Together:
    """The text with all mutants of a file that can be chosen, and their numbers."""

    def __init__(self, text, mutants):
        self.text = text
        self.numbers = dict(enumerate(mutants, 1))
        self.write()

    def leave(self, numbers):
        for number in numbers:
            self.numbers.pop(number, None)
        self.write()

    def write(self):
        lines = self.text.split("\n")
        pieces, at = [(PRELUDE, 0, ())], 0
        for first, last in units(self.text):
            forms = {number: "\n".join([*lines[first - 1:mutant.number - 1], mutant.form, *lines[mutant.number:last]])
                     for number, mutant in self.numbers.items() if first <= mutant.number <= last}
            if forms:
                unit = with_choices("\n".join(lines[first - 1:last]), forms)
                pieces += [("\n".join([*lines[at:first - 1], ""]), 0, ()),
                           *((piece, number, tuple(number for _, number in unit if number)) for piece, number in unit)]
                at = last
        pieces.append(("\n".join(lines[at:]), 0, ()))
        self.pieces = pieces
        self.numbers = {number: self.numbers[number] for _, number, _ in pieces if number}

    def is_certain(self, mutant):
        """True for one whose outcome is the same when it is built alone: in a statement or a condition of a file in
        which nothing is called while compiling."""
        first, last = next(unit for unit in units(self.text) if unit[0] <= mutant.number <= unit[1])
        code = "\n".join(self.text.split("\n")[first - 1:last])
        return bool(STATEMENT.match(code) or HEAD.match(code)) and not EARLY.search(self.text)

    def __str__(self):
        return "".join(piece for piece, *_ in self.pieces)

    def to_leave(self, refused):
        """Of the lines of the text that the compiler refuses, the numbers of the forms in them. Where there is none, those
        of the unit around the first: it is none that can stand in a choice."""
        at = [self._at(line) for line in refused]
        return {number for number, _ in at if number} or set(next((around for _, around in at if around), ()))

    def _at(self, line):
        for piece, number, around in self.pieces:
            line -= piece.count("\n")
            if line <= 0:
                return number, around
        return 0, ()
