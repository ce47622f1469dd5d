"""Starts of programs in which one call of the system goes wrong, each in turn."""

import argparse
import errno
import os
import shutil
import sqlite3
import subprocess
import time
from contextlib import closing
from dataclasses import dataclass
from itertools import islice
from pathlib import Path

from runs import TRANSFERS, calls_in, wrongs

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


def what_it_waits_for(process):
    """Of each thread, the name and where in the kernel it sleeps."""
    threads = Path(f"/proc/{process.pid}/task").iterdir()
    return "".join(f" {(thread / 'comm').read_text().strip()}: {(thread / 'wchan').read_text()}." for thread in threads)


def end(process):
    """What it says until it has ended, as it is asked to; one that does not is killed."""
    process.terminate()
    try:
        return process.communicate(timeout=PATIENCE)[1].decode(errors="replace")
    except subprocess.TimeoutExpired:
        waits = what_it_waits_for(process)
        process.kill()
        return process.communicate()[1].decode(errors="replace") + HUNG + waits


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

    def wrongs(self, before, times, fault):
        """What is stored in another way than it was, with the words that there were before. Since then one word was
        put in so many times, and learnt as often, or less often where a call failed."""
        for name, text in TEXTS.items():
            if (there := (self.configuration / name).read_text(encoding="utf-8")) != text:
                yield f"{name} is {there!r}"
        for folder in (self.configuration, self.data):
            yield from (path.name for path in folder.iterdir() if ".damaged" in path.name or ".kept" in path.name)
        words, learnt = self.words(), AMMA.strip()
        expected = before | {learnt: words.get(learnt, 0)} if words.get(learnt) else before
        least = 0 if fault.number else times
        if words != expected or not least <= words.get(learnt, 0) - before.get(learnt, 0) <= times:
            yield f"the words were {before} and are {words}"


@dataclass
class Fault:
    """What goes wrong with a call of a thread; number 0 is for none."""
    thread: str = ""  # what its first call is, with what that is about
    number: int = 0
    how: object = 0

    def is_over(self, calls, process):
        """Whether the process has come to the call, or has ended, which a kill takes a moment for."""
        return process.poll() is not None or self.how != "kill" and self.is_reached(calls)

    def is_reached(self, calls):
        """Whether the thread has come to the call: a kill comes before it is noted."""
        return len(calls_of(self.thread, calls)) >= self.number - (self.how == "kill")


def first_of(calls):
    call = calls[0]
    return "\t".join([call.name, *call.about[:-1 if call.name in TRANSFERS else None]])  # without the bytes


def threads_of(calls):
    """The calls of each thread, by what its first one is."""
    of_thread = {}
    for call in calls:
        of_thread.setdefault(call.thread, []).append(call)
    threads = {}
    for each in of_thread.values():
        threads.setdefault(first_of(each), []).extend(each)
    return threads


def calls_of(thread, calls):
    return threads_of(calls).get(thread, [])


class Faults:
    """The library that makes calls fail, from the first one about something, and the log that it writes into a
    folder."""

    def __init__(self, library, folder, first=""):
        self.library, self.log, self.first = os.path.abspath(library), Path(folder) / "calls.log", first

    def environment(self, fault):
        """What makes this call go wrong, of those that count."""
        self.log.unlink(missing_ok=True)
        return {"LD_PRELOAD": self.library, "VANOKA_FAULT_LOG": str(self.log), "VANOKA_FAULT_CALLS": ",".join(CALLS),
                "VANOKA_FAULT_FROM": self.first, "VANOKA_FAULT_THREAD": fault.thread,
                "VANOKA_FAULT_AT": str(fault.number), "VANOKA_FAULT": str(fault.how)}

    def calls(self):
        return calls_in(self.log)

    def has_opened_words(self):
        """Whether the program has come to the store of words: what is put in from then on is learnt."""
        return any("words.sqlite" in " ".join(call.about) for call in self.calls())


def all_of(threads):
    """Each fault that may be, and the call that it is meant for."""
    for thread, calls in threads.items():
        for number, call in enumerate(calls, 1):
            for how in (*wrongs(call.name), "kill"):
                yield Fault(thread, number, how), call


def arguments():
    """What a sweep is asked for: its paths, and to try one fault of how many."""
    parser = argparse.ArgumentParser()
    parser.add_argument("paths", nargs="+", type=os.path.abspath)
    parser.add_argument("--every", type=int, default=1)
    return parser.parse_args()


def sweep(faults, problem, every):
    """The status to exit with. `problem` starts the program with a fault, and tells what is wrong then. Threads are
    told apart, as their calls come in any order. Where another call went wrong than was meant nevertheless, or none,
    what comes of it is looked at all the same, and it does not count as tried; where that is so for more than a third,
    too little was tried."""
    plain = []
    for _ in range(3):
        wrong = problem(Fault())
        plain.append(faults.calls())
        if wrong or not plain[-1]:
            print(f"Without a fault: {wrong}")
            return 1
    threads = threads_of(min(plain, key=len))  # more calls are more rounds of what a thread does
    runs = others = failures = 0
    for fault, call in islice(all_of(threads), 0, None, every):
        wrong, made = problem(fault), faults.calls()
        came = calls_of(fault.thread, made)
        failed = came[fault.number - 1] if len(came) >= fault.number else call
        if fault.is_reached(made) and failed.name == call.name:
            runs += 1
            if isinstance(fault.how, int) and failed.result != -1:
                wrong = f"the call has not failed; {wrong}"
        else:
            others += 1
        if wrong:
            failures += 1
            print(f"{errno.errorcode.get(fault.how, fault.how)} at call {fault.number} of {fault.thread!r}, {failed}: "
                  f"{wrong}", flush=True)
    print(f"{runs} starts, {failures} failures; {others} more in which another call went wrong, or none")
    if is_too_little := 3 * others > runs + others:
        print("Of more than a third another call went wrong.")
    return 1 if failures or is_too_little or not runs else 0
