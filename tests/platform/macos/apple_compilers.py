#!/usr/bin/env python3
"""Configures the core with compilers that say that they are Apple's, of several versions:
apple_compilers.py SOURCE-FOLDER"""
import subprocess
import sys
import tempfile

source = sys.argv[1]
SENTENCE = "Building: macOS 13.5, command line tools 15; the result runs on macOS 12."


def configure(version):
    """Status and all that was printed."""
    macros = f"-U__clang_major__ -D__clang_major__={version} -D__apple_build_version__={version}000000"
    with tempfile.TemporaryDirectory() as folder:
        result = subprocess.run(
            ["cmake", "-S", source, "-B", folder, "-DCMAKE_CXX_COMPILER=clang++", f"-DCMAKE_CXX_FLAGS={macros}",
             "-DVANOKA_CORE_ONLY=ON", "-DVANOKA_TESTS=OFF"],
            stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True)
    return result.returncode, " ".join(result.stdout.split())


for version, is_served in ((14, False), (15, True)):
    status, output = configure(version)
    assert f"AppleClang {version}." in output, output
    assert (status == 0) == is_served, output
    assert (SENTENCE in output) == (not is_served), output

for page in ("README.md", "docs/macos.md"):
    with open(f"{source}/{page}", encoding="utf-8") as file:
        assert SENTENCE in " ".join(file.read().split()), page
