#!/usr/bin/env python3
"""Runs the scripts that install and package the bundle in a folder that plays the Mac, with stand-ins for the
commands of macOS: installing.py SOURCE-FOLDER"""
import os
import plistlib
import re
import shutil
import stat
import subprocess
import sys
import tempfile
import time
import unittest
from xml.etree import ElementTree

source = os.path.abspath(sys.argv.pop())

# What they do after writing down how they were called: AS is the user, SESSION the one of the screen's user.
COMMANDS = {
    # Who owns a folder may delete what root made in it, but not write it.
    "cmake": """
        case $1 in
        --preset) mkdir -p build/macos && echo "${3#*=}" >build/macos/folder ;;
        --install)
            manifest=build/macos/install_manifest_Vanoka.txt
            [ ! -e $manifest ] || [ "$(cat $manifest)" = "$AS" ] || [ "$AS" = root ] || exit 1
            echo "$AS" >$manifest
            mkdir -p "$(cat build/macos/folder)/Vanoka.app/Contents/MacOS"
            cp "$BIN/Vanoka" "$(cat build/macos/folder)/Vanoka.app/Contents/MacOS/Vanoka" ;;
        esac""",
    "sudo": """
        export AS=root
        while [ "${1#-}" != "$1" ]; do
            [ "$1" = -u ] && AS=$2 && shift
            shift
        done
        exec "$@" """,
    "launchctl": '[ "$1 $2" = "asuser 501" ] && shift 2 && SESSION=" in the session" exec "$@"',
    "Vanoka": '[ -z "$NEEDS_SESSION" ] || [ -n "$SESSION" ]',
    "stat": 'echo "$SCREEN_USER"',
    "id": 'if [ "$1" = -un ]; then echo "$AS"; else echo 501; fi',
    "killall": "exit 1", # none was running
    "codesign": "",
    "osascript": "",
    "plutil": "",
    "ditto": 'cp -Rp "$1" "$2"',
    "PlistBuddy": 'sed -n "s,.*<key>${2#Print :}</key><string>\\(.*\\)</string>.*,\\\\1,p" "$3"',
    "pkgbuild": '[ "$1" = --analyze ] || cp -Rp "$2" "$PACKAGED"',
    "productbuild": 'for package; do :; done; cp "$2" "$package"',
}
INFORMATION = {"CFBundleIdentifier": "example.inputmethod.Vanoka", "CFBundleShortVersionString": "1.2.3",
               "LSMinimumSystemVersion": "12.0"}


class Installing(unittest.TestCase):
    def setUp(self):
        self.root = self.enterContext(tempfile.TemporaryDirectory())
        self.home, self.bin = self.root + "/Users/me", self.root + "/bin"
        self.shared, self.own = (place + "/Library/Input Methods/Vanoka.app" for place in (self.root, self.home))
        self.scripts = self.root + "/source/packaging/macos"
        os.makedirs(self.home)
        shutil.copytree(source + "/packaging/macos", self.scripts)
        for name in ("install", "make-package", "package-scripts/postinstall"):
            self._move_into_root(os.path.join(self.scripts, name))
        os.mkdir(self.bin)
        for name, does in COMMANDS.items():
            with open(os.path.join(self.bin, name), "w") as file:
                file.write('#!/bin/bash\necho "$AS$SESSION: $(basename "$0") $*" >>"$CALLS"\n' + does + "\n")
            os.chmod(file.name, 0o755)

    def _move_into_root(self, path):
        with open(path, encoding="utf-8") as file:
            text = file.read()
        text = text.replace('"/Library/', f'"{self.root}/Library/').replace("/usr/libexec", self.bin)
        with open(path, "w", encoding="utf-8") as file:
            file.write(text)

    def run_script(self, name, *arguments, user="me", umask=0o022, **environment):
        """Status and what was printed."""
        result = subprocess.run(
            ["bash", os.path.join(self.scripts, name), *arguments], umask=umask, text=True,
            stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
            env={"PATH": self.bin + ":/usr/bin:/bin", "BIN": self.bin, "HOME": self.home, "AS": user,
                 "CALLS": self.root + "/calls", "SCREEN_USER": "me", **environment})
        return result.returncode, result.stdout

    def calls(self):
        with open(self.root + "/calls") as file:
            return file.read().splitlines()

    def registrations(self):
        return [call.split(":")[0] for call in self.calls() if call.endswith(": Vanoka --register")]

    def make_bundle(self, mode=0o755):
        os.makedirs(self.own + "/Contents")
        for folder in (self.own, self.own + "/Contents"):
            os.chmod(folder, mode)
        with open(self.own + "/Contents/Info.plist", "wb") as file:
            file.write(plistlib.dumps(INFORMATION).replace(b"</key>\n\t<", b"</key><"))
        os.chmod(file.name, mode & 0o666)

    def test_installs_for_oneself_after_it_was_installed_for_everybody(self):
        self.assertEqual(self.run_script("install", "--all-users")[0], 0)
        shutil.rmtree(self.shared)
        self.assertEqual(self.run_script("install")[0], 0)
        self.assertTrue(os.path.exists(self.own))
        self.assertEqual(self.registrations(), ["me", "me"])

    def test_a_second_copy_is_refused_and_the_first_one_named(self):
        for first, second, place in (([], ["--all-users"], self.own), (["--all-users"], [], self.shared)):
            self.assertEqual(self.run_script("install", *first)[0], 0)
            status, output = self.run_script("install", *second)
            self.assertNotEqual(status, 0)
            self.assertIn(place + " already", output)
            shutil.rmtree(place)

    def test_builds_with_as_many_compilers_as_there_are_processors(self):
        self.run_script("install")
        (build,) = [call for call in self.calls() if "cmake --build" in call]
        self.assertEqual(build.split(" --parallel ")[1], str(os.sysconf("SC_NPROCESSORS_ONLN")))

    def test_the_package_registers_as_the_user_at_the_screen(self):
        self.run_package()
        self.assertEqual(self.registrations(), ["me"])
        self.assertIn("root: killall -KILL -u me Vanoka", self.calls())

    def test_where_that_fails_the_package_registers_in_the_session_of_the_user(self):
        self.run_package(NEEDS_SESSION="yes")
        self.assertEqual(self.registrations(), ["me", "me in the session"])

    def test_with_nobody_at_the_screen_the_package_registers_nothing(self):
        self.run_package(SCREEN_USER="root")
        self.assertEqual(self.registrations(), [])

    def test_the_package_names_a_copy_of_the_user(self):
        self.assertNotIn("as well", self.run_package())
        self.make_bundle()
        self.assertIn(self.own + " as well", self.run_package())
        self.wait_for_call("me in the session: osascript ", self.own + " as well")

    def run_package(self, **environment):
        if not os.path.exists(self.shared):
            os.makedirs(self.shared + "/Contents/MacOS")
            shutil.copy(self.bin + "/Vanoka", self.shared + "/Contents/MacOS/Vanoka")
        status, output = self.run_script("package-scripts/postinstall", user="root", **environment)
        self.assertEqual(status, 0, output)
        return output

    def wait_for_call(self, beginning, part):
        """The installer does not wait for it."""
        end = time.monotonic() + 30
        while not any(call.startswith(beginning) and part in call for call in self.calls()):
            self.assertLess(time.monotonic(), end, self.calls())
            time.sleep(0.01)

    def test_the_package_is_for_everybody_whatever_the_mask(self):
        self.make_bundle(mode=0o700)
        self.make_package()
        for folder, _, files in os.walk(self.root + "/packaged"):
            for path, wanted in [(folder, 0o755)] + [(os.path.join(folder, name), 0o444) for name in files]:
                self.assertEqual(stat.S_IMODE(os.stat(path).st_mode) & wanted, wanted, path)
                self.assertEqual(stat.S_IMODE(os.stat(path).st_mode) & 0o022, 0, path)

    def test_the_package_is_for_the_systems_of_the_bundle(self):
        self.make_bundle()
        distribution = ElementTree.parse(self.make_package()).getroot()
        (oldest,) = distribution.iter("os-version")
        self.assertEqual(oldest.attrib, {"min": INFORMATION["LSMinimumSystemVersion"]})
        self.assertIs(oldest, distribution.find("volume-check/allowed-os-versions/os-version"))
        self.assertEqual({reference.get("id") for reference in distribution.iter("pkg-ref")},
                         {INFORMATION["CFBundleIdentifier"]})

    def make_package(self):
        package = self.root + "/Vanoka.pkg"
        status, output = self.run_script("make-package", self.own, package, umask=0o077,
                                         PACKAGED=self.root + "/packaged")
        self.assertEqual(status, 0, output)
        return package


class ByHand(unittest.TestCase):
    def test_every_build_names_its_number_of_compilers(self):
        builds = []
        for name in ("docs/macos.md", ".github/workflows/macos.yml"):
            with open(os.path.join(source, name), encoding="utf-8") as file:
                builds += re.findall(r"cmake --build build/macos (.*)", file.read())
        self.assertEqual(builds, ['--parallel "$(getconf _NPROCESSORS_ONLN)"'] * 2)


unittest.main()
