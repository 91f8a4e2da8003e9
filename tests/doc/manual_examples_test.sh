#!/usr/bin/env bash
# Runs the examples of the manual pages: a line "$ COMMAND" in EXAMPLES, ">" continuing it, and below it the output,
# of which a line "..." leaves out the rest. In the folder where they run are my.txt and, also by name, two modules.
# The windows of kedrin and kedrin-add are not opened.
#   manual_examples_test.sh BUILD-FOLDER en|bg TEXTS
set -uo pipefail
build=$1 language=$2 texts=$3/$2
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
unset LANGUAGE LC_ALL LC_MESSAGES
case $language in
    en) export LANG=C.UTF-8 folder=$build/man ;;
    bg) export LANG=bg_BG.UTF-8 folder=$build/man/bg ;;
esac
# beside these copies there are no modules for all users
mkdir -p "$work/bin" "$work/new/modules"
cp -r "$build"/kedrin-module* "$build/locale" "$work/bin"
export PATH=$work/bin:$PATH HOME=$work/page XDG_DATA_HOME=$work/page/data
printf '#!/bin/sh\n' >"$work/bin/kedrin"
printf '#!/bin/sh\n[ -r "$1" ]\n' >"$work/bin/kedrin-add"
chmod +x "$work/bin/kedrin" "$work/bin/kedrin-add"
failures=0 count=0

# examples PAGE: the lines between .EX and .EE, as a reader sees them
examples() {
    awk '/^\.SH / { inside = $0 ~ /^\.SH (EXAMPLES|ПРИМЕРИ)$/ }
        /^\.EE/ { verbatim = 0 } inside && verbatim { print } /^\.EX/ { verbatim = 1 }' "$1" |
        sed "s/\\\\f[BIPR]//g; s/\\\\-/-/g; s/\\\\(aq/'/g; s/\\\\(ti/~/g; s/^\\\\&//; s/\\\\e/\\\\/g"
}

# run_example PAGE COMMAND EXPECTED
run_example() {
    local got said status=0
    got=$(cd "$work/page" && bash -c "$2" 2>"$work/said" </dev/null) || status=$?
    said=$(<"$work/said")
    [ -z "$3" ] || [ "${3%...}" = "$3" ] || got=${got:0:$((${#3} - 3))}...
    count=$((count + 1))
    [ $status -le 1 ] && [ -z "$said" ] && [ "$got" = "$3" ] && return
    printf 'FAILED: %s: %s\nstatus %s %s\n%s\nexpected:\n%s\n' "$1" "$2" "$status" "$said" "$got" "$3"
    failures=$((failures + 1))
}

# run_page PAGE
run_page() {
    local line command='' expected=''
    rm -rf "$work/page" && cp -r "$work/new" "$work/page"
    while IFS= read -r line; do
        case $line in
            '$ '*)
                [ -z "$command" ] || run_example "$1" "$command" "$expected"
                command=${line#??} expected=''
                ;;
            '> '*) command+=$'\n'${line#??} ;;
            *) expected+=${expected:+$'\n'}$line ;;
        esac
    done < <(examples "$1")
    [ -n "$command" ] || { echo "FAILED: $1 has no example" && failures=$((failures + 1)); }
    [ -z "$command" ] || run_example "$1" "$command" "$expected"
}

# every page finds the same modules
mkdir "$work/page"
for text in "$texts"/*.txt; do
    [[ $text == */my.txt ]] && cp "$text" "$work/new" && continue
    kedrin-module add -q "$text" || exit 1
done
cp -r "$work/page/data" "$work/new"
cp -r "$work/page/data/kedrin/modules/bibles" "$work/new/modules"
for page in "$folder"/man[15]/*; do
    run_page "$page"
done
[ $count -ge 25 ] || { echo "FAILED: only $count examples" && failures=1; }
[ $failures -eq 0 ]
