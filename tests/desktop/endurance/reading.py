"""What Latin keys read as, which `singlish` tells, and what Backspace leaves of them."""

import functools
import subprocess

JOINER = "\u200d"


def is_sign(character):
    """The virama, the vowel signs, anusvara and visarga; a joiner before any other letter goes with it."""
    return "\u0d81" <= character <= "\u0d83" or "\u0dca" <= character <= "\u0ddf" or character in "\u0df2\u0df3"


class Reading:
    """A `singlish` that answers line by line."""

    def __init__(self, build, environment=None):
        self.filter = subprocess.Popen([build + "/bin/singlish"], stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True,
                                       encoding="utf-8", env=environment, start_new_session=True)

    def close(self):
        self.filter.stdin.close()
        self.filter.wait()

    @functools.lru_cache(maxsize=1 << 16)
    def __call__(self, keys):
        if not keys:
            return ""
        self.filter.stdin.write(keys + "\n")
        self.filter.stdin.flush()
        return self.filter.stdout.readline().rstrip("\n")


def without_last_part(text):
    rest = text[:-1]
    return rest if is_sign(text[-1]) else rest.rstrip(JOINER)


def after_backspace(read, keys):
    """The longest beginning of the keys, with or without an "a" after it, that reads as what Backspace leaves. There is at
    least one key."""
    wanted = without_last_part(read(keys))
    for count in range(len(keys), -1, -1):
        for rest in ([keys[:count]] if count < len(keys) else []) + [keys[:count] + "a"]:
            if read(rest) == wanted:
                return rest
    return keys[:-1]
