#!/usr/bin/env python3
"""Looks into a bundle that was linked for both processors and installed, as far as that needs no Mac:
bundle_layout.py SOURCE-FOLDER BUILD-FOLDER INPUT-METHODS-FOLDER"""
import glob
import os
import plistlib
import re
import stat
import sys

import bundle
import macho

source, build, folder = sys.argv[1:]

# The tree, with the modes that everybody can use it by.
TREE = {
    "Vanoka.app": 0o755, "Vanoka.app/Contents": 0o755, "Vanoka.app/Contents/MacOS": 0o755,
    "Vanoka.app/Contents/MacOS/Vanoka": 0o755, "Vanoka.app/Contents/Info.plist": 0o644,
    "Vanoka.app/Contents/Resources": 0o755, "Vanoka.app/Contents/Resources/MenuIcon.pdf": 0o644,
    "Vanoka.app/Contents/Resources/Vanoka.icns": 0o644,
    "Vanoka.app/Contents/Resources/en.lproj": 0o755, "Vanoka.app/Contents/Resources/si.lproj": 0o755,
    "Vanoka.app/Contents/Resources/en.lproj/InfoPlist.strings": 0o644,
    "Vanoka.app/Contents/Resources/si.lproj/InfoPlist.strings": 0o644,
}
FRAMEWORKS = "/System/Library/Frameworks/"
APPKIT = FRAMEWORKS + "AppKit.framework/Versions/C/AppKit"
INPUT_METHOD_KIT = FRAMEWORKS + "InputMethodKit.framework/Versions/A/InputMethodKit"
CARBON = FRAMEWORKS + "Carbon.framework/Versions/A/Carbon"
LIBRARIES = {
    APPKIT, CARBON, INPUT_METHOD_KIT, FRAMEWORKS + "Cocoa.framework/Versions/A/Cocoa",
    FRAMEWORKS + "CoreFoundation.framework/Versions/A/CoreFoundation",
    FRAMEWORKS + "Foundation.framework/Versions/C/Foundation",
    "/usr/lib/libSystem.B.dylib", "/usr/lib/libc++.1.dylib", "/usr/lib/libobjc.A.dylib",
}
# Some of what has to come from where.
IMPORTS = {"_OBJC_CLASS_$_IMKServer": INPUT_METHOD_KIT, "_OBJC_CLASS_$_IMKInputController": INPUT_METHOD_KIT,
           "_TISRegisterInputSource": CARBON, "_OBJC_CLASS_$_NSApplication": APPKIT,
           "__Znwm": "/usr/lib/libc++.1.dylib", "_objc_msgSend": "/usr/lib/libobjc.A.dylib"}
TEXTS = [
    "Registered Vanoka input source\n", "TISRegisterInputSource failed: ",
    "Could not start the Vanoka input method server", "InputMethodConnectionName", "vanoka.customization.v1",
    "\u0d89\u0d82\u0d9c\u0dca\u200d\u0dbb\u0dd3\u0dc3\u0dd2 \u0d85\u0d9a\u0dd4\u0dbb\u0dd9\u0db1\u0dca "
    "\u0dc3\u0dd2\u0d82\u0dc4\u0dbd \u0dbd\u0dd2\u0dba\u0db1\u0dca\u0db1",
]
# What the controller implements. Of the three ways to take events there is one.
CONTROLLER = [".cxx_construct", ".cxx_destruct", "activateServer:", "commitComposition:", "deactivateServer:",
              "handleEvent:client:", "menu", "recognizedEvents:", "showAbout:", "showSettings:"]
ADHOC, SIGNED_BY_LINKER = 0x2, 0x20000


def read(name):
    with open(os.path.join(folder, "Vanoka.app/Contents", name), "rb") as file:
        return file.read()


def tree():
    found = {}
    for place, folders, files in os.walk(folder):
        for name in folders + files:
            path = os.path.join(place, name)
            assert not os.path.islink(path), path
            found[os.path.relpath(path, folder)] = stat.S_IMODE(os.stat(path).st_mode)
    return found


def configured(name):
    with open(os.path.join(build, "CMakeCache.txt"), encoding="utf-8") as file:
        return re.search(rf"^{name}:\w+=(.*)$", file.read(), re.M)[1]


def classes_of_the_source():
    names = []
    for path in glob.glob(os.path.join(source, "platform/macos/*.mm")):
        with open(path, encoding="utf-8") as file:
            names += re.findall(r"^@implementation (\w+)$", file.read(), re.M)
    return sorted(names)


def check_executable(executable, info):
    assert executable.kind == macho.EXECUTABLE
    for flag, bit in macho.FLAGS.items():
        assert executable.flags & bit, flag
    assert executable.has_main() and executable.loader() == ["/usr/lib/dyld"]
    oldest = tuple(map(int, info["LSMinimumSystemVersion"].split(".")))
    assert executable.build_versions() == [(1, oldest + (0,))], executable.build_versions()

    libraries, imports = executable.libraries(), executable.imports()
    assert sorted(libraries) == sorted(LIBRARIES), libraries
    for symbol, library in IMPORTS.items():
        assert imports[symbol] == library, (symbol, imports[symbol])

    classes = executable.classes()
    assert sorted(classes) == classes_of_the_source(), classes
    assert sorted(classes[info["InputMethodServerControllerClass"]]) == CONTROLLER, classes
    assert "_OBJC_CLASS_$_" + info["NSPrincipalClass"] in imports
    for text in TEXTS:
        assert text.encode() + b"\0" in executable.section("__cstring"), text


assert tree() == TREE, sorted(tree().items() ^ TREE.items())

info = plistlib.loads(read("Info.plist"))
assert b"@" not in read("Info.plist") and b"${" not in read("Info.plist")
identifier = configured("VANOKA_BUNDLE_IDENTIFIER")
bundle.check_information(info, identifier, configured("CMAKE_PROJECT_VERSION"), configured("VANOKA_COMPANY_NAME"))
for language, name in (("en", "Vanoka"), ("si", configured("VANOKA_SINHALA_NAME"))):
    bundle.check_names(read(f"Resources/{language}.lproj/InfoPlist.strings").decode(), identifier, name)
bundle.check_menu_icon(read("Resources/" + info["tsInputMethodIconFileKey"]))
bundle.check_application_icon(read("Resources/" + info["CFBundleIconFile"]))

executables = macho.slices(read("MacOS/" + info["CFBundleExecutable"]))
assert sorted(executables) == ["arm64", "x86_64"], sorted(executables)
for executable in executables.values():
    check_executable(executable, info)
# That processor runs nothing unsigned.
assert executables["arm64"].signature() == ADHOC | SIGNED_BY_LINKER, executables["arm64"].signature()
