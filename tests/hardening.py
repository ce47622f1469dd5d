#!/usr/bin/env python3
"""Looks into programs and libraries for what makes a slip in memory stop them: hardening.py CXX FILE…

Or, with "install BUILD-FOLDER" in place of the files, into everything that would be installed from there. First the
check itself is tried on a program that CXX builds without any of it.
"""

import os
import re
import subprocess
import sys
import tempfile
from dataclasses import dataclass
from pathlib import Path

BRANCH_TARGET = bytes.fromhex("f30f1efa")  # endbr64
STACK_PROBE = bytes.fromhex("48830c2400")  # orq $0, (%rsp), for each page of a large frame
OURS = re.compile(r"main|vanoka_\w+|fcitx_addon_factory_\w+|_ZNK?6vanoka\w+")
WITHOUT = ["-O1", "-no-pie", "-fno-stack-protector", "-U_FORTIFY_SOURCE", "-fcf-protection=none",
           "-fno-stack-clash-protection", "-Wl,-z,norelro,-z,lazy,-z,execstack,-rpath,/nowhere"]
LARGE_FRAME = """#include <cstdio>
int main(int, char** values) { char line[65536]; std::sprintf(line, "%s", values[0]); return std::puts(line); }
"""


def shown(*arguments):
    return subprocess.run(["readelf", "--wide", *arguments], capture_output=True, text=True, check=True,
                          env={**os.environ, "LC_ALL": "C"}).stdout


@dataclass
class Segment:
    kind: str
    offset: int
    address: int
    size: int
    flags: str


class Binary:
    def __init__(self, path):
        self.bytes = Path(path).read_bytes()
        self.header, self.dynamic = shown("--file-header", path), shown("--dynamic", path)
        self.has_guarded_jumps = "IBT" in shown("--notes", path)
        table = shown("--segments", path)
        rows = re.findall(r"^ +(\w+) +(0x\w+) (0x\w+) 0x\w+ (0x\w+) 0x\w+ ([RWE ]{3})", table, re.MULTILINE)
        self.segments = [Segment(kind, *(int(number, 16) for number in numbers), flags)
                         for kind, *numbers, flags in rows]
        self.symbols = re.findall(r"^ *\d+: (\w+) +\d+ FUNC +GLOBAL +\w+ +(\w+) ([^@\s]+)",
                                  shown("--syms", "--dyn-syms", path), re.MULTILINE)

    def of_kind(self, kind):
        return [segment for segment in self.segments if segment.kind == kind]

    def is_for(self, machine):
        return re.search(rf"Machine: .*{machine}", self.header) is not None

    def imported(self):
        return {name for _, section, name in self.symbols if section == "UND"}

    def beginnings(self):
        """The first bytes of each of our functions that others may call."""
        for address, section, name in self.symbols:
            if section != "UND" and OURS.fullmatch(name):
                yield name, self.at(int(address, 16))

    def at(self, address):
        for segment in self.of_kind("LOAD"):
            if segment.address <= address < segment.address + segment.size:
                start = segment.offset + address - segment.address
                return self.bytes[start:start + len(BRANCH_TARGET)]
        return b""


def problems(binary, jumps_can_be_guarded):
    """What is missing, in words. Jumps are guarded where all of a program is compiled for it, the C library's part, which
    not every system has so, too."""
    if "DYN" not in re.search(r"Type: +(\w+)", binary.header)[1]:
        yield "it lies at the same address each time: no PIE"
    if not binary.of_kind("GNU_RELRO") or not re.search(r"\(FLAGS_1\).*NOW", binary.dynamic):
        yield "its table of addresses can be written to: no full RELRO"
    if any("W" in segment.flags and "E" in segment.flags for segment in binary.segments):
        yield "memory that can be written to can be run"
    if not binary.of_kind("GNU_STACK") or "TEXTREL" in binary.dynamic:
        yield "its stack can be run, or its code is written to when it starts"
    if re.search(r"\((RPATH|RUNPATH)\)", binary.dynamic):
        yield "it looks for libraries in folders of its own"
    checked = {name for name in binary.imported() if name.endswith("_chk")}
    if "__stack_chk_fail" not in binary.imported():
        yield "no stack protector"
    if not checked:
        yield "no length is checked: no FORTIFY"
    if binary.is_for("X86-64"):
        bare = [name for name, first in binary.beginnings() if first != BRANCH_TARGET]
        if bare or not list(binary.beginnings()):
            yield f"jumps may lead anywhere: no CET in {bare[:3]}"
        elif jumps_can_be_guarded and not binary.has_guarded_jumps:
            yield "jumps may lead anywhere: it does not say that it is compiled for CET"
        if STACK_PROBE not in binary.bytes:
            yield "a large frame may leap over the guard of the stack"


def trial(compiler, folder, *options):
    source, program = Path(folder, "large.cpp"), Path(folder, "large")
    source.write_text(LARGE_FRAME, encoding="utf-8")
    subprocess.run([compiler, *options, source, "-o", program], check=True, stderr=subprocess.DEVNULL)
    return Binary(program)


def installed(build, folder):
    subprocess.run(["cmake", "--install", build], env={**os.environ, "DESTDIR": folder}, check=True,
                   stdout=subprocess.DEVNULL)
    files = (path for path in Path(folder).rglob("*") if path.is_file() and not path.is_symlink())
    return [path for path in files if path.open("rb").read(4) == b"\x7fELF"]


def main():
    compiler, *files = sys.argv[1:]
    with tempfile.TemporaryDirectory() as folder:
        bare = trial(compiler, folder, *WITHOUT)
        is_intel = bare.is_for("X86-64")
        can_guard = is_intel and trial(compiler, folder, "-fcf-protection=full").has_guarded_jumps
        found = list(problems(bare, can_guard))
        expected = 8 if is_intel else 6
        if len(found) != expected:
            sys.exit(f"Of a program without any of it, the check says only: {found}")
    wrong = 0
    with tempfile.TemporaryDirectory() as folder:
        if files[0] == "install":
            files = installed(files[1], folder)
        for path in files:
            for problem in problems(Binary(path), can_guard):
                print(f"{os.path.basename(path)}: {problem}")
                wrong += 1
        print(f"{len(files)} programs and libraries: {', '.join(sorted(os.path.basename(path) for path in files))}")
        print(f"Jumps are {'guarded' if can_guard else 'not guarded: the C library here is not compiled for it'}.")
    sys.exit(1 if wrong or not files else 0)


if __name__ == "__main__":
    main()
