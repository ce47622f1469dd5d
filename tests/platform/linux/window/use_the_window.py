"""Uses the settings window as a person would, from opening it to closing it, and looks at what is stored then.

    use_the_window.py VANOKA-SETTINGS SINGLISH [VANOKA]

With VANOKA, the window is opened by "Vanoka --settings".
"""

import json
import os
import pathlib
import pty
import signal
import subprocess
import sys

import pyatspi
from desktop import (
    DARK,
    LIGHT,
    ORANGE,
    PATIENCE,
    Failure,
    Program,
    click,
    colours,
    has,
    main,
    paper,
    portal,
    press,
    run,
    type_text,
    until,
)

PROGRAM, SINGLISH = sys.argv[1:3]
OPEN = [sys.argv[3], "--settings"] if len(sys.argv) > 3 else [PROGRAM]
HOME = pathlib.Path(os.environ["HOME"])
STORED = pathlib.Path(os.environ["XDG_CONFIG_HOME"]) / "vanoka" / "vanoka.customization.v1"
OPENED = HOME / "opened-links"

I, U, KA, BINDUWA = "\u0d89", "\u0d8b", "\u0d9a", "\u0d82"
CHANGED = ", You changed this letter's keys"


def check(claim, what):
    if not claim:
        raise Failure(what)


def make_browser():
    """Puts a browser in the way of links, which writes down what it is asked to open, and how."""
    browser = HOME / "bin" / "xdg-open"
    browser.parent.mkdir()
    browser.write_text(f'#!/bin/sh\necho "$1 ${{QT_IM_MODULE-unset}}" >> {OPENED}\n')
    browser.chmod(0o755)


def row(name):
    window.find("list item", name)


def message(text):
    return window.find("label", text)


def can_press(name):
    return window.find("push button", name).description != "Not available now"


def choose_letters():
    """choosing letters with the mouse and the arrow keys"""
    window.find("frame", "Vanoka Settings")
    row("\u0d85, a")
    check(not can_press("Reset to Defaults"), "nothing is changed yet")
    press("Down")
    window.find("heading", "\u0d86")
    press("End")
    window.find("heading", "\u25cc\u0d83")
    window.find("label", "Sign")
    press("Up")
    window.find("heading", "\u25cc" + BINDUWA)
    press("Home")
    window.find("heading", "\u0d85")
    click(window.find("list item", f"{I}, i"))
    window.find("heading", I)
    window.find("label", "ki \u2192 \u0d9a\u0dd2")


def type_a_taken_key():
    """typing a taken key shows the orange message"""
    message(f"Type the letters you want to press for {I}.")
    check(not can_press("Add"), "there is nothing to add")
    click(window.find("text", "New key"))
    type_text("u")
    shown = message(f"ku \u2192 \u0d9a\u0dd2  \u00b7  u currently types {U}; it will type {I} instead.")
    check(ORANGE in colours(shown), "the message is orange")
    check(can_press("Add"), "it can be added")


def refuse_keys():
    """a key that cannot be added stays in the field with the reason"""
    type_text("1")
    shown = message("Use English letters only")
    check("B3141F" in colours(shown), "the reason is red")
    press("Return")
    check(window.find("text", "New key").queryText().getText(0, -1) == "u1", "the field keeps its text")
    check(not can_press("Add"), "it cannot be added")
    press("BackSpace")
    message(f"ku \u2192 \u0d9a\u0dd2  \u00b7  u currently types {U}; it will type {I} instead.")


def add_it_with_return():
    """Return adds the key, and the other letter loses it"""
    press("Return")
    row(f"{I}, i  u{CHANGED}")
    row(f"{U}, no key{CHANGED}")
    window.find("label", "Your key")
    check(window.find("text", "New key").queryText().getText(0, -1) == "", "the field is empty")
    check(can_press("Reset to Defaults"), "there is something to reset")


def type_with_singlish():
    """an edit counts for the next key in a program that runs already"""
    os.write(terminal, b"ku ")
    read_terminal("\u0d9a\u0dd2")


def take_it_back():
    """the other letter takes its key back"""
    click(window.find("list item", f"{U}, no key{CHANGED}"))
    window.find("label", "No key types this letter right now")
    window.find("label", f"now types {I}")
    button = window.find("push button", "Take back, u")
    check(button.description == f"Make u type {U} again", "its help tells what it does")
    click(button)
    row(f"{U}, u")
    row(f"{I}, i")
    check(not can_press("Reset to Defaults"), "everything is as it was")


def switch_off_and_on():
    """switching a key off by the keyboard and on by the mouse"""
    switch = window.find("check box", "On, u")
    check(has(switch, pyatspi.STATE_CHECKED), "the switch is on")
    check(has(switch, pyatspi.STATE_FOCUSED), "the keyboard has stayed with the key that was taken back")
    press("space")
    row(f"{U}, no key{CHANGED}")
    window.find("label", "No key types this letter right now")
    until("the switch off", lambda: not has(window.find("check box", "On, u"), pyatspi.STATE_CHECKED))
    click(window.find("check box", "On, u"))
    row(f"{U}, u")
    window.find("label", "ku \u2192 \u0d9a\u0dd4")


def go_round_by_tab():
    """Tab goes round through every control"""
    click(window.find("list item", f"{I}, i"))
    seen = []
    for _ in range(7):
        press("Tab")
        seen.append(until("the keyboard", lambda: focused(but=seen[-1] if seen else None)))
    expected = ["Privacy policy", "Terms of use", "Made by ", "On, i", "New key", "Letters", "Privacy policy"]
    check(all(name.startswith(start) for name, start in zip(seen, expected)), f"in their order: {seen}")


def focused(but):
    """What has the keyboard, once it is something else."""
    kinds = ("link", "check box", "text", "push button", "list")
    names = [n.name for kind in kinds for n in window.all(kind) if has(n, pyatspi.STATE_FOCUSED)]
    return names[0] if names and names[0] != but else None


def add_and_remove():
    """adding a key by its button and removing it"""
    click(window.find("text", "New key"))
    type_text("q")
    message("kq \u2192 \u0d9a\u0dd2")
    click(window.find("push button", "Add"))
    row(f"{I}, i  q{CHANGED}")
    click(window.find("push button", "Remove this key, q"))
    row(f"{I}, i")
    window.gone("label", "Your key")


def reset():
    """the dialog resets everything, unless it is cancelled"""
    click(window.find("text", "New key"))
    type_text("qq")
    press("Return")
    row(f"{I}, i  qq{CHANGED}")
    click(window.find("push button", "Reset to Defaults"))
    question = "Remove all your keys and switch every built-in key back on?"
    window.find("label", question)
    press("Escape")
    window.gone("label", question)
    row(f"{I}, i  qq{CHANGED}")
    click(window.find("push button", "Reset to Defaults"))
    click(window.find("push button", "Cancel"))
    window.gone("label", question)
    row(f"{I}, i  qq{CHANGED}")
    click(window.find("push button", "Reset to Defaults"))
    window.find("label", question)
    buttons = until("both buttons", lambda: len(window.all("push button", "Reset to Defaults")) == 2)
    check(buttons, "one opens the dialog, one is in it")
    press("Tab", "Return")
    window.gone("label", question)
    row(f"{I}, i")
    check(not STORED.exists(), "nothing is stored for the defaults")


def start_again():
    """a second start brings the window to the front"""
    number = window.window()
    run("xdotool", "windowminimize", number)
    until("no window", lambda: number not in visible())
    second = subprocess.run(OPEN, timeout=PATIENCE, check=False)
    check(second.returncode == 0, "the second process ends with status 0")
    until("the window", lambda: number in visible())
    until("the keyboard", lambda: run("xdotool", "getactivewindow").strip() == number)


def visible():
    search = ["xdotool", "search", "--onlyvisible", "--name", "Vanoka Settings"]
    return subprocess.run(search, capture_output=True, text=True, check=False).stdout.split()


def see_edits_made_elsewhere():
    """coming back to the window shows the keys that were edited meanwhile"""
    about = subprocess.run([PROGRAM, "--about"], timeout=PATIENCE, check=False)
    check(about.returncode == 0, "the second process ends with status 0")
    window.find("frame", "About Vanoka")
    again = subprocess.run([PROGRAM, "--about"], timeout=PATIENCE, check=False)
    check(again.returncode == 0 and len(window.all("frame", "About Vanoka")) == 1, "there is one about panel")
    run(SINGLISH, "keys", "add", "w", I)
    press("Escape")
    window.gone("frame", "About Vanoka")
    row(f"{I}, i  w{CHANGED}")


def see_edits_while_looking():
    """the window shows an edit that is made elsewhere while it has the keyboard"""
    run(SINGLISH, "keys", "add", "v", I)
    row(f"{I}, i  w  v{CHANGED}")
    run(SINGLISH, "keys", "remove", "v")
    row(f"{I}, i  w{CHANGED}")


def keep_edits_of_both():
    """what is typed at once, into a window that is busy, is all stored, beside what is edited elsewhere"""
    click(window.find("list item", f"{I}, i  w{CHANGED}"))
    click(window.find("text", "New key"))
    until("the keyboard", lambda: has(window.find("text", "New key"), pyatspi.STATE_FOCUSED))
    window.process.send_signal(signal.SIGSTOP)
    run("xdotool", "key", "--delay", "0", *"zaw", "Return", *"zbw", "Return")
    run(SINGLISH, "keys", "add", "v", I)
    window.process.send_signal(signal.SIGCONT)
    row(f"{I}, i  w  v  zaw  zbw{CHANGED}")
    check(stored_keys() == ["w", "v", "zaw", "zbw"], f"stored: {stored_keys()}")
    for key in ("v", "zaw", "zbw"):
        run(SINGLISH, "keys", "remove", key)
    row(f"{I}, i  w{CHANGED}")


def stored_keys():
    return [added["key"] for added in json.loads(STORED.read_text())["addedKeys"]]


def follow_dark_and_light():
    """the open window follows the desktop's dark setting"""
    frame = window.find("frame", "Vanoka Settings")
    check(paper(frame) == LIGHT, "it is light")
    with portal("light") as tell:
        tell.write("dark\n")
        until("a dark window", lambda: paper(frame) == DARK)
        tell.write("light\n")
        until("a light window", lambda: paper(frame) == LIGHT)


def open_links():
    """links open in the browser, which keeps its input method"""
    click(window.find("link", "Terms of use"))
    until("the browser", OPENED.exists)
    until("the address", lambda: OPENED.read_text() == "https://vanoka.example/terms ibus\n")


def keep_input_methods_out():
    """no input method is loaded, though one is asked for"""
    maps = pathlib.Path(f"/proc/{window.process.pid}/maps").read_text()
    check("libQt6Gui" in maps, "this is the window's process")
    check("ibusplatforminputcontext" not in maps, "the input method's plug-in is not in it")


def close():
    """closing the window ends the program, and the keys are stored"""
    click(window.find("list item", f"{I}, i  w{CHANGED}"))
    press("ctrl+w")
    check(window.status() == 0, "its status is 0")
    stored = json.loads(STORED.read_text())
    check(stored == {"addedKeys": [{"key": "w", "letter": I}], "disabledKeys": []}, f"stored: {stored}")


def open_about_alone():
    """the about panel by itself, with its links, and Escape to end it"""
    with Program(PROGRAM, "--about") as about:
        about.find("frame", "About Vanoka")
        about.find("heading", "Vanoka \u00b7 \u0dc0\u0db1\u0ddd\u0d9a\u0dcf")
        tagline = "\u0d89\u0d82\u0d9c\u0dca\u200d\u0dbb\u0dd3\u0dc3\u0dd2 "
        check(any(name.startswith(tagline) for name in about.names("label")), "the tagline has its joiner")
        OPENED.unlink()
        click(about.find("link", "vanoka.example"))
        until("the browser", OPENED.exists)
        until("the address", lambda: OPENED.read_text().startswith("https://vanoka.example "))
        press("Escape")
        check(about.status() == 0, "its status is 0")


def read_terminal(expected):
    """Reads what singlish draws until it shows this."""
    seen = b""

    def look():
        nonlocal seen
        seen += os.read(terminal, 4096)
        return expected in seen.decode("utf-8", "ignore")

    until(f"{expected} in singlish: ", look)


make_browser()
typist, terminal = pty.fork()
if typist == 0:
    os.environ["TERM"] = "xterm"
    os.execv(SINGLISH, [SINGLISH])
try:
    with Program(*OPEN, QT_IM_MODULE="ibus", QT_LOGGING_RULES="qt.text.*=false") as window:
        main(
            choose_letters,
            type_a_taken_key,
            refuse_keys,
            add_it_with_return,
            type_with_singlish,
            take_it_back,
            switch_off_and_on,
            go_round_by_tab,
            add_and_remove,
            reset,
            start_again,
            see_edits_made_elsewhere,
            see_edits_while_looking,
            keep_edits_of_both,
            follow_dark_and_light,
            keep_input_methods_out,
            open_links,
            close,
            open_about_alone,
        )
finally:
    os.close(terminal)
    os.waitpid(typist, 0)
