#!/usr/bin/env bash
# program_test.sh KEDRIN-ADD PICTURES: the real program in Bulgarian reads the file that it is started with, adds it when
# the enter key is pressed in the field that has the focus, and ends when its window is closed.
set -euo pipefail
kedrin_add=$1 pictures=$2
source "$(dirname "$(readlink -f "$0")")/../window/smoke/smoke_lib.sh"
setxkbmap -layout us
unset LC_ALL LANGUAGE
export LANG=bg_BG.UTF-8 XDG_DATA_HOME=$scratch/data
printf 'Gen\t1\t1\tВ начало\n' >"$scratch/Моят превод.vpl"

"$kedrin_add" "$scratch/Моят превод.vpl" &
pid=$!
window=$(timeout 60 xdotool search --all --sync --onlyvisible --pid "$pid" --name 'Текстове за Kedrin' | head -n 1)
[ -n "$window" ] || fail "no window"
xdotool windowfocus "$window"

module=$XDG_DATA_HOME/kedrin/modules/bibles/моят-превод
for ((i = 0; i < deadline; ++i)); do
    [ ! -e "$module/BibleTitles.txt" ] || break
    key Return # as soon as the field has the focus
    sleep 0.1
done
import -window root "$pictures/added.png"
[ -e "$module/BibleTitles.txt" ] || fail "nothing was added"
[ "$(echo "$XDG_DATA_HOME"/kedrin/modules/bibles/.[!.]*)" = "$XDG_DATA_HOME/kedrin/modules/bibles/.[!.]*" ] ||
    fail "something is left over"

key ctrl+q
for ((i = 0; i < deadline; ++i)); do
    kill -0 "$pid" 2>/dev/null || break
    sleep 0.1
done
kill -0 "$pid" 2>/dev/null && fail "the program goes on"
pid=
