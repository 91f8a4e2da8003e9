#!/usr/bin/env bash
# Completion in bash: commands, every option of each, the words of options, files.
#   completion_test.sh KEDRIN-MODULE COMPLETION
set -uo pipefail
PATH=$(dirname "$1"):$PATH
source /usr/share/bash-completion/bash_completion
source "$2"
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work" || exit 1
mkdir "a module" && touch "a text.txt"
failures=0

# complete_line WORDS...: the completions after the words, sorted, one per line
complete_line() {
    COMP_WORDS=("$@") COMP_CWORD=$(($# - 1)) COMP_LINE="$*" COMP_TYPE=9 COMP_KEY=9 COMPREPLY=()
    COMP_POINT=${#COMP_LINE}
    _kedrin_module kedrin-module "${*: -1}" "${*: -2:1}" 2>/dev/null
    printf '%s\n' "${COMPREPLY[@]}" | LC_ALL=C sort
}

# expect WANTED WORDS...
expect() {
    local wanted=$1 got
    shift
    got=$(complete_line "$@" | tr '\n' ' ')
    [ "$got" = "$wanted" ] && return
    printf 'FAILED: %s\n  wanted: %s\n  got:    %s\n' "$*" "$wanted" "$got"
    failures=$((failures + 1))
}

expect "--help --version add build check diff export get info list remove search show words " kedrin-module ""
expect "search show " kedrin-module s
for command in add build check export get list remove show search info words diff; do
    options=$(LC_ALL=C kedrin-module "$command" --help | grep -oE '^  (-[a-z],)?--[a-z-]+' | sed 's/.*\(--\)/\1/' | LC_ALL=C sort | tr '\n' ' ')
    [[ $options == *--help* ]] || { echo "FAILED: the help of $command has no options"; failures=1; }
    expect "$options" kedrin-module "$command" -
done
expect "--count " kedrin-module search m --cou
expect "beblia ces json opensong osis plain-lines sqlite usfm usfx usx verse-lines yaml zefania " kedrin-module build --from ""
expect "osis " kedrin-module export m --to o
expect "html json markdown text " kedrin-module show m Jn --format ""
expect "text-blanks text-byte-98 " kedrin-module check --only text-b
expect "orthodox protestant source " kedrin-module build --book-order ""
expect "bg source " kedrin-module build --titles ""
expect "a module " kedrin-module get x --repository ""
expect " " kedrin-module get x --language b
expect "a module " kedrin-module show ""
expect "a module " kedrin-module show m Jn --with a
expect "a module a text.txt " kedrin-module build a
expect " " kedrin-module build x y --title a

export XDG_DATA_HOME=$work/data
printf 'Gen\t1\t1\ta\n1Sam\t1\t1\ta\n' >text.txt
versifications=$(kedrin-module build text.txt module --versification ? 2>&1 | sed 's/.*(known: \(.*\))/\1/; s/,//g' | tr ' ' '\n' | LC_ALL=C sort | tr '\n' ' ')
expect "$versifications" kedrin-module build --versification ""
kedrin-module add text.txt --as "my text" -q && kedrin-module add text.txt --as mine -q && rm text.txt || failures=1
expect "mine my\\ text " kedrin-module show m
expect "mine my\\ text " kedrin-module show m Jn --with m
expect "a module data mine my\\ text " kedrin-module search ""
expect "1\\ Цар Бит " kedrin-module show mine ""
expect "Бит " kedrin-module show "my text" Б
expect "Бит " kedrin-module search mine --range Б

LC_ALL= LANG=bg_BG.UTF-8 expect "--counts --help " kedrin-module words --
[ $failures -eq 0 ]
