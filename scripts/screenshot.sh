#!/usr/bin/env bash
# screenshot.sh PROGRAM FILE.png: starts the program on the display at hand, waits until its window shows a picture
# that no longer changes, saves it and ends the program.
set -euo pipefail
program=$1 file=$2

"$program" &
pid=$!
trap 'kill "$pid" 2>/dev/null || true; wait "$pid" 2>/dev/null || true; rm -rf "$shots"' EXIT
shots=$(mktemp -d)

window=$(timeout 60 xdotool search --all --sync --onlyvisible --pid "$pid" --name 'Kedrin за Linux' | head -n 1)
previous=
for _ in $(seq 100); do
    import -window "$window" "$shots/shot.png"
    current=$(convert "$shots/shot.png" rgba:- | cksum)
    if [ "$current" = "$previous" ]; then
        mv "$shots/shot.png" "$file"
        exit 0
    fi
    previous=$current
    sleep 0.2
done
echo "The window did not come to rest; no picture was saved." >&2
exit 1
