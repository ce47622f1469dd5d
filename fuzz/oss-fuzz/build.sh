#!/usr/bin/env bash
# Builds every fuzz target into $OUT, with its seeds, its dictionary and the libraries that it needs, as OSS-Fuzz asks
# for it: $CC, $CXX, their flags and $LIB_FUZZING_ENGINE come from there. Runs in the project's own folder.
# Where libraries lie is told in the old way, which holds for those that they need themselves, too.
set -euo pipefail
work=${WORK:-$(mktemp -d)}/vanoka

cmake -S . -B "$work" -G Ninja -DCMAKE_BUILD_TYPE=None -DVANOKA_FUZZERS=ON -DVANOKA_TESTS=OFF \
    -DVANOKA_SETTINGS_WINDOW=OFF -DVANOKA_FUZZING_ENGINE="$LIB_FUZZING_ENGINE" -DCMAKE_BUILD_RPATH='$ORIGIN/lib' \
    -DCMAKE_EXE_LINKER_FLAGS=-Wl,--disable-new-dtags
mkdir -p "$OUT/lib"
for target in $(fuzz/targets); do
    # One whose libraries are not there is not among what can be built.
    ninja -C "$work" -t query "$target" >/dev/null 2>&1 || { echo "$target is not built here." && continue; }
    ninja -C "$work" "$target"
    cp "$work/bin/$target" "$OUT/"
    cp "$(fuzz/dictionary "$target")" "$OUT/$target.dict"
    zip -q -j -r "$OUT/${target}_seed_corpus.zip" "fuzz/corpus/$target"
    # The machines that fuzz have the C library alone, and no keyboards, which a framework asks for.
    [ "$target" != fuzz_fcitx5 ] || cp -r -L /usr/share/X11/xkb "$OUT/"
    ldd "$OUT/$target" | sed -nE '/\/(libc|libm|libdl|librt|libpthread|libresolv)\.so/d
        s/.*=> (\/[^ ]*) .*/\1/p' | xargs -r cp -n -L -t "$OUT/lib"
done
