"""Starts of programs in which one call of the system goes wrong, each in turn."""

import errno
import os
import shutil
import sqlite3
import subprocess
import time
from contextlib import closing
from pathlib import Path

from runs import calls_in, wrongs

PATIENCE = 20  # seconds, for what takes milliseconds
CALLS = ("open", "fopen", "opendir", "readdir", "stat", "access", "mkdir", "mknod", "readlink", "mmap", "read", "pread",
         "write", "pwrite", "rename", "unlink", "fsync", "fdatasync", "ftruncate", "fcntl", "flock")
KA, AMMA = "\u0d9a", "\u0d85\u0db8\u0dca\u0db8 "
TEXTS = {"vanoka.customization.v1": '{"addedKeys":[{"key":"zq","letter":"%s"}],"disabledKeys":[]}' % KA,
         "vanoka.suggestions.v1": "suggestions=on\nprivate=off\nrows=6\n"}
HUNG = "It hung, and was killed."
LISTS = Path(__file__).parents[1] / "scenarios/suggestions/lists"


def wait_for(is_so, patience=PATIENCE):
    """Whether it came to be so."""
    end = time.monotonic() + patience
    while time.monotonic() < end:
        if is_so():
            return True
        time.sleep(0.002)
    return False


def end(process, times=1):
    """What it says until it has ended, as it is asked to so many times; one that does not is killed."""
    for _ in range(times):
        process.terminate()
        try:
            return process.communicate(timeout=PATIENCE)[1].decode(errors="replace")
        except subprocess.TimeoutExpired:
            pass
    process.kill()
    return process.communicate()[1].decode(errors="replace") + HUNG


class Stored:
    """Keys of the user's own, choices with suggestions on, lists, and the words that are learnt."""

    def __init__(self, configuration, data):
        self.configuration, self.data = Path(configuration, "vanoka"), Path(data, "vanoka")
        self.configuration.mkdir(parents=True)
        for name, text in TEXTS.items():
            (self.configuration / name).write_text(text, encoding="utf-8")
        shutil.copytree(LISTS, self.data)

    def words(self):
        """How often each was put in, while no program has them open."""
        path = self.data / "words.sqlite"
        if not path.exists():
            return {}
        with closing(sqlite3.connect(path)) as database:
            if not database.execute("SELECT 1 FROM sqlite_schema").fetchone():
                return {}
            return dict(database.execute("SELECT word, count FROM sinhala"))

    def wrongs(self, before, most):
        """What is stored in another way than it was, with the words that there were before. Since then one word was
        put in so many times, or less often where the store failed."""
        for name, text in TEXTS.items():
            if (there := (self.configuration / name).read_text(encoding="utf-8")) != text:
                yield f"{name} is {there!r}"
        for folder in (self.configuration, self.data):
            yield from (path.name for path in folder.iterdir() if ".damaged" in path.name or ".kept" in path.name)
        words, learnt = self.words(), AMMA.strip()
        expected = before | {learnt: words.get(learnt, 0)} if words.get(learnt) else before
        if words != expected or not 0 <= words.get(learnt, 0) - before.get(learnt, 0) <= most:
            yield f"the words were {before} and are {words}"


class Faults:
    """The library that makes calls fail, from the first one about something, and the log that it writes into a
    folder."""

    def __init__(self, library, folder, first=""):
        self.library, self.log, self.first = os.path.abspath(library), Path(folder) / "calls.log", first

    def environment(self, number, how):
        """What makes this call go wrong, of those that count; none for the number 0."""
        self.log.unlink(missing_ok=True)
        return {"LD_PRELOAD": self.library, "VANOKA_FAULT_LOG": str(self.log), "VANOKA_FAULT_CALLS": ",".join(CALLS),
                "VANOKA_FAULT_FROM": self.first, "VANOKA_FAULT_AT": str(number), "VANOKA_FAULT": str(how)}

    def calls(self):
        return calls_in(self.log)

    def reached(self, number, how):
        """Whether the program has come to this call: a kill comes before it is noted."""
        return len(self.calls()) >= number - (how == "kill")


def sweep(faults, problem):
    """The status to exit with. `problem` starts the program so that a call goes wrong in a way, and tells what is wrong
    then. Two starts may differ by calls and by their order: where another went wrong than was meant, what comes of it
    is looked at all the same, and it does not count as tried."""
    wrong = problem(0, 0)
    calls = faults.calls()
    if wrong or not calls:
        print(f"Without a fault: {wrong}")
        return 1
    runs = others = failures = 0
    for number, call in enumerate(calls, 1):
        for how in (*wrongs(call.name), "kill"):
            wrong = problem(number, how)
            came = faults.calls()[:number]
            failed = came[number - 1] if isinstance(how, int) and len(came) == number else call
            if faults.reached(number, how) and failed.name == call.name:
                runs += 1
                if isinstance(how, int) and failed.result != -1:
                    wrong = f"the call has not failed; {wrong}"
            else:
                others += 1
            if wrong:
                failures += 1
                print(f"{errno.errorcode.get(how, how)} at call {number}, {failed}: {wrong}", flush=True)
    print(f"{runs} starts, {failures} failures; {others} more in which another call went wrong, or none")
    return 1 if failures or not runs else 0
