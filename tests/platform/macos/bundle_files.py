#!/usr/bin/env python3
"""Checks what the bundle is made of, as far as that needs no Mac: bundle_files.py SOURCE-FOLDER"""
import os
import plistlib
import re
import subprocess
import sys
import tempfile

import bundle

source = sys.argv[1]
folder = os.path.join(source, "packaging/macos")
values = {"VANOKA_BUNDLE_IDENTIFIER": "example.vanoka.inputmethod.Vanoka", "PROJECT_VERSION": "1.2.3",
          "VANOKA_COMPANY_NAME": "A maker", "VANOKA_SINHALA_NAME": "\u0dc0"}
identifier = values["VANOKA_BUNDLE_IDENTIFIER"]


def configured(name):
    with open(os.path.join(folder, name), encoding="utf-8") as file:
        text = re.sub(r"@(\w+)@", lambda match: values[match[1]], file.read())
    assert "@" not in text
    return text


info = plistlib.loads(configured("Info.plist.in").encode())
bundle.check_information(info, identifier, values["PROJECT_VERSION"], values["VANOKA_COMPANY_NAME"])
with open(os.path.join(source, "platform/macos/InputController.h"), encoding="utf-8") as file:
    assert "@interface " + info["InputMethodServerControllerClass"] + " :" in file.read()

for language, name in (("en", "Vanoka"), ("si", values["VANOKA_SINHALA_NAME"])):
    bundle.check_names(configured(f"{language}.lproj/InfoPlist.strings.in"), identifier, name)

with tempfile.TemporaryDirectory() as made:
    menu, application = os.path.join(made, "menu.pdf"), os.path.join(made, "application.icns")
    subprocess.run([sys.executable, os.path.join(folder, "make-icons.py"), menu, application], check=True)
    with open(menu, "rb") as file:
        bundle.check_menu_icon(file.read())
    with open(application, "rb") as file:
        bundle.check_application_icon(file.read())

for script in ("install", "make-package", "sign", "notarise", "package-scripts/postinstall"):
    path = os.path.join(folder, script)
    assert os.access(path, os.X_OK), script
    subprocess.run(["bash", "-n", path], check=True)
