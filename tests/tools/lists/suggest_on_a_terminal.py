"""Types on a pseudo-terminal and reads what it shows: suggest_on_a_terminal.py PATH-TO-VANOKA-LISTS."""

import os
import pty
import select
import signal
import sys
import tempfile
import time
import unittest

VANOKA_LISTS = os.path.abspath(sys.argv.pop(1))
PATIENCE = 20  # seconds; everything here takes milliseconds

AMMA = "\u0d85\u0db8\u0dca\u0db8\u0dcf"
AMU = "\u0d85\u0db8\u0dd4"


class SuggestOnATerminal(unittest.TestCase):
    def setUp(self):
        self.folder = tempfile.TemporaryDirectory(prefix="vanoka-lists-")
        self.addCleanup(self.folder.cleanup)
        path = os.path.join(self.folder.name, "list.tsv")
        with open(path, "w", encoding="utf-8") as file:
            file.write(f"{AMMA}\t5\n{AMU}\t9\n\u0d9a\x1b]0;title\x07\u009b\x00\t1\n")
        self.process, self.terminal = pty.fork()
        if self.process == 0:
            environment = {**os.environ, "TERM": "xterm", "XDG_CONFIG_HOME": self.folder.name}
            os.execve(VANOKA_LISTS, [VANOKA_LISTS, "suggest", "--reading", "no", path], environment)
        self.addCleanup(self.end)
        self.screen = b""
        self.status = None
        self.shows("\x1b[4m")

    def end(self):
        if self.status is None:
            os.kill(self.process, signal.SIGKILL)
            os.waitpid(self.process, 0)
        os.close(self.terminal)

    def read(self, seconds):
        if select.select([self.terminal], [], [], seconds)[0]:
            try:
                self.screen += os.read(self.terminal, 4096)
            except OSError:  # the other end has been closed
                return

    def row(self):
        """The row as it was drawn last."""
        return self.screen.decode(errors="replace").rsplit("\r\x1b[K", 1)[-1]

    def shows(self, text):
        end = time.monotonic() + PATIENCE
        while text not in self.row():
            self.assertLess(time.monotonic(), end, f"{text!r} is not in {self.screen!r}")
            self.read(0.05)

    def type(self, keys):
        os.write(self.terminal, keys.encode())

    def ends(self, status):
        end = time.monotonic() + PATIENCE
        while self.status is None:
            self.assertLess(time.monotonic(), end, "it does not end")
            self.read(0.02)
            process, result = os.waitpid(self.process, os.WNOHANG)
            if process:
                self.status = os.waitstatus_to_exitcode(result)
        self.assertEqual(self.status, status)

    def test_shows_suggestions_at_every_key(self):
        self.type("a")
        self.shows(f"\x1b[4m\u0d85\x1b[24m   {AMU}   {AMMA}")
        self.type("mm")
        self.shows(f"\x1b[4m\u0d85\u0db8\u0dca\u0db8\u0dca\x1b[24m   {AMMA}")
        self.type("\x7f")
        self.shows(f"\x1b[4m\u0d85\u0db8\u0dca\u0db8\x1b[24m   {AMMA}")
        self.type("\x1b")
        self.shows("\x1b[4m\x1b[24m")
        self.type("\u0d85\u0db8\u0dd4")
        self.shows(f"\x1b[4m{AMU}\x1b[24m")
        self.type("\r")
        self.type("a")
        self.shows(f"   {AMU}   {AMMA}")
        self.type("\x04")
        self.ends(0)

    def test_keys_end_a_word_as_in_every_program(self):
        for ending in (" ", ",", "\r", "\t", "\x1b[D"):
            with self.subTest(ending=ending):
                rows = self.screen.decode(errors="replace").count("\r\n")
                self.type("am")
                self.shows("\x1b[4m\u0d85\u0db8\u0dca\x1b[24m")
                self.type(ending)
                self.shows("\x1b[4m\x1b[24m")
                kept = self.screen.decode(errors="replace").split("\r\n")
                self.assertEqual(len(kept), rows + 2)
                self.assertIn(f"\x1b[4m\u0d85\u0db8\u0dca\x1b[24m   {AMU}   {AMMA}", kept[-2])

    def test_no_control_character_of_the_list_is_drawn(self):
        self.type("k")
        self.shows("\x1b[4m\u0d9a\u0dca\x1b[24m   \u0d9a\\u{1B}]0;title\\u{7}\\u{9B}\\u{0}")

    def test_ends_by_a_signal_as_others_do(self):
        self.type("a")
        self.shows(AMMA)
        os.kill(self.process, signal.SIGTERM)
        self.ends(-signal.SIGTERM)


if __name__ == "__main__":
    unittest.main()
