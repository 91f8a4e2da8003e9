#!/usr/bin/env bash
# all_on_x.sh DPI LOCALE PROGRAM...: tests of the window on a real X server of this resolution.
export QT_QPA_PLATFORM=xcb LANGUAGE='' LC_ALL=$2 PICTURES_DPI=$1
xprop -root -format RESOURCE_MANAGER 8s -set RESOURCE_MANAGER "Xft.dpi:"$'\t'"$1"$'\n'
shift 2
status=0
for program in "$@"; do
    echo "== ${program##*/}"
    "$program" -silent || status=1
done
exit $status
