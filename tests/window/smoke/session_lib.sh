# shellcheck shell=bash
# Sourced after smoke_lib.sh by scripts that examine the program through its accessibility interface. They
# find objects by role and name and so work at any resolution.
# Needs: $window_seen, $pictures, and after open_session $pid, $window and $scale (screen pixels per pixel of
# the toolkit).

# open_session PROGRAM: starts it, focuses its window, and waits until it responds.
open_session() {
    "$window_seen" 0 || true # starts the accessibility bus, so that the program finds it
    export QT_LINUX_ACCESSIBILITY_ALWAYS_ON=1
    open_window "$1"
    expect frame 'Kedrin за Linux'
    scale=$(($(xdotool getwindowgeometry --shell "$window" | sed -n 's/^WIDTH=//p') / $(field 3)))
}

# find_thing ROLE [NAME [STATES [TEXT]]]: the objects of the last query that have this role, this name if
# given, and matching states and text. found is the first.
find_thing() {
    found=$(awk -F'\t' -v role="$1" -v name="${2-}" -v states="${3-}" -v text="${4-}" '
        $1 == role && (name == "" || $2 == name) && $4 ~ states && $5 ~ text' <<<"$snapshot")
    found=${found%%$'\n'*}
    [ -n "$found" ]
}

look() { snapshot=$("$window_seen" "$pid" 2>/dev/null) || snapshot=; }

# eventually COMMAND...: repeats it until it succeeds.
eventually() {
    local i
    for ((i = 0; i < deadline; ++i)); do
        look
        if [ -n "$snapshot" ] && "$@"; then return; fi
        sleep 0.1
    done
    lacks "$*"
}

# expect, expect_none ROLE [NAME [STATES [TEXT]]]: waits until there is such an object, or none.
expect() { eventually find_thing "$@"; }
expect_none() { eventually no_thing "$@"; }
no_thing() { ! find_thing "$@"; }

lacks() {
    printf '%s\n' "$snapshot" | cut -c -200 >"$pictures/failed.txt"
    fail "$*"
}

# Of the object found last: x, y, width, height are fields 1 to 4.
field() { cut -f 3 <<<"$found" | cut -d ' ' -f "$1"; }

# press_found: a click in its middle. press ROLE [NAME [STATES [TEXT]]]: the same once there is such an
# object.
press_found() { click $((scale * ($(field 1) + $(field 3) / 2))) $((scale * ($(field 2) + $(field 4) / 2))); }
press() { expect "$@" && press_found; }

# to ROLE NAME: presses Tab until it has the focus.
to() {
    local i
    for ((i = 0; i < 20; ++i)); do
        look
        if find_thing "$1" "$2" focused; then return; fi
        key Tab
    done
    lacks "not reached by Tab: $*"
}

# write_into NAME TEXT: replaces the text of the focused box, without the completed part; the box may change
# the case. A key can get lost (see enter), so the text is typed again until it is there.
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

# menu_key KEY NAME: presses the key until the item has the focus.
menu_key() {
    local i
    for ((i = 0; i < 10; ++i)); do
        look
        if find_thing 'menu item' "$2" focused; then return; fi
        key "$1"
    done
    lacks "not reached by $1: $2"
}

# picture NAME: saves the screen once it no longer changes.
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

# give_keyboard_to NAME: focuses a window of the program; without a window manager a dialog does not take the
# focus.
give_keyboard_to() {
    xdotool windowfocus "$(timeout 60 xdotool search --all --sync --onlyvisible --pid "$pid" --name "$1" | tail -n 1)"
}
