"""Types on real pseudo-terminals and reads their screens: line_on_a_terminal.py PATH-TO-SINGLISH."""

import os
import pty
import re
import select
import signal
import subprocess
import sys
import tempfile
import time
import unittest

SINGLISH = os.path.abspath(sys.argv.pop(1))
PATIENCE = 60  # seconds; everything here takes milliseconds, on a machine that does nothing else
SILENCE = 0.3  # seconds; longer than a paste halts within itself


def until(condition, describe):
    """Waits until the condition holds; fails with what `describe` says when it does not."""
    end = time.monotonic() + PATIENCE
    while not condition():
        if time.monotonic() > end:
            raise AssertionError(describe())
        time.sleep(0.01)


class Tmux:
    """A terminal of its own, with a shell command running on it."""

    def __init__(self, command, columns=60, rows=12, lists=None):
        self.folder = tempfile.TemporaryDirectory(prefix="vanoka-tmux-")
        for name, text in (lists or {}).items():
            path = os.path.join(self.folder.name, "vanoka", name)
            os.makedirs(os.path.dirname(path), exist_ok=True)
            with open(path, "w", encoding="utf-8") as file:
                file.write(text)
        self.socket = os.path.join(self.folder.name, "socket")
        self.environment = {**os.environ, "XDG_CONFIG_HOME": self.folder.name,
                            "XDG_DATA_HOME": self.folder.name, "LC_ALL": "C.UTF-8"}
        self.environment.pop("TMUX", None)
        self.tmux("-f", "/dev/null", "new-session", "-d", "-x", str(columns), "-y", str(rows), command)

    def tmux(self, *arguments):
        done = subprocess.run(["tmux", "-u", "-S", self.socket, *arguments], env=self.environment,
                              capture_output=True, text=True, timeout=PATIENCE, check=True)
        return done.stdout

    def send(self, *keys):
        self.tmux("send-keys", *keys)

    def type(self, text):
        self.tmux("send-keys", "-l", text)

    def lines(self):
        return [line.rstrip() for line in self.tmux("capture-pane", "-p").splitlines() if line.strip()]

    def shows(self, *lines):
        """Waits until these are the last lines on the screen."""
        until(lambda: self.lines()[-len(lines):] == list(lines),
              lambda: f"expected {lines} at the end of {self.lines()}")

    def shows_underlined(self, text):
        """Waits until the underlined part of the last row is this."""
        pattern = re.compile("\x1b\\[(0;)?4m(\x1b\\[[34]9m)*" + text + "(\x1b\\[0m)?$", re.MULTILINE)
        until(lambda: pattern.search(self.tmux("capture-pane", "-pe")),
              lambda: repr(self.tmux("capture-pane", "-pe")))

    def cursor(self):
        x, y = self.tmux("display", "-p", "#{cursor_x} #{cursor_y}").split()
        return int(x), int(y)

    def close(self):
        subprocess.run(["tmux", "-S", self.socket, "kill-server"], capture_output=True, timeout=PATIENCE,
                       check=False)
        self.folder.cleanup()


class LineOnATerminal(unittest.TestCase):
    def start(self, command=SINGLISH, **options):
        tmux = Tmux(command, **options)
        self.addCleanup(tmux.close)
        return tmux

    def start_typing(self, **options):
        tmux = self.start(**options)
        until(lambda: "Ctrl-D" in "".join(tmux.lines()), lambda: f"no hint in {tmux.lines()}")
        return tmux

    def test_a_word_stands_underlined_until_it_goes_in(self):
        tmux = self.start_typing()
        tmux.type("amma")
        tmux.shows("අම්ම")
        tmux.shows_underlined("අම්ම")
        tmux.type(" gedhara")
        tmux.shows("අම්ම ගෙදර")
        tmux.shows_underlined("ගෙදර")
        tmux.send("Enter")
        tmux.type("k")
        tmux.shows("අම්ම ගෙදර", "ක්")

    def test_suggestions_stand_below_the_line(self):
        tmux = self.start(f"{SINGLISH} --suggest", lists={
            "si.tsv": "ගෙදර\t900\nගෙදරට\t400\n", "en.tsv": "hello\t3000\n", "emoji.tsv": "", "never-offered.txt": ""})
        until(lambda: "Ctrl-D" in "".join(tmux.lines()), lambda: f"no hint in {tmux.lines()}")
        tmux.type("gedh")
        tmux.shows("ගෙද්", "ගෙද්   ගෙදර   ගෙදරට")
        tmux.send("Down")
        tmux.shows("ගෙදර", "ගෙද්   ගෙදර   ගෙදරට")
        tmux.send("BTab", "BTab")
        tmux.shows("ගෙදරට", "ගෙද්   ගෙදර   ගෙදරට")
        tmux.send("Escape")
        tmux.shows("ගෙද්", "ගෙද්   ගෙදර   ගෙදරට")
        tmux.send("Tab")
        tmux.type(" k")
        tmux.shows("ගෙදර ක්", "ක්   ඛ්")
        tmux.type(" hello")
        tmux.send("Tab", "Enter")
        tmux.type("k")
        tmux.shows("ගෙදර ක් hello", "ක්", "ක්   ඛ්")
        tmux.send("Enter")
        tmux.send("Up")
        tmux.shows("ගෙදර ක් hello", "ක්", "ක්")

    def test_backspace_takes_visible_parts(self):
        tmux = self.start_typing()
        tmux.type("kya")
        tmux.shows("ක්\u200dය")
        for shown in ("ක්", "ක"):
            tmux.send("BSpace")
            tmux.shows(shown)
        tmux.type(" z ")
        tmux.shows("ක z")
        tmux.send("BSpace", "BSpace", "BSpace", "BSpace")
        tmux.type("m")
        tmux.shows("ම්")

    def test_escape_is_told_from_the_keys_that_begin_with_it(self):
        tmux = self.start_typing()
        tmux.type("amma")
        tmux.send("Escape")
        tmux.shows("amma")
        tmux.send("Left")
        tmux.type("k ")
        tmux.shows("ammක් a")
        tmux.send("Home")
        tmux.type("x.")
        tmux.shows("ං.ammක් a")
        tmux.send("End")
        tmux.type("x")
        tmux.shows("ං.ammක් aං")
        tmux.send("M-x")
        tmux.type("1")
        tmux.shows("ං.ammක් aං1")

    def test_the_caret_stands_behind_the_word(self):
        tmux = self.start_typing()
        row = tmux.cursor()[1]
        tmux.type("kal")
        tmux.shows("කල්")
        until(lambda: tmux.cursor() == (2, row), lambda: str(tmux.cursor()))
        tmux.send("Left")
        until(lambda: tmux.cursor() == (1, row), lambda: str(tmux.cursor()))
        tmux.send("Home")
        until(lambda: tmux.cursor() == (0, row), lambda: str(tmux.cursor()))

    def test_earlier_lines_come_back(self):
        tmux = self.start_typing()
        tmux.type("amma")
        tmux.send("Enter")
        tmux.type("k")
        tmux.send("Up")
        tmux.shows("අම්ම", "අම්ම")
        tmux.send("Down")
        tmux.shows("අම්ම", "ක්")

    def test_only_finished_lines_are_remembered(self):
        for key in ("Up", "Down"):
            with self.subTest(key=key):
                tmux = self.start_typing()
                tmux.type("amma ")
                tmux.send(key)
                tmux.type("kya")
                tmux.send("Enter", "Up")
                tmux.shows("අම්ම ක්\u200dය", "අම්ම ක්\u200dය")
                tmux.send("Up")
                tmux.type(".")
                tmux.shows("අම්ම ක්\u200dය", "අම්ම ක්\u200dය.")

    def test_an_edited_line_leaves_the_history_as_it_was(self):
        tmux = self.start_typing()
        tmux.type("amma")
        tmux.send("Enter")
        tmux.type("k")
        tmux.send("Up")
        tmux.type("1")
        tmux.send("Down")
        tmux.shows("අම්ම", "ක්")
        tmux.send("Up")
        tmux.shows("අම්ම", "අම්ම1")  # as it was left
        tmux.send("Enter", "Up", "Up")
        tmux.type("2")
        tmux.shows("අම්ම", "අම්ම1", "අම්ම2")

    def test_long_lines_wrap_and_resize(self):
        tmux = self.start_typing(columns=40)
        tmux.type("amma gedhara " * 8)

        def wraps_to(rows, text):
            """All of the text stands there once, in so many rows, under what is left of the hint."""
            def typed():
                lines = tmux.lines()
                return lines[max((i for i, line in enumerate(lines) if line.endswith(".")), default=-1) + 1:]
            until(lambda: len(typed()) == rows and "".join(typed()).replace(" ", "") == text.replace(" ", ""),
                  lambda: f"expected {rows} rows: {tmux.lines()}")

        wraps_to(2, "අම්ම ගෙදර " * 8)
        tmux.tmux("resize-window", "-x", "30")
        wraps_to(3, "අම්ම ගෙදර " * 8)
        tmux.tmux("resize-window", "-x", "20")
        wraps_to(4, "අම්ම ගෙදර " * 8)
        tmux.tmux("resize-window", "-x", "60")
        wraps_to(2, "අම්ම ගෙදර " * 8)
        tmux.type("k")
        wraps_to(2, "අම්ම ගෙදර " * 8 + "ක්")
        tmux.send("Enter")
        tmux.type("z")
        tmux.shows("z")

    def test_pasted_text_stays_as_it_is(self):
        tmux = self.start_typing()
        tmux.type("amma")
        tmux.tmux("set-buffer", " amma, kya\nsecond line")
        tmux.tmux("paste-buffer", "-p", "-r")
        tmux.shows("අම්ම amma, kya", "second line")
        tmux.type(" k")
        tmux.shows("අම්ම amma, kya", "second line ක්")

    def test_what_is_pasted_acts_neither_on_the_line_nor_on_the_terminal(self):
        tmux = self.start_typing()
        pasted = os.path.join(tmux.folder.name, "pasted")
        with open(pasted, "wb") as file:
            file.write(b"am\x1b[2Jma\x07\x08\x7f\x04\xc2\x9b2J \xff.")
        tmux.tmux("load-buffer", pasted)
        tmux.tmux("paste-buffer", "-p", "-r")
        tmux.shows("am[2Jma2J \ufffd.")

    def test_an_edit_of_the_keys_counts_at_the_next_key(self):
        tmux = self.start_typing()
        tmux.type("q")
        tmux.shows("q")
        subprocess.run([SINGLISH, "keys", "add", "q", "k"], env=tmux.environment, check=True,
                       capture_output=True, timeout=PATIENCE)
        tmux.type("a")
        tmux.shows("ක")

    def test_the_end_is_clean(self):
        for keys, status in ((["C-d"], 0), (["k", "C-c"], 130), (["k", "C-\\"], 131)):
            with self.subTest(keys=keys):
                tmux = self.start(f"before=$(stty -g); {SINGLISH}; echo status $?; "
                                  "[ $(stty -g) = $before ] && echo restored; sleep 60")
                until(lambda: "Ctrl-D" in "".join(tmux.lines()), tmux.lines)
                tmux.send(*keys)
                tmux.shows(f"status {status}", "restored")

    def test_signals_restore_the_terminal_and_keep_the_text(self):
        for name in ("TERM HUP INT QUIT USR1 USR2 ALRM VTALRM PROF XCPU XFSZ POLL PWR RTMIN RTMAX "
                     "SEGV ABRT BUS ILL FPE SYS TRAP").split():
            number = signal.Signals["SIG" + name]
            with self.subTest(signal=number):
                tmux = self.start("ulimit -c 0; before=$(stty -g); "
                                  f"sh -c 'echo $$ > $XDG_CONFIG_HOME/pid; exec {SINGLISH}'; "
                                  "echo status $?; [ $(stty -g) = $before ] && echo restored; sleep 60")
                until(lambda: "Ctrl-D" in "".join(tmux.lines()), tmux.lines)
                tmux.type("amma")
                tmux.shows("අම්ම")
                with open(os.path.join(tmux.folder.name, "pid"), encoding="ascii") as file:
                    os.kill(int(file.read()), number)
                tmux.shows(f"status {128 + number}", "restored")
                self.assertTrue(any(line.startswith("අම්ම") for line in tmux.lines()), tmux.lines())

    def test_signals_that_were_ignored_stay_so(self):
        tmux = self.start("trap '' HUP USR1; before=$(stty -g); "
                          f"sh -c 'echo $$ > $XDG_CONFIG_HOME/pid; exec {SINGLISH}'; "
                          "echo status $?; [ $(stty -g) = $before ] && echo restored; sleep 60")
        until(lambda: "Ctrl-D" in "".join(tmux.lines()), tmux.lines)
        with open(os.path.join(tmux.folder.name, "pid"), encoding="ascii") as file:
            process = int(file.read())
        for number in (signal.SIGHUP, signal.SIGUSR1, signal.SIGPIPE):
            os.kill(process, number)
        tmux.type("amma")
        tmux.shows("අම්ම")
        os.kill(process, signal.SIGTERM)
        tmux.shows("status 143", "restored")

    def test_a_pipe_that_nobody_reads_is_told(self):
        tmux = self.start(f"before=$(stty -g); {{ {SINGLISH}; echo status $? >&2; }} | "
                          "{ head -n1 > $XDG_CONFIG_HOME/out; touch $XDG_CONFIG_HOME/gone; }; "
                          "[ $(stty -g) = $before ] && echo restored; sleep 60")
        until(lambda: "Ctrl-D" in "".join(tmux.lines()), tmux.lines)
        tmux.type("amma")
        tmux.send("Enter")
        until(lambda: os.path.exists(os.path.join(tmux.folder.name, "gone")), tmux.lines)
        time.sleep(0.1)  # until the group that has closed its end is gone
        tmux.type("kya")
        tmux.send("Enter")
        tmux.shows("අම්ම", "ක්\u200dය", "singlish: Cannot write: Broken pipe", "status 3", "restored")
        with open(os.path.join(tmux.folder.name, "out"), encoding="utf-8") as file:
            self.assertEqual(file.read(), "අම්ම\n")

    def test_it_can_be_stopped_and_continued(self):
        tmux = self.start("bash --norc --noprofile")
        until(lambda: tmux.lines()[-1:] and tmux.lines()[-1][-1] in "#$", tmux.lines)
        tmux.type(SINGLISH)
        tmux.send("Enter")
        until(lambda: "Ctrl-D" in "".join(tmux.lines()), tmux.lines)
        tmux.type("amma")
        tmux.send("C-z")
        until(lambda: any("Stopped" in line for line in tmux.lines()), tmux.lines)
        tmux.type("fg")
        tmux.send("Enter")
        tmux.type(" k")
        until(lambda: tmux.lines()[-1] == "අම්ම ක්", tmux.lines)

    def test_finished_lines_go_where_the_output_goes(self):
        tmux = self.start(f"{SINGLISH} > $XDG_CONFIG_HOME/out; echo status $?; sleep 60")
        until(lambda: "Ctrl-D" in "".join(tmux.lines()), tmux.lines)
        tmux.type("amma")
        tmux.send("Enter")
        tmux.type("kya")
        tmux.send("C-c")
        tmux.shows("status 130")
        with open(os.path.join(tmux.folder.name, "out"), encoding="utf-8") as file:
            self.assertEqual(file.read(), "අම්ම\nක්\u200dය\n")

    def test_a_terminal_that_cannot_move_its_cursor_is_told(self):
        tmux = self.start(f"TERM=dumb {SINGLISH}; echo status $?; sleep 60")
        tmux.shows("singlish: This terminal cannot move its cursor: set TERM to",
                   "what it is, or pipe text through singlish", "status 3")


def read_in_vain():
    """Puts this process into the background of its terminal and has it ignore that: reading fails from then on."""
    for number in (signal.SIGTTIN, signal.SIGTTOU):
        signal.signal(number, signal.SIG_IGN)
    foreground = os.fork()
    if foreground == 0:
        signal.pause()  # until the session ends
    os.setpgid(foreground, foreground)
    os.tcsetpgrp(0, foreground)


def become_singlish(environment):
    """Ends this process where it cannot: nothing of the tests may run twice."""
    try:
        os.execve(SINGLISH, [SINGLISH], environment)
    finally:
        os._exit(127)


class TypingByBytes:
    """singlish on a pseudo-terminal of its own, to which bytes are sent as a test has them, and its finished lines
    in a file."""

    def __init__(self, prepare=lambda: None):
        self.folder = tempfile.TemporaryDirectory(prefix="vanoka-typing-")
        self.out = os.path.join(self.folder.name, "out")
        self.shown = b""
        self.status = None
        self.child, self.terminal = pty.fork()
        if self.child == 0:
            environment = {**os.environ, "TERM": "xterm", "LC_ALL": "C.UTF-8", "XDG_CONFIG_HOME": self.folder.name}
            prepare()
            os.dup2(os.open(self.out, os.O_CREAT | os.O_WRONLY, 0o600), 1)
            become_singlish(environment)
        self.shows("Ctrl-D")

    def type(self, data):
        os.write(self.terminal, data if isinstance(data, bytes) else data.encode())

    def shows(self, text):
        """Waits until the terminal has been sent this since the last time."""
        wanted = text.encode()
        end = time.monotonic() + PATIENCE
        while wanted not in self.shown:
            if time.monotonic() > end:
                raise AssertionError(f"{text!r} is not in {self.shown!r}")
            if select.select([self.terminal], [], [], 0.1)[0]:
                self.shown += os.read(self.terminal, 4096)
        drawn, self.shown = self.shown, b""
        return drawn

    def press_after_silence(self, key, counts):
        """Presses a key by itself until it counts: a busy machine may miss the silence before it."""
        end = time.monotonic() + PATIENCE
        while not counts():
            if time.monotonic() > end:
                raise AssertionError(f"{key!r} does not count")
            time.sleep(SILENCE)
            self.type(key)
            time.sleep(SILENCE)

    def has_shown(self, text):
        while select.select([self.terminal], [], [], 0)[0]:
            self.shown += os.read(self.terminal, 4096)
        return text.encode() in self.shown

    def hang_up(self):
        os.close(self.terminal)
        self.terminal = None

    def ends(self):
        """Waits for the end; the finished lines and the exit status."""
        end = time.monotonic() + PATIENCE
        while not self.has_ended():
            if time.monotonic() > end:
                raise AssertionError("it does not end")
            if self.terminal is not None and select.select([self.terminal], [], [], 0.01)[0]:
                try:
                    os.read(self.terminal, 4096)
                except OSError:  # the other end has been closed
                    time.sleep(0.01)
        return self.lines(), self.status

    def ends_unread(self):
        """The same while nobody reads what it draws."""
        until(self.has_ended, lambda: "it does not end")
        return self.lines(), self.status

    def has_ended(self):
        if self.status is None:
            process, status = os.waitpid(self.child, os.WNOHANG)
            if process:
                self.status = os.waitstatus_to_exitcode(status)
        return self.status is not None

    def lines(self):
        with open(self.out, encoding="utf-8") as file:
            return file.read()

    def close(self):
        if self.status is None:
            os.kill(self.child, signal.SIGKILL)
            os.waitpid(self.child, 0)
        if self.terminal is not None:
            os.close(self.terminal)
        self.folder.cleanup()


class BytesOnATerminal(unittest.TestCase):
    def start(self, **options):
        typing = TypingByBytes(**options)
        self.addCleanup(typing.close)
        return typing

    def begin_paste(self):
        typing = self.start()
        typing.type("amma")
        typing.shows("\u0d85\u0db8\u0dca\u0db8")
        typing.type(" \x1b[200~one\nkya two")
        typing.shows("\u0d85\u0db8\u0dca\u0db8 ")
        return typing

    def test_what_has_come_of_a_paste_is_kept(self):
        # A terminal that hangs up also ends the input, or fails to be read, and any of these may come first.
        for end, statuses in ((lambda typing: os.kill(typing.child, signal.SIGTERM), (-signal.SIGTERM,)),
                              (TypingByBytes.hang_up, (-signal.SIGHUP, 0, 3))):
            with self.subTest(statuses=statuses):
                typing = self.begin_paste()
                end(typing)
                lines, status = typing.ends()
                self.assertEqual(lines, "\u0d85\u0db8\u0dca\u0db8 one\nkya two\n")
                self.assertIn(status, statuses)

    def test_a_paste_whose_end_is_lost_lets_the_user_out(self):
        for key, status in ((b"\x03", -signal.SIGINT), (b"\x1c", -signal.SIGQUIT)):
            with self.subTest(key=key):
                typing = self.begin_paste()
                typing.press_after_silence(key, typing.has_ended)
                self.assertEqual(typing.ends(), ("\u0d85\u0db8\u0dca\u0db8 one\nkya two\n", status))

    def test_a_paste_whose_end_is_lost_can_be_gone_on_from(self):
        for key in (b"\x04", b"\x1a"):  # nothing to delete; nothing to stop this process with
            with self.subTest(key=key):
                typing = self.begin_paste()
                typing.press_after_silence(key, lambda: typing.has_shown("kya two"))
                typing.type(" kya\r\x04")
                self.assertEqual(typing.ends(), ("\u0d85\u0db8\u0dca\u0db8 one\nkya two \u0d9a\u0dca\u200d\u0dba\n", 0))

    def test_control_characters_within_a_paste_end_nothing(self):
        typing = self.start()
        typing.type("\x1b[200~one\x03")
        time.sleep(SILENCE)
        typing.type("two\x1c three")
        time.sleep(SILENCE)
        typing.type("\x04\x1b[201~\r\x04")
        self.assertEqual(typing.ends(), ("onetwo three\n", 0))

    def test_no_control_character_is_drawn_or_put_in(self):
        typing = self.start()
        typing.type("\x1b[200~a\u009b31mb\u009d0;title\u009c\u0007c\u202ed\x1b[201~")
        drawn = typing.shows("\\u{202E}d")
        typing.type("\u009b1")
        drawn += typing.shows("\\u{202E}d1")
        self.assertNotIn("\u009b".encode(), drawn)
        self.assertNotIn("\u009d".encode(), drawn)
        self.assertNotIn("\u202e".encode(), drawn)
        typing.type("\r\x04")
        self.assertEqual(typing.ends(), ("a31mb0;titlec\u202ed1\n", 0))

    def test_the_bytes_of_a_letter_may_come_one_by_one(self):
        typing = self.start()
        for byte in "k\u0d9a\U0001f600\r\x04".encode():
            typing.type(bytes([byte]))
            time.sleep(0.12)
        self.assertEqual(typing.ends(), ("\u0d9a\u0dca\u0d9a\U0001f600\n", 0))

    def test_a_signal_counts_while_the_terminal_takes_nothing(self):
        for number in (signal.SIGTERM, signal.SIGHUP):
            with self.subTest(signal=number):
                typing = self.start()
                os.set_blocking(typing.terminal, False)
                typed = 0
                while select.select([], [typing.terminal], [], 0.5)[1]:  # until what it draws has nowhere to go
                    typed += os.write(typing.terminal, b"1" * 16)
                os.kill(typing.child, number)
                lines, status = typing.ends_unread()
                self.assertEqual(status, -number)
                self.assertRegex(lines, "^1+\n$")
                self.assertLessEqual(len(lines) - 1, typed)

    def test_a_terminal_that_cannot_be_read_is_told(self):
        typing = self.start(prepare=read_in_vain)
        typing.type("a")
        typing.shows("singlish: Cannot read: Input/output error")
        self.assertEqual(typing.ends(), ("", 3))


class Utf8IsAskedFor(unittest.TestCase):
    """Without a UTF-8 locale the terminal is asked where its cursor stands after a character of two bytes."""

    def run_on_terminal(self, column):
        environment = {**os.environ, "TERM": "xterm", "LC_ALL": "C"}
        child, terminal = pty.fork()
        if child == 0:
            become_singlish(environment)
        shown = b""
        status = None
        try:
            end = time.monotonic() + PATIENCE
            answered = False
            while time.monotonic() < end:
                if select.select([terminal], [], [], 0.1)[0]:
                    try:
                        shown += os.read(terminal, 4096)
                    except OSError:
                        break
                if not answered and b"\x1b[6n" in shown:
                    answered = True
                    if column:
                        os.write(terminal, b"a\x1b[5;%dR" % column)
                if b"Ctrl-D" in shown and "අ".encode() in shown:
                    os.write(terminal, b"\r\x04")
            _, status = os.waitpid(child, 0)
            child = None
        finally:
            os.close(terminal)
            if child:
                os.kill(child, signal.SIGKILL)
                os.waitpid(child, 0)
        return os.waitstatus_to_exitcode(status), shown.decode()

    def test_a_terminal_that_shows_utf_8_is_typed_on(self):
        status, shown = self.run_on_terminal(2)
        self.assertEqual(status, 0)
        self.assertIn("අ", shown)  # typed before the answer came, and not lost

    def test_a_terminal_that_does_not_is_told(self):
        for column in (3, None):
            status, shown = self.run_on_terminal(column)
            self.assertEqual(status, 3)
            self.assertIn("This terminal does not show UTF-8", shown)


if __name__ == "__main__":
    unittest.main()
