"""Measures how soon the settings window is seen and how much memory it takes, in five runs one after the other.

    measure.py VANOKA-SETTINGS
"""

import os
import pathlib
import statistics
import subprocess
import sys
import time

RUNS = 5
# The toolkit itself tells of each frame that it has drawn.
TELL_FRAMES = {"QT_LOGGING_RULES": "qt.text.*=false;qt.scenegraph.time.renderloop=true"}


def field(process, name):
    for line in pathlib.Path(f"/proc/{process.pid}/{name[0]}").read_text().splitlines():
        if line.startswith(name[1]):
            return int(line.split()[1]) / 1024


def measure():
    """Milliseconds from the start of the process to its first frame, and mebibytes a second later."""
    start = time.perf_counter()
    process = subprocess.Popen([sys.argv[1]], env={**os.environ, **TELL_FRAMES}, stderr=subprocess.PIPE, text=True)
    try:
        for line in process.stderr:
            if "rame rendered" in line:
                break
        else:
            raise SystemExit("no frame was drawn")
        first_frame = (time.perf_counter() - start) * 1000
        time.sleep(1)
        return (
            first_frame,
            field(process, ("status", "VmRSS")),
            field(process, ("smaps_rollup", "Private_Dirty")),
        )
    finally:
        process.kill()
        process.wait()


measure()  # what all runs share is in memory then
results = [measure() for _ in range(RUNS)]
print("run   first frame   resident   of it private")
for number, (frame, resident, private) in enumerate(results, 1):
    print(f"{number:3}   {frame:8.0f} ms   {resident:4.1f} MiB        {private:4.1f} MiB")
medians = [statistics.median(column) for column in zip(*results)]
print(f"median{medians[0]:8.0f} ms   {medians[1]:4.1f} MiB        {medians[2]:4.1f} MiB")
