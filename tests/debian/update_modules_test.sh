#!/usr/bin/env bash
# update_modules_test.sh PROJECT KEDRIN-MODULE: what is done for texts that come, change, go and cannot be built, in a
# folder that stands for /.
set -uo pipefail
script=$1/debian/update-modules tool=$2
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
export DPKG_ROOT=$work PATH=$work/bin:$PATH LC_ALL=C.UTF-8
unset LANGUAGE SWORD_PATH
state=$work/var/lib/kedrin sword=$work/usr/share/sword log=$work/var/log/kedrin/update-modules.log
mkdir -p "$work/bin" "$sword/mods.d" "$work/elsewhere"
cd "$work/elsewhere" || exit
failures=0
language=C.UTF-8

# expect WHAT WANTED GOT
expect() {
    [ "$2" = "$3" ] && return
    printf 'FAILED: %s\n  wanted: %s\n  got:    %s\n' "$1" "$2" "$3"
    failures=$((failures + 1))
}

# gives WHAT STATUS LINE MODULES [ARGUMENT...]: what the script comes to, and the modules that are shown then.
gives() {
    local said status=0
    said=$(env LC_ALL="$language" "$script" "${@:5}" 2>&1) || status=$?
    expect "$1: status" "$2" "$status"
    expect "$1: output" "$3" "$said"
    expect "$1: modules" "$4" "$(shown)"
}

# The names of the modules.
shown() {
    local module
    for module in "$state"/modules/bibles/*/; do
        [ ! -e "$module/BibleTitles.txt" ] || printf '%s ' "$(basename "$module")"
    done
}
logs() { expect "log: $1" "$1" "$(sed 1d "$log")"; }
ready() { echo "kedrin: modules made of SWORD texts: $1"; }
trouble="kedrin: not every SWORD text could be made a module; the reasons are in $log"

# add_text NAME: a RawText of one verse, Gen 1:1, whose file begins with the headings of the Bible, the testament, the
# book and the chapter.
add_text() {
    local data=$sword/modules/$1 text="In the beginning $1"
    mkdir -p "$data"
    printf '[%s]\nDataPath=./modules/%s/\nModDrv=RawText\nEncoding=UTF-8\nLang=en\nDescription=Text %s\n' "$1" "$1" "$1" \
        >"$sword/mods.d/$1.conf"
    printf '%s' "$text" >"$data/ot"
    { printf '\0%.0s' {1..28}; printf '%b\0' "\\x$(printf %x ${#text})"; } >"$data/ot.vss"
    : >"$data/nt"
    : >"$data/nt.vss"
}
remove_text() { rm -r "$sword/mods.d/$1.conf" "$sword/modules/$1"; }

ln -s "$tool" "$work/bin/kedrin-module"
gives 'no text' 0 "$(ready 0)" ''
logs 'no SWORD Bible is installed'
expect 'numbering' ../../sword/BibleStructure.txt "$(readlink "$state/modules/bibles/BibleStructure.txt")"

add_text One
gives 'a first text' 0 "$(ready 1)" 'one '
logs 'One: built, 1 book, 1 verse: Text One'
expect 'its verse' 'In the beginning One' "$("$tool" show "$state/modules/bibles/one" 'Gen 1:1' | grep -o 'In the.*')"
expect 'is sound' 0 "$("$tool" check "$state/modules/bibles/one" >/dev/null; echo $?)"
expect 'readable by all' 755 "$(stat -Lc %a "$state/modules/bibles/one")"
before=$(stat -c '%i %Y %Z' "$state/sword/one/CompactText.bin" "$state/modules/bibles/one")
gives 'again' 0 "$(ready 1)" 'one '
logs 'One: up to date'
expect 'nothing is made again' "$before" "$(stat -c '%i %Y %Z' "$state/sword/one/CompactText.bin" "$state/modules/bibles/one")"

add_text Two.B
ln -s nowhere "$state/modules/bibles/two.b"
gives 'behind a link of the administrator' 0 "$(ready 1)" 'one '
rm "$state/modules/bibles/two.b" && rm -r "$state/sword/two.b"
gives 'a second text' 0 "$(ready 2)" 'one two.b '
logs $'One: up to date\nTwo.B: built, 1 book, 1 verse: Text Two.B'
sed -i 's/Description=.*/Description=Another/' "$sword/mods.d/One.conf"
gives 'a changed text' 0 "$(ready 2)" 'one two.b '
logs $'One: built, 1 book, 1 verse: Another\nTwo.B: up to date'

mkdir "$state/modules/bibles/mine" # put there by the administrator
cp "$state/sword/one/"* "$state/modules/bibles/mine"
remove_text One
language=bg_BG.UTF-8 gives 'a text goes' 0 'kedrin: модули, направени от текстове на SWORD: 1' 'mine two.b '
logs $'one: removed, as its text is no longer installed\nTwo.B: up to date'
expect 'only what was made is gone' 'BibleStructure.txt two.b' "$(ls -A "$state/sword" | paste -sd ' ')"

add_text Mine
gives 'a text of that name' 0 "$(ready 1)" 'mine two.b '
logs "Mine: built, 1 book, 1 verse: Text Mine
Two.B: up to date
mine: not shown, as $state/modules/bibles/mine is something else"
remove_text Mine
gives 'goes' 0 "$(ready 1)" 'mine two.b '
expect 'the module of the administrator' 'Another' "$("$tool" info "$state/modules/bibles/mine" | grep -o Another)"

# What cannot be built leaves the module of before.
printf 'Encoding=Unknown\n' >>"$sword/mods.d/Two.B.conf"
truncate -s 3 "$sword/modules/Two.B/ot.vss"
gives 'a damaged text' 1 "$trouble" 'mine two.b '
expect 'names it' 'Two.B' "$(sed 1d "$log" | grep -o 'kedrin-module: Two.B' | cut -d ' ' -f 2)"
language=bg_BG.UTF-8 gives 'in Bulgarian' 1 \
    "kedrin: не от всеки текст на SWORD можа да се направи модул; причините са в $log" 'mine two.b '
add_text Three
gives 'beside a sound one' 1 "$trouble" 'mine three two.b '
add_text Two.B
gives 'repaired' 0 "$(ready 2)" 'mine three two.b '

# A removal that was broken off, and a text whose name is not known while its file cannot be read.
mv "$state/sword/three" "$state/sword/.three.removed"
ln -s nowhere "$sword/mods.d/broken.conf"
gives 'an unreadable configuration' 1 "$trouble" 'mine three two.b '
rm "$sword/mods.d/broken.conf"
expect 'what was left over' '' "$(ls -A "$state/sword" | grep removed)"

# Two runs at once: the second waits for the first.
exec 8<"$state/sword"
flock 8
"$script" >"$work/waiting" 2>&1 8<&- &
for _ in {1..100}; do
    grep -q -- "-> FLOCK .*:$(stat -c %i "$state/sword") " /proc/locks && break
    sleep 0.05
done
expect 'waits' '' "$(<"$work/waiting")"
exec 8<&-
wait $!
expect 'then runs' "$(ready 2)" "$(<"$work/waiting")"

# What a failing tool comes to, whatever it prints.
rm "$work/bin/kedrin-module"
printf '#!/bin/sh\nyes "a page of text" | head -n 200\nexec kill -SEGV $$\n' >"$work/bin/kedrin-module"
chmod +x "$work/bin/kedrin-module"
gives 'the tool crashes' 1 "$trouble" 'mine three two.b '
rm "$work/bin/kedrin-module"
PATH=/usr/bin:/bin gives 'without the tool' 1 "$trouble" 'mine three two.b '
printf '#!/bin/sh\npwd; echo "$@" "$SWORD_PATH" "$HOME"\n' >"$work/bin/kedrin-module"
chmod +x "$work/bin/kedrin-module"
gives 'how the tool is called' 0 "$(ready 2)" 'mine three two.b '
logs $'/\n'"build --all-sword $state/sword $sword /nonexistent"

gives 'a wrong argument' 2 'usage: update-modules [--remove]' 'mine three two.b ' --other
gives 'too many' 2 'usage: update-modules [--remove]' 'mine three two.b ' --remove all
gives 'removed' 0 '' 'mine ' --remove
expect 'what remains' "$state/modules/bibles/mine" "$(find "$state" "$work/var/log" -mindepth 1 -name 'mine' -o -type l -o -name '*.log')"
expect 'folders' modules "$(ls -A "$state")"
gives 'removed again' 0 '' 'mine ' --remove

# Where nothing can be written.
rmdir "$work/var/log" && : >"$work/var/log"
gives 'no log' 1 "kedrin: the modules of SWORD texts were not updated: $state/sword or $log cannot be written" 'mine '
exit $((failures > 0))
