#!/usr/bin/env python3
"""Lays out a folder in the shape of Apple's SDK, enough to compile and link the program without a Mac:
make_sdk.py ZIG-FOLDER C++-HEADERS SDK-FOLDER

The C library's headers and libSystem's symbols are those that Zig's package brings; the C++ library's symbols are
those of LLVM's own build for this system. The frameworks are the declarations beside this script: what a framework
exports to the linker is read from its declarations, so that the two cannot differ, and what is declared nowhere can be
neither compiled nor linked.
"""
import os
import re
import shutil
import subprocess
import sys

here = os.path.dirname(os.path.abspath(__file__))
zig, cxx_headers, sdk = map(os.path.abspath, sys.argv[1:])
# Where all tools of LLVM stand side by side, and its libraries beside them.
llvm = os.path.dirname(os.path.dirname(os.path.realpath(shutil.which("llvm-nm"))))

OBJC = "/usr/lib/libobjc.A.dylib"
# Version of the folder inside the framework, compatibility version, and what else comes with it.
FRAMEWORKS = {
    "AppKit": ("C", "45", ["Foundation"]),
    "Carbon": ("A", "2", []),
    "Cocoa": ("A", "1", ["AppKit", "Foundation"]),
    "CoreFoundation": ("A", "150", []),
    "Foundation": ("C", "300", ["CoreFoundation", OBJC]),
    "InputMethodKit": ("A", "1", []),
}
# Classes of the Objective-C runtime's own headers.
RUNTIME_CLASSES = ["NSObject", "Protocol"]


def framework_path(name):
    return f"/System/Library/Frameworks/{name}.framework/Versions/{FRAMEWORKS[name][0]}/{name}"


def declared(header):
    """The classes and the symbols that a header declares."""
    with open(header, encoding="utf-8") as file:
        text = re.sub(r"//.*", "", file.read())
    classes = re.findall(r"@interface (\w+)\s*(?:<[^>]*>)?\s*:", text)
    symbols = []
    for declaration in re.findall(r'^(?:extern "C"|FOUNDATION_EXPORT|APPKIT_EXTERN) ([^;]*);', text, re.M):
        declaration = re.sub(r" API_AVAILABLE\(.*", "", declaration.replace("\n", " "))
        symbols.append("_" + re.search(r"(\w+)(?:\(.*\))?$", declaration)[1])
    return sorted(classes), sorted(symbols)


def listed(name):
    with open(os.path.join(here, name), encoding="utf-8") as file:
        return [line.strip() for line in file if line.strip() and not line.startswith("#")]


def exported(*libraries):
    """What libraries of this system export, in the spelling of macOS."""
    names = subprocess.run([f"{llvm}/bin/llvm-nm", "-D", "--defined-only", "--format=just-symbols", *libraries],
                           check=True, stdout=subprocess.PIPE, text=True).stdout.split()
    return sorted("_" + name for name in names if not name.endswith(":"))


def stub(path, install_name, compatibility, symbols, classes=(), reexported=()):
    targets = "[ x86_64-macos, arm64-macos ]"
    text = ["--- !tapi-tbd", "tbd-version: 4", f"targets: {targets}", f"install-name: '{install_name}'",
            f"current-version: {compatibility}", f"compatibility-version: {compatibility}"]
    if reexported:
        text += ["reexported-libraries:", f"  - targets: {targets}",
                 "    libraries: [ " + ", ".join(f"'{other}'" for other in reexported) + " ]"]
    if symbols or classes:
        text += ["exports:", f"  - targets: {targets}"]
        if symbols:
            text.append("    symbols: [ " + ", ".join(f"'{symbol}'" for symbol in symbols) + " ]")
        if classes:
            text.append("    objc-classes: [ " + ", ".join(classes) + " ]")
    os.makedirs(os.path.dirname(path), exist_ok=True)
    with open(path, "w", encoding="utf-8") as file:
        file.write("\n".join(text + ["...", ""]))


def program(name, text):
    path = os.path.join(sdk, "bin", name)
    os.makedirs(os.path.dirname(path), exist_ok=True)
    with open(path, "w", encoding="utf-8") as file:
        file.write(text)
    os.chmod(path, 0o755)


def link(target, path):
    os.makedirs(os.path.dirname(path), exist_ok=True)
    os.symlink(target, path)


def copy_cxx_headers(folder):
    """As Apple configures them: with the version of macOS that brought each name."""
    shutil.copytree(cxx_headers, folder)
    path = os.path.join(folder, "__config_site")
    with open(path, encoding="utf-8") as file:
        text = file.read()
    annotated = text.replace("#define _LIBCPP_HAS_NO_VENDOR_AVAILABILITY_ANNOTATIONS\n", "")
    assert annotated != text
    with open(path, "w", encoding="utf-8") as file:
        file.write(annotated)
    shutil.copystat(os.path.join(cxx_headers, "__config_site"), path) # no newer: nothing is compiled for it again


shutil.rmtree(sdk, ignore_errors=True)

headers = os.path.join(zig, "lib/libc/include/any-macos-any")
for name in os.listdir(headers):
    link(os.path.join(headers, name), os.path.join(sdk, "usr/include", name))
copy_cxx_headers(os.path.join(sdk, "usr/include/c++/v1"))
link(os.path.join(zig, "lib/libc/darwin/libSystem.tbd"), os.path.join(sdk, "usr/lib/libSystem.tbd"))

stub(os.path.join(sdk, "usr/lib/libobjc.A.tbd"), OBJC, 1, listed("libobjc.txt"), RUNTIME_CLASSES)
link("libobjc.A.tbd", os.path.join(sdk, "usr/lib/libobjc.tbd"))
# The library that macOS has too. What its headers know to be newer than the oldest macOS is an error there.
stub(os.path.join(sdk, "usr/lib/libc++.tbd"), "/usr/lib/libc++.1.dylib", 1,
     exported(f"{llvm}/lib/libc++.so.1", f"{llvm}/lib/libc++abi.so.1"))
for name, (version, compatibility, others) in FRAMEWORKS.items():
    folder = os.path.join(sdk, f"System/Library/Frameworks/{name}.framework")
    header = os.path.join(here, name, name + ".h")
    classes, symbols = declared(header) if os.path.exists(header) else ([], listed(name + ".txt"))
    # Where the library says that it is; beside it the short ways to it.
    stub(f"{sdk}{framework_path(name)}.tbd", framework_path(name), compatibility, symbols, classes,
         [path if path.startswith("/") else framework_path(path) for path in others])
    link(f"Versions/{version}/{name}.tbd", os.path.join(folder, name + ".tbd"))
    if os.path.exists(header):
        link(os.path.join(here, name), os.path.join(folder, "Headers"))

# Zig's package holds a whole clang. It calls the tools beside it by the names that a Mac's have.
clang = f'exec "{zig}/zig" clang -resource-dir "{zig}/lib" -B "{sdk}/bin"'
program("clang", f'#!/bin/sh\n{clang} "$@"\n')
program("clang++", f'#!/bin/sh\n{clang} --driver-mode=g++ "$@"\n')
for name, tool in {"ld64.lld": "ld64.lld", "lipo": "llvm-lipo", "libtool": "llvm-libtool-darwin",
                   "install_name_tool": "llvm-install-name-tool"}.items():
    link(f"{llvm}/bin/{tool}", os.path.join(sdk, "bin", name))
