#!/usr/bin/env bash
# What is installed works where it is installed: both programs of the tool, the catalogue, the manual, the completion.
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
for file in share/man/man1/kedrin-module.1 share/man/bg/man1/kedrin-module.1 share/bash-completion/completions/kedrin-module \
    bin/kedrin lib/kedrin/kedrin; do
    [ -s "$work/usr/$file" ] || { echo "$file is not installed"; exit 1; }
done
