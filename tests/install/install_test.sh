#!/usr/bin/env bash
# What `cmake --install` puts in place works there, in a folder whose path has blanks and Cyrillic letters, and the target
# uninstall removes it.
#   install_test.sh CMAKE SOURCE BUILD CXX FLAGS
set -euo pipefail
cmake=$1 source=$2 build=$3 cxx=$4 flags=$5
here=$(dirname "$(readlink -f "$0")")
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
prefix="$work/Моите програми/чужди"
fail() { echo "$*" >&2; exit 1; }
files() { (cd "$1" && find . ! -type d | sed 's/^..//' | sort); }
expect_files() { # expect_files DIRECTORY NAME...: they are there
    local directory=$1 name
    shift
    for name; do [ -e "$directory/$name" ] || fail "$directory lacks $name"; done
}

"$cmake" --install "$build" --prefix "$prefix" >"$work/log"
version=$("$prefix/bin/kedrin-module" --version)
[ "$(LC_ALL=C "$prefix/bin/kedrin" --version)" = "Kedrin ${version#kedrin-module }" ] || fail "the launcher's version"
expect_files "$prefix" bin/kedrin bin/kedrin-add bin/kedrin-module lib/kedrin/kedrin lib/kedrin/modules/bibles \
    lib/kedrin/kedrin-module-all lib/kedrin/kedrin-module-sword lib/kedrin/kedrin-sword-transfer share/locale/bg/LC_MESSAGES/kedrin-module.mo \
    share/applications/kedrin.desktop share/icons/hicolor/48x48/apps/kedrin.png share/icons/hicolor/scalable/apps/kedrin.svg \
    share/metainfo/org.example.kedrin.Kedrin.metainfo.xml \
    share/man/man1/kedrin-module.1 share/man/bg/man1/kedrin-module.1 \
    share/bash-completion/completions/kedrin-module share/fish/vendor_completions.d/kedrin-module.fish \
    share/zsh/site-functions/_kedrin-module \
    share/doc/kedrin/guide/bg/index.html share/doc/kedrin/guide/en/index.html share/doc/kedrin/guide/pictures/window.png

# Each file belongs to one component.
: >"$work/parts"
for component in kedrin kedrin-common kedrin-module kedrin-module-sword libtolvo-dev kedrin-doc; do
    "$cmake" --install "$build" --prefix "$work/$component" --component "$component" >/dev/null
    [ ! -d "$work/$component" ] || files "$work/$component" >>"$work/parts"
done
sort "$work/parts" | diff - <(files "$prefix") || fail "the components are not the whole"
rm "$build"/install_manifest_*.txt

# The tool, and a module that it makes where the reader looks for those of the system.
tool="$prefix/bin/kedrin-module"
printf 'Gen\t1\t1\tВ начало бе светлина.\n' >"$work/текст.txt"
export XDG_DATA_HOME="$work/data" LC_ALL=C.UTF-8
"$tool" build "$work/текст.txt" "$prefix/lib/kedrin/modules/bibles/мой" --title "Мой превод" >/dev/null
"$tool" list | grep -q 'Мой превод' || fail "the tool does not find the modules of its own installation"
[ "$("$tool" show мой 'Gen 1:1')" = 'Бит 1:1  В начало бе светлина.' ] || fail "the module is not shown"
LC_ALL=bg_BG.UTF-8 "$tool" help | grep -q 'Команди' || fail "the tool does not find its catalogue"

# The library in other programs, which only know where it is installed.
# shellcheck source=SCRIPTDIR/use_library.sh
source "$here/use_library.sh"

# Removal leaves what others put there.
touch "$prefix/bin/foreign"
"$cmake" --install "$build" --prefix "$prefix" >/dev/null
"$cmake" --build "$build" --target uninstall >/dev/null
[ "$(files "$prefix" | grep -v ^lib/kedrin/modules/bibles/)" = bin/foreign ] || fail "not removed: $(files "$prefix")"
expect_files "$prefix/lib/kedrin/modules/bibles" BibleStructure.txt мой/BibleTitles.txt
rm -r "$prefix/lib/kedrin/modules/bibles"/* "$prefix/bin/foreign"

"$cmake" --install "$build" --prefix "$prefix" >/dev/null
"$cmake" --build "$build" --target uninstall >/dev/null
[ ! -e "$prefix" ] || fail "directories are left: $(find "$prefix")"
! "$cmake" --build "$build" --target uninstall >"$work/log" 2>&1 || fail "removed twice"
grep -q "Nothing was installed from $build." "$work/log" || fail "a second removal says: $(cat "$work/log")"
