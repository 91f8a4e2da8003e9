#!/usr/bin/env bash
# The launcher starts the program by its full path, or by a link next to the user's own modules.
#   launcher_test.sh LAUNCHER
set -euo pipefail
work=$(mktemp -d)
trap 'chmod -R u+w "$work"; rm -rf "$work"' EXIT

prefix="$work/usr with blanks"
system="$prefix/lib/kedrin/modules/bibles"
mkdir -p "$prefix/bin" "$system/kjv" "$system/web" "$system/empty"
touch "$system/kjv/BibleTitles.txt" "$system/web/BibleTitles.txt"
install -m 755 "$1" "$prefix/bin/kedrin"
printf '#!/bin/sh\necho "$0" "$@"\n' >"$prefix/lib/kedrin/kedrin"
chmod +x "$prefix/lib/kedrin/kedrin"
ln -s "$prefix/bin/kedrin" "$work/kedrin"
export XDG_DATA_HOME="$work/my data"
own="$XDG_DATA_HOME/kedrin"

fail() { echo "$*"; find "$work" -path '*kedrin*' | sort; exit 1; }
starts() { # starts PROGRAM: checks what the launcher starts, with its arguments
    local said
    said=$("$work/kedrin" -style x)
    [ "$said" = "$1 -style x" ] || fail "started $said, not $1"
}
leads() { [ "$(readlink "$own/modules/bibles/$1")" = "$system/$1" ] || fail "$1 leads to $(readlink "$own/modules/bibles/$1")"; }

starts "$prefix/lib/kedrin/kedrin" # without the user's own modules
[ ! -e "$own" ] || fail "made $own"

mkdir -p "$own/modules/bibles/my" "$own/modules/bibles/web" "$own/modules/bibles/!kjv"
touch "$own/modules/bibles/web/BibleTitles.txt"
starts "$own/kedrin"
[ "$(readlink "$own/kedrin")" = "$prefix/lib/kedrin/kedrin" ] || fail "the program's link"
[ ! -L "$own/modules/bibles/web" ] || fail "his own web is gone"
[ ! -e "$own/modules/bibles/kjv" ] || fail "kjv stands beside his own, which is to be first"
[ ! -e "$own/modules/bibles/empty" ] || fail "empty is no module"

rmdir "$own/modules/bibles/!kjv"
starts "$own/kedrin"
leads kjv
before=$(stat -c '%i %z' "$own/modules/bibles/kjv" "$own/kedrin")
starts "$own/kedrin"
[ "$before" = "$(stat -c '%i %z' "$own/modules/bibles/kjv" "$own/kedrin")" ] || fail "made the same links again"

mv "$system/kjv" "$system/niv" # the package has another module now
starts "$own/kedrin"
[ ! -L "$own/modules/bibles/kjv" ] || fail "a link that leads nowhere stays"
leads niv

mv "$prefix" "$work/opt" # installed elsewhere
prefix="$work/opt" system="$work/opt/lib/kedrin/modules/bibles"
ln -sfn "$prefix/bin/kedrin" "$work/kedrin"
starts "$own/kedrin"
leads niv
[ -z "$(find "$own" -name '*.new.*')" ] || fail "a link was left half-made"

if [ "$(id -u)" != 0 ]; then # root may write everywhere
    rm "$own/modules/bibles/niv"
    chmod a-w "$own/modules/bibles"
    starts "$prefix/lib/kedrin/kedrin"
fi
unset XDG_DATA_HOME
HOME=$work/home starts "$prefix/lib/kedrin/kedrin"
mkdir -p "$work/home/.local/share/kedrin/modules/bibles"
HOME=$work/home starts "$work/home/.local/share/kedrin/kedrin"
