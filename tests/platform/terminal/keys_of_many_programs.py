"""Edits the user's keys by real processes: many at once, one that is suspended, users who may not read or write.

    keys_of_many_programs.py SINGLISH
"""

import ctypes
import fcntl
import json
import os
import pathlib
import resource
import shutil
import signal
import subprocess
import sys
import tempfile

PATIENCE = 120  # seconds; only a process that hangs takes as long
KA = "\u0d9a"
BUSY = "another program is changing it"
PROGRAM = sys.argv[1]
INHERITED = {name: value for name, value in os.environ.items() if name.endswith("SAN_OPTIONS")}


def obey_modes():
    """Even root may then read and write only what its owner may."""
    libc = ctypes.CDLL(None)
    for capability in (1, 2):  # CAP_DAC_OVERRIDE and CAP_DAC_READ_SEARCH
        libc.prctl(24, capability)  # PR_CAPBSET_DROP, which has no effect on others


class World:
    """A home of its own."""

    def __init__(self):
        self.top = pathlib.Path(tempfile.mkdtemp(prefix="vanoka-keys-"))
        self.folder = self.top / "config" / "vanoka"
        self.stored = self.folder / "vanoka.customization.v1"
        self.folder.mkdir(parents=True)

    def start(self, *arguments, before=obey_modes, **environment):
        return subprocess.Popen(
            [PROGRAM, "keys", *arguments],
            env={
                "XDG_CONFIG_HOME": str(self.folder.parent),
                "HOME": str(self.top),
                "LC_ALL": "C.UTF-8",
                **INHERITED,
                **environment,
            },
            preexec_fn=before,
            stdin=subprocess.DEVNULL,
            stdout=subprocess.PIPE,
            stderr=subprocess.PIPE,
            text=True,
        )

    def run(self, *arguments, **options):
        """The status, what it printed, and what it complained of."""
        process = self.start(*arguments, **options)
        output, errors = process.communicate(timeout=PATIENCE)
        return process.returncode, output, errors

    def document(self):
        return json.loads(self.stored.read_text())

    def names(self):
        return sorted(entry.name for entry in self.folder.iterdir())

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.folder.chmod(0o700)
        shutil.rmtree(self.top)


def equal(seen, expected, what):
    assert seen == expected, f"{what}: {seen!r} instead of {expected!r}"


def twenty_at_once(world):
    """twenty edits at once are twenty keys"""
    added = [f"zq{chr(ord('a') + number)}" for number in range(20)]
    waiting = [(key, world.start("add", key, KA)) for key in added]
    while waiting:
        key, process = waiting.pop(0)
        output, errors = process.communicate(timeout=PATIENCE)
        # On a machine that is slow enough, the last ones give up, say so, and are asked again.
        if process.returncode == 3 and BUSY in errors:
            waiting.append((key, world.start("add", key, KA)))
        else:
            equal((process.returncode, errors), (0, ""), "status")
    equal(sorted(entry["key"] for entry in world.document()["addedKeys"]), added, "keys")
    equal(world.names(), [world.stored.name], "files")


def killed_while_editing(world):
    """whoever is killed while editing leaves nothing that stays"""
    for _ in range(20):
        process = world.start("add", "q", KA)
        process.kill()
        process.communicate(timeout=PATIENCE)
    (world.folder / f"{world.stored.name}.unfinished-abcdef").touch()
    equal(world.run("add", "w", KA), (0, f"wa \u2192 {KA}\n", ""), "the next edit")
    equal(world.names(), [world.stored.name], "files")


def suspended_while_editing(world):
    """whoever waits in vain for another says so"""
    held = os.open(world.folder, os.O_RDONLY)
    fcntl.flock(held, fcntl.LOCK_EX)
    status, output, errors = world.run("add", "q", KA)
    equal((status, output), (3, ""), "no success")
    assert errors.endswith(": another program is changing it and does not finish.\n"), errors
    equal(world.names(), [], "nothing is stored")
    os.close(held)
    equal(world.run("add", "q", KA)[0], 0, "afterwards")


def unreadable(world):
    """what cannot be read is named, stays, and is set aside by reset"""

    def forbidden():
        world.stored.write_text('{"addedKeys":[],"disabledKeys":["aa"]}')
        world.stored.chmod(0)

    def large():
        world.stored.write_text("")
        os.truncate(world.stored, 50 * 1024 * 1024)

    reasons = {forbidden: "Permission denied", world.stored.mkdir: "Is a directory", large: "File too large"}
    for number, (make, reason) in enumerate(reasons.items(), 1):
        make()
        for arguments in [(), ("list",), ("export",), ("add", "q", KA), ("off", "k")]:
            status, output, errors = world.run(*arguments)
            equal((status, output), (3, ""), f"{reason}, {arguments}")
            assert f"{world.stored}: {reason}" in errors and "singlish keys reset" in errors, errors
        kept = f"{world.stored}.kept" + (f"-{number}" if number > 1 else "")
        equal(world.run("reset"), (0, "", f"singlish: What could not be read is kept as {kept}.\n"), "reset")
        equal(world.run("add", "q", KA)[0], 0, "a way out")
        equal(world.run("reset")[0], 0, "and back")
    equal(world.names(), [world.stored.name + end for end in (".kept", ".kept-2", ".kept-3")], "nothing is lost")


def damaged(world):
    """what is damaged is named, and kept when it is written over"""
    world.stored.write_text('{"addedKeys":[')
    for arguments in [(), ("list",), ("export",)]:
        status, output, errors = world.run(*arguments)
        equal((status, output), (3, ""), arguments)
        assert f"{world.stored}: It is damaged" in errors, errors
    kept = f"{world.stored}.kept"
    equal(
        world.run("add", "q", KA),
        (0, f"qa \u2192 {KA}\n", f"singlish: What could not be read is kept as {kept}.\n"),
        "the first edit",
    )
    equal(pathlib.Path(kept).read_text(), '{"addedKeys":[', "as it was")
    equal(world.run("list")[0], 0, "afterwards")


def unwritable(world):
    """a read-only folder, a full disk and an unusable home are no success"""
    world.stored.write_text('{"addedKeys":[],"disabledKeys":["aa"]}')

    def refused(reason, *arguments, **options):
        status, output, errors = world.run(*arguments, **options)
        equal((status, output), (3, ""), reason)
        assert errors.startswith("singlish: Your keys could not be stored") and reason in errors, errors
        equal(world.document()["disabledKeys"], ["aa"], "what was stored")

    world.folder.chmod(0o500)
    refused("Permission denied", "add", "q", KA)
    refused("Permission denied", "reset")
    world.folder.chmod(0o700)
    # A full disk, as one process sees it: no file may grow.
    refused("File too large", "add", "q", KA, before=no_room)
    equal(world.names(), [world.stored.name], "files")
    refused("Not a directory", "add", "q", KA, XDG_CONFIG_HOME=str(world.stored))


def no_room():
    signal.signal(signal.SIGXFSZ, signal.SIG_IGN)
    resource.setrlimit(resource.RLIMIT_FSIZE, (0, 0))


def many_keys(world):
    """twenty thousand keys are imported at once"""
    letters = [chr(ord("a") + number) for number in range(26)]
    keys = [f"Z{a}{b}{c}{d}" for a in "ab" for b in letters for c in letters for d in letters][:20000]
    document = {"addedKeys": [{"key": key, "letter": KA} for key in keys], "disabledKeys": []}
    (world.top / "keys.json").write_text(json.dumps(document))
    equal(world.run("import", str(world.top / "keys.json")), (0, "", ""), "import")
    equal(world.document(), document, "what is stored")
    status, output, _ = world.run("list")
    equal((status, output.count("your key")), (0, 20000), "list")
    with open(world.top / "large.json", "w") as large:
        large.write('{"addedKeys":[{"key":"q","letter":"' + "x" * (17 * 1024 * 1024) + '"}],"disabledKeys":[]}')
    status, output, errors = world.run("import", str(world.top / "large.json"))
    equal((status, output), (1, ""), "what is too large")
    assert "your keys stay as they are" in errors, errors
    equal(world.document(), document, "what is stored")


for step in (
    twenty_at_once,
    killed_while_editing,
    suspended_while_editing,
    unreadable,
    damaged,
    unwritable,
    many_keys,
):
    with World() as own:
        step(own)
    print(step.__doc__, flush=True)
