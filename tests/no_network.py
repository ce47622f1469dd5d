#!/usr/bin/env python3
"""Follows programs and all that they start, call by call: no_network.py SINGLISH VANOKA-LISTS [ENGINES-TESTS…].

No socket is made but those to other programs of this machine, and no memory can be written to and run. The last are
tests that type into a real daemon; those whose name begins with "ibus" start the engine.
"""

import os
import re
import shutil
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

SINGLISH, VANOKA_LISTS, *DAEMON_TESTS = map(os.path.abspath, sys.argv[1:])
del sys.argv[1:]
SKIPPED = 77

KA, GAMA = "\u0d9a", "\u0d9c\u0db8"
A_CONNECTION = "import socket; socket.socket(socket.AF_INET, socket.SOCK_DGRAM).close()"
A_LOOSE_PAGE = "import mmap; mmap.mmap(-1, 4096, prot=mmap.PROT_WRITE | mmap.PROT_EXEC).close()"


def follow(command, given="", environment=None):
    """What the command asked for, a line for each call."""
    with tempfile.NamedTemporaryFile(mode="r", errors="replace") as log:
        done = subprocess.run(["strace", "-f", "-qq", "-e", "trace=socket,mmap,mprotect,pkey_mprotect,execve", "-o",
                               log.name, *command], input=given, text=True, stdout=subprocess.DEVNULL,
                              stderr=subprocess.PIPE, env=environment, timeout=100, check=False)
        return done, log.read().splitlines()


def networked(calls):
    # D-Bus's daemon, where it is root's, tells the kernel whom it refuses.
    local = ("socket(AF_UNIX", "socket(AF_NETLINK, SOCK_RAW, NETLINK_AUDIT)")
    return [call for call in calls if " socket(" in call and not any(each in call for each in local)]


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
        environment = {"HOME": str(self.folder), "LC_ALL": "C.UTF-8", "PATH": os.environ["PATH"]}
        for command, given, status in (
                ([SINGLISH], "gama\n", 0), ([SINGLISH, "chart"], "", 0), ([SINGLISH, "keys", "add", "zq", KA], "", 0),
                ([SINGLISH, "keys", "export"], "", 0), ([SINGLISH, "words", "add", GAMA], "", 0),
                ([SINGLISH, "words", "list"], "", 0), ([SINGLISH, "doctor"], "", None),
                ([VANOKA_LISTS, "suggest", words], "g\n", 0), ([VANOKA_LISTS, "check", words], "", 0)):
            with self.subTest(command=command):
                done, calls = follow(command, given, environment)
                self.assertIn(done.returncode, (status,) if status is not None else (0, 1), done.stderr)
                self.expect_nothing(done, calls)

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
