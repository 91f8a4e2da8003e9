#!/usr/bin/env bash
# The installed files work: the programs of the tool, the catalogue, the manual, the completion; without
# SWORD, everything except reading its texts.
#   install_test.sh BUILD-FOLDER
set -euo pipefail
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
unset LC_ALL LC_MESSAGES LANGUAGE

cmake --install "$1" --prefix "$work/usr" >/dev/null
printf 'Gen\t1\t1\tВ начало\n' >"$work/a.txt"
report=$(LANG=bg_BG.UTF-8 "$work/usr/bin/kedrin-module" build "$work/a.txt" "$work/a")
[[ $report == *"съдържа       1 книга, 1 глава, 1 стих"* ]] || { echo "$report"; exit 1; }
said=$(LANG=bg_BG.UTF-8 "$work/usr/bin/kedrin-module" show "$work/b" Бит 2>&1 || true)
[ "$said" = "kedrin-module: $work/b: не е папка на модул" ] || { echo "$said"; exit 1; }
for file in share/man/{,bg/}man1/{kedrin,kedrin-add,kedrin-module,kedrin-module-get}.1 \
    share/man/{,bg/}man5/kedrin-module.5 share/bash-completion/completions/kedrin-module \
    share/fish/vendor_completions.d/kedrin-module.fish share/zsh/site-functions/_kedrin-module \
    bin/kedrin bin/kedrin-add lib/kedrin/kedrin lib/kedrin/kedrin-add-sword; do
    [ -s "$work/usr/$file" ] || { echo "$file is not installed"; exit 1; }
done

# Without the SWORD library, and the part of the tool that is linked with it.
tool=$work/usr/bin/kedrin-module private=$work/usr/lib/kedrin
for program in "$tool" "$private/kedrin-module-all" "$work/usr/bin/kedrin-add"; do
    if readelf -d "$program" | grep NEEDED.*sword; then echo "$program needs SWORD"; exit 1; fi
done
export LC_ALL=C.UTF-8 XDG_DATA_HOME=$work/data HOME=$work

# What transfers files: it serves its parent only, and where it is missing the tool says so.
if "$private/kedrin-sword-transfer" http://127.0.0.1:1/a "$work/got" 1000 1000 1; then echo "has another parent"; exit 1; fi
[ ! -e "$work/got" ]
rm "$private/kedrin-sword-transfer"
code=0
said=$("$tool" get --list --repository http://127.0.0.1:1 --yes 2>&1) || code=$?
[ "$code $said" = "1 kedrin-module: $private/kedrin-sword-transfer: No such file or directory" ] || { echo "$code $said"; exit 1; }

rm "$private/kedrin-module-sword"
"$tool" build --versification Synodal "$work/a.txt" "$work/b" | grep -x "numbering     Synodal" >/dev/null
"$tool" add "$work/a.txt" | grep "^added         a;" >/dev/null
"$tool" check "$XDG_DATA_HOME/kedrin/modules/bibles" | grep "/a: sound" >/dev/null
"$tool" export "$work/b" --to osis | grep "Bible.KJV" >/dev/null

# refused TEXT ARGUMENTS...
refused() {
    local text=$1 code=0 said
    shift
    said=$("$tool" "$@" 2>&1) || code=$?
    [ "$code $said" = "3 kedrin-module: $text" ] || { echo "$*: exit code $code: $said"; exit 1; }
}
english="the part of the program with SWORD support is not installed; apt install kedrin-module-sword installs it"
refused "$english" add sword:KJV
refused "$english" build sword:KJV "$work/c"
refused "$english" build --all-sword "$work/c"
refused "$english" get --list --repository "$work"
LC_ALL=bg_BG.UTF-8 refused "частта от програмата, която работи със SWORD, не е инсталирана; apt install kedrin-module-sword я инсталира" \
    add sword:KJV
[ ! -e "$work/c" ]
"$tool" get --help | grep NAME >/dev/null
echo "not a program" >"$private/kedrin-module-sword"
refused "$private/kedrin-module-sword: Permission denied" add sword:KJV
