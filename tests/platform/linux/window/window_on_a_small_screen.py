"""Uses the settings window on a screen that is smaller than the window would be.

    window_on_a_small_screen.py VANOKA-SETTINGS WIDTHxHEIGHT
"""

import json
import os
import pathlib
import sys

import pyatspi
from desktop import SCALE, Failure, Program, box, has, main, press, run, type_text, until

PROGRAM, SCREEN = sys.argv[1:3]
WIDTH, HEIGHT = (int(side) for side in SCREEN.split("x"))
STORED = pathlib.Path(os.environ["XDG_CONFIG_HOME"]) / "vanoka" / "vanoka.customization.v1"
QUESTION = "Remove all your keys and switch every built-in key back on?"


def check(claim, what):
    if not claim:
        raise Failure(what)


def is_inside(inner, outer):
    (x, y, width, height), (left, top, across, down) = inner, outer
    return left <= x and top <= y and x + width <= left + across and y + height <= top + down


def in_sight(kind, name):
    """Waits until all of it is in the window, which is on the screen."""
    until(f"{name} in sight", lambda: any(is_inside(box(node), box(frame())) for node in window.all(kind, name)))


def frame():
    return window.find("frame", "Vanoka Settings")


def go_to(kind, name):
    """Presses Tab until it has the keyboard."""
    for _ in range(12):
        if any(has(node, pyatspi.STATE_FOCUSED) for node in window.all(kind, name)):
            return
        press("Tab")
    until(f"the keyboard at {name}", lambda: has(window.find(kind, name), pyatspi.STATE_FOCUSED))


def fit():
    """the window and its frame are on the screen, and fill it where they can"""
    until("all of the window on the screen", lambda: is_inside(box(frame()), (0, 0, WIDTH, HEIGHT)))
    until("the frame on the screen", lambda: is_inside(outer_frame(), (0, 0, WIDTH, HEIGHT)))
    _, _, width, height = outer_frame()
    check(width > WIDTH - SCALE * 2 or width >= SCALE * 720, f"it is {width} pixels wide")
    check(height > HEIGHT - SCALE * 2 or height >= SCALE * 520, f"it is {height} pixels high")


def outer_frame():
    """The window with what the window manager has put around it."""
    x, y, width, height = box(frame())
    told = run("xprop", "-id", window.window(), "_NET_FRAME_EXTENTS").split("=")[1]
    left, right, top, bottom = (int(side) for side in told.split(","))
    return x - left, y - top, width + left + right, height + top + bottom


def add():
    """the field and its button come into sight with the keyboard"""
    go_to("text", "New key")
    in_sight("text", "New key")
    type_text("q")
    until("Add", lambda: window.find("push button", "Add").description != "Not available now")
    go_to("push button", "Add")
    in_sight("push button", "Add")
    press("Return")
    until("the key", STORED.exists)
    stored = json.loads(STORED.read_text())
    check(stored["addedKeys"][0]["key"] == "q", f"stored: {stored}")


def reset():
    """so does the button that resets, and its question fits"""
    go_to("push button", "Reset to Defaults")
    in_sight("push button", "Reset to Defaults")
    press("Return")
    window.find("label", QUESTION)
    in_sight("label", QUESTION)
    in_sight("push button", "Cancel")
    both = until("both buttons", lambda: len(window.all("push button", "Reset to Defaults")) == 2)
    check(both, "one opens the dialog, one is in it")
    check(all(is_inside(box(node), box(frame())) for node in window.all("push button", "Reset to Defaults")), "in sight")
    press("Tab", "Return")
    until("nothing stored", lambda: not STORED.exists())


def open_about():
    """the about panel fits, too"""
    with Program(PROGRAM, "--about") as about:
        panel = about.find("frame", "About Vanoka")
        until("all of it on the screen", lambda: is_inside(box(panel), (0, 0, WIDTH, HEIGHT)))


os.environ["QT_LOGGING_RULES"] = "qt.text.*=false"
with Program(PROGRAM) as window:
    main(fit, add, reset)
main(open_about)
