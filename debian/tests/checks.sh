# Sourced by the tests of the installed packages, in the folder of the sources. $work is a folder of theirs.
set -euo pipefail
export LC_ALL=C.UTF-8
work=${AUTOPKGTEST_TMP:-$(mktemp -d)}
modules=/usr/lib/kedrin/modules/bibles

# check WHAT COMMAND...: a line for what holds; where it does not, what the command said, and the end.
check() {
    local what=$1 said
    shift
    if said=$("$@" 2>&1); then
        echo "ok      $what"
    else
        echo "FAILED  $what"
        printf '        %s\n' "$*" "${said//$'\n'/$'\n'        }"
        exit 1
    fi
}

# check_not WHAT COMMAND...: the same for a command that has to fail.
check_not() { check "$1" not "${@:2}"; }
not() { ! "$@"; }

# says TEXT COMMAND...: whether the text is a part of what the command prints.
says() { "${@:2}" | grep -F -- "$1"; }

is_module() { kedrin-module check --quiet "$modules/$1" && [ "$(kedrin-module show "$modules/$1" John 3:16 | wc -m)" -gt 100 ]; }
shows_window() { scripts/screenshot.sh kedrin "$1" && scripts/check_picture.sh "$1"; }
same_picture() { [ "$(convert "$1" rgba:- | cksum)" = "$(convert "$2" rgba:- | cksum)" ]; }
