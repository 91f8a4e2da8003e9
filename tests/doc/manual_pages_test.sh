#!/usr/bin/env bash
# The manual pages of both languages: well-formed, found by apropos, with the options of the help.
#   manual_pages_test.sh KEDRIN-MODULE MANUAL-FOLDER PROJECT LAUNCHER
set -uo pipefail
tool=$1 manual=$2 project=$3 launcher=$4
export LC_ALL=C.UTF-8 MANPAGER=cat
unset LANGUAGE MANROFFOPT
failures=0
fail() { echo "FAILED: $*"; failures=$((failures + 1)); }

# complaints PAGE: mandoc counts the bytes of escapes, and eight for a Cyrillic letter; here lines are measured as shown
complaints() {
    mandoc -T lint "$1" | grep -v 'STYLE: input text line longer than 80 bytes'
    mandoc -T utf8 -O width=78 "$1" | sed 's/.\x08//g' | grep -E '^.{79}'
    sed '/^\.EX/,/^\.EE/d' "$1" | grep -E '[[:lower:])][.?!] +[[:upper:]]' | sed 's/$/ (a sentence begins a line)/'
    man --warnings -l "$1" 2>&1 >/dev/null
}

# help_options PROGRAM [COMMAND]; page_options PAGE: one a line, as --from FORMAT, which stands for a long list of words;
# without --help
help_options() {
    LC_ALL=$locale "$@" --help | sed -nE '/^  -/ { s/^  //; s/  .*//; s/ [a-z|-]{50,}/ FORMAT/; /^-h,/d; p }' | sort
}
page_options() {
    awk '/^\.SH / { inside = $0 ~ /^\.SH (OPTIONS|ОПЦИИ)$/ } inside && last == ".TP" { print } { last = $0 }' "$1" |
        sed -E 's/^\.[BIR]+ //; s/"//g; s/\\-/-/g; s/\\~/ /g; s/ *([|,]) */\1/g; s/  +/ /g; /^-h,/d' | sort
}

# check_options PAGE PROGRAM [COMMAND]
check_options() {
    local difference
    difference=$(diff <(help_options "${@:2}" | sed "s/FORMAT/$format/") <(page_options "$1"))
    [ -z "$difference" ] || fail "$1: options of the help (<) and the page (>): $difference"
    for word in $("${@:2}" --help | grep -oE '^  --from [a-z|-]*' | cut -c 10- | tr '|' ' '); do
        grep -qxE "\.BR? ${word/-/\\\\-}( ,)?( or)?\.?|\.BR? ${word/-/\\\\-} [.,]" "$1" || fail "$1: lacks the format $word"
    done
}

# check_references PAGE FOLDER: the pages that it refers to exist, and are not itself
check_references() {
    local name section
    while read -r name section; do
        [ -s "$2/man$section/$name.$section" ] || fail "$1: there is no $name($section)"
        [ "$(basename "$1")" != "$name.$section" ] || fail "$1: refers to itself"
    done < <(sed -nE 's/\\-/-/g; s/^\.(BR|BR .*,) (.*" )?([a-z-]+) \(([0-9])\).*/\3 \4/p' "$1")
}

# check_messages PAGE: the sources, or the translations, have the messages that it explains
check_messages() {
    local message
    while IFS= read -r message; do
        grep -rqF -- "$message" "$project"/{src,scripts} || fail "$1: there is no message \"$message\""
    done < <(awk '/^\.SH / { inside = $0 ~ /^\.SH (DIAGNOSTICS|СЪОБЩЕНИЯ)$/ } inside && last == ".TP" { print }
        { last = $0 }' "$1" | sed 's/^\.B //; s/\\-/-/g')
}

# outline PAGE: what both languages have in common
outline() { grep -oE '^\.(TH|SH|SS|SY|TP|EX)( KEDRIN[^ ]*)?|^\$' "$1"; }

commands=$("$tool" --help | sed -n '/^Subcommands:/,$ s/^  \([a-z]*\) .*/\1/p')
[ "$(wc -w <<<"$commands")" -eq 12 ] || fail "the help lists: $commands"
while read -r locale folder format; do
    for command in $commands; do
        check_options "$folder/man1/kedrin-module-$command.1" "$tool" "$command"
        grep -qF "kedrin\\-module\\-$command (1)" "$folder/man1/kedrin-module.1" ||
            fail "$folder/man1/kedrin-module.1 does not list $command"
    done
    check_options "$folder/man1/kedrin-module.1" "$tool"
    check_options "$folder/man1/kedrin.1" "$launcher"
    pages=("$folder"/man1/*.1 "$folder"/man5/*.5)
    [ ${#pages[@]} -eq 16 ] || fail "$folder: ${#pages[@]} pages"
    for page in "${pages[@]}"; do
        name=$(basename "${page%.*}")
        found=$(complaints "$page")
        [ -z "$found" ] || fail "$page: $found"
        [[ $(lexgrog "$page") =~ "$page: \"$name - "[^\"]{20,60}\"$ ]] || fail "$(lexgrog "$page")"
        check_references "$page" "$folder"
        check_messages "$page"
        cmp -s <(outline "$page") <(outline "$manual/${page#"$folder/"}") || fail "$page differs from the English page"
    done
done <<END
C.UTF-8 $manual FORMAT
bg_BG.UTF-8 $manual/bg ФОРМАТ
END
[ $failures -eq 0 ]
