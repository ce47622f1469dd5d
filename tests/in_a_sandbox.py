#!/usr/bin/env python3
"""Runs a program as the sandbox of packaging/vanoka.service would, once it is seen to hold and to let SINGLISH store
keys and words: in_a_sandbox.py UNIT SINGLISH COMMAND…

Without systemd, by the same means: the unit's list of calls and its rules for sockets and memory as a filter of calls,
no capabilities, its variables and its mask of modes, and a system and a home that can be written to where the unit says
so; and /tmp, where tests keep theirs.
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
# Lines that change nothing here: the first holds in any sandbox of bubblewrap's, the second follows from a system that
# can only be read, Qt makes code only of what is called often, and the others forbid what the filter does not look at.
WANTED = ("NoNewPrivileges=yes", "ProtectHome=read-only", "Environment=QV4_FORCE_INTERPRETER=1", "LockPersonality=yes",
          "RestrictNamespaces=yes", "RestrictRealtime=yes", "RestrictSUIDSGID=yes", "SystemCallArchitectures=native",
          "SystemCallErrorNumber=EPERM")


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


def values(unit, name):
    """What the unit says of a name, once for each line that does."""
    return [line.partition("=")[2] for line in unit if line.startswith(f"{name}=")]


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
    allowed = set().union(*map(calls_of, values(unit, "SystemCallFilter")))
    steps = [step(LOAD, ARCHITECTURE), step(EQUAL, X86_64, 1), step(RETURN, KILL), step(LOAD, NUMBER)]
    for name in sorted(allowed & numbers.keys()):
        rule = rules.get(name, [step(RETURN, ALLOW)])
        steps += [step(EQUAL, numbers[name], 0, len(rule)), *rule]
    return b"".join([*steps, step(RETURN, refusal)])


class Home:
    """A folder as the home of somebody who runs the unit, with the folders that it asks for."""

    def __init__(self, unit, folder):
        self.folder = Path(folder)
        self._writable = []
        for name in values(unit, "ConfigurationDirectory"):
            (mode,) = values(unit, "ConfigurationDirectoryMode") or ["0755"]
            made = self.folder / ".config" / name
            made.mkdir(parents=True)
            made.chmod(int(mode, 8))
            self._writable.append(made)
        (self.folder / ".local/share/vanoka").mkdir(mode=0o700, parents=True)  # the packager's part
        for path in values(unit, "ReadWritePaths"):
            self._writable.append(Path(path.removeprefix("-").replace("%h", str(folder))))
        self._is_read_only = "ProtectSystem=strict" in unit or "ProtectHome=read-only" in unit

    def binds(self):
        yield "--ro-bind" if self._is_read_only else "--bind", self.folder
        yield from (("--bind", path) for path in self._writable)


def bubblewrap(unit, home, filter_number):
    system = "--ro-bind" if "ProtectSystem=strict" in unit else "--bind"
    # The checkout may lie below /tmp itself, as the home does.
    binds = [("--ro-bind", CHECKOUT), *home.binds()]
    return ["bwrap", system, "/", "/", "--dev", "/dev", "--proc", "/proc", "--tmpfs", "/tmp",
            *(str(part) for how, path in binds for part in (how, path, path)),
            "--cap-drop", "ALL", "--die-with-parent", "--seccomp", str(filter_number)]


def run(unit, home, command, output=None, **usual):
    variables = dict(line.split("=", 1) for line in values(unit, "Environment"))
    (mask,) = values(unit, "UMask") or ["0022"]
    with tempfile.TemporaryFile() as rules:
        rules.write(program(unit))
        rules.seek(0)
        command = [*bubblewrap(unit, home, rules.fileno()), *command]
        return subprocess.run(command, pass_fds=[rules.fileno()], check=False, stdout=output, umask=int(mask, 8),
                              env=os.environ | variables | usual).returncode


def refused(unit, home, code):
    """Whether a line of Python is refused what it asks for."""
    asking = f"import socket, mmap, os, tempfile\ntry: {code}\nexcept OSError: os._exit(7)"
    return run(unit, home, [sys.executable, "-c", asking], HOME=str(home.folder)) == 7


def stores(unit, home, command):
    """Whether a command of ours can store what it is asked to, where people keep it."""
    usual = {"HOME": str(home.folder), "XDG_CONFIG_HOME": "", "XDG_DATA_HOME": ""}
    return run(unit, home, command, subprocess.DEVNULL, **usual) == 0


def theirs_too(folder):
    """What others than its owner may use."""
    return [path for path in folder.rglob("vanoka*") if path.stat().st_mode & 0o077]


def see_that_it_holds(unit, home, singlish):
    in_home = "open(os.path.expanduser('~/letter'), 'w')"
    for code in ("socket.socket(socket.AF_INET)", "mmap.mmap(-1, 4096, prot=6)", "os.chroot('/')",
                 "tempfile.TemporaryFile(dir='/var/tmp')", in_home):
        if not refused(unit, home, code):
            sys.exit(f"This sandbox lets a program do {code}")
    if refused(unit, home, "socket.socket(socket.AF_UNIX)"):
        sys.exit("This sandbox lets nobody talk to the daemon")
    if refused(unit, home, "open(os.path.expanduser('~/.config/vanoka/vanoka.other'), 'w')"):
        sys.exit("This sandbox lets nobody write the keys")
    for command in (["keys", "add", "zq", "k"], ["words", "add", "\u0d85\u0db8\u0dca\u0db8"]):
        if not stores(unit, home, [singlish, *command]):
            sys.exit(f"This sandbox does not let singlish {command[0]} store anything")
    if theirs := theirs_too(home.folder):
        sys.exit(f"This sandbox lets others read {theirs}")


def can_be_made():
    tools = all(map(shutil.which, ("bwrap", "systemd-analyze"))) and NUMBERS.exists() and os.uname().machine == "x86_64"
    return tools and subprocess.run(["bwrap", "--ro-bind", "/", "/", "true"], check=False).returncode == 0


def main():
    unit, singlish, *command = sys.argv[1:]
    unit = Path(unit).read_text(encoding="utf-8").splitlines()
    # What the manager of a user passes over without the first, and stops at for want of the right to the second.
    if "PrivateUsers=yes" not in unit or any(line.startswith("CapabilityBoundingSet") for line in unit):
        sys.exit("A user's own systemd cannot do what the unit asks for")
    if not values(unit, "SystemCallFilter"):
        sys.exit("The unit allows every call")
    if missing := [line for line in WANTED if line not in unit]:
        sys.exit(f"The unit does not say {', '.join(missing)}")
    if not can_be_made():
        print("SKIPPED: no sandbox can be made here, for want of bubblewrap, of systemd-analyze or of the right to it.")
        sys.exit(SKIPPED)
    with tempfile.TemporaryDirectory(prefix="vanoka-home-") as folder:
        home = Home(unit, folder)
        see_that_it_holds(unit, home, singlish)
        sys.exit(run(unit, home, command))


if __name__ == "__main__":
    main()
