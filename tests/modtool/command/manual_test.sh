#!/usr/bin/env bash
# The manual pages: complete, well-formed, in both languages.
#   manual_test.sh KEDRIN-MODULE MANUAL-FOLDER
set -uo pipefail
tool=$1 manual=$2
export LC_ALL=C.UTF-8
failures=0
fail() { echo "FAILED: $*"; failures=$((failures + 1)); }

# page FILE: its rendered text in one line
page() { mandoc -T utf8 -O width=200 "$1" | sed 's/.\x08//g' | tr -s ' \n' ' '; }

english=$(page "$manual/man1/kedrin-module.1") bulgarian=$(page "$manual/bg/man1/kedrin-module.1")
for page in "$manual/man1/kedrin-module.1" "$manual/bg/man1/kedrin-module.1"; do
    complaints=$(mandoc -T lint -W warning "$page" | grep -v 'missing date')
    [ -z "$complaints" ] || fail "$complaints"
done
commands=$("$tool" --help | sed -n '/^Subcommands:/,$ s/^  \([a-z]*\) .*/\1/p')
[ "$(wc -w <<<"$commands")" -eq 12 ] || fail "the help lists: $commands"
for command in $commands; do
    options=$("$tool" "$command" --help | grep -oE '^  (-q,)?--[a-z-]+')
    for word in "kedrin-module $command" ${options//-h,--help/}; do
        [[ $english == *"$word"* ]] || fail "the manual page lacks $word"
        [[ $bulgarian == *"$word"* ]] || fail "the Bulgarian manual page lacks $word"
    done
done
[[ $english == *"Exit codes: 0 done 1 the source was rejected"* ]] || fail "no exit codes"
[[ $bulgarian == *"Кодове на изход: 0 готово 1 източникът е отхвърлен"* ]] || fail "no Bulgarian exit codes"
[[ $bulgarian == *"kedrin-module show modules/bibles/my Йоан 3:16"* ]] || fail "no Bulgarian examples"
[ $failures -eq 0 ]
