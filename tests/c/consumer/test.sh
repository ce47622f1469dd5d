#!/usr/bin/env bash
# test.sh BUILD-FOLDER: installs the C interface from there, builds a program against what was installed alone, by
# CMake and by pkg-config, and runs both.
set -euo pipefail
build=$1
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
flags="-std=c99 -Wall -Wextra -Wpedantic -Werror"

expect_typing() {
    local typed expected=$'\xe0\xb6\x85\xe0\xb6\xb8\xe0\xb7\x8a\xe0\xb6\xb8' # bytes: what \u means depends on the locale
    typed=$("$1" amma)
    [ "$typed" = "$expected" ] || {
        echo "$1 typed: $typed, expected: $expected"
        exit 1
    }
}

cmake --install "$build" --component c --prefix "$folder/installed" >/dev/null
cmake -G Ninja -S "$here" -B "$folder/build" -D CMAKE_PREFIX_PATH="$folder/installed" -D CMAKE_C_FLAGS="$flags" >/dev/null
cmake --build "$folder/build"
expect_typing "$folder/build/consumer"

[ -n "$(command -v pkg-config)" ] || exit 0
export PKG_CONFIG_PATH LD_LIBRARY_PATH
PKG_CONFIG_PATH=$(dirname "$(find "$folder/installed" -name vanoka.pc)")
LD_LIBRARY_PATH=$(pkg-config --variable=libdir vanoka)
cc $flags "$here/main.c" -o "$folder/by-pkg-config" $(pkg-config --cflags --libs vanoka)
expect_typing "$folder/by-pkg-config"
