#!/bin/sh
# uninstall.sh BUILD: removes what `cmake --install BUILD` has installed last, as its manifests list it, and the
# directories below the prefix that are empty then. /usr and /usr/local keep the directories that every system has there.
set -eu
build=$1

remove_empty() { # remove_empty DIRECTORY: it and those above it, up to the prefix
    directory=$1
    while :; do
        case $directory in
            /usr/bin | /usr/include | /usr/lib | /usr/share | /usr/share/man | /usr/local | /usr) break ;;
            /usr/local/bin | /usr/local/include | /usr/local/lib | /usr/local/share | /usr/local/share/man) break ;;
            "$prefix" | "$prefix"/*) [ ! -e "${DESTDIR-}$directory" ] || rmdir "${DESTDIR-}$directory" 2>/dev/null || break ;;
            *) break ;;
        esac
        directory=${directory%/*}
    done
}

for manifest in "$build"/install_manifest*.txt; do
    if [ ! -e "$manifest" ]; then
        echo "Nothing was installed from $build." >&2
        exit 1
    fi
    IFS= read -r prefix <"$build/install_prefix.txt"
    while IFS= read -r path || [ -n "$path" ]; do
        if [ ! -d "${DESTDIR-}$path" ] || [ -L "${DESTDIR-}$path" ]; then rm -f "${DESTDIR-}$path"; fi
    done <"$manifest"
    while IFS= read -r path || [ -n "$path" ]; do
        if [ -d "${DESTDIR-}$path" ]; then remove_empty "$path"; else remove_empty "${path%/*}"; fi
    done <"$manifest"
    rm "$manifest"
done
