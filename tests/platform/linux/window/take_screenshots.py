"""Takes the pictures of the windows that the documentation shows, light and dark.

    take_screenshots.py VANOKA-SETTINGS SINGLISH FOLDER
"""

import sys
import time

from desktop import Program, box, click, photograph, portal, press, run, type_text

PROGRAM, SINGLISH, FOLDER = sys.argv[1:4]
CHANGED = ", You changed this letter's keys"


def picture(program, title, name):
    time.sleep(0.3)  # the caret, the switch and the tips have come to rest
    x, y, width, height = box(program.find("frame", title))
    photograph(f"{FOLDER}/{name}.png", f"{width}x{height}+{x}+{y}")


def out_of_the_way():
    run("xdotool", "mousemove", "1000", "700")


def take(scheme):
    def window_picture(name):
        out_of_the_way()
        picture(window, "Vanoka Settings", f"settings-{name}-{scheme}")

    run(SINGLISH, "keys", "reset")
    with Program(PROGRAM) as window:
        window.find("frame", "Vanoka Settings")
        click(window.find("list item", "\u0d87, A  ae"))
        window_picture("letter")

        click(window.find("text", "New key"))
        type_text("u")
        window.find("label", "ku \u2192 \u0d9a\u0dd0  \u00b7  u currently types \u0d8b; it will type \u0d87 instead.")
        window_picture("taken-key")

        press("Return")
        type_text("q1")
        window.find("label", "Use English letters only")
        window_picture("refused-key")

        click(window.find("list item", f"\u0d8b, no key{CHANGED}"))
        window.find("push button", "Take back, u")
        window_picture("take-back")

        click(window.find("push button", "Reset to Defaults"))
        window.find("push button", "Cancel")
        window_picture("reset")
        press("Escape")
        window.gone("push button", "Cancel")

        click(window.find("list item", "\u0d85, a"))
        press("End")
        window.find("heading", "\u25cc\u0d83")
        press("Up")
        window.find("heading", "\u25cc\u0d82")
        window_picture("sign")
    with Program(PROGRAM, "--about") as about:
        about.find("link", "Terms")
        out_of_the_way()
        picture(about, "About Vanoka", f"about-{scheme}")


for scheme in ("light", "dark"):
    with portal(scheme):
        take(scheme)
