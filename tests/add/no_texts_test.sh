#!/usr/bin/env bash
# no_texts_test.sh KEDRIN-ADD PICTURES: the box that the launcher has shown where there is no text: closed, the program ends;
# accepted, it opens its window; and without the box the window opens at once.
set -euo pipefail
kedrin_add=$1 pictures=$2
source "$(dirname "$(readlink -f "$0")")/../window/smoke/smoke_lib.sh"
setxkbmap -layout us
unset LC_ALL LANGUAGE
export LANG=bg_BG.UTF-8 XDG_DATA_HOME=$scratch/data

boxes() { xdotool search --all --onlyvisible --pid "$pid" --name '^Kedrin$' 2>/dev/null || true; }

# answer KEY: opens the box, saves its picture and presses the key until the box has gone.
answer() {
    local box last current i
    "$kedrin_add" --no-texts &
    pid=$!
    box=$(timeout 60 xdotool search --all --sync --onlyvisible --pid "$pid" --name '^Kedrin$' | head -n 1)
    [ -n "$box" ] || fail "no box"
    last=
    for ((i = 0; i < deadline; ++i)); do
        current=$(import -window "$box" rgba:- | cksum)
        [ "$current" != "$last" ] || break
        last=$current
        sleep 0.1
    done
    import -window "$box" "$pictures/box.png"
    for ((i = 0; i < deadline; ++i)); do # it takes the focus after it has been drawn
        [ -n "$(boxes)" ] || return 0
        xdotool windowfocus "$box" key "$1" 2>/dev/null || true
        sleep 0.1
    done
    fail "the box stays"
}

answer Escape
ends 255
answer Return
closes_the_window() {
    local window
    window=$(timeout 60 xdotool search --all --sync --onlyvisible --pid "$pid" --name 'Текстове за Kedrin' | head -n 1)
    [ -n "$window" ] || fail "no window"
    xdotool windowfocus "$window"
    key ctrl+q
    ends 0
}
closes_the_window

"$kedrin_add" &
pid=$!
closes_the_window
