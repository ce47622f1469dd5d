"""Opens the settings window where its keys cannot be read or stored, and on desktops that tell of dark windows in
other ways than by a portal.

    window_in_trouble.py VANOKA-SETTINGS SINGLISH
"""

import json
import os
import pathlib
import sys

from desktop import DARK, LIGHT, Failure, Program, click, main, paper, portal, press, run, type_text, until

PROGRAM, SINGLISH = sys.argv[1:3]
CONFIGURATION = pathlib.Path(os.environ["XDG_CONFIG_HOME"])
STORED = CONFIGURATION / "vanoka" / "vanoka.customization.v1"
A = "\u0d85"
CHANGED = ", You changed this letter's keys"


def check(claim, what):
    if not claim:
        raise Failure(what)


def said(window, text):
    """Waits until the window says this above everything else, and nothing more."""
    until(f"notice {text!r}", lambda: window.names("alert") == ([text] if text else []))


def add(window, key):
    click(window.find("text", "New key"))
    type_text(key)
    until(f"{key} in the field", lambda: window.find("text", "New key").queryText().getText(0, -1) == key)
    press("Return")


def say_that_the_disk_is_full():
    """a full disk is said once, until there is room"""
    # A full disk, as one process sees it: no file may grow.
    with Program("sh", "-c", 'trap "" XFSZ; exec "$0"', PROGRAM) as window:
        window.find("list item", f"{A}, a")
        said(window, "")
        room = run("prlimit", f"--pid={window.process.pid}", "--fsize", "--output=SOFT,HARD", "--noheadings").split()
        run("prlimit", f"--pid={window.process.pid}", f"--fsize=0:{room[1]}")
        for key, shown in (("qa", "a  qa"), ("qw", "a  qa  qw")):
            add(window, key)
            window.find("list item", f"{A}, {shown}{CHANGED}")
            said(window, f"Your keys could not be stored in {STORED}: File too large.")
            check(not STORED.exists(), "nothing is stored")
        run("prlimit", f"--pid={window.process.pid}", f"--fsize={room[0]}:{room[1]}")
        said(window, "")
    check(keys() == ["qa", "qw"], f"all are stored: {keys()}")


def keys():
    return [added["key"] for added in json.loads(STORED.read_text())["addedKeys"]]


def say_that_there_is_no_home():
    """a folder that cannot be made is said"""
    with Program(PROGRAM, XDG_CONFIG_HOME="/dev/null") as window:
        add(window, "q")
        said(window, "Your keys could not be stored in /dev/null/vanoka/vanoka.customization.v1: Not a directory.")


def say_that_the_file_is_too_large():
    """a file that cannot be read is said, and left alone until it is set aside"""
    os.truncate(STORED, 50 * 1024 * 1024)
    way_out = 'File too large. Mend it, or set it aside with "singlish keys reset".'
    with Program(PROGRAM) as window:
        said(window, f"Your keys cannot be read from {STORED}: {way_out}")
        add(window, "q")
        said(window, f"Your keys could not be stored in {STORED}: {way_out}")
        check(STORED.stat().st_size == 50 * 1024 * 1024, "the file is as it was")
        run(SINGLISH, "keys", "reset")
        said(window, "")
    check(keys() == ["q"], f"what could not be stored is stored then: {keys()}")
    pathlib.Path(f"{STORED}.kept").unlink()


def say_that_the_file_is_damaged():
    """a damaged file is said, and kept when a key is added"""
    STORED.write_text("{")
    with Program(PROGRAM) as window:
        said(window, f"Your keys cannot be read from {STORED}: It is damaged. Your next change sets it aside.")
        add(window, "q")
        said(window, f"What could not be read is kept as {STORED}.kept.")
        check(pathlib.Path(f"{STORED}.kept").read_text() == "{", "it is kept as it was")
        window.find("list item", f"{A}, a  q{CHANGED}")
    check(keys() == ["q"], f"stored: {keys()}")


def be_dark_without_a_portal():
    """each sign of a dark desktop makes the window dark, unless a portal tells"""
    signs = [
        ("no sign", LIGHT, {}, None, ""),
        ("GTK's variable", DARK, {"GTK_THEME": "Adwaita:dark"}, None, ""),
        ("GTK's variable for light", LIGHT, {"GTK_THEME": "Adwaita"}, None, ""),
        ("GTK 4's file", DARK, {}, "gtk-4.0/settings.ini", "[Settings]\ngtk-application-prefer-dark-theme=1\n"),
        ("GTK 3's file", DARK, {}, "gtk-3.0/settings.ini", "[Settings]\ngtk-theme-name=Adwaita-dark\n"),
        ("KDE's colours", DARK, {}, "kdeglobals", "[Colors:Window]\nBackgroundNormal=42,46,50\n"),
        ("KDE's light colours", LIGHT, {}, "kdeglobals", "[Colors:Window]\nBackgroundNormal=239,240,241\n"),
        ("KDE's scheme", DARK, {}, "kdeglobals", "[General]\nColorScheme=BreezeDark\n"),
    ]
    for name, expected, environment, file, text in signs:
        path = CONFIGURATION / (file or "none")
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text(text)
        expect_paper(name, expected, environment)
        path.unlink()
    for scheme, expected in (("light", LIGHT), ("default", DARK)):
        with portal(scheme):
            expect_paper(f"a portal that tells {scheme}", expected, {"GTK_THEME": "Adwaita:dark"})


def expect_paper(name, expected, environment):
    with Program(PROGRAM, **environment) as window:
        frame = window.find("frame", "Vanoka Settings")
        until(f"{expected} by {name}", lambda: paper(frame) == expected)


os.environ["QT_LOGGING_RULES"] = "qt.text.*=false"
main(
    say_that_the_disk_is_full,
    say_that_there_is_no_home,
    say_that_the_file_is_too_large,
    say_that_the_file_is_damaged,
    be_dark_without_a_portal,
)
