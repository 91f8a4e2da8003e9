#!/usr/bin/env bash
# Tries damaged modules made from seeds in the engine, in the window and in the program, and writes what came
# of them as a section of the quality report.
#   tests/window/damage_report.sh BUILD ENGINE WINDOW PROGRAM FILE
# BUILD is a build folder; ENGINE, WINDOW and PROGRAM are how many seeds to try, from 1 on.
set -euo pipefail
if (($# != 5)); then
    sed -n '2,5s/^# //p' "$0" >&2
    exit 2
fi
build=$1 engine=$2 window=$3 program=$4 file=$5
counts=$(mktemp -d)
trap 'rm -rf "$counts"' EXIT
export QT_QPA_PLATFORM=offscreen
failed=0
"$build/tests/tolvo/tolvo_damage_run" --counts "$counts/Engine" 1 "$engine" || failed=1
"$build/tests/window/window_damage_run" --counts "$counts/Window" 1 "$window" 2>"$counts/log" || failed=1
"$build/tests/window/window_damage_programs" --counts "$counts/Program" 1 "$program" || failed=1
{
    cat <<END
## Damaged modules

Each seed makes a whole module (one to four books, global numbers equal to the local ones or not, plain verses,
markup, differences of numbering) and damages it in one to four ways: bytes changed; files cut, extended, removed,
emptied, exchanged; numbers replaced by extreme ones; markup and lines misplaced. The engine validates, loads, reads
and searches it. In the window and the program a user whose actions the seed determines opens it, chooses places by
lists, keys and links, searches, chooses hits and closes it; in the window a sound translation must open afterwards.
A crash, an exit, a hang, an exception out of a slot, or a message box without a documented text would be a failure.

    tests/window/damage_report.sh BUILD $engine $window $program FILE

| Where | Modules | Outcome |
|---|---|---|
END
    for where in Engine Window Program; do
        awk -F'\t' -v where="$where" '{ print "| " where " | " $2 " | " $1 " |" }' "$counts/$where"
    done
} >"$file"
exit $failed
