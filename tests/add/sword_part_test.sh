#!/usr/bin/env bash
# sword_part_test.sh KEDRIN-ADD: it executes kedrin-add-sword, beside itself or as installed, with its own arguments; where
# there is none that can be executed, it opens itself. Without a display that is one sentence and the status 1.
set -euo pipefail
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
unset DISPLAY WAYLAND_DISPLAY LANGUAGE LC_ALL LC_MESSAGES LANG QT_QPA_PLATFORM
mkdir -p "$work/bin" "$work/lib/kedrin"
cp "$1" "$work/bin"

# expect STATUS BEGINNING: what the program ends with and says
expect() {
    local status=0 said
    said=$(timeout 60 "$work/bin/kedrin-add" 'a b' 2>&1) || status=$?
    [[ $status = "$1" && $said = "$2"* ]] || { echo "status $status: $said"; exit 1; }
}

# part FOLDER: a program that says how it is called
part() {
    rm -f "$work"/*/kedrin-add-sword "$work"/lib/kedrin/kedrin-add-sword
    printf '#!/bin/sh\necho "%s: $#: $1"\nexit 7\n' "$1" >"$work/$1/kedrin-add-sword"
    chmod +x "$work/$1/kedrin-add-sword"
}

itself="kedrin-add: "
expect 1 "$itself"
part bin
expect 7 "bin: 1: a b"
part lib/kedrin
expect 7 "lib/kedrin: 1: a b"
chmod -x "$work/lib/kedrin/kedrin-add-sword"
expect 1 "$itself"
rm "$work/lib/kedrin/kedrin-add-sword"
ln -s ../../bin/kedrin-add "$work/lib/kedrin/kedrin-add-sword"
expect 1 "$itself"
ln "$work/bin/kedrin-add" "$work/bin/kedrin-add-sword"
expect 1 "$itself"
