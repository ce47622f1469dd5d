#!/usr/bin/env python3
"""Makes each call of the settings window's start fail, and kills it there, one after the other:
window.py LIBRARY VANOKA-SETTINGS [--every N].

On no screen. After each failure the window is drawn, or the program has stopped and said why; the keys that are stored
stay, and the next one is drawn.
"""

import os
import signal
import subprocess
import sys
import tempfile
import threading
from pathlib import Path

from starts import HUNG, PATIENCE, Faults, arguments, sweep, what_it_waits_for

KEYS = '{"addedKeys":[{"key":"zq","letter":"\u0d9a"}],"disabledKeys":["a"]}'
STOPPED = (1, 2, -signal.SIGABRT)  # the last one is the toolkit's own way
# The toolkit itself tells of each frame that it has drawn.
TELL_FRAMES = "qt.text.*=false;qt.scenegraph.time.renderloop=true"


class Desktop:
    def __init__(self, folder, library, program):
        self.faults, self.program = Faults(library, folder), program
        self.stored = Path(folder, "configuration/vanoka/vanoka.customization.v1")
        self.stored.parent.mkdir(parents=True)
        self.stored.write_text(KEYS, encoding="utf-8")
        self.environment = {
            "HOME": folder, "PATH": os.environ["PATH"], "LC_ALL": "C.UTF-8", "XDG_RUNTIME_DIR": folder,
            "XDG_CONFIG_HOME": f"{folder}/configuration", "XDG_CACHE_HOME": f"{folder}/cache",
            "DBUS_SESSION_BUS_ADDRESS": "disabled:", "QT_QPA_PLATFORM": "offscreen", "QT_LOGGING_RULES": TELL_FRAMES}

    def problem(self, fault):
        """What is wrong with a start in which a call goes wrong."""
        is_drawn, status, said = self.start(self.faults.environment(fault))
        wrongs = list(self.wrongs_of_what_is_stored())
        if fault.how != "kill" or status != -signal.SIGKILL or HUNG in said:
            wrongs.extend(self.wrongs(is_drawn, status, said))
        if not is_drawn and not self.start({})[0]:
            wrongs.append("the next one is not drawn")
        return "; ".join(wrongs)

    def start(self, environment):
        """Whether it was drawn, its status, and what it has said."""
        environment = {**self.environment, **environment}
        with subprocess.Popen([self.program], env=environment, stderr=subprocess.PIPE, text=True,
                              errors="replace") as process:
            said, is_drawn = [], False

            def end_what_hangs():
                said.append(HUNG + what_it_waits_for(process))
                process.kill()

            limit = threading.Timer(PATIENCE, end_what_hangs)
            limit.start()
            for line in process.stderr:
                said.append(line)
                if is_drawn := "rame rendered" in line:
                    process.terminate()
                    break
            process.wait()
            limit.cancel()
        return is_drawn, process.returncode, "".join(said)

    def wrongs(self, is_drawn, status, said):
        if not is_drawn and (status not in STOPPED or not said.strip()):
            yield f"it has drawn nothing and ended with {status}: {said}"
        if is_drawn and status != -signal.SIGTERM:
            yield f"it was drawn and ended with {status}: {said}"

    def wrongs_of_what_is_stored(self):
        left = [path.name for path in self.stored.parent.iterdir()]
        if left != [self.stored.name] or self.stored.read_text(encoding="utf-8") != KEYS:
            yield f"stored: {left}"


def main():
    given = arguments()
    with tempfile.TemporaryDirectory(prefix="vanoka-window-") as folder:
        desktop = Desktop(folder, *given.paths)
        sys.exit(sweep(desktop.faults, desktop.problem, given.every))


main()
