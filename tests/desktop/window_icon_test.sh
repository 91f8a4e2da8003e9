#!/usr/bin/env bash
# window_icon_test.sh WRITE_MODULES KEDRIN KEDRIN-ADD: each window has its icon in five sizes, and the class by which a
# desktop finds its desktop file.
set -euo pipefail
write_modules=$1 kedrin=$2 kedrin_add=$3
work=$(mktemp -d -p /tmp)
pid=
trap '[ -z "$pid" ] || kill "$pid"; wait; rm -rf "$work"' EXIT
export XDG_RUNTIME_DIR=$work XDG_DATA_HOME=$work/data
"$write_modules" "$work/modules/bibles"
ln -s "$kedrin" "$work/kedrin"

has_icon() { # has_icon PROGRAM CLASS
    local window sizes class
    "$1" &
    pid=$!
    window=$(timeout 60 xdotool search --all --sync --onlyvisible --pid "$pid" --name Kedrin | head -n 1)
    class=$(xprop -id "$window" WM_CLASS)
    [ "$class" = "WM_CLASS(STRING) = \"$2\", \"$2\"" ] || { echo "$class"; exit 1; }
    sizes=$(xprop -notype -len 200000 -id "$window" 32c _NET_WM_ICON | tr -d , | sed 's/.*= //' | awk '{
        for (i = 1; i <= NF; i += 2 + $i * $(i + 1)) printf "%sx%s ", $i, $(i + 1) }')
    [ "$sizes" = '16x16 24x24 32x32 48x48 64x64 ' ] || { echo "$1: icons $sizes"; exit 1; }
    kill "$pid"
    wait "$pid" || true
    pid=
}
has_icon "$work/kedrin" kedrin
has_icon "$kedrin_add" kedrin-add
