#!/usr/bin/env python3
"""Checks what the bundle is made of, as far as that needs no Mac: bundle_files.py SOURCE-FOLDER"""
import os
import plistlib
import subprocess
import sys
import tempfile

import bundle

source = sys.argv[1]
folder = os.path.join(source, "packaging/macos")
identifier, version = "example.vanoka.inputmethod.Vanoka", "1.2.3"
company, sinhala_name = "<Maker> & Sons, \"M\"", "\u0dc0 \"\\\""

with tempfile.TemporaryDirectory() as resources:
    subprocess.run(["cmake", f"-Dresources={resources}", f"-DVANOKA_BUNDLE_IDENTIFIER={identifier}",
                    f"-DPROJECT_VERSION={version}", f"-DVANOKA_COMPANY_NAME={company}",
                    f"-DVANOKA_SINHALA_NAME={sinhala_name}", "-P", os.path.join(folder, "BundleFiles.cmake")],
                   check=True)
    with open(os.path.join(resources, "Info.plist"), "rb") as file:
        info = plistlib.load(file)
    bundle.check_information(info, identifier, version, company)
    for language, name in (("en", "Vanoka"), ("si", sinhala_name)):
        with open(os.path.join(resources, f"{language}.lproj/InfoPlist.strings"), encoding="utf-8") as file:
            bundle.check_names(file.read(), identifier, name)
with open(os.path.join(source, "platform/macos/InputController.h"), encoding="utf-8") as file:
    assert "@interface " + info["InputMethodServerControllerClass"] + " :" in file.read()

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
