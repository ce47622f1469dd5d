#!/usr/bin/python3
"""Types real Sinhala for a long time, interrupted by all that happens on a desktop, and compares with a model.

    endurance.py --build FOLDER [--keys 100000] [--framework ibus|fcitx5] [--client gtk3|qt6-gtk3|…] [--session x11]
                 [--seed S] [--jobs N]

The keys are shared out among the clients of each framework in each session. Between them are pauses of 0 to 40 ms; the
typist makes slips, looks at candidates, goes to other fields and windows, changes the engine, and sees engine and daemon
killed and started again. A seed, which is printed, says when. Exit status: 0 all is as the model says, or differs in
what a toolkit is known to do (docs/desktop.md); 1 anything else.
"""

import argparse
import concurrent.futures
import os
import random
import signal
import sys
import traceback

FOLDER = os.path.dirname(os.path.abspath(__file__))
sys.path.insert(0, os.path.dirname(FOLDER))

import programs
import windows
from reading import Reading
from sentences import Words
from stage import Stage
from tally import Tally, say
from typist import Lost, Typist

CLIENTS = ["gtk3", "gtk4", "qt5", "qt6", "xim", "qt6-gtk3", "gtk4-qt5", "xim-gtk3"]
GIVING_UP = 20  # differences


def type_on(typist, end):
    """Passages until so many keys were typed or something was wrong, which ends what can be told from there."""
    tally, stage, model = typist.tally, typist.stage, typist.model
    try:
        typist.come_back()
        while tally.keys < end:
            typist.passage()
    except Lost:
        seen = model.see(stage.texts())
        tally.see(seen)
        if not seen[0]:
            tally.tell("marked text", "marked is %r, not %r" % (stage.place.marked(), model.marked()))
    except windows.Failure as failure:
        tally.tell(str(failure), "%s; the fields are %r" % (failure, stage.texts()))


def type_with(build, framework, client, words, tally, end, suggests, chance):
    """On a desk that is new."""
    desk = stage = None
    try:
        desk = windows.DESKS[framework](build)
        programs.start_manager(desk)
        desk.suggest(suggests, are_private=True)
        stage = Stage(desk, client)
        type_on(Typist(stage, words, suggests, chance, tally), end)
    finally:
        for each in (stage, desk):
            if each:
                each.close()


def run(build, framework, client, keys, seed):
    """The tally of one client of one framework, without suggestions and with them."""
    tally, chance = Tally("%s %s" % (framework, client), seed), random.Random(seed)
    read = Reading(build)
    words = Words(read)
    for suggests, end in ((False, keys // 2), (True, keys)):
        while tally.keys < end and tally.wrong.total() < GIVING_UP:
            try:
                type_with(build, framework, client, words, tally, end, suggests, chance)
            except Exception as failure:
                tally.tell("the run ended", "".join(traceback.format_exception(failure)))
    read.close()
    say("\n".join(tally.summary()))
    return tally


def options():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--build", required=True, help="the folder in which everything was built")
    parser.add_argument("--keys", type=int, default=100000, help="in all")
    parser.add_argument("--framework", choices=list(windows.DESKS), action="append", help="instead of both")
    parser.add_argument("--client", choices=CLIENTS, action="append", help="instead of all")
    parser.add_argument("--seed", type=int, default=random.SystemRandom().randrange(10 ** 6))
    parser.add_argument("--jobs", type=int, default=1, help="clients at a time")
    return parser.parse_args()


def main():
    chosen = options()
    signal.signal(signal.SIGTERM, lambda *_: sys.exit(1))  # what was started is ended then, too
    runs = [(framework, client) for framework in chosen.framework or windows.DESKS for client in chosen.client or CLIENTS]
    print("seed %d" % chosen.seed, flush=True)
    with concurrent.futures.ThreadPoolExecutor(chosen.jobs) as pool:
        tallies = list(pool.map(lambda each: run(os.path.abspath(chosen.build), *each, -(-chosen.keys // len(runs)),
                                                 chosen.seed), runs))
    print("%d keys, %d steps, %d unexplained, %d known" % tuple(
        sum(values) for values in zip(*[(each.keys, each.steps, each.wrong.total(), each.known.total())
                                        for each in tallies])))
    return 1 if any(each.wrong for each in tallies) else 0


if __name__ == "__main__":
    sys.exit(main())
