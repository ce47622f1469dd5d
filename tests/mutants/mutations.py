"""The small changes that are made to a line of C++, each as one character or statement of a hurried writer could
differ. Only code is changed, never a comment or a text, and what the layout of this code tells is relied upon: an
operator of two sides stands between spaces, a template's brackets do not.
"""

import re

# A comment, a text, a character, what a size is asked of: what is no code in a line.
NO_CODE = re.compile(r'//.*|/\*.*?\*/|R"\((?:.*?)\)"|"(?:\\.|[^"\\])*"|(?<![\w])[uU8L]*\'(?:\\.|[^\'\\])+\'|'
                     r'\bsizeof\([^()]*\)')

LONG_COMMENT = re.compile(r"^ */\*.*?\*/", re.DOTALL | re.MULTILINE)

# What stands for what. Both are spaced as the layout spaces them, so that < is no template's.
SWAPS = [
    (" < ", [" <= ", " > "]), (" <= ", [" < "]), (" > ", [" >= ", " < "]), (" >= ", [" > "]),
    (" == ", [" != "]), (" != ", [" == "]), (" && ", [" || "]), (" || ", [" && "]),
    (" + ", [" - "]), (" - ", [" + "]), (" * ", [" / "]), (" / ", [" * "]), (" % ", [" * "]),
    (" += ", [" -= "]), (" -= ", [" += "]), (" *= ", [" /= "]), (" /= ", [" *= "]),
    (" & ", [" | "]), (" | ", [" & "]), (" ^ ", [" | "]), (" << ", [" >> "]), (" >> ", [" << "]),
]
CALLS = [
    ("min", "max"), ("lower_bound", "upper_bound"), ("all_of", "any_of"), ("any_of", "none_of"), ("front", "back"),
    ("begin", "end"), ("less", "greater"),
]
WORDS = {word: other for one, two in [("true", "false"), ("continue", "break")] for word, other in [(one, two), (two, one)]}
CALLED = {word: other for one, two in CALLS for word, other in [(one, two), (two, one)]}
WORD = re.compile(r"\b[a-z]+\b")
CALL = re.compile(r"(?<=[.:>])\b[a-z_]+\b")
NUMBER = re.compile(r"(?<![\w.'])(0[xX][0-9a-fA-F']+|\d[\d']*)([uUlL]*)(?![\w.'])")
DECIMAL = re.compile(r"(?<![\w.'])(\d+\.\d+)(?![\w.'])")
STEP = re.compile(r"\+\+|--")
NOT = re.compile(r"!(?=[\w(:])")
CONDITION = re.compile(r"\b(?:if|while) \((.*)\)(?: \{)?$")
# Conditions whose opposite another change gives already, or that make a value of their own.
SIMPLE = re.compile(r" [=!]= |;| = |^!(?!.*(?: && | \|\| ))")
DECLARED = re.compile(r"^\s*~?[A-Z]\w*\(.*\);$")
RETURN = re.compile(r"^(\s*return) (.+);$")
# `none` is the first of every enumeration that has it, and VANOKA_OK is 0.
SAME_AS_DEFAULT = re.compile(r"\{\}|false|true|0|nullptr|std::nullopt|\*this|VANOKA_OK|[\w:]+::none")
STATEMENT = re.compile(r"^(\s*)(?:(?:\+\+|--)?[\w:.>\[\]()*-]+(?:\([^;]*\))?|[\w.>\[\]()*&-]+ [-+*/|&^%]?=(?!=) [^;]+);$")
TWO_ARGUMENTS = re.compile(r"(?<=[\w>])\((\w+(?:\.\w+)*), (\w+(?:\.\w+)*)\)")
# Those for which the order of two arguments makes no difference; of two problems either may be told.
SYMMETRIC = re.compile(r"\b(?:min|max|swap|equal\w*|distance|squaredDistance|firstProblem)(?:<[\w:]+>)?$")
# Where a statement may begin: after one, at a brace, after a condition, a label.
BEFORE_STATEMENT = re.compile(r"(?:[;{}:)]|else|do|^)$")

# The end of a switch, by its layout: what a case holds stands deeper than the case and the brace.
LAST_BREAK = re.compile(r"^( *)(?:case\b.*|default):\n(?:\1 +.*\n)*?\1 +(break;)\n\1\}$", re.MULTILINE)

# Left as they are. What is asserted while compiling refuses every change that it notices; room that is asked for
# beforehand changes no result.
LEFT_ALONE = re.compile(r"^\s*(?:#|using\b|namespace\b|template\b|static_assert\b|typedef\b|friend\b|extern\b)|\breserve\(|"
                        r"\bmakeRoom\([\w.]+, |\) (?:const )?(?:noexcept )?= 0;")


def code_of(line):
    """The line with everything that is no code blotted out, as long as before."""
    return NO_CODE.sub(lambda found: "\0" * len(found[0]), line)


def replaced(line, start, end, text):
    return line[:start] + text + line[end:]


def swapped(line, code):
    for written, others in SWAPS:
        # Where a line was broken, the operator stands first in the next one.
        for found in re.finditer(re.escape(written), code):
            for other in others:
                yield replaced(line, found.start(), found.end(), other)
    for found in WORD.finditer(code):
        if found[0] in WORDS:
            yield replaced(line, found.start(), found.end(), WORDS[found[0]])
    for found in CALL.finditer(code):
        if found[0] in CALLED:
            yield replaced(line, found.start(), found.end(), CALLED[found[0]])


def renumbered(line, code):
    for found in NUMBER.finditer(code):
        digits, suffix = found[1].replace("'", ""), found[2]
        value = int(digits, 0) if not re.fullmatch(r"0\d+", digits) else int(digits, 8)
        for other in (value + 1, value - 1):
            if other >= 0:
                written = f"0x{other:X}" if found[1].startswith("0x") else str(other)
                yield replaced(line, found.start(), found.end(), written + suffix)
    for found in DECIMAL.finditer(code):
        yield replaced(line, found.start(), found.end(), str(float(found[1]) + 1))


def stepped(line, code):
    for found in STEP.finditer(code):
        yield replaced(line, found.start(), found.end(), "--" if found[0] == "++" else "++")


def negated(line, code):
    for found in NOT.finditer(code):
        yield replaced(line, found.start(), found.end(), "")
    condition = CONDITION.search(code)
    if condition and not SIMPLE.search(condition[1]) and balanced(condition[1]):
        start, end = condition.span(1)
        yield replaced(line, start, end, f"!({line[start:end]})")


def balanced(code):
    depth = 0
    for character in code:
        depth += {"(": 1, ")": -1}.get(character, 0)
        if depth < 0:
            return False
    return depth == 0


def removed(line, code, before):
    statement = STATEMENT.match(code)
    if statement and not DECLARED.match(code) and balanced(code) and BEFORE_STATEMENT.search(before) and \
            not code.strip().startswith("return"):
        yield statement[1] + ";"
    returning = RETURN.match(code)
    if returning and balanced(code) and not SAME_AS_DEFAULT.fullmatch(line[returning.start(2):returning.end(2)]):
        yield returning[1] + " {};"


def exchanged(line, code):
    for found in TWO_ARGUMENTS.finditer(code):
        if found[1] != found[2] and not SYMMETRIC.search(code[:found.start()]):
            yield replaced(line, found.start(), found.end(), f"({found[2]}, {found[1]})")


def of_line(line, before):
    """Each changed form of a line, once; `before` is the code that stands before it."""
    code = code_of(line)
    if LEFT_ALONE.search(code) or not code.strip("\0 "):
        return []
    forms = [*swapped(line, code), *renumbered(line, code), *stepped(line, code), *negated(line, code),
             *removed(line, code, before), *exchanged(line, code)]
    return [form for form in dict.fromkeys(forms) if form != line]


def without_comments(text):
    """The lines of a text, and the same lines with what lies in comments of several lines blotted out."""
    blotted = LONG_COMMENT.sub(lambda found: re.sub(r"[^\n]", "\0", found[0]), text)
    return zip(text.split("\n"), blotted.split("\n"))


def last_breaks(text):
    """The numbers of the lines whose `break;` ends a switch, which ends without it as well."""
    return {text.count("\n", 0, found.start(2)) + 1 for found in LAST_BREAK.finditer(text)}


def of_text(text):
    """(number of the line from 1, the line, the changed line) for each change of a file."""
    before, asserting, needless = "", False, last_breaks(text)
    for number, (line, outside) in enumerate(without_comments(text), 1):
        code = code_of(outside).replace("\0", " ").rstrip()
        asserting = asserting or code.lstrip().startswith("static_assert")
        if not asserting:
            for form in of_line(line, before) if code.strip() else []:
                if form.strip() != ";" or number not in needless:
                    yield number, line, form
        asserting = asserting and not code.endswith(";")
        before = code.strip() or before
