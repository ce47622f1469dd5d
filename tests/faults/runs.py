"""Runs of a program in a home folder of its own, with a call of the system that goes wrong."""

import errno
import json
import os
import subprocess
import tempfile
from contextlib import contextmanager
from dataclasses import dataclass, field
from pathlib import Path

PATIENCE = 60  # seconds; a run takes milliseconds, and five seconds where it waits for another program

# What a call may answer. What is not here fails as a broken disk does.
ERRORS = {
    "open": (errno.EMFILE, errno.EACCES, errno.ENOSPC, errno.EIO),
    "fopen": (errno.EMFILE, errno.EACCES, errno.EIO),
    "opendir": (errno.EMFILE, errno.EACCES),
    "fchown": (errno.EPERM, errno.EIO),
    "mkostemp": (errno.EMFILE, errno.EACCES, errno.ENOSPC),
    "read": (errno.EIO, errno.EINTR),
    "write": (errno.ENOSPC, errno.EIO, errno.EINTR),
    "pwrite": (errno.ENOSPC, errno.EIO, errno.EINTR),
    "fsync": (errno.EIO, errno.ENOSPC),
    "fdatasync": (errno.EIO, errno.ENOSPC),
    "ftruncate": (errno.EIO, errno.ENOSPC, errno.EINTR),
    "mmap": (errno.ENOMEM,),
    "flock": (errno.EINTR, errno.ENOLCK),
    "fcntl": (errno.EINTR, errno.ENOLCK, errno.EAGAIN),
    "rename": (errno.EIO, errno.EACCES, errno.ENOSPC),
    "mkdir": (errno.EACCES, errno.ENOSPC),
    "mknod": (errno.EACCES, errno.ENOSPC),
    "unlink": (errno.EACCES, errno.EIO),
}
WRITES = ("write", "pwrite")
TRANSFERS = ("read", "pread", *WRITES)


@dataclass
class Call:
    """A line of the log that the interposed library writes."""
    thread: int
    name: str
    result: int
    about: list


@dataclass
class Outcome:
    status: int
    output: bytes
    errors: str
    calls: list = field(default_factory=list)


class Home:
    """A home folder of nobody else, and the programs that run in it."""

    def __init__(self, folder, library, program):
        self.folder, self.library, self.program = Path(folder), os.path.abspath(library), os.path.abspath(program)

    @property
    def environment(self):
        return {"HOME": str(self.folder), "LC_ALL": "C.UTF-8", "PATH": os.environ["PATH"]}

    def run(self, arguments, given=b"", **faults):
        """Runs the program in the folder; `faults` are the library's settings without their VANOKA_FAULT_. Notes the
        calls where one of them is asked for."""
        environment, log = self.environment, self.folder / "calls.log"
        if faults:
            log.unlink(missing_ok=True)
            environment |= {"LD_PRELOAD": self.library, "VANOKA_FAULT_LOG": str(log)}
            environment |= {("VANOKA_FAULT_" + name.upper()).removesuffix("_HOW"): str(value)
                            for name, value in faults.items()}
        done = subprocess.run([self.program, *arguments], input=given, env=environment, cwd=self.folder,
                              capture_output=True, timeout=PATIENCE, check=False)
        errors = done.stderr.decode(errors="replace")
        return Outcome(done.returncode, done.stdout, errors, calls_in(log) if faults else [])

    def keys(self):
        """The keys as the program itself reads them: a sorted list of (key, letter)."""
        done = self.run(["keys", "export"])
        if done.status != 0:
            raise AssertionError(f"keys export: {done}")
        return sorted((each["key"], each["letter"]) for each in json.loads(done.output)["addedKeys"])

    def words(self):
        """What is learnt, as text."""
        done = self.run(["words", "export"])
        if done.status != 0 or done.errors:
            raise AssertionError(f"words export: {done}")
        return done.output.decode()


def calls_in(log):
    if not log.exists():
        return []
    lines = log.read_text(encoding="utf-8", errors="replace").split("\n")[:-1]  # one may be written just now
    fields = [line.split("\t") for line in lines]
    fields.sort(key=lambda each: int(each[0]))  # those of two threads may be written in another order
    return [Call(int(thread), name, int(result), about) for _, thread, name, result, *about in fields]


def wrongs(name):
    """What may go wrong with a call of this name."""
    return (*ERRORS.get(name, (errno.EIO,)), *(("short",) if name in TRANSFERS else ()))


@contextmanager
def home(library, program):
    # In memory, where there is such a folder: no run waits for a disk, and none depends on one.
    memory = "/dev/shm" if os.access("/dev/shm", os.W_OK) else None
    with tempfile.TemporaryDirectory(prefix="vanoka-faults-", dir=memory) as folder:
        yield Home(folder, library, program)
