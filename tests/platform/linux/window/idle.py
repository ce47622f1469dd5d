"""Sees that nothing wakes the settings window while nobody uses it: idle.py VANOKA-SETTINGS.

On no screen, where it does all that it does on one but to be seen.
"""

import os
import pathlib
import re
import subprocess
import sys
import tempfile
import time

PROGRAM = sys.argv[1]
WINDOW = 2.0  # seconds: that nothing happens has no state to wait for, and whatever polls or blinks does so in these
PATIENCE = 20.0
# The toolkit itself tells of each frame that it has drawn.
TELL_FRAMES = "qt.text.*=false;qt.scenegraph.time.renderloop=true"


def wake_ups(process):
    """How often its threads have left a processor: each time something had woken them, or they had more to do."""
    statuses = pathlib.Path(f"/proc/{process.pid}/task").glob("*/status")
    counts = [re.findall(r"ctxt_switches:\s+(\d+)", each.read_text()) for each in statuses]
    return sum(int(count) for thread in counts for count in thread)


def others_work():
    """Another program runs, and is seen to."""
    assert subprocess.run([PROGRAM, "--version"], check=True, capture_output=True, timeout=PATIENCE).stdout


def wake_ups_while_others_work(process):
    before, end, runs = wake_ups(process), time.monotonic() + WINDOW, 0
    while time.monotonic() < end or runs < 10:
        others_work()
        runs += 1
    return wake_ups(process) - before


def is_woken_by_an_edit(process, folder):
    before, end = wake_ups(process), time.monotonic() + PATIENCE
    (folder / "vanoka").mkdir(exist_ok=True)
    (folder / "vanoka" / "vanoka.customization.v1").write_text("{}")
    while wake_ups(process) == before:
        if time.monotonic() > end:
            return False
        time.sleep(0.01)
    return True


def main():
    with tempfile.TemporaryDirectory(prefix="vanoka-idle-") as folder:
        environment = {"HOME": folder, "XDG_CONFIG_HOME": folder, "XDG_RUNTIME_DIR": folder, "PATH": os.environ["PATH"],
                       "LC_ALL": "C.UTF-8", "QT_QPA_PLATFORM": "offscreen", "QT_LOGGING_RULES": TELL_FRAMES,
                       "DBUS_SESSION_BUS_ADDRESS": "disabled:"}
        with subprocess.Popen([PROGRAM], env=environment, stderr=subprocess.PIPE, text=True) as process:
            try:
                if not any("rame rendered" in line for line in process.stderr):
                    sys.exit("no frame was drawn")
                # What still belongs to the start comes first.
                counts = (wake_ups_while_others_work(process) for _ in range(5))
                if not any(count == 0 for count in counts):
                    sys.exit("something wakes it, in each of five windows of time")
                if not is_woken_by_an_edit(process, pathlib.Path(folder)):
                    sys.exit("an edit of the keys does not wake it, and so nothing was seen here")
            finally:
                process.kill()


main()
