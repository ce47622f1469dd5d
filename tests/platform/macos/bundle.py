"""What the bundle's files have to be, whether they are made from templates or stand in a built bundle."""
import re
import struct
import zlib

# The kinds icp4 and icp5 are not among them: macOS shows a PNG there garbled.
IMAGES = {b"ic11": 32, b"ic12": 64, b"ic07": 128, b"ic13": 256, b"ic08": 256, b"ic14": 512, b"ic09": 512,
          b"ic10": 1024}


def check_information(info, identifier, version, company):
    """All of Info.plist: a key that is not listed here is none that the system should find."""
    expected = {
        "CFBundleDevelopmentRegion": "en", "CFBundleInfoDictionaryVersion": "6.0",
        "CFBundleIdentifier": identifier, "CFBundlePackageType": "APPL", "CFBundleExecutable": "Vanoka",
        "CFBundleName": "Vanoka", "CFBundleDisplayName": "Vanoka", "CFBundleShortVersionString": version,
        "CFBundleVersion": version, "CFBundleIconFile": "Vanoka.icns", "NSHumanReadableCopyright": company,
        "NSPrincipalClass": "NSApplication", "InputMethodConnectionName": identifier + "_Connection",
        "InputMethodServerControllerClass": "VanokaInputController", "LSUIElement": True,
        "TISInputSourceID": identifier, "TISIntendedLanguage": "si", "TISIconIsTemplate": True,
        "TICapsLockLanguageSwitchCapable": True, "tsInputMethodCharacterRepertoireKey": ["Sinh"],
        "tsInputMethodIconFileKey": "MenuIcon.pdf", "LSMinimumSystemVersion": "12.0",
    }
    assert info == expected, {key: (info.get(key), expected.get(key)) for key in info.keys() | expected.keys()
                              if info.get(key) != expected.get(key)}


def check_names(text, identifier, name):
    """The names in one language: three rows and nothing else."""
    assert "@" not in text and "${" not in text, text
    name = name.replace("\\", "\\\\").replace('"', '\\"')
    expected = {"CFBundleName": name, "CFBundleDisplayName": name, identifier: name}
    assert text == "".join(f'"{key}" = "{value}";\n' for key, value in expected.items()), text


def check_menu_icon(pdf):
    assert pdf.startswith(b"%PDF-1.4") and pdf.endswith(b"%%EOF\n")
    start = int(re.search(rb"startxref\n(\d+)", pdf)[1])
    assert pdf[start:].startswith(b"xref")
    places = re.findall(rb"(\d{10}) 00000 n", pdf)
    assert len(places) == 4
    for number, place in enumerate(places, 1):
        assert pdf[int(place):].startswith(b"%d 0 obj" % number)


def check_application_icon(icns):
    assert icns[:4] == b"icns" and struct.unpack(">I", icns[4:8])[0] == len(icns)
    sizes, at = {}, 8
    while at < len(icns):
        kind, length = icns[at:at + 4], struct.unpack(">I", icns[at + 4:at + 8])[0]
        sizes[kind] = check_image(icns[at + 8:at + length])
        at += length
    assert sizes == IMAGES, sizes


def check_image(png):
    """The width of a square image of whole pixels with a clear corner."""
    assert png.startswith(b"\x89PNG")
    width, height = struct.unpack(">II", png[16:24])
    assert width == height
    data, place = b"", 8
    while place < len(png):
        size = struct.unpack(">I", png[place:place + 4])[0]
        if png[place + 4:place + 8] == b"IDAT":
            data += png[place + 8:place + 8 + size]
        place += 12 + size
    pixels = zlib.decompress(data)
    assert len(pixels) == height * (4 * width + 1)
    assert pixels[4] == 0, "the corner is clear"
    return width
