#!/usr/bin/env bash
# screenshot_test.sh SCRIPTS KEDRIN WRITE_MODULES: the picture of the window, and the message if there is
# none.
set -uo pipefail
scripts=$1 kedrin=$2 write_modules=$3
source "$(dirname "$0")/script_test.sh"
unset XDG_RUNTIME_DIR DISPLAY WAYLAND_DISPLAY QT_QPA_PLATFORM
export LC_ALL=C.UTF-8
"$write_modules" "$work/modules/bibles"
ln -s "$kedrin" "$work/kedrin"

# gives STATUS OUT ERR COMMAND...
gives() {
    status=0
    out=$("${@:4}" 2>"$work/err") || status=$?
    expect "${*:4}: status" "$1" "$status"
    expect "${*:4}: output" "$2" "$out"
    expect "${*:4}: errors" "$3" "$(<"$work/err")"
}

gives 0 '' '' "$scripts/screenshot.sh" "$work/kedrin" "$work/a.png"
"$scripts/check_picture.sh" "$work/a.png" >"$work/out" || failures=1
gives 0 '' '' env XDG_RUNTIME_DIR=/nonexistent "$scripts/screenshot.sh" "$work/kedrin" "$work/a.png"

gives 1 '' "/bin/false ended before it showed its window; start it by itself to see why.
No picture was saved (see above)." "$scripts/screenshot.sh" /bin/false "$work/b.png"
gives 1 '' "/bin/false приключи, преди да покаже прозореца си; стартирайте я отделно, за да видите защо.
Не е записана снимка (вж. по-горе)." env LC_ALL= LANG=bg_BG.UTF-8 "$scripts/screenshot.sh" /bin/false "$work/b.png"
expect 'no picture' '' "$(ls "$work"/b.png 2>/dev/null)"

convert -size 700x670 xc:white "$work/white.png"
gives 1 '' "$work/white.png is not a picture of the window: PNG, 700 x 670 pixels, 1 colours." \
    "$scripts/check_picture.sh" "$work/white.png"
convert -size 70x67 plasma: "$work/small.png"
gives 1 '' "$work/small.png is not a picture of the window: PNG, 70 x 67 pixels, $(identify -format %k "$work/small.png") colours." \
    "$scripts/check_picture.sh" "$work/small.png"
: >"$work/empty.png"
"$scripts/check_picture.sh" "$work/empty.png" 2>"$work/err"
expect 'an empty file' "$work/empty.png is no picture (see above)." "$(tail -n 1 "$work/err")"
exit $((failures > 0))
