#!/usr/bin/env python3
"""Checks that every #include points sideways or down: layers.py TREE.

The floors of the house and the walls between the core's rooms. Generated headers are not in the tree and are
left to the build, whose targets see only their own folder and those below.
"""

import re
import sys
from pathlib import Path

CORE = ["core/support", "core/script", "core/text", "core/product", "core/singlish", "core/typing", "core/settings",
        "core/words", "core/swipe"]
APPLICATION = CORE + ["Vanoka"]

# Where the files of a folder may include from; the longest folder that holds a file counts.
MAY_INCLUDE = {
    "core/support": ["core/support"],
    "core/script": ["core/script"],
    "core/text": ["core/text", "core/script", "core/support"],
    "core/product": ["core/product", "core/text", "core/support"],
    "core/singlish": ["core/singlish", "core/text", "core/script", "core/support"],
    "core/settings": ["core/settings", "core/singlish", "core/text", "core/support"],
    "core/typing": ["core/typing", "core/singlish", "core/text", "core/support"],
    "core/words": ["core/words", "core/singlish", "core/text", "core/script", "core/support"],
    "core/swipe": ["core/swipe", "core/singlish", "core/text", "core/script", "core/support"],
    "core": CORE,
    "Vanoka": APPLICATION,
    "c": APPLICATION + ["c"],
    "platform/linux": APPLICATION + ["platform/linux"],
    "platform/terminal": APPLICATION + ["platform/terminal"],
    "platform/ibus": APPLICATION + ["platform/linux", "platform/ibus"],
    "platform/fcitx5": APPLICATION + ["platform/linux", "platform/fcitx5"],
    "platform/macos": APPLICATION + ["platform/macos"],
    "tools/support": CORE + ["tools/support"],
    "tools/singlish": APPLICATION + ["platform/linux", "platform/terminal", "tools/support", "tools/singlish"],
    "tools/lists": APPLICATION + ["platform/linux", "platform/terminal", "tools/support", "tools/lists"],
    "tools/swipe": CORE + ["tools/support", "tools/swipe"],
}

INCLUDE = re.compile(r'^\s*#\s*(?:include|import)\s+"([^"]+)"', re.MULTILINE)


def rule_for(path):
    """What the longest folder with a rule that holds a path may include; nothing where no folder has one."""
    folders = [folder for folder in MAY_INCLUDE if path.is_relative_to(folder)]
    return MAY_INCLUDE[max(folders, key=len)] if folders else []


def found(top, including, name):
    """The file of the tree that an #include means, or None for one that is generated."""
    above = sorted(folder for floor in ("platform", "tools") for folder in (top / floor).iterdir() if folder.is_dir())
    for root in [top / including.parent, top / "core", top / "Vanoka", top / "c", *above, top / "platform/linux/doctor",
                 top / "platform/linux/words"]:
        if (root / name).is_file():
            return (root / name).resolve().relative_to(top)
    return None


def main():
    top = Path(sys.argv[1]).resolve()
    files = [path for folder in ("core", "Vanoka", "c", "platform", "tools") for path in sorted((top / folder).rglob("*"))
             if path.suffix in {".h", ".cpp", ".mm", ".in"}]
    checked = wrong = 0
    for path in files:
        including = path.relative_to(top)
        allowed = rule_for(including)
        for name in INCLUDE.findall(path.read_text(encoding="utf-8")):
            included = found(top, including, name)
            if included is None:
                continue
            checked += 1
            if not any(included.is_relative_to(folder) for folder in allowed):
                wrong += 1
                print(f"{including} must not include {included}")
    print(f"{checked} includes, {wrong} of them against the floors")
    return 1 if wrong or not checked else 0


sys.exit(main())
