#!/usr/bin/env bash
# session_test.sh KEDRIN KEDRIN_MODULE WINDOW_SEEN PICTURES DPI PALETTE: a complete session in the real
# program with complete Bibles, by keyboard and mouse: reads, searches, switches, hides, enlarges, closes and
# opens again. DPI is 96 or 192, PALETTE light or dark. What the window shows is compared with the texts
# themselves, as exported and searched by grep.
set -euo pipefail
kedrin=$1 kedrin_module=$2 window_seen=$3 pictures=$4 dpi=$5 palette=$6
here=$(dirname "$0")
source "$here/smoke_lib.sh"
source "$here/session_lib.sh"
source "$here/session_desktop.sh"

"$kedrin_module" build --all-sword "$scratch/modules/bibles" >"$pictures/build.txt"
"$kedrin_module" export --to verse-lines "$scratch/modules/bibles/engkjv2006eb" "$scratch/kjv"
"$kedrin_module" export --to verse-lines "$scratch/modules/bibles/engweb2015eb" "$scratch/web"
ln -s "$kedrin" "$scratch/kedrin"
use_desktop "$dpi" "$palette" "$scratch"

first='King James Version' second='World English Bible with Deuterocanon'
search='Текст за търсене' list='Намерени стихове' page='Текст на главата'
part='Част от дума' case='Различаване на главни и малки букви' repeat='Повтаряне на търсенето при смяна на превода'

# The content of the texts. verses TEXT; count TEXT WORD OPTION...: verses with the word, as found by grep;
# marked TEXT BOOK CHAPTER VERSE: the verse as the page shows it.
verses() { grep -v '^#' "$scratch/$1"; }
count() { verses "$1" | cut -f 4 | grep -c "${@:3}" -- "$2"; }
marked() { verses "$1" | awk -F '\t' -v place="$2 $3 $4" '$1 " " $2 " " $3 == place { print "[" $3 "] " $4 }'; }

# shows BOOK CHAPTER VERSE MARKED: the boxes show the position, and the beginning of the marked verse is
# visible.
shows() { eventually is_at "$@"; }
is_at() {
    find_thing text Книга '' "^$1\$" && find_thing text Глава '' "^$2\$" && find_thing text Стих '' "^$3\$" &&
        is_in_sight red "$4"
}

# is_in_sight ROLE NAME: this text of the page is visible.
is_in_sight() {
    local top bottom
    find_thing label "$page" || return
    top=$(field 2) bottom=$(($(field 2) + $(field 4)))
    find_thing "$@" && [ "$(field 2)" -gt "$top" ] && [ "$(field 2)" -lt "$bottom" ]
}

hits() { expect list "$list" '' "^$1\$"; }

# find TEXT: searches by keyboard only.
find() {
    key F3 && expect_none panel Търсене
    key F3 && write_into "$search" "$1"
    key Return
}

tick() { to 'check box' "$1" && key space; }

start_reading() {
    open_session "$scratch/kedrin"
    shows Битие 1 1 "$(marked kjv Gen 1 1)"
}

read_a_verse() {
    key F5
    write_into Книга 'псалми' && key Return
    to text Глава && write_into Глава 119 && key Return
    to text Стих && write_into Стих 105 && key Return
    shows Псалми 119 105 "$(marked kjv Ps 119 105)"
    picture 02-verse
}

search_with_every_option() {
    find bread && hits "$(count kjv bread -iw)"
    picture 03-whole-word
    tick "$part" && expect 'check box' "$part" checked
    expect 'check box' "$case" enabled
    find bread && hits "$(count kjv bread -i)"
    tick "$case" && expect 'check box' "$case" checked
    find bread && hits "$(count kjv bread)"
    key Home Delete B && expect text "$search" focused '^Bread$' # completion would change its spelling
    key Return && hits "$(count kjv Bread)"
    picture 04-part-with-case
    tick "$case" && expect_none 'check box' "$case" checked
    find bread && hits "$(count kjv bread -i)"
}

jump_to_hits() {
    press 'list item' 'Бит 3:19'
    shows Битие 3 19 "$(marked kjv Gen 3 19)"
    picture 05-hit-by-mouse
    key Down Down Down
    shows Битие 14 18 "$(marked kjv Gen 14 18)"
    picture 06-hit-by-keys
}

switch_with_repeated_search() {
    tick "$repeat" && expect 'check box' "$repeat" checked
    choose Преводи "$second"
    hits "$(count web bread -i)"
    shows Битие 14 18 "$(marked web Gen 14 18)"
    picture 07-second-translation
    press 'page tab' "$first"
    hits "$(count kjv bread -i)"
    shows Битие 14 18 "$(marked kjv Gen 14 18)"
    to 'page tab list' "$first" # passing through the list, which shows its first row
    shows Битие 3 19 "$(marked kjv Gen 3 19)"
    key Right
    hits "$(count web bread -i)"
    shows Битие 3 19 "$(marked web Gen 3 19)"
}

hide_and_show_the_bars() {
    page_is_kept
    key F3 && expect_none panel Търсене
    picture 08-panel-hidden
    key F4 && expect_none 'tool bar'
    picture 09-bars-hidden
    choose Изглед Търсене && expect panel Търсене
    press 'push button' 'Скриване на търсенето' && expect_none panel Търсене
    choose Изглед Търсене && expect text "$search" focused bread
    choose Изглед 'Място в текста' && expect 'tool bar'
    page_is_back 10-bars-shown
}

# choose_size POINTS NAME: chooses a size in the font dialog.
choose_size() {
    choose Изглед 'Шрифт ...'
    expect dialog
    give_keyboard_to 'Select Font'
    setxkbmap -layout us && key alt+s && write_into Size "$1"
    picture "$2-dialog"
    key Return
    expect_none dialog
    xdotool windowfocus "$window"
    expect letters "$1"
    shows Битие 3 19 "$(marked web Gen 3 19)"
    picture "$2"
}

follow_chapter_links() {
    key F8 && expect link 7
    to label "$page" && key Home && eventually is_in_sight link 7
    press_found
    shows Битие 7 1 "$(marked web Gen 7 1)"
    picture 13-links
    to label "$page" && key Tab Return
    shows Битие 6 1 "$(marked web Gen 6 1)"
    picture 14-link-by-keys
    key F8 && expect_none link
}

close_everything_and_open_again() {
    choose Преводи "$second" && expect_none 'page tab' "$second"
    choose Преводи "$first" && expect_none 'page tab'
    picture 15-closed
    key F5 && write_into Книга 'рут' && key Return
    find wisdom && hits "$(count web bread -i)"
    expect text Книга '' '^Битие$'
    choose Преводи "$first" && expect 'page tab' "$first"
    shows Битие 6 1 "$(marked kjv Gen 6 1)"
    picture 16-opened-again
}

leave() {
    choose Файл Изход
    ends 0
}

start_reading
[ "$scale" -eq $((dpi / 96)) ] || fail "$scale dots to the pixel"
paper_is "$palette"
page_is_kept
picture 01-start
beginning=$last
read_a_verse
search_with_every_option
jump_to_hits
switch_with_repeated_search
hide_and_show_the_bars
choose_size 24 11-large
choose_size 12 12-size-of-the-beginning
follow_chapter_links
close_everything_and_open_again
leave
start_reading
last=$beginning
page_is_back 17-started-again
leave
