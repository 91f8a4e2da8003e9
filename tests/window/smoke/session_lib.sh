# shellcheck shell=bash
# Sourced after smoke_lib.sh by scripts that ask the program what it shows, through what it tells assistive technology.
# They find things by role and name and so work at any size of the screen's dots.
# Needs: $window_seen, $pictures, and after open_session $pid, $window and $scale (dots to the toolkit's pixel).

# open_session PROGRAM: starts it, gives its window the keyboard, and waits until it answers.
open_session() {
    "$window_seen" 0 || true # wakes the accessibility bus, so that the program finds it
    export QT_LINUX_ACCESSIBILITY_ALWAYS_ON=1
    open_window "$1"
    expect frame 'Kedrin за Linux'
    scale=$(($(xdotool getwindowgeometry --shell "$window" | sed -n 's/^WIDTH=//p') / $(field 3)))
}

# find_thing ROLE [NAME [STATES [TEXT]]]: the things seen last that have this role, this name if one is given, and
# states and text that match. found is the first.
find_thing() {
    found=$(awk -F'\t' -v role="$1" -v name="${2-}" -v states="${3-}" -v text="${4-}" '
        $1 == role && (name == "" || $2 == name) && $4 ~ states && $5 ~ text' <<<"$snapshot")
    found=${found%%$'\n'*}
    [ -n "$found" ]
}

look() { snapshot=$("$window_seen" "$pid" 2>/dev/null) || snapshot=; }

# eventually COMMAND...: looks until it is so.
eventually() {
    local i
    for ((i = 0; i < deadline; ++i)); do
        look
        if [ -n "$snapshot" ] && "$@"; then return; fi
        sleep 0.1
    done
    lacks "$*"
}

# expect, expect_none ROLE [NAME [STATES [TEXT]]]: waits until there is such a thing, or none.
expect() { eventually find_thing "$@"; }
expect_none() { eventually no_thing "$@"; }
no_thing() { ! find_thing "$@"; }

lacks() {
    printf '%s\n' "$snapshot" | cut -c -200 >"$pictures/failed.txt"
    fail "$*"
}

# Of what was found last: x, y, width, height are fields 1 to 4.
field() { cut -f 3 <<<"$found" | cut -d ' ' -f "$1"; }

# press_found: a click into the middle. press ROLE [NAME [STATES [TEXT]]]: the same once there is such a thing.
press_found() { click $((scale * ($(field 1) + $(field 3) / 2))) $((scale * ($(field 2) + $(field 4) / 2))); }
press() { expect "$@" && press_found; }

# to ROLE NAME: Tab until it has the keyboard.
to() {
    local i
    for ((i = 0; i < 20; ++i)); do
        look
        if find_thing "$1" "$2" focused; then return; fi
        key Tab
    done
    lacks "not reached by Tab: $*"
}

# write_into NAME TEXT: replaces what stands in the box that has the keyboard, without what is completed; the box may
# spell capitals its own way. A key can get lost (see enter), so it is typed again until it stands there.
write_into() {
    local written
    expect text "$1" focused
    case $2 in
        *[А-я]*) setxkbmap -layout bg -variant phonetic ;;
        *) setxkbmap -layout us ;;
    esac
    for _ in 1 2 3 4 5; do
        key ctrl+a
        text "$2"
        key Delete
        look
        if find_thing text "$1" focused && written=$(cut -f 5 <<<"$found") && [ "${written,,}" = "${2,,}" ]; then return; fi
    done
    lacks "not written: $*"
}

# choose MENU ITEM: opens a menu by the keyboard and chooses an item.
choose() {
    key Alt_L
    expect 'menu item' '' focused
    menu_key Right "$1"
    key Down
    menu_key Down "$2"
    key Return
}

# menu_key KEY NAME: the key until the item has the keyboard.
menu_key() {
    local i
    for ((i = 0; i < 10; ++i)); do
        look
        if find_thing 'menu item' "$2" focused; then return; fi
        key "$1"
    done
    lacks "not reached by $1: $2"
}

# picture NAME: keeps the screen once it rests.
picture() {
    local current previous=none i
    for ((i = 0; i < deadline; ++i)); do
        current=$(import -window root rgb:- | cksum)
        [ "$current" != "$previous" ] || break
        previous=$current
        sleep 0.1
    done
    import -window root "$pictures/$1.png"
}

# page_is_kept, page_is_back NAME: the picture of the page is to be the same later as it is now.
page_is_kept() {
    expect label 'Текст на главата'
    page_region=$((scale * $(field 3)))x$((scale * $(field 4)))+$((scale * $(field 1)))+$((scale * $(field 2)))
    last=
    becomes_other kept "$deadline"
}
page_is_back() { back_to "$last" "$1"; }

# give_keyboard_to NAME: to a window of the program; without a window manager a dialog does not take it.
give_keyboard_to() {
    xdotool windowfocus "$(timeout 60 xdotool search --all --sync --onlyvisible --pid "$pid" --name "$1" | tail -n 1)"
}
