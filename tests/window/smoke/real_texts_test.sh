#!/usr/bin/env bash
# real_texts_test.sh KEDRIN KEDRIN_MODULE PICTURES: reads Debian's KJV and WEB, built by the module tool.
set -euo pipefail
kedrin=$1 kedrin_module=$2 pictures=$3
source "$(dirname "$0")/smoke_lib.sh"
"$kedrin_module" build --all-sword "$scratch/modules/bibles"
ln -s "$kedrin" "$scratch/kedrin"
start "$scratch/kedrin"

# Psalm 119, verse 105, in both
key F5; enter 'псалми' psalms
key Tab; enter '119' psalm-119
key Tab; enter '105' psalm-119-105
psalm=$last
menu 1 2; moved second-translation
click 240 102; back_to "$psalm" first-tab
click 470 102; moved second-tab

# a book that only the second has; the first shows its beginning
key F5; enter 'товит' deuterocanonical
click 240 102; moved book-is-missing

# a chapter link, then a hit of a search for a part of a word
key F8; moved links
click_link 2; moved link
click 28 132 # the box "part of a word"
key F3 F3
setxkbmap -layout us
search 'lovingk' 60 260 hit

menu 0 1
ends 0
