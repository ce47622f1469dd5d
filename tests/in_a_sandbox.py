#!/usr/bin/env python3
"""Runs a program as the sandbox of packaging/vanoka.service would: in_a_sandbox.py UNIT COMMAND…

Without systemd, by the same means: the unit's list of calls and its rules for sockets and memory as a filter of calls,
no capabilities, and a system that can only be read, /tmp apart.
"""

import errno
import os
import re
import shutil
import socket
import struct
import subprocess
import sys
import tempfile
from pathlib import Path

CHECKOUT = str(Path(__file__).resolve().parents[1])
SKIPPED = 77
NUMBERS = Path("/usr/include/x86_64-linux-gnu/asm/unistd_64.h")
X86_64 = 0xC000003E
ALLOW, REFUSE, KILL = 0x7FFF0000, 0x00050000, 0x80000000
LOAD, EQUAL, AND, RETURN = 0x20, 0x15, 0x54, 0x06
NUMBER, ARCHITECTURE, FIRST_ARGUMENT = 0, 4, 16  # places in what the filter sees
WRITE, EXECUTE = 2, 4


def calls_of(group):
    """The names in one of systemd's groups of calls."""
    text = subprocess.run(["systemd-analyze", "syscall-filter", group], capture_output=True, text=True,
                          check=True).stdout
    names = re.findall(r"^ +(@?[\w-]+)$", text, re.MULTILINE)
    return set().union(*(calls_of(name) if name.startswith("@") else {name} for name in names))


def step(code, value, if_so=0, if_not=0):
    return struct.pack("=HBBI", code, if_so, if_not, value)


def argument(number, mask, wanted, otherwise, then):
    """What becomes of a call by some bits of an argument."""
    return [step(LOAD, FIRST_ARGUMENT + 8 * number), step(AND, mask), step(EQUAL, wanted, 0, 1), step(RETURN, then),
            step(RETURN, otherwise)]


def program(unit):
    """The filter for the unit, as the kernel takes it."""
    numbers = {name: int(number) for name, number in
               re.findall(r"#define __NR_(\w+) (\d+)", NUMBERS.read_text(encoding="ascii"))}
    refusal = REFUSE | errno.EPERM
    rules = {}
    if "RestrictAddressFamilies=AF_UNIX" in unit:
        rules["socket"] = argument(0, 0xFFFFFFFF, socket.AF_UNIX, REFUSE | errno.EAFNOSUPPORT, ALLOW)
    if "MemoryDenyWriteExecute=yes" in unit:
        rules["mmap"] = argument(2, WRITE | EXECUTE, WRITE | EXECUTE, ALLOW, refusal)
        rules["mprotect"] = rules["pkey_mprotect"] = argument(2, EXECUTE, EXECUTE, ALLOW, refusal)
    (group,) = (line.partition("=")[2] for line in unit if line.startswith("SystemCallFilter="))
    allowed = calls_of(group)
    steps = [step(LOAD, ARCHITECTURE), step(EQUAL, X86_64, 1), step(RETURN, KILL), step(LOAD, NUMBER)]
    for name in sorted(allowed & numbers.keys()):
        rule = rules.get(name, [step(RETURN, ALLOW)])
        steps += [step(EQUAL, numbers[name], 0, len(rule)), *rule]
    return b"".join([*steps, step(RETURN, refusal)])


def bubblewrap(filter_number):
    # The checkout may lie below /tmp itself.
    return ["bwrap", "--ro-bind", "/", "/", "--dev", "/dev", "--proc", "/proc", "--tmpfs", "/tmp",
            "--ro-bind", CHECKOUT, CHECKOUT, "--cap-drop", "ALL", "--die-with-parent", "--seccomp", str(filter_number)]


def run(unit, command):
    with tempfile.TemporaryFile() as rules:
        rules.write(program(unit))
        rules.seek(0)
        return subprocess.run([*bubblewrap(rules.fileno()), *command], pass_fds=[rules.fileno()], check=False).returncode


def refused(unit, code):
    """Whether a line of Python is refused what it asks for."""
    asking = f"import socket, mmap, os\ntry: {code}\nexcept OSError: os._exit(7)"
    return run(unit, [sys.executable, "-c", asking]) == 7


def main():
    unit, *command = sys.argv[1:]
    unit = Path(unit).read_text(encoding="utf-8").splitlines()
    # What the manager of a user passes over without the first, and stops at for want of the right to the second.
    if "PrivateUsers=yes" not in unit or any(line.startswith("CapabilityBoundingSet") for line in unit):
        sys.exit("A user's own systemd cannot do what the unit asks for")
    tools = all(map(shutil.which, ("bwrap", "systemd-analyze"))) and NUMBERS.exists() and os.uname().machine == "x86_64"
    if not tools or run(unit, ["true"]) != 0:
        print("SKIPPED: no sandbox can be made here, for want of bubblewrap, of systemd-analyze or of the right to it.")
        sys.exit(SKIPPED)
    for code in ("socket.socket(socket.AF_INET)", "mmap.mmap(-1, 4096, prot=6)", "os.mkdir('/var/tmp/vanoka-sandbox')",
                 "os.chroot('/')"):
        if not refused(unit, code):
            sys.exit(f"This sandbox lets a program do {code}")
    if refused(unit, "socket.socket(socket.AF_UNIX)"):
        sys.exit("This sandbox lets nobody talk to the daemon")
    sys.exit(run(unit, command))


if __name__ == "__main__":
    main()
