"""Sees that nothing wakes the settings window while nobody uses it: idle.py VANOKA-SETTINGS.

On no screen, where it does all that it does on one but to be seen.
"""

import ctypes
import os
import pathlib
import re
import subprocess
import sys
import tempfile
import time

PROGRAM = sys.argv[1]
WINDOW = 2.0  # seconds: that others' work does not wake it has no state to wait for
SELDOM = 600  # seconds: who wakes as seldom costs nothing
PATIENCE = 20.0
# The calls in which threads wait, and which of their arguments says for how long: as milliseconds, negative for ever,
# or by a pointer, which is null for ever.
WAITS = {"x86_64": {7: (2, "int"), 202: (3, "pointer"), 232: (3, "int"), 271: (2, "pointer"), 281: (3, "int")},
         "aarch64": {22: (3, "int"), 73: (2, "pointer"), 98: (3, "pointer")}}.get(os.uname().machine)
# The toolkit itself tells of each frame that it has drawn.
TELL_FRAMES = "qt.text.*=false;qt.scenegraph.time.renderloop=true"


def wake_ups(process):
    """How often its threads have left a processor: each time something had woken them, or they had more to do."""
    statuses = pathlib.Path(f"/proc/{process.pid}/task").glob("*/status")
    counts = [re.findall(r"ctxt_switches:\s+(\d+)", each.read_text()) for each in statuses]
    return sum(int(count) for thread in counts for count in thread)


def waits_for_long(call):
    """Whether a thread waits until something comes, by what the kernel shows of its call: the number and the
    arguments."""
    number, *arguments = call.split() or ["running"]
    if number == "running" or int(number) not in WAITS:
        return False
    at, kind = WAITS[int(number)]
    end = int(arguments[at], 16)
    return end == 0 if kind == "pointer" else not 0 <= ctypes.c_int32(end).value <= SELDOM * 1000


def alarms(process):
    """What wakes it by itself, unless it is awake: threads that wait for some time, and clocks that will run out."""
    folder = pathlib.Path(f"/proc/{process.pid}")
    try:
        calls = [(each / "syscall").read_text() + (each / "comm").read_text() for each in (folder / "task").iterdir()]
        files = "".join(each.read_text() for each in (folder / "fdinfo").iterdir())
    except FileNotFoundError:
        return ["it ends a thread, or closes a file"]
    clocks = re.findall(r"it_value: \((\d+), (\d+)\)", files)
    return ([call for call in calls if not waits_for_long(call.partition("\n")[0])]
            + [clock for clock in clocks if clock != ("0", "0") and int(clock[0]) <= SELDOM])


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
    if not WAITS:
        print("SKIPPED: for how long the window waits is not seen on this machine.")
    with tempfile.TemporaryDirectory(prefix="vanoka-idle-") as folder:
        environment = {"HOME": folder, "XDG_CONFIG_HOME": folder, "XDG_RUNTIME_DIR": folder, "PATH": os.environ["PATH"],
                       "LC_ALL": "C.UTF-8", "QT_QPA_PLATFORM": "offscreen", "QT_LOGGING_RULES": TELL_FRAMES,
                       "DBUS_SESSION_BUS_ADDRESS": "disabled:"}
        with subprocess.Popen([PROGRAM], env=environment, stderr=subprocess.PIPE, text=True) as process:
            try:
                if not any("rame rendered" in line for line in process.stderr):
                    sys.exit("no frame was drawn")
                # What still belongs to the start comes first.
                for _ in range(5):
                    count, waits = wake_ups_while_others_work(process), alarms(process) if WAITS else []
                    if count == 0 and not waits:
                        break
                else:
                    sys.exit(f"something has woken it {count} times, or will: {waits}")
                if not is_woken_by_an_edit(process, pathlib.Path(folder)):
                    sys.exit("an edit of the keys does not wake it, and so nothing was seen here")
            finally:
                process.kill()


main()
