#!/usr/bin/env bash
# screenshot.sh PROGRAM FILE.png: starts the program on the display at hand, waits until its window shows a picture
# that no longer changes, saves it and ends the program.
set -euo pipefail
source "$(dirname "$0")/say.sh"
explain_failures
program=$1 file=$2
pid=
shots=$(mktemp -d)
clean_up() {
    [ -z "$pid" ] || kill "$pid" 2>/dev/null || true
    wait
    rm -rf "$shots"
}

"$program" &
pid=$!

# Sets `window`.
await_window() {
    for _ in $(seq 300); do
        window=$(xdotool search --all --onlyvisible --pid "$pid" --name 'Kedrin за Linux' 2>/dev/null | head -n 1) || true
        [ -z "$window" ] || return 0
        kill -0 "$pid" 2>/dev/null ||
            fail "$program ended before its window was shown; start it by itself to see why." \
                "$program приключи, преди да покаже прозореца си; стартирайте я отделно, за да видите защо."
        sleep 0.2
    done
    fail "$program showed no window for a minute; start it by itself to see why." \
        "$program не показа прозорец цяла минута; стартирайте я отделно, за да видите защо."
}

await_window
previous=
for _ in $(seq 100); do
    import -window "$window" "$shots/shot.png"
    current=$(convert "$shots/shot.png" rgba:- | cksum)
    if [ "$current" = "$previous" ]; then
        cp "$shots/shot.png" "$file" ||
            fail "$file cannot be written; name another file." "$file не може да се запише; посочете друг файл."
        exit 0
    fi
    previous=$current
    sleep 0.2
done
fail "The window did not come to rest within half a minute; on a machine that is less busy, try again." \
    "Прозорецът не се успокои за половин минута; опитайте отново, когато машината е по-свободна."
