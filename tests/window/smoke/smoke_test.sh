#!/usr/bin/env bash
# smoke_test.sh KEDRIN WRITE_MODULES PICTURES: uses the real program by mouse and keyboard.
set -euo pipefail
kedrin=$1 write_modules=$2 pictures=$3
source "$(dirname "$0")/smoke_lib.sh"
home=$scratch/Читалня
mkdir "$home"
"$write_modules" "$home/modules/bibles"
ln -s "$kedrin" "$home/kedrin"

start "$home/kedrin"
beginning=$last

# by keyboard: F5 and typed text in each box
key F5; enter 'рут' book-typed
key Tab; enter '3' chapter-typed
key Tab; enter '18' verse-typed
key Up Up; moved verse-by-arrows
key F5; text 'няма такава'; key Return
key Tab shift+Tab; enter 'битие' book-typed-again

# by mouse: the wheel over a box, a choice from its list
xdotool mousemove 340 42 click 5; moved chapter-by-wheel
click 456 42; key Home; key Return; moved chapter-from-list
click 684 42; key Home; key Return; back_to "$beginning" back-at-the-beginning

# chapter links by mouse
key F8; moved links
with_links=$last
click_link 7; moved link-to-chapter-7
click_link 2; back_to "$with_links" link-back
key F8; back_to "$beginning" links-off

# the last chapter of Psalms in two translations
key F5; enter 'псалтир' psalms
key Tab; enter '2' psalm-2
psalm=$last
menu 1 2; moved second-translation
click 270 102; back_to "$psalm" first-tab
click 410 102; moved second-tab
menu 1 3
answer_box damaged-module
xdotool windowfocus "$window"

# search, and a click on a hit
key F3 F3; search 'псалми' 60 300 hit

# close both translations, open one again
menu 1 2; menu 1 1
menu 1 1; moved opened-again

menu 0 1
ends 0
