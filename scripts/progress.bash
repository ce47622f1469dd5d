# Sourced by scripts that keep a long command's output in a file: says meanwhile, on standard error, how far the
# command is.
#     tell_how_far "Building" build.log
#     make >build.log 2>&1
#     told_how_far

# The last thing in a file that tells how far a build, a test run or a script like them is.
how_far() {
    [ -f "$1" ] || return 0
    tr '\r' '\n' <"$1" | sed -n \
        -e 's/^\[ *\([0-9]*\)\/ *\([0-9]*\)\].*/\1 of \2/p' \
        -e 's/^ *\([0-9]*\)\/\([0-9]*\) Test .*/test \1 of \2/p' \
        -e 's/^\(Building .*\), [0-9]* s$/\1/p' | tail -n 1
}

# tell_how_far LABEL LOG [SECONDS]: begins to tell, every 3 seconds unless told otherwise. It ends with
# told_how_far, and in any case with the script.
tell_how_far() {
    (
        label=$1 log=$2 pause=${3:-3} start=$SECONDS script=$$
        exec {never}<> <(:) >&2 # nothing is ever read there: to wait without a process that would outlive this one
        while ! read -r -t "$pause" -u "$never" && kill -0 "$script" 2>/dev/null; do
            far=$(how_far "$log")
            echo "$label${far:+: $far}, $((SECONDS - start)) s"
        done
    ) </dev/null &
    teller=$!
}

told_how_far() {
    kill "$teller" 2>/dev/null || true
    wait "$teller" 2>/dev/null || true
}
