# shellcheck shell=bash
# Sourced by the scripts that drive the real program on a bare X server, with $pictures set: no window
# manager, one screen of 710x680 or more. The widgets of another process are not accessible, so pictures of
# the page are compared.

page_region=440x480+216+128 # inside the chapter view of a window of 700x670 at 0,0
deadline=${deadline:-150}   # polls, one every 0.1 s

# A keyboard with all Cyrillic letters: otherwise xdotool would redefine keys while the program reads them.
setxkbmap -layout bg -variant phonetic

export LC_ALL=C.UTF-8
rm -rf "$pictures" && mkdir -p "$pictures"
scratch=$(mktemp -d) # removed with the script, like the program
pid=
clean() {
    [ -z "$pid" ] || kill "$pid" 2>/dev/null || true
    rm -rf "$scratch"
}
trap clean EXIT

fail() {
    import -window root "$pictures/failed.png" || true
    echo "FAILED: $*" >&2
    exit 1
}

# open_window PROGRAM: starts it in the background, waits for its window and focuses it.
open_window() {
    "$1" &
    pid=$!
    window=$(timeout 60 xdotool search --all --sync --onlyvisible --pid "$pid" --name 'Kedrin за Linux' | head -n 1)
    [ -n "$window" ] || fail "no window"
    xdotool windowfocus "$window"
}

# start PROGRAM: as open_window, and waits for the page.
start() {
    open_window "$1"
    last=
    moved start
}

page() { import -window root -crop "$page_region" +repage rgb:- | cksum; }

# becomes_other NAME POLLS: whether the page changes and then no longer changes; saved as NAME.png.
becomes_other() {
    local current previous=none i
    for ((i = 0; i < $2; ++i)); do
        current=$(page)
        if [ "$current" != "$last" ] && [ "$current" = "$previous" ]; then
            last=$current
            import -window root "$pictures/$1.png"
            return 0
        fi
        previous=$current
        sleep 0.1
    done
    return 1
}

moved() { becomes_other "$1" "$deadline" || fail "$1: the page did not change"; }

# enter TEXT NAME: types into the focused box and waits for the page. Programs with this toolkit sometimes
# lose a simulated key (in 4 of 100 words, even a single line edit does), so the text is then typed again.
enter() {
    for _ in 1 2 3 4; do
        text "$1"
        key Return
        becomes_other "$2" 40 && return
        key Tab shift+Tab # selects the text of the box
    done
    fail "$2: the page did not change"
}

# search TEXT X Y NAME: searches from the focused box, clicks a row, and waits for the page.
search() {
    for _ in 1 2 3 4; do
        text "$1"
        key Return
        click "$2" "$3"
        becomes_other "$4" 40 && return
        key F3 F3
    done
    fail "$4: the page did not change"
}

# back_to SUM NAME: the page becomes the one with this checksum again.
back_to() {
    local i
    for ((i = 0; i < deadline; ++i)); do
        last=$(page)
        if [ "$last" = "$1" ]; then
            import -window root "$pictures/$2.png"
            return
        fi
        sleep 0.1
    done
    fail "$2: the page is not the one that it was"
}

key() { xdotool key --delay 30 "$@"; }
text() { xdotool type --delay 30 "$1"; }
click() { xdotool mousemove "$1" "$2" click 1; }

# menu RIGHT N: chooses the N-th item of the menu RIGHT steps from the first.
menu() {
    local step first=$(($1 == 0 ? 0 : 1)) # a menu reached by Right has its first item highlighted
    click 25 12
    for ((step = 0; step < $1; ++step)); do key Right; done
    for ((step = first; step < $2; ++step)); do key Down; done
    key Return
}

# click_link N: clicks the N-th link (from 1) of the first row of links, found by its underline.
click_link() {
    local spot
    spot=$(import -window root -crop "$page_region" +repage -depth 8 txt:- | awk -F'[,:() ]+' -v wanted="$1" '
        $1 ~ /^[0-9]+$/ && $3 < 60 && $4 < 60 && $5 > 180 { blue[$2 "," $1] = 1; ++count[$2] }
        END {
            for (y = 0; y < 480 && count[y] < 12; ++y) continue     # the first row with an underline in it
            best = y; for (r = y; r < y + 25; ++r) if (count[r] > count[best]) best = r
            start = -1; n = 0
            for (x = 0; x <= 440; ++x) {
                on = blue[best "," x]
                if (on && start < 0) start = x
                if (!on && start >= 0) { if (++n == wanted) { print int((start + x) / 2), best - 4; exit } start = -1 }
            }
        }')
    [ -n "$spot" ] || fail "no link $1 on the page"
    click $((216 + ${spot% *})) $((128 + ${spot#* }))
}

error_boxes() { xdotool search --all --onlyvisible --pid "$pid" --name '^Грешка$' 2>/dev/null || true; }

# answer_box NAME: waits for the error box, saves its picture and closes it by Return.
answer_box() {
    local box i
    for ((i = 0; i < deadline; ++i)); do
        box=$(error_boxes | tail -n 1)
        [ -z "$box" ] || break
        sleep 0.1
    done
    [ -n "$box" ] || fail "$1: no box"
    import -window root "$pictures/$1.png"
    kill -0 "$pid" || fail "$1: the program did not wait for the box"
    for ((i = 0; i < deadline; ++i)); do # the box takes the focus after it has been drawn
        [ -n "$(error_boxes)" ] || return 0
        xdotool windowfocus "$box" key Return 2>/dev/null || true
        sleep 0.1
    done
    fail "$1: the box stays"
}

# ends STATUS: waits until the program ends by itself with this status.
ends() {
    local i status=0
    for ((i = 0; i < deadline; ++i)); do
        kill -0 "$pid" 2>/dev/null || break
        sleep 0.1
    done
    kill -0 "$pid" 2>/dev/null && fail "the program goes on"
    wait "$pid" || status=$?
    pid=
    [ "$status" -eq "$1" ] || fail "status $status instead of $1"
}
