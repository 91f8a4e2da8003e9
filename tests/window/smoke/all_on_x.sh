#!/usr/bin/env bash
# all_on_x.sh PROGRAM...: runs the window's tests on a real X server.
export QT_QPA_PLATFORM=xcb
status=0
for program in "$@"; do
    echo "== ${program##*/}"
    "$program" -silent || status=1
done
exit $status
