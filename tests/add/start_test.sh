#!/usr/bin/env bash
# start_test.sh KEDRIN-ADD: started without arguments, the program opens its window and waits for what the user does.
set -euo pipefail
export QT_QPA_PLATFORM=offscreen
"$1" &
pid=$!
trap 'kill -KILL "$pid" 2>/dev/null || true' EXIT

# Its processor time in ticks.
used() { awk '{ print $14 + $15 }' "/proc/$pid/stat" 2>/dev/null || true; }

last=none
for ((i = 0; i < 120; ++i)); do # until it has done nothing for half a second
    sleep 0.5
    now=$(used)
    [ "$now" != "$last" ] || break
    last=$now
done
kill -TERM "$pid" || { echo "it has ended by itself"; exit 1; }
status=0
wait "$pid" || status=$?
[ "$status" = 143 ] || { echo "status $status"; exit 1; }
