#!/usr/bin/python3
"""Types real Sinhala for a long time, interrupted by all that happens on a desktop, and compares with a model.

    endurance.py --build FOLDER [--keys 100000] [--framework ibus|fcitx5] [--client gtk3|qt6-gtk3|…] [--session x11|gnome|kwin|sway]
                 [--seed S] [--jobs N] [--pauses 0,40]

The keys are shared out among the clients of each framework in each session. Between them are pauses of 0 to 40 ms; the
typist makes slips, looks at candidates, goes to other fields and windows, changes the engine, and sees engine and daemon
killed and started again. A seed, which is printed, says when. Exit status: 0 all is as the model says, or differs in
what a toolkit is known to do (docs/desktop.md); 1 anything else.
"""

import argparse
import concurrent.futures
import os
import random
import shutil
import signal
import subprocess
import sys
import threading
import traceback

FOLDER = os.path.dirname(os.path.abspath(__file__))
sys.path.insert(0, os.path.dirname(FOLDER))

import windows
from reading import Reading
from sentences import Words
from sessions import SESSIONS
from tally import Tally, say
from typist import Anew, Lost, Typist

GIVING_UP = 20  # differences
STOPPING = threading.Event()
NEEDS = {"x11": "openbox", "gnome": "gnome-shell", "kwin": "kwin_wayland", "sway": "sway"}


def type_on(typist, end):
    """Passages until so many keys were typed, or something was wrong or ended, from which nothing can be told."""
    tally, stage, model = typist.tally, typist.stage, typist.model
    try:
        typist.come_back()
        while tally.keys < end and not STOPPING.is_set():
            typist.passage()
    except Lost:
        seen = model.see(stage.texts())
        tally.see(seen)
        if not seen[0]:
            tally.tell("marked text", "marked is %r, not %r" % (stage.place.marked(), model.marked()))
    except Anew:
        pass
    except windows.Failure as failure:
        tally.tell("not come about", "%s; the fields are %r" % (failure, stage.texts()))


def at_last(start):
    """What starts programs, on a machine that may have much else to do."""
    for left in reversed(range(4)):
        try:
            return start()
        except (windows.Failure, subprocess.TimeoutExpired):
            if left == 0:
                raise


def staged(build, place, client):
    """A stage on a desk that is new."""
    kind, stage_on = SESSIONS[place][0]()
    desk = kind(build)
    try:
        return stage_on(desk, client)
    except BaseException:
        desk.close()
        raise


def type_on_a_desk(stage, words, pauses, tally, keys, chance):
    """The first half without suggestions, the second with, until something is wrong."""
    for suggests, end in ((False, keys // 2), (True, keys)):
        if tally.keys < end and not tally.has_new_difference():
            stage.desk.suggest(suggests, are_private=True)
            at_last(stage.reopen)
            type_on(Typist(stage, words, pauses, suggests, chance, tally), end)


def run(build, place, client, keys, pauses, seed):
    """The tally of one client of one framework in one session."""
    name = " ".join([*place, client])
    tally, chance = Tally(name, seed), random.Random("%d %s" % (seed, name))
    read = Reading(build)
    words = Words(read)
    while tally.keys < keys and tally.wrong.total() < GIVING_UP and not STOPPING.is_set():
        stage = None
        try:
            stage = at_last(lambda: staged(build, place, client))
            type_on_a_desk(stage, words, pauses, tally, keys, chance)
        except Exception as failure:
            tally.tell("the run ended", "".join(traceback.format_exception(failure)))
        finally:
            if stage:
                stage.close()
                stage.desk.close()
    read.close()
    say("\n".join(tally.summary()))
    return tally


def options():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--build", required=True, help="the folder in which everything was built")
    parser.add_argument("--keys", type=int, default=100000, help="in all")
    parser.add_argument("--framework", choices=list(windows.DESKS), action="append", help="instead of both")
    parser.add_argument("--session", choices=sorted(NEEDS), action="append", help="instead of X11")
    parser.add_argument("--client", action="append", help="instead of all")
    parser.add_argument("--seed", type=int, default=random.SystemRandom().randrange(10 ** 6))
    parser.add_argument("--pauses", default="0,40", help="the shortest and the longest, in milliseconds")
    parser.add_argument("--jobs", type=int, default=1, help="clients at a time")
    return parser.parse_args()


def runs_of(chosen):
    """What there is to be run, as (session and framework, client)."""
    sessions, frameworks = chosen.session or ["x11"], chosen.framework or list(windows.DESKS)
    runs = [((session, framework), client) for (session, framework), (_, clients) in SESSIONS.items()
            if session in sessions and framework in frameworks for client in clients if client in (chosen.client or clients)]
    if not runs:
        sys.exit("There is nothing like that: clients are %s" % ", ".join(SESSIONS["x11", "ibus"][1]))
    for session in sessions:
        if not shutil.which(NEEDS[session]):
            sys.exit("%s is not installed: scripts/need-packages desktop-test compositors" % NEEDS[session])
    return runs


def main():
    chosen = options()
    signal.signal(signal.SIGTERM, lambda *_: STOPPING.set())  # what was started is ended then, too
    runs = runs_of(chosen)
    print("seed %d" % chosen.seed, flush=True)
    keys, pauses = -(-chosen.keys // len(runs)), [int(pause) for pause in chosen.pauses.split(",")]
    with concurrent.futures.ThreadPoolExecutor(chosen.jobs) as pool:
        tallies = list(pool.map(lambda each: run(os.path.abspath(chosen.build), *each, keys, pauses, chosen.seed), runs))
    print("%d keys, %d steps, %d unexplained, %d known" % tuple(
        sum(values) for values in zip(*[(each.keys, each.steps, each.wrong.total(), each.known.total())
                                        for each in tallies])))
    return 1 if STOPPING.is_set() or any(each.wrong for each in tallies) else 0


if __name__ == "__main__":
    sys.exit(main())
