#!/usr/bin/env bash
# test.sh BUILD-FOLDER: installs the core from there, builds a program against the installed package alone, and
# runs it.
set -euo pipefail
build=$1
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT

cmake --install "$build" --component core --prefix "$folder/installed" >/dev/null
cmake -G Ninja -S "$here" -B "$folder/build" -D CMAKE_PREFIX_PATH="$folder/installed" \
    -D CMAKE_CXX_FLAGS="-Wall -Wextra -Wpedantic -Werror" >/dev/null
cmake --build "$folder/build"
typed=$("$folder/build/consumer" azza)
expected=$'\xe0\xb6\x85\xe0\xb7\x85' # bytes: what \u means depends on the locale
[ "$typed" = "$expected" ] || {
    echo "typed: $typed, expected: $expected"
    exit 1
}
