# shellcheck shell=bash
# Sourced by the tests of the scripts: $scripts is their folder; commands run with only the given environment
# and a PATH of selected and substituted programs.

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
mkdir "$work/bin"
failures=0

# use_programs NAME...: puts the real programs on PATH.
use_programs() {
    local name
    for name in "$@"; do ln -sf "$(command -v "$name")" "$work/bin/$name"; done
}

# stand_in NAME LINE...: a substitute program that appends its command line to the file `calls` and runs the
# lines.
stand_in() {
    local name=$1
    shift
    rm -f "$work/bin/$name" # may be a link to the real program
    {
        echo '#!/bin/bash'
        # shellcheck disable=SC2016 # expanded when it runs
        echo 'echo "${0##*/} $*" >>"'"$work/calls"'"'
        printf '%s\n' "$@"
    } >"$work/bin/$name"
    chmod +x "$work/bin/$name"
}

# run_script LINES [VARIABLE=VALUE...]: runs the lines as the script ./script; sets status, out, err and calls.
run_script() {
    printf '#!/bin/bash\n%s\n' "$1" >"$work/script"
    chmod +x "$work/script"
    : >"$work/calls"
    status=0
    (cd "$work" && exec env -i PATH="$work/bin" "${@:2}" ./script >"$work/out" 2>"$work/err" </dev/null) || status=$?
    out=$(<"$work/out")
    err=$(grep -v 'warning: setlocale:' "$work/err") # from bash, if the locale is not installed
    calls=$(<"$work/calls")
}

# expect WHAT WANTED GOT
expect() {
    [ "$2" = "$3" ] && return
    printf 'FAILED: %s\n  wanted: %s\n  got:    %s\n' "$1" "$2" "$3"
    failures=$((failures + 1))
}
