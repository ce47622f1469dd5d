"""What the programs at a shell print, and what they say of an input that fails:
programs_at_a_shell.py SINGLISH VANOKA-LISTS VANOKA-SWIPE LAYOUT."""

import os
import pty
import re
import subprocess
import sys
import tempfile
import unittest

SINGLISH, VANOKA_LISTS, VANOKA_SWIPE, LAYOUT = map(os.path.abspath, sys.argv[1:])
del sys.argv[1:]
PATIENCE = 20  # seconds; everything here takes milliseconds

CONTROL = re.compile("[\x00-\x08\x0b-\x1f\x7f-\x9f\u202a-\u202e\u2066-\u2069]")
GAMA = "\u0d9c\u0db8"


class AtAShell(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory(prefix="vanoka-shell-")
        self.addCleanup(folder.cleanup)
        self.folder = folder.name
        self.environment = {**os.environ, "LC_ALL": "C.UTF-8", "XDG_CONFIG_HOME": self.folder,
                            "XDG_DATA_HOME": self.folder}

    def file(self, name, contents):
        path = os.path.join(self.folder, name)
        os.makedirs(os.path.dirname(path), exist_ok=True)
        with open(path, "wb") as file:
            file.write(contents if isinstance(contents, bytes) else contents.encode())
        return path

    def run_program(self, command, **options):
        return subprocess.run(command, env=self.environment, timeout=PATIENCE, check=False, **options)


class AnInputThatFails(AtAShell):
    def commands(self):
        words, strokes = self.file("words", f"{GAMA}\t5\n"), self.file("strokes", f"{GAMA}\t36\t1,1 9,9\n")
        return [
            [SINGLISH],
            [SINGLISH, "keys", "import", "-"],
            [SINGLISH, "words", "import", "-"],
            [VANOKA_LISTS, "count"],
            [VANOKA_LISTS, "english"],
            [VANOKA_LISTS, "check", "-"],
            [VANOKA_LISTS, "stats", "-"],
            [VANOKA_LISTS, "suggest", words],
            [VANOKA_LISTS, "suggest", "-"],
            [VANOKA_SWIPE, "measure", "-", LAYOUT, strokes],
            [VANOKA_SWIPE, "measure", words, "-", strokes],
            [VANOKA_SWIPE, "measure", words, LAYOUT, "-"],
            [VANOKA_SWIPE, "simulate", "-", LAYOUT],
        ]

    def test_is_told_by_every_program(self):
        # A folder, and a file that has nothing where reading begins.
        for path, reason in (("/", "Is a directory"), ("/proc/self/mem", "Input/output error")):
            failing = os.open(path, os.O_RDONLY)
            self.addCleanup(os.close, failing)
            for command in self.commands():
                with self.subTest(reason=reason, command=[os.path.basename(part) for part in command]):
                    done = self.run_program(command, stdin=failing, capture_output=True, text=True)
                    self.assertEqual((done.returncode, done.stdout), (3, ""))
                    self.assertRegex(done.stderr, f"^[a-z-]+: Cannot read( -)?: {reason}\n$")


class WhatIsPrinted(AtAShell):
    """Data is exact for other programs, and acts on no terminal."""

    def commands(self):
        keys = '{"addedKeys":[{"key":"q\u009b\u007f","letter":"\u202e"}],"disabledKeys":[]}'
        self.file("vanoka/vanoka.customization.v1", keys)
        words = self.file("words", f"{GAMA}\x1b]0;title\x07\x00\t5\n{GAMA}\u009b2J\t4\n")
        row = f"{GAMA}\x1b]0;title\x07\x00\t{GAMA}\u009b2J"
        return [
            ([SINGLISH], b"ka\x1b[31@\x9b\r\nka\rk\tka\n",
             "\u0d9a\x1b[31@".encode() + b"\x9b\r\n" + "\u0d9a\r\u0d9a\u0dca\t\u0d9a\n".encode(),
             "\u0d9a\\u{1B}[31@\\x9B\r\n\u0d9a\\r\u0d9a\u0dca\t\u0d9a\n"),
            ([SINGLISH, "keys", "export"], b"", keys.encode() + b"\n",
             keys.replace("\u009b", "\\u{9B}").replace("\u007f", "\\u{7F}").replace("\u202e", "\\u{202E}") + "\n"),
            ([VANOKA_LISTS, "suggest", words], "\u0d9c".encode(), f"\u0d9c\t{row}\n".encode(),
             f"\u0d9c\t{GAMA}\\u{{1B}}]0;title\\u{{7}}\\u{{0}}\t{GAMA}\\u{{9B}}2J\n"),
        ]

    def test_to_another_program_is_exact(self):
        for command, typed, exact, _ in self.commands():
            done = self.run_program(command, input=typed, capture_output=True)
            self.assertEqual((done.returncode, done.stdout, done.stderr), (0, exact, b""))

    def test_on_a_terminal_acts_on_nothing(self):
        for command, typed, _, shown in self.commands():
            printed = self.printed_on_a_terminal(command, typed)
            self.assertEqual(printed, shown.replace("\r\n", "\n").replace("\n", "\r\n"))
            self.assertIsNone(CONTROL.search(printed.replace("\r\n", "\n")), repr(printed))

    def test_a_picture_on_a_terminal_acts_on_nothing(self):
        words, strokes = self.file("words", "mama\t5\n"), self.file("strokes", "\u009b2J\t36\t1,1 9,9\n")
        printed = self.printed_on_a_terminal([VANOKA_SWIPE, "draw", words, LAYOUT, strokes], b"")
        self.assertIn("Meant: \\u{9B}2J", printed)
        self.assertIsNone(CONTROL.search(printed.replace("\r\n", "\n")))

    def printed_on_a_terminal(self, command, typed):
        master, slave = pty.openpty()
        self.addCleanup(os.close, master)
        done = self.run_program(command, input=typed, stdout=slave)
        os.close(slave)
        self.assertEqual(done.returncode, 0)
        printed = b""
        while True:
            try:
                piece = os.read(master, 4096)
            except OSError:  # nobody has the other end any more
                break
            printed += piece
        return printed.decode().replace("\r\r\n", "\r\n")


class KeysThatCannotBeRead(AtAShell):
    """Text is written with the built-in keys all the same, and nobody takes it for what their own keys give."""

    def test_are_told(self):
        for keys, reason in ((b"damaged", "It is damaged"), (None, "Is a directory")):
            stored = os.path.join(self.folder, "vanoka/vanoka.customization.v1")
            if keys is None:
                os.remove(stored)
                os.mkdir(stored)
            else:
                self.file("vanoka/vanoka.customization.v1", keys)
            for command, begins in (([SINGLISH], f"{GAMA}\n"), ([SINGLISH, "chart"], "")):
                done = self.run_program(command, input="gama\n", capture_output=True, text=True)
                self.assertEqual(done.returncode, 3)
                self.assertTrue(done.stdout.startswith(begins) and done.stdout)
                self.assertRegex(done.stderr, f"^singlish: Your keys cannot be read from .*: {reason}[^\n]*\n$")


class WhatAllPrograms(AtAShell):
    PROGRAMS = (SINGLISH, VANOKA_LISTS, VANOKA_SWIPE)

    def said(self, *command, **options):
        done = self.run_program(command, capture_output=True, text=True, stdin=subprocess.DEVNULL, **options)
        return done.returncode, done.stdout, done.stderr

    def test_tell_of_themselves(self):
        versions = set()
        for program in self.PROGRAMS:
            name = os.path.basename(program)
            status, output, errors = self.said(program, "--version")
            self.assertRegex(output, f"^{name} [0-9.]+\n$")
            self.assertEqual((status, errors), (0, ""))
            versions.add(output.split()[1])
            status, output, errors = self.said(program, "--help")
            self.assertIn(f"  {name} ", output)
            self.assertEqual((status, errors, self.said(program, "-h")), (0, "", (0, output, "")))
        self.assertEqual(len(versions), 1)

    def test_end_with_the_same_status(self):
        words = self.file("words", f"{GAMA}\t5\n")
        for status, commands in {
                1: ([SINGLISH, "keys", "remove", "zz"], [VANOKA_LISTS, "check", self.file("bad", "?\n")],
                    [VANOKA_SWIPE, "simulate", self.file("bad", "?\n"), LAYOUT]),
                2: ([SINGLISH, "chart", "--odd"], [VANOKA_LISTS, "check", "--odd", words],
                    [VANOKA_SWIPE, "simulate", words, LAYOUT, "--odd", "1"]),
                3: ([SINGLISH, "keys", "import", "/no/such"], [VANOKA_LISTS, "check", "/no/such"],
                    [VANOKA_SWIPE, "simulate", "/no/such", LAYOUT])}.items():
            for command in commands:
                self.assertEqual(self.said(*command)[0], status, command)

    def test_tell_when_nothing_can_be_written(self):
        words = self.file("words", "mama\t5\n")
        for command in ([SINGLISH, "chart"], [VANOKA_LISTS, "stats", words],
                        [VANOKA_SWIPE, "simulate", words, LAYOUT]):
            with open("/dev/full", "wb") as full:
                done = self.run_program(command, stdin=subprocess.DEVNULL, stdout=full, stderr=subprocess.PIPE)
            name = os.path.basename(command[0])
            self.assertEqual((done.returncode, done.stderr.decode()),
                             (3, f"{name}: Cannot write: No space left on device\n"))

    def test_take_values_either_way(self):
        words = self.file("words", "mama\t5\n")
        for program, *command in ([VANOKA_LISTS, "suggest", words, "--limit", "3"],
                                  [VANOKA_SWIPE, "simulate", words, LAYOUT, "--strokes", "3"]):
            apart = self.said(program, *command)
            self.assertEqual(apart[0], 0)
            self.assertEqual(self.said(program, *command[:-2], "=".join(command[-2:])), apart)


class WhatIsSaid(AtAShell):
    def test_of_arguments_acts_on_no_terminal(self):
        for command, said in (
                ([SINGLISH, "\x1b[2J"], "singlish: Not understood: \\u{1B}[2J\n"),
                ([SINGLISH, "keys", "off", "\x9b"], "singlish: \\u{9B} is not a built-in key\n"),
                ([VANOKA_LISTS, "\x1b[2J"], "vanoka-lists: Not understood: \\u{1B}[2J\n"),
                ([VANOKA_LISTS, "check", "/no/\x1b\n"], "vanoka-lists: Cannot read /no/\\u{1B}\\n: No such file"),
                ([VANOKA_SWIPE, "\x1b[2J"], "vanoka-swipe: Not understood: \\u{1B}[2J\n")):
            done = self.run_program(command, capture_output=True, stdin=subprocess.DEVNULL)
            self.assertTrue(done.stderr.decode().startswith(said), done.stderr)
            self.assertEqual(done.stdout, b"")


if __name__ == "__main__":
    unittest.main()
