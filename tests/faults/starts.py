"""Starts of programs in which one call of the system fails, each in turn."""

import errno
import os
import time
from pathlib import Path

PATIENCE = 20  # seconds, for what takes milliseconds
CALLS = ("open", "fopen", "opendir", "stat", "access", "mkdir", "readlink", "mmap")
ERRORS = (errno.EIO, errno.EMFILE, errno.EACCES)
AMMA = "\u0d85\u0db8\u0dca\u0db8 "


def wait_for(is_so, patience=PATIENCE):
    """Whether it came to be so."""
    end = time.monotonic() + patience
    while time.monotonic() < end:
        if is_so():
            return True
        time.sleep(0.002)
    return False


class Faults:
    """The library that makes calls fail, and the log that it writes into a folder."""

    def __init__(self, library, folder):
        self.library, self.log = os.path.abspath(library), Path(folder) / "calls.log"

    def environment(self, number, error):
        """What makes this call fail, of those that count; none for the number 0."""
        self.log.unlink(missing_ok=True)
        return {"LD_PRELOAD": self.library, "VANOKA_FAULT_LOG": str(self.log), "VANOKA_FAULT_CALLS": ",".join(CALLS),
                "VANOKA_FAULT_AT": str(number), "VANOKA_FAULT": str(error)}

    def calls(self):
        return self.log.read_text(encoding="utf-8").splitlines() if self.log.exists() else []

    def call(self, number):
        """None where there were fewer."""
        calls = self.calls()
        return calls[number - 1] if 0 < number <= len(calls) else None


def sweep(faults, problem, begins=lambda call: True):
    """The status to exit with. `problem` starts the program so that a call fails in a way, and tells what is wrong
    then. The first call that fails is one that `begins`."""
    wrong = problem(0, 0)
    calls = faults.calls()
    if wrong or not calls:
        print(f"Without a fault: {wrong}")
        return 1
    first = next(number for number, call in enumerate(calls, 1) if begins(call))
    runs = failures = 0
    for error in ERRORS:
        for number in range(first, len(calls) + 1):
            wrong = problem(number, error)
            runs += faults.call(number) is not None  # two starts may differ by calls
            if wrong:
                failures += 1
                print(f"{errno.errorcode[error]} at call {faults.call(number)}: {wrong}")
    print(f"{runs} starts, {failures} failures")
    return 1 if failures or not runs else 0
