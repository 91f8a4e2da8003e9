#!/usr/bin/env bash
# guide_pictures.sh KEDRIN KEDRIN_MODULE KEDRIN_ADD WINDOW_SEEN PICTURES [GUIDE-PICTURES]: takes the pictures of the
# guide from the real programs on a bare X server of 800x720 pixels, into PICTURES. With GUIDE-PICTURES, compares them
# with those there, which may differ by a little. They need the fonts of fonts-dejavu-core.
set -euo pipefail
kedrin=$1 kedrin_module=$2 kedrin_add=$3 window_seen=$4 pictures=$5 expected=${6-}
here=$(dirname "$(readlink -f "$0")")
source "$here/../window/smoke/smoke_lib.sh"
source "$here/../window/smoke/session_lib.sh"
source "$here/../window/smoke/session_desktop.sh"

bold=/usr/share/fonts/truetype/dejavu/DejaVuSans-Bold.ttf
tolerated=60 # pixels of a picture that may differ: less than two changed letters

use_desktop 96 light "$scratch"
sed "/<dir>/a <cachedir>$scratch/fonts</cachedir>" "$here/fonts.conf" >"$scratch/fonts.conf"
export FONTCONFIG_FILE=$scratch/fonts.conf XDG_DATA_HOME=$scratch/data SWORD_PATH=$scratch/sword HOME=$scratch
unset LANGUAGE XDG_CURRENT_DESKTOP
scale=1

# rests: waits until the screen has not changed for two seconds; saves it as taken.png.
rests() {
    local current previous=none i same=0
    for ((i = 0; i < deadline && same < 20; ++i)); do
        current=$(import -window root rgb:- | cksum)
        if [ "$current" = "$previous" ]; then same=$((same + 1)); else same=0; fi
        previous=$current
        sleep 0.1
    done
    import -window root "$pictures/taken.png"
}

# take NAME GEOMETRY [OPTION...]: a part of the screen once it rests, with few colours, as NAME.png
take() {
    rests
    convert "$pictures/taken.png" -crop "$2" +repage "${@:3}" +dither -colors 64 -strip \
        -define png:compression-level=9 "$pictures/$1.png"
    rm "$pictures/taken.png"
}

# mark X,Y...: sets `marks`, the options that draw numbered discs there
mark() {
    local place x y n=0
    marks=(-font "$bold" -pointsize 17)
    for place in "$@"; do
        x=${place%,*} y=${place#*,} n=$((n + 1))
        marks+=(-fill '#c0392b' -stroke white -strokewidth 2 -draw "circle $x,$y $((x + 13)),$y"
            -fill white -stroke none -draw "text $((x - 5)),$((y + 6)) '$n'")
    done
}

end_program() {
    kill "$pid"
    wait "$pid" || true
    pid=
}

prepare() {
    local text
    cp "$here/sample.usfm" "$scratch/Примерен превод.usfm"
    mkdir -p "$scratch/sword/mods.d"
    ln -s /usr/share/sword/modules "$scratch/sword"
    for text in engKJV2006eb engWEB2015eb; do ln -s "/usr/share/sword/mods.d/$text.conf" "$scratch/sword/mods.d"; done
    "$kedrin_module" add "$here/sample.txt" --as a --quiet
    "$kedrin_module" add sword:KJV --as kjv --quiet
    "$kedrin_module" add sword:WEB --as web --quiet
    ln -s "$kedrin" "$XDG_DATA_HOME/kedrin/kedrin"
}

picture_kedrin() {
    open_session "$XDG_DATA_HOME/kedrin/kedrin"
    expect red '[1] Най-напред Бог създаде небето и земята.'
    choose Преводи 'King James Version'
    expect 'page tab' 'King James Version'
    press 'page tab' 'Примерен превод'
    key F3 F3
    write_into 'Текст за търсене' светлина
    key Return
    press 'list item' 'Бит 1:3'
    expect red '[3] И Бог каза: „Нека бъде светлина!“ И стана светлина.'
    mark 320,12 430,60 585,103 640,212 112,152 95,330
    take window 700x670+0+0 "${marks[@]}"
    press 'check box' 'Част от дума'
    key F3 F3
    write_into 'Текст за търсене' свет
    key Return
    press 'list item' 'Бит 1:5'
    expect red '[5] Светлината Бог нарече ден, а мрака – нощ. Мина вечер, мина утро: един ден.'
    take search 700x400+0+0
    click 120 12
    take translations 700x240+0+0
    key Escape
    end_program
}

# open_add TITLE [FILE]: starts kedrin-add and waits for its window.
open_add() {
    "$kedrin_add" "${@:2}" &
    pid=$!
    window=$(timeout 60 xdotool search --all --sync --onlyvisible --pid "$pid" --name "$1" | head -n 1)
    [ -n "$window" ] || fail "no window"
}

# picture_add SUFFIX LOCALE TITLE GROUP INSTALLED SWORD
picture_add() {
    unset LC_ALL
    LANG=$2 open_add "$3" "$scratch/Примерен превод.usfm"
    export LC_ALL=C.UTF-8
    expect panel "$4" showing
    take_add "add$1" 440
    press 'page tab' "$5"
    press 'table cell' 'Примерен превод'
    take_add "installed$1" 260
    press 'page tab' "$6"
    press 'table cell' 'King James Version'
    take_add "sword$1" 340
    end_program
}

# picture_no_texts SUFFIX LOCALE: the box of the launcher, where there is no module
picture_no_texts() {
    unset LC_ALL
    LANG=$2 open_add Kedrin --no-texts
    export LC_ALL=C.UTF-8
    expect 'push button'
    eval "$(xdotool getwindowgeometry --shell "$window")"
    take "no-texts$1" "${WIDTH}x$HEIGHT+$X+$Y"
    end_program
}

# take_add NAME HEIGHT
take_add() {
    xdotool windowsize --sync "$window" 600 "$2"
    take "$1" "600x$2+0+0"
}

# compare_picture FILE: with the one of the guide
compare_picture() {
    local name=${1##*/} differing
    [ -e "$expected/$name" ] || fail "the guide has no $name; the target guide-pictures makes it"
    differing=$(compare -metric AE -fuzz 12% "$1" "$expected/$name" "$pictures/differences.png" 2>&1) || true
    [[ $differing =~ ^[0-9]+$ ]] && [ "$differing" -le "$tolerated" ] ||
        fail "$name differs from that of the guide ($differing pixels); the target guide-pictures makes it anew"
}

prepare
picture_kedrin
picture_add '' bg_BG.UTF-8 'Текстове за Kedrin' 'Какво е разпознато' 'Инсталирани преводи' \
    'Текстове от SWORD'
picture_add -en C.UTF-8 'Texts for Kedrin' 'What was understood' 'Installed translations' \
    'SWORD texts'
picture_no_texts '' bg_BG.UTF-8
picture_no_texts -en C.UTF-8
[ -n "$expected" ] || exit 0
for picture in "$pictures"/*.png; do compare_picture "$picture"; done
[ "$(cd "$expected" && ls)" = "$(cd "$pictures" && ls --ignore=differences.png)" ] ||
    fail "the guide has other pictures than those made: $(ls "$expected")"
