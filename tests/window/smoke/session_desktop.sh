# shellcheck shell=bash
# Sourced by session_test.sh: simulates a desktop for the program with the settings that real desktops
# provide.

# use_desktop DPI PALETTE FOLDER: the resolution as a resource of the screen; dark colours as KDE's settings, in FOLDER.
use_desktop() {
    xprop -root -format RESOURCE_MANAGER 8s -set RESOURCE_MANAGER "Xft.dpi:"$'\t'"$1"$'\n'
    export XDG_CONFIG_HOME=$3/config
    mkdir -p "$XDG_CONFIG_HOME"
    unset QT_QPA_PLATFORMTHEME QT_STYLE_OVERRIDE QT_SCALE_FACTOR QT_FONT_DPI KDE_SESSION_VERSION
    [ "$2" = dark ] || return 0
    export QT_QPA_PLATFORMTHEME=kde KDE_SESSION_VERSION=5
    local group
    for group in Window=42,46,50 View=27,30,32 Button=49,54,59 Tooltip=49,54,59; do
        printf '[Colors:%s]\nBackgroundNormal=%s\nForegroundNormal=252,252,252\nForegroundLink=29,153,243\n' \
            "${group%=*}" "${group#*=}"
    done >"$XDG_CONFIG_HOME/kdeglobals"
    printf '[Colors:Selection]\nBackgroundNormal=61,120,190\nForegroundNormal=252,252,252\n' \
        >>"$XDG_CONFIG_HOME/kdeglobals"
}

# paper_is light|dark: the background of the page, in its lower right corner.
paper_is() {
    local grey
    expect label 'Текст на главата'
    grey=$(import -window root -crop \
        1x1+$((scale * ($(field 1) + $(field 3) - 24)))+$((scale * ($(field 2) + $(field 4) - 6))) \
        -colorspace gray -format '%[fx:int(100*mean)]' info:)
    case $1 in
        light) [ "$grey" -gt 90 ] ;;
        dark) [ "$grey" -lt 20 ] ;;
    esac || fail "the page is not $1: $grey of 100"
}
