#!/usr/bin/env python3
"""Checks what the bundle is made of, as far as that needs no Mac: bundle_files.py SOURCE-FOLDER"""
import os
import plistlib
import re
import struct
import subprocess
import sys
import tempfile
import zlib

source = sys.argv[1]
folder = os.path.join(source, "packaging/macos")
values = {"VANOKA_BUNDLE_IDENTIFIER": "example.vanoka.inputmethod.Vanoka", "PROJECT_VERSION": "1.2.3",
          "VANOKA_COMPANY_NAME": "A maker", "VANOKA_SINHALA_NAME": "\u0dc0"}


def configured(name):
    with open(os.path.join(folder, name), encoding="utf-8") as file:
        text = re.sub(r"@(\w+)@", lambda match: values[match[1]], file.read())
    assert "@" not in text
    return text


info = plistlib.loads(configured("Info.plist.in").encode())
identifier = values["VANOKA_BUNDLE_IDENTIFIER"]
expected = {
    "CFBundleIdentifier": identifier, "CFBundlePackageType": "APPL", "CFBundleExecutable": "Vanoka",
    "CFBundleName": "Vanoka", "CFBundleDisplayName": "Vanoka", "CFBundleShortVersionString": "1.2.3",
    "CFBundleVersion": "1.2.3", "CFBundleIconFile": "Vanoka.icns", "NSHumanReadableCopyright": "A maker",
    "NSPrincipalClass": "NSApplication", "InputMethodConnectionName": identifier + "_Connection",
    "InputMethodServerControllerClass": "VanokaInputController", "LSUIElement": True,
    "TISInputSourceID": identifier, "TISIntendedLanguage": "si", "TISIconIsTemplate": True,
    "TICapsLockLanguageSwitchCapable": True, "tsInputMethodCharacterRepertoireKey": ["Sinh"],
    "tsInputMethodIconFileKey": "MenuIcon.pdf", "LSMinimumSystemVersion": "12.0",
}
for key, value in expected.items():
    assert info.get(key) == value, (key, info.get(key))
for key in ("LSBackgroundOnly", "InputMethodServerDelegateClass", "ComponentInputModeDict"):
    assert key not in info, key
with open(os.path.join(source, "platform/macos/InputController.h"), encoding="utf-8") as file:
    assert "@interface " + info["InputMethodServerControllerClass"] + " :" in file.read()

for language, name in (("en", "Vanoka"), ("si", values["VANOKA_SINHALA_NAME"])):
    rows = dict(re.findall(r'"(.*)" = "(.*)";', configured(f"{language}.lproj/InfoPlist.strings.in")))
    assert rows == {"CFBundleName": name, "CFBundleDisplayName": name, identifier: name}, rows

with tempfile.TemporaryDirectory() as made:
    menu, application = os.path.join(made, "menu.pdf"), os.path.join(made, "application.icns")
    subprocess.run([sys.executable, os.path.join(folder, "make-icons.py"), menu, application], check=True)
    with open(menu, "rb") as file:
        pdf = file.read()
    with open(application, "rb") as file:
        icns = file.read()
assert pdf.startswith(b"%PDF-1.4") and pdf.endswith(b"%%EOF\n")
start = int(re.search(rb"startxref\n(\d+)", pdf)[1])
assert pdf[start:].startswith(b"xref")
for number, place in enumerate(re.findall(rb"(\d{10}) 00000 n", pdf), 1):
    assert pdf[int(place):].startswith(b"%d 0 obj" % number)

assert icns[:4] == b"icns" and struct.unpack(">I", icns[4:8])[0] == len(icns)
sizes, at = {}, 8
while at < len(icns):
    kind, length = icns[at:at + 4], struct.unpack(">I", icns[at + 4:at + 8])[0]
    image = icns[at + 8:at + length]
    assert image.startswith(b"\x89PNG")
    width, height = struct.unpack(">II", image[16:24])
    assert width == height
    data = b""
    place = 8
    while place < len(image):
        size = struct.unpack(">I", image[place:place + 4])[0]
        if image[place + 4:place + 8] == b"IDAT":
            data += image[place + 8:place + 8 + size]
        place += 12 + size
    pixels = zlib.decompress(data)
    assert len(pixels) == height * (4 * width + 1)
    assert pixels[4] == 0, "the corner is clear"
    sizes[kind] = width
    at += length
assert sizes == {b"icp4": 16, b"icp5": 32, b"ic11": 32, b"ic12": 64, b"ic07": 128, b"ic13": 256, b"ic08": 256,
                 b"ic14": 512, b"ic09": 512, b"ic10": 1024}, sizes

for script in ("install", "make-package", "sign", "notarise", "package-scripts/postinstall"):
    path = os.path.join(folder, script)
    assert os.access(path, os.X_OK), script
    subprocess.run(["bash", "-n", path], check=True)
