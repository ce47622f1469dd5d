#!/usr/bin/env python3
"""Checks that a library exports the names that its header declares and no other: symbols.py HEADER LIST LIBRARY.

LIST is the file from which the library is linked.
"""

import re
import subprocess
import sys
from pathlib import Path

header, listed_in, library = (Path(argument) for argument in sys.argv[1:])
declared = set(re.findall(r"^VANOKA_API\b[^(]*?(\w+)\(", header.read_text(encoding="utf-8"), re.MULTILINE))
listed = set(listed_in.read_text(encoding="utf-8").split())
table = subprocess.run(["nm", "--dynamic", "--defined-only", "--format=posix", library], capture_output=True,
                       text=True, check=True).stdout
# The version that all names have is itself a name, of type A.
exported = {line.split("@")[0] for line in table.splitlines() if line.split()[1] != "A"}

wrong = False
for name, names in (("listed", listed), ("exported", exported)):
    for surplus in sorted(names - declared):
        print(f"{surplus} is {name} and not declared")
    for missing in sorted(declared - names):
        print(f"{missing} is declared and not {name}")
    wrong = wrong or names != declared
print(f"{len(declared)} names")
sys.exit(1 if wrong or not declared else 0)
