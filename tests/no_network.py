#!/usr/bin/env python3
"""Follows programs and all that they start, call by call: no_network.py SINGLISH VANOKA-LISTS VANOKA-SWIPE
[VANOKA-SETTINGS] [ENGINES-TESTS…].

No socket is made but those to other programs of this machine, and no memory can be written to and run, but for what
the settings window's toolkit asks for. The last are tests that type into a real daemon; those whose name begins with
"ibus" start the engine.
"""

import os
import re
import shutil
import signal
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

SINGLISH, VANOKA_LISTS, VANOKA_SWIPE, *OTHERS = map(os.path.abspath, sys.argv[1:])
WINDOW = next((path for path in OTHERS if path.endswith("vanoka-settings")), None)
DAEMON_TESTS = [path for path in OTHERS if path != WINDOW]
del sys.argv[1:]
SKIPPED = 77
ROOT = Path(__file__).resolve().parents[1]
STROKES = [ROOT / "docs/swipe/words.tsv", ROOT / "tools/swipe/layouts/qwerty-phone.layout",
           ROOT / "docs/swipe/strokes.tsv"]

KA, GAMA = "\u0d9a", "\u0d9c\u0db8"
# D-Bus's daemon, where it is root's, tells the kernel whom it refuses.
LOCAL = re.compile(r" socket\((AF_UNIX,|AF_NETLINK, SOCK_RAW(\|SOCK_CLOEXEC)?, NETLINK_AUDIT\))")
A_CONNECTION = "import socket; socket.socket(socket.AF_INET, socket.SOCK_DGRAM).close()"
A_LOOSE_PAGE = "import mmap; mmap.mmap(-1, 4096, prot=mmap.PROT_WRITE | mmap.PROT_EXEC).close()"

# Types into a program at a terminal as soon as it has drawn its line.
A_TERMINAL = """import os, pty, sys
program, terminal = pty.fork()
if program == 0:
    os.execv(sys.argv[1], sys.argv[1:])
os.read(terminal, 1)
os.write(terminal, b"gama \\r\\x04")
try:
    while os.read(terminal, 1024): pass
except OSError: pass # it has ended
sys.exit(os.waitstatus_to_exitcode(os.waitpid(program, 0)[1]))"""


def followed(log, command):
    return ["strace", "-f", "-qq", "-e", "trace=socket,mmap,mprotect,pkey_mprotect,execve", "-o", log.name, *command]


def follow(command, given="", environment=None):
    """What the command asked for, a line for each call."""
    with tempfile.NamedTemporaryFile(mode="r", errors="replace") as log:
        done = subprocess.run(followed(log, command), input=given, text=True, stdout=subprocess.DEVNULL,
                              stderr=subprocess.PIPE, env=environment, timeout=100, check=False)
        return done, log.read().splitlines()


def follow_until(said, command, environment):
    """The same of one that goes on: until it says so. And what it said."""
    with tempfile.NamedTemporaryFile(mode="r", errors="replace") as log:
        with subprocess.Popen(followed(log, command), stderr=subprocess.PIPE, text=True, env=environment) as process:
            lines = []
            for line in process.stderr:
                lines.append(line)
                if said in line:
                    first = Path(log.name).read_text(encoding="utf-8", errors="replace").split()[0]
                    os.kill(int(first), signal.SIGTERM)
                    break
        return "".join(lines), log.read().splitlines()


def networked(calls):
    return [call for call in calls if " socket(" in call and not LOCAL.search(call)]


def loose(calls):
    return [call for call in calls if "PROT_WRITE" in call and "PROT_EXEC" in call]


class NoNetwork(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory(prefix="vanoka-network-")
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name)

    def expect_nothing(self, done, calls):
        self.assertTrue(any("execve(" in call for call in calls), done.stderr)
        self.assertEqual((networked(calls), loose(calls)), ([], []))

    def test_is_seen_where_there_is_one(self):
        self.assertTrue(networked(follow([sys.executable, "-c", A_CONNECTION])[1]))
        self.assertTrue(loose(follow([sys.executable, "-c", A_LOOSE_PAGE])[1]))

    def test_is_used_at_a_shell(self):
        words = self.folder / "words"
        words.write_text(f"{GAMA}\t5\n", encoding="utf-8")
        environment = {"HOME": str(self.folder), "LC_ALL": "C.UTF-8", "PATH": os.environ["PATH"], "TERM": "xterm"}
        for command, given, status in (
                ([SINGLISH], "gama\n", 0), ([SINGLISH, "chart"], "", 0), ([SINGLISH, "keys", "add", "zq", KA], "", 0),
                ([SINGLISH, "keys", "export"], "", 0), ([SINGLISH, "words", "add", GAMA], "", 0),
                ([SINGLISH, "words", "list"], "", 0), ([SINGLISH, "doctor"], "", None),
                ([sys.executable, "-c", A_TERMINAL, SINGLISH], "", 0),
                ([VANOKA_LISTS, "suggest", words], "g\n", 0), ([VANOKA_LISTS, "check", words], "", 0),
                ([VANOKA_SWIPE, "measure", *STROKES], "", 0)):
            with self.subTest(command=command):
                done, calls = follow(command, given, environment)
                self.assertIn(done.returncode, (status,) if status is not None else (0, 1), done.stderr)
                self.expect_nothing(done, calls)

    @unittest.skipUnless(WINDOW, "built without the window")
    def test_is_used_by_the_window(self):
        environment = {"HOME": str(self.folder), "XDG_RUNTIME_DIR": str(self.folder), "LC_ALL": "C.UTF-8",
                       "PATH": os.environ["PATH"], "DBUS_SESSION_BUS_ADDRESS": "disabled:",
                       "QT_QPA_PLATFORM": "offscreen", "QT_LOGGING_RULES": "qt.scenegraph.time.renderloop=true"}
        said, calls = follow_until("rame rendered", [WINDOW], environment)
        self.assertIn("rame rendered", said)
        self.assertEqual(networked(calls), [])
        # QML's engine asks for room for code of its own, which has no file.
        self.assertEqual([call for call in loose(calls) if "MAP_ANONYMOUS" not in call], [])

    def test_is_used_by_engines(self):
        for tests in DAEMON_TESTS:
            with self.subTest(tests=tests):
                done, calls = follow([tests, "--gtest_filter=*KeepsTwoFieldsApart*"])
                self.assertEqual(done.returncode, 0, done.stderr)
                self.expect_nothing(done, calls)
                if os.path.basename(tests).startswith("ibus"):
                    self.assertTrue(any(re.search(r"execve\(\"[^\"]*/Vanoka\".* = 0$", call) for call in calls))


if __name__ == "__main__":
    if not shutil.which("strace") or follow(["true"])[0].returncode != 0:
        print("SKIPPED: programs cannot be followed here, for want of strace or of the right to it.")
        sys.exit(SKIPPED)
    unittest.main()
