"""What became of mutants, kept in a file, so that a run can be interrupted and gone on with, and after a change only
what the change may concern is tried again.

An outcome holds as long as the mutant's file stays the same, and the tests that decided: those of the suite that
killed it, all where it is alive, none where the compiler refused it.
"""

import functools
import hashlib
import json
import re

SUITE = re.compile(r"^\s*(?:TYPED_)?(?:TEST|TEST_F|TEST_P|RC_GTEST_PROP|RC_GTEST_FIXTURE_PROP|TYPED_TEST)\(\s*(\w+)",
                   re.MULTILINE)


class Outcomes:
    def __init__(self, path, top):
        self.path = path
        self.top = top
        self.entries = {}
        if path.is_file():
            for line in path.read_text(encoding="utf-8").splitlines():
                entry = json.loads(line)
                self.entries[tuple(entry["mutant"])] = entry

    def known(self, mutant):
        """The outcome, or None where it is not known or holds no longer. To be asked before the mutant is tried."""
        # First of all, since the file is another one while its mutants are tried.
        digest = self._digest(mutant.path)
        entry = self.entries.get(self._key(mutant))
        holds = entry and entry["of"] == digest and \
            (entry["outcome"] == "refused" or entry["tests"] == self._tests(entry["by"]))
        return entry["outcome"] if holds else None

    def add(self, mutant, outcome, by):
        """`by` is the name of the suite that killed it, or empty."""
        entry = {"mutant": self._key(mutant), "outcome": outcome, "by": by, "of": self._digest(mutant.path),
                 "tests": self._tests(by)}
        self.entries[self._key(mutant)] = entry
        with self.path.open("a", encoding="utf-8") as file:
            file.write(json.dumps(entry, ensure_ascii=False) + "\n")

    @staticmethod
    def _key(mutant):
        return mutant.path, mutant.number, mutant.form

    @functools.cache
    def _digest(self, path):
        return hashlib.sha256((self.top / path).read_bytes()).hexdigest()[:16]

    @functools.cache
    def _tests(self, suite):
        """A digest of the files in which a suite stands, or of all tests."""
        # Before and after the slashes stand the values with which it runs.
        name = next((part for part in suite.split("/") if part in self._sources()), "")
        digests = [self._digest(path) for path in self._sources()[name]]
        return hashlib.sha256("".join(digests).encode()).hexdigest()[:16]

    @functools.cache
    def _sources(self):
        """The files of the tests by the suites that stand in them; under no name, all."""
        sources = {"": []}
        for file in sorted((self.top / "tests").rglob("*")):
            if file.suffix in (".cpp", ".h", ".c"):
                path = str(file.relative_to(self.top))
                sources[""].append(path)
                for name in set(SUITE.findall(file.read_text(encoding="utf-8"))):
                    sources.setdefault(name, []).append(path)
        return sources
