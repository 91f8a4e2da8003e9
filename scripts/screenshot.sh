#!/usr/bin/env bash
# screenshot.sh PROGRAM FILE.png: starts the program on a virtual display, waits until its window no longer
# changes, saves a picture of it and ends the program.
set -euo pipefail
source "$(dirname "$0")/say.sh"
explain_failures

# The display and the runtime folder of the toolkit are private to this script. The display does not reset itself when
# xdotool, its first client, ends before the program has connected.
take_picture() {
    runtime_dir=$(mktemp -d) # with the required mode 0700
    clean_up() { rm -rf "$runtime_dir"; }
    XDG_RUNTIME_DIR=$runtime_dir xvfb-run -a -s '-screen 0 800x720x24 -noreset' "$0" --on-display "$@" ||
        fail "No picture was saved (see above)." "Не е записана снимка (вж. по-горе)."
}

# Sets `window`.
await_window() {
    for _ in $(seq 300); do
        window=$(xdotool search --all --onlyvisible --pid "$pid" --name 'Kedrin за Linux' | head -n 1) || true
        [ -z "$window" ] || return 0
        kill -0 "$pid" 2>/dev/null ||
            fail "$program ended before it showed its window; start it by itself to see why." \
                "$program приключи, преди да покаже прозореца си; стартирайте я отделно, за да видите защо."
        sleep 0.2
    done
    fail "$program showed no window for a minute; start it by itself to see why." \
        "$program не показа прозорец цяла минута; стартирайте я отделно, за да видите защо."
}

save_picture() {
    local current previous=
    for _ in $(seq 100); do
        import -window "$window" "$scratch/shot.png"
        current=$(convert "$scratch/shot.png" rgba:- | cksum)
        if [ "$current" = "$previous" ]; then
            cp "$scratch/shot.png" "$file" && return 0
            fail "$file cannot be written; name another file." "$file не може да се запише; посочете друг файл."
        fi
        previous=$current
        sleep 0.2
    done
    fail "The window did not come to rest; try again when the machine is less busy." \
        "Прозорецът не спря да се променя; опитайте отново, когато машината е по-свободна."
}

if [ "$1" != --on-display ]; then
    take_picture "$@"
    exit
fi
program=$2 file=$3 pid=
scratch=$(mktemp -d)
clean_up() {
    [ -z "$pid" ] || kill "$pid" 2>/dev/null || true
    wait
    rm -rf "$scratch"
}
"$program" &
pid=$!
await_window
save_picture
