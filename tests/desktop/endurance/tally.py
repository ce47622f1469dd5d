"""What a run has met: keys, steps, and differences by kind, those that are a toolkit's own apart from all others."""

import collections
import threading

PRINTING = threading.Lock()


def say(text):
    with PRINTING:
        print(text, flush=True)


class Tally:
    def __init__(self, name, seed):
        self.name = name
        self.seed = seed
        self.keys = 0
        self.steps = 0
        self.doings = collections.deque(["begin"], maxlen=6)
        self.strokes = collections.deque(maxlen=80)
        self.known = collections.Counter()  # by reason
        self.wrong = collections.Counter()  # by kind
        self.said = 0

    def typed(self, strokes):
        self.keys += len(strokes)
        self.strokes += strokes

    def doing(self, what):
        self.doings.append(what)

    def tell(self, kind, what):
        self.wrong[kind] += 1
        say("%s seed %d step %d, after %s: %s\n    typed last, with milliseconds before: %s" % (
            self.name, self.seed, self.steps, ", ".join(self.doings), what,
            " ".join("%d %s" % (pause, key) for key, pause in self.strokes)))

    def has_new_difference(self):
        """Since it was asked last."""
        before, self.said = self.said, self.wrong.total()
        return self.said > before

    def see(self, seen):
        """What a model found when it saw the fields."""
        wrong, reasons = seen
        self.known.update(reasons)
        for field, allowed, found in wrong:
            self.tell(kind_of([each.text for each in allowed], found),
                      "field %d has %r, not %s" % (field, found, " or ".join(map(str, allowed))))

    def summary(self):
        lines = ["%s seed %d: %d keys, %d steps, %d unexplained, %d known" % (
            self.name, self.seed, self.keys, self.steps, self.wrong.total(), self.known.total())]
        lines += ["    %d %s" % (count, kind) for kind, count in sorted(self.wrong.items())]
        return lines + ["    %d known: %s" % (count, reason) for reason, count in sorted(self.known.items())]


def kind_of(allowed, found):
    """What has happened to the text, as far as that can be told from it."""
    wanted = min(allowed, key=lambda text: abs(len(text) - len(found)))
    if collections.Counter(wanted) == collections.Counter(found):
        return "out of order"
    missing = collections.Counter(wanted) - collections.Counter(found)
    added = collections.Counter(found) - collections.Counter(wanted)
    return "another text" if missing and added else "missing" if missing else "too much"
