"""The test suites of some programs: how long each takes, and which lines of the code it comes past. One run of each
tells; what it told is kept beside the programs for as long as they stay the same.
"""

import contextlib
import hashlib
import json
import math
import os
import resource
import signal
import subprocess
from collections import defaultdict
from dataclasses import dataclass, field
from pathlib import Path
from pathlib import Path

# What a suite may take without a mutant, in seconds of the processor, and any in bytes.
LONGEST = 600
MEMORY = 8 << 30


@dataclass(frozen=True)
class Suite:
    program: str
    name: str  # empty where a program knows no options: all of it
    seconds: float = 0
    lines: dict = field(default_factory=dict, hash=False, compare=False)  # a path's lines

    def __str__(self):
        return f"{self.program} {self.name}".strip()

    def passes(self, path, number):
        return number in self.lines.get(path, ())


def limits(seconds):
    def limit():
        resource.setrlimit(resource.RLIMIT_CPU, (seconds, seconds + 1))
        resource.setrlimit(resource.RLIMIT_AS, (MEMORY, MEMORY))
        resource.setrlimit(resource.RLIMIT_CORE, (0, 0))
    return limit


def is_busy(group):
    """True while anything of a process group wants the processor, which others may have all the while."""
    for path in Path("/proc").glob("[0-9]*/task/*/stat"):
        with contextlib.suppress(OSError):  # it may have ended
            state, _, its_group = path.read_text(errors="replace").rpartition(")")[2].split()[:3]
            if state == "R" and int(its_group) == group:
                return True
    return False


def waited_for(run, seconds):
    """What a program ends with that leads its group; None when so many seconds are over and it only waits itself."""
    while True:
        try:
            return run.wait(seconds)
        except subprocess.TimeoutExpired:
            if not is_busy(run.pid):
                return None


class Programs:
    """The test programs of a build."""

    def __init__(self, build, copy):
        self.build = build
        self.copy = copy

    def status(self, suite, seconds, variables):
        """What a suite ends with after at most so many seconds of the processor; None when they are over, or when it
        does nothing but wait after ten times as many."""
        command = [str(self.build / "bin" / suite.program)]
        if suite.name:
            command += ["--gtest_brief", "--gtest_fail_fast", f"--gtest_filter={suite.name}.*"]
        run = subprocess.Popen(command, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, start_new_session=True,
                               cwd=self.build, preexec_fn=limits(math.ceil(seconds)),
                               env={**os.environ, "RC_PARAMS": "seed=1", "LLVM_PROFILE_FILE": "/dev/null", **variables})
        status = waited_for(run, 30 + 10 * seconds)
        if status is None:
            os.killpg(run.pid, signal.SIGKILL)
            run.wait()
            return None
        return None if -status in (signal.SIGXCPU, signal.SIGKILL) else status

    def suites(self, program):
        """Those of a program, as they were measured the last time when it is still the same."""
        kept = self.build / f"{program}.suites"
        digest = self._digest(program)
        if kept.is_file() and (known := json.loads(kept.read_text()))["digest"] == digest:
            return [Suite(program, name, seconds, {path: set(lines) for path, lines in passed.items()})
                    for name, seconds, passed in known["suites"]]
        suites = [self._measured(program, name) for name in self._names(program)]
        kept.write_text(json.dumps({"digest": digest, "suites": [
            (suite.name, suite.seconds, {path: sorted(lines) for path, lines in suite.lines.items()})
            for suite in suites]}))
        return suites

    def _digest(self, program):
        files = [self.build / "bin" / program, *sorted(self.build.rglob("*.so"))]
        return hashlib.sha256(b"".join(file.read_bytes() for file in files)).hexdigest()

    def _names(self, program):
        path = self.build / "bin" / program
        if b"gtest_filter" not in path.read_bytes():
            return [""]
        listing = subprocess.run([path, "--gtest_list_tests"], check=True, capture_output=True, text=True,
                                 env={**os.environ, "LLVM_PROFILE_FILE": "/dev/null"}).stdout
        return [line.split()[0].removesuffix(".") for line in listing.splitlines()
                if line.split(" ")[0].endswith(".")]

    def _measured(self, program, name):
        for old in self.build.glob("suite-*.profraw"):
            old.unlink()
        before = resource.getrusage(resource.RUSAGE_CHILDREN)
        status = self.status(Suite(program, name), LONGEST,
                             {"LLVM_PROFILE_FILE": str(self.build / "suite-%m.profraw")})
        if status != 0:
            raise SystemExit(f"{program} {name} fails already without a mutant ({status}).")
        after = resource.getrusage(resource.RUSAGE_CHILDREN)
        seconds = after.ru_utime - before.ru_utime + after.ru_stime - before.ru_stime
        return Suite(program, name, seconds, self._lines(program))

    def _lines(self, program):
        """The lines that a run came past, by their files."""
        # A shared library counts in a file of its own.
        profiles = list(self.build.glob("suite-*.profraw"))
        if not profiles:
            return {}
        merged = self.build / "suite.profdata"
        subprocess.run(["llvm-profdata", "merge", "-sparse", "-o", merged, *profiles], check=True)
        libraries = [part for file in sorted(self.build.rglob("*.so")) for part in ("-object", file)]
        told = subprocess.run(["llvm-cov", "export", "-format=lcov", "-skip-functions", "-instr-profile", merged,
                               self.build / "bin" / program, *libraries], check=True, capture_output=True, text=True)
        passed, path = defaultdict(set), None
        for line in told.stdout.splitlines():
            what, _, value = line.partition(":")
            if what == "SF":
                file = Path(value)
                path = str(file.relative_to(self.copy)) if file.is_relative_to(self.copy) else None
            elif what == "DA" and path and not path.startswith("tests/"):
                number, count = value.split(",")[:2]
                if count != "0":
                    passed[path].add(int(number))
        return dict(passed)
